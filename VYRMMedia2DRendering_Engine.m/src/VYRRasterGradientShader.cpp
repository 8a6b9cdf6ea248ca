#include "VYRRasterGradientShader.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "VYRRasterBlendMode.h"

VYR_IMPLEMENT_ABSTRACT_CLASS(VYRRasterGradientShader, VYRRasterShader, "Engine")

namespace {

// Straight colour between two stops, by i_weight / 256, each channel rounded: the four
// channels sit in 16-bit lanes of one 64-bit value, so one multiply weighs them all.
uint32_t Mix(uint32_t i_from, uint32_t i_to, unsigned i_weight) {
  constexpr uint64_t kLanes = 0x00FF00FF00FF00FFull;
  const uint64_t from = (i_from | (uint64_t(i_from) << 24)) & kLanes;
  const uint64_t to = (i_to | (uint64_t(i_to) << 24)) & kLanes;
  const uint64_t mixed = ((from * (256 - i_weight) + to * i_weight + 0x0080008000800080ull) >> 8) & kLanes;
  return static_cast<uint32_t>(mixed | (mixed >> 24));
}

}  // namespace

VYRRasterGradientShader::VYRRasterGradientShader(const uint32_t* i_colors, const float* i_positions, int i_count,
                                                 TileMode i_mode)
    : _tileMode(i_mode) {
  std::fill(_straight, _straight + kTableSize, 0u);
  std::fill(_table, _table + kTableSize, 0u);
  if (!i_colors || i_count <= 0) {
    _opaque = false;
    return;
  }
  // Stops with positions made usable: inside 0..1, never going back.
  std::vector<float> positions(i_count);
  float previous = 0.0f;
  for (int i = 0; i < i_count; ++i) {
    float p = i_positions ? i_positions[i] : (i_count == 1 ? 0.0f : static_cast<float>(i) / (i_count - 1));
    if (!(p >= 0.0f)) p = 0.0f;  // NaN too
    p = std::clamp(p, previous, 1.0f);
    positions[i] = previous = p;
  }
  int stop = 0;
  for (int entry = 0; entry < kTableSize; ++entry) {
    const float t = static_cast<float>(entry) / (kTableSize - 1);
    while (stop < i_count && positions[stop] < t) ++stop;
    uint32_t color;
    if (stop == 0) {
      color = i_colors[0];
    } else if (stop == i_count) {
      color = i_colors[i_count - 1];
    } else {
      const float span = positions[stop] - positions[stop - 1];
      const float weight = span > 0 ? (t - positions[stop - 1]) / span : 1.0f;
      color = Mix(i_colors[stop - 1], i_colors[stop], static_cast<unsigned>(std::clamp(weight, 0.0f, 1.0f) * 256.0f + 0.5f));
    }
    _straight[entry] = color;
    _opaque = _opaque && (color >> 24) == 255;
  }
}

bool VYRRasterGradientShader::setContext(const VYRRasterMatrix& i_totalMatrix, uint8_t i_paintAlpha) {
  const bool invertible = VYRRasterShader::setContext(i_totalMatrix, i_paintAlpha);
  // Draws in a row mostly share one alpha: the table stays as it is.
  if (_tableAlpha == i_paintAlpha) return invertible;
  _tableAlpha = i_paintAlpha;
  for (int i = 0; i < kTableSize; ++i) {
    uint32_t color = _straight[i];
    if (i_paintAlpha != 255) {
      const unsigned alpha = ((color >> 24) * i_paintAlpha + 127) / 255;
      color = (color & 0x00FFFFFF) | (alpha << 24);
    }
    _table[i] = VYRRasterBlender::Premultiply(color);
  }
  return invertible;
}

void VYRRasterGradientShader::ShadeLinearSpan(int64_t i_t0, int64_t i_dt, int i_count,
                                              uint32_t* o_premultiplied) const {
  int64_t t = i_t0;
  constexpr int64_t kMask = kFixedOne - 1;
  switch (getTileMode()) {
    case kRepeat_TileMode:
      for (int i = 0; i < i_count; ++i, t += i_dt) o_premultiplied[i] = _table[(t & kMask) >> 24];
      break;
    case kMirror_TileMode:
      for (int i = 0; i < i_count; ++i, t += i_dt) o_premultiplied[i] = _table[(((t & kFixedOne) ? ~t : t) & kMask) >> 24];
      break;
    default:
      for (int i = 0; i < i_count; ++i, t += i_dt) o_premultiplied[i] = _table[std::clamp<int64_t>(t, 0, kMask) >> 24];
      break;
  }
}

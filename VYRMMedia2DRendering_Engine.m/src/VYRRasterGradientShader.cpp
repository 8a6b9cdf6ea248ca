#include "VYRRasterGradientShader.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "VYRRasterBlendMode.h"

VYR_IMPLEMENT_ABSTRACT_CLASS(VYRRasterGradientShader, VYRRasterShader, "Engine")

namespace {

int Channel(uint32_t i_color, int i_shift) { return static_cast<int>((i_color >> i_shift) & 0xFF); }

// Straight colour between two stops, each channel rounded.
uint32_t Mix(uint32_t i_from, uint32_t i_to, float i_weight) {
  uint32_t out = 0;
  for (int shift = 0; shift < 32; shift += 8) {
    const float c = Channel(i_from, shift) + (Channel(i_to, shift) - Channel(i_from, shift)) * i_weight;
    out |= static_cast<uint32_t>(std::clamp(static_cast<int>(c + 0.5f), 0, 255)) << shift;
  }
  return out;
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
      color = span > 0 ? Mix(i_colors[stop - 1], i_colors[stop], (t - positions[stop - 1]) / span) : i_colors[stop];
    }
    _straight[entry] = color;
    _opaque = _opaque && (color >> 24) == 255;
  }
}

bool VYRRasterGradientShader::setContext(const VYRRasterMatrix& i_totalMatrix, uint8_t i_paintAlpha) {
  const bool invertible = VYRRasterShader::setContext(i_totalMatrix, i_paintAlpha);
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

int64_t VYRRasterGradientShader::ToFixed(double i_t) {
  // Far beyond 0..1 every mode's answer is already decided by the low bits or the clamp; the
  // limit keeps sums of many steps inside 64 bits.
  constexpr double kLimit = 1.0e6;
  if (!(i_t == i_t)) return 0;
  return static_cast<int64_t>(std::clamp(i_t, -kLimit, kLimit) * 4294967296.0);
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

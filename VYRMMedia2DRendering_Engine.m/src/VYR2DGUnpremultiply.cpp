#include "VYR2DGUnpremultiply.h"

#include <array>
#include <cstring>

namespace {

constexpr std::array<uint32_t, 256> MakeScaleTable() {
  std::array<uint32_t, 256> table{};
  for (uint32_t a = 1; a < 256; ++a) {
    const uint64_t scaled = (uint64_t{255} << 24) + a / 2;
    table[a] = static_cast<uint32_t>(scaled / a);
  }
  return table;
}

constexpr std::array<uint32_t, 256> kScaleTable = MakeScaleTable();

inline uint32_t ApplyScale(uint32_t i_scale, uint32_t i_channel) {
  return static_cast<uint32_t>((uint64_t{i_scale} * i_channel + (uint64_t{1} << 23)) >> 24);
}

}  // namespace

uint32_t VYR2DGUnpremultiplyScale(unsigned i_alpha) { return i_alpha < 256 ? kScaleTable[i_alpha] : 0; }

uint32_t VYR2DGUnpremultiplyPixel(uint32_t i_premultiplied) {
  const uint32_t a = i_premultiplied >> 24;
  if (a == 0 || a == 255) return i_premultiplied;
  const uint32_t scale = kScaleTable[a];
  const uint32_t r = ApplyScale(scale, (i_premultiplied >> 16) & 0xFF);
  const uint32_t g = ApplyScale(scale, (i_premultiplied >> 8) & 0xFF);
  const uint32_t b = ApplyScale(scale, i_premultiplied & 0xFF);
  return (a << 24) | (r << 16) | (g << 8) | b;
}

void VYR2DGUnpremultiplyRow(const unsigned char* i_pPixels, size_t i_count, unsigned char* o_pRgba) {
  for (size_t i = 0; i < i_count; ++i) {
    uint32_t pixel;
    std::memcpy(&pixel, i_pPixels + 4 * i, 4);
    const uint32_t straight = VYR2DGUnpremultiplyPixel(pixel);
    // B, G, R, A in memory becomes R, G, B, A: swap the two outer colour bytes.
    const uint32_t rgba = (straight & 0xFF00FF00u) | ((straight >> 16) & 0xFFu) | ((straight & 0xFFu) << 16);
    std::memcpy(o_pRgba + 4 * i, &rgba, 4);
  }
}

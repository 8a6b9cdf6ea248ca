#pragma once

#include <cstdint>

#include "VYRExport.h"

// Transfer modes, numbered as the drawing interface numbers them.
enum VYRRasterBlendMode {
  kClear_VYRBlendMode,
  kSrc_VYRBlendMode,
  kDst_VYRBlendMode,
  kSrcOver_VYRBlendMode,
  kDstOver_VYRBlendMode,
  kSrcIn_VYRBlendMode,
  kDstIn_VYRBlendMode,
  kSrcOut_VYRBlendMode,
  kDstOut_VYRBlendMode,
  kSrcATop_VYRBlendMode,
  kDstATop_VYRBlendMode,
  kXor_VYRBlendMode,
  kPlus_VYRBlendMode,
  kMultiply_VYRBlendMode,
  kScreen_VYRBlendMode,
  kOverlay_VYRBlendMode,
  kDarken_VYRBlendMode,
  kLighten_VYRBlendMode,
  kColorDodge_VYRBlendMode,
  kColorBurn_VYRBlendMode,
  kHardLight_VYRBlendMode,
  kSoftLight_VYRBlendMode,
  kDifference_VYRBlendMode,
  kExclusion_VYRBlendMode,
  kHue_VYRBlendMode,
  kSaturation_VYRBlendMode,
  kColor_VYRBlendMode,
  kLuminosity_VYRBlendMode,
  kLastMode_VYRBlendMode = kLuminosity_VYRBlendMode
};

// Row compositing on premultiplied 0xAARRGGBB pixels.
class VYR_EXPORT VYRRasterBlender {
 public:
  // dst[i] = lerp(dst[i], mode(src[i], dst[i]), coverage[i] / 255) for i < count.
  // A null coverage means full coverage. An unknown mode blends as source-over.
  static void BlendRow(VYRRasterBlendMode i_mode, uint32_t* io_dst, const uint32_t* i_src,
                       const uint8_t* i_coverage, int i_count);
  // BlendRow with every source pixel i_src: the colour of a solid paint.
  static void BlendSolidRow(VYRRasterBlendMode i_mode, uint32_t* io_dst, uint32_t i_src, const uint8_t* i_coverage,
                            int i_count);
  // One pixel, full coverage (reference for tests and slow paths).
  static uint32_t BlendPixel(VYRRasterBlendMode i_mode, uint32_t i_src, uint32_t i_dst);
  // The mode of that number; numbers outside the table are source-over.
  static VYRRasterBlendMode ModeOrSourceOver(int i_mode) {
    return i_mode >= kClear_VYRBlendMode && i_mode <= kLastMode_VYRBlendMode ? static_cast<VYRRasterBlendMode>(i_mode)
                                                                             : kSrcOver_VYRBlendMode;
  }
  // Straight 0xAARRGGBB to premultiplied, each channel c * a / 255 rounded to nearest.
  static uint32_t Premultiply(uint32_t i_color);
  // Every channel of i_count premultiplied pixels times i_alpha / 255, rounded.
  static void ScaleRow(uint32_t* io_pixels, int i_count, uint8_t i_alpha);

  // Luminance of a premultiplied pixel, (54 R + 183 G + 19 B) / 256: 255 for opaque white,
  // 0 for black or transparent.
  static uint8_t Luminance(uint32_t i_premultiplied);
  // Composites through luminance, as masks apply: with source-in the source is kept in
  // proportion to the destination's luminance, with destination-in the destination in
  // proportion to the source's. Other modes composite as BlendRow does.
  static void LumaMaskRow(VYRRasterBlendMode i_mode, uint32_t* io_dst, const uint32_t* i_src,
                          const uint8_t* i_coverage, int i_count);
};

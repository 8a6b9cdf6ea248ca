#pragma once

#include <cstdint>
#include <cstring>

#include "VYR2DGSkiaDrawing.h"
#include "VYR2DGSkiaDrawingContext.h"
#include "VYR2DGSkiaSupport.h"

// A raster surface with a drawing over it, and premultiplied pixels read back
// as 0xAARRGGBB.
class EngineTestSurface {
 public:
  explicit EngineTestSurface(int i_width = 40, int i_height = 40)
      : support(i_width, i_height), drawing(support.GetDrawingContext()) {}

  uint32_t Pixel(int i_x, int i_y, VYR2DGSupport::eBitmapType i_type = VYR2DGSupport::eMainBitmap) const {
    const unsigned char* pData = support.GetData(i_type);
    if (pData == nullptr) return 0xDEADBEEF;
    uint32_t pixel;
    std::memcpy(&pixel, pData + i_y * support.GetDataStride(i_type) + i_x * 4, 4);
    return pixel;
  }
  static unsigned Alpha(uint32_t i_pixel) { return i_pixel >> 24; }
  static unsigned Red(uint32_t i_pixel) { return (i_pixel >> 16) & 0xFF; }
  static unsigned Green(uint32_t i_pixel) { return (i_pixel >> 8) & 0xFF; }
  static unsigned Blue(uint32_t i_pixel) { return i_pixel & 0xFF; }

  VYR2DGSkiaDrawingContext& Context() const {
    return *static_cast<VYR2DGSkiaDrawingContext*>(support.GetDrawingContext());
  }

  // Fills the whole surface with an opaque colour through the drawing.
  void Flood(unsigned char i_r, unsigned char i_g, unsigned char i_b) { drawing.FillWithColor(i_r, i_g, i_b, 255); }

  VYR2DGSkiaSupport support;
  VYR2DGSkiaDrawing drawing;
};

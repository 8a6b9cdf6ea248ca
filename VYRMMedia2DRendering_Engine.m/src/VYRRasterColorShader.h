#pragma once

#include "VYRRasterShader.h"

// One colour everywhere (straight 0xAARRGGBB, scaled by the paint alpha).
class VYR_EXPORT VYRRasterColorShader : public VYRRasterShader {
  VYR_DECLARE_CLASS(VYRRasterColorShader)
 public:
  VYRRasterColorShader() = default;
  explicit VYRRasterColorShader(uint32_t i_color) : _color(i_color) {}
  bool setContext(const VYRRasterMatrix& i_totalMatrix, uint8_t i_paintAlpha) override;
  void shadeRow(int x, int y, int count, uint32_t* o_premultiplied) override;
  bool isOpaque() const override { return (_premultiplied >> 24) == 255; }

 private:
  uint32_t _color = 0xFF000000;
  uint32_t _premultiplied = 0xFF000000;
};

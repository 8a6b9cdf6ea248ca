#pragma once

#include <cstdint>

#include "VYRBaseUnknown.h"
#include "VYRRasterMatrix.h"

// Reference-counted source of colour for a paint. The canvas calls setContext with the
// total matrix and the paint's alpha before a draw, then shadeRow for each row it covers:
// no per-pixel virtual call. Colours are premultiplied 32-bit values 0xAARRGGBB
// (bytes B, G, R, A in memory on little-endian machines), already scaled by the paint alpha.
class VYR_EXPORT VYRRasterShader : public VYRBaseUnknown {
  VYR_DECLARE_CLASS(VYRRasterShader)
 public:
  // What lies outside the shader's natural area: its edge stretched, repeats, or mirrored repeats.
  enum TileMode { kClamp_TileMode, kRepeat_TileMode, kMirror_TileMode };

  // The shader's own transform, applied before the canvas's matrix.
  void setLocalMatrix(const VYRRasterMatrix& i_matrix) { _localMatrix = i_matrix; }
  const VYRRasterMatrix& getLocalMatrix() const { return _localMatrix; }

  // Prepares a draw: stores the inverse of totalMatrix x localMatrix (device to shader space)
  // and the alpha. Returns false when that matrix cannot be inverted: the draw paints nothing.
  virtual bool setContext(const VYRRasterMatrix& i_totalMatrix, uint8_t i_paintAlpha);
  // Colours of the pixels (x .. x + count - 1, y), sampled at pixel centres.
  virtual void shadeRow(int x, int y, int count, uint32_t* o_premultiplied) = 0;
  // Composites the colours of the row straight into io_dst in source-over, each pixel first
  // scaled by its coverage (null: full), exactly as shadeRow and a source-over blend would.
  // False when the shader has no such path for this draw: nothing is then written.
  virtual bool blendRowSrcOver(int x, int y, int count, uint32_t* io_dst, const uint8_t* i_coverage) {
    (void)x, (void)y, (void)count, (void)io_dst, (void)i_coverage;
    return false;
  }
  // True when every colour is opaque once the context is set (lets blending take shortcuts).
  virtual bool isOpaque() const { return false; }

 protected:
  VYRRasterMatrix _localMatrix;
  VYRRasterMatrix _deviceToShader;  // valid after a successful setContext
  uint8_t _paintAlpha = 255;
};

#pragma once

#include "VYRRasterImageFilter.h"

// Its input through a 4 x 5 colour matrix applied to unpremultiplied colour: rows give
// R', G', B' and A' from (R, G, B, A, 1) with channels in 0..255, so the fifth column is an
// offset in 0..255 units. Results are clamped to 0..255 and premultiplied again. When the
// matrix turns transparent pixels visible (a positive alpha offset), the output covers the
// whole clip.
class VYR_EXPORT VYRRasterColorMatrixImageFilter : public VYRRasterImageFilter {
  VYR_DECLARE_CLASS(VYRRasterColorMatrixImageFilter)
 public:
  static constexpr int kCount = 20;
  VYRRasterColorMatrixImageFilter(const float (&i_matrix)[kCount], VYRRasterImageFilter* ipInput = nullptr);

  // The matrix that keeps only alpha, with every colour channel 0.
  static void SourceAlphaMatrix(float (&o_matrix)[kCount]);
  const float* getMatrix() const { return _matrix; }
  // One premultiplied pixel through the matrix.
  uint32_t filterPixel(uint32_t i_premultiplied) const;

 protected:
  VYRRasterImage onFilterImage(Context& io_context) const override;

 private:
  float _matrix[kCount];
};

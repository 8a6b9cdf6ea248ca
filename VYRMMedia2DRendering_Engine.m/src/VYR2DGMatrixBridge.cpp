#include "VYR2DGMatrixBridge.h"

#if defined(VYR2DG_HAS_PLATFORM_MATRIX)
#error "write the conversion through the platform matrix"
#else
VYR2DGAffine VYR2DGSplitMatrix(const VYR3x3Matrix& i_matrix) {
  const float* m = i_matrix.m;
  return VYR2DGAffine{m[0], m[1], m[2], m[3], m[4], m[5]};
}

VYR3x3Matrix VYR2DGMakeMatrix(const VYR2DGAffine& i_affine) {
  VYR3x3Matrix matrix;
  float* m = matrix.m;
  m[0] = i_affine.a;
  m[1] = i_affine.b;
  m[2] = i_affine.c;
  m[3] = i_affine.d;
  m[4] = i_affine.e;
  m[5] = i_affine.f;
  return matrix;
}
#endif

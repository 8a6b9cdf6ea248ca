#pragma once

#include "VYRExport.h"

// Conversion between the platform's float affine matrix and the six entries
// the drawing works with: (x, y) -> (a x + b y + c, d x + e y + f).

#if __has_include("VYR3x3Matrix.h")
#include "VYR3x3Matrix.h"
#define VYR2DG_HAS_PLATFORM_MATRIX 1
#else
// Stand-in used until the platform matrix is part of the build: rows
// (a b c), (d e f), (0 0 1), identity by default.
class VYR3x3Matrix {
 public:
  float m[9] = {1.0f, 0.0f, 0.0f, 0.0f, 1.0f, 0.0f, 0.0f, 0.0f, 1.0f};
};
#endif

struct VYR2DGAffine {
  float a = 1.0f, b = 0.0f, c = 0.0f;
  float d = 0.0f, e = 1.0f, f = 0.0f;
};

VYR_EXPORT VYR2DGAffine VYR2DGSplitMatrix(const VYR3x3Matrix& i_matrix);
VYR_EXPORT VYR3x3Matrix VYR2DGMakeMatrix(const VYR2DGAffine& i_affine);

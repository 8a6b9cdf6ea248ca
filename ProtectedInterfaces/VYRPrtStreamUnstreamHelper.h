#pragma once

#include "VYR5X5ColorMatrix.h"
#include "VYRExport.h"
#include "VYRMath2x2Matrix.h"
#include "VYRMath3x3Matrix.h"
#include "VYRMathPoint2D.h"
#include "VYRMathVector2D.h"

class VYRI2DGStream;

// Static byte forms of the values that model objects embed in a stream.
// Every operation does nothing when given a null stream; a reader then leaves
// its target untouched.
class VYR_EXPORT VYRPrtStreamUnstreamHelper {
 public:
  VYRPrtStreamUnstreamHelper() = delete;

  // Two doubles x, y; no tag.
  static void SerializeVYRMathPoint2D(VYRMathPoint2D& i_point, VYRI2DGStream* ipStream);
  static void CreateVYRMathPoint2DFromStream(VYRMathPoint2D& o_point, VYRI2DGStream* ipStream);
  // The coefficients as doubles, in the order of GetCoef/SetCoef: 4 and 9 of them.
  static void SerializeVYRMath2x2Matrix(VYRMath2x2Matrix& i_matrix, VYRI2DGStream* ipStream);
  static void CreateVYRMath2x2MatrixFromStream(VYRMath2x2Matrix& o_matrix, VYRI2DGStream* ipStream);
  static void SerializeVYRMath3x3Matrix(VYRMath3x3Matrix& i_matrix, VYRI2DGStream* ipStream);
  static void CreateVYRMath3x3MatrixFromStream(VYRMath3x3Matrix& o_matrix, VYRI2DGStream* ipStream);
  // An int count N, then N doubles; the matrix takes them only when N is its coefficient count.
  static void SerializeVYR5X5ColorMatrix(VYR5X5ColorMatrix& i_matrix, VYRI2DGStream* ipStream);
  static void CreateVYR5X5ColorMatrixFromStream(VYR5X5ColorMatrix& o_matrix, VYRI2DGStream* ipStream);
  // Same bytes as a point.
  static void SerializeVYRMathVector2D(VYRMathVector2D& i_vector, VYRI2DGStream* ipStream);
  static void CreateVYRMathVector2DFromStream(VYRMathVector2D& o_vector, VYRI2DGStream* ipStream);
};

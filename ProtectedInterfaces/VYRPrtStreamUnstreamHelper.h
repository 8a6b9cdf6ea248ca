#pragma once

#include "VYRExport.h"
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
  // Same bytes as a point.
  static void SerializeVYRMathVector2D(VYRMathVector2D& i_vector, VYRI2DGStream* ipStream);
  static void CreateVYRMathVector2DFromStream(VYRMathVector2D& o_vector, VYRI2DGStream* ipStream);
};

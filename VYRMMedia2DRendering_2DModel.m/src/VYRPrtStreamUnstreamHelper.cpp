#include "VYRPrtStreamUnstreamHelper.h"

#include "VYRI2DGStream.h"

void VYRPrtStreamUnstreamHelper::SerializeVYRMathPoint2D(VYRMathPoint2D& i_point, VYRI2DGStream* ipStream) {
  if (!ipStream) return;
  ipStream->Stream(i_point.x);
  ipStream->Stream(i_point.y);
}

// Readers fill zeroed temporaries first and store them in one step.
void VYRPrtStreamUnstreamHelper::CreateVYRMathPoint2DFromStream(VYRMathPoint2D& o_point, VYRI2DGStream* ipStream) {
  if (!ipStream) return;
  double x = 0.0, y = 0.0;
  ipStream->Unstream(x);
  ipStream->Unstream(y);
  o_point = VYRMathPoint2D(x, y);
}

void VYRPrtStreamUnstreamHelper::SerializeVYRMathVector2D(VYRMathVector2D& i_vector, VYRI2DGStream* ipStream) {
  VYRMathPoint2D point(i_vector.x, i_vector.y);
  SerializeVYRMathPoint2D(point, ipStream);
}

void VYRPrtStreamUnstreamHelper::CreateVYRMathVector2DFromStream(VYRMathVector2D& o_vector, VYRI2DGStream* ipStream) {
  if (!ipStream) return;
  VYRMathPoint2D point;
  CreateVYRMathPoint2DFromStream(point, ipStream);
  o_vector = VYRMathVector2D(point.x, point.y);
}

#include "VYRPrtStreamUnstreamHelper.h"

#include "VYRAssert.h"
#include "VYRI2DGStream.h"
#include "VYRRawColldouble.h"

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

void VYRPrtStreamUnstreamHelper::SerializeVYRMath2x2Matrix(VYRMath2x2Matrix& i_matrix, VYRI2DGStream* ipStream) {
  if (!ipStream) return;
  double c[4];
  i_matrix.GetCoef(c[0], c[1], c[2], c[3]);
  for (double coef : c) ipStream->Stream(coef);
}

void VYRPrtStreamUnstreamHelper::CreateVYRMath2x2MatrixFromStream(VYRMath2x2Matrix& o_matrix, VYRI2DGStream* ipStream) {
  if (!ipStream) return;
  double c[4] = {};
  for (double& coef : c) ipStream->Unstream(coef);
  o_matrix.SetCoef(c[0], c[1], c[2], c[3]);
}

void VYRPrtStreamUnstreamHelper::SerializeVYRMath3x3Matrix(VYRMath3x3Matrix& i_matrix, VYRI2DGStream* ipStream) {
  if (!ipStream) return;
  double c[9];
  i_matrix.GetCoef(c[0], c[1], c[2], c[3], c[4], c[5], c[6], c[7], c[8]);
  for (double coef : c) ipStream->Stream(coef);
}

void VYRPrtStreamUnstreamHelper::CreateVYRMath3x3MatrixFromStream(VYRMath3x3Matrix& o_matrix, VYRI2DGStream* ipStream) {
  if (!ipStream) return;
  double c[9] = {};
  for (double& coef : c) ipStream->Unstream(coef);
  o_matrix.SetCoef(c[0], c[1], c[2], c[3], c[4], c[5], c[6], c[7], c[8]);
}

void VYRPrtStreamUnstreamHelper::SerializeVYR5X5ColorMatrix(VYR5X5ColorMatrix& i_matrix, VYRI2DGStream* ipStream) {
  if (!ipStream) return;
  VYRRawColldouble coefs;
  i_matrix.GetCoef(coefs);
  ipStream->Stream(coefs.Size());
  for (int position = 1; position <= coefs.Size(); ++position) ipStream->Stream(coefs[position]);
}

void VYRPrtStreamUnstreamHelper::CreateVYR5X5ColorMatrixFromStream(VYR5X5ColorMatrix& o_matrix, VYRI2DGStream* ipStream) {
  if (!ipStream) return;
  int count = 0;
  ipStream->Unstream(count);
  if (!VYR_CHECK_CONDITION(ipStream->CountFits(count, sizeof(double)))) return;
  VYRRawColldouble coefs;
  for (int i = 0; i < count; ++i) {
    double coef = 0.0;
    ipStream->Unstream(coef);
    coefs.Append(coef);
  }
  o_matrix.SetCoef(coefs);  // refuses, with a report, a count other than its own
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

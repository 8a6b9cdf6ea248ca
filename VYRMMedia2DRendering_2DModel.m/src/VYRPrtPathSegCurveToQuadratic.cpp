#include "VYRPrtPathSegCurveToQuadratic.h"

#include <new>

#include "VYRPrtStreamUnstreamHelper.h"

VYRPrtPathSegCurveToQuadratic::VYRPrtPathSegCurveToQuadratic(MM2D::PathCoordMode i_mode, const VYRMathPoint2D& i_cp1,
                                                             const VYRMathPoint2D& i_target)
    : VYRPrtPathSeg(i_mode), _cp1(i_cp1), _target(i_target) {}

VYRPrtPathSeg* VYRPrtPathSegCurveToQuadratic::Duplicate() const {
  return new (std::nothrow) VYRPrtPathSegCurveToQuadratic(*this);
}

MM2D::PathSegType VYRPrtPathSegCurveToQuadratic::GetPathSegType() const {
  return TypeByMode(MM2D::PathSegCurveToQuadraticAbs);
}

VYRPrtPathSegStreamType VYRPrtPathSegCurveToQuadratic::GetStreamType() const {
  return kPathSegStreamTypeCurveToQuadratic;
}

void VYRPrtPathSegCurveToQuadratic::Stream(VYRI2DGStream* ipStream) {
  if (!ipStream) return;
  VYRPrtPathSeg::Stream(ipStream);
  VYRPrtStreamUnstreamHelper::SerializeVYRMathPoint2D(_cp1, ipStream);
  VYRPrtStreamUnstreamHelper::SerializeVYRMathPoint2D(_target, ipStream);
}

void VYRPrtPathSegCurveToQuadratic::Unstream(VYRI2DGStream* ipStream) {
  if (!ipStream) return;
  VYRPrtPathSeg::Unstream(ipStream);
  VYRPrtStreamUnstreamHelper::CreateVYRMathPoint2DFromStream(_cp1, ipStream);
  VYRPrtStreamUnstreamHelper::CreateVYRMathPoint2DFromStream(_target, ipStream);
}

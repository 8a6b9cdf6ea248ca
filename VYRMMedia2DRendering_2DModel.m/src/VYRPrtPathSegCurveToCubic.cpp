#include "VYRPrtPathSegCurveToCubic.h"

#include <initializer_list>
#include <new>

#include "VYRPrtStreamUnstreamHelper.h"

VYRPrtPathSegCurveToCubic::VYRPrtPathSegCurveToCubic(MM2D::PathCoordMode i_mode, const VYRMathPoint2D& i_cp1,
                                                     const VYRMathPoint2D& i_cp2, const VYRMathPoint2D& i_target)
    : VYRPrtPathSeg(i_mode), _cp1(i_cp1), _cp2(i_cp2), _target(i_target) {}

VYRPrtPathSeg* VYRPrtPathSegCurveToCubic::Duplicate() const {
  return new (std::nothrow) VYRPrtPathSegCurveToCubic(*this);
}

MM2D::PathSegType VYRPrtPathSegCurveToCubic::GetPathSegType() const {
  return TypeByMode(MM2D::PathSegCurveToCubicAbs);
}

VYRPrtPathSegStreamType VYRPrtPathSegCurveToCubic::GetStreamType() const { return kPathSegStreamTypeCurveToCubic; }

void VYRPrtPathSegCurveToCubic::Stream(VYRI2DGStream* ipStream) {
  if (!ipStream) return;
  VYRPrtPathSeg::Stream(ipStream);
  for (VYRMathPoint2D* pPoint : {&_cp1, &_cp2, &_target}) {
    VYRPrtStreamUnstreamHelper::SerializeVYRMathPoint2D(*pPoint, ipStream);
  }
}

void VYRPrtPathSegCurveToCubic::Unstream(VYRI2DGStream* ipStream) {
  if (!ipStream) return;
  VYRPrtPathSeg::Unstream(ipStream);
  for (VYRMathPoint2D* pPoint : {&_cp1, &_cp2, &_target}) {
    VYRPrtStreamUnstreamHelper::CreateVYRMathPoint2DFromStream(*pPoint, ipStream);
  }
}

#include "VYRPrtPathSegWithSinglePoint.h"

#include <new>

#include "VYRPrtStreamUnstreamHelper.h"

VYRPrtPathSeg* VYRPrtPathSegWithSinglePoint::Duplicate() const {
  return new (std::nothrow) VYRPrtPathSegWithSinglePoint(*this);
}

VYRPrtPathSegStreamType VYRPrtPathSegWithSinglePoint::GetStreamType() const { return kPathSegStreamTypeSinglePoint; }

void VYRPrtPathSegWithSinglePoint::Stream(VYRI2DGStream* ipStream) {
  if (!ipStream) return;
  VYRPrtPathSeg::Stream(ipStream);
  VYRPrtStreamUnstreamHelper::SerializeVYRMathPoint2D(_target, ipStream);
}

void VYRPrtPathSegWithSinglePoint::Unstream(VYRI2DGStream* ipStream) {
  if (!ipStream) return;
  VYRPrtPathSeg::Unstream(ipStream);
  VYRPrtStreamUnstreamHelper::CreateVYRMathPoint2DFromStream(_target, ipStream);
}

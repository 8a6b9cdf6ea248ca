#include "VYRPrtPathSeg.h"

#include <new>

#include "VYRI2DGStream.h"

VYRPrtPathSeg* VYRPrtPathSeg::Duplicate() const { return new (std::nothrow) VYRPrtPathSeg(*this); }

MM2D::PathSegType VYRPrtPathSeg::GetPathSegType() const { return MM2D::PathSegClosePath; }

VYRPrtPathSegStreamType VYRPrtPathSeg::GetStreamType() const { return kPathSegStreamTypeBase; }

MM2D::PathSegType VYRPrtPathSeg::TypeByMode(MM2D::PathSegType i_absoluteType) const {
  return _coordMode == MM2D::PathCoordAbsolute ? i_absoluteType : static_cast<MM2D::PathSegType>(i_absoluteType + 1);
}

void VYRPrtPathSeg::Stream(VYRI2DGStream* ipStream) {
  if (!ipStream) return;
  ipStream->StreamValue(static_cast<int>(GetStreamType()));
  ipStream->StreamValue(static_cast<int>(_coordMode));
}

void VYRPrtPathSeg::Unstream(VYRI2DGStream* ipStream) {
  if (!ipStream) return;
  int mode = 0;
  ipStream->UnstreamValue(mode);
  _coordMode = static_cast<MM2D::PathCoordMode>(mode);
}

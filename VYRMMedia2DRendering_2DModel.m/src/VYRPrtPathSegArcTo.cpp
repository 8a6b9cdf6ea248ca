#include "VYRPrtPathSegArcTo.h"

#include <initializer_list>
#include <new>

#include "VYRI2DGStream.h"
#include "VYRPrtStreamUnstreamHelper.h"

VYRPrtPathSeg* VYRPrtPathSegArcTo::Duplicate() const { return new (std::nothrow) VYRPrtPathSegArcTo(*this); }

MM2D::PathSegType VYRPrtPathSegArcTo::GetPathSegType() const { return TypeByMode(MM2D::PathSegArcAbs); }

VYRPrtPathSegStreamType VYRPrtPathSegArcTo::GetStreamType() const { return kPathSegStreamTypeArcTo; }

void VYRPrtPathSegArcTo::Stream(VYRI2DGStream* ipStream) {
  if (!ipStream) return;
  VYRPrtPathSeg::Stream(ipStream);
  VYRPrtStreamUnstreamHelper::SerializeVYRMathPoint2D(_center, ipStream);
  for (double value : {_rx, _ry, _rotation, _startAngle, _sweepAngle}) ipStream->StreamValue(value);
  _endPointParameters.Stream(ipStream);
}

void VYRPrtPathSegArcTo::Unstream(VYRI2DGStream* ipStream) {
  if (!ipStream) return;
  VYRPrtPathSeg::Unstream(ipStream);
  VYRPrtStreamUnstreamHelper::CreateVYRMathPoint2DFromStream(_center, ipStream);
  for (double* pValue : {&_rx, &_ry, &_rotation, &_startAngle, &_sweepAngle}) ipStream->UnstreamValue(*pValue);
  _endPointParameters.Unstream(ipStream);
}

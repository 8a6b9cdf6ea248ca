#include "VYRPrtEllipticalArcElt.h"

#include <initializer_list>

#include "VYRI2DGStream.h"
#include "VYRPrtStreamUnstreamHelper.h"

VYR_IMPLEMENT_CLASS(VYRPrtEllipticalArcElt, VYRPrtBaseShapeElt, "Multimedia2DRendering")

VYRPrtEllipticalArcElt::VYRPrtEllipticalArcElt(const VYRMathPoint2D& i_center, double i_horzRadius,
                                               double i_vertRadius, double i_startAngle, double i_sweepAngle,
                                               double i_slope)
    : _center(i_center),
      _horzRadius(i_horzRadius),
      _vertRadius(i_vertRadius),
      _startAngle(i_startAngle),
      _sweepAngle(i_sweepAngle),
      _slope(i_slope) {}

VYRPrtEllipticalArcElt& VYRPrtEllipticalArcElt::operator=(const VYRPrtEllipticalArcElt& iEllipticalArcElt) {
  if (!VYR_CHECK_CONDITION(this != &iEllipticalArcElt)) return *this;
  VYRPrtBaseShapeElt::operator=(iEllipticalArcElt);
  CopyArcFields(iEllipticalArcElt);
  return *this;
}

void VYRPrtEllipticalArcElt::CopyArcFields(const VYRPrtEllipticalArcElt& iEllipticalArcElt) {
  _center = iEllipticalArcElt._center;
  _horzRadius = iEllipticalArcElt._horzRadius;
  _vertRadius = iEllipticalArcElt._vertRadius;
  _startAngle = iEllipticalArcElt._startAngle;
  _sweepAngle = iEllipticalArcElt._sweepAngle;
  _slope = iEllipticalArcElt._slope;
}

// Deliberately narrower than the other shapes: the base part is kept.
void VYRPrtEllipticalArcElt::Reset() {
  _center = VYRMathPoint2D();
  _horzRadius = _vertRadius = _startAngle = _sweepAngle = _slope = 0.0;
}

void VYRPrtEllipticalArcElt::Duplicate(VYRPrtGraphicPrimitiveElt*& opGPElt) { DuplicateShape(*this, opGPElt); }

StreamType VYRPrtEllipticalArcElt::GetStreamType() { return kStreamTypeEllipticalArcElt; }

void VYRPrtEllipticalArcElt::Stream(VYRI2DGStream* ipStream) {
  if (!ipStream) return;
  VYRPrtBaseShapeElt::Stream(ipStream);
  VYRPrtStreamUnstreamHelper::SerializeVYRMathPoint2D(_center, ipStream);
  for (double value : {_horzRadius, _vertRadius, _startAngle, _sweepAngle, _slope}) ipStream->StreamValue(value);
}

void VYRPrtEllipticalArcElt::Unstream(VYRI2DGStream* ipStream) {
  if (!ipStream) return;
  VYRPrtBaseShapeElt::Unstream(ipStream);
  VYRPrtStreamUnstreamHelper::CreateVYRMathPoint2DFromStream(_center, ipStream);
  for (double* pValue : {&_horzRadius, &_vertRadius, &_startAngle, &_sweepAngle, &_slope}) ipStream->UnstreamValue(*pValue);
}

#include "VYRPrtEllipseElt.h"

VYR_IMPLEMENT_CLASS(VYRPrtEllipseElt, VYRPrtBaseShapeElt, "Multimedia2DRendering")

VYRPrtEllipseElt::VYRPrtEllipseElt(const VYRMathPoint2D& i_center, double i_horzRadius, double i_vertRadius,
                                   double i_slope)
    : _center(i_center), _horzRadius(i_horzRadius), _vertRadius(i_vertRadius), _slope(i_slope) {}

VYRPrtEllipseElt& VYRPrtEllipseElt::operator=(const VYRPrtEllipseElt& iEllipseElt) {
  if (!VYR_CHECK_CONDITION(this != &iEllipseElt)) return *this;
  VYRPrtBaseShapeElt::operator=(iEllipseElt);
  SetParameters(iEllipseElt._center, iEllipseElt._horzRadius, iEllipseElt._vertRadius, iEllipseElt._slope);
  return *this;
}

void VYRPrtEllipseElt::GetParameters(VYRMathPoint2D& o_center, double& o_horzRadius, double& o_vertRadius,
                                     double& o_slope) const {
  o_center = _center;
  o_horzRadius = _horzRadius;
  o_vertRadius = _vertRadius;
  o_slope = _slope;
}

void VYRPrtEllipseElt::SetParameters(const VYRMathPoint2D& i_center, double i_horzRadius, double i_vertRadius,
                                     double i_slope) {
  _center = i_center;
  _horzRadius = i_horzRadius;
  _vertRadius = i_vertRadius;
  _slope = i_slope;
}

void VYRPrtEllipseElt::Reset() {
  VYRPrtBaseShapeElt::Reset();
  SetParameters(VYRMathPoint2D(), 0.0, 0.0, 0.0);
}

void VYRPrtEllipseElt::Duplicate(VYRPrtGraphicPrimitiveElt*& opGPElt) { DuplicateShape(*this, opGPElt); }

StreamType VYRPrtEllipseElt::GetStreamType() { return kStreamTypeEllipseElt; }

void VYRPrtEllipseElt::Stream(VYRI2DGStream* ipStream) {
  if (!ipStream) return;
  VYRPrtBaseShapeElt::Stream(ipStream);
  StreamPointAndThreeValues(ipStream, _center, _horzRadius, _vertRadius, _slope);
}

void VYRPrtEllipseElt::Unstream(VYRI2DGStream* ipStream) {
  if (!ipStream) return;
  VYRPrtBaseShapeElt::Unstream(ipStream);
  UnstreamPointAndThreeValues(ipStream, _center, _horzRadius, _vertRadius, _slope);
}

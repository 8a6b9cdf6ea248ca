#include "VYRPrtCircularArcElt.h"

VYR_IMPLEMENT_CLASS(VYRPrtCircularArcElt, VYRPrtBaseShapeElt, "Multimedia2DRendering")

VYRPrtCircularArcElt::VYRPrtCircularArcElt(const VYRMathPoint2D& i_center, double i_radius, double i_startAngle,
                                           double i_endAngle)
    : _center(i_center), _radius(i_radius), _startAngle(i_startAngle), _endAngle(i_endAngle) {}

VYRPrtCircularArcElt& VYRPrtCircularArcElt::operator=(const VYRPrtCircularArcElt& iArcElt) {
  if (!VYR_CHECK_CONDITION(this != &iArcElt)) return *this;
  VYRPrtBaseShapeElt::operator=(iArcElt);
  SetParameters(iArcElt._center, iArcElt._radius, iArcElt._startAngle, iArcElt._endAngle);
  return *this;
}

void VYRPrtCircularArcElt::GetParameters(VYRMathPoint2D& o_center, double& o_radius, double& o_startAngle,
                                         double& o_endAngle) const {
  o_center = _center;
  o_radius = _radius;
  o_startAngle = _startAngle;
  o_endAngle = _endAngle;
}

void VYRPrtCircularArcElt::SetParameters(const VYRMathPoint2D& i_center, double i_radius, double i_startAngle,
                                         double i_endAngle) {
  _center = i_center;
  _radius = i_radius;
  _startAngle = i_startAngle;
  _endAngle = i_endAngle;
}

void VYRPrtCircularArcElt::Reset() {
  VYRPrtBaseShapeElt::Reset();
  SetParameters(VYRMathPoint2D(), 0.0, 0.0, 0.0);
}

void VYRPrtCircularArcElt::Duplicate(VYRPrtGraphicPrimitiveElt*& opGPElt) { DuplicateShape(*this, opGPElt); }

StreamType VYRPrtCircularArcElt::GetStreamType() { return kStreamTypeCircularArcElt; }

void VYRPrtCircularArcElt::Stream(VYRI2DGStream* ipStream) {
  if (!ipStream) return;
  VYRPrtBaseShapeElt::Stream(ipStream);
  StreamPointAndThreeValues(ipStream, _center, _radius, _startAngle, _endAngle);
}

void VYRPrtCircularArcElt::Unstream(VYRI2DGStream* ipStream) {
  if (!ipStream) return;
  VYRPrtBaseShapeElt::Unstream(ipStream);
  UnstreamPointAndThreeValues(ipStream, _center, _radius, _startAngle, _endAngle);
}

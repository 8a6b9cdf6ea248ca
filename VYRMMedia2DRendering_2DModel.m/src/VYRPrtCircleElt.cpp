#include "VYRPrtCircleElt.h"

#include "VYRI2DGStream.h"
#include "VYRPrtStreamUnstreamHelper.h"
#include "VYRStreamRecord.h"

VYR_IMPLEMENT_CLASS(VYRPrtCircleElt, VYRPrtBaseShapeElt, "Multimedia2DRendering")

VYRPrtCircleElt::VYRPrtCircleElt(const VYRMathPoint2D& i_center, double i_radius)
    : _center(i_center), _radius(i_radius) {}

VYRPrtCircleElt& VYRPrtCircleElt::operator=(const VYRPrtCircleElt& iCircleElt) {
  if (!VYR_CHECK_CONDITION(this != &iCircleElt)) return *this;
  VYRPrtBaseShapeElt::operator=(iCircleElt);
  _center = iCircleElt._center;
  _radius = iCircleElt._radius;
  return *this;
}

void VYRPrtCircleElt::GetParameters(VYRMathPoint2D& o_center, double& o_radius) const {
  o_center = _center;
  o_radius = _radius;
}

void VYRPrtCircleElt::SetParameters(const VYRMathPoint2D& i_center, double i_radius) {
  _center = i_center;
  _radius = i_radius;
}

void VYRPrtCircleElt::Reset() {
  VYRPrtBaseShapeElt::Reset();
  _center = VYRMathPoint2D();
  _radius = 0.0;
}

void VYRPrtCircleElt::Duplicate(VYRPrtGraphicPrimitiveElt*& opGPElt) { DuplicateShape(*this, opGPElt); }

StreamType VYRPrtCircleElt::GetStreamType() { return kStreamTypeCircleElt; }

void VYRPrtCircleElt::Stream(VYRI2DGStream* ipStream) {
  if (!ipStream) return;
  VYRPrtBaseShapeElt::Stream(ipStream);
  WriteRecord(ipStream, _center.x, _center.y, _radius);
}

void VYRPrtCircleElt::Unstream(VYRI2DGStream* ipStream) {
  if (!ipStream) return;
  VYRPrtBaseShapeElt::Unstream(ipStream);
  double x = 0.0, y = 0.0;
  ReadRecord(ipStream, x, y, _radius);
  _center = VYRMathPoint2D(x, y);
}

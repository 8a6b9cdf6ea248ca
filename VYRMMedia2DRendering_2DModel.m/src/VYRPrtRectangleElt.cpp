#include "VYRPrtRectangleElt.h"

#include "VYRI2DGStream.h"
#include "VYRPrtStreamUnstreamHelper.h"

VYR_IMPLEMENT_CLASS(VYRPrtRectangleElt, VYRPrtBaseShapeElt, "Multimedia2DRendering")

VYRPrtRectangleElt::VYRPrtRectangleElt(const VYRMathPoint2D& i_firstPoint, const VYRMathPoint2D& i_secondPoint)
    : _firstPoint(i_firstPoint), _secondPoint(i_secondPoint) {}

VYRPrtRectangleElt& VYRPrtRectangleElt::operator=(const VYRPrtRectangleElt& iRectElt) {
  if (!VYR_CHECK_CONDITION(this != &iRectElt)) return *this;
  VYRPrtBaseShapeElt::operator=(iRectElt);
  _firstPoint = iRectElt._firstPoint;
  _secondPoint = iRectElt._secondPoint;
  _horzRadius = iRectElt._horzRadius;
  _vertRadius = iRectElt._vertRadius;
  return *this;
}

void VYRPrtRectangleElt::GetPoints(VYRMathPoint2D& o_firstPoint, VYRMathPoint2D& o_secondPoint) const {
  o_firstPoint = _firstPoint;
  o_secondPoint = _secondPoint;
}

void VYRPrtRectangleElt::SetPoints(const VYRMathPoint2D& i_firstPoint, const VYRMathPoint2D& i_secondPoint) {
  _firstPoint = i_firstPoint;
  _secondPoint = i_secondPoint;
}

void VYRPrtRectangleElt::GetRadius(double& o_horzRadius, double& o_vertRadius) const {
  o_horzRadius = _horzRadius;
  o_vertRadius = _vertRadius;
}

void VYRPrtRectangleElt::SetRadius(double i_horzRadius, double i_vertRadius) {
  _horzRadius = i_horzRadius;
  _vertRadius = i_vertRadius;
}

void VYRPrtRectangleElt::Reset() {
  VYRPrtBaseShapeElt::Reset();
  _firstPoint = _secondPoint = VYRMathPoint2D();
  _horzRadius = _vertRadius = 0.0;
}

void VYRPrtRectangleElt::Duplicate(VYRPrtGraphicPrimitiveElt*& opGPElt) { DuplicateShape(*this, opGPElt); }

StreamType VYRPrtRectangleElt::GetStreamType() { return kStreamTypeRectangleElt; }

void VYRPrtRectangleElt::Stream(VYRI2DGStream* ipStream) {
  if (!ipStream) return;
  VYRPrtBaseShapeElt::Stream(ipStream);
  VYRPrtStreamUnstreamHelper::SerializeVYRMathPoint2D(_firstPoint, ipStream);
  VYRPrtStreamUnstreamHelper::SerializeVYRMathPoint2D(_secondPoint, ipStream);
  ipStream->StreamValue(_horzRadius);
  ipStream->StreamValue(_vertRadius);
}

void VYRPrtRectangleElt::Unstream(VYRI2DGStream* ipStream) {
  if (!ipStream) return;
  VYRPrtBaseShapeElt::Unstream(ipStream);
  VYRPrtStreamUnstreamHelper::CreateVYRMathPoint2DFromStream(_firstPoint, ipStream);
  VYRPrtStreamUnstreamHelper::CreateVYRMathPoint2DFromStream(_secondPoint, ipStream);
  ipStream->UnstreamValue(_horzRadius);
  ipStream->UnstreamValue(_vertRadius);
}

#include "VYRPrtLineElt.h"

#include "VYRAssert.h"
#include "VYRI2DGStream.h"
#include "VYRPrtEltFactory.h"
#include "VYRPrtStreamUnstreamHelper.h"

VYR_IMPLEMENT_CLASS(VYRPrtLineElt, VYRPrtGraphicPrimitiveElt, "Multimedia2DRendering")

VYRPrtLineElt::VYRPrtLineElt(const VYRMathPoint2D& i_startPoint, const VYRMathPoint2D& i_endPoint)
    : _startPoint(i_startPoint), _endPoint(i_endPoint) {}

VYRPrtLineElt& VYRPrtLineElt::operator=(const VYRPrtLineElt& iLineElt) {
  if (!VYR_CHECK_CONDITION(this != &iLineElt)) return *this;
  VYRPrtGraphicPrimitiveElt::operator=(iLineElt);
  _startPoint = iLineElt._startPoint;
  _endPoint = iLineElt._endPoint;
  _strokeAttributes = iLineElt._strokeAttributes;
  _markerReferences = iLineElt._markerReferences;
  return *this;
}

void VYRPrtLineElt::GetPoints(VYRMathPoint2D& o_startPoint, VYRMathPoint2D& o_endPoint) const {
  o_startPoint = _startPoint;
  o_endPoint = _endPoint;
}

void VYRPrtLineElt::SetPoints(const VYRMathPoint2D& i_startPoint, const VYRMathPoint2D& i_endPoint) {
  _startPoint = i_startPoint;
  _endPoint = i_endPoint;
}

void VYRPrtLineElt::GetParameters(VYRMathPoint2D& o_startPoint, VYRMathPoint2D& o_endPoint) const {
  GetPoints(o_startPoint, o_endPoint);
}

void VYRPrtLineElt::SetParameters(const VYRMathPoint2D& i_startPoint, const VYRMathPoint2D& i_endPoint) {
  SetPoints(i_startPoint, i_endPoint);
}

void VYRPrtLineElt::SetStrokeAttributes(const VYRPrtStrokeAttributes& i_stroke) {
  if (&i_stroke != &_strokeAttributes) _strokeAttributes = i_stroke;
}

void VYRPrtLineElt::Reset() {
  VYRPrtGraphicPrimitiveElt::Reset();
  _startPoint = VYRMathPoint2D();
  _endPoint = VYRMathPoint2D();
  _strokeAttributes = VYRPrtStrokeAttributes();
  _markerReferences = VYRPrtMarkerReferences();
}

// A line has no fill, so there is nothing to duplicate beyond the copy.
void VYRPrtLineElt::Duplicate(VYRPrtGraphicPrimitiveElt*& opGPElt) {
  VYRPrtLineElt* pCopy = VYRPrtEltFactory::Get().CreateElement<VYRPrtLineElt>();
  opGPElt = pCopy;
  if (!VYR_CHECK_POINTER(opGPElt)) return;
  *pCopy = *this;
}

StreamType VYRPrtLineElt::GetStreamType() { return kStreamTypeLineElt; }

void VYRPrtLineElt::Stream(VYRI2DGStream* ipStream) {
  if (!ipStream) return;
  VYRPrtGraphicPrimitiveElt::Stream(ipStream);
  VYRPrtStreamUnstreamHelper::SerializeVYRMathPoint2D(_startPoint, ipStream);
  VYRPrtStreamUnstreamHelper::SerializeVYRMathPoint2D(_endPoint, ipStream);
  _strokeAttributes.Stream(ipStream);
}

void VYRPrtLineElt::Unstream(VYRI2DGStream* ipStream) {
  if (!ipStream) return;
  VYRPrtGraphicPrimitiveElt::Unstream(ipStream);
  VYRPrtStreamUnstreamHelper::CreateVYRMathPoint2DFromStream(_startPoint, ipStream);
  VYRPrtStreamUnstreamHelper::CreateVYRMathPoint2DFromStream(_endPoint, ipStream);
  _strokeAttributes.Unstream(ipStream);
}

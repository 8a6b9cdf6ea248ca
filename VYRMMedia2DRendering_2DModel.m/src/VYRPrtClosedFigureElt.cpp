#include "VYRPrtClosedFigureElt.h"

#include "VYRAssert.h"
#include "VYRI2DGStream.h"

VYR_IMPLEMENT_CLASS(VYRPrtClosedFigureElt, VYRPrtNodeTreeElt, "Multimedia2DRendering")

VYRPrtClosedFigureElt& VYRPrtClosedFigureElt::operator=(const VYRPrtClosedFigureElt& i_closedFigureElt) {
  if (!VYR_CHECK_CONDITION(this != &i_closedFigureElt)) return *this;
  VYRPrtNodeTreeElt::operator=(i_closedFigureElt);
  _drawStyle = i_closedFigureElt._drawStyle;
  _strokeAttributes = i_closedFigureElt._strokeAttributes;
  _fillAttributes = i_closedFigureElt._fillAttributes;
  return *this;
}

void VYRPrtClosedFigureElt::SetStrokeAttributes(const VYRPrtStrokeAttributes& i_stroke) {
  if (&i_stroke != &_strokeAttributes) _strokeAttributes = i_stroke;
}

void VYRPrtClosedFigureElt::SetFillAttributes(const VYRPrtFillAttributes& i_fill) {
  if (&i_fill != &_fillAttributes) _fillAttributes = i_fill;
}

void VYRPrtClosedFigureElt::Reset() {
  VYRPrtGraphicPrimitiveElt::Reset();
  _drawStyle = 8;
  _strokeAttributes = VYRPrtStrokeAttributes();
  _fillAttributes = VYRPrtFillAttributes();
}

void VYRPrtClosedFigureElt::Duplicate(VYRPrtGraphicPrimitiveElt*& o_pGPElt) {
  auto* pFigure = VYRPrtEltFactory::Get().CreateElement<VYRPrtClosedFigureElt>();
  o_pGPElt = pFigure;
  if (!VYR_CHECK_POINTER(o_pGPElt)) return;
  DuplicateChildrenInto(*pFigure);
  pFigure->_drawStyle = _drawStyle;
  pFigure->_strokeAttributes = _strokeAttributes;
  _fillAttributes.Duplicate(pFigure->_fillAttributes);
}

StreamType VYRPrtClosedFigureElt::GetStreamType() { return kStreamTypeClosedFigureElt; }

void VYRPrtClosedFigureElt::Stream(VYRI2DGStream* ipStream) {
  if (!ipStream) return;
  VYRPrtNodeTreeElt::Stream(ipStream);
  ipStream->StreamValue(_drawStyle);
  _strokeAttributes.Stream(ipStream);
  _fillAttributes.Stream(ipStream);
}

void VYRPrtClosedFigureElt::Unstream(VYRI2DGStream* ipStream) {
  if (!ipStream) return;
  VYRPrtNodeTreeElt::Unstream(ipStream);
  ipStream->UnstreamValue(_drawStyle);
  _strokeAttributes.Unstream(ipStream);
  _fillAttributes.Unstream(ipStream);
}

#include "VYRPrtBaseShapeElt.h"

#include "VYRI2DGStream.h"
#include "VYRPrtStreamUnstreamHelper.h"

VYR_IMPLEMENT_ABSTRACT_CLASS(VYRPrtBaseShapeElt, VYRPrtGraphicPrimitiveElt, "Multimedia2DRendering")

VYRPrtBaseShapeElt& VYRPrtBaseShapeElt::operator=(const VYRPrtBaseShapeElt& i_shapeElt) {
  if (!VYR_CHECK_CONDITION(this != &i_shapeElt)) return *this;
  VYRPrtGraphicPrimitiveElt::operator=(i_shapeElt);
  _strokeAttributes = i_shapeElt._strokeAttributes;
  _fillAttributes = i_shapeElt._fillAttributes;
  _drawStyle = i_shapeElt._drawStyle;
  return *this;
}

void VYRPrtBaseShapeElt::SetStrokeAttributes(const VYRPrtStrokeAttributes& i_stroke) {
  if (&i_stroke != &_strokeAttributes) _strokeAttributes = i_stroke;
}

void VYRPrtBaseShapeElt::SetFillAttributes(const VYRPrtFillAttributes& i_fill) {
  if (&i_fill != &_fillAttributes) _fillAttributes = i_fill;
}

void VYRPrtBaseShapeElt::Reset() {
  VYRPrtGraphicPrimitiveElt::Reset();
  _strokeAttributes = VYRPrtStrokeAttributes();
  _fillAttributes = VYRPrtFillAttributes();
  _drawStyle = kDefaultDrawStyle;
}

StreamType VYRPrtBaseShapeElt::GetStreamType() { return kStreamTypeBaseShapeElt; }

void VYRPrtBaseShapeElt::Stream(VYRI2DGStream* ipStream) {
  if (!ipStream) return;
  VYRPrtGraphicPrimitiveElt::Stream(ipStream);
  _strokeAttributes.Stream(ipStream);
  _fillAttributes.Stream(ipStream);
  ipStream->StreamValue(_drawStyle);
}

void VYRPrtBaseShapeElt::Unstream(VYRI2DGStream* ipStream) {
  if (!ipStream) return;
  VYRPrtGraphicPrimitiveElt::Unstream(ipStream);
  _strokeAttributes.Unstream(ipStream);
  _fillAttributes.Unstream(ipStream);
  ipStream->UnstreamValue(_drawStyle);
}

void VYRPrtBaseShapeElt::StreamPointAndThreeValues(VYRI2DGStream* ipStream, const VYRMathPoint2D& i_point,
                                                   double i_first, double i_second, double i_third) {
  if (!ipStream) return;
  VYRMathPoint2D point = i_point;
  VYRPrtStreamUnstreamHelper::SerializeVYRMathPoint2D(point, ipStream);
  ipStream->StreamValue(i_first);
  ipStream->StreamValue(i_second);
  ipStream->StreamValue(i_third);
}

void VYRPrtBaseShapeElt::UnstreamPointAndThreeValues(VYRI2DGStream* ipStream, VYRMathPoint2D& o_point,
                                                     double& o_first, double& o_second, double& o_third) {
  if (!ipStream) return;
  VYRPrtStreamUnstreamHelper::CreateVYRMathPoint2DFromStream(o_point, ipStream);
  ipStream->UnstreamValue(o_first);
  ipStream->UnstreamValue(o_second);
  ipStream->UnstreamValue(o_third);
}

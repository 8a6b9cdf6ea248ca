#include "VYRPrtMarkerElt.h"

#include "VYRAssert.h"
#include "VYRI2DGStream.h"
#include "VYRPrtEnumStream.h"
#include "VYRPrtStreamUnstreamHelper.h"

VYR_IMPLEMENT_CLASS(VYRPrtMarkerElt, VYRPrtNodeTreeElt, "Multimedia2DRendering")

VYRPrtMarkerElt& VYRPrtMarkerElt::operator=(const VYRPrtMarkerElt& iGPElt) {
  if (!VYR_CHECK_CONDITION(this != &iGPElt)) return *this;
  VYRPrtNodeTreeElt::operator=(iGPElt);
  _referencePoint = iGPElt._referencePoint;
  _width = iGPElt._width;
  _height = iGPElt._height;
  _units = iGPElt._units;
  _orientation = iGPElt._orientation;
  _orientationAngle = iGPElt._orientationAngle;
  _viewBox = iGPElt._viewBox;
  return *this;
}

void VYRPrtMarkerElt::SetSize(double i_width, double i_height) {
  _width = i_width;
  _height = i_height;
}

void VYRPrtMarkerElt::GetSize(double& o_width, double& o_height) const {
  o_width = _width;
  o_height = _height;
}

void VYRPrtMarkerElt::SetOrientationAngle(double i_degrees) {
  _orientation = MM2D::MarkerOrientAngle;
  _orientationAngle = i_degrees;
}

void VYRPrtMarkerElt::Reset() {
  VYRPrtGraphicPrimitiveElt::Reset();
  _referencePoint = VYRMathPoint2D();
  _width = _height = 3.0;
  _units = MM2D::MarkerUnitStrokeWidth;
  _orientation = MM2D::MarkerOrientAngle;
  _orientationAngle = 0.0;
  _viewBox = VYRPrtViewBoxAttributes();
}

void VYRPrtMarkerElt::Duplicate(VYRPrtGraphicPrimitiveElt*& opGPElt) { opGPElt = DuplicateTree(*this); }

StreamType VYRPrtMarkerElt::GetStreamType() { return kStreamTypeMarkerElt; }

void VYRPrtMarkerElt::Stream(VYRI2DGStream* ipStream) {
  if (!ipStream) return;
  VYRPrtNodeTreeElt::Stream(ipStream);
  VYRPrtStreamUnstreamHelper::SerializeVYRMathPoint2D(_referencePoint, ipStream);
  ipStream->StreamValue(_width);
  ipStream->StreamValue(_height);
  StreamEnum(_units, ipStream);
  StreamEnum(_orientation, ipStream);
  ipStream->StreamValue(_orientationAngle);
  _viewBox.Stream(ipStream);
}

void VYRPrtMarkerElt::Unstream(VYRI2DGStream* ipStream) {
  if (!ipStream) return;
  VYRPrtNodeTreeElt::Unstream(ipStream);
  VYRPrtStreamUnstreamHelper::CreateVYRMathPoint2DFromStream(_referencePoint, ipStream);
  ipStream->UnstreamValue(_width);
  ipStream->UnstreamValue(_height);
  UnstreamEnum(_units, ipStream);
  UnstreamEnum(_orientation, ipStream);
  ipStream->UnstreamValue(_orientationAngle);
  _viewBox.Unstream(ipStream);
}

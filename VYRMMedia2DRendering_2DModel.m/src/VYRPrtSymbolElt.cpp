#include "VYRPrtSymbolElt.h"

#include "VYRAssert.h"
#include "VYRI2DGStream.h"
#include "VYRPrtStreamUnstreamHelper.h"

VYR_IMPLEMENT_CLASS(VYRPrtSymbolElt, VYRPrtNodeTreeElt, "Multimedia2DRendering")

VYRPrtSymbolElt& VYRPrtSymbolElt::operator=(const VYRPrtSymbolElt& i_symbolElt) {
  if (!VYR_CHECK_CONDITION(this != &i_symbolElt)) return *this;
  VYRPrtNodeTreeElt::operator=(i_symbolElt);
  _origin = i_symbolElt._origin;
  _width = i_symbolElt._width;
  _height = i_symbolElt._height;
  _viewBox = i_symbolElt._viewBox;
  return *this;
}

void VYRPrtSymbolElt::GetSize(double& o_width, double& o_height) const {
  o_width = _width;
  o_height = _height;
}

void VYRPrtSymbolElt::SetSize(double i_width, double i_height) {
  _width = i_width;
  _height = i_height;
}

void VYRPrtSymbolElt::Reset() {
  VYRPrtGraphicPrimitiveElt::Reset();
  _origin = VYRMathPoint2D();
  _width = _height = 0.0;
  _viewBox = VYRPrtViewBoxAttributes();
}

void VYRPrtSymbolElt::Duplicate(VYRPrtGraphicPrimitiveElt*& opGPElt) { opGPElt = DuplicateTree(*this); }

StreamType VYRPrtSymbolElt::GetStreamType() { return kStreamTypeSymbolElt; }

void VYRPrtSymbolElt::Stream(VYRI2DGStream* ipStream) {
  if (!ipStream) return;
  VYRPrtNodeTreeElt::Stream(ipStream);
  VYRPrtStreamUnstreamHelper::SerializeVYRMathPoint2D(_origin, ipStream);
  ipStream->StreamValue(_width);
  ipStream->StreamValue(_height);
  _viewBox.Stream(ipStream);
}

void VYRPrtSymbolElt::Unstream(VYRI2DGStream* ipStream) {
  if (!ipStream) return;
  VYRPrtNodeTreeElt::Unstream(ipStream);
  VYRPrtStreamUnstreamHelper::CreateVYRMathPoint2DFromStream(_origin, ipStream);
  ipStream->UnstreamValue(_width);
  ipStream->UnstreamValue(_height);
  _viewBox.Unstream(ipStream);
}

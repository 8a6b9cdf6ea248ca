#include "VYRPrtGradientStopElt.h"

#include "VYRAssert.h"
#include "VYRI2DGStream.h"
#include "VYRPrtEltFactory.h"

VYR_IMPLEMENT_CLASS(VYRPrtGradientStopElt, VYRPrtGraphicPrimitiveElt, "Multimedia2DRendering")

VYRPrtGradientStopElt& VYRPrtGradientStopElt::operator=(const VYRPrtGradientStopElt& iGPElt) {
  if (!VYR_CHECK_CONDITION(this != &iGPElt)) return *this;
  VYRPrtGraphicPrimitiveElt::operator=(iGPElt);
  _offset = iGPElt._offset;
  _red = iGPElt._red;
  _green = iGPElt._green;
  _blue = iGPElt._blue;
  _stopOpacity = iGPElt._stopOpacity;
  return *this;
}

void VYRPrtGradientStopElt::SetColor(unsigned char i_red, unsigned char i_green, unsigned char i_blue) {
  _red = i_red;
  _green = i_green;
  _blue = i_blue;
}

void VYRPrtGradientStopElt::GetColor(unsigned char& o_red, unsigned char& o_green, unsigned char& o_blue) const {
  o_red = _red;
  o_green = _green;
  o_blue = _blue;
}

void VYRPrtGradientStopElt::Reset() {
  VYRPrtGraphicPrimitiveElt::Reset();
  _offset = 0.0;
  _red = _green = _blue = 0;
  _stopOpacity = 1.0;
}

void VYRPrtGradientStopElt::Duplicate(VYRPrtGraphicPrimitiveElt*& opGPElt) {
  auto* pCopy = VYRPrtEltFactory::Get().CreateElement<VYRPrtGradientStopElt>();
  opGPElt = pCopy;
  if (!VYR_CHECK_POINTER(opGPElt)) return;
  *pCopy = *this;
}

StreamType VYRPrtGradientStopElt::GetStreamType() { return kStreamTypeGradientStopElt; }

void VYRPrtGradientStopElt::Stream(VYRI2DGStream* ipStream) {
  if (!ipStream) return;
  VYRPrtGraphicPrimitiveElt::Stream(ipStream);
  ipStream->StreamValue(_offset);
  ipStream->StreamValue(_red);
  ipStream->StreamValue(_green);
  ipStream->StreamValue(_blue);
  ipStream->StreamValue(_stopOpacity);
}

void VYRPrtGradientStopElt::Unstream(VYRI2DGStream* ipStream) {
  if (!ipStream) return;
  VYRPrtGraphicPrimitiveElt::Unstream(ipStream);
  ipStream->UnstreamValue(_offset);
  ipStream->UnstreamValue(_red);
  ipStream->UnstreamValue(_green);
  ipStream->UnstreamValue(_blue);
  ipStream->UnstreamValue(_stopOpacity);
}

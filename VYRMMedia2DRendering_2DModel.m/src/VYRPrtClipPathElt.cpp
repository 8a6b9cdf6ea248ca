#include "VYRPrtClipPathElt.h"

#include "VYRAssert.h"
#include "VYRPrtEnumStream.h"

VYR_IMPLEMENT_CLASS(VYRPrtClipPathElt, VYRPrtNodeTreeElt, "Multimedia2DRendering")

VYRPrtClipPathElt& VYRPrtClipPathElt::operator=(const VYRPrtClipPathElt& iGPElt) {
  if (!VYR_CHECK_CONDITION(this != &iGPElt)) return *this;
  VYRPrtNodeTreeElt::operator=(iGPElt);
  _units = iGPElt._units;
  _clipRule = iGPElt._clipRule;
  return *this;
}

void VYRPrtClipPathElt::Reset() {
  VYRPrtGraphicPrimitiveElt::Reset();
  _units = MM2D::UnitUserSpaceOnUse;
  _clipRule = VYRPrtFillRuleNonZero;
}

StreamType VYRPrtClipPathElt::GetStreamType() { return kStreamTypeClipPathElt; }

void VYRPrtClipPathElt::Stream(VYRI2DGStream* ipStream) {
  if (!ipStream) return;
  VYRPrtNodeTreeElt::Stream(ipStream);
  StreamEnum(_units, ipStream);
  StreamEnum(_clipRule, ipStream);
}

void VYRPrtClipPathElt::Unstream(VYRI2DGStream* ipStream) {
  if (!ipStream) return;
  VYRPrtNodeTreeElt::Unstream(ipStream);
  UnstreamEnum(_units, ipStream);
  UnstreamEnum(_clipRule, ipStream);
}

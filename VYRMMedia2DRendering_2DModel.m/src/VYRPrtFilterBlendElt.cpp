#include "VYRPrtFilterBlendElt.h"

#include "VYRAssert.h"
#include "VYRPrtEnumStream.h"
#include "VYRPrtStreamUnstreamHelper.h"

VYR_IMPLEMENT_CLASS(VYRPrtFilterBlendElt, VYRPrtFilterBaseElt, "Multimedia2DRendering")

VYRPrtFilterBlendElt& VYRPrtFilterBlendElt::operator=(const VYRPrtFilterBlendElt& iGPElt) {
  if (!VYR_CHECK_CONDITION(this != &iGPElt)) return *this;
  VYRPrtFilterBaseElt::operator=(iGPElt);
  _mode = iGPElt._mode;
  _input2 = iGPElt._input2;
  return *this;
}

void VYRPrtFilterBlendElt::Reset() {
  VYRPrtFilterBaseElt::Reset();
  _mode = eTransferSourceOver;
  _input2 = VYRUnicodeString();
}

StreamType VYRPrtFilterBlendElt::GetStreamType() { return kStreamTypeFilterBlendElt; }

void VYRPrtFilterBlendElt::Stream(VYRI2DGStream* ipStream) {
  if (!ipStream) return;
  VYRPrtFilterBaseElt::Stream(ipStream);
  StreamEnum(_mode, ipStream);
  VYRPrtStreamUnstreamHelper::SerializeVYRUnicodeString(_input2, ipStream);
}

void VYRPrtFilterBlendElt::Unstream(VYRI2DGStream* ipStream) {
  if (!ipStream) return;
  VYRPrtFilterBaseElt::Unstream(ipStream);
  UnstreamEnum(_mode, ipStream);
  VYRPrtStreamUnstreamHelper::CreateVYRUnicodeStringFromStream(_input2, ipStream);
}

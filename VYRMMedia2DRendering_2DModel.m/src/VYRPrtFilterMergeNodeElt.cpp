#include "VYRPrtFilterMergeNodeElt.h"

#include "VYRAssert.h"

VYR_IMPLEMENT_CLASS(VYRPrtFilterMergeNodeElt, VYRPrtFilterBaseElt, "Multimedia2DRendering")

VYRPrtFilterMergeNodeElt& VYRPrtFilterMergeNodeElt::operator=(const VYRPrtFilterMergeNodeElt& iGPElt) {
  if (!VYR_CHECK_CONDITION(this != &iGPElt)) return *this;
  VYRPrtFilterBaseElt::operator=(iGPElt);
  return *this;
}

void VYRPrtFilterMergeNodeElt::Reset() {
  VYRPrtFilterBaseElt::Reset();
}

StreamType VYRPrtFilterMergeNodeElt::GetStreamType() { return kStreamTypeFilterMergeNodeElt; }

void VYRPrtFilterMergeNodeElt::Stream(VYRI2DGStream* ipStream) {
  if (!ipStream) return;
  VYRPrtFilterBaseElt::Stream(ipStream);
}

void VYRPrtFilterMergeNodeElt::Unstream(VYRI2DGStream* ipStream) {
  if (!ipStream) return;
  VYRPrtFilterBaseElt::Unstream(ipStream);
}

#include "VYRPrtFilterMergeElt.h"

#include "VYRAssert.h"

VYR_IMPLEMENT_CLASS(VYRPrtFilterMergeElt, VYRPrtFilterBaseElt, "Multimedia2DRendering")

VYRPrtFilterMergeElt& VYRPrtFilterMergeElt::operator=(const VYRPrtFilterMergeElt& iGPElt) {
  if (!VYR_CHECK_CONDITION(this != &iGPElt)) return *this;
  VYRPrtFilterBaseElt::operator=(iGPElt);
  return *this;
}

int VYRPrtFilterMergeElt::GetMergeNodeCount() const {
  int count = 0;
  for (VYRPrtGraphicPrimitiveElt* pChild : GetChildArray()) {
    if (pChild && pChild->IsAKindOf(VYRPrtFilterMergeNodeElt::ClassName())) ++count;
  }
  return count;
}

VYRPrtFilterMergeNodeElt* VYRPrtFilterMergeElt::GetMergeNode(int i_index) const {
  int remaining = i_index;
  for (VYRPrtGraphicPrimitiveElt* pChild : GetChildArray()) {
    if (!pChild || !pChild->IsAKindOf(VYRPrtFilterMergeNodeElt::ClassName())) continue;
    if (remaining-- == 0) return static_cast<VYRPrtFilterMergeNodeElt*>(pChild);
  }
  return nullptr;
}

void VYRPrtFilterMergeElt::Reset() {
  VYRPrtFilterBaseElt::Reset();
}

StreamType VYRPrtFilterMergeElt::GetStreamType() { return kStreamTypeFilterMergeElt; }

void VYRPrtFilterMergeElt::Stream(VYRI2DGStream* ipStream) {
  if (!ipStream) return;
  VYRPrtFilterBaseElt::Stream(ipStream);
}

void VYRPrtFilterMergeElt::Unstream(VYRI2DGStream* ipStream) {
  if (!ipStream) return;
  VYRPrtFilterBaseElt::Unstream(ipStream);
}

#pragma once

#include "VYRExport.h"
#include "VYRPrtFilterBaseElt.h"

// An SVG feMergeNode: one input of a merge, named by GetInput.
class VYR_EXPORT VYRPrtFilterMergeNodeElt : public VYRPrtFilterBaseElt {
  VYR_DECLARE_CLASS(VYRPrtFilterMergeNodeElt)

 public:
  VYRPrtFilterMergeNodeElt() = default;
  VYRPrtFilterMergeNodeElt(const VYRPrtFilterMergeNodeElt& iGPElt) = default;
  VYRPrtFilterMergeNodeElt& operator=(const VYRPrtFilterMergeNodeElt& iGPElt);
  using VYRPrtFilterBaseElt::operator=;
  ~VYRPrtFilterMergeNodeElt() override = default;

  // Common attributes and own fields to their defaults; the children stay.
  void Reset() override;
  StreamType GetStreamType() override;
  // The filter primitive record; a node has no field of its own.
  void Stream(VYRI2DGStream* ipStream) override;
  void Unstream(VYRI2DGStream* ipStream) override;
};

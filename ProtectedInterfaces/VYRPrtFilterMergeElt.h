#pragma once

#include "VYRExport.h"
#include "VYRPrtFilterBaseElt.h"
#include "VYRPrtFilterMergeNodeElt.h"

// An SVG feMerge: its merge nodes, as children, composited in order, the
// first at the bottom.
class VYR_EXPORT VYRPrtFilterMergeElt : public VYRPrtFilterBaseElt {
  VYR_DECLARE_CLASS(VYRPrtFilterMergeElt)

 public:
  VYRPrtFilterMergeElt() = default;
  VYRPrtFilterMergeElt(const VYRPrtFilterMergeElt& iGPElt) = default;
  VYRPrtFilterMergeElt& operator=(const VYRPrtFilterMergeElt& iGPElt);
  using VYRPrtFilterBaseElt::operator=;
  ~VYRPrtFilterMergeElt() override = default;

  // The children that are merge nodes, in order: others are not counted.
  int GetMergeNodeCount() const;
  // The i-th merge node (from 0, skipping other children), or null.
  VYRPrtFilterMergeNodeElt* GetMergeNode(int i_index) const;

  // Common attributes and own fields to their defaults; the children stay.
  void Reset() override;
  StreamType GetStreamType() override;
  // The filter primitive record (its merge nodes are its children).
  void Stream(VYRI2DGStream* ipStream) override;
  void Unstream(VYRI2DGStream* ipStream) override;
};

#pragma once

#include "VYRExport.h"
#include "VYRPrtNodeTreeElt.h"

// An SVG defs element: holds the elements that others reference (gradients,
// patterns, clip paths, masks, markers, filters, symbols) and that are not
// drawn where they stand. It adds nothing to the node tree but its tag.
class VYR_EXPORT VYRPrtDefsElt : public VYRPrtNodeTreeElt {
  VYR_DECLARE_CLASS(VYRPrtDefsElt)

 public:
  VYRPrtDefsElt() = default;
  VYRPrtDefsElt(const VYRPrtDefsElt&) = default;
  VYRPrtDefsElt& operator=(const VYRPrtDefsElt&) = default;
  using VYRPrtNodeTreeElt::operator=;
  ~VYRPrtDefsElt() override = default;

  // A copy with duplicated children (see VYRPrtNodeTreeElt::DuplicateTree).
  void Duplicate(VYRPrtGraphicPrimitiveElt*& opGPElt) override;
  StreamType GetStreamType() override;
};

#pragma once

#include "VYRExport.h"
#include "VYRPrtGraphicPrimitiveElt.h"

// The element that defines a mask, referenced by other elements.
// For now it carries the common attributes only; its children and own fields
// come with the node tree it will derive from.
class VYR_EXPORT VYRPrtMaskElt : public VYRPrtGraphicPrimitiveElt {
  VYR_DECLARE_CLASS(VYRPrtMaskElt)

 public:
  VYRPrtMaskElt() = default;
  VYRPrtMaskElt(const VYRPrtMaskElt&) = default;
  VYRPrtMaskElt& operator=(const VYRPrtMaskElt&) = default;
  ~VYRPrtMaskElt() override = default;

  StreamType GetStreamType() override;
};

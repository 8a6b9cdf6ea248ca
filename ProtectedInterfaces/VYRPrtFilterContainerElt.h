#pragma once

#include "VYRExport.h"
#include "VYRPrtGraphicPrimitiveElt.h"

// The element that defines a filter (the container of filter effects), referenced by other elements.
// For now it carries the common attributes only; its children and own fields
// come with the node tree it will derive from.
class VYR_EXPORT VYRPrtFilterContainerElt : public VYRPrtGraphicPrimitiveElt {
  VYR_DECLARE_CLASS(VYRPrtFilterContainerElt)

 public:
  VYRPrtFilterContainerElt() = default;
  VYRPrtFilterContainerElt(const VYRPrtFilterContainerElt&) = default;
  VYRPrtFilterContainerElt& operator=(const VYRPrtFilterContainerElt&) = default;
  ~VYRPrtFilterContainerElt() override = default;

  StreamType GetStreamType() override;
};

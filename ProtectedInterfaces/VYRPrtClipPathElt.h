#pragma once

#include "VYRExport.h"
#include "VYRPrtGraphicPrimitiveElt.h"

// The element that defines a clip path, referenced by other elements.
// For now it carries the common attributes only; its children and own fields
// come with the node tree it will derive from.
class VYR_EXPORT VYRPrtClipPathElt : public VYRPrtGraphicPrimitiveElt {
  VYR_DECLARE_CLASS(VYRPrtClipPathElt)

 public:
  VYRPrtClipPathElt() = default;
  VYRPrtClipPathElt(const VYRPrtClipPathElt&) = default;
  VYRPrtClipPathElt& operator=(const VYRPrtClipPathElt&) = default;
  ~VYRPrtClipPathElt() override = default;

  StreamType GetStreamType() override;
};

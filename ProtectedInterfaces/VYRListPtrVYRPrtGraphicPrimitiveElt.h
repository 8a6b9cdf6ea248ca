#pragma once

#include "VYRListPtrOf.h"

class VYRPrtGraphicPrimitiveElt;

// Non-owning ordered list of VYRPrtGraphicPrimitiveElt pointers, positions from 1.
class VYRListPtrVYRPrtGraphicPrimitiveElt : public VYRListPtrOf<VYRPrtGraphicPrimitiveElt> {
 public:
  using VYRListPtrOf<VYRPrtGraphicPrimitiveElt>::VYRListPtrOf;
  VYRListPtrVYRPrtGraphicPrimitiveElt(const VYRListPtrVYRPrtGraphicPrimitiveElt&) = default;
  VYRListPtrVYRPrtGraphicPrimitiveElt& operator=(const VYRListPtrVYRPrtGraphicPrimitiveElt&) = default;
  ~VYRListPtrVYRPrtGraphicPrimitiveElt() override = default;
};

#pragma once

#include "VYRListPtrOf.h"

class VYRPrtImageElt;

// Non-owning ordered list of VYRPrtImageElt pointers, positions from 1.
class VYRListPtrVYRPrtImageElt : public VYRListPtrOf<VYRPrtImageElt> {
 public:
  using VYRListPtrOf<VYRPrtImageElt>::VYRListPtrOf;
  VYRListPtrVYRPrtImageElt(const VYRListPtrVYRPrtImageElt&) = default;
  VYRListPtrVYRPrtImageElt& operator=(const VYRListPtrVYRPrtImageElt&) = default;
  ~VYRListPtrVYRPrtImageElt() override = default;
};

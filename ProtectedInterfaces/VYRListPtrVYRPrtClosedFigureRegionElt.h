#pragma once

#include "VYRListPtrOf.h"

class VYRPrtClosedFigureRegionElt;

// Non-owning ordered list of VYRPrtClosedFigureRegionElt pointers, positions from 1.
class VYRListPtrVYRPrtClosedFigureRegionElt : public VYRListPtrOf<VYRPrtClosedFigureRegionElt> {
 public:
  using VYRListPtrOf<VYRPrtClosedFigureRegionElt>::VYRListPtrOf;
  VYRListPtrVYRPrtClosedFigureRegionElt(const VYRListPtrVYRPrtClosedFigureRegionElt&) = default;
  VYRListPtrVYRPrtClosedFigureRegionElt& operator=(const VYRListPtrVYRPrtClosedFigureRegionElt&) = default;
  ~VYRListPtrVYRPrtClosedFigureRegionElt() override = default;
};

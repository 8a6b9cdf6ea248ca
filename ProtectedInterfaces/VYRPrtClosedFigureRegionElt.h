#pragma once

#include "VYRExport.h"
#include "VYRPrtNodeTreeElt.h"

// A region made of several closed figures, its children. It streams as the
// node tree record alone.
class VYR_EXPORT VYRPrtClosedFigureRegionElt : public VYRPrtNodeTreeElt {
  VYR_DECLARE_CLASS(VYRPrtClosedFigureRegionElt)

 public:
  VYRPrtClosedFigureRegionElt() = default;
  VYRPrtClosedFigureRegionElt(const VYRPrtClosedFigureRegionElt& i_regionElt) = default;
  VYRPrtClosedFigureRegionElt& operator=(const VYRPrtClosedFigureRegionElt& i_regionElt);
  using VYRPrtNodeTreeElt::operator=;
  ~VYRPrtClosedFigureRegionElt() override = default;

  // Common attributes to their defaults; the children stay.
  void Reset() override;
  // Duplicates the children only; the common attributes of the copy stay at their defaults.
  void Duplicate(VYRPrtGraphicPrimitiveElt*& o_pGPElt) override;
  StreamType GetStreamType() override;
};

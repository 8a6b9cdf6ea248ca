#include "VYRPrtClosedFigureRegionElt.h"

#include "VYRAssert.h"

VYR_IMPLEMENT_CLASS(VYRPrtClosedFigureRegionElt, VYRPrtNodeTreeElt, "Multimedia2DRendering")

VYRPrtClosedFigureRegionElt& VYRPrtClosedFigureRegionElt::operator=(const VYRPrtClosedFigureRegionElt& i_regionElt) {
  if (!VYR_CHECK_CONDITION(this != &i_regionElt)) return *this;
  VYRPrtNodeTreeElt::operator=(i_regionElt);
  return *this;
}

void VYRPrtClosedFigureRegionElt::Reset() { VYRPrtGraphicPrimitiveElt::Reset(); }

void VYRPrtClosedFigureRegionElt::Duplicate(VYRPrtGraphicPrimitiveElt*& o_pGPElt) {
  auto* pRegion = VYRPrtEltFactory::Get().CreateElement<VYRPrtClosedFigureRegionElt>();
  o_pGPElt = pRegion;
  if (!VYR_CHECK_POINTER(o_pGPElt)) return;
  DuplicateChildrenInto(*pRegion);
}

StreamType VYRPrtClosedFigureRegionElt::GetStreamType() { return kStreamTypeClosedFigureRegionElt; }

#include "VYRPrtPointBasedElt.h"

VYR_IMPLEMENT_ABSTRACT_CLASS(VYRPrtPointBasedElt, VYRPrtBaseShapeElt, "Multimedia2DRendering")

VYRPrtPointBasedElt& VYRPrtPointBasedElt::operator=(const VYRPrtPointBasedElt& iPointBasedElt) {
  if (!VYR_CHECK_CONDITION(this != &iPointBasedElt)) return *this;
  VYRPrtBaseShapeElt::operator=(iPointBasedElt);
  _markerReferences = iPointBasedElt._markerReferences;
  return *this;
}

void VYRPrtPointBasedElt::Reset() {
  VYRPrtBaseShapeElt::Reset();
  _markerReferences = VYRPrtMarkerReferences();
}

StreamType VYRPrtPointBasedElt::GetStreamType() { return kStreamTypePointBasedElt; }

void VYRPrtPointBasedElt::Stream(VYRI2DGStream* ipStream) {
  if (!ipStream) return;
  VYRPrtBaseShapeElt::Stream(ipStream);
  _markerReferences.Stream(ipStream);
}

void VYRPrtPointBasedElt::Unstream(VYRI2DGStream* ipStream) {
  if (!ipStream) return;
  VYRPrtBaseShapeElt::Unstream(ipStream);
  _markerReferences.Unstream(ipStream);
}

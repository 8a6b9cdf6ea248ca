#include "VYRPrtDisjointPolylineElt.h"

VYR_IMPLEMENT_CLASS(VYRPrtDisjointPolylineElt, VYRPrtPointBasedElt, "Multimedia2DRendering")

void VYRPrtDisjointPolylineElt::Duplicate(VYRPrtGraphicPrimitiveElt*& opGPElt) { DuplicateShape(*this, opGPElt); }

StreamType VYRPrtDisjointPolylineElt::GetStreamType() { return kStreamTypeDisjointPolylineElt; }

void VYRPrtDisjointPolylineElt::Stream(VYRI2DGStream* ipStream) {
  if (!ipStream) return;
  VYRPrtPointBasedElt::Stream(ipStream);
  _runs.Stream(ipStream);
}

void VYRPrtDisjointPolylineElt::Unstream(VYRI2DGStream* ipStream) {
  if (!ipStream) return;
  VYRPrtPointBasedElt::Unstream(ipStream);
  _runs.Unstream(ipStream);
}

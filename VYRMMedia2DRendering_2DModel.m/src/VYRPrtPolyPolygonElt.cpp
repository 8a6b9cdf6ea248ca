#include "VYRPrtPolyPolygonElt.h"

VYR_IMPLEMENT_CLASS(VYRPrtPolyPolygonElt, VYRPrtPointBasedElt, "Multimedia2DRendering")

void VYRPrtPolyPolygonElt::Duplicate(VYRPrtGraphicPrimitiveElt*& opGPElt) { DuplicateShape(*this, opGPElt); }

StreamType VYRPrtPolyPolygonElt::GetStreamType() { return kStreamTypePolyPolygonElt; }

void VYRPrtPolyPolygonElt::Stream(VYRI2DGStream* ipStream) {
  if (!ipStream) return;
  VYRPrtPointBasedElt::Stream(ipStream);
  _rings.Stream(ipStream);
}

void VYRPrtPolyPolygonElt::Unstream(VYRI2DGStream* ipStream) {
  if (!ipStream) return;
  VYRPrtPointBasedElt::Unstream(ipStream);
  _rings.Unstream(ipStream);
}

#include "VYRPrtPolygonElt.h"

VYR_IMPLEMENT_CLASS(VYRPrtPolygonElt, VYRPrtPointListElt, "Multimedia2DRendering")

void VYRPrtPolygonElt::Duplicate(VYRPrtGraphicPrimitiveElt*& opGPElt) { DuplicateShape(*this, opGPElt); }

StreamType VYRPrtPolygonElt::GetStreamType() { return kStreamTypePolygonElt; }

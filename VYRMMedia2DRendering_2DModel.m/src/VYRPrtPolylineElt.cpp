#include "VYRPrtPolylineElt.h"

VYR_IMPLEMENT_CLASS(VYRPrtPolylineElt, VYRPrtPointListElt, "Multimedia2DRendering")

void VYRPrtPolylineElt::Duplicate(VYRPrtGraphicPrimitiveElt*& opGPElt) { DuplicateShape(*this, opGPElt); }

StreamType VYRPrtPolylineElt::GetStreamType() { return kStreamTypePolylineElt; }

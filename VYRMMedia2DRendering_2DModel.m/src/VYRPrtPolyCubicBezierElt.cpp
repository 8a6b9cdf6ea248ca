#include "VYRPrtPolyCubicBezierElt.h"

VYR_IMPLEMENT_CLASS(VYRPrtPolyCubicBezierElt, VYRPrtPointListElt, "Multimedia2DRendering")

void VYRPrtPolyCubicBezierElt::Duplicate(VYRPrtGraphicPrimitiveElt*& opGPElt) { DuplicateShape(*this, opGPElt); }

StreamType VYRPrtPolyCubicBezierElt::GetStreamType() { return kStreamTypePolyCubicBezierElt; }

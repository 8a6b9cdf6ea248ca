#include "VYRPrtPolyQuadraticBezierElt.h"

VYR_IMPLEMENT_CLASS(VYRPrtPolyQuadraticBezierElt, VYRPrtPointListElt, "Multimedia2DRendering")

void VYRPrtPolyQuadraticBezierElt::Duplicate(VYRPrtGraphicPrimitiveElt*& opGPElt) { DuplicateShape(*this, opGPElt); }

StreamType VYRPrtPolyQuadraticBezierElt::GetStreamType() { return kStreamTypePolyQuadraticBezierElt; }

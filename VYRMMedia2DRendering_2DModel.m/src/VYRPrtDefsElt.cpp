#include "VYRPrtDefsElt.h"

VYR_IMPLEMENT_CLASS(VYRPrtDefsElt, VYRPrtNodeTreeElt, "Multimedia2DRendering")

void VYRPrtDefsElt::Duplicate(VYRPrtGraphicPrimitiveElt*& opGPElt) { opGPElt = DuplicateTree(*this); }

StreamType VYRPrtDefsElt::GetStreamType() { return kStreamTypeDefsElt; }

#include "VYRPrtMaskElt.h"

VYR_IMPLEMENT_CLASS(VYRPrtMaskElt, VYRPrtGraphicPrimitiveElt, "Multimedia2DRendering")

StreamType VYRPrtMaskElt::GetStreamType() { return kStreamTypeMaskElt; }

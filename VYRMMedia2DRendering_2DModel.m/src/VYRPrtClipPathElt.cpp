#include "VYRPrtClipPathElt.h"

VYR_IMPLEMENT_CLASS(VYRPrtClipPathElt, VYRPrtGraphicPrimitiveElt, "Multimedia2DRendering")

StreamType VYRPrtClipPathElt::GetStreamType() { return kStreamTypeClipPathElt; }

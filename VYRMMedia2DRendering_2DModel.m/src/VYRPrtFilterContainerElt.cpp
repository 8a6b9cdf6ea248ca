#include "VYRPrtFilterContainerElt.h"

VYR_IMPLEMENT_CLASS(VYRPrtFilterContainerElt, VYRPrtGraphicPrimitiveElt, "Multimedia2DRendering")

StreamType VYRPrtFilterContainerElt::GetStreamType() { return kStreamTypeFilterContainerElt; }

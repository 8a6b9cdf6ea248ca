#include "VYRPrtSwitchElt.h"

VYR_IMPLEMENT_CLASS(VYRPrtSwitchElt, VYRPrtNodeTreeElt, "Multimedia2DRendering")

StreamType VYRPrtSwitchElt::GetStreamType() { return kStreamTypeSwitchElt; }

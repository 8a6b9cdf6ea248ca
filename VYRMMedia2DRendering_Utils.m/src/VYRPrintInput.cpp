#include "VYRPrintInput.h"

VYR_IMPLEMENT_ABSTRACT_CLASS(VYRPrintInput, VYRBaseUnknown, "Multimedia2DRendering")

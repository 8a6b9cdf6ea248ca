#include "VYR2DGDrawingContext.h"

VYR_IMPLEMENT_ABSTRACT_CLASS(VYR2DGDrawingContext, VYRBaseUnknown, "VYRMMedia2DRendering_Engine")

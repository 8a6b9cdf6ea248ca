#include "VYR2DGDummyDrawing.h"

#include "VYR3x3Matrix.h"

VYR_IMPLEMENT_CLASS(VYR2DGDummyDrawing, VYR2DGDrawing, "VYRMMedia2DRendering_Engine")

VYR3x3Matrix VYR2DGDummyDrawing::GetMatrixTransform() { return VYR3x3Matrix(); }

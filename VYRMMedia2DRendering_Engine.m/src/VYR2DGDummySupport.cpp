#include "VYR2DGDummySupport.h"

VYR_IMPLEMENT_CLASS(VYR2DGDummySupport, VYR2DGSupport, "VYRMMedia2DRendering_Engine")

VYR2DGDummySupport::VYR2DGDummySupport() : VYR2DGSupport(eSupportDummy, 0, 0) {}

VYR2DGDummySupport::VYR2DGDummySupport(int i_width, int i_height, eSupportType i_type)
    : VYR2DGSupport(i_width, i_height, i_type) {}

VYR2DGDummySupport::VYR2DGDummySupport(eSupportType i_type, int i_width, int i_height)
    : VYR2DGSupport(i_type, i_width, i_height) {}

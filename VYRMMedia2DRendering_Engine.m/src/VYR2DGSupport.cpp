#include "VYR2DGSupport.h"

VYR_IMPLEMENT_ABSTRACT_CLASS(VYR2DGSupport, VYRBaseUnknown, "VYRMMedia2DRendering_Engine")

VYR2DGSupport::VYR2DGSupport(int i_width, int i_height, eSupportType i_type)
    : _supportType(i_type), _width(i_width), _height(i_height) {}

VYR2DGSupport::VYR2DGSupport(eSupportType i_type, int i_width, int i_height)
    : _supportType(i_type), _width(i_width), _height(i_height) {}

void VYR2DGSupport::Reset() {
  _supportType = eSupportNone;
  _width = 0;
  _height = 0;
}

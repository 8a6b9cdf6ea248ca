#include "VYRRasterDevice.h"

VYR_IMPLEMENT_CLASS(VYRRasterDevice, VYRBaseUnknown, "Engine")

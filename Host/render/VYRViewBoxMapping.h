#pragma once

#include "VYRPrtTransformAttributes.h"
#include "VYRPrtViewBoxAttributes.h"

// The transform that fits a viewBox into a viewport of the given size at
// the origin, as preserveAspectRatio asks; nothing is added when there is no
// viewBox or it is empty.
void VYRAddViewBoxTransform(const VYRPrtViewBoxAttributes& i_viewBox, double i_width, double i_height,
                            VYRPrtTransformAttributes& io_transform);

#include "VYRPrintGradientLinear.h"

#include <new>

#include "VYRAssert.h"

VYR_IMPLEMENT_CLASS(VYRPrintGradientLinear, VYRPrintGradient, "VYRMMedia2DRendering_Utils")

VYRPrintGradientLinear& VYRPrintGradientLinear::operator=(const VYRPrintGradientLinear& iGradient) {
  if (!VYR_CHECK_CONDITION(this != &iGradient)) return *this;
  VYRPrintGradient::operator=(iGradient);
  _x1 = iGradient._x1;
  _y1 = iGradient._y1;
  _x2 = iGradient._x2;
  _y2 = iGradient._y2;
  return *this;
}

VYRPrintGradientLinear* VYRPrintGradientLinear::Clone() const {
  return new (std::nothrow) VYRPrintGradientLinear(*this);
}

void VYRPrintGradientLinear::GetStartPoint(float& o_x1, float& o_y1) const {
  o_x1 = _x1;
  o_y1 = _y1;
}

void VYRPrintGradientLinear::GetEndPoint(float& o_x2, float& o_y2) const {
  o_x2 = _x2;
  o_y2 = _y2;
}

void VYRPrintGradientLinear::SetStartPoint(float i_x1, float i_y1) {
  _x1 = i_x1;
  _y1 = i_y1;
}

void VYRPrintGradientLinear::SetEndPoint(float i_x2, float i_y2) {
  _x2 = i_x2;
  _y2 = i_y2;
}

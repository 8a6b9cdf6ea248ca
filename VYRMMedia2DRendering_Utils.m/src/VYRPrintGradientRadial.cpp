#include "VYRPrintGradientRadial.h"

#include <new>

#include "VYRAssert.h"

VYR_IMPLEMENT_CLASS(VYRPrintGradientRadial, VYRPrintGradient, "VYRMMedia2DRendering_Utils")

VYRPrintGradientRadial& VYRPrintGradientRadial::operator=(const VYRPrintGradientRadial& iGradient) {
  if (!VYR_CHECK_CONDITION(this != &iGradient)) return *this;
  VYRPrintGradient::operator=(iGradient);
  _cx = iGradient._cx;
  _cy = iGradient._cy;
  _fx = iGradient._fx;
  _fy = iGradient._fy;
  _r = iGradient._r;
  return *this;
}

VYRPrintGradientRadial* VYRPrintGradientRadial::Clone() const {
  return new (std::nothrow) VYRPrintGradientRadial(*this);
}

void VYRPrintGradientRadial::GetCentre(float& o_cx, float& o_cy) const {
  o_cx = _cx;
  o_cy = _cy;
}

void VYRPrintGradientRadial::GetFocus(float& o_fx, float& o_fy) const {
  o_fx = _fx;
  o_fy = _fy;
}

void VYRPrintGradientRadial::SetCentre(float i_cx, float i_cy) {
  _cx = i_cx;
  _cy = i_cy;
}

void VYRPrintGradientRadial::SetFocus(float i_fx, float i_fy) {
  _fx = i_fx;
  _fy = i_fy;
}

#include "VYRPrtRadialGradientElt.h"

#include <new>

#include "VYRAssert.h"
#include "VYRI2DGStream.h"
#include "VYRPrintGradientRadial.h"
#include "VYRPrtStreamUnstreamHelper.h"

VYR_IMPLEMENT_CLASS(VYRPrtRadialGradientElt, VYRPrtBaseGradientElt, "Multimedia2DRendering")

VYRPrtRadialGradientElt& VYRPrtRadialGradientElt::operator=(const VYRPrtRadialGradientElt& iGPElt) {
  if (!VYR_CHECK_CONDITION(this != &iGPElt)) return *this;
  VYRPrtBaseGradientElt::operator=(iGPElt);
  _centre = iGPElt._centre;
  _radius = iGPElt._radius;
  _focus = iGPElt._focus;
  _hasFocus = iGPElt._hasFocus;
  return *this;
}

void VYRPrtRadialGradientElt::SetFocus(const VYRMathPoint2D& i_focus) {
  _focus = i_focus;
  _hasFocus = true;
}

void VYRPrtRadialGradientElt::ClearFocus() {
  _focus = VYRMathPoint2D(0.5, 0.5);
  _hasFocus = false;
}

void VYRPrtRadialGradientElt::Reset() {
  VYRPrtBaseGradientElt::Reset();
  _centre = VYRMathPoint2D(0.5, 0.5);
  _radius = 0.5;
  ClearFocus();
}

void VYRPrtRadialGradientElt::Duplicate(VYRPrtGraphicPrimitiveElt*& opGPElt) { opGPElt = DuplicateGradient(*this); }

StreamType VYRPrtRadialGradientElt::GetStreamType() { return kStreamTypeRadialGradientElt; }

VYRPrintGradient* VYRPrtRadialGradientElt::MakePrintGradient() const {
  auto* pGradient = new (std::nothrow) VYRPrintGradientRadial();
  if (!pGradient) return nullptr;
  VYRMathPoint2D focus = GetFocus();
  pGradient->SetCentre(static_cast<float>(_centre.x), static_cast<float>(_centre.y));
  pGradient->SetFocus(static_cast<float>(focus.x), static_cast<float>(focus.y));
  pGradient->SetRadius(static_cast<float>(_radius));
  return pGradient;
}

void VYRPrtRadialGradientElt::Stream(VYRI2DGStream* ipStream) {
  if (!ipStream) return;
  VYRPrtBaseGradientElt::Stream(ipStream);
  VYRPrtStreamUnstreamHelper::SerializeVYRMathPoint2D(_centre, ipStream);
  ipStream->StreamValue(_radius);
  VYRPrtStreamUnstreamHelper::SerializeVYRMathPoint2D(_focus, ipStream);
  ipStream->StreamValue(static_cast<unsigned char>(_hasFocus));
}

void VYRPrtRadialGradientElt::Unstream(VYRI2DGStream* ipStream) {
  if (!ipStream) return;
  VYRPrtBaseGradientElt::Unstream(ipStream);
  VYRPrtStreamUnstreamHelper::CreateVYRMathPoint2DFromStream(_centre, ipStream);
  ipStream->UnstreamValue(_radius);
  VYRPrtStreamUnstreamHelper::CreateVYRMathPoint2DFromStream(_focus, ipStream);
  unsigned char hasFocus = 0;
  ipStream->UnstreamValue(hasFocus);
  _hasFocus = hasFocus != 0;
}

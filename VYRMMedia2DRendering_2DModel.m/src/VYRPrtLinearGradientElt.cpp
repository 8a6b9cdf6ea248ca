#include "VYRPrtLinearGradientElt.h"

#include <new>

#include "VYRAssert.h"
#include "VYRPrintGradientLinear.h"
#include "VYRPrtStreamUnstreamHelper.h"

VYR_IMPLEMENT_CLASS(VYRPrtLinearGradientElt, VYRPrtBaseGradientElt, "Multimedia2DRendering")

VYRPrtLinearGradientElt& VYRPrtLinearGradientElt::operator=(const VYRPrtLinearGradientElt& iGPElt) {
  if (!VYR_CHECK_CONDITION(this != &iGPElt)) return *this;
  VYRPrtBaseGradientElt::operator=(iGPElt);
  _start = iGPElt._start;
  _end = iGPElt._end;
  return *this;
}

void VYRPrtLinearGradientElt::Reset() {
  VYRPrtBaseGradientElt::Reset();
  _start = VYRMathPoint2D(0.0, 0.0);
  _end = VYRMathPoint2D(1.0, 0.0);
}

void VYRPrtLinearGradientElt::Duplicate(VYRPrtGraphicPrimitiveElt*& opGPElt) { opGPElt = DuplicateGradient(*this); }

StreamType VYRPrtLinearGradientElt::GetStreamType() { return kStreamTypeLinearGradientElt; }

VYRPrintGradient* VYRPrtLinearGradientElt::MakePrintGradient() const {
  auto* pGradient = new (std::nothrow) VYRPrintGradientLinear();
  if (!pGradient) return nullptr;
  pGradient->SetStartPoint(static_cast<float>(_start.x), static_cast<float>(_start.y));
  pGradient->SetEndPoint(static_cast<float>(_end.x), static_cast<float>(_end.y));
  return pGradient;
}

void VYRPrtLinearGradientElt::Stream(VYRI2DGStream* ipStream) {
  if (!ipStream) return;
  VYRPrtBaseGradientElt::Stream(ipStream);
  VYRPrtStreamUnstreamHelper::SerializeVYRMathPoint2D(_start, ipStream);
  VYRPrtStreamUnstreamHelper::SerializeVYRMathPoint2D(_end, ipStream);
}

void VYRPrtLinearGradientElt::Unstream(VYRI2DGStream* ipStream) {
  if (!ipStream) return;
  VYRPrtBaseGradientElt::Unstream(ipStream);
  VYRPrtStreamUnstreamHelper::CreateVYRMathPoint2DFromStream(_start, ipStream);
  VYRPrtStreamUnstreamHelper::CreateVYRMathPoint2DFromStream(_end, ipStream);
}

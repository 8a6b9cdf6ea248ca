#include "VYRPrtFilterOffsetElt.h"

#include "VYRAssert.h"
#include "VYRI2DGStream.h"

VYR_IMPLEMENT_CLASS(VYRPrtFilterOffsetElt, VYRPrtFilterBaseElt, "Multimedia2DRendering")

VYRPrtFilterOffsetElt& VYRPrtFilterOffsetElt::operator=(const VYRPrtFilterOffsetElt& iGPElt) {
  if (!VYR_CHECK_CONDITION(this != &iGPElt)) return *this;
  VYRPrtFilterBaseElt::operator=(iGPElt);
  _dx = iGPElt._dx;
  _dy = iGPElt._dy;
  return *this;
}

void VYRPrtFilterOffsetElt::SetOffset(double i_dx, double i_dy) {
  _dx = i_dx;
  _dy = i_dy;
}

void VYRPrtFilterOffsetElt::Reset() {
  VYRPrtFilterBaseElt::Reset();
  _dx = 0.0;
  _dy = 0.0;
}

StreamType VYRPrtFilterOffsetElt::GetStreamType() { return kStreamTypeFilterOffsetElt; }

void VYRPrtFilterOffsetElt::Stream(VYRI2DGStream* ipStream) {
  if (!ipStream) return;
  VYRPrtFilterBaseElt::Stream(ipStream);
  ipStream->StreamValue(_dx);
  ipStream->StreamValue(_dy);
}

void VYRPrtFilterOffsetElt::Unstream(VYRI2DGStream* ipStream) {
  if (!ipStream) return;
  VYRPrtFilterBaseElt::Unstream(ipStream);
  ipStream->UnstreamValue(_dx);
  ipStream->UnstreamValue(_dy);
}

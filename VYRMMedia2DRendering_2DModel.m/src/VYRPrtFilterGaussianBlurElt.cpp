#include "VYRPrtFilterGaussianBlurElt.h"

#include "VYRAssert.h"
#include "VYRI2DGStream.h"

VYR_IMPLEMENT_CLASS(VYRPrtFilterGaussianBlurElt, VYRPrtFilterBaseElt, "Multimedia2DRendering")

VYRPrtFilterGaussianBlurElt& VYRPrtFilterGaussianBlurElt::operator=(const VYRPrtFilterGaussianBlurElt& iGPElt) {
  if (!VYR_CHECK_CONDITION(this != &iGPElt)) return *this;
  VYRPrtFilterBaseElt::operator=(iGPElt);
  _stdDeviationX = iGPElt._stdDeviationX;
  _stdDeviationY = iGPElt._stdDeviationY;
  return *this;
}

void VYRPrtFilterGaussianBlurElt::SetStdDeviation(double i_x, double i_y) {
  _stdDeviationX = i_x;
  _stdDeviationY = i_y;
}

void VYRPrtFilterGaussianBlurElt::Reset() {
  VYRPrtFilterBaseElt::Reset();
  _stdDeviationX = 0.0;
  _stdDeviationY = 0.0;
}

StreamType VYRPrtFilterGaussianBlurElt::GetStreamType() { return kStreamTypeFilterGaussianBlurElt; }

void VYRPrtFilterGaussianBlurElt::Stream(VYRI2DGStream* ipStream) {
  if (!ipStream) return;
  VYRPrtFilterBaseElt::Stream(ipStream);
  ipStream->StreamValue(_stdDeviationX);
  ipStream->StreamValue(_stdDeviationY);
}

void VYRPrtFilterGaussianBlurElt::Unstream(VYRI2DGStream* ipStream) {
  if (!ipStream) return;
  VYRPrtFilterBaseElt::Unstream(ipStream);
  ipStream->UnstreamValue(_stdDeviationX);
  ipStream->UnstreamValue(_stdDeviationY);
}

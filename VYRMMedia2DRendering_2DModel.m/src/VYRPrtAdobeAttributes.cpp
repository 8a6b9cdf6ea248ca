#include "VYRPrtAdobeAttributes.h"

#include "VYRAssert.h"
#include "VYRI2DGStream.h"
#include "VYRStreamRecord.h"

VYRPrtAdobeAttributes& VYRPrtAdobeAttributes::operator=(const VYRPrtAdobeAttributes& iAttr) {
  if (!VYR_CHECK_CONDITION(this != &iAttr)) return *this;
  _defined = iAttr._defined;
  _opacityShare = iAttr._opacityShare;
  _blendingMode = iAttr._blendingMode;
  _knockout = iAttr._knockout;
  return *this;
}

void VYRPrtAdobeAttributes::SetBlendingMode(VYR2DGTransferMode i_mode) {
  _blendingMode = i_mode;
  _defined = true;
}

void VYRPrtAdobeAttributes::SetOpacityShare(double i_share) {
  _opacityShare = i_share;
  _defined = true;
}

void VYRPrtAdobeAttributes::SetKnockout(MM2D::Knockout i_knockout) {
  _knockout = i_knockout;
  _defined = i_knockout != MM2D::KnockoutNone;
}

bool VYRPrtAdobeAttributes::operator==(const VYRPrtAdobeAttributes& iAttr) const {
  return _defined == iAttr._defined && _opacityShare == iAttr._opacityShare &&
         _blendingMode == iAttr._blendingMode && _knockout == iAttr._knockout;
}

void VYRPrtAdobeAttributes::Stream(VYRI2DGStream* ipStream) {
  if (!ipStream) return;
  WriteRecord(ipStream, static_cast<unsigned int>(_defined ? 1 : 0), _opacityShare,
              static_cast<unsigned int>(_blendingMode), static_cast<unsigned int>(_knockout));
}

void VYRPrtAdobeAttributes::Unstream(VYRI2DGStream* ipStream) {
  if (!ipStream) return;
  unsigned int defined = 0, mode = 0, knockout = 0;
  ReadRecord(ipStream, defined, _opacityShare, mode, knockout);
  _defined = defined != 0;
  _blendingMode = static_cast<VYR2DGTransferMode>(mode);
  _knockout = static_cast<MM2D::Knockout>(knockout);
}

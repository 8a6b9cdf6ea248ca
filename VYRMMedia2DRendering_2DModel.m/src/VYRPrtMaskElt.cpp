#include "VYRPrtMaskElt.h"

#include "VYRAssert.h"
#include "VYRPrtEnumStream.h"

VYR_IMPLEMENT_CLASS(VYRPrtMaskElt, VYRPrtNodeTreeElt, "Multimedia2DRendering")

VYRPrtMaskElt& VYRPrtMaskElt::operator=(const VYRPrtMaskElt& iGPElt) {
  if (!VYR_CHECK_CONDITION(this != &iGPElt)) return *this;
  VYRPrtNodeTreeElt::operator=(iGPElt);
  _region = iGPElt._region;
  _units = iGPElt._units;
  _contentUnits = iGPElt._contentUnits;
  return *this;
}

void VYRPrtMaskElt::Reset() {
  VYRPrtGraphicPrimitiveElt::Reset();
  _region = VYRPrtRegionAttributes::DefaultEffectRegion();
  _units = MM2D::UnitObjectBoundingBox;
  _contentUnits = MM2D::UnitUserSpaceOnUse;
}

StreamType VYRPrtMaskElt::GetStreamType() { return kStreamTypeMaskElt; }

void VYRPrtMaskElt::Stream(VYRI2DGStream* ipStream) {
  if (!ipStream) return;
  VYRPrtNodeTreeElt::Stream(ipStream);
  _region.Stream(ipStream);
  StreamEnum(_units, ipStream);
  StreamEnum(_contentUnits, ipStream);
}

void VYRPrtMaskElt::Unstream(VYRI2DGStream* ipStream) {
  if (!ipStream) return;
  VYRPrtNodeTreeElt::Unstream(ipStream);
  _region.Unstream(ipStream);
  UnstreamEnum(_units, ipStream);
  UnstreamEnum(_contentUnits, ipStream);
}

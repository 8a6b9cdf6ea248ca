#include "VYRPrtFilterContainerElt.h"

#include "VYRAssert.h"
#include "VYRI2DGStream.h"
#include "VYRPrtEnumStream.h"
#include "VYRPrtStreamUnstreamHelper.h"

VYR_IMPLEMENT_CLASS(VYRPrtFilterContainerElt, VYRPrtNodeTreeElt, "Multimedia2DRendering")

VYRPrtFilterContainerElt& VYRPrtFilterContainerElt::operator=(const VYRPrtFilterContainerElt& iGPElt) {
  if (!VYR_CHECK_CONDITION(this != &iGPElt)) return *this;
  VYRPrtNodeTreeElt::operator=(iGPElt);
  _region = iGPElt._region;
  _units = iGPElt._units;
  _primitiveUnits = iGPElt._primitiveUnits;
  _resolutionX = iGPElt._resolutionX;
  _resolutionY = iGPElt._resolutionY;
  _hrefID = iGPElt._hrefID;
  return *this;
}

void VYRPrtFilterContainerElt::SetResolution(double i_x, double i_y) {
  _resolutionX = i_x;
  _resolutionY = i_y;
}

void VYRPrtFilterContainerElt::GetResolution(double& o_x, double& o_y) const {
  o_x = _resolutionX;
  o_y = _resolutionY;
}

void VYRPrtFilterContainerElt::Reset() {
  VYRPrtGraphicPrimitiveElt::Reset();
  _region = VYRPrtRegionAttributes::DefaultEffectRegion();
  _units = MM2D::UnitObjectBoundingBox;
  _primitiveUnits = MM2D::UnitUserSpaceOnUse;
  _resolutionX = _resolutionY = 0.0;
  _hrefID = VYRUnicodeString();
}

StreamType VYRPrtFilterContainerElt::GetStreamType() { return kStreamTypeFilterContainerElt; }

void VYRPrtFilterContainerElt::Stream(VYRI2DGStream* ipStream) {
  if (!ipStream) return;
  VYRPrtNodeTreeElt::Stream(ipStream);
  _region.Stream(ipStream);
  StreamEnum(_units, ipStream);
  StreamEnum(_primitiveUnits, ipStream);
  ipStream->StreamValue(_resolutionX);
  ipStream->StreamValue(_resolutionY);
  VYRPrtStreamUnstreamHelper::SerializeVYRUnicodeString(_hrefID, ipStream);
}

void VYRPrtFilterContainerElt::Unstream(VYRI2DGStream* ipStream) {
  if (!ipStream) return;
  VYRPrtNodeTreeElt::Unstream(ipStream);
  _region.Unstream(ipStream);
  UnstreamEnum(_units, ipStream);
  UnstreamEnum(_primitiveUnits, ipStream);
  ipStream->UnstreamValue(_resolutionX);
  ipStream->UnstreamValue(_resolutionY);
  VYRPrtStreamUnstreamHelper::CreateVYRUnicodeStringFromStream(_hrefID, ipStream);
}

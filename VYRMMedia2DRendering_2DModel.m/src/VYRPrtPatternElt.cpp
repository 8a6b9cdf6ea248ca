#include "VYRPrtPatternElt.h"

#include "VYRAssert.h"
#include "VYRPrtEnumStream.h"
#include "VYRPrtStreamUnstreamHelper.h"

VYR_IMPLEMENT_CLASS(VYRPrtPatternElt, VYRPrtNodeTreeElt, "Multimedia2DRendering")

VYRPrtPatternElt& VYRPrtPatternElt::operator=(const VYRPrtPatternElt& iGPElt) {
  if (!VYR_CHECK_CONDITION(this != &iGPElt)) return *this;
  VYRPrtNodeTreeElt::operator=(iGPElt);
  _region = iGPElt._region;
  _units = iGPElt._units;
  _contentUnits = iGPElt._contentUnits;
  _viewBox = iGPElt._viewBox;
  _patternTransform = iGPElt._patternTransform;
  _hrefID = iGPElt._hrefID;
  return *this;
}

void VYRPrtPatternElt::GetSize(double& o_width, double& o_height) const {
  o_width = _region.GetWidth();
  o_height = _region.GetHeight();
}

void VYRPrtPatternElt::SetPatternTransform(const VYRPrtTransformAttributes& i_transform) {
  if (&i_transform != &_patternTransform) _patternTransform = i_transform;
}

void VYRPrtPatternElt::Reset() {
  VYRPrtGraphicPrimitiveElt::Reset();
  _region = VYRPrtRegionAttributes();
  _units = MM2D::UnitObjectBoundingBox;
  _contentUnits = MM2D::UnitUserSpaceOnUse;
  _viewBox = VYRPrtViewBoxAttributes();
  _patternTransform = VYRPrtTransformAttributes();
  _hrefID = VYRUnicodeString();
}

void VYRPrtPatternElt::Duplicate(VYRPrtGraphicPrimitiveElt*& opGPElt) { opGPElt = DuplicateTree(*this); }

StreamType VYRPrtPatternElt::GetStreamType() { return kStreamTypePatternElt; }

void VYRPrtPatternElt::Stream(VYRI2DGStream* ipStream) {
  if (!ipStream) return;
  VYRPrtNodeTreeElt::Stream(ipStream);
  _region.Stream(ipStream);
  StreamEnum(_units, ipStream);
  StreamEnum(_contentUnits, ipStream);
  _viewBox.Stream(ipStream);
  _patternTransform.Stream(ipStream);
  VYRPrtStreamUnstreamHelper::SerializeVYRUnicodeString(_hrefID, ipStream);
}

void VYRPrtPatternElt::Unstream(VYRI2DGStream* ipStream) {
  if (!ipStream) return;
  VYRPrtNodeTreeElt::Unstream(ipStream);
  _region.Unstream(ipStream);
  UnstreamEnum(_units, ipStream);
  UnstreamEnum(_contentUnits, ipStream);
  _viewBox.Unstream(ipStream);
  _patternTransform.Unstream(ipStream);
  VYRPrtStreamUnstreamHelper::CreateVYRUnicodeStringFromStream(_hrefID, ipStream);
}

#include "VYRPrtGroupElt.h"

#include "VYRAssert.h"

VYR_IMPLEMENT_CLASS(VYRPrtGroupElt, VYRPrtNodeTreeElt, "Multimedia2DRendering")

VYRPrtGroupElt& VYRPrtGroupElt::operator=(const VYRPrtGroupElt& i_groupElt) {
  if (!VYR_CHECK_CONDITION(this != &i_groupElt)) return *this;
  VYRPrtNodeTreeElt::operator=(i_groupElt);
  _groupAttributes = i_groupElt._groupAttributes;
  return *this;
}

void VYRPrtGroupElt::Reset() {
  VYRPrtGraphicPrimitiveElt::Reset();
  _groupAttributes = VYRPrtGroupAttributes();
}

void VYRPrtGroupElt::Duplicate(VYRPrtGraphicPrimitiveElt*& opGPElt) { opGPElt = DuplicateTree(*this); }

StreamType VYRPrtGroupElt::GetStreamType() { return kStreamTypeGroupElt; }

void VYRPrtGroupElt::Stream(VYRI2DGStream* ipStream) {
  if (!ipStream) return;
  VYRPrtNodeTreeElt::Stream(ipStream);
  _groupAttributes.Stream(ipStream);
}

void VYRPrtGroupElt::Unstream(VYRI2DGStream* ipStream) {
  if (!ipStream) return;
  VYRPrtNodeTreeElt::Unstream(ipStream);
  _groupAttributes.Unstream(ipStream);
}

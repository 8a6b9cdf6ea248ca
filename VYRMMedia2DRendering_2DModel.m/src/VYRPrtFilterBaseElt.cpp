#include "VYRPrtFilterBaseElt.h"

#include <new>

#include "VYRAssert.h"
#include "VYRPrtStreamUnstreamHelper.h"

VYR_IMPLEMENT_ABSTRACT_CLASS(VYRPrtFilterBaseElt, VYRPrtNodeTreeElt, "Multimedia2DRendering")

VYRPrtFilterBaseElt::VYRPrtFilterBaseElt(const VYRPrtFilterBaseElt& iGPElt)
    : VYRPrtNodeTreeElt(iGPElt), _result(iGPElt._result), _input(iGPElt._input), _subregion(iGPElt._subregion) {
  SetColorAttribute(iGPElt._pColorAttribute);
}

VYRPrtFilterBaseElt::~VYRPrtFilterBaseElt() { delete _pColorAttribute; }

VYRPrtFilterBaseElt& VYRPrtFilterBaseElt::operator=(const VYRPrtFilterBaseElt& iGPElt) {
  if (!VYR_CHECK_CONDITION(this != &iGPElt)) return *this;
  VYRPrtNodeTreeElt::operator=(iGPElt);
  _result = iGPElt._result;
  _input = iGPElt._input;
  _subregion = iGPElt._subregion;
  SetColorAttribute(iGPElt._pColorAttribute);
  return *this;
}

void VYRPrtFilterBaseElt::SetColorAttribute(const VYRPrtFilterColorAttribute* ipAttribute) {
  if (ipAttribute == _pColorAttribute) return;
  delete _pColorAttribute;
  _pColorAttribute = nullptr;
  if (!ipAttribute) return;
  _pColorAttribute = new (std::nothrow) VYRPrtFilterColorAttribute(*ipAttribute);
  VYR_CHECK_POINTER(_pColorAttribute);
}

void VYRPrtFilterBaseElt::Reset() {
  VYRPrtGraphicPrimitiveElt::Reset();
  _result = VYRUnicodeString();
  _input = VYRUnicodeString();
  _subregion = VYRPrtRegionAttributes();
  SetColorAttribute(nullptr);
}

void VYRPrtFilterBaseElt::Stream(VYRI2DGStream* ipStream) {
  if (!ipStream) return;
  VYRPrtNodeTreeElt::Stream(ipStream);
  VYRPrtStreamUnstreamHelper::SerializeVYRUnicodeString(_result, ipStream);
  VYRPrtStreamUnstreamHelper::SerializeVYRUnicodeString(_input, ipStream);
  _subregion.Stream(ipStream);
  VYRPrtStreamUnstreamHelper::SerializeVYRPrtFilterColorAttribute(_pColorAttribute, ipStream);
}

void VYRPrtFilterBaseElt::Unstream(VYRI2DGStream* ipStream) {
  if (!ipStream) return;
  VYRPrtNodeTreeElt::Unstream(ipStream);
  VYRPrtStreamUnstreamHelper::CreateVYRUnicodeStringFromStream(_result, ipStream);
  VYRPrtStreamUnstreamHelper::CreateVYRUnicodeStringFromStream(_input, ipStream);
  _subregion.Unstream(ipStream);
  delete _pColorAttribute;
  _pColorAttribute = VYRPrtStreamUnstreamHelper::CreateVYRPrtFilterColorAttributeFromStream(ipStream);
}

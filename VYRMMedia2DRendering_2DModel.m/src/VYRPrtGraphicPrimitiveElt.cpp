#include "VYRPrtGraphicPrimitiveElt.h"

#include "VYRAssert.h"
#include "VYRI2DGStream.h"
#include "VYRPrtClipPathElt.h"
#include "VYRPrtFilterContainerElt.h"
#include "VYRPrtMaskElt.h"
#include "VYRPrtStreamUnstreamHelper.h"
#include "VYRStreamRecord.h"

VYR_IMPLEMENT_ABSTRACT_CLASS(VYRPrtGraphicPrimitiveElt, VYRBaseUnknown, "Multimedia2DRendering")

namespace {

// A referenced element read back from a stream must be of the kind the
// pointer promises; anything else in a damaged stream is dropped.
template <class K>
K* ReadReference(VYRI2DGStream* ipStream) {
  VYRPrtGraphicPrimitiveElt* pElt = VYRPrtStreamUnstreamHelper::CreateVYRPrtGraphicPrimitiveEltFromStream(ipStream);
  if (!pElt) return nullptr;
  if (!VYR_CHECK_CONDITION_TEXT(pElt->IsAKindOf(K::ClassName()), "referenced element of the expected kind")) {
    return nullptr;
  }
  return static_cast<K*>(pElt);
}

void WriteReference(VYRPrtGraphicPrimitiveElt* ipElt, VYRI2DGStream* ipStream) {
  if (ipElt) {
    ipElt->Stream(ipStream);
  } else {
    ipStream->StreamValue(0u);
  }
}

}  // namespace

void VYRPrtGraphicPrimitiveElt::Reset() {
  _visibility = 1;
  _pFather = nullptr;
  _ID = VYRUnicodeString();
  _description = VYRUnicodeString();
  _title = VYRUnicodeString();
  _spaceHandling = "default";
  _transformAttributes = VYRPrtTransformAttributes();
  _adobeAttributes = VYRPrtAdobeAttributes();
  _clipPathID = VYRUnicodeString();
  _maskID = VYRUnicodeString();
  _filterID = VYRUnicodeString();
  _pClipPath = nullptr;
  _pMask = nullptr;
  _pFilter = nullptr;
  _pPattern = nullptr;
  _opacity = 255;
  // The stream version stays: it records where the element's data came from.
}

VYRPrtGraphicPrimitiveElt& VYRPrtGraphicPrimitiveElt::operator=(const VYRPrtGraphicPrimitiveElt& iGPElt) {
  if (!VYR_CHECK_CONDITION(this != &iGPElt)) return *this;
  _visibility = iGPElt._visibility;
  _pFather = iGPElt._pFather;
  _ID = iGPElt._ID;
  _description = iGPElt._description;
  _title = iGPElt._title;
  _spaceHandling = iGPElt._spaceHandling;
  _transformAttributes = iGPElt._transformAttributes;
  _adobeAttributes = iGPElt._adobeAttributes;
  _clipPathID = iGPElt._clipPathID;
  _pClipPath = iGPElt._pClipPath;
  _maskID = iGPElt._maskID;
  _pMask = iGPElt._pMask;
  _filterID = iGPElt._filterID;
  _pFilter = iGPElt._pFilter;
  _pPattern = iGPElt._pPattern;
  _opacity = iGPElt._opacity;
  _streamVersion = iGPElt._streamVersion;
  return *this;
}

void VYRPrtGraphicPrimitiveElt::Duplicate(VYRPrtGraphicPrimitiveElt*& opGPElt) { opGPElt = nullptr; }

void VYRPrtGraphicPrimitiveElt::SetID(const VYRUnicodeString& i_id) { _ID = i_id; }
const VYRUnicodeString& VYRPrtGraphicPrimitiveElt::GetID() const { return _ID; }
void VYRPrtGraphicPrimitiveElt::SetVisibility(unsigned char i_visibility) { _visibility = i_visibility; }
unsigned char VYRPrtGraphicPrimitiveElt::GetVisibility() const { return _visibility; }
void VYRPrtGraphicPrimitiveElt::SetDescription(const VYRUnicodeString& i_description) { _description = i_description; }
const VYRUnicodeString& VYRPrtGraphicPrimitiveElt::GetDescription() const { return _description; }
void VYRPrtGraphicPrimitiveElt::SetTitle(const VYRUnicodeString& i_title) { _title = i_title; }
const VYRUnicodeString& VYRPrtGraphicPrimitiveElt::GetTitle() const { return _title; }
void VYRPrtGraphicPrimitiveElt::SetSpaceHandling(const VYRUnicodeString& i_spaceHandling) {
  _spaceHandling = i_spaceHandling;
}
const VYRUnicodeString& VYRPrtGraphicPrimitiveElt::GetSpaceHandling() const { return _spaceHandling; }
void VYRPrtGraphicPrimitiveElt::SetTransformAttributes(const VYRPrtTransformAttributes& i_transform) {
  if (&i_transform != &_transformAttributes) _transformAttributes = i_transform;
}
const VYRPrtTransformAttributes& VYRPrtGraphicPrimitiveElt::GetTransformAttributes() const {
  return _transformAttributes;
}
void VYRPrtGraphicPrimitiveElt::SetAdobeAttributes(const VYRPrtAdobeAttributes& i_adobe) {
  if (&i_adobe != &_adobeAttributes) _adobeAttributes = i_adobe;
}
const VYRPrtAdobeAttributes& VYRPrtGraphicPrimitiveElt::GetAdobeAttributes() const { return _adobeAttributes; }
void VYRPrtGraphicPrimitiveElt::SetClipPathID(const VYRUnicodeString& i_id) { _clipPathID = i_id; }
const VYRUnicodeString& VYRPrtGraphicPrimitiveElt::GetClipPathID() const { return _clipPathID; }
void VYRPrtGraphicPrimitiveElt::SetClipPath(VYRPrtClipPathElt* ipClipPath) {
  if (ipClipPath != _pClipPath) _pClipPath = ipClipPath;
}
VYRPrtClipPathElt* VYRPrtGraphicPrimitiveElt::GetClipPath() const { return _pClipPath; }
void VYRPrtGraphicPrimitiveElt::SetMaskID(const VYRUnicodeString& i_id) { _maskID = i_id; }
const VYRUnicodeString& VYRPrtGraphicPrimitiveElt::GetMaskID() const { return _maskID; }
void VYRPrtGraphicPrimitiveElt::SetMask(VYRPrtMaskElt* ipMask) {
  if (ipMask != _pMask) _pMask = ipMask;
}
VYRPrtMaskElt* VYRPrtGraphicPrimitiveElt::GetMask() const { return _pMask; }
void VYRPrtGraphicPrimitiveElt::SetPattern(VYRPrtPatternElt* ipPattern) {
  if (ipPattern != _pPattern) _pPattern = ipPattern;
}
VYRPrtPatternElt* VYRPrtGraphicPrimitiveElt::GetPattern() const { return _pPattern; }
void VYRPrtGraphicPrimitiveElt::SetFilterID(const VYRUnicodeString& i_id) { _filterID = i_id; }
const VYRUnicodeString& VYRPrtGraphicPrimitiveElt::GetFilterID() const { return _filterID; }
void VYRPrtGraphicPrimitiveElt::SetFilter(VYRPrtFilterContainerElt* ipFilter) {
  if (ipFilter != _pFilter) _pFilter = ipFilter;
}
VYRPrtFilterContainerElt* VYRPrtGraphicPrimitiveElt::GetFilter() const { return _pFilter; }
void VYRPrtGraphicPrimitiveElt::SetFather(VYRPrtGraphicPrimitiveElt* ipFather) { _pFather = ipFather; }
VYRPrtGraphicPrimitiveElt* VYRPrtGraphicPrimitiveElt::GetFather() const { return _pFather; }
void VYRPrtGraphicPrimitiveElt::SetOpacity(unsigned char i_opacity) { _opacity = i_opacity; }
unsigned char VYRPrtGraphicPrimitiveElt::GetOpacity() const { return _opacity; }
void VYRPrtGraphicPrimitiveElt::SetStreamVersion(int i_version) { _streamVersion = i_version; }
int VYRPrtGraphicPrimitiveElt::GetStreamVersion() const { return _streamVersion; }
StreamType VYRPrtGraphicPrimitiveElt::GetStreamType() { return kStreamTypeGraphicPrimitiveElt; }

void VYRPrtGraphicPrimitiveElt::Stream(VYRI2DGStream* ipStream) {
  if (!ipStream) return;
  using Helper = VYRPrtStreamUnstreamHelper;
  WriteRecord(ipStream, static_cast<unsigned int>(GetStreamType()), static_cast<unsigned int>(_streamVersion),
              static_cast<unsigned int>(_visibility));
  Helper::SerializeVYRUnicodeString(_ID, ipStream);
  Helper::SerializeVYRUnicodeString(_description, ipStream);
  Helper::SerializeVYRUnicodeString(_title, ipStream);
  Helper::SerializeVYRUnicodeString(_spaceHandling, ipStream);
  _transformAttributes.Stream(ipStream);
  _adobeAttributes.Stream(ipStream);
  Helper::SerializeVYRUnicodeString(_clipPathID, ipStream);
  WriteReference(_pClipPath, ipStream);
  Helper::SerializeVYRUnicodeString(_maskID, ipStream);
  WriteReference(_pMask, ipStream);
  Helper::SerializeVYRUnicodeString(_filterID, ipStream);
  WriteReference(_pFilter, ipStream);
  ipStream->StreamValue(_opacity);
}

void VYRPrtGraphicPrimitiveElt::Unstream(VYRI2DGStream* ipStream) {
  if (!ipStream) return;
  using Helper = VYRPrtStreamUnstreamHelper;
  unsigned int version = 0, visibility = 0;
  ReadRecord(ipStream, version, visibility);
  _streamVersion = static_cast<int>(version);
  _visibility = static_cast<unsigned char>(visibility);
  Helper::CreateVYRUnicodeStringFromStream(_ID, ipStream);
  Helper::CreateVYRUnicodeStringFromStream(_description, ipStream);
  Helper::CreateVYRUnicodeStringFromStream(_title, ipStream);
  Helper::CreateVYRUnicodeStringFromStream(_spaceHandling, ipStream);
  _transformAttributes.Unstream(ipStream);
  _adobeAttributes.Unstream(ipStream);
  Helper::CreateVYRUnicodeStringFromStream(_clipPathID, ipStream);
  _pClipPath = ReadReference<VYRPrtClipPathElt>(ipStream);
  Helper::CreateVYRUnicodeStringFromStream(_maskID, ipStream);
  _pMask = ReadReference<VYRPrtMaskElt>(ipStream);
  Helper::CreateVYRUnicodeStringFromStream(_filterID, ipStream);
  _pFilter = ReadReference<VYRPrtFilterContainerElt>(ipStream);
  ipStream->UnstreamValue(_opacity);
}

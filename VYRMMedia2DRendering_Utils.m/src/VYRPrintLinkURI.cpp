#include "VYRPrintLinkURI.h"

#include "VYRI2DGStream.h"
#include "VYRPrtStreamUnstreamHelper.h"

VYR_IMPLEMENT_CLASS(VYRPrintLinkURI, VYRBaseUnknown, "Multimedia2DRendering")

bool VYRPrintLinkURI::operator==(const VYRPrintLinkURI& i_link) const {
  return _baseURL == i_link._baseURL && _imageId == i_link._imageId && _elementId == i_link._elementId &&
         _linkShow == i_link._linkShow;
}

void VYRPrintLinkURI::Stream(VYRI2DGStream* ipStream) {
  if (!ipStream) return;
  VYRPrtStreamUnstreamHelper::SerializeVYRUnicodeString(_baseURL, ipStream);
  VYRPrtStreamUnstreamHelper::SerializeVYRUnicodeString(_imageId, ipStream);
  VYRPrtStreamUnstreamHelper::SerializeVYRUnicodeString(_elementId, ipStream);
  ipStream->Stream(static_cast<int>(_linkShow));
}

void VYRPrintLinkURI::Unstream(VYRI2DGStream* ipStream) {
  if (!ipStream) return;
  VYRPrtStreamUnstreamHelper::CreateVYRUnicodeStringFromStream(_baseURL, ipStream);
  VYRPrtStreamUnstreamHelper::CreateVYRUnicodeStringFromStream(_imageId, ipStream);
  VYRPrtStreamUnstreamHelper::CreateVYRUnicodeStringFromStream(_elementId, ipStream);
  int show = 0;
  ipStream->Unstream(show);
  _linkShow = static_cast<VYRPrtLinkShow>(show);
}

#pragma once

#include "VYRBaseUnknown.h"
#include "VYRExport.h"
#include "VYRUnicodeString.h"

class VYRI2DGStream;

// How a link target is to be shown; values beyond the default belong to the
// host's link handling.
enum VYRPrtLinkShow : int {
  VYRPrtLinkShowDefault = 0,
};

// The target of a hyperlink: base URL, image and element identifiers, and
// how the link is shown.
class VYR_EXPORT VYRPrintLinkURI : public VYRBaseUnknown {
  VYR_DECLARE_CLASS(VYRPrintLinkURI)

 public:
  VYRPrintLinkURI() = default;
  VYRPrintLinkURI(const VYRPrintLinkURI& i_link) = default;
  VYRPrintLinkURI& operator=(const VYRPrintLinkURI& i_link) = default;
  ~VYRPrintLinkURI() override = default;

  const VYRUnicodeString& GetBaseURL() const { return _baseURL; }
  void SetBaseURL(const VYRUnicodeString& i_url) { _baseURL = i_url; }
  const VYRUnicodeString& GetImageId() const { return _imageId; }
  void SetImageId(const VYRUnicodeString& i_id) { _imageId = i_id; }
  const VYRUnicodeString& GetElementId() const { return _elementId; }
  void SetElementId(const VYRUnicodeString& i_id) { _elementId = i_id; }
  const VYRPrtLinkShow& GetLinkShow() const { return _linkShow; }
  void SetLinkShow(const VYRPrtLinkShow& i_show) { _linkShow = i_show; }

  bool operator==(const VYRPrintLinkURI& i_link) const;
  bool operator!=(const VYRPrintLinkURI& i_link) const { return !(*this == i_link); }

  // Three counted strings and the link show; no tag, no version.
  virtual void Stream(VYRI2DGStream* ipStream);
  virtual void Unstream(VYRI2DGStream* ipStream);

 private:
  VYRUnicodeString _baseURL;
  VYRUnicodeString _imageId;
  VYRUnicodeString _elementId;
  VYRPrtLinkShow _linkShow = VYRPrtLinkShowDefault;
};

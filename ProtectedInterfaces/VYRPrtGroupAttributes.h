#pragma once

#include "VYRExport.h"
#include "VYRPrintLinkURI.h"

class VYRI2DGStream;

// The hyperlink attached to a group; streams as the link record itself.
class VYR_EXPORT VYRPrtGroupAttributes {
 public:
  VYRPrtGroupAttributes() = default;
  VYRPrtGroupAttributes(const VYRPrtGroupAttributes&) = default;
  VYRPrtGroupAttributes& operator=(const VYRPrtGroupAttributes&) = default;
  virtual ~VYRPrtGroupAttributes() = default;

  void GetLinkURI(VYRPrintLinkURI& o_link) const { o_link = _linkURI; }
  void SetLinkURI(const VYRPrintLinkURI& i_link) { _linkURI = i_link; }

  virtual void Stream(VYRI2DGStream* ipStream);
  virtual void Unstream(VYRI2DGStream* ipStream);

 private:
  VYRPrintLinkURI _linkURI;
};

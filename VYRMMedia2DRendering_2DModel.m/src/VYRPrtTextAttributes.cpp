#include "VYRPrtTextAttributes.h"

#include "VYRI2DGStream.h"
#include "VYRPrtStreamUnstreamHelper.h"

bool VYRPrtTextAttributes::operator==(const VYRPrtTextAttributes& i_other) const {
  return _fontFamily == i_other._fontFamily && _height == i_other._height && _weight == i_other._weight &&
         _style == i_other._style && _anchor == i_other._anchor && _decoration == i_other._decoration &&
         _fontVersion == i_other._fontVersion;
}

void VYRPrtTextAttributes::Stream(VYRI2DGStream* ipStream) const {
  if (!ipStream) return;
  VYRPrtStreamUnstreamHelper::SerializeVYRUnicodeString(_fontFamily, ipStream);
  ipStream->Stream(_height);
  ipStream->Stream(_weight);
  ipStream->Stream(static_cast<int>(_style));
  ipStream->Stream(static_cast<int>(_anchor));
  ipStream->Stream(_decoration);
  ipStream->Stream(_fontVersion);
}

void VYRPrtTextAttributes::Unstream(VYRI2DGStream* ipStream) {
  if (!ipStream) return;
  VYRPrtStreamUnstreamHelper::CreateVYRUnicodeStringFromStream(_fontFamily, ipStream);
  ipStream->Unstream(_height);
  ipStream->Unstream(_weight);
  int style = 0, anchor = 0;
  ipStream->Unstream(style);
  ipStream->Unstream(anchor);
  _style = static_cast<MM2D::FontStyle>(style);
  _anchor = static_cast<MM2D::TextAnchor>(anchor);
  ipStream->Unstream(_decoration);
  ipStream->Unstream(_fontVersion);
}

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
  ipStream->StreamValue(_height);
  ipStream->StreamValue(_weight);
  ipStream->StreamValue(static_cast<int>(_style));
  ipStream->StreamValue(static_cast<int>(_anchor));
  ipStream->StreamValue(_decoration);
  ipStream->StreamValue(_fontVersion);
}

void VYRPrtTextAttributes::Unstream(VYRI2DGStream* ipStream) {
  if (!ipStream) return;
  VYRPrtStreamUnstreamHelper::CreateVYRUnicodeStringFromStream(_fontFamily, ipStream);
  ipStream->UnstreamValue(_height);
  ipStream->UnstreamValue(_weight);
  int style = 0, anchor = 0;
  ipStream->UnstreamValue(style);
  ipStream->UnstreamValue(anchor);
  _style = static_cast<MM2D::FontStyle>(style);
  _anchor = static_cast<MM2D::TextAnchor>(anchor);
  ipStream->UnstreamValue(_decoration);
  ipStream->UnstreamValue(_fontVersion);
}

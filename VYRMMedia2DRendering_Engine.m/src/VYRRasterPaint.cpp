#include "VYRRasterPaint.h"

#include "VYRRasterContours.h"
#include "VYRRasterImageFilter.h"
#include "VYRRasterStrokeOutline.h"
#include "VYRRasterTypeface.h"

#include <algorithm>
#include <cmath>

namespace {
template <class T>
T* Assign(T*& io_slot, T* ipNew) {
  if (ipNew) ipNew->AddRef();
  if (io_slot) io_slot->Release();
  io_slot = ipNew;
  return ipNew;
}
}  // namespace

VYRRasterPaint::VYRRasterPaint() { reset(); }

VYRRasterPaint::VYRRasterPaint(const VYRRasterPaint& i_other) { copyFrom(i_other); }

VYRRasterPaint& VYRRasterPaint::operator=(const VYRRasterPaint& i_other) {
  if (this != &i_other) copyFrom(i_other);
  return *this;
}

VYRRasterPaint::~VYRRasterPaint() { releaseRefs(); }

void VYRRasterPaint::copyFrom(const VYRRasterPaint& i_other) {
  // References first, so that copying a paint onto one sharing its objects keeps them alive.
  VYRRasterShader* shader = i_other._pShader;
  VYRRasterPathEffect* effect = i_other._pPathEffect;
  VYRRasterImageFilter* filter = i_other._pImageFilter;
  VYRRasterTypeface* typeface = i_other._pTypeface;
  Assign(_pShader, shader);
  Assign(_pPathEffect, effect);
  Assign(_pImageFilter, filter);
  Assign(_pTypeface, typeface);
  _color = i_other._color;
  _antiAlias = i_other._antiAlias;
  _style = i_other._style;
  _strokeWidth = i_other._strokeWidth;
  _cap = i_other._cap;
  _join = i_other._join;
  _miterLimit = i_other._miterLimit;
  _blendMode = i_other._blendMode;
  _lumaMaskMode = i_other._lumaMaskMode;
  _textSize = i_other._textSize;
  _textSkewX = i_other._textSkewX;
  _textScaleX = i_other._textScaleX;
  _textAlign = i_other._textAlign;
  _hinting = i_other._hinting;
  _flags = i_other._flags;
  _textEncoding = i_other._textEncoding;
}

void VYRRasterPaint::releaseRefs() {
  Assign<VYRRasterShader>(_pShader, nullptr);
  Assign<VYRRasterPathEffect>(_pPathEffect, nullptr);
  Assign<VYRRasterImageFilter>(_pImageFilter, nullptr);
  Assign<VYRRasterTypeface>(_pTypeface, nullptr);
}

void VYRRasterPaint::reset() {
  releaseRefs();
  _color = 0xFF000000;
  _antiAlias = false;
  _style = kFill_Style;
  _strokeWidth = 0.0f;
  _cap = kButt_Cap;
  _join = kMiter_Join;
  _miterLimit = 4.0f;
  _blendMode = kSrcOver_VYRBlendMode;
  _lumaMaskMode = -1;
  _textSize = 12.0f;
  _textSkewX = 0.0f;
  _textScaleX = 1.0f;
  _textAlign = kLeft_Align;
  _hinting = kNormal_Hinting;
  _flags = 0;
  _textEncoding = kUTF8_TextEncoding;
}

void VYRRasterPaint::setARGB(unsigned a, unsigned r, unsigned g, unsigned b) {
  _color = (std::min(a, 255u) << 24) | (std::min(r, 255u) << 16) | (std::min(g, 255u) << 8) | std::min(b, 255u);
}

void VYRRasterPaint::setAlpha(unsigned a) { _color = (_color & 0x00FFFFFF) | (std::min(a, 255u) << 24); }

void VYRRasterPaint::setStrokeWidth(float i_width) {
  if (i_width >= 0) _strokeWidth = i_width;
}

void VYRRasterPaint::setStrokeMiter(float i_limit) {
  if (i_limit >= 0) _miterLimit = i_limit;
}

void VYRRasterPaint::setBlendMode(int i_mode) {
  _blendMode = (i_mode >= 0 && i_mode <= kLastMode_VYRBlendMode) ? static_cast<VYRRasterBlendMode>(i_mode)
                                                                  : kSrcOver_VYRBlendMode;
}

VYRRasterShader* VYRRasterPaint::setShader(VYRRasterShader* ipShader) { return Assign(_pShader, ipShader); }
VYRRasterPathEffect* VYRRasterPaint::setPathEffect(VYRRasterPathEffect* ipEffect) {
  return Assign(_pPathEffect, ipEffect);
}
VYRRasterImageFilter* VYRRasterPaint::setImageFilter(VYRRasterImageFilter* ipFilter) { return Assign(_pImageFilter, ipFilter); }
VYRRasterTypeface* VYRRasterPaint::setTypeface(VYRRasterTypeface* ipTypeface) {
  return Assign(_pTypeface, ipTypeface);
}

bool VYRRasterPaint::getFillPath(const VYRRasterPath& i_src, VYRRasterPath* o_dst, float i_resScale) const {
  if (!o_dst) return false;
  const float resScale = (i_resScale > 0 && std::isfinite(i_resScale)) ? i_resScale : 1.0f;
  if (_style == kFill_Style) {
    if (o_dst != &i_src) *o_dst = i_src;
    return true;
  }
  VYRRasterPath dashed;
  const VYRRasterPath* src = &i_src;
  if (_pPathEffect && _pPathEffect->filterPath(&dashed, i_src, resScale)) src = &dashed;
  VYRRasterPath out;
  out.setFillType(VYRRasterPath::kWinding_FillType);
  if (_style == kStrokeAndFill_Style) {
    // The filled area as clockwise polygons too, so that it adds to the stroke pieces.
    for (const VYRRasterContour& c : VYRRasterContours::Flatten(*src, 0.1f / resScale))
      VYRRasterStrokeOutline::AppendPolygon(c.points.data(), static_cast<int>(c.points.size()), &out);
  }
  VYRRasterStrokeOutline::Settings settings;
  settings.width = _strokeWidth > 0 ? _strokeWidth : 1.0f / resScale;
  settings.cap = _cap;
  settings.join = _join;
  settings.miterLimit = _miterLimit;
  settings.tolerance = 0.1f / resScale;
  VYRRasterStrokeOutline::Append(*src, settings, &out);
  *o_dst = std::move(out);
  return true;
}

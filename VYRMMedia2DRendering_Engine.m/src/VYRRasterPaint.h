#pragma once

#include <cstdint>

#include "VYRBaseUnknown.h"
#include "VYRRasterBlendMode.h"
#include "VYRRasterPath.h"
#include "VYRRasterPathEffect.h"
#include "VYRRasterShader.h"

class VYRRasterImageFilter;
class VYRRasterTypeface;

// How a draw paints: colour or shader, style and stroke settings, transfer mode, path effect.
// Holds one reference on its shader, path effect, image filter and typeface.
class VYR_EXPORT VYRRasterPaint {
 public:
  enum Style { kFill_Style, kStroke_Style, kStrokeAndFill_Style };
  enum Cap { kButt_Cap, kRound_Cap, kSquare_Cap };
  enum Join { kMiter_Join, kRound_Join, kBevel_Join };
  enum TextEncoding { kUTF8_TextEncoding, kUTF16_TextEncoding, kGlyphID_TextEncoding };
  enum Flags {
    kAntiAlias_Flag = 0x01,
    kUnderlineText_Flag = 0x08,
    kStrikeThruText_Flag = 0x10,
    kFakeBoldText_Flag = 0x20,
    kSubpixelText_Flag = 0x80,
    kLCDRenderText_Flag = 0x200,
    kVerticalText_Flag = 0x1000
  };
  // Where text stands from its anchor: the anchor starts, centres or ends the advance.
  enum Align { kLeft_Align, kCenter_Align, kRight_Align };
  // Kept for callers; text is drawn from unhinted outlines whatever the setting.
  enum Hinting { kNo_Hinting, kSlight_Hinting, kNormal_Hinting, kFull_Hinting };

  VYRRasterPaint();
  VYRRasterPaint(const VYRRasterPaint& i_other);
  VYRRasterPaint& operator=(const VYRRasterPaint& i_other);
  ~VYRRasterPaint();

  // Back to the defaults: opaque black, fill, aliased, hairline width 0, butt caps, miter joins,
  // miter limit 4, source-over, no shader, effect, filter or typeface, text size 12, left
  // aligned, normal hinting.
  void reset();

  uint32_t getColor() const { return _color; }  // straight 0xAARRGGBB
  void setColor(uint32_t i_color) { _color = i_color; }
  void setARGB(unsigned a, unsigned r, unsigned g, unsigned b);
  uint8_t getAlpha() const { return static_cast<uint8_t>(_color >> 24); }
  void setAlpha(unsigned a);  // keeps the colour channels; values above 255 are clamped

  bool isAntiAlias() const { return _antiAlias; }
  void setAntiAlias(bool i_on) { _antiAlias = i_on; }
  Style getStyle() const { return _style; }
  void setStyle(Style i_style) { _style = i_style; }
  float getStrokeWidth() const { return _strokeWidth; }
  void setStrokeWidth(float i_width);  // negative or NaN widths are ignored; 0 is a hairline
  Cap getStrokeCap() const { return _cap; }
  void setStrokeCap(Cap i_cap) { _cap = i_cap; }
  Join getStrokeJoin() const { return _join; }
  void setStrokeJoin(Join i_join) { _join = i_join; }
  float getStrokeMiter() const { return _miterLimit; }
  void setStrokeMiter(float i_limit);  // negative or NaN limits are ignored

  VYRRasterBlendMode getBlendMode() const { return _blendMode; }
  // Values outside 0..27 select source-over.
  void setBlendMode(int i_mode);
  void setXfermodeMode(int i_mode) { setBlendMode(i_mode); }

  // Each setter takes its own reference and returns its argument; null removes.
  VYRRasterShader* getShader() const { return _pShader; }
  VYRRasterShader* setShader(VYRRasterShader* ipShader);
  VYRRasterPathEffect* getPathEffect() const { return _pPathEffect; }
  VYRRasterPathEffect* setPathEffect(VYRRasterPathEffect* ipEffect);

  // The filter a layer's pixels go through when the layer is composited.
  VYRRasterImageFilter* getImageFilter() const { return _pImageFilter; }
  VYRRasterImageFilter* setImageFilter(VYRRasterImageFilter* ipFilter);
  // The transfer mode through which a layer is composited by its luminance (source-in or
  // destination-in; other modes composite as plain modes); -1 for none.
  int getLumaMaskMode() const { return _lumaMaskMode; }
  void setLumaMaskMode(int i_mode) { _lumaMaskMode = i_mode; }
  // Null stands for the default typeface.
  VYRRasterTypeface* getTypeface() const { return _pTypeface; }
  VYRRasterTypeface* setTypeface(VYRRasterTypeface* ipTypeface);
  float getTextSize() const { return _textSize; }
  void setTextSize(float i_size) { _textSize = i_size; }
  float getTextSkewX() const { return _textSkewX; }
  void setTextSkewX(float i_skew) { _textSkewX = i_skew; }
  float getTextScaleX() const { return _textScaleX; }
  void setTextScaleX(float i_scale) { _textScaleX = i_scale; }
  Align getTextAlign() const { return _textAlign; }
  void setTextAlign(Align i_align) { _textAlign = i_align; }
  Hinting getHinting() const { return _hinting; }
  void setHinting(Hinting i_hinting) { _hinting = i_hinting; }
  uint32_t getFlags() const { return _flags; }
  void setFlags(uint32_t i_flags) { _flags = i_flags; }
  // Sets or clears one flag.
  void setFlag(Flags i_flag, bool i_on) { _flags = i_on ? _flags | i_flag : _flags & ~uint32_t{i_flag}; }
  TextEncoding getTextEncoding() const { return _textEncoding; }
  void setTextEncoding(TextEncoding i_encoding) { _textEncoding = i_encoding; }

  // The area the paint's stroke covers, as a path to fill with the winding rule (after the
  // path effect). With the fill style, i_src (dashed if an effect applies) is copied as it is.
  // The outline is a union of overlapping pieces (one per segment, join and cap) rather than a
  // single contour: it covers exactly the stroke's area, which is what filling and clipping by
  // difference need. A hairline gives its one-pixel-wide outline at i_resScale device pixels per
  // unit. Holes of a stroke-and-fill source are filled. Returns false only for a null o_dst.
  bool getFillPath(const VYRRasterPath& i_src, VYRRasterPath* o_dst, float i_resScale = 1.0f) const;

 private:
  void releaseRefs();
  void copyFrom(const VYRRasterPaint& i_other);

  uint32_t _color;
  bool _antiAlias;
  Style _style;
  float _strokeWidth;
  Cap _cap;
  Join _join;
  float _miterLimit;
  VYRRasterBlendMode _blendMode;
  VYRRasterShader* _pShader = nullptr;
  VYRRasterPathEffect* _pPathEffect = nullptr;
  VYRRasterImageFilter* _pImageFilter = nullptr;
  VYRRasterTypeface* _pTypeface = nullptr;
  int _lumaMaskMode;
  float _textSize;
  float _textSkewX;
  float _textScaleX;
  Align _textAlign;
  Hinting _hinting;
  uint32_t _flags;
  TextEncoding _textEncoding;
};

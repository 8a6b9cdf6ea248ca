#pragma once

#include "VYRExport.h"
#include "VYRUnicodeString.h"

class VYRI2DGStream;

namespace MM2D {

// SVG font-style.
enum FontStyle : int {
  FontStyleNormal = 0,
  FontStyleItalic = 1,
  FontStyleOblique = 2,
};

// SVG text-anchor: where the text's position lies along its advance.
enum TextAnchor : int {
  TextAnchorStart = 0,
  TextAnchorMiddle = 1,
  TextAnchorEnd = 2,
};

// SVG text-decoration, as a set of flags.
enum TextDecoration : int {
  TextDecorationNone = 0,
  TextDecorationUnderline = 1,
  TextDecorationOverline = 2,
  TextDecorationLineThrough = 4,
  TextDecorationBlink = 8,
};

}  // namespace MM2D

// How a text is set: font family, height (the font size in user units),
// weight (100 to 900, SVG's numeric scale), style, anchor and decoration,
// and a font version, a number the host sets to tell font resolutions apart
// (consumers may cache the font they resolve per version). All are stored as
// given and stream in declaration order: the family as a string, the height
// as a double, the others as ints.
class VYR_EXPORT VYRPrtTextAttributes {
 public:
  static constexpr int kNormalWeight = 400;
  static constexpr int kBoldWeight = 700;

  // An empty family means the platform's default font.
  const VYRUnicodeString& GetFontFamily() const { return _fontFamily; }
  void SetFontFamily(const VYRUnicodeString& i_family) { _fontFamily = i_family; }
  double GetHeight() const { return _height; }
  void SetHeight(double i_height) { _height = i_height; }
  int GetWeight() const { return _weight; }
  void SetWeight(int i_weight) { _weight = i_weight; }
  MM2D::FontStyle GetStyle() const { return _style; }
  void SetStyle(MM2D::FontStyle i_style) { _style = i_style; }
  MM2D::TextAnchor GetAnchor() const { return _anchor; }
  void SetAnchor(MM2D::TextAnchor i_anchor) { _anchor = i_anchor; }
  // A combination of MM2D::TextDecoration flags.
  int GetDecoration() const { return _decoration; }
  void SetDecoration(int i_decoration) { _decoration = i_decoration; }
  int GetFontVersion() const { return _fontVersion; }
  void SetFontVersion(int i_version) { _fontVersion = i_version; }

  bool operator==(const VYRPrtTextAttributes& i_other) const;

  void Stream(VYRI2DGStream* ipStream) const;
  void Unstream(VYRI2DGStream* ipStream);

 private:
  VYRUnicodeString _fontFamily;
  double _height = 16.0;  // SVG's medium font size
  int _weight = kNormalWeight;
  MM2D::FontStyle _style = MM2D::FontStyleNormal;
  MM2D::TextAnchor _anchor = MM2D::TextAnchorStart;
  int _decoration = MM2D::TextDecorationNone;
  int _fontVersion = 0;
};

#pragma once

#include <memory>
#include <unordered_map>

#include "VYRBaseUnknown.h"
#include "VYRMathPoint2Df.h"
#include "VYRRasterPath.h"
#include "VYRUnicodeString.h"

struct FT_FaceRec_;

// One glyph of a face, in em units (1.0 is the text size) with y pointing up,
// as fonts draw them.
struct VYR_EXPORT VYRRasterGlyph {
  VYRRasterPath outline;          // unhinted outline; empty for blank glyphs
  float advance = 0.0f;           // horizontal advance
  float verticalAdvance = 0.0f;   // advance of vertical text
  // Where the glyph's horizontal origin lies from the pen of vertical text
  // (x right, y down): vertical text hangs glyphs centred below the pen.
  VYRMathPoint2Df verticalOrigin;
  bool missing = false;           // the face's missing-glyph box
};

// Face-wide measures, in em units with y pointing up (positive above the baseline).
struct VYR_EXPORT VYRRasterFaceMetrics {
  float ascender = 0.8f;
  float descender = -0.2f;
  float underlinePosition = -0.1f;   // centre of the underline
  float underlineThickness = 0.05f;
  float strikeoutPosition = 0.3f;    // top of the strike-through bar
  float strikeoutThickness = 0.05f;
  bool hasVerticalMetrics = false;
};

// A scalable font face read through FreeType, with the outlines of its glyphs
// cached as paths so that a glyph is decomposed once per process whatever
// the text size. A style the face lacks is made up: bold by thickening the
// outlines, italic by the slant the text layout adds (SyntheticSkew).
//
// Typefaces are shared: every creation function returns a new reference on a
// process-wide instance, kept until the process ends so that the glyphs and
// fallback faces it hands out stay valid. Glyph look-ups lock, so drawings on
// different threads may share faces.
class VYR_EXPORT VYRRasterTypeface : public VYRBaseUnknown {
  VYR_DECLARE_CLASS(VYRRasterTypeface)
 public:
  // The values of the platform font styles.
  enum Style : int { kNormal = 0, kBold = 1, kItalic = 2, kBoldItalic = 3 };

  // The installed face nearest to a family and a style (an empty or null
  // name asks for the default family). Null when the system has no font.
  static VYRRasterTypeface* CreateFromName(const char* i_familyName, Style i_style);
  // The face of a font file. Null (reported) when the file cannot be read as a scalable font.
  static VYRRasterTypeface* CreateFromFile(const char* i_filePath, int i_faceIndex);
  // The face of the base's family in another style: the installed one when
  // there is one, else the base's own face with the missing style made up.
  // A null base stands for the default family.
  static VYRRasterTypeface* CreateFromTypeface(const VYRRasterTypeface* i_pBase, Style i_style);
  // The default family's normal face, borrowed (not a new reference); null without fonts.
  static VYRRasterTypeface* GetDefault();

  const VYRUnicodeString& GetFamilyName() const { return _familyName; }
  const VYRUnicodeString& GetFilePath() const { return _filePath; }
  // What the face draws: its own style plus the styles made up.
  Style GetStyle() const;
  bool IsSyntheticBold() const { return _syntheticBold; }
  bool IsSyntheticItalic() const { return _syntheticItalic; }
  // Horizontal skew the layout adds for a made-up italic (0 otherwise).
  float SyntheticSkew() const { return _syntheticItalic ? -0.25f : 0.0f; }
  const VYRRasterFaceMetrics& GetMetrics() const { return _metrics; }

  // Whether the face itself has a glyph for the code point.
  bool HasGlyph(char32_t i_codePoint) const;
  // The glyph of a code point: this face's; else the one of the first face
  // the font configuration offers for this family and style that has it;
  // else this face's missing glyph. o_ppFace receives the face that gave it.
  // The glyph stays valid until the process ends.
  const VYRRasterGlyph& GetGlyph(char32_t i_codePoint, const VYRRasterTypeface** o_ppFace = nullptr);

  ~VYRRasterTypeface() override;

 private:
  class Registry;
  friend class Registry;
  VYRRasterTypeface() = default;
  bool Open_(const char* i_filePath, int i_faceIndex);
  void ReadMetrics_();
  const VYRRasterGlyph& GlyphByIndex_(unsigned i_glyphIndex);
  VYRRasterTypeface* FindFallback_(char32_t i_codePoint) const;

  FT_FaceRec_* _pFace = nullptr;
  VYRUnicodeString _filePath;
  VYRUnicodeString _familyName;
  int _faceIndex = 0;
  bool _faceBold = false;
  bool _faceItalic = false;
  bool _syntheticBold = false;
  bool _syntheticItalic = false;
  VYRRasterFaceMetrics _metrics;
  // A code point's glyph and the face it comes from (this one or a fallback).
  struct Resolved {
    const VYRRasterGlyph* pGlyph;
    const VYRRasterTypeface* pFace;
  };
  std::unordered_map<unsigned, std::unique_ptr<VYRRasterGlyph>> _glyphsByIndex;
  std::unordered_map<char32_t, Resolved> _byCodePoint;
};

#include "VYRRasterTypeface.h"

#include <ft2build.h>
#include FT_FREETYPE_H
#include FT_OUTLINE_H
#include FT_TRUETYPE_TABLES_H
#include <fontconfig/fontconfig.h>

#include <map>
#include <mutex>
#include <new>
#include <string>
#include <tuple>

#include "VYRAssert.h"
#include "VYRFont.h"

VYR_IMPLEMENT_ABSTRACT_CLASS(VYRRasterTypeface, VYRBaseUnknown, "Engine")

// Every typeface of the process, by file, face index and made-up styles, and
// the FreeType library they share. FreeType objects are not thread-safe, so
// every use of them holds the registry's lock (recursive: a look-up may open a
// fallback face).
class VYRRasterTypeface::Registry {
 public:
  static Registry& Get() {
    // Never destroyed: typefaces handed out stay valid during static destruction too.
    static Registry* s_registry = new Registry();
    return *s_registry;
  }

  std::recursive_mutex& Mutex() { return _mutex; }

  // A new reference on the typeface of a face with made-up styles, opened on first use.
  VYRRasterTypeface* Ref(const VYRUnicodeString& i_filePath, int i_faceIndex, bool i_syntheticBold,
                         bool i_syntheticItalic) {
    std::lock_guard<std::recursive_mutex> lock(_mutex);
    const Key key(i_filePath.GetStdString(), i_faceIndex, i_syntheticBold, i_syntheticItalic);
    auto found = _typefaces.find(key);
    if (found == _typefaces.end()) {
      VYRRasterTypeface* pTypeface = Open(i_filePath, i_faceIndex);
      if (pTypeface != nullptr) {
        pTypeface->_syntheticBold = i_syntheticBold;
        pTypeface->_syntheticItalic = i_syntheticItalic;
      }
      found = _typefaces.emplace(key, pTypeface).first;
    }
    if (found->second != nullptr) found->second->AddRef();
    return found->second;
  }

 private:
  using Key = std::tuple<std::string, int, bool, bool>;

  VYRRasterTypeface* Open(const VYRUnicodeString& i_filePath, int i_faceIndex) {
    if (_pLibrary == nullptr && FT_Init_FreeType(&_pLibrary) != 0) _pLibrary = nullptr;
    if (!VYR_CHECK_POINTER_TEXT(_pLibrary, "FreeType library")) return nullptr;
    VYRRasterTypeface* pTypeface = new (std::nothrow) VYRRasterTypeface();
    if (!VYR_CHECK_POINTER(pTypeface)) return nullptr;
    FT_Face pFace = nullptr;
    const bool opened = FT_New_Face(_pLibrary, i_filePath.CastToCharPtr(), i_faceIndex, &pFace) == 0;
    if (!VYR_CHECK_CONDITION_TEXT(opened && FT_IS_SCALABLE(pFace) && pFace->units_per_EM > 0,
                                  "font file readable as a scalable face")) {
      if (opened) FT_Done_Face(pFace);
      pTypeface->Release();
      return nullptr;
    }
    pTypeface->_pFace = pFace;
    pTypeface->_filePath = i_filePath;
    pTypeface->_faceIndex = i_faceIndex;
    pTypeface->_familyName = VYRUnicodeString(pFace->family_name != nullptr ? pFace->family_name : "");
    pTypeface->_faceBold = (pFace->style_flags & FT_STYLE_FLAG_BOLD) != 0;
    pTypeface->_faceItalic = (pFace->style_flags & FT_STYLE_FLAG_ITALIC) != 0;
    pTypeface->ReadMetrics_();
    return pTypeface;
  }

  std::recursive_mutex _mutex;
  FT_Library _pLibrary = nullptr;
  std::map<Key, VYRRasterTypeface*> _typefaces;
};

namespace {

// Outline decomposition into a path in em units. FreeType reports contours
// without closing them: each new move (and the end) closes the previous one.
struct OutlineSink {
  VYRRasterPath* pPath;
  float scale;  // em units per font unit
  bool open = false;

  VYRMathPoint2Df Point(const FT_Vector* i_pVector) const {
    return {static_cast<float>(i_pVector->x) * scale, static_cast<float>(i_pVector->y) * scale};
  }
  static OutlineSink& Of(void* i_pUser) { return *static_cast<OutlineSink*>(i_pUser); }

  static int MoveTo(const FT_Vector* i_pTo, void* i_pUser) {
    OutlineSink& sink = Of(i_pUser);
    if (sink.open) sink.pPath->close();
    sink.pPath->moveTo(sink.Point(i_pTo));
    sink.open = true;
    return 0;
  }
  static int LineTo(const FT_Vector* i_pTo, void* i_pUser) {
    OutlineSink& sink = Of(i_pUser);
    sink.pPath->lineTo(sink.Point(i_pTo));
    return 0;
  }
  static int ConicTo(const FT_Vector* i_pControl, const FT_Vector* i_pTo, void* i_pUser) {
    OutlineSink& sink = Of(i_pUser);
    const VYRMathPoint2Df c = sink.Point(i_pControl), p = sink.Point(i_pTo);
    sink.pPath->quadTo(c.x, c.y, p.x, p.y);
    return 0;
  }
  static int CubicTo(const FT_Vector* i_pControl1, const FT_Vector* i_pControl2, const FT_Vector* i_pTo,
                     void* i_pUser) {
    OutlineSink& sink = Of(i_pUser);
    const VYRMathPoint2Df c1 = sink.Point(i_pControl1), c2 = sink.Point(i_pControl2), p = sink.Point(i_pTo);
    sink.pPath->cubicTo(c1.x, c1.y, c2.x, c2.y, p.x, p.y);
    return 0;
  }
};

VYRFont* FontOf(const char* i_familyName, VYRRasterTypeface::Style i_style) {
  const VYRUnicodeString family =
      i_familyName != nullptr && i_familyName[0] != '\0' ? VYRUnicodeString(i_familyName) : VYRFont::sGetDefaultFont();
  return VYRFont::sGetFont(family, i_style);
}

}  // namespace

VYRRasterTypeface::~VYRRasterTypeface() {
  if (_pFace != nullptr) FT_Done_Face(_pFace);
}

VYRRasterTypeface* VYRRasterTypeface::CreateFromName(const char* i_familyName, Style i_style) {
  const VYRFont* pFont = FontOf(i_familyName, i_style);
  if (pFont == nullptr) return nullptr;
  // What the nearest face lacks of the style is made up.
  return Registry::Get().Ref(pFont->GetFontFilePath(), pFont->GetFaceIndex(),
                             (i_style & kBold) != 0 && !pFont->IsBold(), (i_style & kItalic) != 0 && !pFont->IsItalic());
}

VYRRasterTypeface* VYRRasterTypeface::CreateFromFile(const char* i_filePath, int i_faceIndex) {
  if (!VYR_CHECK_POINTER(i_filePath)) return nullptr;
  return Registry::Get().Ref(VYRUnicodeString(i_filePath), i_faceIndex, false, false);
}

VYRRasterTypeface* VYRRasterTypeface::CreateFromTypeface(const VYRRasterTypeface* i_pBase, Style i_style) {
  if (i_pBase == nullptr) return CreateFromName(nullptr, i_style);
  const VYRFont* pFont = FontOf(i_pBase->_familyName.CastToCharPtr(), i_style);
  if (pFont != nullptr && pFont->GetFamilyName() == i_pBase->_familyName) {
    return CreateFromName(i_pBase->_familyName.CastToCharPtr(), i_style);
  }
  // A family the configuration does not know (a face read from its file): that face itself.
  const bool bold = (i_style & kBold) != 0, italic = (i_style & kItalic) != 0;
  return Registry::Get().Ref(i_pBase->_filePath, i_pBase->_faceIndex, bold && !i_pBase->_faceBold,
                             italic && !i_pBase->_faceItalic);
}

VYRRasterTypeface* VYRRasterTypeface::GetDefault() {
  static VYRRasterTypeface* s_pDefault = CreateFromName(nullptr, kNormal);
  return s_pDefault;
}

VYRRasterTypeface::Style VYRRasterTypeface::GetStyle() const {
  return static_cast<Style>(((_faceBold || _syntheticBold) ? kBold : 0) |
                            ((_faceItalic || _syntheticItalic) ? kItalic : 0));
}

void VYRRasterTypeface::ReadMetrics_() {
  const float unit = 1.0f / static_cast<float>(_pFace->units_per_EM);
  _metrics.ascender = _pFace->ascender * unit;
  _metrics.descender = _pFace->descender * unit;
  if (_pFace->underline_thickness > 0) {
    _metrics.underlinePosition = _pFace->underline_position * unit;
    _metrics.underlineThickness = _pFace->underline_thickness * unit;
  }
  const auto* pOs2 = static_cast<const TT_OS2*>(FT_Get_Sfnt_Table(_pFace, FT_SFNT_OS2));
  if (pOs2 != nullptr && pOs2->version != 0xFFFF && pOs2->yStrikeoutSize > 0) {
    _metrics.strikeoutPosition = pOs2->yStrikeoutPosition * unit;
    _metrics.strikeoutThickness = pOs2->yStrikeoutSize * unit;
  } else {
    // No OS/2 table: a bar as thick as the underline, across the middle of lower-case letters.
    _metrics.strikeoutThickness = _metrics.underlineThickness;
    _metrics.strikeoutPosition = 0.25f * _metrics.ascender + 0.5f * _metrics.strikeoutThickness;
  }
  _metrics.hasVerticalMetrics = FT_HAS_VERTICAL(_pFace);
}

bool VYRRasterTypeface::HasGlyph(char32_t i_codePoint) const {
  std::lock_guard<std::recursive_mutex> lock(Registry::Get().Mutex());
  return FT_Get_Char_Index(_pFace, i_codePoint) != 0;
}

const VYRRasterGlyph& VYRRasterTypeface::GlyphByIndex_(unsigned i_glyphIndex) {
  std::unique_ptr<VYRRasterGlyph>& slot = _glyphsByIndex[i_glyphIndex];
  if (slot != nullptr) return *slot;
  slot.reset(new VYRRasterGlyph());
  VYRRasterGlyph& glyph = *slot;
  glyph.missing = i_glyphIndex == 0;
  const float unit = 1.0f / static_cast<float>(_pFace->units_per_EM);
  // Font units, unhinted: outlines scale exactly to any size.
  if (FT_Load_Glyph(_pFace, i_glyphIndex, FT_LOAD_NO_SCALE | FT_LOAD_NO_BITMAP) != 0) return glyph;
  FT_GlyphSlot pSlot = _pFace->glyph;
  if (pSlot->format == FT_GLYPH_FORMAT_OUTLINE) {
    // Made-up bold thickens the outline by a 24th of the em.
    if (_syntheticBold) FT_Outline_Embolden(&pSlot->outline, _pFace->units_per_EM / 24);
    FT_Outline_Funcs funcs{&OutlineSink::MoveTo, &OutlineSink::LineTo, &OutlineSink::ConicTo, &OutlineSink::CubicTo,
                           0, 0};
    OutlineSink sink{&glyph.outline, unit};
    FT_Outline_Decompose(&pSlot->outline, &funcs, &sink);
    if (sink.open) glyph.outline.close();
  }
  const FT_Glyph_Metrics& m = pSlot->metrics;
  glyph.advance = m.horiAdvance * unit;
  if (_metrics.hasVerticalMetrics) {
    glyph.verticalAdvance = m.vertAdvance * unit;
    glyph.verticalOrigin = {(m.vertBearingX - m.horiBearingX) * unit, (m.vertBearingY + m.horiBearingY) * unit};
  } else {
    // No vertical metrics: one line height per glyph, the glyph centred under the pen.
    glyph.verticalAdvance = _metrics.ascender - _metrics.descender;
    glyph.verticalOrigin = {-0.5f * glyph.advance, _metrics.ascender};
  }
  return glyph;
}

VYRRasterTypeface* VYRRasterTypeface::FindFallback_(char32_t i_codePoint) const {
  FcPattern* pPattern = FcPatternCreate();
  FcCharSet* pWanted = FcCharSetCreate();
  if (pPattern == nullptr || pWanted == nullptr) {
    if (pPattern != nullptr) FcPatternDestroy(pPattern);
    if (pWanted != nullptr) FcCharSetDestroy(pWanted);
    return nullptr;
  }
  const Style style = GetStyle();
  FcPatternAddString(pPattern, FC_FAMILY, reinterpret_cast<const FcChar8*>(_familyName.CastToCharPtr()));
  FcPatternAddInteger(pPattern, FC_WEIGHT, (style & kBold) ? FC_WEIGHT_BOLD : FC_WEIGHT_REGULAR);
  FcPatternAddInteger(pPattern, FC_SLANT, (style & kItalic) ? FC_SLANT_ITALIC : FC_SLANT_ROMAN);
  FcCharSetAddChar(pWanted, i_codePoint);
  FcPatternAddCharSet(pPattern, FC_CHARSET, pWanted);
  FcConfigSubstitute(nullptr, pPattern, FcMatchPattern);
  FcDefaultSubstitute(pPattern);
  FcResult result = FcResultNoMatch;
  FcFontSet* pSorted = FcFontSort(nullptr, pPattern, FcFalse, nullptr, &result);
  VYRRasterTypeface* pFallback = nullptr;
  for (int i = 0; pSorted != nullptr && i < pSorted->nfont && pFallback == nullptr; ++i) {
    FcCharSet* pCharSet = nullptr;
    FcChar8* pFile = nullptr;
    int index = 0;
    if (FcPatternGetCharSet(pSorted->fonts[i], FC_CHARSET, 0, &pCharSet) != FcResultMatch ||
        !FcCharSetHasChar(pCharSet, i_codePoint) ||
        FcPatternGetString(pSorted->fonts[i], FC_FILE, 0, &pFile) != FcResultMatch) {
      continue;
    }
    FcPatternGetInteger(pSorted->fonts[i], FC_INDEX, 0, &index);
    pFallback = Registry::Get().Ref(VYRUnicodeString(reinterpret_cast<const char*>(pFile)), index, false, false);
    // The registry keeps it alive; callers borrow it.
    if (pFallback != nullptr) pFallback->Release();
    if (pFallback != nullptr && !pFallback->HasGlyph(i_codePoint)) pFallback = nullptr;
  }
  if (pSorted != nullptr) FcFontSetDestroy(pSorted);
  FcCharSetDestroy(pWanted);
  FcPatternDestroy(pPattern);
  return pFallback;
}

const VYRRasterGlyph& VYRRasterTypeface::GetGlyph(char32_t i_codePoint, const VYRRasterTypeface** o_ppFace) {
  std::lock_guard<std::recursive_mutex> lock(Registry::Get().Mutex());
  auto found = _byCodePoint.find(i_codePoint);
  if (found == _byCodePoint.end()) {
    Resolved resolved{nullptr, this};
    const unsigned index = FT_Get_Char_Index(_pFace, i_codePoint);
    VYRRasterTypeface* pFallback = index == 0 ? FindFallback_(i_codePoint) : nullptr;
    if (pFallback != nullptr && pFallback != this) {
      resolved = {&pFallback->GlyphByIndex_(FT_Get_Char_Index(pFallback->_pFace, i_codePoint)), pFallback};
    } else {
      resolved.pGlyph = &GlyphByIndex_(index);
    }
    found = _byCodePoint.emplace(i_codePoint, resolved).first;
  }
  if (o_ppFace != nullptr) *o_ppFace = found->second.pFace;
  return *found->second.pGlyph;
}

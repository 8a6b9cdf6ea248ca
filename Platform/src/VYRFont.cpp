#include "VYRFont.h"

#include <fontconfig/fontconfig.h>

#include <map>
#include <mutex>
#include <utility>

VYR_IMPLEMENT_CLASS(VYRFont, VYRBaseUnknown, "Platform")

namespace {

// Fonts found so far, by requested family and style. Lookups through the font
// configuration are slow, and callers keep the pointers without owning them.
class FontCache {
 public:
  VYRFont* Get(const VYRUnicodeString& i_familyName, int i_style) {
    std::lock_guard<std::mutex> lock(_mutex);
    const auto key = std::make_pair(i_familyName, i_style);
    auto found = _fonts.find(key);
    if (found == _fonts.end()) found = _fonts.emplace(key, Match(i_familyName, i_style)).first;
    return found->second;
  }

 private:
  static VYRUnicodeString StringOf(FcPattern* i_pattern, const char* i_object) {
    FcChar8* value = nullptr;
    if (FcPatternGetString(i_pattern, i_object, 0, &value) != FcResultMatch || !value) return VYRUnicodeString();
    return VYRUnicodeString(reinterpret_cast<const char*>(value));
  }

  static int IntegerOf(FcPattern* i_pattern, const char* i_object, int i_default) {
    int value = i_default;
    FcPatternGetInteger(i_pattern, i_object, 0, &value);
    return value;
  }

  // The face the configuration offers for the family and style, or null.
  static VYRFont* Match(const VYRUnicodeString& i_familyName, int i_style) {
    FcPattern* pattern = FcPatternCreate();
    if (!pattern) return nullptr;
    FcPatternAddString(pattern, FC_FAMILY, reinterpret_cast<const FcChar8*>(i_familyName.CastToCharPtr()));
    FcPatternAddInteger(pattern, FC_WEIGHT, (i_style & VYRFont::kBold) ? FC_WEIGHT_BOLD : FC_WEIGHT_REGULAR);
    FcPatternAddInteger(pattern, FC_SLANT, (i_style & VYRFont::kItalic) ? FC_SLANT_ITALIC : FC_SLANT_ROMAN);
    FcConfigSubstitute(nullptr, pattern, FcMatchPattern);
    FcDefaultSubstitute(pattern);
    FcResult result = FcResultNoMatch;
    FcPattern* match = FcFontMatch(nullptr, pattern, &result);
    FcPatternDestroy(pattern);
    if (!match) return nullptr;

    VYRFont* font = nullptr;
    const VYRUnicodeString filePath = StringOf(match, FC_FILE);
    if (!filePath.IsEmpty()) {
      font = new VYRFont(filePath, IntegerOf(match, FC_INDEX, 0), StringOf(match, FC_FAMILY), StringOf(match, FC_STYLE),
                         IntegerOf(match, FC_WEIGHT, FC_WEIGHT_REGULAR) >= FC_WEIGHT_DEMIBOLD,
                         IntegerOf(match, FC_SLANT, FC_SLANT_ROMAN) != FC_SLANT_ROMAN);
    }
    FcPatternDestroy(match);
    return font;
  }

  std::mutex _mutex;
  std::map<std::pair<VYRUnicodeString, int>, VYRFont*> _fonts;
};

// Never destroyed: fonts handed out stay valid during static destruction too.
FontCache& TheFontCache() {
  static FontCache* s_cache = new FontCache();
  return *s_cache;
}

}  // namespace

VYRFont::VYRFont(const VYRUnicodeString& i_filePath, int i_faceIndex, const VYRUnicodeString& i_familyName,
                 const VYRUnicodeString& i_styleName, bool i_isBold, bool i_isItalic)
    : _filePath(i_filePath),
      _faceIndex(i_faceIndex),
      _familyName(i_familyName),
      _styleName(i_styleName),
      _isBold(i_isBold),
      _isItalic(i_isItalic) {}

VYRUnicodeString VYRFont::sGetDefaultFont() {
  static const VYRUnicodeString s_defaultFamily = [] {
    VYRFont* font = sGetFont("sans-serif", kNormal);
    return font ? font->GetFamilyName() : VYRUnicodeString();
  }();
  return s_defaultFamily;
}

VYRFont* VYRFont::sGetFont(const VYRUnicodeString& i_familyName, int i_style) {
  if (i_familyName.IsEmpty()) return nullptr;
  return TheFontCache().Get(i_familyName, i_style & kBoldItalic);
}

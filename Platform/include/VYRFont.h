#pragma once

#include "VYRBaseUnknown.h"
#include "VYRExport.h"
#include "VYRUnicodeString.h"

// A font face installed on the system: the file that holds it, the face's
// index inside that file, its family and style. Faces are found by family
// name and style through the system's font configuration, which always
// offers its nearest face, so a missing family or style yields a substitute
// whose family name and flags tell what was found.
class VYR_EXPORT VYRFont : public VYRBaseUnknown {
  VYR_DECLARE_CLASS(VYRFont)
 public:
  // Style flags of sGetFont; bold and italic combine.
  static constexpr int kNormal = 0;
  static constexpr int kBold = 1;
  static constexpr int kItalic = 2;
  static constexpr int kBoldItalic = kBold | kItalic;

  // Family name of the system's default face (its "sans-serif"); empty when
  // the system has no font at all.
  static VYRUnicodeString sGetDefaultFont();

  // The face nearest to a family and a style. The font belongs to a process-wide
  // cache that keeps it until the process ends: the caller does not release it
  // (AddRef/Release pairs are fine). Null for an empty name or when nothing matches.
  static VYRFont* sGetFont(const VYRUnicodeString& i_familyName, int i_style);

  VYRFont() = default;
  VYRFont(const VYRUnicodeString& i_filePath, int i_faceIndex, const VYRUnicodeString& i_familyName,
          const VYRUnicodeString& i_styleName, bool i_isBold, bool i_isItalic);

  // Path of the font file (TrueType, OpenType, ...) and the face's index in it.
  const VYRUnicodeString& GetFontFilePath() const { return _filePath; }
  int GetFaceIndex() const { return _faceIndex; }
  const VYRUnicodeString& GetFamilyName() const { return _familyName; }
  // The face's own style name, e.g. "Bold Oblique".
  const VYRUnicodeString& GetStyleName() const { return _styleName; }
  // What the face is, whatever was asked for.
  bool IsBold() const { return _isBold; }
  bool IsItalic() const { return _isItalic; }

 private:
  VYRUnicodeString _filePath;
  int _faceIndex = 0;
  VYRUnicodeString _familyName;
  VYRUnicodeString _styleName;
  bool _isBold = false;
  bool _isItalic = false;
};

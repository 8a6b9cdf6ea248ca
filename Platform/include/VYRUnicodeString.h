#pragma once

#include <string>
#include <vector>

#include "VYRExport.h"

// A text value. Its 8-bit form is UTF-8, and every length and position is
// counted in bytes of that form ("chars"), so that what a stream writes with
// GetLengthInChar() is exactly the text's bytes, non-ASCII letters included.
class VYR_EXPORT VYRUnicodeString {
 public:
  VYRUnicodeString() = default;
  // NOLINTNEXTLINE: narrow text converts implicitly, as hosts expect. Inline, so that a literal's
  // length is known where the string is built (element defaults are made in bulk by the pools).
  VYRUnicodeString(const char* i_text) : _text(i_text ? i_text : "") {}
  VYRUnicodeString(const char* i_text, int i_length);
  explicit VYRUnicodeString(const std::string& i_text) : _text(i_text) {}

  // Length of the 8-bit form in bytes.
  int GetLengthInChar() const { return static_cast<int>(_text.size()); }
  // Number of Unicode code points (an invalid byte counts as one).
  int GetCodePointCount() const;
  bool IsEmpty() const { return _text.empty(); }

  // The zero-terminated 8-bit form, valid until the string changes.
  const char* CastToCharPtr() const { return _text.c_str(); }
  const char* ConvertToChar() const { return _text.c_str(); }
  // Copies the UTF-8 bytes and a terminating zero into a caller buffer.
  // Returns the byte length, or -1 (buffer untouched) when it does not fit.
  int ConvertToUTF8(char* o_buffer, int i_bufferSize) const;
  // The code points; invalid bytes become U+FFFD.
  std::u32string ConvertToCodePoints() const;
  const std::string& GetStdString() const { return _text; }

  void BuildFromChar(const char* i_text, int i_length = -1);

  int Compare(const VYRUnicodeString& i_other) const { return _text.compare(i_other._text); }
  bool operator==(const VYRUnicodeString& i_other) const { return _text == i_other._text; }
  bool operator!=(const VYRUnicodeString& i_other) const { return _text != i_other._text; }
  bool operator<(const VYRUnicodeString& i_other) const { return _text < i_other._text; }
  bool operator==(const char* i_text) const { return _text == (i_text ? i_text : ""); }
  bool operator!=(const char* i_text) const { return !(*this == i_text); }

  char operator[](int i_index) const;
  VYRUnicodeString& operator+=(const VYRUnicodeString& i_other);
  VYRUnicodeString operator+(const VYRUnicodeString& i_other) const;

  // Positions are byte offsets in the 8-bit form; a search that finds nothing gives -1.
  VYRUnicodeString SubString(int i_start, int i_length = -1) const;
  int Find(const VYRUnicodeString& i_what, int i_from = 0) const;
  int ReverseFind(const VYRUnicodeString& i_what, int i_before = -1) const;
  bool Contains(const VYRUnicodeString& i_what) const { return Find(i_what) >= 0; }
  // Insert and Replace clamp their positions to the text and return 1, or -1 for a negative position.
  int Insert(int i_position, const VYRUnicodeString& i_what);
  int Replace(int i_position, int i_length, const VYRUnicodeString& i_with);
  // Replaces every occurrence; returns how many were replaced.
  int ReplaceAll(const VYRUnicodeString& i_what, const VYRUnicodeString& i_with);
  // Removes every occurrence of a byte; returns how many were removed.
  int RemoveChar(char i_char);
  std::vector<VYRUnicodeString> Split(char i_separator) const;

 private:
  std::string _text;
};

// The narrow string of the platform: the same text value, kept as its own type.
class VYR_EXPORT VYRString : public VYRUnicodeString {
 public:
  using VYRUnicodeString::VYRUnicodeString;
  VYRString() = default;
  VYRString(const VYRUnicodeString& i_text) : VYRUnicodeString(i_text) {}  // NOLINT
};

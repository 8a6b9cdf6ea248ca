#include "VYRUnicodeString.h"

#include <algorithm>
#include <cstring>

namespace {

// Decodes one UTF-8 sequence at i_pos; invalid or truncated input yields U+FFFD over one byte.
char32_t DecodeOne(const std::string& i_text, size_t& io_pos) {
  const auto byte = [&](size_t i) { return static_cast<unsigned char>(i_text[i]); };
  unsigned char lead = byte(io_pos);
  int extra = lead < 0x80 ? 0 : (lead >> 5) == 0x6 ? 1 : (lead >> 4) == 0xE ? 2 : (lead >> 3) == 0x1E ? 3 : -1;
  if (extra < 0 || io_pos + extra >= i_text.size()) {
    ++io_pos;
    return 0xFFFD;
  }
  char32_t code = extra == 0 ? lead : lead & (0x3F >> extra);
  for (int i = 1; i <= extra; ++i) {
    unsigned char next = byte(io_pos + i);
    if ((next & 0xC0) != 0x80) {
      ++io_pos;
      return 0xFFFD;
    }
    code = (code << 6) | (next & 0x3F);
  }
  io_pos += extra + 1;
  return code;
}

}  // namespace

VYRUnicodeString::VYRUnicodeString(const char* i_text, int i_length) { BuildFromChar(i_text, i_length); }

void VYRUnicodeString::BuildFromChar(const char* i_text, int i_length) {
  if (!i_text) {
    _text.clear();
  } else if (i_length < 0) {
    _text.assign(i_text);
  } else {
    _text.assign(i_text, static_cast<size_t>(i_length));
  }
}

int VYRUnicodeString::GetCodePointCount() const {
  int count = 0;
  for (size_t pos = 0; pos < _text.size(); ++count) DecodeOne(_text, pos);
  return count;
}

int VYRUnicodeString::ConvertToUTF8(char* o_buffer, int i_bufferSize) const {
  const int length = GetLengthInChar();
  if (!o_buffer || i_bufferSize <= length) return -1;
  std::memcpy(o_buffer, _text.data(), _text.size());
  o_buffer[length] = '\0';
  return length;
}

std::u32string VYRUnicodeString::ConvertToCodePoints() const {
  std::u32string codes;
  codes.reserve(_text.size());
  for (size_t pos = 0; pos < _text.size();) codes.push_back(DecodeOne(_text, pos));
  return codes;
}

char VYRUnicodeString::operator[](int i_index) const {
  return i_index >= 0 && i_index < GetLengthInChar() ? _text[static_cast<size_t>(i_index)] : '\0';
}

VYRUnicodeString& VYRUnicodeString::operator+=(const VYRUnicodeString& i_other) {
  _text += i_other._text;
  return *this;
}

VYRUnicodeString VYRUnicodeString::operator+(const VYRUnicodeString& i_other) const {
  VYRUnicodeString sum(*this);
  sum += i_other;
  return sum;
}

VYRUnicodeString VYRUnicodeString::SubString(int i_start, int i_length) const {
  if (i_start < 0 || i_start >= GetLengthInChar()) return VYRUnicodeString();
  size_t count = i_length < 0 ? std::string::npos : static_cast<size_t>(i_length);
  return VYRUnicodeString(_text.substr(static_cast<size_t>(i_start), count));
}

int VYRUnicodeString::Find(const VYRUnicodeString& i_what, int i_from) const {
  if (i_from < 0 || i_from > GetLengthInChar()) return -1;
  size_t found = _text.find(i_what._text, static_cast<size_t>(i_from));
  return found == std::string::npos ? -1 : static_cast<int>(found);
}

int VYRUnicodeString::ReverseFind(const VYRUnicodeString& i_what, int i_before) const {
  size_t from = i_before < 0 ? std::string::npos : static_cast<size_t>(i_before);
  size_t found = _text.rfind(i_what._text, from);
  return found == std::string::npos ? -1 : static_cast<int>(found);
}

int VYRUnicodeString::Insert(int i_position, const VYRUnicodeString& i_what) {
  if (i_position < 0) return -1;
  _text.insert(std::min(static_cast<size_t>(i_position), _text.size()), i_what._text);
  return 1;
}

int VYRUnicodeString::Replace(int i_position, int i_length, const VYRUnicodeString& i_with) {
  if (i_position < 0 || i_length < 0) return -1;
  size_t position = std::min(static_cast<size_t>(i_position), _text.size());
  _text.replace(position, static_cast<size_t>(i_length), i_with._text);
  return 1;
}

int VYRUnicodeString::ReplaceAll(const VYRUnicodeString& i_what, const VYRUnicodeString& i_with) {
  if (i_what._text.empty()) return 0;
  std::string result;
  result.reserve(_text.size());
  int count = 0;
  size_t from = 0;
  for (size_t found; (found = _text.find(i_what._text, from)) != std::string::npos; ++count) {
    result.append(_text, from, found - from).append(i_with._text);
    from = found + i_what._text.size();
  }
  if (count == 0) return 0;
  result.append(_text, from, std::string::npos);
  _text.swap(result);
  return count;
}

int VYRUnicodeString::RemoveChar(char i_char) {
  size_t before = _text.size();
  _text.erase(std::remove(_text.begin(), _text.end(), i_char), _text.end());
  return static_cast<int>(before - _text.size());
}

std::vector<VYRUnicodeString> VYRUnicodeString::Split(char i_separator) const {
  std::vector<VYRUnicodeString> parts;
  size_t from = 0;
  for (size_t found; (found = _text.find(i_separator, from)) != std::string::npos; from = found + 1) {
    parts.emplace_back(_text.substr(from, found - from));
  }
  parts.emplace_back(_text.substr(from));
  return parts;
}

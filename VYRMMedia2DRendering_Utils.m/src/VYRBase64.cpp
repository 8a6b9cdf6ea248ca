#include "VYRBase64.h"

#include <new>

namespace {

const char kAlphabet[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

// Value of each character code below 128; everything outside the alphabet decodes as 0.
struct DecodingTable {
  unsigned char values[128] = {};
  DecodingTable() {
    for (unsigned char i = 0; i < 64; ++i) values[static_cast<unsigned char>(kAlphabet[i])] = i;
  }
};
const DecodingTable s_decoding;

inline unsigned DecodeChar(char i_char) {
  const unsigned char code = static_cast<unsigned char>(i_char);
  return code < 128 ? s_decoding.values[code] : 0u;  // '=' maps to 0 like any other stranger
}

}  // namespace

namespace VYRBase64 {

char* Encode(const unsigned char* i_pData, unsigned int i_length, unsigned int& o_length) {
  if (!i_pData || i_length == 0) return nullptr;
  // Computed in 64 bits: four thirds of a length near 4 GB does not fit the output count.
  const unsigned long long outLength = (static_cast<unsigned long long>(i_length) + 2) / 3 * 4;
  if (outLength > 0xFFFFFFFEull) return nullptr;
  char* pText = new (std::nothrow) char[outLength + 1];
  if (!pText) return nullptr;

  char* pOut = pText;
  for (unsigned int i = 0; i < i_length; i += 3) {
    const unsigned b0 = i_pData[i];
    const unsigned b1 = i + 1 < i_length ? i_pData[i + 1] : 0u;
    const unsigned b2 = i + 2 < i_length ? i_pData[i + 2] : 0u;
    const unsigned group = (b0 << 16) | (b1 << 8) | b2;
    *pOut++ = kAlphabet[(group >> 18) & 0x3F];
    *pOut++ = kAlphabet[(group >> 12) & 0x3F];
    *pOut++ = kAlphabet[(group >> 6) & 0x3F];
    *pOut++ = kAlphabet[group & 0x3F];
  }
  static const unsigned kPaddingCount[3] = {0, 2, 1};
  for (unsigned p = 0; p < kPaddingCount[i_length % 3]; ++p) pText[outLength - 1 - p] = '=';
  pText[outLength] = '\0';
  o_length = static_cast<unsigned int>(outLength);
  return pText;
}

unsigned char* Decode(const char* i_pText, unsigned int i_length, unsigned int& o_length) {
  if (!i_pText || i_length == 0 || i_length % 4 != 0) return nullptr;
  unsigned int outLength = i_length / 4 * 3;
  // Each of the last two '=' is counted on its own, so "AB=C" gives two bytes.
  if (i_pText[i_length - 1] == '=') --outLength;
  if (i_pText[i_length - 2] == '=') --outLength;
  unsigned char* pData = new (std::nothrow) unsigned char[outLength];
  if (!pData) return nullptr;

  unsigned int written = 0;
  for (unsigned int i = 0; i < i_length && written < outLength; i += 4) {
    const unsigned group = (DecodeChar(i_pText[i]) << 18) | (DecodeChar(i_pText[i + 1]) << 12) |
                           (DecodeChar(i_pText[i + 2]) << 6) | DecodeChar(i_pText[i + 3]);
    const unsigned char bytes[3] = {static_cast<unsigned char>(group >> 16), static_cast<unsigned char>(group >> 8),
                                    static_cast<unsigned char>(group)};
    for (unsigned char byte : bytes) {
      if (written == outLength) break;
      pData[written++] = byte;
    }
  }
  o_length = outLength;
  return pData;
}

}  // namespace VYRBase64

#pragma once

#include "VYRExport.h"

// Base64 with the standard alphabet and '=' padding, without line breaks.
namespace VYRBase64 {

// A new zero-terminated text of o_length characters (delete[] by the caller),
// or null for null or empty data (o_length then untouched).
VYR_EXPORT char* Encode(const unsigned char* i_pData, unsigned int i_length, unsigned int& o_length);

// A new buffer of o_length bytes (delete[] by the caller), or null for null text
// or a length that is not a positive multiple of 4. Characters outside the
// alphabet, '=' included, count as 0; spaces and line breaks are not skipped.
VYR_EXPORT unsigned char* Decode(const char* i_pText, unsigned int i_length, unsigned int& o_length);

}  // namespace VYRBase64

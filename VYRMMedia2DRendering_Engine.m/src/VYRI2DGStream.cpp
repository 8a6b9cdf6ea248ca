#include "VYRI2DGStream.h"

#include <cstring>

// A stream that only knows its fourteen operations moves raw bytes one char
// at a time; the string stream copies them at once.
void VYRI2DGStream::WriteBytes(const void* i_bytes, int i_length) {
  const char* pBytes = static_cast<const char*>(i_bytes);
  for (int i = 0; i < i_length; ++i) Stream(pBytes[i]);
}

bool VYRI2DGStream::ReadBytes(void* o_destination, int i_length) {
  if (i_length <= 0) return true;
  if (!CountFits(i_length, 1)) {
    // Too few bytes: reading them and one more fails the stream the way a
    // read past its end does.
    const long long left = GetReadableBytesLeft();
    char discarded = 0;
    for (long long i = 0; i <= left && !HasFailed(); ++i) Unstream(discarded);
    if (o_destination) std::memset(o_destination, 0, static_cast<size_t>(i_length));
    return false;
  }
  char* pBytes = static_cast<char*>(o_destination);
  for (int i = 0; i < i_length; ++i) {
    char value = 0;
    Unstream(value);
    if (pBytes) pBytes[i] = value;
  }
  return !HasFailed();
}

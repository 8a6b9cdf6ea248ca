#pragma once

#include <cstring>

#include "VYRI2DGStream.h"

// A run of fixed-size values written or read with one stream call. The bytes
// are exactly those of streaming the values one by one, in the same order, so
// each value must have one of the stream's own types.
template <class T>
constexpr bool kIsStreamValue = VYRI2DGStream::kIsValueType<T>;

template <class... T>
void WriteRecord(VYRI2DGStream* ipStream, const T&... i_values) {
  static_assert((kIsStreamValue<T> && ...), "only the stream's value types travel in a record");
  char bytes[(sizeof(T) + ...)];
  char* pNext = bytes;
  ((std::memcpy(pNext, &i_values, sizeof(T)), pNext += sizeof(T)), ...);
  ipStream->StreamBytes(bytes, static_cast<int>(sizeof bytes));
}

// On a stream too short for the whole record every value reads as zero.
template <class... T>
bool ReadRecord(VYRI2DGStream* ipStream, T&... o_values) {
  static_assert((kIsStreamValue<T> && ...), "only the stream's value types travel in a record");
  char bytes[(sizeof(T) + ...)];
  const bool read = ipStream->UnstreamBytes(bytes, static_cast<int>(sizeof bytes));
  const char* pNext = bytes;
  ((std::memcpy(&o_values, pNext, sizeof(T)), pNext += sizeof(T)), ...);
  return read;
}

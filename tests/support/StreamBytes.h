#pragma once

#include <cstdint>
#include <cstdlib>
#include <sstream>
#include <string>
#include <vector>

#include "VYR2DGStringStream.h"

// The bytes a string stream holds, for comparison with an expected listing.
inline std::vector<uint8_t> StreamBytes(const VYR2DGStringStream& i_stream) {
  const uint8_t* pBytes = reinterpret_cast<const uint8_t*>(i_stream.GetBuffer());
  return std::vector<uint8_t>(pBytes, pBytes + i_stream.GetSize());
}

// Bytes from a listing of hexadecimal pairs, such as "07 00 00 00 61".
inline std::vector<uint8_t> Hex(const std::string& i_listing) {
  std::vector<uint8_t> bytes;
  std::istringstream pairs(i_listing);
  std::string pair;
  while (pairs >> pair) bytes.push_back(static_cast<uint8_t>(std::strtoul(pair.c_str(), nullptr, 16)));
  return bytes;
}

// A stream that reads the given bytes.
inline VYR2DGStringStream ReadingStream(const std::vector<uint8_t>& i_bytes) {
  return VYR2DGStringStream(reinterpret_cast<const char*>(i_bytes.data()), static_cast<int>(i_bytes.size()));
}

#pragma once

#include <climits>

#include "VYRExport.h"

// The byte stream every model object writes itself into and reads itself
// back from. Values carry no type information: the order of calls defines
// the bytes.
class VYR_EXPORT VYRI2DGStream {
 public:
  VYRI2DGStream() = default;
  VYRI2DGStream(const VYRI2DGStream&) = default;
  VYRI2DGStream& operator=(const VYRI2DGStream&) = default;

  virtual void Stream(float i_value) = 0;
  virtual void Stream(double i_value) = 0;
  virtual void Stream(unsigned int i_value) = 0;
  virtual void Stream(int i_value) = 0;
  virtual void Stream(unsigned char i_value) = 0;
  virtual void Stream(char i_value) = 0;
  // A counted byte string: the 4-byte length, then the bytes (none for a length of 0 or less).
  virtual void Stream(const char* i_bytes, int i_length) = 0;
  virtual void Unstream(float& o_value) = 0;
  virtual void Unstream(double& o_value) = 0;
  virtual void Unstream(unsigned int& o_value) = 0;
  virtual void Unstream(int& o_value) = 0;
  virtual void Unstream(unsigned char& o_value) = 0;
  virtual void Unstream(char& o_value) = 0;
  // Reads a counted byte string into a new[]-allocated block owned by the
  // caller, zero-terminated when asked; null for a length of 0 or less.
  virtual char* Unstream(bool i_zeroTerminated) = 0;

  // Guards against damaged input; they write nothing and change no byte.
  // How many bytes are left to read (a stream that cannot tell says LLONG_MAX).
  virtual long long GetReadableBytesLeft() const { return LLONG_MAX; }
  // Whether a read has gone past the end; such reads yield zero or null.
  virtual bool HasFailed() const { return false; }

  // Raw bytes with no length before them, for runs of fixed-size values that
  // are read or written together: one call instead of one per value. They
  // give the same bytes as the values streamed one by one. ReadBytes skips
  // the bytes when given no destination, and gives false (destination
  // zeroed) when they are not all there.
  virtual void WriteBytes(const void* i_bytes, int i_length);
  virtual bool ReadBytes(void* o_destination, int i_length);

  // Whether a count read from the stream is plausible: not negative, and its
  // items, each at least i_bytesPerItem long, fit in what is left to read.
  bool CountFits(long long i_count, long long i_bytesPerItem) const {
    return i_count >= 0 && (i_bytesPerItem <= 0 || i_count <= GetReadableBytesLeft() / i_bytesPerItem);
  }

 protected:
  ~VYRI2DGStream() = default;
};

#pragma once

#include <climits>
#include <cstring>
#include <type_traits>

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
    if (i_count < 0) return false;
    if (i_bytesPerItem <= 0 || i_count == 0) return true;
    const long long left = _window.pBuffer ? WindowBytesLeft() : GetReadableBytesLeft();
    // Below 2^31 items of below 2^31 bytes the product cannot overflow, and spares a division.
    if (i_count <= INT_MAX && i_bytesPerItem <= INT_MAX) return i_count * i_bytesPerItem <= left;
    return i_count <= left / i_bytesPerItem;
  }

  // Stream(value) and Unstream(value) for callers that know the value's type:
  // the same bytes, written or read in place while the stream's buffer
  // window (below) has room for them, through the virtual operation otherwise.
  template <class T>
  VYR_ALWAYS_INLINE void StreamValue(T i_value) {
    static_assert(kIsValueType<T>, "only the stream's value types are written");
    if (!PutInWindow(&i_value, sizeof(T))) Stream(i_value);
  }
  template <class T>
  VYR_ALWAYS_INLINE void UnstreamValue(T& o_value) {
    static_assert(kIsValueType<T>, "only the stream's value types are read");
    if (!TakeFromWindow(&o_value, sizeof(T))) Unstream(o_value);
  }
  // Stream(bytes, length), in place in the same way.
  VYR_ALWAYS_INLINE void StreamCounted(const char* i_bytes, int i_length) {
    if (!PutCountedInWindow(i_bytes, i_length)) Stream(i_bytes, i_length);
  }
  // WriteBytes and ReadBytes, in place in the same way.
  VYR_ALWAYS_INLINE void StreamBytes(const void* i_bytes, int i_length) {
    if (i_length > 0 && !PutInWindow(i_bytes, i_length)) WriteBytes(i_bytes, i_length);
  }
  VYR_ALWAYS_INLINE bool UnstreamBytes(void* o_destination, int i_length) {
    return i_length <= 0 || TakeFromWindow(o_destination, i_length) || ReadBytes(o_destination, i_length);
  }

  template <class T>
  static constexpr bool kIsValueType = std::is_same_v<T, float> || std::is_same_v<T, double> ||
                                       std::is_same_v<T, int> || std::is_same_v<T, unsigned int> ||
                                       std::is_same_v<T, unsigned char> || std::is_same_v<T, char>;

 protected:
  ~VYRI2DGStream() = default;

  // A stream that keeps its bytes in one memory buffer describes it here, so
  // that the inline operations above reach the bytes without a virtual call;
  // it keeps the window in step with itself. A stream without such a buffer
  // leaves it empty, and all its values go through the virtual operations.
  struct ByteWindow {
    char* pBuffer = nullptr;
    char* pCursor = nullptr;  // where the next value is written or read
    int capacity = 0;         // a write stays strictly below it
    int size = 0;             // bytes written or loaded; a read stays within them
    bool failed = false;      // a failed stream reads nothing in place
  };
  ByteWindow _window;

  // Writes at the cursor when the bytes fit below the capacity; false, with
  // nothing written, when they do not (or there is no window).
  VYR_ALWAYS_INLINE bool PutInWindow(const void* i_bytes, int i_length) {
    if (!_window.pCursor || i_length <= 0 || !i_bytes ||
        static_cast<long long>(_window.size) + i_length >= _window.capacity)
      return false;
    CopyBytes(_window.pCursor, i_bytes, i_length);
    _window.pCursor += i_length;
    _window.size += i_length;
    return true;
  }
  // A counted string: its length, then its bytes (none for a length of 0 or
  // less), written whole or not at all.
  VYR_ALWAYS_INLINE bool PutCountedInWindow(const char* i_bytes, int i_length) {
    if (i_length <= 0) return PutInWindow(&i_length, sizeof i_length);
    if (!_window.pCursor || !i_bytes ||
        static_cast<long long>(_window.size) + static_cast<long long>(sizeof i_length) + i_length >= _window.capacity)
      return false;
    PutInWindow(&i_length, sizeof i_length);
    return PutInWindow(i_bytes, i_length);
  }
  // Bytes left to read in the window: none once the stream has failed.
  long long WindowBytesLeft() const {
    return _window.failed || !_window.pBuffer ? 0 : _window.size - (_window.pCursor - _window.pBuffer);
  }
  // Reads at the cursor when that many bytes are left and the stream has not
  // failed; false, with nothing read, otherwise. A null destination skips.
  VYR_ALWAYS_INLINE bool TakeFromWindow(void* o_destination, int i_length) {
    if (!_window.pCursor || i_length <= 0 || WindowBytesLeft() < i_length) return false;
    if (o_destination) CopyBytes(o_destination, _window.pCursor, i_length);
    _window.pCursor += i_length;
    return true;
  }

 private:
  // Model values come in short runs (a number, a record, a name) of lengths
  // known only here: two overlapping fixed-size moves copy up to 32 bytes
  // without a call into the C library.
  static VYR_ALWAYS_INLINE void CopyBytes(void* o_target, const void* i_source, int i_length) {
    char* pTarget = static_cast<char*>(o_target);
    const char* pSource = static_cast<const char*>(i_source);
    if (i_length >= 16 && i_length <= 32) {
      CopyHeadAndTail<16>(pTarget, pSource, i_length);
    } else if (i_length >= 8 && i_length < 16) {
      CopyHeadAndTail<8>(pTarget, pSource, i_length);
    } else if (i_length >= 4 && i_length < 8) {
      CopyHeadAndTail<4>(pTarget, pSource, i_length);
    } else if (i_length < 4) {
      for (int i = 0; i < i_length; ++i) pTarget[i] = pSource[i];
    } else {
      std::memcpy(pTarget, pSource, static_cast<size_t>(i_length));
    }
  }
  // The first and the last N bytes of a run of N to 2N bytes.
  template <int N>
  static VYR_ALWAYS_INLINE void CopyHeadAndTail(char* o_target, const char* i_source, int i_length) {
    char head[N], tail[N];
    std::memcpy(head, i_source, N);
    std::memcpy(tail, i_source + i_length - N, N);
    std::memcpy(o_target, head, N);
    std::memcpy(o_target + i_length - N, tail, N);
  }
};

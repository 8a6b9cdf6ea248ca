#include "VYRPrintInputBufferStream.h"

#include <cstring>

#include "VYRAssert.h"

VYR_IMPLEMENT_CLASS(VYRPrintInputBufferStream, VYRPrintInputStream, "Multimedia2DRendering")

VYRPrintInputBufferStream::VYRPrintInputBufferStream(const char* i_bytes, size_t i_length,
                                                     const VYRUnicodeString& i_systemId)
    : VYRPrintInputStream(i_systemId) {
  if (i_bytes) _bytes.assign(i_bytes, i_length);
}

VYRStatus VYRPrintInputBufferStream::Read(void* o_buffer, size_t i_byteCount, size_t& o_bytesRead) {
  o_bytesRead = 0;
  if (i_byteCount == 0) return VYR_S_OK;
  if (!VYR_CHECK_POINTER(o_buffer)) return VYR_E_INVALIDARG;
  size_t available = _bytes.size() - _position;
  o_bytesRead = i_byteCount < available ? i_byteCount : available;
  std::memcpy(o_buffer, _bytes.data() + _position, o_bytesRead);
  _position += o_bytesRead;
  return o_bytesRead == i_byteCount ? VYR_S_OK : VYR_S_FALSE;
}

VYRStatus VYRPrintInputBufferStream::Rewind() {
  _position = 0;
  return VYR_S_OK;
}

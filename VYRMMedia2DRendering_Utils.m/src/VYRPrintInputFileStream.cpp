#include "VYRPrintInputFileStream.h"

VYR_IMPLEMENT_CLASS(VYRPrintInputFileStream, VYRPrintInputStream, "Multimedia2DRendering")

VYRPrintInputFileStream::~VYRPrintInputFileStream() { Rewind(); }

VYRStatus VYRPrintInputFileStream::Read(void* o_buffer, size_t i_byteCount, size_t& o_bytesRead) {
  o_bytesRead = 0;
  if (!_file) {
    VYRStatus status = VYRFileOpen(GetSystemId(), "rb", _file);
    if (VYRFailed(status)) return status;
  }
  return VYRFileRead(_file, o_buffer, i_byteCount, o_bytesRead);
}

VYRStatus VYRPrintInputFileStream::Rewind() {
  if (!_file) return VYR_S_OK;
  VYRFileHandle file = _file;
  _file = nullptr;
  return VYRFileClose(file);
}

#pragma once

#include <string>

#include "VYRExport.h"
#include "VYRPrintInputStream.h"

// A document held in memory; the stream keeps its own copy of the bytes.
class VYR_EXPORT VYRPrintInputBufferStream : public VYRPrintInputStream {
  VYR_DECLARE_CLASS(VYRPrintInputBufferStream)

 public:
  VYRPrintInputBufferStream() = default;
  // A null buffer stands for an empty document.
  VYRPrintInputBufferStream(const char* i_bytes, size_t i_length, const VYRUnicodeString& i_systemId = "");
  ~VYRPrintInputBufferStream() override = default;

  VYRStatus Read(void* o_buffer, size_t i_byteCount, size_t& o_bytesRead) override;
  VYRStatus Rewind() override;
  size_t GetLength() const { return _bytes.size(); }

 private:
  std::string _bytes;
  size_t _position = 0;
};

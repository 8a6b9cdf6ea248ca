#pragma once

#include "VYRExport.h"
#include "VYRFile.h"
#include "VYRPrintInputStream.h"

// A document read from a file, whose path is the system identifier. The file
// is opened on the first read and closed when the stream goes.
class VYR_EXPORT VYRPrintInputFileStream : public VYRPrintInputStream {
  VYR_DECLARE_CLASS(VYRPrintInputFileStream)

 public:
  VYRPrintInputFileStream() = default;
  explicit VYRPrintInputFileStream(const VYRUnicodeString& i_path) : VYRPrintInputStream(i_path) {}
  VYRPrintInputFileStream(const VYRPrintInputFileStream&) = delete;
  VYRPrintInputFileStream& operator=(const VYRPrintInputFileStream&) = delete;
  ~VYRPrintInputFileStream() override;

  // The file's status codes: VYR_E_FILENOTFOUND for a missing file, and so on.
  VYRStatus Read(void* o_buffer, size_t i_byteCount, size_t& o_bytesRead) override;
  // Closes the file; the next read starts from its first byte.
  VYRStatus Rewind() override;

 private:
  VYRFileHandle _file = nullptr;
};

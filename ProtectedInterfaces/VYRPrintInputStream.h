#pragma once

#include <cstddef>

#include "VYRExport.h"
#include "VYRPrintInput.h"
#include "VYRStatus.h"

// The bytes of a document, read in order from the start. ReadAll hands the
// whole document to the host as one text (for MMParsingTools::BuildParser).
class VYR_EXPORT VYRPrintInputStream : public VYRPrintInput {
  VYR_DECLARE_CLASS(VYRPrintInputStream)

 public:
  // Documents longer than this are refused by ReadAll.
  static constexpr size_t kMaxDocumentBytes = size_t{1} << 30;

  ~VYRPrintInputStream() override = default;

  // Reads up to i_byteCount bytes at the current place: VYR_S_OK when all
  // came, VYR_S_FALSE at the end (o_bytesRead says how many), a failure code
  // when the source cannot be read.
  virtual VYRStatus Read(void* o_buffer, size_t i_byteCount, size_t& o_bytesRead) = 0;
  // Goes back to the first byte.
  virtual VYRStatus Rewind() = 0;

  // Everything from the first byte to the end as one text: VYR_S_OK, or a
  // failure code and an empty text (VYR_E_OUTOFMEMORY beyond kMaxDocumentBytes).
  VYRStatus ReadAll(VYRUnicodeString& o_text);

 protected:
  VYRPrintInputStream() = default;
  explicit VYRPrintInputStream(const VYRUnicodeString& i_systemId) : VYRPrintInput(i_systemId) {}
};

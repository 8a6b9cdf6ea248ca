#include "VYRPrintInputStream.h"

#include <string>

VYR_IMPLEMENT_ABSTRACT_CLASS(VYRPrintInputStream, VYRPrintInput, "Multimedia2DRendering")

VYRStatus VYRPrintInputStream::ReadAll(VYRUnicodeString& o_text) {
  o_text = VYRUnicodeString();
  VYRStatus status = Rewind();
  if (VYRFailed(status)) return status;
  std::string bytes;
  char chunk[16384];
  size_t count = 0;
  do {
    status = Read(chunk, sizeof(chunk), count);
    if (VYRFailed(status)) return status;
    if (count > kMaxDocumentBytes - bytes.size()) return VYR_E_OUTOFMEMORY;
    bytes.append(chunk, count);
  } while (status == VYR_S_OK && count > 0);
  o_text = VYRUnicodeString(bytes);
  return VYR_S_OK;
}

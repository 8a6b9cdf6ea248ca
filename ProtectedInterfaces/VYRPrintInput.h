#pragma once

#include "VYRBaseUnknown.h"
#include "VYRExport.h"
#include "VYRUnicodeString.h"

// Where a document comes from: the bytes of a whole document
// (VYRPrintInputStream) or an element of a document already parsed
// (VYRPrintInputXMLElement). The system identifier names the input (a file
// path, a URL, a name the host chose); relative references inside the
// document resolve against it.
class VYR_EXPORT VYRPrintInput : public VYRBaseUnknown {
  VYR_DECLARE_CLASS(VYRPrintInput)

 public:
  ~VYRPrintInput() override = default;

  const VYRUnicodeString& GetSystemId() const { return _systemId; }
  void SetSystemId(const VYRUnicodeString& i_systemId) { _systemId = i_systemId; }

 protected:
  VYRPrintInput() = default;
  explicit VYRPrintInput(const VYRUnicodeString& i_systemId) : _systemId(i_systemId) {}

 private:
  VYRUnicodeString _systemId;
};

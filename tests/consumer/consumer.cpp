// A tiny outside program built against the installed headers and library.
#include <cstdio>

#include "VYRBaseUnknown.h"
#include "VYRUnicodeString.h"

int main() {
  VYRUnicodeString text("h\xC3\xA9llo");
  VYRBaseUnknown* object = VYRBaseUnknown::CreateItself();
  int ok = text.GetCodePointCount() == 5 && object->IsAKindOf("VYRBaseUnknown");
  object->Release();
  std::printf("%s\n", ok ? "consumer ok" : "consumer FAILED");
  return ok ? 0 : 1;
}

#include "VYRLastError.h"

namespace {

struct LastError {
  VYRStatus code = VYR_S_OK;
  VYRUnicodeString message;
  bool isSet = false;
};

thread_local LastError t_lastError;

}  // namespace

void VYRSetLastError(VYRStatus i_code, const VYRUnicodeString& i_message) {
  t_lastError.code = i_code;
  t_lastError.message = i_message;
  t_lastError.isSet = true;
}

bool VYRHasLastError() { return t_lastError.isSet; }

VYRStatus VYRGetLastErrorCode() { return t_lastError.code; }

VYRUnicodeString VYRGetLastErrorMessage() { return t_lastError.message; }

void VYRClearLastError() { t_lastError = LastError(); }

#pragma once

#include "VYRExport.h"
#include "VYRStatus.h"
#include "VYRUnicodeString.h"

// The platform's last error: a status and a message left by the last
// platform call that failed with something to explain (a parse error, ...).
// It is kept per thread, like errno, and stays until cleared or replaced.

VYR_EXPORT void VYRSetLastError(VYRStatus i_code, const VYRUnicodeString& i_message);
// True when an error is recorded.
VYR_EXPORT bool VYRHasLastError();
// The recorded status, VYR_S_OK when none.
VYR_EXPORT VYRStatus VYRGetLastErrorCode();
// The recorded message, empty when none.
VYR_EXPORT VYRUnicodeString VYRGetLastErrorMessage();
VYR_EXPORT void VYRClearLastError();

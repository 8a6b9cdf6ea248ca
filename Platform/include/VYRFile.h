#pragma once

#include <cstddef>

#include "VYRExport.h"
#include "VYRStatus.h"
#include "VYRUnicodeString.h"

// Files of the platform, opened by path and a C mode string. Every call
// returns a status; a failed open hands back a null handle, and the calls
// that take a handle answer a null one with VYR_E_INVALIDARG and do nothing,
// so a caller may go on after an unchecked open without harm.
struct VYRFileData;
using VYRFileHandle = VYRFileData*;

// Opens i_path with a mode as for fopen ("rb", "wb", "w+", "a", ...).
// Missing file: VYR_E_FILENOTFOUND; no permission: VYR_E_ACCESSDENIED;
// null or unknown mode: VYR_E_INVALIDARG; any other failure: VYR_E_FAIL.
VYR_EXPORT VYRStatus VYRFileOpen(const VYRUnicodeString& i_path, const char* i_mode, VYRFileHandle& o_file);

// Reads up to i_byteCount bytes. VYR_S_OK when all were read, VYR_S_FALSE at
// the end of the file (o_bytesRead tells how many came), VYR_E_FAIL on a read error.
VYR_EXPORT VYRStatus VYRFileRead(VYRFileHandle i_file, void* o_buffer, size_t i_byteCount, size_t& o_bytesRead);

// Writes i_byteCount bytes: VYR_S_OK when all were written, VYR_E_FAIL otherwise.
VYR_EXPORT VYRStatus VYRFileWrite(VYRFileHandle i_file, const void* i_buffer, size_t i_byteCount,
                                  size_t& o_bytesWritten);

// Flushes and closes the file and frees the handle, even when the flush fails
// (then VYR_E_FAIL: data may be lost).
VYR_EXPORT VYRStatus VYRFileClose(VYRFileHandle i_file);

// Access modes of VYRFileAccess, as for POSIX access; they may be or-ed.
constexpr int VYR_ACCESS_EXISTS = 0;
constexpr int VYR_ACCESS_WRITE = 2;
constexpr int VYR_ACCESS_READ = 4;

// VYR_S_OK when the path exists with the requested access, VYR_E_FILENOTFOUND
// when it does not exist, VYR_E_ACCESSDENIED when access is refused,
// VYR_E_INVALIDARG for a mode outside 0..7.
VYR_EXPORT VYRStatus VYRFileAccess(const VYRUnicodeString& i_path, int i_mode);

#include "VYRFile.h"

#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <new>

struct VYRFileData {
  std::FILE* stream;
};

namespace {

VYRStatus StatusFromErrno(int i_error) {
  switch (i_error) {
    case ENOENT:
    case ENOTDIR:
      return VYR_E_FILENOTFOUND;
    case EACCES:
    case EPERM:
    case EROFS:
      return VYR_E_ACCESSDENIED;
    default:
      return VYR_E_FAIL;
  }
}

// fopen leaves modes it does not know undefined: accept only r, w or a, then
// any of '+', 'b', 't', 'x'.
bool IsValidMode(const char* i_mode) {
  if (!i_mode || std::strchr("rwa", i_mode[0]) == nullptr || i_mode[0] == '\0') return false;
  for (const char* p = i_mode + 1; *p; ++p) {
    if (std::strchr("+btx", *p) == nullptr) return false;
  }
  return true;
}

}  // namespace

VYRStatus VYRFileOpen(const VYRUnicodeString& i_path, const char* i_mode, VYRFileHandle& o_file) {
  o_file = nullptr;
  if (!IsValidMode(i_mode) || i_path.IsEmpty()) return VYR_E_INVALIDARG;
  auto* file = new (std::nothrow) VYRFileData{nullptr};
  if (!file) return VYR_E_OUTOFMEMORY;
  file->stream = std::fopen(i_path.CastToCharPtr(), i_mode);
  if (!file->stream) {
    const VYRStatus status = StatusFromErrno(errno);
    delete file;
    return status;
  }
  o_file = file;
  return VYR_S_OK;
}

VYRStatus VYRFileRead(VYRFileHandle i_file, void* o_buffer, size_t i_byteCount, size_t& o_bytesRead) {
  o_bytesRead = 0;
  if (!i_file || (!o_buffer && i_byteCount > 0)) return VYR_E_INVALIDARG;
  if (i_byteCount == 0) return VYR_S_OK;
  o_bytesRead = std::fread(o_buffer, 1, i_byteCount, i_file->stream);
  if (o_bytesRead == i_byteCount) return VYR_S_OK;
  return std::ferror(i_file->stream) ? VYR_E_FAIL : VYR_S_FALSE;
}

VYRStatus VYRFileWrite(VYRFileHandle i_file, const void* i_buffer, size_t i_byteCount, size_t& o_bytesWritten) {
  o_bytesWritten = 0;
  if (!i_file || (!i_buffer && i_byteCount > 0)) return VYR_E_INVALIDARG;
  if (i_byteCount == 0) return VYR_S_OK;
  o_bytesWritten = std::fwrite(i_buffer, 1, i_byteCount, i_file->stream);
  return o_bytesWritten == i_byteCount ? VYR_S_OK : VYR_E_FAIL;
}

VYRStatus VYRFileClose(VYRFileHandle i_file) {
  if (!i_file) return VYR_E_INVALIDARG;
  const int result = std::fclose(i_file->stream);
  delete i_file;
  return result == 0 ? VYR_S_OK : VYR_E_FAIL;
}

VYRStatus VYRFileAccess(const VYRUnicodeString& i_path, int i_mode) {
  if (i_mode < 0 || i_mode > 7) return VYR_E_INVALIDARG;
  if (i_path.IsEmpty()) return VYR_E_FILENOTFOUND;
  int posixMode = F_OK;
  if (i_mode & VYR_ACCESS_READ) posixMode |= R_OK;
  if (i_mode & VYR_ACCESS_WRITE) posixMode |= W_OK;
  if (i_mode & 1) posixMode |= X_OK;
  return access(i_path.CastToCharPtr(), posixMode) == 0 ? VYR_S_OK : StatusFromErrno(errno);
}

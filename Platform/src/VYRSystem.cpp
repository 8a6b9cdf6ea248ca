#include "VYRSystem.h"

#include <clocale>
#include <cstdlib>

#include "VYRFile.h"

namespace {

// Both separators become '/'; separators at either end are dropped so that joining adds exactly one.
VYRUnicodeString NormalisedPathPart(const VYRUnicodeString& i_part, bool i_keepLeading) {
  std::string text = i_part.GetStdString();
  for (char& c : text) {
    if (c == '\\') c = '/';
  }
  while (text.size() > 1 && text.back() == '/') text.pop_back();
  if (!i_keepLeading) {
    const size_t first = text.find_first_not_of('/');
    text.erase(0, first == std::string::npos ? text.size() : first);
  }
  return VYRUnicodeString(text);
}

}  // namespace

VYRStatus VYRGetEnvironmentVariable(const VYRUnicodeString& i_name, VYRUnicodeString& o_value) {
  o_value = VYRUnicodeString();
  if (i_name.IsEmpty()) return VYR_E_INVALIDARG;
  const char* value = std::getenv(i_name.CastToCharPtr());
  if (!value) return VYR_E_FAIL;
  o_value = VYRUnicodeString(value);
  return VYR_S_OK;
}

VYRStatus VYRGetFilePathFromOfficialVariable(const VYRUnicodeString& i_relativePath,
                                             const VYRUnicodeString& i_variableName, VYRUnicodeString& o_path) {
  o_path = VYRUnicodeString();
  VYRUnicodeString roots;
  if (VYRFailed(VYRGetEnvironmentVariable(i_variableName, roots))) return VYR_E_FAIL;
  const VYRUnicodeString relative = NormalisedPathPart(i_relativePath, false);
  if (relative.IsEmpty()) return VYR_E_FAIL;
  for (const VYRUnicodeString& entry : roots.Split(';')) {
    if (entry.IsEmpty()) continue;
    VYRUnicodeString root = NormalisedPathPart(entry, true);
    const VYRUnicodeString candidate = root == "/" ? root + relative : root + "/" + relative;
    if (VYRFileAccess(candidate, VYR_ACCESS_READ) == VYR_S_OK) {
      o_path = candidate;
      return VYR_S_OK;
    }
  }
  return VYR_E_FAIL;
}

VYRStatus VYRSysGetLocalDecimalChar(VYRUnicodeString& o_decimalChar) {
  const std::lconv* conventions = std::localeconv();
  if (!conventions || !conventions->decimal_point || conventions->decimal_point[0] == '\0') {
    o_decimalChar = VYRUnicodeString();
    return VYR_E_FAIL;
  }
  o_decimalChar = VYRUnicodeString(conventions->decimal_point);
  return VYR_S_OK;
}

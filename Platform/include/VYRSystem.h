#pragma once

#include "VYRExport.h"
#include "VYRStatus.h"
#include "VYRUnicodeString.h"

// Environment and locale services of the platform.

// The value of an environment variable: VYR_S_OK (a set but empty variable
// gives an empty value), or VYR_E_FAIL with an empty value when it is not set.
VYR_EXPORT VYRStatus VYRGetEnvironmentVariable(const VYRUnicodeString& i_name, VYRUnicodeString& o_value);

// Finds a relative path under the installation roots listed, separated by
// ';', in an environment variable (e.g. "VYRInstallPath"). Both '/' and '\'
// separate path parts; the result uses '/'. o_path receives root + '/' +
// path for the first root under which the path exists and is readable
// (VYR_S_OK); VYR_E_FAIL with an empty o_path when the variable is not set or
// no root holds it.
VYR_EXPORT VYRStatus VYRGetFilePathFromOfficialVariable(const VYRUnicodeString& i_relativePath,
                                                        const VYRUnicodeString& i_variableName,
                                                        VYRUnicodeString& o_path);

// The decimal point of the current C locale (LC_NUMERIC), as text because
// some locales use a multi-byte character. VYR_E_FAIL with an empty text when
// the locale gives none.
VYR_EXPORT VYRStatus VYRSysGetLocalDecimalChar(VYRUnicodeString& o_decimalChar);

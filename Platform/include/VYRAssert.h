#pragma once

#include "VYRExport.h"

// The two assertion reporters. Nothing aborts: the reporter is told the
// expression text, the source file and the line, and the caller goes on or
// returns its neutral value.

enum class VYRAssertionKind { NullPointer, FailedCondition };

using VYRAssertionHandler = void (*)(VYRAssertionKind i_kind, const char* i_expression,
                                     const char* i_file, int i_line);

// Installs a handler for both reporters and returns the previous one.
// A null handler restores the default, which writes one line on standard error.
VYR_EXPORT VYRAssertionHandler VYRSetAssertionHandler(VYRAssertionHandler i_handler);

VYR_EXPORT void VYRReportNullPointer(const char* i_expression, const char* i_file, int i_line);
VYR_EXPORT void VYRReportFailedCondition(const char* i_expression, const char* i_file, int i_line);

// Both macros evaluate to true when the check holds, so they can guard a return:
//   if (!VYR_CHECK_POINTER(ipStream)) return;
#define VYR_CHECK_POINTER(p) \
  ((p) != nullptr ? true : (VYRReportNullPointer(#p, __FILE__, __LINE__), false))
#define VYR_CHECK_CONDITION(c) \
  ((c) ? true : (VYRReportFailedCondition(#c, __FILE__, __LINE__), false))

// Forms that report a given text, for checks whose reported text differs from the code.
#define VYR_CHECK_POINTER_TEXT(p, text) \
  ((p) != nullptr ? true : (VYRReportNullPointer(text, __FILE__, __LINE__), false))
#define VYR_CHECK_CONDITION_TEXT(c, text) \
  ((c) ? true : (VYRReportFailedCondition(text, __FILE__, __LINE__), false))

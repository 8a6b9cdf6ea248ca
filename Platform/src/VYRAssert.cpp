#include "VYRAssert.h"

#include <cstdio>

namespace {

void WriteToStandardError(VYRAssertionKind i_kind, const char* i_expression, const char* i_file,
                          int i_line) {
  const char* what = i_kind == VYRAssertionKind::NullPointer ? "null pointer" : "failed condition";
  std::fprintf(stderr, "VYRMMedia2DRendering: %s \"%s\" at %s:%d\n", what,
               i_expression ? i_expression : "", i_file ? i_file : "", i_line);
}

VYRAssertionHandler g_handler = &WriteToStandardError;

}  // namespace

VYRAssertionHandler VYRSetAssertionHandler(VYRAssertionHandler i_handler) {
  VYRAssertionHandler previous = g_handler;
  g_handler = i_handler ? i_handler : &WriteToStandardError;
  return previous;
}

void VYRReportNullPointer(const char* i_expression, const char* i_file, int i_line) {
  g_handler(VYRAssertionKind::NullPointer, i_expression, i_file, i_line);
}

void VYRReportFailedCondition(const char* i_expression, const char* i_file, int i_line) {
  g_handler(VYRAssertionKind::FailedCondition, i_expression, i_file, i_line);
}

#include "AssertionCapture.h"

#include <algorithm>

namespace {
AssertionCapture* g_active = nullptr;
}

AssertionCapture::AssertionCapture()
    : _previousCapture(g_active), _previousHandler(VYRSetAssertionHandler(&AssertionCapture::Record)) {
  g_active = this;
}

AssertionCapture::~AssertionCapture() {
  g_active = _previousCapture;
  VYRSetAssertionHandler(_previousHandler);
}

void AssertionCapture::Record(VYRAssertionKind i_kind, const char* i_expression, const char* i_file,
                              int i_line) {
  if (g_active) {
    g_active->_reports.push_back({i_kind, i_expression ? i_expression : "", i_file ? i_file : "", i_line});
  }
}

std::vector<std::string> AssertionCapture::Expressions() const {
  std::vector<std::string> texts;
  for (const Report& report : _reports) texts.push_back(report.expression);
  return texts;
}

std::vector<std::string> AssertionCapture::NullPointers() const {
  std::vector<std::string> texts;
  for (const Report& report : _reports)
    if (report.kind == VYRAssertionKind::NullPointer) texts.push_back(report.expression);
  return texts;
}

std::vector<std::string> AssertionCapture::FailedConditions() const {
  std::vector<std::string> texts;
  for (const Report& report : _reports)
    if (report.kind == VYRAssertionKind::FailedCondition) texts.push_back(report.expression);
  return texts;
}

bool AssertionCapture::Has(const std::string& i_expression) const {
  return std::any_of(_reports.begin(), _reports.end(),
                     [&](const Report& report) { return report.expression == i_expression; });
}

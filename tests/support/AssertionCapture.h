#pragma once

#include <string>
#include <vector>

#include "VYRAssert.h"

// Installs a handler that records every assertion report for the lifetime of
// the object, then restores the previous handler.
class AssertionCapture {
 public:
  struct Report {
    VYRAssertionKind kind;
    std::string expression;
    std::string file;
    int line;
  };

  AssertionCapture();
  ~AssertionCapture();
  AssertionCapture(const AssertionCapture&) = delete;
  AssertionCapture& operator=(const AssertionCapture&) = delete;

  const std::vector<Report>& Reports() const { return _reports; }
  std::vector<std::string> Expressions() const;
  // The expression texts of the null-pointer reports and of the failed-condition reports.
  std::vector<std::string> NullPointers() const;
  std::vector<std::string> FailedConditions() const;
  bool Has(const std::string& i_expression) const;
  void Clear() { _reports.clear(); }

 private:
  static void Record(VYRAssertionKind i_kind, const char* i_expression, const char* i_file, int i_line);
  std::vector<Report> _reports;
  AssertionCapture* _previousCapture;
  VYRAssertionHandler _previousHandler;
};

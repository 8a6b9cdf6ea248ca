#include "VYRPrtPointRuns.h"

#include "VYRPrtArrayStreamForms.h"

int VYRPrtPointRuns::AddRun(const VYRSYPDynArray<VYRMathPoint2D>& i_points) {
  int oldLength = _points.GetLength();
  if (_points.Reserve(oldLength + i_points.GetLength()) < 0 || _runLengths.Append(i_points.GetLength()) < 0) return -1;
  for (const VYRMathPoint2D& point : i_points) _points.Append(point);
  return 1;
}

int VYRPrtPointRuns::GetRunLength(int i_run) const { return _runLengths[i_run]; }

int VYRPrtPointRuns::GetRun(int i_run, VYRSYPDynArray<VYRMathPoint2D>& o_points) const {
  if (!VYR_CHECK_CONDITION_TEXT(i_run >= 0 && i_run < _runLengths.GetLength(), "(i_index>=0 && i_index<_length)")) {
    return -1;
  }
  int first = 0;
  for (int run = 0; run < i_run; ++run) first += _runLengths[run];
  VYRSYPDynArray<VYRMathPoint2D> points;
  points.Reserve(_runLengths[i_run]);
  for (int i = first; i < first + _runLengths[i_run]; ++i) points.Append(_points[i]);
  o_points.Swap(points);
  return 1;
}

void VYRPrtPointRuns::Clear() {
  _points.Clear();
  _runLengths.Clear();
}

bool VYRPrtPointRuns::operator==(const VYRPrtPointRuns& i_other) const {
  if (_points.GetLength() != i_other._points.GetLength() || _runLengths.GetLength() != i_other._runLengths.GetLength()) {
    return false;
  }
  for (int i = 0; i < _runLengths.GetLength(); ++i) {
    if (_runLengths[i] != i_other._runLengths[i]) return false;
  }
  for (int i = 0; i < _points.GetLength(); ++i) {
    if (_points[i] != i_other._points[i]) return false;
  }
  return true;
}

void VYRPrtPointRuns::Stream(VYRI2DGStream* ipStream) const {
  if (!ipStream) return;
  VYRPrtArrayStreamForms::StreamArray(_runLengths, ipStream);
  VYRPrtArrayStreamForms::StreamArray(_points, ipStream);
}

void VYRPrtPointRuns::Unstream(VYRI2DGStream* ipStream) {
  if (!ipStream) return;
  VYRSYPDynArray<int> runLengths;
  VYRSYPDynArray<VYRMathPoint2D> points;
  if (!VYRPrtArrayStreamForms::UnstreamArray(runLengths, ipStream) ||
      !VYRPrtArrayStreamForms::UnstreamArray(points, ipStream)) {
    return;
  }
  long long total = 0;
  bool lengthsValid = true;
  for (int length : runLengths) {
    lengthsValid = lengthsValid && length >= 0;
    total += length;
  }
  if (!VYR_CHECK_CONDITION_TEXT(lengthsValid && total == points.GetLength(), "run lengths matching the points")) return;
  _runLengths.Swap(runLengths);
  _points.Swap(points);
}

#pragma once

#include "VYRExport.h"
#include "VYRMathPoint2D.h"
#include "VYRSYPDynArray.h"

class VYRI2DGStream;

// Several runs of points kept end to end in one array, with the length of
// each run: the rings of a poly-polygon, the pieces of a disjoint polyline.
// Byte form: the run lengths (count, then ints), then the points (count, then
// two doubles each).
class VYR_EXPORT VYRPrtPointRuns {
 public:
  // Appends a run (possibly empty). 1, or -1 with nothing appended when the arrays cannot grow.
  int AddRun(const VYRSYPDynArray<VYRMathPoint2D>& i_points);
  int GetRunCount() const { return _runLengths.GetLength(); }
  // 0 for a bad index (reported).
  int GetRunLength(int i_run) const;
  // Replaces o_points with the run's points. 1, or -1 for a bad index (reported).
  int GetRun(int i_run, VYRSYPDynArray<VYRMathPoint2D>& o_points) const;
  // Every point of every run, run after run.
  const VYRSYPDynArray<VYRMathPoint2D>& GetPoints() const { return _points; }
  void Clear();

  bool operator==(const VYRPrtPointRuns& i_other) const;

  void Stream(VYRI2DGStream* ipStream) const;
  // Runs whose lengths do not add up to the points read are refused
  // (reported) and the runs held stay as they were.
  void Unstream(VYRI2DGStream* ipStream);

 private:
  VYRSYPDynArray<VYRMathPoint2D> _points;
  VYRSYPDynArray<int> _runLengths;
};

#pragma once

#include "VYRExport.h"
#include "VYRPrtPointBasedElt.h"
#include "VYRPrtPointRuns.h"

// Several open polylines drawn as one shape. Its record is the point-based
// block, then the runs. Reset is the point-based one: it leaves the runs as
// they are.
class VYR_EXPORT VYRPrtDisjointPolylineElt : public VYRPrtPointBasedElt {
  VYR_DECLARE_CLASS(VYRPrtDisjointPolylineElt)

 public:
  VYRPrtDisjointPolylineElt() = default;
  VYRPrtDisjointPolylineElt(const VYRPrtDisjointPolylineElt&) = default;
  VYRPrtDisjointPolylineElt& operator=(const VYRPrtDisjointPolylineElt&) = default;
  ~VYRPrtDisjointPolylineElt() override = default;

  const VYRPrtPointRuns& GetRuns() const { return _runs; }
  void SetRuns(const VYRPrtPointRuns& i_runs) { _runs = i_runs; }
  // 1, or -1 when it cannot be held.
  int AddRun(const VYRSYPDynArray<VYRMathPoint2D>& i_points) { return _runs.AddRun(i_points); }

  void Duplicate(VYRPrtGraphicPrimitiveElt*& opGPElt) override;
  StreamType GetStreamType() override;
  void Stream(VYRI2DGStream* ipStream) override;
  void Unstream(VYRI2DGStream* ipStream) override;

 private:
  VYRPrtPointRuns _runs;
};

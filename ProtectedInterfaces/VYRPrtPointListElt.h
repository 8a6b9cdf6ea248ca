#pragma once

#include "VYRExport.h"
#include "VYRMathPoint2D.h"
#include "VYRPrtPointBasedElt.h"
#include "VYRSYPDynArray.h"

// Base of the point-based shapes that hold one list of points (polyline,
// polygon, poly cubic and poly quadratic Bezier). Its record is the
// point-based block, then the point count and the points.
class VYR_EXPORT VYRPrtPointListElt : public VYRPrtPointBasedElt {
  VYR_DECLARE_CLASS(VYRPrtPointListElt)

 public:
  ~VYRPrtPointListElt() override = default;
  VYRPrtPointListElt& operator=(const VYRPrtPointListElt& iPointListElt);

  const VYRSYPDynArray<VYRMathPoint2D>& GetPoints() const { return _points; }
  void SetPoints(const VYRSYPDynArray<VYRMathPoint2D>& i_points);
  int GetPointCount() const { return _points.GetLength(); }
  // 1, or -1 when the list cannot grow.
  int AddPoint(const VYRMathPoint2D& i_point) { return _points.Append(i_point); }

  void Reset() override;
  void Stream(VYRI2DGStream* ipStream) override;
  void Unstream(VYRI2DGStream* ipStream) override;

 protected:
  VYRPrtPointListElt() = default;
  VYRPrtPointListElt(const VYRPrtPointListElt&) = default;

 private:
  VYRSYPDynArray<VYRMathPoint2D> _points;
};

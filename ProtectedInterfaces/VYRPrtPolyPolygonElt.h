#pragma once

#include "VYRExport.h"
#include "VYRPrtPointBasedElt.h"
#include "VYRPrtPointRuns.h"

// Several closed rings filled together by the fill rule (holes included).
// Its record is the point-based block, then the rings. Reset is the
// point-based one: it leaves the rings as they are.
class VYR_EXPORT VYRPrtPolyPolygonElt : public VYRPrtPointBasedElt {
  VYR_DECLARE_CLASS(VYRPrtPolyPolygonElt)

 public:
  VYRPrtPolyPolygonElt() = default;
  VYRPrtPolyPolygonElt(const VYRPrtPolyPolygonElt&) = default;
  VYRPrtPolyPolygonElt& operator=(const VYRPrtPolyPolygonElt&) = default;
  ~VYRPrtPolyPolygonElt() override = default;

  const VYRPrtPointRuns& GetRings() const { return _rings; }
  void SetRings(const VYRPrtPointRuns& i_rings) { _rings = i_rings; }
  // 1, or -1 when it cannot be held.
  int AddRing(const VYRSYPDynArray<VYRMathPoint2D>& i_points) { return _rings.AddRun(i_points); }

  void Duplicate(VYRPrtGraphicPrimitiveElt*& opGPElt) override;
  StreamType GetStreamType() override;
  void Stream(VYRI2DGStream* ipStream) override;
  void Unstream(VYRI2DGStream* ipStream) override;

 private:
  VYRPrtPointRuns _rings;
};

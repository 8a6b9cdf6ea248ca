#pragma once

#include "VYRExport.h"
#include "VYRPrtPointListElt.h"

// A chain of cubic Bezier curves: the start point, then for each curve its two control points and its end point (3n + 1 points).
class VYR_EXPORT VYRPrtPolyCubicBezierElt : public VYRPrtPointListElt {
  VYR_DECLARE_CLASS(VYRPrtPolyCubicBezierElt)

 public:
  VYRPrtPolyCubicBezierElt() = default;
  VYRPrtPolyCubicBezierElt(const VYRPrtPolyCubicBezierElt&) = default;
  VYRPrtPolyCubicBezierElt& operator=(const VYRPrtPolyCubicBezierElt&) = default;
  ~VYRPrtPolyCubicBezierElt() override = default;

  void Duplicate(VYRPrtGraphicPrimitiveElt*& opGPElt) override;
  StreamType GetStreamType() override;
};

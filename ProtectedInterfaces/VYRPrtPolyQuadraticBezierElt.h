#pragma once

#include "VYRExport.h"
#include "VYRPrtPointListElt.h"

// A chain of quadratic Bezier curves: the start point, then for each curve its control point and its end point (2n + 1 points).
class VYR_EXPORT VYRPrtPolyQuadraticBezierElt : public VYRPrtPointListElt {
  VYR_DECLARE_CLASS(VYRPrtPolyQuadraticBezierElt)

 public:
  VYRPrtPolyQuadraticBezierElt() = default;
  VYRPrtPolyQuadraticBezierElt(const VYRPrtPolyQuadraticBezierElt&) = default;
  VYRPrtPolyQuadraticBezierElt& operator=(const VYRPrtPolyQuadraticBezierElt&) = default;
  ~VYRPrtPolyQuadraticBezierElt() override = default;

  void Duplicate(VYRPrtGraphicPrimitiveElt*& opGPElt) override;
  StreamType GetStreamType() override;
};

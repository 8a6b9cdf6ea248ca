#pragma once

#include "VYRExport.h"
#include "VYRMathPoint2D.h"
#include "VYRPrtPathSeg.h"

// A quadratic Bezier curve: one control point and the target point.
class VYR_EXPORT VYRPrtPathSegCurveToQuadratic : public VYRPrtPathSeg {
 public:
  explicit VYRPrtPathSegCurveToQuadratic(MM2D::PathCoordMode i_mode = MM2D::PathCoordAbsolute)
      : VYRPrtPathSeg(i_mode) {}
  VYRPrtPathSegCurveToQuadratic(MM2D::PathCoordMode i_mode, const VYRMathPoint2D& i_cp1,
                                const VYRMathPoint2D& i_target);
  VYRPrtPathSegCurveToQuadratic(const VYRPrtPathSegCurveToQuadratic&) = default;
  VYRPrtPathSegCurveToQuadratic& operator=(const VYRPrtPathSegCurveToQuadratic&) = default;

  VYRPrtPathSeg* Duplicate() const override;
  MM2D::PathSegType GetPathSegType() const override;
  VYRPrtPathSegStreamType GetStreamType() const override;
  const VYRMathPoint2D& GetCP1() const { return _cp1; }
  void SetCP1(const VYRMathPoint2D& i_point) { _cp1 = i_point; }
  const VYRMathPoint2D& GetTarget() const { return _target; }
  void SetTarget(const VYRMathPoint2D& i_point) { _target = i_point; }

  void Stream(VYRI2DGStream* ipStream) override;
  void Unstream(VYRI2DGStream* ipStream) override;

 private:
  VYRMathPoint2D _cp1;
  VYRMathPoint2D _target;
};

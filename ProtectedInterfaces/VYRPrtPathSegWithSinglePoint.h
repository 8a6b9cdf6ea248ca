#pragma once

#include "VYRExport.h"
#include "VYRMathPoint2D.h"
#include "VYRPrtPathSeg.h"

// A segment that goes to one target point (move-to and line-to).
class VYR_EXPORT VYRPrtPathSegWithSinglePoint : public VYRPrtPathSeg {
 public:
  explicit VYRPrtPathSegWithSinglePoint(MM2D::PathCoordMode i_mode = MM2D::PathCoordAbsolute,
                                        const VYRMathPoint2D& i_target = VYRMathPoint2D())
      : VYRPrtPathSeg(i_mode), _target(i_target) {}
  VYRPrtPathSegWithSinglePoint(const VYRPrtPathSegWithSinglePoint&) = default;
  VYRPrtPathSegWithSinglePoint& operator=(const VYRPrtPathSegWithSinglePoint&) = default;

  VYRPrtPathSeg* Duplicate() const override;
  VYRPrtPathSegStreamType GetStreamType() const override;
  const VYRMathPoint2D& GetTarget() const { return _target; }
  void SetTarget(const VYRMathPoint2D& i_target) { _target = i_target; }

  void Stream(VYRI2DGStream* ipStream) override;
  void Unstream(VYRI2DGStream* ipStream) override;

 private:
  VYRMathPoint2D _target;
};

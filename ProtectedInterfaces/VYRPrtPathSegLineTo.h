#pragma once

#include "VYRExport.h"
#include "VYRPrtPathSegWithSinglePoint.h"

// A straight line to the target point.
class VYR_EXPORT VYRPrtPathSegLineTo : public VYRPrtPathSegWithSinglePoint {
 public:
  explicit VYRPrtPathSegLineTo(MM2D::PathCoordMode i_mode = MM2D::PathCoordAbsolute,
                               const VYRMathPoint2D& i_target = VYRMathPoint2D())
      : VYRPrtPathSegWithSinglePoint(i_mode, i_target) {}
  VYRPrtPathSegLineTo(const VYRPrtPathSegLineTo&) = default;
  VYRPrtPathSegLineTo& operator=(const VYRPrtPathSegLineTo&) = default;

  VYRPrtPathSeg* Duplicate() const override;
  MM2D::PathSegType GetPathSegType() const override;
  VYRPrtPathSegStreamType GetStreamType() const override;
};

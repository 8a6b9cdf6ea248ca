#pragma once

#include "VYRExport.h"
#include "VYRPrtPathSegWithSinglePoint.h"

// Moves the pen to the target point, starting a new subpath.
class VYR_EXPORT VYRPrtPathSegMoveTo : public VYRPrtPathSegWithSinglePoint {
 public:
  explicit VYRPrtPathSegMoveTo(MM2D::PathCoordMode i_mode = MM2D::PathCoordAbsolute,
                               const VYRMathPoint2D& i_target = VYRMathPoint2D())
      : VYRPrtPathSegWithSinglePoint(i_mode, i_target) {}
  VYRPrtPathSegMoveTo(const VYRPrtPathSegMoveTo&) = default;
  VYRPrtPathSegMoveTo& operator=(const VYRPrtPathSegMoveTo&) = default;

  VYRPrtPathSeg* Duplicate() const override;
  MM2D::PathSegType GetPathSegType() const override;
  VYRPrtPathSegStreamType GetStreamType() const override;
};

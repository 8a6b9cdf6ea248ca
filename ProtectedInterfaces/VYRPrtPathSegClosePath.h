#pragma once

#include "VYRExport.h"
#include "VYRPrtPathSeg.h"

// Closes the current subpath; it has no fields of its own.
class VYR_EXPORT VYRPrtPathSegClosePath : public VYRPrtPathSeg {
 public:
  explicit VYRPrtPathSegClosePath(MM2D::PathCoordMode i_mode = MM2D::PathCoordAbsolute) : VYRPrtPathSeg(i_mode) {}
  VYRPrtPathSegClosePath(const VYRPrtPathSegClosePath&) = default;
  VYRPrtPathSegClosePath& operator=(const VYRPrtPathSegClosePath&) = default;

  VYRPrtPathSeg* Duplicate() const override;
  VYRPrtPathSegStreamType GetStreamType() const override;
};

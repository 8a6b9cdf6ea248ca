#pragma once

#include "VYRBaseUnknown.h"
#include "VYRRasterPath.h"

// Reference-counted transformation of a path before it is stroked or filled (dashes).
class VYR_EXPORT VYRRasterPathEffect : public VYRBaseUnknown {
  VYR_DECLARE_CLASS(VYRRasterPathEffect)
 public:
  enum Kind { kDash_Kind };
  virtual Kind getKind() const = 0;
  // Writes the effect's path into o_dst (not i_src) and returns true; false when the effect
  // leaves the path as it is. i_resScale is the device pixels per unit, for curve flattening.
  virtual bool filterPath(VYRRasterPath* o_dst, const VYRRasterPath& i_src, float i_resScale = 1.0f) const = 0;
};

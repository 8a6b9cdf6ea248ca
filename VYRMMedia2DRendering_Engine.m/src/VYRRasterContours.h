#pragma once

#include <vector>

#include "VYRMathPoint2Df.h"
#include "VYRRasterPath.h"

// A path flattened into polylines, for the code that walks lengths (dashes, stroke outlines).
struct VYRRasterContour {
  std::vector<VYRMathPoint2Df> points;
  bool closed = false;
};

class VYR_EXPORT VYRRasterContours {
 public:
  // Curves become line runs within i_tolerance of the curve (in path units).
  static std::vector<VYRRasterContour> Flatten(const VYRRasterPath& i_path, float i_tolerance);
};

#pragma once

#include <initializer_list>
#include <string>

#include "VYRMathPoint2Df.h"
#include "VYRRasterPath.h"

// Outlines for the raster layer's coverage tests.
struct NamedPath {
  std::string name;
  VYRRasterPath path;
};

// A closed polygon through the points.
inline VYRRasterPath Polygon(std::initializer_list<VYRMathPoint2Df> i_points,
                             VYRRasterPath::FillType i_fill = VYRRasterPath::kWinding_FillType) {
  VYRRasterPath path;
  bool first = true;
  for (const VYRMathPoint2Df& p : i_points) {
    if (first) path.moveTo(p.x, p.y);
    else path.lineTo(p.x, p.y);
    first = false;
  }
  path.close();
  path.setFillType(i_fill);
  return path;
}

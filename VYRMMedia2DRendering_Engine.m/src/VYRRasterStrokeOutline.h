#pragma once

#include "VYRRasterContours.h"
#include "VYRRasterPaint.h"
#include "VYRRasterPath.h"

// The area of a stroke as polygons to fill with the winding rule: one quadrilateral per
// segment, one piece per join and per cap, all turning the same way so that their overlaps
// add up instead of cancelling.
class VYR_EXPORT VYRRasterStrokeOutline {
 public:
  struct Settings {
    float width = 1.0f;
    VYRRasterPaint::Cap cap = VYRRasterPaint::kButt_Cap;
    VYRRasterPaint::Join join = VYRRasterPaint::kMiter_Join;
    float miterLimit = 4.0f;
    float tolerance = 0.1f;  // flattening of curves and round pieces, in path units
  };
  static void Append(const VYRRasterPath& i_src, const Settings& i_settings, VYRRasterPath* o_dst);
  // Appends the polygon turning clockwise (with y down) whatever its order.
  static void AppendPolygon(const VYRMathPoint2Df* i_points, int i_count, VYRRasterPath* o_dst);
};

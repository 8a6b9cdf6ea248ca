#pragma once

#include <vector>

#include "VYRRasterMask.h"
#include "VYRRasterPaint.h"
#include "VYRRasterPath.h"

// Scan conversion: turns a path into 8-bit coverage. The choice of scan converter stays behind
// this interface (Create gives the default one).
class VYR_EXPORT VYRRasterCoverage {
 public:
  struct Stroke {
    float width = 1.0f;  // in the units of the path before the matrix; > 0
    VYRRasterPaint::Cap cap = VYRRasterPaint::kButt_Cap;
    VYRRasterPaint::Join join = VYRRasterPaint::kMiter_Join;
    float miterLimit = 4.0f;
  };

  virtual ~VYRRasterCoverage() = default;
  static VYRRasterCoverage* Create();

  // Coverage of the device-space path filled with its rule (inverse rules are the caller's),
  // over the path's pixel bounds clipped to i_clip. Returns false (o_mask empty) when nothing
  // is covered inside i_clip.
  virtual bool FillPath(const VYRRasterPath& i_devicePath, bool i_antiAlias, const VYRRasterIRect& i_clip,
                        VYRRasterMask* o_mask) = 0;
  // Coverage of the path stroked in its own units and mapped by i_matrix (so widths and caps
  // follow the matrix), clipped to i_clip.
  virtual bool StrokePath(const VYRRasterPath& i_localPath, const VYRRasterMatrix& i_matrix,
                          const Stroke& i_stroke, bool i_antiAlias, const VYRRasterIRect& i_clip,
                          VYRRasterMask* o_mask) = 0;
};

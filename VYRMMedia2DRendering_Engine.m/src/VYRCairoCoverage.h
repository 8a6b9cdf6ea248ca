#pragma once

#include <cairo.h>

#include "VYRRasterCoverage.h"

// Scan conversion by Cairo: paths are drawn with the ADD operator onto an A8 image surface
// made over the mask's own buffer, curves flattened at a tolerance of 0.1 device pixel.
class VYR_EXPORT VYRCairoCoverage : public VYRRasterCoverage {
 public:
  bool FillPath(const VYRRasterPath& i_devicePath, bool i_antiAlias, const VYRRasterIRect& i_clip,
                VYRRasterMask* o_mask) override;
  bool StrokePath(const VYRRasterPath& i_localPath, const VYRRasterMatrix& i_matrix, const Stroke& i_stroke,
                  bool i_antiAlias, const VYRRasterIRect& i_clip, VYRRasterMask* o_mask) override;

 private:
  // A context over o_mask, sized to i_bounds, with the device origin at the mask's corner.
  cairo_t* beginMask(const VYRRasterIRect& i_bounds, bool i_antiAlias, VYRRasterMask* o_mask);
  void endMask(cairo_t* ipCairo, VYRRasterMask* o_mask);
  static void appendPath(cairo_t* ipCairo, const VYRRasterPath& i_path);
};

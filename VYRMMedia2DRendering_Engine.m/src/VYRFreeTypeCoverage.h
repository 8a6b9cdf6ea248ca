#pragma once

#include <memory>
#include <vector>

#include "VYRCairoCoverage.h"

// Anti-aliased fills of convex outlines (rectangles, circles, ellipses, rounded rectangles,
// triangles), simple polygons, polygons crossing themselves once (as their two loops) and
// paths vouched not to overlap (glyph outlines) by FreeType's
// exact-area outline rasteriser, which hands over covered spans
// directly: no per-fill surface or context to set up, which is most of what a small fill
// costs through Cairo. Everything else goes to Cairo: strokes, aliased fills, outlines that
// may overlap themselves (FreeType would add up their edge coverage instead of uniting it),
// and paths too large or too far out for FreeType's fixed-point coordinates.
class VYR_EXPORT VYRFreeTypeCoverage : public VYRRasterCoverage {
 public:
  VYRFreeTypeCoverage();
  ~VYRFreeTypeCoverage() override;
  VYRFreeTypeCoverage(const VYRFreeTypeCoverage&) = delete;
  VYRFreeTypeCoverage& operator=(const VYRFreeTypeCoverage&) = delete;

  bool FillPath(const VYRRasterPath& i_devicePath, bool i_antiAlias, const VYRRasterIRect& i_clip,
                VYRRasterMask* o_mask) override;
  bool StrokePath(const VYRRasterPath& i_localPath, const VYRRasterMatrix& i_matrix, const Stroke& i_stroke,
                  bool i_antiAlias, const VYRRasterIRect& i_clip, VYRRasterMask* o_mask) override;

 private:
  // Builds the FreeType outline of a path in 26.6 fixed point; false when it cannot hold it.
  bool BuildOutline(const VYRRasterPath& i_path);
  // The last of the contours from i_first on whose horizontal extents chain into one another.
  short LastContourOfGroup(short i_first) const;
  // Renders contours i_first..i_last of the built outline into a SpanTarget (io_target).
  bool RenderContours(short i_first, short i_last, bool i_evenOdd, const VYRRasterIRect& i_clip, void* io_target);

  VYRCairoCoverage _cairo;
  void* _library = nullptr;  // FT_Library, kept out of this header
  std::vector<long> _points;  // x, y pairs (FT_Pos)
  std::vector<char> _tags;
  std::vector<short> _contourEnds;
  std::vector<short> _groupEnds;  // contour ends of the group being rendered
  std::vector<VYRMathPoint2Df> _ring;  // the points of a one-contour path being checked
  VYRRasterPath _loops;               // a ring crossing itself, split at the crossing
};

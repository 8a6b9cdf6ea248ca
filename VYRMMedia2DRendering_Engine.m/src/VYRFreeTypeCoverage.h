#pragma once

#include <memory>
#include <vector>

#include "VYRCairoCoverage.h"

// Anti-aliased fills of convex outlines (rectangles, circles, ellipses, rounded rectangles,
// triangles) by FreeType's exact-area outline rasteriser, which hands over covered spans
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

  VYRCairoCoverage _cairo;
  void* _library = nullptr;  // FT_Library, kept out of this header
  std::vector<long> _points;  // x, y pairs (FT_Pos)
  std::vector<char> _tags;
  std::vector<short> _contourEnds;
};

#pragma once

#include "VYRRasterMask.h"
#include "VYRRasterPath.h"

// Anti-aliased one-pixel lines. Each step along a segment's major axis lays one pixel's worth
// of ink across the two pixels nearest the line, in proportion to their distance from it, so
// a vertical line at x = 10.25 puts a quarter in column 9 and three quarters in column 10.
// Segment ends cover their last pixel in proportion to the part of it the segment spans.
// It touches only the pixels near the line, which is what makes long thin lines cheap.
class VYR_EXPORT VYRRasterHairline {
 public:
  // Coverage of every segment of a device-space path (curves flattened), within i_clip.
  // Returns false (o_mask empty) when nothing is covered.
  static bool Rasterize(const VYRRasterPath& i_devicePath, const VYRRasterIRect& i_clip, VYRRasterMask* o_mask);
};

#pragma once

#include <cstdint>
#include <vector>

#include "VYRRasterRect.h"

// 8-bit coverage over a rectangle of device pixels (0 = outside, 255 = fully inside).
// Rows start on 4-byte boundaries so that the scan converter can draw into them directly;
// the bytes past a row's width are padding and mean nothing.
struct VYRRasterMask {
  VYRRasterIRect bounds;
  std::vector<uint8_t> alpha;  // rowBytes() bytes per row, rows from bounds.top

  int rowBytes() const { return (bounds.width() + 3) & ~3; }
  // Sizes the mask over i_bounds and fills it with i_value.
  void allocate(const VYRRasterIRect& i_bounds, uint8_t i_value = 0) {
    bounds = i_bounds.isEmpty() ? VYRRasterIRect{} : i_bounds;
    alpha.assign(static_cast<size_t>(rowBytes()) * static_cast<size_t>(bounds.height()), i_value);
  }
  // Empties the mask, keeping its buffer for the next allocate.
  void reset() {
    bounds = VYRRasterIRect{};
    alpha.clear();
  }
  uint8_t* row(int y) { return alpha.data() + static_cast<size_t>(y - bounds.top) * rowBytes(); }
  const uint8_t* row(int y) const { return alpha.data() + static_cast<size_t>(y - bounds.top) * rowBytes(); }
  // Coverage at a device pixel; 0 outside the bounds.
  uint8_t at(int x, int y) const {
    if (x < bounds.left || x >= bounds.right || y < bounds.top || y >= bounds.bottom) return 0;
    return row(y)[x - bounds.left];
  }
  bool isEmpty() const { return bounds.isEmpty(); }
};

#pragma once

#include <cstdint>
#include <cstring>
#include <vector>

#include "VYRRasterRect.h"

// Premultiplied 0xAARRGGBB pixels over a rectangle of device pixels, rows packed from
// bounds.top; everything outside the bounds is transparent. Layers draw into one and image
// filters pass them from one to the next.
struct VYRRasterImage {
  VYRRasterIRect bounds;
  std::vector<uint32_t> pixels;

  // Sizes the image over i_bounds, all transparent.
  void allocate(const VYRRasterIRect& i_bounds) {
    bounds = i_bounds.isEmpty() ? VYRRasterIRect{} : i_bounds;
    pixels.assign(static_cast<size_t>(bounds.width()) * static_cast<size_t>(bounds.height()), 0u);
  }
  bool isEmpty() const { return bounds.isEmpty(); }
  uint32_t* row(int y) { return pixels.data() + static_cast<size_t>(y - bounds.top) * bounds.width(); }
  const uint32_t* row(int y) const {
    return pixels.data() + static_cast<size_t>(y - bounds.top) * bounds.width();
  }
  uint32_t* addr(int x, int y) { return row(y) + (x - bounds.left); }
  uint32_t at(int x, int y) const {
    if (x < bounds.left || x >= bounds.right || y < bounds.top || y >= bounds.bottom) return 0;
    return row(y)[x - bounds.left];
  }
  // Pixels x .. x + count - 1 of row y, transparent where they fall outside the bounds.
  void readRow(int x, int y, int count, uint32_t* o_pixels) const {
    if (y < bounds.top || y >= bounds.bottom || x >= bounds.right || x + count <= bounds.left) {
      std::memset(o_pixels, 0, sizeof(uint32_t) * static_cast<size_t>(count));
      return;
    }
    const int from = x < bounds.left ? bounds.left : x;
    const int to = x + count > bounds.right ? bounds.right : x + count;
    std::memset(o_pixels, 0, sizeof(uint32_t) * static_cast<size_t>(from - x));
    std::memcpy(o_pixels + (from - x), row(y) + (from - bounds.left), sizeof(uint32_t) * static_cast<size_t>(to - from));
    std::memset(o_pixels + (to - x), 0, sizeof(uint32_t) * static_cast<size_t>(x + count - to));
  }
  // The pixels of i_area (which may reach beyond the bounds) as an image of their own.
  VYRRasterImage cropped(const VYRRasterIRect& i_area) const {
    VYRRasterImage out;
    out.allocate(i_area);
    for (int y = out.bounds.top; y < out.bounds.bottom; ++y) readRow(out.bounds.left, y, out.bounds.width(), out.row(y));
    return out;
  }
};

#pragma once

#include <algorithm>
#include <cmath>

#include "VYRExport.h"

// A float rectangle, left/top inclusive, right/bottom exclusive; empty when right <= left or bottom <= top.
struct VYRRasterRect {
  float left = 0.0f;
  float top = 0.0f;
  float right = 0.0f;
  float bottom = 0.0f;

  static VYRRasterRect MakeLTRB(float l, float t, float r, float b) { return VYRRasterRect{l, t, r, b}; }
  static VYRRasterRect MakeXYWH(float x, float y, float w, float h) { return VYRRasterRect{x, y, x + w, y + h}; }
  float width() const { return right - left; }
  float height() const { return bottom - top; }
  float centerX() const { return 0.5f * (left + right); }
  float centerY() const { return 0.5f * (top + bottom); }
  // NaN sides make the rectangle empty too.
  bool isEmpty() const { return !(left < right && top < bottom); }
  bool isFinite() const {
    return std::isfinite(left) && std::isfinite(top) && std::isfinite(right) && std::isfinite(bottom);
  }
  // Swaps sides so that left <= right and top <= bottom.
  void sort() {
    if (left > right) std::swap(left, right);
    if (top > bottom) std::swap(top, bottom);
  }
  bool operator==(const VYRRasterRect& o) const {
    return left == o.left && top == o.top && right == o.right && bottom == o.bottom;
  }
  bool operator!=(const VYRRasterRect& o) const { return !(*this == o); }
};

// An integer rectangle of device pixels, same conventions.
struct VYRRasterIRect {
  int left = 0;
  int top = 0;
  int right = 0;
  int bottom = 0;

  static VYRRasterIRect MakeLTRB(int l, int t, int r, int b) { return VYRRasterIRect{l, t, r, b}; }
  static VYRRasterIRect MakeWH(int w, int h) { return VYRRasterIRect{0, 0, w, h}; }
  int width() const { return right - left; }
  int height() const { return bottom - top; }
  bool isEmpty() const { return left >= right || top >= bottom; }
  bool contains(const VYRRasterIRect& o) const {
    return !o.isEmpty() && left <= o.left && top <= o.top && right >= o.right && bottom >= o.bottom;
  }
  // Intersects in place; returns false (and leaves an empty rectangle) when they do not meet.
  bool intersect(const VYRRasterIRect& o) {
    left = std::max(left, o.left);
    top = std::max(top, o.top);
    right = std::min(right, o.right);
    bottom = std::min(bottom, o.bottom);
    if (isEmpty()) {
      *this = VYRRasterIRect{};
      return false;
    }
    return true;
  }
  // The smallest rectangle holding both; an empty side is ignored.
  void join(const VYRRasterIRect& o) {
    if (o.isEmpty()) return;
    if (isEmpty()) {
      *this = o;
      return;
    }
    left = std::min(left, o.left);
    top = std::min(top, o.top);
    right = std::max(right, o.right);
    bottom = std::max(bottom, o.bottom);
  }
  bool operator==(const VYRRasterIRect& o) const {
    return left == o.left && top == o.top && right == o.right && bottom == o.bottom;
  }
  bool operator!=(const VYRRasterIRect& o) const { return !(*this == o); }
};

// The pixels a float rectangle touches, clamped to a safe integer range (NaN gives an empty rectangle).
VYR_EXPORT VYRRasterIRect VYRRasterRoundOut(const VYRRasterRect& i_rect);

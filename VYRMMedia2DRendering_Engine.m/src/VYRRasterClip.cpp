#include "VYRRasterClip.h"

#include <algorithm>
#include <cstring>

namespace {
inline uint8_t Mul255(int a, int b) {
  int x = a * b + 128;
  return static_cast<uint8_t>((x + (x >> 8)) >> 8);
}

// Combined coverage of clip c and shape s under an operation.
inline uint8_t Combine(VYRRasterClip::Op i_op, int c, int s) {
  switch (i_op) {
    case VYRRasterClip::kDifference_Op:
      return Mul255(c, 255 - s);
    case VYRRasterClip::kIntersect_Op:
      return Mul255(c, s);
    case VYRRasterClip::kUnion_Op:
      return static_cast<uint8_t>(c + s - Mul255(c, s));
    case VYRRasterClip::kXOR_Op:
      return static_cast<uint8_t>(c + s - 2 * Mul255(c, s));
    case VYRRasterClip::kReverseDifference_Op:
      return Mul255(s, 255 - c);
    case VYRRasterClip::kReplace_Op:
      return static_cast<uint8_t>(s);
  }
  return static_cast<uint8_t>(c);
}
}  // namespace

void VYRRasterClip::setRect(const VYRRasterIRect& i_rect) {
  _bounds = i_rect.isEmpty() ? VYRRasterIRect{} : i_rect;
  _isRect = true;
  _mask = VYRRasterMask();
  _rowRuns.clear();
}

void VYRRasterClip::toMask() {
  if (!_isRect) return;
  _mask.allocate(_bounds, 255);
  _isRect = false;
}

void VYRRasterClip::getRow(int x, int y, int count, uint8_t* o_coverage) const {
  if (_isRect) {
    std::memset(o_coverage, 255, static_cast<size_t>(count));
    return;
  }
  std::memcpy(o_coverage, _mask.row(y) + (x - _mask.bounds.left), static_cast<size_t>(count));
}

void VYRRasterClip::opRect(const VYRRasterIRect& i_rect, Op i_op, const VYRRasterIRect& i_device) {
  VYRRasterIRect rect = i_rect;
  rect.intersect(i_device);
  if (_isRect) {
    // The cases that keep a rectangle a rectangle.
    VYRRasterIRect r = _bounds;
    switch (i_op) {
      case kIntersect_Op:
        r.intersect(rect);
        setRect(r);
        return;
      case kReplace_Op:
        setRect(rect);
        return;
      case kDifference_Op:
        if (rect.isEmpty() || (r.intersect(rect), r.isEmpty())) return;
        if (rect.contains(_bounds)) {
          setEmpty();
          return;
        }
        break;
      case kUnion_Op:
        if (rect.isEmpty()) return;
        if (_bounds.isEmpty() || rect.contains(_bounds)) {
          setRect(rect);
          return;
        }
        if (_bounds.contains(rect)) return;
        break;
      default:
        break;
    }
  }
  VYRRasterMask mask;
  mask.allocate(rect, 255);
  opMask(mask, i_op, i_device);
}

void VYRRasterClip::opMask(const VYRRasterMask& i_mask, Op i_op, const VYRRasterIRect& i_device) {
  // The area the result can cover.
  VYRRasterIRect area;
  switch (i_op) {
    case kDifference_Op:
    case kIntersect_Op:
      area = _bounds;
      if (i_op == kIntersect_Op) area.intersect(i_mask.bounds);
      break;
    case kReverseDifference_Op:
    case kReplace_Op:
      area = i_mask.bounds;
      break;
    default:
      area = _bounds;
      area.join(i_mask.bounds);
      break;
  }
  area.intersect(i_device);
  if (area.isEmpty()) {
    setEmpty();
    return;
  }
  toMask();
  VYRRasterMask result;
  result.allocate(area, 0);
  for (int y = area.top; y < area.bottom; ++y) {
    uint8_t* out = result.row(y);
    for (int x = area.left; x < area.right; ++x) out[x - area.left] = Combine(i_op, _mask.at(x, y), i_mask.at(x, y));
  }
  _mask = std::move(result);
  _bounds = area;
  shrinkToFit();
}

void VYRRasterClip::shrinkToFit() {
  // Trim empty borders, and fall back to a rectangle when every pixel is fully inside.
  VYRRasterIRect used{_bounds.right, _bounds.bottom, _bounds.left, _bounds.top};
  bool full = true;
  for (int y = _bounds.top; y < _bounds.bottom; ++y) {
    const uint8_t* row = _mask.row(y);
    for (int x = _bounds.left; x < _bounds.right; ++x) {
      const uint8_t v = row[x - _bounds.left];
      if (v != 255) full = false;
      if (v) {
        used.left = std::min(used.left, x);
        used.right = std::max(used.right, x + 1);
        used.top = std::min(used.top, y);
        used.bottom = std::max(used.bottom, y + 1);
      }
    }
  }
  if (full) {
    setRect(_bounds);
    return;
  }
  if (used.isEmpty()) {
    setEmpty();
    return;
  }
  if (used == _bounds) return findRowRuns();
  VYRRasterMask trimmed;
  trimmed.allocate(used, 0);
  for (int y = used.top; y < used.bottom; ++y)
    std::memcpy(trimmed.row(y), _mask.row(y) + (used.left - _bounds.left), static_cast<size_t>(used.width()));
  _mask = std::move(trimmed);
  _bounds = used;
  // A trimmed mask may now be all 255 (a rectangle after difference).
  for (int y = _bounds.top; y < _bounds.bottom; ++y) {
    const uint8_t* row = _mask.row(y);
    if (std::any_of(row, row + _bounds.width(), [](uint8_t v) { return v != 255; })) return findRowRuns();
  }
  setRect(_bounds);
}

void VYRRasterClip::findRowRuns() {
  const int width = _bounds.width();
  _rowRuns.assign(static_cast<size_t>(_bounds.height()), RowRuns{});
  for (int y = _bounds.top; y < _bounds.bottom; ++y) {
    const uint8_t* row = _mask.row(y);
    RowRuns& runs = _rowRuns[static_cast<size_t>(y - _bounds.top)];
    int first = 0, last = width;
    while (first < width && row[first] == 0) ++first;
    while (last > first && row[last - 1] == 0) --last;
    runs.covered = Run{_bounds.left + first, _bounds.left + last};
    Run& best = runs.opaque;
    for (int x = first; x < last;) {
      if (row[x] != 255) {
        ++x;
        continue;
      }
      int end = x;
      while (end < last && row[end] == 255) ++end;
      if (end - x > best.right - best.left) best = Run{_bounds.left + x, _bounds.left + end};
      x = end;
    }
  }
}

VYRRasterIRect VYRRasterClip::coveredBounds(const VYRRasterIRect& i_area) const {
  VYRRasterIRect area = i_area;
  if (!area.intersect(_bounds)) return VYRRasterIRect{};
  if (_isRect) return area;
  VYRRasterIRect used{area.right, area.bottom, area.left, area.top};
  for (int y = area.top; y < area.bottom; ++y) {
    const Run run = rowRuns(y).covered;
    const int left = std::max(run.left, area.left), right = std::min(run.right, area.right);
    if (left >= right) continue;
    used.left = std::min(used.left, left);
    used.right = std::max(used.right, right);
    used.top = std::min(used.top, y);
    used.bottom = std::max(used.bottom, y + 1);
  }
  return used.isEmpty() ? VYRRasterIRect{} : used;
}

#pragma once

#include "VYRRasterMask.h"
#include "VYRRasterRect.h"

// The area a canvas may paint: a device rectangle while it can stay one, else an 8-bit
// coverage mask (over its bounds; outside them nothing is inside the clip).
class VYR_EXPORT VYRRasterClip {
 public:
  enum Op { kDifference_Op, kIntersect_Op, kUnion_Op, kXOR_Op, kReverseDifference_Op, kReplace_Op };

  VYRRasterClip() = default;
  explicit VYRRasterClip(const VYRRasterIRect& i_rect) { setRect(i_rect); }

  void setRect(const VYRRasterIRect& i_rect);
  void setEmpty() { setRect(VYRRasterIRect{}); }
  bool isEmpty() const { return _bounds.isEmpty(); }
  bool isRect() const { return _isRect; }
  const VYRRasterIRect& getBounds() const { return _bounds; }
  // The coverage mask when !isRect().
  const VYRRasterMask& getMask() const { return _mask; }

  // Combines with a shape given by its coverage (a rectangle, or a mask over the device
  // bounds i_device). Everything stays inside i_device.
  void opRect(const VYRRasterIRect& i_rect, Op i_op, const VYRRasterIRect& i_device);
  void opMask(const VYRRasterMask& i_mask, Op i_op, const VYRRasterIRect& i_device);

  // Coverage of the clip for pixels x .. x + count - 1 of row y (all within the bounds).
  void getRow(int x, int y, int count, uint8_t* o_coverage) const;
  // Pixels left .. right - 1 of a row.
  struct Run {
    int left = 0, right = 0;
  };
  // Whether pixels i_left .. i_right - 1 of row y (within the bounds) are wholly inside,
  // so that painting there needs no clip coverage.
  bool isOpaqueRun(int y, int i_left, int i_right) const {
    const Run run = opaqueRun(y);
    return run.left <= i_left && i_right <= run.right;
  }
  // The longest run of row y (within the bounds) wholly inside the clip.
  Run opaqueRun(int y) const { return _isRect ? Run{_bounds.left, _bounds.right} : rowRuns(y).opaque; }
  // The pixels of row y (within the bounds) from the first to the last the clip touches.
  Run coveredRun(int y) const { return _isRect ? Run{_bounds.left, _bounds.right} : rowRuns(y).covered; }
  // The smallest rectangle within i_area holding every pixel of it the clip touches.
  VYRRasterIRect coveredBounds(const VYRRasterIRect& i_area) const;

 private:
  struct RowRuns {
    Run opaque;   // longest run of full coverage
    Run covered;  // first to last pixel of non-zero coverage
  };
  const RowRuns& rowRuns(int y) const { return _rowRuns[static_cast<size_t>(y - _bounds.top)]; }

  void toMask();
  void shrinkToFit();
  void findRowRuns();

  VYRRasterIRect _bounds;
  bool _isRect = true;
  VYRRasterMask _mask;
  std::vector<RowRuns> _rowRuns;  // per mask row
};

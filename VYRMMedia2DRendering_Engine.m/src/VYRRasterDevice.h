#pragma once

#include "VYRBaseUnknown.h"
#include "VYRRasterBitmap.h"

// The pixels a canvas draws into: a reference-counted holder of a bitmap (sharing its pixels).
class VYR_EXPORT VYRRasterDevice : public VYRBaseUnknown {
  VYR_DECLARE_CLASS(VYRRasterDevice)
 public:
  VYRRasterDevice() = default;
  explicit VYRRasterDevice(const VYRRasterBitmap& i_bitmap) : _bitmap(i_bitmap) {}

  const VYRRasterBitmap& accessBitmap() const { return _bitmap; }
  int width() const { return _bitmap.width(); }
  int height() const { return _bitmap.height(); }

 private:
  VYRRasterBitmap _bitmap;
};

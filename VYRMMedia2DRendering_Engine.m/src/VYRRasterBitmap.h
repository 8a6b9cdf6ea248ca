#pragma once

#include <cstddef>
#include <cstdint>

#include "VYRExport.h"

// A view of 32-bit premultiplied pixels owned by someone else (bytes B, G, R, A in memory,
// i.e. 0xAARRGGBB words on little-endian machines). Copies share the pixels.
class VYR_EXPORT VYRRasterBitmap {
 public:
  enum Config { kNo_Config, kARGB_8888_Config };
  // The largest pixel buffer a bitmap describes; bigger sizes are refused.
  static constexpr int64_t kMaxByteCount = int64_t(1) << 31;

  VYRRasterBitmap() = default;

  // Describes width x height pixels with rowBytes per row (0 = packed, width * 4).
  // Negative sizes, rows narrower than width * 4, or a byte count above kMaxByteCount report,
  // reset the bitmap and return false. Detaches the pixels.
  bool setConfig(Config i_config, int i_width, int i_height, int i_rowBytes = 0);
  bool setConfig(int i_width, int i_height, int i_rowBytes = 0) {
    return setConfig(kARGB_8888_Config, i_width, i_height, i_rowBytes);
  }
  // Attaches (or with null detaches) the pixels; the caller keeps them alive for getSize() bytes.
  void setPixels(void* ipPixels, void* ipColorTable = nullptr);
  void* getPixels() const { return _pPixels; }
  uint32_t* getAddr32(int x, int y) const;

  Config config() const { return _config; }
  int width() const { return _width; }
  int height() const { return _height; }
  int rowBytes() const { return _rowBytes; }
  size_t getSize() const { return static_cast<size_t>(_rowBytes) * static_cast<size_t>(_height); }
  bool empty() const { return _width == 0 || _height == 0; }  // no area
  bool isNull() const { return _pPixels == nullptr; }         // no pixels
  bool drawsNothing() const { return empty() || isNull(); }

  // Back to no configuration and no pixels.
  void reset();
  // Fills every pixel with the straight colour 0xAARRGGBB, premultiplied; ignores clips.
  void eraseColor(uint32_t i_color);
  void eraseARGB(unsigned a, unsigned r, unsigned g, unsigned b);

 private:
  void* _pPixels = nullptr;
  Config _config = kNo_Config;
  int _width = 0;
  int _height = 0;
  int _rowBytes = 0;
};

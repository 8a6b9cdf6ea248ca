#include "VYRRasterBitmap.h"

#include <algorithm>
#include <cstring>

#include "VYRAssert.h"
#include "VYRRasterBlendMode.h"

bool VYRRasterBitmap::setConfig(Config i_config, int i_width, int i_height, int i_rowBytes) {
  reset();
  if (i_config == kNo_Config) return true;
  if (!VYR_CHECK_CONDITION(i_width >= 0 && i_height >= 0 && i_rowBytes >= 0)) return false;
  const int64_t packed = int64_t(i_width) * 4;
  const int64_t rowBytes = i_rowBytes == 0 ? packed : i_rowBytes;
  if (!VYR_CHECK_CONDITION(rowBytes >= packed && rowBytes % 4 == 0 && rowBytes <= INT32_MAX)) return false;
  if (!VYR_CHECK_CONDITION(rowBytes * i_height <= kMaxByteCount)) return false;
  _config = i_config;
  _width = i_width;
  _height = i_height;
  _rowBytes = static_cast<int>(rowBytes);
  return true;
}

void VYRRasterBitmap::setPixels(void* ipPixels, void*) { _pPixels = _config == kNo_Config ? nullptr : ipPixels; }

uint32_t* VYRRasterBitmap::getAddr32(int x, int y) const {
  if (!_pPixels || x < 0 || y < 0 || x >= _width || y >= _height) return nullptr;
  return reinterpret_cast<uint32_t*>(static_cast<uint8_t*>(_pPixels) + size_t(y) * size_t(_rowBytes)) + x;
}

void VYRRasterBitmap::reset() { *this = VYRRasterBitmap(); }

void VYRRasterBitmap::eraseColor(uint32_t i_color) {
  if (drawsNothing()) return;
  const uint32_t pixel = VYRRasterBlender::Premultiply(i_color);
  // A pixel of four equal bytes (clear, opaque white) is a byte fill, which the C library
  // does fastest, over the whole image at once when its rows are contiguous.
  const bool byteFill = pixel == (pixel & 0xFF) * 0x01010101u;
  if (byteFill) {
    const size_t rowBytes = static_cast<size_t>(_width) * 4;
    if (static_cast<size_t>(this->rowBytes()) == rowBytes) {
      std::memset(getAddr32(0, 0), static_cast<int>(pixel & 0xFF), rowBytes * static_cast<size_t>(_height));
      return;
    }
    for (int y = 0; y < _height; ++y) std::memset(getAddr32(0, y), static_cast<int>(pixel & 0xFF), rowBytes);
    return;
  }
  for (int y = 0; y < _height; ++y) {
    uint32_t* row = getAddr32(0, y);
    std::fill(row, row + _width, pixel);
  }
}

void VYRRasterBitmap::eraseARGB(unsigned a, unsigned r, unsigned g, unsigned b) {
  eraseColor((std::min(a, 255u) << 24) | (std::min(r, 255u) << 16) | (std::min(g, 255u) << 8) | std::min(b, 255u));
}

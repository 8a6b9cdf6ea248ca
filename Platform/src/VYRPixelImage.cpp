#include "VYRPixelImage.h"

#include <array>
#include <climits>
#include <cmath>
#include <cstring>
#include <new>

#include "VYRAssert.h"

VYR_IMPLEMENT_CLASS(VYRPixelImage, VYRBaseUnknown, "Platform")

namespace {

constexpr float kDefaultPixelSizeMillimetres = 25.4f / 96.0f;
size_t g_maximumByteCount = size_t(256) * 1024 * 1024;

constexpr int BytesPerPixelOf(VYRPixelImageFormat i_format) {
  switch (i_format) {
    case VYRPixelImageFormat_Grey8: return 1;
    case VYRPixelImageFormat_GreyAlpha16: return 2;
    case VYRPixelImageFormat_RGB24: return 3;
    case VYRPixelImageFormat_RGBA32:
    case VYRPixelImageFormat_BGRA32Premultiplied: return 4;
  }
  return 0;
}

// The straight colour of the pixel at p, as red, green, blue, alpha.
void ReadStraightColor(const unsigned char* p, VYRPixelImageFormat i_format, unsigned char o_rgba[4]) {
  switch (i_format) {
    case VYRPixelImageFormat_Grey8:
      o_rgba[0] = o_rgba[1] = o_rgba[2] = p[0];
      o_rgba[3] = 255;
      break;
    case VYRPixelImageFormat_GreyAlpha16:
      o_rgba[0] = o_rgba[1] = o_rgba[2] = p[0];
      o_rgba[3] = p[1];
      break;
    case VYRPixelImageFormat_RGB24:
      o_rgba[0] = p[0], o_rgba[1] = p[1], o_rgba[2] = p[2];
      o_rgba[3] = 255;
      break;
    case VYRPixelImageFormat_RGBA32:
      std::memcpy(o_rgba, p, 4);
      break;
    case VYRPixelImageFormat_BGRA32Premultiplied: {
      const unsigned char alpha = p[3];
      o_rgba[0] = VYRPixelImage::UnpremultiplyComponent(p[2], alpha);
      o_rgba[1] = VYRPixelImage::UnpremultiplyComponent(p[1], alpha);
      o_rgba[2] = VYRPixelImage::UnpremultiplyComponent(p[0], alpha);
      o_rgba[3] = alpha;
      break;
    }
  }
}

unsigned char Luma(const unsigned char i_rgba[4]) {
  return static_cast<unsigned char>((299 * i_rgba[0] + 587 * i_rgba[1] + 114 * i_rgba[2] + 500) / 1000);
}

void WriteStraightColor(const unsigned char i_rgba[4], VYRPixelImageFormat i_format, unsigned char* p) {
  switch (i_format) {
    case VYRPixelImageFormat_Grey8:
      p[0] = Luma(i_rgba);
      break;
    case VYRPixelImageFormat_GreyAlpha16:
      p[0] = Luma(i_rgba);
      p[1] = i_rgba[3];
      break;
    case VYRPixelImageFormat_RGB24:
      std::memcpy(p, i_rgba, 3);
      break;
    case VYRPixelImageFormat_RGBA32:
      std::memcpy(p, i_rgba, 4);
      break;
    case VYRPixelImageFormat_BGRA32Premultiplied: {
      const unsigned char alpha = i_rgba[3];
      p[0] = VYRPixelImage::PremultiplyComponent(i_rgba[2], alpha);
      p[1] = VYRPixelImage::PremultiplyComponent(i_rgba[1], alpha);
      p[2] = VYRPixelImage::PremultiplyComponent(i_rgba[0], alpha);
      p[3] = alpha;
      break;
    }
  }
}

// One conversion loop per pair of formats, so that the format tests fold away
// inside the loop: images are converted each time they are drawn.
using PixelConverter = void (*)(const unsigned char*, unsigned char*, size_t);

template <int From, int To>
void ConvertPixels(const unsigned char* i_source, unsigned char* o_target, size_t i_pixelCount) {
  constexpr auto from = static_cast<VYRPixelImageFormat>(From), to = static_cast<VYRPixelImageFormat>(To);
  constexpr int sourceStep = BytesPerPixelOf(from), targetStep = BytesPerPixelOf(to);
  for (size_t i = 0; i < i_pixelCount; ++i, i_source += sourceStep, o_target += targetStep) {
    unsigned char rgba[4];
    ReadStraightColor(i_source, from, rgba);
    WriteStraightColor(rgba, to, o_target);
  }
}

template <int From>
constexpr std::array<PixelConverter, 5> ConvertersFrom() {
  return {&ConvertPixels<From, 0>, &ConvertPixels<From, 1>, &ConvertPixels<From, 2>, &ConvertPixels<From, 3>,
          &ConvertPixels<From, 4>};
}

constexpr std::array<std::array<PixelConverter, 5>, 5> kConverters = {
    ConvertersFrom<0>(), ConvertersFrom<1>(), ConvertersFrom<2>(), ConvertersFrom<3>(), ConvertersFrom<4>()};

bool IsUsablePixelSize(float i_size) { return std::isfinite(i_size) && i_size > 0.0f; }

}  // namespace

VYRPixelImage::VYRPixelImage()
    : _xPixelSize(kDefaultPixelSizeMillimetres), _yPixelSize(kDefaultPixelSizeMillimetres) {}

VYRPixelImage::VYRPixelImage(int i_width, int i_height, VYRPixelImageFormat i_format) : VYRPixelImage() {
  if (Allocate_(i_width, i_height, i_format)) std::memset(_pPixels, 0, GetByteCount());
}

VYRPixelImage::VYRPixelImage(int i_width, int i_height, VYRPixelImageFormat i_format,
                             unsigned char* i_pPixels, VYRDeallocatePixels i_deallocate,
                             long long i_availableByteCount)
    : VYRPixelImage() {
  const bool imageTakesPixels = i_deallocate == VYRDeallocatePixels_ImageDeletesPixels;
  size_t byteCount = 0;
  const bool accepted =
      VYR_CHECK_POINTER(i_pPixels) &&
      VYR_CHECK_CONDITION(i_deallocate >= VYRDeallocatePixels_CallerKeepsPixels &&
                          i_deallocate <= VYRDeallocatePixels_ImageCopiesPixels) &&
      (byteCount = CheckedByteCount_(i_width, i_height, i_format)) > 0 &&
      VYR_CHECK_CONDITION(i_availableByteCount < 0 ||
                          static_cast<unsigned long long>(i_availableByteCount) >= byteCount);
  if (!accepted) {
    if (imageTakesPixels) delete[] i_pPixels;
    return;
  }
  if (i_deallocate == VYRDeallocatePixels_ImageCopiesPixels) {
    if (Allocate_(i_width, i_height, i_format)) std::memcpy(_pPixels, i_pPixels, byteCount);
    return;
  }
  _width = i_width;
  _height = i_height;
  _format = i_format;
  _pPixels = i_pPixels;
  _ownsPixels = imageTakesPixels;
}

VYRPixelImage::~VYRPixelImage() {
  if (_ownsPixels) delete[] _pPixels;
}

size_t VYRPixelImage::CheckedByteCount_(int i_width, int i_height, VYRPixelImageFormat i_format) {
  if (!VYR_CHECK_CONDITION(i_width > 0 && i_height > 0) || !VYR_CHECK_CONDITION(IsValidFormat(i_format)))
    return 0;
  const size_t byteCount = ComputeByteCount(i_width, i_height, i_format);
  VYR_CHECK_CONDITION_TEXT(byteCount > 0, "byteCount <= GetMaximumByteCount()");
  return byteCount;
}

bool VYRPixelImage::Allocate_(int i_width, int i_height, VYRPixelImageFormat i_format) {
  const size_t byteCount = CheckedByteCount_(i_width, i_height, i_format);
  if (byteCount == 0) return false;
  unsigned char* pixels = new (std::nothrow) unsigned char[byteCount];
  if (!VYR_CHECK_POINTER_TEXT(pixels, "_pPixels")) return false;
  _width = i_width;
  _height = i_height;
  _format = i_format;
  _pPixels = pixels;
  _ownsPixels = true;
  return true;
}

void VYRPixelImage::GetSize(int& o_width, int& o_height) const {
  o_width = _width;
  o_height = _height;
}

void VYRPixelImage::SetXPixelSize(float i_millimetres) {
  if (VYR_CHECK_CONDITION(IsUsablePixelSize(i_millimetres))) _xPixelSize = i_millimetres;
}

void VYRPixelImage::SetYPixelSize(float i_millimetres) {
  if (VYR_CHECK_CONDITION(IsUsablePixelSize(i_millimetres))) _yPixelSize = i_millimetres;
}

unsigned char* VYRPixelImage::GetPixelsToModify() {
  if (!VYR_CHECK_CONDITION(!IsReadOnly())) return nullptr;
  return _pPixels;
}

bool VYRPixelImage::GetColorAtPixel(int i_x, int i_y, unsigned char& o_red, unsigned char& o_green,
                                    unsigned char& o_blue, unsigned char& o_alpha) const {
  unsigned char rgba[4] = {0, 0, 0, 0};
  const bool inside = VYR_CHECK_CONDITION(i_x >= 0 && i_x < _width && i_y >= 0 && i_y < _height) &&
                      VYR_CHECK_POINTER(_pPixels);
  if (inside) {
    const size_t offset = static_cast<size_t>(i_y) * GetRowStride() + static_cast<size_t>(i_x) * GetbytesPerPixel();
    ReadStraightColor(_pPixels + offset, _format, rgba);
  }
  o_red = rgba[0], o_green = rgba[1], o_blue = rgba[2], o_alpha = rgba[3];
  return inside;
}

VYRPixelImage* VYRPixelImage::Duplicate() const {
  if (IsEmpty()) return nullptr;
  auto* copy = new (std::nothrow)
      VYRPixelImage(_width, _height, _format, _pPixels, VYRDeallocatePixels_ImageCopiesPixels);
  if (!VYR_CHECK_POINTER(copy)) return nullptr;
  if (copy->IsEmpty()) {
    copy->Release();
    return nullptr;
  }
  copy->_xPixelSize = _xPixelSize;
  copy->_yPixelSize = _yPixelSize;
  copy->_readOnly = _readOnly;
  return copy;
}

VYRPixelImage* VYRPixelImage::ConvertTo(VYRPixelImageFormat i_format) const {
  if (IsEmpty() || !VYR_CHECK_CONDITION(IsValidFormat(i_format))) return nullptr;
  auto* converted = new (std::nothrow) VYRPixelImage(_width, _height, i_format);
  if (!VYR_CHECK_POINTER(converted)) return nullptr;
  if (converted->IsEmpty()) {
    converted->Release();
    return nullptr;
  }
  converted->_xPixelSize = _xPixelSize;
  converted->_yPixelSize = _yPixelSize;
  kConverters[_format][i_format](_pPixels, converted->_pPixels, static_cast<size_t>(_width) * _height);
  return converted;
}

bool VYRPixelImage::IsValidFormat(int i_format) {
  return i_format >= VYRPixelImageFormat_Grey8 && i_format <= VYRPixelImageFormat_BGRA32Premultiplied;
}

int VYRPixelImage::GetBytesPerPixel(VYRPixelImageFormat i_format) { return BytesPerPixelOf(i_format); }

size_t VYRPixelImage::ComputeByteCount(int i_width, int i_height, VYRPixelImageFormat i_format) {
  const int bytesPerPixel = GetBytesPerPixel(i_format);
  if (i_width <= 0 || i_height <= 0 || bytesPerPixel == 0) return 0;
  // The row stride is an int, so a row must fit one; then the product fits 64 bits.
  if (i_width > INT_MAX / bytesPerPixel) return 0;
  const unsigned long long byteCount =
      static_cast<unsigned long long>(i_width) * bytesPerPixel * static_cast<unsigned long long>(i_height);
  return byteCount <= g_maximumByteCount ? static_cast<size_t>(byteCount) : 0;
}

size_t VYRPixelImage::GetMaximumByteCount() { return g_maximumByteCount; }

void VYRPixelImage::SetMaximumByteCount(size_t i_byteCount) { g_maximumByteCount = i_byteCount; }

unsigned char VYRPixelImage::PremultiplyComponent(unsigned char i_component, unsigned char i_alpha) {
  const unsigned int product = i_component * i_alpha + 128;
  return static_cast<unsigned char>((product + (product >> 8)) >> 8);
}

unsigned char VYRPixelImage::UnpremultiplyComponent(unsigned char i_component, unsigned char i_alpha) {
  if (i_alpha == 0) return 0;
  const unsigned int value = (i_component * 255u + i_alpha / 2u) / i_alpha;
  return static_cast<unsigned char>(value > 255 ? 255 : value);
}

#pragma once

#include <cstddef>

#include "VYRBaseUnknown.h"
#include "VYRExport.h"

// Pixel layouts. The values are written into byte streams and must never be renumbered.
// Every layout has 8 bits per component; "straight" colours are not multiplied by alpha.
enum VYRPixelImageFormat : int {
  VYRPixelImageFormat_Grey8 = 0,                 // 1 byte: grey
  VYRPixelImageFormat_GreyAlpha16 = 1,           // 2 bytes: grey, alpha (straight)
  VYRPixelImageFormat_RGB24 = 2,                 // 3 bytes: red, green, blue
  VYRPixelImageFormat_RGBA32 = 3,                // 4 bytes: red, green, blue, alpha (straight)
  VYRPixelImageFormat_BGRA32Premultiplied = 4,   // 4 bytes: blue, green, red, alpha, colours
                                                 // multiplied by alpha: the drawing surfaces' layout
};

// Who owns the pixels handed to the constructor.
enum VYRDeallocatePixels : int {
  VYRDeallocatePixels_CallerKeepsPixels = 0,   // the image points at them; the caller frees them
                                               // after the image is gone
  VYRDeallocatePixels_ImageDeletesPixels = 1,  // the image takes them over and frees them with delete[]
  VYRDeallocatePixels_ImageCopiesPixels = 2,   // the image keeps its own copy; the caller's block
                                               // may be freed at once
};

// A reference-counted raster image. Rows are tightly packed, top row first:
// the row stride is width x bytes per pixel, with no padding.
// A locked (read-only) image refuses GetPixelsToModify until it is unlocked.
// A size that is not positive, or whose byte count overflows or exceeds
// GetMaximumByteCount(), is refused with a report and gives an empty image.
class VYR_EXPORT VYRPixelImage : public VYRBaseUnknown {
  VYR_DECLARE_CLASS(VYRPixelImage)

 public:
  // An empty image: 0 x 0, RGBA32, no pixels.
  VYRPixelImage();
  // An image of the given size and format with all bytes zero.
  VYRPixelImage(int i_width, int i_height, VYRPixelImageFormat i_format);
  // An image over the caller's pixels (tightly packed rows), owned as i_deallocate says.
  // i_availableByteCount, when not negative, is the size of the caller's block: a block
  // smaller than the image needs is refused (use it whenever the pixels come from outside).
  // With ImageDeletesPixels the image owns the block from this call on, even when it
  // refuses it.
  VYRPixelImage(int i_width, int i_height, VYRPixelImageFormat i_format, unsigned char* i_pPixels,
                VYRDeallocatePixels i_deallocate, long long i_availableByteCount = -1);
  ~VYRPixelImage() override;
  VYRPixelImage(const VYRPixelImage&) = delete;
  VYRPixelImage& operator=(const VYRPixelImage&) = delete;

  bool IsEmpty() const { return _pPixels == nullptr; }
  void GetSize(int& o_width, int& o_height) const;
  int GetWidth() const { return _width; }
  int GetHeight() const { return _height; }
  VYRPixelImageFormat GetFormat() const { return _format; }
  int GetbytesPerPixel() const { return GetBytesPerPixel(_format); }
  int GetRowStride() const { return _width * GetbytesPerPixel(); }
  size_t GetByteCount() const { return static_cast<size_t>(GetRowStride()) * _height; }

  // The physical size of one pixel, in millimetres; 25.4 / 96 (96 dots per inch) by default.
  // Values that are not finite and positive are refused with a report.
  float GetXPixelSize() const { return _xPixelSize; }
  float GetYPixelSize() const { return _yPixelSize; }
  void SetXPixelSize(float i_millimetres);
  void SetYPixelSize(float i_millimetres);

  void LockAsReadOnly() { _readOnly = true; }
  void Unlock() { _readOnly = false; }
  bool IsReadOnly() const { return _readOnly; }

  // Writable pixels; null (reported as "!IsReadOnly()") while the image is locked,
  // and null for an empty image.
  unsigned char* GetPixelsToModify();
  // Read-only pixels, whatever the lock; null for an empty image.
  const unsigned char* GetPixels() const { return _pPixels; }

  // The straight colour of one pixel. Out of range, or for an empty image, reports and
  // gives transparent black (0, 0, 0, 0) and false. Grey gives red = green = blue.
  bool GetColorAtPixel(int i_x, int i_y, unsigned char& o_red, unsigned char& o_green,
                       unsigned char& o_blue, unsigned char& o_alpha) const;

  // A new image (one reference, owned by the caller) with its own copy of the pixels,
  // the same format, pixel sizes and read-only state. Null for an empty image.
  VYRPixelImage* Duplicate() const;
  // A new unlocked image with the pixels converted to another format, with the same
  // pixel sizes: a missing alpha becomes 255, grey is replicated, colours become grey by
  // the ITU-R BT.601 luma weights, and a dropped alpha leaves the straight colour as it
  // is. Null for an empty image or a bad format.
  VYRPixelImage* ConvertTo(VYRPixelImageFormat i_format) const;

  static bool IsValidFormat(int i_format);
  // 0 for an unknown format.
  static int GetBytesPerPixel(VYRPixelImageFormat i_format);
  // The bytes an image of that size and format needs, or 0 when the size is not positive,
  // the format unknown, or the count overflows or exceeds GetMaximumByteCount(). No report.
  static size_t ComputeByteCount(int i_width, int i_height, VYRPixelImageFormat i_format);
  // The largest pixel block an image may hold; 256 MiB by default. Guards every
  // allocation, PNG decoding included, so that a damaged size cannot exhaust memory.
  static size_t GetMaximumByteCount();
  static void SetMaximumByteCount(size_t i_byteCount);

  // Alpha multiplication as the drawing surfaces do it, rounded to nearest:
  // Premultiply(c, a) = round(c * a / 255); Unpremultiply(c, a) = round(c * 255 / a),
  // capped at 255, and 0 when a is 0. Unpremultiply then Premultiply gives back every
  // valid premultiplied value (c <= a).
  static unsigned char PremultiplyComponent(unsigned char i_component, unsigned char i_alpha);
  static unsigned char UnpremultiplyComponent(unsigned char i_component, unsigned char i_alpha);

 private:
  // ComputeByteCount, reporting why a size is refused.
  static size_t CheckedByteCount_(int i_width, int i_height, VYRPixelImageFormat i_format);
  bool Allocate_(int i_width, int i_height, VYRPixelImageFormat i_format);

  int _width = 0;
  int _height = 0;
  VYRPixelImageFormat _format = VYRPixelImageFormat_RGBA32;
  unsigned char* _pPixels = nullptr;
  bool _ownsPixels = false;
  bool _readOnly = false;
  float _xPixelSize;
  float _yPixelSize;
};

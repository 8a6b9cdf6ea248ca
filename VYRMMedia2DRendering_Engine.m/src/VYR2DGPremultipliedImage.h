#pragma once

#include "VYRRasterBitmap.h"

class VYRPixelImage;

// A pixel image in the surfaces' layout (premultiplied B, G, R, A bytes), as a raster bitmap:
// the one place where every image format becomes drawable. An image already in that layout
// is used as it is unless a copy is asked for; any other is converted.
class VYR2DGPremultipliedImage {
 public:
  enum Ownership { eMayShare, eOwnCopy };

  // Reports "i_pImage" for a null image; an empty image gives an invalid result silently.
  VYR2DGPremultipliedImage(const VYRPixelImage* i_pImage, Ownership i_ownership);
  ~VYR2DGPremultipliedImage();
  VYR2DGPremultipliedImage(const VYR2DGPremultipliedImage&) = delete;
  VYR2DGPremultipliedImage& operator=(const VYR2DGPremultipliedImage&) = delete;

  bool IsValid() const { return _pImage != nullptr; }
  const VYRRasterBitmap& Bitmap() const { return _bitmap; }
  // The image holding the pixels, for a shader to keep alive (may be the caller's own).
  VYRPixelImage* PixelOwner() const { return _pImage; }

 private:
  VYRPixelImage* _pImage = nullptr;  // one reference held
  VYRRasterBitmap _bitmap;
};

#include "VYR2DGPremultipliedImage.h"

#include "VYRAssert.h"
#include "VYRPixelImage.h"

VYR2DGPremultipliedImage::VYR2DGPremultipliedImage(const VYRPixelImage* i_pImage, Ownership i_ownership) {
  if (!VYR_CHECK_POINTER(i_pImage) || i_pImage->IsEmpty()) return;
  if (i_pImage->GetFormat() == VYRPixelImageFormat_BGRA32Premultiplied && i_ownership == eMayShare) {
    // Only read through the bitmap; the reference keeps the pixels alive while drawn.
    _pImage = const_cast<VYRPixelImage*>(i_pImage);
    _pImage->AddRef();
  } else {
    _pImage = i_pImage->ConvertTo(VYRPixelImageFormat_BGRA32Premultiplied);
    if (_pImage == nullptr) return;
  }
  if (!_bitmap.setConfig(_pImage->GetWidth(), _pImage->GetHeight())) {
    _pImage->Release();
    _pImage = nullptr;
    return;
  }
  _bitmap.setPixels(const_cast<unsigned char*>(_pImage->GetPixels()));
}

VYR2DGPremultipliedImage::~VYR2DGPremultipliedImage() {
  if (_pImage != nullptr) _pImage->Release();
}

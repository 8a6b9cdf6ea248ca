#include "VYRPrtBitmapImageElt.h"

#include "VYRAssert.h"
#include "VYRI2DGStream.h"
#include "VYRPixelImage.h"
#include "VYRPrtEltFactory.h"
#include "VYRPrtStreamUnstreamHelper.h"

VYR_IMPLEMENT_CLASS(VYRPrtBitmapImageElt, VYRPrtGraphicPrimitiveElt, "Multimedia2DRendering")

VYRPrtBitmapImageElt::VYRPrtBitmapImageElt(const VYRMathPoint2D& i_position, double i_width, double i_height,
                                           double i_orientation, VYRPixelImage* ipImage)
    : _position(i_position), _width(i_width), _height(i_height), _orientation(i_orientation) {
  SetPixelImage(ipImage);
}

VYRPrtBitmapImageElt::VYRPrtBitmapImageElt(const VYRPrtBitmapImageElt& iBitmapElt)
    : VYRPrtGraphicPrimitiveElt(iBitmapElt),
      _position(iBitmapElt._position),
      _width(iBitmapElt._width),
      _height(iBitmapElt._height),
      _orientation(iBitmapElt._orientation) {
  SetPixelImage(iBitmapElt._pPixelImage);
}

VYRPrtBitmapImageElt::~VYRPrtBitmapImageElt() { SetPixelImage(nullptr); }

VYRPrtBitmapImageElt& VYRPrtBitmapImageElt::operator=(const VYRPrtBitmapImageElt& iBitmapElt) {
  if (!VYR_CHECK_CONDITION(this != &iBitmapElt)) return *this;
  VYRPrtGraphicPrimitiveElt::operator=(iBitmapElt);
  _position = iBitmapElt._position;
  _width = iBitmapElt._width;
  _height = iBitmapElt._height;
  _orientation = iBitmapElt._orientation;
  SetPixelImage(iBitmapElt._pPixelImage);
  return *this;
}

void VYRPrtBitmapImageElt::GetParameters(VYRMathPoint2D& o_position, double& o_width, double& o_height,
                                         double& o_orientation, VYRPixelImage*& opImage) const {
  o_position = _position;
  o_width = _width;
  o_height = _height;
  o_orientation = _orientation;
  opImage = _pPixelImage;
}

void VYRPrtBitmapImageElt::SetParameters(const VYRMathPoint2D& i_position, double i_width, double i_height,
                                         double i_orientation, VYRPixelImage* ipImage) {
  _position = i_position;
  _width = i_width;
  _height = i_height;
  _orientation = i_orientation;
  SetPixelImage(ipImage);
}

void VYRPrtBitmapImageElt::GetSize(double& o_width, double& o_height) const {
  o_width = _width;
  o_height = _height;
}

void VYRPrtBitmapImageElt::SetSize(double i_width, double i_height) {
  _width = i_width;
  _height = i_height;
}

void VYRPrtBitmapImageElt::SetPixelImage(VYRPixelImage* ipImage) {
  if (ipImage == _pPixelImage) return;
  if (_pPixelImage) _pPixelImage->Release();
  _pPixelImage = ipImage;
  if (_pPixelImage) _pPixelImage->AddRef();
}

void VYRPrtBitmapImageElt::Reset() {
  VYRPrtGraphicPrimitiveElt::Reset();
  _position = VYRMathPoint2D();
  _width = _height = _orientation = 0.0;
  SetPixelImage(nullptr);
}

void VYRPrtBitmapImageElt::Duplicate(VYRPrtGraphicPrimitiveElt*& opGPElt) {
  auto* pBitmap = VYRPrtEltFactory::Get().CreateElement<VYRPrtBitmapImageElt>();
  opGPElt = pBitmap;
  if (!VYR_CHECK_POINTER(opGPElt)) return;
  *pBitmap = *this;
  if (!_pPixelImage) return;
  VYRPixelImage* pPixels = _pPixelImage->Duplicate();
  pBitmap->SetPixelImage(pPixels);
  if (pPixels) pPixels->Release();
}

StreamType VYRPrtBitmapImageElt::GetStreamType() { return kStreamTypeBitmapImageElt; }

void VYRPrtBitmapImageElt::Stream(VYRI2DGStream* ipStream) {
  if (!ipStream) return;
  VYRPrtGraphicPrimitiveElt::Stream(ipStream);
  VYRPrtStreamUnstreamHelper::SerializeVYRMathPoint2D(_position, ipStream);
  ipStream->StreamValue(_width);
  ipStream->StreamValue(_height);
  ipStream->StreamValue(_orientation);
  VYRPrtStreamUnstreamHelper::SerializeVYRPixelImage(_pPixelImage, ipStream);
}

void VYRPrtBitmapImageElt::Unstream(VYRI2DGStream* ipStream) {
  if (!ipStream) return;
  VYRPrtGraphicPrimitiveElt::Unstream(ipStream);
  VYRPrtStreamUnstreamHelper::CreateVYRMathPoint2DFromStream(_position, ipStream);
  ipStream->UnstreamValue(_width);
  ipStream->UnstreamValue(_height);
  ipStream->UnstreamValue(_orientation);
  // The image read comes with the reference its creation gave it, which becomes ours.
  VYRPixelImage* pImage = VYRPrtStreamUnstreamHelper::CreateVYRPixelImageFromStream(ipStream);
  SetPixelImage(nullptr);
  _pPixelImage = pImage;
}

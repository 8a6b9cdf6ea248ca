#pragma once

#include "VYRExport.h"
#include "VYRMathPoint2D.h"
#include "VYRPrtGraphicPrimitiveElt.h"

class VYRPixelImage;

// One pixel image placed at a position with a size and an orientation. The
// element holds one reference on its image.
class VYR_EXPORT VYRPrtBitmapImageElt : public VYRPrtGraphicPrimitiveElt {
  VYR_DECLARE_CLASS(VYRPrtBitmapImageElt)

 public:
  VYRPrtBitmapImageElt() = default;
  // Takes a reference on the image.
  VYRPrtBitmapImageElt(const VYRMathPoint2D& i_position, double i_width, double i_height, double i_orientation,
                       VYRPixelImage* ipImage);
  VYRPrtBitmapImageElt(const VYRPrtBitmapImageElt& iBitmapElt);
  // Shares the source's image.
  VYRPrtBitmapImageElt& operator=(const VYRPrtBitmapImageElt& iBitmapElt);
  using VYRPrtGraphicPrimitiveElt::operator=;
  ~VYRPrtBitmapImageElt() override;

  void GetParameters(VYRMathPoint2D& o_position, double& o_width, double& o_height, double& o_orientation,
                     VYRPixelImage*& opImage) const;
  void SetParameters(const VYRMathPoint2D& i_position, double i_width, double i_height, double i_orientation,
                     VYRPixelImage* ipImage);
  void GetSize(double& o_width, double& o_height) const;
  void SetSize(double i_width, double i_height);
  double GetOrientation() const { return _orientation; }
  void SetOrientation(double i_orientation) { _orientation = i_orientation; }
  VYRPixelImage* GetPixelImage() const { return _pPixelImage; }
  // Releases the image held and takes a reference on the new one.
  void SetPixelImage(VYRPixelImage* ipImage);

  // Common attributes and placement to their defaults; the image is released.
  void Reset() override;
  // A copy with pixels of its own.
  void Duplicate(VYRPrtGraphicPrimitiveElt*& opGPElt) override;
  StreamType GetStreamType() override;
  // The common record, position, width, height, orientation, then the pixel image.
  void Stream(VYRI2DGStream* ipStream) override;
  void Unstream(VYRI2DGStream* ipStream) override;

 private:
  VYRMathPoint2D _position;
  double _width = 0.0;
  double _height = 0.0;
  double _orientation = 0.0;
  VYRPixelImage* _pPixelImage = nullptr;
};

#pragma once

#include "VYRExport.h"
#include "VYRMathPoint2D.h"
#include "VYRPrtBaseShapeElt.h"

// A rectangle given by two opposite corners, with optional corner radii.
class VYR_EXPORT VYRPrtRectangleElt : public VYRPrtBaseShapeElt {
  VYR_DECLARE_CLASS(VYRPrtRectangleElt)

 public:
  VYRPrtRectangleElt() = default;
  VYRPrtRectangleElt(const VYRMathPoint2D& i_firstPoint, const VYRMathPoint2D& i_secondPoint);
  VYRPrtRectangleElt(const VYRPrtRectangleElt& iRectElt) = default;
  VYRPrtRectangleElt& operator=(const VYRPrtRectangleElt& iRectElt);
  ~VYRPrtRectangleElt() override = default;

  void GetPoints(VYRMathPoint2D& o_firstPoint, VYRMathPoint2D& o_secondPoint) const;
  void SetPoints(const VYRMathPoint2D& i_firstPoint, const VYRMathPoint2D& i_secondPoint);
  // Horizontal, then vertical corner radius.
  void GetRadius(double& o_horzRadius, double& o_vertRadius) const;
  void SetRadius(double i_horzRadius, double i_vertRadius);

  void Reset() override;
  void Duplicate(VYRPrtGraphicPrimitiveElt*& opGPElt) override;
  StreamType GetStreamType() override;
  void Stream(VYRI2DGStream* ipStream) override;
  void Unstream(VYRI2DGStream* ipStream) override;

 private:
  VYRMathPoint2D _firstPoint;
  VYRMathPoint2D _secondPoint;
  double _horzRadius = 0.0;
  double _vertRadius = 0.0;
};

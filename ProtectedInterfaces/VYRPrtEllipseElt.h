#pragma once

#include "VYRExport.h"
#include "VYRMathPoint2D.h"
#include "VYRPrtBaseShapeElt.h"

// An ellipse: centre, horizontal and vertical radii, and the slope of its axes.
class VYR_EXPORT VYRPrtEllipseElt : public VYRPrtBaseShapeElt {
  VYR_DECLARE_CLASS(VYRPrtEllipseElt)

 public:
  VYRPrtEllipseElt() = default;
  VYRPrtEllipseElt(const VYRMathPoint2D& i_center, double i_horzRadius, double i_vertRadius, double i_slope);
  VYRPrtEllipseElt(const VYRPrtEllipseElt& iEllipseElt) = default;
  VYRPrtEllipseElt& operator=(const VYRPrtEllipseElt& iEllipseElt);
  ~VYRPrtEllipseElt() override = default;

  const VYRMathPoint2D& GetCenter() const { return _center; }
  void SetCenter(const VYRMathPoint2D& i_center) { _center = i_center; }
  double GetHorzRadius() const { return _horzRadius; }
  void SetHorzRadius(double i_radius) { _horzRadius = i_radius; }
  double GetVertRadius() const { return _vertRadius; }
  void SetVertRadius(double i_radius) { _vertRadius = i_radius; }
  double GetSlope() const { return _slope; }
  void SetSlope(double i_slope) { _slope = i_slope; }
  void GetParameters(VYRMathPoint2D& o_center, double& o_horzRadius, double& o_vertRadius, double& o_slope) const;
  void SetParameters(const VYRMathPoint2D& i_center, double i_horzRadius, double i_vertRadius, double i_slope);

  void Reset() override;
  void Duplicate(VYRPrtGraphicPrimitiveElt*& opGPElt) override;
  StreamType GetStreamType() override;
  void Stream(VYRI2DGStream* ipStream) override;
  void Unstream(VYRI2DGStream* ipStream) override;

 private:
  VYRMathPoint2D _center;
  double _horzRadius = 0.0;
  double _vertRadius = 0.0;
  double _slope = 0.0;
};

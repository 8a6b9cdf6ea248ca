#pragma once

#include "VYRExport.h"
#include "VYRMathPoint2D.h"
#include "VYRPrtBaseShapeElt.h"

// An arc of an ellipse, bounded by a start angle and a sweep angle. Reset
// zeroes only the arc's own fields: the common, stroke and fill attributes
// and the draw style stay as they were.
class VYR_EXPORT VYRPrtEllipticalArcElt : public VYRPrtBaseShapeElt {
  VYR_DECLARE_CLASS(VYRPrtEllipticalArcElt)

 public:
  VYRPrtEllipticalArcElt() = default;
  VYRPrtEllipticalArcElt(const VYRMathPoint2D& i_center, double i_horzRadius, double i_vertRadius,
                         double i_startAngle, double i_sweepAngle, double i_slope);
  VYRPrtEllipticalArcElt(const VYRPrtEllipticalArcElt& iEllipticalArcElt) = default;
  VYRPrtEllipticalArcElt& operator=(const VYRPrtEllipticalArcElt& iEllipticalArcElt);
  ~VYRPrtEllipticalArcElt() override = default;

  const VYRMathPoint2D& GetCenter() const { return _center; }
  void SetCenter(const VYRMathPoint2D& i_center) { _center = i_center; }
  double GetHorzRadius() const { return _horzRadius; }
  void SetHorzRadius(double i_radius) { _horzRadius = i_radius; }
  double GetVertRadius() const { return _vertRadius; }
  void SetVertRadius(double i_radius) { _vertRadius = i_radius; }
  double GetStartAngle() const { return _startAngle; }
  void SetStartAngle(double i_angle) { _startAngle = i_angle; }
  double GetSweepAngle() const { return _sweepAngle; }
  void SetSweepAngle(double i_angle) { _sweepAngle = i_angle; }
  double GetSlope() const { return _slope; }
  void SetSlope(double i_slope) { _slope = i_slope; }

  void Reset() override;
  void Duplicate(VYRPrtGraphicPrimitiveElt*& opGPElt) override;
  StreamType GetStreamType() override;
  void Stream(VYRI2DGStream* ipStream) override;
  void Unstream(VYRI2DGStream* ipStream) override;

 private:
  void CopyArcFields(const VYRPrtEllipticalArcElt& iEllipticalArcElt);

  VYRMathPoint2D _center;
  double _horzRadius = 0.0;
  double _vertRadius = 0.0;
  double _startAngle = 0.0;
  double _sweepAngle = 0.0;
  double _slope = 0.0;
};

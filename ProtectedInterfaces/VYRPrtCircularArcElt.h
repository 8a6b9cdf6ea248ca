#pragma once

#include "VYRExport.h"
#include "VYRMathPoint2D.h"
#include "VYRPrtBaseShapeElt.h"

// An arc of a circle, bounded by a start and an end angle.
class VYR_EXPORT VYRPrtCircularArcElt : public VYRPrtBaseShapeElt {
  VYR_DECLARE_CLASS(VYRPrtCircularArcElt)

 public:
  VYRPrtCircularArcElt() = default;
  VYRPrtCircularArcElt(const VYRMathPoint2D& i_center, double i_radius, double i_startAngle, double i_endAngle);
  VYRPrtCircularArcElt(const VYRPrtCircularArcElt& iArcElt) = default;
  VYRPrtCircularArcElt& operator=(const VYRPrtCircularArcElt& iArcElt);
  ~VYRPrtCircularArcElt() override = default;

  const VYRMathPoint2D& GetCenter() const { return _center; }
  void SetCenter(const VYRMathPoint2D& i_center) { _center = i_center; }
  double GetRadius() const { return _radius; }
  void SetRadius(double i_radius) { _radius = i_radius; }
  double GetStartAngle() const { return _startAngle; }
  void SetStartAngle(double i_angle) { _startAngle = i_angle; }
  double GetEndAngle() const { return _endAngle; }
  void SetEndAngle(double i_angle) { _endAngle = i_angle; }
  void GetParameters(VYRMathPoint2D& o_center, double& o_radius, double& o_startAngle, double& o_endAngle) const;
  void SetParameters(const VYRMathPoint2D& i_center, double i_radius, double i_startAngle, double i_endAngle);

  void Reset() override;
  void Duplicate(VYRPrtGraphicPrimitiveElt*& opGPElt) override;
  StreamType GetStreamType() override;
  void Stream(VYRI2DGStream* ipStream) override;
  void Unstream(VYRI2DGStream* ipStream) override;

 private:
  VYRMathPoint2D _center;
  double _radius = 0.0;
  double _startAngle = 0.0;
  double _endAngle = 0.0;
};

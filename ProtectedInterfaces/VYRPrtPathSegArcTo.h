#pragma once

#include "MM2DPathTypes.h"
#include "VYRExport.h"
#include "VYRMathPoint2D.h"
#include "VYRPrtPathSeg.h"

// An elliptical arc, kept in both of SVG's forms: the centre form (centre,
// radii, rotation, start and sweep angles) and the end-point form.
class VYR_EXPORT VYRPrtPathSegArcTo : public VYRPrtPathSeg {
 public:
  explicit VYRPrtPathSegArcTo(MM2D::PathCoordMode i_mode = MM2D::PathCoordAbsolute) : VYRPrtPathSeg(i_mode) {}
  VYRPrtPathSegArcTo(const VYRPrtPathSegArcTo&) = default;
  VYRPrtPathSegArcTo& operator=(const VYRPrtPathSegArcTo&) = default;

  VYRPrtPathSeg* Duplicate() const override;
  MM2D::PathSegType GetPathSegType() const override;
  VYRPrtPathSegStreamType GetStreamType() const override;
  const VYRMathPoint2D& GetCenter() const { return _center; }
  void SetCenter(const VYRMathPoint2D& i_center) { _center = i_center; }
  double GetRX() const { return _rx; }
  void SetRX(double i_rx) { _rx = i_rx; }
  double GetRY() const { return _ry; }
  void SetRY(double i_ry) { _ry = i_ry; }
  double GetRotation() const { return _rotation; }
  void SetRotation(double i_rotation) { _rotation = i_rotation; }
  double GetStartAngle() const { return _startAngle; }
  void SetStartAngle(double i_angle) { _startAngle = i_angle; }
  double GetSweepAngle() const { return _sweepAngle; }
  void SetSweepAngle(double i_angle) { _sweepAngle = i_angle; }
  const MM2D::ArcEndPointParameters& GetEndPointParameters() const { return _endPointParameters; }
  void SetEndPointParameters(const MM2D::ArcEndPointParameters& i_parameters) { _endPointParameters = i_parameters; }

  void Stream(VYRI2DGStream* ipStream) override;
  void Unstream(VYRI2DGStream* ipStream) override;

 private:
  VYRMathPoint2D _center;
  double _rx = 0.0;
  double _ry = 0.0;
  double _rotation = 0.0;
  double _startAngle = 0.0;
  double _sweepAngle = 0.0;
  MM2D::ArcEndPointParameters _endPointParameters;
};

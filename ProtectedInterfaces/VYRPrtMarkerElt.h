#pragma once

#include "MM2DPaintTypes.h"
#include "VYRExport.h"
#include "VYRMathPoint2D.h"
#include "VYRPrtNodeTreeElt.h"
#include "VYRPrtViewBoxAttributes.h"

// An SVG marker, drawn at the start, middle or end vertices of the lines,
// paths and point-based elements that refer to it: the reference point
// (refX, refY) placed on the vertex, the viewport size (markerWidth,
// markerHeight, 3 by default) in markerUnits, the orientation (a fixed
// angle in degrees, or "auto" along the path), a viewBox and the content as
// children.
class VYR_EXPORT VYRPrtMarkerElt : public VYRPrtNodeTreeElt {
  VYR_DECLARE_CLASS(VYRPrtMarkerElt)

 public:
  VYRPrtMarkerElt() = default;
  VYRPrtMarkerElt(const VYRPrtMarkerElt& iGPElt) = default;
  VYRPrtMarkerElt& operator=(const VYRPrtMarkerElt& iGPElt);
  using VYRPrtNodeTreeElt::operator=;
  ~VYRPrtMarkerElt() override = default;

  void SetReferencePoint(const VYRMathPoint2D& i_point) { _referencePoint = i_point; }
  const VYRMathPoint2D& GetReferencePoint() const { return _referencePoint; }
  void SetSize(double i_width, double i_height);
  void GetSize(double& o_width, double& o_height) const;
  void SetUnits(MM2D::MarkerUnitType i_units) { _units = i_units; }
  MM2D::MarkerUnitType GetUnits() const { return _units; }
  // A fixed angle in degrees: orientation MarkerOrientAngle.
  void SetOrientationAngle(double i_degrees);
  // Along the path: orientation MarkerOrientAuto (the angle is kept but unused).
  void SetOrientationAuto() { _orientation = MM2D::MarkerOrientAuto; }
  MM2D::MarkerOrientation GetOrientation() const { return _orientation; }
  double GetOrientationAngle() const { return _orientationAngle; }
  void SetViewBoxAttributes(const VYRPrtViewBoxAttributes& i_viewBox) { _viewBox = i_viewBox; }
  const VYRPrtViewBoxAttributes& GetViewBoxAttributes() const { return _viewBox; }

  // Common attributes and own fields to their defaults; the children stay.
  void Reset() override;
  // A copy with duplicated children (see VYRPrtNodeTreeElt::DuplicateTree).
  void Duplicate(VYRPrtGraphicPrimitiveElt*& opGPElt) override;
  StreamType GetStreamType() override;
  // The node tree record, the reference point (two doubles), width, height
  // (doubles), units and orientation (ints), the angle (double), the viewBox attributes.
  void Stream(VYRI2DGStream* ipStream) override;
  void Unstream(VYRI2DGStream* ipStream) override;

 private:
  VYRMathPoint2D _referencePoint;
  double _width = 3.0;
  double _height = 3.0;
  MM2D::MarkerUnitType _units = MM2D::MarkerUnitStrokeWidth;
  MM2D::MarkerOrientation _orientation = MM2D::MarkerOrientAngle;
  double _orientationAngle = 0.0;
  VYRPrtViewBoxAttributes _viewBox;
};

#pragma once

#include "VYRExport.h"
#include "VYRMathPoint2D.h"
#include "VYRPrtBaseGradientElt.h"

// An SVG radialGradient: the end circle of centre (cx, cy) and radius r
// (by default 0.5, 0.5 and 0.5 of the bounding box) and the focus (fx, fy)
// where the gradient starts. Until a focus is given it is the centre.
class VYR_EXPORT VYRPrtRadialGradientElt : public VYRPrtBaseGradientElt {
  VYR_DECLARE_CLASS(VYRPrtRadialGradientElt)

 public:
  VYRPrtRadialGradientElt() = default;
  VYRPrtRadialGradientElt(const VYRPrtRadialGradientElt& iGPElt) = default;
  VYRPrtRadialGradientElt& operator=(const VYRPrtRadialGradientElt& iGPElt);
  using VYRPrtBaseGradientElt::operator=;
  ~VYRPrtRadialGradientElt() override = default;

  void SetCentre(const VYRMathPoint2D& i_centre) { _centre = i_centre; }
  const VYRMathPoint2D& GetCentre() const { return _centre; }
  void SetRadius(double i_radius) { _radius = i_radius; }
  double GetRadius() const { return _radius; }
  void SetFocus(const VYRMathPoint2D& i_focus);
  // Back to a focus that follows the centre.
  void ClearFocus();
  bool HasFocus() const { return _hasFocus; }
  // The given focus, else the centre.
  VYRMathPoint2D GetFocus() const { return _hasFocus ? _focus : _centre; }

  void Reset() override;
  // A copy with duplicated stops.
  void Duplicate(VYRPrtGraphicPrimitiveElt*& opGPElt) override;
  StreamType GetStreamType() override;
  // The base gradient record, the centre (two doubles), the radius (double),
  // the focus as stored (two doubles) and whether it was given (one byte).
  void Stream(VYRI2DGStream* ipStream) override;
  void Unstream(VYRI2DGStream* ipStream) override;

 protected:
  VYRPrintGradient* MakePrintGradient() const override;

 private:
  VYRMathPoint2D _centre{0.5, 0.5};
  double _radius = 0.5;
  VYRMathPoint2D _focus{0.5, 0.5};
  bool _hasFocus = false;
};

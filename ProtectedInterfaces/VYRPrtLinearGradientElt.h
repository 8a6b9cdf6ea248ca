#pragma once

#include "VYRExport.h"
#include "VYRMathPoint2D.h"
#include "VYRPrtBaseGradientElt.h"

// An SVG linearGradient: the gradient vector from (x1, y1) to (x2, y2),
// by default from (0, 0) to (1, 0) of the bounding box.
class VYR_EXPORT VYRPrtLinearGradientElt : public VYRPrtBaseGradientElt {
  VYR_DECLARE_CLASS(VYRPrtLinearGradientElt)

 public:
  VYRPrtLinearGradientElt() = default;
  VYRPrtLinearGradientElt(const VYRPrtLinearGradientElt& iGPElt) = default;
  VYRPrtLinearGradientElt& operator=(const VYRPrtLinearGradientElt& iGPElt);
  using VYRPrtBaseGradientElt::operator=;
  ~VYRPrtLinearGradientElt() override = default;

  void SetStartPoint(const VYRMathPoint2D& i_start) { _start = i_start; }
  const VYRMathPoint2D& GetStartPoint() const { return _start; }
  void SetEndPoint(const VYRMathPoint2D& i_end) { _end = i_end; }
  const VYRMathPoint2D& GetEndPoint() const { return _end; }

  void Reset() override;
  // A copy with duplicated stops.
  void Duplicate(VYRPrtGraphicPrimitiveElt*& opGPElt) override;
  StreamType GetStreamType() override;
  // The base gradient record, then the start and end points (two doubles each).
  void Stream(VYRI2DGStream* ipStream) override;
  void Unstream(VYRI2DGStream* ipStream) override;

 protected:
  VYRPrintGradient* MakePrintGradient() const override;

 private:
  VYRMathPoint2D _start{0.0, 0.0};
  VYRMathPoint2D _end{1.0, 0.0};
};

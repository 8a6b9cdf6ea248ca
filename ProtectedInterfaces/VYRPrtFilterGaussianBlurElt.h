#pragma once

#include "VYRExport.h"
#include "VYRPrtFilterBaseElt.h"

// An SVG feGaussianBlur: the standard deviations along x and y (stdDeviation;
// a single value gives both). A deviation of 0 or less disables the effect.
class VYR_EXPORT VYRPrtFilterGaussianBlurElt : public VYRPrtFilterBaseElt {
  VYR_DECLARE_CLASS(VYRPrtFilterGaussianBlurElt)

 public:
  VYRPrtFilterGaussianBlurElt() = default;
  VYRPrtFilterGaussianBlurElt(const VYRPrtFilterGaussianBlurElt& iGPElt) = default;
  VYRPrtFilterGaussianBlurElt& operator=(const VYRPrtFilterGaussianBlurElt& iGPElt);
  using VYRPrtFilterBaseElt::operator=;
  ~VYRPrtFilterGaussianBlurElt() override = default;

  void SetStdDeviation(double i_x, double i_y);
  double GetStdDeviationX() const { return _stdDeviationX; }
  double GetStdDeviationY() const { return _stdDeviationY; }

  // Common attributes and own fields to their defaults; the children stay.
  void Reset() override;
  StreamType GetStreamType() override;
  // The filter primitive record, then the x and y deviations (doubles).
  void Stream(VYRI2DGStream* ipStream) override;
  void Unstream(VYRI2DGStream* ipStream) override;

 private:
  double _stdDeviationX = 0.0;
  double _stdDeviationY = 0.0;
};

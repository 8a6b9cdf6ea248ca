#pragma once

#include "VYRExport.h"
#include "VYRPrtFilterBaseElt.h"

// An SVG feOffset: its input moved by dx, dy.
class VYR_EXPORT VYRPrtFilterOffsetElt : public VYRPrtFilterBaseElt {
  VYR_DECLARE_CLASS(VYRPrtFilterOffsetElt)

 public:
  VYRPrtFilterOffsetElt() = default;
  VYRPrtFilterOffsetElt(const VYRPrtFilterOffsetElt& iGPElt) = default;
  VYRPrtFilterOffsetElt& operator=(const VYRPrtFilterOffsetElt& iGPElt);
  using VYRPrtFilterBaseElt::operator=;
  ~VYRPrtFilterOffsetElt() override = default;

  void SetOffset(double i_dx, double i_dy);
  double GetDx() const { return _dx; }
  double GetDy() const { return _dy; }

  // Common attributes and own fields to their defaults; the children stay.
  void Reset() override;
  StreamType GetStreamType() override;
  // The filter primitive record, then dx and dy (doubles).
  void Stream(VYRI2DGStream* ipStream) override;
  void Unstream(VYRI2DGStream* ipStream) override;

 private:
  double _dx = 0.0;
  double _dy = 0.0;
};

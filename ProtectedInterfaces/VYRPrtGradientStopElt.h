#pragma once

#include "VYRExport.h"
#include "VYRPrtGraphicPrimitiveElt.h"

// One stop of a gradient element: where along the gradient (SVG offset, a
// fraction; percentages are divided by 100 on reading), which colour and
// how opaque (stop-opacity, 0..1). The colour is plain RGB: currentColor
// and inherited colours are resolved by whoever reads the document.
class VYR_EXPORT VYRPrtGradientStopElt : public VYRPrtGraphicPrimitiveElt {
  VYR_DECLARE_CLASS(VYRPrtGradientStopElt)

 public:
  VYRPrtGradientStopElt() = default;
  VYRPrtGradientStopElt(const VYRPrtGradientStopElt& iGPElt) = default;
  VYRPrtGradientStopElt& operator=(const VYRPrtGradientStopElt& iGPElt);
  using VYRPrtGraphicPrimitiveElt::operator=;
  ~VYRPrtGradientStopElt() override = default;

  void SetOffset(double i_offset) { _offset = i_offset; }
  double GetOffset() const { return _offset; }
  void SetColor(unsigned char i_red, unsigned char i_green, unsigned char i_blue);
  void GetColor(unsigned char& o_red, unsigned char& o_green, unsigned char& o_blue) const;
  void SetStopOpacity(double i_opacity) { _stopOpacity = i_opacity; }
  double GetStopOpacity() const { return _stopOpacity; }

  void Reset() override;
  void Duplicate(VYRPrtGraphicPrimitiveElt*& opGPElt) override;
  StreamType GetStreamType() override;
  // The common record, then offset (double), red, green, blue (bytes), stop opacity (double).
  void Stream(VYRI2DGStream* ipStream) override;
  void Unstream(VYRI2DGStream* ipStream) override;

 private:
  double _offset = 0.0;
  unsigned char _red = 0;
  unsigned char _green = 0;
  unsigned char _blue = 0;
  double _stopOpacity = 1.0;
};

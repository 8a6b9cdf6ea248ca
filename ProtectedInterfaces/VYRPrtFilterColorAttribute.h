#pragma once

#include "MM2DPaintTypes.h"
#include "VYRExport.h"

class VYRI2DGStream;

// The colour properties a filter primitive may carry: flood-color and
// flood-opacity (black, fully opaque by default), lighting-color (white) and
// color-interpolation-filters (linearRGB). Colours are plain RGB: currentColor
// and inherited values are resolved by whoever reads the document.
class VYR_EXPORT VYRPrtFilterColorAttribute {
 public:
  VYRPrtFilterColorAttribute() = default;
  VYRPrtFilterColorAttribute(const VYRPrtFilterColorAttribute&) = default;
  VYRPrtFilterColorAttribute& operator=(const VYRPrtFilterColorAttribute&) = default;
  virtual ~VYRPrtFilterColorAttribute() = default;

  void SetFloodColor(unsigned char i_red, unsigned char i_green, unsigned char i_blue);
  void GetFloodColor(unsigned char& o_red, unsigned char& o_green, unsigned char& o_blue) const;
  void SetFloodOpacity(double i_opacity) { _floodOpacity = i_opacity; }
  double GetFloodOpacity() const { return _floodOpacity; }
  void SetLightingColor(unsigned char i_red, unsigned char i_green, unsigned char i_blue);
  void GetLightingColor(unsigned char& o_red, unsigned char& o_green, unsigned char& o_blue) const;
  void SetColorInterpolation(MM2D::ColorInterpolation i_space) { _colorInterpolation = i_space; }
  MM2D::ColorInterpolation GetColorInterpolation() const { return _colorInterpolation; }

  bool operator==(const VYRPrtFilterColorAttribute& i_other) const;
  bool operator!=(const VYRPrtFilterColorAttribute& i_other) const { return !(*this == i_other); }

  // Tag 6 (int), flood red, green, blue (bytes), flood opacity (double),
  // lighting red, green, blue (bytes), colour interpolation (int).
  virtual void Stream(VYRI2DGStream* ipStream) const;
  // Reads what follows the tag: whoever creates the attribute has read it.
  virtual void Unstream(VYRI2DGStream* ipStream);

  static constexpr int kStreamTag = 6;

 private:
  unsigned char _floodRed = 0;
  unsigned char _floodGreen = 0;
  unsigned char _floodBlue = 0;
  double _floodOpacity = 1.0;
  unsigned char _lightingRed = 255;
  unsigned char _lightingGreen = 255;
  unsigned char _lightingBlue = 255;
  MM2D::ColorInterpolation _colorInterpolation = MM2D::ColorInterpolationLinearRGB;
};

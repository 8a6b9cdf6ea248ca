#pragma once

#include "VYRExport.h"

// One colour stop of a renderer-side gradient: an offset along the gradient
// and a colour, every value in 0..1.
class VYR_EXPORT VYRPrintGradientStop {
 public:
  VYRPrintGradientStop() = default;
  VYRPrintGradientStop(float i_offset, float i_red, float i_green, float i_blue, float i_alpha = 1.0f)
      : _offset(i_offset), _red(i_red), _green(i_green), _blue(i_blue), _alpha(i_alpha) {}
  VYRPrintGradientStop(const VYRPrintGradientStop&) = default;
  VYRPrintGradientStop& operator=(const VYRPrintGradientStop&) = default;
  virtual ~VYRPrintGradientStop() = default;

  bool operator==(const VYRPrintGradientStop& i_other) const;
  bool operator!=(const VYRPrintGradientStop& i_other) const { return !(*this == i_other); }

  float GetOffset() const { return _offset; }
  float GetRed() const { return _red; }
  float GetGreen() const { return _green; }
  float GetBlue() const { return _blue; }
  float GetAlpha() const { return _alpha; }
  void SetOffset(float i_offset) { _offset = i_offset; }
  void SetRed(float i_red) { _red = i_red; }
  void SetGreen(float i_green) { _green = i_green; }
  void SetBlue(float i_blue) { _blue = i_blue; }
  void SetAlpha(float i_alpha) { _alpha = i_alpha; }

 private:
  // In this order in byte streams.
  float _offset = 0.0f;
  float _red = 0.0f;
  float _green = 0.0f;
  float _blue = 0.0f;
  float _alpha = 1.0f;
};

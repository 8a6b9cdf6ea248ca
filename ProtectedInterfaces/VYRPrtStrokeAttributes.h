#pragma once

#include "MM2DAttributeTypes.h"
#include "VYR2DGDrawingEnums.h"
#include "VYRExport.h"

class VYRI2DGStream;
class VYRPrintGradient;

// How a stroke is painted; values beyond the default come from the SVG value parser.
enum VYRPrtStrokeMode : int {
  VYRPrtStrokeModeDefault = 0,
};

// How an outline is drawn: colour index and opacity, width, dash pattern,
// style, cap, join, mode and an optional gradient (reference-counted).
class VYR_EXPORT VYRPrtStrokeAttributes {
 public:
  VYRPrtStrokeAttributes() = default;
  // Copy the dash pattern deeply and clone the gradient.
  VYRPrtStrokeAttributes(const VYRPrtStrokeAttributes& iStroke);
  VYRPrtStrokeAttributes& operator=(const VYRPrtStrokeAttributes& iStroke);
  ~VYRPrtStrokeAttributes();

  void SetStrokeColorIndex(unsigned int i_index) { _strokeColourIndex = i_index; }
  unsigned int GetStrokeColorIndex() const { return _strokeColourIndex; }
  void GetStrokeColourIndex(unsigned int& o_index) const { o_index = _strokeColourIndex; }
  void SetStrokeOpacity(unsigned char i_opacity) { _strokeOpacity = i_opacity; }
  unsigned char GetStrokeOpacity() const { return _strokeOpacity; }
  void GetStrokeColourTransparency(unsigned char& o_opacity) const { o_opacity = _strokeOpacity; }
  void SetStrokeWidth(double i_width) { _strokeWidth = i_width; }
  double GetStrokeWidth() const { return _strokeWidth; }
  void SetStrokeStyle(VYRPrintLineAttribute i_style) { _strokeStyle = i_style; }
  VYRPrintLineAttribute GetStrokeStyle() const { return _strokeStyle; }
  void SetStrokeCap(VYRPrintLineAttribute i_cap) { _strokeCap = i_cap; }
  VYRPrintLineAttribute GetStrokeCap() const { return _strokeCap; }
  void GetStrokeCap(VYRPrintLineAttribute& o_cap) const { o_cap = _strokeCap; }
  void SetStrokeJoin(VYRPrintLineAttribute i_join) { _strokeJoin = i_join; }
  VYRPrintLineAttribute GetStrokeJoin() const { return _strokeJoin; }
  void GetStrokeJoin(VYRPrintLineAttribute& o_join) const { o_join = _strokeJoin; }
  void SetStrokeMode(VYRPrtStrokeMode i_mode) { _strokeMode = i_mode; }
  VYRPrtStrokeMode GetStrokeMode() const { return _strokeMode; }
  void GetStrokeMode(VYRPrtStrokeMode& o_mode) const { o_mode = _strokeMode; }

  // An odd list is stored twice over, as SVG repeats it; the doubled count
  // is kept in 8 bits, so it wraps above 255 (129 values store 2).
  void SetStrokeTypePattern(const float* i_pattern, unsigned char i_count);
  // Hands out the held array itself.
  void GetStrokeTypePattern(float*& o_pattern, unsigned char& o_count) const;

  void SetGradientType(MM2D::GradientType i_type);
  MM2D::GradientType GetGradientType() const { return _gradientType; }
  VYRPrintGradient* GetGradient() const { return _pGradient; }

  // Dash patterns compare by content, gradients by identity.
  int operator==(const VYRPrtStrokeAttributes& iStroke) const;

  void Stream(VYRI2DGStream* ipStream);
  void Unstream(VYRI2DGStream* ipStream);

 private:
  void CopyFrom(const VYRPrtStrokeAttributes& iStroke);
  void StoreDashes(const float* i_pattern, unsigned char i_count, unsigned char i_storedCount);

  unsigned int _strokeColourIndex = 0;
  unsigned char _strokeOpacity = 255;
  unsigned int _thirdValue = 0;  // carried through streams, no accessor
  float* _strokeTypePattern = nullptr;
  unsigned char _strokeTypePatternCount = 0;
  double _strokeWidth = 1.0;
  VYRPrintLineAttribute _strokeStyle = eLineStyleSolid;
  VYRPrintLineAttribute _strokeCap = eLineCapButt;
  VYRPrintLineAttribute _strokeJoin = eLineJoinMiter;
  VYRPrtStrokeMode _strokeMode = VYRPrtStrokeModeDefault;
  VYRPrintGradient* _pGradient = nullptr;
  MM2D::GradientType _gradientType = MM2D::GradientNone;
};

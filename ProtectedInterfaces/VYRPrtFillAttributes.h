#pragma once

#include "MM2DAttributeTypes.h"
#include "VYRExport.h"
#include "VYRMathPoint2D.h"
#include "VYRMathVector2D.h"

class VYRI2DGStream;
class VYRPixelImage;
class VYRPrintGradient;

// Kind of fill; values beyond the default come from the SVG value parser.
enum VYRPrtFillStyle : int {
  VYRPrtFillStyleDefault = 0,
};

// SVG fill rule.
enum VYRPrtFillRule : int {
  VYRPrtFillRuleEvenOdd = 0,
  VYRPrtFillRuleNonZero = 1,
};

// How an area is filled: colour index and opacity, fill rule, a pattern tile
// image or a gradient. The image and the gradient are reference-counted.
class VYR_EXPORT VYRPrtFillAttributes {
 public:
  VYRPrtFillAttributes() = default;
  // Shares the pattern image and the gradient.
  VYRPrtFillAttributes(const VYRPrtFillAttributes& iFill);
  // Shares the pattern image; holds a clone of the other's gradient.
  VYRPrtFillAttributes& operator=(const VYRPrtFillAttributes& iFill);
  ~VYRPrtFillAttributes();

  void SetFillColorIndex(unsigned int i_index) { _fillColourIndex = i_index; }
  void GetFillColourIndex(unsigned int& o_index) const { o_index = _fillColourIndex; }
  void SetFillOpacity(unsigned char i_opacity) { _fillOpacity = i_opacity; }
  unsigned char GetFillOpacity() const { return _fillOpacity; }
  void GetFillColourTransparency(unsigned char& o_opacity) const { o_opacity = _fillOpacity; }
  void SetFillRule(const VYRPrtFillRule& i_rule) { _fillRule = i_rule; }
  VYRPrtFillRule GetFillRule() const { return _fillRule; }
  void GetFillRule(VYRPrtFillRule& o_rule) const { o_rule = _fillRule; }
  void SetFillStyle(const VYRPrtFillStyle& i_style) { _fillStyle = i_style; }
  VYRPrtFillStyle GetFillStyle() const { return _fillStyle; }

  // Replaces the gradient by a new default one of the kind (none for 0 or another value).
  void SetGradientType(MM2D::GradientType i_type);
  MM2D::GradientType GetGradientType() const { return _gradientType; }
  VYRPrintGradient* GetGradient() const { return _pGradient; }

  // Holds a reference to the image.
  void SetPattern(VYRPixelImage* ipImage, const VYRMathVector2D& i_vector1, const VYRMathVector2D& i_vector2);
  void GetPattern(VYRPixelImage*& opImage, VYRMathVector2D& o_vector1, VYRMathVector2D& o_vector2) const;
  void SetPatternRefPoint(const VYRMathPoint2D& i_point) { _patternRefPoint = i_point; }
  void GetPatternRefPoint(VYRMathPoint2D& o_point) const { o_point = _patternRefPoint; }

  // Image and gradient compare by identity.
  int operator==(const VYRPrtFillAttributes& iFill) const;
  // Copies into the target so that it shares nothing with this object.
  void Duplicate(VYRPrtFillAttributes& oFill) const;

  void Stream(VYRI2DGStream* ipStream);
  void Unstream(VYRI2DGStream* ipStream);

 private:
  VYRPrtFillStyle _fillStyle = VYRPrtFillStyleDefault;
  VYRPrtFillRule _fillRule = VYRPrtFillRuleNonZero;
  unsigned int _fillColourIndex = 0;
  unsigned char _fillOpacity = 255;
  VYRPixelImage* _pPatternImage = nullptr;
  VYRMathVector2D _patternVector1;
  VYRMathVector2D _patternVector2;
  VYRMathPoint2D _patternRefPoint;
  VYRPrintGradient* _pGradient = nullptr;
  MM2D::GradientType _gradientType = MM2D::GradientNone;
};

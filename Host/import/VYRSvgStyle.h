#pragma once

#include <map>
#include <string>
#include <vector>

#include "VYR2DGDrawingEnums.h"
#include "VYRPrtFillAttributes.h"
#include "VYRPrtTextAttributes.h"
#include "VYRSvgStyleSheet.h"
#include "VYRSvgValues.h"

class VYRIDOMElement_var;

// The SVG properties of one element after the cascade: its presentation
// attributes and style attribute over what it inherits from its parent.
struct VYRSvgStyle {
  // Inherited properties.
  VYRSvgPaint fill = BlackPaint();
  double fillOpacity = 1.0;
  VYRPrtFillRule fillRule = VYRPrtFillRuleNonZero;
  VYRSvgPaint stroke;
  double strokeOpacity = 1.0;
  double strokeWidth = 1.0;
  VYRPrintLineAttribute lineCap = eLineCapButt;
  VYRPrintLineAttribute lineJoin = eLineJoinMiter;
  std::vector<double> dashes;
  double dashOffset = 0.0;
  VYRSvgColor color;
  VYRPrtFillRule clipRule = VYRPrtFillRuleNonZero;
  bool visible = true;
  VYRPrtTextAttributes text;
  std::string markerStart;
  std::string markerMid;
  std::string markerEnd;

  // Properties that are not inherited.
  bool displayed = true;
  double opacity = 1.0;
  std::string clipPathID;
  std::string maskID;
  std::string filterID;
  VYRSvgColor stopColor;
  double stopOpacity = 1.0;
  VYRSvgColor floodColor;
  double floodOpacity = 1.0;
  // The parent's stop and flood colours and opacities, which "inherit"
  // takes although they are not inherited otherwise.
  VYRSvgColor parentStopColor;
  double parentStopOpacity = 1.0;
  VYRSvgColor parentFloodColor;
  double parentFloodOpacity = 1.0;

  static VYRSvgPaint BlackPaint() {
    VYRSvgPaint paint;
    paint.kind = VYRSvgPaint::eColor;
    return paint;
  }

  // The style of a child of an element with this style: the inherited
  // properties kept, the others back to their initial values.
  VYRSvgStyle Inherited() const;

  // Applies the element's presentation attributes, then what the style
  // sheet's rules give it, then its style attribute, then the rules'
  // important declarations. Lengths use i_lengths, whose font size is this
  // style's own once font-size is read. Values that do not parse are
  // skipped and named in io_messages.
  void Apply(const VYRIDOMElement_var& i_element, const VYRSvgStyleSheet& i_sheet, VYRSvgLengthContext& io_lengths,
             std::vector<std::string>& io_messages);

  // One property by name; false when the value does not parse.
  bool ApplyProperty(const std::string& i_name, const std::string& i_value, const VYRSvgLengthContext& i_lengths);
};

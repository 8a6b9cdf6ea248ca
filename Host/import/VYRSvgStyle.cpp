#include "VYRSvgStyle.h"

#include <cmath>

#include "VYRXMLDOM.h"

namespace {

// Every property that is also a presentation attribute, in the order they are
// read. The marker shorthand is not one: it is taken from style sheets and
// style attributes only.
const char* const kPropertyNames[] = {
    "color", "font-size", "font-family", "font-weight", "font-style", "text-anchor", "fill", "fill-opacity",
    "fill-rule", "stroke", "stroke-opacity", "stroke-width", "stroke-linecap", "stroke-linejoin",
    "stroke-dasharray", "stroke-dashoffset", "clip-rule", "visibility", "display", "opacity", "clip-path", "mask", "filter",
    "stop-color", "stop-opacity", "flood-color", "flood-opacity", "marker-start", "marker-mid", "marker-end"};

// A number clamped to 0..1, as opacities are.
bool ParseOpacity(const std::string& i_text, double& o_value) {
  double value = 0.0;
  if (!VYRSvgValues::ParseNumberOrPercentage(i_text, value)) return false;
  o_value = value < 0.0 ? 0.0 : (value > 1.0 ? 1.0 : value);
  return true;
}

bool ParseFillRule(const std::string& i_text, VYRPrtFillRule& o_rule) {
  if (i_text == "nonzero") {
    o_rule = VYRPrtFillRuleNonZero;
  } else if (i_text == "evenodd") {
    o_rule = VYRPrtFillRuleEvenOdd;
  } else {
    return false;
  }
  return true;
}

// A reference property: none or url(#id).
bool ParseReferenceProperty(const std::string& i_text, std::string& o_id) {
  if (i_text == "none") {
    o_id.clear();
    return true;
  }
  return VYRSvgValues::ParseReference(i_text, o_id);
}

bool ParseColorProperty(const std::string& i_text, const VYRSvgColor& i_current, VYRSvgColor& o_color) {
  if (i_text == "currentColor") {
    o_color = i_current;
    return true;
  }
  return VYRSvgValues::ParseColor(i_text, o_color);
}

bool ParseDashes(const std::string& i_text, const VYRSvgLengthContext& i_lengths, std::vector<double>& o_dashes) {
  std::vector<double> dashes;
  if (i_text != "none") {
    std::string item;
    const std::string text = i_text + ",";
    for (char c : text) {
      if (c != ',' && c != ' ' && c != '\t' && c != '\n' && c != '\r') {
        item += c;
        continue;
      }
      if (item.empty()) continue;
      double length = 0.0;
      if (!VYRSvgValues::ParseLength(item, i_lengths, VYRSvgLengthAxis::eOther, length) || length < 0.0) return false;
      dashes.push_back(length);
      item.clear();
    }
    // A list of zeros draws a solid line.
    double total = 0.0;
    for (double d : dashes) total += d;
    if (total <= 0.0) dashes.clear();
  }
  o_dashes = dashes;
  return true;
}

}  // namespace

VYRSvgStyle VYRSvgStyle::Inherited() const {
  VYRSvgStyle child = *this;
  const VYRSvgStyle initial;
  child.displayed = initial.displayed;
  child.opacity = initial.opacity;
  child.clipPathID.clear();
  child.maskID.clear();
  child.filterID.clear();
  child.parentStopColor = stopColor;
  child.parentStopOpacity = stopOpacity;
  child.parentFloodColor = floodColor;
  child.parentFloodOpacity = floodOpacity;
  child.stopColor = initial.stopColor;
  child.stopOpacity = initial.stopOpacity;
  child.floodColor = initial.floodColor;
  child.floodOpacity = initial.floodOpacity;
  return child;
}

bool VYRSvgStyle::ApplyProperty(const std::string& i_name, const std::string& i_value,
                                const VYRSvgLengthContext& i_lengths) {
  const std::string value = VYRSvgValues::Trim(i_value);
  const std::string& n = i_name;
  // "inherit" keeps the inherited value, which the style already holds for
  // inherited properties; of the others, the stop and flood ones take their
  // parent's value, and the rest, which this cascade does not keep, stay
  // initial.
  if (value == "inherit") {
    if (n == "stop-color") stopColor = parentStopColor;
    if (n == "stop-opacity") stopOpacity = parentStopOpacity;
    if (n == "flood-color") floodColor = parentFloodColor;
    if (n == "flood-opacity") floodOpacity = parentFloodOpacity;
    return true;
  }
  if (n == "color") return ParseColorProperty(value, color, color);
  if (n == "fill") return VYRSvgValues::ParsePaint(value, fill);
  if (n == "stroke") return VYRSvgValues::ParsePaint(value, stroke);
  if (n == "fill-opacity") return ParseOpacity(value, fillOpacity);
  if (n == "stroke-opacity") return ParseOpacity(value, strokeOpacity);
  if (n == "opacity") return ParseOpacity(value, opacity);
  if (n == "stop-opacity") return ParseOpacity(value, stopOpacity);
  if (n == "flood-opacity") return ParseOpacity(value, floodOpacity);
  if (n == "fill-rule") return ParseFillRule(value, fillRule);
  if (n == "clip-rule") return ParseFillRule(value, clipRule);
  if (n == "stop-color") return ParseColorProperty(value, color, stopColor);
  if (n == "flood-color") return ParseColorProperty(value, color, floodColor);
  if (n == "clip-path") return ParseReferenceProperty(value, clipPathID);
  if (n == "mask") return ParseReferenceProperty(value, maskID);
  if (n == "filter") return ParseReferenceProperty(value, filterID);
  if (n == "marker-start") return ParseReferenceProperty(value, markerStart);
  if (n == "marker-mid") return ParseReferenceProperty(value, markerMid);
  if (n == "marker-end") return ParseReferenceProperty(value, markerEnd);
  if (n == "marker") {
    if (!ParseReferenceProperty(value, markerStart)) return false;
    markerMid = markerEnd = markerStart;
    return true;
  }
  if (n == "stroke-width") {
    double width = 0.0;
    if (!VYRSvgValues::ParseLength(value, i_lengths, VYRSvgLengthAxis::eOther, width) || width < 0.0) return false;
    strokeWidth = width;
    return true;
  }
  if (n == "stroke-dasharray") return ParseDashes(value, i_lengths, dashes);
  if (n == "stroke-dashoffset") {
    return VYRSvgValues::ParseLength(value, i_lengths, VYRSvgLengthAxis::eOther, dashOffset) &&
           std::isfinite(dashOffset);
  }
  if (n == "stroke-linecap") {
    if (value == "butt") lineCap = eLineCapButt;
    else if (value == "round") lineCap = eLineCapRound;
    else if (value == "square") lineCap = eLineCapSquare;
    else return false;
    return true;
  }
  if (n == "stroke-linejoin") {
    if (value == "miter") lineJoin = eLineJoinMiter;
    else if (value == "round") lineJoin = eLineJoinRound;
    else if (value == "bevel") lineJoin = eLineJoinBevel;
    else return false;
    return true;
  }
  if (n == "visibility") {
    if (value != "visible" && value != "hidden" && value != "collapse") return false;
    visible = value == "visible";
    return true;
  }
  if (n == "display") {
    displayed = value != "none";
    return true;
  }
  if (n == "font-family") {
    std::string family = value.substr(0, value.find(','));
    family = VYRSvgValues::Trim(family);
    if (family.size() >= 2 && (family[0] == '\'' || family[0] == '"')) family = family.substr(1, family.size() - 2);
    text.SetFontFamily(VYRUnicodeString(family));
    return true;
  }
  if (n == "font-size") {
    double size = 0.0;
    if (!VYRSvgValues::ParseLength(value, i_lengths, VYRSvgLengthAxis::eOther, size) || size < 0.0) return false;
    text.SetHeight(size);
    return true;
  }
  if (n == "font-weight") {
    if (value == "normal") text.SetWeight(VYRPrtTextAttributes::kNormalWeight);
    else if (value == "bold" || value == "bolder") text.SetWeight(VYRPrtTextAttributes::kBoldWeight);
    else if (value == "lighter") text.SetWeight(300);
    else {
      double weight = 0.0;
      if (!VYRSvgValues::ParseNumberOrPercentage(value, weight) || weight < 1.0 || weight > 1000.0) return false;
      text.SetWeight(static_cast<int>(weight));
    }
    return true;
  }
  if (n == "font-style") {
    if (value == "normal") text.SetStyle(MM2D::FontStyleNormal);
    else if (value == "italic") text.SetStyle(MM2D::FontStyleItalic);
    else if (value == "oblique") text.SetStyle(MM2D::FontStyleOblique);
    else return false;
    return true;
  }
  if (n == "text-anchor") {
    if (value == "start") text.SetAnchor(MM2D::TextAnchorStart);
    else if (value == "middle") text.SetAnchor(MM2D::TextAnchorMiddle);
    else if (value == "end") text.SetAnchor(MM2D::TextAnchorEnd);
    else return false;
    return true;
  }
  return true;  // properties the importer does not use
}

void VYRSvgStyle::Apply(const VYRIDOMElement_var& i_element, const VYRSvgStyleSheet& i_sheet,
                        VYRSvgLengthContext& io_lengths, std::vector<std::string>& io_messages) {
  std::vector<std::pair<std::string, std::string>> declarations;
  for (const char* pName : kPropertyNames) {
    VYRUnicodeString value;
    if (VYRSucceeded(i_element.GetAttribute(pName, value))) declarations.emplace_back(pName, value.GetStdString());
  }
  const VYRSvgStyleSheet::Cascade* pRules = i_sheet.Find(i_element);
  if (pRules) {
    for (const VYRSvgDeclaration& rule : pRules->normal) declarations.emplace_back(rule.name, rule.value);
  }
  VYRUnicodeString styleText;
  if (VYRSucceeded(i_element.GetAttribute("style", styleText))) {
    for (const VYRSvgDeclaration& declaration : VYRSvgParseDeclarations(styleText.GetStdString())) {
      declarations.emplace_back(declaration.name, declaration.value);
    }
  }
  if (pRules) {
    for (const VYRSvgDeclaration& rule : pRules->important) declarations.emplace_back(rule.name, rule.value);
  }
  // The font size first: em lengths of the same element depend on it.
  for (const auto& declaration : declarations) {
    if (declaration.first != "font-size") continue;
    if (!ApplyProperty(declaration.first, declaration.second, io_lengths)) {
      io_messages.push_back("ignored font-size \"" + declaration.second + "\"");
    }
  }
  io_lengths.fontSize = text.GetHeight();
  for (const auto& declaration : declarations) {
    if (declaration.first == "font-size") continue;
    if (!ApplyProperty(declaration.first, declaration.second, io_lengths)) {
      io_messages.push_back("ignored " + declaration.first + " \"" + declaration.second + "\"");
    }
  }
}

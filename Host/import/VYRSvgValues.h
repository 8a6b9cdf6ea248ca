#pragma once

#include <string>

#include "VYRPrtTransformAttributes.h"
#include "VYRPrtViewBoxAttributes.h"
#include "VYRUnicodeString.h"

// An 8-bit RGB colour.
struct VYRSvgColor {
  unsigned char red = 0;
  unsigned char green = 0;
  unsigned char blue = 0;
  bool operator==(const VYRSvgColor& i_other) const {
    return red == i_other.red && green == i_other.green && blue == i_other.blue;
  }
};

// A fill or stroke value: none, a colour, the current colour or a paint
// server named by url(#id) with an optional fallback.
struct VYRSvgPaint {
  enum Kind { eNone, eColor, eCurrentColor, eServer };
  Kind kind = eNone;
  VYRSvgColor color;
  std::string serverID;
  // The paint used when the server cannot be found.
  Kind fallbackKind = eNone;
  VYRSvgColor fallbackColor;
};

// What percentages of a length refer to.
enum class VYRSvgLengthAxis { eX, eY, eOther };

// The sizes relative lengths resolve against.
struct VYRSvgLengthContext {
  double viewportWidth = 100.0;
  double viewportHeight = 100.0;
  double fontSize = 16.0;
};

// Parsers of the SVG attribute values the importer reads beyond the
// library's number and point parsers. Each returns false, leaving its output
// untouched, for text it does not accept.
namespace VYRSvgValues {

// Leading and trailing SVG spaces removed.
std::string Trim(const std::string& i_text);

// #rgb, #rrggbb, rgb(r, g, b) with numbers or percentages, and the SVG colour keywords.
bool ParseColor(const std::string& i_text, VYRSvgColor& o_color);
// none, currentColor, a colour or url(#id) [fallback].
bool ParsePaint(const std::string& i_text, VYRSvgPaint& o_paint);
// The identifier of url(#id), or of a plain #id reference (xlink:href).
bool ParseReference(const std::string& i_text, std::string& o_id);

// A number with an optional unit (px, pt, pc, mm, cm, in, em, ex, %),
// in user units. Percentages take the axis's viewport size.
bool ParseLength(const std::string& i_text, const VYRSvgLengthContext& i_context, VYRSvgLengthAxis i_axis,
                 double& o_value);
// A number, or a percentage given as a fraction (50% is 0.5).
bool ParseNumberOrPercentage(const std::string& i_text, double& o_value);

// An SVG transform list: matrix, translate, scale, rotate (with an optional
// centre) and skewX/skewY, appended to o_transform. Angles become radians.
bool ParseTransformList(const std::string& i_text, VYRPrtTransformAttributes& o_transform);

// "[defer] <align> [meet|slice]".
bool ParsePreserveAspectRatio(const std::string& i_text, VYRPrtViewBoxAttributes& io_viewBox);

// A number of degrees, or of rad, grad or turn: the angle in degrees.
bool ParseAngle(const std::string& i_text, double& o_degrees);

// Numbers separated by spaces and/or commas; false for anything else.
bool ParseNumbers(const std::string& i_text, std::vector<double>& o_numbers);

}  // namespace VYRSvgValues

#include "VYRSvgValues.h"

#include <algorithm>
#include <cmath>
#include <cstring>

#include "MMParsingTools.h"
#include "VYRMathConstants.h"

namespace VYRSvgValues {
namespace {

struct NamedColor {
  const char* name;
  unsigned int rgb;
};

// The SVG colour keywords, sorted by name for a binary search.
const NamedColor kNamedColors[] = {
    {"aliceblue", 0xf0f8ff}, {"antiquewhite", 0xfaebd7}, {"aqua", 0x00ffff}, {"aquamarine", 0x7fffd4},
    {"azure", 0xf0ffff}, {"beige", 0xf5f5dc}, {"bisque", 0xffe4c4}, {"black", 0x000000},
    {"blanchedalmond", 0xffebcd}, {"blue", 0x0000ff}, {"blueviolet", 0x8a2be2}, {"brown", 0xa52a2a},
    {"burlywood", 0xdeb887}, {"cadetblue", 0x5f9ea0}, {"chartreuse", 0x7fff00}, {"chocolate", 0xd2691e},
    {"coral", 0xff7f50}, {"cornflowerblue", 0x6495ed}, {"cornsilk", 0xfff8dc}, {"crimson", 0xdc143c},
    {"cyan", 0x00ffff}, {"darkblue", 0x00008b}, {"darkcyan", 0x008b8b}, {"darkgoldenrod", 0xb8860b},
    {"darkgray", 0xa9a9a9}, {"darkgreen", 0x006400}, {"darkgrey", 0xa9a9a9}, {"darkkhaki", 0xbdb76b},
    {"darkmagenta", 0x8b008b}, {"darkolivegreen", 0x556b2f}, {"darkorange", 0xff8c00}, {"darkorchid", 0x9932cc},
    {"darkred", 0x8b0000}, {"darksalmon", 0xe9967a}, {"darkseagreen", 0x8fbc8f}, {"darkslateblue", 0x483d8b},
    {"darkslategray", 0x2f4f4f}, {"darkslategrey", 0x2f4f4f}, {"darkturquoise", 0x00ced1},
    {"darkviolet", 0x9400d3}, {"deeppink", 0xff1493}, {"deepskyblue", 0x00bfff}, {"dimgray", 0x696969},
    {"dimgrey", 0x696969}, {"dodgerblue", 0x1e90ff}, {"firebrick", 0xb22222}, {"floralwhite", 0xfffaf0},
    {"forestgreen", 0x228b22}, {"fuchsia", 0xff00ff}, {"gainsboro", 0xdcdcdc}, {"ghostwhite", 0xf8f8ff},
    {"gold", 0xffd700}, {"goldenrod", 0xdaa520}, {"gray", 0x808080}, {"green", 0x008000},
    {"greenyellow", 0xadff2f}, {"grey", 0x808080}, {"honeydew", 0xf0fff0}, {"hotpink", 0xff69b4},
    {"indianred", 0xcd5c5c}, {"indigo", 0x4b0082}, {"ivory", 0xfffff0}, {"khaki", 0xf0e68c},
    {"lavender", 0xe6e6fa}, {"lavenderblush", 0xfff0f5}, {"lawngreen", 0x7cfc00}, {"lemonchiffon", 0xfffacd},
    {"lightblue", 0xadd8e6}, {"lightcoral", 0xf08080}, {"lightcyan", 0xe0ffff},
    {"lightgoldenrodyellow", 0xfafad2}, {"lightgray", 0xd3d3d3}, {"lightgreen", 0x90ee90},
    {"lightgrey", 0xd3d3d3}, {"lightpink", 0xffb6c1}, {"lightsalmon", 0xffa07a}, {"lightseagreen", 0x20b2aa},
    {"lightskyblue", 0x87cefa}, {"lightslategray", 0x778899}, {"lightslategrey", 0x778899},
    {"lightsteelblue", 0xb0c4de}, {"lightyellow", 0xffffe0}, {"lime", 0x00ff00}, {"limegreen", 0x32cd32},
    {"linen", 0xfaf0e6}, {"magenta", 0xff00ff}, {"maroon", 0x800000}, {"mediumaquamarine", 0x66cdaa},
    {"mediumblue", 0x0000cd}, {"mediumorchid", 0xba55d3}, {"mediumpurple", 0x9370db},
    {"mediumseagreen", 0x3cb371}, {"mediumslateblue", 0x7b68ee}, {"mediumspringgreen", 0x00fa9a},
    {"mediumturquoise", 0x48d1cc}, {"mediumvioletred", 0xc71585}, {"midnightblue", 0x191970},
    {"mintcream", 0xf5fffa}, {"mistyrose", 0xffe4e1}, {"moccasin", 0xffe4b5}, {"navajowhite", 0xffdead},
    {"navy", 0x000080}, {"oldlace", 0xfdf5e6}, {"olive", 0x808000}, {"olivedrab", 0x6b8e23},
    {"orange", 0xffa500}, {"orangered", 0xff4500}, {"orchid", 0xda70d6}, {"palegoldenrod", 0xeee8aa},
    {"palegreen", 0x98fb98}, {"paleturquoise", 0xafeeee}, {"palevioletred", 0xdb7093}, {"papayawhip", 0xffefd5},
    {"peachpuff", 0xffdab9}, {"peru", 0xcd853f}, {"pink", 0xffc0cb}, {"plum", 0xdda0dd},
    {"powderblue", 0xb0e0e6}, {"purple", 0x800080}, {"red", 0xff0000}, {"rosybrown", 0xbc8f8f},
    {"royalblue", 0x4169e1}, {"saddlebrown", 0x8b4513}, {"salmon", 0xfa8072}, {"sandybrown", 0xf4a460},
    {"seagreen", 0x2e8b57}, {"seashell", 0xfff5ee}, {"sienna", 0xa0522d}, {"silver", 0xc0c0c0},
    {"skyblue", 0x87ceeb}, {"slateblue", 0x6a5acd}, {"slategray", 0x708090}, {"slategrey", 0x708090},
    {"snow", 0xfffafa}, {"springgreen", 0x00ff7f}, {"steelblue", 0x4682b4}, {"tan", 0xd2b48c},
    {"teal", 0x008080}, {"thistle", 0xd8bfd8}, {"tomato", 0xff6347}, {"turquoise", 0x40e0d0},
    {"violet", 0xee82ee}, {"wheat", 0xf5deb3}, {"white", 0xffffff}, {"whitesmoke", 0xf5f5f5},
    {"yellow", 0xffff00}, {"yellowgreen", 0x9acd32},
};

std::string Lower(std::string i_text) {
  std::transform(i_text.begin(), i_text.end(), i_text.begin(),
                 [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
  return i_text;
}

bool StartsWith(const std::string& i_text, const char* i_prefix) {
  return i_text.compare(0, std::strlen(i_prefix), i_prefix) == 0;
}

int HexDigit(char i_char) {
  if (i_char >= '0' && i_char <= '9') return i_char - '0';
  if (i_char >= 'a' && i_char <= 'f') return i_char - 'a' + 10;
  if (i_char >= 'A' && i_char <= 'F') return i_char - 'A' + 10;
  return -1;
}

unsigned char ClampToByte(double i_value) {
  if (!(i_value > 0.0)) return 0;
  if (i_value >= 255.0) return 255;
  return static_cast<unsigned char>(i_value + 0.5);
}

bool ParseHexColor(const std::string& i_hex, VYRSvgColor& o_color) {
  int digits[6];
  if (i_hex.size() != 3 && i_hex.size() != 6) return false;
  for (size_t i = 0; i < i_hex.size(); ++i) {
    digits[i] = HexDigit(i_hex[i]);
    if (digits[i] < 0) return false;
  }
  if (i_hex.size() == 3) {
    o_color = {static_cast<unsigned char>(digits[0] * 17), static_cast<unsigned char>(digits[1] * 17),
               static_cast<unsigned char>(digits[2] * 17)};
  } else {
    o_color = {static_cast<unsigned char>(digits[0] * 16 + digits[1]),
               static_cast<unsigned char>(digits[2] * 16 + digits[3]),
               static_cast<unsigned char>(digits[4] * 16 + digits[5])};
  }
  return true;
}

// rgb(...) components: three numbers or three percentages.
bool ParseRgbFunction(const std::string& i_arguments, VYRSvgColor& o_color) {
  const char* pCursor = i_arguments.c_str();
  const char* const pEnd = pCursor + i_arguments.size();
  double channels[3];
  for (int i = 0; i < 3; ++i) {
    MMParsingTools::SkipSVGSpaces(pCursor, pEnd);
    if (!MMParsingTools::ParseNumber(pCursor, pEnd, channels[i])) return false;
    if (pCursor < pEnd && *pCursor == '%') {
      channels[i] = channels[i] * 255.0 / 100.0;
      ++pCursor;
    }
    MMParsingTools::SkipSVGSpacesAndDelimiters(pCursor, pEnd);
  }
  if (pCursor != pEnd) return false;
  o_color = {ClampToByte(channels[0]), ClampToByte(channels[1]), ClampToByte(channels[2])};
  return true;
}

// The unit of a length, in user units per unit; 0 for an unknown unit.
double UnitScale(const std::string& i_unit, const VYRSvgLengthContext& i_context) {
  if (i_unit.empty() || i_unit == "px") return 1.0;
  if (i_unit == "pt") return 96.0 / 72.0;
  if (i_unit == "pc") return 16.0;
  if (i_unit == "mm") return 96.0 / 25.4;
  if (i_unit == "cm") return 96.0 / 2.54;
  if (i_unit == "in") return 96.0;
  if (i_unit == "em") return i_context.fontSize;
  if (i_unit == "ex") return i_context.fontSize / 2.0;
  return 0.0;
}

}  // namespace

std::string Trim(const std::string& i_text) {
  size_t first = 0;
  size_t last = i_text.size();
  while (first < last && MMParsingTools::IsSVGSpace(i_text[first])) ++first;
  while (last > first && MMParsingTools::IsSVGSpace(i_text[last - 1])) --last;
  return i_text.substr(first, last - first);
}

bool ParseColor(const std::string& i_text, VYRSvgColor& o_color) {
  const std::string text = Trim(i_text);
  if (text.empty()) return false;
  if (text[0] == '#') return ParseHexColor(text.substr(1), o_color);
  const std::string lower = Lower(text);
  if (StartsWith(lower, "rgb(") && lower.back() == ')') {
    return ParseRgbFunction(text.substr(4, text.size() - 5), o_color);
  }
  const NamedColor* pBegin = std::begin(kNamedColors);
  const NamedColor* pEnd = std::end(kNamedColors);
  const NamedColor* pFound = std::lower_bound(
      pBegin, pEnd, lower, [](const NamedColor& i_entry, const std::string& i_name) { return i_name > i_entry.name; });
  if (pFound == pEnd || lower != pFound->name) return false;
  o_color = {static_cast<unsigned char>(pFound->rgb >> 16), static_cast<unsigned char>(pFound->rgb >> 8),
             static_cast<unsigned char>(pFound->rgb)};
  return true;
}

bool ParseReference(const std::string& i_text, std::string& o_id) {
  std::string text = Trim(i_text);
  if (StartsWith(text, "url(")) {
    const size_t close = text.find(')');
    if (close == std::string::npos) return false;
    text = Trim(text.substr(4, close - 4));
    if (text.size() >= 2 && (text[0] == '\'' || text[0] == '"') && text.back() == text[0]) {
      text = text.substr(1, text.size() - 2);
    }
  }
  if (text.size() < 2 || text[0] != '#') return false;
  o_id = text.substr(1);
  return true;
}

bool ParsePaint(const std::string& i_text, VYRSvgPaint& o_paint) {
  const std::string text = Trim(i_text);
  VYRSvgPaint paint;
  if (text == "none") {
    paint.kind = VYRSvgPaint::eNone;
  } else if (text == "currentColor") {
    paint.kind = VYRSvgPaint::eCurrentColor;
  } else if (StartsWith(text, "url(")) {
    const size_t close = text.find(')');
    if (close == std::string::npos || !ParseReference(text.substr(0, close + 1), paint.serverID)) return false;
    paint.kind = VYRSvgPaint::eServer;
    const std::string fallback = Trim(text.substr(close + 1));
    if (fallback == "currentColor") {
      paint.fallbackKind = VYRSvgPaint::eCurrentColor;
    } else if (!fallback.empty() && fallback != "none") {
      if (!ParseColor(fallback, paint.fallbackColor)) return false;
      paint.fallbackKind = VYRSvgPaint::eColor;
    }
  } else if (ParseColor(text, paint.color)) {
    paint.kind = VYRSvgPaint::eColor;
  } else {
    return false;
  }
  o_paint = paint;
  return true;
}

namespace {

// A number and what follows it up to the end (its unit), spaces around trimmed.
bool SplitNumberAndUnit(const std::string& i_text, double& o_number, std::string& o_unit) {
  const std::string text = Trim(i_text);
  const char* pCursor = text.c_str();
  const char* const pEnd = pCursor + text.size();
  if (!MMParsingTools::ParseNumber(pCursor, pEnd, o_number)) return false;
  o_unit.assign(pCursor, pEnd);
  return true;
}

}  // namespace

bool ParseLength(const std::string& i_text, const VYRSvgLengthContext& i_context, VYRSvgLengthAxis i_axis,
                 double& o_value) {
  double number = 0.0;
  std::string unit;
  if (!SplitNumberAndUnit(i_text, number, unit)) return false;
  if (unit == "%") {
    double reference = i_context.viewportWidth;
    if (i_axis == VYRSvgLengthAxis::eY) reference = i_context.viewportHeight;
    if (i_axis == VYRSvgLengthAxis::eOther) {
      reference = std::sqrt((i_context.viewportWidth * i_context.viewportWidth +
                             i_context.viewportHeight * i_context.viewportHeight) / 2.0);
    }
    o_value = number * reference / 100.0;
    return true;
  }
  const double scale = UnitScale(unit, i_context);
  if (scale == 0.0) return false;
  o_value = number * scale;
  return true;
}

bool ParseNumberOrPercentage(const std::string& i_text, double& o_value) {
  double number = 0.0;
  std::string unit;
  if (!SplitNumberAndUnit(i_text, number, unit) || (!unit.empty() && unit != "%")) return false;
  o_value = unit.empty() ? number : number / 100.0;
  return true;
}

bool ParseAngle(const std::string& i_text, double& o_degrees) {
  double number = 0.0;
  std::string unit;
  if (!SplitNumberAndUnit(i_text, number, unit)) return false;
  const double degreesPerUnit = unit.empty() || unit == "deg" ? 1.0
                                : unit == "rad"               ? 180.0 / M_PI
                                : unit == "grad"              ? 0.9
                                : unit == "turn"              ? 360.0
                                                              : 0.0;
  if (degreesPerUnit == 0.0) return false;
  o_degrees = number * degreesPerUnit;
  return true;
}

bool ParseNumbers(const std::string& i_text, std::vector<double>& o_numbers) {
  const char* pCursor = i_text.c_str();
  const char* const pEnd = pCursor + i_text.size();
  VYRSYPDynArray<double> numbers;
  if (!MMParsingTools::ParseNumberList(pCursor, pEnd, numbers)) return false;
  o_numbers.assign(numbers.GetData(), numbers.GetData() + numbers.GetLength());
  return true;
}

namespace {

double Radians(double i_degrees) { return i_degrees * VYRMathPi / 180.0; }

// One transform function with its arguments; false for a wrong argument count.
bool AddTransformFunction(const std::string& i_name, const std::vector<double>& i_args,
                          VYRPrtTransformAttributes& io_transform) {
  const size_t count = i_args.size();
  if (i_name == "matrix" && count == 6) {
    io_transform.AddTranslation(VYRMathVector2D(i_args[4], i_args[5]));
    io_transform.AddMatrix(VYRMath2x2Matrix(i_args[0], i_args[2], i_args[1], i_args[3]));
  } else if (i_name == "translate" && (count == 1 || count == 2)) {
    io_transform.AddTranslation(VYRMathVector2D(i_args[0], count == 2 ? i_args[1] : 0.0));
  } else if (i_name == "scale" && (count == 1 || count == 2)) {
    // Scales are kept as matrices: the byte form of the transform list keeps
    // scale factors only beside as many matrices.
    io_transform.AddMatrix(VYRMath2x2Matrix(i_args[0], 0.0, 0.0, count == 2 ? i_args[1] : i_args[0]));
  } else if (i_name == "rotate" && (count == 1 || count == 3)) {
    if (count == 3) io_transform.AddTranslation(VYRMathVector2D(i_args[1], i_args[2]));
    io_transform.AddRotation(static_cast<float>(Radians(i_args[0])));
    if (count == 3) io_transform.AddTranslation(VYRMathVector2D(-i_args[1], -i_args[2]));
  } else if (i_name == "skewX" && count == 1) {
    io_transform.AddSkewX(static_cast<float>(Radians(i_args[0])));
  } else if (i_name == "skewY" && count == 1) {
    io_transform.AddSkewY(static_cast<float>(Radians(i_args[0])));
  } else {
    return false;
  }
  return true;
}

}  // namespace

bool ParseTransformList(const std::string& i_text, VYRPrtTransformAttributes& o_transform) {
  VYRPrtTransformAttributes parsed;
  size_t position = 0;
  while (true) {
    while (position < i_text.size() && (MMParsingTools::IsSVGSpace(i_text[position]) || i_text[position] == ',')) {
      ++position;
    }
    if (position >= i_text.size()) break;
    const size_t open = i_text.find('(', position);
    const size_t close = i_text.find(')', position);
    if (open == std::string::npos || close == std::string::npos || close < open) return false;
    const std::string name = Trim(i_text.substr(position, open - position));
    std::vector<double> args;
    if (!ParseNumbers(i_text.substr(open + 1, close - open - 1), args)) return false;
    if (!AddTransformFunction(name, args, parsed)) return false;
    position = close + 1;
  }
  o_transform.AddTransformAttributes(parsed);
  return true;
}

bool ParsePreserveAspectRatio(const std::string& i_text, VYRPrtViewBoxAttributes& io_viewBox) {
  static const char* const kAligns[] = {"none",     "xMinYMin", "xMidYMin", "xMaxYMin", "xMinYMid",
                                        "xMidYMid", "xMaxYMid", "xMinYMax", "xMidYMax", "xMaxYMax"};
  std::vector<std::string> words;
  for (const VYRUnicodeString& word : VYRUnicodeString(Trim(i_text)).Split(' ')) {
    if (!word.IsEmpty()) words.push_back(word.GetStdString());
  }
  size_t next = 0;
  bool defer = false;
  if (next < words.size() && words[next] == "defer") {
    defer = true;
    ++next;
  }
  if (next >= words.size()) return false;
  const auto* pAlign = std::find(std::begin(kAligns), std::end(kAligns), words[next]);
  if (pAlign == std::end(kAligns)) return false;
  ++next;
  MM2D::MeetOrSlice meetOrSlice = MM2D::MeetOrSliceMeet;
  if (next < words.size()) {
    if (words[next] == "slice") {
      meetOrSlice = MM2D::MeetOrSliceSlice;
    } else if (words[next] != "meet") {
      return false;
    }
    ++next;
  }
  if (next != words.size()) return false;
  io_viewBox.SetDefer(defer);
  io_viewBox.SetAspectAlign(static_cast<MM2D::AspectAlign>(pAlign - std::begin(kAligns)));
  io_viewBox.SetMeetOrSlice(meetOrSlice);
  return true;
}

}  // namespace VYRSvgValues

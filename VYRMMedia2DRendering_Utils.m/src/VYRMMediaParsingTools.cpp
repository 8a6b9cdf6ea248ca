#include "MMParsingTools.h"

#include <cfloat>
#include <cmath>
#include <iostream>
#include <string>
#include <string_view>

#include "VYRAssert.h"
#include "VYRFile.h"
#include "VYRLastError.h"
#include "VYRSystem.h"
#include "VYRXMLParser.h"

namespace {

// Keywords, built once when the library loads.
const VYRUnicodeString s_userSpaceOnUse("userSpaceOnUse");
const VYRUnicodeString s_objectBoundingBox("objectBoundingBox");
const VYRUnicodeString s_matrix("matrix");
const VYRUnicodeString s_saturate("saturate");
const VYRUnicodeString s_hueRotate("hueRotate");
const VYRUnicodeString s_luminanceToAlpha("luminanceToAlpha");

constexpr char kDelimiter = ',';
constexpr double kMaxExponent = 308.0;
constexpr long kExactDigits = 15;  // every integer of this many digits is a double

inline bool IsSpace(char i_char) {
  const unsigned char byte = static_cast<unsigned char>(i_char);
  return byte == 0x20 || byte == 0x09 || byte == 0x0A || byte == 0x0D;
}

inline bool IsDigit(char i_char) {
  return static_cast<unsigned>(static_cast<unsigned char>(i_char)) - '0' < 10u;
}

inline int DigitValue(char i_char) { return i_char - '0'; }

inline bool IsFinite(double i_value) { return i_value >= -DBL_MAX && i_value <= DBL_MAX; }

// Reports a null cursor or end; the public entry points check once, the
// helpers below trust their caller.
bool RangeIsValid(const char* i_pStr, const char* i_pEnd) {
  if (!VYR_CHECK_POINTER(i_pStr)) return false;
  return VYR_CHECK_POINTER(i_pEnd);
}

inline bool SkipSpaces(const char*& io_pStr, const char* const i_pEnd) {
  if (io_pStr >= i_pEnd) return false;
  while (io_pStr < i_pEnd && IsSpace(*io_pStr)) ++io_pStr;
  return io_pStr < i_pEnd;
}

inline bool SkipSpacesAndDelimiter(const char*& io_pStr, const char* const i_pEnd, char i_delimiter) {
  if (io_pStr < i_pEnd && !IsSpace(*io_pStr) && *io_pStr != i_delimiter) return false;
  if (!SkipSpaces(io_pStr, i_pEnd)) return false;
  if (*io_pStr != i_delimiter) return true;
  ++io_pStr;
  SkipSpaces(io_pStr, i_pEnd);
  return io_pStr < i_pEnd;
}

// 10^i_exponent by squaring, so that every exponent costs at most nine products.
inline double PowerOfTen(unsigned i_exponent) {
  double result = 1.0;
  double base = 10.0;
  while (i_exponent != 0) {
    if (i_exponent & 1u) result *= base;
    i_exponent >>= 1;
    if (i_exponent != 0) base *= base;
  }
  return result;
}

// The SVG number grammar with the historical differences of this reader kept:
// a trailing '.' ends the number before the sign is applied ("-5." is 5), an
// 'e' followed by 'x' or 'm' is a unit, and exponents beyond 308 in magnitude
// fail. Works on a local cursor so that the loops run on a register.
bool ParseNumberInRange(const char*& io_pStr, const char* const i_pEnd, double& o_number) {
  const char* const start = io_pStr;
  const char* p = io_pStr;

  bool negative = false;
  if (p < i_pEnd && (*p == '+' || *p == '-')) {
    negative = *p == '-';
    ++p;
  }
  if (p >= i_pEnd || (!IsDigit(*p) && *p != '.')) {
    io_pStr = p;
    return false;
  }

  // Integer digits, summed from the last one back; a run long enough to make
  // the place value overflow makes the number fail. Up to 15 digits every
  // partial sum is exact, so the usual forward accumulation gives the same
  // value in one pass.
  const char* const digits = p;
  double integer = 0.0;
  while (p < i_pEnd && IsDigit(*p)) {
    integer = integer * 10.0 + DigitValue(*p);
    ++p;
  }
  if (p - digits > kExactDigits) {
    integer = 0.0;
    double place = 1.0;
    for (const char* digit = p; digit > digits;) {
      --digit;
      integer += DigitValue(*digit) * place;
      place *= 10.0;
    }
  }
  if (!IsFinite(integer)) {
    o_number = 0.0;
    io_pStr = p;
    return false;
  }

  double fraction = 0.0;
  if (p < i_pEnd && *p == '.') {
    ++p;
    if (p >= i_pEnd || !IsDigit(*p)) {
      o_number = integer;
      io_pStr = p;
      return true;
    }
    double fractionPlace = 0.1;
    while (p < i_pEnd && IsDigit(*p)) {
      fraction += DigitValue(*p) * fractionPlace;
      fractionPlace *= 0.1;
      ++p;
    }
  }

  double exponent = 0.0;
  bool negativeExponent = false;
  if (p != start && i_pEnd - p > 1 && (*p == 'e' || *p == 'E') && p[1] != 'x' && p[1] != 'm') {
    ++p;
    if (*p == '+' || *p == '-') {
      negativeExponent = *p == '-';
      ++p;
    }
    if (p >= i_pEnd || !IsDigit(*p)) {
      io_pStr = p;
      return false;
    }
    while (p < i_pEnd && IsDigit(*p)) {
      exponent = exponent * 10.0 + DigitValue(*p);
      ++p;
    }
    if (!IsFinite(exponent) || exponent > kMaxExponent) {
      io_pStr = p;
      return false;
    }
  }
  io_pStr = p;

  double value = integer + fraction;
  if (negative) value = -value;
  if (exponent != 0.0) {
    const double power = PowerOfTen(static_cast<unsigned>(exponent));
    value *= negativeExponent ? 1.0 / power : power;
  }
  if (!IsFinite(value)) {
    o_number = 0.0;
    return false;
  }
  o_number = value;
  return true;
}

// One value followed by spaces and at most one delimiter, as every list separates its values.
inline bool ParseSeparatedNumber(const char*& io_pStr, const char* const i_pEnd, double& o_number) {
  if (!ParseNumberInRange(io_pStr, i_pEnd, o_number)) return false;
  SkipSpacesAndDelimiter(io_pStr, i_pEnd, kDelimiter);
  return true;
}

// Runs a range parser over the whole of a string.
template <class RangeParser>
bool ParseString(const VYRUnicodeString& i_string, RangeParser&& i_parse) {
  if (i_string.GetLengthInChar() < 1) return false;
  const char* pStr = i_string.ConvertToChar();
  if (!VYR_CHECK_POINTER(pStr)) return false;
  const char* const pEnd = pStr + i_string.GetLengthInChar();
  return i_parse(pStr, pEnd);
}

// Same result as adding or subtracting 360 until the angle lies in [-360, 360],
// without a loop that a huge angle would never finish.
double ReduceArcAngle(double i_angle) {
  if (i_angle > 360.0) {
    const double reduced = std::fmod(i_angle, 360.0);
    return reduced == 0.0 ? 360.0 : reduced;
  }
  if (i_angle < -360.0) {
    const double reduced = std::fmod(i_angle, 360.0);
    return reduced == 0.0 ? -360.0 : reduced;
  }
  return i_angle;
}

}  // namespace

bool MMParsingTools::IsSVGSpace(char i_char) { return IsSpace(i_char); }

bool MMParsingTools::SkipSVGSpaces(const char*& io_pStr, const char* const i_pEnd) {
  if (!RangeIsValid(io_pStr, i_pEnd)) return false;
  return SkipSpaces(io_pStr, i_pEnd);
}

bool MMParsingTools::SkipSVGSpacesAndDelimiters(const char*& io_pStr, const char* const i_pEnd, char i_delimiter) {
  if (!RangeIsValid(io_pStr, i_pEnd)) return false;
  return SkipSpacesAndDelimiter(io_pStr, i_pEnd, i_delimiter);
}

bool MMParsingTools::ParseNumber(const char*& io_pStr, const char* const i_pEnd, double& o_number) {
  if (!RangeIsValid(io_pStr, i_pEnd)) return false;
  return ParseNumberInRange(io_pStr, i_pEnd, o_number);
}

bool MMParsingTools::ParseNumber(const VYRUnicodeString& i_string, double& o_number) {
  return ParseString(i_string, [&](const char*& io_pStr, const char* pEnd) { return ParseNumber(io_pStr, pEnd, o_number); });
}

bool MMParsingTools::ParseNumberList(const char*& io_pStr, const char* const i_pEnd,
                                     VYRSYPDynArray<double>& o_numbers) {
  if (!RangeIsValid(io_pStr, i_pEnd)) return false;
  if (!SkipSpaces(io_pStr, i_pEnd)) return io_pStr == i_pEnd;
  while (io_pStr < i_pEnd) {
    double number = 0.0;
    if (!ParseSeparatedNumber(io_pStr, i_pEnd, number)) return false;
    if (o_numbers.Append(number) < 0) return false;
  }
  return io_pStr == i_pEnd;
}

bool MMParsingTools::ParseNumberList(const VYRUnicodeString& i_string, VYRSYPDynArray<double>& o_numbers) {
  return ParseString(i_string,
                     [&](const char*& io_pStr, const char* pEnd) { return ParseNumberList(io_pStr, pEnd, o_numbers); });
}

bool MMParsingTools::ParseSVGPoint(const char*& io_pStr, const char* const i_pEnd, VYRMathPoint2D& o_point) {
  if (!RangeIsValid(io_pStr, i_pEnd)) return false;
  SkipSpaces(io_pStr, i_pEnd);
  double x = 0.0;
  double y = 0.0;
  if (!ParseSeparatedNumber(io_pStr, i_pEnd, x)) return false;
  if (!ParseNumberInRange(io_pStr, i_pEnd, y)) return false;
  o_point = VYRMathPoint2D(x, y);
  return true;
}

bool MMParsingTools::ParseSVGPoint(const VYRUnicodeString& i_string, VYRMathPoint2D& o_point) {
  return ParseString(i_string,
                     [&](const char*& io_pStr, const char* pEnd) { return ParseSVGPoint(io_pStr, pEnd, o_point); });
}

bool MMParsingTools::ParseSVGPointList(const char*& io_pStr, const char* const i_pEnd,
                                       VYRSYPDynArray<VYRMathPoint2D>& o_points, MM2D::PathCoordMode i_mode,
                                       bool i_flipY, double i_height) {
  if (!RangeIsValid(io_pStr, i_pEnd)) return false;
  if (!SkipSpaces(io_pStr, i_pEnd)) return io_pStr == i_pEnd;
  while (io_pStr < i_pEnd) {
    double x = 0.0;
    double y = 0.0;
    if (!ParseSeparatedNumber(io_pStr, i_pEnd, x)) return false;
    if (!ParseSeparatedNumber(io_pStr, i_pEnd, y)) return false;
    if (i_flipY) y = i_mode == MM2D::PathCoordRelative ? -y : i_height - y;
    if (o_points.Append(VYRMathPoint2D(x, y)) < 0) return false;
  }
  return io_pStr == i_pEnd;
}

bool MMParsingTools::ParseSVGPointList(const VYRUnicodeString& i_string, VYRSYPDynArray<VYRMathPoint2D>& o_points,
                                       MM2D::PathCoordMode i_mode, bool i_flipY, double i_height) {
  return ParseString(i_string, [&](const char*& io_pStr, const char* pEnd) {
    return ParseSVGPointList(io_pStr, pEnd, o_points, i_mode, i_flipY, i_height);
  });
}

bool MMParsingTools::ParseSVGEllipticalArc(const char*& io_pStr, const char* const i_pEnd, double& o_rx, double& o_ry,
                                           double& o_angle, bool& o_largeArc, bool& o_sweep, double& o_x,
                                           double& o_y) {
  if (!RangeIsValid(io_pStr, i_pEnd)) return false;
  SkipSpaces(io_pStr, i_pEnd);
  if (!ParseSeparatedNumber(io_pStr, i_pEnd, o_rx)) return false;
  if (!ParseSeparatedNumber(io_pStr, i_pEnd, o_ry)) return false;
  if (!ParseSeparatedNumber(io_pStr, i_pEnd, o_angle)) return false;
  // The flags are read as whole numbers: "01" is one flag, and any non-zero value sets it.
  double flag = 0.0;
  if (!ParseSeparatedNumber(io_pStr, i_pEnd, flag)) return false;
  o_largeArc = flag != 0.0;
  if (!ParseSeparatedNumber(io_pStr, i_pEnd, flag)) return false;
  o_sweep = flag != 0.0;
  if (!ParseSeparatedNumber(io_pStr, i_pEnd, o_x)) return false;
  if (!ParseSeparatedNumber(io_pStr, i_pEnd, o_y)) return false;
  o_rx = std::fabs(o_rx);
  o_ry = std::fabs(o_ry);
  o_angle = ReduceArcAngle(o_angle);
  return io_pStr <= i_pEnd;
}

bool MMParsingTools::ParseSVGEllipticalArc(const VYRUnicodeString& i_string, double& o_rx, double& o_ry,
                                           double& o_angle, bool& o_largeArc, bool& o_sweep, double& o_x,
                                           double& o_y) {
  return ParseString(i_string, [&](const char*& io_pStr, const char* pEnd) {
    return ParseSVGEllipticalArc(io_pStr, pEnd, o_rx, o_ry, o_angle, o_largeArc, o_sweep, o_x, o_y);
  });
}

bool MMParsingTools::ParseSVGRect(const VYRUnicodeString& i_string, double& o_x, double& o_y, double& o_width,
                                  double& o_height) {
  return ParseString(i_string, [&](const char*& io_pStr, const char* pEnd) {
    SkipSpaces(io_pStr, pEnd);
    return ParseSeparatedNumber(io_pStr, pEnd, o_x) && ParseSeparatedNumber(io_pStr, pEnd, o_y) &&
           ParseSeparatedNumber(io_pStr, pEnd, o_width) && ParseNumberInRange(io_pStr, pEnd, o_height);
  });
}

MM2D::UnitType MMParsingTools::StringToUnitType(const VYRUnicodeString& i_string) {
  if (i_string == s_userSpaceOnUse) return MM2D::UnitUserSpaceOnUse;
  if (i_string == s_objectBoundingBox) return MM2D::UnitObjectBoundingBox;
  return MM2D::UnitUnknown;
}

VYRUnicodeString MMParsingTools::UnitTypeToString(MM2D::UnitType i_type) {
  switch (i_type) {
    case MM2D::UnitUserSpaceOnUse: return s_userSpaceOnUse;
    case MM2D::UnitObjectBoundingBox: return s_objectBoundingBox;
    default: return VYRUnicodeString();
  }
}

MM2D::ColorMatrixType MMParsingTools::StringToColorMatrixType(const VYRUnicodeString& i_string) {
  if (i_string == s_matrix) return MM2D::ColorMatrixMatrix;
  if (i_string == s_saturate) return MM2D::ColorMatrixSaturate;
  if (i_string == s_hueRotate) return MM2D::ColorMatrixHueRotate;
  if (i_string == s_luminanceToAlpha) return MM2D::ColorMatrixLuminanceToAlpha;
  return MM2D::ColorMatrixUnknown;
}

VYRUnicodeString MMParsingTools::ColorMatrixTypeToString(MM2D::ColorMatrixType i_type) {
  switch (i_type) {
    case MM2D::ColorMatrixMatrix: return s_matrix;
    case MM2D::ColorMatrixSaturate: return s_saturate;
    case MM2D::ColorMatrixHueRotate: return s_hueRotate;
    case MM2D::ColorMatrixLuminanceToAlpha: return s_luminanceToAlpha;
    default: return VYRUnicodeString();
  }
}

namespace {

const char kSvgNamespace[] = "http://www.w3.org/2000/svg";
const char kXLinkNamespace[] = "http://www.w3.org/1999/xlink";
const char kSvg11SystemId[] = "http://www.w3.org/Graphics/SVG/1.1/DTD/svg11.dtd";
const char kInstallPathVariable[] = "VYRInstallPath";
const char kDtdDirectory[] = "resources/reffiles/svg_dtd";
constexpr size_t kMaxPathLength = 260;  // terminator included
constexpr std::string_view kRootTagStart = "<svg";
constexpr size_t kNotFound = std::string_view::npos;

// Position of i_what in [i_from, i_before) of the text, or kNotFound.
size_t FindBefore(std::string_view i_text, std::string_view i_what, size_t i_from, size_t i_before) {
  if (i_from > i_before || i_before > i_text.size()) return kNotFound;
  const size_t found = i_text.substr(0, i_before).find(i_what, i_from);
  return found;
}

// Last position of i_char in [i_from, i_before) of the text, or kNotFound.
size_t ReverseFindBetween(std::string_view i_text, char i_char, size_t i_from, size_t i_before) {
  const size_t found = i_text.substr(0, i_before).rfind(i_char);
  return found != kNotFound && found >= i_from ? found : kNotFound;
}

// The root start tag runs from the first "<svg" to the first '>' after it.
bool FindRootStartTag(std::string_view i_text, size_t& o_begin, size_t& o_end) {
  o_begin = i_text.find(kRootTagStart);
  if (o_begin == kNotFound) return false;
  o_end = i_text.find('>', o_begin);
  return o_end != kNotFound;
}

// True when one of the tag's "xmlns" attributes is the unprefixed one ("xmlns =" counts).
bool DeclaresDefaultNamespace(std::string_view i_tag) {
  for (size_t at = i_tag.find("xmlns"); at != kNotFound; at = i_tag.find("xmlns", at + 1)) {
    const size_t nameEnd = at + 5;
    const size_t equals = i_tag.find('=', nameEnd);
    if (equals == kNotFound) return false;
    bool onlyBlanks = true;
    for (char c : i_tag.substr(nameEnd, equals - nameEnd)) onlyBlanks = onlyBlanks && (c == ' ' || c == '\t');
    if (onlyBlanks) return true;
  }
  return false;
}

std::string QuotedAttribute(const char* i_name, const char* i_value) {
  return std::string(" ") + i_name + "=\"" + i_value + "\" ";
}

// Both declarations go right after "<svg", XLink first, so a bare tag ends up
// with the default namespace before the XLink one.
void InsertNamespaceDeclarations(VYRUnicodeString& io_buffer) {
  size_t begin = 0;
  size_t end = 0;
  if (!FindRootStartTag(io_buffer.GetStdString(), begin, end)) return;
  const int afterName = static_cast<int>(begin + kRootTagStart.size());
  std::string_view tag = std::string_view(io_buffer.GetStdString()).substr(begin, end - begin);
  if (tag.find("xmlns:xlink") == kNotFound) {
    const std::string declaration = QuotedAttribute("xmlns:xlink", kXLinkNamespace);
    io_buffer.Insert(afterName, VYRUnicodeString(declaration));
    end += declaration.size();
  }
  tag = std::string_view(io_buffer.GetStdString()).substr(begin, end - begin);
  if (!DeclaresDefaultNamespace(tag)) io_buffer.Insert(afterName, VYRUnicodeString(QuotedAttribute("xmlns", kSvgNamespace)));
}

// The local copy of a DTD: i_directory/<file name> when a directory is given,
// else the first readable <root>/resources/reffiles/svg_dtd/<file name> over
// the VYRInstallPath roots.
long ResolveLocalDtd(const std::string& i_reference, const VYRUnicodeString& i_directory, VYRUnicodeString& o_path) {
  size_t slash = i_reference.rfind('/');
  if (slash == std::string::npos) slash = i_reference.rfind('\\');
  const std::string fileName = slash == std::string::npos ? i_reference : i_reference.substr(slash + 1);

  if (!i_directory.IsEmpty()) {
    const VYRUnicodeString candidate(i_directory.GetStdString() + "/" + fileName);
    if (VYRFailed(VYRFileAccess(candidate, VYR_ACCESS_READ))) return VYR_E_FAIL;
    o_path = candidate;
    return VYR_S_OK;
  }

  VYRUnicodeString roots;
  if (VYRFailed(VYRGetEnvironmentVariable(kInstallPathVariable, roots))) return VYR_E_FAIL;
  for (const VYRUnicodeString& root : roots.Split(';')) {
    if (root.IsEmpty()) continue;
    const std::string candidate = root.GetStdString() + "/" + kDtdDirectory + "/" + fileName;
    if (candidate.size() >= kMaxPathLength) continue;  // would not fit a path buffer
    if (VYRSucceeded(VYRFileAccess(VYRUnicodeString(candidate), VYR_ACCESS_READ))) {
      o_path = VYRUnicodeString(candidate);
      return VYR_S_OK;
    }
  }
  return VYR_E_FAIL;
}

// Makes the DOCTYPE name the SVG 1.1 DTD and replaces its system identifier by
// the local copy, so that the parser never asks the network for it. Only the
// prolog, before the root start tag, is searched: a large document costs one
// scan, and text in the body is never touched.
void PointDoctypeAtLocalDtd(VYRUnicodeString& io_buffer, const VYRUnicodeString& i_directory) {
  const std::string& text = io_buffer.GetStdString();
  auto prologEnd = [&text] { return std::min(text.find(kRootTagStart), text.size()); };
  const size_t doctype = FindBefore(text, "<!DOCTYPE", 0, prologEnd());
  if (doctype == kNotFound) return;

  size_t dtd = FindBefore(text, ".dtd", doctype, prologEnd());
  if (dtd == kNotFound) {
    // A public identifier without a system identifier (or with another one): name the SVG 1.1 DTD.
    const size_t end = prologEnd();
    const size_t svg = FindBefore(text, "SVG", doctype, end);
    const size_t publicClose = svg == kNotFound ? kNotFound : FindBefore(text, "\"", svg, end);
    if (publicClose == kNotFound) return;
    const size_t systemOpen = FindBefore(text, "\"", publicClose + 1, end);
    const size_t systemClose = systemOpen == kNotFound ? kNotFound : FindBefore(text, "\"", systemOpen + 1, end);
    size_t nextTag = FindBefore(text, "<", publicClose + 1, end);
    if (nextTag == kNotFound) nextTag = end;
    const VYRUnicodeString systemId(std::string(" \"") + kSvg11SystemId + "\" ");
    if (systemClose != kNotFound && systemClose < nextTag) {
      io_buffer.Replace(static_cast<int>(systemOpen), static_cast<int>(systemClose - systemOpen + 1), systemId);
    } else {
      io_buffer.Insert(static_cast<int>(publicClose + 1), systemId);
    }
    dtd = FindBefore(text, ".dtd", doctype, prologEnd());
    if (dtd == kNotFound) return;
  }

  size_t open = ReverseFindBetween(text, '"', doctype, dtd);
  if (open == kNotFound) open = ReverseFindBetween(text, '\'', doctype, dtd);
  if (open == kNotFound) return;
  const size_t referenceBegin = open + 1;
  const size_t referenceLength = dtd + 4 - referenceBegin;
  VYRUnicodeString localPath;
  if (VYRFailed(ResolveLocalDtd(text.substr(referenceBegin, referenceLength), i_directory, localPath))) return;
  io_buffer.Replace(static_cast<int>(referenceBegin), static_cast<int>(referenceLength), localPath);
}

void ReportParseFailure() {
  std::string message = "XMLParser call has failed:\n";
  if (VYRHasLastError()) message += VYRGetLastErrorMessage().GetStdString();
  VYRClearLastError();
  std::cerr << message << std::endl;
}

}  // namespace

long MMParsingTools::BuildParser(VYRUnicodeString& io_buffer, const VYRUnicodeString& i_type,
                                 VYRIDOMElement_var& o_root) {
  VYRIXMLDOMDocumentBuilder* pBuilder = nullptr;
  long status = CreateVYRIXMLDOMDocumentBuilder(VYR_XML_DOM_IMPLEMENTATION, pBuilder);
  if (VYRFailed(status)) return status;
  VYRIXMLSAX2Factory* pFactory = nullptr;
  status = CreateVYRIXMLSAX2Factory(VYR_XML_SAX_IMPLEMENTATION, pFactory);
  if (VYRFailed(status)) {
    pBuilder->Release();
    return status;
  }

  const bool isSvg = i_type == "svg";
  if (isSvg) InsertNamespaceDeclarations(io_buffer);
  VYRSYPDynArray<VYRUnicodeString> optionNames;
  VYRSYPDynArray<VYRUnicodeString> optionValues;
  optionNames.Append(VYR_XML_OPTION_DO_VALIDATION);
  optionValues.Append("false");
  if (isSvg) PointDoctypeAtLocalDtd(io_buffer, VYRUnicodeString());

  VYRIXMLInputSource source;
  status = pFactory->CreateInputSource(io_buffer, i_type, source);
  if (VYRSucceeded(status)) {
    VYRIDOMDocument_var document;
    status = pBuilder->Parse(source, optionNames, optionValues, document);
    if (VYRFailed(status) || document.IsNull()) {
      ReportParseFailure();
      if (VYRSucceeded(status)) status = VYR_E_FAIL;
    } else {
      status = document.GetDocumentElement(o_root);
    }
  }
  pFactory->Release();
  pBuilder->Release();
  return status;
}

long MMParsingTools::GetNextNode(VYRIDOMNode_var& io_node, VYRIDOMNode_var& o_next, VYRUnicodeString& o_name) {
  for (;;) {
    VYRIDOMNode_var sibling;
    if (VYRFailed(io_node.GetNextSibling(sibling)) || sibling.IsNull()) return VYR_E_FAIL;
    const long nameStatus = sibling.GetNodeName(o_name);
    if (VYRFailed(nameStatus)) return nameStatus;
    int type = 0;
    const long typeStatus = sibling.GetNodeType(type);
    if (type == VYR_DOM_TEXT_NODE) {
      io_node = sibling;
      continue;
    }
    o_next = sibling;
    o_name.RemoveChar('\n');
    return typeStatus;
  }
}

long MMParsingTools::GetValue(const VYRIDOMNode_var& i_node, VYRUnicodeString& o_value) {
  o_value = VYRUnicodeString();
  int type = 0;
  long status = i_node.GetNodeType(type);
  if (VYRFailed(status)) return status;
  if (type == VYR_DOM_TEXT_NODE) return i_node.GetNodeValue(o_value);
  if (type != VYR_DOM_ELEMENT_NODE) return VYR_E_FAIL;

  VYRIDOMNode_var child;
  status = i_node.GetFirstChild(child);
  while (VYRSucceeded(status) && !child.IsNull()) {
    int childType = 0;
    if (VYRSucceeded(child.GetNodeType(childType)) && childType == VYR_DOM_TEXT_NODE) {
      VYRUnicodeString text;
      if (VYRSucceeded(child.GetNodeValue(text))) o_value += text;
    }
    VYRIDOMNode_var next;
    status = child.GetNextSibling(next);
    child = next;
  }
  return VYR_S_OK;
}

long MMParsingTools::WriteXMLBufferToFile(const VYRUnicodeString& i_buffer, const VYRUnicodeString& i_path) {
  if (i_buffer.IsEmpty()) return VYR_E_FAIL;
  VYRFileHandle file = nullptr;
  long status = VYRFileOpen(i_path, "w+", file);
  if (VYRFailed(status)) return status;
  size_t written = 0;
  const long writeStatus =
      VYRFileWrite(file, i_buffer.ConvertToChar(), static_cast<size_t>(i_buffer.GetLengthInChar()), written);
  status = VYRFileClose(file);
  // A failed write must not be hidden by a close that succeeds.
  return VYRFailed(writeStatus) ? writeStatus : status;
}

long MMParsingTools::GetStringWithLocalDecimalChar(VYRUnicodeString& io_text) {
  if (io_text.IsEmpty() || !io_text.Contains(".")) return VYR_E_FAIL;
  VYRUnicodeString decimalChar;
  if (VYRFailed(VYRSysGetLocalDecimalChar(decimalChar)) || decimalChar == ".") return VYR_S_OK;
  return io_text.ReplaceAll(".", decimalChar) > 0 ? VYR_S_OK : VYR_E_FAIL;
}

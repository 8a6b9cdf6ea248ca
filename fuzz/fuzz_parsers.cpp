// Runs every value parser and the SVG document set-up over arbitrary bytes.
// The input block is exactly as long as the data, so any read past the range
// is caught by AddressSanitizer. Run with -close_fd_mask=2 to silence the
// parse failure messages.
#include <cstddef>
#include <cstdint>

#include "MMParsingTools.h"

namespace {

void RunRangeParsers(const char* i_pBegin, const char* i_pEnd) {
  const char* cursor = i_pBegin;
  MMParsingTools::SkipSVGSpaces(cursor, i_pEnd);
  cursor = i_pBegin;
  MMParsingTools::SkipSVGSpacesAndDelimiters(cursor, i_pEnd, ',');

  // Chained number parsing, as a caller walks an attribute value.
  cursor = i_pBegin;
  double number = 0.0;
  while (cursor < i_pEnd) {
    const char* before = cursor;
    MMParsingTools::ParseNumber(cursor, i_pEnd, number);
    if (cursor == before) ++cursor;
  }

  VYRSYPDynArray<double> numbers;
  cursor = i_pBegin;
  MMParsingTools::ParseNumberList(cursor, i_pEnd, numbers);

  VYRMathPoint2D point;
  cursor = i_pBegin;
  MMParsingTools::ParseSVGPoint(cursor, i_pEnd, point);

  VYRSYPDynArray<VYRMathPoint2D> points;
  cursor = i_pBegin;
  MMParsingTools::ParseSVGPointList(cursor, i_pEnd, points, MM2D::PathCoordRelative, true, 100.0);
  cursor = i_pBegin;
  MMParsingTools::ParseSVGPointList(cursor, i_pEnd, points, MM2D::PathCoordAbsolute, true, 100.0);

  double rx, ry, angle, x, y;
  bool largeArc, sweep;
  cursor = i_pBegin;
  if (MMParsingTools::ParseSVGEllipticalArc(cursor, i_pEnd, rx, ry, angle, largeArc, sweep, x, y)) {
    if (!(angle >= -360.0 && angle <= 360.0) && angle == angle) __builtin_trap();
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* i_pData, size_t i_size) {
  const char* pBegin = reinterpret_cast<const char*>(i_pData);
  RunRangeParsers(pBegin, pBegin + i_size);

  const VYRUnicodeString text(pBegin, static_cast<int>(i_size));
  double x, y, width, height;
  MMParsingTools::ParseSVGRect(text, x, y, width, height);
  MMParsingTools::StringToUnitType(text);
  MMParsingTools::StringToColorMatrixType(text);
  VYRUnicodeString localised(text);
  MMParsingTools::GetStringWithLocalDecimalChar(localised);

  // Odd first bytes parse the text as it is, even ones go through the SVG rewrite.
  VYRUnicodeString buffer(text);
  VYRIDOMElement_var root;
  const bool asSvg = i_size == 0 || (i_pData[0] & 1u) == 0;
  if (MMParsingTools::BuildParser(buffer, asSvg ? "svg" : "xml", root) >= 0) {
    VYRIDOMNode_var node;
    root.GetFirstChild(node);
    VYRIDOMNode_var next;
    VYRUnicodeString name;
    VYRUnicodeString value;
    MMParsingTools::GetValue(root, value);
    for (int steps = 0; steps < 64 && MMParsingTools::GetNextNode(node, next, name) >= 0; ++steps) {
      MMParsingTools::GetValue(next, value);
      node = next;
    }
  }
  return 0;
}

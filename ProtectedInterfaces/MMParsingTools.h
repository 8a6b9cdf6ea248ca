#pragma once

#include "MM2DAttributeTypes.h"
#include "VYRExport.h"
#include "VYRMathPoint2D.h"
#include "VYRSYPDynArray.h"
#include "VYRStatus.h"
#include "VYRUnicodeString.h"
#include "VYRXMLDOM.h"

// Static services that turn SVG attribute values into numbers, points, arcs
// and rectangles, SVG keywords into model enumerations, and SVG text held in
// memory into a DOM without network access.
//
// Every range parser reads the half-open range [io_pStr, i_pEnd) and nothing
// outside it, and leaves the cursor after what it consumed, so that calls can
// be chained over one attribute value. The VYRUnicodeString overloads run the
// range parser over the whole string (false for an empty string).
class VYR_EXPORT MMParsingTools {
 public:
  MMParsingTools() = delete;

  // Space, tab, line feed, carriage return.
  static bool IsSVGSpace(char i_char);
  // Both return true when input remains after the skipped text.
  static bool SkipSVGSpaces(const char*& io_pStr, const char* const i_pEnd);
  // Spaces, at most one delimiter, spaces.
  static bool SkipSVGSpacesAndDelimiters(const char*& io_pStr, const char* const i_pEnd, char i_delimiter = ',');

  static bool ParseNumber(const char*& io_pStr, const char* const i_pEnd, double& o_number);
  static bool ParseNumber(const VYRUnicodeString& i_string, double& o_number);
  // Numbers separated by spaces and/or single commas, up to the end. Appends to o_numbers.
  static bool ParseNumberList(const char*& io_pStr, const char* const i_pEnd, VYRSYPDynArray<double>& o_numbers);
  static bool ParseNumberList(const VYRUnicodeString& i_string, VYRSYPDynArray<double>& o_numbers);

  static bool ParseSVGPoint(const char*& io_pStr, const char* const i_pEnd, VYRMathPoint2D& o_point);
  static bool ParseSVGPoint(const VYRUnicodeString& i_string, VYRMathPoint2D& o_point);
  // With i_flipY, y becomes -y in relative mode and i_height - y in absolute mode. Appends to o_points.
  static bool ParseSVGPointList(const char*& io_pStr, const char* const i_pEnd, VYRSYPDynArray<VYRMathPoint2D>& o_points,
                                MM2D::PathCoordMode i_mode, bool i_flipY, double i_height);
  static bool ParseSVGPointList(const VYRUnicodeString& i_string, VYRSYPDynArray<VYRMathPoint2D>& o_points,
                                MM2D::PathCoordMode i_mode, bool i_flipY, double i_height);

  // rx ry x-axis-rotation large-arc-flag sweep-flag x y
  static bool ParseSVGEllipticalArc(const char*& io_pStr, const char* const i_pEnd, double& o_rx, double& o_ry,
                                    double& o_angle, bool& o_largeArc, bool& o_sweep, double& o_x, double& o_y);
  static bool ParseSVGEllipticalArc(const VYRUnicodeString& i_string, double& o_rx, double& o_ry, double& o_angle,
                                    bool& o_largeArc, bool& o_sweep, double& o_x, double& o_y);

  // A view-box value: x y width height.
  static bool ParseSVGRect(const VYRUnicodeString& i_string, double& o_x, double& o_y, double& o_width,
                           double& o_height);

  static MM2D::UnitType StringToUnitType(const VYRUnicodeString& i_string);
  static VYRUnicodeString UnitTypeToString(MM2D::UnitType i_type);
  static MM2D::ColorMatrixType StringToColorMatrixType(const VYRUnicodeString& i_string);
  static VYRUnicodeString ColorMatrixTypeToString(MM2D::ColorMatrixType i_type);

  // Parses a document held in memory and hands back its root element. With
  // type "svg" the buffer is first rewritten in place: the missing SVG and
  // XLink namespace declarations go into the root start tag, and the DOCTYPE
  // is pointed at the local copy of the SVG 1.1 DTD under the VYRInstallPath
  // roots (left as it is when there is none). Validation is always off. A
  // failed parse writes "XMLParser call has failed:" and the parser's message
  // on standard error and returns the failure status.
  static long BuildParser(VYRUnicodeString& io_buffer, const VYRUnicodeString& i_type, VYRIDOMElement_var& o_root);
  // The next sibling of io_node that is not a text node, and its name without
  // line feeds. Skipped text nodes move io_node along. VYR_E_FAIL at the end.
  static long GetNextNode(VYRIDOMNode_var& io_node, VYRIDOMNode_var& o_next, VYRUnicodeString& o_name);
  // A text node's text, or the concatenated text children of an element.
  static long GetValue(const VYRIDOMNode_var& i_node, VYRUnicodeString& o_value);
  static long WriteXMLBufferToFile(const VYRUnicodeString& i_buffer, const VYRUnicodeString& i_path);
  // Puts the locale's decimal character in place of every '.'; VYR_E_FAIL when there is no '.'.
  static long GetStringWithLocalDecimalChar(VYRUnicodeString& io_text);
};

#pragma once

#include <cstddef>  // VYRSYPDynArray.h uses size_t without including it

#include "MM2DAttributeTypes.h"
#include "VYRExport.h"
#include "VYRMathPoint2D.h"
#include "VYRSYPDynArray.h"
#include "VYRUnicodeString.h"

// Static services that turn SVG attribute values into numbers, points, arcs
// and rectangles, and SVG keywords into model enumerations.
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
};

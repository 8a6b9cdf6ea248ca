#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

#include "AssertionCapture.h"
#include "MMParsingTools.h"
#include "TestPrinters.h"

namespace {

// A copy of the text in a heap block of exactly its size, without a terminator,
// so that a read past the end is caught by the sanitizers.
class Range {
 public:
  explicit Range(const std::string& i_text) : _bytes(i_text.begin(), i_text.end()) {
    _bytes.reserve(1);  // a valid pointer even for an empty range
    cursor = _bytes.data();
    end = _bytes.data() + _bytes.size();
  }
  long Consumed() const { return cursor - _bytes.data(); }

  const char* cursor;
  const char* end;

 private:
  std::vector<char> _bytes;
};

struct NumberResult {
  bool ok;
  double value;
  long consumed;
};

NumberResult Number(const std::string& i_text, double i_initial = -999.0) {
  Range range(i_text);
  double value = i_initial;
  bool ok = MMParsingTools::ParseNumber(range.cursor, range.end, value);
  return {ok, value, range.Consumed()};
}

std::vector<double> ToVector(const VYRSYPDynArray<double>& i_array) {
  return std::vector<double>(i_array.begin(), i_array.end());
}

std::vector<VYRMathPoint2D> ToVector(const VYRSYPDynArray<VYRMathPoint2D>& i_array) {
  return std::vector<VYRMathPoint2D>(i_array.begin(), i_array.end());
}

}  // namespace

inline void PrintTo(const VYRMathPoint2D& i_point, std::ostream* o_stream) {
  *o_stream << '(' << i_point.x << ',' << i_point.y << ')';
}

TEST(ParsingSpaces, OnlyTheFourSvgSpaceBytes) {
  for (int code = 0; code < 256; ++code) {
    bool expected = code == 0x20 || code == 0x09 || code == 0x0A || code == 0x0D;
    EXPECT_EQ(MMParsingTools::IsSVGSpace(static_cast<char>(code)), expected) << code;
  }
}

TEST(ParsingSpaces, SkipSpacesAndAtMostOneDelimiter) {
  Range spaces(" \t\r\nx");
  EXPECT_TRUE(MMParsingTools::SkipSVGSpaces(spaces.cursor, spaces.end));
  EXPECT_EQ(spaces.Consumed(), 4);

  Range allSpaces("   ");
  EXPECT_FALSE(MMParsingTools::SkipSVGSpaces(allSpaces.cursor, allSpaces.end));
  EXPECT_EQ(allSpaces.cursor, allSpaces.end);

  Range oneComma(" , x");
  EXPECT_TRUE(MMParsingTools::SkipSVGSpacesAndDelimiters(oneComma.cursor, oneComma.end, ','));
  EXPECT_EQ(oneComma.Consumed(), 3);

  Range twoCommas(",,2");
  EXPECT_TRUE(MMParsingTools::SkipSVGSpacesAndDelimiters(twoCommas.cursor, twoCommas.end, ','));
  EXPECT_EQ(twoCommas.Consumed(), 1);  // stops on the second comma

  Range other("x");
  EXPECT_FALSE(MMParsingTools::SkipSVGSpacesAndDelimiters(other.cursor, other.end, ','));
  EXPECT_EQ(other.Consumed(), 0);

  Range trailing(" , ");
  EXPECT_FALSE(MMParsingTools::SkipSVGSpacesAndDelimiters(trailing.cursor, trailing.end, ','));
  EXPECT_EQ(trailing.cursor, trailing.end);

  Range semicolon(";a");
  EXPECT_TRUE(MMParsingTools::SkipSVGSpacesAndDelimiters(semicolon.cursor, semicolon.end, ';'));
  EXPECT_EQ(semicolon.Consumed(), 1);
}

TEST(ParsingSpaces, NullCursorOrEndIsReported) {
  AssertionCapture capture;
  Range text("1");
  const char* nullCursor = nullptr;
  double value = 7.0;
  EXPECT_FALSE(MMParsingTools::SkipSVGSpaces(nullCursor, text.end));
  EXPECT_FALSE(MMParsingTools::SkipSVGSpacesAndDelimiters(text.cursor, nullptr, ','));
  EXPECT_FALSE(MMParsingTools::ParseNumber(nullCursor, text.end, value));
  VYRSYPDynArray<double> numbers;
  EXPECT_FALSE(MMParsingTools::ParseNumberList(nullCursor, nullCursor, numbers));
  EXPECT_EQ(capture.NullPointers(), (std::vector<std::string>{"i_pStr", "i_pEnd", "i_pStr", "i_pStr"}));
  EXPECT_EQ(value, 7.0);
}

TEST(ParsingNumber, SignsDotsAndEmptyText) {
  EXPECT_EQ(Number(".").ok, true);
  EXPECT_EQ(Number(".").value, 0.0);
  EXPECT_FALSE(Number("-").ok);
  EXPECT_FALSE(Number("+").ok);
  EXPECT_FALSE(Number("").ok);
  EXPECT_FALSE(Number("x").ok);
  EXPECT_FALSE(Number(" 1").ok);  // leading spaces are the caller's business
  double value = 3.0;
  EXPECT_FALSE(MMParsingTools::ParseNumber(VYRUnicodeString(""), value));
  EXPECT_EQ(value, 3.0);

  EXPECT_EQ(Number("+7").value, 7.0);
  EXPECT_EQ(Number("-.5").value, -0.5);
  EXPECT_EQ(Number("0.1").value, 0.1);
  EXPECT_NEAR(Number("-123.456").value, -123.456, 1e-12);
  NumberResult trailing = Number("12abc");
  EXPECT_TRUE(trailing.ok);
  EXPECT_EQ(trailing.value, 12.0);
  EXPECT_EQ(trailing.consumed, 2);
}

TEST(ParsingNumber, TrailingDotEndsTheNumberBeforeSignAndExponent) {
  NumberResult minusFive = Number("-5.");
  EXPECT_TRUE(minusFive.ok);
  EXPECT_EQ(minusFive.value, 5.0);
  EXPECT_EQ(minusFive.consumed, 3);

  NumberResult dotExponent = Number("5.e3");
  EXPECT_TRUE(dotExponent.ok);
  EXPECT_EQ(dotExponent.value, 5.0);
  EXPECT_EQ(dotExponent.consumed, 2);  // on the 'e'

  NumberResult negativeDotExponent = Number("-3.e2");
  EXPECT_EQ(negativeDotExponent.value, 3.0);
  EXPECT_EQ(negativeDotExponent.consumed, 3);
}

TEST(ParsingNumber, ExponentsAndUnits) {
  EXPECT_EQ(Number("1.5e2").value, 150.0);
  EXPECT_EQ(Number("-2.5E-1").value, -0.25);
  EXPECT_EQ(Number("4e+0").value, 4.0);

  for (const char* unit : {"2em", "3ex", "2Em"}) {
    NumberResult withUnit = Number(unit);
    EXPECT_TRUE(withUnit.ok) << unit;
    EXPECT_EQ(withUnit.value, unit[0] - '0') << unit;
    EXPECT_EQ(withUnit.consumed, 1) << unit;
  }

  NumberResult lastByteE = Number("2e");
  EXPECT_TRUE(lastByteE.ok);
  EXPECT_EQ(lastByteE.value, 2.0);
  EXPECT_EQ(lastByteE.consumed, 1);

  NumberResult danglingSign = Number("2e+", 9.0);
  EXPECT_FALSE(danglingSign.ok);
  EXPECT_EQ(danglingSign.value, 9.0);  // not written
  EXPECT_EQ(danglingSign.consumed, 3);
  EXPECT_FALSE(Number("2ez").ok);
  EXPECT_EQ(Number("2ez").consumed, 2);
}

TEST(ParsingNumber, ExponentLimitAndOverflow) {
  NumberResult largest = Number("1e308");
  EXPECT_TRUE(largest.ok);
  EXPECT_NEAR(largest.value / 1e308, 1.0, 1e-12);

  NumberResult tooLarge = Number("1e309", 9.0);
  EXPECT_FALSE(tooLarge.ok);
  EXPECT_EQ(tooLarge.value, 9.0);
  EXPECT_FALSE(Number("1e-309").ok);  // the limit is on the magnitude
  NumberResult smallest = Number("1e-308");
  EXPECT_TRUE(smallest.ok);
  EXPECT_GT(smallest.value, 0.0);
  EXPECT_NEAR(smallest.value / 1e-308, 1.0, 1e-12);
  EXPECT_FALSE(Number("1e99999999999999999999999999").ok);

  // An allowed exponent whose product overflows stores 0.
  for (const char* text : {"9e308", "100e307"}) {
    NumberResult overflow = Number(text, 9.0);
    EXPECT_FALSE(overflow.ok) << text;
    EXPECT_EQ(overflow.value, 0.0) << text;
  }

  EXPECT_NEAR(Number("12345678901234567890.5").value, 1.2345678901234567e19, 1e4);
  NumberResult longRun = Number(std::string(400, '9'), 9.0);
  EXPECT_FALSE(longRun.ok);
  EXPECT_EQ(longRun.value, 0.0);
  EXPECT_EQ(longRun.consumed, 400);
}

TEST(ParsingNumberList, SpacesCommasAndFailures) {
  VYRSYPDynArray<double> numbers;
  EXPECT_TRUE(MMParsingTools::ParseNumberList(VYRUnicodeString("1 2,3 , 4"), numbers));
  EXPECT_EQ(ToVector(numbers), (std::vector<double>{1, 2, 3, 4}));

  // Appends to what is there; keeps what was parsed before a failure.
  Range doubleComma("1,,2");
  EXPECT_FALSE(MMParsingTools::ParseNumberList(doubleComma.cursor, doubleComma.end, numbers));
  EXPECT_EQ(ToVector(numbers), (std::vector<double>{1, 2, 3, 4, 1}));

  VYRSYPDynArray<double> other;
  EXPECT_FALSE(MMParsingTools::ParseNumberList(VYRUnicodeString("1;2"), other));
  EXPECT_EQ(ToVector(other), (std::vector<double>{1}));

  VYRSYPDynArray<double> empty;
  Range spaces("   ");
  EXPECT_TRUE(MMParsingTools::ParseNumberList(spaces.cursor, spaces.end, empty));
  Range nothing("");
  EXPECT_TRUE(MMParsingTools::ParseNumberList(nothing.cursor, nothing.end, empty));
  EXPECT_FALSE(MMParsingTools::ParseNumberList(VYRUnicodeString(""), empty));
  EXPECT_EQ(empty.GetLength(), 0);

  VYRSYPDynArray<double> matrix;
  EXPECT_TRUE(MMParsingTools::ParseNumberList(VYRUnicodeString(" 1 0 0 0 0\n0 1 0 0 0\t-.5,1e1 0 0 0 "), matrix));
  EXPECT_EQ(matrix.GetLength(), 15);
  EXPECT_EQ(matrix[10], -0.5);
  EXPECT_EQ(matrix[11], 10.0);
}

TEST(ParsingPoint, OnePairNothingAfterChecked) {
  VYRMathPoint2D point(-1, -1);
  EXPECT_TRUE(MMParsingTools::ParseSVGPoint(VYRUnicodeString(" 3 , 4 junk"), point));
  EXPECT_EQ(point, VYRMathPoint2D(3, 4));

  VYRMathPoint2D untouched(-1, -1);
  EXPECT_FALSE(MMParsingTools::ParseSVGPoint(VYRUnicodeString("3"), untouched));
  EXPECT_FALSE(MMParsingTools::ParseSVGPoint(VYRUnicodeString("3,x"), untouched));
  EXPECT_FALSE(MMParsingTools::ParseSVGPoint(VYRUnicodeString("3,,4"), untouched));
  EXPECT_EQ(untouched, VYRMathPoint2D(-1, -1));
}

TEST(ParsingPointList, FlipInAbsoluteAndRelativeModes) {
  const VYRUnicodeString text("10,20 30,40");
  VYRSYPDynArray<VYRMathPoint2D> absolute;
  EXPECT_TRUE(MMParsingTools::ParseSVGPointList(text, absolute, MM2D::PathCoordAbsolute, true, 100.0));
  EXPECT_EQ(ToVector(absolute), (std::vector<VYRMathPoint2D>{{10, 80}, {30, 60}}));

  VYRSYPDynArray<VYRMathPoint2D> relative;
  EXPECT_TRUE(MMParsingTools::ParseSVGPointList(text, relative, MM2D::PathCoordRelative, true, 100.0));
  EXPECT_EQ(ToVector(relative), (std::vector<VYRMathPoint2D>{{10, -20}, {30, -40}}));

  VYRSYPDynArray<VYRMathPoint2D> unflipped;
  EXPECT_TRUE(MMParsingTools::ParseSVGPointList(text, unflipped, MM2D::PathCoordRelative, false, 100.0));
  EXPECT_EQ(ToVector(unflipped), (std::vector<VYRMathPoint2D>{{10, 20}, {30, 40}}));
}

TEST(ParsingPointList, DanglingCoordinateAndEmptyRange) {
  VYRSYPDynArray<VYRMathPoint2D> points;
  EXPECT_FALSE(MMParsingTools::ParseSVGPointList(VYRUnicodeString("1,2 3"), points, MM2D::PathCoordAbsolute,
                                                 false, 0.0));
  EXPECT_EQ(ToVector(points), (std::vector<VYRMathPoint2D>{{1, 2}}));

  Range spaces(" \n ");
  EXPECT_TRUE(MMParsingTools::ParseSVGPointList(spaces.cursor, spaces.end, points, MM2D::PathCoordAbsolute, false,
                                                0.0));
  EXPECT_EQ(points.GetLength(), 1);
}

TEST(ParsingArc, SevenParametersWithAngleReduction) {
  double rx = 0, ry = 0, angle = 0, x = 0, y = 0;
  bool largeArc = true, sweep = false;
  EXPECT_TRUE(MMParsingTools::ParseSVGEllipticalArc(VYRUnicodeString("25 25 -30 0 1 50 -25"), rx, ry, angle,
                                                    largeArc, sweep, x, y));
  EXPECT_EQ(rx, 25.0);
  EXPECT_EQ(ry, 25.0);
  EXPECT_EQ(angle, -30.0);
  EXPECT_FALSE(largeArc);
  EXPECT_TRUE(sweep);
  EXPECT_EQ(x, 50.0);
  EXPECT_EQ(y, -25.0);

  EXPECT_TRUE(MMParsingTools::ParseSVGEllipticalArc(VYRUnicodeString("-25,-3 725 0,0 1 2"), rx, ry, angle, largeArc,
                                                    sweep, x, y));
  EXPECT_EQ(rx, 25.0);
  EXPECT_EQ(ry, 3.0);
  EXPECT_EQ(angle, 5.0);

  const std::pair<const char*, double> angles[] = {
      {"1 1 720 0 0 0 0", 360.0}, {"1 1 -720 0 0 0 0", -360.0}, {"1 1 360 0 0 0 0", 360.0},
      {"1 1 -725.5 0 0 0 0", -5.5}, {"1 1 -361 0 0 0 0", -1.0}};
  for (const auto& [text, expected] : angles) {
    EXPECT_TRUE(MMParsingTools::ParseSVGEllipticalArc(VYRUnicodeString(text), rx, ry, angle, largeArc, sweep, x, y));
    EXPECT_EQ(angle, expected) << text;
  }
  // A huge angle ends in range at once.
  EXPECT_TRUE(MMParsingTools::ParseSVGEllipticalArc(VYRUnicodeString("1 1 1e300 0 0 0 0"), rx, ry, angle, largeArc,
                                                    sweep, x, y));
  EXPECT_TRUE(angle >= -360.0 && angle <= 360.0);
}

TEST(ParsingArc, FlagsAreWholeNumbersAndFailuresKeepEarlierValues) {
  double rx = 0, ry = 0, angle = 0, x = 0, y = 0;
  bool largeArc = false, sweep = false;
  EXPECT_TRUE(MMParsingTools::ParseSVGEllipticalArc(VYRUnicodeString("1 1 0 01 0.5 5 6"), rx, ry, angle, largeArc,
                                                    sweep, x, y));
  EXPECT_TRUE(largeArc);
  EXPECT_TRUE(sweep);
  EXPECT_EQ(x, 5.0);
  EXPECT_EQ(y, 6.0);

  // "11" is one flag, so the end point runs short.
  EXPECT_FALSE(MMParsingTools::ParseSVGEllipticalArc(VYRUnicodeString("2 3 0 11 7 8"), rx, ry, angle, largeArc,
                                                     sweep, x, y));
  EXPECT_EQ(rx, 2.0);
  EXPECT_EQ(x, 8.0);

  EXPECT_FALSE(MMParsingTools::ParseSVGEllipticalArc(VYRUnicodeString("-5 6 x"), rx, ry, angle, largeArc, sweep, x,
                                                     y));
  EXPECT_EQ(rx, -5.0);  // absolute values are taken only on success
  EXPECT_EQ(ry, 6.0);
}

TEST(ParsingRect, FourNumbers) {
  double x = 0, y = 0, width = 0, height = 0;
  EXPECT_TRUE(MMParsingTools::ParseSVGRect(VYRUnicodeString(" 0,-10 100 50 junk"), x, y, width, height));
  EXPECT_EQ(y, -10.0);
  EXPECT_EQ(width, 100.0);
  EXPECT_EQ(height, 50.0);
  EXPECT_TRUE(MMParsingTools::ParseSVGRect(VYRUnicodeString("1 2 -3 0"), x, y, width, height));
  EXPECT_EQ(width, -3.0);
  EXPECT_FALSE(MMParsingTools::ParseSVGRect(VYRUnicodeString("0,0,100"), x, y, width, height));
  EXPECT_FALSE(MMParsingTools::ParseSVGRect(VYRUnicodeString(""), x, y, width, height));
}

TEST(ParsingKeywords, RoundTripsAndUnknownValues) {
  for (MM2D::UnitType type : {MM2D::UnitUserSpaceOnUse, MM2D::UnitObjectBoundingBox}) {
    EXPECT_EQ(MMParsingTools::StringToUnitType(MMParsingTools::UnitTypeToString(type)), type);
  }
  EXPECT_EQ(MMParsingTools::UnitTypeToString(MM2D::UnitObjectBoundingBox), "objectBoundingBox");
  EXPECT_EQ(MMParsingTools::StringToUnitType("UserSpaceOnUse"), MM2D::UnitUnknown);
  EXPECT_TRUE(MMParsingTools::UnitTypeToString(MM2D::UnitUnknown).IsEmpty());

  const std::pair<MM2D::ColorMatrixType, const char*> matrixTypes[] = {
      {MM2D::ColorMatrixMatrix, "matrix"},
      {MM2D::ColorMatrixSaturate, "saturate"},
      {MM2D::ColorMatrixHueRotate, "hueRotate"},
      {MM2D::ColorMatrixLuminanceToAlpha, "luminanceToAlpha"}};
  for (const auto& [type, keyword] : matrixTypes) {
    EXPECT_EQ(MMParsingTools::ColorMatrixTypeToString(type), keyword);
    EXPECT_EQ(MMParsingTools::StringToColorMatrixType(keyword), type);
  }
  EXPECT_TRUE(MMParsingTools::ColorMatrixTypeToString(static_cast<MM2D::ColorMatrixType>(5)).IsEmpty());
  EXPECT_TRUE(MMParsingTools::ColorMatrixTypeToString(MM2D::ColorMatrixUnknown).IsEmpty());
  EXPECT_EQ(MMParsingTools::StringToColorMatrixType("matrix "), MM2D::ColorMatrixUnknown);
}

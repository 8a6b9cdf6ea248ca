#include <gtest/gtest.h>

#include <cmath>

#include "AssertionCapture.h"
#include "StreamBytes.h"
#include "VYR2DGStringStream.h"
#include "VYRPrtTransformAttributes.h"

namespace {

const double kPi = 3.14159265358979323846;

VYRMathPoint2D Apply(const VYRPrtTransformAttributes& i_transform, double i_x, double i_y) {
  VYRMath3x3Matrix matrix;
  i_transform.GetTransformationMatrix(matrix);
  return matrix * VYRMathPoint2D(i_x, i_y);
}

std::vector<uint8_t> Streamed(VYRPrtTransformAttributes& i_transform) {
  VYR2DGStringStream stream;
  i_transform.Stream(&stream);
  return StreamBytes(stream);
}

VYRPrtTransformAttributes Unstreamed(const std::vector<uint8_t>& i_bytes) {
  VYR2DGStringStream stream = ReadingStream(i_bytes);
  VYRPrtTransformAttributes transform;
  transform.Unstream(&stream);
  EXPECT_EQ(stream.GetReadableBytesLeft(), 0);
  return transform;
}

// One entry of every kind, with the bytes it streams as.
VYRPrtTransformAttributes EveryKind() {
  VYRPrtTransformAttributes transform;
  transform.AddScaleX(2.0);
  transform.AddMatrix(VYRMath2x2Matrix(1.0, 0.5, 0.0, 2.0));
  transform.AddRotation(0.5f);
  transform.AddTranslation(VYRMathVector2D(1.0, 2.0));
  transform.AddScaleY(0.5);
  transform.AddSkewX(1.0f);
  transform.AddSkewY(2.0f);
  return transform;
}

const char* const kEveryKindBytes =
    "07 00 00 00  03 00 00 00 00 00 00 00 02 00 00 00 01 00 00 00 04 00 00 00 05 00 00 00 06 00 00 00"
    "  01 00 00 00  00 00 00 00 00 00 F0 3F  00 00 00 00 00 00 E0 3F  00 00 00 00 00 00 00 00"
    "  00 00 00 00 00 00 00 40"
    "  01 00 00 00  00 00 00 00 00 00 00 40"  // scale X
    "  01 00 00 00  00 00 00 00 00 00 E0 3F"  // scale Y
    "  01 00 00 00  00 00 00 3F"              // rotation
    "  01 00 00 00  00 00 80 3F"              // skew X
    "  01 00 00 00  00 00 00 40"              // skew Y
    "  01 00 00 00  00 00 00 00 00 00 F0 3F  00 00 00 00 00 00 00 40";

}  // namespace

TEST(TransformAttributes, EmptyListIsTheIdentity) {
  VYRPrtTransformAttributes transform;
  VYRMath3x3Matrix matrix;
  matrix.Set(0, 0, 5.0);
  EXPECT_EQ(transform.GetTransformationMatrix(matrix), 0);
  EXPECT_TRUE(matrix.IsIdentity());
  unsigned int count = 9;
  VYRPrintTransformType* paTypes = reinterpret_cast<VYRPrintTransformType*>(&count);
  EXPECT_EQ(transform.GetTransformTab(count, paTypes), 1);
  EXPECT_EQ(count, 0u);
  EXPECT_EQ(paTypes, nullptr);
  EXPECT_EQ(Streamed(transform), Hex("00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00"));
}

TEST(TransformAttributes, FirstEntryIsOutermost) {
  VYRPrtTransformAttributes translateThenRotate;
  translateThenRotate.AddTranslation(VYRMathVector2D(10, 0));
  translateThenRotate.AddRotation(static_cast<float>(kPi / 2));
  VYRMathPoint2D point = Apply(translateThenRotate, 1, 0);
  EXPECT_NEAR(point.x, 10.0, 1e-6);
  EXPECT_NEAR(point.y, 1.0, 1e-6);

  VYRPrtTransformAttributes scaleThenTranslate;
  scaleThenTranslate.AddScaleX(2);
  scaleThenTranslate.AddTranslation(VYRMathVector2D(5, 7));
  EXPECT_EQ(Apply(scaleThenTranslate, 1, 0), VYRMathPoint2D(12, 7));
  VYRPrtTransformAttributes translateThenScale;
  translateThenScale.AddTranslation(VYRMathVector2D(5, 7));
  translateThenScale.AddScaleX(2);
  EXPECT_EQ(Apply(translateThenScale, 1, 0), VYRMathPoint2D(7, 7));
}

TEST(TransformAttributes, ElementaryMatrices) {
  VYRPrtTransformAttributes transform = EveryKind();
  VYRMath3x3Matrix matrix;
  EXPECT_EQ(transform.GetTransformationMatrix(matrix), 1);
  // scaleX(2) . matrix . rotate(0.5) . translate(1, 2) . scaleY(0.5) . skewX(1) . skewY(2), in single-precision angles
  auto rows = [](double a, double b, double c, double d, double e, double f) {
    VYRMath3x3Matrix m;
    m.SetCoef(a, b, c, d, e, f, 0, 0, 1);
    return m;
  };
  float c = std::cos(0.5f), s = std::sin(0.5f);
  VYRMath3x3Matrix expected = rows(2, 0, 0, 0, 1, 0) * rows(1, 0.5, 0, 0, 2, 0) * rows(c, -s, 0, s, c, 0) *
                              rows(1, 0, 1, 0, 1, 2) * rows(1, 0, 0, 0, 0.5, 0) * rows(1, std::tan(1.0f), 0, 0, 1, 0) *
                              rows(1, 0, 0, std::tan(2.0f), 1, 0);
  for (int row = 0; row < 3; ++row)
    for (int column = 0; column < 3; ++column)
      EXPECT_NEAR(matrix.Get(row, column), expected.Get(row, column), 1e-12) << row << "," << column;
}

TEST(TransformAttributes, GettersGiveTheLastEntryOfTheirKindAtOrBeforeTheIndex) {
  VYRPrtTransformAttributes transform;
  EXPECT_EQ(transform.AddScaleX(2), 1);
  EXPECT_EQ(transform.AddRotation(0.5f), 1);
  double factor = 0;
  EXPECT_EQ(transform.GetScaleX(1, factor), 1);
  EXPECT_EQ(factor, 2.0);
  factor = 0;
  EXPECT_EQ(transform.GetScaleX(0, factor), 1);
  EXPECT_EQ(factor, 2.0);
  float angle = 7;
  EXPECT_EQ(transform.GetRotation(0, angle), -1);
  EXPECT_EQ(angle, 7.0f);
  EXPECT_EQ(transform.GetRotation(1, angle), 1);
  EXPECT_EQ(angle, 0.5f);
  EXPECT_EQ(transform.GetScaleX(2, factor), -1);  // past the list
  VYRMath2x2Matrix matrix(5, 5, 5, 5);
  EXPECT_EQ(transform.GetMatrix(1, matrix), -1);  // no matrix at all
  EXPECT_EQ(matrix, VYRMath2x2Matrix(5, 5, 5, 5));

  unsigned int count = 0;
  VYRPrintTransformType* paTypes = nullptr;
  transform.GetTransformTab(count, paTypes);
  ASSERT_EQ(count, 2u);
  EXPECT_EQ(paTypes[0], VYRPrintTransformScaleX);
  EXPECT_EQ(paTypes[1], VYRPrintTransformRotation);
}

TEST(TransformAttributes, CopiesAndAppendsAreDeep) {
  VYRPrtTransformAttributes original = EveryKind();
  VYRPrtTransformAttributes copy(original);
  VYRPrtTransformAttributes assigned;
  assigned.AddSkewX(3.0f);
  assigned = original;
  EXPECT_EQ(copy, original);
  EXPECT_EQ(assigned, original);
  original.AddScaleX(9);
  EXPECT_NE(copy, original);
  EXPECT_EQ(copy, assigned);

  VYRPrtTransformAttributes twice = copy;
  EXPECT_EQ(twice.AddTransformAttributes(twice), 1);
  VYRPrtTransformAttributes expected = copy;
  expected.AddScaleX(2.0);
  expected.AddMatrix(VYRMath2x2Matrix(1.0, 0.5, 0.0, 2.0));
  expected.AddRotation(0.5f);
  expected.AddTranslation(VYRMathVector2D(1.0, 2.0));
  expected.AddScaleY(0.5);
  expected.AddSkewX(1.0f);
  expected.AddSkewY(2.0f);
  EXPECT_EQ(twice, expected);
}

TEST(TransformAttributes, StreamsEveryKindAndReadsItBack) {
  VYRPrtTransformAttributes transform = EveryKind();
  EXPECT_EQ(Streamed(transform), Hex(kEveryKindBytes));
  EXPECT_EQ(Unstreamed(Hex(kEveryKindBytes)), transform);

  VYRPrtTransformAttributes untouched = EveryKind();
  untouched.Stream(nullptr);
  untouched.Unstream(nullptr);
  EXPECT_EQ(untouched, transform);
}

TEST(TransformAttributes, ScaleXValuesAreCountedByTheMatrices) {
  // Two scale-X factors and no matrix: the count 2 and no values.
  VYRPrtTransformAttributes scalesOnly;
  scalesOnly.AddScaleX(3.0);
  scalesOnly.AddScaleX(4.0);
  EXPECT_EQ(Streamed(scalesOnly), Hex("02 00 00 00 03 00 00 00 03 00 00 00  00 00 00 00  02 00 00 00"
                                      "  00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00"));
  VYRPrtTransformAttributes read = Unstreamed(Streamed(scalesOnly));
  double factor = 0;
  EXPECT_EQ(read.GetScaleX(1, factor), 1);
  EXPECT_EQ(factor, 1.0);  // never read: the neutral factor

  // Two matrices and one scale-X: two values, the second beyond the array.
  VYRPrtTransformAttributes moreMatrices;
  moreMatrices.AddMatrix(VYRMath2x2Matrix());
  moreMatrices.AddScaleX(3.0);
  moreMatrices.AddMatrix(VYRMath2x2Matrix());
  moreMatrices.AddTranslation(VYRMathVector2D(-1, 0));
  std::vector<uint8_t> bytes = Streamed(moreMatrices);
  std::vector<uint8_t> scaleX(bytes.begin() + 4 + 16 + 4 + 64, bytes.begin() + 4 + 16 + 4 + 64 + 20);
  EXPECT_EQ(scaleX, Hex("01 00 00 00  00 00 00 00 00 00 08 40  00 00 00 00 00 00 F0 3F"));
  EXPECT_EQ(bytes.size(), 4 + 16 + 4 + 64 + 20 + 16 + 4 + 16u);
  EXPECT_EQ(Unstreamed(bytes), moreMatrices);  // the excess value is read and dropped

  // One matrix and two scale-X: only the first factor travels.
  VYRPrtTransformAttributes moreScales;
  moreScales.AddMatrix(VYRMath2x2Matrix());
  moreScales.AddScaleX(3.0);
  moreScales.AddScaleX(4.0);
  read = Unstreamed(Streamed(moreScales));
  EXPECT_EQ(read.GetScaleX(1, factor), 1);
  EXPECT_EQ(factor, 3.0);
  EXPECT_EQ(read.GetScaleX(2, factor), 1);
  EXPECT_EQ(factor, 1.0);
}

TEST(TransformAttributes, EveryTruncationGivesTheIdentity) {
  std::vector<uint8_t> bytes = Hex(kEveryKindBytes);
  for (size_t length = 0; length < bytes.size(); ++length) {
    AssertionCapture capture;
    VYR2DGStringStream stream = ReadingStream(std::vector<uint8_t>(bytes.begin(), bytes.begin() + length));
    VYRPrtTransformAttributes transform = EveryKind();
    transform.Unstream(&stream);
    EXPECT_EQ(transform, VYRPrtTransformAttributes()) << length;
    EXPECT_TRUE(stream.HasFailed() || !capture.Reports().empty()) << length;
  }
}

TEST(TransformAttributes, ImplausibleCountsAreRefused) {
  const std::vector<std::string> damaged = {
      "FF FF FF 7F 00 00 00 00",                       // entry count beyond the stream
      "FF FF FF FF",                                   // negative entry count
      "01 00 00 00 03 00 00 00  FF FF FF FF",          // negative matrix count
      "01 00 00 00 03 00 00 00  00 00 00 00  E8 03 00 00  00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00",  // 1000 scale-X for one entry
      "01 00 00 00 01 00 00 00  00 00 00 00  00 00 00 00  00 00 00 00 00 00 00 00 00 00 00 00  02 00 00 00"
      "  00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00",  // two translations for one entry
  };
  for (const std::string& listing : damaged) {
    AssertionCapture capture;
    VYR2DGStringStream stream = ReadingStream(Hex(listing));
    VYRPrtTransformAttributes transform = EveryKind();
    transform.Unstream(&stream);
    EXPECT_EQ(transform, VYRPrtTransformAttributes()) << listing;
    EXPECT_FALSE(capture.FailedConditions().empty()) << listing;
  }
}

TEST(TransformAttributes, UnknownKindTravelsUnchangedAndComposesToNothing) {
  std::vector<uint8_t> bytes = Hex("02 00 00 00  09 00 00 00 03 00 00 00  00 00 00 00  01 00 00 00"
                                   "  00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00");
  VYRPrtTransformAttributes transform = Unstreamed(bytes);
  EXPECT_EQ(Streamed(transform), bytes);
  EXPECT_EQ(Apply(transform, 1, 1), VYRMathPoint2D(1, 1));  // the scale-X factor was never read: 1
}

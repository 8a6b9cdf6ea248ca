#include <gtest/gtest.h>

#include <cmath>

#include "AssertionCapture.h"
#include "VYR3x3Matrix.h"
#include "VYR5X5ColorMatrix.h"
#include "VYRMath2x2Matrix.h"
#include "VYRMath3x3Matrix.h"
#include "VYRMathConstants.h"
#include "VYRRawColldouble.h"

namespace {

void ExpectNear(const VYRMathPoint2D& i_actual, double i_x, double i_y) {
  EXPECT_NEAR(i_actual.x, i_x, 1e-12);
  EXPECT_NEAR(i_actual.y, i_y, 1e-12);
}

void ExpectIdentity(const VYRMath3x3Matrix& i_matrix, double i_tolerance) {
  for (int row = 0; row < 3; ++row)
    for (int column = 0; column < 3; ++column)
      EXPECT_NEAR(i_matrix.Get(row, column), row == column ? 1.0 : 0.0, i_tolerance) << row << "," << column;
}

VYRRawColldouble Sequence(int i_count) {
  VYRRawColldouble values;
  for (int i = 1; i <= i_count; ++i) values.Append(i * 0.5);
  return values;
}

TEST(MathConstants, PiAndTwoPi) {
  EXPECT_EQ(std::cos(VYRMathPi), -1.0);
  EXPECT_EQ(VYRMath2Pi, 2.0 * VYRMathPi);
  EXPECT_EQ(VYRMathPif, static_cast<float>(M_PI));
}

TEST(Math2x2Matrix, CoefficientsAreRowMajor) {
  EXPECT_TRUE(VYRMath2x2Matrix().IsIdentity());
  VYRMath2x2Matrix matrix;
  matrix.SetCoef(1, 2, 3, 4);
  ExpectNear(matrix * VYRMathPoint2D(1, 0), 1, 3);
  ExpectNear(matrix * VYRMathPoint2D(0, 1), 2, 4);
  EXPECT_EQ(matrix * VYRMathVector2D(1, 1), VYRMathVector2D(3, 7));
  double a, b, c, d;
  matrix.GetCoef(a, b, c, d);
  EXPECT_EQ(VYRMath2x2Matrix(a, b, c, d), matrix);
  EXPECT_EQ(a, 1);
  EXPECT_EQ(b, 2);
  EXPECT_EQ(c, 3);
  EXPECT_EQ(d, 4);
  EXPECT_EQ(matrix.Determinant(), -2);
}

TEST(Math2x2Matrix, ProductAppliesTheRightFactorFirst) {
  const VYRMath2x2Matrix rotation(0, -1, 1, 0);  // a quarter turn
  const VYRMath2x2Matrix scaleX(2, 0, 0, 1);
  const VYRMathPoint2D p(1, 0);
  ExpectNear((rotation * scaleX) * p, 0, 2);  // scaled, then turned
  ExpectNear((scaleX * rotation) * p, 0, 1);  // turned, then scaled
  EXPECT_TRUE(rotation.IsIsometry());
  EXPECT_TRUE(VYRMath2x2Matrix(1, 0, 0, -1).IsIsometry());
  EXPECT_FALSE(scaleX.IsIsometry());
  EXPECT_FALSE(VYRMath2x2Matrix(1, 1, 0, 1).IsIsometry());
}

TEST(Math2x2Matrix, InverseUndoesAndSingularFails) {
  const VYRMath2x2Matrix matrix(2, 1, 1, 1);
  VYRMath2x2Matrix inverse;
  ASSERT_EQ(matrix.Invert(inverse), 1);
  EXPECT_EQ(inverse, VYRMath2x2Matrix(1, -1, -1, 2));
  EXPECT_TRUE((matrix * inverse).IsIdentity());

  VYRMath2x2Matrix untouched(5, 6, 7, 8);
  EXPECT_EQ(VYRMath2x2Matrix(1, 2, 2, 4).Invert(untouched), -1);
  EXPECT_EQ(untouched, VYRMath2x2Matrix(5, 6, 7, 8));
}

TEST(Math3x3Matrix, CoefficientsAreRowMajorWithTranslationInTheLastColumn) {
  EXPECT_TRUE(VYRMath3x3Matrix().IsIdentity());
  VYRMath3x3Matrix matrix;
  matrix.SetCoef(1, 2, 3, 4, 5, 6, 7, 8, 9);
  EXPECT_EQ(matrix.Get(0, 2), 3);
  EXPECT_EQ(matrix.Get(1, 0), 4);
  EXPECT_EQ(matrix.Get(2, 1), 8);
  double m[9];
  matrix.GetCoef(m[0], m[1], m[2], m[3], m[4], m[5], m[6], m[7], m[8]);
  for (int i = 0; i < 9; ++i) EXPECT_EQ(m[i], i + 1);
  ExpectNear(matrix * VYRMathPoint2D(1, 1), 1 + 2 + 3, 4 + 5 + 6);  // the third row is not used

  AssertionCapture capture;
  EXPECT_EQ(matrix.Get(3, 0), 0);
  matrix.Set(0, -1, 99);
  EXPECT_EQ(capture.FailedConditions(),
            std::vector<std::string>(2, "(i_row>=0 && i_row<3 && i_column>=0 && i_column<3)"));
  VYRMath3x3Matrix same;
  same.SetCoef(1, 2, 3, 4, 5, 6, 7, 8, 9);
  EXPECT_EQ(matrix, same);
}

TEST(Math3x3Matrix, ProductAppliesTheRightFactorFirst) {
  // A translation by (10, 0) around a quarter turn maps (1, 0) to (10, 1).
  VYRMath3x3Matrix translation, rotation;
  translation.Set(0, 2, 10);
  rotation.SetCoef(0, -1, 0, 1, 0, 0, 0, 0, 1);
  ExpectNear((translation * rotation) * VYRMathPoint2D(1, 0), 10, 1);
  ExpectNear((rotation * translation) * VYRMathPoint2D(1, 0), 0, 11);
}

TEST(Math3x3Matrix, InverseUndoesAndSingularFails) {
  VYRMath3x3Matrix matrix;
  matrix.SetCoef(2, 0.5, -3, 1, 4, 7, 0.25, -1, 5);
  VYRMath3x3Matrix inverse;
  ASSERT_EQ(matrix.Invert(inverse), 1);
  ExpectIdentity(matrix * inverse, 1e-12);
  ExpectIdentity(inverse * matrix, 1e-12);

  VYRMath3x3Matrix singular;
  singular.SetCoef(1, 2, 3, 2, 4, 6, 0, 0, 1);
  EXPECT_EQ(singular.Determinant(), 0);
  EXPECT_EQ(singular.Invert(inverse), -1);
  ExpectIdentity(matrix * inverse, 1e-12);  // inverse untouched
}

TEST(Affine3x3Matrix, SplitsIntoColumnsAndTranslationAndBack) {
  VYRMathVector2D first, second, translation;
  VYR3x3Matrix().GetColumns(first, second, translation);
  EXPECT_EQ(first, VYRMathVector2D(1, 0));
  EXPECT_EQ(second, VYRMathVector2D(0, 1));
  EXPECT_EQ(translation, VYRMathVector2D(0, 0));

  const VYR3x3Matrix matrix(0.1f, 2, 3, 4, 5.3f, 6);
  matrix.GetColumns(first, second, translation);
  EXPECT_EQ(first, VYRMathVector2D(0.1f, 4));
  EXPECT_EQ(second, VYRMathVector2D(2, 5.3f));
  EXPECT_EQ(translation, VYRMathVector2D(3, 6));
  EXPECT_EQ(VYR3x3Matrix(first, second, translation), matrix);

  float a, b, c, d, e, f;
  matrix.GetCoef(a, b, c, d, e, f);
  VYR3x3Matrix copy;
  copy.SetCoef(a, b, c, d, e, f);
  EXPECT_EQ(copy, matrix);
  EXPECT_EQ(matrix.MapPoint(VYRMathPoint2Df(1, 0)), VYRMathPoint2Df(0.1f + 3, 4 + 6));
  EXPECT_EQ(matrix.MapPoint(VYRMathPoint2Df(0, 1)), VYRMathPoint2Df(2 + 3, 5.3f + 6));
}

TEST(Affine3x3Matrix, ConcatActsInTheCurrentCoordinates) {
  const VYR3x3Matrix translation(1, 0, 10, 0, 1, 0);
  const VYR3x3Matrix scale(2, 0, 0, 0, 3, 0);
  VYR3x3Matrix matrix = translation;
  matrix.Concat(scale);
  EXPECT_EQ(matrix, translation * scale);
  EXPECT_EQ(matrix.MapPoint(VYRMathPoint2Df(1, 1)), VYRMathPoint2Df(12, 3));
  EXPECT_EQ((scale * translation).MapPoint(VYRMathPoint2Df(1, 1)), VYRMathPoint2Df(22, 3));
}

TEST(Affine3x3Matrix, InverseMapsPointsBack) {
  const VYR3x3Matrix matrix(0, -2, 5, 4, 0, -3);
  VYR3x3Matrix inverse;
  ASSERT_EQ(matrix.Invert(inverse), 1);
  const VYRMathPoint2Df back = inverse.MapPoint(matrix.MapPoint(VYRMathPoint2Df(1.5f, -7)));
  EXPECT_FLOAT_EQ(back.x, 1.5f);
  EXPECT_FLOAT_EQ(back.y, -7);
  EXPECT_TRUE((matrix * inverse).IsIdentity());

  VYR3x3Matrix untouched(1, 2, 3, 4, 5, 6);
  EXPECT_EQ(VYR3x3Matrix(1, 2, 0, 2, 4, 0).Invert(untouched), -1);
  EXPECT_EQ(untouched, VYR3x3Matrix(1, 2, 3, 4, 5, 6));
}

TEST(Affine3x3Matrix, TakesTheUpperRowsOfADoubleMatrix) {
  VYRMath3x3Matrix matrix;
  matrix.SetCoef(1, 2, 3, 4, 5, 6, 7, 8, 9);
  EXPECT_EQ(VYR3x3Matrix(matrix), VYR3x3Matrix(1, 2, 3, 4, 5, 6));
}

void ExpectRow(const VYR5X5ColorMatrix& i_matrix, int i_row, std::vector<double> i_expected) {
  for (int column = 0; column < 5; ++column)
    EXPECT_NEAR(i_matrix.Get(i_row, column), i_expected[column], 1e-12) << "row " << i_row << " column " << column;
}

TEST(ColorMatrix, SaturateFollowsTheSvgFormulas) {
  const VYR5X5ColorMatrix grey = VYR5X5ColorMatrix::Saturate(0);
  for (int row = 0; row < 3; ++row) ExpectRow(grey, row, {0.213, 0.715, 0.072, 0, 0});
  ExpectRow(grey, 3, {0, 0, 0, 1, 0});
  ExpectRow(grey, 4, {0, 0, 0, 0, 1});

  const VYR5X5ColorMatrix half = VYR5X5ColorMatrix::Saturate(0.5);
  ExpectRow(half, 0, {0.213 + 0.787 * 0.5, 0.715 - 0.715 * 0.5, 0.072 - 0.072 * 0.5, 0, 0});
  ExpectRow(half, 1, {0.213 - 0.213 * 0.5, 0.715 + 0.285 * 0.5, 0.072 - 0.072 * 0.5, 0, 0});
  ExpectRow(half, 2, {0.213 - 0.213 * 0.5, 0.715 - 0.715 * 0.5, 0.072 + 0.928 * 0.5, 0, 0});

  const VYR5X5ColorMatrix full = VYR5X5ColorMatrix::Saturate(1);
  for (int row = 0; row < 5; ++row)
    for (int column = 0; column < 5; ++column) EXPECT_NEAR(full.Get(row, column), row == column, 1e-15);
}

TEST(ColorMatrix, HueRotateFollowsTheSvgFormulas) {
  const VYR5X5ColorMatrix turned = VYR5X5ColorMatrix::HueRotate(90);  // cos 0, sin 1
  ExpectRow(turned, 0, {0.213 - 0.213, 0.715 - 0.715, 0.072 + 0.928, 0, 0});
  ExpectRow(turned, 1, {0.213 + 0.143, 0.715 + 0.140, 0.072 - 0.283, 0, 0});
  ExpectRow(turned, 2, {0.213 - 0.787, 0.715 + 0.715, 0.072 + 0.072, 0, 0});
  ExpectRow(turned, 3, {0, 0, 0, 1, 0});

  const VYR5X5ColorMatrix halfTurn = VYR5X5ColorMatrix::HueRotate(180);  // cos -1, sin 0
  ExpectRow(halfTurn, 0, {0.213 - 0.787, 0.715 + 0.715, 0.072 + 0.072, 0, 0});
  const VYR5X5ColorMatrix fullTurn = VYR5X5ColorMatrix::HueRotate(360);
  for (int row = 0; row < 3; ++row)
    for (int column = 0; column < 3; ++column) EXPECT_NEAR(fullTurn.Get(row, column), row == column, 1e-12);
}

TEST(ColorMatrix, LuminanceToAlphaPutsTheWeightsInTheAlphaRow) {
  const VYR5X5ColorMatrix matrix = VYR5X5ColorMatrix::LuminanceToAlpha();
  for (int row = 0; row < 3; ++row) ExpectRow(matrix, row, {0, 0, 0, 0, 0});
  ExpectRow(matrix, 3, {0.2125, 0.7154, 0.0721, 0, 0});
  ExpectRow(matrix, 4, {0, 0, 0, 0, 1});
  EXPECT_EQ(VYR5X5ColorMatrix::Identity(), VYR5X5ColorMatrix());
}

TEST(ColorMatrix, CoefficientsRoundTripRowByRow) {
  VYR5X5ColorMatrix matrix;
  ASSERT_EQ(matrix.SetCoef(Sequence(25)), 1);
  EXPECT_EQ(matrix.Get(0, 4), 2.5);
  EXPECT_EQ(matrix.Get(4, 0), 10.5);

  VYRRawColldouble values;
  values.Append(-1);  // replaced, not appended to
  ASSERT_EQ(matrix.GetCoef(values), 1);
  EXPECT_EQ(values.Size(), VYR5X5ColorMatrix::CoefCount);
  EXPECT_EQ(values, Sequence(25));

  VYR5X5ColorMatrix copy;
  ASSERT_EQ(copy.SetCoef(values), 1);
  EXPECT_EQ(copy, matrix);
  ASSERT_EQ(VYR5X5ColorMatrix().GetCoef(values), 1);
  EXPECT_EQ(values[1], 1);
  EXPECT_EQ(values[7], 1);
  EXPECT_EQ(values[2], 0);
}

TEST(ColorMatrix, SvgMatrixFillsTheUpperFourRows) {
  VYR5X5ColorMatrix matrix;
  ASSERT_EQ(matrix.SetSVGMatrix(Sequence(20)), 1);
  ExpectRow(matrix, 0, {0.5, 1, 1.5, 2, 2.5});
  ExpectRow(matrix, 3, {8, 8.5, 9, 9.5, 10});
  ExpectRow(matrix, 4, {0, 0, 0, 0, 1});
}

TEST(ColorMatrix, WrongCountsAndIndexesAreReportedAndChangeNothing) {
  VYR5X5ColorMatrix matrix = VYR5X5ColorMatrix::Saturate(0.3);
  const VYR5X5ColorMatrix before = matrix;
  AssertionCapture capture;
  EXPECT_EQ(matrix.SetCoef(Sequence(24)), -1);
  EXPECT_EQ(matrix.SetCoef(Sequence(20)), -1);
  EXPECT_EQ(matrix.SetSVGMatrix(Sequence(25)), -1);
  EXPECT_EQ(matrix.SetSVGMatrix(VYRRawColldouble()), -1);
  EXPECT_EQ(capture.FailedConditions(), std::vector<std::string>(4, "i_values.Size() == i_count"));
  EXPECT_EQ(matrix, before);

  capture.Clear();
  EXPECT_EQ(matrix.Get(5, 0), 0);
  matrix.Set(0, 5, 1);
  EXPECT_EQ(capture.FailedConditions(),
            std::vector<std::string>(2, "(i_row>=0 && i_row<5 && i_column>=0 && i_column<5)"));
  EXPECT_EQ(matrix, before);
}

}  // namespace

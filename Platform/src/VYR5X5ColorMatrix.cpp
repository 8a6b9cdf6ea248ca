#include "VYR5X5ColorMatrix.h"

#include <cmath>

#include "VYRAssert.h"
#include "VYRMathConstants.h"
#include "VYRRawColldouble.h"

namespace {

// The colour blocks of SVG's saturate and hueRotate are
//   luminance + p * (identity - luminance) + q * hueSine
// with p = s, q = 0 for saturate and p = cos, q = sin of the angle for hueRotate.
const double kLuminance[3] = {0.213, 0.715, 0.072};
const double kHueSine[3][3] = {{-0.213, -0.715, 0.928}, {0.143, 0.140, -0.283}, {-0.787, 0.715, 0.072}};

// luminanceToAlpha has weights of its own.
const double kLuminanceToAlpha[3] = {0.2125, 0.7154, 0.0721};

VYR5X5ColorMatrix FromColourBlock(double i_p, double i_q) {
  VYR5X5ColorMatrix matrix;
  for (int row = 0; row < 3; ++row)
    for (int column = 0; column < 3; ++column) {
      const double identity = row == column ? 1.0 : 0.0;
      matrix.Set(row, column, kLuminance[column] + i_p * (identity - kLuminance[column]) + i_q * kHueSine[row][column]);
    }
  return matrix;
}

}  // namespace

VYR5X5ColorMatrix VYR5X5ColorMatrix::Saturate(double i_s) { return FromColourBlock(i_s, 0.0); }

VYR5X5ColorMatrix VYR5X5ColorMatrix::HueRotate(double i_degrees) {
  const double radians = i_degrees * VYRMathPi / 180.0;
  return FromColourBlock(std::cos(radians), std::sin(radians));
}

VYR5X5ColorMatrix VYR5X5ColorMatrix::LuminanceToAlpha() {
  VYR5X5ColorMatrix matrix;
  for (int row = 0; row < 4; ++row)
    for (int column = 0; column < 4; ++column) matrix._m[row][column] = row == 3 && column < 3 ? kLuminanceToAlpha[column] : 0.0;
  return matrix;
}

int VYR5X5ColorMatrix::SetRows(const VYRRawColldouble& i_values, int i_count) {
  if (!VYR_CHECK_CONDITION(i_values.Size() == i_count)) return -1;
  for (int i = 0; i < i_count; ++i) _m[i / 5][i % 5] = i_values[i + 1];
  return 1;
}

int VYR5X5ColorMatrix::SetSVGMatrix(const VYRRawColldouble& i_values) { return SetRows(i_values, SVGMatrixCoefCount); }

int VYR5X5ColorMatrix::SetCoef(const VYRRawColldouble& i_values) { return SetRows(i_values, CoefCount); }

int VYR5X5ColorMatrix::GetCoef(VYRRawColldouble& o_values) const {
  o_values.RemoveAll(VYRCollec::DoNotFreeMemory);
  for (const auto& row : _m)
    for (double value : row)
      if (o_values.Append(value) < 0) return -1;
  return 1;
}

static bool CheckIndex(int i_row, int i_column) {
  return VYR_CHECK_CONDITION_TEXT(i_row >= 0 && i_row < 5 && i_column >= 0 && i_column < 5,
                                  "(i_row>=0 && i_row<5 && i_column>=0 && i_column<5)");
}

double VYR5X5ColorMatrix::Get(int i_row, int i_column) const {
  return CheckIndex(i_row, i_column) ? _m[i_row][i_column] : 0.0;
}

void VYR5X5ColorMatrix::Set(int i_row, int i_column, double i_value) {
  if (CheckIndex(i_row, i_column)) _m[i_row][i_column] = i_value;
}

bool VYR5X5ColorMatrix::operator==(const VYR5X5ColorMatrix& i_other) const {
  for (int row = 0; row < 5; ++row)
    for (int column = 0; column < 5; ++column)
      if (_m[row][column] != i_other._m[row][column]) return false;
  return true;
}

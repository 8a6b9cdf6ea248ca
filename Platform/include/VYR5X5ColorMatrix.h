#pragma once

#include "VYRExport.h"

class VYRRawColldouble;

// A colour matrix of doubles acting on (R, G, B, A, 1) with channels in 0..1:
// rows give R', G', B', A' and the constant row (0 0 0 0 1); the fifth column
// is the offset, also in 0..1 units. Identity by default. Rows and columns
// count from 0.
class VYR_EXPORT VYR5X5ColorMatrix {
 public:
  static constexpr int CoefCount = 25;
  // The number of values of an SVG "matrix": the upper four rows.
  static constexpr int SVGMatrixCoefCount = 20;

  VYR5X5ColorMatrix() = default;

  // The SVG colour-matrix kinds. Saturate takes s as SVG does (0 greys out,
  // 1 is the identity; values above 1 over-saturate). HueRotate takes degrees.
  static VYR5X5ColorMatrix Identity() { return VYR5X5ColorMatrix(); }
  static VYR5X5ColorMatrix Saturate(double i_s);
  static VYR5X5ColorMatrix HueRotate(double i_degrees);
  static VYR5X5ColorMatrix LuminanceToAlpha();

  // Sets the upper four rows from the 20 values of an SVG "matrix", row by
  // row; the constant row stays (0 0 0 0 1). Returns 1, or -1 with a report
  // and the matrix unchanged when the count is not 20.
  int SetSVGMatrix(const VYRRawColldouble& i_values);

  // All 25 coefficients, row by row: GetCoef replaces the list's content,
  // SetCoef needs exactly CoefCount values (else a report, -1 and the matrix
  // unchanged). Both return 1 on success.
  int GetCoef(VYRRawColldouble& o_values) const;
  int SetCoef(const VYRRawColldouble& i_values);

  // A row or column outside 0..4 reports "(i_row>=0 && i_row<5 && i_column>=0 && i_column<5)";
  // Get then returns 0 and Set does nothing.
  double Get(int i_row, int i_column) const;
  void Set(int i_row, int i_column, double i_value);

  bool operator==(const VYR5X5ColorMatrix& i_other) const;
  bool operator!=(const VYR5X5ColorMatrix& i_other) const { return !(*this == i_other); }

 private:
  // Loads i_count values row by row from the list, after checking its size.
  int SetRows(const VYRRawColldouble& i_values, int i_count);

  double _m[5][5] = {{1, 0, 0, 0, 0}, {0, 1, 0, 0, 0}, {0, 0, 1, 0, 0}, {0, 0, 0, 1, 0}, {0, 0, 0, 0, 1}};
};

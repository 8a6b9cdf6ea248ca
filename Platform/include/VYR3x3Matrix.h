#pragma once

#include "VYRExport.h"
#include "VYRMathPoint2Df.h"
#include "VYRMathVector2D.h"

class VYRMath3x3Matrix;

// The affine matrix of the drawing engine: six floats a b c d e f standing
// for
//   | a  b  c |
//   | d  e  f |
//   | 0  0  1 |
// so a point (x, y) maps to (a*x + b*y + c, d*x + e*y + f). Identity by
// default. GetCoef and SetCoef take the six in the order a, b, c, d, e, f.
class VYR_EXPORT VYR3x3Matrix {
 public:
  VYR3x3Matrix() = default;
  VYR3x3Matrix(float i_a, float i_b, float i_c, float i_d, float i_e, float i_f)
      : _a(i_a), _b(i_b), _c(i_c), _d(i_d), _e(i_e), _f(i_f) {}
  // Built from its first column (a, d), second column (b, e) and translation
  // (c, f): the reverse of GetColumns.
  VYR3x3Matrix(const VYRMathVector2D& i_firstColumn, const VYRMathVector2D& i_secondColumn,
               const VYRMathVector2D& i_translation);
  // The upper two rows of a double matrix, narrowed to float.
  explicit VYR3x3Matrix(const VYRMath3x3Matrix& i_matrix);

  void GetCoef(float& o_a, float& o_b, float& o_c, float& o_d, float& o_e, float& o_f) const {
    o_a = _a;
    o_b = _b;
    o_c = _c;
    o_d = _d;
    o_e = _e;
    o_f = _f;
  }
  void SetCoef(float i_a, float i_b, float i_c, float i_d, float i_e, float i_f) {
    *this = VYR3x3Matrix(i_a, i_b, i_c, i_d, i_e, i_f);
  }

  // Splits the matrix into its first column (a, d), its second column (b, e)
  // and its translation (c, f). Widening to double loses nothing, so
  // rebuilding from the three gives back the same floats.
  void GetColumns(VYRMathVector2D& o_firstColumn, VYRMathVector2D& o_secondColumn,
                  VYRMathVector2D& o_translation) const;

  // The product this x other: applying it applies i_other first.
  VYR3x3Matrix operator*(const VYR3x3Matrix& i_other) const;
  // this = this x other: i_other acts in the current coordinate system, as a
  // canvas concatenation does.
  void Concat(const VYR3x3Matrix& i_other) { *this = *this * i_other; }

  // Stores the inverse in o_inverse and returns 1; a singular matrix returns
  // -1 and leaves o_inverse untouched.
  int Invert(VYR3x3Matrix& o_inverse) const;

  VYRMathPoint2Df MapPoint(const VYRMathPoint2Df& i_point) const {
    return VYRMathPoint2Df(_a * i_point.x + _b * i_point.y + _c, _d * i_point.x + _e * i_point.y + _f);
  }
  bool IsIdentity() const { return *this == VYR3x3Matrix(); }

  bool operator==(const VYR3x3Matrix& i_other) const {
    return _a == i_other._a && _b == i_other._b && _c == i_other._c && _d == i_other._d && _e == i_other._e &&
           _f == i_other._f;
  }
  bool operator!=(const VYR3x3Matrix& i_other) const { return !(*this == i_other); }

 private:
  float _a = 1.0f, _b = 0.0f, _c = 0.0f;
  float _d = 0.0f, _e = 1.0f, _f = 0.0f;
};

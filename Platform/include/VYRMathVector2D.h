#pragma once

// A displacement of the model: two doubles.
struct VYRMathVector2D {
  double x = 0.0;
  double y = 0.0;
  VYRMathVector2D() = default;
  VYRMathVector2D(double i_x, double i_y) : x(i_x), y(i_y) {}
  bool operator==(const VYRMathVector2D& i_other) const { return x == i_other.x && y == i_other.y; }
  bool operator!=(const VYRMathVector2D& i_other) const { return !(*this == i_other); }
};

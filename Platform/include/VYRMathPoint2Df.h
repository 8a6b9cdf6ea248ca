#pragma once

// A point of the drawing engine: two floats.
struct VYRMathPoint2Df {
  float x = 0.0f;
  float y = 0.0f;
  VYRMathPoint2Df() = default;
  VYRMathPoint2Df(float i_x, float i_y) : x(i_x), y(i_y) {}
  bool operator==(const VYRMathPoint2Df& i_other) const { return x == i_other.x && y == i_other.y; }
  bool operator!=(const VYRMathPoint2Df& i_other) const { return !(*this == i_other); }
};

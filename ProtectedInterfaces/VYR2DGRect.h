#pragma once

// A rectangle of the drawing engine: it spans x to x + width and y to y + height.
struct VYR2DGRect {
  float x = 0.0f;
  float y = 0.0f;
  float width = 0.0f;
  float height = 0.0f;
  VYR2DGRect() = default;
  VYR2DGRect(float i_x, float i_y, float i_width, float i_height)
      : x(i_x), y(i_y), width(i_width), height(i_height) {}
};

#pragma once

// Enumerations shared by the model and the drawing engine. All have a fixed
// 32-bit underlying type, so any value read from a stream is representable.
namespace MM2D {

// Knockout group setting; the drawing engine gives the non-zero values their meaning.
enum Knockout : int {
  KnockoutNone = 0,
};

// Kind of gradient held by fill and stroke attributes.
enum GradientType : int {
  GradientNone = 0,
  GradientLinear = 1,
  GradientRadial = 2,
};

}  // namespace MM2D

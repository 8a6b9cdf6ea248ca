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

// Coordinate system of gradient, pattern, mask and filter geometry.
enum UnitType : int {
  UnitUnknown = 0,
  UnitUserSpaceOnUse = 1,
  UnitObjectBoundingBox = 2,
};

// Kind of a colour-matrix filter effect.
enum ColorMatrixType : int {
  ColorMatrixUnknown = 0,
  ColorMatrixMatrix = 1,
  ColorMatrixSaturate = 2,
  ColorMatrixHueRotate = 3,
  ColorMatrixLuminanceToAlpha = 4,
};

// Coordinates of a path command: absolute (upper-case command) or relative (lower-case).
enum PathCoordMode : int {
  PathCoordAbsolute = 0,
  PathCoordRelative = 1,
};

}  // namespace MM2D

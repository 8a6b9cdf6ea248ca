#pragma once

// Enumerations shared by the model, the parsers and the host.
namespace MM2D {

// Coordinate system of gradient, pattern, mask and filter geometry.
enum UnitType { UnitUnknown = 0, UnitUserSpaceOnUse = 1, UnitObjectBoundingBox = 2 };

// Kind of a colour-matrix filter effect.
enum ColorMatrixType {
  ColorMatrixUnknown = 0,
  ColorMatrixMatrix = 1,
  ColorMatrixSaturate = 2,
  ColorMatrixHueRotate = 3,
  ColorMatrixLuminanceToAlpha = 4
};

// Coordinates of a path command: absolute (upper-case command) or relative (lower-case).
enum PathCoordMode { PathCoordAbsolute = 0, PathCoordRelative = 1 };

}  // namespace MM2D

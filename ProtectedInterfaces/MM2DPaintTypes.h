#pragma once

// Enumerations of the paint-server, reference and filter elements. Fixed
// 32-bit underlying types: any value read from a stream is representable.
namespace MM2D {

// What the size of a marker is measured in.
enum MarkerUnitType : int {
  MarkerUnitUnknown = 0,
  MarkerUnitStrokeWidth = 1,
  MarkerUnitUserSpaceOnUse = 2,
};

// How a marker is turned: by its own angle, or along the path at its vertex.
enum MarkerOrientation : int {
  MarkerOrientAngle = 0,
  MarkerOrientAuto = 1,
};

// Colour space in which filter effects compute.
enum ColorInterpolation : int {
  ColorInterpolationAuto = 0,
  ColorInterpolationSRGB = 1,
  ColorInterpolationLinearRGB = 2,
};

}  // namespace MM2D

#pragma once

// Enumerations of the drawing interface that model attributes also carry.
// Fixed 32-bit underlying types: values come straight from byte streams.

// How a shape is composited onto what lies below; values above 27 mean source-over.
enum VYR2DGTransferMode : int {
  VYR2DGTransferClear = 0,
  VYR2DGTransferSource,
  VYR2DGTransferDestination,
  VYR2DGTransferSourceOver,
  VYR2DGTransferDestinationOver,
  VYR2DGTransferSourceIn,
  VYR2DGTransferDestinationIn,
  VYR2DGTransferSourceOut,
  VYR2DGTransferDestinationOut,
  VYR2DGTransferSourceAtop,
  VYR2DGTransferDestinationAtop,
  VYR2DGTransferXor,
  VYR2DGTransferPlus,
  VYR2DGTransferMultiply,
  VYR2DGTransferScreen,
  VYR2DGTransferOverlay,
  VYR2DGTransferDarken,
  VYR2DGTransferLighten,
  VYR2DGTransferColorDodge,
  VYR2DGTransferColorBurn,
  VYR2DGTransferHardLight,
  VYR2DGTransferSoftLight,
  VYR2DGTransferDifference,
  VYR2DGTransferExclusion,
  VYR2DGTransferHue,
  VYR2DGTransferSaturation,
  VYR2DGTransferColor,
  VYR2DGTransferLuminosity,
};

// Line style, cap and join share one enumeration. As a cap, values other than
// square and round mean butt; as a join, values other than round and bevel mean miter.
enum VYRPrintLineAttribute : int {
  VYRPrintLineSolid = 8,
  VYRPrintLineCapButt = 10,
  VYRPrintLineCapSquare = 11,
  VYRPrintLineCapRound = 12,
  VYRPrintLineJoinMiter = 13,
  VYRPrintLineJoinRound = 14,
  VYRPrintLineJoinBevel = 15,
};

#pragma once

// Values of the drawing interface. Every enumeration is 32 bits wide and
// accepts any value: the drawing maps unknown values to a default, so callers
// may pass numbers that were read from a file.

// How strokes are painted.
enum VYRPrintEdgeMode : int {
  eEdgeModeNone = 0,            // no stroke; text skips its stroke pass
  eEdgeModeColor = 1,           // the stroke colour
  eEdgeModeColorShaderTarget = 2,  // the stroke colour; a gradient set now becomes the stroke's
  eEdgeModeShader = 3           // the stroke shader, at the stroke colour's alpha
};

// How fills are painted.
enum VYRPrintFillMode : int {
  eFillModeNone = 0,      // no fill; text skips its fill pass
  eFillModeColor = 1,     // the fill colour
  eFillModePattern = 2,   // the fill shader (a pattern), at the fill colour's alpha
  eFillModeGradient = 3   // the fill shader (a gradient), at the fill colour's alpha
};

// 1 is non-zero winding; every other value is even-odd.
enum VYRPrintFillRule : int {
  eFillRuleEvenOdd = 0,
  eFillRuleNonZero = 1
};

// Line style, caps and joins share one enumeration (style 8 is solid).
// Unknown caps are butt, unknown joins miter.
enum VYRPrintLineAttribute : int {
  eLineStyleSolid = 8,
  eLineCapButt = 10,
  eLineCapSquare = 11,
  eLineCapRound = 12,
  eLineJoinMiter = 13,
  eLineJoinRound = 14,
  eLineJoinBevel = 15
};

// Transfer (blend) modes 0 to 27; values above 27 blend as source-over.
enum VYR2DGTransferMode : int {
  eTransferClear = 0,
  eTransferSource = 1,
  eTransferDestination = 2,
  eTransferSourceOver = 3,
  eTransferDestinationOver = 4,
  eTransferSourceIn = 5,
  eTransferDestinationIn = 6,
  eTransferSourceOut = 7,
  eTransferDestinationOut = 8,
  eTransferSourceAtop = 9,
  eTransferDestinationAtop = 10,
  eTransferXor = 11,
  eTransferPlus = 12,
  eTransferMultiply = 13,
  eTransferScreen = 14,
  eTransferOverlay = 15,
  eTransferDarken = 16,
  eTransferLighten = 17,
  eTransferColorDodge = 18,
  eTransferColorBurn = 19,
  eTransferHardLight = 20,
  eTransferSoftLight = 21,
  eTransferDifference = 22,
  eTransferExclusion = 23,
  eTransferHue = 24,
  eTransferSaturation = 25,
  eTransferColor = 26,
  eTransferLuminosity = 27
};

// 1 subtracts from the clip, 2 adds to it, every other value intersects.
enum VYR2DGClipOperator : int {
  eClipIntersect = 0,
  eClipDifference = 1,
  eClipUnion = 2
};

// How a pattern image tiles.
enum VYR2DGPatternMode : int {
  ePatternClamp = 0,
  ePatternRepeat = 1,
  ePatternMirror = 2
};

// Horizontal anchor of text; unknown values are left.
enum VYR2DGTextAlign : int {
  eTextAlignLeft = 0,
  eTextAlignCenter = 1,
  eTextAlignRight = 2
};

// 1 is bold; every other value is normal.
enum VYR2DGTextWeight : int {
  eTextWeightNormal = 0,
  eTextWeightBold = 1
};

// Glyph hinting; unknown values are normal.
enum VYR2DGTextHinting : int {
  eTextHintingNone = 0,
  eTextHintingSlight = 1,
  eTextHintingNormal = 2,
  eTextHintingFull = 3
};

// Bits of the text style flags.
enum VYR2DGTextStyleFlag : int {
  eTextStyleItalic = 1,
  eTextStyleOblique = 2,
  eTextStyleUnderline = 4,
  eTextStyleStrikeThrough = 16,
  eTextStyleVertical = 32
};

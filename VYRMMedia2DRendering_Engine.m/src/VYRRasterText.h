#pragma once

#include "VYRExport.h"

class VYRRasterPaint;
class VYRRasterPath;

// Text as glyph outlines, laid out as a paint describes it: its typeface (the
// default one when it has none), text size, horizontal scale and skew,
// alignment, and the underline, strike-through and vertical-text flags.
// Glyphs stand on their unkerned advances; a glyph the typeface lacks comes
// from a fallback face. Malformed UTF-8 bytes draw as U+FFFD.
class VYR_EXPORT VYRRasterText {
 public:
  // Replaces o_pPath by the outlines of the text anchored at (x, y): on the
  // baseline for horizontal text (alignment moves the text along it), at the
  // top centre of the column for vertical text (alignment moves it up).
  // Underline and strike-through bars join the outlines of horizontal text.
  static void GetTextPath(const VYRRasterPaint& i_paint, const char* i_pUtf8, int i_byteLength, float i_x,
                          float i_y, VYRRasterPath* o_pPath);
  // The advance of the text: its width, or its height for vertical text.
  static float MeasureText(const VYRRasterPaint& i_paint, const char* i_pUtf8, int i_byteLength);
};

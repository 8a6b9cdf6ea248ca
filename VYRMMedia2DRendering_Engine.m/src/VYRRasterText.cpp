#include "VYRRasterText.h"

#include <string>
#include <vector>

#include "VYRAssert.h"
#include "VYRRasterPaint.h"
#include "VYRRasterPath.h"
#include "VYRRasterTypeface.h"
#include "VYRUnicodeString.h"

namespace {

VYRRasterTypeface* TypefaceOf(const VYRRasterPaint& i_paint) {
  return i_paint.getTypeface() != nullptr ? i_paint.getTypeface() : VYRRasterTypeface::GetDefault();
}

bool IsVertical(const VYRRasterPaint& i_paint) { return (i_paint.getFlags() & VYRRasterPaint::kVerticalText_Flag) != 0; }

// The glyphs of a text and their advance along the line, in em units.
struct GlyphRun {
  std::vector<const VYRRasterGlyph*> glyphs;
  float advance = 0.0f;
};

GlyphRun Layout(VYRRasterTypeface& io_typeface, bool i_vertical, const char* i_pUtf8, int i_byteLength) {
  GlyphRun run;
  const std::u32string codePoints = VYRUnicodeString(i_pUtf8, i_byteLength).ConvertToCodePoints();
  run.glyphs.reserve(codePoints.size());
  for (const char32_t codePoint : codePoints) {
    const VYRRasterGlyph& glyph = io_typeface.GetGlyph(codePoint);
    run.glyphs.push_back(&glyph);
    run.advance += i_vertical ? glyph.verticalAdvance : glyph.advance;
  }
  return run;
}

// Twice the signed area of the contours' control polygons: positive when they
// mostly turn clockwise (y down).
float SignedArea(const VYRRasterPath& i_path) {
  const std::vector<uint8_t>& verbs = i_path.verbs();
  const std::vector<VYRMathPoint2Df>& points = i_path.points();
  float area = 0.0f;
  size_t point = 0, contourStart = 0;
  auto closeContour = [&](size_t i_end) {
    if (i_end > contourStart) {
      const VYRMathPoint2Df& last = points[i_end - 1];
      const VYRMathPoint2Df& first = points[contourStart];
      area += last.x * first.y - first.x * last.y;
    }
  };
  for (const uint8_t verb : verbs) {
    if (verb == VYRRasterPath::kMove_Verb) {
      closeContour(point);
      contourStart = point;
    }
    const size_t count = verb == VYRRasterPath::kCubic_Verb ? 3 : verb == VYRRasterPath::kQuad_Verb ? 2
                       : verb == VYRRasterPath::kClose_Verb ? 0 : 1;
    for (size_t i = 0; i < count && point < points.size(); ++i, ++point) {
      if (point > contourStart) {
        const VYRMathPoint2Df& a = points[point - 1];
        const VYRMathPoint2Df& b = points[point];
        area += a.x * b.y - b.x * a.y;
      }
    }
  }
  closeContour(point);
  return area;
}

// Underline and strike-through bars under and across a line of text. They
// turn the way the glyphs' outer contours do, so that where they cross a
// glyph the two add up instead of cancelling under the winding rule.
void AddDecorations(const VYRRasterPaint& i_paint, const VYRRasterFaceMetrics& i_metrics, float i_left, float i_right,
                    float i_baseline, VYRRasterPath& io_path) {
  const uint32_t flags = i_paint.getFlags();
  if ((flags & (VYRRasterPaint::kUnderlineText_Flag | VYRRasterPaint::kStrikeThruText_Flag)) == 0) return;
  const float size = i_paint.getTextSize();
  const auto direction = SignedArea(io_path) >= 0.0f ? VYRRasterPath::kCW_Direction : VYRRasterPath::kCCW_Direction;
  if ((flags & VYRRasterPaint::kUnderlineText_Flag) != 0) {
    const float top = i_baseline - size * (i_metrics.underlinePosition + 0.5f * i_metrics.underlineThickness);
    io_path.addRect(i_left, top, i_right, top + size * i_metrics.underlineThickness, direction);
  }
  if ((flags & VYRRasterPaint::kStrikeThruText_Flag) != 0) {
    const float top = i_baseline - size * i_metrics.strikeoutPosition;
    io_path.addRect(i_left, top, i_right, top + size * i_metrics.strikeoutThickness, direction);
  }
}

// How far the text starts before its anchor along the line.
float AlignmentShift(VYRRasterPaint::Align i_align, float i_length) {
  switch (i_align) {
    case VYRRasterPaint::kCenter_Align: return -0.5f * i_length;
    case VYRRasterPaint::kRight_Align: return -i_length;
    default: return 0.0f;
  }
}

}  // namespace

void VYRRasterText::GetTextPath(const VYRRasterPaint& i_paint, const char* i_pUtf8, int i_byteLength, float i_x,
                                float i_y, VYRRasterPath* o_pPath) {
  if (!VYR_CHECK_POINTER(o_pPath)) return;
  o_pPath->reset();
  VYRRasterTypeface* pTypeface = TypefaceOf(i_paint);
  if (pTypeface == nullptr || i_pUtf8 == nullptr || i_byteLength <= 0) return;
  const bool vertical = IsVertical(i_paint);
  const GlyphRun run = Layout(*pTypeface, vertical, i_pUtf8, i_byteLength);

  const float size = i_paint.getTextSize();
  const float width = size * i_paint.getTextScaleX();
  // Glyphs are y-up: the matrix flips them and slants x by the skew times the height above the baseline.
  const float skew = i_paint.getTextSkewX() + pTypeface->SyntheticSkew();
  const float length = run.advance * (vertical ? size : width);
  const float start = AlignmentShift(i_paint.getTextAlign(), length);
  float pen = start;
  for (const VYRRasterGlyph* pGlyph : run.glyphs) {
    float originX = i_x + pen, originY = i_y;
    if (vertical) {
      originX = i_x + width * pGlyph->verticalOrigin.x;
      originY = i_y + pen + size * pGlyph->verticalOrigin.y;
      pen += size * pGlyph->verticalAdvance;
    } else {
      pen += width * pGlyph->advance;
    }
    if (pGlyph->outline.isEmpty()) continue;
    o_pPath->addPath(pGlyph->outline, VYRRasterMatrix::MakeAll(width, -skew * size, originX, 0.0f, -size, originY));
  }
  // Glyphs rarely touch one another, so their coverage may be summed as font renderers do.
  // Bars cross descenders, and a sum there would overshoot where the two edges meet.
  o_pPath->setNonOverlapping(true);
  if (!vertical) AddDecorations(i_paint, pTypeface->GetMetrics(), i_x + start, i_x + start + length, i_y, *o_pPath);
}

float VYRRasterText::MeasureText(const VYRRasterPaint& i_paint, const char* i_pUtf8, int i_byteLength) {
  VYRRasterTypeface* pTypeface = TypefaceOf(i_paint);
  if (pTypeface == nullptr || i_pUtf8 == nullptr || i_byteLength <= 0) return 0.0f;
  const bool vertical = IsVertical(i_paint);
  const GlyphRun run = Layout(*pTypeface, vertical, i_pUtf8, i_byteLength);
  return run.advance * i_paint.getTextSize() * (vertical ? 1.0f : i_paint.getTextScaleX());
}

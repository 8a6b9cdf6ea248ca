// Coverage of glyph runs: text paths are vouched not to overlap and go to
// FreeType group by group, with coverage added where groups share a pixel;
// the result stays within anti-aliasing noise of Cairo's exact-area union.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <memory>

#include "VYRCairoCoverage.h"
#include "VYRFont.h"
#include "VYRRasterCoverage.h"
#include "VYRRasterMask.h"
#include "VYRRasterPaint.h"
#include "VYRRasterText.h"
#include "VYRRasterTypeface.h"

namespace {

const VYRRasterIRect kClip{0, 0, 400, 100};

VYRRasterPath TextPath(const char* i_text, float i_size, uint32_t i_flags = 0) {
  VYRRasterTypeface* pTypeface = VYRRasterTypeface::CreateFromName("DejaVu Sans", VYRRasterTypeface::kNormal);
  VYRRasterPaint paint;
  paint.setTypeface(pTypeface);
  if (pTypeface != nullptr) pTypeface->Release();
  paint.setTextSize(i_size);
  paint.setFlags(i_flags);
  VYRRasterPath path;
  VYRRasterText::GetTextPath(paint, i_text, static_cast<int>(std::char_traits<char>::length(i_text)), 10.5f, 60.25f,
                             &path);
  return path;
}

struct Difference {
  int largest = 0;
  long inkA = 0, inkB = 0;
};

Difference Compare(const VYRRasterMask& i_a, const VYRRasterMask& i_b) {
  Difference d;
  for (int y = kClip.top; y < kClip.bottom; ++y) {
    for (int x = kClip.left; x < kClip.right; ++x) {
      d.largest = std::max(d.largest, std::abs(i_a.at(x, y) - i_b.at(x, y)));
      d.inkA += i_a.at(x, y);
      d.inkB += i_b.at(x, y);
    }
  }
  return d;
}

}  // namespace

TEST(TextCoverage, NonOverlappingIsKeptByTransformsAndWithdrawnByNewGeometry) {
  VYRRasterPath path;
  path.addRect(0, 0, 10, 10);
  EXPECT_FALSE(path.isNonOverlapping());
  path.setNonOverlapping(true);
  VYRRasterPath moved;
  path.transform(VYRRasterMatrix::MakeScale(2, -1), &moved);
  EXPECT_TRUE(moved.isNonOverlapping());
  moved.offset(3, 4);
  EXPECT_TRUE(moved.isNonOverlapping());

  VYRRasterPath grown = path;
  grown.lineTo(20, 20);
  EXPECT_FALSE(grown.isNonOverlapping());
  grown = path;
  grown.moveTo(5, 5);
  EXPECT_FALSE(grown.isNonOverlapping());
  grown = path;
  grown.addPath(path);
  EXPECT_FALSE(grown.isNonOverlapping());
  grown = path;
  grown.reset();
  EXPECT_FALSE(grown.isNonOverlapping());
  EXPECT_TRUE(TextPath("Hi", 20).isNonOverlapping());
}

TEST(TextCoverage, ShapesSideBySideAddUpInThePixelTheyShare) {
  // Two squares meeting at x = 10.5: the shared column is covered half by each.
  VYRRasterPath path;
  path.addRect(2, 2, 10.5f, 8);
  path.addRect(10.5f, 2, 19, 8);
  path.setNonOverlapping(true);
  std::unique_ptr<VYRRasterCoverage> coverage(VYRRasterCoverage::Create());
  VYRRasterMask mask;
  ASSERT_TRUE(coverage->FillPath(path, true, kClip, &mask));
  EXPECT_GE(mask.at(10, 5), 254);
  EXPECT_EQ(mask.at(5, 5), 255);
  EXPECT_EQ(mask.at(15, 5), 255);
  EXPECT_EQ(mask.at(10, 8), 0);
}

TEST(TextCoverage, GlyphRunsMatchTheExactUnionWithinEdgeNoise) {
  if (VYRFont::sGetFont("DejaVu Sans", VYRFont::kNormal) == nullptr) GTEST_SKIP() << "needs DejaVu Sans";
  std::unique_ptr<VYRRasterCoverage> coverage(VYRRasterCoverage::Create());
  VYRCairoCoverage cairo;
  for (const float size : {9.0f, 20.0f, 47.0f}) {
    const VYRRasterPath path = TextPath("Quick fjord gap, AVA!", size);
    VYRRasterMask grouped, exact;
    ASSERT_TRUE(coverage->FillPath(path, true, kClip, &grouped));
    ASSERT_TRUE(cairo.FillPath(path, true, kClip, &exact));
    const Difference d = Compare(grouped, exact);
    // Curves flatten a little differently; no glyph may be lost or doubled.
    EXPECT_LE(d.largest, 40) << size;
    EXPECT_NEAR(static_cast<double>(d.inkA) / d.inkB, 1.0, 0.01) << size;
  }
  // Underline bars cross descenders: such a path is no longer vouched for and gets the union.
  const VYRRasterPath underlined = TextPath("gjpq", 20, VYRRasterPaint::kUnderlineText_Flag);
  EXPECT_FALSE(underlined.isNonOverlapping());
  VYRRasterMask grouped, exact;
  ASSERT_TRUE(coverage->FillPath(underlined, true, kClip, &grouped));
  ASSERT_TRUE(cairo.FillPath(underlined, true, kClip, &exact));
  EXPECT_EQ(Compare(grouped, exact).largest, 0);
}

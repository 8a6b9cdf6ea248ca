// Text through VYR2DGSkiaDrawing, read back as pixels: placement for each
// alignment, bold and italic faces, oblique slant, mirroring, decorations,
// vertical text, non-ASCII glyphs and fallback, fill and stroke passes, the
// advance width, the stored rendering options and the reported faults.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

#include "AssertionCapture.h"
#include "EngineTestSurface.h"
#include "VYR2DGSkiaDrawingContext.h"
#include "VYRFont.h"
#include "VYRRasterPaint.h"
#include "VYRRasterTypeface.h"
#include "VYRUnicodeString.h"

namespace {

// Where a surface has ink (alpha above a threshold) and how much in all.
struct Ink {
  int minX = 1 << 30, maxX = -1, minY = 1 << 30, maxY = -1;
  long total = 0;
  bool Empty() const { return maxX < 0; }
  float CentreX() const { return 0.5f * (minX + maxX); }
};

struct TextSurface : EngineTestSurface {
  explicit TextSurface(int i_width = 240, int i_height = 120)
      : EngineTestSurface(i_width, i_height), width(i_width), height(i_height) {
    drawing.SetBlendingMode(eTransferSourceOver);
    drawing.SetFont(VYRUnicodeString("DejaVu Sans"));
    drawing.SetTextHeight(20.0f);
    drawing.SetFillColor(0, 0, 0, static_cast<unsigned char>(255));
    drawing.SetFillMode(eFillModeColor);
    drawing.SetStrokeMode(eEdgeModeNone);
  }

  void Draw(const char* i_text, float i_x, float i_y, bool i_mirror = false) {
    drawing.DrawTextW({i_x, i_y}, VYRUnicodeString(i_text), i_mirror);
  }

  Ink InkIn(int i_left, int i_top, int i_right, int i_bottom, unsigned i_threshold = 64) const {
    Ink ink;
    for (int y = std::max(i_top, 0); y < std::min(i_bottom, height); ++y) {
      for (int x = std::max(i_left, 0); x < std::min(i_right, width); ++x) {
        const unsigned alpha = Alpha(Pixel(x, y));
        ink.total += alpha;
        if (alpha <= i_threshold) continue;
        ink.minX = std::min(ink.minX, x);
        ink.maxX = std::max(ink.maxX, x);
        ink.minY = std::min(ink.minY, y);
        ink.maxY = std::max(ink.maxY, y);
      }
    }
    return ink;
  }
  Ink AllInk(unsigned i_threshold = 64) const { return InkIn(0, 0, width, height, i_threshold); }

  std::vector<uint32_t> Pixels() const {
    std::vector<uint32_t> pixels;
    for (int y = 0; y < height; ++y) {
      for (int x = 0; x < width; ++x) pixels.push_back(Pixel(x, y));
    }
    return pixels;
  }
  const VYRRasterPaint& Paint() const { return *Context()._pPaint; }

  int width, height;
};

bool HasDejaVuSans() {
  const VYRFont* pFont = VYRFont::sGetFont("DejaVu Sans", VYRFont::kNormal);
  return pFont != nullptr && pFont->GetFamilyName() == "DejaVu Sans";
}

#define REQUIRE_DEJAVU() \
  if (!HasDejaVuSans()) GTEST_SKIP() << "DejaVu Sans is not installed"

// Pixels of one text drawn on a fresh surface with a given setup.
template <class Setup>
std::vector<uint32_t> Render(const char* i_text, Setup i_setup) {
  TextSurface s;
  i_setup(s.drawing);
  s.Draw(i_text, 20, 60);
  return s.Pixels();
}

}  // namespace

// ---- Placement

TEST(TextDrawing, InkStandsOnTheBaselineAndMovesWithEachAlignment) {
  REQUIRE_DEJAVU();
  const float anchorX = 120, baseline = 60;
  float widths[3] = {0, 0, 0};
  for (int align = 0; align < 3; ++align) {
    TextSurface s;
    s.drawing.SetTextAlign(static_cast<VYR2DGTextAlign>(align));
    s.Draw("HEH", anchorX, baseline);
    const Ink ink = s.AllInk();
    ASSERT_FALSE(ink.Empty());
    // Capital letters stand on the baseline and reach the capital height (0.73 em).
    EXPECT_EQ(ink.maxY, baseline - 1);
    EXPECT_NEAR(ink.minY, baseline - 0.729f * 20, 1.0f);
    const float advance = static_cast<float>(s.drawing.GetTextAdvanceWidth(VYRUnicodeString("HEH")));
    widths[align] = static_cast<float>(ink.maxX - ink.minX);
    // The side bearings of H are about 0.1 em: the ink starts or ends a couple of pixels in.
    if (align == 0) {
      EXPECT_NEAR(ink.minX, anchorX + 2, 1.5f);
    } else if (align == 1) {
      EXPECT_NEAR(ink.CentreX(), anchorX, 1.0f);
    } else {
      EXPECT_NEAR(ink.maxX, anchorX - 2, 1.5f);
    }
    EXPECT_NEAR(ink.maxX - ink.minX, advance - 4, 2.0f);
  }
  // The same ink whatever the anchor, give or take a pixel of sub-pixel placement.
  EXPECT_NEAR(widths[0], widths[1], 1.0f);
  EXPECT_NEAR(widths[1], widths[2], 1.0f);
}

TEST(TextDrawing, UnknownAlignmentIsLeft) {
  REQUIRE_DEJAVU();
  const auto left = Render("Hi", [](VYR2DGDrawing& d) { d.SetTextAlign(eTextAlignLeft); });
  EXPECT_EQ(Render("Hi", [](VYR2DGDrawing& d) { d.SetTextAlign(static_cast<VYR2DGTextAlign>(7)); }), left);
}

TEST(TextDrawing, MirroredTextHangsUpsideDownBelowTheBaseline) {
  REQUIRE_DEJAVU();
  TextSurface s;
  s.drawing.SetTextHeight(40);
  s.Draw("T", 20, 50, true);
  const Ink ink = s.AllInk();
  EXPECT_EQ(ink.minY, 50);
  EXPECT_NEAR(ink.maxY + 1, 50 + 0.729f * 40, 1.0f);
  // The bar of the T is now at the bottom: the lowest rows are wide, the top ones narrow.
  const Ink bottomRows = s.InkIn(0, ink.maxY - 2, 240, ink.maxY + 1);
  const Ink topRows = s.InkIn(0, ink.minY, 240, ink.minY + 3);
  EXPECT_GT(bottomRows.maxX - bottomRows.minX, 3 * (topRows.maxX - topRows.minX));
}

// ---- Faces and slant

TEST(TextDrawing, BoldAndItalicDrawWithTheirOwnFaces) {
  REQUIRE_DEJAVU();
  const char* files[] = {"DejaVuSans.ttf", "DejaVuSans-Bold.ttf", "DejaVuSans-Oblique.ttf",
                         "DejaVuSans-BoldOblique.ttf"};
  std::vector<std::vector<uint32_t>> images;
  long totals[4] = {0, 0, 0, 0};
  for (int style = 0; style < 4; ++style) {
    TextSurface s;
    s.drawing.SetTextWeight((style & 1) ? eTextWeightBold : eTextWeightNormal);
    s.drawing.SetTextStyleFlags((style & 2) ? eTextStyleItalic : 0);
    s.Draw("Hamburg", 20, 60);
    const VYRRasterTypeface* pTypeface = s.Paint().getTypeface();
    ASSERT_NE(pTypeface, nullptr);
    const std::string path = pTypeface->GetFilePath().GetStdString();
    EXPECT_EQ(path.substr(path.find_last_of('/') + 1), files[style]);
    EXPECT_EQ(s.Paint().getTextSkewX(), 0.0f);  // the italic face slants itself
    totals[style] = s.AllInk().total;
    images.push_back(s.Pixels());
  }
  EXPECT_GT(totals[1], totals[0] * 1.2);
  EXPECT_GT(totals[3], totals[2] * 1.2);
  EXPECT_NE(images[2], images[0]);
  EXPECT_NE(images[3], images[1]);
}

TEST(TextDrawing, ItalicAndObliqueSlantTheTopToTheRight) {
  REQUIRE_DEJAVU();
  // Top and bottom rows of a vertical stem: a slant moves the top to the right.
  auto slantOf = [](int i_flags) {
    TextSurface s;
    s.drawing.SetTextHeight(40);
    s.drawing.SetTextStyleFlags(i_flags);
    s.Draw("l", 20, 60);
    const Ink top = s.InkIn(0, 60 - 28, 240, 60 - 26);
    const Ink bottom = s.InkIn(0, 57, 240, 59);
    return top.CentreX() - bottom.CentreX();
  };
  EXPECT_NEAR(slantOf(0), 0.0f, 0.6f);
  EXPECT_GT(slantOf(eTextStyleItalic), 4.0f);
  EXPECT_NEAR(slantOf(eTextStyleOblique), 0.25f * 29, 1.5f);
}

TEST(TextDrawing, ObliqueSkewLastsOneCallAndItalicWinsOverIt) {
  REQUIRE_DEJAVU();
  const auto italic = Render("Hello", [](VYR2DGDrawing& d) { d.SetTextStyleFlags(eTextStyleItalic); });
  EXPECT_EQ(Render("Hello", [](VYR2DGDrawing& d) { d.SetTextStyleFlags(eTextStyleItalic | eTextStyleOblique); }),
            italic);
  TextSurface s;
  s.drawing.SetTextStyleFlags(eTextStyleOblique);
  s.Draw("Hello", 20, 60);
  EXPECT_EQ(s.Paint().getTextSkewX(), 0.0f);
  EXPECT_EQ(s.Paint().getTypeface()->GetStyle(), VYRRasterTypeface::kNormal);
}

TEST(TextDrawing, WeightTwoDrawsAsNormal) {
  REQUIRE_DEJAVU();
  const auto normal = Render("Hello", [](VYR2DGDrawing& d) { d.SetTextWeight(eTextWeightNormal); });
  EXPECT_EQ(Render("Hello", [](VYR2DGDrawing& d) { d.SetTextWeight(static_cast<VYR2DGTextWeight>(2)); }), normal);
}

TEST(TextDrawing, PlatformFontWinsOverTheFamilyChosenByName) {
  const VYRFont* pMono = VYRFont::sGetFont("DejaVu Sans Mono", VYRFont::kNormal);
  if (!HasDejaVuSans() || pMono == nullptr || pMono->GetFamilyName() != "DejaVu Sans Mono") {
    GTEST_SKIP() << "needs DejaVu Sans and DejaVu Sans Mono";
  }
  TextSurface s;
  s.drawing.SetFont(const_cast<VYRFont*>(pMono));
  EXPECT_EQ(s.Context()._pTypeface, nullptr);
  s.Draw("iiii", 20, 60);
  EXPECT_EQ(s.Paint().getTypeface()->GetFilePath(), pMono->GetFontFilePath());
  // Every glyph of the fixed-pitch face advances 0.602 em.
  EXPECT_EQ(s.drawing.GetTextAdvanceWidth(VYRUnicodeString("iiii")), static_cast<int>(std::floor(4 * 20 * 0.602f + 0.5f)));
  // Bold comes from the font's family, found from its file.
  s.drawing.SetTextWeight(eTextWeightBold);
  s.Draw("i", 20, 90);
  EXPECT_EQ(s.Paint().getTypeface()->GetFamilyName(), "DejaVu Sans Mono");
  EXPECT_EQ(s.Paint().getTypeface()->GetStyle(), VYRRasterTypeface::kBold);
}

TEST(TextDrawing, WithoutFontOrNameTheDefaultFamilyDraws) {
  TextSurface s;
  s.drawing.SetFont(static_cast<VYRFont*>(nullptr));
  EXPECT_EQ(s.drawing.GetFont(), nullptr);
  EXPECT_EQ(s.Context()._pTypeface, nullptr);
  s.Draw("Hello", 20, 60);
  if (VYRFont::sGetDefaultFont().IsEmpty()) GTEST_SKIP() << "no fonts installed";
  EXPECT_FALSE(s.AllInk().Empty());
  EXPECT_EQ(s.Paint().getTypeface()->GetFamilyName(), VYRFont::sGetDefaultFont());
  // A family nobody has gets the configuration's substitute.
  s.drawing.SetFont(VYRUnicodeString("No Such Family 1234"));
  ASSERT_NE(s.Context()._pTypeface, nullptr);
  s.drawing.ClearBitmap();
  s.Draw("Hello", 20, 60);
  EXPECT_FALSE(s.AllInk().Empty());
}

// ---- Decorations and vertical text

TEST(TextDrawing, UnderlineAndStrikeThroughBarsSpanTheAdvance) {
  REQUIRE_DEJAVU();
  // Spaces have no ink: only a bar can fill the gap between the letters.
  auto rowsAcrossTheGap = [](int i_flags) {
    TextSurface s;
    s.drawing.SetTextHeight(40);
    s.drawing.SetTextStyleFlags(i_flags);
    s.Draw("x      x", 20, 60);
    std::vector<int> rows;
    for (int y = 0; y < 120; ++y) {
      if (s.InkIn(70, y, 130, y + 1, 128).maxX - s.InkIn(70, y, 130, y + 1, 128).minX == 59) rows.push_back(y);
    }
    return rows;
  };
  EXPECT_TRUE(rowsAcrossTheGap(0).empty());
  const std::vector<int> underline = rowsAcrossTheGap(eTextStyleUnderline);
  ASSERT_FALSE(underline.empty());
  // DejaVu Sans: underline centred 0.085 em below the baseline, 0.043 em thick.
  EXPECT_GE(underline.front(), 60);
  EXPECT_LE(underline.back(), 60 + 6);
  const std::vector<int> strike = rowsAcrossTheGap(eTextStyleStrikeThrough);
  ASSERT_FALSE(strike.empty());
  EXPECT_LT(strike.back(), 60 - 5);
  EXPECT_GT(strike.front(), 60 - 20);
  const std::vector<int> both = rowsAcrossTheGap(eTextStyleUnderline | eTextStyleStrikeThrough);
  EXPECT_EQ(both.size(), underline.size() + strike.size());
}

TEST(TextDrawing, UnderlineCrossingGlyphsKeepsTheirInk) {
  REQUIRE_DEJAVU();
  TextSurface plain, underlined;
  plain.drawing.SetTextHeight(40);
  underlined.drawing.SetTextHeight(40);
  underlined.drawing.SetTextStyleFlags(eTextStyleUnderline);
  plain.Draw("gjpq", 20, 60);
  underlined.Draw("gjpq", 20, 60);
  // Wherever the plain text has ink, the underlined one has as much, give or take edge
  // noise (plain glyph runs and decorated ones are rasterised differently); bars cancelling
  // the descenders would leave holes of full coverage.
  for (int y = 0; y < 120; ++y) {
    for (int x = 0; x < 240; ++x) {
      ASSERT_GE(EngineTestSurface::Alpha(underlined.Pixel(x, y)) + 48, EngineTestSurface::Alpha(plain.Pixel(x, y)))
          << x << "," << y;
    }
  }
}

TEST(TextDrawing, VerticalTextGoesDownACentredColumn) {
  REQUIRE_DEJAVU();
  TextSurface s(120, 240);
  s.drawing.SetTextStyleFlags(eTextStyleVertical);
  s.Draw("HHH", 60, 10);
  const Ink ink = s.AllInk();
  EXPECT_NEAR(ink.CentreX(), 60, 1.0f);
  EXPECT_LT(ink.maxX - ink.minX, 20);
  // Three line heights (1.1641 em each for this face) of glyphs.
  EXPECT_GT(ink.maxY - ink.minY, 2 * 20);
  EXPECT_NEAR(s.drawing.GetTextAdvanceWidth(VYRUnicodeString("HHH")), 3 * 20 * 1.164f, 1.0f);
  const Ink first = s.InkIn(0, 0, 120, 10 + 23);
  EXPECT_GE(first.minY, 10);
  EXPECT_TRUE(s.Paint().getFlags() & VYRRasterPaint::kVerticalText_Flag);
}

// ---- Characters beyond ASCII

TEST(TextDrawing, AccentedGreekAndCyrillicLettersHaveInk) {
  REQUIRE_DEJAVU();
  TextSurface boxes;
  boxes.Draw("\xE4\xB8\x80", 20, 60);  // U+4E00: no installed face has it, the missing box
  const std::vector<uint32_t> box = boxes.Pixels();
  for (const char* letter : {"\xC3\xA9", "\xC3\x85", "\xCE\xA9", "\xCE\xBB", "\xD0\x96", "\xD1\x8F"}) {
    TextSurface s;
    s.Draw(letter, 20, 60);
    EXPECT_FALSE(s.AllInk().Empty()) << letter;
    EXPECT_NE(s.Pixels(), box) << letter;
    EXPECT_EQ(s.drawing.GetTextAdvanceWidth(VYRUnicodeString(letter)) > 5, true) << letter;
  }
  // The accent of é stands above the x-height of e.
  TextSurface e, eAcute;
  e.Draw("e", 20, 60);
  eAcute.Draw("\xC3\xA9", 20, 60);
  EXPECT_LT(eAcute.AllInk().minY, e.AllInk().minY - 3);
}

TEST(TextDrawing, AGlyphTheFaceLacksComesFromAnotherFace) {
  REQUIRE_DEJAVU();
  if (VYRFont::sGetFont("DejaVu Serif", VYRFont::kNormal) == nullptr) GTEST_SKIP() << "needs a second face";
  TextSurface boxes, fallback;
  boxes.Draw("\xE4\xB8\x80", 20, 60);
  fallback.Draw("\xF0\x9D\x90\x80", 20, 60);  // U+1D400, not in DejaVu Sans
  const Ink ink = fallback.AllInk();
  ASSERT_FALSE(ink.Empty());
  EXPECT_NE(fallback.Pixels(), boxes.Pixels());
  // A bold capital A: a solid glyph, its apex narrow and its base wide.
  const Ink apex = fallback.InkIn(0, ink.minY, 240, ink.minY + 2);
  const Ink base = fallback.InkIn(0, ink.maxY - 1, 240, ink.maxY + 1);
  EXPECT_GT(base.maxX - base.minX, 2 * (apex.maxX - apex.minX));
}

// ---- Passes and settings

TEST(TextDrawing, FillComesFirstAndTheStrokeGoesOverIt) {
  REQUIRE_DEJAVU();
  TextSurface s;
  s.drawing.SetTextHeight(60);
  s.drawing.SetFillColor(0, 255, 0, static_cast<unsigned char>(255));
  s.drawing.SetStrokeColor(0, 0, 255, static_cast<unsigned char>(255));
  s.drawing.SetStrokeWidth(2);  // the stem is 6 px wide: 4 px of fill stay inside
  s.drawing.SetStrokeMode(eEdgeModeColor);
  s.Draw("I", 20, 80);
  const Ink ink = s.AllInk();
  const int middleY = (ink.minY + ink.maxY) / 2;
  const int centreX = static_cast<int>(ink.CentreX());
  EXPECT_EQ(s.Pixel(centreX, middleY), 0xFF00FF00u);  // the stem's inside: fill only
  // Over the outline: the stroke, blue with at most a trace of the fill at its inner edge.
  const uint32_t edge = s.Pixel(ink.minX + 1, middleY);
  EXPECT_GT(edge & 0xFFu, 0xC0u);
  EXPECT_LT((edge >> 8) & 0xFFu, 0x40u);
  EXPECT_EQ(s.Paint().getStyle(), VYRRasterPaint::kStroke_Style);
}

TEST(TextDrawing, WithNeitherPassNothingDrawsButTheSettingsChange) {
  REQUIRE_DEJAVU();
  TextSurface s;
  s.drawing.SetFillMode(eFillModeNone);
  s.drawing.SetTextHeight(33);
  s.drawing.SetTextAlign(eTextAlignRight);
  s.drawing.SetTextStyleFlags(eTextStyleUnderline);
  s.Draw("Hello", 100, 60);
  EXPECT_TRUE(s.AllInk(0).Empty());
  EXPECT_EQ(s.Paint().getTextSize(), 33.0f);
  EXPECT_EQ(s.Paint().getTextAlign(), VYRRasterPaint::kRight_Align);
  EXPECT_TRUE(s.Paint().getFlags() & VYRRasterPaint::kUnderlineText_Flag);
}

TEST(TextDrawing, AdvanceWidthMeasuresWithThePaintAsTheLastTextLeftIt) {
  REQUIRE_DEJAVU();
  TextSurface s;
  EXPECT_EQ(s.drawing.GetTextAdvanceWidth(VYRUnicodeString("")), 0);
  s.drawing.SetTextHeight(40);
  s.Draw("x", 0, 60);
  const int at40 = s.drawing.GetTextAdvanceWidth(VYRUnicodeString("Hello world"));
  const VYRRasterTypeface& face = *s.Paint().getTypeface();
  float sum = 0;
  for (const char c : std::string("Hello world")) sum += const_cast<VYRRasterTypeface&>(face).GetGlyph(c).advance;
  EXPECT_EQ(at40, static_cast<int>(std::floor(40 * sum + 0.5f)));
  // The shared state alone does not change the measure until text is drawn again.
  s.drawing.SetTextHeight(10);
  s.drawing.SetTextWeight(eTextWeightBold);
  EXPECT_EQ(s.drawing.GetTextAdvanceWidth(VYRUnicodeString("Hello world")), at40);
  s.Draw("x", 0, 60);
  const int boldAt10 = s.drawing.GetTextAdvanceWidth(VYRUnicodeString("Hello world"));
  EXPECT_NEAR(boldAt10, at40 / 4, 10);
  EXPECT_NE(boldAt10 * 4, at40);
}

TEST(TextDrawing, RenderingOptionsAreStoredOnThePaint) {
  TextSurface s;
  const struct {
    int value;
    VYRRasterPaint::Hinting hinting;
  } hintings[] = {{0, VYRRasterPaint::kNo_Hinting},
                  {1, VYRRasterPaint::kSlight_Hinting},
                  {2, VYRRasterPaint::kNormal_Hinting},
                  {3, VYRRasterPaint::kFull_Hinting},
                  {9, VYRRasterPaint::kNormal_Hinting}};
  for (const auto& c : hintings) {
    s.drawing.SetHinting(static_cast<VYR2DGTextHinting>(c.value));
    EXPECT_EQ(s.Paint().getHinting(), c.hinting) << c.value;
  }
  s.drawing.SetSubpixelRendering(true);
  s.drawing.SetSubpixelPositioning(true);
  EXPECT_EQ(s.Paint().getFlags() & (VYRRasterPaint::kLCDRenderText_Flag | VYRRasterPaint::kSubpixelText_Flag),
            uint32_t{VYRRasterPaint::kLCDRenderText_Flag | VYRRasterPaint::kSubpixelText_Flag});
  s.drawing.SetSubpixelRendering(false);
  EXPECT_EQ(s.Paint().getFlags() & VYRRasterPaint::kLCDRenderText_Flag, 0u);
  EXPECT_TRUE(s.Paint().getFlags() & VYRRasterPaint::kSubpixelText_Flag);
}

// ---- Through the path pipeline

TEST(TextDrawing, ClipsAndBlendModesApplyToGlyphs) {
  REQUIRE_DEJAVU();
  // A clip keeps the left half of the text only.
  TextSurface clipped;
  clipped.drawing.SetCurrentClipRect(VYR2DGRect(0, 0, 60, 120), eClipIntersect);
  clipped.Draw("HHHHHHHH", 20, 60);
  const Ink ink = clipped.AllInk(0);
  ASSERT_FALSE(ink.Empty());
  EXPECT_LT(ink.maxX, 60);
  EXPECT_GT(ink.maxX, 55);

  // Destination-out over an opaque square cuts the glyphs out of it.
  TextSurface cut;
  cut.drawing.SetTextHeight(60);
  cut.drawing.ApplyFillMode(eFillModeColor);
  cut.drawing.DrawRectangle(VYR2DGRect(0, 0, 240, 120));
  cut.drawing.SetBlendingMode(eTransferDestinationOut);
  cut.Draw("I", 20, 80);
  const long fullInk = 240L * 120 * 255;
  const Ink left = cut.AllInk(0);
  EXPECT_LT(left.total, fullInk - 240L * 255);
  EXPECT_EQ(EngineTestSurface::Alpha(cut.Pixel(200, 10)), 255u);
  // The stem's inside is gone.
  TextSurface plain;
  plain.drawing.SetTextHeight(60);
  plain.Draw("I", 20, 80);
  const Ink stem = plain.AllInk();
  EXPECT_EQ(EngineTestSurface::Alpha(cut.Pixel(static_cast<int>(stem.CentreX()), (stem.minY + stem.maxY) / 2)), 0u);
}

// ---- Faults and bad input

TEST(TextDrawing, MissingContextOrCanvasIsReported) {
  AssertionCapture capture;
  VYR2DGSkiaDrawing orphan(nullptr);
  orphan.DrawTextW({0, 0}, VYRUnicodeString("a"), false);
  EXPECT_EQ(orphan.GetTextAdvanceWidth(VYRUnicodeString("a")), 0);
  orphan.SetFont(VYRUnicodeString("DejaVu Sans"));
  orphan.SetHinting(eTextHintingFull);
  EXPECT_EQ(capture.NullPointers().size(), 4u);
  for (const std::string& text : capture.NullPointers()) EXPECT_EQ(text, "_pSkDrawingCtx");
  capture.Clear();
  VYR2DGSkiaDrawingContext unsized;
  VYR2DGSkiaDrawing drawing(&unsized);
  drawing.DrawTextW({0, 0}, VYRUnicodeString("a"), false);
  EXPECT_TRUE(capture.Has("pCanvas"));
}

TEST(TextDrawing, BadTextAndSizesDrawSafely) {
  TextSurface s;
  AssertionCapture capture;
  s.Draw("\xFF\xFE\xC3", 20, 60);  // malformed UTF-8: replacement glyphs
  for (const float size : {1e30f, -20.0f, 0.0f, std::nanf("")}) {
    s.drawing.SetTextHeight(size);
    s.Draw("Hello", 20, 60);
    s.drawing.GetTextAdvanceWidth(VYRUnicodeString("Hello"));
  }
  s.drawing.SetTextHeight(20);
  s.drawing.DrawTextW({std::nanf(""), 1e30f}, VYRUnicodeString("Hello"), true);
  std::string longText(20000, 'W');
  s.drawing.DrawTextW({0, 60}, VYRUnicodeString(longText.c_str()), false);
  EXPECT_GT(s.drawing.GetTextAdvanceWidth(VYRUnicodeString(longText.c_str())), 100000);
  EXPECT_TRUE(capture.Reports().empty());
}

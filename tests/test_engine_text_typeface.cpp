// Typefaces of the raster layer: faces by family and style through the font
// configuration and from font files, made-up styles, glyph outlines and
// metrics in em units, and fallback faces for missing glyphs.
#include <gtest/gtest.h>

#include <string>

#include "AssertionCapture.h"
#include "VYRFont.h"
#include "VYRRasterPaint.h"
#include "VYRRasterText.h"
#include "VYRRasterTypeface.h"

namespace {

// Releases a typeface reference at scope end.
struct TypefaceRef {
  explicit TypefaceRef(VYRRasterTypeface* i_pTypeface) : p(i_pTypeface) {}
  ~TypefaceRef() {
    if (p != nullptr) p->Release();
  }
  TypefaceRef(const TypefaceRef&) = delete;
  TypefaceRef& operator=(const TypefaceRef&) = delete;
  VYRRasterTypeface* operator->() const { return p; }
  VYRRasterTypeface* p;
};

bool HasDejaVuSans() {
  const VYRFont* pFont = VYRFont::sGetFont("DejaVu Sans", VYRFont::kNormal);
  return pFont != nullptr && pFont->GetFamilyName() == "DejaVu Sans";
}

#define REQUIRE_DEJAVU() \
  if (!HasDejaVuSans()) GTEST_SKIP() << "DejaVu Sans is not installed"

std::string FileName(const VYRRasterTypeface& i_typeface) {
  const std::string path = i_typeface.GetFilePath().GetStdString();
  return path.substr(path.find_last_of('/') + 1);
}

}  // namespace

TEST(RasterTypeface, EachStyleOfAFamilyIsItsOwnInstalledFace) {
  REQUIRE_DEJAVU();
  const char* expectedFiles[] = {"DejaVuSans.ttf", "DejaVuSans-Bold.ttf", "DejaVuSans-Oblique.ttf",
                                 "DejaVuSans-BoldOblique.ttf"};
  for (int style = 0; style < 4; ++style) {
    TypefaceRef typeface(VYRRasterTypeface::CreateFromName("DejaVu Sans", static_cast<VYRRasterTypeface::Style>(style)));
    ASSERT_NE(typeface.p, nullptr);
    EXPECT_EQ(typeface->GetFamilyName(), "DejaVu Sans");
    EXPECT_EQ(FileName(*typeface.p), expectedFiles[style]);
    EXPECT_EQ(typeface->GetStyle(), style);
    EXPECT_FALSE(typeface->IsSyntheticBold());
    EXPECT_FALSE(typeface->IsSyntheticItalic());
    EXPECT_EQ(typeface->SyntheticSkew(), 0.0f);
  }
  // The same face and style is one shared instance.
  TypefaceRef first(VYRRasterTypeface::CreateFromName("DejaVu Sans", VYRRasterTypeface::kBold));
  TypefaceRef second(VYRRasterTypeface::CreateFromName("DejaVu Sans", VYRRasterTypeface::kBold));
  EXPECT_EQ(first.p, second.p);
}

TEST(RasterTypeface, StylesAFaceLacksAreMadeUp) {
  const VYRFont* pFont = VYRFont::sGetFont("DejaVu Math TeX Gyre", VYRFont::kBoldItalic);
  if (pFont == nullptr || pFont->GetFamilyName() != "DejaVu Math TeX Gyre" || pFont->IsItalic()) {
    GTEST_SKIP() << "needs a family with a regular face only";
  }
  TypefaceRef regular(VYRRasterTypeface::CreateFromName("DejaVu Math TeX Gyre", VYRRasterTypeface::kNormal));
  TypefaceRef italic(VYRRasterTypeface::CreateFromName("DejaVu Math TeX Gyre", VYRRasterTypeface::kItalic));
  TypefaceRef bold(VYRRasterTypeface::CreateFromName("DejaVu Math TeX Gyre", VYRRasterTypeface::kBold));
  ASSERT_NE(italic.p, nullptr);
  ASSERT_NE(bold.p, nullptr);
  EXPECT_TRUE(italic->IsSyntheticItalic());
  EXPECT_EQ(italic->SyntheticSkew(), -0.25f);
  EXPECT_EQ(italic->GetStyle(), VYRRasterTypeface::kItalic);
  EXPECT_TRUE(bold->IsSyntheticBold());
  EXPECT_EQ(bold->SyntheticSkew(), 0.0f);
  // Made-up bold thickens every stem: the glyph grows by about a 24th of the em each side.
  const VYRRasterRect thin = regular->GetGlyph(U'l').outline.getBounds();
  const VYRRasterRect thick = bold->GetGlyph(U'l').outline.getBounds();
  EXPECT_NEAR(thick.width() - thin.width(), 2.0f / 24.0f, 0.01f);
}

TEST(RasterTypeface, FaceFromFileTakesItsFamilyAndFindsItsOtherStyles) {
  REQUIRE_DEJAVU();
  const VYRFont* pFont = VYRFont::sGetFont("DejaVu Sans", VYRFont::kNormal);
  TypefaceRef fromFile(VYRRasterTypeface::CreateFromFile(pFont->GetFontFilePath().CastToCharPtr(), 0));
  ASSERT_NE(fromFile.p, nullptr);
  EXPECT_EQ(fromFile->GetFamilyName(), "DejaVu Sans");
  EXPECT_EQ(fromFile->GetStyle(), VYRRasterTypeface::kNormal);
  TypefaceRef bold(VYRRasterTypeface::CreateFromTypeface(fromFile.p, VYRRasterTypeface::kBold));
  ASSERT_NE(bold.p, nullptr);
  EXPECT_EQ(FileName(*bold.p), "DejaVuSans-Bold.ttf");
  // No base: the default family.
  TypefaceRef fallback(VYRRasterTypeface::CreateFromTypeface(nullptr, VYRRasterTypeface::kNormal));
  ASSERT_NE(fallback.p, nullptr);
  EXPECT_EQ(fallback->GetFamilyName(), VYRFont::sGetDefaultFont());
  EXPECT_EQ(fallback.p, VYRRasterTypeface::GetDefault());
}

TEST(RasterTypeface, UnreadableFilesAreReportedAndGiveNoFace) {
  AssertionCapture capture;
  EXPECT_EQ(VYRRasterTypeface::CreateFromFile("/nonexistent/font.ttf", 0), nullptr);
  EXPECT_EQ(VYRRasterTypeface::CreateFromFile(VYR_SOURCE_DIR "/CMakeLists.txt", 0), nullptr);
  EXPECT_EQ(VYRRasterTypeface::CreateFromFile(nullptr, 0), nullptr);
  EXPECT_TRUE(capture.Has("font file readable as a scalable face"));
  EXPECT_TRUE(capture.Has("i_filePath"));
}

TEST(RasterTypeface, GlyphsAreUnhintedOutlinesInEmUnits) {
  REQUIRE_DEJAVU();
  TypefaceRef typeface(VYRRasterTypeface::CreateFromName("DejaVu Sans", VYRRasterTypeface::kNormal));
  const VYRRasterGlyph& h = typeface->GetGlyph(U'H');
  const VYRRasterRect bounds = h.outline.getBounds();
  EXPECT_FALSE(h.missing);
  // Capital height of the face (1493 of 2048 units), standing on the baseline, y up.
  EXPECT_NEAR(bounds.bottom, 1493.0f / 2048.0f, 1e-4f);
  EXPECT_NEAR(bounds.top, 0.0f, 1e-4f);
  EXPECT_GT(h.advance, bounds.width());
  EXPECT_GT(bounds.left, 0.0f);
  const VYRRasterGlyph& space = typeface->GetGlyph(U' ');
  EXPECT_TRUE(space.outline.isEmpty());
  EXPECT_GT(space.advance, 0.2f);
  // The face has no vertical metrics: a line height per glyph, centred under the pen.
  const VYRRasterFaceMetrics& metrics = typeface->GetMetrics();
  EXPECT_FALSE(metrics.hasVerticalMetrics);
  EXPECT_FLOAT_EQ(h.verticalAdvance, metrics.ascender - metrics.descender);
  EXPECT_FLOAT_EQ(h.verticalOrigin.x, -0.5f * h.advance);
  EXPECT_FLOAT_EQ(h.verticalOrigin.y, metrics.ascender);
}

TEST(RasterTypeface, MetricsPlaceUnderlineBelowAndStrikeThroughAboveTheBaseline) {
  REQUIRE_DEJAVU();
  TypefaceRef typeface(VYRRasterTypeface::CreateFromName("DejaVu Sans", VYRRasterTypeface::kNormal));
  const VYRRasterFaceMetrics& metrics = typeface->GetMetrics();
  EXPECT_LT(metrics.underlinePosition, 0.0f);
  EXPECT_GT(metrics.underlineThickness, 0.02f);
  EXPECT_GT(metrics.strikeoutPosition, 0.15f);
  EXPECT_LT(metrics.strikeoutPosition, 0.5f);
  EXPECT_GT(metrics.strikeoutThickness, 0.02f);
  EXPECT_GT(metrics.ascender, 0.7f);
  EXPECT_LT(metrics.descender, -0.1f);
}

TEST(RasterTypeface, AccentedGreekAndCyrillicLettersAreTheFacesOwn) {
  REQUIRE_DEJAVU();
  TypefaceRef typeface(VYRRasterTypeface::CreateFromName("DejaVu Sans", VYRRasterTypeface::kNormal));
  for (const char32_t letter : {U'é', U'ß', U'Ω', U'λ', U'Ж', U'я'}) {
    const VYRRasterTypeface* pFace = nullptr;
    const VYRRasterGlyph& glyph = typeface->GetGlyph(letter, &pFace);
    EXPECT_TRUE(typeface->HasGlyph(letter)) << static_cast<unsigned>(letter);
    EXPECT_EQ(pFace, typeface.p);
    EXPECT_FALSE(glyph.missing);
    EXPECT_FALSE(glyph.outline.isEmpty());
  }
}

TEST(RasterTypeface, MissingGlyphsComeFromAnotherFaceOrDrawTheMissingBox) {
  REQUIRE_DEJAVU();
  TypefaceRef typeface(VYRRasterTypeface::CreateFromName("DejaVu Sans", VYRRasterTypeface::kNormal));
  const char32_t mathBoldA = 0x1D400;  // in DejaVu Serif and the maths face, not in DejaVu Sans
  ASSERT_FALSE(typeface->HasGlyph(mathBoldA));
  const VYRRasterTypeface* pFace = nullptr;
  const VYRRasterGlyph& fallback = typeface->GetGlyph(mathBoldA, &pFace);
  if (VYRFont::sGetFont("DejaVu Serif", VYRFont::kNormal) != nullptr) {
    ASSERT_NE(pFace, nullptr);
    EXPECT_NE(pFace, typeface.p);
    EXPECT_TRUE(pFace->HasGlyph(mathBoldA));
    EXPECT_FALSE(fallback.missing);
    EXPECT_FALSE(fallback.outline.isEmpty());
  }
  // No installed face has this one: the face's own missing-glyph box.
  const VYRRasterGlyph& missing = typeface->GetGlyph(0x4E00, &pFace);
  EXPECT_EQ(pFace, typeface.p);
  EXPECT_TRUE(missing.missing);
  EXPECT_FALSE(missing.outline.isEmpty());
  EXPECT_NE(&missing, &fallback);
}

TEST(RasterText, AdvanceIsTheSumOfUnkernedAdvancesAtTheTextSize) {
  REQUIRE_DEJAVU();
  TypefaceRef typeface(VYRRasterTypeface::CreateFromName("DejaVu Sans", VYRRasterTypeface::kNormal));
  VYRRasterPaint paint;
  paint.setTypeface(typeface.p);
  paint.setTextSize(20.0f);
  // "AV" would kern in most layouts; here it is the plain sum.
  const float expected = 20.0f * (typeface->GetGlyph(U'A').advance + typeface->GetGlyph(U'V').advance);
  EXPECT_FLOAT_EQ(VYRRasterText::MeasureText(paint, "AV", 2), expected);
  paint.setTextScaleX(0.5f);
  EXPECT_FLOAT_EQ(VYRRasterText::MeasureText(paint, "AV", 2), 0.5f * expected);
  paint.setFlag(VYRRasterPaint::kVerticalText_Flag, true);
  const VYRRasterFaceMetrics& metrics = typeface->GetMetrics();
  EXPECT_FLOAT_EQ(VYRRasterText::MeasureText(paint, "AV", 2), 40.0f * (metrics.ascender - metrics.descender));
  EXPECT_EQ(VYRRasterText::MeasureText(paint, "", 0), 0.0f);
  EXPECT_EQ(VYRRasterText::MeasureText(paint, nullptr, 4), 0.0f);
}

TEST(RasterText, PathStandsOnTheBaselineAndMovesWithAlignment) {
  REQUIRE_DEJAVU();
  TypefaceRef typeface(VYRRasterTypeface::CreateFromName("DejaVu Sans", VYRRasterTypeface::kNormal));
  VYRRasterPaint paint;
  paint.setTypeface(typeface.p);
  paint.setTextSize(100.0f);
  VYRRasterPath path;
  VYRRasterText::GetTextPath(paint, "H", 1, 10.0f, 200.0f, &path);
  const VYRRasterGlyph& h = typeface->GetGlyph(U'H');
  const VYRRasterRect glyphBounds = h.outline.getBounds();
  VYRRasterRect bounds = path.getBounds();
  EXPECT_NEAR(bounds.bottom, 200.0f, 1e-3f);
  EXPECT_NEAR(bounds.top, 200.0f - 100.0f * glyphBounds.bottom, 1e-3f);
  EXPECT_NEAR(bounds.left, 10.0f + 100.0f * glyphBounds.left, 1e-3f);
  paint.setTextAlign(VYRRasterPaint::kRight_Align);
  VYRRasterText::GetTextPath(paint, "H", 1, 10.0f, 200.0f, &path);
  EXPECT_NEAR(path.getBounds().left, 10.0f - 100.0f * h.advance + 100.0f * glyphBounds.left, 1e-3f);
  paint.setTextAlign(VYRRasterPaint::kCenter_Align);
  VYRRasterText::GetTextPath(paint, "H", 1, 10.0f, 200.0f, &path);
  EXPECT_NEAR(path.getBounds().left, 10.0f - 50.0f * h.advance + 100.0f * glyphBounds.left, 1e-3f);
  // A skew slants x by the height above the baseline: the top moves right for a negative skew.
  paint.setTextAlign(VYRRasterPaint::kLeft_Align);
  paint.setTextSkewX(-0.25f);
  VYRRasterText::GetTextPath(paint, "H", 1, 10.0f, 200.0f, &path);
  bounds = path.getBounds();
  EXPECT_NEAR(bounds.right, 10.0f + 100.0f * glyphBounds.right + 25.0f * glyphBounds.bottom, 1e-2f);
}

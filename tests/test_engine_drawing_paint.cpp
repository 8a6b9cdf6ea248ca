// Gradients, patterns and bitmaps through the drawing, read back as pixels.
#include <gtest/gtest.h>

#include <initializer_list>

#include "AssertionCapture.h"
#include "EngineTestSurface.h"
#include "VYR3x3Matrix.h"
#include "VYRPixelImage.h"
#include "VYRPrintGradientLinear.h"
#include "VYRPrintGradientRadial.h"
#include "VYRPrintGradientStop.h"
#include "VYRRasterBitmapShader.h"
#include "VYRRasterPaint.h"

using Surface = EngineTestSurface;

namespace {

constexpr uint32_t kRed = 0xFFFF0000u;
constexpr uint32_t kGreen = 0xFF00FF00u;
constexpr uint32_t kBlue = 0xFF0000FFu;

struct PaintSurface : Surface {
  PaintSurface(int i_width, int i_height) : Surface(i_width, i_height) {
    drawing.SetBlendingMode(eTransferSourceOver);
    drawing.SetFillColor(0, 0, 0, static_cast<unsigned char>(255));
  }
};

void AddStops(VYRPrintGradient& io_gradient, std::initializer_list<VYRPrintGradientStop> i_stops) {
  for (const VYRPrintGradientStop& stop : i_stops) io_gradient.AddStop(new VYRPrintGradientStop(stop));
}

// Opaque red at x1, opaque blue at x2, along y = 0.
VYRPrintGradientLinear RedToBlue(float i_x1, float i_x2, int i_spread = 0) {
  VYRPrintGradientLinear gradient;
  gradient.SetStartPoint(i_x1, 0);
  gradient.SetEndPoint(i_x2, 0);
  gradient.SetSpread(i_spread);
  AddStops(gradient, {{0, 1, 0, 0, 1}, {1, 0, 0, 1, 1}});
  return gradient;
}

// An image from straight RGBA pixels given as 0xRRGGBBAA, rows from the top.
VYRPixelImage* Image(int i_width, int i_height, std::initializer_list<uint32_t> i_rgba) {
  VYRPixelImage* pImage = new VYRPixelImage(i_width, i_height, VYRPixelImageFormat_RGBA32);
  unsigned char* pixels = pImage->GetPixelsToModify();
  for (uint32_t value : i_rgba) {
    for (int shift = 24; shift >= 0; shift -= 8) *pixels++ = static_cast<unsigned char>(value >> shift);
  }
  return pImage;
}

}  // namespace

// ---- Gradients

TEST(DrawingGradients, InterpolateStraightColoursThenPremultiply) {
  PaintSurface s(100, 4);
  VYRPrintGradientLinear gradient;
  gradient.SetEndPoint(100, 0);
  AddStops(gradient, {{0, 1, 0, 0, 1}, {1, 0, 0, 1, 0}});  // opaque red to transparent blue
  s.drawing.FillWithGradient(&gradient);
  const uint32_t middle = s.Pixel(49, 2);
  // Halfway: straight (128, 0, 127) at alpha 127, so premultiplied red and blue near 64, not red 127.
  EXPECT_NEAR(Surface::Alpha(middle), 127, 2);
  EXPECT_NEAR(Surface::Red(middle), 64, 3);
  EXPECT_NEAR(Surface::Blue(middle), 62, 3);
  EXPECT_GE(Surface::Red(s.Pixel(0, 2)), 250u);
  EXPECT_LE(Surface::Alpha(s.Pixel(99, 2)), 3u);
}

TEST(DrawingGradients, SpreadPadsReflectsOrRepeats) {
  // t = 1.275 at x = 25: the end colour when padded, a quarter past the start when
  // repeated, a quarter before the end when reflected.
  struct Case {
    int spread;
    unsigned redAt25;
  };
  for (const Case& c : {Case{0, 0}, Case{2, 185}, Case{1, 70}, Case{5, 0}}) {
    PaintSurface s(40, 2);
    const VYRPrintGradientLinear gradient = RedToBlue(0, 20, c.spread);
    s.drawing.FillWithGradient(&gradient);
    EXPECT_NEAR(Surface::Red(s.Pixel(25, 1)), c.redAt25, 4) << "spread " << c.spread;
    EXPECT_EQ(Surface::Alpha(s.Pixel(25, 1)), 255u);
    EXPECT_GE(Surface::Red(s.Pixel(0, 0)), 245u);
  }
}

TEST(DrawingGradients, PaintAlphaScalesTheShader) {
  PaintSurface s(20, 2);
  s.drawing.SetFillColor(0, 0, 0, static_cast<unsigned char>(128));
  const VYRPrintGradientLinear gradient = RedToBlue(50, 100);  // red up to x = 50
  s.drawing.FillWithGradient(&gradient);
  EXPECT_NEAR(Surface::Alpha(s.Pixel(0, 0)), 128, 1);
  EXPECT_NEAR(Surface::Red(s.Pixel(0, 0)), 128, 2);
}

TEST(DrawingGradients, NegativeChannelPacksAsFull) {
  PaintSurface s(4, 4);
  VYRPrintGradientLinear gradient;
  gradient.SetEndPoint(4, 0);
  AddStops(gradient, {{0, -0.2f, 0, 0, 1}});
  s.drawing.FillWithGradient(&gradient);
  EXPECT_EQ(s.Pixel(2, 2), kRed);
}

TEST(DrawingGradients, RadialRunsFromFocusToCircle) {
  PaintSurface s(100, 100);
  VYRPrintGradientRadial gradient;
  gradient.SetCentre(50, 50);
  gradient.SetFocus(60, 50);
  gradient.SetRadius(40);
  AddStops(gradient, {{0, 1, 0, 0, 1}, {1, 0, 0, 1, 1}});
  s.drawing.FillWithGradient(&gradient);
  EXPECT_GT(Surface::Red(s.Pixel(60, 50)), 245u);
  EXPECT_EQ(s.Pixel(50, 95), kBlue);  // outside the circle, padded
  // Towards the near edge t grows faster than towards the far one.
  EXPECT_LT(Surface::Red(s.Pixel(80, 50)), Surface::Red(s.Pixel(40, 50)));
}

TEST(DrawingGradients, FocusOutsideTheCircleMovesJustOutsideIt) {
  PaintSurface s(100, 100);
  VYRPrintGradientRadial gradient;
  gradient.SetCentre(50, 50);
  gradient.SetFocus(90, 50);  // 40 from the centre, radius 20: moved to about x = 70.05
  gradient.SetRadius(20);
  AddStops(gradient, {{0, 1, 0, 0, 1}, {1, 0, 0, 1, 1}});
  s.drawing.FillWithGradient(&gradient);
  // Beyond the moved focus no circle of the gradient passes: left transparent. With the
  // focus left at x = 90 this pixel would lie between the focus and the circle.
  EXPECT_EQ(s.Pixel(85, 50), 0u);
  EXPECT_EQ(s.Pixel(80, 50), 0u);
  // Just beyond x = 70.05 too: the focus is not left on the circle nor inside it.
  EXPECT_EQ(s.Pixel(70, 50), 0u);
  // Just before it the largest circle through the pixel is far beyond the end one: padded.
  EXPECT_EQ(s.Pixel(69, 50), kBlue);
  EXPECT_EQ(s.Pixel(50, 50), kBlue);
}

TEST(DrawingGradients, IdentityTransformFollowsUserSpaceOtherTransformsMapToDevice) {
  {
    PaintSurface s(100, 2);
    s.drawing.Translate(50, 0);
    const VYRPrintGradientLinear gradient = RedToBlue(0, 10);
    s.drawing.FillWithGradient(&gradient);
    EXPECT_EQ(s.Pixel(45, 0), kRed);
    EXPECT_EQ(s.Pixel(62, 0), kBlue);
    EXPECT_NEAR(Surface::Red(s.Pixel(55, 0)), 115, 6);
  }
  {
    PaintSurface s(100, 2);
    s.drawing.Translate(50, 0);
    VYRPrintGradientLinear gradient = RedToBlue(0, 10);
    VYRMath3x3Matrix scale;
    scale.SetCoef(2, 0, 0, 0, 2, 0, 0, 0, 1);
    gradient.SetTransform(scale);
    s.drawing.FillWithGradient(&gradient);
    // Gradient space doubled straight onto device pixels: 0..20, the translation ignored.
    EXPECT_GE(Surface::Red(s.Pixel(0, 0)), 245u);
    EXPECT_NEAR(Surface::Red(s.Pixel(10, 0)), 121, 6);
    EXPECT_EQ(s.Pixel(45, 0), kBlue);
  }
}

TEST(DrawingGradients, StrokeSlotOnlyInStrokeModesTwoAndThree) {
  for (int mode = 0; mode <= 3; ++mode) {
    PaintSurface s(4, 4);
    s.drawing.SetStrokeMode(static_cast<VYRPrintEdgeMode>(mode));
    const VYRPrintGradientLinear gradient = RedToBlue(0, 4);
    s.drawing.SetGradient(&gradient);
    const bool stroke = mode >= 2;
    EXPECT_EQ(s.Context()._pStrokeShader != nullptr, stroke) << "mode " << mode;
    EXPECT_EQ(s.Context()._pFillShader != nullptr, !stroke) << "mode " << mode;
    // Both flags are cleared: the next gradient goes to the fill slot whatever the stroke mode was.
    s.drawing.SetGradient(&gradient);
    EXPECT_NE(s.Context()._pFillShader, nullptr) << "mode " << mode;
  }
}

TEST(DrawingGradients, NullGradientTakesTheShaderOffThePaintButKeepsIt) {
  PaintSurface s(10, 10);
  const VYRPrintGradientLinear gradient = RedToBlue(0, 10);
  s.drawing.SetGradient(&gradient);
  s.drawing.ApplyFillMode(eFillModeGradient);
  VYRRasterShader* pShader = s.Context()._pFillShader;
  ASSERT_NE(pShader, nullptr);
  EXPECT_EQ(s.Context()._pPaint->getShader(), pShader);
  s.drawing.SetGradient(nullptr);
  EXPECT_EQ(s.Context()._pPaint->getShader(), nullptr);
  EXPECT_EQ(s.Context()._pFillShader, pShader);
  s.drawing.ApplyFillMode(eFillModeGradient);
  EXPECT_EQ(s.Context()._pPaint->getShader(), pShader);
  s.drawing.DrawRectangle(VYR2DGRect(0, 0, 10, 10));
  EXPECT_GE(Surface::Red(s.Pixel(0, 5)), 240u);
}

TEST(DrawingGradients, ShapesFilledAndStrokedWithTheirShaders) {
  PaintSurface s(40, 40);
  s.drawing.SetStrokeMode(eEdgeModeShader);
  const VYRPrintGradientLinear stroke = RedToBlue(0, 1);  // blue from x = 1 on
  s.drawing.SetGradient(&stroke);
  const VYRPrintGradientLinear fill = RedToBlue(100, 200);  // red up to x = 100
  s.drawing.SetGradient(&fill);
  s.drawing.SetStrokeColor(0, 0, 0, static_cast<unsigned char>(255));
  s.drawing.SetStrokeWidth(4);
  s.drawing.MoveTo({10, 10});
  s.drawing.LineTo({30, 10});
  s.drawing.LineTo({30, 30});
  s.drawing.LineTo({10, 30});
  s.drawing.ClosePath();
  s.drawing.ApplyFillMode(eFillModeGradient);
  s.drawing.DrawFillPreserve();
  s.drawing.ApplyStrokeMode(eEdgeModeShader);
  s.drawing.DrawStroke();
  EXPECT_EQ(s.Pixel(20, 20), kRed);
  EXPECT_EQ(s.Pixel(20, 10), kBlue);
}

// ---- Patterns

TEST(DrawingPatterns, TileModesClampRepeatAndMirror) {
  struct Case {
    int mode;
    uint32_t at2, at3;
  };
  VYRPixelImage* pTile = Image(2, 1, {0xFF0000FFu, 0x00FF00FFu});
  for (const Case& c : {Case{0, kGreen, kGreen}, Case{1, kRed, kGreen}, Case{2, kGreen, kRed}, Case{7, kRed, kGreen}}) {
    PaintSurface s(6, 2);
    s.drawing.FillWithPattern(pTile, static_cast<VYR2DGPatternMode>(c.mode), nullptr);
    EXPECT_EQ(s.Pixel(0, 0), kRed) << "mode " << c.mode;
    EXPECT_EQ(s.Pixel(1, 1), kGreen) << "mode " << c.mode;
    EXPECT_EQ(s.Pixel(2, 0), c.at2) << "mode " << c.mode;
    EXPECT_EQ(s.Pixel(3, 1), c.at3) << "mode " << c.mode;
  }
  pTile->Release();
}

TEST(DrawingPatterns, MatrixIsRelativeToUserSpaceAndSamplingIsNearest) {
  VYRPixelImage* pTile = Image(2, 1, {0xFF0000FFu, 0x0000FFFFu});
  PaintSurface s(20, 2);
  s.drawing.Translate(1, 0);
  const VYR3x3Matrix scale(3, 0, 0, 0, 3, 0);  // each tile pixel 3 wide, from x = 1
  s.drawing.SetPattern(pTile, ePatternRepeat, &scale);
  pTile->Release();  // the pattern keeps its own copy
  s.drawing.ApplyFillMode(eFillModePattern);
  s.drawing.DrawRectangle(VYR2DGRect(-1, 0, 20, 2));
  EXPECT_EQ(s.Pixel(0, 0), kBlue);
  EXPECT_EQ(s.Pixel(1, 0), kRed);
  EXPECT_EQ(s.Pixel(3, 0), kRed);
  EXPECT_EQ(s.Pixel(4, 0), kBlue);
  EXPECT_EQ(s.Pixel(7, 1), kRed);
}

TEST(DrawingPatterns, TileTakenFromTheMaskImage) {
  PaintSurface s(12, 12);
  s.drawing.SetDrawingMask(true);
  s.drawing.SetFillColor(255, 0, 0, static_cast<unsigned char>(255));
  s.drawing.ApplyFillMode(eFillModeColor);
  s.drawing.DrawRectangle(VYR2DGRect(2, 2, 2, 2));
  s.drawing.SetDrawingMask(false);
  s.drawing.SetPattern(2, 2, 6, 6, ePatternRepeat, nullptr);  // red top-left quarter, the rest transparent
  s.drawing.ApplyFillMode(eFillModePattern);
  s.drawing.DrawRectangle(VYR2DGRect(0, 0, 12, 12));
  EXPECT_EQ(s.Pixel(0, 0), kRed);
  EXPECT_EQ(s.Pixel(1, 1), kRed);
  EXPECT_EQ(s.Pixel(2, 2), 0u);
  EXPECT_EQ(s.Pixel(5, 4), kRed);
  EXPECT_EQ(s.Pixel(9, 9), kRed);
}

TEST(DrawingPatterns, SubsetIsCutToTheMaskAndRefusedOutsideIt) {
  PaintSurface s(8, 8);
  AssertionCapture capture;
  s.drawing.SetPattern(6, 6, 20, 20, ePatternRepeat, nullptr);
  ASSERT_NE(s.Context()._pFillShader, nullptr);
  EXPECT_EQ(static_cast<VYRRasterBitmapShader*>(s.Context()._pFillShader)->getBitmap().width(), 2);
  s.drawing.SetPattern(nullptr, ePatternRepeat, nullptr);  // a refused image leaves the slot as it was
  EXPECT_TRUE(capture.Has("i_pImage"));
  capture.Clear();
  s.drawing.SetStrokeMode(eEdgeModeShader);
  s.drawing.SetPattern(8, 0, 20, 8, ePatternRepeat, nullptr);
  EXPECT_NE(s.Context()._pFillShader, nullptr);
  EXPECT_EQ(s.Context()._pStrokeShader, nullptr);
  EXPECT_TRUE(capture.Reports().empty());
  // The flags are cleared all the same: the next pattern replaces the fill shader.
  VYRPixelImage* pTile = Image(1, 1, {0xFF0000FFu});
  s.drawing.SetPattern(pTile, ePatternRepeat, nullptr);
  pTile->Release();
  EXPECT_EQ(static_cast<VYRRasterBitmapShader*>(s.Context()._pFillShader)->getBitmap().width(), 1);
  EXPECT_EQ(s.Context()._pStrokeShader, nullptr);
}

// ---- Bitmaps

TEST(DrawingBitmaps, DrawBitmapPutsOnePixelPerUnit) {
  PaintSurface s(10, 10);
  VYRPixelImage* pImage = Image(2, 2, {0xFF0000FFu, 0x00FF00FFu, 0x0000FFFFu, 0xFF000080u});
  s.drawing.DrawBitmap({3, 4}, pImage);
  EXPECT_EQ(s.Pixel(3, 4), kRed);
  EXPECT_EQ(s.Pixel(4, 4), kGreen);
  EXPECT_EQ(s.Pixel(3, 5), kBlue);
  EXPECT_EQ(s.Pixel(4, 5), 0x80800000u);  // half-transparent red, premultiplied
  EXPECT_EQ(s.Pixel(2, 4), 0u);
  EXPECT_EQ(s.Pixel(5, 5), 0u);
  pImage->Release();
}

TEST(DrawingBitmaps, EveryImageFormatBecomesPremultiplied) {
  PaintSurface s(4, 1);
  VYRPixelImage grey(1, 1, VYRPixelImageFormat_Grey8);
  grey.GetPixelsToModify()[0] = 200;
  VYRPixelImage rgb(1, 1, VYRPixelImageFormat_RGB24);
  unsigned char* p = rgb.GetPixelsToModify();
  p[0] = 10, p[1] = 20, p[2] = 30;
  VYRPixelImage greyAlpha(1, 1, VYRPixelImageFormat_GreyAlpha16);
  p = greyAlpha.GetPixelsToModify();
  p[0] = 255, p[1] = 51;
  s.drawing.DrawBitmap({0, 0}, &grey);
  s.drawing.DrawBitmap({1, 0}, &rgb);
  s.drawing.DrawBitmap({2, 0}, &greyAlpha);
  EXPECT_EQ(s.Pixel(0, 0), 0xFFC8C8C8u);
  EXPECT_EQ(s.Pixel(1, 0), 0xFF0A141Eu);
  EXPECT_EQ(s.Pixel(2, 0), 0x33333333u);
}

TEST(DrawingBitmaps, ToRectScalesBilinearlyAtTheFillAlpha) {
  PaintSurface s(20, 10);
  VYRPixelImage* pImage = Image(2, 1, {0xFF0000FFu, 0x0000FFFFu});
  s.drawing.DrawBitmapToRect(VYR2DGRect(0, 0, 20, 10), pImage);
  EXPECT_EQ(s.Pixel(2, 5), kRed);
  EXPECT_EQ(s.Pixel(17, 5), kBlue);
  // Between the two pixel centres (x = 5 and 15) the colours mix.
  EXPECT_NEAR(Surface::Red(s.Pixel(9, 5)), 140, 10);
  EXPECT_NEAR(Surface::Blue(s.Pixel(9, 5)), 115, 10);
  PaintSurface half(20, 10);
  half.drawing.SetFillColor(0, 0, 0, static_cast<unsigned char>(128));
  half.drawing.DrawBitmapToRect(VYR2DGRect(0, 0, 20, 10), pImage);
  EXPECT_NEAR(Surface::Alpha(half.Pixel(2, 5)), 128, 1);
  pImage->Release();
}

TEST(DrawingBitmaps, NinePatchKeepsCornersAndStretchesEdgesAndCentre) {
  // 3 x 3 blocks of 2 x 2 pixels: corners red, green, blue, white; edges grey; centre black.
  const uint32_t R = 0xFF0000FFu, G = 0x00FF00FFu, B = 0x0000FFFFu, W = 0xFFFFFFFFu, E = 0x808080FFu,
                 C = 0x000000FFu;
  VYRPixelImage* pImage = Image(6, 6, {R, R, E, E, G, G, R, R, E, E, G, G, E, E, C, C, E, E,
                                       E, E, C, C, E, E, B, B, E, E, W, W, B, B, E, E, W, W});
  PaintSurface s(30, 20);
  s.drawing.DrawNinePatchBitmap(VYR2DGRect(0, 0, 30, 20), VYR2DGRect(2, 2, 2, 2), pImage);
  EXPECT_EQ(s.Pixel(0, 0), kRed);
  EXPECT_EQ(s.Pixel(1, 1), kRed);
  EXPECT_EQ(s.Pixel(2, 0), 0xFF808080u);
  EXPECT_EQ(s.Pixel(27, 1), 0xFF808080u);
  EXPECT_EQ(s.Pixel(28, 0), kGreen);
  EXPECT_EQ(s.Pixel(29, 1), kGreen);
  EXPECT_EQ(s.Pixel(0, 18), kBlue);
  EXPECT_EQ(s.Pixel(29, 19), 0xFFFFFFFFu);
  EXPECT_EQ(s.Pixel(15, 10), 0xFF000000u);
  EXPECT_EQ(s.Pixel(1, 10), 0xFF808080u);
  pImage->Release();
}

TEST(DrawingBitmaps, NullImagesReportAndDrawNothing) {
  PaintSurface s(4, 4);
  AssertionCapture capture;
  s.drawing.DrawBitmap({0, 0}, nullptr);
  s.drawing.DrawBitmapToRect(VYR2DGRect(0, 0, 4, 4), nullptr);
  s.drawing.DrawNinePatchBitmap(VYR2DGRect(0, 0, 4, 4), VYR2DGRect(1, 1, 1, 1), nullptr);
  s.drawing.FillWithPattern(nullptr, ePatternRepeat, nullptr);
  EXPECT_EQ(capture.NullPointers().size(), 4u);
  EXPECT_EQ(s.Pixel(1, 1), 0u);
}

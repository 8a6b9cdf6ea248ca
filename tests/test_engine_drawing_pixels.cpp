#include <gtest/gtest.h>

#include <cstring>

#include "AssertionCapture.h"
#include "EngineTestSurface.h"
#include "VYR3x3Matrix.h"
#include "VYRRasterPaint.h"
#include "VYRRasterPath.h"
#include "VYRUnicodeString.h"

using Surface = EngineTestSurface;

namespace {

constexpr uint32_t kRed = 0xFFFF0000u;
constexpr uint32_t kGreen = 0xFF00FF00u;
constexpr uint32_t kBlue = 0xFF0000FFu;

VYR2DGDrawing::PointList List(std::initializer_list<VYRMathPoint2Df> i_points) {
  VYR2DGDrawing::PointList points;
  for (const auto& p : i_points) points.Append(p);
  return points;
}

// A surface drawing opaque fills in source-over.
struct OverSurface : Surface {
  explicit OverSurface(int i_size = 40) : Surface(i_size, i_size) { drawing.SetBlendingMode(eTransferSourceOver); }
  void Fill(unsigned char r, unsigned char g, unsigned char b) {
    drawing.SetFillColor(r, g, b, static_cast<unsigned char>(255));
    drawing.ApplyFillMode(eFillModeColor);
  }
  void Stroke(unsigned char r, unsigned char g, unsigned char b, float width) {
    drawing.SetStrokeColor(r, g, b, static_cast<unsigned char>(255));
    drawing.SetStrokeWidth(width);
    drawing.ApplyStrokeMode(eEdgeModeColor);
  }
  void FillAll() {
    // A rectangle far larger than the surface: what is left of the clip gets painted.
    drawing.DrawRectangle(VYR2DGRect(-1000, -1000, 3000, 3000));
  }
};

}  // namespace

// ---- Shapes: inside, outside, on the edge

TEST(DrawingShapes, RectangleCoversInsideOnlyAndBlendsItsEdges) {
  OverSurface s;
  s.Fill(255, 0, 0);
  s.drawing.DrawRectangle(VYR2DGRect(10, 10, 10.5f, 10));
  EXPECT_EQ(s.Pixel(10, 10), kRed);
  EXPECT_EQ(s.Pixel(19, 19), kRed);
  EXPECT_EQ(s.Pixel(9, 15), 0u);
  EXPECT_EQ(s.Pixel(15, 20), 0u);
  EXPECT_NEAR(Surface::Alpha(s.Pixel(20, 15)), 128, 2);
}

TEST(DrawingShapes, EachShapePaintsItsCentreAndNotItsSurroundings) {
  struct Case {
    const char* name;
    void (*draw)(VYR2DGDrawing&);
    int insideX, insideY, outsideX, outsideY;
  };
  const Case cases[] = {
      {"circle", [](VYR2DGDrawing& d) { d.DrawCircle({20, 20}, 8); }, 20, 20, 20, 29},
      {"round rectangle", [](VYR2DGDrawing& d) { d.DrawRoundRectangle(VYR2DGRect(10, 10, 20, 20), 8, 8); }, 20, 20, 10, 10},
      {"ellipse", [](VYR2DGDrawing& d) { d.DrawEllipse({20, 20}, 15, 5, 90.0f); }, 33, 20, 20, 28},
      {"polygon", [](VYR2DGDrawing& d) { d.DrawPolygon(List({{5, 5}, {35, 5}, {5, 35}})); }, 10, 10, 30, 30},
      {"polyline filled", [](VYR2DGDrawing& d) { d.DrawPolyline(List({{5, 5}, {35, 5}, {5, 35}})); }, 10, 10, 30, 30},
  };
  for (const Case& c : cases) {
    OverSurface s;
    s.Fill(0, 0, 255);
    c.draw(s.drawing);
    EXPECT_EQ(s.Pixel(c.insideX, c.insideY), kBlue) << c.name;
    EXPECT_EQ(s.Pixel(c.outsideX, c.outsideY), 0u) << c.name;
  }
}

TEST(DrawingShapes, LinesAreAlwaysStrokedWithTheirCaps) {
  OverSurface s;
  s.Fill(0, 255, 0);  // a fill style must not matter to a line
  s.drawing.SetStrokeWidth(4.0f);
  s.drawing.DrawLine({10, 10}, {20, 10});
  EXPECT_EQ(s.Pixel(15, 9), kGreen);
  EXPECT_EQ(s.Pixel(21, 10), 0u);  // butt cap
  s.drawing.SetLineCap(eLineCapSquare);
  s.drawing.DrawLine({10, 30}, {20, 30});
  EXPECT_EQ(s.Pixel(21, 30), kGreen);
  EXPECT_EQ(s.Pixel(23, 30), 0u);
}

TEST(DrawingShapes, HairlineIsOnePixelWide) {
  OverSurface s;
  s.Stroke(255, 0, 0, 0.0f);
  s.drawing.DrawLine({5.0f, 10.5f}, {35.0f, 10.5f});
  EXPECT_GT(Surface::Alpha(s.Pixel(20, 10)), 200u);
  EXPECT_EQ(s.Pixel(20, 8), 0u);
  EXPECT_EQ(s.Pixel(20, 12), 0u);
}

// A hairline lays one pixel of ink per step across the two nearest pixels, and a
// stroke narrower than a pixel is such a line faded by its width.
TEST(DrawingShapes, HairlinesSplitTheirInkBetweenNeighboursAndThinStrokesFade) {
  OverSurface s;
  s.Stroke(255, 0, 0, 0.0f);
  s.drawing.DrawLine({5.0f, 10.5f}, {35.0f, 10.5f});  // on the row's centre: all in row 10
  EXPECT_EQ(Surface::Alpha(s.Pixel(20, 10)), 255u);
  EXPECT_EQ(Surface::Alpha(s.Pixel(20, 9)) + Surface::Alpha(s.Pixel(20, 11)), 0u);
  s.drawing.DrawLine({5.0f, 20.25f}, {35.0f, 20.25f});  // a quarter pixel above the centre of row 20
  EXPECT_NEAR(Surface::Alpha(s.Pixel(20, 20)), 191, 1);
  EXPECT_NEAR(Surface::Alpha(s.Pixel(20, 19)), 64, 1);
  s.drawing.DrawLine({2.0f, 25.0f}, {32.0f, 35.0f});  // slanted: one pixel of ink per column
  for (int x = 5; x < 30; ++x) {
    unsigned ink = 0;
    for (int y = 24; y < 37; ++y) ink += Surface::Alpha(s.Pixel(x, y));
    EXPECT_NEAR(ink, 255u, 2u) << "column " << x;
  }

  OverSurface thin;
  thin.Stroke(255, 0, 0, 0.5f);
  thin.drawing.DrawLine({10.25f, 2.0f}, {10.25f, 30.0f});
  EXPECT_NEAR(Surface::Alpha(thin.Pixel(9, 15)), 31, 2);
  EXPECT_NEAR(Surface::Alpha(thin.Pixel(10, 15)), 95, 2);
}

TEST(DrawingShapes, DashesStartWithADash) {
  OverSurface s;
  s.Stroke(255, 0, 0, 2.0f);
  const float lengths[] = {4.0f, 4.0f};
  s.drawing.SetDashStyle(2, lengths);
  EXPECT_NE(s.Context()._pPaint->getPathEffect(), nullptr);
  s.drawing.MoveTo({0, 10});
  s.drawing.LineTo({40, 10});
  s.drawing.DrawStroke();
  EXPECT_EQ(s.Pixel(2, 10), kRed);
  EXPECT_EQ(s.Pixel(6, 10), 0u);
  EXPECT_EQ(s.Pixel(10, 10), kRed);

  s.drawing.SetDashStyle(1, lengths);  // one length is no dash
  EXPECT_EQ(s.Context()._pPaint->getPathEffect(), nullptr);
  EXPECT_EQ(s.Context()._pDashEffect, nullptr);
  s.drawing.MoveTo({0, 20});
  s.drawing.LineTo({40, 20});
  s.drawing.DrawStroke();
  EXPECT_EQ(s.Pixel(6, 20), kRed);
}

TEST(DrawingShapes, JoinsFollowTheTable) {
  // A right-angle corner: the miter fills the outer corner, the bevel cuts it.
  for (int join : {int{eLineJoinMiter}, 99, int{eLineJoinBevel}}) {
    OverSurface s;
    s.Stroke(255, 0, 0, 10.0f);
    s.drawing.SetLineJoin(static_cast<VYRPrintLineAttribute>(join));
    s.drawing.MoveTo({10, 30});
    s.drawing.LineTo({30, 30});
    s.drawing.LineTo({30, 10});
    s.drawing.DrawStroke();
    EXPECT_EQ(s.Pixel(34, 34), join == eLineJoinBevel ? 0u : kRed) << join;
  }
}

TEST(DrawingShapes, FillRuleBelongsToThePath) {
  OverSurface s;
  s.Fill(255, 0, 0);
  auto square = [&](float o, float size) {
    s.drawing.AddPolylineToPath(List({{o, o}, {o + size, o}, {o + size, o + size}, {o, o + size}}));
    s.drawing.ClosePath();
  };
  s.drawing.SetFillRule(eFillRuleEvenOdd);
  square(5, 30);
  square(15, 10);
  s.drawing.DrawFill();
  EXPECT_EQ(s.Pixel(20, 20), 0u);
  EXPECT_EQ(s.Pixel(8, 8), kRed);
  // The emptied path is non-zero again.
  square(5, 30);
  square(15, 10);
  s.drawing.DrawFill();
  EXPECT_EQ(s.Pixel(20, 20), kRed);
}

TEST(DrawingShapes, PreserveKeepsThePathForTheNextPass) {
  OverSurface s;
  s.Fill(0, 0, 255);
  s.drawing.DrawCircle({0, 0}, 0);  // nothing
  s.drawing.MoveTo({5, 5});
  s.drawing.LineTo({35, 5});
  s.drawing.LineTo({35, 35});
  s.drawing.ClosePath();
  s.drawing.DrawFillPreserve();
  s.Stroke(255, 0, 0, 2.0f);
  s.drawing.DrawStroke();
  EXPECT_EQ(s.Pixel(30, 10), kBlue);
  EXPECT_EQ(s.Pixel(35, 20), kRed);
  EXPECT_TRUE(s.Context()._pPath->isEmpty());
}

// The rotation turns the arc's own frame, angles included: a circle rotated
// by 90 degrees and started 90 degrees earlier is the same arc.
TEST(DrawingShapes, ArcWithAndWithoutRotationMatchForCircles) {
  OverSurface plain(60), rotated(60);
  for (OverSurface* s : {&plain, &rotated}) {
    s->Fill(255, 0, 0);
    s->drawing.MoveTo({30, 30});
    if (s == &plain) {
      s->drawing.ArcTo({30, 30}, 20, 20, 0.0f, 30.0f, -250.0f);
    } else {
      s->drawing.ArcTo({30, 30}, 20, 20, 90.0f, -60.0f, -250.0f);
    }
    s->drawing.ClosePath();
    s->drawing.DrawFill();
  }
  int differing = 0;
  for (int y = 0; y < 60; ++y) {
    for (int x = 0; x < 60; ++x) differing += std::abs(int(Surface::Alpha(plain.Pixel(x, y))) - int(Surface::Alpha(rotated.Pixel(x, y)))) > 2;
  }
  EXPECT_EQ(differing, 0);
  EXPECT_EQ(plain.Pixel(40, 40), 0u);   // inside the 110 degrees left out
  EXPECT_EQ(plain.Pixel(30, 15), kRed);  // -90 degrees is swept
}

// ---- Paint state

TEST(DrawingPaint, ColourChannelsLoadClampedUnsigned) {
  Surface s(4, 4);
  s.drawing.SetStrokeColor(-0.5f, 2.0f, 0.25f, 1.0f);
  s.drawing.ApplyStrokeMode(eEdgeModeColor);
  EXPECT_EQ(s.Context()._pPaint->getColor(), 0xFFFFFF40u);
  EXPECT_EQ(s.Context()._pPaint->getStyle(), VYRRasterPaint::kStroke_Style);
  s.drawing.SetFillColor(0.0f, -0.001f, 1.0f, -3.0f);
  s.drawing.ApplyFillMode(eFillModeColor);
  EXPECT_EQ(s.Context()._pPaint->getColor(), 0xFF0000FFu);
  EXPECT_EQ(s.Context()._pPaint->getStyle(), VYRRasterPaint::kFill_Style);
}

TEST(DrawingPaint, ShaderModesSetTheFlagsAndLoadOnlyTheAlpha) {
  Surface s(4, 4);
  s.drawing.SetFillColor(0.0f, 1.0f, 0.0f, 1.0f);
  s.drawing.ApplyFillMode(eFillModeColor);
  s.drawing.SetFillColorAlpha(0.5f);
  s.drawing.ApplyFillMode(eFillModeGradient);
  EXPECT_TRUE(s.drawing.FillUsesShader());
  EXPECT_EQ(s.Context()._pPaint->getColor(), 0x8000FF00u);
  s.drawing.SetStrokeMode(eEdgeModeColorShaderTarget);
  EXPECT_TRUE(s.drawing.StrokeUsesShader());
  // Mode 2 strokes with the plain colour.
  s.drawing.SetStrokeColor(1.0f, 0.0f, 0.0f, 1.0f);
  s.drawing.ApplyStrokeMode(eEdgeModeColorShaderTarget);
  EXPECT_EQ(s.Context()._pPaint->getColor(), 0xFFFF0000u);
  s.drawing.SetStrokeMode(eEdgeModeColor);
  EXPECT_FALSE(s.drawing.StrokeUsesShader());
}

TEST(DrawingPaint, BlendModesMapThroughTheTable) {
  struct Case {
    int mode;
    uint32_t expected;  // blue-ish source (0, 0, 255) at alpha 255 over opaque (255, 128, 0)
  };
  // Multiply of (255,128,0) by (128,128,128); 40 is source-over; source replaces.
  for (auto [mode, expected] : {Case{13, 0xFF804000u}, Case{40, 0xFF808080u}, Case{1, 0xFF808080u}, Case{2, 0xFFFF8000u}}) {
    OverSurface s(10);
    s.Flood(255, 128, 0);
    s.drawing.SetBlendingMode(static_cast<VYR2DGTransferMode>(mode));
    s.Fill(128, 128, 128);
    s.drawing.DrawRectangle(VYR2DGRect(2, 2, 6, 6));
    EXPECT_EQ(s.Pixel(5, 5), expected) << mode;
    EXPECT_EQ(s.Pixel(0, 0), 0xFFFF8000u) << mode;
  }
}

TEST(DrawingPaint, ClearSourceAndInModesLeaveUncoveredPixelsAlone) {
  for (int mode : {0, 1, 5, 6}) {
    OverSurface s(10);
    s.Flood(255, 0, 0);
    s.drawing.SetBlendingMode(static_cast<VYR2DGTransferMode>(mode));
    s.drawing.SetFillColor(0.0f, 0.0f, 1.0f, 0.5f);
    s.drawing.ApplyFillMode(eFillModeColor);
    s.drawing.DrawRectangle(VYR2DGRect(2, 2, 4, 4));
    EXPECT_EQ(s.Pixel(8, 8), kRed) << mode;
    EXPECT_EQ(s.Pixel(1, 4), kRed) << mode;
  }
}

TEST(DrawingPaint, FloodIsSourceOverWhateverTheMode) {
  OverSurface s(6);
  s.Flood(255, 0, 0);
  s.drawing.SetBlendingMode(eTransferClear);
  s.drawing.FillWithColor(0.0f, 0.0f, 1.0f, 0.5f);
  EXPECT_EQ(s.Pixel(3, 3), 0xFF7F0080u);
  s.drawing.SetFillColor(static_cast<unsigned char>(0), 255, 0, 255);
  s.drawing.FillWithColor();
  EXPECT_EQ(s.Pixel(3, 3), kGreen);
}

// ---- Transforms

TEST(DrawingTransforms, SetMatrixTransformKeepsTheMaskInRegister) {
  OverSurface s;
  s.drawing.SetDrawingMask(true);
  s.drawing.SetMatrixTransform(1, 0, 10, 0, 1, 20);
  EXPECT_FALSE(s.drawing.DrawingMask());
  float a, b, c, d, e, f;
  s.drawing.GetMatrixTransform(a, b, c, d, e, f);
  EXPECT_EQ(c, 10.0f);
  EXPECT_EQ(f, 20.0f);

  s.drawing.SetDrawingMask(true);
  s.drawing.GetMatrixTransform(a, b, c, d, e, f);
  EXPECT_EQ(c, 10.0f);
  EXPECT_EQ(f, 20.0f);
  s.Fill(0, 0, 255);
  s.drawing.DrawRectangle(VYR2DGRect(0, 0, 5, 5));
  EXPECT_EQ(s.Pixel(12, 22, VYR2DGSupport::eMaskBitmap), kBlue);
  EXPECT_EQ(s.Pixel(2, 2, VYR2DGSupport::eMaskBitmap), 0u);
  EXPECT_EQ(s.Pixel(12, 22), 0u);

  // The other transform operations move the current canvas only.
  s.drawing.Translate(5, 0);
  s.drawing.SetDrawingMask(false);
  s.drawing.GetMatrixTransform(a, b, c, d, e, f);
  EXPECT_EQ(c, 10.0f);
}

TEST(DrawingTransforms, MatrixFormsAgree) {
  OverSurface s;
  s.drawing.SetMatrixTransform(VYR3x3Matrix(2, 0, 5, 0, 3, 7));
  EXPECT_EQ(s.drawing.GetMatrixTransform(), VYR3x3Matrix(2, 0, 5, 0, 3, 7));
  s.drawing.AddTransform(VYR3x3Matrix(1, 0, 1, 0, 1, 1));
  s.Fill(255, 0, 0);
  s.drawing.DrawRectangle(VYR2DGRect(0, 0, 1, 1));  // (2..4, 3..6) shifted by (2, 3)
  EXPECT_EQ(s.Pixel(8, 11), kRed);
  EXPECT_EQ(s.Pixel(6, 11), 0u);
  s.drawing.SetMatrixTransform(1, 0, 0, 0, 1, 0);
  s.drawing.Rotate(90);
  s.drawing.Scale(2, 2);
  s.drawing.DrawRectangle(VYR2DGRect(1, -6, 2, 2));  // device x 8..12, y 2..6
  EXPECT_EQ(s.Pixel(10, 4), kRed);
  EXPECT_EQ(s.Pixel(6, 4), 0u);
}

// ---- Save, restore and clips

TEST(DrawingClips, SaveFlagsChooseWhatRestoreBringsBack) {
  OverSurface s;
  EXPECT_EQ(s.drawing.Save(3), 1);
  s.drawing.SetCurrentClipRect(VYR2DGRect(0, 0, 10, 10), eClipIntersect);
  s.drawing.Translate(5, 5);
  EXPECT_EQ(s.drawing.Save(0xFF), 2);
  s.drawing.Restore(-1);
  s.drawing.Restore(-1);
  s.Fill(255, 0, 0);
  s.FillAll();
  EXPECT_EQ(s.Pixel(30, 30), kRed);

  OverSurface clipOnly;
  clipOnly.drawing.Save(1);  // matrix only: the clip outlives the restore
  clipOnly.drawing.SetCurrentClipRect(VYR2DGRect(0, 0, 10, 10), eClipIntersect);
  clipOnly.drawing.Restore(-1);
  clipOnly.Fill(255, 0, 0);
  clipOnly.FillAll();
  EXPECT_EQ(clipOnly.Pixel(5, 5), kRed);
  EXPECT_EQ(clipOnly.Pixel(30, 30), 0u);

  OverSurface matrixOnly;
  matrixOnly.drawing.Save(2);  // clip only: the matrix outlives the restore
  matrixOnly.drawing.Translate(20, 20);
  matrixOnly.drawing.Restore(-1);
  matrixOnly.Fill(255, 0, 0);
  matrixOnly.drawing.DrawRectangle(VYR2DGRect(0, 0, 5, 5));
  EXPECT_EQ(matrixOnly.Pixel(22, 22), kRed);
  EXPECT_EQ(matrixOnly.Pixel(2, 2), 0u);
}

TEST(DrawingClips, RestoreToACountPopsEverythingAbove) {
  OverSurface s;
  const int count = s.drawing.Save(3);
  s.drawing.SetCurrentClipRect(VYR2DGRect(0, 0, 30, 30), eClipIntersect);
  s.drawing.Save(3);
  s.drawing.SetCurrentClipRect(VYR2DGRect(0, 0, 10, 10), eClipIntersect);
  s.drawing.Restore(count);
  s.Fill(255, 0, 0);
  s.FillAll();
  EXPECT_EQ(s.Pixel(35, 35), kRed);
}

TEST(DrawingClips, RectangleOperatorsCombine) {
  OverSurface s;
  s.drawing.SetCurrentClipRect(VYR2DGRect(0, 0, 20, 20), eClipIntersect);
  s.drawing.SetCurrentClipRect(VYR2DGRect(5, 5, 5, 5), eClipDifference);
  s.drawing.SetCurrentClipRect(VYR2DGRect(30, 30, 5, 5), eClipUnion);
  s.Fill(255, 0, 0);
  s.FillAll();
  EXPECT_EQ(s.Pixel(2, 2), kRed);
  EXPECT_EQ(s.Pixel(7, 7), 0u);
  EXPECT_EQ(s.Pixel(25, 25), 0u);
  EXPECT_EQ(s.Pixel(32, 32), kRed);
}

TEST(DrawingClips, PolygonClipsAndAnEmptyListReports) {
  OverSurface s;
  {
    AssertionCapture capture;
    s.drawing.SetCurrentClipPolygon(VYR2DGDrawing::PointList(), eClipIntersect);
    EXPECT_TRUE(capture.Has("count > 0"));
  }
  s.drawing.SetCurrentClipPolygon(List({{0, 0}, {20, 0}, {20, 20}, {0, 20}}), eClipIntersect);
  s.drawing.SetCurrentClipPolygon(List({{10, 0}, {20, 0}, {20, 10}, {10, 10}}), static_cast<VYR2DGClipOperator>(1));
  s.Fill(255, 0, 0);
  s.FillAll();
  EXPECT_EQ(s.Pixel(5, 5), kRed);
  EXPECT_EQ(s.Pixel(15, 5), 0u);
  EXPECT_EQ(s.Pixel(15, 15), kRed);
  EXPECT_EQ(s.Pixel(25, 25), 0u);
}

TEST(DrawingClips, BuildingAClipPathRoutesPathsAndShapes) {
  OverSurface s;
  s.Fill(255, 0, 0);
  s.drawing.SetBuildingClipPath(true);
  s.drawing.DrawRectangle(VYR2DGRect(0, 0, 10, 10));  // adds to the clip, draws nothing
  s.drawing.MoveTo({20, 20});
  s.drawing.LineTo({40, 20});
  s.drawing.LineTo({40, 40});
  s.drawing.LineTo({20, 40});
  EXPECT_EQ(s.Pixel(5, 5), 0u);
  EXPECT_TRUE(s.Context()._pPath->isEmpty());
  // DrawFill in this mode fills and empties the drawing path only.
  s.Context()._pPath->addRect(VYRRasterRect::MakeLTRB(12, 0, 14, 2));
  s.drawing.DrawFill();
  EXPECT_EQ(s.Pixel(13, 1), kRed);
  EXPECT_TRUE(s.Context()._pPath->isEmpty());
  EXPECT_FALSE(s.Context()._pClipPath->isEmpty());

  s.drawing.ApplyClip();
  EXPECT_TRUE(s.drawing.BuildingClipPath());
  EXPECT_TRUE(s.Context()._pClipPath->isEmpty());
  s.drawing.SetBuildingClipPath(false);
  s.Fill(0, 0, 255);
  s.FillAll();
  EXPECT_EQ(s.Pixel(5, 5), kBlue);
  EXPECT_EQ(s.Pixel(30, 30), kBlue);
  EXPECT_EQ(s.Pixel(15, 5), 0u);
  EXPECT_EQ(s.Pixel(13, 1), kRed);
}

// ---- Knockout

TEST(DrawingKnockout, OneKnocksOutFillsAndWholeStrokedShapes) {
  OverSurface s;
  s.drawing.SetKnockout(1);
  s.Fill(255, 0, 0);
  s.drawing.DrawRectangle(VYR2DGRect(0, 0, 20, 20));
  s.Stroke(0, 255, 0, 4.0f);
  s.drawing.DrawRectangle(VYR2DGRect(25, 25, 10, 10));
  s.Fill(0, 0, 255);
  s.FillAll();
  EXPECT_EQ(s.Pixel(10, 10), kRed);    // first fill survives
  EXPECT_EQ(s.Pixel(30, 30), 0u);      // inside the stroked square: knocked out, never painted
  EXPECT_EQ(s.Pixel(25, 30), kGreen);  // the inner half of its stroke
  EXPECT_EQ(s.Pixel(23, 30), kBlue);   // the outer half is not part of the area
  EXPECT_EQ(s.Pixel(22, 5), kBlue);
}

TEST(DrawingKnockout, TwoKnocksOutStrokeOutlinesOnly) {
  OverSurface s;
  s.drawing.SetKnockout(2);
  s.Fill(255, 0, 0);
  s.drawing.DrawRectangle(VYR2DGRect(0, 0, 10, 10));
  s.Stroke(0, 255, 0, 2.0f);
  s.drawing.DrawRectangle(VYR2DGRect(20, 20, 15, 15));
  s.drawing.MoveTo({0, 38});
  s.drawing.LineTo({15, 38});
  s.drawing.DrawStroke();
  s.Fill(0, 0, 255);
  s.FillAll();
  EXPECT_EQ(s.Pixel(5, 5), kBlue);     // the fill knocked out nothing
  EXPECT_EQ(s.Pixel(27, 27), 0u);      // the outline encloses the inside
  EXPECT_EQ(s.Pixel(19, 27), kGreen);  // and the outer half of the stroke
  EXPECT_EQ(s.Pixel(7, 38), kGreen);   // the stroked path's outline
}

TEST(DrawingKnockout, ThreeKnocksOutStrokesButNotFills) {
  OverSurface s;
  s.drawing.SetKnockout(3);
  s.Fill(255, 0, 0);
  s.drawing.MoveTo({0, 0});
  s.drawing.LineTo({10, 0});
  s.drawing.LineTo({10, 10});
  s.drawing.LineTo({0, 10});
  s.drawing.DrawFill();
  s.Stroke(0, 255, 0, 2.0f);
  s.drawing.DrawCircle({28, 28}, 8);
  s.Fill(0, 0, 255);
  s.FillAll();
  EXPECT_EQ(s.Pixel(5, 5), kBlue);
  EXPECT_EQ(s.Pixel(28, 28), 0u);
  EXPECT_EQ(s.Pixel(20, 28), kGreen);
}

TEST(DrawingKnockout, ZeroEmptiesTheAccumulatedPathOtherValuesKeepIt) {
  OverSurface s;
  s.drawing.SetKnockout(1);
  s.Fill(255, 0, 0);
  s.drawing.DrawRectangle(VYR2DGRect(0, 0, 5, 5));
  EXPECT_FALSE(s.Context()._pKnockoutClipPath->isEmpty());
  s.drawing.SetKnockout(2);
  EXPECT_FALSE(s.Context()._pKnockoutClipPath->isEmpty());
  s.drawing.SetKnockout(0);
  EXPECT_TRUE(s.Context()._pKnockoutClipPath->isEmpty());
}

// ---- Clears and faults

TEST(DrawingClears, ClearBitmapsIgnoreClipAndTransform) {
  OverSurface s;
  s.Flood(255, 0, 0);
  s.drawing.SetDrawingMask(true);
  s.Flood(255, 0, 0);
  s.drawing.SetDrawingMask(false);
  s.drawing.SetCurrentClipRect(VYR2DGRect(0, 0, 5, 5), eClipIntersect);
  s.drawing.ClearBitmap();
  EXPECT_EQ(s.Pixel(30, 30), 0u);
  EXPECT_EQ(s.Pixel(30, 30, VYR2DGSupport::eMaskBitmap), kRed);
  s.drawing.ClearMaskBitmap();
  EXPECT_EQ(s.Pixel(30, 30, VYR2DGSupport::eMaskBitmap), 0u);
}

TEST(DrawingFaults, ADrawingWithoutContextReportsEverywhere) {
  VYR2DGSkiaDrawing drawing(nullptr);
  AssertionCapture capture;
  drawing.MoveTo({1, 1});
  drawing.DrawFill();
  drawing.DrawRectangle(VYR2DGRect(0, 0, 1, 1));
  drawing.SetStrokeWidth(2);
  drawing.SetMatrixTransform(1, 0, 0, 0, 1, 0);
  EXPECT_EQ(drawing.Save(3), -1);
  drawing.Restore(-1);
  drawing.ApplyClip();
  drawing.Flush();
  EXPECT_EQ(capture.NullPointers().size(), 9u);
  for (const std::string& text : capture.NullPointers()) EXPECT_EQ(text, "_pSkDrawingCtx");
}

TEST(DrawingFaults, PointCountsReport) {
  OverSurface s;
  AssertionCapture capture;
  s.drawing.AddPolylineToPath(List({{1, 1}}));
  s.drawing.DrawPolyline(List({{1, 1}}));
  s.drawing.DrawPolygon(VYR2DGDrawing::PointList());
  EXPECT_EQ(capture.FailedConditions().size(), 3u);
  EXPECT_TRUE(capture.Has("pointCount > 1"));
  EXPECT_TRUE(s.Context()._pPath->isEmpty());
  EXPECT_EQ(s.Pixel(0, 0), 0u);
}

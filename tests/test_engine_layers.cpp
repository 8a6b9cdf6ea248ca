#include <gtest/gtest.h>

#include <cstdlib>

#include "AssertionCapture.h"
#include "EngineTestSurface.h"
#include "VYRRasterBlendMode.h"
#include "VYRRasterCanvas.h"
#include "VYRRasterPaint.h"

namespace {

constexpr uint32_t kRed = 0xFFFF0000u;
constexpr uint32_t kGreen = 0xFF00FF00u;
constexpr uint32_t kBlue = 0xFF0000FFu;

struct LayerSurface : EngineTestSurface {
  LayerSurface() : EngineTestSurface(40, 40) { drawing.SetBlendingMode(eTransferSourceOver); }
  void Fill(unsigned char r, unsigned char g, unsigned char b, unsigned char a = 255) {
    drawing.SetFillColor(r, g, b, a);
    drawing.ApplyFillMode(eFillModeColor);
  }
  void Stroke(unsigned char r, unsigned char g, unsigned char b, float width) {
    drawing.SetStrokeColor(r, g, b, static_cast<unsigned char>(255));
    drawing.SetStrokeWidth(width);
    drawing.ApplyStrokeMode(eEdgeModeColor);
  }
  void Rect(float x, float y, float w, float h) { drawing.DrawRectangle(VYR2DGRect(x, y, w, h)); }
  void FillAll() { Rect(-100, -100, 300, 300); }
  // Vertical stripes 10 pixels wide: white, grey 128, black, and nothing.
  void MaskStripes() {
    Fill(255, 255, 255);
    Rect(0, 0, 10, 40);
    Fill(128, 128, 128);
    Rect(10, 0, 10, 40);
    Fill(0, 0, 0);
    Rect(20, 0, 10, 40);
  }
  VYRRasterCanvas& Canvas() const { return *Context()._pCanvas; }
  const VYRRasterPaint& LayerPaint() const { return *Context()._pLayerPaint; }
};

bool Near(uint32_t i_actual, uint32_t i_expected, int i_tolerance = 1) {
  for (int shift = 0; shift < 32; shift += 8) {
    const int a = (i_actual >> shift) & 0xFF, e = (i_expected >> shift) & 0xFF;
    if (std::abs(a - e) > i_tolerance) return false;
  }
  return true;
}

void ExpectMaskStripes(const LayerSurface& s) {
  EXPECT_EQ(s.Pixel(5, 20), kRed);                          // white keeps
  EXPECT_TRUE(Near(s.Pixel(15, 20), 0x80800000u)) << std::hex << s.Pixel(15, 20);  // grey halves
  EXPECT_EQ(s.Pixel(25, 20), 0u);                           // black removes
  EXPECT_EQ(s.Pixel(35, 20), 0u);                           // no mask removes too
}

}  // namespace

// ---- Layer properties

TEST(Layers, AlphaAppliesToTheGroupNotToEachShape) {
  LayerSurface s;
  s.drawing.SetLayerAlpha(static_cast<unsigned char>(128));
  EXPECT_EQ(s.drawing.SaveLayer(), 1);
  s.Fill(255, 0, 0);
  s.Rect(0, 0, 20, 20);
  s.Fill(0, 0, 255);
  s.Rect(10, 10, 20, 20);
  EXPECT_EQ(s.Pixel(15, 15), 0u);  // nothing reaches the surface before the restore
  s.drawing.Restore(-1);
  EXPECT_EQ(s.Pixel(5, 5), 0x80800000u);
  EXPECT_EQ(s.Pixel(15, 15), 0x80000080u);  // the blue hides the red inside the group
  EXPECT_EQ(s.Pixel(35, 35), 0u);
}

TEST(Layers, FloatAlphaRoundsAndSaveLayerConsumesTheProperties) {
  LayerSurface s;
  s.drawing.SetLayerAlpha(0.5f);
  EXPECT_EQ(s.LayerPaint().getAlpha(), 128);
  s.drawing.SetLayerBlendingMode(eTransferMultiply);
  s.drawing.SaveLayer();
  EXPECT_EQ(s.LayerPaint().getAlpha(), 255);
  EXPECT_EQ(s.LayerPaint().getBlendMode(), kSrcOver_VYRBlendMode);
  // The second layer has the default alpha: the shape comes out at 128, not 64.
  EXPECT_EQ(s.drawing.SaveLayer(), 2);
  s.Fill(0, 255, 0);
  s.Rect(0, 0, 10, 10);
  s.drawing.Restore(1);
  EXPECT_FALSE(s.Canvas().isDrawingToLayer());
  EXPECT_EQ(s.Pixel(5, 5), 0x80008000u);
}

TEST(Layers, BlendModeCompositesTheLayerOverTheDestination) {
  LayerSurface s;
  s.Flood(200, 100, 50);
  s.drawing.SetLayerBlendingMode(eTransferMultiply);
  s.drawing.SaveLayer();
  s.Fill(128, 255, 0, 255);
  s.Rect(0, 0, 20, 40);
  s.drawing.Restore(-1);
  EXPECT_EQ(s.Pixel(5, 5), VYRRasterBlender::BlendPixel(kMultiply_VYRBlendMode, 0xFF80FF00u, 0xFFC86432u));
  EXPECT_EQ(s.Pixel(30, 5), 0xFFC86432u);  // transparent layer pixels leave multiply's destination
}

TEST(Layers, SourceModeReplacesTheWholeClipAreaButNothingBeyondIt) {
  LayerSurface s;
  s.Flood(0, 0, 255);
  s.drawing.Save(3);
  s.drawing.SetCurrentClipRect(VYR2DGRect(0, 0, 30, 30), eClipIntersect);
  s.drawing.SetLayerBlendingMode(eTransferSource);
  s.drawing.SaveLayer();
  s.Fill(255, 0, 0);
  s.Rect(0, 0, 10, 10);
  s.drawing.Restore(-1);
  s.drawing.Restore(-1);
  EXPECT_EQ(s.Pixel(5, 5), kRed);
  EXPECT_EQ(s.Pixel(20, 20), 0u);    // inside the clip: the layer's transparency replaced the blue
  EXPECT_EQ(s.Pixel(35, 35), kBlue);  // outside: untouched
}

TEST(Layers, ALayerCoversTheClipsDeviceBoundsOnly) {
  LayerSurface s;
  s.drawing.Translate(5, 0);
  s.drawing.SetCurrentClipRect(VYR2DGRect(2, 3, 10, 7), eClipIntersect);
  s.drawing.SaveLayer();
  const VYRRasterIRect bounds = s.Canvas().getLayerBounds();
  EXPECT_EQ(bounds.left, 7);
  EXPECT_EQ(bounds.top, 3);
  EXPECT_EQ(bounds.right, 17);
  EXPECT_EQ(bounds.bottom, 10);
  s.Fill(255, 0, 0);
  s.FillAll();
  s.drawing.Restore(-1);
  EXPECT_EQ(s.Pixel(8, 5), kRed);
  EXPECT_EQ(s.Pixel(18, 5), 0u);
  EXPECT_EQ(s.Pixel(8, 11), 0u);
}

TEST(Layers, SaveLayerFaultsReturnMinusOne) {
  LayerSurface s;
  VYRRasterPaint* pLayerPaint = s.Context()._pLayerPaint;
  s.Context()._pLayerPaint = nullptr;
  {
    AssertionCapture capture;
    EXPECT_EQ(s.drawing.SaveLayer(), -1);
    s.drawing.SetLayerAlpha(0.5f);
    s.drawing.SetLayerMaskMode(eTransferSourceIn);
    EXPECT_EQ(capture.NullPointers().size(), 3u);
    EXPECT_TRUE(capture.Has("_pSkDrawingCtx->_pLayerPaint"));
  }
  s.Context()._pLayerPaint = pLayerPaint;
  EXPECT_FALSE(s.Canvas().isDrawingToLayer());
}

// ---- Luminance masks

TEST(LayerMasks, DestinationInKeepsTheDestinationByTheLayersLuminance) {
  LayerSurface s;
  s.Flood(255, 0, 0);
  s.drawing.SetLayerMaskMode(eTransferDestinationIn);
  s.drawing.SaveLayer();
  s.MaskStripes();
  s.drawing.Restore(-1);
  ExpectMaskStripes(s);
}

TEST(LayerMasks, SourceInKeepsTheLayerByTheDestinationsLuminance) {
  LayerSurface s;
  s.drawing.SaveLayer();
  s.MaskStripes();
  s.drawing.SetLayerMaskMode(eTransferSourceIn);
  s.drawing.SaveLayer();
  s.Flood(255, 0, 0);
  s.drawing.Restore(-1);
  s.drawing.Restore(-1);
  ExpectMaskStripes(s);
}

TEST(LayerMasks, OtherModesCompositeAsThePlainModeAndABlendModeReplacesTheMask) {
  LayerSurface s;
  s.Flood(0, 0, 255);
  s.drawing.SetLayerMaskMode(eTransferSourceOver);
  s.drawing.SaveLayer();
  s.Fill(0, 0, 0);
  s.Rect(0, 0, 10, 10);
  s.drawing.Restore(-1);
  EXPECT_EQ(s.Pixel(5, 5), 0xFF000000u);  // black over, not a luminance of 0
  EXPECT_EQ(s.Pixel(25, 25), kBlue);

  s.drawing.SetLayerMaskMode(eTransferDestinationIn);
  s.drawing.SetLayerBlendingMode(eTransferSourceOver);
  EXPECT_EQ(s.LayerPaint().getLumaMaskMode(), -1);
}

TEST(LayerMasks, DrawingMaskModeLayersPaintTheMaskImage) {
  LayerSurface s;
  s.drawing.SetDrawingMask(true);
  s.drawing.SetLayerAlpha(static_cast<unsigned char>(128));
  s.drawing.SaveLayer();
  EXPECT_FALSE(s.Canvas().isDrawingToLayer());
  s.Fill(0, 255, 0);
  s.Rect(0, 0, 10, 10);
  s.drawing.Restore(-1);
  s.drawing.SetDrawingMask(false);
  EXPECT_EQ(s.Pixel(5, 5, VYR2DGSupport::eMaskBitmap), 0x80008000u);
  EXPECT_EQ(s.Pixel(5, 5), 0u);
}

// ---- Knockout inside layers

TEST(LayerKnockout, OneInsideALayerClipsOnlyWhenTheOutermostLayerEnds) {
  LayerSurface s;
  s.drawing.SetKnockout(1);
  s.drawing.SaveLayer();
  s.Fill(255, 0, 0);
  s.Rect(0, 0, 20, 20);
  s.drawing.SaveLayer();
  s.Fill(0, 0, 255);
  s.Rect(10, 10, 20, 20);
  s.drawing.Restore(-1);
  // Still inside the outer layer: nothing is knocked out yet.
  s.Fill(0, 255, 0);
  s.Rect(0, 0, 5, 5);
  s.drawing.Restore(-1);
  EXPECT_EQ(s.Pixel(2, 2), kGreen);
  EXPECT_EQ(s.Pixel(15, 15), kBlue);
  s.Fill(255, 255, 0);
  s.FillAll();
  EXPECT_EQ(s.Pixel(2, 2), kGreen);
  EXPECT_EQ(s.Pixel(25, 25), kBlue);
  EXPECT_EQ(s.Pixel(35, 5), 0xFFFFFF00u);
}

TEST(LayerKnockout, TwoAndThreeInsideALayerKnockOutStrokesNotFills) {
  for (int knockout : {2, 3}) {
    LayerSurface s;
    s.drawing.SetKnockout(knockout);
    s.drawing.SaveLayer();
    s.Fill(255, 0, 0);
    s.Rect(0, 0, 10, 10);
    s.Stroke(0, 255, 0, 2.0f);
    s.Rect(20, 20, 10, 10);
    s.drawing.Restore(-1);
    s.Fill(0, 0, 255);
    s.FillAll();
    EXPECT_EQ(s.Pixel(5, 5), kBlue) << knockout;
    EXPECT_EQ(s.Pixel(20, 25), kGreen) << knockout;
    EXPECT_EQ(s.Pixel(25, 25), 0u) << knockout;  // inside the outline
    EXPECT_EQ(s.Pixel(35, 5), kBlue) << knockout;
  }
}

TEST(LayerKnockout, OutsideLayersTheClipComesAtOnceAndLayersDrawnLaterRespectIt) {
  LayerSurface s;
  s.drawing.SetKnockout(1);
  s.Fill(255, 0, 0);
  s.Rect(0, 0, 20, 20);
  s.drawing.SetLayerAlpha(static_cast<unsigned char>(255));
  s.drawing.SaveLayer();
  s.Fill(0, 0, 255);
  s.FillAll();
  s.drawing.Restore(-1);
  EXPECT_EQ(s.Pixel(5, 5), kRed);
  EXPECT_EQ(s.Pixel(30, 30), kBlue);
}

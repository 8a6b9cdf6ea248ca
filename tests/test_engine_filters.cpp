#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <string>

#include "AssertionCapture.h"
#include "EngineTestSurface.h"
#include "VYRPrtEltFactory.h"
#include "VYRPrtFilterBlendElt.h"
#include "VYRPrtFilterColorMatrixElt.h"
#include "VYRPrtFilterContainerElt.h"
#include "VYRPrtFilterGaussianBlurElt.h"
#include "VYRPrtFilterMergeElt.h"
#include "VYRPrtFilterMergeNodeElt.h"
#include "VYRPrtFilterOffsetElt.h"
#include "VYRRasterBlurImageFilter.h"
#include "VYRRasterColorMatrixImageFilter.h"
#include "VYRRasterImageFilter.h"
#include "VYRRasterMergeImageFilter.h"
#include "VYRRasterOffsetImageFilter.h"
#include "VYRRasterPaint.h"

namespace {

const VYRRasterIRect kWideClip{-1000, -1000, 1000, 1000};

VYRRasterImage Solid(const VYRRasterIRect& i_bounds, uint32_t i_color) {
  VYRRasterImage image;
  image.allocate(i_bounds);
  std::fill(image.pixels.begin(), image.pixels.end(), i_color);
  return image;
}

int AlphaAt(const VYRRasterImage& i_image, int x, int y) { return static_cast<int>(i_image.at(x, y) >> 24); }

// The true Gaussian's share of a half-plane x < edge over the pixel centred at x + 0.5.
double EdgeProfile(double i_x, double i_edge, double i_sigma) {
  return 0.5 * std::erfc((i_x + 0.5 - i_edge) / (i_sigma * std::sqrt(2.0)));
}

// ---- Raster filters on images

TEST(RasterBlur, ProfileAcrossASharpEdgeFollowsTheGaussianAlongEachAxis) {
  for (float sigma : {1.0f, 3.0f, 10.0f}) {
    for (bool alongX : {true, false}) {
      // An opaque half-plane ending at 100, as a 200 x 3 strip (or its transpose).
      const VYRRasterIRect bounds = alongX ? VYRRasterIRect{0, 0, 100, 3} : VYRRasterIRect{0, 0, 3, 100};
      const VYRRasterImage edge = Solid(bounds, 0xFFFFFFFFu);
      VYRRasterBlurImageFilter blur(alongX ? sigma : 0.0f, alongX ? 0.0f : sigma);
      const VYRRasterImage out = blur.filterImage(edge, kWideClip);
      int worst = 0;
      for (int t = 60; t < 140; ++t) {
        const int expected = static_cast<int>(std::lround(255.0 * EdgeProfile(t, 100.0, sigma)));
        const int actual = alongX ? AlphaAt(out, t, 1) : AlphaAt(out, 1, t);
        worst = std::max(worst, std::abs(actual - expected));
      }
      EXPECT_LE(worst, 6) << "sigma " << sigma << (alongX ? " along x" : " along y");
      // The other axis is left alone.
      EXPECT_EQ(alongX ? out.bounds.top : out.bounds.left, 0) << sigma;
    }
  }
}

TEST(RasterBlur, ASquareGrowsSymmetricallyAndKeepsItsOpaqueCentre) {
  const VYRRasterImage square = Solid(VYRRasterIRect{20, 20, 80, 80}, 0xFF0000FFu);
  VYRRasterBlurImageFilter blur(4.0f, 4.0f);
  const VYRRasterImage out = blur.filterImage(square, kWideClip);
  EXPECT_LT(out.bounds.left, 20 - 8);
  EXPECT_GT(out.bounds.right, 80 + 8);
  EXPECT_EQ(out.bounds.left + out.bounds.right, 100);
  EXPECT_GT(AlphaAt(out, 14, 50), 0);  // spread beyond the shape
  EXPECT_EQ(AlphaAt(out, 50, 50), 255);
  for (int d = 0; d < 20; ++d) {
    EXPECT_NEAR(AlphaAt(out, 10 + d, 50), AlphaAt(out, 89 - d, 50), 1) << d;
    EXPECT_NEAR(AlphaAt(out, 50, 10 + d), AlphaAt(out, 50, 89 - d), 1) << d;
    EXPECT_EQ(AlphaAt(out, 10 + d, 50), AlphaAt(out, 50, 10 + d)) << d;
  }
  // Premultiplied colour never exceeds alpha.
  for (uint32_t p : out.pixels) ASSERT_LE(p & 0xFF, p >> 24);
}

TEST(RasterBlur, TheClipLimitsTheOutputAndBoxSizesFollowTheFormula) {
  const VYRRasterImage square = Solid(VYRRasterIRect{0, 0, 10, 10}, 0xFF000000u);
  VYRRasterBlurImageFilter blur(5.0f, 5.0f);
  const VYRRasterImage out = blur.filterImage(square, VYRRasterIRect{0, 0, 12, 12});
  EXPECT_EQ(out.bounds.left, 0);
  EXPECT_EQ(out.bounds.right, 12);
  // d = floor(5 * 3 * sqrt(2 pi) / 4 + 0.5) = 9: three centred boxes of 9.
  const auto boxes = VYRRasterBlurImageFilter::BoxesFor(5.0f);
  ASSERT_EQ(boxes.size(), 3u);
  for (const auto& box : boxes) EXPECT_EQ(box.left + box.right + 1, 9);
  // d = 6 at deviation 3: two shifted boxes of 6 and a centred one of 7.
  const auto even = VYRRasterBlurImageFilter::BoxesFor(3.0f);
  EXPECT_EQ(even[0].left + even[0].right + 1, 6);
  EXPECT_EQ(even[0].left, even[1].right);
  EXPECT_EQ(even[2].left + even[2].right + 1, 7);
}

TEST(RasterOffset, MovesByWholePixels) {
  const VYRRasterImage dot = Solid(VYRRasterIRect{2, 3, 4, 5}, 0xFFFF0000u);
  VYRRasterOffsetImageFilter offset(3.4f, -1.6f);
  const VYRRasterImage out = offset.filterImage(dot, kWideClip);
  EXPECT_EQ(out.bounds.left, 5);
  EXPECT_EQ(out.bounds.top, 1);
  EXPECT_EQ(out.at(5, 1), 0xFFFF0000u);
  EXPECT_EQ(out.at(2, 3), 0u);
}

TEST(RasterMerge, InputsStackInOrderAndABlendCompositesOverItsBackground) {
  const VYRRasterImage source = Solid(VYRRasterIRect{0, 0, 4, 4}, 0xFF0000FFu);
  VYRRasterOffsetImageFilter* pMoved = new VYRRasterOffsetImageFilter(2, 0);
  VYRRasterMergeImageFilter merge({pMoved, nullptr});
  const VYRRasterImage out = merge.filterImage(source, kWideClip);
  EXPECT_EQ(out.bounds.right, 6);
  EXPECT_EQ(out.at(3, 0), 0xFF0000FFu);  // the source is on top where both are
  EXPECT_EQ(out.at(5, 0), 0xFF0000FFu);

  VYRRasterColorMatrixImageFilter* pRed = nullptr;
  float toRed[VYRRasterColorMatrixImageFilter::kCount] = {0, 0, 0, 0, 255, 0, 0, 0, 0, 0,
                                                          0, 0, 0, 0, 0,   0, 0, 0, 1, 0};
  pRed = new VYRRasterColorMatrixImageFilter(toRed);
  VYRRasterMergeImageFilter blend(pRed, pMoved, kMultiply_VYRBlendMode);
  const VYRRasterImage blended = blend.filterImage(source, kWideClip);
  EXPECT_EQ(blended.at(0, 0), 0xFFFF0000u);  // red background alone
  EXPECT_EQ(blended.at(3, 0), 0xFF000000u);  // blue times red
  EXPECT_EQ(blended.at(5, 0), 0xFF0000FFu);  // blue alone
  pRed->Release();
  pMoved->Release();
}

// ---- The layer filter pipeline of the drawing

class LayerFilters : public ::testing::Test {
 protected:
  LayerFilters() : s(40, 40) {
    s.drawing.SetBlendingMode(eTransferSourceOver);
    pContainer = Make<VYRPrtFilterContainerElt>();
  }
  void TearDown() override { VYRPrtEltFactory::Get().Release(); }

  template <class K>
  K* Make() {
    return VYRPrtEltFactory::Get().CreateElement<K>();
  }
  template <class K>
  K* Add(const char* i_input, const char* i_result) {
    K* pElt = Make<K>();
    pElt->SetInput(i_input);
    pElt->SetResult(i_result);
    pContainer->AddChild(pElt);
    return pElt;
  }
  void AddOffset(double dx, const char* i_input = "", const char* i_result = "") {
    Add<VYRPrtFilterOffsetElt>(i_input, i_result)->SetOffset(dx, 0);
  }
  // A layer through the filter over an opaque 4 x 4 square at (10, 10).
  void DrawSquareThroughFilter(unsigned char r = 0, unsigned char g = 0, unsigned char b = 255, float scale = 1) {
    s.drawing.SetLayerFilter(pContainer, scale);
    s.drawing.SaveLayer();
    s.drawing.SetFillColor(r, g, b, static_cast<unsigned char>(255));
    s.drawing.ApplyFillMode(eFillModeColor);
    s.drawing.DrawRectangle(VYR2DGRect(10, 10, 4, 4));
    s.drawing.Restore(-1);
  }
  // Where the square's left edge ended up along row 11.
  int SquareLeft() const {
    for (int x = 0; x < 40; ++x)
      if (s.Pixel(x, 11) != 0) return x;
    return -1;
  }

  EngineTestSurface s;
  VYRPrtFilterContainerElt* pContainer;
};

TEST_F(LayerFilters, ABlurredSquareSpreadsAndTheScaleMultipliesTheDeviation) {
  Add<VYRPrtFilterGaussianBlurElt>("SourceGraphic", "")->SetStdDeviation(1, 1);
  DrawSquareThroughFilter(0, 0, 255, 2.0f);
  EXPECT_GT(s.Pixel(7, 11) >> 24, 0u);  // three pixels out: beyond a deviation of 1
  EXPECT_LT(s.Pixel(11, 11) >> 24, 255u);
  EXPECT_EQ(s.Pixel(11, 11) & 0x00FFFF00u, 0u);  // still blue only
  EXPECT_EQ(s.Pixel(30, 30), 0u);
}

TEST_F(LayerFilters, ChainsListedInReverseOrderAreBuiltCompletely) {
  AddOffset(5, "B");
  AddOffset(3, "A", "B");
  AddOffset(2, "SourceGraphic", "A");
  testing::internal::CaptureStderr();
  DrawSquareThroughFilter();
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
  EXPECT_EQ(SquareLeft(), 20);
  EXPECT_EQ(s.Pixel(23, 11), 0xFF0000FFu);
}

TEST_F(LayerFilters, AnUnresolvedInputIsBuiltOnTheLastResultAfterTheWarning) {
  AddOffset(4, "nowhere");
  AddOffset(2, "SourceGraphic", "A");
  testing::internal::CaptureStderr();
  DrawSquareThroughFilter();
  EXPECT_EQ(testing::internal::GetCapturedStderr(),
            "Warning : Using default value (SourceGraphic) for remaining filter input.\n");
  EXPECT_EQ(SquareLeft(), 16);
}

TEST_F(LayerFilters, AZeroDeviationIsReportedAndTheChainGoesOnWithoutIt) {
  AddOffset(2);
  Add<VYRPrtFilterGaussianBlurElt>("", "")->SetStdDeviation(0, 3);
  AddOffset(3);
  AssertionCapture capture;
  testing::internal::CaptureStderr();
  DrawSquareThroughFilter();
  testing::internal::GetCapturedStderr();
  EXPECT_TRUE(capture.Has("stdDevX > 0. && stdDevY > 0."));
  EXPECT_EQ(SquareLeft(), 15);
  EXPECT_EQ(s.Pixel(15, 11), 0xFF0000FFu);  // sharp: no blur
}

TEST_F(LayerFilters, EmptyOrNullContainersLeaveTheLayerPaintAlone) {
  AddOffset(2);
  s.drawing.SetLayerFilter(pContainer, 1.0f);
  VYRRasterImageFilter* pFilter = s.Context()._pLayerPaint->getImageFilter();
  ASSERT_NE(pFilter, nullptr);
  s.drawing.SetLayerFilter(Make<VYRPrtFilterContainerElt>(), 1.0f);
  EXPECT_EQ(s.Context()._pLayerPaint->getImageFilter(), pFilter);
  AssertionCapture capture;
  s.drawing.SetLayerFilter(nullptr, 1.0f);
  EXPECT_TRUE(capture.Has("i_pFilterElt"));
  EXPECT_EQ(s.Context()._pLayerPaint->getImageFilter(), pFilter);
  s.drawing.SaveLayer();
  EXPECT_EQ(s.Context()._pLayerPaint->getImageFilter(), nullptr);
  s.drawing.Restore(-1);
}

TEST_F(LayerFilters, MergeNodesStackInOrderAndSourceAlphaIsBlack) {
  AddOffset(2, "SourceAlpha", "shadow");
  auto* pMerge = Add<VYRPrtFilterMergeElt>("", "");
  for (const char* input : {"shadow", "SourceGraphic"}) {
    auto* pNode = Make<VYRPrtFilterMergeNodeElt>();
    pNode->SetInput(input);
    pMerge->AddChild(pNode);
  }
  DrawSquareThroughFilter(0, 0, 255);
  EXPECT_EQ(s.Pixel(11, 11), 0xFF0000FFu);  // the graphic on top
  EXPECT_EQ(s.Pixel(15, 11), 0xFF000000u);  // its black shadow beside it
  EXPECT_EQ(s.Pixel(17, 11), 0u);
}

TEST_F(LayerFilters, BlendPutsItsSecondInputUnderneath) {
  AddOffset(2, "SourceGraphic", "moved");
  auto* pBlend = Add<VYRPrtFilterBlendElt>("SourceGraphic", "");
  pBlend->SetInput2("moved");
  pBlend->SetMode(eTransferMultiply);
  DrawSquareThroughFilter(255, 128, 0);
  EXPECT_EQ(s.Pixel(11, 11), 0xFFFF8000u);  // source alone
  EXPECT_EQ(s.Pixel(15, 11), 0xFFFF8000u);  // background alone
  EXPECT_EQ(s.Pixel(13, 11), 0xFFFF4000u);  // both: multiplied, 128 * 128 / 255
}

TEST_F(LayerFilters, ColourMatricesWorkOnUnpremultipliedColour) {
  struct Case {
    MM2D::ColorMatrixType type;
    const char* values;
    uint32_t expected;
  };
  // Half-transparent (200, 100, 50) drawn through each matrix.
  const Case cases[] = {
      {MM2D::ColorMatrixMatrix, "", VYRRasterBlender::Premultiply(0x80C86432u)},
      // Saturate 0: every channel 0.2126 R + 0.7152 G + 0.0722 B = 117.6.
      {MM2D::ColorMatrixSaturate, "0", VYRRasterBlender::Premultiply(0x80767676u)},
      // Luminance to alpha: alpha 0.2125 R + 0.7154 G + 0.0721 B = 117.6, colour black.
      {MM2D::ColorMatrixLuminanceToAlpha, "", 0x76000000u},
      // The offset column is in 0..1 units: 0.5 adds 128 to red.
      {MM2D::ColorMatrixMatrix, "1 0 0 0 0.5  0 1 0 0 0  0 0 1 0 0  0 0 0 1 0", VYRRasterBlender::Premultiply(0x80FF6432u)},
  };
  for (const Case& c : cases) {
    EngineTestSurface surface(20, 20);
    VYRPrtFilterContainerElt* pFilter = Make<VYRPrtFilterContainerElt>();
    auto* pMatrix = Make<VYRPrtFilterColorMatrixElt>();
    pMatrix->SetType(c.type);
    pMatrix->SetValues(c.values);
    pFilter->AddChild(pMatrix);
    surface.drawing.SetLayerFilter(pFilter, 1.0f);
    surface.drawing.SaveLayer();
    using Byte = unsigned char;
    surface.drawing.FillWithColor(Byte(200), Byte(100), Byte(50), Byte(128));
    surface.drawing.Restore(-1);
    const uint32_t actual = surface.Pixel(5, 5);
    for (int shift = 0; shift < 32; shift += 8) {
      EXPECT_NEAR(static_cast<int>((actual >> shift) & 0xFF), static_cast<int>((c.expected >> shift) & 0xFF), 2)
          << c.values << " type " << c.type << std::hex << " got " << actual << " want " << c.expected;
    }
  }
}

}  // namespace

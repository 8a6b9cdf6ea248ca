#include <gtest/gtest.h>

#include <climits>
#include <cstring>
#include <memory>

#include "AssertionCapture.h"
#include "EngineTestSurface.h"
#include "VYR2DGUnpremultiply.h"
#include "VYRRasterPaint.h"

using Surface = EngineTestSurface;

namespace {

void PutPixel(VYR2DGSupport& io_support, int i_x, int i_y, uint32_t i_pixel) {
  unsigned char* pData = io_support.GetData(VYR2DGSupport::eMainBitmap);
  std::memcpy(pData + i_y * io_support.GetDataStride(VYR2DGSupport::eMainBitmap) + i_x * 4, &i_pixel, 4);
}

// Restores the image size limit whatever a test sets.
struct LimitGuard {
  ~LimitGuard() { VYR2DGSkiaSupport::SetMaximumImageBytes(VYR2DGSkiaSupport::kDefaultMaximumImageBytes); }
};

}  // namespace

TEST(RasterSurface, NewSurfaceIsTransparentWithPackedRows) {
  Surface s(7, 5);
  int w = 0, h = 0;
  s.support.GetSize(w, h);
  EXPECT_EQ(w, 7);
  EXPECT_EQ(h, 5);
  EXPECT_EQ(s.support.GetDataStride(VYR2DGSupport::eMainBitmap), 28u);
  EXPECT_EQ(s.support.GetDataStride(VYR2DGSupport::eMaskBitmap), 28u);
  const unsigned char* pMain = s.support.GetData(VYR2DGSupport::eMainBitmap);
  ASSERT_NE(pMain, nullptr);
  ASSERT_NE(s.support.GetData(VYR2DGSupport::eMaskBitmap), nullptr);
  EXPECT_NE(pMain, s.support.GetData(VYR2DGSupport::eMaskBitmap));
  for (int i = 0; i < 7 * 5 * 4; ++i) ASSERT_EQ(pMain[i], 0);
}

TEST(RasterSurface, SetSizeToTheSameSizeKeepsThePixels) {
  Surface s(10, 10);
  s.Flood(255, 0, 0);
  EXPECT_FALSE(s.support.SetSize(10, 10));
  EXPECT_EQ(s.Pixel(3, 3), 0xFFFF0000u);

  s.drawing.SetBlendingMode(eTransferMultiply);
  EXPECT_TRUE(s.support.SetSize(12, 8));
  int w = 0, h = 0;
  s.support.GetSize(w, h);
  EXPECT_EQ(w, 12);
  EXPECT_EQ(h, 8);
  EXPECT_EQ(s.Pixel(11, 7), 0u);
  // The paint survives a resize.
  EXPECT_EQ(s.Context()._pPaint->getBlendMode(), kMultiply_VYRBlendMode);
}

TEST(RasterSurface, BadBitmapTypesAndEmptyImagesReport) {
  Surface s(4, 4);
  AssertionCapture capture;
  EXPECT_EQ(s.support.GetData(static_cast<VYR2DGSupport::eBitmapType>(2)), nullptr);
  EXPECT_TRUE(capture.Has("pBitmap"));
  EXPECT_EQ(s.support.GetDataStride(static_cast<VYR2DGSupport::eBitmapType>(2)), 0u);
  EXPECT_TRUE(capture.Has("pBitmapRef"));

  Surface flat(0, 9);
  capture.Clear();
  EXPECT_EQ(flat.support.GetData(VYR2DGSupport::eMainBitmap), nullptr);
  EXPECT_TRUE(capture.Has("!pBitmap->empty()"));
  capture.Clear();
  EXPECT_EQ(flat.support.GetUnmultipliedData(VYR2DGSupport::eMainBitmap), nullptr);
  EXPECT_TRUE(capture.Has("pPixels"));
}

TEST(RasterSurface, ResetEmptiesTheSurfaceUntilResized) {
  Surface s(6, 6);
  s.support.Reset();
  int w = -1, h = -1;
  s.support.GetSize(w, h);
  EXPECT_EQ(w, 0);
  EXPECT_EQ(h, 0);
  EXPECT_EQ(s.support.GetSupportType(), VYR2DGSupport::eSupportNone);
  {
    AssertionCapture capture;
    EXPECT_EQ(s.support.GetData(VYR2DGSupport::eMainBitmap), nullptr);
    s.drawing.DrawRectangle(VYR2DGRect(0, 0, 3, 3));
    EXPECT_TRUE(capture.Has("pCanvas"));
  }
  EXPECT_TRUE(s.support.SetSize(3, 2));
  s.Flood(0, 0, 255);
  EXPECT_EQ(s.Pixel(2, 1), 0xFF0000FFu);
}

TEST(RasterSurface, ClearMakesTransparentAndResetsThePaint) {
  Surface s(8, 8);
  s.drawing.SetBlendingMode(eTransferScreen);
  s.drawing.SetStrokeWidth(5.0f);
  s.Flood(10, 20, 30);
  s.drawing.SetDrawingMask(true);
  s.Flood(10, 20, 30);
  s.support.Clear();
  EXPECT_EQ(s.Pixel(4, 4), 0u);
  EXPECT_EQ(s.Pixel(4, 4, VYR2DGSupport::eMaskBitmap), 0u);
  const VYRRasterPaint& paint = *s.Context()._pPaint;
  EXPECT_EQ(paint.getBlendMode(), kSrc_VYRBlendMode);
  EXPECT_TRUE(paint.isAntiAlias());
  EXPECT_EQ(paint.getStrokeWidth(), 0.0f);
}

TEST(RasterSurface, UnmultipliedDataIsStraightRgba) {
  Surface s(4, 1);
  PutPixel(s.support, 0, 0, 0x00000000u);   // transparent
  PutPixel(s.support, 1, 0, 0xFF102030u);   // opaque: unchanged
  PutPixel(s.support, 2, 0, 0x80400000u);   // red 64 at alpha 128
  PutPixel(s.support, 3, 0, 0x01010101u);   // faintest grey
  std::unique_ptr<unsigned char[]> rgba(s.support.GetUnmultipliedData(VYR2DGSupport::eMainBitmap));
  ASSERT_NE(rgba, nullptr);
  const unsigned char expected[16] = {0, 0, 0, 0, 0x10, 0x20, 0x30, 255, 128, 0, 0, 128, 255, 255, 255, 1};
  EXPECT_EQ(std::memcmp(rgba.get(), expected, 16), 0);
}

TEST(RasterSurface, UnpremultiplyRoundsWithTheScaleTable) {
  EXPECT_EQ(VYR2DGUnpremultiplyScale(0), 0u);
  EXPECT_EQ(VYR2DGUnpremultiplyScale(1), 0xFF000000u);
  EXPECT_EQ(VYR2DGUnpremultiplyScale(2), 0x7F800000u);
  EXPECT_EQ(VYR2DGUnpremultiplyScale(255), 0x01000000u);
  // 100 * 255 / 200 = 127.5 comes out as 127 through the rounded scale; 1 * 255 / 3 = 85.
  EXPECT_EQ(VYR2DGUnpremultiplyPixel(0xC8646464u), 0xC87F7F7Fu);
  EXPECT_EQ(VYR2DGUnpremultiplyPixel(0x03010101u), 0x03555555u);
  // Every premultiplied channel comes back within rounding of the straight value.
  for (unsigned a = 1; a < 256; ++a) {
    for (unsigned c = 0; c <= a; ++c) {
      const unsigned straight = VYR2DGUnpremultiplyPixel((a << 24) | c) & 0xFF;
      ASSERT_NEAR(static_cast<double>(straight), c * 255.0 / a, 0.5 + 1e-9) << a << " " << c;
    }
  }
}

TEST(RasterSurface, SizesWhoseBufferWouldOverflowAreRefused) {
  struct Case {
    int width, height;
  };
  // 65536 x 16384 x 4 bytes wraps to 0 in 32 bits; 46341^2 x 4 wraps negative.
  const Case cases[] = {{65536, 16384}, {46341, 46341}, {-4, 10}, {10, -4}, {INT_MAX, 2}, {20000, 20000}};
  for (const Case& c : cases) {
    AssertionCapture capture;
    Surface s(c.width, c.height);
    EXPECT_FALSE(capture.FailedConditions().empty()) << c.width << " x " << c.height;
    int w = -1, h = -1;
    s.support.GetSize(w, h);
    EXPECT_EQ(w, 0);
    EXPECT_EQ(h, 0);
    EXPECT_EQ(s.support.GetData(VYR2DGSupport::eMainBitmap), nullptr);
    capture.Clear();
    s.drawing.DrawRectangle(VYR2DGRect(0, 0, 10, 10));
    s.drawing.FillWithColor(static_cast<unsigned char>(1), 2, 3, 4);
    EXPECT_TRUE(capture.Has("pCanvas"));
  }
}

TEST(RasterSurface, TheHostSetsTheImageLimit) {
  LimitGuard guard;
  EXPECT_EQ(VYR2DGSkiaSupport::GetMaximumImageBytes(), 256LL * 1024 * 1024);
  VYR2DGSkiaSupport::SetMaximumImageBytes(400);
  {
    AssertionCapture capture;
    Surface tooBig(11, 10);
    EXPECT_FALSE(capture.FailedConditions().empty());
    EXPECT_EQ(tooBig.support.GetData(VYR2DGSupport::eMainBitmap), nullptr);
  }
  Surface fits(10, 10);
  ASSERT_NE(fits.support.GetData(VYR2DGSupport::eMainBitmap), nullptr);
  {
    AssertionCapture capture;
    EXPECT_TRUE(fits.support.SetSize(10, 11));
    EXPECT_EQ(fits.support.GetData(VYR2DGSupport::eMainBitmap), nullptr);
  }
  VYR2DGSkiaSupport::SetMaximumImageBytes(VYR2DGSkiaSupport::kDefaultMaximumImageBytes);
  EXPECT_TRUE(fits.support.SetSize(10, 10));
  EXPECT_NE(fits.support.GetData(VYR2DGSupport::eMainBitmap), nullptr);
}

TEST(RasterSurface, ContextStartsWithTheSourcePaint) {
  Surface s(2, 2);
  const VYR2DGSkiaDrawingContext& context = s.Context();
  EXPECT_STREQ(context.IsA(), "VYR2DGSkiaDrawingContext");
  ASSERT_NE(context._pPaint, nullptr);
  ASSERT_NE(context._pLayerPaint, nullptr);
  EXPECT_EQ(context._pPaint->getBlendMode(), kSrc_VYRBlendMode);
  EXPECT_TRUE(context._pPaint->isAntiAlias());
  EXPECT_EQ(context._pPaint->getTextEncoding(), VYRRasterPaint::kUTF8_TextEncoding);
  EXPECT_EQ(context._pLayerPaint->getBlendMode(), kSrcOver_VYRBlendMode);
  EXPECT_EQ(context._pFillShader, nullptr);
  EXPECT_EQ(context._pDashEffect, nullptr);
}

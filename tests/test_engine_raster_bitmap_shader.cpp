// The bitmap shader's bilinear row path (scale-only matrices, whole rows mixed column by
// column) against the pixel-by-pixel sampling it stands in for, and its one-pass source-over
// against shading a row and blending it.
#include <gtest/gtest.h>

#include <cstdint>
#include <random>
#include <vector>

#include "VYRRasterBlendMode.h"

#include "VYRRasterBitmapShader.h"
#include "VYRRasterMatrix.h"
#include "RasterInstructionSets.h"

namespace {

class RasterBitmapShaderPaths : public RasterInstructionSets {};


constexpr int kWidth = 7, kHeight = 5;

// Premultiplied pixels of every kind: opaque, translucent, transparent, all channels distinct.
std::vector<uint32_t> VariedPixels(int i_width = kWidth, int i_height = kHeight) {
  std::vector<uint32_t> pixels(static_cast<size_t>(i_width * i_height));
  for (int i = 0; i < i_width * i_height; ++i) {
    const uint32_t a = (i % 5 == 0) ? 255 : (i % 7 == 0) ? 0 : 40 + (i * 37) % 200;
    const uint32_t r = a * ((i * 13) % 256) / 255, g = a * ((i * 71) % 256) / 255, b = a * ((i * 151) % 256) / 255;
    pixels[i] = a << 24 | r << 16 | g << 8 | b;
  }
  return pixels;
}

struct Case {
  VYRRasterShader::TileMode tile;
  float scaleX, scaleY;
  uint8_t alpha;
};

}  // namespace

// Scales whose inverses are exact in binary, so a row walked in steps and a pixel placed on
// its own land on the same sampling point: both must give the same bytes.
TEST_P(RasterBitmapShaderPaths, BilinearRowsEqualPixelByPixelSampling) {
  std::vector<uint32_t> pixels = VariedPixels();
  VYRRasterBitmap bitmap;
  bitmap.setConfig(kWidth, kHeight);
  bitmap.setPixels(pixels.data());
  const Case cases[] = {
      {VYRRasterShader::kRepeat_TileMode, 4.0f, 0.5f, 255}, {VYRRasterShader::kRepeat_TileMode, 1.6f, 1.6f, 128},
      {VYRRasterShader::kMirror_TileMode, 0.5f, 4.0f, 255}, {VYRRasterShader::kMirror_TileMode, 8.0f, 2.0f, 200},
      {VYRRasterShader::kClamp_TileMode, 2.0f, 1.6f, 255},  {VYRRasterShader::kClamp_TileMode, 0.125f, 4.0f, 77},
  };
  constexpr int kRow = 41, kStart = -5;
  for (const Case& c : cases) {
    SCOPED_TRACE(testing::Message() << "tile " << c.tile << " scale " << c.scaleX << " x " << c.scaleY);
    VYRRasterBitmapShader* pShader =
        new VYRRasterBitmapShader(bitmap, nullptr, c.tile, c.tile, VYRRasterBitmapShader::kBilinear_Filter);
    VYRRasterMatrix local = VYRRasterMatrix::MakeTranslate(3, -2);
    local.preScale(c.scaleX, c.scaleY);
    pShader->setLocalMatrix(local);
    ASSERT_TRUE(pShader->setContext(VYRRasterMatrix(), c.alpha));
    for (int y = -3; y < 12; ++y) {
      std::vector<uint32_t> row(kRow);
      pShader->shadeRow(kStart, y, kRow, row.data());
      for (int i = 0; i < kRow; ++i) {
        uint32_t single = 0;
        pShader->shadeRow(kStart + i, y, 1, &single);
        ASSERT_EQ(row[i], single) << "pixel " << kStart + i << ", " << y;
      }
    }
    pShader->Release();
  }
}

// Repeated tiles sampled at the nearest pixel walk several pixels at a time: under skews and
// quarter turns whose inverses step exactly in binary, a row and each pixel placed on its own
// must give the same bytes, across many wraps both ways.
TEST_P(RasterBitmapShaderPaths, NearestRepeatedRowsEqualPixelByPixelSampling) {
  std::vector<uint32_t> pixels = VariedPixels();
  VYRRasterBitmap bitmap;
  bitmap.setConfig(kWidth, kHeight);
  bitmap.setPixels(pixels.data());
  const VYRRasterMatrix locals[] = {
      VYRRasterMatrix::MakeAll(2, 0, 0.75f, 1, 2, -3.5f),       // rows go up the bitmap
      VYRRasterMatrix::MakeAll(0, -2, 5.25f, 4, 0, 1.5f),       // a quarter turn
      VYRRasterMatrix::MakeAll(0.25f, 0, -1, 0, 0.5f, 0.125f),  // reduced: many wraps a row
  };
  const int counts[] = {1, 3, 4, 5, 37};
  for (const VYRRasterMatrix& local : locals) {
    VYRRasterBitmapShader* pShader = new VYRRasterBitmapShader(bitmap, nullptr, VYRRasterShader::kRepeat_TileMode,
                                                               VYRRasterShader::kRepeat_TileMode);
    pShader->setLocalMatrix(local);
    ASSERT_TRUE(pShader->setContext(VYRRasterMatrix(), 255));
    for (int count : counts) {
      for (int y = -6; y < 9; ++y) {
        std::vector<uint32_t> row(static_cast<size_t>(count));
        pShader->shadeRow(-11, y, count, row.data());
        for (int i = 0; i < count; ++i) {
          uint32_t single = 0;
          pShader->shadeRow(-11 + i, y, 1, &single);
          ASSERT_EQ(row[static_cast<size_t>(i)], single) << "pixel " << -11 + i << ", " << y << " of " << count;
        }
      }
    }
    pShader->Release();
  }
}

namespace {

// Coverage rows with runs of none and full and edges in between, as shapes and clips give.
std::vector<uint8_t> VariedCoverage(int i_count, unsigned i_seed) {
  std::mt19937 random(i_seed);
  std::vector<uint8_t> coverage(static_cast<size_t>(i_count));
  for (uint8_t& c : coverage) {
    const unsigned kind = random() % 4;
    c = kind == 0 ? 0 : kind == 1 ? static_cast<uint8_t>(random() % 256) : 255;
  }
  return coverage;
}

// A destination of translucent and opaque pixels.
std::vector<uint32_t> VariedDestination(int i_count, unsigned i_seed) {
  std::mt19937 random(i_seed);
  std::vector<uint32_t> pixels(static_cast<size_t>(i_count));
  for (uint32_t& p : pixels) {
    const uint32_t a = random() % 3 == 0 ? 255 : random() % 256;
    p = a << 24 | (random() % (a + 1)) << 16 | (random() % (a + 1)) << 8 | (random() % (a + 1));
  }
  return pixels;
}

struct ScaledCase {
  float scaleX, scaleY, dx, dy;
  uint8_t alpha;
};

}  // namespace

// The one pass must write exactly what shading the row then blending it writes: odd widths,
// sub-pixel offsets, reductions and enlargements, rows reaching beyond the bitmap on both sides
// (clamped), a translucent paint, translucent bitmap pixels, any coverage or none.
TEST_P(RasterBitmapShaderPaths, OnePassSourceOverEqualsShadingThenBlending) {
  // Wide enough for whole groups of columns and a partial one.
  constexpr int kWide = 37, kHigh = 6;
  std::vector<uint32_t> pixels = VariedPixels(kWide, kHigh);
  VYRRasterBitmap bitmap;
  bitmap.setConfig(kWide, kHigh);
  bitmap.setPixels(pixels.data());
  const ScaledCase cases[] = {
      {3.3f, 2.7f, 0.37f, -1.61f, 255}, {0.6f, 0.45f, 2.5f, 0.25f, 255}, {1.0f, 1.0f, 0.5f, 0.5f, 181},
      {1.0f, 1.0f, 0.0f, 0.0f, 255},    {1.9f, 0.8f, -7.3f, 1.1f, 255},
      {9.7f, 0.3f, -3.2f, 4.9f, 64},    {1.37f, 5.1f, 1.03f, 0.0f, 1},   {0.21f, 1.9f, -0.7f, 2.2f, 230},
  };
  const int counts[] = {1, 2, 3, 4, 7, 8, 9, 13, 29, 61, 130};
  unsigned seed = 1;
  for (const ScaledCase& c : cases) {
    SCOPED_TRACE(testing::Message() << "scale " << c.scaleX << " x " << c.scaleY << " alpha " << int(c.alpha));
    VYRRasterBitmapShader* pShader = new VYRRasterBitmapShader(
        bitmap, nullptr, VYRRasterShader::kClamp_TileMode, VYRRasterShader::kClamp_TileMode,
        VYRRasterBitmapShader::kBilinear_Filter);
    VYRRasterMatrix local = VYRRasterMatrix::MakeTranslate(c.dx, c.dy);
    local.preScale(c.scaleX, c.scaleY);
    pShader->setLocalMatrix(local);
    ASSERT_TRUE(pShader->setContext(VYRRasterMatrix::MakeTranslate(0.25f, -0.75f), c.alpha));
    for (int count : counts) {
      for (int y = -4; y < 14; ++y, ++seed) {
        const int x = -9 + static_cast<int>(seed % 5);
        const std::vector<uint8_t> coverage = VariedCoverage(count, seed);
        const uint8_t* pCoverage = seed % 3 == 0 ? nullptr : coverage.data();
        std::vector<uint32_t> expected = VariedDestination(count, seed);
        std::vector<uint32_t> actual = expected, shaded(static_cast<size_t>(count));
        pShader->shadeRow(x, y, count, shaded.data());
        VYRRasterBlender::BlendRow(kSrcOver_VYRBlendMode, expected.data(), shaded.data(), pCoverage, count);
        ASSERT_TRUE(pShader->blendRowSrcOver(x, y, count, actual.data(), pCoverage));
        ASSERT_EQ(expected, actual) << "row " << y << " from " << x << ", " << count << " pixels";
      }
    }
    pShader->Release();
  }
}

// Rotations, nearest sampling and repeated tiles keep to shading then blending.
TEST(RasterBitmapShader, OnePassOnlyForClampedBilinearScaling) {
  std::vector<uint32_t> pixels = VariedPixels();
  VYRRasterBitmap bitmap;
  bitmap.setConfig(kWidth, kHeight);
  bitmap.setPixels(pixels.data());
  std::vector<uint32_t> row(16, 0x80402010u);
  const std::vector<uint32_t> untouched = row;
  auto offered = [&](VYRRasterShader::TileMode i_tile, VYRRasterBitmapShader::Filter i_filter,
                     const VYRRasterMatrix& i_matrix) {
    VYRRasterBitmapShader* pShader = new VYRRasterBitmapShader(bitmap, nullptr, i_tile, i_tile, i_filter);
    pShader->setContext(i_matrix, 255);
    const bool done = pShader->blendRowSrcOver(0, 0, 16, row.data(), nullptr);
    pShader->Release();
    return done;
  };
  VYRRasterMatrix rotation;
  rotation.setRotate(30);
  EXPECT_FALSE(offered(VYRRasterShader::kClamp_TileMode, VYRRasterBitmapShader::kBilinear_Filter, rotation));
  EXPECT_FALSE(offered(VYRRasterShader::kClamp_TileMode, VYRRasterBitmapShader::kNearest_Filter, VYRRasterMatrix()));
  EXPECT_FALSE(offered(VYRRasterShader::kRepeat_TileMode, VYRRasterBitmapShader::kBilinear_Filter, VYRRasterMatrix()));
  EXPECT_FALSE(offered(VYRRasterShader::kClamp_TileMode, VYRRasterBitmapShader::kBilinear_Filter,
                       VYRRasterMatrix::MakeScale(0, 1)));
  EXPECT_EQ(untouched, row);
  EXPECT_TRUE(offered(VYRRasterShader::kClamp_TileMode, VYRRasterBitmapShader::kBilinear_Filter,
                      VYRRasterMatrix::MakeScale(2, 3)));
}

INSTANTIATE_TEST_SUITE_P(InstructionSets, RasterBitmapShaderPaths, ::testing::Bool(), InstructionSetName);

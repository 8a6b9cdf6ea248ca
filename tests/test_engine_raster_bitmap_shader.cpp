// The bitmap shader's bilinear row path (scale-only matrices, whole rows mixed column by
// column) against the pixel-by-pixel sampling it stands in for.
#include <gtest/gtest.h>

#include <cstdint>
#include <vector>

#include "VYRRasterBitmapShader.h"
#include "VYRRasterMatrix.h"

namespace {

constexpr int kWidth = 7, kHeight = 5;

// Premultiplied pixels of every kind: opaque, translucent, transparent, all channels distinct.
std::vector<uint32_t> VariedPixels() {
  std::vector<uint32_t> pixels(kWidth * kHeight);
  for (int i = 0; i < kWidth * kHeight; ++i) {
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
TEST(RasterBitmapShader, BilinearRowsEqualPixelByPixelSampling) {
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

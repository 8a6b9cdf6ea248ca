#include <gtest/gtest.h>

#include <random>
#include <vector>

#include "VYRRasterBlendMode.h"
#include "VYRRasterCanvas.h"
#include "RasterInstructionSets.h"

namespace {

class RasterBlendPaths : public RasterInstructionSets {};

uint32_t Blend(int mode, uint32_t src, uint32_t dst) {
  return VYRRasterBlender::BlendPixel(static_cast<VYRRasterBlendMode>(mode), src, dst);
}
int Red(uint32_t c) { return int((c >> 16) & 0xFF); }
uint32_t Gray(int v) { return 0xFF000000u | uint32_t(v) << 16 | uint32_t(v) << 8 | uint32_t(v); }
}  // namespace

// Premultiplied source (a 192: 192, 96, 0) over destination (a 128: 64, 32, 16); each value
// worked out from the mode's formula with channels divided by 255 and rounded.
TEST(RasterBlend, PorterDuffAndSimpleSeparableModesMatchHandComputedValues) {
  const uint32_t s = 0xC0C06000, d = 0x80402010;
  const struct {
    int mode;
    uint32_t expected;
  } cases[] = {
      {0, 0x00000000},  {1, 0xC0C06000},  {2, 0x80402010},  {3, 0xE0D06804},  {4, 0xE0A05010},
      {5, 0x60603000},  {6, 0x6030180C},  {7, 0x60603000},  {8, 0x20100804},  {9, 0x80703804},
      {10, 0xC090480C}, {11, 0x7F6F3804}, {12, 0xFFFF8010}, {13, 0xE0A04404}, {14, 0xE0D07410},
      {16, 0xE0A05004}, {17, 0xE0D06810}, {22, 0xE0A05010}, {23, 0xE0A06810},
  };
  for (const auto& c : cases) EXPECT_EQ(Blend(c.mode, s, d), c.expected) << "mode " << c.mode;
}

TEST(RasterBlend, LightingModesOnOpaqueGrays) {
  EXPECT_EQ(Red(Blend(15, Gray(255), Gray(64))), 128);   // overlay: 2 s d
  EXPECT_EQ(Red(Blend(15, Gray(0), Gray(192))), 129);    // overlay: 1 - 2 (1 - s)(1 - d)
  EXPECT_EQ(Red(Blend(20, Gray(64), Gray(200))), 100);   // hard light: 2 s d
  EXPECT_EQ(Red(Blend(18, Gray(128), Gray(50))), 100);   // colour dodge: d / (1 - s)
  EXPECT_EQ(Red(Blend(19, Gray(128), Gray(200))), 145);  // colour burn: 1 - (1 - d) / s
  EXPECT_EQ(Red(Blend(21, Gray(255), Gray(64))), 128);   // soft light: sqrt(d)
  EXPECT_EQ(Red(Blend(21, Gray(0), Gray(64))), 16);      // soft light: d squared
  // Dodge and burn jump at a destination of exactly 0 (or alpha) and a source of exactly alpha (or 0).
  EXPECT_EQ(Red(Blend(18, Gray(255), Gray(0))), 0);
  EXPECT_EQ(Red(Blend(18, Gray(255), Gray(1))), 255);
  EXPECT_EQ(Red(Blend(19, Gray(0), Gray(255))), 255);
  EXPECT_EQ(Red(Blend(19, Gray(0), Gray(254))), 0);
}

TEST(RasterBlend, NonSeparableModesOnRedAndGray) {
  const uint32_t red = 0xFFFF0000, gray = Gray(128);
  auto channels = [](uint32_t c) { return std::vector<int>{Red(c), int((c >> 8) & 0xFF), int(c & 0xFF)}; };
  // Luminosity of gray (0.502) given to red: (1.2, 0.2, 0.2) clipped into range.
  EXPECT_EQ(channels(Blend(27, gray, red)), (std::vector<int>{255, 74, 74}));
  // Saturation of gray (0) with red's luminosity 0.3; colour of gray with red's luminosity.
  for (int mode : {25, 26, 24}) {
    for (int v : channels(Blend(mode, gray, red))) EXPECT_NEAR(v, 77, 1) << mode;
  }
  EXPECT_EQ(channels(Blend(26, red, gray)), (std::vector<int>{255, 74, 74}));
  for (int v : channels(Blend(24, red, gray))) EXPECT_NEAR(v, 128, 1);
}

TEST(RasterBlend, EveryModeKeepsPixelsPremultipliedAndOutOfRangeModesAreSourceOver) {
  const uint32_t samples[] = {0, 0xFFFFFFFF, 0x80402010, 0xC0C06000, 0x01010000, 0xFF00FF80, 0x40404040};
  for (int mode = 0; mode <= 27; ++mode)
    for (uint32_t s : samples)
      for (uint32_t d : samples) {
        const uint32_t r = Blend(mode, s, d);
        const int a = int(r >> 24);
        EXPECT_LE(Red(r), a);
        EXPECT_LE(int((r >> 8) & 0xFF), a);
        EXPECT_LE(int(r & 0xFF), a);
      }
  EXPECT_EQ(Blend(40, 0xC0C06000, 0x80402010), Blend(3, 0xC0C06000, 0x80402010));
}

TEST(RasterBlend, UncoveredPixelsStayWhateverTheModeAndCoverageMixes) {
  for (int mode = 0; mode <= 27; ++mode) {
    std::vector<uint32_t> pixels(16 * 16, 0x80402010);
    VYRRasterBitmap bitmap;
    bitmap.setConfig(16, 16);
    bitmap.setPixels(pixels.data());
    VYRRasterDevice* device = new VYRRasterDevice(bitmap);
    VYRRasterCanvas* canvas = new VYRRasterCanvas(device);
    VYRRasterPaint paint;
    paint.setColor(0xC0FF8000);
    paint.setBlendMode(mode);
    paint.setAntiAlias(true);
    canvas->drawRect(VYRRasterRect::MakeLTRB(4, 4, 8.5f, 8), paint);
    const uint32_t full = VYRRasterBlender::BlendPixel(static_cast<VYRRasterBlendMode>(mode), 0xC0C06000, 0x80402010);
    EXPECT_EQ(pixels[0], 0x80402010u) << mode;
    EXPECT_EQ(pixels[9 * 16 + 5], 0x80402010u) << mode;
    EXPECT_EQ(pixels[5 * 16 + 5], full) << mode;
    // Half coverage lands halfway between the destination and the full result.
    const int halfAlpha = int(pixels[5 * 16 + 8] >> 24);
    EXPECT_NEAR(halfAlpha, (int(full >> 24) + 128) / 2, 1) << mode;
    canvas->Release();
    device->Release();
  }
}

TEST(RasterBlend, DrawARGBFloodsTheClipInTheGivenMode) {
  std::vector<uint32_t> pixels(4 * 4, 0xFF102030);
  VYRRasterBitmap bitmap;
  bitmap.setConfig(4, 4);
  bitmap.setPixels(pixels.data());
  VYRRasterDevice* device = new VYRRasterDevice(bitmap);
  VYRRasterCanvas* canvas = new VYRRasterCanvas(device);
  canvas->clipRect(VYRRasterRect::MakeLTRB(0, 0, 2, 4));
  canvas->drawARGB(0, 0, 0, 0, kClear_VYRBlendMode);
  EXPECT_EQ(pixels[0], 0u);
  EXPECT_EQ(pixels[3], 0xFF102030u);
  canvas->clear(0xFF00FF00);
  EXPECT_EQ(pixels[1], 0xFF00FF00u);
  canvas->Release();
  device->Release();
}

// Source-over rows take a vectorised path; every row length (and so every tail)
// must give what the per-channel formula gives: s' = s * cov / 255, then
// s' + d * (255 - s'.alpha) / 255, each division rounded.
TEST_P(RasterBlendPaths, SourceOverRowsMatchThePerChannelFormula) {
  auto div255 = [](int x) { x += 128; return (x + (x >> 8)) >> 8; };
  auto channel = [](uint32_t c, int shift) { return int((c >> shift) & 0xFF); };
  std::mt19937 random(7);
  for (int count = 1; count <= 19; ++count) {
    std::vector<uint32_t> src(count), dst(count), expected(count);
    std::vector<uint8_t> coverage(count);
    for (int i = 0; i < count; ++i) {
      // Valid premultiplied pixels: every colour channel at most the alpha.
      auto pixel = [&] {
        int a = int(random() % 256);
        uint32_t p = uint32_t(a) << 24;
        for (int shift : {0, 8, 16}) p |= uint32_t(a ? random() % (a + 1) : 0) << shift;
        return p;
      };
      src[i] = pixel();
      dst[i] = pixel();
      coverage[i] = i % 5 == 0 ? 0 : i % 5 == 1 ? 255 : uint8_t(random());
      uint32_t scaled = 0;
      for (int shift : {0, 8, 16, 24}) scaled |= uint32_t(div255(channel(src[i], shift) * coverage[i])) << shift;
      const int k = 255 - int(scaled >> 24);
      for (int shift : {0, 8, 16, 24})
        expected[i] |= uint32_t(channel(scaled, shift) + div255(channel(dst[i], shift) * k)) << shift;
    }
    std::vector<uint32_t> withCoverage = dst, full = dst;
    VYRRasterBlender::BlendRow(kSrcOver_VYRBlendMode, withCoverage.data(), src.data(), coverage.data(), count);
    EXPECT_EQ(withCoverage, expected) << "row of " << count;
    VYRRasterBlender::BlendRow(kSrcOver_VYRBlendMode, full.data(), src.data(), nullptr, count);
    for (int i = 0; i < count; ++i) {
      if (coverage[i] == 255) {
        EXPECT_EQ(full[i], expected[i]) << "pixel " << i << " of " << count;
      }
    }
  }
}

// The solid-colour row must give what the general row gives with the colour repeated, in
// every mode, whatever the row's length and its mix of empty, partial and full coverage.
TEST_P(RasterBlendPaths, SolidRowsEqualGeneralRowsOfTheRepeatedColour) {
  std::mt19937 random(7);
  std::uniform_int_distribution<int> byte(0, 255), runLength(1, 40);
  const uint32_t colours[] = {0x00000000u, 0xFF3080C0u, 0x80402010u, 0x01010000u, 0xC0C06000u};
  for (int mode = 0; mode <= 27; ++mode)
    for (uint32_t colour : colours)
      for (int count : {0, 1, 3, 4, 7, 8, 9, 15, 16, 17, 31, 32, 33, 63, 64, 65, 100, 131}) {
        // Coverage in runs, so that whole groups of 0 and of 255 occur as well as mixes.
        std::vector<uint8_t> coverage;
        while (static_cast<int>(coverage.size()) < count) {
          const int kind = byte(random) % 3;
          const uint8_t value = kind == 0 ? 0 : kind == 1 ? 255 : static_cast<uint8_t>(byte(random));
          coverage.insert(coverage.end(), static_cast<size_t>(runLength(random)), value);
        }
        coverage.resize(static_cast<size_t>(count));
        std::vector<uint32_t> background(static_cast<size_t>(count));
        for (uint32_t& pixel : background) {
          const int a = byte(random);
          pixel = uint32_t(a) << 24 | uint32_t(byte(random) * a / 255) << 16 | uint32_t(byte(random) * a / 255) << 8 |
                  uint32_t(byte(random) * a / 255);
        }
        const std::vector<uint32_t> source(static_cast<size_t>(count) + 1, colour);
        const uint8_t* coverages[] = {nullptr, coverage.data()};
        for (const uint8_t* pCoverage : coverages) {
          std::vector<uint32_t> solid = background, general = background;
          const auto blendMode = static_cast<VYRRasterBlendMode>(mode);
          VYRRasterBlender::BlendSolidRow(blendMode, solid.data(), colour, pCoverage, count);
          VYRRasterBlender::BlendRow(blendMode, general.data(), source.data(), pCoverage, count);
          ASSERT_EQ(solid, general) << "mode " << mode << " colour " << std::hex << colour << std::dec << " count "
                                    << count << (pCoverage ? " with coverage" : " full");
        }
      }
}

INSTANTIATE_TEST_SUITE_P(InstructionSets, RasterBlendPaths, ::testing::Bool(), InstructionSetName);

// Draws under an anti-aliased clip mask compared with a pixel-by-pixel composition of the
// shape's coverage times the clip's, so that the spans a draw skips or paints without the
// clip's coverage are checked against the plain rule on awkward cases.
#include <gtest/gtest.h>

#include <memory>
#include <random>
#include <string>
#include <vector>

#include "RasterPaths.h"
#include "VYRRasterCanvas.h"

namespace {

constexpr int kWidth = 97, kHeight = 61;

uint8_t Mul255(int a, int b) {
  int x = a * b + 128;
  return static_cast<uint8_t>((x + (x >> 8)) >> 8);
}

std::vector<NamedPath> Shapes() {
  std::vector<NamedPath> shapes;
  shapes.push_back({"triangle across the clip edge", Polygon({{40.5f, 10.2f}, {96.3f, 30.7f}, {55.1f, 58.9f}})});
  shapes.push_back({"bow-tie across the clip edge", Polygon({{50.2f, 5.5f}, {95.7f, 50.3f}, {90.1f, 4.4f}, {52.6f, 55.8f}})});
  shapes.push_back({"concave shape inside", Polygon({{70, 25.5f}, {80.5f, 27}, {74.25f, 31}, {79, 38.5f}, {69.5f, 36}})});
  shapes.push_back({"shape beyond the surface", Polygon({{60.5f, 40.5f}, {130, 35}, {120, 90}})});
  shapes.push_back({"shape in the clip's corner only", Polygon({{93, 1}, {96.5f, 1.5f}, {95, 5.5f}})});
  VYRRasterPath circle;
  circle.addCircle(75.3f, 30.1f, 9.6f);
  shapes.push_back({"circle inside", circle});
  return shapes;
}

// A surface with a varied background, under a circular clip that reaches past its right edge.
struct ClippedSurface {
  std::vector<uint32_t> pixels;
  VYRRasterBitmap bitmap;
  VYRRasterDevice* device = nullptr;
  VYRRasterCanvas* canvas = nullptr;

  ClippedSurface() : pixels(size_t(kWidth) * kHeight) {
    std::mt19937 random(3);
    std::uniform_int_distribution<int> byte(0, 255);
    for (uint32_t& pixel : pixels) {
      const int a = byte(random);
      pixel = uint32_t(a) << 24 | uint32_t(byte(random) * a / 255) << 16 | uint32_t(byte(random) * a / 255) << 8 |
              uint32_t(byte(random) * a / 255);
    }
    bitmap.setConfig(kWidth, kHeight);
    bitmap.setPixels(pixels.data());
    device = new VYRRasterDevice(bitmap);
    canvas = new VYRRasterCanvas(device);
    VYRRasterPath clip;
    clip.addCircle(74.6f, 30.3f, 27.8f);
    canvas->clipPath(clip, VYRRasterCanvas::kIntersect_Op, true);
  }
  ~ClippedSurface() {
    canvas->Release();
    device->Release();
  }
  // The clip's coverage at a pixel.
  uint8_t clipAt(int x, int y) const {
    const VYRRasterClip& clip = canvas->getClip();
    if (clip.isRect()) return clip.getBounds().contains(VYRRasterIRect{x, y, x + 1, y + 1}) ? 255 : 0;
    return clip.getMask().at(x, y);
  }
};

// What a draw must leave: each pixel blended on its own by shape coverage x clip coverage.
std::vector<uint32_t> Composed(const ClippedSurface& i_surface, const std::vector<uint32_t>& i_before,
                               const VYRRasterMask* i_pShape, const VYRRasterPaint& i_paint) {
  std::vector<uint32_t> expected = i_before;
  const uint32_t colour = VYRRasterBlender::Premultiply(i_paint.getColor());
  for (int y = 0; y < kHeight; ++y)
    for (int x = 0; x < kWidth; ++x) {
      const uint8_t coverage = Mul255(i_surface.clipAt(x, y), i_pShape ? i_pShape->at(x, y) : 255);
      if (coverage)
        VYRRasterBlender::BlendRow(i_paint.getBlendMode(), &expected[size_t(y) * kWidth + x], &colour, &coverage, 1);
    }
  return expected;
}

}  // namespace

TEST(RasterClipPainting, ClipReachingPastTheSurfaceIsCutToIt) {
  ClippedSurface surface;
  const VYRRasterClip& clip = surface.canvas->getClip();
  ASSERT_FALSE(clip.isRect());
  EXPECT_EQ(clip.getBounds().right, kWidth);
  EXPECT_EQ(clip.getBounds().top, 2);
  // The clip's bounding box holds corners the circle leaves out.
  EXPECT_TRUE(clip.coveredBounds(VYRRasterIRect{47, 2, 52, 6}).isEmpty());
  const VYRRasterIRect middle = clip.coveredBounds(VYRRasterIRect{0, 29, kWidth, 31});
  EXPECT_EQ(middle.left, 46);
  EXPECT_EQ(middle.right, kWidth);
  const VYRRasterClip::Run opaque = clip.opaqueRun(30);
  EXPECT_EQ(opaque.right, kWidth);
  EXPECT_GT(opaque.left, middle.left);
}

TEST(RasterClipPainting, ShapesUnderTheClipEqualTheirCoverageTimesTheClipsInEveryMode) {
  std::unique_ptr<VYRRasterCoverage> coverage(VYRRasterCoverage::Create());
  const VYRRasterIRect device = VYRRasterIRect::MakeWH(kWidth, kHeight);
  const int modes[] = {kSrcOver_VYRBlendMode, kMultiply_VYRBlendMode, kSrc_VYRBlendMode, kClear_VYRBlendMode,
                       kDstIn_VYRBlendMode,   kSoftLight_VYRBlendMode};
  const uint32_t colours[] = {0xFF2080E0u, 0x9A40C010u, 0x00FFFFFFu};
  for (const NamedPath& shape : Shapes()) {
    // The shape's coverage over the whole surface: drawing under the clip must not change it.
    VYRRasterMask shapeMask;
    coverage->FillPath(shape.path, true, device, &shapeMask);
    for (int mode : modes)
      for (uint32_t colour : colours) {
        ClippedSurface surface;
        const std::vector<uint32_t> before = surface.pixels;
        VYRRasterPaint paint;
        paint.setColor(colour);
        paint.setAntiAlias(true);
        paint.setBlendMode(mode);
        surface.canvas->drawPath(shape.path, paint);
        ASSERT_EQ(surface.pixels, Composed(surface, before, &shapeMask, paint))
            << shape.name << ", mode " << mode << ", colour " << std::hex << colour;
      }
  }
}

TEST(RasterClipPainting, FloodsFillTheClipByItsCoverage) {
  for (int mode : {kSrcOver_VYRBlendMode, kSrc_VYRBlendMode, kScreen_VYRBlendMode})
    for (uint32_t colour : {0xFF102030u, 0x66C08040u}) {
      ClippedSurface surface;
      const std::vector<uint32_t> before = surface.pixels;
      VYRRasterPaint paint;
      paint.setColor(colour);
      paint.setBlendMode(mode);
      surface.canvas->drawPaint(paint);
      ASSERT_EQ(surface.pixels, Composed(surface, before, nullptr, paint)) << "mode " << mode << std::hex << colour;
    }
}

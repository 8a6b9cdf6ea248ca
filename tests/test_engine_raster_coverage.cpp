#include <gtest/gtest.h>

#include <cstdlib>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include "RasterPaths.h"
#include "VYRCairoCoverage.h"
#include "VYRRasterCoverage.h"

namespace {

// Outlines of every kind the default scan converter may route differently: convex, concave,
// crossing themselves, several contours, curves.
std::vector<NamedPath> Outlines() {
  std::vector<NamedPath> outlines;
  outlines.push_back({"triangle", Polygon({{3.3f, 4.1f}, {57.5f, 9.9f}, {20.2f, 61.7f}})});
  outlines.push_back({"arrow", Polygon({{5, 5}, {60, 30.5f}, {5, 58}, {25.3f, 30.5f}})});
  outlines.push_back({"bow-tie", Polygon({{4, 4}, {60, 60}, {60, 4}, {4, 60}})});
  // Crossing once: drawn as two loops, which must add up to the whole.
  outlines.push_back({"slanted bow-tie", Polygon({{3.3f, 9.7f}, {61.1f, 50.2f}, {55.4f, 2.6f}, {8.8f, 62.1f}})});
  outlines.push_back({"bow-tie even-odd", Polygon({{3.3f, 9.7f}, {61.1f, 50.2f}, {55.4f, 2.6f}, {8.8f, 62.1f}},
                                                   VYRRasterPath::kEvenOdd_FillType)});
  outlines.push_back(
      {"six points crossing once", Polygon({{4, 30.5f}, {30, 4.2f}, {58.6f, 20}, {10.3f, 50}, {33, 61}, {60, 45.5f}})});
  // One crossing whose loops nest: the inner loop is covered twice over.
  outlines.push_back({"loop inside a loop",
                      Polygon({{20, 30}, {60, 30}, {60, 60}, {5, 60}, {5, 5}, {40, 5}, {40, 45}})});
  outlines.push_back({"loop inside a loop even-odd",
                      Polygon({{20, 30}, {60, 30}, {60, 60}, {5, 60}, {5, 5}, {40, 5}, {40, 45}},
                              VYRRasterPath::kEvenOdd_FillType)});
  outlines.push_back({"star winding", Polygon({{32, 2}, {50, 60}, {2, 22}, {62, 22}, {14, 60}})});
  outlines.push_back(
      {"star even-odd", Polygon({{32, 2}, {50, 60}, {2, 22}, {62, 22}, {14, 60}}, VYRRasterPath::kEvenOdd_FillType)});
  // Two overlapping squares: their union must not come out darker or lighter at the shared edges.
  VYRRasterPath squares = Polygon({{5.5f, 5.5f}, {40.5f, 5.5f}, {40.5f, 40.5f}, {5.5f, 40.5f}});
  squares.moveTo(20.25f, 20.25f);
  squares.lineTo(60.25f, 20.25f);
  squares.lineTo(60.25f, 60.25f);
  squares.lineTo(20.25f, 60.25f);
  squares.close();
  outlines.push_back({"two squares", squares});
  VYRRasterPath circle;
  circle.addCircle(31.7f, 32.2f, 27.3f);
  outlines.push_back({"circle", circle});
  VYRRasterPath curl;
  curl.moveTo(5, 50);
  curl.cubicTo(80, -20, -20, -20, 60, 50);
  curl.close();
  outlines.push_back({"self-crossing curve", curl});
  return outlines;
}

TEST(RasterCoverage, DefaultScanConverterMatchesCairoOnEveryKindOfOutline) {
  std::unique_ptr<VYRRasterCoverage> fast(VYRRasterCoverage::Create());
  VYRCairoCoverage cairo;
  const VYRRasterIRect clip = VYRRasterIRect::MakeWH(64, 64);
  for (const NamedPath& outline : Outlines()) {
    VYRRasterMask a, b;
    fast->FillPath(outline.path, true, clip, &a);
    cairo.FillPath(outline.path, true, clip, &b);
    int worst = 0, inkA = 0, inkB = 0;
    for (int y = 0; y < 64; ++y)
      for (int x = 0; x < 64; ++x) {
        worst = std::max(worst, std::abs(a.at(x, y) - b.at(x, y)));
        inkA += a.at(x, y);
        inkB += b.at(x, y);
      }
    // Exact-area and sampled coverage differ a little on edge pixels, never inside or outside;
    // curves are flattened a little differently too.
    EXPECT_LE(worst, 40) << outline.name;
    EXPECT_NEAR(inkA, inkB, inkB / 200 + 255) << outline.name;
  }
}

TEST(RasterCoverage, ClipLimitsTheMaskAndOutsideReadsZero) {
  std::unique_ptr<VYRRasterCoverage> fast(VYRRasterCoverage::Create());
  VYRRasterMask mask;
  const VYRRasterPath triangle = Polygon({{0, 0}, {100, 0}, {0, 100}});
  ASSERT_TRUE(fast->FillPath(triangle, true, VYRRasterIRect{10, 10, 20, 20}, &mask));
  EXPECT_EQ(mask.bounds.left, 10);
  EXPECT_EQ(mask.bounds.bottom, 20);
  EXPECT_EQ(mask.at(12, 12), 255);
  EXPECT_EQ(mask.at(9, 12), 0);
  EXPECT_FALSE(fast->FillPath(triangle, true, VYRRasterIRect{80, 80, 90, 90}, &mask));
  EXPECT_TRUE(mask.isEmpty());
}

}  // namespace

// Axis-aligned rectangles take a shortcut past the rasteriser: its masks must be the
// rasteriser's to the byte, seen here through the same rectangle with a point added halfway
// along its top side (which the shortcut does not take). Both directions, sub-pixel corners,
// slivers under a pixel, rectangles over the clip's edges and empty ones.
TEST(RasterCoverage, RectangleShortcutGivesTheScanConvertersBytes) {
  std::unique_ptr<VYRRasterCoverage> coverage(VYRRasterCoverage::Create());
  const VYRRasterIRect clip{0, 0, 24, 20};
  std::mt19937 random(11);
  std::uniform_real_distribution<float> position(-3.0f, 26.0f), sliver(0.0f, 0.9f);
  for (int i = 0; i < 600; ++i) {
    float left = position(random), top = position(random), right = position(random), bottom = position(random);
    if (i % 4 == 1) right = left + sliver(random);
    if (i % 4 == 2) bottom = top + sliver(random);
    if (i % 50 == 3) right = left;
    const bool clockwise = i % 2 == 0;
    VYRRasterPath rectangle, detour;
    rectangle.addRect(left, top, right, bottom, clockwise ? VYRRasterPath::kCW_Direction : VYRRasterPath::kCCW_Direction);
    detour.moveTo(left, top);
    if (clockwise) {
      detour.lineTo((left + right) / 2, top);
      detour.lineTo(right, top);
      detour.lineTo(right, bottom);
      detour.lineTo(left, bottom);
    } else {
      detour.lineTo(left, bottom);
      detour.lineTo(right, bottom);
      detour.lineTo(right, top);
      detour.lineTo((left + right) / 2, top);
    }
    detour.close();
    VYRRasterMask fast, scanned;
    const bool fastCovers = coverage->FillPath(rectangle, true, clip, &fast);
    const bool scannedCovers = coverage->FillPath(detour, true, clip, &scanned);
    SCOPED_TRACE(testing::Message() << "rectangle " << left << ", " << top << " - " << right << ", " << bottom
                                    << (clockwise ? " clockwise" : " anticlockwise"));
    ASSERT_EQ(scannedCovers, fastCovers);
    ASSERT_EQ(scanned.isEmpty(), fast.isEmpty());
    for (int y = clip.top; y < clip.bottom; ++y)
      for (int x = clip.left; x < clip.right; ++x) ASSERT_EQ(scanned.at(x, y), fast.at(x, y)) << x << ", " << y;
  }
}

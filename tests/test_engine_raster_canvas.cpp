#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <limits>
#include <vector>

#include "AssertionCapture.h"
#include "VYRRasterCanvas.h"
#include "VYRRasterDashPathEffect.h"

namespace {

// A canvas over a packed buffer, filled with a known background.
struct Surface {
  int width, height;
  std::vector<uint32_t> pixels;
  VYRRasterBitmap bitmap;
  VYRRasterDevice* device = nullptr;
  VYRRasterCanvas* canvas = nullptr;

  Surface(int w, int h, uint32_t background = 0) : width(w), height(h), pixels(size_t(w) * h, background) {
    bitmap.setConfig(w, h);
    bitmap.setPixels(pixels.data());
    device = new VYRRasterDevice(bitmap);
    canvas = new VYRRasterCanvas(device);
  }
  ~Surface() {
    canvas->Release();
    device->Release();
  }
  uint32_t at(int x, int y) const { return pixels[size_t(y) * width + x]; }
  int alphaAt(int x, int y) const { return int(at(x, y) >> 24); }
  int countAlphaAbove(int threshold) const {
    int n = 0;
    for (uint32_t p : pixels) n += int(p >> 24) > threshold;
    return n;
  }
};

VYRRasterPaint Paint(uint32_t color, bool antiAlias = true) {
  VYRRasterPaint p;
  p.setColor(color);
  p.setAntiAlias(antiAlias);
  return p;
}

VYRRasterPaint StrokePaint(float width, VYRRasterPaint::Cap cap = VYRRasterPaint::kButt_Cap,
                           VYRRasterPaint::Join join = VYRRasterPaint::kMiter_Join) {
  VYRRasterPaint p = Paint(0xFF000000);
  p.setStyle(VYRRasterPaint::kStroke_Style);
  p.setStrokeWidth(width);
  p.setStrokeCap(cap);
  p.setStrokeJoin(join);
  return p;
}

}  // namespace

TEST(RasterCanvas, SaveCountStartsAtOneAndSaveReturnsTheCountBefore) {
  Surface s(8, 8);
  EXPECT_EQ(s.canvas->getSaveCount(), 1);
  EXPECT_EQ(s.canvas->save(), 1);
  EXPECT_EQ(s.canvas->save(VYRRasterCanvas::kMatrix_SaveFlag), 2);
  EXPECT_EQ(s.canvas->getSaveCount(), 3);
  s.canvas->restoreToCount(1);
  EXPECT_EQ(s.canvas->getSaveCount(), 1);
  s.canvas->restore();  // nothing to pop
  EXPECT_EQ(s.canvas->getSaveCount(), 1);
  EXPECT_FALSE(s.canvas->isDrawingToLayer());
}

TEST(RasterCanvas, AxisAlignedFillIsExactInsideOutsideAndOnHalfPixelEdges) {
  Surface s(16, 16);
  s.canvas->drawRect(VYRRasterRect::MakeLTRB(2, 2, 6.5f, 6), Paint(0xFFFF0000));
  EXPECT_EQ(s.at(3, 3), 0xFFFF0000u);
  EXPECT_EQ(s.at(1, 3), 0u);
  EXPECT_EQ(s.at(7, 3), 0u);
  EXPECT_EQ(s.at(3, 6), 0u);
  // Half the pixel is covered: half-transparent red, premultiplied.
  EXPECT_NEAR(s.alphaAt(6, 3), 128, 1);
  EXPECT_EQ((s.at(6, 3) >> 16) & 0xFF, s.at(6, 3) >> 24);
}

TEST(RasterCanvas, AliasedFillTakesPixelsWhoseCentresAreInside) {
  Surface s(16, 16);
  s.canvas->drawRect(VYRRasterRect::MakeLTRB(2.4f, 2, 6.6f, 4), Paint(0xFF0000FF, false));
  EXPECT_EQ(s.at(2, 2), 0xFF0000FFu);
  EXPECT_EQ(s.at(6, 2), 0xFF0000FFu);
  EXPECT_EQ(s.at(7, 2), 0u);
  EXPECT_EQ(s.at(1, 2), 0u);
}

TEST(RasterCanvas, FillRulesDifferOnOverlappingContours) {
  for (auto rule : {VYRRasterPath::kWinding_FillType, VYRRasterPath::kEvenOdd_FillType}) {
    Surface s(20, 20);
    VYRRasterPath path;
    path.addRect(2, 2, 18, 18);
    path.addRect(6, 6, 14, 14);  // same direction: winding 2 inside
    path.setFillType(rule);
    s.canvas->drawPath(path, Paint(0xFF00FF00));
    EXPECT_EQ(s.alphaAt(4, 4), 255);
    EXPECT_EQ(s.alphaAt(10, 10), rule == VYRRasterPath::kWinding_FillType ? 255 : 0);
  }
  // Inverse winding paints everything but the shape.
  Surface s(20, 20);
  VYRRasterPath path;
  path.addRect(5, 5, 10, 10);
  path.setFillType(VYRRasterPath::kInverseWinding_FillType);
  s.canvas->drawPath(path, Paint(0xFF00FF00));
  EXPECT_EQ(s.alphaAt(7, 7), 0);
  EXPECT_EQ(s.alphaAt(0, 0), 255);
}

TEST(RasterCanvas, StrokeCapsReachTheirOwnLengths) {
  struct Case {
    VYRRasterPaint::Cap cap;
    bool pastEnd;      // pixel at x = 21 (one past the end at 20)
    bool cornerPast;   // pixel at (22, 7): square reaches it, round does not
  } cases[] = {{VYRRasterPaint::kButt_Cap, false, false},
               {VYRRasterPaint::kSquare_Cap, true, true},
               {VYRRasterPaint::kRound_Cap, true, false}};
  for (const Case& c : cases) {
    Surface s(32, 20);
    s.canvas->drawLine(10, 10, 20, 10, StrokePaint(6, c.cap));
    EXPECT_EQ(s.alphaAt(15, 8), 255);
    EXPECT_EQ(s.alphaAt(21, 10) == 255, c.pastEnd) << c.cap;
    EXPECT_EQ(s.alphaAt(22, 7) > 128, c.cornerPast) << c.cap;
  }
}

TEST(RasterCanvas, JoinsAndTheMiterLimitOfFour) {
  // A right angle: the miter corner (at 1/sin(45) = 1.41 < 4) is filled, the bevel cuts it.
  auto corner = [](VYRRasterPaint::Join join) {
    Surface s(40, 40);
    VYRRasterPath path;
    path.moveTo(10, 30);
    path.lineTo(10, 10);
    path.lineTo(30, 10);
    s.canvas->drawPath(path, StrokePaint(8, VYRRasterPaint::kButt_Cap, join));
    return s.alphaAt(6, 6);
  };
  EXPECT_EQ(corner(VYRRasterPaint::kMiter_Join), 255);
  EXPECT_EQ(corner(VYRRasterPaint::kBevel_Join), 0);
  EXPECT_EQ(corner(VYRRasterPaint::kRound_Join), 0);
  // A 20 degree tooth needs a miter ratio of 5.8: with the limit 4 it is bevelled.
  Surface s(120, 60);
  const float half = 10.0f * float(M_PI) / 180.0f;
  VYRRasterPath tooth;
  tooth.moveTo(20 + 60 * std::cos(half), 30 - 60 * std::sin(half));
  tooth.lineTo(20, 30);
  tooth.lineTo(20 + 60 * std::cos(half), 30 + 60 * std::sin(half));
  s.canvas->drawPath(tooth, StrokePaint(4));
  EXPECT_EQ(s.alphaAt(16, 30), 0);  // the miter tip would reach x = 20 - 11.5
  VYRRasterPaint unlimited = StrokePaint(4);
  unlimited.setStrokeMiter(10);
  s.canvas->drawPath(tooth, unlimited);
  EXPECT_EQ(s.alphaAt(16, 30), 255);
}

TEST(RasterCanvas, HairlinesAreOnePixelWhateverTheTransformAndThinStrokesFade) {
  Surface s(40, 40);
  s.canvas->scale(8, 8);
  s.canvas->drawLine(0, 2.0625f, 4, 2.0625f, StrokePaint(0));  // device y = 16.5: one full row
  EXPECT_EQ(s.alphaAt(10, 16), 255);
  EXPECT_EQ(s.alphaAt(10, 15), 0);
  EXPECT_EQ(s.alphaAt(10, 17), 0);
  // Half a pixel wide at x = 10.25: a one-pixel line faded by one half (alphas about 32 and 96).
  Surface t(20, 20);
  t.canvas->drawLine(10.25f, 2, 10.25f, 18, StrokePaint(0.5f));
  EXPECT_NEAR(t.alphaAt(9, 10), 32, 3);
  EXPECT_NEAR(t.alphaAt(10, 10), 96, 3);
  EXPECT_EQ(t.alphaAt(11, 10), 0);
}

TEST(RasterCanvas, DashesStartWithTheirFirstOnInterval) {
  Surface s(64, 8);
  VYRRasterPaint paint = StrokePaint(2);
  const float intervals[] = {10, 5};
  VYRRasterDashPathEffect* dash = VYRRasterDashPathEffect::Create(intervals, 2, 0);
  paint.setPathEffect(dash);
  dash->Release();
  s.canvas->drawLine(0, 4, 60, 4, paint);
  EXPECT_EQ(s.alphaAt(1, 4), 255);
  EXPECT_EQ(s.alphaAt(9, 4), 255);
  EXPECT_EQ(s.alphaAt(12, 4), 0);
  EXPECT_EQ(s.alphaAt(16, 4), 255);
  EXPECT_EQ(s.alphaAt(27, 4), 0);
  // Fills ignore the dash.
  paint.setStyle(VYRRasterPaint::kFill_Style);
  Surface f(16, 16);
  f.canvas->drawRect(VYRRasterRect::MakeLTRB(0, 0, 16, 16), paint);
  EXPECT_EQ(f.alphaAt(12, 8), 255);
}

TEST(RasterCanvas, TransformsMoveShapesAndSaveFlagsRestoreThemSeparately) {
  Surface s(40, 40);
  s.canvas->save(VYRRasterCanvas::kClip_SaveFlag);
  s.canvas->translate(20, 0);
  s.canvas->clipRect(VYRRasterRect::MakeLTRB(0, 0, 10, 10));
  s.canvas->restore();  // keeps the translation, drops the clip
  EXPECT_EQ(s.canvas->getTotalMatrix(), VYRRasterMatrix::MakeTranslate(20, 0));
  VYRRasterIRect bounds;
  ASSERT_TRUE(s.canvas->getClipDeviceBounds(&bounds));
  EXPECT_EQ(bounds, VYRRasterIRect::MakeWH(40, 40));
  s.canvas->rotate(90);  // (x, y) -> (-y, x), then + (20, 0)
  s.canvas->drawRect(VYRRasterRect::MakeLTRB(2, 2, 6, 6), Paint(0xFF000000));
  EXPECT_EQ(s.alphaAt(15, 3), 255);
  EXPECT_EQ(s.alphaAt(23, 3), 0);
}

TEST(RasterCanvas, ClipOperationsCombineAndRestore) {
  Surface s(30, 10);
  s.canvas->save();
  s.canvas->clipRect(VYRRasterRect::MakeLTRB(0, 0, 20, 10));
  s.canvas->clipRect(VYRRasterRect::MakeLTRB(5, 0, 10, 10), VYRRasterCanvas::kDifference_Op);
  s.canvas->clipRect(VYRRasterRect::MakeLTRB(25, 0, 28, 10), VYRRasterCanvas::kUnion_Op);
  EXPECT_FALSE(s.canvas->isClipRect());
  s.canvas->drawPaint(Paint(0xFFFFFFFF));
  for (int x = 0; x < 30; ++x) {
    const bool inside = (x < 20 && !(x >= 5 && x < 10)) || (x >= 25 && x < 28);
    EXPECT_EQ(s.alphaAt(x, 5), inside ? 255 : 0) << x;
  }
  s.canvas->restore();
  EXPECT_TRUE(s.canvas->isClipRect());
  s.canvas->drawPaint(Paint(0xFF000000));
  EXPECT_EQ(s.at(7, 5), 0xFF000000u);
}

TEST(RasterCanvas, AntiAliasedClipPathFadesItsEdge) {
  Surface s(40, 40);
  VYRRasterPath circle;
  circle.addCircle(20, 20, 10);
  s.canvas->clipPath(circle, VYRRasterCanvas::kIntersect_Op, true);
  s.canvas->drawPaint(Paint(0xFF000000));
  EXPECT_EQ(s.alphaAt(20, 20), 255);
  EXPECT_EQ(s.alphaAt(2, 2), 0);
  const int edge = s.alphaAt(27, 27);  // about 0.1 px outside the circle's edge... inside the pixel
  EXPECT_GT(edge, 0);
  EXPECT_LT(edge, 255);
}

// Rows lying wholly inside a clip mask skip its coverage; others multiply the two coverages.
TEST(RasterCanvas, ShapesUnderAClipMaskGetBothCoveragesOnEveryRow) {
  VYRRasterPath circle;
  circle.addCircle(30, 30, 25);
  VYRRasterPath triangle;
  triangle.moveTo(10.5f, 2);
  triangle.lineTo(52, 40.5f);
  triangle.lineTo(3, 57.25f);
  triangle.close();
  Surface clipped(60, 60), clipAlone(60, 60), shapeAlone(60, 60);
  clipped.canvas->clipPath(circle, VYRRasterCanvas::kIntersect_Op, true);
  clipped.canvas->drawPath(triangle, Paint(0xFF000000));
  clipAlone.canvas->drawPath(circle, Paint(0xFF000000));
  shapeAlone.canvas->drawPath(triangle, Paint(0xFF000000));
  int inside = 0;
  for (int y = 0; y < 60; ++y)
    for (int x = 0; x < 60; ++x) {
      const int expected = (clipAlone.alphaAt(x, y) * shapeAlone.alphaAt(x, y) + 127) / 255;
      ASSERT_NEAR(clipped.alphaAt(x, y), expected, 1) << x << "," << y;
      inside += clipAlone.alphaAt(x, y) == 255 && shapeAlone.alphaAt(x, y) == 255;
    }
  EXPECT_GT(inside, 300);
}

TEST(RasterCanvas, HugeAndNotANumberCoordinatesStayInsideTheBitmap) {
  // Guard pixels around the bitmap: one row before and after must not change.
  const int w = 16, h = 16;
  std::vector<uint32_t> memory(size_t(w) * (h + 2), 0x12345678);
  VYRRasterBitmap bitmap;
  bitmap.setConfig(w, h);
  bitmap.setPixels(memory.data() + w);
  VYRRasterDevice* device = new VYRRasterDevice(bitmap);
  VYRRasterCanvas* canvas = new VYRRasterCanvas(device);
  const float inf = std::numeric_limits<float>::infinity(), nan = std::nanf("");
  VYRRasterPaint paint = Paint(0xFFFF0000);
  canvas->drawRect(VYRRasterRect::MakeLTRB(-1e30f, -1e30f, 1e30f, 1e30f), paint);
  EXPECT_EQ(memory[size_t(w) * 8 + 3], 0xFFFF0000u);  // a plain huge rectangle covers all
  canvas->clear(0);
  canvas->drawRect(VYRRasterRect::MakeLTRB(nan, 0, 10, 10), paint);
  canvas->drawCircle(inf, 5, 4, paint);
  canvas->drawLine(0, 0, 1e20f, 3e19f, StrokePaint(1e20f));
  VYRRasterPath weird;
  weird.moveTo(-1e9f, 3);
  weird.cubicTo(1e9f, -1e9f, nan, 2, 5, 5);
  canvas->drawPath(weird, paint);
  canvas->scale(nan, 1);
  canvas->drawRect(VYRRasterRect::MakeLTRB(0, 0, 5, 5), paint);
  for (int i = 0; i < w; ++i) {
    EXPECT_EQ(memory[i], 0x12345678u);
    EXPECT_EQ(memory[size_t(w) * (h + 1) + i], 0x12345678u);
  }
  canvas->Release();
  device->Release();
}

TEST(RasterCanvas, EraseFillsEveryPixelPremultipliedAndLeavesRowPaddingAlone) {
  std::vector<uint32_t> memory(4 * 2, 0xABABABABu);
  VYRRasterBitmap bitmap;
  ASSERT_TRUE(bitmap.setConfig(3, 2, 16));
  bitmap.setPixels(memory.data());
  for (auto [a, r, g, b, expected] : {std::array<uint32_t, 5>{0, 0, 0, 0, 0x00000000u},
                                      std::array<uint32_t, 5>{255, 255, 255, 255, 0xFFFFFFFFu},
                                      std::array<uint32_t, 5>{128, 255, 0, 0, 0x80800000u}}) {
    bitmap.eraseARGB(a, r, g, b);
    for (int y = 0; y < 2; ++y) {
      for (int x = 0; x < 3; ++x) EXPECT_EQ(memory[y * 4 + x], expected) << x << "," << y;
      EXPECT_EQ(memory[y * 4 + 3], 0xABABABABu);
    }
  }
}

TEST(RasterCanvas, BitmapRefusesBadSizes) {
  AssertionCapture capture;
  VYRRasterBitmap bitmap;
  EXPECT_FALSE(bitmap.setConfig(-1, 10));
  EXPECT_FALSE(bitmap.setConfig(100000, 100000));
  EXPECT_FALSE(bitmap.setConfig(10, 10, 8));  // rows narrower than the width
  EXPECT_EQ(capture.FailedConditions().size(), 3u);
  EXPECT_TRUE(bitmap.empty());
  EXPECT_TRUE(bitmap.isNull());
  EXPECT_TRUE(bitmap.setConfig(10, 10));
  EXPECT_EQ(bitmap.rowBytes(), 40);
  // Drawing on a canvas without pixels does nothing.
  VYRRasterDevice* device = new VYRRasterDevice(bitmap);
  VYRRasterCanvas* canvas = new VYRRasterCanvas(device);
  canvas->drawPaint(Paint(0xFFFFFFFF));
  canvas->Release();
  device->Release();
}

TEST(RasterCanvas, LayerCompositesWithItsAlphaAtRestore) {
  Surface s(8, 8, 0xFF0000FF);
  EXPECT_EQ(s.canvas->saveLayerAlpha(nullptr, 128), 1);
  EXPECT_TRUE(s.canvas->isDrawingToLayer());
  s.canvas->drawPaint(Paint(0xFFFF0000));
  EXPECT_EQ(s.at(3, 3), 0xFF0000FFu);  // not composited yet
  s.canvas->restore();
  EXPECT_FALSE(s.canvas->isDrawingToLayer());
  EXPECT_NEAR(int((s.at(3, 3) >> 16) & 0xFF), 128, 1);
  EXPECT_NEAR(int(s.at(3, 3) & 0xFF), 127, 1);
}

TEST(RasterCanvas, StrokeOutlineFillsTheSamePixelsAsTheStroke) {
  for (auto join : {VYRRasterPaint::kMiter_Join, VYRRasterPaint::kRound_Join, VYRRasterPaint::kBevel_Join}) {
    for (auto cap : {VYRRasterPaint::kButt_Cap, VYRRasterPaint::kRound_Cap, VYRRasterPaint::kSquare_Cap}) {
      VYRRasterPath path;
      path.moveTo(10, 50);
      path.lineTo(30, 10);
      path.quadTo(50, 50, 70, 15);
      path.lineTo(40, 60);
      VYRRasterPaint stroke = StrokePaint(7, cap, join);
      Surface a(80, 70), b(80, 70);
      a.canvas->drawPath(path, stroke);
      VYRRasterPath outline;
      ASSERT_TRUE(stroke.getFillPath(path, &outline));
      b.canvas->drawPath(outline, Paint(0xFF000000));
      int differing = 0;
      for (int y = 0; y < 70; ++y)
        for (int x = 0; x < 80; ++x) {
          differing += std::abs(a.alphaAt(x, y) - b.alphaAt(x, y)) > 64;
        }
      EXPECT_LT(differing, 12) << "join " << join << " cap " << cap;
    }
  }
}

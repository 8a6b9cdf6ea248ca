#include <gtest/gtest.h>

#include <cmath>

#include "AssertionCapture.h"
#include "VYRRasterDashPathEffect.h"
#include "VYRRasterMatrix.h"
#include "VYRRasterPaint.h"
#include "VYRRasterPath.h"

namespace {
void ExpectPoint(const VYRMathPoint2Df& p, float x, float y) {
  EXPECT_NEAR(p.x, x, 1e-4f);
  EXPECT_NEAR(p.y, y, 1e-4f);
}
}  // namespace

TEST(RasterMatrix, EntriesOperationsAndOrder) {
  VYRRasterMatrix m = VYRRasterMatrix::MakeAll(1, 2, 3, 4, 5, 6);
  ExpectPoint(m.mapXY(1, 1), 6, 15);
  EXPECT_EQ(m.get(VYRRasterMatrix::kMTransY), 6);
  {
    AssertionCapture capture;
    EXPECT_EQ(m.get(6), 0);
    EXPECT_EQ(capture.FailedConditions().size(), 1u);
  }
  // pre applies first: translate, then scale.
  VYRRasterMatrix pre = VYRRasterMatrix::MakeScale(2, 3);
  pre.preTranslate(1, 1);
  ExpectPoint(pre.mapXY(0, 0), 2, 3);
  VYRRasterMatrix post = VYRRasterMatrix::MakeScale(2, 3);
  post.postTranslate(1, 1);
  ExpectPoint(post.mapXY(0, 0), 1, 1);
  VYRRasterMatrix r;
  r.setRotate(90);
  ExpectPoint(r.mapXY(1, 0), 0, 1);  // +x turns towards +y
  EXPECT_TRUE(r.rectStaysRect());
  VYRRasterMatrix k;
  k.setSkew(0.5f, 0);
  ExpectPoint(k.mapXY(0, 2), 1, 2);
  VYRRasterMatrix inv;
  ASSERT_TRUE(m.invert(&inv));
  VYRRasterMatrix id = m;
  id.preConcat(inv);
  for (int i = 0; i < 6; ++i) EXPECT_NEAR(id.get(i), VYRRasterMatrix().get(i), 1e-5f);
  VYRRasterMatrix singular = VYRRasterMatrix::MakeScale(0, 1);
  EXPECT_FALSE(singular.invert(&inv));
  EXPECT_TRUE(VYRRasterMatrix().isIdentity());
  EXPECT_NE(m, VYRRasterMatrix());
  VYRRasterRect mapped;
  r.mapRect(&mapped, VYRRasterRect::MakeLTRB(0, 0, 2, 1));
  EXPECT_NEAR(mapped.left, -1, 1e-6f);
  EXPECT_NEAR(mapped.right, 0, 1e-6f);
  EXPECT_NEAR(mapped.bottom, 2, 1e-6f);
}

TEST(RasterPath, ArcToLinesFromTheCurrentPointUnlessForcedOrEmpty) {
  const VYRRasterRect oval = VYRRasterRect::MakeLTRB(0, 0, 20, 10);
  VYRRasterPath empty;
  empty.arcTo(oval, 0, 90, false);
  EXPECT_EQ(empty.verbs().front(), VYRRasterPath::kMove_Verb);
  ExpectPoint(empty.points().front(), 20, 5);
  VYRMathPoint2Df last;
  empty.getLastPt(&last);
  ExpectPoint(last, 10, 10);  // 90 degrees: bottom of the oval (y down)

  VYRRasterPath joined;
  joined.moveTo(-5, -5);
  joined.arcTo(oval, 0, -90, false);
  EXPECT_EQ(joined.verbs()[1], VYRRasterPath::kLine_Verb);
  ExpectPoint(joined.points()[1], 20, 5);
  joined.getLastPt(&last);
  ExpectPoint(last, 10, 0);  // a negative sweep turns towards -y

  VYRRasterPath forced;
  forced.moveTo(-5, -5);
  forced.lineTo(-5, 5);
  forced.arcTo(oval, 0, 45, true);
  EXPECT_EQ(forced.verbs()[2], VYRRasterPath::kMove_Verb);

  VYRRasterPath full;
  full.arcTo(oval, 90, 400, false);  // clamped to one whole turn
  full.getLastPt(&last);
  ExpectPoint(last, 10, 10);
  EXPECT_EQ(full.countVerbs(), 5);  // move and four quarter curves
}

TEST(RasterPath, ShapesContoursDirectionsAndIteration) {
  VYRRasterPath rect;
  rect.addRect(1, 2, 3, 4, VYRRasterPath::kCCW_Direction);
  ASSERT_EQ(rect.countPoints(), 4);
  ExpectPoint(rect.points()[1], 1, 4);  // counter-clockwise goes down the left side first
  VYRRasterPath circle;
  circle.addCircle(10, 10, 5);
  EXPECT_EQ(circle.getBounds(), VYRRasterRect::MakeLTRB(5, 5, 15, 15));
  EXPECT_EQ(circle.verbs().back(), VYRRasterPath::kClose_Verb);
  VYRRasterPath none;
  none.addCircle(0, 0, -1);
  EXPECT_TRUE(none.isEmpty());

  // After a close, a segment starts from the contour's first point.
  VYRRasterPath p;
  p.moveTo(1, 1);
  p.lineTo(5, 1);
  p.close();
  p.lineTo(3, 3);
  VYRRasterPath::Iter iter(p);
  VYRMathPoint2Df pts[4];
  EXPECT_EQ(iter.next(pts), VYRRasterPath::kMove_Verb);
  EXPECT_EQ(iter.next(pts), VYRRasterPath::kLine_Verb);
  EXPECT_EQ(iter.next(pts), VYRRasterPath::kClose_Verb);
  ExpectPoint(pts[1], 1, 1);
  EXPECT_EQ(iter.next(pts), VYRRasterPath::kMove_Verb);
  ExpectPoint(pts[0], 1, 1);
  EXPECT_EQ(iter.next(pts), VYRRasterPath::kLine_Verb);
  EXPECT_EQ(iter.next(pts), VYRRasterPath::kDone_Verb);

  VYRRasterPath moved;
  p.transform(VYRRasterMatrix::MakeTranslate(10, 0), &moved);
  ExpectPoint(moved.points()[0], 11, 1);
  moved.addPath(moved);  // adding a path to itself doubles it
  EXPECT_EQ(moved.countVerbs(), 2 * p.countVerbs());
  moved.reset();
  EXPECT_TRUE(moved.isEmpty());
  EXPECT_EQ(moved.getFillType(), VYRRasterPath::kWinding_FillType);
}

TEST(RasterDash, IntervalsPhaseAndBadPatterns) {
  const float intervals[] = {4, 2};
  VYRRasterDashPathEffect dash(intervals, 2, 1);
  VYRRasterPath line;
  line.moveTo(0, 0);
  line.lineTo(12, 0);
  VYRRasterPath out;
  ASSERT_TRUE(dash.filterPath(&out, line));
  // Phase 1: on 0-3, off 3-5, on 5-9, off 9-11, on 11-12.
  ASSERT_EQ(out.countPoints(), 6);
  ExpectPoint(out.points()[1], 3, 0);
  ExpectPoint(out.points()[2], 5, 0);
  ExpectPoint(out.points()[4], 11, 0);
  // A dash crossing a corner keeps the corner.
  VYRRasterPath corner;
  corner.moveTo(0, 0);
  corner.lineTo(2, 0);
  corner.lineTo(2, 10);
  VYRRasterDashPathEffect longDash(intervals, 2, 0);
  longDash.filterPath(&out, corner);
  ExpectPoint(out.points()[1], 2, 0);
  ExpectPoint(out.points()[2], 2, 2);

  AssertionCapture capture;
  const float odd[] = {1, 2, 3};
  VYRRasterDashPathEffect bad(odd, 3, 0);
  EXPECT_FALSE(bad.isValid());
  EXPECT_FALSE(bad.filterPath(&out, line));
  const float zeros[] = {0, 0};
  EXPECT_FALSE(VYRRasterDashPathEffect(zeros, 2, 0).isValid());
  EXPECT_EQ(capture.FailedConditions().size(), 2u);
}

TEST(RasterPaint, DefaultsResetAndReferences) {
  VYRRasterPaint paint;
  EXPECT_FALSE(paint.isAntiAlias());
  EXPECT_EQ(paint.getColor(), 0xFF000000u);
  EXPECT_EQ(paint.getStrokeMiter(), 4.0f);
  EXPECT_EQ(paint.getStrokeWidth(), 0.0f);
  EXPECT_EQ(paint.getBlendMode(), kSrcOver_VYRBlendMode);
  paint.setARGB(300, 1, 2, 3);
  EXPECT_EQ(paint.getColor(), 0xFF010203u);
  paint.setBlendMode(99);
  EXPECT_EQ(paint.getBlendMode(), kSrcOver_VYRBlendMode);
  const float intervals[] = {1, 1};
  VYRRasterDashPathEffect* dash = VYRRasterDashPathEffect::Create(intervals, 2, 0);
  paint.setPathEffect(dash);
  EXPECT_EQ(dash->GetRefCount(), 2u);
  {
    VYRRasterPaint copy = paint;
    EXPECT_EQ(dash->GetRefCount(), 3u);
  }
  paint.reset();
  EXPECT_EQ(dash->GetRefCount(), 1u);
  EXPECT_EQ(paint.getPathEffect(), nullptr);
  dash->Release();
}

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <ostream>

#include "VYRMathConstants.h"
#include "VYRPrintModelBoundingBoxComputer.h"
#include "VYRPrtBitmapImageElt.h"
#include "VYRPrtCircleElt.h"
#include "VYRPrtCircularArcElt.h"
#include "VYRPrtClipPathElt.h"
#include "VYRPrtClosedFigureElt.h"
#include "VYRPrtClosedFigureRegionElt.h"
#include "VYRPrtDefsElt.h"
#include "VYRPrtDisjointPolylineElt.h"
#include "VYRPrtEllipseElt.h"
#include "VYRPrtEllipticalArcElt.h"
#include "VYRPrtEltFactory.h"
#include "VYRPrtGroupElt.h"
#include "VYRPrtImageElt.h"
#include "VYRPrtLineElt.h"
#include "VYRPrtMarkerElt.h"
#include "VYRPrtMaskElt.h"
#include "VYRPrtModel.h"
#include "VYRPrtNURBSElt.h"
#include "VYRPrtPathElt.h"
#include "VYRPrtPathSegLineTo.h"
#include "VYRPrtPathSegMoveTo.h"
#include "VYRPrtPatternElt.h"
#include "VYRPrtPolyCubicBezierElt.h"
#include "VYRPrtPolyPolygonElt.h"
#include "VYRPrtPolyQuadraticBezierElt.h"
#include "VYRPrtPolygonElt.h"
#include "VYRPrtPolylineElt.h"
#include "VYRPrtRectangleElt.h"
#include "VYRPrtSwitchElt.h"
#include "VYRPrtSymbolElt.h"
#include "VYRPrtTextElt.h"

namespace {

struct Box {
  double xmin, xmax, ymin, ymax;
  bool operator==(const Box& i_other) const {
    return xmin == i_other.xmin && xmax == i_other.xmax && ymin == i_other.ymin && ymax == i_other.ymax;
  }
};

std::ostream& operator<<(std::ostream& io_out, const Box& i_box) {
  return io_out << "(" << i_box.xmin << ", " << i_box.xmax << ", " << i_box.ymin << ", " << i_box.ymax << ")";
}

const Box kEmptyBox{100000.0, -100000.0, 100000.0, -100000.0};
const Box kUntouched{-7.0, -7.0, -7.0, -7.0};

// A float widened back, as transformed points come out.
double F(double i_value) { return static_cast<float>(i_value); }

class BoundingBox : public ::testing::Test {
 protected:
  void TearDown() override { VYRPrtEltFactory::Get().Release(); }

  static Box Measure(VYRPrtGraphicPrimitiveElt* ipElement, int* o_pResult = nullptr) {
    Box box = kUntouched;
    VYRPrintModelBoundingBoxComputer computer;
    int result = computer.Compute(ipElement, box.xmin, box.xmax, box.ymin, box.ymax);
    if (o_pResult) *o_pResult = result;
    return box;
  }
  static Box Measure(VYRPrtModel* ipModel, int& o_result) {
    Box box = kUntouched;
    VYRPrintModelBoundingBoxComputer computer;
    o_result = computer.Compute(ipModel, box.xmin, box.xmax, box.ymin, box.ymax);
    return box;
  }
  static VYRPrtTransformAttributes Translation(double i_x, double i_y) {
    VYRPrtTransformAttributes transform;
    transform.AddTranslation(VYRMathVector2D(i_x, i_y));
    return transform;
  }
  static VYRPrtTransformAttributes ScaleX(double i_factor) {
    VYRPrtTransformAttributes transform;
    transform.AddScaleX(i_factor);
    return transform;
  }
  static VYRSYPDynArray<VYRMathPoint2D> Points(std::initializer_list<VYRMathPoint2D> i_points) {
    VYRSYPDynArray<VYRMathPoint2D> points;
    for (const VYRMathPoint2D& point : i_points) points.Append(point);
    return points;
  }
};

// ---- Compute itself

TEST_F(BoundingBox, NullArgumentsReturnZeroAndLeaveTheOutputs) {
  int result = -5;
  EXPECT_EQ(Measure(static_cast<VYRPrtGraphicPrimitiveElt*>(nullptr), &result), kUntouched);
  EXPECT_EQ(result, 0);
  EXPECT_EQ(Measure(static_cast<VYRPrtModel*>(nullptr), result), kUntouched);
  EXPECT_EQ(result, 0);
  VYRPrtModel neverFilled;  // no image list at all
  EXPECT_EQ(Measure(&neverFilled, result), kUntouched);
  EXPECT_EQ(result, 0);
}

TEST_F(BoundingBox, ModelWithoutImagesGivesTheEmptyBoxAndMinusOne) {
  VYRPrtModel model;
  VYRPrtImageElt image;
  model.AddImage(&image);
  model.RemoveImage(&image);
  int result = 0;
  EXPECT_EQ(Measure(&model, result), kEmptyBox);
  EXPECT_EQ(result, -1);

  VYRListPtrVYRPrtImageElt* pImages = nullptr;
  model.GetImages(pImages);
  pImages->Append(nullptr);  // a list of null entries only
  EXPECT_EQ(Measure(&model, result), kEmptyBox);
  EXPECT_EQ(result, -1);
}

TEST_F(BoundingBox, ModelMeasuresEveryImageAndSkipsNullEntries) {
  VYRPrtModel model;
  VYRPrtImageElt sized(VYRMathPoint2D(1, 2), 10, 20, VYRPrtImageUnitsDefault, VYRMath2x2Matrix());
  sized.SetTransformAttributes(ScaleX(3));  // a sized image is placed untransformed
  VYRPrtImageElt document;
  VYRPrtLineElt line(VYRMathPoint2D(-5, 0), VYRMathPoint2D(0, 40));
  document.AddChild(&line);
  model.AddImage(&sized);
  VYRListPtrVYRPrtImageElt* pImages = nullptr;
  model.GetImages(pImages);
  pImages->Append(nullptr);
  model.AddImage(&document);
  int result = 0;
  EXPECT_EQ(Measure(&model, result), (Box{-5, 11, 0, 40}));
  EXPECT_EQ(result, 1);
}

TEST_F(BoundingBox, ElementWithNothingMeasurableGivesTheEmptyBoxAndOne) {
  VYRPrtGroupElt group;
  int result = 0;
  EXPECT_EQ(Measure(&group, &result), kEmptyBox);
  EXPECT_EQ(result, 1);
}

TEST_F(BoundingBox, AComputerMeasuresTheSameSubtreeTwiceAlike) {
  VYRPrtGroupElt group;
  group.SetTransformAttributes(Translation(3, 4));
  VYRPrtLineElt line(VYRMathPoint2D(0, 0), VYRMathPoint2D(1, 1));
  line.SetTransformAttributes(ScaleX(2));
  group.AddChild(&line);
  VYRPrintModelBoundingBoxComputer computer;
  Box first = kUntouched, second = kUntouched;
  computer.Compute(&group, first.xmin, first.xmax, first.ymin, first.ymax);
  computer.Compute(&group, second.xmin, second.xmax, second.ymin, second.ymax);
  EXPECT_EQ(first, (Box{3, 5, 4, 5}));
  EXPECT_EQ(second, first);
}

// ---- Leaf shapes

TEST_F(BoundingBox, LineTransformedAndStroked) {
  VYRPrtLineElt line(VYRMathPoint2D(0, 0), VYRMathPoint2D(10, 5));
  EXPECT_EQ(Measure(&line), (Box{0, 10, 0, 5}));
  VYRPrtStrokeAttributes stroke;
  stroke.SetStrokeWidth(50);
  line.SetStrokeAttributes(stroke);
  EXPECT_EQ(Measure(&line), (Box{0, 10, 0, 5}));
  line.SetTransformAttributes(ScaleX(2));
  EXPECT_EQ(Measure(&line), (Box{0, 20, 0, 5}));
}

TEST_F(BoundingBox, UntransformedValuesKeepDoublePrecisionTransformedOnesGoThroughFloat) {
  VYRPrtLineElt line(VYRMathPoint2D(0.1, 0), VYRMathPoint2D(1, 0.3));
  EXPECT_EQ(Measure(&line), (Box{0.1, 1, 0, 0.3}));
  line.SetTransformAttributes(Translation(0, 0));
  EXPECT_EQ(Measure(&line), (Box{F(0.1), 1, 0, F(0.3)}));
}

TEST_F(BoundingBox, RectangleCornersAndRotatedOutline) {
  VYRPrtRectangleElt rectangle(VYRMathPoint2D(3, 4), VYRMathPoint2D(1, 2));
  EXPECT_EQ(Measure(&rectangle), (Box{1, 3, 2, 4}));

  // A quarter turn: every corner of the outline counts, not only the two given.
  VYRPrtTransformAttributes quarterTurn;
  quarterTurn.AddRotation(static_cast<float>(VYRMathPi / 2));
  rectangle.SetTransformAttributes(quarterTurn);
  Box box = Measure(&rectangle);
  EXPECT_NEAR(box.xmin, -4, 1e-6);
  EXPECT_NEAR(box.xmax, -2, 1e-6);
  EXPECT_NEAR(box.ymin, 1, 1e-6);
  EXPECT_NEAR(box.ymax, 3, 1e-6);

  // A skew moves the corners the two given points do not hold.
  VYRPrtTransformAttributes skew;
  skew.AddSkewX(static_cast<float>(VYRMathPi / 4));
  VYRPrtRectangleElt square(VYRMathPoint2D(0, 0), VYRMathPoint2D(1, 1));
  square.SetTransformAttributes(skew);
  box = Measure(&square);
  EXPECT_NEAR(box.xmax, 2, 1e-6);
  EXPECT_EQ(box.xmin, 0);
}

TEST_F(BoundingBox, PointBasedShapesCountEveryStoredPoint) {
  VYRPrtPolygonElt polygon;
  polygon.SetPoints(Points({{0, 0}, {4, -1}, {2, 6}}));
  EXPECT_EQ(Measure(&polygon), (Box{0, 4, -1, 6}));

  VYRPrtPolylineElt polyline;
  polyline.SetPoints(Points({{-3, 1}, {5, 2}}));
  polyline.SetTransformAttributes(Translation(1, 1));
  EXPECT_EQ(Measure(&polyline), (Box{-2, 6, 2, 3}));

  // Control points count even where the curve never reaches them.
  VYRPrtPolyCubicBezierElt cubic;
  cubic.SetPoints(Points({{0, 0}, {1, 10}, {2, -10}, {3, 0}}));
  EXPECT_EQ(Measure(&cubic), (Box{0, 3, -10, 10}));
  VYRPrtPolyQuadraticBezierElt quadratic;
  quadratic.SetPoints(Points({{0, 0}, {1, 8}, {2, 0}}));
  EXPECT_EQ(Measure(&quadratic), (Box{0, 2, 0, 8}));

  VYRPrtDisjointPolylineElt pieces;
  pieces.AddRun(Points({{0, 0}, {1, 1}}));
  pieces.AddRun(Points({{7, -2}}));
  EXPECT_EQ(Measure(&pieces), (Box{0, 7, -2, 1}));
  VYRPrtPolyPolygonElt rings;
  rings.AddRing(Points({{0, 0}, {10, 0}, {10, 10}}));
  rings.AddRing(Points({{-1, 2}, {3, 12}}));
  EXPECT_EQ(Measure(&rings), (Box{-1, 10, 0, 12}));

  VYRPrtNURBSElt spline;
  VYRSYPDynArray<double> knots, weights;
  spline.SetParameters(2, knots, weights, Points({{1, 1}, {5, -5}, {9, 1}}));
  EXPECT_EQ(Measure(&spline), (Box{1, 9, -5, 1}));

  VYRPrtPolygonElt empty;
  EXPECT_EQ(Measure(&empty), kEmptyBox);
}

TEST_F(BoundingBox, TextIsAVerticalSegmentAtItsFirstPosition) {
  VYRPrtTextElt text;
  text.SetText("a long line of text");
  text.AddPosition(VYRMathPoint2D(10, 20));
  text.AddPosition(VYRMathPoint2D(500, 500));
  VYRPrtTextAttributes attributes;
  attributes.SetHeight(12);
  text.SetTextAttributes(attributes);
  EXPECT_EQ(Measure(&text), (Box{10, 10, 20, 32}));

  // Only the position is transformed; the height is added after.
  VYRPrtTransformAttributes transform = Translation(5, 5);
  transform.AddScaleY(2);
  text.SetTransformAttributes(transform);
  EXPECT_EQ(Measure(&text), (Box{15, 15, 45, 57}));

  // A named family and another font version change nothing.
  attributes.SetFontFamily("serif");
  attributes.SetFontVersion(3);
  text.SetTextAttributes(attributes);
  EXPECT_EQ(Measure(&text), (Box{15, 15, 45, 57}));

  VYRPrtTextElt unplaced;
  EXPECT_EQ(Measure(&unplaced), kEmptyBox);
}

TEST_F(BoundingBox, MarkerIsItsSquareFromTheReferencePoint) {
  VYRPrtMarkerElt marker;
  marker.SetReferencePoint(VYRMathPoint2D(1, 2));
  marker.SetSize(3, 4);
  EXPECT_EQ(Measure(&marker), (Box{1, 4, 2, 6}));
  marker.SetTransformAttributes(ScaleX(2));
  EXPECT_EQ(Measure(&marker), (Box{2, 5, 2, 6}));
}

TEST_F(BoundingBox, BitmapImageRectangleTurnedByItsOrientation) {
  VYRPrtBitmapImageElt bitmap(VYRMathPoint2D(1, 2), 10, 5, 0, nullptr);
  EXPECT_EQ(Measure(&bitmap), (Box{1, 11, 2, 7}));
  bitmap.SetOrientation(90);
  Box box = Measure(&bitmap);
  EXPECT_NEAR(box.xmin, -4, 1e-9);
  EXPECT_NEAR(box.xmax, 1, 1e-9);
  EXPECT_NEAR(box.ymin, 2, 1e-9);
  EXPECT_NEAR(box.ymax, 12, 1e-9);
  bitmap.SetOrientation(0);
  bitmap.SetTransformAttributes(Translation(-1, -2));
  EXPECT_EQ(Measure(&bitmap), (Box{0, 10, 0, 5}));
}

// ---- Flattened outlines

// The circle's samples: N = ceil(2 pi / t) points with t = acos((r - 0.25) / r),
// the first and the last at angle 0, as floats.
Box ExpectedCircle(double i_cx, double i_cy, double i_r) {
  double step = std::acos((i_r - 0.25) / i_r);
  int count = static_cast<int>(std::ceil(2 * VYRMathPi / step));
  Box box = kEmptyBox;
  for (int k = 0; k < count; ++k) {
    double angle = (k == count - 1) ? 0.0 : k * step;
    double x = F(i_cx + i_r * std::cos(angle)), y = F(i_cy + i_r * std::sin(angle));
    box = Box{std::min(box.xmin, x), std::max(box.xmax, x), std::min(box.ymin, y), std::max(box.ymax, y)};
  }
  return box;
}

TEST_F(BoundingBox, CircleIsFlattenedByTheChordRule) {
  VYRPrtCircleElt circle(VYRMathPoint2D(100, 50), 10);
  Box box = Measure(&circle);
  EXPECT_EQ(box, ExpectedCircle(100, 50, 10));
  EXPECT_EQ(box.xmax, 110);
  EXPECT_GT(box.xmin, 90);  // 29 samples: none lands exactly on angle pi
  EXPECT_LT(box.xmin, 90.25);

  // A translation moves the samples without changing them.
  circle.SetCenter(VYRMathPoint2D(0, 0));
  circle.SetTransformAttributes(Translation(100, 50));
  EXPECT_EQ(Measure(&circle), ExpectedCircle(100, 50, 10));
}

TEST_F(BoundingBox, CircleUnderARotationStaysWithinTheTurnedOutline) {
  VYRPrtCircleElt circle(VYRMathPoint2D(20, 0), 10);
  VYRPrtTransformAttributes quarterTurn;
  quarterTurn.AddRotation(static_cast<float>(VYRMathPi / 2));
  circle.SetTransformAttributes(quarterTurn);
  Box box = Measure(&circle);
  // The centre lands on (0, 20); the sample at angle 0 turns to the top.
  EXPECT_NEAR(box.ymax, 30, 1e-5);
  EXPECT_GE(box.xmin, -10 - 1e-5);
  EXPECT_LE(box.xmax, 10 + 1e-5);
  EXPECT_LT(box.xmin, -9.75);
  EXPECT_GT(box.xmax, 9.75);
  EXPECT_GE(box.ymin, 10 - 1e-5);
  EXPECT_LT(box.ymin, 10.25);
}

TEST_F(BoundingBox, TinyCircleLacksItsLowestPoint) {
  VYRPrtCircleElt circle(VYRMathPoint2D(0, 0), 0.2);
  Box box = Measure(&circle);
  EXPECT_EQ(box.ymin, 0);
  EXPECT_EQ(box.ymax, F(0.2));
  EXPECT_EQ(box.xmin, F(-0.2));
  EXPECT_EQ(box.xmax, F(0.2));
}

TEST_F(BoundingBox, EllipseStaysWithinItsOutlineByTheChordTolerance) {
  VYRPrtEllipseElt ellipse(VYRMathPoint2D(0, 0), 10, 5, 0);
  Box box = Measure(&ellipse);
  EXPECT_EQ(box.xmax, 10);
  EXPECT_LE(box.xmin, -9.75);
  EXPECT_GE(box.xmin, -10);
  EXPECT_LE(box.ymax, 5);
  EXPECT_GE(box.ymax, 4.75);
  EXPECT_GE(box.ymin, -5);
  EXPECT_LE(box.ymin, -4.75);

  ellipse.SetSlope(90);  // the long axis upright
  box = Measure(&ellipse);
  EXPECT_NEAR(box.ymax, 10, 1e-9);
  EXPECT_GE(box.xmin, -5 - 1e-9);
  EXPECT_LE(box.xmax, 5 + 1e-9);
  EXPECT_GT(box.xmax, 4.75);
}

TEST_F(BoundingBox, ArcsCoverOnlyTheirSweep) {
  VYRPrtCircularArcElt quarter(VYRMathPoint2D(0, 0), 10, 0, 90);
  Box box = Measure(&quarter);
  EXPECT_EQ(box.xmax, 10);
  EXPECT_EQ(box.ymin, 0);
  EXPECT_NEAR(box.xmin, 0, 1e-9);
  EXPECT_NEAR(box.ymax, 10, 1e-9);

  VYRPrtCircularArcElt clockwise(VYRMathPoint2D(0, 0), 10, 0, -90);
  box = Measure(&clockwise);
  EXPECT_NEAR(box.ymin, -10, 1e-9);
  EXPECT_EQ(box.ymax, 0);

  VYRPrtEllipticalArcElt upperHalf(VYRMathPoint2D(0, 0), 10, 5, 0, 180, 0);
  box = Measure(&upperHalf);
  EXPECT_EQ(box.xmax, 10);
  EXPECT_NEAR(box.xmin, -10, 1e-9);
  EXPECT_NEAR(box.ymin, 0, 1e-9);
  EXPECT_LE(box.ymax, 5);
  EXPECT_GE(box.ymax, 4.75);

  VYRPrtEllipticalArcElt point(VYRMathPoint2D(1, 1), 10, 5, 0, 0, 0);  // no sweep: its start point
  EXPECT_EQ(Measure(&point), (Box{11, 11, 1, 1}));
}

TEST_F(BoundingBox, OutlandishSizesNeitherHangNorPoisonTheBox) {
  VYRPrtGroupElt group;
  VYRPrtCircleElt huge(VYRMathPoint2D(0, 0), 1e300);
  VYRPrtCircleElt notANumber(VYRMathPoint2D(0, 0), std::numeric_limits<double>::quiet_NaN());
  VYRPrtEllipseElt infinite(VYRMathPoint2D(0, 0), std::numeric_limits<double>::infinity(), 1, 0);
  VYRPrtEllipticalArcElt spinning(VYRMathPoint2D(0, 0), 1e12, 1e12, 0, 1e200, 0);
  VYRPrtLineElt line(VYRMathPoint2D(1, 2), VYRMathPoint2D(3, 4));
  for (VYRPrtGraphicPrimitiveElt* pElement :
       {static_cast<VYRPrtGraphicPrimitiveElt*>(&notANumber), static_cast<VYRPrtGraphicPrimitiveElt*>(&infinite),
        static_cast<VYRPrtGraphicPrimitiveElt*>(&line)})
    group.AddChild(pElement);
  EXPECT_EQ(Measure(&group), (Box{1, 3, 2, 4}));

  Box box = Measure(&huge);
  EXPECT_EQ(box.xmax, F(1e300));  // the float cannot hold it: infinity, not a hang
  box = Measure(&spinning);       // a sweep of many turns is one turn
  EXPECT_EQ(box.xmax, 1e12);
  EXPECT_LE(box.xmin, -1e12 + 1e12 * 1e-8);
}

// ---- Containers

TEST_F(BoundingBox, GroupsComposeTheirTransformsOutermostFirst) {
  VYRPrtGroupElt outer, inner;
  outer.SetTransformAttributes(ScaleX(2));
  inner.SetTransformAttributes(Translation(10, 0));
  VYRPrtLineElt line(VYRMathPoint2D(0, 0), VYRMathPoint2D(1, 1));
  inner.AddChild(&line);
  outer.AddChild(&inner);
  EXPECT_EQ(Measure(&outer), (Box{20, 22, 0, 1}));

  VYRPrtClosedFigureElt figure;
  figure.SetTransformAttributes(Translation(0, 5));
  figure.AddChild(&outer);
  EXPECT_EQ(Measure(&figure), (Box{20, 22, 5, 6}));
  VYRPrtClosedFigureRegionElt region;
  region.SetTransformAttributes(Translation(-20, 0));
  region.AddChild(&figure);
  EXPECT_EQ(Measure(&region), (Box{0, 2, 5, 6}));
}

TEST_F(BoundingBox, SwitchIgnoresItsOwnTransformWhereAGroupAppliesIt) {
  VYRPrtLineElt first(VYRMathPoint2D(0, 0), VYRMathPoint2D(1, 1));
  VYRPrtLineElt second(VYRMathPoint2D(5, 5), VYRMathPoint2D(6, 6));
  VYRPrtSwitchElt choice;
  VYRPrtGroupElt group;
  for (VYRPrtNodeTreeElt* pNode : {static_cast<VYRPrtNodeTreeElt*>(&choice), static_cast<VYRPrtNodeTreeElt*>(&group)}) {
    pNode->SetTransformAttributes(Translation(100, 0));
    pNode->AddChild(&first);
    pNode->AddChild(&second);
  }
  EXPECT_EQ(Measure(&choice), (Box{0, 6, 0, 6}));  // every alternative, untranslated
  EXPECT_EQ(Measure(&group), (Box{100, 106, 0, 6}));
}

TEST_F(BoundingBox, SiblingAfterATranslatedGroupIsMeasuredUntranslated) {
  VYRPrtGroupElt root, translated;
  translated.SetTransformAttributes(Translation(100, 0));
  VYRPrtLineElt inside(VYRMathPoint2D(0, 0), VYRMathPoint2D(1, 1));
  VYRPrtLineElt sibling(VYRMathPoint2D(-1, -1), VYRMathPoint2D(0, 0));
  translated.AddChild(&inside);
  root.AddChild(&translated);
  root.AddChild(&sibling);
  EXPECT_EQ(Measure(&root), (Box{-1, 101, -1, 1}));
}

TEST_F(BoundingBox, PatternAndSymbolMeasureChildrenOnlyWithoutASize) {
  VYRPrtLineElt line(VYRMathPoint2D(2, 3), VYRMathPoint2D(4, 9));
  VYRPrtPatternElt pattern;
  pattern.AddChild(&line);
  EXPECT_EQ(Measure(&pattern), (Box{2, 4, 3, 9}));

  // Sized: the tile alone, whatever the transforms around it or on it.
  pattern.SetRegion(VYRPrtRegionAttributes(1, 1, 5, 5));
  pattern.SetTransformAttributes(ScaleX(7));
  VYRPrtGroupElt group;
  group.SetTransformAttributes(Translation(50, 50));
  group.AddChild(&pattern);
  EXPECT_EQ(Measure(&group), (Box{1, 6, 1, 6}));

  VYRPrtSymbolElt symbol;
  symbol.AddChild(&line);
  EXPECT_EQ(Measure(&symbol), (Box{2, 4, 3, 9}));
  symbol.SetOrigin(VYRMathPoint2D(-1, 0));
  symbol.SetSize(0, 3);  // one positive side is enough to be sized
  EXPECT_EQ(Measure(&symbol), (Box{-1, -1, 0, 3}));
}

TEST_F(BoundingBox, SizelessImageDropsTheTransformForItsLaterSiblings) {
  VYRPrtGroupElt root, translated;
  translated.SetTransformAttributes(Translation(50, 0));
  VYRPrtImageElt image;
  image.SetTransformAttributes(Translation(1000, 0));  // not applied either
  VYRPrtLineElt insideImage(VYRMathPoint2D(0, 0), VYRMathPoint2D(1, 1));
  VYRPrtLineElt afterImage(VYRMathPoint2D(2, 0), VYRMathPoint2D(3, 1));
  VYRPrtLineElt afterGroup(VYRMathPoint2D(-4, 0), VYRMathPoint2D(-3, 1));
  image.AddChild(&insideImage);
  translated.AddChild(&image);
  translated.AddChild(&afterImage);
  root.AddChild(&translated);
  root.AddChild(&afterGroup);
  // Inside the image and after it: no translation; the group's exit restores the root's.
  EXPECT_EQ(Measure(&root), (Box{-4, 3, 0, 1}));

  // Without children the image changes nothing.
  VYRPrtImageElt emptyImage;
  VYRPrtGroupElt other;
  other.SetTransformAttributes(Translation(50, 0));
  VYRPrtLineElt line(VYRMathPoint2D(0, 0), VYRMathPoint2D(1, 1));
  other.AddChild(&emptyImage);
  other.AddChild(&line);
  EXPECT_EQ(Measure(&other), (Box{50, 51, 0, 1}));
}

TEST_F(BoundingBox, PathsReferencesAndEffectsAddNothing) {
  VYRPrtPathElt path;
  path.AddPathSegment(new VYRPrtPathSegMoveTo(MM2D::PathCoordAbsolute, VYRMathPoint2D(500, 500)));
  path.AddPathSegment(new VYRPrtPathSegLineTo(MM2D::PathCoordAbsolute, VYRMathPoint2D(600, 600)));
  VYRPrtDefsElt defs;
  VYRPrtRectangleElt farAway(VYRMathPoint2D(1000, 1000), VYRMathPoint2D(2000, 2000));
  defs.AddChild(&farAway);
  VYRPrtClipPathElt clip;
  clip.AddChild(&farAway);
  VYRPrtMaskElt mask;
  mask.AddChild(&farAway);
  VYRPrtLineElt line(VYRMathPoint2D(0, 0), VYRMathPoint2D(1, 1));
  line.SetClipPath(&clip);
  line.SetMask(&mask);
  VYRPrtGroupElt group;
  for (VYRPrtGraphicPrimitiveElt* pChild :
       {static_cast<VYRPrtGraphicPrimitiveElt*>(&path), static_cast<VYRPrtGraphicPrimitiveElt*>(&defs),
        static_cast<VYRPrtGraphicPrimitiveElt*>(&clip), static_cast<VYRPrtGraphicPrimitiveElt*>(&mask),
        static_cast<VYRPrtGraphicPrimitiveElt*>(&line)})
    group.AddChild(pChild);
  EXPECT_EQ(Measure(&group), (Box{0, 1, 0, 1}));
  EXPECT_EQ(Measure(&path), kEmptyBox);
}

}  // namespace

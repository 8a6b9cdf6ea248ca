#include <gtest/gtest.h>

#include "AssertionCapture.h"
#include "ElementRoundTrip.h"
#include "TestPrinters.h"
#include "VYRPrtCircleElt.h"
#include "VYRPrtCircularArcElt.h"
#include "VYRPrtEllipseElt.h"
#include "VYRPrtEllipticalArcElt.h"
#include "VYRPrtLineElt.h"
#include "VYRPrtRectangleElt.h"

namespace {

class ModelShapes : public ::testing::Test {
 protected:
  void TearDown() override { VYRPrtEltFactory::Get().Release(); }
  template <class K>
  K* Make() {
    return VYRPrtEltFactory::Get().CreateElement<K>();
  }
};

}  // namespace

TEST_F(ModelShapes, RecordsLayOutTheirFieldsBehindTheShapeBlock) {
  // A default circle: after stroke and fill, the draw style 8 and 24 zero bytes.
  VYRPrtCircleElt circle;
  std::vector<uint8_t> bytes = BytesOf(circle);
  ASSERT_GE(bytes.size(), 28u);
  std::vector<uint8_t> tail(bytes.end() - 28, bytes.end());
  EXPECT_EQ(tail, Hex("08 00 00 00  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00"));
  EXPECT_EQ(std::vector<uint8_t>(bytes.begin(), bytes.begin() + 4), Hex("13 00 00 00"));

  // The ellipse and the circular arc share one record shape: point, then three doubles.
  VYRPrtEllipseElt ellipse(VYRMathPoint2D(1, 2), 3, 4, 5);
  VYRPrtCircularArcElt arc(VYRMathPoint2D(1, 2), 3, 4, 5);
  std::vector<uint8_t> ellipseBytes = BytesOf(ellipse), arcBytes = BytesOf(arc);
  EXPECT_EQ(std::vector<uint8_t>(ellipseBytes.begin() + 4, ellipseBytes.end()),
            std::vector<uint8_t>(arcBytes.begin() + 4, arcBytes.end()));
  EXPECT_EQ(std::vector<uint8_t>(ellipseBytes.end() - 8, ellipseBytes.end()), Hex("00 00 00 00 00 00 14 40"));

  // A line writes no fill and no draw style: the stroke follows the two points.
  VYRPrtLineElt line(VYRMathPoint2D(1, 0), VYRMathPoint2D(0, 1));
  VYRPrtGraphicPrimitiveElt& asElement = line;
  VYR2DGStringStream commonOnly;
  asElement.VYRPrtGraphicPrimitiveElt::Stream(&commonOnly);
  VYRPrtStrokeAttributes stroke;
  std::vector<uint8_t> expected = StreamBytes(commonOnly);
  for (uint8_t b : Hex("00 00 00 00 00 00 F0 3F 00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00 00 00 00 00 00 00 F0 3F"))
    expected.push_back(b);
  for (uint8_t b : BytesOf(stroke)) expected.push_back(b);
  EXPECT_EQ(BytesOf(line), expected);
}

TEST_F(ModelShapes, NullStreamsChangeNothing) {
  VYRPrtCircleElt circle(VYRMathPoint2D(1, 1), 2);
  circle.Stream(nullptr);
  circle.Unstream(nullptr);
  EXPECT_EQ(circle.GetRadius(), 2);
}

TEST_F(ModelShapes, ResetReturnsShapesToDefaultsButTheEllipticalArcKeepsItsBase) {
  auto* circle = Make<VYRPrtCircleElt>();
  SetNonDefaultShapeAttributes(*circle);
  circle->SetParameters(VYRMathPoint2D(1, 1), 3);
  circle->SetDrawStyle(1);
  circle->Reset();
  ExpectDefaultShapeAttributes(*circle);
  EXPECT_EQ(circle->GetRadius(), 0);
  EXPECT_EQ(circle->GetStreamVersion(), 3);  // the version is left as it was

  VYRPrtRectangleElt rect(VYRMathPoint2D(1, 1), VYRMathPoint2D(2, 2));
  SetNonDefaultShapeAttributes(rect);
  rect.SetRadius(1, 1);
  rect.Reset();
  ExpectDefaultShapeAttributes(rect);
  double rx = 1, ry = 1;
  rect.GetRadius(rx, ry);
  EXPECT_EQ(rx + ry, 0);

  VYRPrtEllipseElt ellipse(VYRMathPoint2D(1, 1), 2, 3, 4);
  SetNonDefaultShapeAttributes(ellipse);
  ellipse.Reset();
  ExpectDefaultShapeAttributes(ellipse);
  EXPECT_EQ(ellipse.GetSlope(), 0);

  VYRPrtCircularArcElt arc(VYRMathPoint2D(1, 1), 2, 3, 4);
  SetNonDefaultShapeAttributes(arc);
  arc.Reset();
  ExpectDefaultShapeAttributes(arc);
  EXPECT_EQ(arc.GetEndAngle(), 0);

  VYRPrtEllipticalArcElt earc(VYRMathPoint2D(1, 1), 2, 3, 4, 5, 6);
  SetNonDefaultShapeAttributes(earc);
  earc.SetDrawStyle(1);
  earc.Reset();
  EXPECT_EQ(earc.GetDrawStyle(), 1);
  EXPECT_EQ(earc.GetID(), "element-id");
  EXPECT_NE(earc.GetFillAttributes().GetGradient(), nullptr);
  EXPECT_TRUE(earc.GetCenter() == VYRMathPoint2D());
  EXPECT_EQ(earc.GetHorzRadius() + earc.GetVertRadius() + earc.GetStartAngle() + earc.GetSweepAngle() +
                earc.GetSlope(),
            0);

  VYRPrtLineElt line(VYRMathPoint2D(1, 1), VYRMathPoint2D(2, 2));
  SetNonDefaultCommonAttributes(line);
  line.SetStrokeAttributes(NonDefaultStroke());
  line.Reset();
  EXPECT_EQ(line.GetID(), "");
  EXPECT_TRUE(line.GetEndPoint() == VYRMathPoint2D());
  EXPECT_EQ(line.GetStrokeAttributes().GetStrokeWidth(), 1.0);
}

TEST_F(ModelShapes, DuplicateCopiesEverythingAndSharesNoFillGradient) {
  auto* circle = Make<VYRPrtCircleElt>();
  SetNonDefaultShapeAttributes(*circle);
  circle->SetParameters(VYRMathPoint2D(4, 5), 6);
  VYRPrtGraphicPrimitiveElt* copy = nullptr;
  circle->Duplicate(copy);
  ASSERT_NE(copy, nullptr);
  ASSERT_EQ(copy->IsA(), VYRPrtCircleElt::ClassName());
  auto* circleCopy = static_cast<VYRPrtCircleElt*>(copy);
  EXPECT_NE(circleCopy, circle);
  ExpectSameShapeAttributes(*circle, *circleCopy);
  EXPECT_EQ(circleCopy->GetRadius(), 6);
  EXPECT_NE(circleCopy->GetFillAttributes().GetGradient(), circle->GetFillAttributes().GetGradient());

  for (VYRPrtGraphicPrimitiveElt* shape :
       std::vector<VYRPrtGraphicPrimitiveElt*>{Make<VYRPrtRectangleElt>(), Make<VYRPrtEllipseElt>(),
                                               Make<VYRPrtCircularArcElt>(), Make<VYRPrtEllipticalArcElt>(),
                                               Make<VYRPrtLineElt>()}) {
    shape->SetID("dup");
    VYRPrtGraphicPrimitiveElt* shapeCopy = nullptr;
    shape->Duplicate(shapeCopy);
    ASSERT_NE(shapeCopy, nullptr);
    EXPECT_EQ(shapeCopy->IsA(), shape->IsA());
    EXPECT_EQ(BytesOf(*shapeCopy), BytesOf(*shape));
  }

  auto* line = Make<VYRPrtLineElt>();
  line->SetPoints(VYRMathPoint2D(1, 2), VYRMathPoint2D(3, 4));
  line->SetStrokeAttributes(NonDefaultStroke());
  VYRPrtGraphicPrimitiveElt* lineCopy = nullptr;
  line->Duplicate(lineCopy);
  ASSERT_NE(lineCopy, nullptr);
  EXPECT_TRUE(static_cast<VYRPrtLineElt*>(lineCopy)->GetEndPoint() == VYRMathPoint2D(3, 4));
  EXPECT_EQ(static_cast<VYRPrtLineElt*>(lineCopy)->GetStrokeAttributes().GetStrokeWidth(), 2.5);
}

TEST_F(ModelShapes, SelfAssignmentIsReportedWithEachClassText) {
  AssertionCapture capture;
  VYRPrtRectangleElt rect;
  VYRPrtCircleElt circle;
  VYRPrtEllipseElt ellipse;
  VYRPrtCircularArcElt arc;
  VYRPrtEllipticalArcElt earc;
  VYRPrtLineElt line;
  auto& rectAlias = rect;
  auto& circleAlias = circle;
  auto& ellipseAlias = ellipse;
  auto& arcAlias = arc;
  auto& earcAlias = earc;
  auto& lineAlias = line;
  VYRPrtBaseShapeElt& shapeAlias = circle;
  rect = rectAlias;
  circle = circleAlias;
  ellipse = ellipseAlias;
  arc = arcAlias;
  earc = earcAlias;
  line = lineAlias;
  shapeAlias = static_cast<VYRPrtBaseShapeElt&>(circle);
  EXPECT_EQ(capture.FailedConditions(),
            (std::vector<std::string>{"this != &iRectElt", "this != &iCircleElt", "this != &iEllipseElt",
                                      "this != &iArcElt", "this != &iEllipticalArcElt", "this != &iLineElt",
                                      "this != &i_shapeElt"}));
}

TEST_F(ModelShapes, MarkerReferencesOnALineAreCopiedAndReset) {
  VYRPrtLineElt line;
  VYRPrtMarkerReferences markers;
  markers.SetMarkerID(VYRPrtMarkerReferences::End, "arrow");
  auto* fakeMarker = reinterpret_cast<VYRPrtMarkerElt*>(&line);
  markers.SetMarker(VYRPrtMarkerReferences::Start, fakeMarker);
  line.SetMarkerReferences(markers);
  VYRPrtLineElt copy;
  copy = line;
  EXPECT_EQ(copy.GetMarkerReferences().GetMarkerID(VYRPrtMarkerReferences::End), "arrow");
  EXPECT_EQ(copy.GetMarkerReferences().GetMarker(VYRPrtMarkerReferences::Start), fakeMarker);
  copy.Reset();
  EXPECT_EQ(copy.GetMarkerReferences().GetMarkerID(VYRPrtMarkerReferences::End), "");

  AssertionCapture capture;
  EXPECT_EQ(markers.GetMarkerID(static_cast<VYRPrtMarkerReferences::Position>(3)), "");
  EXPECT_EQ(markers.GetMarker(static_cast<VYRPrtMarkerReferences::Position>(-1)), nullptr);
  EXPECT_EQ(capture.FailedConditions().size(), 2u);
}

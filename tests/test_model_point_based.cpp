#include <gtest/gtest.h>

#include "AssertionCapture.h"
#include "ElementRoundTrip.h"
#include "TestPrinters.h"
#include "VYRPrtDisjointPolylineElt.h"
#include "VYRPrtNURBSElt.h"
#include "VYRPrtPolyCubicBezierElt.h"
#include "VYRPrtPolyPolygonElt.h"
#include "VYRPrtPolyQuadraticBezierElt.h"
#include "VYRPrtPolygonElt.h"
#include "VYRPrtPolylineElt.h"

namespace {

class ModelPointBased : public ::testing::Test {
 protected:
  void TearDown() override { VYRPrtEltFactory::Get().Release(); }
  template <class K>
  K* Make() {
    return VYRPrtEltFactory::Get().CreateElement<K>();
  }
};

VYRSYPDynArray<VYRMathPoint2D> Points(std::initializer_list<VYRMathPoint2D> i_points) {
  VYRSYPDynArray<VYRMathPoint2D> points;
  for (const VYRMathPoint2D& point : i_points) points.Append(point);
  return points;
}

VYRPrtMarkerReferences SomeMarkers() {
  VYRPrtMarkerReferences markers;
  markers.SetMarkerID(VYRPrtMarkerReferences::Start, "dot");
  markers.SetMarkerID(VYRPrtMarkerReferences::Mid, "tick");
  markers.SetMarkerID(VYRPrtMarkerReferences::End, "arrow");
  return markers;
}

void SetNonDefaultPointBased(VYRPrtPointBasedElt& io_elt) {
  SetNonDefaultShapeAttributes(io_elt);
  io_elt.SetMarkerReferences(SomeMarkers());
}

VYRPrtPointRuns TwoRuns() {
  VYRPrtPointRuns runs;
  runs.AddRun(Points({{0, 0}, {1, 0}, {1, 1}}));
  runs.AddRun(Points({}));
  runs.AddRun(Points({{5, 5}, {6, 6}}));
  return runs;
}

}  // namespace

TEST_F(ModelPointBased, RecordEndsWithMarkersThenThePointArray) {
  VYRPrtPolylineElt polyline;
  polyline.SetPoints(Points({{1, 0}}));
  std::vector<uint8_t> bytes = BytesOf(polyline);
  // Three empty marker identifiers, the count 1 and the point (1, 0).
  EXPECT_EQ(std::vector<uint8_t>(bytes.end() - 32, bytes.end()),
            Hex("00 00 00 00  00 00 00 00  00 00 00 00  01 00 00 00"
                "  00 00 00 00 00 00 F0 3F  00 00 00 00 00 00 00 00"));
  VYRPrtPolyPolygonElt rings;
  rings.SetRings(TwoRuns());
  bytes = BytesOf(rings);
  // Run lengths 3, 0, 2, then the count of the five points.
  std::vector<uint8_t> counts(bytes.end() - 5 * 16 - 20, bytes.end() - 5 * 16);
  EXPECT_EQ(counts, Hex("03 00 00 00  03 00 00 00  00 00 00 00  02 00 00 00  05 00 00 00"));
}

TEST_F(ModelPointBased, ResetClearsPointListsButKeepsRingsRunsAndSplines) {
  VYRPrtPolygonElt polygon;
  SetNonDefaultPointBased(polygon);
  polygon.SetPoints(Points({{1, 1}, {2, 2}}));
  polygon.Reset();
  ExpectDefaultShapeAttributes(polygon);
  EXPECT_EQ(polygon.GetPointCount(), 0);
  EXPECT_EQ(polygon.GetMarkerReferences().GetMarkerID(VYRPrtMarkerReferences::End), "");

  VYRPrtPolyPolygonElt polyPolygon;
  SetNonDefaultPointBased(polyPolygon);
  polyPolygon.SetRings(TwoRuns());
  polyPolygon.Reset();
  ExpectDefaultShapeAttributes(polyPolygon);
  EXPECT_TRUE(polyPolygon.GetRings() == TwoRuns());

  VYRPrtDisjointPolylineElt disjoint;
  disjoint.SetRuns(TwoRuns());
  disjoint.SetDrawStyle(2);
  disjoint.Reset();
  EXPECT_EQ(disjoint.GetDrawStyle(), 8);
  EXPECT_EQ(disjoint.GetRuns().GetRunCount(), 3);

  VYRPrtNURBSElt nurbs;
  nurbs.SetParameters(3, VYRSYPDynArray<double>(), VYRSYPDynArray<double>(), Points({{1, 1}}));
  nurbs.SetID("spline");
  nurbs.Reset();
  EXPECT_EQ(nurbs.GetID(), "");
  EXPECT_EQ(nurbs.GetDegree(), 3);
  EXPECT_EQ(nurbs.GetControlPoints().GetLength(), 1);
}

TEST_F(ModelPointBased, DuplicateMakesIndependentCopiesOfEveryConcreteKind) {
  std::vector<VYRPrtPointBasedElt*> shapes{Make<VYRPrtPolylineElt>(),        Make<VYRPrtPolygonElt>(),
                                           Make<VYRPrtPolyCubicBezierElt>(), Make<VYRPrtPolyQuadraticBezierElt>(),
                                           Make<VYRPrtPolyPolygonElt>(),     Make<VYRPrtDisjointPolylineElt>(),
                                           Make<VYRPrtNURBSElt>()};
  for (VYRPrtPointBasedElt* shape : shapes) {
    SetNonDefaultPointBased(*shape);
    if (auto* list = dynamic_cast<VYRPrtPointListElt*>(shape)) list->SetPoints(Points({{1, 2}}));
    if (auto* rings = dynamic_cast<VYRPrtPolyPolygonElt*>(shape)) rings->SetRings(TwoRuns());
    if (auto* runs = dynamic_cast<VYRPrtDisjointPolylineElt*>(shape)) runs->SetRuns(TwoRuns());
    if (auto* nurbs = dynamic_cast<VYRPrtNURBSElt*>(shape))
      nurbs->SetParameters(1, VYRSYPDynArray<double>(), VYRSYPDynArray<double>(), Points({{3, 3}}));
    VYRPrtGraphicPrimitiveElt* copy = nullptr;
    shape->Duplicate(copy);
    ASSERT_NE(copy, nullptr) << shape->IsA();
    EXPECT_EQ(copy->IsA(), shape->IsA());
    EXPECT_NE(static_cast<VYRPrtBaseShapeElt*>(copy)->GetFillAttributes().GetGradient(),
              shape->GetFillAttributes().GetGradient());
    EXPECT_EQ(BytesOf(*copy), BytesOf(*shape)) << shape->IsA();
  }
}

TEST_F(ModelPointBased, DamagedArraysAreRefusedWithAReport) {
  VYRPrtPointRuns runs = TwoRuns();
  {
    // Run lengths that do not add up to the points: refused, the runs held stay.
    VYR2DGStringStream writer;
    writer.Stream(1);
    writer.Stream(2);
    writer.Stream(1);
    writer.Stream(0.0);
    writer.Stream(0.0);
    VYR2DGStringStream reader = ReadingStream(StreamBytes(writer));
    AssertionCapture capture;
    runs.Unstream(&reader);
    EXPECT_TRUE(capture.Has("run lengths matching the points"));
    EXPECT_TRUE(runs == TwoRuns());
  }
  {
    VYR2DGStringStream writer;
    writer.Stream(1 << 30);
    VYR2DGStringStream reader = ReadingStream(StreamBytes(writer));
    AssertionCapture capture;
    runs.Unstream(&reader);
    EXPECT_TRUE(capture.Has("array count within the stream"));
    EXPECT_TRUE(runs == TwoRuns());
  }
  AssertionCapture capture;
  VYRSYPDynArray<VYRMathPoint2D> out;
  EXPECT_EQ(runs.GetRun(3, out), -1);
  EXPECT_EQ(runs.GetRunLength(-1), 0);
  EXPECT_EQ(capture.FailedConditions().size(), 2u);
}

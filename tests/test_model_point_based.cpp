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

bool SamePoints(const VYRSYPDynArray<VYRMathPoint2D>& i_a, const VYRSYPDynArray<VYRMathPoint2D>& i_b) {
  if (i_a.GetLength() != i_b.GetLength()) return false;
  for (int i = 0; i < i_a.GetLength(); ++i)
    if (i_a[i] != i_b[i]) return false;
  return true;
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

void ExpectSamePointBased(const VYRPrtPointBasedElt& i_a, const VYRPrtPointBasedElt& i_b) {
  ExpectSameShapeAttributes(i_a, i_b);
  EXPECT_TRUE(i_a.GetMarkerReferences() == i_b.GetMarkerReferences());
}

VYRPrtPointRuns TwoRuns() {
  VYRPrtPointRuns runs;
  runs.AddRun(Points({{0, 0}, {1, 0}, {1, 1}}));
  runs.AddRun(Points({}));
  runs.AddRun(Points({{5, 5}, {6, 6}}));
  return runs;
}

}  // namespace

TEST_F(ModelPointBased, PointListShapesRoundTripWithMarkersAndPoints) {
  std::vector<VYRPrtPointListElt*> shapes{Make<VYRPrtPolylineElt>(), Make<VYRPrtPolygonElt>(),
                                          Make<VYRPrtPolyCubicBezierElt>(), Make<VYRPrtPolyQuadraticBezierElt>()};
  std::vector<int> tags{39, 38, 37, 41};
  for (size_t i = 0; i < shapes.size(); ++i) {
    VYRPrtPointListElt* shape = shapes[i];
    SetNonDefaultPointBased(*shape);
    shape->SetPoints(Points({{1, 2}, {3, 4}, {5, 6}, {7.5, -8}}));
    EXPECT_EQ(shape->GetStreamType(), tags[i]);
    VYR2DGStringStream reader = ReadingStream(BytesOf(*shape));
    VYRPrtGraphicPrimitiveElt* back = VYRPrtStreamUnstreamHelper::CreateVYRPrtGraphicPrimitiveEltFromStream(&reader);
    ASSERT_NE(back, nullptr);
    ASSERT_EQ(back->IsA(), shape->IsA());
    EXPECT_EQ(reader.GetReadableBytesLeft(), 0);
    auto* backShape = static_cast<VYRPrtPointListElt*>(back);
    ExpectSamePointBased(*shape, *backShape);
    EXPECT_TRUE(SamePoints(backShape->GetPoints(), shape->GetPoints())) << shape->IsA();
    EXPECT_EQ(backShape->GetMarkerReferences().GetMarkerID(VYRPrtMarkerReferences::Mid), "tick");
  }
}

TEST_F(ModelPointBased, RunsAndNURBSRoundTrip) {
  auto* polyPolygon = Make<VYRPrtPolyPolygonElt>();
  SetNonDefaultPointBased(*polyPolygon);
  polyPolygon->SetRings(TwoRuns());
  auto* polyPolygonBack = RoundTrip<VYRPrtPolyPolygonElt>(*polyPolygon);
  ASSERT_NE(polyPolygonBack, nullptr);
  ExpectSamePointBased(*polyPolygon, *polyPolygonBack);
  EXPECT_TRUE(polyPolygonBack->GetRings() == TwoRuns());

  auto* disjoint = Make<VYRPrtDisjointPolylineElt>();
  SetNonDefaultPointBased(*disjoint);
  disjoint->AddRun(Points({{9, 9}, {8, 8}}));
  disjoint->AddRun(Points({{7, 7}}));
  auto* disjointBack = RoundTrip<VYRPrtDisjointPolylineElt>(*disjoint);
  ASSERT_NE(disjointBack, nullptr);
  ExpectSamePointBased(*disjoint, *disjointBack);
  ASSERT_EQ(disjointBack->GetRuns().GetRunCount(), 2);
  VYRSYPDynArray<VYRMathPoint2D> run;
  EXPECT_EQ(disjointBack->GetRuns().GetRun(1, run), 1);
  EXPECT_TRUE(SamePoints(run, Points({{7, 7}})));

  auto* nurbs = Make<VYRPrtNURBSElt>();
  SetNonDefaultPointBased(*nurbs);
  VYRSYPDynArray<double> knots, weights;
  for (double k : {0.0, 0.0, 0.0, 0.5, 1.0, 1.0, 1.0}) knots.Append(k);
  for (double w : {1.0, 0.5, 2.0, 1.0}) weights.Append(w);
  nurbs->SetParameters(2, knots, weights, Points({{0, 0}, {1, 2}, {3, 2}, {4, 0}}));
  auto* nurbsBack = RoundTrip<VYRPrtNURBSElt>(*nurbs);
  ASSERT_NE(nurbsBack, nullptr);
  ExpectSamePointBased(*nurbs, *nurbsBack);
  int degree = 0;
  VYRSYPDynArray<double> knotsBack, weightsBack;
  VYRSYPDynArray<VYRMathPoint2D> controlBack;
  nurbsBack->GetParameters(degree, knotsBack, weightsBack, controlBack);
  EXPECT_EQ(degree, 2);
  ASSERT_EQ(knotsBack.GetLength(), 7);
  EXPECT_EQ(knotsBack[3], 0.5);
  ASSERT_EQ(weightsBack.GetLength(), 4);
  EXPECT_EQ(weightsBack[2], 2.0);
  EXPECT_TRUE(SamePoints(controlBack, nurbs->GetControlPoints()));
}

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

// Every prefix of a stream holding one element of each shape, path, point-based
// and text kind must read without a crash or an out-of-bounds read (run this
// under the sanitizer build), and the whole stream must read back completely.
#include <gtest/gtest.h>

#include "AssertionCapture.h"
#include "ElementRoundTrip.h"
#include "VYRPrtCircleElt.h"
#include "VYRPrtCircularArcElt.h"
#include "VYRPrtDisjointPolylineElt.h"
#include "VYRPrtEllipseElt.h"
#include "VYRPrtEllipticalArcElt.h"
#include "VYRPrtLineElt.h"
#include "VYRPrtNURBSElt.h"
#include "VYRPrtPathElt.h"
#include "VYRPrtPathSegArcTo.h"
#include "VYRPrtPathSegClosePath.h"
#include "VYRPrtPathSegCurveToCubic.h"
#include "VYRPrtPathSegCurveToQuadratic.h"
#include "VYRPrtPathSegLineTo.h"
#include "VYRPrtPathSegMoveTo.h"
#include "VYRPrtPolyCubicBezierElt.h"
#include "VYRPrtPolyPolygonElt.h"
#include "VYRPrtPolyQuadraticBezierElt.h"
#include "VYRPrtPolygonElt.h"
#include "VYRPrtPolylineElt.h"
#include "VYRPrtRectangleElt.h"
#include "VYRPrtTextElt.h"

namespace {

void IgnoreReport(VYRAssertionKind, const char*, const char*, int) {}

template <class K>
K* Make() {
  K* elt = VYRPrtEltFactory::Get().CreateElement<K>();
  SetNonDefaultShapeAttributes(*elt);
  return elt;
}

std::vector<VYRPrtGraphicPrimitiveElt*> OneOfEachKind() {
  VYRSYPDynArray<VYRMathPoint2D> points;
  points.Append(VYRMathPoint2D(1, 2));
  points.Append(VYRMathPoint2D(3, 4));
  VYRSYPDynArray<double> values;
  values.Append(0.5);

  auto* line = VYRPrtEltFactory::Get().CreateElement<VYRPrtLineElt>();
  SetNonDefaultCommonAttributes(*line);
  line->SetStrokeAttributes(NonDefaultStroke());
  auto* rect = Make<VYRPrtRectangleElt>();
  rect->SetRadius(1, 2);
  auto* path = Make<VYRPrtPathElt>();
  path->AddPathSegment(new VYRPrtPathSegMoveTo(MM2D::PathCoordAbsolute, VYRMathPoint2D(1, 1)));
  path->AddPathSegment(new VYRPrtPathSegLineTo(MM2D::PathCoordRelative, VYRMathPoint2D(2, 2)));
  path->AddPathSegment(new VYRPrtPathSegCurveToCubic(MM2D::PathCoordRelative));
  path->AddPathSegment(new VYRPrtPathSegCurveToQuadratic());
  path->AddPathSegment(new VYRPrtPathSegArcTo());
  path->AddPathSegment(new VYRPrtPathSegClosePath());
  auto* polyline = Make<VYRPrtPolylineElt>();
  polyline->SetPoints(points);
  auto* polygon = Make<VYRPrtPolygonElt>();
  polygon->SetPoints(points);
  auto* cubic = Make<VYRPrtPolyCubicBezierElt>();
  cubic->SetPoints(points);
  auto* quadratic = Make<VYRPrtPolyQuadraticBezierElt>();
  quadratic->SetPoints(points);
  auto* rings = Make<VYRPrtPolyPolygonElt>();
  rings->AddRing(points);
  auto* runs = Make<VYRPrtDisjointPolylineElt>();
  runs->AddRun(points);
  auto* nurbs = Make<VYRPrtNURBSElt>();
  nurbs->SetParameters(2, values, values, points);
  auto* text = Make<VYRPrtTextElt>();
  text->SetText("text");
  text->SetPositions(points);
  return {line,    rect,  Make<VYRPrtCircleElt>(), Make<VYRPrtEllipseElt>(), Make<VYRPrtCircularArcElt>(),
          Make<VYRPrtEllipticalArcElt>(), path, polyline, polygon, cubic, quadratic, rings, runs, nurbs, text};
}

}  // namespace

TEST(ModelShapesTruncation, EveryPrefixReadsSafelyAndTheWholeReadsCompletely) {
  VYRPrtEltFactory::SetBlockSize(8);
  std::vector<VYRPrtGraphicPrimitiveElt*> elements = OneOfEachKind();
  VYR2DGStringStream writer;
  for (VYRPrtGraphicPrimitiveElt* elt : elements) VYRPrtStreamUnstreamHelper::SerializeVYRPrtGraphicPrimitiveElt(elt, &writer);
  std::vector<uint8_t> bytes = StreamBytes(writer);

  {
    AssertionCapture capture;
    VYR2DGStringStream reader = ReadingStream(bytes);
    for (VYRPrtGraphicPrimitiveElt* elt : elements) {
      VYRPrtGraphicPrimitiveElt* back = VYRPrtStreamUnstreamHelper::CreateVYRPrtGraphicPrimitiveEltFromStream(&reader);
      ASSERT_NE(back, nullptr);
      EXPECT_EQ(back->IsA(), elt->IsA());
      EXPECT_EQ(BytesOf(*back), BytesOf(*elt)) << elt->IsA();
    }
    EXPECT_EQ(reader.GetReadableBytesLeft(), 0);
    EXPECT_TRUE(capture.Reports().empty());
  }
  VYRPrtEltFactory::Get().Release();

  VYRAssertionHandler previous = VYRSetAssertionHandler(&IgnoreReport);
  for (size_t length = 0; length < bytes.size(); ++length) {
    VYR2DGStringStream reader(reinterpret_cast<const char*>(bytes.data()), static_cast<int>(length));
    for (size_t i = 0; i < elements.size() && !reader.HasFailed(); ++i) {
      VYRPrtStreamUnstreamHelper::CreateVYRPrtGraphicPrimitiveEltFromStream(&reader);
    }
    // A fresh factory every few prefixes keeps the pools small.
    if (length % 64 == 63) VYRPrtEltFactory::Get().Release();
  }
  VYRPrtEltFactory::Get().Release();
  VYRSetAssertionHandler(previous);
  VYRPrtEltFactory::SetBlockSize(500);
}

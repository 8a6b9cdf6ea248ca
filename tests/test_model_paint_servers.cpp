#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

#include "AssertionCapture.h"
#include "ElementChecks.h"
#include "StreamBytes.h"
#include "VYRPrintGradientLinear.h"
#include "VYRPrintGradientRadial.h"
#include "VYRPrintGradientStop.h"
#include "VYRPrtClipPathElt.h"
#include "VYRPrtEltFactory.h"
#include "VYRPrtGroupElt.h"
#include "VYRPrtLinearGradientElt.h"
#include "VYRPrtMarkerElt.h"
#include "VYRPrtMaskElt.h"
#include "VYRPrtPatternElt.h"
#include "VYRPrtRadialGradientElt.h"

namespace {

class PaintServers : public ::testing::Test {
 protected:
  void TearDown() override { VYRPrtEltFactory::Get().Release(); }
  template <class K>
  K* Make(const char* i_id = "") {
    K* pElt = VYRPrtEltFactory::Get().CreateElement<K>();
    pElt->SetID(i_id);
    return pElt;
  }

  VYRPrtGradientStopElt* MakeStop(const char* i_id, double i_offset, unsigned char i_red, double i_opacity) {
    auto* pStop = Make<VYRPrtGradientStopElt>(i_id);
    pStop->SetOffset(i_offset);
    pStop->SetColor(i_red, 20, 30);
    pStop->SetStopOpacity(i_opacity);
    return pStop;
  }

  // Every base gradient field other than its default, and two stops.
  void FillGradient(VYRPrtBaseGradientElt& io_gradient) {
    SetNonDefaultCommonAttributes(io_gradient, "gradient");
    io_gradient.SetUnits(MM2D::UnitUserSpaceOnUse);
    io_gradient.SetSpreadMethod(VYRPrintGradientSpreadReflect);
    VYRPrtTransformAttributes transform;
    transform.AddTranslation(VYRMathVector2D(2.0, 1.0));
    transform.AddSkewY(0.25f);
    io_gradient.SetGradientTransform(transform);
    io_gradient.SetHrefID("template");
    io_gradient.AddStop(MakeStop("s1", 0.25, 200, 0.5));
    io_gradient.AddStop(MakeStop("s2", 0.75, 10, 0.125));
  }
};

void ExpectEqualStops(const VYRPrtGradientStopElt& i_a, const VYRPrtGradientStopElt& i_b) {
  ExpectSameCommonAttributes(i_a, i_b);
  EXPECT_EQ(i_a.GetOffset(), i_b.GetOffset());
  EXPECT_EQ(i_a.GetStopOpacity(), i_b.GetStopOpacity());
  unsigned char a[3], b[3];
  i_a.GetColor(a[0], a[1], a[2]);
  i_b.GetColor(b[0], b[1], b[2]);
  EXPECT_TRUE(std::equal(a, a + 3, b));
}

void ExpectEqualGradients(const VYRPrtBaseGradientElt& i_a, const VYRPrtBaseGradientElt& i_b) {
  ExpectSameCommonAttributes(i_a, i_b);
  EXPECT_EQ(i_a.GetUnits(), i_b.GetUnits());
  EXPECT_EQ(i_a.GetSpreadMethod(), i_b.GetSpreadMethod());
  EXPECT_TRUE(i_a.GetGradientTransform() == i_b.GetGradientTransform());
  EXPECT_EQ(i_a.GetHrefID(), i_b.GetHrefID());
  ASSERT_EQ(i_a.GetStopCount(), i_b.GetStopCount());
  for (int i = 0; i < i_a.GetStopCount(); ++i) {
    ExpectEqualStops(*i_a.GetStop(i), *i_b.GetStop(i));
    EXPECT_EQ(i_b.GetStop(i)->GetFather(), &i_b);
  }
}

void ExpectEqualPoints(const VYRMathPoint2D& i_a, const VYRMathPoint2D& i_b) {
  EXPECT_EQ(i_a.x, i_b.x);
  EXPECT_EQ(i_a.y, i_b.y);
}

VYRPrtViewBoxAttributes SomeViewBox() {
  VYRPrtViewBoxAttributes viewBox;
  viewBox.SetViewBox(-1.0, 2.0, 30.0, 15.0);
  viewBox.SetAspectAlign(MM2D::AspectAlignXMinYMax);
  viewBox.SetMeetOrSlice(MM2D::MeetOrSliceSlice);
  return viewBox;
}

VYRPrtRegionAttributes SomeRegion() {
  VYRPrtRegionAttributes region;
  region.SetRegion(1.0, 2.0, 5.0, 7.0);
  return region;
}

}  // namespace

TEST_F(PaintServers, DefaultStopTailAndFocusFollowingTheCentre) {
  VYR2DGStringStream stream;
  auto* stop = Make<VYRPrtGradientStopElt>();
  stop->Stream(&stream);
  std::vector<uint8_t> bytes = StreamBytes(stream);
  ASSERT_GT(bytes.size(), 19u);
  EXPECT_EQ(std::vector<uint8_t>(bytes.end() - 19, bytes.end()),
            Hex("00 00 00 00 00 00 00 00  00 00 00  00 00 00 00 00 00 F0 3F"));
  EXPECT_EQ(bytes[0], 27);

  auto* radial = Make<VYRPrtRadialGradientElt>();
  EXPECT_FALSE(radial->HasFocus());
  radial->SetCentre(VYRMathPoint2D(8.0, 9.0));
  ExpectEqualPoints(radial->GetFocus(), VYRMathPoint2D(8.0, 9.0));
  radial->SetFocus(VYRMathPoint2D(1.0, 1.0));
  radial->ClearFocus();
  ExpectEqualPoints(radial->GetFocus(), VYRMathPoint2D(8.0, 9.0));
  auto* back = RoundTrip<VYRPrtRadialGradientElt>(*radial);
  ASSERT_NE(back, nullptr);
  EXPECT_FALSE(back->HasFocus());
  ExpectEqualPoints(back->GetFocus(), VYRMathPoint2D(8.0, 9.0));
}

TEST_F(PaintServers, GradientDuplicatesOwnDistinctStopsAndResetKeepsTheVersion) {
  auto* linear = Make<VYRPrtLinearGradientElt>();
  FillGradient(*linear);
  linear->SetEndPoint(VYRMathPoint2D(0.0, 1.0));
  VYRPrtGraphicPrimitiveElt* copy = nullptr;
  linear->Duplicate(copy);
  ASSERT_NE(copy, nullptr);
  ASSERT_STREQ(copy->IsA(), VYRPrtLinearGradientElt::ClassName());
  auto* linearCopy = static_cast<VYRPrtLinearGradientElt*>(copy);
  ExpectEqualGradients(*linear, *linearCopy);
  EXPECT_NE(linearCopy->GetStop(0), linear->GetStop(0));
  EXPECT_EQ(linear->GetStop(0)->GetFather(), linear);
  ExpectEqualPoints(linearCopy->GetEndPoint(), VYRMathPoint2D(0.0, 1.0));

  auto* radial = Make<VYRPrtRadialGradientElt>();
  FillGradient(*radial);
  radial->SetFocus(VYRMathPoint2D(0.2, 0.3));
  radial->Duplicate(copy);
  ASSERT_NE(copy, nullptr);
  auto* radialCopy = static_cast<VYRPrtRadialGradientElt*>(copy);
  ExpectEqualGradients(*radial, *radialCopy);
  EXPECT_TRUE(radialCopy->HasFocus());

  VYRPrtGradientStopElt* stop = linear->GetStop(1);
  stop->Duplicate(copy);
  ASSERT_NE(copy, nullptr);
  ExpectEqualStops(*stop, *static_cast<VYRPrtGradientStopElt*>(copy));

  radial->Reset();
  ExpectDefaultCommonAttributes(*radial);
  EXPECT_EQ(radial->GetStreamVersion(), 3);
  EXPECT_EQ(radial->GetUnits(), MM2D::UnitObjectBoundingBox);
  EXPECT_EQ(radial->GetSpreadMethod(), VYRPrintGradientSpreadPad);
  EXPECT_TRUE(radial->GetGradientTransform() == VYRPrtTransformAttributes());
  EXPECT_TRUE(radial->GetHrefID().IsEmpty());
  EXPECT_EQ(radial->GetStopCount(), 0);
  EXPECT_FALSE(radial->HasFocus());
  EXPECT_EQ(radial->GetRadius(), 0.5);
  ExpectEqualPoints(radial->GetCentre(), VYRMathPoint2D(0.5, 0.5));

  linear->Reset();
  ExpectEqualPoints(linear->GetStartPoint(), VYRMathPoint2D(0.0, 0.0));
  ExpectEqualPoints(linear->GetEndPoint(), VYRMathPoint2D(1.0, 0.0));
  stop->Reset();
  EXPECT_EQ(stop->GetOffset(), 0.0);
  EXPECT_EQ(stop->GetStopOpacity(), 1.0);

  AssertionCapture capture;
  VYRPrtLinearGradientElt& self = *linearCopy;
  *linearCopy = self;
  EXPECT_TRUE(capture.Has("this != &iGPElt"));
  EXPECT_EQ(linearCopy->GetStopCount(), 2);
}

TEST_F(PaintServers, PrintGradientMapsTheBoundingBoxAndOrdersStops) {
  auto* linear = Make<VYRPrtLinearGradientElt>();
  linear->SetStartPoint(VYRMathPoint2D(0.0, 0.5));
  linear->SetEndPoint(VYRMathPoint2D(1.0, 0.5));
  linear->SetSpreadMethod(VYRPrintGradientSpreadRepeat);
  linear->AddStop(MakeStop("a", 0.5, 255, 0.5));
  linear->AddStop(MakeStop("b", 0.2, 0, 2.0));   // before the previous: moved up to 0.5
  linear->AddStop(MakeStop("c", 1.5, 51, -1.0));  // beyond the end: 1

  VYRPrintGradient* record = linear->CreatePrintGradient(10.0, 30.0, 20.0, 60.0);
  ASSERT_NE(record, nullptr);
  ASSERT_STREQ(record->IsA(), VYRPrintGradientLinear::ClassName());
  EXPECT_EQ(record->GetSpread(), VYRPrintGradientSpreadRepeat);
  ASSERT_EQ(record->GetStopCount(), 3);
  EXPECT_EQ(*record->GetStop(0), VYRPrintGradientStop(0.5f, 1.0f, 20 / 255.0f, 30 / 255.0f, 0.5f));
  EXPECT_EQ(*record->GetStop(1), VYRPrintGradientStop(0.5f, 0.0f, 20 / 255.0f, 30 / 255.0f, 1.0f));
  EXPECT_EQ(*record->GetStop(2), VYRPrintGradientStop(1.0f, 0.2f, 20 / 255.0f, 30 / 255.0f, 0.0f));
  double m[9];
  record->GetTransform().GetCoef(m[0], m[1], m[2], m[3], m[4], m[5], m[6], m[7], m[8]);
  EXPECT_EQ(std::vector<double>(m, m + 9), std::vector<double>({20, 0, 10, 0, 40, 20, 0, 0, 1}));
  float x1 = 0, y1 = 0, x2 = 0, y2 = 0;
  static_cast<VYRPrintGradientLinear*>(record)->GetStartPoint(x1, y1);
  static_cast<VYRPrintGradientLinear*>(record)->GetEndPoint(x2, y2);
  EXPECT_EQ(std::vector<float>({x1, y1, x2, y2}), std::vector<float>({0.0f, 0.5f, 1.0f, 0.5f}));
  record->Release();

  // In user space the box is not applied; the gradient transform always is.
  auto* radial = Make<VYRPrtRadialGradientElt>();
  radial->SetUnits(MM2D::UnitUserSpaceOnUse);
  radial->SetCentre(VYRMathPoint2D(5.0, 6.0));
  radial->SetRadius(4.0);
  VYRPrtTransformAttributes transform;
  transform.AddTranslation(VYRMathVector2D(7.0, -3.0));
  radial->SetGradientTransform(transform);
  record = radial->CreatePrintGradient(10.0, 30.0, 20.0, 60.0);
  ASSERT_NE(record, nullptr);
  ASSERT_STREQ(record->IsA(), VYRPrintGradientRadial::ClassName());
  EXPECT_EQ(record->GetStopCount(), 0);
  record->GetTransform().GetCoef(m[0], m[1], m[2], m[3], m[4], m[5], m[6], m[7], m[8]);
  EXPECT_EQ(std::vector<double>(m, m + 9), std::vector<double>({1, 0, 7, 0, 1, -3, 0, 0, 1}));
  auto* radialRecord = static_cast<VYRPrintGradientRadial*>(record);
  float cx = 0, cy = 0, fx = 0, fy = 0;
  radialRecord->GetCentre(cx, cy);
  radialRecord->GetFocus(fx, fy);
  EXPECT_EQ(std::vector<float>({cx, cy, fx, fy, radialRecord->GetRadius()}),
            std::vector<float>({5.0f, 6.0f, 5.0f, 6.0f, 4.0f}));
  record->Release();
}

TEST_F(PaintServers, RecordsThatAreNotStopsAreDroppedFromAGradient) {
  auto* linear = Make<VYRPrtLinearGradientElt>();
  auto* stop = MakeStop("s", 0.5, 1, 1.0);
  linear->AddStop(stop);
  VYR2DGStringStream writer;
  linear->Stream(&writer);
  std::vector<uint8_t> bytes = StreamBytes(writer);
  VYR2DGStringStream stopWriter;
  stop->Stream(&stopWriter);
  std::vector<uint8_t> stopBytes = StreamBytes(stopWriter);
  VYR2DGStringStream maskWriter;
  Make<VYRPrtMaskElt>("intruder")->Stream(&maskWriter);
  std::vector<uint8_t> maskBytes = StreamBytes(maskWriter);
  auto at = std::search(bytes.begin(), bytes.end(), stopBytes.begin(), stopBytes.end());
  ASSERT_NE(at, bytes.end());
  at = bytes.erase(at, at + stopBytes.size());
  bytes.insert(at, maskBytes.begin(), maskBytes.end());

  AssertionCapture capture;
  VYR2DGStringStream reader = ReadingStream(bytes);
  auto* back = static_cast<VYRPrtLinearGradientElt*>(
      VYRPrtStreamUnstreamHelper::CreateVYRPrtGraphicPrimitiveEltFromStream(&reader));
  ASSERT_NE(back, nullptr);
  EXPECT_EQ(back->GetStopCount(), 0);
  EXPECT_TRUE(capture.Has("gradient stop element"));
  EXPECT_EQ(reader.GetReadableBytesLeft(), 0);
  ExpectEqualPoints(back->GetEndPoint(), VYRMathPoint2D(1.0, 0.0));
}

TEST_F(PaintServers, PatternRoundTripsAndDuplicatesItsChildren) {
  auto* pattern = Make<VYRPrtPatternElt>();
  SetNonDefaultCommonAttributes(*pattern, "pattern");
  pattern->SetRegion(SomeRegion());
  pattern->SetUnits(MM2D::UnitUserSpaceOnUse);
  pattern->SetContentUnits(MM2D::UnitObjectBoundingBox);
  pattern->SetViewBoxAttributes(SomeViewBox());
  VYRPrtTransformAttributes transform;
  transform.AddRotation(0.5f);
  pattern->SetPatternTransform(transform);
  pattern->SetHrefID("base");
  pattern->AddChild(Make<VYRPrtGroupElt>("tile"));

  auto* back = RoundTrip<VYRPrtPatternElt>(*pattern);
  ASSERT_NE(back, nullptr);
  EXPECT_TRUE(back->GetRegion() == SomeRegion());
  EXPECT_EQ(back->GetUnits(), MM2D::UnitUserSpaceOnUse);
  EXPECT_EQ(back->GetContentUnits(), MM2D::UnitObjectBoundingBox);
  EXPECT_TRUE(back->GetViewBoxAttributes() == SomeViewBox());
  EXPECT_TRUE(back->GetPatternTransform() == transform);
  EXPECT_EQ(back->GetHrefID(), "base");
  ASSERT_EQ(back->GetChildArray().GetLength(), 1);
  EXPECT_EQ(back->GetChild(0)->GetID(), "tile");
  ExpectEqualPoints(back->GetOrigin(), VYRMathPoint2D(1.0, 2.0));
  double width = 0, height = 0;
  back->GetSize(width, height);
  EXPECT_EQ(width, 5.0);
  EXPECT_EQ(height, 7.0);

  VYRPrtGraphicPrimitiveElt* copy = nullptr;
  pattern->Duplicate(copy);
  ASSERT_NE(copy, nullptr);
  auto* patternCopy = static_cast<VYRPrtPatternElt*>(copy);
  EXPECT_TRUE(patternCopy->GetRegion() == SomeRegion());
  EXPECT_EQ(patternCopy->GetHrefID(), "base");
  ASSERT_EQ(patternCopy->GetChildArray().GetLength(), 1);
  EXPECT_NE(patternCopy->GetChild(0), pattern->GetChild(0));
  EXPECT_EQ(patternCopy->GetChild(0)->GetFather(), patternCopy);

  pattern->Reset();
  ExpectDefaultCommonAttributes(*pattern);
  EXPECT_TRUE(pattern->GetRegion() == VYRPrtRegionAttributes());
  EXPECT_EQ(pattern->GetUnits(), MM2D::UnitObjectBoundingBox);
  EXPECT_EQ(pattern->GetContentUnits(), MM2D::UnitUserSpaceOnUse);
  EXPECT_TRUE(pattern->GetViewBoxAttributes() == VYRPrtViewBoxAttributes());
  EXPECT_TRUE(pattern->GetPatternTransform() == VYRPrtTransformAttributes());
  EXPECT_TRUE(pattern->GetHrefID().IsEmpty());
  EXPECT_EQ(pattern->GetChildArray().GetLength(), 1);  // children stay
}

TEST_F(PaintServers, MarkerRoundTripsWithEitherOrientation) {
  auto* marker = Make<VYRPrtMarkerElt>();
  SetNonDefaultCommonAttributes(*marker, "arrow");
  marker->SetReferencePoint(VYRMathPoint2D(1.5, -2.5));
  marker->SetSize(8.0, 6.0);
  marker->SetUnits(MM2D::MarkerUnitUserSpaceOnUse);
  marker->SetOrientationAngle(45.0);
  marker->SetViewBoxAttributes(SomeViewBox());
  marker->AddChild(Make<VYRPrtGroupElt>("head"));

  auto* back = RoundTrip<VYRPrtMarkerElt>(*marker);
  ASSERT_NE(back, nullptr);
  ExpectEqualPoints(back->GetReferencePoint(), VYRMathPoint2D(1.5, -2.5));
  double width = 0, height = 0;
  back->GetSize(width, height);
  EXPECT_EQ(width, 8.0);
  EXPECT_EQ(height, 6.0);
  EXPECT_EQ(back->GetUnits(), MM2D::MarkerUnitUserSpaceOnUse);
  EXPECT_EQ(back->GetOrientation(), MM2D::MarkerOrientAngle);
  EXPECT_EQ(back->GetOrientationAngle(), 45.0);
  EXPECT_TRUE(back->GetViewBoxAttributes() == SomeViewBox());
  ASSERT_EQ(back->GetChildArray().GetLength(), 1);
  EXPECT_EQ(back->GetChild(0)->GetID(), "head");

  marker->SetOrientationAuto();
  back = RoundTrip<VYRPrtMarkerElt>(*marker);
  ASSERT_NE(back, nullptr);
  EXPECT_EQ(back->GetOrientation(), MM2D::MarkerOrientAuto);

  VYRPrtGraphicPrimitiveElt* copy = nullptr;
  marker->Duplicate(copy);
  ASSERT_NE(copy, nullptr);
  auto* markerCopy = static_cast<VYRPrtMarkerElt*>(copy);
  EXPECT_EQ(markerCopy->GetOrientation(), MM2D::MarkerOrientAuto);
  EXPECT_EQ(markerCopy->GetUnits(), MM2D::MarkerUnitUserSpaceOnUse);
  ASSERT_EQ(markerCopy->GetChildArray().GetLength(), 1);
  EXPECT_NE(markerCopy->GetChild(0), marker->GetChild(0));

  marker->Reset();
  ExpectDefaultCommonAttributes(*marker);
  marker->GetSize(width, height);
  EXPECT_EQ(width, 3.0);
  EXPECT_EQ(height, 3.0);
  EXPECT_EQ(marker->GetUnits(), MM2D::MarkerUnitStrokeWidth);
  EXPECT_EQ(marker->GetOrientation(), MM2D::MarkerOrientAngle);
  EXPECT_EQ(marker->GetOrientationAngle(), 0.0);
  ExpectEqualPoints(marker->GetReferencePoint(), VYRMathPoint2D(0.0, 0.0));
}

TEST_F(PaintServers, ClipPathAndMaskRoundTripButDoNotDuplicate) {
  auto* clip = Make<VYRPrtClipPathElt>();
  SetNonDefaultCommonAttributes(*clip, "clip");
  clip->SetUnits(MM2D::UnitObjectBoundingBox);
  clip->SetClipRule(VYRPrtFillRuleEvenOdd);
  clip->AddChild(Make<VYRPrtGroupElt>("outline"));
  auto* clipBack = RoundTrip<VYRPrtClipPathElt>(*clip);
  ASSERT_NE(clipBack, nullptr);
  EXPECT_EQ(clipBack->GetUnits(), MM2D::UnitObjectBoundingBox);
  EXPECT_EQ(clipBack->GetClipRule(), VYRPrtFillRuleEvenOdd);
  ASSERT_EQ(clipBack->GetChildArray().GetLength(), 1);

  auto* mask = Make<VYRPrtMaskElt>();
  SetNonDefaultCommonAttributes(*mask, "mask");
  mask->SetRegion(SomeRegion());
  mask->SetUnits(MM2D::UnitUserSpaceOnUse);
  mask->SetContentUnits(MM2D::UnitObjectBoundingBox);
  mask->AddChild(Make<VYRPrtGroupElt>("content"));
  auto* maskBack = RoundTrip<VYRPrtMaskElt>(*mask);
  ASSERT_NE(maskBack, nullptr);
  EXPECT_TRUE(maskBack->GetRegion() == SomeRegion());
  EXPECT_EQ(maskBack->GetUnits(), MM2D::UnitUserSpaceOnUse);
  EXPECT_EQ(maskBack->GetContentUnits(), MM2D::UnitObjectBoundingBox);
  ASSERT_EQ(maskBack->GetChildArray().GetLength(), 1);

  VYRPrtGraphicPrimitiveElt* copy = clip;
  clip->Duplicate(copy);
  EXPECT_EQ(copy, nullptr);
  copy = mask;
  mask->Duplicate(copy);
  EXPECT_EQ(copy, nullptr);

  clip->Reset();
  ExpectDefaultCommonAttributes(*clip);
  EXPECT_EQ(clip->GetUnits(), MM2D::UnitUserSpaceOnUse);
  EXPECT_EQ(clip->GetClipRule(), VYRPrtFillRuleNonZero);
  mask->Reset();
  ExpectDefaultCommonAttributes(*mask);
  EXPECT_EQ(mask->GetStreamVersion(), 3);
  EXPECT_TRUE(mask->GetRegion() == VYRPrtRegionAttributes::DefaultEffectRegion());
  EXPECT_EQ(mask->GetUnits(), MM2D::UnitObjectBoundingBox);
  EXPECT_EQ(mask->GetContentUnits(), MM2D::UnitUserSpaceOnUse);
}

TEST_F(PaintServers, DefaultMaskTailAndRegionGivenFlags) {
  VYR2DGStringStream stream;
  Make<VYRPrtMaskElt>()->Stream(&stream);
  std::vector<uint8_t> bytes = StreamBytes(stream);
  // No child, nothing given, -0.1 -0.1 1.2 1.2, bounding-box units, user-space content.
  std::vector<uint8_t> tail =
      Hex("00 00 00 00  00 00 00 00  9A 99 99 99 99 99 B9 BF  9A 99 99 99 99 99 B9 BF"
          "  33 33 33 33 33 33 F3 3F  33 33 33 33 33 33 F3 3F  02 00 00 00  01 00 00 00");
  ASSERT_GT(bytes.size(), tail.size());
  EXPECT_EQ(std::vector<uint8_t>(bytes.end() - tail.size(), bytes.end()), tail);

  VYRPrtRegionAttributes region;
  region.SetY(4.0);
  region.SetHeight(2.0);
  EXPECT_FALSE(region.IsGiven(VYRPrtRegionAttributes::X));
  EXPECT_TRUE(region.IsGiven(VYRPrtRegionAttributes::Y));
  EXPECT_FALSE(region.IsGiven(VYRPrtRegionAttributes::Width));
  EXPECT_TRUE(region.IsGiven(VYRPrtRegionAttributes::Height));
  VYR2DGStringStream regionStream;
  region.Stream(&regionStream);
  EXPECT_EQ(StreamBytes(regionStream), Hex("0A 00 00 00  00 00 00 00 00 00 00 00  00 00 00 00 00 00 10 40"
                                           "  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 40"));
}

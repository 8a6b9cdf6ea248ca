#include <gtest/gtest.h>

#include <vector>

#include "AssertionCapture.h"
#include "ElementChecks.h"
#include "StreamBytes.h"
#include "VYRPrtEltFactory.h"
#include "VYRPrtFilterBlendElt.h"
#include "VYRPrtFilterColorMatrixElt.h"
#include "VYRPrtFilterContainerElt.h"
#include "VYRPrtFilterGaussianBlurElt.h"
#include "VYRPrtFilterMergeElt.h"
#include "VYRPrtFilterMergeNodeElt.h"
#include "VYRPrtFilterOffsetElt.h"
#include "VYRRawColldouble.h"

namespace {

class Filters : public ::testing::Test {
 protected:
  void TearDown() override { VYRPrtEltFactory::Get().Release(); }
  template <class K>
  K* Make(const char* i_id = "") {
    K* pElt = VYRPrtEltFactory::Get().CreateElement<K>();
    pElt->SetID(i_id);
    return pElt;
  }
};

VYRPrtFilterColorAttribute SomeColours() {
  VYRPrtFilterColorAttribute colours;
  colours.SetFloodColor(10, 20, 30);
  colours.SetFloodOpacity(0.25);
  colours.SetLightingColor(40, 50, 60);
  colours.SetColorInterpolation(MM2D::ColorInterpolationSRGB);
  return colours;
}

VYRPrtRegionAttributes SomeSubregion() {
  VYRPrtRegionAttributes region;
  region.SetX(3.0);
  region.SetWidth(9.0);
  return region;
}

// Every field of the primitive base other than its default.
void FillPrimitive(VYRPrtFilterBaseElt& io_primitive, const char* i_result) {
  SetNonDefaultCommonAttributes(io_primitive, i_result);
  io_primitive.SetResult(i_result);
  io_primitive.SetInput("SourceAlpha");
  io_primitive.SetSubregion(SomeSubregion());
  VYRPrtFilterColorAttribute colours = SomeColours();
  io_primitive.SetColorAttribute(&colours);
}

void ExpectDefaultPrimitive(const VYRPrtFilterBaseElt& i_primitive) {
  ExpectDefaultCommonAttributes(i_primitive);
  EXPECT_TRUE(i_primitive.GetResult().IsEmpty());
  EXPECT_TRUE(i_primitive.GetInput().IsEmpty());
  EXPECT_TRUE(i_primitive.GetSubregion() == VYRPrtRegionAttributes());
  EXPECT_EQ(i_primitive.GetColorAttribute(), nullptr);
}

VYR5X5ColorMatrix MatrixOf(MM2D::ColorMatrixType i_type, const char* i_values, int& o_result) {
  VYRPrtFilterColorMatrixElt elt;
  elt.SetType(i_type);
  elt.SetValues(i_values);
  VYR5X5ColorMatrix matrix = VYR5X5ColorMatrix::Saturate(0.0);  // anything but the identity
  o_result = elt.GetColorMatrix(matrix);
  return matrix;
}

}  // namespace

TEST_F(Filters, MergeCountsOnlyItsMergeNodes) {
  auto* merge = Make<VYRPrtFilterMergeElt>();
  auto* node = Make<VYRPrtFilterMergeNodeElt>("node");
  merge->AddChild(Make<VYRPrtFilterOffsetElt>("stray"));
  merge->AddChild(node);
  EXPECT_EQ(merge->GetMergeNodeCount(), 1);
  EXPECT_EQ(merge->GetMergeNode(0), node);
  EXPECT_EQ(merge->GetMergeNode(-1), nullptr);
}

TEST_F(Filters, NoFilterElementDuplicatesAndResetRestoresDefaults) {
  auto* container = Make<VYRPrtFilterContainerElt>();
  auto* blur = Make<VYRPrtFilterGaussianBlurElt>();
  auto* offset = Make<VYRPrtFilterOffsetElt>();
  auto* matrix = Make<VYRPrtFilterColorMatrixElt>();
  auto* blend = Make<VYRPrtFilterBlendElt>();
  auto* merge = Make<VYRPrtFilterMergeElt>();
  auto* node = Make<VYRPrtFilterMergeNodeElt>();
  std::vector<VYRPrtFilterBaseElt*> primitives{blur, offset, matrix, blend, merge, node};
  for (VYRPrtFilterBaseElt* primitive : primitives) FillPrimitive(*primitive, "r");
  blur->SetStdDeviation(1.0, 2.0);
  offset->SetOffset(1.0, 2.0);
  matrix->SetType(MM2D::ColorMatrixSaturate);
  matrix->SetValues("0.5");
  blend->SetMode(eTransferScreen);
  blend->SetInput2("x");
  SetNonDefaultCommonAttributes(*container, "f");
  container->SetResolution(1.0, 1.0);
  container->SetUnits(MM2D::UnitUserSpaceOnUse);

  std::vector<VYRPrtGraphicPrimitiveElt*> all(primitives.begin(), primitives.end());
  all.push_back(container);
  for (VYRPrtGraphicPrimitiveElt* elt : all) {
    VYRPrtGraphicPrimitiveElt* copy = container;
    elt->Duplicate(copy);
    EXPECT_EQ(copy, nullptr) << elt->IsA();
  }

  for (VYRPrtFilterBaseElt* primitive : primitives) {
    primitive->Reset();
    ExpectDefaultPrimitive(*primitive);
    EXPECT_EQ(primitive->GetStreamVersion(), 3);
  }
  EXPECT_EQ(blur->GetStdDeviationX(), 0.0);
  EXPECT_EQ(blur->GetStdDeviationY(), 0.0);
  EXPECT_EQ(offset->GetDx(), 0.0);
  EXPECT_EQ(offset->GetDy(), 0.0);
  EXPECT_EQ(matrix->GetType(), MM2D::ColorMatrixMatrix);
  EXPECT_TRUE(matrix->GetValues().IsEmpty());
  EXPECT_EQ(blend->GetMode(), eTransferSourceOver);
  EXPECT_TRUE(blend->GetInput2().IsEmpty());

  container->Reset();
  ExpectDefaultCommonAttributes(*container);
  EXPECT_TRUE(container->GetRegion() == VYRPrtRegionAttributes::DefaultEffectRegion());
  EXPECT_EQ(container->GetUnits(), MM2D::UnitObjectBoundingBox);
  EXPECT_EQ(container->GetPrimitiveUnits(), MM2D::UnitUserSpaceOnUse);
  double x = 1, y = 1;
  container->GetResolution(x, y);
  EXPECT_EQ(x, 0.0);
  EXPECT_EQ(y, 0.0);
}

TEST_F(Filters, CopiesOwnTheirColourPropertiesAndSelfAssignmentIsRefused) {
  VYRPrtFilterOffsetElt original;
  VYRPrtFilterColorAttribute colours = SomeColours();
  original.SetColorAttribute(&colours);
  original.SetOffset(4.0, 5.0);
  VYRPrtFilterOffsetElt copy(original);
  ASSERT_NE(copy.GetColorAttribute(), nullptr);
  EXPECT_NE(copy.GetColorAttribute(), original.GetColorAttribute());
  EXPECT_TRUE(*copy.GetColorAttribute() == colours);
  original.SetColorAttribute(nullptr);
  EXPECT_TRUE(*copy.GetColorAttribute() == colours);

  VYRPrtFilterOffsetElt assigned;
  assigned = copy;
  EXPECT_EQ(assigned.GetDx(), 4.0);
  ASSERT_NE(assigned.GetColorAttribute(), nullptr);
  EXPECT_NE(assigned.GetColorAttribute(), copy.GetColorAttribute());
  assigned = original;
  EXPECT_EQ(assigned.GetColorAttribute(), nullptr);

  AssertionCapture capture;
  VYRPrtFilterOffsetElt& self = copy;
  copy = self;
  EXPECT_TRUE(capture.Has("this != &iGPElt"));
  EXPECT_NE(copy.GetColorAttribute(), nullptr);
}

TEST(FilterColorAttribute, StreamsBehindTagSixThroughTheHelper) {
  VYRPrtFilterColorAttribute colours = SomeColours();
  VYR2DGStringStream stream;
  VYRPrtStreamUnstreamHelper::SerializeVYRPrtFilterColorAttribute(&colours, &stream);
  VYRPrtStreamUnstreamHelper::SerializeVYRPrtFilterColorAttribute(nullptr, &stream);
  VYRPrtFilterColorAttribute defaults;
  defaults.Stream(&stream);
  EXPECT_EQ(StreamBytes(stream), Hex("06 00 00 00  0A 14 1E  00 00 00 00 00 00 D0 3F  28 32 3C  01 00 00 00"
                                     "  00 00 00 00"
                                     "  06 00 00 00  00 00 00  00 00 00 00 00 00 F0 3F  FF FF FF  02 00 00 00"));

  VYR2DGStringStream reader = ReadingStream(StreamBytes(stream));
  VYRPrtFilterColorAttribute* first = VYRPrtStreamUnstreamHelper::CreateVYRPrtFilterColorAttributeFromStream(&reader);
  ASSERT_NE(first, nullptr);
  EXPECT_TRUE(*first == colours);
  delete first;
  EXPECT_EQ(VYRPrtStreamUnstreamHelper::CreateVYRPrtFilterColorAttributeFromStream(&reader), nullptr);
  VYRPrtFilterColorAttribute* third = VYRPrtStreamUnstreamHelper::CreateVYRPrtFilterColorAttributeFromStream(&reader);
  ASSERT_NE(third, nullptr);
  EXPECT_TRUE(*third == defaults);
  delete third;
  EXPECT_EQ(reader.GetReadableBytesLeft(), 0);

  // Another record's tag is not a colour attribute: only the tag is consumed.
  VYR2DGStringStream other = ReadingStream(Hex("05 00 00 00  01 02 03"));
  EXPECT_EQ(VYRPrtStreamUnstreamHelper::CreateVYRPrtFilterColorAttributeFromStream(&other), nullptr);
  EXPECT_EQ(other.GetReadableBytesLeft(), 3);
  EXPECT_EQ(VYRPrtStreamUnstreamHelper::CreateVYRPrtFilterColorAttributeFromStream(nullptr), nullptr);
}

TEST(FilterColorMatrix, TypesGiveTheirMatrices) {
  int result = 0;
  EXPECT_EQ(MatrixOf(MM2D::ColorMatrixSaturate, "0.5", result), VYR5X5ColorMatrix::Saturate(0.5));
  EXPECT_EQ(result, 1);
  EXPECT_EQ(MatrixOf(MM2D::ColorMatrixSaturate, "", result), VYR5X5ColorMatrix::Identity());
  EXPECT_EQ(result, 1);
  EXPECT_EQ(MatrixOf(MM2D::ColorMatrixHueRotate, " 90 ", result), VYR5X5ColorMatrix::HueRotate(90.0));
  EXPECT_EQ(result, 1);
  EXPECT_EQ(MatrixOf(MM2D::ColorMatrixHueRotate, "", result), VYR5X5ColorMatrix::Identity());
  EXPECT_EQ(MatrixOf(MM2D::ColorMatrixLuminanceToAlpha, "", result), VYR5X5ColorMatrix::LuminanceToAlpha());
  EXPECT_EQ(result, 1);
  // luminanceToAlpha has no values: what text there is does not matter.
  EXPECT_EQ(MatrixOf(MM2D::ColorMatrixLuminanceToAlpha, "junk", result), VYR5X5ColorMatrix::LuminanceToAlpha());
  EXPECT_EQ(result, 1);
  EXPECT_EQ(MatrixOf(MM2D::ColorMatrixMatrix, "", result), VYR5X5ColorMatrix::Identity());
  EXPECT_EQ(result, 1);

  // Twenty values fill the upper four rows row by row; the last row stays constant.
  const char* values = "1 2 3 4 5, 6 7 8 9 10, 11 12 13 14 15, 16 17 18 19 20";
  VYR5X5ColorMatrix matrix = MatrixOf(MM2D::ColorMatrixMatrix, values, result);
  EXPECT_EQ(result, 1);
  for (int row = 0; row < 4; ++row) {
    for (int column = 0; column < 5; ++column) EXPECT_EQ(matrix.Get(row, column), row * 5 + column + 1);
  }
  for (int column = 0; column < 5; ++column) EXPECT_EQ(matrix.Get(4, column), column == 4 ? 1.0 : 0.0);
}

TEST(FilterColorMatrix, MalformedValuesGiveTheIdentityWithAReport) {
  struct Case {
    MM2D::ColorMatrixType type;
    const char* values;
  };
  const Case cases[] = {
      {MM2D::ColorMatrixMatrix, "1 2 3"},                                     // too few
      {MM2D::ColorMatrixMatrix, "1 2 3 4 5 6 7 8 9 10 11 12 13 14 15 16 17 18 19 20 21"},  // too many
      {MM2D::ColorMatrixMatrix, "1 2 x 4"},                                   // not a number
      {MM2D::ColorMatrixSaturate, "0.2 0.3"},
      {MM2D::ColorMatrixSaturate, "1,,2"},
      {MM2D::ColorMatrixHueRotate, "1e999"},
      {MM2D::ColorMatrixHueRotate, "12deg"},
      {MM2D::ColorMatrixUnknown, ""},
      {static_cast<MM2D::ColorMatrixType>(-7), "1"},
  };
  for (const Case& c : cases) {
    AssertionCapture capture;
    int result = 0;
    EXPECT_EQ(MatrixOf(c.type, c.values, result), VYR5X5ColorMatrix::Identity()) << c.values;
    EXPECT_EQ(result, -1) << c.values;
    EXPECT_TRUE(capture.Has("well-formed colour matrix values")) << c.values;
  }
}

// The tag table of the element reader: every creatable tag names one concrete
// class, that class writes the tag first, and the reader rebuilds it whole.
#include <gtest/gtest.h>

#include <set>

#include "StreamBytes.h"
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
#include "VYRPrtFilterBlendElt.h"
#include "VYRPrtFilterColorMatrixElt.h"
#include "VYRPrtFilterContainerElt.h"
#include "VYRPrtFilterGaussianBlurElt.h"
#include "VYRPrtFilterMergeElt.h"
#include "VYRPrtFilterMergeNodeElt.h"
#include "VYRPrtFilterOffsetElt.h"
#include "VYRPrtGradientStopElt.h"
#include "VYRPrtGroupElt.h"
#include "VYRPrtImageElt.h"
#include "VYRPrtLineElt.h"
#include "VYRPrtLinearGradientElt.h"
#include "VYRPrtMarkerElt.h"
#include "VYRPrtMaskElt.h"
#include "VYRPrtNURBSElt.h"
#include "VYRPrtPathElt.h"
#include "VYRPrtPatternElt.h"
#include "VYRPrtPolyCubicBezierElt.h"
#include "VYRPrtPolyPolygonElt.h"
#include "VYRPrtPolyQuadraticBezierElt.h"
#include "VYRPrtPolygonElt.h"
#include "VYRPrtPolylineElt.h"
#include "VYRPrtRadialGradientElt.h"
#include "VYRPrtRectangleElt.h"
#include "VYRPrtStreamType.h"
#include "VYRPrtStreamUnstreamHelper.h"
#include "VYRPrtSwitchElt.h"
#include "VYRPrtSymbolElt.h"
#include "VYRPrtTextElt.h"

namespace {

class TagTable : public ::testing::Test {
 protected:
  void TearDown() override { VYRPrtEltFactory::Get().Release(); }

  // A default K written through its own Stream starts with i_tag, and the
  // reader makes a K of it, consuming the whole record.
  template <class K>
  void Check(int i_tag) {
    SCOPED_TRACE(K::ClassName());
    covered.insert(i_tag);
    K* pSource = VYRPrtEltFactory::Get().CreateElement<K>();
    pSource->SetID("x");
    VYR2DGStringStream writer;
    pSource->Stream(&writer);
    std::vector<uint8_t> bytes = StreamBytes(writer);
    ASSERT_GE(bytes.size(), 4u);
    EXPECT_EQ(std::vector<uint8_t>(bytes.begin(), bytes.begin() + 4),
              (std::vector<uint8_t>{static_cast<uint8_t>(i_tag), 0, 0, 0}));

    VYR2DGStringStream reader = ReadingStream(bytes);
    VYRPrtGraphicPrimitiveElt* pBack = VYRPrtStreamUnstreamHelper::CreateVYRPrtGraphicPrimitiveEltFromStream(&reader);
    ASSERT_NE(pBack, nullptr);
    EXPECT_EQ(pBack->IsA(), K::ClassName());
    EXPECT_NE(pBack, pSource);
    EXPECT_EQ(pBack->GetID(), VYRUnicodeString("x"));
    EXPECT_EQ(reader.GetReadableBytesLeft(), 0);
    EXPECT_FALSE(reader.HasFailed());
  }

  std::set<int> covered;
};

}  // namespace

TEST_F(TagTable, EveryCreatableTagMakesItsOwnClass) {
  Check<VYRPrtRectangleElt>(kStreamTypeRectangleElt);
  Check<VYRPrtImageElt>(kStreamTypeImageElt);
  Check<VYRPrtClipPathElt>(kStreamTypeClipPathElt);
  Check<VYRPrtMaskElt>(kStreamTypeMaskElt);
  Check<VYRPrtFilterColorMatrixElt>(kStreamTypeFilterColorMatrixElt);
  Check<VYRPrtFilterBlendElt>(kStreamTypeFilterBlendElt);
  Check<VYRPrtFilterGaussianBlurElt>(kStreamTypeFilterGaussianBlurElt);
  Check<VYRPrtFilterOffsetElt>(kStreamTypeFilterOffsetElt);
  Check<VYRPrtFilterMergeElt>(kStreamTypeFilterMergeElt);
  Check<VYRPrtFilterMergeNodeElt>(kStreamTypeFilterMergeNodeElt);
  Check<VYRPrtFilterContainerElt>(kStreamTypeFilterContainerElt);
  Check<VYRPrtCircleElt>(kStreamTypeCircleElt);
  Check<VYRPrtCircularArcElt>(kStreamTypeCircularArcElt);
  Check<VYRPrtClosedFigureElt>(kStreamTypeClosedFigureElt);
  Check<VYRPrtClosedFigureRegionElt>(kStreamTypeClosedFigureRegionElt);
  Check<VYRPrtDisjointPolylineElt>(kStreamTypeDisjointPolylineElt);
  Check<VYRPrtEllipseElt>(kStreamTypeEllipseElt);
  Check<VYRPrtEllipticalArcElt>(kStreamTypeEllipticalArcElt);
  Check<VYRPrtGroupElt>(kStreamTypeGroupElt);
  Check<VYRPrtGradientStopElt>(kStreamTypeGradientStopElt);
  Check<VYRPrtLinearGradientElt>(kStreamTypeLinearGradientElt);
  Check<VYRPrtLineElt>(kStreamTypeLineElt);
  Check<VYRPrtMarkerElt>(kStreamTypeMarkerElt);
  Check<VYRPrtNURBSElt>(kStreamTypeNURBSElt);
  Check<VYRPrtPathElt>(kStreamTypePathElt);
  Check<VYRPrtPatternElt>(kStreamTypePatternElt);
  Check<VYRPrtPolyCubicBezierElt>(kStreamTypePolyCubicBezierElt);
  Check<VYRPrtPolygonElt>(kStreamTypePolygonElt);
  Check<VYRPrtPolylineElt>(kStreamTypePolylineElt);
  Check<VYRPrtPolyPolygonElt>(kStreamTypePolyPolygonElt);
  Check<VYRPrtPolyQuadraticBezierElt>(kStreamTypePolyQuadraticBezierElt);
  Check<VYRPrtRadialGradientElt>(kStreamTypeRadialGradientElt);
  Check<VYRPrtSwitchElt>(kStreamTypeSwitchElt);
  Check<VYRPrtSymbolElt>(kStreamTypeSymbolElt);
  Check<VYRPrtBitmapImageElt>(kStreamTypeBitmapImageElt);
  Check<VYRPrtDefsElt>(kStreamTypeDefsElt);
  Check<VYRPrtTextElt>(kStreamTypeTextElt);

  // Every tag from 8 to 47 but those of the abstract bases is covered above.
  const std::set<int> abstractTags{kStreamTypeBaseGradientElt, kStreamTypeBaseShapeElt, kStreamTypePointBasedElt};
  for (int tag = 8; tag <= 47; ++tag) EXPECT_NE(covered.count(tag) + abstractTags.count(tag), 0u) << tag;
}

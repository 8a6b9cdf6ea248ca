#include <gtest/gtest.h>

#include <vector>

#include "AssertionCapture.h"
#include "StreamBytes.h"
#include "VYRPrtClipPathElt.h"
#include "VYRPrtEltFactory.h"
#include "VYRPrtFilterBlendElt.h"
#include "VYRPrtFilterColorMatrixElt.h"
#include "VYRPrtFilterContainerElt.h"
#include "VYRPrtFilterGaussianBlurElt.h"
#include "VYRPrtFilterMergeElt.h"
#include "VYRPrtFilterMergeNodeElt.h"
#include "VYRPrtFilterOffsetElt.h"
#include "VYRPrtLinearGradientElt.h"
#include "VYRPrtMarkerElt.h"
#include "VYRPrtMaskElt.h"
#include "VYRPrtPatternElt.h"
#include "VYRPrtRadialGradientElt.h"
#include "VYRPrtStreamUnstreamHelper.h"

namespace {

class PaintStreamDamage : public ::testing::Test {
 protected:
  void TearDown() override { VYRPrtEltFactory::Get().Release(); }
  template <class K>
  K* Make(const char* i_id) {
    K* pElt = VYRPrtEltFactory::Get().CreateElement<K>();
    pElt->SetID(i_id);
    return pElt;
  }

  // A pattern holding one element of every paint-server, reference and filter
  // kind, referring to a clip path, a mask and a filter of its own.
  std::vector<uint8_t> EveryKindBytes() {
    auto* pattern = Make<VYRPrtPatternElt>("pattern");
    pattern->SetHrefID("other");

    auto* linear = Make<VYRPrtLinearGradientElt>("linear");
    auto* stop = Make<VYRPrtGradientStopElt>("stop");
    stop->SetOffset(0.5);
    linear->AddStop(stop);
    auto* radial = Make<VYRPrtRadialGradientElt>("radial");
    radial->AddStop(Make<VYRPrtGradientStopElt>("stop2"));
    radial->SetFocus(VYRMathPoint2D(0.1, 0.2));
    auto* marker = Make<VYRPrtMarkerElt>("marker");
    marker->AddChild(Make<VYRPrtMaskElt>("in marker"));

    auto* filter = Make<VYRPrtFilterContainerElt>("filter");
    auto* blur = Make<VYRPrtFilterGaussianBlurElt>("blur");
    blur->SetStdDeviation(1.0, 2.0);
    VYRPrtFilterColorAttribute colours;
    colours.SetFloodColor(1, 2, 3);
    blur->SetColorAttribute(&colours);
    auto* matrix = Make<VYRPrtFilterColorMatrixElt>("matrix");
    matrix->SetValues("1 2 3");
    auto* blend = Make<VYRPrtFilterBlendElt>("blend");
    blend->SetInput2("blur");
    auto* merge = Make<VYRPrtFilterMergeElt>("merge");
    merge->AddChild(Make<VYRPrtFilterMergeNodeElt>("node"));
    filter->AddChild(blur);
    filter->AddChild(Make<VYRPrtFilterOffsetElt>("offset"));
    filter->AddChild(matrix);
    filter->AddChild(blend);
    filter->AddChild(merge);

    for (VYRPrtGraphicPrimitiveElt* child : std::vector<VYRPrtGraphicPrimitiveElt*>{linear, radial, marker, filter})
      pattern->AddChild(child);
    pattern->SetClipPath(Make<VYRPrtClipPathElt>("clip"));
    pattern->SetMask(Make<VYRPrtMaskElt>("mask"));
    pattern->SetFilter(Make<VYRPrtFilterContainerElt>("referenced filter"));

    VYR2DGStringStream writer;
    pattern->Stream(&writer);
    return StreamBytes(writer);
  }
};

}  // namespace

TEST_F(PaintStreamDamage, EveryTruncationReadsWithoutHarm) {
  std::vector<uint8_t> bytes = EveryKindBytes();
  {
    VYR2DGStringStream whole = ReadingStream(bytes);
    auto* back = static_cast<VYRPrtPatternElt*>(VYRPrtStreamUnstreamHelper::CreateVYRPrtGraphicPrimitiveEltFromStream(&whole));
    ASSERT_NE(back, nullptr);
    EXPECT_EQ(back->GetChildArray().GetLength(), 4);
    EXPECT_EQ(whole.GetReadableBytesLeft(), 0);
  }
  AssertionCapture quiet;
  for (size_t length = 0; length < bytes.size(); ++length) {
    std::vector<uint8_t> prefix(bytes.begin(), bytes.begin() + length);
    VYR2DGStringStream reader = ReadingStream(prefix);
    VYRPrtStreamUnstreamHelper::CreateVYRPrtGraphicPrimitiveEltFromStream(&reader);
    EXPECT_LE(reader.GetReadableBytesLeft(), 0) << length;
  }
}

TEST_F(PaintStreamDamage, EveryCorruptedByteReadsWithoutHarm) {
  std::vector<uint8_t> bytes = EveryKindBytes();
  AssertionCapture quiet;
  for (size_t at = 0; at < bytes.size(); ++at) {
    for (uint8_t corruption : {0xFF, 0x80}) {
      std::vector<uint8_t> damaged = bytes;
      damaged[at] ^= corruption;
      VYR2DGStringStream reader = ReadingStream(damaged);
      VYRPrtGraphicPrimitiveElt* pElt = VYRPrtStreamUnstreamHelper::CreateVYRPrtGraphicPrimitiveEltFromStream(&reader);
      // Whatever was read writes itself out again.
      VYR2DGStringStream output;
      VYRPrtStreamUnstreamHelper::SerializeVYRPrtGraphicPrimitiveElt(pElt, &output);
    }
  }
}

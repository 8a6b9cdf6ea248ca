#include <gtest/gtest.h>

#include <vector>

#include "AssertionCapture.h"
#include "StreamBytes.h"
#include "TestPrinters.h"
#include "VYR2DGStringStream.h"
#include "VYRPrtClipPathElt.h"
#include "VYRPrtEltFactory.h"
#include "VYRPrtFilterContainerElt.h"
#include "VYRPrtGroupAttributes.h"
#include "VYRPrtMarkerAttributes.h"
#include "VYRPrtMaskElt.h"
#include "VYRPrtStreamUnstreamHelper.h"

namespace element_test {

// The common block of a default element after its tag, as hex listing.
const char* const kDefaultCommonBlock =
    "01 00 00 00  01 00 00 00"                        // version, visibility
    "  00 00 00 00  00 00 00 00  00 00 00 00"         // ID, description, title
    "  07 00 00 00 64 65 66 61 75 6C 74"              // "default"
    "  00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00"
    "  00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00"  // empty transform list
    "  00 00 00 00  00 00 00 00 00 00 F0 3F  03 00 00 00  00 00 00 00"  // Adobe
    "  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00"
    "  FF";

class ModelElement : public ::testing::Test {
 protected:
  void TearDown() override { VYRPrtEltFactory::Get().Release(); }
  template <class K>
  K* Make() {
    return VYRPrtEltFactory::Get().CreateElement<K>();
  }
};

std::vector<uint8_t> Concat(std::vector<uint8_t> i_first, const std::vector<uint8_t>& i_second) {
  i_first.insert(i_first.end(), i_second.begin(), i_second.end());
  return i_first;
}

void ExpectSameCommonAttributes(const VYRPrtGraphicPrimitiveElt& i_a, const VYRPrtGraphicPrimitiveElt& i_b) {
  EXPECT_EQ(i_a.GetVisibility(), i_b.GetVisibility());
  EXPECT_EQ(i_a.GetID(), i_b.GetID());
  EXPECT_EQ(i_a.GetDescription(), i_b.GetDescription());
  EXPECT_EQ(i_a.GetTitle(), i_b.GetTitle());
  EXPECT_EQ(i_a.GetSpaceHandling(), i_b.GetSpaceHandling());
  EXPECT_TRUE(i_a.GetAdobeAttributes() == i_b.GetAdobeAttributes());
  EXPECT_EQ(i_a.GetClipPathID(), i_b.GetClipPathID());
  EXPECT_EQ(i_a.GetMaskID(), i_b.GetMaskID());
  EXPECT_EQ(i_a.GetFilterID(), i_b.GetFilterID());
  EXPECT_EQ(i_a.GetOpacity(), i_b.GetOpacity());
  EXPECT_EQ(i_a.GetStreamVersion(), i_b.GetStreamVersion());
}

}  // namespace element_test
using namespace element_test;

TEST_F(ModelElement, DefaultElementStreamsTheCommonBlockBehindItsTag) {
  VYR2DGStringStream stream;
  Make<VYRPrtMaskElt>()->Stream(&stream);
  // The mask's own fields follow the common block.
  std::vector<uint8_t> opening = Concat(Hex("0B 00 00 00"), Hex(kDefaultCommonBlock));
  std::vector<uint8_t> bytes = StreamBytes(stream);
  ASSERT_GE(bytes.size(), opening.size());
  EXPECT_EQ(std::vector<uint8_t>(bytes.begin(), bytes.begin() + opening.size()), opening);

  VYR2DGStringStream nullStream;
  VYRPrtStreamUnstreamHelper::SerializeVYRPrtGraphicPrimitiveElt(nullptr, &nullStream);
  EXPECT_EQ(StreamBytes(nullStream), Hex("00 00 00 00"));
}

TEST_F(ModelElement, EveryCommonAttributeRoundTripsWithFreshReferences) {
  auto* clip = Make<VYRPrtClipPathElt>();
  clip->SetID("clip");
  auto* mask = Make<VYRPrtMaskElt>();
  mask->SetID("mask");
  mask->SetOpacity(12);
  auto* filter = Make<VYRPrtFilterContainerElt>();
  filter->SetTitle("blur");
  auto* father = Make<VYRPrtMaskElt>();

  auto* elt = Make<VYRPrtClipPathElt>();
  elt->SetVisibility(0);
  elt->SetID("id\xC3\xA9");
  elt->SetDescription("desc");
  elt->SetTitle("title");
  elt->SetSpaceHandling("preserve");
  VYRPrtAdobeAttributes adobe;
  adobe.SetBlendingMode(eTransferMultiply);
  adobe.SetOpacityShare(0.25);
  elt->SetAdobeAttributes(adobe);
  elt->SetClipPathID("clip");
  elt->SetClipPath(clip);
  elt->SetMaskID("mask");
  elt->SetMask(mask);
  elt->SetFilterID("blur");
  elt->SetFilter(filter);
  elt->SetFather(father);
  elt->SetOpacity(77);
  elt->SetStreamVersion(5);

  VYR2DGStringStream stream;
  VYRPrtStreamUnstreamHelper::SerializeVYRPrtGraphicPrimitiveElt(elt, &stream);
  VYR2DGStringStream reader = ReadingStream(StreamBytes(stream));
  VYRPrtGraphicPrimitiveElt* back = VYRPrtStreamUnstreamHelper::CreateVYRPrtGraphicPrimitiveEltFromStream(&reader);
  ASSERT_NE(back, nullptr);
  EXPECT_EQ(reader.GetReadableBytesLeft(), 0);
  EXPECT_FALSE(reader.HasFailed());
  ASSERT_STREQ(back->IsA(), VYRPrtClipPathElt::ClassName());
  ExpectSameCommonAttributes(*elt, *back);
  EXPECT_EQ(back->GetFather(), nullptr);
  EXPECT_EQ(back->GetPattern(), nullptr);

  ASSERT_NE(back->GetClipPath(), nullptr);
  EXPECT_NE(back->GetClipPath(), clip);
  ExpectSameCommonAttributes(*clip, *back->GetClipPath());
  ASSERT_NE(back->GetMask(), nullptr);
  EXPECT_NE(back->GetMask(), mask);
  ExpectSameCommonAttributes(*mask, *back->GetMask());
  ASSERT_NE(back->GetFilter(), nullptr);
  ExpectSameCommonAttributes(*filter, *back->GetFilter());

  // The same bytes again from the rebuilt element.
  VYR2DGStringStream again;
  back->Stream(&again);
  EXPECT_EQ(StreamBytes(again), StreamBytes(stream));
}

TEST_F(ModelElement, NullAbstractAndUnknownTagsConsumeExactlyTheirFourBytes) {
  for (int tag : {0, 7, 28, 35, 36, 48, -1, 1000}) {
    VYR2DGStringStream writer;
    writer.Stream(tag);
    writer.Stream(0x55667788);
    VYR2DGStringStream reader = ReadingStream(StreamBytes(writer));
    EXPECT_EQ(VYRPrtStreamUnstreamHelper::CreateVYRPrtGraphicPrimitiveEltFromStream(&reader), nullptr) << tag;
    EXPECT_EQ(reader.GetReadableBytesLeft(), 4) << tag;
  }
  EXPECT_EQ(VYRPrtStreamUnstreamHelper::CreateVYRPrtGraphicPrimitiveEltFromStream(nullptr), nullptr);
}

TEST_F(ModelElement, ReferenceOfTheWrongKindIsDropped) {
  auto* elt = Make<VYRPrtMaskElt>();
  VYR2DGStringStream writer;
  elt->Stream(&writer);
  std::vector<uint8_t> bytes = StreamBytes(writer);
  // Put a whole default mask where the clip path (a 0) stands.
  std::vector<uint8_t> nestedMask = bytes;
  size_t commonBlockEnd = 4 + Hex(kDefaultCommonBlock).size();
  size_t clipAt = commonBlockEnd - 1 - 4 - 4 - 4 - 4 - 4;
  ASSERT_EQ(bytes[clipAt - 4], 0);
  bytes.erase(bytes.begin() + clipAt, bytes.begin() + clipAt + 4);
  bytes.insert(bytes.begin() + clipAt, nestedMask.begin(), nestedMask.end());

  AssertionCapture capture;
  VYR2DGStringStream reader = ReadingStream(bytes);
  VYRPrtGraphicPrimitiveElt* back = VYRPrtStreamUnstreamHelper::CreateVYRPrtGraphicPrimitiveEltFromStream(&reader);
  ASSERT_NE(back, nullptr);
  EXPECT_EQ(back->GetClipPath(), nullptr);
  EXPECT_EQ(back->GetOpacity(), 255);
  EXPECT_EQ(reader.GetReadableBytesLeft(), 0);
  EXPECT_TRUE(capture.Has("referenced element of the expected kind"));
}

TEST_F(ModelElement, CopyResetAndAssignmentRules) {
  auto* father = Make<VYRPrtMaskElt>();
  auto* clip = Make<VYRPrtClipPathElt>();
  VYRPrtMaskElt elt;
  elt.SetFather(father);
  elt.SetClipPath(clip);
  elt.SetID("a");
  elt.SetStreamVersion(5);
  VYRPrtMaskElt copy(elt);
  EXPECT_EQ(copy.GetFather(), father);
  EXPECT_EQ(copy.GetClipPath(), clip);
  EXPECT_EQ(copy.GetStreamVersion(), 5);

  elt.Reset();
  EXPECT_EQ(elt.GetStreamVersion(), 5);
  EXPECT_EQ(elt.GetFather(), nullptr);
  EXPECT_EQ(elt.GetClipPath(), nullptr);
  EXPECT_EQ(elt.GetSpaceHandling(), "default");
  EXPECT_TRUE(elt.GetID().IsEmpty());

  AssertionCapture capture;
  VYRPrtGraphicPrimitiveElt& self = copy;
  copy = static_cast<const VYRPrtMaskElt&>(self);
  EXPECT_TRUE(capture.Has("this != &iGPElt"));
  EXPECT_EQ(copy.GetID(), "a");

  VYRPrtGraphicPrimitiveElt* duplicate = father;
  copy.Duplicate(duplicate);
  EXPECT_EQ(duplicate, nullptr);
}

TEST(AdobeAttributes, KnockoutZeroClearsDefinedEvenAfterOtherValues) {
  VYRPrtAdobeAttributes attr;
  EXPECT_FALSE(attr.IsDefined());
  attr.SetOpacityShare(0.5);
  EXPECT_TRUE(attr.IsDefined());
  attr.SetKnockout(static_cast<MM2D::Knockout>(1));
  EXPECT_TRUE(attr.IsDefined());
  attr.SetKnockout(MM2D::KnockoutNone);
  EXPECT_FALSE(attr.IsDefined());
  EXPECT_EQ(attr.GetOpacityShare(), 0.5);

  AssertionCapture capture;
  attr = attr;
  EXPECT_TRUE(capture.Has("this != &iAttr"));
}

TEST(AttributeGroups, LinkAndMarkerBytes) {
  VYR2DGStringStream stream;
  VYRPrtGroupAttributes group;
  group.Stream(&stream);
  VYRPrintLinkURI link;
  link.SetBaseURL("ab");
  link.SetElementId("c");
  link.SetLinkShow(static_cast<VYRPrtLinkShow>(2));
  group.SetLinkURI(link);
  group.Stream(&stream);
  VYRPrtMarkerAttributes marker;
  marker.SetMarkerStyle(static_cast<VYRPrintMarkerAttribute>(3));
  marker.Stream(&stream);
  group.Stream(nullptr);
  EXPECT_EQ(StreamBytes(stream), Hex("00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00"
                                     " 02 00 00 00 61 62  00 00 00 00  01 00 00 00 63  02 00 00 00"
                                     " 03 00 00 00"));

  VYR2DGStringStream reader = ReadingStream(StreamBytes(stream));
  VYRPrtGroupAttributes first, second;
  first.Unstream(&reader);
  second.Unstream(&reader);
  VYRPrtMarkerAttributes markerBack;
  markerBack.Unstream(&reader);
  VYRPrintLinkURI out;
  first.GetLinkURI(out);
  EXPECT_TRUE(out == VYRPrintLinkURI());
  second.GetLinkURI(out);
  EXPECT_TRUE(out == link);
  VYRPrintMarkerAttribute style = VYRPrintMarkerNone;
  markerBack.GetMarkerStyle(style);
  EXPECT_EQ(style, 3);
}

TEST_F(ModelElement, EveryPrefixOfAValidStreamReadsWithoutHarm) {
  auto* elt = Make<VYRPrtClipPathElt>();
  elt->SetID("outer");
  auto* mask = Make<VYRPrtMaskElt>();
  mask->SetDescription("inner");
  elt->SetMask(mask);
  elt->SetFilter(Make<VYRPrtFilterContainerElt>());
  VYR2DGStringStream writer;
  elt->Stream(&writer);
  std::vector<uint8_t> bytes = StreamBytes(writer);
  for (size_t length = 0; length < bytes.size(); ++length) {
    std::vector<uint8_t> prefix(bytes.begin(), bytes.begin() + length);
    VYR2DGStringStream reader = ReadingStream(prefix);
    VYRPrtStreamUnstreamHelper::CreateVYRPrtGraphicPrimitiveEltFromStream(&reader);
    EXPECT_LE(reader.GetReadableBytesLeft(), 0) << length;
  }
}

TEST_F(ModelElement, DeepNestingIsRefused) {
  // A clip path whose clip path is a clip path ... far deeper than any model.
  std::vector<uint8_t> bytes;
  std::vector<uint8_t> opening = Hex("0A 00 00 00  01 00 00 00  01 00 00 00  00 00 00 00 00 00 00 00 00 00 00 00"
                                     "  00 00 00 00");
  std::vector<uint8_t> transformAndAdobe(32, 0);
  std::vector<uint8_t> adobe = Hex("00 00 00 00  00 00 00 00 00 00 F0 3F  03 00 00 00  00 00 00 00  00 00 00 00");
  for (int i = 0; i < 2000; ++i) {
    bytes = Concat(bytes, opening);
    bytes = Concat(bytes, transformAndAdobe);
    bytes = Concat(bytes, adobe);
  }
  AssertionCapture capture;
  VYR2DGStringStream reader = ReadingStream(bytes);
  EXPECT_NE(VYRPrtStreamUnstreamHelper::CreateVYRPrtGraphicPrimitiveEltFromStream(&reader), nullptr);
  EXPECT_TRUE(capture.Has("element nesting within limits"));
}

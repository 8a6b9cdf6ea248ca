#include <gtest/gtest.h>

#include <vector>

#include "AssertionCapture.h"
#include "ElementChecks.h"
#include "StreamBytes.h"
#include "VYR2DGStringStream.h"
#include "VYRPrtDefsElt.h"
#include "VYRPrtEltFactory.h"
#include "VYRPrtGroupElt.h"
#include "VYRPrtMaskElt.h"
#include "VYRPrtSwitchElt.h"
#include "VYRPrtSymbolElt.h"

namespace {

class NodeTree : public ::testing::Test {
 protected:
  void TearDown() override { VYRPrtEltFactory::Get().Release(); }
  template <class K>
  K* Make(const char* i_id = "") {
    K* pElt = VYRPrtEltFactory::Get().CreateElement<K>();
    pElt->SetID(i_id);
    return pElt;
  }
};

VYRPrintLinkURI SomeLink() {
  VYRPrintLinkURI link;
  link.SetBaseURL("http://example.org/doc.svg");
  link.SetImageId("image");
  link.SetElementId("target");
  link.SetLinkShow(static_cast<VYRPrtLinkShow>(2));
  return link;
}

VYRPrtViewBoxAttributes SomeViewBox() {
  VYRPrtViewBoxAttributes viewBox;
  viewBox.SetViewBox(-1.5, 2.0, 300.0, 150.0);
  viewBox.SetAspectAlign(MM2D::AspectAlignXMaxYMin);
  viewBox.SetMeetOrSlice(MM2D::MeetOrSliceSlice);
  viewBox.SetDefer(true);
  return viewBox;
}

std::vector<uint8_t> Bytes(VYRPrtGraphicPrimitiveElt& i_elt) {
  VYR2DGStringStream stream;
  i_elt.Stream(&stream);
  return StreamBytes(stream);
}

void ExpectChildIds(const VYRPrtNodeTreeElt& i_node, const std::vector<const char*>& i_ids) {
  ASSERT_EQ(i_node.GetChildArray().GetLength(), static_cast<int>(i_ids.size()));
  for (size_t i = 0; i < i_ids.size(); ++i) {
    VYRPrtGraphicPrimitiveElt* pChild = i_node.GetChild(static_cast<int>(i));
    EXPECT_EQ(pChild->GetID(), VYRUnicodeString(i_ids[i]));
    EXPECT_EQ(pChild->GetFather(), &i_node);
  }
}

}  // namespace

TEST_F(NodeTree, ChildAddedTwiceIsListedTwiceAndRemovalTakesTheFirstOnly) {
  auto* group = Make<VYRPrtGroupElt>();
  auto* a = Make<VYRPrtMaskElt>("a");
  auto* b = Make<VYRPrtMaskElt>("b");
  group->AddChild(a);
  group->AddChild(b);
  group->AddChild(a);
  ASSERT_EQ(group->GetChildArray().GetLength(), 3);

  group->RemoveChild(a);
  ASSERT_EQ(group->GetChildArray().GetLength(), 2);
  EXPECT_EQ(group->GetChild(0), b);
  EXPECT_EQ(group->GetChild(1), a);
  EXPECT_EQ(a->GetFather(), nullptr);  // although it is still listed
  EXPECT_EQ(b->GetFather(), group);
}

TEST_F(NodeTree, RemovingAnAbsentChildChangesNothingNotEvenItsFather) {
  auto* group = Make<VYRPrtGroupElt>();
  auto* other = Make<VYRPrtGroupElt>();
  auto* a = Make<VYRPrtMaskElt>("a");
  other->AddChild(a);
  group->AddChild(Make<VYRPrtMaskElt>("b"));
  group->RemoveChild(a);
  EXPECT_EQ(group->GetChildArray().GetLength(), 1);
  EXPECT_EQ(a->GetFather(), other);
}

TEST_F(NodeTree, NullChildrenAndBadIndicesAreReported) {
  auto* group = Make<VYRPrtGroupElt>();
  group->AddChild(Make<VYRPrtMaskElt>());
  AssertionCapture capture;
  group->AddChild(nullptr);
  group->RemoveChild(nullptr);
  EXPECT_EQ(capture.NullPointers(), (std::vector<std::string>{"i_pChildGP", "i_pChildGP"}));
  EXPECT_EQ(group->GetChildArray().GetLength(), 1);

  EXPECT_EQ(group->GetChild(-1), nullptr);
  EXPECT_EQ(group->GetChild(1), nullptr);
  EXPECT_EQ(capture.FailedConditions(), (std::vector<std::string>{"(i_index>=0 && i_index<_length)",
                                                                   "(i_index>=0 && i_index<_length)"}));
  EXPECT_NE(group->GetChild(0), nullptr);
}

TEST_F(NodeTree, CopiesShareChildrenAndClearingOneLeavesTheOther) {
  auto* group = Make<VYRPrtGroupElt>();
  auto* a = Make<VYRPrtMaskElt>("a");
  group->AddChild(a);
  VYRPrtGroupElt copy(*group);
  EXPECT_EQ(copy.GetChild(0), a);
  copy.ClearChildArray();
  EXPECT_EQ(copy.GetChildArray().GetLength(), 0);
  EXPECT_EQ(copy.GetChildArray().GetCapacity(), 0);
  EXPECT_EQ(group->GetChild(0), a);
  EXPECT_EQ(a->GetFather(), group);

  AssertionCapture capture;
  *group = *group;
  EXPECT_TRUE(capture.Has("this != &i_groupElt"));
  EXPECT_EQ(group->GetChildArray().GetLength(), 1);
}

TEST_F(NodeTree, UnstreamingAppendsToTheChildrenAlreadyHeld) {
  auto* source = Make<VYRPrtGroupElt>();
  source->AddChild(Make<VYRPrtMaskElt>("b"));
  source->AddChild(Make<VYRPrtMaskElt>("c"));
  VYR2DGStringStream stream;
  source->Stream(&stream);

  auto* target = Make<VYRPrtGroupElt>();
  target->AddChild(Make<VYRPrtMaskElt>("a"));
  VYR2DGStringStream reading(stream.GetBuffer(), stream.GetSize());
  int tag = 0;
  reading.Unstream(tag);
  EXPECT_EQ(tag, kStreamTypeGroupElt);
  target->Unstream(&reading);
  ExpectChildIds(*target, {"a", "b", "c"});
  EXPECT_NE(target->GetChild(1), source->GetChild(0));  // new elements, not the streamed ones
}

TEST_F(NodeTree, ANullChildEntryIsSkippedWithAReport) {
  // An empty group's record ends with the count 0 and the empty link record
  // (three empty strings and the link show): 20 bytes. Splice in a count of 2
  // and two entries, a mask and a null element.
  std::vector<uint8_t> bytes = Bytes(*Make<VYRPrtGroupElt>());
  std::vector<uint8_t> tail(bytes.end() - 16, bytes.end());
  bytes.resize(bytes.size() - 20);
  for (uint8_t b : Hex("02 00 00 00")) bytes.push_back(b);
  for (uint8_t b : Bytes(*Make<VYRPrtMaskElt>("m"))) bytes.push_back(b);
  for (uint8_t b : Hex("00 00 00 00")) bytes.push_back(b);
  bytes.insert(bytes.end(), tail.begin(), tail.end());

  VYR2DGStringStream reading = ReadingStream(bytes);
  AssertionCapture capture;
  auto* group = static_cast<VYRPrtGroupElt*>(VYRPrtStreamUnstreamHelper::CreateVYRPrtGraphicPrimitiveEltFromStream(&reading));
  ASSERT_NE(group, nullptr);
  EXPECT_EQ(capture.NullPointers(), std::vector<std::string>{"i_pChildGP"});
  ExpectChildIds(*group, {"m"});
  EXPECT_EQ(reading.GetReadableBytesLeft(), 0);
}

TEST_F(NodeTree, ACountLargerThanTheStreamIsRefused) {
  std::vector<uint8_t> bytes = Bytes(*Make<VYRPrtDefsElt>());
  bytes.resize(bytes.size() - 4);
  for (uint8_t b : Hex("FF FF FF 7F  00 00 00 00")) bytes.push_back(b);
  VYR2DGStringStream reading = ReadingStream(bytes);
  AssertionCapture capture;
  auto* defs = VYRPrtStreamUnstreamHelper::CreateVYRPrtGraphicPrimitiveEltFromStream(&reading);
  ASSERT_NE(defs, nullptr);
  EXPECT_EQ(static_cast<VYRPrtNodeTreeElt*>(defs)->GetChildArray().GetLength(), 0);
  EXPECT_EQ(capture.Reports().size(), 1u);
}

TEST_F(NodeTree, EmptyContainersStreamTheCommonBlockAndACountOfZero) {
  std::vector<uint8_t> defs = Bytes(*Make<VYRPrtDefsElt>());
  std::vector<uint8_t> sw = Bytes(*Make<VYRPrtSwitchElt>());
  ASSERT_GT(defs.size(), 8u);
  EXPECT_EQ(std::vector<uint8_t>(defs.begin(), defs.begin() + 4), Hex("2E 00 00 00"));
  EXPECT_EQ(std::vector<uint8_t>(sw.begin(), sw.begin() + 4), Hex("2B 00 00 00"));
  EXPECT_EQ(std::vector<uint8_t>(defs.end() - 5, defs.end()), Hex("FF 00 00 00 00"));
  EXPECT_EQ(std::vector<uint8_t>(defs.begin() + 4, defs.end()), std::vector<uint8_t>(sw.begin() + 4, sw.end()));
}

TEST_F(NodeTree, EveryContainerRoundTripsWithItsFieldsAndChildren) {
  auto* group = Make<VYRPrtGroupElt>();
  SetNonDefaultCommonAttributes(*group, "group");
  VYRPrtGroupAttributes groupAttributes;
  groupAttributes.SetLinkURI(SomeLink());
  group->SetGroupAttributes(groupAttributes);

  auto* symbol = Make<VYRPrtSymbolElt>();
  SetNonDefaultCommonAttributes(*symbol, "symbol");
  symbol->SetOrigin(VYRMathPoint2D(5.5, -6.25));
  symbol->SetSize(40.0, 20.0);
  symbol->SetViewBoxAttributes(SomeViewBox());
  symbol->AddChild(Make<VYRPrtMaskElt>("inSymbol"));

  auto* sw = Make<VYRPrtSwitchElt>();
  SetNonDefaultCommonAttributes(*sw, "switch");
  sw->AddChild(Make<VYRPrtMaskElt>("alternative"));
  auto* defs = Make<VYRPrtDefsElt>();
  SetNonDefaultCommonAttributes(*defs, "defs");
  defs->AddChild(symbol);
  group->AddChild(defs);
  group->AddChild(sw);

  auto* readGroup = RoundTrip<VYRPrtGroupElt>(*group);
  ASSERT_NE(readGroup, nullptr);
  VYRPrintLinkURI link;
  readGroup->GetGroupAttributes().GetLinkURI(link);
  EXPECT_TRUE(link == SomeLink());
  ExpectChildIds(*readGroup, {"defs", "switch"});

  auto* readDefs = static_cast<VYRPrtDefsElt*>(readGroup->GetChild(0));
  EXPECT_STREQ(readDefs->IsA(), VYRPrtDefsElt::ClassName());
  ExpectSameCommonAttributes(*defs, *readDefs);
  auto* readSwitch = static_cast<VYRPrtSwitchElt*>(readGroup->GetChild(1));
  EXPECT_STREQ(readSwitch->IsA(), VYRPrtSwitchElt::ClassName());
  ExpectSameCommonAttributes(*sw, *readSwitch);
  ExpectChildIds(*readSwitch, {"alternative"});

  ExpectChildIds(*readDefs, {"symbol"});
  auto* readSymbol = static_cast<VYRPrtSymbolElt*>(readDefs->GetChild(0));
  EXPECT_STREQ(readSymbol->IsA(), VYRPrtSymbolElt::ClassName());
  ExpectSameCommonAttributes(*symbol, *readSymbol);
  EXPECT_EQ(readSymbol->GetOrigin(), VYRMathPoint2D(5.5, -6.25));
  double width = 0, height = 0;
  readSymbol->GetSize(width, height);
  EXPECT_EQ(width, 40.0);
  EXPECT_EQ(height, 20.0);
  EXPECT_TRUE(readSymbol->GetViewBoxAttributes() == SomeViewBox());
  ExpectChildIds(*readSymbol, {"inSymbol"});
}

TEST_F(NodeTree, GroupDefsAndSymbolDuplicateWithTheirOwnChildrenSwitchDoesNot) {
  auto* group = Make<VYRPrtGroupElt>();
  SetNonDefaultCommonAttributes(*group, "group");
  VYRPrtGroupAttributes groupAttributes;
  groupAttributes.SetLinkURI(SomeLink());
  group->SetGroupAttributes(groupAttributes);
  auto* symbol = Make<VYRPrtSymbolElt>("symbol");
  symbol->SetSize(1.0, 2.0);
  symbol->SetViewBoxAttributes(SomeViewBox());
  auto* defs = Make<VYRPrtDefsElt>("defs");
  defs->AddChild(symbol);
  group->AddChild(defs);
  group->AddChild(Make<VYRPrtSwitchElt>("switch"));  // does not duplicate: left out

  VYRPrtGraphicPrimitiveElt* pCopy = nullptr;
  group->Duplicate(pCopy);
  ASSERT_NE(pCopy, nullptr);
  ASSERT_NE(pCopy, group);
  auto* groupCopy = static_cast<VYRPrtGroupElt*>(pCopy);
  ExpectSameCommonAttributes(*group, *groupCopy);
  VYRPrintLinkURI link;
  groupCopy->GetGroupAttributes().GetLinkURI(link);
  EXPECT_TRUE(link == SomeLink());
  ExpectChildIds(*groupCopy, {"defs"});
  auto* defsCopy = static_cast<VYRPrtDefsElt*>(groupCopy->GetChild(0));
  EXPECT_NE(defsCopy, defs);
  EXPECT_EQ(defs->GetFather(), group);
  ExpectChildIds(*defsCopy, {"symbol"});
  auto* symbolCopy = static_cast<VYRPrtSymbolElt*>(defsCopy->GetChild(0));
  EXPECT_NE(symbolCopy, symbol);
  EXPECT_TRUE(symbolCopy->GetViewBoxAttributes() == SomeViewBox());
  double width = 0, height = 0;
  symbolCopy->GetSize(width, height);
  EXPECT_EQ(height, 2.0);

  VYRPrtGraphicPrimitiveElt* pSwitchCopy = group;
  group->GetChild(1)->Duplicate(pSwitchCopy);
  EXPECT_EQ(pSwitchCopy, nullptr);
}

TEST_F(NodeTree, ResetKeepsChildrenAndClearsOwnFieldsWhereTheClassHasThem) {
  auto* group = Make<VYRPrtGroupElt>();
  auto* symbol = Make<VYRPrtSymbolElt>();
  auto* defs = Make<VYRPrtDefsElt>();
  auto* sw = Make<VYRPrtSwitchElt>();
  VYRPrtGroupAttributes groupAttributes;
  groupAttributes.SetLinkURI(SomeLink());
  group->SetGroupAttributes(groupAttributes);
  symbol->SetOrigin(VYRMathPoint2D(1, 2));
  symbol->SetSize(3, 4);
  symbol->SetViewBoxAttributes(SomeViewBox());
  for (VYRPrtNodeTreeElt* node : std::vector<VYRPrtNodeTreeElt*>{group, symbol, defs, sw}) {
    SetNonDefaultCommonAttributes(*node, "node");
    node->AddChild(Make<VYRPrtMaskElt>("child"));
    node->Reset();
    ExpectDefaultCommonAttributes(*node);
    EXPECT_EQ(node->GetStreamVersion(), 3);
    ExpectChildIds(*node, {"child"});
  }
  VYRPrintLinkURI link;
  group->GetGroupAttributes().GetLinkURI(link);
  EXPECT_TRUE(link == VYRPrintLinkURI());
  EXPECT_EQ(symbol->GetOrigin(), VYRMathPoint2D());
  double width = 1, height = 1;
  symbol->GetSize(width, height);
  EXPECT_EQ(width, 0.0);
  EXPECT_TRUE(symbol->GetViewBoxAttributes() == VYRPrtViewBoxAttributes());
}

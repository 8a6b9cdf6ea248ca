#include <gtest/gtest.h>

#include <vector>

#include "AssertionCapture.h"
#include "ElementChecks.h"
#include "StreamBytes.h"
#include "VYR2DGStringStream.h"
#include "VYRPixelImage.h"
#include "VYRPrtBitmapImageElt.h"
#include "VYRPrtClosedFigureElt.h"
#include "VYRPrtClosedFigureRegionElt.h"
#include "VYRPrtColourTable.h"
#include "VYRPrtDefsElt.h"
#include "VYRPrtEltFactory.h"
#include "VYRPrtGroupElt.h"
#include "VYRPrtImageElt.h"
#include "VYRPrtModel.h"
#include "VYRPrtSwitchElt.h"
#include "VYRPrtSymbolElt.h"
#include "VYRPrtVisibilityNode.h"

namespace {

class Document : public ::testing::Test {
 protected:
  void SetUp() override { VYRPrtEltFactory::Get(); }
  void TearDown() override { VYRPrtEltFactory::Get().Release(); }
  template <class K>
  K* Make(const char* i_id = "") {
    K* pElt = VYRPrtEltFactory::Get().CreateElement<K>();
    pElt->SetID(i_id);
    return pElt;
  }

  // image "doc" > group "g" > switch "sw" > closed figure "fig" > bitmap "leaf",
  // and beside the group: defs "defs" > symbol "sym" > region "region".
  VYRPrtImageElt* MakeDocument() {
    auto* doc = Make<VYRPrtImageElt>("doc");
    auto* group = Make<VYRPrtGroupElt>("g");
    auto* sw = Make<VYRPrtSwitchElt>("sw");
    auto* figure = Make<VYRPrtClosedFigureElt>("fig");
    figure->AddChild(Make<VYRPrtBitmapImageElt>("leaf"));
    sw->AddChild(figure);
    group->AddChild(sw);
    doc->AddChild(group);
    auto* defs = Make<VYRPrtDefsElt>("defs");
    auto* symbol = Make<VYRPrtSymbolElt>("sym");
    symbol->AddChild(Make<VYRPrtClosedFigureRegionElt>("region"));
    defs->AddChild(symbol);
    doc->AddChild(defs);
    return doc;
  }
};

std::vector<uint8_t> BytesOf(VYRPrtModel& i_model) {
  VYR2DGStringStream stream;
  i_model.Stream(&stream);
  return StreamBytes(stream);
}

unsigned char VisibilityOf(VYRPrtModel& i_model, const char* i_id) {
  unsigned char visibility = 99;
  EXPECT_EQ(i_model.GetVisibility(i_id, visibility), 1) << i_id;
  return visibility;
}

}  // namespace

TEST_F(Document, ModelWithoutListStreamsMinusOneAndEmptiedModelStreamsZero) {
  VYRPrtModel model;
  VYRListPtrVYRPrtImageElt* images = reinterpret_cast<VYRListPtrVYRPrtImageElt*>(1);
  model.GetImages(images);
  EXPECT_EQ(images, nullptr);
  EXPECT_EQ(BytesOf(model), Hex("FF FF FF FF"));

  auto* image = Make<VYRPrtImageElt>();
  model.AddImage(image);
  model.RemoveImage(image);
  EXPECT_EQ(BytesOf(model), Hex("00 00 00 00"));
}

TEST_F(Document, UnstreamingMinusOneKeepsTheImagesAndZeroEmptiesThem) {
  VYRPrtModel model;
  auto* image = Make<VYRPrtImageElt>("kept");
  model.AddImage(image);

  VYR2DGStringStream minusOne = ReadingStream(Hex("FF FF FF FF"));
  model.Unstream(&minusOne);
  VYRListPtrVYRPrtImageElt* images = nullptr;
  model.GetImages(images);
  ASSERT_NE(images, nullptr);
  ASSERT_EQ(images->Size(), 1);
  EXPECT_EQ((*images)[1], image);

  VYR2DGStringStream zero = ReadingStream(Hex("00 00 00 00"));
  model.Unstream(&zero);
  model.GetImages(images);
  ASSERT_NE(images, nullptr);
  EXPECT_EQ(images->Size(), 0);
}

TEST_F(Document, UnstreamingStopsAtARecordThatIsNotAnImage) {
  VYRPrtModel source;
  source.AddImage(Make<VYRPrtImageElt>("first"));
  std::vector<uint8_t> bytes = BytesOf(source);
  bytes[0] = 2;  // claims two images; the second "record" is a group
  VYR2DGStringStream group;
  Make<VYRPrtGroupElt>("second")->Stream(&group);
  for (uint8_t b : StreamBytes(group)) bytes.push_back(b);

  VYRPrtModel model;
  VYR2DGStringStream reading = ReadingStream(bytes);
  model.Unstream(&reading);
  VYRListPtrVYRPrtImageElt* images = nullptr;
  model.GetImages(images);
  ASSERT_NE(images, nullptr);
  ASSERT_EQ(images->Size(), 1);
  EXPECT_EQ((*images)[1]->GetID(), VYRUnicodeString("first"));
  EXPECT_EQ(reading.GetReadableBytesLeft(), static_cast<long long>(StreamBytes(group).size()) - 4);
}

TEST_F(Document, ModelRoundTripsItsImagesAndSkipsNullEntries) {
  VYRPrtModel source;
  source.AddImage(MakeDocument());
  source.AddImage(Make<VYRPrtImageElt>("second"));
  VYRListPtrVYRPrtImageElt* images = nullptr;
  source.GetImages(images);
  images->Append(nullptr);  // counted, but writes nothing
  std::vector<uint8_t> bytes = BytesOf(source);
  EXPECT_EQ(std::vector<uint8_t>(bytes.begin(), bytes.begin() + 8), Hex("03 00 00 00  09 00 00 00"));

  VYRPrtModel model;
  VYR2DGStringStream reading = ReadingStream(bytes);
  model.Unstream(&reading);
  model.GetImages(images);
  ASSERT_NE(images, nullptr);
  ASSERT_EQ(images->Size(), 2);
  EXPECT_EQ((*images)[2]->GetID(), VYRUnicodeString("second"));
  EXPECT_EQ(VisibilityOf(model, "region"), 1);
}

TEST_F(Document, ImagesAreFoundThroughEveryContainerKindAndNullsAreReported) {
  VYRPrtModel model;
  AssertionCapture capture;
  model.AddImage(nullptr);
  model.RemoveImage(nullptr);
  EXPECT_EQ(capture.NullPointers(), (std::vector<std::string>{"iprImageElt", "iprImageElt"}));
  model.RemoveImage(Make<VYRPrtImageElt>());
  EXPECT_TRUE(capture.Has("_paImages"));

  model.AddImage(MakeDocument());
  for (const char* id : {"doc", "g", "sw", "fig", "leaf", "defs", "sym", "region"}) {
    unsigned char visibility = 99;
    EXPECT_EQ(model.GetVisibility(id, visibility), 1) << id;
    EXPECT_EQ(visibility, 1);
  }
  unsigned char visibility = 99;
  EXPECT_EQ(model.GetVisibility("absent", visibility), 0);
  EXPECT_EQ(visibility, 99);
  EXPECT_EQ(model.SetVisibility("absent", 0, 1), 0);
}

TEST_F(Document, HidingALeafHidesItsAncestorsAndShowingShowsThem) {
  VYRPrtModel model;
  model.AddImage(MakeDocument());
  EXPECT_EQ(model.SetVisibility("leaf", 0, 0), 0);
  for (const char* id : {"leaf", "fig", "sw", "g", "doc"}) EXPECT_EQ(VisibilityOf(model, id), 0) << id;
  for (const char* id : {"defs", "sym", "region"}) EXPECT_EQ(VisibilityOf(model, id), 1) << id;

  model.SetVisibility("defs", 0, 1);  // recursive: the symbol and region too
  for (const char* id : {"defs", "sym", "region"}) EXPECT_EQ(VisibilityOf(model, id), 0) << id;

  model.SetVisibility("sw", 1, 0);  // not recursive: the figure stays hidden
  EXPECT_EQ(VisibilityOf(model, "sw"), 1);
  EXPECT_EQ(VisibilityOf(model, "g"), 1);
  EXPECT_EQ(VisibilityOf(model, "doc"), 1);
  EXPECT_EQ(VisibilityOf(model, "fig"), 0);
}

TEST_F(Document, VisibilitySnapshotsMirrorTheTreeAndRestoreIt) {
  VYRPrtModel model;
  VYRPrtVisibilityNode* root = reinterpret_cast<VYRPrtVisibilityNode*>(1);
  EXPECT_EQ(model.GetVisibilityTree(root), 0);
  EXPECT_EQ(root, nullptr);

  VYRPrtImageElt* doc = MakeDocument();
  doc->AddChild(Make<VYRPrtGroupElt>());  // an element without identifier
  model.AddImage(doc);
  model.SetVisibility("sym", 0, 1);
  ASSERT_EQ(model.GetVisibilityTree(root), 1);
  ASSERT_NE(root, nullptr);
  EXPECT_EQ(root->GetID(), VYRUnicodeString());
  ASSERT_EQ(root->GetChildCount(), 1);
  const VYRPrtVisibilityNode* docNode = root->GetChild(1);
  EXPECT_EQ(docNode->GetID(), VYRUnicodeString("doc"));
  EXPECT_EQ(docNode->GetVisibility(), 0);
  ASSERT_EQ(docNode->GetChildCount(), 3);
  EXPECT_EQ(docNode->GetChild(2)->GetID(), VYRUnicodeString("defs"));
  EXPECT_EQ(docNode->GetChild(2)->GetChild(1)->GetChild(1)->GetID(), VYRUnicodeString("region"));
  EXPECT_EQ(docNode->GetChild(4), nullptr);

  VYRPrtVisibilityNode* groupNode = nullptr;
  ASSERT_EQ(model.GetVisibilityNode("g", groupNode), 1);
  EXPECT_EQ(groupNode->GetChild(1)->GetChild(1)->GetChild(1)->GetID(), VYRUnicodeString("leaf"));
  groupNode->Release();
  EXPECT_EQ(model.GetVisibilityNode("absent", groupNode), 0);
  EXPECT_EQ(groupNode, nullptr);

  // Change everything, including the anonymous group, then restore the snapshot.
  model.SetVisibility("leaf", 0, 0);
  model.SetVisibility("doc", 1, 1);
  doc->GetChild(2)->SetVisibility(0);
  EXPECT_EQ(model.SetVisibilityNode(root), 1);
  for (const char* id : {"doc", "sym", "region", "defs"}) EXPECT_EQ(VisibilityOf(model, id), 0) << id;
  for (const char* id : {"g", "sw", "fig", "leaf"}) EXPECT_EQ(VisibilityOf(model, id), 1) << id;
  EXPECT_EQ(doc->GetChild(2)->GetVisibility(), 1);

  // A node with an identifier applies to its element only, not its ancestors;
  // children found elsewhere below are matched by identifier.
  VYRPrtVisibilityNode* figureNode = new VYRPrtVisibilityNode("g", 1);
  figureNode->AddChild(new VYRPrtVisibilityNode("leaf", 0));
  EXPECT_EQ(model.SetVisibilityNode(figureNode), 1);
  EXPECT_EQ(VisibilityOf(model, "leaf"), 0);
  EXPECT_EQ(VisibilityOf(model, "fig"), 1);
  figureNode->Release();

  AssertionCapture capture;
  EXPECT_EQ(model.SetVisibilityNode(nullptr), 0);
  root->AddChild(nullptr);
  EXPECT_EQ(capture.NullPointers(), (std::vector<std::string>{"ipNode", "ipChild"}));
  root->Release();
}

TEST_F(Document, ModelsKeepTheFactoryAlive) {
  VYRPrtEltFactory& factory = VYRPrtEltFactory::Get();
  EXPECT_EQ(factory.GetRefCount(), 1u);
  {
    VYRPrtModel model;
    EXPECT_EQ(factory.GetRefCount(), 2u);
    VYRPrtModel copy(model);
    EXPECT_EQ(factory.GetRefCount(), 3u);
    AssertionCapture capture;
    model = model;
    EXPECT_TRUE(capture.Has("this != &iModel"));
  }
  EXPECT_EQ(factory.GetRefCount(), 1u);
}

TEST_F(Document, EveryTruncationOfAModelStreamUnstreamsSafely) {
  VYRPrtImageElt* doc = MakeDocument();
  SetNonDefaultCommonAttributes(*doc, "doc");
  doc->SetColorTable(new VYRPrtColourTable());
  unsigned int index = 0;
  doc->GetColorTable()->AddColour(1, 2, 3, index);
  auto* bitmap = Make<VYRPrtBitmapImageElt>("bitmap");
  auto* pixels = new VYRPixelImage(2, 2, VYRPixelImageFormat_RGBA32);
  bitmap->SetPixelImage(pixels);
  pixels->Release();
  doc->AddChild(bitmap);
  auto* figure = Make<VYRPrtClosedFigureElt>("filled");
  VYRPrtFillAttributes fill;
  fill.SetGradientType(MM2D::GradientLinear);
  figure->SetFillAttributes(fill);
  doc->AddChild(figure);
  VYRPrtGroupAttributes link;
  VYRPrintLinkURI uri;
  uri.SetBaseURL("u");
  link.SetLinkURI(uri);
  static_cast<VYRPrtGroupElt*>(doc->GetChild(0))->SetGroupAttributes(link);

  VYRPrtModel source;
  source.AddImage(doc);
  std::vector<uint8_t> bytes = BytesOf(source);
  AssertionCapture quiet;
  for (size_t length = 0; length < bytes.size(); ++length) {
    VYRPrtModel model;
    VYR2DGStringStream reading(reinterpret_cast<const char*>(bytes.data()), static_cast<int>(length));
    model.Unstream(&reading);
    VYRListPtrVYRPrtImageElt* images = nullptr;
    model.GetImages(images);
    if (images && images->Size() > 0) {
      VYR2DGStringStream again;
      model.Stream(&again);  // whatever was rebuilt streams again
    }
  }
  VYRPrtModel whole;
  VYR2DGStringStream reading = ReadingStream(bytes);
  whole.Unstream(&reading);
  EXPECT_EQ(BytesOf(whole), bytes);
}

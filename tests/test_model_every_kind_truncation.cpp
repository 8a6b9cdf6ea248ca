// A model whose one image holds an element of every other kind, each filled in
// every field: the whole stream reads back field for field, and every prefix
// of it reads without a crash, a leak or an out-of-bounds read (run this under
// the sanitizer build too).
#include <gtest/gtest.h>

#include "AssertionCapture.h"
#include "EveryElementKind.h"
#include "VYRPrtModel.h"

namespace {

void IgnoreReport(VYRAssertionKind, const char*, const char*, int) {}

std::vector<uint8_t> BytesOf(VYRPrtModel& i_model) {
  VYR2DGStringStream stream;
  i_model.Stream(&stream);
  return StreamBytes(stream);
}

const ElementKind& KindOf(int i_tag) {
  for (const ElementKind& kind : EveryElementKind()) {
    if (kind.tag == i_tag) return kind;
  }
  ADD_FAILURE() << "no kind for tag " << i_tag;
  return EveryElementKind().front();
}

// The image of kind 9 comes first; the other kinds follow as its children,
// after the child the filled image holds already.
VYRPrtImageElt* DocumentOfEveryKind() {
  auto* pImage = static_cast<VYRPrtImageElt*>(KindOf(kStreamTypeImageElt).makeFilled());
  for (const ElementKind& kind : EveryElementKind()) {
    if (kind.tag != kStreamTypeImageElt) pImage->AddChild(kind.makeFilled());
  }
  return pImage;
}

class EveryKindInAModel : public ::testing::Test {
 protected:
  void SetUp() override { VYRPrtEltFactory::SetBlockSize(8); }
  void TearDown() override {
    VYRPrtEltFactory::Get().Release();
    VYRPrtEltFactory::SetBlockSize(500);
  }
};

}  // namespace

TEST_F(EveryKindInAModel, WholeStreamReadsBackFieldForField) {
  VYRPrtModel source;
  VYRPrtImageElt* pDocument = DocumentOfEveryKind();
  source.AddImage(pDocument);
  std::vector<uint8_t> bytes = BytesOf(source);

  AssertionCapture capture;
  VYRPrtModel model;
  VYR2DGStringStream reader = ReadingStream(bytes);
  model.Unstream(&reader);
  EXPECT_EQ(reader.GetReadableBytesLeft(), 0);
  EXPECT_TRUE(capture.Reports().empty());
  VYRListPtrVYRPrtImageElt* pImages = nullptr;
  model.GetImages(pImages);
  ASSERT_NE(pImages, nullptr);
  ASSERT_EQ(pImages->Size(), 1);
  VYRPrtImageElt* pRead = (*pImages)[1];
  EXPECT_EQ(ListFields(KindOf(kStreamTypeImageElt), *pRead), ListFields(KindOf(kStreamTypeImageElt), *pDocument));

  const VYRSYPDynArray<VYRPrtGraphicPrimitiveElt*>& written = pDocument->GetChildArray();
  const VYRSYPDynArray<VYRPrtGraphicPrimitiveElt*>& read = pRead->GetChildArray();
  ASSERT_EQ(read.GetLength(), written.GetLength());
  EXPECT_EQ(written.GetLength(), static_cast<int>(EveryElementKind().size()));  // one child, then every other kind
  for (int i = 1; i < written.GetLength(); ++i) {
    const ElementKind& kind = KindOf(written[i]->GetStreamType());
    ASSERT_STREQ(read[i]->IsA(), written[i]->IsA());
    EXPECT_EQ(StreamedFields(kind, *read[i]), StreamedFields(kind, *written[i])) << kind.name;
    EXPECT_EQ(read[i]->GetFather(), pRead);
  }
  EXPECT_EQ(BytesOf(model), bytes);
}

TEST_F(EveryKindInAModel, EveryTruncationReadsWithoutHarm) {
  std::vector<uint8_t> bytes;
  {
    VYRPrtModel source;
    source.AddImage(DocumentOfEveryKind());
    bytes = BytesOf(source);
  }
  VYRPrtEltFactory::Get().Release();

  VYRAssertionHandler previous = VYRSetAssertionHandler(&IgnoreReport);
  for (size_t length = 0; length < bytes.size(); ++length) {
    {
      VYRPrtModel model;
      VYR2DGStringStream reader(reinterpret_cast<const char*>(bytes.data()), static_cast<int>(length));
      model.Unstream(&reader);
      VYRListPtrVYRPrtImageElt* pImages = nullptr;
      model.GetImages(pImages);
      EXPECT_LE(pImages ? pImages->Size() : 0, 1) << length;
      // Whatever was rebuilt streams again.
      VYR2DGStringStream again;
      model.Stream(&again);
    }
    // A fresh factory every few prefixes keeps the pools small.
    if (length % 64 == 63) VYRPrtEltFactory::Get().Release();
  }
  VYRSetAssertionHandler(previous);
}

#include <gtest/gtest.h>

#include <cstring>
#include <vector>

#include "AssertionCapture.h"
#include "ElementChecks.h"
#include "StreamBytes.h"
#include "VYR2DGStringStream.h"
#include "VYRPixelImage.h"
#include "VYRPrintGradient.h"
#include "VYRPrtBitmapImageElt.h"
#include "VYRPrtClosedFigureElt.h"
#include "VYRPrtClosedFigureRegionElt.h"
#include "VYRPrtColourTable.h"
#include "VYRPrtEltFactory.h"
#include "VYRPrtGroupElt.h"
#include "VYRPrtImageElt.h"
#include "VYRPrtMaskElt.h"

namespace {

// The common block of a default element after its tag.
const char* const kDefaultCommonBlock =
    "01 00 00 00  01 00 00 00"
    "  00 00 00 00  00 00 00 00  00 00 00 00"
    "  07 00 00 00 64 65 66 61 75 6C 74"
    "  00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00"
    "  00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00"
    "  00 00 00 00  00 00 00 00 00 00 F0 3F  03 00 00 00  00 00 00 00"
    "  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00"
    "  FF";

class FiguresImages : public ::testing::Test {
 protected:
  void TearDown() override { VYRPrtEltFactory::Get().Release(); }
  template <class K>
  K* Make(const char* i_id = "") {
    K* pElt = VYRPrtEltFactory::Get().CreateElement<K>();
    pElt->SetID(i_id);
    return pElt;
  }
};

std::vector<uint8_t> Concat(std::vector<uint8_t> i_first, const std::vector<uint8_t>& i_second) {
  i_first.insert(i_first.end(), i_second.begin(), i_second.end());
  return i_first;
}

VYRPrtStrokeAttributes SomeStroke() {
  VYRPrtStrokeAttributes stroke;
  stroke.SetStrokeColorIndex(3);
  stroke.SetStrokeOpacity(90);
  stroke.SetStrokeWidth(2.5);
  const float dashes[] = {1.0f, 2.0f};
  stroke.SetStrokeTypePattern(dashes, 2);
  stroke.SetStrokeCap(static_cast<VYRPrintLineAttribute>(11));
  return stroke;
}

// A fill with a pattern image and a radial gradient: parts the figure must
// copy deeply when duplicating.
VYRPrtFillAttributes SomeFill() {
  VYRPrtFillAttributes fill;
  fill.SetFillColorIndex(7);
  fill.SetFillOpacity(33);
  fill.SetFillRule(static_cast<VYRPrtFillRule>(0));
  auto* image = new VYRPixelImage(2, 2, VYRPixelImageFormat_RGBA32);
  image->GetPixelsToModify()[3] = 99;
  fill.SetPattern(image, VYRMathVector2D(1, 0), VYRMathVector2D(0, 1));
  image->Release();
  fill.SetGradientType(MM2D::GradientRadial);
  fill.GetGradient()->SetSpread(1);
  return fill;
}

VYRPixelImage* SomeImage(unsigned char i_marker) {
  auto* image = new VYRPixelImage(3, 2, VYRPixelImageFormat_RGBA32);
  image->GetPixelsToModify()[7] = i_marker;
  return image;
}

VYRPrtColourTable* SomeTable() {
  auto* table = new VYRPrtColourTable();
  unsigned int index = 0;
  table->AddColour(10, 20, 30, index);
  table->AddColour(40, 50, 60, index);
  return table;
}

void ExpectSomeTable(const VYRPrtColourTable* i_table) {
  ASSERT_NE(i_table, nullptr);
  int count = 0;
  i_table->GetColourCount(count);
  EXPECT_EQ(count, 2);
  unsigned char r = 0, g = 0, b = 0;
  i_table->GetColour(1, r, g, b);
  EXPECT_EQ(r, 40);
  EXPECT_EQ(b, 60);
}

void ExpectChildIds(const VYRPrtNodeTreeElt& i_node, const std::vector<const char*>& i_ids) {
  ASSERT_EQ(i_node.GetChildArray().GetLength(), static_cast<int>(i_ids.size()));
  for (size_t i = 0; i < i_ids.size(); ++i) {
    EXPECT_EQ(i_node.GetChild(static_cast<int>(i))->GetID(), VYRUnicodeString(i_ids[i]));
    EXPECT_EQ(i_node.GetChild(static_cast<int>(i))->GetFather(), &i_node);
  }
}

}  // namespace

TEST_F(FiguresImages, EmptyRegionStreamsExactlyTheEmptyNodeTreeRecord) {
  auto* region = Make<VYRPrtClosedFigureRegionElt>();
  EXPECT_EQ(BytesOf(*region), Concat(Concat(Hex("16 00 00 00"), Hex(kDefaultCommonBlock)), Hex("00 00 00 00")));
}

TEST_F(FiguresImages, ClosedFigureWritesDrawStyleBeforeStrokeAndFill) {
  auto* figure = Make<VYRPrtClosedFigureElt>();
  VYRPrtStrokeAttributes stroke;
  VYRPrtFillAttributes fill;
  std::vector<uint8_t> expected = Concat(Hex("15 00 00 00"), Hex(kDefaultCommonBlock));
  expected = Concat(expected, Hex("00 00 00 00  08 00 00 00"));
  expected = Concat(Concat(expected, BytesOf(stroke)), BytesOf(fill));
  EXPECT_EQ(BytesOf(*figure), expected);
}

TEST_F(FiguresImages, ClosedFigureAndRegionRoundTrip) {
  auto* region = Make<VYRPrtClosedFigureRegionElt>();
  SetNonDefaultCommonAttributes(*region, "region");
  auto* figure = Make<VYRPrtClosedFigureElt>();
  SetNonDefaultCommonAttributes(*figure, "figure");
  figure->SetDrawStyle(3);
  figure->SetStrokeAttributes(SomeStroke());
  figure->SetFillAttributes(SomeFill());
  figure->AddChild(Make<VYRPrtMaskElt>("edge"));
  region->AddChild(figure);

  auto* readRegion = RoundTrip<VYRPrtClosedFigureRegionElt>(*region);
  ASSERT_NE(readRegion, nullptr);
  ExpectChildIds(*readRegion, {"figure"});
  auto* readFigure = static_cast<VYRPrtClosedFigureElt*>(readRegion->GetChild(0));
  ASSERT_STREQ(readFigure->IsA(), VYRPrtClosedFigureElt::ClassName());
  ExpectSameCommonAttributes(*figure, *readFigure);
  int drawStyle = 0;
  readFigure->GetDrawStyle(drawStyle);
  EXPECT_EQ(drawStyle, 3);
  VYRPrtStrokeAttributes stroke, readStroke;
  VYRPrtFillAttributes fill, readFill;
  figure->GetStrokeAttributes(stroke);
  readFigure->GetStrokeAttributes(readStroke);
  figure->GetFillAttributes(fill);
  readFigure->GetFillAttributes(readFill);
  EXPECT_EQ(BytesOf(readStroke), BytesOf(stroke));
  EXPECT_EQ(BytesOf(readFill), BytesOf(fill));
  EXPECT_NE(readFill.GetGradient(), nullptr);
  ExpectChildIds(*readFigure, {"edge"});
}

TEST_F(FiguresImages, FiguresDuplicateWithoutTheirCommonAttributes) {
  auto* figure = Make<VYRPrtClosedFigureElt>();
  SetNonDefaultCommonAttributes(*figure, "figure");
  figure->SetDrawStyle(5);
  figure->SetStrokeAttributes(SomeStroke());
  figure->SetFillAttributes(SomeFill());
  auto* inner = Make<VYRPrtClosedFigureElt>("inner");
  figure->AddChild(inner);
  figure->AddChild(Make<VYRPrtMaskElt>("skipped"));  // does not duplicate

  VYRPrtGraphicPrimitiveElt* pCopy = nullptr;
  figure->Duplicate(pCopy);
  ASSERT_NE(pCopy, nullptr);
  auto* copy = static_cast<VYRPrtClosedFigureElt*>(pCopy);
  ExpectDefaultCommonAttributes(*copy);
  int drawStyle = 0;
  copy->GetDrawStyle(drawStyle);
  EXPECT_EQ(drawStyle, 5);
  VYRPrtFillAttributes fill, copyFill;
  figure->GetFillAttributes(fill);
  copy->GetFillAttributes(copyFill);
  EXPECT_EQ(BytesOf(copyFill), BytesOf(fill));
  EXPECT_NE(copyFill.GetGradient(), fill.GetGradient());
  VYRPrtStrokeAttributes stroke, copyStroke;
  figure->GetStrokeAttributes(stroke);
  copy->GetStrokeAttributes(copyStroke);
  EXPECT_TRUE(copyStroke == stroke);
  ASSERT_EQ(copy->GetChildArray().GetLength(), 1);
  EXPECT_NE(copy->GetChild(0), inner);
  EXPECT_EQ(copy->GetChild(0)->GetFather(), copy);
  EXPECT_EQ(copy->GetChild(0)->GetID(), VYRUnicodeString());  // the inner figure's id is not copied either

  auto* region = Make<VYRPrtClosedFigureRegionElt>();
  SetNonDefaultCommonAttributes(*region, "region");
  region->AddChild(figure);
  VYRPrtGraphicPrimitiveElt* pRegionCopy = nullptr;
  region->Duplicate(pRegionCopy);
  ASSERT_NE(pRegionCopy, nullptr);
  ExpectDefaultCommonAttributes(*pRegionCopy);
  ASSERT_EQ(static_cast<VYRPrtNodeTreeElt*>(pRegionCopy)->GetChildArray().GetLength(), 1);
}

TEST_F(FiguresImages, FigureResetKeepsChildrenAndRestoresDrawStyle) {
  auto* figure = Make<VYRPrtClosedFigureElt>();
  SetNonDefaultCommonAttributes(*figure, "figure");
  figure->SetDrawStyle(2);
  figure->SetFillAttributes(SomeFill());
  figure->SetStrokeAttributes(SomeStroke());
  figure->AddChild(Make<VYRPrtMaskElt>("edge"));
  figure->Reset();
  ExpectDefaultCommonAttributes(*figure);
  int drawStyle = 0;
  figure->GetDrawStyle(drawStyle);
  EXPECT_EQ(drawStyle, 8);
  VYRPrtFillAttributes fill, defaultFill;
  VYRPrtStrokeAttributes stroke, defaultStroke;
  figure->GetFillAttributes(fill);
  figure->GetStrokeAttributes(stroke);
  EXPECT_TRUE(fill == defaultFill);
  EXPECT_TRUE(stroke == defaultStroke);
  ExpectChildIds(*figure, {"edge"});

  auto* region = Make<VYRPrtClosedFigureRegionElt>();
  SetNonDefaultCommonAttributes(*region, "region");
  region->AddChild(Make<VYRPrtMaskElt>("part"));
  region->Reset();
  ExpectDefaultCommonAttributes(*region);
  ExpectChildIds(*region, {"part"});

  AssertionCapture capture;
  *figure = *figure;
  *region = *region;
  EXPECT_EQ(capture.FailedConditions(),
            (std::vector<std::string>{"this != &i_closedFigureElt", "this != &i_regionElt"}));
}

TEST_F(FiguresImages, BitmapWithoutImageEndsWithANullImage) {
  auto* bitmap = Make<VYRPrtBitmapImageElt>();
  bitmap->SetSize(1.0, 2.0);
  std::vector<uint8_t> bytes = BytesOf(*bitmap);
  // position (16 bytes), width 1.0, height 2.0, orientation 0.0, no image
  EXPECT_EQ(std::vector<uint8_t>(bytes.end() - 44, bytes.end()),
            Hex("00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  00 00 00 00 00 00 F0 3F"
                "  00 00 00 00 00 00 00 40  00 00 00 00 00 00 00 00  00 00 00 00"));
  auto* back = RoundTrip<VYRPrtBitmapImageElt>(*bitmap);
  ASSERT_NE(back, nullptr);
  EXPECT_EQ(back->GetPixelImage(), nullptr);
}

TEST_F(FiguresImages, BitmapRoundTripsEveryField) {
  VYRPixelImage* image = SomeImage(123);
  auto* bitmap = Make<VYRPrtBitmapImageElt>();
  SetNonDefaultCommonAttributes(*bitmap, "bitmap");
  bitmap->SetParameters(VYRMathPoint2D(1.5, 2.5), 30.0, 20.0, 90.0, image);
  image->Release();

  auto* back = RoundTrip<VYRPrtBitmapImageElt>(*bitmap);
  ASSERT_NE(back, nullptr);
  VYRMathPoint2D position;
  double width = 0, height = 0, orientation = 0;
  VYRPixelImage* backImage = nullptr;
  back->GetParameters(position, width, height, orientation, backImage);
  EXPECT_EQ(position, VYRMathPoint2D(1.5, 2.5));
  EXPECT_EQ(width, 30.0);
  EXPECT_EQ(height, 20.0);
  EXPECT_EQ(orientation, 90.0);
  ASSERT_NE(backImage, nullptr);
  EXPECT_EQ(backImage->GetRefCount(), 1u);
  EXPECT_EQ(backImage->GetWidth(), 3);
  EXPECT_EQ(0, std::memcmp(backImage->GetPixels(), bitmap->GetPixelImage()->GetPixels(), 24));
}

TEST_F(FiguresImages, BitmapAssignmentSharesTheImageAndDuplicateCopiesIt) {
  VYRPixelImage* image = SomeImage(5);
  auto* bitmap = Make<VYRPrtBitmapImageElt>();
  SetNonDefaultCommonAttributes(*bitmap, "bitmap");
  bitmap->SetPixelImage(image);
  EXPECT_EQ(image->GetRefCount(), 2u);
  bitmap->SetPixelImage(image);
  EXPECT_EQ(image->GetRefCount(), 2u);

  auto* other = Make<VYRPrtBitmapImageElt>();
  *other = *bitmap;
  EXPECT_EQ(other->GetPixelImage(), image);
  EXPECT_EQ(image->GetRefCount(), 3u);

  VYRPrtGraphicPrimitiveElt* pCopy = nullptr;
  bitmap->Duplicate(pCopy);
  ASSERT_NE(pCopy, nullptr);
  auto* copy = static_cast<VYRPrtBitmapImageElt*>(pCopy);
  ExpectSameCommonAttributes(*bitmap, *copy);  // bitmaps copy their common attributes
  ASSERT_NE(copy->GetPixelImage(), nullptr);
  EXPECT_NE(copy->GetPixelImage(), image);
  EXPECT_EQ(copy->GetPixelImage()->GetRefCount(), 1u);
  EXPECT_EQ(copy->GetPixelImage()->GetPixels()[7], 5);
  EXPECT_EQ(image->GetRefCount(), 3u);

  other->Reset();
  EXPECT_EQ(other->GetPixelImage(), nullptr);
  EXPECT_EQ(image->GetRefCount(), 2u);
  ExpectDefaultCommonAttributes(*other);
  image->Release();

  AssertionCapture capture;
  *bitmap = *bitmap;
  EXPECT_TRUE(capture.Has("this != &iBitmapElt"));
}

TEST_F(FiguresImages, ImageElementRoundTripsEveryFieldWithItsColourTable) {
  auto* image = Make<VYRPrtImageElt>();
  SetNonDefaultCommonAttributes(*image, "image");
  image->SetOrigin(VYRMathPoint2D(-1, 4));
  image->SetSize(640, 480);
  image->SetUnits(static_cast<VYRPrtImageUnits>(2));
  image->SetMatrix(VYRMath2x2Matrix(1, 2, 3, 4));
  image->SetColorTable(SomeTable());
  auto* bitmap = Make<VYRPrtBitmapImageElt>("bitmap");
  image->AddChild(bitmap);

  auto* back = RoundTrip<VYRPrtImageElt>(*image);
  ASSERT_NE(back, nullptr);
  EXPECT_EQ(back->GetOrigin(), VYRMathPoint2D(-1, 4));
  double width = 0, height = 0;
  back->GetSize(width, height);
  EXPECT_EQ(width, 640.0);
  EXPECT_EQ(height, 480.0);
  EXPECT_EQ(back->GetUnits(), 2);
  EXPECT_EQ(back->GetMatrix(), VYRMath2x2Matrix(1, 2, 3, 4));
  EXPECT_NE(back->GetColorTable(), image->GetColorTable());
  ExpectSomeTable(back->GetColorTable());
  ExpectChildIds(*back, {"bitmap"});
}

TEST_F(FiguresImages, ImageElementOwnsItsColourTable) {
  auto* image = Make<VYRPrtImageElt>();
  SetNonDefaultCommonAttributes(*image, "image");
  image->SetSize(10, 20);
  image->SetMatrix(VYRMath2x2Matrix(2, 0, 0, 2));
  image->SetColorTable(SomeTable());
  image->SetColorTable(image->GetColorTable());  // the same table: kept
  ExpectSomeTable(image->GetColorTable());
  image->SetColorTable(SomeTable());  // the previous one is destroyed (LeakSanitizer checks)
  image->AddChild(Make<VYRPrtBitmapImageElt>("bitmap"));

  auto* assigned = Make<VYRPrtImageElt>();
  *assigned = *image;
  EXPECT_NE(assigned->GetColorTable(), image->GetColorTable());
  ExpectSomeTable(assigned->GetColorTable());
  ExpectSameCommonAttributes(*image, *assigned);

  VYRPrtGraphicPrimitiveElt* pCopy = nullptr;
  image->Duplicate(pCopy);
  ASSERT_NE(pCopy, nullptr);
  auto* copy = static_cast<VYRPrtImageElt*>(pCopy);
  ExpectDefaultCommonAttributes(*copy);
  EXPECT_EQ(copy->GetMatrix(), VYRMath2x2Matrix(2, 0, 0, 2));
  double width = 0, height = 0;
  copy->GetSize(width, height);
  EXPECT_EQ(height, 20.0);
  EXPECT_NE(copy->GetColorTable(), image->GetColorTable());
  ExpectSomeTable(copy->GetColorTable());
  ASSERT_EQ(copy->GetChildArray().GetLength(), 1);
  EXPECT_NE(copy->GetChild(0), image->GetChild(0));

  image->Reset();
  ExpectDefaultCommonAttributes(*image);
  EXPECT_EQ(image->GetUnits(), VYRPrtImageUnitsDefault);
  EXPECT_EQ(image->GetColorTable(), nullptr);
  EXPECT_EQ(image->GetMatrix(), VYRMath2x2Matrix(2, 0, 0, 2));
  EXPECT_EQ(image->GetChildArray().GetLength(), 1);
  image->GetSize(width, height);
  EXPECT_EQ(width, 0.0);

  AssertionCapture capture;
  *image = *image;
  EXPECT_TRUE(capture.Has("this != &i_imageElt"));
}

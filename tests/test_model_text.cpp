#include <gtest/gtest.h>

#include "AssertionCapture.h"
#include "ElementRoundTrip.h"
#include "TestPrinters.h"
#include "VYRPrtTextElt.h"

namespace {

class ModelText : public ::testing::Test {
 protected:
  void TearDown() override { VYRPrtEltFactory::Get().Release(); }
};

VYRPrtTextAttributes NonDefaultTextAttributes() {
  VYRPrtTextAttributes attributes;
  attributes.SetFontFamily("DejaVu Serif");
  attributes.SetHeight(12.5);
  attributes.SetWeight(VYRPrtTextAttributes::kBoldWeight);
  attributes.SetStyle(MM2D::FontStyleItalic);
  attributes.SetAnchor(MM2D::TextAnchorMiddle);
  attributes.SetDecoration(MM2D::TextDecorationUnderline | MM2D::TextDecorationLineThrough);
  attributes.SetFontVersion(4);
  return attributes;
}

VYRPrtTextElt* MakeText() {
  auto* text = VYRPrtEltFactory::Get().CreateElement<VYRPrtTextElt>();
  SetNonDefaultShapeAttributes(*text);
  text->SetText("Grüße");
  text->AddPosition(VYRMathPoint2D(10, 20));
  text->AddPosition(VYRMathPoint2D(18, 20));
  text->SetTextAttributes(NonDefaultTextAttributes());
  return text;
}

}  // namespace

TEST_F(ModelText, RecordEndsWithStringPositionsAndAttributes) {
  VYRPrtTextElt text;
  text.SetText("ab");
  text.AddPosition(VYRMathPoint2D(1, 0));
  std::vector<uint8_t> bytes = BytesOf(text);
  std::vector<uint8_t> tail = Hex(
      "02 00 00 00 61 62"                                        // the string
      "  01 00 00 00  00 00 00 00 00 00 F0 3F  00 00 00 00 00 00 00 00"  // one position
      "  00 00 00 00  00 00 00 00 00 00 30 40"                   // no family, height 16
      "  90 01 00 00  00 00 00 00  00 00 00 00  00 00 00 00  00 00 00 00");  // 400, style, anchor, decoration, version
  ASSERT_GE(bytes.size(), tail.size());
  EXPECT_EQ(std::vector<uint8_t>(bytes.end() - tail.size(), bytes.end()), tail);
}

TEST_F(ModelText, ResetDuplicateAndPositionBounds) {
  VYRPrtTextElt* text = MakeText();
  VYRPrtGraphicPrimitiveElt* copy = nullptr;
  text->Duplicate(copy);
  ASSERT_NE(copy, nullptr);
  ASSERT_EQ(copy->IsA(), VYRPrtTextElt::ClassName());
  auto* textCopy = static_cast<VYRPrtTextElt*>(copy);
  EXPECT_EQ(BytesOf(*textCopy), BytesOf(*text));
  EXPECT_NE(textCopy->GetFillAttributes().GetGradient(), text->GetFillAttributes().GetGradient());

  text->Reset();
  ExpectDefaultShapeAttributes(*text);
  EXPECT_EQ(text->GetText(), "");
  EXPECT_EQ(text->GetPositionCount(), 0);
  EXPECT_TRUE(text->GetTextAttributes() == VYRPrtTextAttributes());

  AssertionCapture capture;
  EXPECT_EQ(text->GetPosition(0), VYRMathPoint2D());
  EXPECT_TRUE(capture.Has("(i_index>=0 && i_index<_length)"));
  VYRPrtTextElt& alias = *textCopy;
  *textCopy = alias;
  EXPECT_TRUE(capture.Has("this != &iTextElt"));
}

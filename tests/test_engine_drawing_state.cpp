#include <gtest/gtest.h>

#include "VYR2DGDummyDrawing.h"
#include "VYR2DGDummySupport.h"
#include "VYR3x3Matrix.h"
#include "VYRUnicodeString.h"

namespace {

struct Rgba {
  float r, g, b, a;
};

Rgba FillOf(const VYR2DGDrawing& i_drawing) {
  Rgba c{};
  i_drawing.GetFillColor(c.r, c.g, c.b, c.a);
  return c;
}

Rgba StrokeOf(const VYR2DGDrawing& i_drawing) {
  Rgba c{};
  i_drawing.GetStrokeColor(c.r, c.g, c.b, c.a);
  return c;
}

// The base state is exercised through a drawing that overrides only what must
// be overridden, so that the base setters run.
class StateDrawing : public VYR2DGDummyDrawing {
 public:
  void SetStrokeColor(unsigned char r, unsigned char g, unsigned char b, unsigned char a) override {
    VYR2DGDrawing::SetStrokeColor(r, g, b, a);
  }
  void SetStrokeColor(float r, float g, float b, float a) override { VYR2DGDrawing::SetStrokeColor(r, g, b, a); }
  void SetFillColor(unsigned char r, unsigned char g, unsigned char b, unsigned char a) override {
    VYR2DGDrawing::SetFillColor(r, g, b, a);
  }
  void SetFillColor(float r, float g, float b, float a) override { VYR2DGDrawing::SetFillColor(r, g, b, a); }
  void SetStrokeColorAlpha(unsigned char a) override { VYR2DGDrawing::SetStrokeColorAlpha(a); }
  void SetFillColorAlpha(float a) override { VYR2DGDrawing::SetFillColorAlpha(a); }
  void SetFont(VYRFont* f) override { VYR2DGDrawing::SetFont(f); }
};

}  // namespace

TEST(DrawingState, NewDrawingHasTheDefaults) {
  VYR2DGDummyDrawing drawing;
  EXPECT_FLOAT_EQ(drawing.GetTextHeight(), 12.0f);
  EXPECT_EQ(drawing.GetStrokeMode(), 1);
  EXPECT_EQ(drawing.GetFillMode(), 1);
  Rgba fill = FillOf(drawing), stroke = StrokeOf(drawing);
  EXPECT_EQ(fill.r + fill.g + fill.b + fill.a, 0.0f);
  EXPECT_EQ(stroke.r + stroke.g + stroke.b + stroke.a, 0.0f);
  EXPECT_EQ(drawing.GetTextStyleFlags(), 0);
  EXPECT_EQ(drawing.GetTextWeight(), 0);
  EXPECT_EQ(drawing.GetTextAlign(), 0);
  EXPECT_FALSE(drawing.BuildingClipPath());
  EXPECT_FALSE(drawing.DrawingMask());
  EXPECT_EQ(drawing.Knockout(), 0);
}

TEST(DrawingState, ByteColoursAreStoredAsFractionsAndFloatsUnclamped) {
  StateDrawing drawing;
  drawing.SetFillColor(static_cast<unsigned char>(255), 128, 0, 255);
  Rgba fill = FillOf(drawing);
  EXPECT_FLOAT_EQ(fill.r, 1.0f);
  EXPECT_FLOAT_EQ(fill.g, 128.0f / 255.0f);
  EXPECT_FLOAT_EQ(fill.b, 0.0f);
  EXPECT_FLOAT_EQ(fill.a, 1.0f);

  drawing.SetStrokeColor(2.0f, -1.0f, 0.5f, 1.0f);
  Rgba stroke = StrokeOf(drawing);
  EXPECT_FLOAT_EQ(stroke.r, 2.0f);
  EXPECT_FLOAT_EQ(stroke.g, -1.0f);
  EXPECT_FLOAT_EQ(stroke.b, 0.5f);

  drawing.SetStrokeColorAlpha(static_cast<unsigned char>(51));
  drawing.SetFillColorAlpha(0.25f);
  EXPECT_FLOAT_EQ(StrokeOf(drawing).a, 0.2f);
  EXPECT_FLOAT_EQ(StrokeOf(drawing).r, 2.0f);
  EXPECT_FLOAT_EQ(FillOf(drawing).a, 0.25f);
  EXPECT_FLOAT_EQ(FillOf(drawing).g, 128.0f / 255.0f);
}

TEST(DrawingState, TextStyleFlagsAddRemoveAndReplace) {
  VYR2DGDummyDrawing drawing;
  drawing.AddTextStyleFlags(4);
  drawing.AddTextStyleFlags(1);
  drawing.RemoveTextStyleFlags(5);
  EXPECT_EQ(drawing.GetTextStyleFlags(), 0);
  drawing.AddTextStyleFlags(4);
  drawing.RemoveTextStyleFlags(5);
  EXPECT_EQ(drawing.GetTextStyleFlags(), 0);
  drawing.SetTextStyleFlags(48);
  drawing.AddTextStyleFlags(2);
  EXPECT_EQ(drawing.GetTextStyleFlags(), 50);
}

TEST(DrawingState, ResetRestoresDefaultsAndLeavesNoFont) {
  StateDrawing drawing;
  VYRFont* someFont = reinterpret_cast<VYRFont*>(&drawing);  // never dereferenced
  drawing.SetFont(someFont);
  drawing.SetFillColor(1.0f, 1.0f, 1.0f, 1.0f);
  drawing.SetFillMode(eFillModeGradient);
  drawing.SetStrokeMode(eEdgeModeNone);
  drawing.SetTextHeight(30.0f);
  drawing.SetTextWeight(eTextWeightBold);
  drawing.SetTextAlign(eTextAlignRight);
  drawing.SetTextStyleFlags(7);
  drawing.SetBuildingClipPath(true);
  drawing.SetDrawingMask(true);
  drawing.SetKnockout(3);
  EXPECT_EQ(drawing.GetFont(), someFont);

  drawing.Reset();
  EXPECT_EQ(drawing.GetFont(), nullptr);
  EXPECT_EQ(FillOf(drawing).a, 0.0f);
  EXPECT_EQ(drawing.GetFillMode(), 1);
  EXPECT_EQ(drawing.GetStrokeMode(), 1);
  EXPECT_FLOAT_EQ(drawing.GetTextHeight(), 12.0f);
  EXPECT_EQ(drawing.GetTextWeight(), 0);
  EXPECT_EQ(drawing.GetTextAlign(), 0);
  EXPECT_EQ(drawing.GetTextStyleFlags(), 0);
  EXPECT_FALSE(drawing.BuildingClipPath());
  EXPECT_FALSE(drawing.DrawingMask());
  EXPECT_EQ(drawing.Knockout(), 0);
}

TEST(DummyDrawing, IgnoresColoursAndFontsButKeepsModesAndFlags) {
  VYR2DGDummyDrawing drawing;
  drawing.SetFillColor(1.0f, 1.0f, 1.0f, 1.0f);
  drawing.SetStrokeColor(static_cast<unsigned char>(9), 9, 9, 9);
  drawing.SetFillColorAlpha(0.5f);
  drawing.SetFont(reinterpret_cast<VYRFont*>(&drawing));
  VYRFont* fontBefore = drawing.GetFont();
  drawing.SetFillMode(eFillModePattern);
  drawing.SetStrokeMode(eEdgeModeShader);
  drawing.SetKnockout(2);
  drawing.SetTextHeight(20.0f);

  EXPECT_EQ(FillOf(drawing).a, 0.0f);
  EXPECT_EQ(StrokeOf(drawing).r, 0.0f);
  EXPECT_EQ(drawing.GetFont(), fontBefore);
  EXPECT_EQ(drawing.GetFillMode(), 2);
  EXPECT_EQ(drawing.GetStrokeMode(), 3);
  EXPECT_EQ(drawing.Knockout(), 2);
  EXPECT_FLOAT_EQ(drawing.GetTextHeight(), 20.0f);
  EXPECT_EQ(drawing.Save(3), -1);
  EXPECT_EQ(drawing.SaveLayer(), -1);
  EXPECT_EQ(drawing.GetTextAdvanceWidth(VYRUnicodeString("abc")), -1);
  EXPECT_STREQ(drawing.IsA(), "VYR2DGDummyDrawing");
  EXPECT_EQ(drawing.IsAKindOf("VYR2DGDrawing"), 1);
}

TEST(DummySupport, AnswersNothing) {
  VYR2DGDummySupport support(VYR2DGSupport::eSupportDummy, 10, 20);
  int w = -7, h = -8;
  support.GetSize(w, h);
  EXPECT_EQ(w, -7);
  EXPECT_EQ(h, -8);
  EXPECT_FALSE(support.SetSize(30, 40));
  EXPECT_EQ(support.GetDrawingContext(), nullptr);
  EXPECT_EQ(support.GetData(VYR2DGSupport::eMainBitmap), nullptr);
  EXPECT_EQ(support.GetUnmultipliedData(VYR2DGSupport::eMaskBitmap), nullptr);
  EXPECT_EQ(support.GetDataStride(VYR2DGSupport::eMainBitmap), 0u);
  support.Clear();
  EXPECT_EQ(support.GetSupportType(), VYR2DGSupport::eSupportDummy);
  support.Reset();
  EXPECT_EQ(support.GetSupportType(), VYR2DGSupport::eSupportNone);
}

TEST(DummyDrawing, MatrixQueriesAnswerIdentityAndLeaveOutputsAlone) {
  VYR2DGDummyDrawing drawing;
  drawing.SetMatrixTransform(2, 0, 1, 0, 2, 1);
  EXPECT_EQ(drawing.GetMatrixTransform(), VYR3x3Matrix());
  float a = 7, b = 7, c = 7, d = 7, e = 7, f = 7;
  drawing.GetMatrixTransform(a, b, c, d, e, f);
  EXPECT_EQ(a + b + c + d + e + f, 42.0f);
}

#pragma once

#include "VYR2DGDrawing.h"

// A drawing that keeps the shared modes, flags and text settings but paints
// nothing: a caller can run a whole drawing pass against it and read back the
// state it set. Colour and font setters are ignored.
class VYR_EXPORT VYR2DGDummyDrawing : public VYR2DGDrawing {
  VYR_DECLARE_CLASS(VYR2DGDummyDrawing)
 public:
  VYR2DGDummyDrawing() = default;

  void Flush() override {}
  void SetMatrixTransform(const VYR3x3Matrix&) override {}
  void SetMatrixTransform(float, float, float, float, float, float) override {}
  VYR3x3Matrix GetMatrixTransform() override;
  void GetMatrixTransform(float&, float&, float&, float&, float&, float&) const override {}
  void AddTransform(const VYR3x3Matrix&) override {}
  void Rotate(float) override {}
  void Scale(float, float) override {}
  void Skew(float, float) override {}
  void Translate(float, float) override {}
  void DrawStroke() override {}
  void DrawStrokePreserve() override {}
  void DrawFill() override {}
  void DrawFillPreserve() override {}
  void MoveTo(const VYRMathPoint2Df&) override {}
  void LineTo(const VYRMathPoint2Df&) override {}
  void CurveToCubic(const VYRMathPoint2Df&, const VYRMathPoint2Df&, const VYRMathPoint2Df&) override {}
  void CurveToQuad(const VYRMathPoint2Df&, const VYRMathPoint2Df&) override {}
  void ArcTo(const VYRMathPoint2Df&, float, float, float, float, float) override {}
  void ClosePath() override {}
  void AddPolylineToPath(const PointList&) override {}
  void DrawRectangle(const VYR2DGRect&) override {}
  void DrawRoundRectangle(const VYR2DGRect&, float, float) override {}
  void DrawCircle(const VYRMathPoint2Df&, float) override {}
  void DrawEllipse(const VYRMathPoint2Df&, float, float, float) override {}
  void DrawLine(const VYRMathPoint2Df&, const VYRMathPoint2Df&) override {}
  void DrawPolyline(const PointList&) override {}
  void DrawPolygon(const PointList&) override {}
  void DrawTextW(const VYRMathPoint2Df&, const VYRUnicodeString&, bool) override {}
  void DrawBitmap(const VYRMathPoint2Df&, const VYRPixelImage*) override {}
  void DrawBitmapToRect(const VYR2DGRect&, const VYRPixelImage*) override {}
  void DrawNinePatchBitmap(const VYR2DGRect&, const VYR2DGRect&, const VYRPixelImage*) override {}
  void FillWithColor(unsigned char, unsigned char, unsigned char, unsigned char) override {}
  void FillWithColor(float, float, float, float) override {}
  void FillWithColor() override {}
  void FillWithGradient(const VYRPrintGradient*) override {}
  void FillWithGradient() override {}
  void FillWithPattern(const VYRPixelImage*, VYR2DGPatternMode, const VYR3x3Matrix*) override {}
  int Save(int) override { return -1; }
  int SaveLayer() override { return -1; }
  void Restore(int) override {}
  void SetLayerAlpha(unsigned char) override {}
  void SetLayerAlpha(float) override {}
  void SetLayerBlendingMode(VYR2DGTransferMode) override {}
  void SetLayerMaskMode(VYR2DGTransferMode) override {}
  void SetLayerFilter(VYRPrtFilterContainerElt*, float) override {}
  void ApplyClip() override {}
  void SetStrokeWidth(float) override {}
  void SetStrokeColor(unsigned char, unsigned char, unsigned char, unsigned char) override {}
  void SetStrokeColor(float, float, float, float) override {}
  void SetFillColor(unsigned char, unsigned char, unsigned char, unsigned char) override {}
  void SetFillColor(float, float, float, float) override {}
  void SetStrokeColorAlpha(unsigned char) override {}
  void SetStrokeColorAlpha(float) override {}
  void SetFillColorAlpha(unsigned char) override {}
  void SetFillColorAlpha(float) override {}
  void ApplyStrokeMode(VYRPrintEdgeMode) override {}
  void ApplyFillMode(VYRPrintFillMode) override {}
  void SetCurrentClipRect(const VYR2DGRect&, VYR2DGClipOperator) override {}
  void SetCurrentClipPolygon(const PointList&, VYR2DGClipOperator) override {}
  void SetLineCap(VYRPrintLineAttribute) override {}
  void SetLineJoin(VYRPrintLineAttribute) override {}
  void SetDashStyle(int, const float*) override {}
  void SetFillRule(VYRPrintFillRule) override {}
  void SetGradient(const VYRPrintGradient*) override {}
  void SetPattern(int, int, int, int, VYR2DGPatternMode, const VYR3x3Matrix*) override {}
  void SetPattern(const VYRPixelImage*, VYR2DGPatternMode, const VYR3x3Matrix*) override {}
  void SetAntiAliasing(bool) override {}
  void SetSubpixelPositioning(bool) override {}
  void SetSubpixelRendering(bool) override {}
  void SetHinting(VYR2DGTextHinting) override {}
  void SetBlendingMode(VYR2DGTransferMode) override {}
  void SetFont(VYRFont*) override {}
  void SetFont(const VYRUnicodeString&) override {}
  int GetTextAdvanceWidth(const VYRUnicodeString&) const override { return -1; }
  void ClearBitmap() override {}
  void ClearMaskBitmap() override {}
};

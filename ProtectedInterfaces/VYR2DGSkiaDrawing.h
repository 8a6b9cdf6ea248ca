#pragma once

#include "VYR2DGDrawing.h"

class VYR2DGDrawingContext;
class VYR2DGSkiaDrawingContext;
class VYRRasterCanvas;
class VYRRasterBitmap;
class VYRRasterPaint;
class VYRRasterPath;
class VYRRasterShader;
struct VYRRasterRect;
struct VYR2DGShape;

// The drawing over a raster surface's context. The surface owns the context
// and must outlive the drawing.
//
// Bitmaps are drawn at the fill colour's alpha, with the paint's transfer
// mode: DrawBitmap one image pixel per user unit (nearest pixel),
// DrawBitmapToRect scaled into the rectangle (bilinear), DrawNinePatchBitmap
// with the corners unscaled, the edges stretched along their side and the
// centre both ways (the corners shrink together when the destination is too
// small for them).
class VYR_EXPORT VYR2DGSkiaDrawing : public VYR2DGDrawing {
  VYR_DECLARE_CLASS(VYR2DGSkiaDrawing)
 public:
  // Which base colour loads the paint.
  enum ColorType : int { eStrokeColor = 0, eFillColor = 1 };

  explicit VYR2DGSkiaDrawing(VYR2DGDrawingContext* i_pContext);
  ~VYR2DGSkiaDrawing() override = default;
  VYR2DGSkiaDrawing(const VYR2DGSkiaDrawing&) = delete;
  VYR2DGSkiaDrawing& operator=(const VYR2DGSkiaDrawing&) = delete;

  void Flush() override;
  void SetMatrixTransform(const VYR3x3Matrix& i_matrix) override;
  void SetMatrixTransform(float i_a, float i_b, float i_c, float i_d, float i_e, float i_f) override;
  VYR3x3Matrix GetMatrixTransform() override;
  void GetMatrixTransform(float& o_a, float& o_b, float& o_c, float& o_d, float& o_e, float& o_f) const override;
  void AddTransform(const VYR3x3Matrix& i_matrix) override;
  void Rotate(float i_angleDegrees) override;
  void Scale(float i_sx, float i_sy) override;
  void Skew(float i_kx, float i_ky) override;
  void Translate(float i_dx, float i_dy) override;

  void DrawStroke() override;
  void DrawStrokePreserve() override;
  void DrawFill() override;
  void DrawFillPreserve() override;

  void MoveTo(const VYRMathPoint2Df& i_point) override;
  void LineTo(const VYRMathPoint2Df& i_point) override;
  void CurveToCubic(const VYRMathPoint2Df& i_control1, const VYRMathPoint2Df& i_control2,
                    const VYRMathPoint2Df& i_end) override;
  void CurveToQuad(const VYRMathPoint2Df& i_control, const VYRMathPoint2Df& i_end) override;
  void ArcTo(const VYRMathPoint2Df& i_centre, float i_rx, float i_ry, float i_rotation, float i_startAngle,
             float i_sweepAngle) override;
  void ClosePath() override;
  void AddPolylineToPath(const PointList& i_points) override;

  void DrawRectangle(const VYR2DGRect& i_rect) override;
  void DrawRoundRectangle(const VYR2DGRect& i_rect, float i_rx, float i_ry) override;
  void DrawCircle(const VYRMathPoint2Df& i_centre, float i_radius) override;
  // Always axis-aligned in the current transform: the rotation is ignored.
  void DrawEllipse(const VYRMathPoint2Df& i_centre, float i_rx, float i_ry, float i_rotation) override;
  void DrawLine(const VYRMathPoint2Df& i_from, const VYRMathPoint2Df& i_to) override;
  void DrawPolyline(const PointList& i_points) override;
  void DrawPolygon(const PointList& i_points) override;
  void DrawTextW(const VYRMathPoint2Df& i_origin, const VYRUnicodeString& i_text, bool i_mirror) override;
  void DrawBitmap(const VYRMathPoint2Df& i_origin, const VYRPixelImage* i_pImage) override;
  void DrawBitmapToRect(const VYR2DGRect& i_rect, const VYRPixelImage* i_pImage) override;
  void DrawNinePatchBitmap(const VYR2DGRect& i_dest, const VYR2DGRect& i_centre,
                           const VYRPixelImage* i_pImage) override;

  // Source-over floods of the whole clip, whatever the blending mode.
  void FillWithColor(unsigned char i_r, unsigned char i_g, unsigned char i_b, unsigned char i_a) override;
  void FillWithColor(float i_r, float i_g, float i_b, float i_a) override;
  void FillWithColor() override;
  void FillWithGradient(const VYRPrintGradient* i_pGradient) override;
  void FillWithGradient() override;
  void FillWithPattern(const VYRPixelImage* i_pImage, VYR2DGPatternMode i_mode,
                       const VYR3x3Matrix* i_pMatrix) override;

  int Save(int i_flags) override;
  int SaveLayer() override;
  void Restore(int i_count) override;
  void SetLayerAlpha(unsigned char i_alpha) override;
  void SetLayerAlpha(float i_alpha) override;
  void SetLayerBlendingMode(VYR2DGTransferMode i_mode) override;
  void SetLayerMaskMode(VYR2DGTransferMode i_mode) override;
  // Builds the container's primitives into the next layer's filter; i_scale multiplies
  // deviations and offsets. A container that yields no filter leaves the layer paint alone.
  void SetLayerFilter(VYRPrtFilterContainerElt* i_pFilterElt, float i_scale) override;
  void ApplyClip() override;

  void SetKnockout(int i_knockout) override;

  void SetStrokeWidth(float i_width) override;
  void SetStrokeMode(VYRPrintEdgeMode i_mode) override;
  void ApplyStrokeMode(VYRPrintEdgeMode i_mode) override;
  void SetFillMode(VYRPrintFillMode i_mode) override;
  void ApplyFillMode(VYRPrintFillMode i_mode) override;
  void SetCurrentClipRect(const VYR2DGRect& i_rect, VYR2DGClipOperator i_operator) override;
  void SetCurrentClipPolygon(const PointList& i_points, VYR2DGClipOperator i_operator) override;
  void SetLineCap(VYRPrintLineAttribute i_cap) override;
  void SetLineJoin(VYRPrintLineAttribute i_join) override;
  // Dashes from count >= 2 lengths starting with a dash (phase 0); fewer
  // lengths or none give a solid line.
  void SetDashStyle(int i_count, const float* i_pLengths) override;
  void SetFillRule(VYRPrintFillRule i_rule) override;
  void SetGradient(const VYRPrintGradient* i_pGradient) override;
  void SetPattern(int i_left, int i_top, int i_right, int i_bottom, VYR2DGPatternMode i_mode,
                  const VYR3x3Matrix* i_pMatrix) override;
  void SetPattern(const VYRPixelImage* i_pImage, VYR2DGPatternMode i_mode, const VYR3x3Matrix* i_pMatrix) override;
  void SetAntiAliasing(bool i_antiAlias) override;
  void SetSubpixelPositioning(bool i_subpixel) override;
  void SetSubpixelRendering(bool i_subpixel) override;
  void SetHinting(VYR2DGTextHinting i_hinting) override;
  void SetBlendingMode(VYR2DGTransferMode i_mode) override;

  // Stores the font and forgets the typeface chosen by name.
  void SetFont(VYRFont* i_pFont) override;
  void SetFont(const VYRUnicodeString& i_name) override;
  int GetTextAdvanceWidth(const VYRUnicodeString& i_text) const override;

  void ClearBitmap() override;
  void ClearMaskBitmap() override;

  bool FillUsesShader() const { return _fillUsesShader; }
  bool StrokeUsesShader() const { return _strokeUsesShader; }

 private:
  // The mask canvas while drawing the mask, else the main canvas.
  VYRRasterCanvas* Canvas_() const;
  // The next layer's paint, reporting a missing context or paint.
  VYRRasterPaint* LayerPaint_() const;
  // The clip path while building a clip, else the drawing path.
  VYRRasterPath* Path_() const;
  // The current path, reporting "pPath" (or a missing context) when there is none.
  VYRRasterPath* CheckedPath_() const;
  // The paint, reporting a missing context or "_pSkDrawingCtx->_pPaint".
  VYRRasterPaint* CheckedPaint_() const;
  // Loads the paint with the text state: typeface in its style, size,
  // alignment, decorations, and the oblique slant.
  void PrepareTextPaint_(VYRRasterPaint& io_paint) const;
  void SetPaintColor_(ColorType i_type);
  float GetFillRed_() const { return _fillColor[eRed]; }
  float GetFillGreen_() const { return _fillColor[eGreen]; }
  float GetFillBlue_() const { return _fillColor[eBlue]; }
  float GetFillAlpha_() const { return _fillColor[eAlpha]; }
  float GetStrokeRed_() const { return _strokeColor[eRed]; }
  float GetStrokeGreen_() const { return _strokeColor[eGreen]; }
  float GetStrokeBlue_() const { return _strokeColor[eBlue]; }
  float GetStrokeAlpha_() const { return _strokeColor[eAlpha]; }

  // The common steps of every shape operation: draw it (or add it to the clip
  // path), then the knockout step.
  void DrawShape_(const VYR2DGShape& i_shape);
  // Adds an area to the knockout path and, outside layers, clips it away.
  void KnockOut_(VYRRasterCanvas& io_canvas, const VYRRasterPath& i_area);
  // The outline of the paint's stroke of i_path.
  void StrokeOutline_(const VYRRasterPath& i_path, VYRRasterPath& o_outline);

  // Gradients, patterns and bitmaps.
  // The shader slot SetGradient and SetPattern write: the stroke shader
  // while the stroke mode is 2 or 3, else the fill shader.
  VYRRasterShader*& ShaderSlot_() const;
  // Paints the whole clip with the fill shader at the fill alpha.
  void FloodWithFillShader_();
  // The common end of both SetPattern forms: a shader over the tile in the slot.
  void InstallPattern_(const VYRRasterBitmap& i_tile, VYRBaseUnknown* i_pPixelOwner, VYR2DGPatternMode i_mode,
                       const VYR3x3Matrix* i_pMatrix);
  // Draws i_source (pixels of i_pPixelOwner) stretched over i_dest in user space.
  void DrawBitmapRect_(const VYRRasterBitmap& i_source, VYRBaseUnknown* i_pPixelOwner, const VYRRasterRect& i_dest,
                       bool i_bilinear);

  VYR2DGSkiaDrawingContext* _pSkDrawingCtx;
  bool _fillUsesShader;
  bool _strokeUsesShader;
};

#pragma once

#include "VYR2DGDrawingEnums.h"
#include "VYR2DGRect.h"
#include "VYRBaseUnknown.h"
#include "VYRExport.h"
#include "VYRMathPoint2Df.h"
#include "VYRSYPDynArray.h"

class VYR3x3Matrix;
class VYRFont;
class VYRPixelImage;
class VYRPrintGradient;
class VYRPrtFilterContainerElt;
class VYRUnicodeString;

// The 2D drawing interface: an immediate-mode API over a current path, a
// current paint and a current transform. The base keeps the state every
// implementation shares (colours, paint modes, text settings, the clip-path,
// mask and knockout flags); everything that touches pixels is left to the
// implementations.
class VYR_EXPORT VYR2DGDrawing : public VYRBaseUnknown {
  VYR_DECLARE_CLASS(VYR2DGDrawing)
 public:
  using PointList = VYRSYPDynArray<VYRMathPoint2Df>;

  VYR2DGDrawing();
  ~VYR2DGDrawing() override = default;

  // Every field back to its default, except the font, which becomes null.
  virtual void Reset();
  virtual void Flush() = 0;

  // Transform
  virtual void SetMatrixTransform(const VYR3x3Matrix& i_matrix) = 0;
  // The affine map (x, y) -> (a x + b y + c, d x + e y + f).
  virtual void SetMatrixTransform(float i_a, float i_b, float i_c, float i_d, float i_e, float i_f) = 0;
  virtual VYR3x3Matrix GetMatrixTransform() = 0;
  virtual void GetMatrixTransform(float& o_a, float& o_b, float& o_c, float& o_d, float& o_e,
                                  float& o_f) const = 0;
  virtual void AddTransform(const VYR3x3Matrix& i_matrix) = 0;
  virtual void Rotate(float i_angleDegrees) = 0;
  virtual void Scale(float i_sx, float i_sy) = 0;
  virtual void Skew(float i_kx, float i_ky) = 0;
  virtual void Translate(float i_dx, float i_dy) = 0;

  // Stroke and fill of the current path
  virtual void DrawStroke() = 0;
  virtual void DrawStrokePreserve() = 0;
  virtual void DrawFill() = 0;
  virtual void DrawFillPreserve() = 0;

  // Path building
  virtual void MoveTo(const VYRMathPoint2Df& i_point) = 0;
  virtual void LineTo(const VYRMathPoint2Df& i_point) = 0;
  virtual void CurveToCubic(const VYRMathPoint2Df& i_control1, const VYRMathPoint2Df& i_control2,
                            const VYRMathPoint2Df& i_end) = 0;
  virtual void CurveToQuad(const VYRMathPoint2Df& i_control, const VYRMathPoint2Df& i_end) = 0;
  // Angles in degrees; the sweep may be negative.
  virtual void ArcTo(const VYRMathPoint2Df& i_centre, float i_rx, float i_ry, float i_rotation,
                     float i_startAngle, float i_sweepAngle) = 0;
  virtual void ClosePath() = 0;
  virtual void AddPolylineToPath(const PointList& i_points) = 0;

  // Shapes
  virtual void DrawRectangle(const VYR2DGRect& i_rect) = 0;
  virtual void DrawRoundRectangle(const VYR2DGRect& i_rect, float i_rx, float i_ry) = 0;
  virtual void DrawCircle(const VYRMathPoint2Df& i_centre, float i_radius) = 0;
  virtual void DrawEllipse(const VYRMathPoint2Df& i_centre, float i_rx, float i_ry, float i_rotation) = 0;
  virtual void DrawLine(const VYRMathPoint2Df& i_from, const VYRMathPoint2Df& i_to) = 0;
  virtual void DrawPolyline(const PointList& i_points) = 0;
  virtual void DrawPolygon(const PointList& i_points) = 0;
  virtual void DrawTextW(const VYRMathPoint2Df& i_origin, const VYRUnicodeString& i_text, bool i_mirror) = 0;
  virtual void DrawBitmap(const VYRMathPoint2Df& i_origin, const VYRPixelImage* i_pImage) = 0;
  virtual void DrawBitmapToRect(const VYR2DGRect& i_rect, const VYRPixelImage* i_pImage) = 0;
  virtual void DrawNinePatchBitmap(const VYR2DGRect& i_dest, const VYR2DGRect& i_centre,
                                   const VYRPixelImage* i_pImage) = 0;

  // Floods of the whole clip area
  virtual void FillWithColor(unsigned char i_r, unsigned char i_g, unsigned char i_b, unsigned char i_a) = 0;
  virtual void FillWithColor(float i_r, float i_g, float i_b, float i_a) = 0;
  virtual void FillWithColor() = 0;
  virtual void FillWithGradient(const VYRPrintGradient* i_pGradient) = 0;
  virtual void FillWithGradient() = 0;
  virtual void FillWithPattern(const VYRPixelImage* i_pImage, VYR2DGPatternMode i_mode,
                               const VYR3x3Matrix* i_pMatrix) = 0;

  // Save stack and layers
  virtual int Save(int i_flags) = 0;
  virtual int SaveLayer() = 0;
  virtual void Restore(int i_count) = 0;
  virtual void SetLayerAlpha(unsigned char i_alpha) = 0;
  virtual void SetLayerAlpha(float i_alpha) = 0;
  virtual void SetLayerBlendingMode(VYR2DGTransferMode i_mode) = 0;
  virtual void SetLayerMaskMode(VYR2DGTransferMode i_mode) = 0;
  virtual void SetLayerFilter(VYRPrtFilterContainerElt* i_pFilterElt, float i_scale) = 0;
  virtual void ApplyClip() = 0;

  // Shared flags
  virtual void SetBuildingClipPath(bool i_building);
  virtual bool BuildingClipPath() const;
  virtual void SetDrawingMask(bool i_drawingMask);
  virtual bool DrawingMask() const;
  virtual void SetKnockout(int i_knockout);
  virtual int Knockout() const;

  // Paint state
  virtual void SetStrokeWidth(float i_width) = 0;
  virtual void SetStrokeColor(unsigned char i_r, unsigned char i_g, unsigned char i_b, unsigned char i_a);
  virtual void SetStrokeColor(float i_r, float i_g, float i_b, float i_a);
  virtual void SetFillColor(unsigned char i_r, unsigned char i_g, unsigned char i_b, unsigned char i_a);
  virtual void SetFillColor(float i_r, float i_g, float i_b, float i_a);
  virtual void SetStrokeColorAlpha(unsigned char i_alpha);
  virtual void SetStrokeColorAlpha(float i_alpha);
  virtual void SetFillColorAlpha(unsigned char i_alpha);
  virtual void SetFillColorAlpha(float i_alpha);
  virtual void SetStrokeMode(VYRPrintEdgeMode i_mode);
  virtual void ApplyStrokeMode(VYRPrintEdgeMode i_mode) = 0;
  virtual void SetFillMode(VYRPrintFillMode i_mode);
  virtual void ApplyFillMode(VYRPrintFillMode i_mode) = 0;
  virtual void SetCurrentClipRect(const VYR2DGRect& i_rect, VYR2DGClipOperator i_operator) = 0;
  virtual void SetCurrentClipPolygon(const PointList& i_points, VYR2DGClipOperator i_operator) = 0;
  virtual void SetLineCap(VYRPrintLineAttribute i_cap) = 0;
  virtual void SetLineJoin(VYRPrintLineAttribute i_join) = 0;
  virtual void SetDashStyle(int i_count, const float* i_pLengths) = 0;
  virtual void SetFillRule(VYRPrintFillRule i_rule) = 0;
  virtual void SetGradient(const VYRPrintGradient* i_pGradient) = 0;
  virtual void SetPattern(int i_left, int i_top, int i_right, int i_bottom, VYR2DGPatternMode i_mode,
                          const VYR3x3Matrix* i_pMatrix) = 0;
  virtual void SetPattern(const VYRPixelImage* i_pImage, VYR2DGPatternMode i_mode,
                          const VYR3x3Matrix* i_pMatrix) = 0;
  virtual void SetAntiAliasing(bool i_antiAlias) = 0;
  virtual void SetSubpixelPositioning(bool i_subpixel) = 0;
  virtual void SetSubpixelRendering(bool i_subpixel) = 0;
  virtual void SetHinting(VYR2DGTextHinting i_hinting) = 0;
  virtual void SetBlendingMode(VYR2DGTransferMode i_mode) = 0;

  // Text state
  virtual void SetFont(VYRFont* i_pFont);
  virtual void SetFont(const VYRUnicodeString& i_name) = 0;
  virtual int GetTextAdvanceWidth(const VYRUnicodeString& i_text) const = 0;
  virtual void SetTextHeight(float i_height);
  virtual void SetTextWeight(VYR2DGTextWeight i_weight);
  virtual void SetTextStyleFlags(int i_flags);
  virtual void AddTextStyleFlags(int i_flags);
  virtual void RemoveTextStyleFlags(int i_flags);
  virtual void SetTextAlign(VYR2DGTextAlign i_align);

  // Images
  virtual void ClearBitmap() = 0;
  virtual void ClearMaskBitmap() = 0;

  // Read-back of the shared state (not part of the virtual interface).
  void GetStrokeColor(float& o_r, float& o_g, float& o_b, float& o_a) const;
  void GetFillColor(float& o_r, float& o_g, float& o_b, float& o_a) const;
  VYRPrintEdgeMode GetStrokeMode() const { return _strokeMode; }
  VYRPrintFillMode GetFillMode() const { return _fillMode; }
  VYRFont* GetFont() const { return _pFont; }
  float GetTextHeight() const { return _textHeight; }
  VYR2DGTextWeight GetTextWeight() const { return _textWeight; }
  int GetTextStyleFlags() const { return _textStyleFlags; }
  VYR2DGTextAlign GetTextAlign() const { return _textAlign; }

 protected:
  // Channels in the order red, green, blue, alpha.
  enum { eRed = 0, eGreen = 1, eBlue = 2, eAlpha = 3 };

  float _strokeColor[4];
  float _fillColor[4];
  VYRPrintEdgeMode _strokeMode;
  VYRPrintFillMode _fillMode;
  VYRFont* _pFont;
  float _textHeight;
  VYR2DGTextWeight _textWeight;
  int _textStyleFlags;
  VYR2DGTextAlign _textAlign;
  bool _buildingClipPath;
  bool _drawingMask;
  int _knockout;

 private:
  void SetSharedDefaults_();
};

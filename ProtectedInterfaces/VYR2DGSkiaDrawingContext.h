#pragma once

#include "VYR2DGDrawingContext.h"

class VYRRasterBitmap;
class VYRRasterCanvas;
class VYRRasterDevice;
class VYRRasterPaint;
class VYRRasterPath;
class VYRRasterPathEffect;
class VYRRasterShader;
class VYRRasterTypeface;

// The raster objects a surface hands its drawing. Every member is owned here;
// devices, canvases, shaders, the dash effect and the typeface are
// reference-counted and held with one reference each.
class VYR_EXPORT VYR2DGSkiaDrawingContext : public VYR2DGDrawingContext {
  VYR_DECLARE_CLASS(VYR2DGSkiaDrawingContext)
 public:
  VYR2DGSkiaDrawingContext();
  ~VYR2DGSkiaDrawingContext() override;
  VYR2DGSkiaDrawingContext(const VYR2DGSkiaDrawingContext&) = delete;
  VYR2DGSkiaDrawingContext& operator=(const VYR2DGSkiaDrawingContext&) = delete;

  // Default paint and empty paths, then both images emptied and the canvases dropped:
  // the surface must be sized again before it is drawn on.
  void Reset() override;
  // Default paint and empty paths, then both images cleared to transparent.
  void Clear() override;

  // The paint a new context starts with: anti-aliased, UTF-8 text, and the
  // source transfer mode, so that shapes replace what lies under them until a
  // drawing chooses a blending mode.
  static void PrepareDefaultPaint(VYRRasterPaint& io_paint);

  VYRRasterBitmap* _pBitmap = nullptr;             // over the main pixel buffer
  VYRRasterDevice* _pDevice = nullptr;             // over _pBitmap
  VYRRasterCanvas* _pCanvas = nullptr;             // over _pDevice
  VYRRasterPath* _pPath = nullptr;                 // the path being built for drawing
  VYRRasterPath* _pClipPath = nullptr;             // the path being built as a clip
  VYRRasterPath* _pKnockoutClipPath = nullptr;     // what knockout has painted so far
  VYRRasterPaint* _pPaint = nullptr;               // shapes, text and bitmaps
  VYRRasterPaint* _pLayerPaint = nullptr;          // the next layer's alpha, mode and filter
  VYRRasterShader* _pStrokeShader = nullptr;       // gradient or pattern of strokes
  VYRRasterShader* _pFillShader = nullptr;         // gradient or pattern of fills
  VYRRasterPathEffect* _pDashEffect = nullptr;     // dashes of strokes
  VYRRasterTypeface* _pTypeface = nullptr;         // typeface chosen by font name
  VYRRasterBitmap* _pMaskBitmap = nullptr;         // over the mask pixel buffer
  VYRRasterDevice* _pMaskDevice = nullptr;         // over _pMaskBitmap
  VYRRasterCanvas* _pMaskCanvas = nullptr;         // over _pMaskDevice

  // Drops the canvases and devices (canvases first).
  void DropCanvases();

 private:
  // Paint and paths back to their defaults; false when one of them is missing.
  bool ResetDrawingState_();
};

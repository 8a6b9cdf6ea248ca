#include "VYR2DGSkiaDrawingContext.h"

#include <new>

#include "VYRAssert.h"
#include "VYRRasterBitmap.h"
#include "VYRRasterCanvas.h"
#include "VYRRasterDevice.h"
#include "VYRRasterPaint.h"
#include "VYRRasterPath.h"
#include "VYRRasterPathEffect.h"
#include "VYRRasterShader.h"
#include "VYRRasterTypeface.h"

VYR_IMPLEMENT_CLASS(VYR2DGSkiaDrawingContext, VYR2DGDrawingContext, "VYRMMedia2DRendering_Engine")

namespace {

template <class T>
void Drop(T*& io_pObject) {
  if (io_pObject != nullptr) io_pObject->Release();
  io_pObject = nullptr;
}

template <class T>
void Delete(T*& io_pObject) {
  delete io_pObject;
  io_pObject = nullptr;
}

}  // namespace

VYR2DGSkiaDrawingContext::VYR2DGSkiaDrawingContext() {
  _pBitmap = new (std::nothrow) VYRRasterBitmap();
  _pMaskBitmap = new (std::nothrow) VYRRasterBitmap();
  _pPath = new (std::nothrow) VYRRasterPath();
  _pClipPath = new (std::nothrow) VYRRasterPath();
  _pKnockoutClipPath = new (std::nothrow) VYRRasterPath();
  _pPaint = new (std::nothrow) VYRRasterPaint();
  if (!VYR_CHECK_POINTER(_pPaint)) return;
  PrepareDefaultPaint(*_pPaint);
  _pLayerPaint = new (std::nothrow) VYRRasterPaint();
}

VYR2DGSkiaDrawingContext::~VYR2DGSkiaDrawingContext() {
  DropCanvases();
  Drop(_pStrokeShader);
  Drop(_pFillShader);
  Drop(_pDashEffect);
  Drop(_pTypeface);
  Delete(_pBitmap);
  Delete(_pMaskBitmap);
  Delete(_pPaint);
  Delete(_pLayerPaint);
  Delete(_pPath);
  Delete(_pClipPath);
  Delete(_pKnockoutClipPath);
}

void VYR2DGSkiaDrawingContext::PrepareDefaultPaint(VYRRasterPaint& io_paint) {
  io_paint.setAntiAlias(true);
  io_paint.setTextEncoding(VYRRasterPaint::kUTF8_TextEncoding);
  io_paint.setXfermodeMode(kSrc_VYRBlendMode);
}

void VYR2DGSkiaDrawingContext::DropCanvases() {
  Drop(_pCanvas);
  Drop(_pMaskCanvas);
  Drop(_pDevice);
  Drop(_pMaskDevice);
}

bool VYR2DGSkiaDrawingContext::ResetDrawingState_() {
  if (!VYR_CHECK_POINTER(_pPaint) || !VYR_CHECK_POINTER(_pLayerPaint) || !VYR_CHECK_POINTER(_pPath) ||
      !VYR_CHECK_POINTER(_pClipPath) || !VYR_CHECK_POINTER(_pKnockoutClipPath)) {
    return false;
  }
  _pPath->reset();
  _pClipPath->reset();
  _pKnockoutClipPath->reset();
  _pPaint->reset();
  PrepareDefaultPaint(*_pPaint);
  _pLayerPaint->reset();
  Drop(_pFillShader);
  Drop(_pStrokeShader);
  Drop(_pDashEffect);
  Drop(_pTypeface);
  return true;
}

void VYR2DGSkiaDrawingContext::Reset() {
  if (!ResetDrawingState_()) return;
  if (!VYR_CHECK_POINTER(_pBitmap) || !VYR_CHECK_POINTER(_pMaskBitmap)) return;
  _pBitmap->reset();
  _pMaskBitmap->reset();
  DropCanvases();
}

void VYR2DGSkiaDrawingContext::Clear() {
  ResetDrawingState_();
  if (!VYR_CHECK_POINTER(_pCanvas) || !VYR_CHECK_POINTER(_pMaskCanvas)) return;
  _pCanvas->clear(0);
  _pMaskCanvas->clear(0);
}

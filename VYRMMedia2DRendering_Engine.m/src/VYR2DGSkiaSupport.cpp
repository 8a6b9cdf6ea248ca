#include "VYR2DGSkiaSupport.h"

#include <atomic>
#include <climits>
#include <cstdint>
#include <cstring>
#include <new>

#include "VYR2DGSkiaDrawingContext.h"
#include "VYR2DGUnpremultiply.h"
#include "VYRAssert.h"
#include "VYRRasterBitmap.h"
#include "VYRRasterCanvas.h"
#include "VYRRasterDevice.h"

VYR_IMPLEMENT_ABSTRACT_CLASS(VYR2DGSkiaSupport, VYR2DGSupport, "VYRMMedia2DRendering_Engine")

namespace {

std::atomic<long long> g_maximumImageBytes{VYR2DGSkiaSupport::kDefaultMaximumImageBytes};

const VYRRasterBitmap* ChosenBitmap(const VYR2DGSkiaDrawingContext* i_pContext, VYR2DGSupport::eBitmapType i_type) {
  if (i_type == VYR2DGSupport::eMainBitmap) return i_pContext->_pBitmap;
  if (i_type == VYR2DGSupport::eMaskBitmap) return i_pContext->_pMaskBitmap;
  return nullptr;
}

// A zeroed buffer of i_bytes bytes, or null.
unsigned char* NewZeroedBuffer(int i_bytes) {
  auto* pBuffer = new (std::nothrow) unsigned char[static_cast<size_t>(i_bytes)];
  if (pBuffer != nullptr) std::memset(pBuffer, 0, static_cast<size_t>(i_bytes));
  return pBuffer;
}

}  // namespace

VYR2DGSkiaSupport::VYR2DGSkiaSupport(int i_width, int i_height, eSupportType i_type)
    : VYR2DGSupport(i_width, i_height, i_type) {
  _pSkDrawingCtx = new (std::nothrow) VYR2DGSkiaDrawingContext();
  VYR_CHECK_CONDITION(InitCanvas_());
}

VYR2DGSkiaSupport::VYR2DGSkiaSupport(eSupportType i_type, int i_width, int i_height)
    : VYR2DGSkiaSupport(i_width, i_height, i_type) {}

VYR2DGSkiaSupport::~VYR2DGSkiaSupport() {
  if (_pSkDrawingCtx != nullptr) _pSkDrawingCtx->Release();
  _pSkDrawingCtx = nullptr;
  FreeBuffers_();
}

void VYR2DGSkiaSupport::SetMaximumImageBytes(long long i_bytes) { g_maximumImageBytes = i_bytes < 0 ? 0 : i_bytes; }

long long VYR2DGSkiaSupport::GetMaximumImageBytes() { return g_maximumImageBytes; }

void VYR2DGSkiaSupport::FreeBuffers_() {
  delete[] _pMainBuf;
  delete[] _pMaskBuf;
  _pMainBuf = nullptr;
  _pMaskBuf = nullptr;
}

bool VYR2DGSkiaSupport::InitCanvas_() {
  if (!VYR_CHECK_POINTER(_pSkDrawingCtx) || !VYR_CHECK_POINTER(_pSkDrawingCtx->_pBitmap) ||
      !VYR_CHECK_POINTER(_pSkDrawingCtx->_pMaskBitmap)) {
    return false;
  }
  const bool sized = UpdateBitmaps_();
  _pSkDrawingCtx->DropCanvases();
  // A refused size leaves no canvas, so that every later drawing call reports.
  if (!sized) return false;
  _pSkDrawingCtx->_pDevice = new VYRRasterDevice(*_pSkDrawingCtx->_pBitmap);
  _pSkDrawingCtx->_pMaskDevice = new VYRRasterDevice(*_pSkDrawingCtx->_pMaskBitmap);
  _pSkDrawingCtx->_pCanvas = new VYRRasterCanvas(_pSkDrawingCtx->_pDevice);
  _pSkDrawingCtx->_pMaskCanvas = new VYRRasterCanvas(_pSkDrawingCtx->_pMaskDevice);
  return true;
}

bool VYR2DGSkiaSupport::UpdateBitmaps_() {
  if (!VYR_CHECK_POINTER(_pSkDrawingCtx) || !VYR_CHECK_POINTER(_pSkDrawingCtx->_pBitmap) ||
      !VYR_CHECK_POINTER(_pSkDrawingCtx->_pMaskBitmap)) {
    return false;
  }
  VYRRasterBitmap& bitmap = *_pSkDrawingCtx->_pBitmap;
  VYRRasterBitmap& maskBitmap = *_pSkDrawingCtx->_pMaskBitmap;
  bitmap.setPixels(nullptr, nullptr);
  maskBitmap.setPixels(nullptr, nullptr);
  FreeBuffers_();
  bitmap.reset();
  maskBitmap.reset();

  // The byte count is an int: work it out wide so that a huge or negative
  // size cannot wrap into a small buffer.
  if (!VYR_CHECK_CONDITION(_width >= 0 && _height >= 0)) return false;
  const long long imageBytes = static_cast<long long>(_width) * _height * 4;
  if (!VYR_CHECK_CONDITION(imageBytes <= INT_MAX && imageBytes <= GetMaximumImageBytes())) return false;
  const int size = static_cast<int>(imageBytes);

  _pMainBuf = NewZeroedBuffer(size);
  if (!VYR_CHECK_POINTER(_pMainBuf)) return false;
  bitmap.setConfig(VYRRasterBitmap::kARGB_8888_Config, _width, _height, 0);
  bitmap.setPixels(_pMainBuf, nullptr);

  _pMaskBuf = NewZeroedBuffer(size);
  if (!VYR_CHECK_POINTER(_pMaskBuf)) return false;
  maskBitmap.setConfig(VYRRasterBitmap::kARGB_8888_Config, _width, _height, 0);
  maskBitmap.setPixels(_pMaskBuf, nullptr);
  return true;
}

VYR2DGDrawingContext* VYR2DGSkiaSupport::GetDrawingContext() const { return _pSkDrawingCtx; }

void VYR2DGSkiaSupport::GetSize(int& o_width, int& o_height) {
  if (!VYR_CHECK_POINTER(_pSkDrawingCtx) || !VYR_CHECK_POINTER(_pSkDrawingCtx->_pBitmap)) return;
  o_width = _pSkDrawingCtx->_pBitmap->width();
  o_height = _pSkDrawingCtx->_pBitmap->height();
}

bool VYR2DGSkiaSupport::SetSize(int i_width, int i_height) {
  if (i_width == _width && i_height == _height) return false;
  _width = i_width;
  _height = i_height;
  InitCanvas_();
  return true;
}

void VYR2DGSkiaSupport::Clear() {
  if (!VYR_CHECK_POINTER(_pSkDrawingCtx)) return;
  _pSkDrawingCtx->Clear();
}

void VYR2DGSkiaSupport::Reset() {
  VYR2DGSupport::Reset();
  if (!VYR_CHECK_POINTER(_pSkDrawingCtx)) return;
  _pSkDrawingCtx->Reset();
  FreeBuffers_();
}

unsigned char* VYR2DGSkiaSupport::GetData(eBitmapType i_type) const {
  const VYR2DGSkiaDrawingContext* i_pContext = _pSkDrawingCtx;
  if (!VYR_CHECK_POINTER(i_pContext)) return nullptr;
  const VYRRasterBitmap* pBitmap = ChosenBitmap(i_pContext, i_type);
  if (!VYR_CHECK_POINTER(pBitmap)) return nullptr;
  if (!VYR_CHECK_CONDITION(!pBitmap->empty())) return nullptr;
  if (!VYR_CHECK_CONDITION(!pBitmap->isNull())) return nullptr;
  return static_cast<unsigned char*>(pBitmap->getPixels());
}

unsigned int VYR2DGSkiaSupport::GetDataStride(eBitmapType i_type) const {
  const VYR2DGSkiaDrawingContext* i_pContext = _pSkDrawingCtx;
  if (!VYR_CHECK_POINTER(i_pContext)) return 0;
  const VYRRasterBitmap* pBitmapRef = ChosenBitmap(i_pContext, i_type);
  if (!VYR_CHECK_POINTER(pBitmapRef)) return 0;
  return static_cast<unsigned int>(pBitmapRef->rowBytes());
}

unsigned char* VYR2DGSkiaSupport::GetUnmultipliedData(eBitmapType i_type) {
  const unsigned char* pPixels = GetData(i_type);
  if (!VYR_CHECK_POINTER(pPixels)) return nullptr;
  // A surface with pixels has passed the size checks, so this product fits.
  const size_t pixelCount = static_cast<size_t>(_width) * static_cast<size_t>(_height);
  auto* pUMPixelData = new (std::nothrow) unsigned char[pixelCount * 4];
  if (!VYR_CHECK_POINTER(pUMPixelData)) return nullptr;
  // Rows are read as packed whatever the stride says: this surface allocates them packed.
  (void)GetDataStride(i_type);
  VYR2DGUnpremultiplyRow(pPixels, pixelCount, pUMPixelData);
  return pUMPixelData;
}

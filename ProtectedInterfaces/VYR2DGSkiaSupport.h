#pragma once

#include "VYR2DGSupport.h"

class VYR2DGSkiaDrawingContext;

// A raster surface: two same-sized premultiplied 32-bit images (main and
// mask, bytes B, G, R, A in memory, rows packed) and the drawing context that
// paints into them.
class VYR_EXPORT VYR2DGSkiaSupport : public VYR2DGSupport {
  VYR_DECLARE_CLASS(VYR2DGSkiaSupport)
 public:
  // The default limit on the bytes of one image: 256 MiB.
  static constexpr long long kDefaultMaximumImageBytes = 256LL * 1024 * 1024;

  VYR2DGSkiaSupport(int i_width, int i_height, eSupportType i_type = eSupportRaster);
  VYR2DGSkiaSupport(eSupportType i_type, int i_width, int i_height);
  ~VYR2DGSkiaSupport() override;
  VYR2DGSkiaSupport(const VYR2DGSkiaSupport&) = delete;
  VYR2DGSkiaSupport& operator=(const VYR2DGSkiaSupport&) = delete;

  void Reset() override;
  void Clear() override;
  void GetSize(int& o_width, int& o_height) override;
  // False, changing nothing, when the size is the current one. A new size
  // restarts both images transparent with fresh canvases, keeping the paint.
  bool SetSize(int i_width, int i_height) override;
  VYR2DGDrawingContext* GetDrawingContext() const override;
  unsigned char* GetData(eBitmapType i_type) const override;
  unsigned char* GetUnmultipliedData(eBitmapType i_type) override;
  unsigned int GetDataStride(eBitmapType i_type) const override;

  // Images larger than this many bytes (or whose byte count does not fit in
  // 31 bits) are refused: the surface stays empty and drawing on it reports.
  // Values below 0 count as 0. Applies to surfaces sized afterwards.
  static void SetMaximumImageBytes(long long i_bytes);
  static long long GetMaximumImageBytes();

 private:
  bool InitCanvas_();
  // Sizes both images; false when the size is refused or memory runs out.
  bool UpdateBitmaps_();
  void FreeBuffers_();

  VYR2DGSkiaDrawingContext* _pSkDrawingCtx = nullptr;
  unsigned char* _pMainBuf = nullptr;
  unsigned char* _pMaskBuf = nullptr;
};

#pragma once

#include "VYRBaseUnknown.h"
#include "VYRExport.h"

class VYR2DGDrawingContext;

// A drawing surface: the pixel target a drawing paints into. It keeps its kind
// and size; the concrete surfaces hold the images and the drawing context.
class VYR_EXPORT VYR2DGSupport : public VYRBaseUnknown {
  VYR_DECLARE_CLASS(VYR2DGSupport)
 public:
  // Kinds of surface; recorded for the caller, not interpreted by the library.
  enum eSupportType : int { eSupportNone = 0, eSupportRaster = 1, eSupportDummy = 2 };
  // The two images of a surface.
  enum eBitmapType : int { eMainBitmap = 0, eMaskBitmap = 1 };

  VYR2DGSupport(int i_width, int i_height, eSupportType i_type);
  VYR2DGSupport(eSupportType i_type, int i_width, int i_height);
  ~VYR2DGSupport() override = default;

  virtual void Reset();
  virtual void Clear() = 0;
  virtual void GetSize(int& o_width, int& o_height) = 0;
  virtual bool SetSize(int i_width, int i_height) = 0;
  virtual VYR2DGDrawingContext* GetDrawingContext() const = 0;
  // Premultiplied pixels in the surface's own layout; owned by the surface.
  virtual unsigned char* GetData(eBitmapType i_type) const = 0;
  // A fresh straight-alpha copy in R, G, B, A order; the caller frees it with delete[].
  virtual unsigned char* GetUnmultipliedData(eBitmapType i_type) = 0;
  virtual unsigned int GetDataStride(eBitmapType i_type) const = 0;

  eSupportType GetSupportType() const { return _supportType; }

 protected:
  eSupportType _supportType;
  int _width;
  int _height;
};

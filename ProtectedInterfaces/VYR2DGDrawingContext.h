#pragma once

#include "VYRBaseUnknown.h"
#include "VYRExport.h"

// What a surface hands its drawing: the objects the drawing paints with.
class VYR_EXPORT VYR2DGDrawingContext : public VYRBaseUnknown {
  VYR_DECLARE_CLASS(VYR2DGDrawingContext)
 public:
  // Back to the default paint and empty paths, and the images released.
  virtual void Reset() = 0;
  // Back to the default paint and empty paths, and both images transparent.
  virtual void Clear() = 0;
};

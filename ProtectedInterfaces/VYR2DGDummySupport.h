#pragma once

#include "VYR2DGSupport.h"

// A surface that holds nothing and answers every request with nothing.
class VYR_EXPORT VYR2DGDummySupport : public VYR2DGSupport {
  VYR_DECLARE_CLASS(VYR2DGDummySupport)
 public:
  VYR2DGDummySupport();
  VYR2DGDummySupport(int i_width, int i_height, eSupportType i_type);
  VYR2DGDummySupport(eSupportType i_type, int i_width, int i_height);

  void Clear() override {}
  void GetSize(int&, int&) override {}
  bool SetSize(int, int) override { return false; }
  VYR2DGDrawingContext* GetDrawingContext() const override { return nullptr; }
  unsigned char* GetData(eBitmapType) const override { return nullptr; }
  unsigned char* GetUnmultipliedData(eBitmapType) override { return nullptr; }
  unsigned int GetDataStride(eBitmapType) const override { return 0; }
};

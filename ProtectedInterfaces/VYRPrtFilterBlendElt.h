#pragma once

#include "VYR2DGDrawingEnums.h"
#include "VYRExport.h"
#include "VYRPrtFilterBaseElt.h"

// An SVG feBlend: its input (in) composited over the second input (in2)
// with a transfer mode: normal is source-over, and multiply, screen, darken
// and lighten are their drawing modes.
class VYR_EXPORT VYRPrtFilterBlendElt : public VYRPrtFilterBaseElt {
  VYR_DECLARE_CLASS(VYRPrtFilterBlendElt)

 public:
  VYRPrtFilterBlendElt() = default;
  VYRPrtFilterBlendElt(const VYRPrtFilterBlendElt& iGPElt) = default;
  VYRPrtFilterBlendElt& operator=(const VYRPrtFilterBlendElt& iGPElt);
  using VYRPrtFilterBaseElt::operator=;
  ~VYRPrtFilterBlendElt() override = default;

  void SetMode(VYR2DGTransferMode i_mode) { _mode = i_mode; }
  VYR2DGTransferMode GetMode() const { return _mode; }
  void SetInput2(const VYRUnicodeString& i_input) { _input2 = i_input; }
  const VYRUnicodeString& GetInput2() const { return _input2; }

  // Common attributes and own fields to their defaults; the children stay.
  void Reset() override;
  StreamType GetStreamType() override;
  // The filter primitive record, the mode (int) and the second input's name.
  void Stream(VYRI2DGStream* ipStream) override;
  void Unstream(VYRI2DGStream* ipStream) override;

 private:
  VYR2DGTransferMode _mode = eTransferSourceOver;
  VYRUnicodeString _input2;
};

#pragma once

#include <vector>

#include "VYRRasterBlendMode.h"
#include "VYRRasterImageFilter.h"

// Its inputs composited in order, the first at the bottom: each one with its own transfer
// mode over what the earlier ones left (the first over transparent pixels). The output
// covers the union of the inputs.
class VYR_EXPORT VYRRasterMergeImageFilter : public VYRRasterImageFilter {
  VYR_DECLARE_CLASS(VYRRasterMergeImageFilter)
 public:
  // Every input with source-over.
  explicit VYRRasterMergeImageFilter(const std::vector<VYRRasterImageFilter*>& i_inputs);
  // One mode per input (missing modes are source-over).
  VYRRasterMergeImageFilter(const std::vector<VYRRasterImageFilter*>& i_inputs,
                            const std::vector<VYRRasterBlendMode>& i_modes);
  // Two inputs: the background laid down as it is, then the foreground through i_mode.
  VYRRasterMergeImageFilter(VYRRasterImageFilter* ipBackground, VYRRasterImageFilter* ipForeground,
                            VYRRasterBlendMode i_mode);

  VYRRasterBlendMode getMode(int i_index) const;

 protected:
  VYRRasterImage onFilterImage(Context& io_context) const override;

 private:
  std::vector<VYRRasterBlendMode> _modes;
};

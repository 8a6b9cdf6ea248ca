#include "VYRRasterMergeImageFilter.h"

VYR_IMPLEMENT_ABSTRACT_CLASS(VYRRasterMergeImageFilter, VYRRasterImageFilter, "Engine")

VYRRasterMergeImageFilter::VYRRasterMergeImageFilter(const std::vector<VYRRasterImageFilter*>& i_inputs)
    : VYRRasterMergeImageFilter(i_inputs, {}) {}

VYRRasterMergeImageFilter::VYRRasterMergeImageFilter(const std::vector<VYRRasterImageFilter*>& i_inputs,
                                                     const std::vector<VYRRasterBlendMode>& i_modes)
    : VYRRasterImageFilter(i_inputs), _modes(i_modes) {
  _modes.resize(i_inputs.size(), kSrcOver_VYRBlendMode);
}

VYRRasterMergeImageFilter::VYRRasterMergeImageFilter(VYRRasterImageFilter* ipBackground,
                                                     VYRRasterImageFilter* ipForeground, VYRRasterBlendMode i_mode)
    : VYRRasterMergeImageFilter({ipBackground, ipForeground}, {kSrcOver_VYRBlendMode, i_mode}) {}

VYRRasterBlendMode VYRRasterMergeImageFilter::getMode(int i_index) const {
  return i_index >= 0 && i_index < static_cast<int>(_modes.size()) ? _modes[i_index] : kSrcOver_VYRBlendMode;
}

VYRRasterImage VYRRasterMergeImageFilter::onFilterImage(Context& io_context) const {
  std::vector<Result> inputs;
  VYRRasterIRect bounds;
  for (int i = 0; i < countInputs(); ++i) {
    inputs.push_back(input(i, io_context));
    bounds.join(inputs.back()->bounds);
  }
  VYRRasterImage out;
  if (!bounds.intersect(io_context.clip)) return out;
  out.allocate(bounds);
  std::vector<uint32_t> src(static_cast<size_t>(bounds.width()));
  for (size_t i = 0; i < inputs.size(); ++i) {
    // Rows outside an input still go through its mode: modes such as source-in clear them.
    for (int y = bounds.top; y < bounds.bottom; ++y) {
      inputs[i]->readRow(bounds.left, y, bounds.width(), src.data());
      VYRRasterBlender::BlendRow(_modes[i], out.row(y), src.data(), nullptr, bounds.width());
    }
  }
  return out;
}

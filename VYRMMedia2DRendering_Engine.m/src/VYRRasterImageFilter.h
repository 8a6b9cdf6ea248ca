#pragma once

#include <map>
#include <memory>
#include <vector>

#include "VYRBaseUnknown.h"
#include "VYRRasterImage.h"

// A node of an image-filter graph run on a layer's pixels in device space when the layer is
// restored. Each input is another filter, or null for the layer's own pixels (the source).
// Holds one reference on each input.
class VYR_EXPORT VYRRasterImageFilter : public VYRBaseUnknown {
  VYR_DECLARE_CLASS(VYRRasterImageFilter)
 public:
  ~VYRRasterImageFilter() override;
  VYRRasterImageFilter(const VYRRasterImageFilter&) = delete;
  VYRRasterImageFilter& operator=(const VYRRasterImageFilter&) = delete;

  int countInputs() const { return static_cast<int>(_inputs.size()); }
  VYRRasterImageFilter* getInput(int i_index) const;

  // The graph's output for the source pixels, limited to i_clip. A filter used by several
  // others runs once.
  VYRRasterImage filterImage(const VYRRasterImage& i_source, const VYRRasterIRect& i_clip) const;

 protected:
  using Result = std::shared_ptr<const VYRRasterImage>;
  struct Context {
    const VYRRasterImage& source;
    VYRRasterIRect clip;
    std::map<const VYRRasterImageFilter*, Result> done;
  };

  VYRRasterImageFilter() = default;
  explicit VYRRasterImageFilter(const std::vector<VYRRasterImageFilter*>& i_inputs);

  // The image of input i_index (the source for a null input).
  Result input(int i_index, Context& io_context) const;
  // This filter's own work on its inputs; the output must lie within io_context.clip.
  virtual VYRRasterImage onFilterImage(Context& io_context) const = 0;

 private:
  Result evaluate(Context& io_context) const;

  std::vector<VYRRasterImageFilter*> _inputs;
};

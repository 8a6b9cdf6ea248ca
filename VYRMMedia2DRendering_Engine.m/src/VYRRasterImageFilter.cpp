#include "VYRRasterImageFilter.h"

VYR_IMPLEMENT_ABSTRACT_CLASS(VYRRasterImageFilter, VYRBaseUnknown, "Engine")

VYRRasterImageFilter::VYRRasterImageFilter(const std::vector<VYRRasterImageFilter*>& i_inputs) : _inputs(i_inputs) {
  for (VYRRasterImageFilter* pInput : _inputs)
    if (pInput) pInput->AddRef();
}

VYRRasterImageFilter::~VYRRasterImageFilter() {
  for (VYRRasterImageFilter* pInput : _inputs)
    if (pInput) pInput->Release();
}

VYRRasterImageFilter* VYRRasterImageFilter::getInput(int i_index) const {
  return i_index >= 0 && i_index < countInputs() ? _inputs[i_index] : nullptr;
}

VYRRasterImage VYRRasterImageFilter::filterImage(const VYRRasterImage& i_source, const VYRRasterIRect& i_clip) const {
  Context context{i_source, i_clip, {}};
  const Result result = evaluate(context);
  // The last owner hands its pixels over instead of copying them.
  if (result.use_count() == 2) {
    context.done.clear();
    if (result.use_count() == 1) return std::move(const_cast<VYRRasterImage&>(*result));
  }
  return *result;
}

VYRRasterImageFilter::Result VYRRasterImageFilter::evaluate(Context& io_context) const {
  auto found = io_context.done.find(this);
  if (found != io_context.done.end()) return found->second;
  Result result = std::make_shared<const VYRRasterImage>(onFilterImage(io_context));
  io_context.done.emplace(this, result);
  return result;
}

VYRRasterImageFilter::Result VYRRasterImageFilter::input(int i_index, Context& io_context) const {
  const VYRRasterImageFilter* pInput = getInput(i_index);
  // The source is only borrowed: the caller keeps it alive for the whole run.
  if (!pInput) return Result(&io_context.source, [](const VYRRasterImage*) {});
  return pInput->evaluate(io_context);
}

#include "VYR2DGLayerFilterBuilder.h"

#include <algorithm>
#include <iostream>
#include <new>

#include "VYR5X5ColorMatrix.h"
#include "VYRAssert.h"
#include "VYRPrtFilterBlendElt.h"
#include "VYRPrtFilterColorMatrixElt.h"
#include "VYRPrtFilterContainerElt.h"
#include "VYRPrtFilterGaussianBlurElt.h"
#include "VYRPrtFilterMergeElt.h"
#include "VYRPrtFilterMergeNodeElt.h"
#include "VYRPrtFilterOffsetElt.h"
#include "VYRRasterBlurImageFilter.h"
#include "VYRRasterColorMatrixImageFilter.h"
#include "VYRRasterMergeImageFilter.h"
#include "VYRRasterOffsetImageFilter.h"

namespace {

template <class K>
K* AsKind(VYRPrtGraphicPrimitiveElt* i_pPrimitive) {
  return i_pPrimitive != nullptr && i_pPrimitive->IsAKindOf(K::ClassName()) == 1 ? static_cast<K*>(i_pPrimitive)
                                                                                 : nullptr;
}

}  // namespace

bool VYR2DGLayerFilterBuilder::ResolveInput(const VYRUnicodeString& i_name, VYRRasterImageFilter* i_pLast,
                                            const ResultTable& i_table, bool i_allowDefault,
                                            VYRRasterImageFilter*& o_pInput) {
  if (i_name.GetLengthInChar() == 0) {
    o_pInput = i_pLast;
    return true;
  }
  const auto found = i_table.find(i_name);
  if (found != i_table.end()) {
    o_pInput = found->second;
    return true;
  }
  if (!i_allowDefault) return false;
  o_pInput = i_pLast;
  return true;
}

void VYR2DGLayerFilterBuilder::CreateSourceAlpha(VYRRasterImageFilter* i_pInput, VYRRasterImageFilter** o_ppFilter) {
  if (!VYR_CHECK_POINTER(o_ppFilter)) return;
  float matrix[VYRRasterColorMatrixImageFilter::kCount];
  VYRRasterColorMatrixImageFilter::SourceAlphaMatrix(matrix);
  *o_ppFilter = new (std::nothrow) VYRRasterColorMatrixImageFilter(matrix, i_pInput);
}

void VYR2DGLayerFilterBuilder::ApplyFeGaussianBlur(VYRPrtGraphicPrimitiveElt* i_pPrimitive,
                                                   VYRRasterImageFilter* i_pLast, bool& o_success,
                                                   VYRRasterImageFilter*& o_pFilter, const ResultTable& i_table,
                                                   bool i_allowDefault, float i_scale) {
  auto* pFEBlur = AsKind<VYRPrtFilterGaussianBlurElt>(i_pPrimitive);
  if (!VYR_CHECK_POINTER(pFEBlur)) return;
  VYRRasterImageFilter* pInput = nullptr;
  if (!ResolveInput(pFEBlur->GetInput(), i_pLast, i_table, i_allowDefault, pInput)) return;
  const double stdDevX = pFEBlur->GetStdDeviationX(), stdDevY = pFEBlur->GetStdDeviationY();
  if (!VYR_CHECK_CONDITION_TEXT(stdDevX > 0. && stdDevY > 0., "stdDevX > 0. && stdDevY > 0.")) return;
  auto* spBlurFilter = new (std::nothrow) VYRRasterBlurImageFilter(
      static_cast<float>(i_scale * stdDevX), static_cast<float>(i_scale * stdDevY), pInput);
  if (!VYR_CHECK_POINTER(spBlurFilter)) return;
  o_pFilter = spBlurFilter;
  o_success = true;
}

void VYR2DGLayerFilterBuilder::ApplyFeOffset(VYRPrtGraphicPrimitiveElt* i_pPrimitive, VYRRasterImageFilter* i_pLast,
                                             bool& o_success, VYRRasterImageFilter*& o_pFilter,
                                             const ResultTable& i_table, bool i_allowDefault, float i_scale) {
  auto* pFEOffset = AsKind<VYRPrtFilterOffsetElt>(i_pPrimitive);
  if (!VYR_CHECK_POINTER(pFEOffset)) return;
  VYRRasterImageFilter* pInput = nullptr;
  if (!ResolveInput(pFEOffset->GetInput(), i_pLast, i_table, i_allowDefault, pInput)) return;
  auto* pFilter = new (std::nothrow) VYRRasterOffsetImageFilter(static_cast<float>(i_scale * pFEOffset->GetDx()),
                                                                static_cast<float>(i_scale * pFEOffset->GetDy()), pInput);
  if (!VYR_CHECK_POINTER(pFilter)) return;
  o_pFilter = pFilter;
  o_success = true;
}

void VYR2DGLayerFilterBuilder::ApplyFeMerge(VYRPrtGraphicPrimitiveElt* i_pPrimitive, VYRRasterImageFilter* i_pLast,
                                            bool& o_success, VYRRasterImageFilter*& o_pFilter,
                                            const ResultTable& i_table, bool i_allowDefault) {
  auto* pFEMerge = AsKind<VYRPrtFilterMergeElt>(i_pPrimitive);
  if (!VYR_CHECK_POINTER(pFEMerge)) return;
  std::vector<VYRRasterImageFilter*> inputs;
  for (int i = 0; i < pFEMerge->GetMergeNodeCount(); ++i) {
    VYRRasterImageFilter* pInput = nullptr;
    if (!ResolveInput(pFEMerge->GetMergeNode(i)->GetInput(), i_pLast, i_table, i_allowDefault, pInput)) return;
    inputs.push_back(pInput);
  }
  auto* pFilter = new (std::nothrow) VYRRasterMergeImageFilter(inputs);
  if (!VYR_CHECK_POINTER(pFilter)) return;
  o_pFilter = pFilter;
  o_success = true;
}

void VYR2DGLayerFilterBuilder::ApplyFeBlend(VYRPrtGraphicPrimitiveElt* i_pPrimitive, VYRRasterImageFilter* i_pLast,
                                            bool& o_success, VYRRasterImageFilter*& o_pFilter,
                                            const ResultTable& i_table, bool i_allowDefault) {
  auto* pFEBlend = AsKind<VYRPrtFilterBlendElt>(i_pPrimitive);
  if (!VYR_CHECK_POINTER(pFEBlend)) return;
  VYRRasterImageFilter *pForeground = nullptr, *pBackground = nullptr;
  if (!ResolveInput(pFEBlend->GetInput(), i_pLast, i_table, i_allowDefault, pForeground) ||
      !ResolveInput(pFEBlend->GetInput2(), i_pLast, i_table, i_allowDefault, pBackground)) {
    return;
  }
  const VYRRasterBlendMode mode = VYRRasterBlender::ModeOrSourceOver(static_cast<int>(pFEBlend->GetMode()));
  auto* pFilter = new (std::nothrow) VYRRasterMergeImageFilter(pBackground, pForeground, mode);
  if (!VYR_CHECK_POINTER(pFilter)) return;
  o_pFilter = pFilter;
  o_success = true;
}

void VYR2DGLayerFilterBuilder::ApplyFeColorMatrix(VYRPrtGraphicPrimitiveElt* i_pPrimitive,
                                                  VYRRasterImageFilter* i_pLast, bool& o_success,
                                                  VYRRasterImageFilter*& o_pFilter, const ResultTable& i_table,
                                                  bool i_allowDefault) {
  auto* pFEColorMatrix = AsKind<VYRPrtFilterColorMatrixElt>(i_pPrimitive);
  if (!VYR_CHECK_POINTER(pFEColorMatrix)) return;
  VYRRasterImageFilter* pInput = nullptr;
  if (!ResolveInput(pFEColorMatrix->GetInput(), i_pLast, i_table, i_allowDefault, pInput)) return;
  VYR5X5ColorMatrix colorMatrix;
  pFEColorMatrix->GetColorMatrix(colorMatrix);
  // The raster filter works on 0..255 channels: only the offset column changes unit.
  float matrix[VYRRasterColorMatrixImageFilter::kCount];
  for (int row = 0; row < 4; ++row) {
    for (int column = 0; column < 5; ++column) {
      const double scale = column == 4 ? 255.0 : 1.0;
      matrix[5 * row + column] = static_cast<float>(colorMatrix.Get(row, column) * scale);
    }
  }
  auto* pFilter = new (std::nothrow) VYRRasterColorMatrixImageFilter(matrix, pInput);
  if (!VYR_CHECK_POINTER(pFilter)) return;
  o_pFilter = pFilter;
  o_success = true;
}

bool VYR2DGLayerFilterBuilder::BuildPrimitive(VYRPrtGraphicPrimitiveElt* i_pPrimitive, VYRRasterImageFilter* i_pLast,
                                              VYRRasterImageFilter*& o_pFilter, const ResultTable& i_table,
                                              bool i_allowDefault, float i_scale) {
  bool success = false;
  o_pFilter = nullptr;
  if (i_pPrimitive == nullptr) return false;
  if (AsKind<VYRPrtFilterGaussianBlurElt>(i_pPrimitive)) {
    ApplyFeGaussianBlur(i_pPrimitive, i_pLast, success, o_pFilter, i_table, i_allowDefault, i_scale);
  } else if (AsKind<VYRPrtFilterOffsetElt>(i_pPrimitive)) {
    ApplyFeOffset(i_pPrimitive, i_pLast, success, o_pFilter, i_table, i_allowDefault, i_scale);
  } else if (AsKind<VYRPrtFilterMergeElt>(i_pPrimitive)) {
    ApplyFeMerge(i_pPrimitive, i_pLast, success, o_pFilter, i_table, i_allowDefault);
  } else if (AsKind<VYRPrtFilterBlendElt>(i_pPrimitive)) {
    ApplyFeBlend(i_pPrimitive, i_pLast, success, o_pFilter, i_table, i_allowDefault);
  } else if (AsKind<VYRPrtFilterColorMatrixElt>(i_pPrimitive)) {
    ApplyFeColorMatrix(i_pPrimitive, i_pLast, success, o_pFilter, i_table, i_allowDefault);
  }
  return success && o_pFilter != nullptr;
}

VYRRasterImageFilter* VYR2DGLayerFilterBuilder::Build(const VYRPrtFilterContainerElt& i_container, float i_scale) {
  const VYRSYPDynArray<VYRPrtGraphicPrimitiveElt*>& children = i_container.GetChildArray();
  std::vector<VYRPrtGraphicPrimitiveElt*> pending;
  for (int i = 0; i < children.GetLength(); ++i) pending.push_back(children[i]);
  if (pending.empty()) return nullptr;

  // Every filter made here, holding the one reference each was made with.
  std::vector<VYRRasterImageFilter*> built;
  ResultTable table;
  table[VYRUnicodeString("SourceGraphic")] = nullptr;  // null input: the layer's own pixels
  VYRRasterImageFilter* pSourceAlpha = nullptr;
  CreateSourceAlpha(nullptr, &pSourceAlpha);
  if (pSourceAlpha != nullptr) built.push_back(pSourceAlpha);
  table[VYRUnicodeString("SourceAlpha")] = pSourceAlpha;

  VYRRasterImageFilter* pLast = nullptr;
  bool builtAny = false;
  auto runPass = [&](bool i_allowDefault) {
    bool progress = false;
    for (auto it = pending.begin(); it != pending.end();) {
      VYRRasterImageFilter* pFilter = nullptr;
      if (!BuildPrimitive(*it, pLast, pFilter, table, i_allowDefault, i_scale)) {
        ++it;
        continue;
      }
      built.push_back(pFilter);
      pLast = pFilter;
      progress = builtAny = true;
      const VYRUnicodeString& result = static_cast<VYRPrtFilterBaseElt*>(*it)->GetResult();
      if (result.GetLengthInChar() != 0) table[result] = pFilter;
      it = pending.erase(it);
    }
    return progress;
  };

  const size_t maxPasses = pending.size();
  bool progress = true;
  for (size_t pass = 0; pass < maxPasses && progress && !pending.empty(); ++pass) progress = runPass(false);
  if (!pending.empty() && !progress) {
    std::cerr << "Warning : Using default value (SourceGraphic) for remaining filter input.\n";
    runPass(true);
  }

  VYRRasterImageFilter* pResult = builtAny ? pLast : nullptr;
  if (pResult != nullptr) pResult->AddRef();
  for (VYRRasterImageFilter* pFilter : built) pFilter->Release();
  return pResult;
}

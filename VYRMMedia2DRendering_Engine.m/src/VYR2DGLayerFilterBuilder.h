#pragma once

#include <map>
#include <vector>

#include "VYRUnicodeString.h"

class VYRPrtFilterContainerElt;
class VYRPrtGraphicPrimitiveElt;
class VYRRasterImageFilter;

// Turns a filter container's primitives into one image-filter graph for a layer. Primitives
// name each other's outputs; they are built in as many passes over the pending ones as their
// order needs, and inputs that never resolve fall back to the last output in a final pass.
//
// Choices made here: offsets are scaled like the deviations (both are user-space lengths),
// merges composite every node source-over, a blend lays its second input down first as the
// background and composites its first input over it with the primitive's mode, and the
// colour matrix's offset column (0..1 units) is scaled to 0..255.
class VYR2DGLayerFilterBuilder {
 public:
  // The graph's last filter with one reference for the caller, or null when nothing was built.
  // i_scale multiplies deviations and offsets.
  static VYRRasterImageFilter* Build(const VYRPrtFilterContainerElt& i_container, float i_scale);
  // A filter over i_pInput (null: the layer's pixels) keeping alpha only, every colour 0;
  // *o_ppFilter gets one reference for the caller.
  static void CreateSourceAlpha(VYRRasterImageFilter* i_pInput, VYRRasterImageFilter** o_ppFilter);

 private:
  using ResultTable = std::map<VYRUnicodeString, VYRRasterImageFilter*>;

  // Each builder sets o_success and o_pFilter (one reference for the caller) only when it built
  // a filter; inputs that are not in i_table make it fail unless i_allowDefault.
  static void ApplyFeGaussianBlur(VYRPrtGraphicPrimitiveElt* i_pPrimitive, VYRRasterImageFilter* i_pLast,
                                  bool& o_success, VYRRasterImageFilter*& o_pFilter, const ResultTable& i_table,
                                  bool i_allowDefault, float i_scale);
  static void ApplyFeOffset(VYRPrtGraphicPrimitiveElt* i_pPrimitive, VYRRasterImageFilter* i_pLast, bool& o_success,
                            VYRRasterImageFilter*& o_pFilter, const ResultTable& i_table, bool i_allowDefault,
                            float i_scale);
  static void ApplyFeMerge(VYRPrtGraphicPrimitiveElt* i_pPrimitive, VYRRasterImageFilter* i_pLast, bool& o_success,
                           VYRRasterImageFilter*& o_pFilter, const ResultTable& i_table, bool i_allowDefault);
  static void ApplyFeBlend(VYRPrtGraphicPrimitiveElt* i_pPrimitive, VYRRasterImageFilter* i_pLast, bool& o_success,
                           VYRRasterImageFilter*& o_pFilter, const ResultTable& i_table, bool i_allowDefault);
  static void ApplyFeColorMatrix(VYRPrtGraphicPrimitiveElt* i_pPrimitive, VYRRasterImageFilter* i_pLast,
                                 bool& o_success, VYRRasterImageFilter*& o_pFilter, const ResultTable& i_table,
                                 bool i_allowDefault);

  // Runs the builder of the primitive's kind; false for kinds without one.
  static bool BuildPrimitive(VYRPrtGraphicPrimitiveElt* i_pPrimitive, VYRRasterImageFilter* i_pLast,
                             VYRRasterImageFilter*& o_pFilter, const ResultTable& i_table, bool i_allowDefault,
                             float i_scale);
  // The filter an input name stands for: the empty name is the last result. False when the
  // name is unknown and no default is allowed.
  static bool ResolveInput(const VYRUnicodeString& i_name, VYRRasterImageFilter* i_pLast, const ResultTable& i_table,
                           bool i_allowDefault, VYRRasterImageFilter*& o_pInput);
};

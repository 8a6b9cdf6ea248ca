#pragma once

#include "VYRExport.h"
#include "VYRPrtFilterColorAttribute.h"
#include "VYRPrtNodeTreeElt.h"
#include "VYRPrtRegionAttributes.h"

// What every filter primitive has: the name under which its output is
// known (result), the name of its input (in; empty means the previous
// primitive's output), the subregion it renders into (components not given
// fall back to the filter region) and, when the document gives any, its
// colour properties, owned by the element. Primitives with inputs of their
// own (the merge) hold them as children.
class VYR_EXPORT VYRPrtFilterBaseElt : public VYRPrtNodeTreeElt {
  VYR_DECLARE_CLASS(VYRPrtFilterBaseElt)

 public:
  ~VYRPrtFilterBaseElt() override;

  void SetResult(const VYRUnicodeString& i_result) { _result = i_result; }
  const VYRUnicodeString& GetResult() const { return _result; }
  void SetInput(const VYRUnicodeString& i_input) { _input = i_input; }
  const VYRUnicodeString& GetInput() const { return _input; }
  void SetSubregion(const VYRPrtRegionAttributes& i_subregion) { _subregion = i_subregion; }
  const VYRPrtRegionAttributes& GetSubregion() const { return _subregion; }
  // Keeps a copy; null removes the colour properties.
  void SetColorAttribute(const VYRPrtFilterColorAttribute* ipAttribute);
  // Null when the primitive has none.
  const VYRPrtFilterColorAttribute* GetColorAttribute() const { return _pColorAttribute; }

  // Common attributes and own fields to their defaults; the children stay.
  void Reset() override;
  // The node tree record, result and input names, the subregion, then the
  // colour properties through the stream helper (tag 6 and their fields, or 0).
  void Stream(VYRI2DGStream* ipStream) override;
  void Unstream(VYRI2DGStream* ipStream) override;

 protected:
  VYRPrtFilterBaseElt() = default;
  // Copies share the children but own a copy of the colour properties.
  VYRPrtFilterBaseElt(const VYRPrtFilterBaseElt& iGPElt);
  VYRPrtFilterBaseElt& operator=(const VYRPrtFilterBaseElt& iGPElt);
  using VYRPrtNodeTreeElt::operator=;

 private:
  VYRUnicodeString _result;
  VYRUnicodeString _input;
  VYRPrtRegionAttributes _subregion;
  VYRPrtFilterColorAttribute* _pColorAttribute = nullptr;
};

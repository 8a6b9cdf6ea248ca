#pragma once

#include "MM2DAttributeTypes.h"
#include "VYRExport.h"
#include "VYRPrtFillAttributes.h"
#include "VYRPrtNodeTreeElt.h"

// An SVG clipPath: the shapes that make the clipping outline, as children,
// in the system clipPathUnits names, and the clip rule their outline is
// filled with (nonzero by default).
class VYR_EXPORT VYRPrtClipPathElt : public VYRPrtNodeTreeElt {
  VYR_DECLARE_CLASS(VYRPrtClipPathElt)

 public:
  VYRPrtClipPathElt() = default;
  VYRPrtClipPathElt(const VYRPrtClipPathElt& iGPElt) = default;
  VYRPrtClipPathElt& operator=(const VYRPrtClipPathElt& iGPElt);
  using VYRPrtNodeTreeElt::operator=;
  ~VYRPrtClipPathElt() override = default;

  void SetUnits(MM2D::UnitType i_units) { _units = i_units; }
  MM2D::UnitType GetUnits() const { return _units; }
  void SetClipRule(VYRPrtFillRule i_rule) { _clipRule = i_rule; }
  VYRPrtFillRule GetClipRule() const { return _clipRule; }

  // Common attributes and own fields to their defaults; the children stay.
  void Reset() override;
  StreamType GetStreamType() override;
  // The node tree record, then units and clip rule (ints).
  void Stream(VYRI2DGStream* ipStream) override;
  void Unstream(VYRI2DGStream* ipStream) override;

 private:
  MM2D::UnitType _units = MM2D::UnitUserSpaceOnUse;
  VYRPrtFillRule _clipRule = VYRPrtFillRuleNonZero;
};

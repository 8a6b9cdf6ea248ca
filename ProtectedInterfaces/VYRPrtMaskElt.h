#pragma once

#include "MM2DAttributeTypes.h"
#include "VYRExport.h"
#include "VYRPrtNodeTreeElt.h"
#include "VYRPrtRegionAttributes.h"

// An SVG mask: the region it covers (by default -10%, -10%, 120%, 120% of
// the bounding box) in maskUnits, and its content, as children, in the
// system maskContentUnits names; the content's luminance is the mask.
class VYR_EXPORT VYRPrtMaskElt : public VYRPrtNodeTreeElt {
  VYR_DECLARE_CLASS(VYRPrtMaskElt)

 public:
  VYRPrtMaskElt() = default;
  VYRPrtMaskElt(const VYRPrtMaskElt& iGPElt) = default;
  VYRPrtMaskElt& operator=(const VYRPrtMaskElt& iGPElt);
  using VYRPrtNodeTreeElt::operator=;
  ~VYRPrtMaskElt() override = default;

  void SetRegion(const VYRPrtRegionAttributes& i_region) { _region = i_region; }
  const VYRPrtRegionAttributes& GetRegion() const { return _region; }
  void SetUnits(MM2D::UnitType i_units) { _units = i_units; }
  MM2D::UnitType GetUnits() const { return _units; }
  void SetContentUnits(MM2D::UnitType i_units) { _contentUnits = i_units; }
  MM2D::UnitType GetContentUnits() const { return _contentUnits; }

  // Common attributes and own fields to their defaults; the children stay.
  void Reset() override;
  StreamType GetStreamType() override;
  // The node tree record, the region, then units and content units (ints).
  void Stream(VYRI2DGStream* ipStream) override;
  void Unstream(VYRI2DGStream* ipStream) override;

 private:
  VYRPrtRegionAttributes _region = VYRPrtRegionAttributes::DefaultEffectRegion();
  MM2D::UnitType _units = MM2D::UnitObjectBoundingBox;
  MM2D::UnitType _contentUnits = MM2D::UnitUserSpaceOnUse;
};

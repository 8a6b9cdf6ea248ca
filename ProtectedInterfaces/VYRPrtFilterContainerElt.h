#pragma once

#include "MM2DAttributeTypes.h"
#include "VYRExport.h"
#include "VYRPrtNodeTreeElt.h"
#include "VYRPrtRegionAttributes.h"

// An SVG filter: the region it renders into (by default -10%, -10%, 120%,
// 120% of the bounding box) in filterUnits, the system of its primitives'
// values (primitiveUnits), the intermediate resolution (filterRes; 0 lets
// the renderer choose), the filter it inherits from (xlink:href), and the
// filter primitives as children, in document order.
class VYR_EXPORT VYRPrtFilterContainerElt : public VYRPrtNodeTreeElt {
  VYR_DECLARE_CLASS(VYRPrtFilterContainerElt)

 public:
  VYRPrtFilterContainerElt() = default;
  VYRPrtFilterContainerElt(const VYRPrtFilterContainerElt& iGPElt) = default;
  VYRPrtFilterContainerElt& operator=(const VYRPrtFilterContainerElt& iGPElt);
  using VYRPrtNodeTreeElt::operator=;
  ~VYRPrtFilterContainerElt() override = default;

  void SetRegion(const VYRPrtRegionAttributes& i_region) { _region = i_region; }
  const VYRPrtRegionAttributes& GetRegion() const { return _region; }
  void SetUnits(MM2D::UnitType i_units) { _units = i_units; }
  MM2D::UnitType GetUnits() const { return _units; }
  void SetPrimitiveUnits(MM2D::UnitType i_units) { _primitiveUnits = i_units; }
  MM2D::UnitType GetPrimitiveUnits() const { return _primitiveUnits; }
  void SetResolution(double i_x, double i_y);
  void GetResolution(double& o_x, double& o_y) const;
  void SetHrefID(const VYRUnicodeString& i_id) { _hrefID = i_id; }
  const VYRUnicodeString& GetHrefID() const { return _hrefID; }

  // Common attributes and own fields to their defaults; the children stay.
  void Reset() override;
  StreamType GetStreamType() override;
  // The node tree record, the region, units and primitive units (ints), the
  // resolution (two doubles) and the inherited filter's identifier.
  void Stream(VYRI2DGStream* ipStream) override;
  void Unstream(VYRI2DGStream* ipStream) override;

 private:
  VYRPrtRegionAttributes _region = VYRPrtRegionAttributes::DefaultEffectRegion();
  MM2D::UnitType _units = MM2D::UnitObjectBoundingBox;
  MM2D::UnitType _primitiveUnits = MM2D::UnitUserSpaceOnUse;
  double _resolutionX = 0.0;
  double _resolutionY = 0.0;
  VYRUnicodeString _hrefID;
};

#pragma once

#include "MM2DAttributeTypes.h"
#include "VYRExport.h"
#include "VYRMathPoint2D.h"
#include "VYRPrtNodeTreeElt.h"
#include "VYRPrtRegionAttributes.h"
#include "VYRPrtTransformAttributes.h"
#include "VYRPrtViewBoxAttributes.h"

// An SVG pattern: the tile region (x, y, width, height, all 0 by default)
// in patternUnits, the system of its children (patternContentUnits), a
// viewBox fitted into the tile, the patternTransform, the identifier of the
// pattern it inherits from (xlink:href), and the tile's content as children.
class VYR_EXPORT VYRPrtPatternElt : public VYRPrtNodeTreeElt {
  VYR_DECLARE_CLASS(VYRPrtPatternElt)

 public:
  VYRPrtPatternElt() = default;
  VYRPrtPatternElt(const VYRPrtPatternElt& iGPElt) = default;
  VYRPrtPatternElt& operator=(const VYRPrtPatternElt& iGPElt);
  using VYRPrtNodeTreeElt::operator=;
  ~VYRPrtPatternElt() override = default;

  void SetRegion(const VYRPrtRegionAttributes& i_region) { _region = i_region; }
  const VYRPrtRegionAttributes& GetRegion() const { return _region; }
  // The tile's origin and size, read from the region.
  VYRMathPoint2D GetOrigin() const { return VYRMathPoint2D(_region.GetX(), _region.GetY()); }
  void GetSize(double& o_width, double& o_height) const;
  void SetUnits(MM2D::UnitType i_units) { _units = i_units; }
  MM2D::UnitType GetUnits() const { return _units; }
  void SetContentUnits(MM2D::UnitType i_units) { _contentUnits = i_units; }
  MM2D::UnitType GetContentUnits() const { return _contentUnits; }
  void SetViewBoxAttributes(const VYRPrtViewBoxAttributes& i_viewBox) { _viewBox = i_viewBox; }
  const VYRPrtViewBoxAttributes& GetViewBoxAttributes() const { return _viewBox; }
  void SetPatternTransform(const VYRPrtTransformAttributes& i_transform);
  const VYRPrtTransformAttributes& GetPatternTransform() const { return _patternTransform; }
  void SetHrefID(const VYRUnicodeString& i_id) { _hrefID = i_id; }
  const VYRUnicodeString& GetHrefID() const { return _hrefID; }

  // Common attributes and own fields to their defaults; the children stay.
  void Reset() override;
  // A copy with duplicated children (see VYRPrtNodeTreeElt::DuplicateTree).
  void Duplicate(VYRPrtGraphicPrimitiveElt*& opGPElt) override;
  StreamType GetStreamType() override;
  // The node tree record, the region, units and content units (ints), the
  // viewBox attributes, the pattern transform and the inherited pattern's identifier.
  void Stream(VYRI2DGStream* ipStream) override;
  void Unstream(VYRI2DGStream* ipStream) override;

 private:
  VYRPrtRegionAttributes _region;
  MM2D::UnitType _units = MM2D::UnitObjectBoundingBox;
  MM2D::UnitType _contentUnits = MM2D::UnitUserSpaceOnUse;
  VYRPrtViewBoxAttributes _viewBox;
  VYRPrtTransformAttributes _patternTransform;
  VYRUnicodeString _hrefID;
};

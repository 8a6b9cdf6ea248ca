#pragma once

#include "MM2DAttributeTypes.h"
#include "VYRExport.h"
#include "VYRPrintGradient.h"
#include "VYRPrtEltFactory.h"
#include "VYRPrtGradientStopElt.h"
#include "VYRPrtGraphicPrimitiveElt.h"
#include "VYRPrtTransformAttributes.h"
#include "VYRSYPDynArray.h"

// What linear and radial gradient elements share: the coordinate system of
// their geometry (gradientUnits), the spread method, the gradientTransform,
// the identifier of the gradient they inherit from (xlink:href) and their
// ordered stops. The stops are elements of the factory: the gradient only
// points to them, as a node points to its children.
class VYR_EXPORT VYRPrtBaseGradientElt : public VYRPrtGraphicPrimitiveElt {
  VYR_DECLARE_CLASS(VYRPrtBaseGradientElt)

 public:
  ~VYRPrtBaseGradientElt() override = default;

  void SetUnits(MM2D::UnitType i_units) { _units = i_units; }
  MM2D::UnitType GetUnits() const { return _units; }
  void SetSpreadMethod(VYRPrintGradientSpread i_spread) { _spread = i_spread; }
  VYRPrintGradientSpread GetSpreadMethod() const { return _spread; }
  void SetGradientTransform(const VYRPrtTransformAttributes& i_transform);
  const VYRPrtTransformAttributes& GetGradientTransform() const { return _gradientTransform; }
  void SetHrefID(const VYRUnicodeString& i_id) { _hrefID = i_id; }
  const VYRUnicodeString& GetHrefID() const { return _hrefID; }

  // Appends a stop (null is reported) and makes this gradient its father.
  void AddStop(VYRPrtGradientStopElt* ipStop);
  int GetStopCount() const { return _stops.GetLength(); }
  // The stop at an index, or null with a report outside 0..count-1.
  VYRPrtGradientStopElt* GetStop(int i_index) const;
  // Forgets every stop; the stops themselves stay with the factory.
  void ClearStops() { _stops.Clear(); }

  // The renderer-side record of this gradient, new and owned by the caller
  // (Release it): stops with offsets kept in 0..1 and never decreasing, as
  // SVG paints them; spread; transform. With the bounding box of the painted
  // element (xmin, xmax, ymin, ymax) and bounding-box units, the transform
  // also maps the unit square onto that box, so the record is in user space.
  VYRPrintGradient* CreatePrintGradient() const;
  VYRPrintGradient* CreatePrintGradient(double i_xmin, double i_xmax, double i_ymin, double i_ymax) const;

  // Common attributes and own fields to their defaults; no stop is kept.
  void Reset() override;
  // The common record, units, spread (ints), the gradient transform, the
  // inherited gradient's identifier, the stop count, then each stop's tagged record.
  void Stream(VYRI2DGStream* ipStream) override;
  // Stops read are appended; records that are not stops are dropped with a report.
  void Unstream(VYRI2DGStream* ipStream) override;

 protected:
  VYRPrtBaseGradientElt() = default;
  // Copies share the stops of the original.
  VYRPrtBaseGradientElt(const VYRPrtBaseGradientElt& iGPElt) = default;
  VYRPrtBaseGradientElt& operator=(const VYRPrtBaseGradientElt& iGPElt);
  using VYRPrtGraphicPrimitiveElt::operator=;

  // A new record of the concrete kind carrying its own geometry.
  virtual VYRPrintGradient* MakePrintGradient() const = 0;

  // A new K from the factory holding a copy of i_source with duplicates of
  // its stops; null with the "opGPElt" report when the factory has none.
  template <class K>
  static K* DuplicateGradient(const K& i_source) {
    K* pCopy = VYRPrtEltFactory::Get().CreateElement<K>();
    if (!VYR_CHECK_POINTER_TEXT(pCopy, "opGPElt")) return nullptr;
    *pCopy = i_source;
    pCopy->ClearStops();
    i_source.DuplicateStopsInto(*pCopy);
    return pCopy;
  }

 private:
  void DuplicateStopsInto(VYRPrtBaseGradientElt& i_target) const;

  MM2D::UnitType _units = MM2D::UnitObjectBoundingBox;
  VYRPrintGradientSpread _spread = VYRPrintGradientSpreadPad;
  VYRPrtTransformAttributes _gradientTransform;
  VYRUnicodeString _hrefID;
  VYRSYPDynArray<VYRPrtGradientStopElt*> _stops;
};

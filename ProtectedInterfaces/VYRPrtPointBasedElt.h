#pragma once

#include "VYRExport.h"
#include "VYRPrtBaseShapeElt.h"
#include "VYRPrtMarkerReferences.h"

// Base of the shapes defined by lists of points (polylines, polygons,
// poly-polygons, disjoint polylines, poly-Beziers, NURBS): a basic shape that
// also carries marker references. Its record is the shape block, then the
// marker identifiers (start, mid, end). Duplicating this class itself yields null.
class VYR_EXPORT VYRPrtPointBasedElt : public VYRPrtBaseShapeElt {
  VYR_DECLARE_CLASS(VYRPrtPointBasedElt)

 public:
  ~VYRPrtPointBasedElt() override = default;
  VYRPrtPointBasedElt& operator=(const VYRPrtPointBasedElt& iPointBasedElt);

  const VYRPrtMarkerReferences& GetMarkerReferences() const { return _markerReferences; }
  void SetMarkerReferences(const VYRPrtMarkerReferences& i_markers) { _markerReferences = i_markers; }

  // The shape part and the marker references; the points of the derived
  // classes are theirs to reset.
  void Reset() override;
  StreamType GetStreamType() override;
  void Stream(VYRI2DGStream* ipStream) override;
  void Unstream(VYRI2DGStream* ipStream) override;

 protected:
  VYRPrtPointBasedElt() = default;
  VYRPrtPointBasedElt(const VYRPrtPointBasedElt&) = default;

 private:
  VYRPrtMarkerReferences _markerReferences;
};

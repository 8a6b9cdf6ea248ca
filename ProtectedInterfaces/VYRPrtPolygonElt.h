#pragma once

#include "VYRExport.h"
#include "VYRPrtPointListElt.h"

// A closed SVG polygon through its points.
class VYR_EXPORT VYRPrtPolygonElt : public VYRPrtPointListElt {
  VYR_DECLARE_CLASS(VYRPrtPolygonElt)

 public:
  VYRPrtPolygonElt() = default;
  VYRPrtPolygonElt(const VYRPrtPolygonElt&) = default;
  VYRPrtPolygonElt& operator=(const VYRPrtPolygonElt&) = default;
  ~VYRPrtPolygonElt() override = default;

  void Duplicate(VYRPrtGraphicPrimitiveElt*& opGPElt) override;
  StreamType GetStreamType() override;
};

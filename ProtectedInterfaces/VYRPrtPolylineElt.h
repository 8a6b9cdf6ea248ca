#pragma once

#include "VYRExport.h"
#include "VYRPrtPointListElt.h"

// An open SVG polyline through its points.
class VYR_EXPORT VYRPrtPolylineElt : public VYRPrtPointListElt {
  VYR_DECLARE_CLASS(VYRPrtPolylineElt)

 public:
  VYRPrtPolylineElt() = default;
  VYRPrtPolylineElt(const VYRPrtPolylineElt&) = default;
  VYRPrtPolylineElt& operator=(const VYRPrtPolylineElt&) = default;
  ~VYRPrtPolylineElt() override = default;

  void Duplicate(VYRPrtGraphicPrimitiveElt*& opGPElt) override;
  StreamType GetStreamType() override;
};

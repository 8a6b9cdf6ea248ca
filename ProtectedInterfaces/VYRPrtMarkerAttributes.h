#pragma once

#include "VYRExport.h"

class VYRI2DGStream;

// Marker style; values beyond the default come from the SVG value parser.
enum VYRPrintMarkerAttribute : int {
  VYRPrintMarkerNone = 0,
};

// The marker style of an element; streams as one unsigned int.
class VYR_EXPORT VYRPrtMarkerAttributes {
 public:
  VYRPrtMarkerAttributes() = default;
  VYRPrtMarkerAttributes(const VYRPrtMarkerAttributes&) = default;
  VYRPrtMarkerAttributes& operator=(const VYRPrtMarkerAttributes&) = default;
  virtual ~VYRPrtMarkerAttributes() = default;

  void GetMarkerStyle(VYRPrintMarkerAttribute& o_style) const { o_style = _markerStyle; }
  void SetMarkerStyle(VYRPrintMarkerAttribute i_style) { _markerStyle = i_style; }

  virtual void Stream(VYRI2DGStream* ipStream);
  virtual void Unstream(VYRI2DGStream* ipStream);

 private:
  VYRPrintMarkerAttribute _markerStyle = VYRPrintMarkerNone;
};

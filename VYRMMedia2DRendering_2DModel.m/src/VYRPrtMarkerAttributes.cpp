#include "VYRPrtMarkerAttributes.h"

#include "VYRI2DGStream.h"

void VYRPrtMarkerAttributes::Stream(VYRI2DGStream* ipStream) {
  if (!ipStream) return;
  ipStream->StreamValue(static_cast<unsigned int>(_markerStyle));
}

void VYRPrtMarkerAttributes::Unstream(VYRI2DGStream* ipStream) {
  if (!ipStream) return;
  unsigned int style = 0;
  ipStream->UnstreamValue(style);
  _markerStyle = static_cast<VYRPrintMarkerAttribute>(style);
}

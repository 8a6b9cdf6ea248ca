#include "VYRPrtPointListElt.h"

#include "VYRPrtArrayStreamForms.h"

VYR_IMPLEMENT_ABSTRACT_CLASS(VYRPrtPointListElt, VYRPrtPointBasedElt, "Multimedia2DRendering")

VYRPrtPointListElt& VYRPrtPointListElt::operator=(const VYRPrtPointListElt& iPointListElt) {
  if (!VYR_CHECK_CONDITION(this != &iPointListElt)) return *this;
  VYRPrtPointBasedElt::operator=(iPointListElt);
  _points = iPointListElt._points;
  return *this;
}

void VYRPrtPointListElt::SetPoints(const VYRSYPDynArray<VYRMathPoint2D>& i_points) { _points = i_points; }

void VYRPrtPointListElt::Reset() {
  VYRPrtPointBasedElt::Reset();
  _points.Clear();
}

void VYRPrtPointListElt::Stream(VYRI2DGStream* ipStream) {
  if (!ipStream) return;
  VYRPrtPointBasedElt::Stream(ipStream);
  VYRPrtArrayStreamForms::StreamArray(_points, ipStream);
}

void VYRPrtPointListElt::Unstream(VYRI2DGStream* ipStream) {
  if (!ipStream) return;
  VYRPrtPointBasedElt::Unstream(ipStream);
  VYRPrtArrayStreamForms::UnstreamArray(_points, ipStream);
}

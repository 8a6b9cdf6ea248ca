#include "VYRPrtNURBSElt.h"

#include "VYRPrtArrayStreamForms.h"

VYR_IMPLEMENT_CLASS(VYRPrtNURBSElt, VYRPrtPointBasedElt, "Multimedia2DRendering")

void VYRPrtNURBSElt::GetParameters(int& o_degree, VYRSYPDynArray<double>& o_knots, VYRSYPDynArray<double>& o_weights,
                                   VYRSYPDynArray<VYRMathPoint2D>& o_controlPoints) const {
  o_degree = _degree;
  o_knots = _knots;
  o_weights = _weights;
  o_controlPoints = _controlPoints;
}

void VYRPrtNURBSElt::SetParameters(int i_degree, const VYRSYPDynArray<double>& i_knots,
                                   const VYRSYPDynArray<double>& i_weights,
                                   const VYRSYPDynArray<VYRMathPoint2D>& i_controlPoints) {
  _degree = i_degree;
  _knots = i_knots;
  _weights = i_weights;
  _controlPoints = i_controlPoints;
}

void VYRPrtNURBSElt::Duplicate(VYRPrtGraphicPrimitiveElt*& opGPElt) { DuplicateShape(*this, opGPElt); }

StreamType VYRPrtNURBSElt::GetStreamType() { return kStreamTypeNURBSElt; }

void VYRPrtNURBSElt::Stream(VYRI2DGStream* ipStream) {
  if (!ipStream) return;
  VYRPrtPointBasedElt::Stream(ipStream);
  ipStream->StreamValue(_degree);
  VYRPrtArrayStreamForms::StreamArray(_knots, ipStream);
  VYRPrtArrayStreamForms::StreamArray(_weights, ipStream);
  VYRPrtArrayStreamForms::StreamArray(_controlPoints, ipStream);
}

void VYRPrtNURBSElt::Unstream(VYRI2DGStream* ipStream) {
  if (!ipStream) return;
  VYRPrtPointBasedElt::Unstream(ipStream);
  ipStream->UnstreamValue(_degree);
  VYRPrtArrayStreamForms::UnstreamArray(_knots, ipStream);
  VYRPrtArrayStreamForms::UnstreamArray(_weights, ipStream);
  VYRPrtArrayStreamForms::UnstreamArray(_controlPoints, ipStream);
}

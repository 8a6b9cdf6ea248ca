#pragma once

#include "VYRExport.h"
#include "VYRMathPoint2D.h"
#include "VYRPrtPointBasedElt.h"
#include "VYRSYPDynArray.h"

// A non-uniform rational B-spline: its degree, knot vector, weights and
// control points, stored as given. Its record is the point-based block, then
// the degree (int), the knots, the weights (counts, then doubles) and the
// control points (count, then points). Reset is the point-based one: it
// leaves the spline's parameters as they are.
class VYR_EXPORT VYRPrtNURBSElt : public VYRPrtPointBasedElt {
  VYR_DECLARE_CLASS(VYRPrtNURBSElt)

 public:
  VYRPrtNURBSElt() = default;
  VYRPrtNURBSElt(const VYRPrtNURBSElt&) = default;
  VYRPrtNURBSElt& operator=(const VYRPrtNURBSElt&) = default;
  ~VYRPrtNURBSElt() override = default;

  void GetParameters(int& o_degree, VYRSYPDynArray<double>& o_knots, VYRSYPDynArray<double>& o_weights,
                     VYRSYPDynArray<VYRMathPoint2D>& o_controlPoints) const;
  void SetParameters(int i_degree, const VYRSYPDynArray<double>& i_knots, const VYRSYPDynArray<double>& i_weights,
                     const VYRSYPDynArray<VYRMathPoint2D>& i_controlPoints);
  int GetDegree() const { return _degree; }
  const VYRSYPDynArray<double>& GetKnots() const { return _knots; }
  const VYRSYPDynArray<double>& GetWeights() const { return _weights; }
  const VYRSYPDynArray<VYRMathPoint2D>& GetControlPoints() const { return _controlPoints; }

  void Duplicate(VYRPrtGraphicPrimitiveElt*& opGPElt) override;
  StreamType GetStreamType() override;
  void Stream(VYRI2DGStream* ipStream) override;
  void Unstream(VYRI2DGStream* ipStream) override;

 private:
  int _degree = 0;
  VYRSYPDynArray<double> _knots;
  VYRSYPDynArray<double> _weights;
  VYRSYPDynArray<VYRMathPoint2D> _controlPoints;
};

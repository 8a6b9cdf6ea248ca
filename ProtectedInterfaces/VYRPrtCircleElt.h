#pragma once

#include "VYRExport.h"
#include "VYRMathPoint2D.h"
#include "VYRPrtBaseShapeElt.h"

// A circle: centre and radius.
class VYR_EXPORT VYRPrtCircleElt : public VYRPrtBaseShapeElt {
  VYR_DECLARE_CLASS(VYRPrtCircleElt)

 public:
  VYRPrtCircleElt() = default;
  VYRPrtCircleElt(const VYRMathPoint2D& i_center, double i_radius);
  VYRPrtCircleElt(const VYRPrtCircleElt& iCircleElt) = default;
  VYRPrtCircleElt& operator=(const VYRPrtCircleElt& iCircleElt);
  ~VYRPrtCircleElt() override = default;

  const VYRMathPoint2D& GetCenter() const { return _center; }
  void SetCenter(const VYRMathPoint2D& i_center) { _center = i_center; }
  double GetRadius() const { return _radius; }
  void SetRadius(double i_radius) { _radius = i_radius; }
  void GetParameters(VYRMathPoint2D& o_center, double& o_radius) const;
  void SetParameters(const VYRMathPoint2D& i_center, double i_radius);

  void Reset() override;
  void Duplicate(VYRPrtGraphicPrimitiveElt*& opGPElt) override;
  StreamType GetStreamType() override;
  void Stream(VYRI2DGStream* ipStream) override;
  void Unstream(VYRI2DGStream* ipStream) override;

 private:
  VYRMathPoint2D _center;
  double _radius = 0.0;
};

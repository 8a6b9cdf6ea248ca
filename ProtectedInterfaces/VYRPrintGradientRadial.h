#pragma once

#include "VYRExport.h"
#include "VYRPrintGradient.h"

// A radial gradient: the circle of centre (cx, cy) and radius r, the
// gradient starting at the focus (fx, fy).
class VYR_EXPORT VYRPrintGradientRadial : public VYRPrintGradient {
  VYR_DECLARE_CLASS(VYRPrintGradientRadial)

 public:
  VYRPrintGradientRadial() = default;
  VYRPrintGradientRadial(const VYRPrintGradientRadial& iGradient) = default;
  VYRPrintGradientRadial& operator=(const VYRPrintGradientRadial& iGradient);

  VYRPrintGradientRadial* Clone() const override;

  void GetCentre(float& o_cx, float& o_cy) const;
  void GetFocus(float& o_fx, float& o_fy) const;
  float GetRadius() const { return _r; }
  void SetCentre(float i_cx, float i_cy);
  void SetFocus(float i_fx, float i_fy);
  void SetRadius(float i_r) { _r = i_r; }

 private:
  float _cx = 0.0f;
  float _cy = 0.0f;
  float _fx = 0.0f;
  float _fy = 0.0f;
  float _r = 0.0f;
};

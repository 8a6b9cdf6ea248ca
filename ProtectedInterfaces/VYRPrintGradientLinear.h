#pragma once

#include "VYRExport.h"
#include "VYRPrintGradient.h"

// A linear gradient from a start point (x1, y1) to an end point (x2, y2).
class VYR_EXPORT VYRPrintGradientLinear : public VYRPrintGradient {
  VYR_DECLARE_CLASS(VYRPrintGradientLinear)

 public:
  VYRPrintGradientLinear() = default;
  VYRPrintGradientLinear(const VYRPrintGradientLinear& iGradient) = default;
  VYRPrintGradientLinear& operator=(const VYRPrintGradientLinear& iGradient);

  VYRPrintGradientLinear* Clone() const override;

  void GetStartPoint(float& o_x1, float& o_y1) const;
  void GetEndPoint(float& o_x2, float& o_y2) const;
  void SetStartPoint(float i_x1, float i_y1);
  void SetEndPoint(float i_x2, float i_y2);

 private:
  float _x1 = 0.0f;
  float _y1 = 0.0f;
  float _x2 = 0.0f;
  float _y2 = 0.0f;
};

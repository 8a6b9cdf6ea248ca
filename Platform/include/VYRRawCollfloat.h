#pragma once

#include "VYRExport.h"
#include "VYRRawCollOf.h"

// An ordered list of floats, positions from 1 (see VYRRawCollOf).
class VYR_EXPORT VYRRawCollfloat : public VYRRawCollOf<float> {
 public:
  using VYRRawCollOf<float>::VYRRawCollOf;
  ~VYRRawCollfloat() override;
};

#pragma once

#include "VYRExport.h"
#include "VYRRawCollOf.h"

// An ordered list of doubles, positions from 1 (see VYRRawCollOf).
class VYR_EXPORT VYRRawColldouble : public VYRRawCollOf<double> {
 public:
  using VYRRawCollOf<double>::VYRRawCollOf;
  ~VYRRawColldouble() override;
};

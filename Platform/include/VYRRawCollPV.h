#pragma once

#include "VYRExport.h"
#include "VYRRawCollOf.h"

// An ordered list of untyped pointers, positions from 1 (see VYRRawCollOf).
// The list never owns what the pointers point to (see VYRCollec::MemoryHandling).
class VYR_EXPORT VYRRawCollPV : public VYRRawCollOf<void*> {
 public:
  using VYRRawCollOf<void*>::VYRRawCollOf;
  ~VYRRawCollPV() override;
};

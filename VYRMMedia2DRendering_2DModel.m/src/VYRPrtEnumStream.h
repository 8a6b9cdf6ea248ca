#pragma once

#include "VYRI2DGStream.h"

// Enumerations travel as signed 32-bit values; every value read back is kept
// as it is, since all model enumerations have a 32-bit underlying type.
template <class E>
void StreamEnum(E i_value, VYRI2DGStream* ipStream) {
  ipStream->StreamValue(static_cast<int>(i_value));
}

template <class E>
void UnstreamEnum(E& o_value, VYRI2DGStream* ipStream) {
  int value = 0;
  ipStream->UnstreamValue(value);
  o_value = static_cast<E>(value);
}

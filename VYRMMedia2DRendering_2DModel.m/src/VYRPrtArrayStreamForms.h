#pragma once

#include "VYRAssert.h"
#include "VYRI2DGStream.h"
#include "VYRMathPoint2D.h"
#include "VYRPrtStreamUnstreamHelper.h"
#include "VYRSYPDynArray.h"

// The byte form of the value arrays that elements hold: the count as a 32-bit
// int, then the items (points as two doubles, numbers as doubles or ints).

namespace VYRPrtArrayStreamForms {

inline void StreamItem(const VYRMathPoint2D& i_point, VYRI2DGStream* ipStream) {
  VYRMathPoint2D point = i_point;
  VYRPrtStreamUnstreamHelper::SerializeVYRMathPoint2D(point, ipStream);
}
inline void StreamItem(double i_value, VYRI2DGStream* ipStream) { ipStream->StreamValue(i_value); }
inline void StreamItem(int i_value, VYRI2DGStream* ipStream) { ipStream->StreamValue(i_value); }
inline void UnstreamItem(VYRMathPoint2D& o_point, VYRI2DGStream* ipStream) {
  VYRPrtStreamUnstreamHelper::CreateVYRMathPoint2DFromStream(o_point, ipStream);
}
inline void UnstreamItem(double& o_value, VYRI2DGStream* ipStream) { ipStream->UnstreamValue(o_value); }
inline void UnstreamItem(int& o_value, VYRI2DGStream* ipStream) { ipStream->UnstreamValue(o_value); }

template <class T>
void StreamArray(const VYRSYPDynArray<T>& i_array, VYRI2DGStream* ipStream) {
  ipStream->StreamValue(i_array.GetLength());
  for (const T& item : i_array) StreamItem(item, ipStream);
}

// Replaces the array with the one read. A count the stream cannot hold is
// reported, consumes only the count and leaves the array as it was: false.
template <class T>
bool UnstreamArray(VYRSYPDynArray<T>& o_array, VYRI2DGStream* ipStream) {
  int count = 0;
  ipStream->UnstreamValue(count);
  if (!VYR_CHECK_CONDITION_TEXT(ipStream->CountFits(count, sizeof(T)), "array count within the stream")) {
    return false;
  }
  VYRSYPDynArray<T> items;
  if (count > 0 && items.Reserve(count) < 0) return false;
  for (int i = 0; i < count; ++i) {
    T item{};
    UnstreamItem(item, ipStream);
    items.Append(item);
  }
  o_array.Swap(items);
  return true;
}

}  // namespace VYRPrtArrayStreamForms

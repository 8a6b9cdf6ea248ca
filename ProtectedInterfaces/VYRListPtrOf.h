#pragma once

#include "VYRCollec.h"
#include "VYRRawCollPV.h"

// A typed view of the platform pointer list: the same storage, positions
// (from 1) and comparison, with casts to and from T*. It adds no field and
// never owns the elements it points to.
template <class T>
class VYRListPtrOf : public VYRRawCollPV {
 public:
  explicit VYRListPtrOf(int i_initialCapacity = 0) : VYRRawCollPV(i_initialCapacity) {}
  VYRListPtrOf(const VYRListPtrOf& i_other) = default;
  ~VYRListPtrOf() override = default;
  VYRListPtrOf& operator=(const VYRListPtrOf& i_other) = default;

  int operator==(const VYRListPtrOf& i_other) const { return VYRRawCollPV::operator==(i_other); }
  int operator!=(const VYRListPtrOf& i_other) const { return VYRRawCollPV::operator!=(i_other); }

  T* operator[](int i_position) const { return static_cast<T*>(VYRRawCollPV::operator[](i_position)); }
  T*& operator[](int i_position) { return reinterpret_cast<T*&>(VYRRawCollPV::operator[](i_position)); }

  int Append(T* i_pItem) { return VYRRawCollPV::Append(static_cast<void*>(i_pItem)); }
  int Locate(T* i_pItem, int i_startPosition = 1) const {
    return VYRRawCollPV::Locate(static_cast<void*>(i_pItem), i_startPosition);
  }
  int RemovePosition(int i_position) { return VYRRawCollPV::RemovePosition(i_position); }
  int RemovePosition(int i_position, unsigned int i_count) {
    return VYRRawCollPV::RemovePosition(i_position, i_count);
  }
  void RemoveAll(VYRCollec::MemoryHandling i_memory = VYRCollec::DoNotFreeMemory) {
    VYRRawCollPV::RemoveAll(i_memory);
  }
  void Swap(int i_position1, int i_position2) { VYRRawCollPV::Swap(i_position1, i_position2); }
  int Size() const { return VYRRawCollPV::Size(); }
};

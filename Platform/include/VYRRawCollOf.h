#pragma once

#include <utility>

#include "VYRAssert.h"
#include "VYRCollec.h"
#include "VYRExport.h"
#include "VYRSYPDynArray.h"

// The one implementation behind VYRRawCollPV, VYRRawColldouble and
// VYRRawCollfloat: an ordered list of plain values addressed by positions
// 1 to Size(). Storage and growth are those of VYRSYPDynArray.
//
// A position outside 1..Size() reports "(i_position>=1 && i_position<=Size())"
// and the operation does nothing (operator[] then yields a default item).
template <class T>
class VYR_EXPORT VYRRawCollOf {
 public:
  explicit VYRRawCollOf(int i_initialCapacity = 0) { _items.Reserve(i_initialCapacity); }
  VYRRawCollOf(const VYRRawCollOf& i_other) = default;
  virtual ~VYRRawCollOf() = default;
  VYRRawCollOf& operator=(const VYRRawCollOf& i_other) = default;

  // 1 when both hold the same items in the same order, else 0.
  int operator==(const VYRRawCollOf& i_other) const {
    if (Size() != i_other.Size()) return 0;
    for (int i = 0; i < Size(); ++i)
      if (!(_items.GetData()[i] == i_other._items.GetData()[i])) return 0;
    return 1;
  }
  int operator!=(const VYRRawCollOf& i_other) const { return !(*this == i_other); }

  T operator[](int i_position) const {
    if (!CheckPosition(i_position)) return T();
    return _items.GetData()[i_position - 1];
  }
  T& operator[](int i_position) {
    if (!CheckPosition(i_position)) {
      _default = T();
      return _default;
    }
    return _items.GetData()[i_position - 1];
  }

  // Adds the item at the end; returns the new size, or -1 (list unchanged)
  // when the storage could not grow.
  int Append(const T& i_item) {
    if (_items.Append(i_item) < 0) return -1;
    return Size();
  }

  // Position of the first item equal to i_item at or after i_startPosition,
  // or 0 when there is none. A start below 1 is reported and finds nothing.
  int Locate(const T& i_item, int i_startPosition = 1) const {
    if (!VYR_CHECK_CONDITION(i_startPosition >= 1)) return 0;
    for (int position = i_startPosition; position <= Size(); ++position)
      if (_items.GetData()[position - 1] == i_item) return position;
    return 0;
  }

  // Removes i_count items from i_position on (fewer when the list ends
  // earlier), moving the later ones down; returns how many were removed.
  int RemovePosition(int i_position, unsigned int i_count) {
    if (!CheckPosition(i_position)) return 0;
    const unsigned int available = static_cast<unsigned int>(Size() - i_position + 1);
    const int removed = static_cast<int>(i_count < available ? i_count : available);
    T* items = _items.GetData();
    for (int to = i_position - 1; to + removed < Size(); ++to) items[to] = std::move(items[to + removed]);
    DropLast(removed);
    return removed;
  }
  int RemovePosition(int i_position) { return RemovePosition(i_position, 1u); }

  void RemoveAll(VYRCollec::MemoryHandling i_memory = VYRCollec::DoNotFreeMemory) {
    if (i_memory == VYRCollec::FreeMemory)
      _items.Clear();
    else
      DropLast(Size());
  }

  // Exchanges the items at two positions; nothing changes if either is bad.
  void Swap(int i_position1, int i_position2) {
    if (!CheckPosition(i_position1) || !CheckPosition(i_position2)) return;
    std::swap(_items.GetData()[i_position1 - 1], _items.GetData()[i_position2 - 1]);
  }

  int Size() const { return _items.GetLength(); }
  // Room for items before the storage must grow again.
  int Capacity() const { return _items.GetCapacity(); }

 private:
  bool CheckPosition(int i_position) const {
    return VYR_CHECK_CONDITION_TEXT(i_position >= 1 && i_position <= Size(),
                                    "(i_position>=1 && i_position<=Size())");
  }
  // Removing from the end moves nothing and keeps the storage block.
  void DropLast(int i_count) {
    for (int i = 0; i < i_count; ++i) _items.RemoveAt(Size() - 1);
  }

  VYRSYPDynArray<T> _items;
  T _default = T();
};

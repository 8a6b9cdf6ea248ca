#pragma once

#include <cstddef>
#include <new>
#include <utility>

#include "VYRAssert.h"

// A growable array of values. Growth doubles: when one more element does not
// fit, the capacity becomes 2 x (length + 1). A bad index reports
// "(i_index>=0 && i_index<_length)" and yields the array's default value.
template <class T>
class VYRSYPDynArray {
 public:
  VYRSYPDynArray() = default;
  VYRSYPDynArray(const VYRSYPDynArray& i_other) { CopyFrom(i_other); }
  VYRSYPDynArray(VYRSYPDynArray&& io_other) noexcept { Swap(io_other); }
  VYRSYPDynArray& operator=(const VYRSYPDynArray& i_other) {
    if (this != &i_other) {
      Clear();
      CopyFrom(i_other);
    }
    return *this;
  }
  VYRSYPDynArray& operator=(VYRSYPDynArray&& io_other) noexcept {
    if (this != &io_other) {
      Clear();
      Swap(io_other);
    }
    return *this;
  }
  ~VYRSYPDynArray() { delete[] _pArray; }

  int GetLength() const { return _length; }
  int Size() const { return _length; }
  int GetCapacity() const { return _capacity; }
  bool IsEmpty() const { return _length == 0; }
  T* GetData() { return _pArray; }
  const T* GetData() const { return _pArray; }
  T* begin() { return _pArray; }
  T* end() { return _pArray + _length; }
  const T* begin() const { return _pArray; }
  const T* end() const { return _pArray + _length; }

  T& operator[](int i_index) {
    if (!VYR_CHECK_CONDITION_TEXT(i_index >= 0 && i_index < _length, "(i_index>=0 && i_index<_length)")) {
      _default = T();
      return _default;
    }
    return _pArray[i_index];
  }
  const T& operator[](int i_index) const {
    if (!VYR_CHECK_CONDITION_TEXT(i_index >= 0 && i_index < _length, "(i_index>=0 && i_index<_length)")) {
      return _default;
    }
    return _pArray[i_index];
  }

  // Appends a value; returns 1, or -1 (array unchanged) when it could not grow.
  int Append(const T& i_value) {
    if (_length + 1 > _capacity && SetCapacity(_length + 1 == 1 ? 1 : 2 * (_length + 1)) < 0) return -1;
    _pArray[_length++] = i_value;
    return 1;
  }

  // Moves the storage to a block of the given capacity, keeping the elements.
  // Reports "i_capacity > _length" for a capacity that would not hold one more
  // element and "plNewArray" when the block cannot be had; both return -1.
  int SetCapacity(int i_capacity) {
    if (!VYR_CHECK_CONDITION(i_capacity > _length)) return -1;
    T* plNewArray = new (std::nothrow) T[static_cast<size_t>(i_capacity)];
    if (!VYR_CHECK_POINTER(plNewArray)) return -1;
    for (int i = 0; i < _length; ++i) plNewArray[i] = std::move(_pArray[i]);
    delete[] _pArray;
    _pArray = plNewArray;
    _capacity = i_capacity;
    return 1;
  }

  // Makes room for at least i_count elements without reporting; -1 when it cannot.
  int Reserve(int i_count) {
    if (i_count <= _capacity) return 1;
    return SetCapacity(i_count);
  }

  // Removes the element at an index, moving the later ones down; -1 for a bad index.
  int RemoveAt(int i_index) {
    if (!VYR_CHECK_CONDITION_TEXT(i_index >= 0 && i_index < _length, "(i_index>=0 && i_index<_length)")) {
      return -1;
    }
    for (int i = i_index + 1; i < _length; ++i) _pArray[i - 1] = std::move(_pArray[i]);
    --_length;
    return 1;
  }

  // Position of the first element equal to the value, or -1.
  int Find(const T& i_value) const {
    for (int i = 0; i < _length; ++i)
      if (_pArray[i] == i_value) return i;
    return -1;
  }

  // Length and capacity to 0, storage freed.
  void Clear() {
    delete[] _pArray;
    _pArray = nullptr;
    _length = 0;
    _capacity = 0;
  }

  void Swap(VYRSYPDynArray& io_other) noexcept {
    std::swap(_pArray, io_other._pArray);
    std::swap(_length, io_other._length);
    std::swap(_capacity, io_other._capacity);
  }

 private:
  void CopyFrom(const VYRSYPDynArray& i_other) {
    if (i_other._length == 0) return;
    _pArray = new (std::nothrow) T[static_cast<size_t>(i_other._length)];
    if (!VYR_CHECK_POINTER_TEXT(_pArray, "plNewArray")) return;
    for (int i = 0; i < i_other._length; ++i) _pArray[i] = i_other._pArray[i];
    _length = _capacity = i_other._length;
  }

  T* _pArray = nullptr;
  int _length = 0;
  int _capacity = 0;
  T _default = T();
};

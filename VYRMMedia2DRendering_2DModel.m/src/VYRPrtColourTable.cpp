#include "VYRPrtColourTable.h"

#include <cstring>
#include <new>

#include "VYRAssert.h"
#include "VYRI2DGStream.h"

namespace {

constexpr int kColourTableTag = 5;
constexpr unsigned int kGrowthSlots = 256;
// AddColour never leaves more than 256 free slots; a stream claiming far more
// is damaged, and its capacity must not drive a huge allocation.
constexpr unsigned int kMostFreeSlotsRead = 65536;

unsigned char* NewComponentArray(unsigned int i_slots) {
  return new (std::nothrow) unsigned char[i_slots];
}

}  // namespace

VYRPrtColourTable::VYRPrtColourTable(const VYRPrtColourTable& iColourTable) {
  if (!VYR_CHECK_CONDITION(this != &iColourTable)) return;
  CopyFrom(iColourTable);
}

VYRPrtColourTable& VYRPrtColourTable::operator=(const VYRPrtColourTable& iColourTable) {
  if (!VYR_CHECK_CONDITION(this != &iColourTable)) return *this;
  if ((_paRedTab && _paRedTab == iColourTable._paRedTab) ||
      (_paGreenTab && _paGreenTab == iColourTable._paGreenTab) ||
      (_paBlueTab && _paBlueTab == iColourTable._paBlueTab)) {
    return *this;
  }
  ReleaseTables();
  CopyFrom(iColourTable);
  return *this;
}

VYRPrtColourTable::~VYRPrtColourTable() { ReleaseTables(); }

void VYRPrtColourTable::ReleaseTables() {
  delete[] _paRedTab;
  delete[] _paGreenTab;
  delete[] _paBlueTab;
  _paRedTab = _paGreenTab = _paBlueTab = nullptr;
  _slotCount = 0;
}

bool VYRPrtColourTable::HasTables() const {
  return VYR_CHECK_POINTER(_paRedTab) && VYR_CHECK_POINTER(_paGreenTab) && VYR_CHECK_POINTER(_paBlueTab);
}

// Expects a table without arrays; leaves it empty when the source cannot be copied.
void VYRPrtColourTable::CopyFrom(const VYRPrtColourTable& iColourTable) {
  _capacity = iColourTable._capacity;
  _colourCount = iColourTable._colourCount;
  if (_capacity != 0) {
    _paRedTab = NewComponentArray(_capacity);
    _paGreenTab = NewComponentArray(_capacity);
    _paBlueTab = NewComponentArray(_capacity);
    _slotCount = _capacity;
    bool sourceComplete = iColourTable._paRedTab && iColourTable._paGreenTab && iColourTable._paBlueTab &&
                          _colourCount <= iColourTable._slotCount;
    if (_paRedTab && _paGreenTab && _paBlueTab && sourceComplete && _colourCount <= _capacity) {
      std::memcpy(_paRedTab, iColourTable._paRedTab, _colourCount);
      std::memcpy(_paGreenTab, iColourTable._paGreenTab, _colourCount);
      std::memcpy(_paBlueTab, iColourTable._paBlueTab, _colourCount);
      return;
    }
  }
  ReleaseTables();
  _capacity = 0;
  _colourCount = 0;
}

int VYRPrtColourTable::AddColour(unsigned char iRed, unsigned char iGreen, unsigned char iBlue,
                                 unsigned int& oIndex) {
  // The table grows before its last free slot is taken, so it is never full.
  if (_colourCount + 1 >= _capacity || _colourCount >= _slotCount) {
    _capacity += kGrowthSlots;
    unsigned char* paRedTabTemp = NewComponentArray(_capacity);
    if (!VYR_CHECK_POINTER(paRedTabTemp)) return -1;
    unsigned char* paGreenTabTemp = NewComponentArray(_capacity);
    if (!VYR_CHECK_POINTER(paGreenTabTemp)) {
      delete[] paRedTabTemp;
      return -1;
    }
    unsigned char* paBlueTabTemp = NewComponentArray(_capacity);
    if (!VYR_CHECK_POINTER(paBlueTabTemp)) {
      delete[] paRedTabTemp;
      delete[] paGreenTabTemp;
      return -1;
    }
    if (_colourCount > 0) {
      std::memcpy(paRedTabTemp, _paRedTab, _colourCount);
      std::memcpy(paGreenTabTemp, _paGreenTab, _colourCount);
      std::memcpy(paBlueTabTemp, _paBlueTab, _colourCount);
    }
    ReleaseTables();
    _paRedTab = paRedTabTemp;
    _paGreenTab = paGreenTabTemp;
    _paBlueTab = paBlueTabTemp;
    _slotCount = _capacity;
  }
  _paRedTab[_colourCount] = iRed;
  _paGreenTab[_colourCount] = iGreen;
  _paBlueTab[_colourCount] = iBlue;
  ++_colourCount;
  oIndex = _colourCount - 1;
  return 1;
}

int VYRPrtColourTable::GetColour(unsigned int iIndex, unsigned char& oRed, unsigned char& oGreen,
                                 unsigned char& oBlue) const {
  if (!VYR_CHECK_CONDITION(iIndex < _colourCount) || !HasTables()) return -1;
  oRed = _paRedTab[iIndex];
  oGreen = _paGreenTab[iIndex];
  oBlue = _paBlueTab[iIndex];
  return 1;
}

int VYRPrtColourTable::ModifyColour(unsigned int iIndex, unsigned char iRed, unsigned char iGreen,
                                    unsigned char iBlue) {
  if (!VYR_CHECK_CONDITION(iIndex < _colourCount) || !HasTables()) return -1;
  _paRedTab[iIndex] = iRed;
  _paGreenTab[iIndex] = iGreen;
  _paBlueTab[iIndex] = iBlue;
  return 1;
}

int VYRPrtColourTable::GetColourIndex(unsigned int& oIndex, unsigned char iRed, unsigned char iGreen,
                                      unsigned char iBlue) const {
  if (!HasTables()) return -1;
  for (unsigned int index = 0; index < _colourCount; ++index) {
    if (_paRedTab[index] == iRed && _paGreenTab[index] == iGreen && _paBlueTab[index] == iBlue) {
      oIndex = index;
      return 1;
    }
  }
  return -1;
}

int VYRPrtColourTable::GetColourCount(int& oCount) const {
  oCount = static_cast<int>(_colourCount);
  return 1;
}

void VYRPrtColourTable::Stream(VYRI2DGStream* ipStream) {
  if (!ipStream) return;
  ipStream->StreamValue(kColourTableTag);
  ipStream->StreamValue(_capacity);
  ipStream->StreamValue(_colourCount);
  if (_colourCount > _capacity) return;
  // Interleaved per colour, although the table keeps the components apart.
  for (unsigned int index = 0; index < _colourCount; ++index) {
    ipStream->StreamValue(_paRedTab[index]);
    ipStream->StreamValue(_paGreenTab[index]);
    ipStream->StreamValue(_paBlueTab[index]);
  }
}

void VYRPrtColourTable::Unstream(VYRI2DGStream* ipStream) {
  if (!ipStream) return;
  ReleaseTables();
  _capacity = 0;
  _colourCount = 0;
  unsigned int capacity = 0;
  unsigned int count = 0;
  ipStream->UnstreamValue(capacity);
  ipStream->UnstreamValue(count);
  if (capacity == 0) return;
  // A count above the capacity means no colours follow; such a table holds nothing usable.
  if (!VYR_CHECK_CONDITION(count <= capacity)) return;
  if (!VYR_CHECK_CONDITION(ipStream->CountFits(count, 3)) ||
      !VYR_CHECK_CONDITION(capacity - count <= kMostFreeSlotsRead)) {
    return;
  }
  _paRedTab = NewComponentArray(capacity);
  _paGreenTab = NewComponentArray(capacity);
  _paBlueTab = NewComponentArray(capacity);
  if (!HasTables()) {
    ReleaseTables();
    return;
  }
  _capacity = _slotCount = capacity;
  for (unsigned int index = 0; index < count; ++index) {
    ipStream->UnstreamValue(_paRedTab[index]);
    ipStream->UnstreamValue(_paGreenTab[index]);
    ipStream->UnstreamValue(_paBlueTab[index]);
  }
  _colourCount = count;
}

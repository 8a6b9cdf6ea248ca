#pragma once

#include "VYRExport.h"

class VYRI2DGStream;

// An indexed table of 8-bit RGB colours, kept as three parallel component
// arrays. Colours are appended and addressed by index. All results are 1 for
// success and -1 for failure.
class VYR_EXPORT VYRPrtColourTable {
 public:
  VYRPrtColourTable() = default;
  VYRPrtColourTable(const VYRPrtColourTable& iColourTable);
  VYRPrtColourTable& operator=(const VYRPrtColourTable& iColourTable);
  ~VYRPrtColourTable();

  // Appends a colour, even one already present, and gives its index.
  int AddColour(unsigned char iRed, unsigned char iGreen, unsigned char iBlue, unsigned int& oIndex);
  int GetColour(unsigned int iIndex, unsigned char& oRed, unsigned char& oGreen, unsigned char& oBlue) const;
  int ModifyColour(unsigned int iIndex, unsigned char iRed, unsigned char iGreen, unsigned char iBlue);
  // The lowest index holding exactly this colour.
  int GetColourIndex(unsigned int& oIndex, unsigned char iRed, unsigned char iGreen, unsigned char iBlue) const;
  int GetColourCount(int& oCount) const;

  // Tag 5, capacity, count, then red, green, blue per colour.
  void Stream(VYRI2DGStream* ipStream);
  // Reads what follows the tag.
  void Unstream(VYRI2DGStream* ipStream);

 private:
  bool HasTables() const;
  void CopyFrom(const VYRPrtColourTable& iColourTable);
  void ReleaseTables();

  unsigned int _capacity = 0;
  unsigned int _colourCount = 0;
  unsigned char* _paRedTab = nullptr;
  unsigned char* _paGreenTab = nullptr;
  unsigned char* _paBlueTab = nullptr;
  // Slots really allocated: differs from _capacity only after a failed growth,
  // which raises the capacity but keeps the old arrays.
  unsigned int _slotCount = 0;
};

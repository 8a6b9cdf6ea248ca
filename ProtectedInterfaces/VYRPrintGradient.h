#pragma once

#include "VYRBaseUnknown.h"
#include "VYRExport.h"
#include "VYRMath3x3Matrix.h"
#include "VYRSYPDynArray.h"

class VYRPrintGradientStop;

// Values of a gradient's spread mode; any other value pads.
enum VYRPrintGradientSpread : int {
  VYRPrintGradientSpreadPad = 0,
  VYRPrintGradientSpreadReflect = 1,
  VYRPrintGradientSpreadRepeat = 2,
};

// The description of a gradient handed to the drawing: spread mode, an
// ordered list of owned stops and a transform (identity by default).
// Copies are deep: every stop is duplicated.
class VYR_EXPORT VYRPrintGradient : public VYRBaseUnknown {
  VYR_DECLARE_CLASS(VYRPrintGradient)

 public:
  VYRPrintGradient() = default;
  VYRPrintGradient(const VYRPrintGradient& iGradient);
  VYRPrintGradient& operator=(const VYRPrintGradient& iGradient);
  ~VYRPrintGradient() override;

  // A new copy of the same class.
  virtual VYRPrintGradient* Clone() const;

  int GetSpread() const { return _spread; }
  void SetSpread(int i_spread) { _spread = i_spread; }
  const VYRMath3x3Matrix& GetTransform() const { return _transform; }
  void SetTransform(const VYRMath3x3Matrix& i_transform) { _transform = i_transform; }

  int GetStopCount() const { return _stops.GetLength(); }
  // The stop at a position from 0 (still owned by the gradient); null with a report for a bad index.
  VYRPrintGradientStop* GetStop(int i_index) const;
  // Takes ownership of a stop and appends it, unless that very object is
  // already in the list (searched from the end). Returns 1 when appended, 0
  // when already present, -1 for a null stop or a list that cannot grow (the
  // stop is then not taken).
  int AddStop(VYRPrintGradientStop* ipStop);
  // Deletes every stop.
  void EmptyStopList();

 private:
  void CopyFrom(const VYRPrintGradient& iGradient);

  int _spread = VYRPrintGradientSpreadPad;
  VYRSYPDynArray<VYRPrintGradientStop*> _stops;
  VYRMath3x3Matrix _transform;
};

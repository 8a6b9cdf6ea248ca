#pragma once

#include "MM2DAttributeTypes.h"
#include "VYR5X5ColorMatrix.h"
#include "VYRExport.h"
#include "VYRPrtFilterBaseElt.h"

// An SVG feColorMatrix: the type keyword and the values text as the document
// gave them; GetColorMatrix turns them into the matrix applied to colours.
class VYR_EXPORT VYRPrtFilterColorMatrixElt : public VYRPrtFilterBaseElt {
  VYR_DECLARE_CLASS(VYRPrtFilterColorMatrixElt)

 public:
  VYRPrtFilterColorMatrixElt() = default;
  VYRPrtFilterColorMatrixElt(const VYRPrtFilterColorMatrixElt& iGPElt) = default;
  VYRPrtFilterColorMatrixElt& operator=(const VYRPrtFilterColorMatrixElt& iGPElt);
  using VYRPrtFilterBaseElt::operator=;
  ~VYRPrtFilterColorMatrixElt() override = default;

  void SetType(MM2D::ColorMatrixType i_type) { _type = i_type; }
  MM2D::ColorMatrixType GetType() const { return _type; }
  void SetValues(const VYRUnicodeString& i_values) { _values = i_values; }
  const VYRUnicodeString& GetValues() const { return _values; }

  // The matrix of the type and values: "matrix" takes 20 numbers row by row,
  // "saturate" one number, "hueRotate" one angle in degrees, and
  // "luminanceToAlpha" no values. Empty values mean the identity for
  // "matrix", 1 for "saturate" and 0 for "hueRotate". Returns 1; for values
  // that do not fit the type, or an unknown type, reports the failed
  // condition "well-formed colour matrix values", gives the identity and returns -1.
  int GetColorMatrix(VYR5X5ColorMatrix& o_matrix) const;

  // Common attributes and own fields to their defaults; the children stay.
  void Reset() override;
  StreamType GetStreamType() override;
  // The filter primitive record, the type (int) and the values text.
  void Stream(VYRI2DGStream* ipStream) override;
  void Unstream(VYRI2DGStream* ipStream) override;

 private:
  MM2D::ColorMatrixType _type = MM2D::ColorMatrixMatrix;
  VYRUnicodeString _values;
};

#include "VYRPrtFilterColorMatrixElt.h"

#include "MMParsingTools.h"
#include "VYRAssert.h"
#include "VYRPrtEnumStream.h"
#include "VYRPrtStreamUnstreamHelper.h"
#include "VYRRawColldouble.h"
#include "VYRSYPDynArray.h"

VYR_IMPLEMENT_CLASS(VYRPrtFilterColorMatrixElt, VYRPrtFilterBaseElt, "Multimedia2DRendering")

namespace {

// The numbers of a values text, or false when it is not a number list.
bool ParseValues(const VYRUnicodeString& i_values, VYRSYPDynArray<double>& o_numbers) {
  // The parser refuses an empty string, which here is a valid empty list.
  if (i_values.GetLengthInChar() < 1) return true;
  return MMParsingTools::ParseNumberList(i_values, o_numbers);
}

// The matrix of a type and its numbers; false when they do not fit.
bool BuildMatrix(MM2D::ColorMatrixType i_type, const VYRSYPDynArray<double>& i_numbers, VYR5X5ColorMatrix& o_matrix) {
  const int count = i_numbers.GetLength();
  switch (i_type) {
    case MM2D::ColorMatrixMatrix: {
      if (count == 0) {
        o_matrix = VYR5X5ColorMatrix::Identity();
        return true;
      }
      if (count != VYR5X5ColorMatrix::SVGMatrixCoefCount) return false;
      VYRRawColldouble values;
      for (double value : i_numbers) values.Append(value);
      return o_matrix.SetSVGMatrix(values) == 1;
    }
    case MM2D::ColorMatrixSaturate:
      if (count > 1) return false;
      o_matrix = VYR5X5ColorMatrix::Saturate(count == 1 ? i_numbers[0] : 1.0);
      return true;
    case MM2D::ColorMatrixHueRotate:
      if (count > 1) return false;
      o_matrix = VYR5X5ColorMatrix::HueRotate(count == 1 ? i_numbers[0] : 0.0);
      return true;
    case MM2D::ColorMatrixLuminanceToAlpha:
      o_matrix = VYR5X5ColorMatrix::LuminanceToAlpha();
      return true;
    default:
      return false;
  }
}

}  // namespace

VYRPrtFilterColorMatrixElt& VYRPrtFilterColorMatrixElt::operator=(const VYRPrtFilterColorMatrixElt& iGPElt) {
  if (!VYR_CHECK_CONDITION(this != &iGPElt)) return *this;
  VYRPrtFilterBaseElt::operator=(iGPElt);
  _type = iGPElt._type;
  _values = iGPElt._values;
  return *this;
}

int VYRPrtFilterColorMatrixElt::GetColorMatrix(VYR5X5ColorMatrix& o_matrix) const {
  VYRSYPDynArray<double> numbers;
  VYR5X5ColorMatrix matrix;
  // luminanceToAlpha takes no values, so whatever text it carries is not looked at.
  bool wellFormed = _type == MM2D::ColorMatrixLuminanceToAlpha || ParseValues(_values, numbers);
  wellFormed = wellFormed && BuildMatrix(_type, numbers, matrix);
  if (!VYR_CHECK_CONDITION_TEXT(wellFormed, "well-formed colour matrix values")) {
    o_matrix = VYR5X5ColorMatrix::Identity();
    return -1;
  }
  o_matrix = matrix;
  return 1;
}

void VYRPrtFilterColorMatrixElt::Reset() {
  VYRPrtFilterBaseElt::Reset();
  _type = MM2D::ColorMatrixMatrix;
  _values = VYRUnicodeString();
}

StreamType VYRPrtFilterColorMatrixElt::GetStreamType() { return kStreamTypeFilterColorMatrixElt; }

void VYRPrtFilterColorMatrixElt::Stream(VYRI2DGStream* ipStream) {
  if (!ipStream) return;
  VYRPrtFilterBaseElt::Stream(ipStream);
  StreamEnum(_type, ipStream);
  VYRPrtStreamUnstreamHelper::SerializeVYRUnicodeString(_values, ipStream);
}

void VYRPrtFilterColorMatrixElt::Unstream(VYRI2DGStream* ipStream) {
  if (!ipStream) return;
  VYRPrtFilterBaseElt::Unstream(ipStream);
  UnstreamEnum(_type, ipStream);
  VYRPrtStreamUnstreamHelper::CreateVYRUnicodeStringFromStream(_values, ipStream);
}

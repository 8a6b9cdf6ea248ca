#pragma once

#include "VYR5X5ColorMatrix.h"
#include "VYRExport.h"
#include "VYRMath2x2Matrix.h"
#include "VYRMath3x3Matrix.h"
#include "VYRMathPoint2D.h"
#include "VYRMathVector2D.h"
#include "VYRPrtModelForward.h"

class VYRUnicodeString;

class VYRI2DGStream;

// Static byte forms of the values that model objects embed in a stream.
// Every operation does nothing when given a null stream; a reader then leaves
// its target untouched.
class VYR_EXPORT VYRPrtStreamUnstreamHelper {
 public:
  VYRPrtStreamUnstreamHelper() = delete;

  // Two doubles x, y; no tag.
  static void SerializeVYRMathPoint2D(VYRMathPoint2D& i_point, VYRI2DGStream* ipStream);
  static void CreateVYRMathPoint2DFromStream(VYRMathPoint2D& o_point, VYRI2DGStream* ipStream);
  // The coefficients as doubles, in the order of GetCoef/SetCoef: 4 and 9 of them.
  static void SerializeVYRMath2x2Matrix(VYRMath2x2Matrix& i_matrix, VYRI2DGStream* ipStream);
  static void CreateVYRMath2x2MatrixFromStream(VYRMath2x2Matrix& o_matrix, VYRI2DGStream* ipStream);
  static void SerializeVYRMath3x3Matrix(VYRMath3x3Matrix& i_matrix, VYRI2DGStream* ipStream);
  static void CreateVYRMath3x3MatrixFromStream(VYRMath3x3Matrix& o_matrix, VYRI2DGStream* ipStream);
  // An int count N, then N doubles; the matrix takes them only when N is its coefficient count.
  static void SerializeVYR5X5ColorMatrix(VYR5X5ColorMatrix& i_matrix, VYRI2DGStream* ipStream);
  static void CreateVYR5X5ColorMatrixFromStream(VYR5X5ColorMatrix& o_matrix, VYRI2DGStream* ipStream);
  // Same bytes as a point.
  static void SerializeVYRMathVector2D(VYRMathVector2D& i_vector, VYRI2DGStream* ipStream);
  static void CreateVYRMathVector2DFromStream(VYRMathVector2D& o_vector, VYRI2DGStream* ipStream);

  // Elements: the StreamType tag, then the element's record; a null element
  // is the single int 0. Reading takes an element of the tag's class from the
  // factory and lets it read itself; tag 0, abstract and unknown tags yield
  // null after consuming exactly the 4 tag bytes.
  static VYRPrtGraphicPrimitiveElt* CreateVYRPrtGraphicPrimitiveEltFromStream(VYRI2DGStream* ipStream);
  static void SerializeVYRPrtGraphicPrimitiveElt(VYRPrtGraphicPrimitiveElt* ipElt, VYRI2DGStream* ipStream);

  // Texts as counted byte strings of their 8-bit form; an empty text reads
  // back from the length 0 alone.
  static void SerializeVYRUnicodeString(const VYRUnicodeString& i_text, VYRI2DGStream* ipStream);
  static void CreateVYRUnicodeStringFromStream(VYRUnicodeString& o_text, VYRI2DGStream* ipStream);

  // Tag 5 and the table's record; a null table is the int 0. Reading yields a
  // new table (the caller's) or null when the tag is not 5.
  static VYRPrtColourTable* CreateVYRPrtColourTableFromStream(VYRI2DGStream* ipStream);
  static void SerializeVYRPrtColourTable(VYRPrtColourTable* ipTable, VYRI2DGStream* ipStream);

 private:
  // A new element of the class the tag names, from the factory; null for
  // tags that name no creatable class.
  static VYRPrtGraphicPrimitiveElt* CreateElementOfType(int i_tag);
};

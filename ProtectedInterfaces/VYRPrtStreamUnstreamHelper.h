#pragma once

#include "VYR5X5ColorMatrix.h"
#include "VYRExport.h"
#include "VYRMath2x2Matrix.h"
#include "VYRMath3x3Matrix.h"
#include "VYRMathPoint2D.h"
#include "VYRMathVector2D.h"
#include "MM2DAttributeTypes.h"
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

  // Tag 6 and the attribute's own fields; a null attribute is the int 0.
  static VYRPrtFilterColorAttribute* CreateVYRPrtFilterColorAttributeFromStream(VYRI2DGStream* ipStream);
  static void SerializeVYRPrtFilterColorAttribute(VYRPrtFilterColorAttribute* ipAttribute, VYRI2DGStream* ipStream);

  // Tag 4, a PNG flag (1) or raw flag (0), width, height, byte count, format,
  // read-only flag, the two pixel sizes, then the PNG or pixel bytes as a
  // counted string; a null image is the int 0. Reading yields a new image
  // (one reference, the caller's) or null.
  static VYRPixelImage* CreateVYRPixelImageFromStream(VYRI2DGStream* ipStream);
  static void SerializeVYRPixelImage(VYRPixelImage* ipImage, VYRI2DGStream* ipStream);

  // Gradients: tag 1, 2 or 3, the common part (spread, stop count, stops,
  // 3x3 matrix), then the kind's floats; a null gradient is the int 0. The
  // readers fill a gradient the caller made after reading the tag itself.
  static void SerializeVYRPrintGradient(VYRPrintGradient* ipGradient, VYRI2DGStream* ipStream);
  static void SerializeVYRPrintGradientLinear(VYRPrintGradientLinear* ipGradient, VYRI2DGStream* ipStream);
  static void SerializeVYRPrintGradientRadial(VYRPrintGradientRadial* ipGradient, VYRI2DGStream* ipStream);
  static void CreateVYRPrintGradientFromStream(VYRPrintGradient* iopGradient, VYRI2DGStream* ipStream);
  static void CreateVYRPrintGradientLinearFromStream(VYRPrintGradientLinear* iopGradient, VYRI2DGStream* ipStream);
  static void CreateVYRPrintGradientRadialFromStream(VYRPrintGradientRadial* iopGradient, VYRI2DGStream* ipStream);
  // Five floats, no tag; a null stop writes nothing.
  static void SerializeVYRPrintGradientStop(VYRPrintGradientStop* ipStop, VYRI2DGStream* ipStream);
  static void CreateVYRPrintGradientStopFromStream(VYRPrintGradientStop* iopStop, VYRI2DGStream* ipStream);

  // The gradient of fill and stroke attributes. Writing: the linear form for
  // type 1, the radial form for type 2, else the int 0. Reading: the kind tag,
  // then a new gradient (one reference) for 2 or 3, else null.
  static void SerializeGradientOfType(VYRPrintGradient* ipGradient, MM2D::GradientType i_type,
                                      VYRI2DGStream* ipStream);
  static VYRPrintGradient* CreateGradientFromKindTag(VYRI2DGStream* ipStream);
  // A new default gradient (one reference) for types 1 and 2, null otherwise.
  static VYRPrintGradient* CreateDefaultGradient(MM2D::GradientType i_type);

 private:
  // A new element of the class the tag names, from the factory; null for
  // tags that name no creatable class.
  static VYRPrtGraphicPrimitiveElt* CreateElementOfType(int i_tag);
  static void SerializeGradientHelper(VYRPrintGradient* ipGradient, VYRI2DGStream* ipStream);
  static void CreateGradientFromStreamHelper(VYRPrintGradient* iopGradient, VYRI2DGStream* ipStream);
};

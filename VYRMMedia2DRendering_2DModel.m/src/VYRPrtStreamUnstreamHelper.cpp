#include "VYRPrtStreamUnstreamHelper.h"

#include <new>

#include "VYRAssert.h"
#include "VYRI2DGStream.h"
#include "VYRPrtClipPathElt.h"
#include "VYRPrtColourTable.h"
#include "VYRPrtDefsElt.h"
#include "VYRPrtEltFactory.h"
#include "VYRPrtFilterContainerElt.h"
#include "VYRPrtGraphicPrimitiveElt.h"
#include "VYRPrtGroupElt.h"
#include "VYRPrtMaskElt.h"
#include "VYRPrtSwitchElt.h"
#include "VYRPrtSymbolElt.h"
#include "VYRRawColldouble.h"
#include "VYRUnicodeString.h"

void VYRPrtStreamUnstreamHelper::SerializeVYRMathPoint2D(VYRMathPoint2D& i_point, VYRI2DGStream* ipStream) {
  if (!ipStream) return;
  ipStream->Stream(i_point.x);
  ipStream->Stream(i_point.y);
}

// Readers fill zeroed temporaries first and store them in one step.
void VYRPrtStreamUnstreamHelper::CreateVYRMathPoint2DFromStream(VYRMathPoint2D& o_point, VYRI2DGStream* ipStream) {
  if (!ipStream) return;
  double x = 0.0, y = 0.0;
  ipStream->Unstream(x);
  ipStream->Unstream(y);
  o_point = VYRMathPoint2D(x, y);
}

void VYRPrtStreamUnstreamHelper::SerializeVYRMath2x2Matrix(VYRMath2x2Matrix& i_matrix, VYRI2DGStream* ipStream) {
  if (!ipStream) return;
  double c[4];
  i_matrix.GetCoef(c[0], c[1], c[2], c[3]);
  for (double coef : c) ipStream->Stream(coef);
}

void VYRPrtStreamUnstreamHelper::CreateVYRMath2x2MatrixFromStream(VYRMath2x2Matrix& o_matrix, VYRI2DGStream* ipStream) {
  if (!ipStream) return;
  double c[4] = {};
  for (double& coef : c) ipStream->Unstream(coef);
  o_matrix.SetCoef(c[0], c[1], c[2], c[3]);
}

void VYRPrtStreamUnstreamHelper::SerializeVYRMath3x3Matrix(VYRMath3x3Matrix& i_matrix, VYRI2DGStream* ipStream) {
  if (!ipStream) return;
  double c[9];
  i_matrix.GetCoef(c[0], c[1], c[2], c[3], c[4], c[5], c[6], c[7], c[8]);
  for (double coef : c) ipStream->Stream(coef);
}

void VYRPrtStreamUnstreamHelper::CreateVYRMath3x3MatrixFromStream(VYRMath3x3Matrix& o_matrix, VYRI2DGStream* ipStream) {
  if (!ipStream) return;
  double c[9] = {};
  for (double& coef : c) ipStream->Unstream(coef);
  o_matrix.SetCoef(c[0], c[1], c[2], c[3], c[4], c[5], c[6], c[7], c[8]);
}

void VYRPrtStreamUnstreamHelper::SerializeVYR5X5ColorMatrix(VYR5X5ColorMatrix& i_matrix, VYRI2DGStream* ipStream) {
  if (!ipStream) return;
  VYRRawColldouble coefs;
  i_matrix.GetCoef(coefs);
  ipStream->Stream(coefs.Size());
  for (int position = 1; position <= coefs.Size(); ++position) ipStream->Stream(coefs[position]);
}

void VYRPrtStreamUnstreamHelper::CreateVYR5X5ColorMatrixFromStream(VYR5X5ColorMatrix& o_matrix, VYRI2DGStream* ipStream) {
  if (!ipStream) return;
  int count = 0;
  ipStream->Unstream(count);
  if (!VYR_CHECK_CONDITION(ipStream->CountFits(count, sizeof(double)))) return;
  VYRRawColldouble coefs;
  for (int i = 0; i < count; ++i) {
    double coef = 0.0;
    ipStream->Unstream(coef);
    coefs.Append(coef);
  }
  o_matrix.SetCoef(coefs);  // refuses, with a report, a count other than its own
}

void VYRPrtStreamUnstreamHelper::SerializeVYRMathVector2D(VYRMathVector2D& i_vector, VYRI2DGStream* ipStream) {
  VYRMathPoint2D point(i_vector.x, i_vector.y);
  SerializeVYRMathPoint2D(point, ipStream);
}

void VYRPrtStreamUnstreamHelper::CreateVYRMathVector2DFromStream(VYRMathVector2D& o_vector, VYRI2DGStream* ipStream) {
  if (!ipStream) return;
  VYRMathPoint2D point;
  CreateVYRMathPoint2DFromStream(point, ipStream);
  o_vector = VYRMathVector2D(point.x, point.y);
}

namespace {

// The small tags of the records that are not elements.
constexpr int kGradientTag = 1;
constexpr int kGradientLinearTag = 2;
constexpr int kGradientRadialTag = 3;
constexpr int kPixelImageTag = 4;
constexpr int kColourTableTag = 5;
constexpr int kFilterColorAttributeTag = 6;

// Elements nest through their clip path, mask and filter references (and
// later their children); a damaged stream could nest them deep enough to
// exhaust the stack, so reading refuses to go deeper than any real model does.
constexpr int kMaxElementNesting = 512;
int s_elementNesting = 0;

template <class K>
VYRPrtGraphicPrimitiveElt* MakeElement() {
  return VYRPrtEltFactory::Get().CreateElement<K>(K::ClassName());
}

}  // namespace

VYRPrtGraphicPrimitiveElt* VYRPrtStreamUnstreamHelper::CreateElementOfType(int i_tag) {
  switch (i_tag) {
    case kStreamTypeClipPathElt:
      return MakeElement<VYRPrtClipPathElt>();
    case kStreamTypeMaskElt:
      return MakeElement<VYRPrtMaskElt>();
    case kStreamTypeFilterContainerElt:
      return MakeElement<VYRPrtFilterContainerElt>();
    case kStreamTypeDefsElt:
      return MakeElement<VYRPrtDefsElt>();
    case kStreamTypeSymbolElt:
      return MakeElement<VYRPrtSymbolElt>();
    case kStreamTypeSwitchElt:
      return MakeElement<VYRPrtSwitchElt>();
    case kStreamTypeGroupElt:
      return MakeElement<VYRPrtGroupElt>();

    // Creatable tags whose element classes are not written yet: each gets its
    // MakeElement<Class>() here when its class arrives.
    case kStreamTypeRectangleElt:             // VYRPrtRectangleElt
    case kStreamTypeImageElt:                 // VYRPrtImageElt
    case kStreamTypeFilterColorMatrixElt:     // VYRPrtFilterColorMatrixElt
    case kStreamTypeFilterBlendElt:           // VYRPrtFilterBlendElt
    case kStreamTypeFilterGaussianBlurElt:    // VYRPrtFilterGaussianBlurElt
    case kStreamTypeFilterOffsetElt:          // VYRPrtFilterOffsetElt
    case kStreamTypeFilterMergeElt:           // VYRPrtFilterMergeElt
    case kStreamTypeFilterMergeNodeElt:       // VYRPrtFilterMergeNodeElt
    case kStreamTypeCircleElt:                // VYRPrtCircleElt
    case kStreamTypeCircularArcElt:           // VYRPrtCircularArcElt
    case kStreamTypeClosedFigureElt:          // VYRPrtClosedFigureElt
    case kStreamTypeClosedFigureRegionElt:    // VYRPrtClosedFigureRegionElt
    case kStreamTypeDisjointPolylineElt:      // VYRPrtDisjointPolylineElt
    case kStreamTypeEllipseElt:               // VYRPrtEllipseElt
    case kStreamTypeEllipticalArcElt:         // VYRPrtEllipticalArcElt
    case kStreamTypeGradientStopElt:          // VYRPrtGradientStopElt
    case kStreamTypeLinearGradientElt:        // VYRPrtLinearGradientElt
    case kStreamTypeLineElt:                  // VYRPrtLineElt
    case kStreamTypeMarkerElt:                // VYRPrtMarkerElt
    case kStreamTypeNURBSElt:                 // VYRPrtNURBSElt
    case kStreamTypePathElt:                  // VYRPrtPathElt
    case kStreamTypePatternElt:               // VYRPrtPatternElt
    case kStreamTypePolyCubicBezierElt:       // VYRPrtPolyCubicBezierElt
    case kStreamTypePolygonElt:               // VYRPrtPolygonElt
    case kStreamTypePolylineElt:              // VYRPrtPolylineElt
    case kStreamTypePolyPolygonElt:           // VYRPrtPolyPolygonElt
    case kStreamTypePolyQuadraticBezierElt:   // VYRPrtPolyQuadraticBezierElt
    case kStreamTypeRadialGradientElt:        // VYRPrtRadialGradientElt
    case kStreamTypeBitmapImageElt:           // VYRPrtBitmapImageElt
    case kStreamTypeTextElt:                  // VYRPrtTextElt
      return nullptr;

    // Abstract classes are never created; 0 is the null element.
    case kStreamTypeNull:
    case kStreamTypeGraphicPrimitiveElt:
    case kStreamTypeBaseGradientElt:
    case kStreamTypeBaseShapeElt:
    case kStreamTypePointBasedElt:
    default:
      return nullptr;
  }
}

VYRPrtGraphicPrimitiveElt* VYRPrtStreamUnstreamHelper::CreateVYRPrtGraphicPrimitiveEltFromStream(
    VYRI2DGStream* ipStream) {
  if (!ipStream) return nullptr;
  int tag = kStreamTypeNull;
  ipStream->Unstream(tag);
  if (!VYR_CHECK_CONDITION_TEXT(s_elementNesting < kMaxElementNesting, "element nesting within limits")) {
    return nullptr;
  }
  VYRPrtGraphicPrimitiveElt* pElt = CreateElementOfType(tag);
  if (!pElt) return nullptr;
  ++s_elementNesting;
  pElt->Unstream(ipStream);
  --s_elementNesting;
  return pElt;
}

void VYRPrtStreamUnstreamHelper::SerializeVYRPrtGraphicPrimitiveElt(VYRPrtGraphicPrimitiveElt* ipElt,
                                                                     VYRI2DGStream* ipStream) {
  if (!ipStream) return;
  if (!ipElt) {
    ipStream->Stream(0);
    return;
  }
  ipElt->Stream(ipStream);
}

void VYRPrtStreamUnstreamHelper::SerializeVYRUnicodeString(const VYRUnicodeString& i_text, VYRI2DGStream* ipStream) {
  if (!ipStream) return;
  ipStream->Stream(i_text.CastToCharPtr(), i_text.GetLengthInChar());
}

void VYRPrtStreamUnstreamHelper::CreateVYRUnicodeStringFromStream(VYRUnicodeString& o_text, VYRI2DGStream* ipStream) {
  if (!ipStream) return;
  char* pText = ipStream->Unstream(true);
  o_text = pText ? VYRUnicodeString(pText) : VYRUnicodeString();
  delete[] pText;
}

VYRPrtColourTable* VYRPrtStreamUnstreamHelper::CreateVYRPrtColourTableFromStream(VYRI2DGStream* ipStream) {
  if (!ipStream) return nullptr;
  int tag = 0;
  ipStream->Unstream(tag);
  if (tag != kColourTableTag) return nullptr;
  auto* pTable = new (std::nothrow) VYRPrtColourTable();
  if (pTable) pTable->Unstream(ipStream);
  return pTable;
}

void VYRPrtStreamUnstreamHelper::SerializeVYRPrtColourTable(VYRPrtColourTable* ipTable, VYRI2DGStream* ipStream) {
  if (!ipStream) return;
  if (!ipTable) {
    ipStream->Stream(0);
    return;
  }
  ipTable->Stream(ipStream);
}

#include "VYRAssert.h"

#include <cstring>
#include <new>

#include "VYRI2DGStream.h"
#include "VYRPixelImage.h"
#include "VYRPixelImagePNG.h"
#include "VYRPrintGradient.h"
#include "VYRPrintGradientLinear.h"
#include "VYRPrintGradientRadial.h"
#include "VYRPrintGradientStop.h"
#include "VYRPrtBitmapImageElt.h"
#include "VYRPrtCircleElt.h"
#include "VYRPrtCircularArcElt.h"
#include "VYRPrtClipPathElt.h"
#include "VYRPrtClosedFigureElt.h"
#include "VYRPrtClosedFigureRegionElt.h"
#include "VYRPrtColourTable.h"
#include "VYRPrtDefsElt.h"
#include "VYRPrtDisjointPolylineElt.h"
#include "VYRPrtEllipseElt.h"
#include "VYRPrtEllipticalArcElt.h"
#include "VYRPrtEltFactory.h"
#include "VYRPrtFilterColorAttribute.h"
#include "VYRPrtFilterContainerElt.h"
#include "VYRPrtFilterBlendElt.h"
#include "VYRPrtFilterColorMatrixElt.h"
#include "VYRPrtFilterGaussianBlurElt.h"
#include "VYRPrtFilterMergeElt.h"
#include "VYRPrtFilterMergeNodeElt.h"
#include "VYRPrtFilterOffsetElt.h"
#include "VYRPrtGradientStopElt.h"
#include "VYRPrtLinearGradientElt.h"
#include "VYRPrtMarkerElt.h"
#include "VYRPrtPatternElt.h"
#include "VYRPrtRadialGradientElt.h"
#include "VYRPrtGraphicPrimitiveElt.h"
#include "VYRPrtGroupElt.h"
#include "VYRPrtImageElt.h"
#include "VYRPrtLineElt.h"
#include "VYRPrtMaskElt.h"
#include "VYRPrtNURBSElt.h"
#include "VYRPrtPathElt.h"
#include "VYRPrtPolyCubicBezierElt.h"
#include "VYRPrtPolyPolygonElt.h"
#include "VYRPrtPolyQuadraticBezierElt.h"
#include "VYRPrtPolygonElt.h"
#include "VYRPrtPolylineElt.h"
#include "VYRPrtRectangleElt.h"
#include "VYRPrtStreamUnstreamHelper.h"
#include "VYRPrtSwitchElt.h"
#include "VYRPrtSymbolElt.h"
#include "VYRPrtTextElt.h"
#include "VYRRawColldouble.h"
#include "VYRStreamRecord.h"
#include "VYRUnicodeString.h"

void VYRPrtStreamUnstreamHelper::SerializeVYRMathPoint2D(VYRMathPoint2D& i_point, VYRI2DGStream* ipStream) {
  if (!ipStream) return;
  WriteRecord(ipStream, i_point.x, i_point.y);
}

// Readers fill zeroed temporaries first and store them in one step.
void VYRPrtStreamUnstreamHelper::CreateVYRMathPoint2DFromStream(VYRMathPoint2D& o_point, VYRI2DGStream* ipStream) {
  if (!ipStream) return;
  double x = 0.0, y = 0.0;
  ReadRecord(ipStream, x, y);
  o_point = VYRMathPoint2D(x, y);
}

void VYRPrtStreamUnstreamHelper::SerializeVYRMath2x2Matrix(VYRMath2x2Matrix& i_matrix, VYRI2DGStream* ipStream) {
  if (!ipStream) return;
  double c[4];
  i_matrix.GetCoef(c[0], c[1], c[2], c[3]);
  WriteRecord(ipStream, c[0], c[1], c[2], c[3]);
}

void VYRPrtStreamUnstreamHelper::CreateVYRMath2x2MatrixFromStream(VYRMath2x2Matrix& o_matrix, VYRI2DGStream* ipStream) {
  if (!ipStream) return;
  double c[4] = {};
  ReadRecord(ipStream, c[0], c[1], c[2], c[3]);
  o_matrix.SetCoef(c[0], c[1], c[2], c[3]);
}

void VYRPrtStreamUnstreamHelper::SerializeVYRMath3x3Matrix(VYRMath3x3Matrix& i_matrix, VYRI2DGStream* ipStream) {
  if (!ipStream) return;
  double c[9];
  i_matrix.GetCoef(c[0], c[1], c[2], c[3], c[4], c[5], c[6], c[7], c[8]);
  for (double coef : c) ipStream->StreamValue(coef);
}

void VYRPrtStreamUnstreamHelper::CreateVYRMath3x3MatrixFromStream(VYRMath3x3Matrix& o_matrix, VYRI2DGStream* ipStream) {
  if (!ipStream) return;
  double c[9] = {};
  for (double& coef : c) ipStream->UnstreamValue(coef);
  o_matrix.SetCoef(c[0], c[1], c[2], c[3], c[4], c[5], c[6], c[7], c[8]);
}

void VYRPrtStreamUnstreamHelper::SerializeVYR5X5ColorMatrix(VYR5X5ColorMatrix& i_matrix, VYRI2DGStream* ipStream) {
  if (!ipStream) return;
  VYRRawColldouble coefs;
  i_matrix.GetCoef(coefs);
  ipStream->StreamValue(coefs.Size());
  for (int position = 1; position <= coefs.Size(); ++position) ipStream->StreamValue(coefs[position]);
}

void VYRPrtStreamUnstreamHelper::CreateVYR5X5ColorMatrixFromStream(VYR5X5ColorMatrix& o_matrix, VYRI2DGStream* ipStream) {
  if (!ipStream) return;
  int count = 0;
  ipStream->UnstreamValue(count);
  if (!VYR_CHECK_CONDITION(ipStream->CountFits(count, sizeof(double)))) return;
  VYRRawColldouble coefs;
  for (int i = 0; i < count; ++i) {
    double coef = 0.0;
    ipStream->UnstreamValue(coef);
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

// Reads a counted byte string, refusing a length the stream cannot hold.
// Gives a new[] block and its length, or null.
char* ReadCountedBytes(VYRI2DGStream* ipStream, int& o_length) {
  o_length = 0;
  int length = 0;
  ipStream->UnstreamValue(length);
  if (length <= 0 || !VYR_CHECK_CONDITION(ipStream->CountFits(length, 1))) return nullptr;
  char* pBytes = new (std::nothrow) char[length];
  if (!VYR_CHECK_POINTER(pBytes)) return nullptr;
  ipStream->UnstreamBytes(pBytes, length);  // pixel bytes: one copy, not a call per byte
  o_length = length;
  return pBytes;
}

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
    case kStreamTypeFilterColorMatrixElt:
      return MakeElement<VYRPrtFilterColorMatrixElt>();
    case kStreamTypeFilterBlendElt:
      return MakeElement<VYRPrtFilterBlendElt>();
    case kStreamTypeFilterGaussianBlurElt:
      return MakeElement<VYRPrtFilterGaussianBlurElt>();
    case kStreamTypeFilterOffsetElt:
      return MakeElement<VYRPrtFilterOffsetElt>();
    case kStreamTypeFilterMergeElt:
      return MakeElement<VYRPrtFilterMergeElt>();
    case kStreamTypeFilterMergeNodeElt:
      return MakeElement<VYRPrtFilterMergeNodeElt>();
    case kStreamTypeGradientStopElt:
      return MakeElement<VYRPrtGradientStopElt>();
    case kStreamTypeLinearGradientElt:
      return MakeElement<VYRPrtLinearGradientElt>();
    case kStreamTypeMarkerElt:
      return MakeElement<VYRPrtMarkerElt>();
    case kStreamTypePatternElt:
      return MakeElement<VYRPrtPatternElt>();
    case kStreamTypeRadialGradientElt:
      return MakeElement<VYRPrtRadialGradientElt>();
    case kStreamTypeDefsElt:
      return MakeElement<VYRPrtDefsElt>();
    case kStreamTypeSymbolElt:
      return MakeElement<VYRPrtSymbolElt>();
    case kStreamTypeSwitchElt:
      return MakeElement<VYRPrtSwitchElt>();
    case kStreamTypeGroupElt:
      return MakeElement<VYRPrtGroupElt>();
    case kStreamTypeBitmapImageElt:
      return MakeElement<VYRPrtBitmapImageElt>();
    case kStreamTypeClosedFigureRegionElt:
      return MakeElement<VYRPrtClosedFigureRegionElt>();
    case kStreamTypeClosedFigureElt:
      return MakeElement<VYRPrtClosedFigureElt>();
    case kStreamTypeImageElt:
      return MakeElement<VYRPrtImageElt>();
    case kStreamTypeRectangleElt:
      return MakeElement<VYRPrtRectangleElt>();
    case kStreamTypeCircleElt:
      return MakeElement<VYRPrtCircleElt>();
    case kStreamTypeCircularArcElt:
      return MakeElement<VYRPrtCircularArcElt>();
    case kStreamTypeEllipseElt:
      return MakeElement<VYRPrtEllipseElt>();
    case kStreamTypeEllipticalArcElt:
      return MakeElement<VYRPrtEllipticalArcElt>();
    case kStreamTypeLineElt:
      return MakeElement<VYRPrtLineElt>();
    case kStreamTypePathElt:
      return MakeElement<VYRPrtPathElt>();
    case kStreamTypeTextElt:
      return MakeElement<VYRPrtTextElt>();
    case kStreamTypeDisjointPolylineElt:
      return MakeElement<VYRPrtDisjointPolylineElt>();
    case kStreamTypeNURBSElt:
      return MakeElement<VYRPrtNURBSElt>();
    case kStreamTypePolyCubicBezierElt:
      return MakeElement<VYRPrtPolyCubicBezierElt>();
    case kStreamTypePolygonElt:
      return MakeElement<VYRPrtPolygonElt>();
    case kStreamTypePolylineElt:
      return MakeElement<VYRPrtPolylineElt>();
    case kStreamTypePolyPolygonElt:
      return MakeElement<VYRPrtPolyPolygonElt>();
    case kStreamTypePolyQuadraticBezierElt:
      return MakeElement<VYRPrtPolyQuadraticBezierElt>();

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
  ipStream->UnstreamValue(tag);
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
    ipStream->StreamValue(0);
    return;
  }
  ipElt->Stream(ipStream);
}

void VYRPrtStreamUnstreamHelper::SerializeVYRUnicodeString(const VYRUnicodeString& i_text, VYRI2DGStream* ipStream) {
  if (!ipStream) return;
  ipStream->StreamCounted(i_text.CastToCharPtr(), i_text.GetLengthInChar());
}

void VYRPrtStreamUnstreamHelper::CreateVYRUnicodeStringFromStream(VYRUnicodeString& o_text, VYRI2DGStream* ipStream) {
  if (!ipStream) return;
  // Read in place: short texts then need no allocation at all. As with a
  // zero-terminated read, the text ends at its first zero byte.
  int length = 0;
  ipStream->UnstreamValue(length);
  if (length <= 0) {
    if (!o_text.IsEmpty()) o_text = VYRUnicodeString();
    return;
  }
  if (!ipStream->CountFits(length, 1)) {
    ipStream->UnstreamBytes(nullptr, length);  // fails the stream, as reading past its end does
    o_text = VYRUnicodeString();
    return;
  }
  char shortText[64];
  char* pText = length <= static_cast<int>(sizeof shortText) ? shortText : new (std::nothrow) char[length];
  if (!VYR_CHECK_POINTER(pText)) {
    ipStream->UnstreamBytes(nullptr, length);
    o_text = VYRUnicodeString();
    return;
  }
  ipStream->UnstreamBytes(pText, length);
  // Names are short: a plain scan beats a library call here.
  int textLength = 0;
  while (textLength < length && pText[textLength] != '\0') ++textLength;
  o_text.BuildFromChar(pText, textLength);
  if (pText != shortText) delete[] pText;
}

VYRPrtColourTable* VYRPrtStreamUnstreamHelper::CreateVYRPrtColourTableFromStream(VYRI2DGStream* ipStream) {
  if (!ipStream) return nullptr;
  int tag = 0;
  ipStream->UnstreamValue(tag);
  if (tag != kColourTableTag) return nullptr;
  auto* pTable = new (std::nothrow) VYRPrtColourTable();
  if (pTable) pTable->Unstream(ipStream);
  return pTable;
}

void VYRPrtStreamUnstreamHelper::SerializeVYRPrtColourTable(VYRPrtColourTable* ipTable, VYRI2DGStream* ipStream) {
  if (!ipStream) return;
  if (!ipTable) {
    ipStream->StreamValue(0);
    return;
  }
  ipTable->Stream(ipStream);
}

VYRPrtFilterColorAttribute* VYRPrtStreamUnstreamHelper::CreateVYRPrtFilterColorAttributeFromStream(
    VYRI2DGStream* ipStream) {
  if (!ipStream) return nullptr;
  int tag = 0;
  ipStream->UnstreamValue(tag);
  if (tag != kFilterColorAttributeTag) return nullptr;
  auto* pAttribute = new (std::nothrow) VYRPrtFilterColorAttribute();
  if (pAttribute) pAttribute->Unstream(ipStream);
  return pAttribute;
}

void VYRPrtStreamUnstreamHelper::SerializeVYRPrtFilterColorAttribute(VYRPrtFilterColorAttribute* ipAttribute,
                                                                     VYRI2DGStream* ipStream) {
  if (!ipStream) return;
  if (!ipAttribute) {
    ipStream->StreamValue(0);
    return;
  }
  ipAttribute->Stream(ipStream);
}

void VYRPrtStreamUnstreamHelper::SerializeVYRPixelImage(VYRPixelImage* ipImage, VYRI2DGStream* ipStream) {
  if (!ipStream) return;
  if (!ipImage) {
    ipStream->StreamValue(0);
    return;
  }
  int width = 0, height = 0;
  ipImage->GetSize(width, height);
  int format = ipImage->GetFormat();
  int readOnly = ipImage->IsReadOnly() ? 1 : 0;
  float xPixelSize = ipImage->GetXPixelSize(), yPixelSize = ipImage->GetYPixelSize();
  ipStream->StreamValue(kPixelImageTag);

  unsigned char* pPNG = nullptr;
  int pngLength = 0;
  bool encoded = WriteToMemoryPNGPixelImage(ipImage, &pPNG, &pngLength, 0) == 0 && pngLength > 0 && pPNG;
  const char* pBytes = nullptr;
  int byteCount = 0;
  if (encoded) {
    pBytes = reinterpret_cast<const char*>(pPNG);
    byteCount = pngLength;
  } else {
    // Read-only access: a locked image is written raw all the same.
    pBytes = reinterpret_cast<const char*>(ipImage->GetPixels());
    byteCount = ipImage->GetbytesPerPixel() * height * width;
  }
  ipStream->StreamValue(encoded ? 1 : 0);
  ipStream->StreamValue(width);
  ipStream->StreamValue(height);
  ipStream->StreamValue(byteCount);
  ipStream->StreamValue(format);
  ipStream->StreamValue(readOnly);
  ipStream->StreamValue(xPixelSize);
  ipStream->StreamValue(yPixelSize);
  ipStream->StreamCounted(pBytes, pBytes ? byteCount : 0);
  delete[] pPNG;
}

VYRPixelImage* VYRPrtStreamUnstreamHelper::CreateVYRPixelImageFromStream(VYRI2DGStream* ipStream) {
  if (!ipStream) return nullptr;
  int tag = 0;
  ipStream->UnstreamValue(tag);
  if (tag != kPixelImageTag) return nullptr;
  int flag = 0, width = 0, height = 0, byteCount = 0, format = 0, readOnly = 0;
  float xPixelSize = 0.0f, yPixelSize = 0.0f;
  ipStream->UnstreamValue(flag);
  ipStream->UnstreamValue(width);
  ipStream->UnstreamValue(height);
  ipStream->UnstreamValue(byteCount);
  ipStream->UnstreamValue(format);
  ipStream->UnstreamValue(readOnly);
  ipStream->UnstreamValue(xPixelSize);
  ipStream->UnstreamValue(yPixelSize);
  int length = 0;
  char* pBytes = ReadCountedBytes(ipStream, length);
  if (!pBytes) return nullptr;

  VYRPixelImage* pImage = nullptr;
  unsigned char* pPixels = reinterpret_cast<unsigned char*>(pBytes);
  if (flag == 0) {
    if (VYR_CHECK_CONDITION(VYRPixelImage::IsValidFormat(format))) {
      pImage = new (std::nothrow) VYRPixelImage(width, height, static_cast<VYRPixelImageFormat>(format), pPixels,
                                                VYRDeallocatePixels_ImageCopiesPixels, length);
    }
  } else if (flag == 1) {
    // The record's byte count is what is decoded, but never beyond the bytes read.
    int decoded = byteCount < 0 ? 0 : (byteCount < length ? byteCount : length);
    pImage = ReadMemoryPNGPixelImage(pPixels, decoded, 0);
  }
  if (pImage && pImage->IsEmpty()) {
    pImage->Release();
    pImage = nullptr;
  }
  if (pImage) {
    pImage->SetXPixelSize(xPixelSize);
    pImage->SetYPixelSize(yPixelSize);
    if ((readOnly & 0xFF) != 0) {
      pImage->LockAsReadOnly();
    } else {
      pImage->Unlock();
    }
  }
  delete[] pBytes;
  return pImage;
}

void VYRPrtStreamUnstreamHelper::SerializeGradientHelper(VYRPrintGradient* ipGradient, VYRI2DGStream* ipStream) {
  ipStream->StreamValue(ipGradient->GetSpread());
  int stopCount = ipGradient->GetStopCount();
  ipStream->StreamValue(stopCount);
  for (int i = 0; i < stopCount; ++i) SerializeVYRPrintGradientStop(ipGradient->GetStop(i), ipStream);
  VYRMath3x3Matrix transform = ipGradient->GetTransform();
  SerializeVYRMath3x3Matrix(transform, ipStream);
}

void VYRPrtStreamUnstreamHelper::CreateGradientFromStreamHelper(VYRPrintGradient* iopGradient,
                                                                VYRI2DGStream* ipStream) {
  constexpr int kStopBytes = 5 * 4;
  int spread = 0, stopCount = 0;
  ipStream->UnstreamValue(spread);
  iopGradient->SetSpread(spread);
  ipStream->UnstreamValue(stopCount);
  if (stopCount >= 1 && VYR_CHECK_CONDITION(ipStream->CountFits(stopCount, kStopBytes))) {
    for (int i = 0; i < stopCount; ++i) {
      auto* pStop = new (std::nothrow) VYRPrintGradientStop();
      if (!VYR_CHECK_POINTER(pStop)) break;
      CreateVYRPrintGradientStopFromStream(pStop, ipStream);
      if (iopGradient->AddStop(pStop) != 1) delete pStop;
    }
  }
  VYRMath3x3Matrix transform;
  CreateVYRMath3x3MatrixFromStream(transform, ipStream);
  iopGradient->SetTransform(transform);
}

void VYRPrtStreamUnstreamHelper::SerializeVYRPrintGradient(VYRPrintGradient* ipGradient, VYRI2DGStream* ipStream) {
  if (!ipStream) return;
  if (!ipGradient) {
    ipStream->StreamValue(0);
    return;
  }
  ipStream->StreamValue(kGradientTag);
  SerializeGradientHelper(ipGradient, ipStream);
}

void VYRPrtStreamUnstreamHelper::SerializeVYRPrintGradientLinear(VYRPrintGradientLinear* ipGradient,
                                                                 VYRI2DGStream* ipStream) {
  if (!ipStream) return;
  if (!ipGradient) {
    ipStream->StreamValue(0);
    return;
  }
  ipStream->StreamValue(kGradientLinearTag);
  SerializeGradientHelper(ipGradient, ipStream);
  float x1 = 0, y1 = 0, x2 = 0, y2 = 0;
  ipGradient->GetStartPoint(x1, y1);
  ipGradient->GetEndPoint(x2, y2);
  for (float value : {x1, y1, x2, y2}) ipStream->StreamValue(value);
}

void VYRPrtStreamUnstreamHelper::SerializeVYRPrintGradientRadial(VYRPrintGradientRadial* ipGradient,
                                                                 VYRI2DGStream* ipStream) {
  if (!ipStream) return;
  if (!ipGradient) {
    ipStream->StreamValue(0);
    return;
  }
  ipStream->StreamValue(kGradientRadialTag);
  SerializeGradientHelper(ipGradient, ipStream);
  float cx = 0, cy = 0, fx = 0, fy = 0;
  ipGradient->GetCentre(cx, cy);
  ipGradient->GetFocus(fx, fy);
  for (float value : {cx, cy, fx, fy, ipGradient->GetRadius()}) ipStream->StreamValue(value);
}

void VYRPrtStreamUnstreamHelper::CreateVYRPrintGradientFromStream(VYRPrintGradient* iopGradient,
                                                                  VYRI2DGStream* ipStream) {
  if (!ipStream || !iopGradient) return;
  CreateGradientFromStreamHelper(iopGradient, ipStream);
}

void VYRPrtStreamUnstreamHelper::CreateVYRPrintGradientLinearFromStream(VYRPrintGradientLinear* iopGradient,
                                                                        VYRI2DGStream* ipStream) {
  if (!ipStream || !iopGradient) return;
  CreateGradientFromStreamHelper(iopGradient, ipStream);
  float x1 = 0, y1 = 0, x2 = 0, y2 = 0;
  for (float* pValue : {&x1, &y1, &x2, &y2}) ipStream->UnstreamValue(*pValue);
  iopGradient->SetStartPoint(x1, y1);
  iopGradient->SetEndPoint(x2, y2);
}

// The first point read is the centre and the second the focus: the order in
// which they are written.
void VYRPrtStreamUnstreamHelper::CreateVYRPrintGradientRadialFromStream(VYRPrintGradientRadial* iopGradient,
                                                                        VYRI2DGStream* ipStream) {
  if (!ipStream || !iopGradient) return;
  CreateGradientFromStreamHelper(iopGradient, ipStream);
  float cx = 0, cy = 0, fx = 0, fy = 0, r = 0;
  for (float* pValue : {&cx, &cy, &fx, &fy, &r}) ipStream->UnstreamValue(*pValue);
  iopGradient->SetCentre(cx, cy);
  iopGradient->SetFocus(fx, fy);
  iopGradient->SetRadius(r);
}

void VYRPrtStreamUnstreamHelper::SerializeVYRPrintGradientStop(VYRPrintGradientStop* ipStop,
                                                               VYRI2DGStream* ipStream) {
  if (!ipStream || !ipStop) return;
  for (float value : {ipStop->GetOffset(), ipStop->GetRed(), ipStop->GetGreen(), ipStop->GetBlue(), ipStop->GetAlpha()}) {
    ipStream->StreamValue(value);
  }
}

void VYRPrtStreamUnstreamHelper::CreateVYRPrintGradientStopFromStream(VYRPrintGradientStop* iopStop,
                                                                      VYRI2DGStream* ipStream) {
  if (!ipStream || !iopStop) return;
  float offset = 0, red = 0, green = 0, blue = 0, alpha = 0;
  for (float* pValue : {&offset, &red, &green, &blue, &alpha}) ipStream->UnstreamValue(*pValue);
  *iopStop = VYRPrintGradientStop(offset, red, green, blue, alpha);
}

void VYRPrtStreamUnstreamHelper::SerializeGradientOfType(VYRPrintGradient* ipGradient, MM2D::GradientType i_type,
                                                         VYRI2DGStream* ipStream) {
  if (!ipStream) return;
  // The kind is checked as well as the type, as a gradient read from a
  // damaged stream need not match the type read beside it.
  if (ipGradient && i_type == MM2D::GradientLinear && ipGradient->IsAKindOf(VYRPrintGradientLinear::ClassName())) {
    SerializeVYRPrintGradientLinear(static_cast<VYRPrintGradientLinear*>(ipGradient), ipStream);
  } else if (ipGradient && i_type == MM2D::GradientRadial &&
             ipGradient->IsAKindOf(VYRPrintGradientRadial::ClassName())) {
    SerializeVYRPrintGradientRadial(static_cast<VYRPrintGradientRadial*>(ipGradient), ipStream);
  } else {
    ipStream->StreamValue(0u);
  }
}

VYRPrintGradient* VYRPrtStreamUnstreamHelper::CreateGradientFromKindTag(VYRI2DGStream* ipStream) {
  if (!ipStream) return nullptr;
  unsigned int kind = 0;
  ipStream->UnstreamValue(kind);
  if (kind == kGradientLinearTag) {
    auto* pLinear = new (std::nothrow) VYRPrintGradientLinear();
    CreateVYRPrintGradientLinearFromStream(pLinear, ipStream);
    return pLinear;
  }
  if (kind == kGradientRadialTag) {
    auto* pRadial = new (std::nothrow) VYRPrintGradientRadial();
    CreateVYRPrintGradientRadialFromStream(pRadial, ipStream);
    return pRadial;
  }
  return nullptr;
}

VYRPrintGradient* VYRPrtStreamUnstreamHelper::CreateDefaultGradient(MM2D::GradientType i_type) {
  if (i_type == MM2D::GradientLinear) return new (std::nothrow) VYRPrintGradientLinear();
  if (i_type == MM2D::GradientRadial) return new (std::nothrow) VYRPrintGradientRadial();
  return nullptr;
}

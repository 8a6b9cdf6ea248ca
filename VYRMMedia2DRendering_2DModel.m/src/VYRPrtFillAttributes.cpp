#include "VYRPrtFillAttributes.h"

#include "VYRI2DGStream.h"
#include "VYRPixelImage.h"
#include "VYRPrintGradient.h"
#include "VYRPrtStreamUnstreamHelper.h"
#include "VYRStreamRecord.h"

namespace {

template <class T>
void ReleaseAndClear(T*& io_pObject) {
  if (io_pObject) io_pObject->Release();
  io_pObject = nullptr;
}

}  // namespace

VYRPrtFillAttributes::VYRPrtFillAttributes(const VYRPrtFillAttributes& iFill)
    : _fillStyle(iFill._fillStyle),
      _fillRule(iFill._fillRule),
      _fillColourIndex(iFill._fillColourIndex),
      _fillOpacity(iFill._fillOpacity),
      _pPatternImage(iFill._pPatternImage),
      _patternVector1(iFill._patternVector1),
      _patternVector2(iFill._patternVector2),
      _patternRefPoint(iFill._patternRefPoint),
      _pGradient(iFill._pGradient),
      _gradientType(iFill._gradientType) {
  if (_pPatternImage) _pPatternImage->AddRef();
  if (_pGradient) _pGradient->AddRef();
}

VYRPrtFillAttributes& VYRPrtFillAttributes::operator=(const VYRPrtFillAttributes& iFill) {
  if (this == &iFill) return *this;
  _fillStyle = iFill._fillStyle;
  _fillRule = iFill._fillRule;
  _fillColourIndex = iFill._fillColourIndex;
  _fillOpacity = iFill._fillOpacity;
  _patternVector1 = iFill._patternVector1;
  _patternVector2 = iFill._patternVector2;
  _patternRefPoint = iFill._patternRefPoint;
  _gradientType = iFill._gradientType;
  if (_pPatternImage != iFill._pPatternImage) {
    ReleaseAndClear(_pPatternImage);
    _pPatternImage = iFill._pPatternImage;
    if (_pPatternImage) _pPatternImage->AddRef();
  }
  if (_pGradient != iFill._pGradient) {
    ReleaseAndClear(_pGradient);
    if (iFill._pGradient) _pGradient = iFill._pGradient->Clone();
  }
  return *this;
}

VYRPrtFillAttributes::~VYRPrtFillAttributes() {
  ReleaseAndClear(_pPatternImage);
  ReleaseAndClear(_pGradient);
}

void VYRPrtFillAttributes::SetGradientType(MM2D::GradientType i_type) {
  _gradientType = i_type;
  ReleaseAndClear(_pGradient);
  _pGradient = VYRPrtStreamUnstreamHelper::CreateDefaultGradient(i_type);
}

void VYRPrtFillAttributes::SetPattern(VYRPixelImage* ipImage, const VYRMathVector2D& i_vector1,
                                      const VYRMathVector2D& i_vector2) {
  if (ipImage != _pPatternImage) {
    if (ipImage) ipImage->AddRef();
    ReleaseAndClear(_pPatternImage);
    _pPatternImage = ipImage;
  }
  _patternVector1 = i_vector1;
  _patternVector2 = i_vector2;
}

void VYRPrtFillAttributes::GetPattern(VYRPixelImage*& opImage, VYRMathVector2D& o_vector1,
                                      VYRMathVector2D& o_vector2) const {
  opImage = _pPatternImage;
  o_vector1 = _patternVector1;
  o_vector2 = _patternVector2;
}

int VYRPrtFillAttributes::operator==(const VYRPrtFillAttributes& iFill) const {
  return _fillStyle == iFill._fillStyle && _fillRule == iFill._fillRule &&
         _fillColourIndex == iFill._fillColourIndex && _fillOpacity == iFill._fillOpacity &&
         _pPatternImage == iFill._pPatternImage && _pGradient == iFill._pGradient &&
         _gradientType == iFill._gradientType && _patternVector1 == iFill._patternVector1 &&
         _patternVector2 == iFill._patternVector2 && _patternRefPoint == iFill._patternRefPoint;
}

void VYRPrtFillAttributes::Duplicate(VYRPrtFillAttributes& oFill) const {
  if (this == &oFill) return;
  oFill._fillStyle = _fillStyle;
  oFill._fillRule = _fillRule;
  oFill._fillColourIndex = _fillColourIndex;
  oFill._fillOpacity = _fillOpacity;
  oFill._patternVector1 = _patternVector1;
  oFill._patternVector2 = _patternVector2;
  oFill._patternRefPoint = _patternRefPoint;
  oFill._gradientType = _gradientType;
  if (_pPatternImage) {
    // The target's former image is released here, so that a target that
    // shared this image (after operator=) does not keep a reference forever.
    ReleaseAndClear(oFill._pPatternImage);
    oFill._pPatternImage = _pPatternImage->Duplicate();
  }
  if (_pGradient) {
    ReleaseAndClear(oFill._pGradient);
    oFill._pGradient = _pGradient->Clone();
  }
}

void VYRPrtFillAttributes::Stream(VYRI2DGStream* ipStream) {
  if (!ipStream) return;
  using Helper = VYRPrtStreamUnstreamHelper;
  WriteRecord(ipStream, static_cast<unsigned int>(_fillStyle), static_cast<unsigned int>(_fillRule),
              static_cast<int>(_fillColourIndex), _fillOpacity);
  Helper::SerializeVYRPixelImage(_pPatternImage, ipStream);
  Helper::SerializeVYRMathVector2D(_patternVector1, ipStream);
  Helper::SerializeVYRMathVector2D(_patternVector2, ipStream);
  Helper::SerializeVYRMathPoint2D(_patternRefPoint, ipStream);
  Helper::SerializeGradientOfType(_pGradient, _gradientType, ipStream);
  ipStream->StreamValue(static_cast<unsigned int>(_gradientType));
}

void VYRPrtFillAttributes::Unstream(VYRI2DGStream* ipStream) {
  if (!ipStream) return;
  using Helper = VYRPrtStreamUnstreamHelper;
  unsigned int style = 0, rule = 0, gradientType = 0;
  int colourIndex = 0;
  ReadRecord(ipStream, style, rule, colourIndex, _fillOpacity);
  _fillStyle = static_cast<VYRPrtFillStyle>(style);
  _fillRule = static_cast<VYRPrtFillRule>(rule);
  _fillColourIndex = static_cast<unsigned int>(colourIndex);
  ReleaseAndClear(_pPatternImage);
  _pPatternImage = Helper::CreateVYRPixelImageFromStream(ipStream);
  Helper::CreateVYRMathVector2DFromStream(_patternVector1, ipStream);
  Helper::CreateVYRMathVector2DFromStream(_patternVector2, ipStream);
  Helper::CreateVYRMathPoint2DFromStream(_patternRefPoint, ipStream);
  ReleaseAndClear(_pGradient);
  _pGradient = Helper::CreateGradientFromKindTag(ipStream);
  ipStream->UnstreamValue(gradientType);
  _gradientType = static_cast<MM2D::GradientType>(gradientType);
}

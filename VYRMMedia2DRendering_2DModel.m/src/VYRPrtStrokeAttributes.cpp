#include "VYRPrtStrokeAttributes.h"

#include <algorithm>
#include <new>

#include "VYRAssert.h"
#include "VYRI2DGStream.h"
#include "VYRPrintGradient.h"
#include "VYRPrtStreamUnstreamHelper.h"
#include "VYRStreamRecord.h"

VYRPrtStrokeAttributes::VYRPrtStrokeAttributes(const VYRPrtStrokeAttributes& iStroke) { CopyFrom(iStroke); }

VYRPrtStrokeAttributes& VYRPrtStrokeAttributes::operator=(const VYRPrtStrokeAttributes& iStroke) {
  if (this != &iStroke) CopyFrom(iStroke);
  return *this;
}

VYRPrtStrokeAttributes::~VYRPrtStrokeAttributes() {
  delete[] _strokeTypePattern;
  if (_pGradient) _pGradient->Release();
}

void VYRPrtStrokeAttributes::CopyFrom(const VYRPrtStrokeAttributes& iStroke) {
  _strokeColourIndex = iStroke._strokeColourIndex;
  _strokeOpacity = iStroke._strokeOpacity;
  _thirdValue = iStroke._thirdValue;
  StoreDashes(iStroke._strokeTypePattern, iStroke._strokeTypePatternCount, iStroke._strokeTypePatternCount);
  _strokeWidth = iStroke._strokeWidth;
  _strokeStyle = iStroke._strokeStyle;
  _strokeCap = iStroke._strokeCap;
  _strokeJoin = iStroke._strokeJoin;
  _strokeMode = iStroke._strokeMode;
  _gradientType = iStroke._gradientType;
  if (_pGradient != iStroke._pGradient) {
    if (_pGradient) _pGradient->Release();
    _pGradient = iStroke._pGradient ? iStroke._pGradient->Clone() : nullptr;
  }
}

// Replaces the held dashes by i_storedCount values taken cyclically from the
// i_count given ones (the same as "the values, then the same again" for an
// odd list, and never past either array when the doubled count wrapped).
void VYRPrtStrokeAttributes::StoreDashes(const float* i_pattern, unsigned char i_count, unsigned char i_storedCount) {
  delete[] _strokeTypePattern;
  _strokeTypePattern = nullptr;
  _strokeTypePatternCount = i_storedCount;
  if (i_storedCount == 0) return;
  if (!i_pattern || i_count == 0) {
    _strokeTypePatternCount = 0;
    return;
  }
  _strokeTypePattern = new (std::nothrow) float[i_storedCount];
  if (!VYR_CHECK_POINTER(_strokeTypePattern)) {
    _strokeTypePatternCount = 0;
    return;
  }
  for (int i = 0; i < i_storedCount; ++i) _strokeTypePattern[i] = i_pattern[i % i_count];
}

void VYRPrtStrokeAttributes::SetStrokeTypePattern(const float* i_pattern, unsigned char i_count) {
  if (i_pattern == _strokeTypePattern) return;
  bool odd = (i_count % 2) != 0;
  StoreDashes(i_pattern, i_count, odd ? static_cast<unsigned char>(i_count * 2) : i_count);
}

void VYRPrtStrokeAttributes::GetStrokeTypePattern(float*& o_pattern, unsigned char& o_count) const {
  o_pattern = _strokeTypePattern;
  o_count = _strokeTypePatternCount;
}

void VYRPrtStrokeAttributes::SetGradientType(MM2D::GradientType i_type) {
  _gradientType = i_type;
  if (_pGradient) _pGradient->Release();
  _pGradient = VYRPrtStreamUnstreamHelper::CreateDefaultGradient(i_type);
}

int VYRPrtStrokeAttributes::operator==(const VYRPrtStrokeAttributes& iStroke) const {
  if (_strokeTypePatternCount != iStroke._strokeTypePatternCount) return 0;
  if (_strokeTypePatternCount > 0 &&
      !std::equal(_strokeTypePattern, _strokeTypePattern + _strokeTypePatternCount, iStroke._strokeTypePattern)) {
    return 0;
  }
  return _strokeColourIndex == iStroke._strokeColourIndex && _strokeOpacity == iStroke._strokeOpacity &&
         _thirdValue == iStroke._thirdValue && _strokeWidth == iStroke._strokeWidth &&
         _strokeStyle == iStroke._strokeStyle && _strokeCap == iStroke._strokeCap &&
         _strokeJoin == iStroke._strokeJoin && _strokeMode == iStroke._strokeMode &&
         _pGradient == iStroke._pGradient && _gradientType == iStroke._gradientType;
}

void VYRPrtStrokeAttributes::Stream(VYRI2DGStream* ipStream) {
  if (!ipStream) return;
  WriteRecord(ipStream, static_cast<int>(_strokeColourIndex), _strokeOpacity, _thirdValue, _strokeTypePatternCount);
  ipStream->StreamBytes(_strokeTypePattern, _strokeTypePatternCount * static_cast<int>(sizeof(float)));
  WriteRecord(ipStream, _strokeWidth, static_cast<unsigned int>(_strokeStyle), static_cast<unsigned int>(_strokeCap),
              static_cast<unsigned int>(_strokeJoin), static_cast<unsigned int>(_strokeMode));
  VYRPrtStreamUnstreamHelper::SerializeGradientOfType(_pGradient, _gradientType, ipStream);
  ipStream->StreamValue(static_cast<unsigned int>(_gradientType));
}

void VYRPrtStrokeAttributes::Unstream(VYRI2DGStream* ipStream) {
  if (!ipStream) return;
  int colourIndex = 0;
  unsigned int style = 0, cap = 0, join = 0, mode = 0, gradientType = 0;
  unsigned char dashCount = 0;
  ReadRecord(ipStream, colourIndex, _strokeOpacity, _thirdValue, dashCount);
  _strokeColourIndex = static_cast<unsigned int>(colourIndex);
  delete[] _strokeTypePattern;
  _strokeTypePattern = nullptr;
  _strokeTypePatternCount = 0;
  if (dashCount > 0 && VYR_CHECK_CONDITION(ipStream->CountFits(dashCount, sizeof(float)))) {
    _strokeTypePattern = new (std::nothrow) float[dashCount];
    if (VYR_CHECK_POINTER(_strokeTypePattern)) {
      ipStream->UnstreamBytes(_strokeTypePattern, dashCount * static_cast<int>(sizeof(float)));
      _strokeTypePatternCount = dashCount;
    }
  }
  ReadRecord(ipStream, _strokeWidth, style, cap, join, mode);
  _strokeStyle = static_cast<VYRPrintLineAttribute>(style);
  _strokeCap = static_cast<VYRPrintLineAttribute>(cap);
  _strokeJoin = static_cast<VYRPrintLineAttribute>(join);
  _strokeMode = static_cast<VYRPrtStrokeMode>(mode);
  if (_pGradient) _pGradient->Release();
  _pGradient = VYRPrtStreamUnstreamHelper::CreateGradientFromKindTag(ipStream);
  ipStream->UnstreamValue(gradientType);
  _gradientType = static_cast<MM2D::GradientType>(gradientType);
}

#include "VYRPrtFilterColorAttribute.h"

#include <initializer_list>

#include "VYRI2DGStream.h"
#include "VYRPrtEnumStream.h"

void VYRPrtFilterColorAttribute::SetFloodColor(unsigned char i_red, unsigned char i_green, unsigned char i_blue) {
  _floodRed = i_red;
  _floodGreen = i_green;
  _floodBlue = i_blue;
}

void VYRPrtFilterColorAttribute::GetFloodColor(unsigned char& o_red, unsigned char& o_green,
                                               unsigned char& o_blue) const {
  o_red = _floodRed;
  o_green = _floodGreen;
  o_blue = _floodBlue;
}

void VYRPrtFilterColorAttribute::SetLightingColor(unsigned char i_red, unsigned char i_green, unsigned char i_blue) {
  _lightingRed = i_red;
  _lightingGreen = i_green;
  _lightingBlue = i_blue;
}

void VYRPrtFilterColorAttribute::GetLightingColor(unsigned char& o_red, unsigned char& o_green,
                                                  unsigned char& o_blue) const {
  o_red = _lightingRed;
  o_green = _lightingGreen;
  o_blue = _lightingBlue;
}

bool VYRPrtFilterColorAttribute::operator==(const VYRPrtFilterColorAttribute& i_other) const {
  return _floodRed == i_other._floodRed && _floodGreen == i_other._floodGreen && _floodBlue == i_other._floodBlue &&
         _floodOpacity == i_other._floodOpacity && _lightingRed == i_other._lightingRed &&
         _lightingGreen == i_other._lightingGreen && _lightingBlue == i_other._lightingBlue &&
         _colorInterpolation == i_other._colorInterpolation;
}

void VYRPrtFilterColorAttribute::Stream(VYRI2DGStream* ipStream) const {
  if (!ipStream) return;
  ipStream->StreamValue(kStreamTag);
  for (unsigned char channel : {_floodRed, _floodGreen, _floodBlue}) ipStream->StreamValue(channel);
  ipStream->StreamValue(_floodOpacity);
  for (unsigned char channel : {_lightingRed, _lightingGreen, _lightingBlue}) ipStream->StreamValue(channel);
  StreamEnum(_colorInterpolation, ipStream);
}

void VYRPrtFilterColorAttribute::Unstream(VYRI2DGStream* ipStream) {
  if (!ipStream) return;
  for (unsigned char* pChannel : {&_floodRed, &_floodGreen, &_floodBlue}) ipStream->UnstreamValue(*pChannel);
  ipStream->UnstreamValue(_floodOpacity);
  for (unsigned char* pChannel : {&_lightingRed, &_lightingGreen, &_lightingBlue}) ipStream->UnstreamValue(*pChannel);
  UnstreamEnum(_colorInterpolation, ipStream);
}

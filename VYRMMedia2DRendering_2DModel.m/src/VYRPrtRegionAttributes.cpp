#include "VYRPrtRegionAttributes.h"

#include <initializer_list>

#include "VYRI2DGStream.h"

namespace {
constexpr unsigned int kAllComponents = VYRPrtRegionAttributes::X | VYRPrtRegionAttributes::Y |
                                        VYRPrtRegionAttributes::Width | VYRPrtRegionAttributes::Height;
}  // namespace

void VYRPrtRegionAttributes::SetRegion(double i_x, double i_y, double i_width, double i_height) {
  SetX(i_x);
  SetY(i_y);
  SetWidth(i_width);
  SetHeight(i_height);
}

void VYRPrtRegionAttributes::SetX(double i_x) {
  _x = i_x;
  _given |= X;
}

void VYRPrtRegionAttributes::SetY(double i_y) {
  _y = i_y;
  _given |= Y;
}

void VYRPrtRegionAttributes::SetWidth(double i_width) {
  _width = i_width;
  _given |= Width;
}

void VYRPrtRegionAttributes::SetHeight(double i_height) {
  _height = i_height;
  _given |= Height;
}

bool VYRPrtRegionAttributes::operator==(const VYRPrtRegionAttributes& i_other) const {
  return _given == i_other._given && _x == i_other._x && _y == i_other._y && _width == i_other._width &&
         _height == i_other._height;
}

void VYRPrtRegionAttributes::Stream(VYRI2DGStream* ipStream) const {
  if (!ipStream) return;
  ipStream->StreamValue(_given);
  for (double value : {_x, _y, _width, _height}) ipStream->StreamValue(value);
}

void VYRPrtRegionAttributes::Unstream(VYRI2DGStream* ipStream) {
  if (!ipStream) return;
  ipStream->UnstreamValue(_given);
  _given &= kAllComponents;  // bits no component owns mean nothing
  for (double* pValue : {&_x, &_y, &_width, &_height}) ipStream->UnstreamValue(*pValue);
}

#include "VYRPrtViewBoxAttributes.h"

#include "VYRI2DGStream.h"

void VYRPrtViewBoxAttributes::SetViewBox(double i_x, double i_y, double i_width, double i_height) {
  _defined = true;
  _x = i_x;
  _y = i_y;
  _width = i_width;
  _height = i_height;
}

void VYRPrtViewBoxAttributes::ClearViewBox() {
  _defined = false;
  _x = _y = _width = _height = 0.0;
}

void VYRPrtViewBoxAttributes::GetViewBox(double& o_x, double& o_y, double& o_width, double& o_height) const {
  o_x = _x;
  o_y = _y;
  o_width = _width;
  o_height = _height;
}

bool VYRPrtViewBoxAttributes::operator==(const VYRPrtViewBoxAttributes& i_other) const {
  return _defined == i_other._defined && _x == i_other._x && _y == i_other._y && _width == i_other._width &&
         _height == i_other._height && _align == i_other._align && _meetOrSlice == i_other._meetOrSlice &&
         _defer == i_other._defer;
}

void VYRPrtViewBoxAttributes::Stream(VYRI2DGStream* ipStream) {
  if (!ipStream) return;
  ipStream->StreamValue(static_cast<unsigned int>(_defined));
  ipStream->StreamValue(_x);
  ipStream->StreamValue(_y);
  ipStream->StreamValue(_width);
  ipStream->StreamValue(_height);
  ipStream->StreamValue(static_cast<unsigned int>(_align));
  ipStream->StreamValue(static_cast<unsigned int>(_meetOrSlice));
  ipStream->StreamValue(static_cast<unsigned char>(_defer));
}

void VYRPrtViewBoxAttributes::Unstream(VYRI2DGStream* ipStream) {
  if (!ipStream) return;
  unsigned int defined = 0, align = 0, meetOrSlice = 0;
  unsigned char defer = 0;
  ipStream->UnstreamValue(defined);
  ipStream->UnstreamValue(_x);
  ipStream->UnstreamValue(_y);
  ipStream->UnstreamValue(_width);
  ipStream->UnstreamValue(_height);
  ipStream->UnstreamValue(align);
  ipStream->UnstreamValue(meetOrSlice);
  ipStream->UnstreamValue(defer);
  _defined = defined != 0;
  _align = static_cast<MM2D::AspectAlign>(align);
  _meetOrSlice = static_cast<MM2D::MeetOrSlice>(meetOrSlice);
  _defer = defer != 0;
}

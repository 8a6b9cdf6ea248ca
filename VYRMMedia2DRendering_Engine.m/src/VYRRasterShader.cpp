#include "VYRRasterShader.h"

VYR_IMPLEMENT_ABSTRACT_CLASS(VYRRasterShader, VYRBaseUnknown, "Engine")

bool VYRRasterShader::setContext(const VYRRasterMatrix& i_totalMatrix, uint8_t i_paintAlpha) {
  VYRRasterMatrix total = i_totalMatrix;
  total.preConcat(_localMatrix);
  _paintAlpha = i_paintAlpha;
  return total.invert(&_deviceToShader);
}

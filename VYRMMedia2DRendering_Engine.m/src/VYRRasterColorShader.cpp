#include "VYRRasterColorShader.h"

#include <algorithm>

#include "VYRRasterBlendMode.h"

VYR_IMPLEMENT_CLASS(VYRRasterColorShader, VYRRasterShader, "Engine")

bool VYRRasterColorShader::setContext(const VYRRasterMatrix& i_totalMatrix, uint8_t i_paintAlpha) {
  VYRRasterShader::setContext(i_totalMatrix, i_paintAlpha);
  // The colour does not depend on position, so a singular matrix does not stop it.
  const unsigned alpha = ((_color >> 24) * i_paintAlpha + 127) / 255;
  _premultiplied = VYRRasterBlender::Premultiply((_color & 0x00FFFFFF) | (alpha << 24));
  return true;
}

void VYRRasterColorShader::shadeRow(int, int, int count, uint32_t* o_premultiplied) {
  std::fill(o_premultiplied, o_premultiplied + count, _premultiplied);
}

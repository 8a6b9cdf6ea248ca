#include "VYRPrintGradientStop.h"

bool VYRPrintGradientStop::operator==(const VYRPrintGradientStop& i_other) const {
  return _offset == i_other._offset && _red == i_other._red && _green == i_other._green && _blue == i_other._blue &&
         _alpha == i_other._alpha;
}

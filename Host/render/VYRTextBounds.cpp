#include "VYRTextBounds.h"

#include "VYRPrtTextElt.h"

bool VYRGetTextBounds(const VYRPrtTextElt& i_text, double& o_xmin, double& o_xmax, double& o_ymin, double& o_ymax) {
  if (i_text.GetPositionCount() < 1 || i_text.GetText().IsEmpty()) return false;
  const VYRPrtTextAttributes& attributes = i_text.GetTextAttributes();
  const double size = attributes.GetHeight();
  const double advance = 0.55 * size * i_text.GetText().GetCodePointCount();
  const MM2D::TextAnchor anchor = attributes.GetAnchor();
  o_xmin = i_text.GetPosition(0).x -
           (anchor == MM2D::TextAnchorMiddle ? advance / 2.0 : (anchor == MM2D::TextAnchorEnd ? advance : 0.0));
  o_xmax = o_xmin + advance;
  o_ymax = i_text.GetPosition(0).y;
  o_ymin = o_ymax - size;
  return true;
}

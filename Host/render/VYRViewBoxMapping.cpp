#include "VYRViewBoxMapping.h"

#include <algorithm>

void VYRAddViewBoxTransform(const VYRPrtViewBoxAttributes& i_viewBox, double i_width, double i_height,
                            VYRPrtTransformAttributes& io_transform) {
  double x = 0.0, y = 0.0, width = 0.0, height = 0.0;
  i_viewBox.GetViewBox(x, y, width, height);
  if (!i_viewBox.HasViewBox() || width <= 0.0 || height <= 0.0) return;
  double scaleX = i_width / width;
  double scaleY = i_height / height;
  double offsetX = 0.0;
  double offsetY = 0.0;
  const MM2D::AspectAlign align = i_viewBox.GetAspectAlign();
  if (align != MM2D::AspectAlignNone) {
    const double scale = i_viewBox.GetMeetOrSlice() == MM2D::MeetOrSliceSlice ? std::max(scaleX, scaleY)
                                                                                : std::min(scaleX, scaleY);
    scaleX = scaleY = scale;
    // Alignment values run xMin, xMid, xMax within each of yMin, yMid, yMax.
    const int column = (static_cast<int>(align) - 1) % 3;
    const int row = (static_cast<int>(align) - 1) / 3;
    offsetX = (i_width - width * scale) * column / 2.0;
    offsetY = (i_height - height * scale) * row / 2.0;
  }
  io_transform.AddTranslation(VYRMathVector2D(offsetX - x * scaleX, offsetY - y * scaleY));
  // A matrix rather than scale entries, which the transform's byte form does not keep on their own.
  io_transform.AddMatrix(VYRMath2x2Matrix(scaleX, 0.0, 0.0, scaleY));
}

#pragma once

#include "VYRExport.h"

class VYRI2DGStream;

namespace MM2D {

// The alignment part of preserveAspectRatio.
enum AspectAlign : int {
  AspectAlignNone = 0,
  AspectAlignXMinYMin = 1,
  AspectAlignXMidYMin = 2,
  AspectAlignXMaxYMin = 3,
  AspectAlignXMinYMid = 4,
  AspectAlignXMidYMid = 5,
  AspectAlignXMaxYMid = 6,
  AspectAlignXMinYMax = 7,
  AspectAlignXMidYMax = 8,
  AspectAlignXMaxYMax = 9,
};

enum MeetOrSlice : int {
  MeetOrSliceMeet = 0,
  MeetOrSliceSlice = 1,
};

}  // namespace MM2D

// A viewBox rectangle, when one was given, and the preserveAspectRatio
// setting that fits it into a viewport (default "xMidYMid meet").
class VYR_EXPORT VYRPrtViewBoxAttributes {
 public:
  VYRPrtViewBoxAttributes() = default;
  VYRPrtViewBoxAttributes(const VYRPrtViewBoxAttributes&) = default;
  VYRPrtViewBoxAttributes& operator=(const VYRPrtViewBoxAttributes&) = default;
  virtual ~VYRPrtViewBoxAttributes() = default;

  // Stores the rectangle and marks the viewBox as given.
  void SetViewBox(double i_x, double i_y, double i_width, double i_height);
  void ClearViewBox();
  bool HasViewBox() const { return _defined; }
  void GetViewBox(double& o_x, double& o_y, double& o_width, double& o_height) const;

  void SetAspectAlign(MM2D::AspectAlign i_align) { _align = i_align; }
  MM2D::AspectAlign GetAspectAlign() const { return _align; }
  void SetMeetOrSlice(MM2D::MeetOrSlice i_meetOrSlice) { _meetOrSlice = i_meetOrSlice; }
  MM2D::MeetOrSlice GetMeetOrSlice() const { return _meetOrSlice; }
  // The "defer" keyword of preserveAspectRatio on an image.
  void SetDefer(bool i_defer) { _defer = i_defer; }
  bool GetDefer() const { return _defer; }

  bool operator==(const VYRPrtViewBoxAttributes& i_other) const;
  bool operator!=(const VYRPrtViewBoxAttributes& i_other) const { return !(*this == i_other); }

  // Defined flag (int), x, y, width, height (doubles), align and meet-or-slice
  // (ints), defer (one byte).
  virtual void Stream(VYRI2DGStream* ipStream);
  virtual void Unstream(VYRI2DGStream* ipStream);

 private:
  bool _defined = false;
  double _x = 0.0;
  double _y = 0.0;
  double _width = 0.0;
  double _height = 0.0;
  MM2D::AspectAlign _align = MM2D::AspectAlignXMidYMid;
  MM2D::MeetOrSlice _meetOrSlice = MM2D::MeetOrSliceMeet;
  bool _defer = false;
};

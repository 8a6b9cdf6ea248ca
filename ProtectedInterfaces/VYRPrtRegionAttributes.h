#pragma once

#include "VYRExport.h"

class VYRI2DGStream;

// The rectangle x, y, width, height of a pattern tile, a mask, a filter or a
// filter primitive's subregion, with what the document actually gave: an
// element referring to another through xlink:href inherits the values it did
// not give, and a primitive's missing values fall back to the filter region.
// Percentages are stored as fractions (for bounding-box units) or resolved
// against the viewport (for user-space units) by whoever reads the document.
class VYR_EXPORT VYRPrtRegionAttributes {
 public:
  enum Component : unsigned int { X = 1, Y = 2, Width = 4, Height = 8 };

  VYRPrtRegionAttributes() = default;
  // Default values, none of them marked as given.
  VYRPrtRegionAttributes(double i_x, double i_y, double i_width, double i_height)
      : _x(i_x), _y(i_y), _width(i_width), _height(i_height) {}
  virtual ~VYRPrtRegionAttributes() = default;

  // What a mask or a filter covers when the document gives no region:
  // -10%, -10%, 120%, 120% of the bounding box.
  static VYRPrtRegionAttributes DefaultEffectRegion() { return VYRPrtRegionAttributes(-0.1, -0.1, 1.2, 1.2); }

  // Each setter stores its value and marks it as given.
  void SetRegion(double i_x, double i_y, double i_width, double i_height);
  void SetX(double i_x);
  void SetY(double i_y);
  void SetWidth(double i_width);
  void SetHeight(double i_height);
  double GetX() const { return _x; }
  double GetY() const { return _y; }
  double GetWidth() const { return _width; }
  double GetHeight() const { return _height; }
  bool IsGiven(Component i_component) const { return (_given & i_component) != 0; }

  bool operator==(const VYRPrtRegionAttributes& i_other) const;
  bool operator!=(const VYRPrtRegionAttributes& i_other) const { return !(*this == i_other); }

  // The given components as an unsigned 32-bit mask, then x, y, width, height as doubles.
  virtual void Stream(VYRI2DGStream* ipStream) const;
  virtual void Unstream(VYRI2DGStream* ipStream);

 private:
  unsigned int _given = 0;
  double _x = 0.0;
  double _y = 0.0;
  double _width = 0.0;
  double _height = 0.0;
};

#pragma once

#include "VYRExport.h"
#include "VYRMath2x2Matrix.h"
#include "VYRMathPoint2D.h"
#include "VYRPrtNodeTreeElt.h"

// Units in which an image area is given; the parser and the renderer name
// the values beyond the default.
enum VYRPrtImageUnits : int {
  VYRPrtImageUnitsDefault = 4,
};

// An image area: the top of one element tree (a document or an embedded
// image) placed by origin and size, with units, a 2x2 matrix and an optional
// colour table that the element owns.
class VYR_EXPORT VYRPrtImageElt : public VYRPrtNodeTreeElt {
  VYR_DECLARE_CLASS(VYRPrtImageElt)

 public:
  VYRPrtImageElt() = default;
  VYRPrtImageElt(const VYRMathPoint2D& i_origin, double i_width, double i_height, VYRPrtImageUnits i_units,
                 const VYRMath2x2Matrix& i_matrix);
  // Copies get a colour table of their own.
  VYRPrtImageElt(const VYRPrtImageElt& i_imageElt);
  VYRPrtImageElt& operator=(const VYRPrtImageElt& i_imageElt);
  using VYRPrtNodeTreeElt::operator=;
  ~VYRPrtImageElt() override;

  const VYRMathPoint2D& GetOrigin() const { return _origin; }
  void SetOrigin(const VYRMathPoint2D& i_origin) { _origin = i_origin; }
  void GetSize(double& o_width, double& o_height) const;
  void SetSize(double i_width, double i_height);
  VYRPrtImageUnits GetUnits() const { return _units; }
  void SetUnits(VYRPrtImageUnits i_units) { _units = i_units; }
  const VYRMath2x2Matrix& GetMatrix() const { return _matrix; }
  void SetMatrix(const VYRMath2x2Matrix& i_matrix) { _matrix = i_matrix; }
  VYRPrtColourTable* GetColorTable() const { return _pColourTable; }
  // Takes ownership of the table (made with new) and destroys the one held.
  void SetColorTable(VYRPrtColourTable* ipColourTable);

  // Common attributes, origin, size and units to their defaults, the colour
  // table destroyed; the matrix and the children stay.
  void Reset() override;
  // Duplicates the children, placement, units, matrix and colour table; the
  // common attributes of the copy stay at their defaults.
  void Duplicate(VYRPrtGraphicPrimitiveElt*& o_pGPElt) override;
  StreamType GetStreamType() override;
  // The node tree record, origin, width, height (doubles), units (int), the
  // matrix (4 doubles), then the colour table (tag 5 record or 0).
  void Stream(VYRI2DGStream* ipStream) override;
  void Unstream(VYRI2DGStream* ipStream) override;

 private:
  // Own copy of the given table, or null.
  static VYRPrtColourTable* CopyOfTable(const VYRPrtColourTable* ipColourTable);

  VYRMathPoint2D _origin;
  double _width = 0.0;
  double _height = 0.0;
  VYRPrtImageUnits _units = VYRPrtImageUnitsDefault;
  VYRMath2x2Matrix _matrix;
  VYRPrtColourTable* _pColourTable = nullptr;
};

#pragma once

#include "VYRExport.h"
#include "VYRMathPoint2D.h"
#include "VYRPrtNodeTreeElt.h"
#include "VYRPrtViewBoxAttributes.h"

// An SVG symbol element: a template of children drawn where a use element
// instantiates it, into the viewport given by origin and size, with its
// viewBox fitted in by preserveAspectRatio.
class VYR_EXPORT VYRPrtSymbolElt : public VYRPrtNodeTreeElt {
  VYR_DECLARE_CLASS(VYRPrtSymbolElt)

 public:
  VYRPrtSymbolElt() = default;
  VYRPrtSymbolElt(const VYRPrtSymbolElt& i_symbolElt) = default;
  VYRPrtSymbolElt& operator=(const VYRPrtSymbolElt& i_symbolElt);
  using VYRPrtNodeTreeElt::operator=;
  ~VYRPrtSymbolElt() override = default;

  const VYRMathPoint2D& GetOrigin() const { return _origin; }
  void SetOrigin(const VYRMathPoint2D& i_origin) { _origin = i_origin; }
  void GetSize(double& o_width, double& o_height) const;
  void SetSize(double i_width, double i_height);
  const VYRPrtViewBoxAttributes& GetViewBoxAttributes() const { return _viewBox; }
  void SetViewBoxAttributes(const VYRPrtViewBoxAttributes& i_viewBox) { _viewBox = i_viewBox; }

  // Common attributes, origin, size and viewBox to their defaults; the children stay.
  void Reset() override;
  // A copy with duplicated children (see VYRPrtNodeTreeElt::DuplicateTree).
  void Duplicate(VYRPrtGraphicPrimitiveElt*& opGPElt) override;
  StreamType GetStreamType() override;
  // The node tree record, the origin (two doubles), width, height, then the viewBox attributes.
  void Stream(VYRI2DGStream* ipStream) override;
  void Unstream(VYRI2DGStream* ipStream) override;

 private:
  VYRMathPoint2D _origin;
  double _width = 0.0;
  double _height = 0.0;
  VYRPrtViewBoxAttributes _viewBox;
};

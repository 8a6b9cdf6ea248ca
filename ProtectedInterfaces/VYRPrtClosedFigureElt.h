#pragma once

#include "VYRExport.h"
#include "VYRPrtFillAttributes.h"
#include "VYRPrtNodeTreeElt.h"
#include "VYRPrtStrokeAttributes.h"

// A closed outline made of its children (lines, arcs, curves), stroked and
// filled as one figure. Whether the children really close is not checked.
class VYR_EXPORT VYRPrtClosedFigureElt : public VYRPrtNodeTreeElt {
  VYR_DECLARE_CLASS(VYRPrtClosedFigureElt)

 public:
  VYRPrtClosedFigureElt() = default;
  VYRPrtClosedFigureElt(const VYRPrtClosedFigureElt& i_closedFigureElt) = default;
  VYRPrtClosedFigureElt& operator=(const VYRPrtClosedFigureElt& i_closedFigureElt);
  using VYRPrtNodeTreeElt::operator=;
  ~VYRPrtClosedFigureElt() override = default;

  void GetDrawStyle(int& o_drawStyle) const { o_drawStyle = _drawStyle; }
  void SetDrawStyle(int i_drawStyle) { _drawStyle = i_drawStyle; }
  void GetStrokeAttributes(VYRPrtStrokeAttributes& o_stroke) const { o_stroke = _strokeAttributes; }
  void SetStrokeAttributes(const VYRPrtStrokeAttributes& i_stroke);
  void GetFillAttributes(VYRPrtFillAttributes& o_fill) const { o_fill = _fillAttributes; }
  void SetFillAttributes(const VYRPrtFillAttributes& i_fill);

  // Common attributes, draw style (8), stroke and fill to their defaults; the children stay.
  void Reset() override;
  // Duplicates the children, draw style, stroke and fill (the fill's image and
  // gradient deeply); the common attributes of the copy stay at their defaults.
  void Duplicate(VYRPrtGraphicPrimitiveElt*& o_pGPElt) override;
  StreamType GetStreamType() override;
  // The node tree record, the draw style (int), the stroke, then the fill.
  void Stream(VYRI2DGStream* ipStream) override;
  void Unstream(VYRI2DGStream* ipStream) override;

 private:
  int _drawStyle = 8;
  VYRPrtStrokeAttributes _strokeAttributes;
  VYRPrtFillAttributes _fillAttributes;
};

#pragma once

#include "VYRExport.h"
#include "VYRMathPoint2D.h"
#include "VYRPrtBaseShapeElt.h"
#include "VYRPrtTextAttributes.h"
#include "VYRSYPDynArray.h"
#include "VYRUnicodeString.h"

// A text: its string, the positions of its characters (SVG's x and y lists,
// resolved to points; characters beyond the last position follow on from
// it), its text attributes, and the stroke, fill and draw style of a shape.
// Its record is the shape block, then the string, the positions (count, then
// points) and the text attributes.
class VYR_EXPORT VYRPrtTextElt : public VYRPrtBaseShapeElt {
  VYR_DECLARE_CLASS(VYRPrtTextElt)

 public:
  VYRPrtTextElt() = default;
  VYRPrtTextElt(const VYRPrtTextElt&) = default;
  VYRPrtTextElt& operator=(const VYRPrtTextElt& iTextElt);
  ~VYRPrtTextElt() override = default;

  const VYRUnicodeString& GetText() const { return _text; }
  void SetText(const VYRUnicodeString& i_text) { _text = i_text; }
  int GetPositionCount() const { return _positions.GetLength(); }
  // The position of character i; (0, 0) for an index with no position (reported).
  VYRMathPoint2D GetPosition(int i_index) const { return _positions[i_index]; }
  const VYRSYPDynArray<VYRMathPoint2D>& GetPositions() const { return _positions; }
  void SetPositions(const VYRSYPDynArray<VYRMathPoint2D>& i_positions) { _positions = i_positions; }
  // 1, or -1 when the list cannot grow.
  int AddPosition(const VYRMathPoint2D& i_position) { return _positions.Append(i_position); }
  const VYRPrtTextAttributes& GetTextAttributes() const { return _textAttributes; }
  void SetTextAttributes(const VYRPrtTextAttributes& i_attributes) { _textAttributes = i_attributes; }

  void Reset() override;
  void Duplicate(VYRPrtGraphicPrimitiveElt*& opGPElt) override;
  StreamType GetStreamType() override;
  void Stream(VYRI2DGStream* ipStream) override;
  void Unstream(VYRI2DGStream* ipStream) override;

 private:
  VYRUnicodeString _text;
  VYRSYPDynArray<VYRMathPoint2D> _positions;
  VYRPrtTextAttributes _textAttributes;
};

#pragma once

#include "VYRAssert.h"
#include "VYRExport.h"
#include "VYRMathPoint2D.h"
#include "VYRPrtEltFactory.h"
#include "VYRPrtFillAttributes.h"
#include "VYRPrtGraphicPrimitiveElt.h"
#include "VYRPrtStrokeAttributes.h"

// Base of the elements that can be both stroked and filled: the stroke and
// fill attribute groups and a draw style (8 for every new or reset shape),
// written behind the common record. Duplicating this class itself yields null.
class VYR_EXPORT VYRPrtBaseShapeElt : public VYRPrtGraphicPrimitiveElt {
  VYR_DECLARE_CLASS(VYRPrtBaseShapeElt)

 public:
  static constexpr int kDefaultDrawStyle = 8;

  ~VYRPrtBaseShapeElt() override = default;
  VYRPrtBaseShapeElt& operator=(const VYRPrtBaseShapeElt& i_shapeElt);

  int GetDrawStyle() const { return _drawStyle; }
  void SetDrawStyle(int i_drawStyle) { _drawStyle = i_drawStyle; }
  const VYRPrtStrokeAttributes& GetStrokeAttributes() const { return _strokeAttributes; }
  void SetStrokeAttributes(const VYRPrtStrokeAttributes& i_stroke);
  const VYRPrtFillAttributes& GetFillAttributes() const { return _fillAttributes; }
  void SetFillAttributes(const VYRPrtFillAttributes& i_fill);

  void Reset() override;
  StreamType GetStreamType() override;
  void Stream(VYRI2DGStream* ipStream) override;
  void Unstream(VYRI2DGStream* ipStream) override;

 protected:
  VYRPrtBaseShapeElt() = default;
  VYRPrtBaseShapeElt(const VYRPrtBaseShapeElt& i_shapeElt) = default;

  // The Duplicate of every concrete shape: a K from the factory, a copy of
  // i_shape, and a fill that shares nothing with i_shape's.
  template <class K>
  static void DuplicateShape(const K& i_shape, VYRPrtGraphicPrimitiveElt*& opGPElt) {
    K* pCopy = VYRPrtEltFactory::Get().CreateElement<K>();
    opGPElt = pCopy;
    if (!VYR_CHECK_POINTER(opGPElt)) return;
    *pCopy = i_shape;
    const VYRPrtBaseShapeElt& source = i_shape;
    source._fillAttributes.Duplicate(static_cast<VYRPrtBaseShapeElt&>(*pCopy)._fillAttributes);
  }

  // A point and three doubles: the record shared by the ellipse and the circular arc.
  static void StreamPointAndThreeValues(VYRI2DGStream* ipStream, const VYRMathPoint2D& i_point, double i_first,
                                        double i_second, double i_third);
  static void UnstreamPointAndThreeValues(VYRI2DGStream* ipStream, VYRMathPoint2D& o_point, double& o_first,
                                          double& o_second, double& o_third);

 private:
  VYRPrtStrokeAttributes _strokeAttributes;
  VYRPrtFillAttributes _fillAttributes;
  int _drawStyle = kDefaultDrawStyle;
};

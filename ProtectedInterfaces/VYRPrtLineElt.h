#pragma once

#include "VYRExport.h"
#include "VYRMathPoint2D.h"
#include "VYRPrtGraphicPrimitiveElt.h"
#include "VYRPrtMarkerReferences.h"
#include "VYRPrtStrokeAttributes.h"

// A straight line: two points and a stroke (a line is never filled). Its
// record after the common block is start point, end point, stroke. The
// marker references are held in memory only: the record has no room for them.
class VYR_EXPORT VYRPrtLineElt : public VYRPrtGraphicPrimitiveElt {
  VYR_DECLARE_CLASS(VYRPrtLineElt)

 public:
  VYRPrtLineElt() = default;
  VYRPrtLineElt(const VYRMathPoint2D& i_startPoint, const VYRMathPoint2D& i_endPoint);
  VYRPrtLineElt(const VYRPrtLineElt& iLineElt) = default;
  VYRPrtLineElt& operator=(const VYRPrtLineElt& iLineElt);
  ~VYRPrtLineElt() override = default;

  const VYRMathPoint2D& GetStartPoint() const { return _startPoint; }
  void GetStartPoint(VYRMathPoint2D& o_point) const { o_point = _startPoint; }
  void SetStartPoint(const VYRMathPoint2D& i_point) { _startPoint = i_point; }
  const VYRMathPoint2D& GetEndPoint() const { return _endPoint; }
  void GetEndPoint(VYRMathPoint2D& o_point) const { o_point = _endPoint; }
  void SetEndPoint(const VYRMathPoint2D& i_point) { _endPoint = i_point; }
  void GetPoints(VYRMathPoint2D& o_startPoint, VYRMathPoint2D& o_endPoint) const;
  void SetPoints(const VYRMathPoint2D& i_startPoint, const VYRMathPoint2D& i_endPoint);
  void GetParameters(VYRMathPoint2D& o_startPoint, VYRMathPoint2D& o_endPoint) const;
  void SetParameters(const VYRMathPoint2D& i_startPoint, const VYRMathPoint2D& i_endPoint);
  const VYRPrtStrokeAttributes& GetStrokeAttributes() const { return _strokeAttributes; }
  void SetStrokeAttributes(const VYRPrtStrokeAttributes& i_stroke);
  const VYRPrtMarkerReferences& GetMarkerReferences() const { return _markerReferences; }
  void SetMarkerReferences(const VYRPrtMarkerReferences& i_markers) { _markerReferences = i_markers; }

  void Reset() override;
  void Duplicate(VYRPrtGraphicPrimitiveElt*& opGPElt) override;
  StreamType GetStreamType() override;
  void Stream(VYRI2DGStream* ipStream) override;
  void Unstream(VYRI2DGStream* ipStream) override;

 private:
  VYRMathPoint2D _startPoint;
  VYRMathPoint2D _endPoint;
  VYRPrtStrokeAttributes _strokeAttributes;
  VYRPrtMarkerReferences _markerReferences;
};

#pragma once

// One element of every kind that a stream can create, filled with values other
// than the defaults in every field, and a listing of each kind's fields by
// name, so that tests can compare two elements field by field and name the
// field that differs.

#include <iomanip>
#include <iterator>
#include <map>
#include <sstream>
#include <string>
#include <vector>

#include "ElementRoundTrip.h"
#include "VYRPixelImage.h"
#include "VYRPrtBitmapImageElt.h"
#include "VYRPrtCircleElt.h"
#include "VYRPrtCircularArcElt.h"
#include "VYRPrtClipPathElt.h"
#include "VYRPrtClosedFigureElt.h"
#include "VYRPrtClosedFigureRegionElt.h"
#include "VYRPrtColourTable.h"
#include "VYRPrtDefsElt.h"
#include "VYRPrtDisjointPolylineElt.h"
#include "VYRPrtEllipseElt.h"
#include "VYRPrtEllipticalArcElt.h"
#include "VYRPrtEltFactory.h"
#include "VYRPrtFilterBlendElt.h"
#include "VYRPrtFilterColorMatrixElt.h"
#include "VYRPrtFilterContainerElt.h"
#include "VYRPrtFilterGaussianBlurElt.h"
#include "VYRPrtFilterMergeElt.h"
#include "VYRPrtFilterMergeNodeElt.h"
#include "VYRPrtFilterOffsetElt.h"
#include "VYRPrtGradientStopElt.h"
#include "VYRPrtGroupElt.h"
#include "VYRPrtImageElt.h"
#include "VYRPrtLineElt.h"
#include "VYRPrtLinearGradientElt.h"
#include "VYRPrtMarkerElt.h"
#include "VYRPrtMaskElt.h"
#include "VYRPrtNURBSElt.h"
#include "VYRPrtPathElt.h"
#include "VYRPrtPathSegArcTo.h"
#include "VYRPrtPathSegClosePath.h"
#include "VYRPrtPathSegCurveToCubic.h"
#include "VYRPrtPathSegCurveToQuadratic.h"
#include "VYRPrtPathSegLineTo.h"
#include "VYRPrtPathSegMoveTo.h"
#include "VYRPrtPatternElt.h"
#include "VYRPrtPolyCubicBezierElt.h"
#include "VYRPrtPolyPolygonElt.h"
#include "VYRPrtPolyQuadraticBezierElt.h"
#include "VYRPrtPolygonElt.h"
#include "VYRPrtPolylineElt.h"
#include "VYRPrtRadialGradientElt.h"
#include "VYRPrtRectangleElt.h"
#include "VYRPrtSwitchElt.h"
#include "VYRPrtSymbolElt.h"
#include "VYRPrtTextElt.h"

// Field name -> value as text. Names start with the part of the class that
// holds the field: "common." (every element), "shape." (stroke, fill, draw
// style), "children", or the kind's own names.
using FieldListing = std::map<std::string, std::string>;

// What Duplicate gives: nothing, a copy of every field, or a copy whose
// common attributes are the defaults (closed figures and image elements).
enum class DuplicateRule { None, Everything, WithoutCommonAttributes };

struct ElementKind {
  int tag;
  const char* name;
  VYRPrtGraphicPrimitiveElt* (*makeDefault)();
  VYRPrtGraphicPrimitiveElt* (*makeFilled)();
  void (*listOwnFields)(VYRPrtGraphicPrimitiveElt&, FieldListing&);
  DuplicateRule duplicate;
  std::vector<std::string> keptByReset;  // prefixes of the fields Reset leaves alone
  std::vector<std::string> notStreamed;  // prefixes of the fields held in memory only
};

namespace every_kind {

inline std::string Text(double i_value) {
  std::ostringstream out;
  out << std::setprecision(17) << i_value;
  return out.str();
}
inline std::string Text(const VYRMathPoint2D& i_point) { return Text(i_point.x) + "," + Text(i_point.y); }
inline std::string Text(const VYRUnicodeString& i_text) { return std::string("\"") + i_text.CastToCharPtr() + "\""; }
inline std::string Text(const std::vector<uint8_t>& i_bytes) {
  std::ostringstream out;
  out << std::hex << std::setfill('0');
  for (uint8_t b : i_bytes) out << std::setw(2) << int(b);
  return out.str();
}
inline std::string Text(const VYRSYPDynArray<VYRMathPoint2D>& i_points) {
  std::string text;
  for (int i = 0; i < i_points.GetLength(); ++i) text += Text(i_points[i]) + ";";
  return text;
}
inline std::string Text(const VYRSYPDynArray<double>& i_values) {
  std::string text;
  for (int i = 0; i < i_values.GetLength(); ++i) text += Text(i_values[i]) + ";";
  return text;
}
// Attribute groups are listed by their byte form, which covers all their fields.
template <class T>
std::string Bytes(const T& i_group) {
  T copy = i_group;
  return Text(BytesOf(copy));
}
inline std::string Reference(const VYRPrtGraphicPrimitiveElt* ipElt) {
  return ipElt ? std::string(ipElt->IsA()) + ":" + ipElt->GetID().CastToCharPtr() : "none";
}

template <class K>
VYRPrtGraphicPrimitiveElt* MakeDefault() {
  return VYRPrtEltFactory::Get().CreateElement<K>();
}

template <class K>
K* Make(const char* i_id) {
  K* pElt = VYRPrtEltFactory::Get().CreateElement<K>();
  pElt->SetID(i_id);
  return pElt;
}

inline VYRSYPDynArray<VYRMathPoint2D> SomePoints(double i_start) {
  VYRSYPDynArray<VYRMathPoint2D> points;
  for (int i = 0; i < 4; ++i) points.Append(VYRMathPoint2D(i_start + i, i_start - 2 * i));
  return points;
}

inline VYRSYPDynArray<double> SomeValues(double i_start, int i_count) {
  VYRSYPDynArray<double> values;
  for (int i = 0; i < i_count; ++i) values.Append(i_start + 0.25 * i);
  return values;
}

inline VYRPrtMarkerReferences SomeMarkers() {
  VYRPrtMarkerReferences markers;
  markers.SetMarkerID(VYRPrtMarkerReferences::Start, "arrow-start");
  markers.SetMarkerID(VYRPrtMarkerReferences::Mid, "dot");
  markers.SetMarkerID(VYRPrtMarkerReferences::End, "arrow-end");
  return markers;
}

inline VYRPrtViewBoxAttributes SomeViewBox() {
  VYRPrtViewBoxAttributes viewBox;
  viewBox.SetViewBox(1, 2, 30, 40);
  viewBox.SetAspectAlign(MM2D::AspectAlignXMaxYMin);
  viewBox.SetMeetOrSlice(MM2D::MeetOrSliceSlice);
  viewBox.SetDefer(true);
  return viewBox;
}

inline VYRPrtTransformAttributes SomeTransform() {
  VYRPrtTransformAttributes transform;
  transform.AddScaleX(2.0);
  transform.AddSkewY(0.25f);
  return transform;
}

// Every common attribute, including the three references streamed in place.
inline void FillCommon(VYRPrtGraphicPrimitiveElt& io_elt, const char* i_id) {
  SetNonDefaultCommonAttributes(io_elt);
  io_elt.SetID(i_id);
  io_elt.SetClipPath(Make<VYRPrtClipPathElt>("clip-ref"));
  io_elt.SetMask(Make<VYRPrtMaskElt>("mask-ref"));
  io_elt.SetFilter(Make<VYRPrtFilterContainerElt>("filter-ref"));
}

template <class K>
K* Filled(const char* i_id) {
  K* pElt = Make<K>(i_id);
  FillCommon(*pElt, i_id);
  return pElt;
}

template <class K>
K* FilledShape(const char* i_id) {
  K* pElt = Filled<K>(i_id);
  SetNonDefaultShapeAttributes(*pElt);
  pElt->SetID(i_id);
  return pElt;
}

template <class K>
K* FilledTree(const char* i_id) {
  K* pElt = Filled<K>(i_id);
  pElt->AddChild(Make<VYRPrtRectangleElt>("child"));
  return pElt;
}

inline void ListCommon(VYRPrtGraphicPrimitiveElt& i_elt, FieldListing& o_fields) {
  o_fields["common.visibility"] = Text(i_elt.GetVisibility());
  o_fields["common.id"] = Text(i_elt.GetID());
  o_fields["common.description"] = Text(i_elt.GetDescription());
  o_fields["common.title"] = Text(i_elt.GetTitle());
  o_fields["common.spaceHandling"] = Text(i_elt.GetSpaceHandling());
  o_fields["common.transform"] = Bytes(i_elt.GetTransformAttributes());
  o_fields["common.adobe"] = Bytes(i_elt.GetAdobeAttributes());
  o_fields["common.clipPathID"] = Text(i_elt.GetClipPathID());
  o_fields["common.clipPath"] = Reference(i_elt.GetClipPath());
  o_fields["common.maskID"] = Text(i_elt.GetMaskID());
  o_fields["common.mask"] = Reference(i_elt.GetMask());
  o_fields["common.filterID"] = Text(i_elt.GetFilterID());
  o_fields["common.filter"] = Reference(i_elt.GetFilter());
  o_fields["common.opacity"] = Text(i_elt.GetOpacity());
  o_fields["common.streamVersion"] = Text(i_elt.GetStreamVersion());
}

inline void ListShape(const VYRPrtBaseShapeElt& i_shape, FieldListing& o_fields) {
  o_fields["shape.stroke"] = Bytes(i_shape.GetStrokeAttributes());
  o_fields["shape.fill"] = Bytes(i_shape.GetFillAttributes());
  o_fields["shape.drawStyle"] = Text(i_shape.GetDrawStyle());
}

inline void ListChildren(const VYRPrtNodeTreeElt& i_tree, FieldListing& o_fields) {
  std::string children;
  const VYRSYPDynArray<VYRPrtGraphicPrimitiveElt*>& array = i_tree.GetChildArray();
  for (int i = 0; i < array.GetLength(); ++i) children += Reference(array[i]) + ";";
  o_fields["children"] = children;
}

inline void ListMarkers(const VYRPrtMarkerReferences& i_markers, FieldListing& o_fields) {
  o_fields["markers"] = Bytes(i_markers);
}

inline void ListRegion(const VYRPrtRegionAttributes& i_region, FieldListing& o_fields) {
  o_fields["region"] = Bytes(i_region);
}

inline void ListFilterBase(VYRPrtFilterBaseElt& i_filter, FieldListing& o_fields) {
  ListChildren(i_filter, o_fields);
  o_fields["filter.result"] = Text(i_filter.GetResult());
  o_fields["filter.input"] = Text(i_filter.GetInput());
  o_fields["filter.subregion"] = Bytes(i_filter.GetSubregion());
  const VYRPrtFilterColorAttribute* pColours = i_filter.GetColorAttribute();
  o_fields["filter.colours"] = pColours ? Bytes(*pColours) : "none";
}

inline void FillFilterBase(VYRPrtFilterBaseElt& io_filter) {
  io_filter.SetResult("result");
  io_filter.SetInput("SourceAlpha");
  io_filter.SetSubregion(VYRPrtRegionAttributes(1, 2, 3, 4));
  VYRPrtFilterColorAttribute colours;
  colours.SetFloodColor(1, 2, 3);
  colours.SetFloodOpacity(0.5);
  colours.SetLightingColor(4, 5, 6);
  colours.SetColorInterpolation(MM2D::ColorInterpolationLinearRGB);
  io_filter.SetColorAttribute(&colours);
}

// Each primitive gets a merge node child: the one input of a merge, and an
// ordinary child for the other kinds.
template <class K>
K* FilledFilter(const char* i_id) {
  K* pFilter = Filled<K>(i_id);
  FillFilterBase(*pFilter);
  auto* pNode = Make<VYRPrtFilterMergeNodeElt>("node");
  pNode->SetInput("result");
  pFilter->AddChild(pNode);
  return pFilter;
}

inline void ListGradient(VYRPrtBaseGradientElt& i_gradient, FieldListing& o_fields) {
  o_fields["gradient.units"] = Text(i_gradient.GetUnits());
  o_fields["gradient.spread"] = Text(i_gradient.GetSpreadMethod());
  o_fields["gradient.transform"] = Bytes(i_gradient.GetGradientTransform());
  o_fields["gradient.href"] = Text(i_gradient.GetHrefID());
  std::string stops;
  for (int i = 0; i < i_gradient.GetStopCount(); ++i) stops += Text(BytesOf(*i_gradient.GetStop(i))) + ";";
  o_fields["gradient.stops"] = stops;
}

template <class K>
K* FilledGradient(const char* i_id) {
  K* pGradient = Filled<K>(i_id);
  pGradient->SetUnits(MM2D::UnitUserSpaceOnUse);
  pGradient->SetSpreadMethod(VYRPrintGradientSpreadReflect);
  pGradient->SetGradientTransform(SomeTransform());
  pGradient->SetHrefID("inherited");
  auto* pStop = Make<VYRPrtGradientStopElt>("stop");
  pStop->SetOffset(0.75);
  pStop->SetColor(10, 20, 30);
  pGradient->AddStop(pStop);
  return pGradient;
}

template <class K>
K* FilledPointList(const char* i_id) {
  K* pElt = FilledShape<K>(i_id);
  pElt->SetMarkerReferences(SomeMarkers());
  pElt->SetPoints(SomePoints(1.5));
  return pElt;
}

template <class K>
void ListPointList(VYRPrtGraphicPrimitiveElt& i_elt, FieldListing& o_fields) {
  auto& elt = static_cast<K&>(i_elt);
  ListShape(elt, o_fields);
  ListMarkers(elt.GetMarkerReferences(), o_fields);
  o_fields["points"] = Text(elt.GetPoints());
}

inline std::string ListRuns(const VYRPrtPointRuns& i_runs) { return Bytes(i_runs); }

// --- one maker and one lister per kind ---------------------------------------

inline VYRPrtGraphicPrimitiveElt* MakeRectangle() {
  auto* p = FilledShape<VYRPrtRectangleElt>("rectangle");
  p->SetPoints(VYRMathPoint2D(1, 2), VYRMathPoint2D(3, 4));
  p->SetRadius(0.5, 0.75);
  return p;
}
inline void ListRectangle(VYRPrtGraphicPrimitiveElt& i_elt, FieldListing& o_fields) {
  auto& elt = static_cast<VYRPrtRectangleElt&>(i_elt);
  ListShape(elt, o_fields);
  VYRMathPoint2D first, second;
  double rx = 0, ry = 0;
  elt.GetPoints(first, second);
  elt.GetRadius(rx, ry);
  o_fields["rect.first"] = Text(first);
  o_fields["rect.second"] = Text(second);
  o_fields["rect.rx"] = Text(rx);
  o_fields["rect.ry"] = Text(ry);
}

inline VYRPrtGraphicPrimitiveElt* MakeImage() {
  auto* p = FilledTree<VYRPrtImageElt>("image");
  p->SetOrigin(VYRMathPoint2D(5, 6));
  p->SetSize(70, 80);
  p->SetUnits(static_cast<VYRPrtImageUnits>(2));
  p->SetMatrix(VYRMath2x2Matrix(2, 0.5, -0.5, 3));
  auto* pTable = new VYRPrtColourTable();
  unsigned int index = 0;
  pTable->AddColour(9, 8, 7, index);
  p->SetColorTable(pTable);
  return p;
}
inline void ListImage(VYRPrtGraphicPrimitiveElt& i_elt, FieldListing& o_fields) {
  auto& elt = static_cast<VYRPrtImageElt&>(i_elt);
  ListChildren(elt, o_fields);
  double width = 0, height = 0;
  elt.GetSize(width, height);
  o_fields["image.origin"] = Text(elt.GetOrigin());
  o_fields["image.width"] = Text(width);
  o_fields["image.height"] = Text(height);
  o_fields["image.units"] = Text(elt.GetUnits());
  VYRMath2x2Matrix matrix = elt.GetMatrix();
  VYR2DGStringStream matrixBytes;
  VYRPrtStreamUnstreamHelper::SerializeVYRMath2x2Matrix(matrix, &matrixBytes);
  o_fields["image.matrix"] = Text(StreamBytes(matrixBytes));
  VYR2DGStringStream tableBytes;
  VYRPrtStreamUnstreamHelper::SerializeVYRPrtColourTable(elt.GetColorTable(), &tableBytes);
  o_fields["image.colourTable"] = Text(StreamBytes(tableBytes));
}

inline VYRPrtGraphicPrimitiveElt* MakeClipPath() {
  auto* p = FilledTree<VYRPrtClipPathElt>("clipPath");
  p->SetUnits(MM2D::UnitObjectBoundingBox);
  p->SetClipRule(VYRPrtFillRuleEvenOdd);
  return p;
}
inline void ListClipPath(VYRPrtGraphicPrimitiveElt& i_elt, FieldListing& o_fields) {
  auto& elt = static_cast<VYRPrtClipPathElt&>(i_elt);
  ListChildren(elt, o_fields);
  o_fields["clip.units"] = Text(elt.GetUnits());
  o_fields["clip.rule"] = Text(elt.GetClipRule());
}

inline VYRPrtGraphicPrimitiveElt* MakeMask() {
  auto* p = FilledTree<VYRPrtMaskElt>("mask");
  p->SetRegion(VYRPrtRegionAttributes(0, 0, 1, 1));
  p->SetUnits(MM2D::UnitUserSpaceOnUse);
  p->SetContentUnits(MM2D::UnitObjectBoundingBox);
  return p;
}
inline void ListMask(VYRPrtGraphicPrimitiveElt& i_elt, FieldListing& o_fields) {
  auto& elt = static_cast<VYRPrtMaskElt&>(i_elt);
  ListChildren(elt, o_fields);
  ListRegion(elt.GetRegion(), o_fields);
  o_fields["mask.units"] = Text(elt.GetUnits());
  o_fields["mask.contentUnits"] = Text(elt.GetContentUnits());
}

inline VYRPrtGraphicPrimitiveElt* MakeColorMatrix() {
  auto* p = FilledFilter<VYRPrtFilterColorMatrixElt>("colorMatrix");
  p->SetType(MM2D::ColorMatrixHueRotate);
  p->SetValues("30");
  return p;
}
inline void ListColorMatrix(VYRPrtGraphicPrimitiveElt& i_elt, FieldListing& o_fields) {
  auto& elt = static_cast<VYRPrtFilterColorMatrixElt&>(i_elt);
  ListFilterBase(elt, o_fields);
  o_fields["colorMatrix.type"] = Text(elt.GetType());
  o_fields["colorMatrix.values"] = Text(elt.GetValues());
}

inline VYRPrtGraphicPrimitiveElt* MakeBlend() {
  auto* p = FilledFilter<VYRPrtFilterBlendElt>("blend");
  p->SetMode(eTransferMultiply);
  p->SetInput2("BackgroundImage");
  return p;
}
inline void ListBlend(VYRPrtGraphicPrimitiveElt& i_elt, FieldListing& o_fields) {
  auto& elt = static_cast<VYRPrtFilterBlendElt&>(i_elt);
  ListFilterBase(elt, o_fields);
  o_fields["blend.mode"] = Text(elt.GetMode());
  o_fields["blend.input2"] = Text(elt.GetInput2());
}

inline VYRPrtGraphicPrimitiveElt* MakeGaussianBlur() {
  auto* p = FilledFilter<VYRPrtFilterGaussianBlurElt>("blur");
  p->SetStdDeviation(1.5, 2.5);
  return p;
}
inline void ListGaussianBlur(VYRPrtGraphicPrimitiveElt& i_elt, FieldListing& o_fields) {
  auto& elt = static_cast<VYRPrtFilterGaussianBlurElt&>(i_elt);
  ListFilterBase(elt, o_fields);
  o_fields["blur.x"] = Text(elt.GetStdDeviationX());
  o_fields["blur.y"] = Text(elt.GetStdDeviationY());
}

inline VYRPrtGraphicPrimitiveElt* MakeOffset() {
  auto* p = FilledFilter<VYRPrtFilterOffsetElt>("offset");
  p->SetOffset(-3, 4);
  return p;
}
inline void ListOffset(VYRPrtGraphicPrimitiveElt& i_elt, FieldListing& o_fields) {
  auto& elt = static_cast<VYRPrtFilterOffsetElt&>(i_elt);
  ListFilterBase(elt, o_fields);
  o_fields["offset.dx"] = Text(elt.GetDx());
  o_fields["offset.dy"] = Text(elt.GetDy());
}

inline VYRPrtGraphicPrimitiveElt* MakeMerge() { return FilledFilter<VYRPrtFilterMergeElt>("merge"); }
inline void ListMerge(VYRPrtGraphicPrimitiveElt& i_elt, FieldListing& o_fields) {
  auto& elt = static_cast<VYRPrtFilterMergeElt&>(i_elt);
  ListFilterBase(elt, o_fields);
  std::string inputs;
  for (int i = 0; i < elt.GetMergeNodeCount(); ++i) inputs += Text(elt.GetMergeNode(i)->GetInput()) + ";";
  o_fields["merge.inputs"] = inputs;
}

inline VYRPrtGraphicPrimitiveElt* MakeMergeNode() { return FilledFilter<VYRPrtFilterMergeNodeElt>("mergeNode"); }
inline void ListMergeNode(VYRPrtGraphicPrimitiveElt& i_elt, FieldListing& o_fields) {
  ListFilterBase(static_cast<VYRPrtFilterMergeNodeElt&>(i_elt), o_fields);
}

inline VYRPrtGraphicPrimitiveElt* MakeFilterContainer() {
  auto* p = Filled<VYRPrtFilterContainerElt>("filter");
  p->AddChild(MakeGaussianBlur());
  p->SetRegion(VYRPrtRegionAttributes(-1, -2, 3, 4));
  p->SetUnits(MM2D::UnitUserSpaceOnUse);
  p->SetPrimitiveUnits(MM2D::UnitObjectBoundingBox);
  p->SetResolution(100, 200);
  p->SetHrefID("base-filter");
  return p;
}
inline void ListFilterContainer(VYRPrtGraphicPrimitiveElt& i_elt, FieldListing& o_fields) {
  auto& elt = static_cast<VYRPrtFilterContainerElt&>(i_elt);
  ListChildren(elt, o_fields);
  ListRegion(elt.GetRegion(), o_fields);
  double x = 0, y = 0;
  elt.GetResolution(x, y);
  o_fields["filterContainer.units"] = Text(elt.GetUnits());
  o_fields["filterContainer.primitiveUnits"] = Text(elt.GetPrimitiveUnits());
  o_fields["filterContainer.resolution"] = Text(x) + "," + Text(y);
  o_fields["filterContainer.href"] = Text(elt.GetHrefID());
}

inline VYRPrtGraphicPrimitiveElt* MakeCircle() {
  auto* p = FilledShape<VYRPrtCircleElt>("circle");
  p->SetParameters(VYRMathPoint2D(7, 8), 9);
  return p;
}
inline void ListCircle(VYRPrtGraphicPrimitiveElt& i_elt, FieldListing& o_fields) {
  auto& elt = static_cast<VYRPrtCircleElt&>(i_elt);
  ListShape(elt, o_fields);
  o_fields["circle.center"] = Text(elt.GetCenter());
  o_fields["circle.radius"] = Text(elt.GetRadius());
}

inline VYRPrtGraphicPrimitiveElt* MakeCircularArc() {
  auto* p = FilledShape<VYRPrtCircularArcElt>("circularArc");
  p->SetParameters(VYRMathPoint2D(1, 1), 2, 0.25, 1.25);
  return p;
}
inline void ListCircularArc(VYRPrtGraphicPrimitiveElt& i_elt, FieldListing& o_fields) {
  auto& elt = static_cast<VYRPrtCircularArcElt&>(i_elt);
  ListShape(elt, o_fields);
  o_fields["arc.center"] = Text(elt.GetCenter());
  o_fields["arc.radius"] = Text(elt.GetRadius());
  o_fields["arc.start"] = Text(elt.GetStartAngle());
  o_fields["arc.end"] = Text(elt.GetEndAngle());
}

inline VYRPrtGraphicPrimitiveElt* MakeClosedFigure() {
  auto* p = FilledTree<VYRPrtClosedFigureElt>("closedFigure");
  p->SetDrawStyle(2);
  p->SetStrokeAttributes(NonDefaultStroke());
  p->SetFillAttributes(NonDefaultFill());
  return p;
}
inline void ListClosedFigure(VYRPrtGraphicPrimitiveElt& i_elt, FieldListing& o_fields) {
  auto& elt = static_cast<VYRPrtClosedFigureElt&>(i_elt);
  ListChildren(elt, o_fields);
  int drawStyle = 0;
  VYRPrtStrokeAttributes stroke;
  VYRPrtFillAttributes fill;
  elt.GetDrawStyle(drawStyle);
  elt.GetStrokeAttributes(stroke);
  elt.GetFillAttributes(fill);
  o_fields["shape.stroke"] = Bytes(stroke);
  o_fields["shape.fill"] = Bytes(fill);
  o_fields["shape.drawStyle"] = Text(drawStyle);
}

inline VYRPrtGraphicPrimitiveElt* MakeClosedFigureRegion() {
  auto* p = Filled<VYRPrtClosedFigureRegionElt>("region");
  // Without an identifier: a duplicated figure starts with default common attributes.
  auto* pFigure = Make<VYRPrtClosedFigureElt>("");
  pFigure->SetDrawStyle(1);
  p->AddChild(pFigure);
  return p;
}
inline void ListClosedFigureRegion(VYRPrtGraphicPrimitiveElt& i_elt, FieldListing& o_fields) {
  ListChildren(static_cast<VYRPrtClosedFigureRegionElt&>(i_elt), o_fields);
}

inline VYRPrtGraphicPrimitiveElt* MakeDisjointPolyline() {
  auto* p = FilledShape<VYRPrtDisjointPolylineElt>("disjointPolyline");
  p->SetMarkerReferences(SomeMarkers());
  p->AddRun(SomePoints(1));
  p->AddRun(SomePoints(10));
  return p;
}
inline void ListDisjointPolyline(VYRPrtGraphicPrimitiveElt& i_elt, FieldListing& o_fields) {
  auto& elt = static_cast<VYRPrtDisjointPolylineElt&>(i_elt);
  ListShape(elt, o_fields);
  ListMarkers(elt.GetMarkerReferences(), o_fields);
  o_fields["runs"] = ListRuns(elt.GetRuns());
}

inline VYRPrtGraphicPrimitiveElt* MakeEllipse() {
  auto* p = FilledShape<VYRPrtEllipseElt>("ellipse");
  p->SetParameters(VYRMathPoint2D(3, 4), 5, 6, 0.5);
  return p;
}
inline void ListEllipse(VYRPrtGraphicPrimitiveElt& i_elt, FieldListing& o_fields) {
  auto& elt = static_cast<VYRPrtEllipseElt&>(i_elt);
  ListShape(elt, o_fields);
  o_fields["ellipse.center"] = Text(elt.GetCenter());
  o_fields["ellipse.rx"] = Text(elt.GetHorzRadius());
  o_fields["ellipse.ry"] = Text(elt.GetVertRadius());
  o_fields["ellipse.slope"] = Text(elt.GetSlope());
}

inline VYRPrtGraphicPrimitiveElt* MakeEllipticalArc() {
  auto* p = FilledShape<VYRPrtEllipticalArcElt>("ellipticalArc");
  p->SetCenter(VYRMathPoint2D(2, 3));
  p->SetHorzRadius(4);
  p->SetVertRadius(5);
  p->SetStartAngle(0.5);
  p->SetSweepAngle(1.5);
  p->SetSlope(0.125);
  return p;
}
inline void ListEllipticalArc(VYRPrtGraphicPrimitiveElt& i_elt, FieldListing& o_fields) {
  auto& elt = static_cast<VYRPrtEllipticalArcElt&>(i_elt);
  ListShape(elt, o_fields);
  o_fields["ellipticalArc.center"] = Text(elt.GetCenter());
  o_fields["ellipticalArc.rx"] = Text(elt.GetHorzRadius());
  o_fields["ellipticalArc.ry"] = Text(elt.GetVertRadius());
  o_fields["ellipticalArc.start"] = Text(elt.GetStartAngle());
  o_fields["ellipticalArc.sweep"] = Text(elt.GetSweepAngle());
  o_fields["ellipticalArc.slope"] = Text(elt.GetSlope());
}

inline VYRPrtGraphicPrimitiveElt* MakeGroup() {
  auto* p = FilledTree<VYRPrtGroupElt>("group");
  VYRPrintLinkURI link;
  link.SetBaseURL("doc.svg");
  link.SetImageId("img");
  link.SetElementId("target");
  link.SetLinkShow(static_cast<VYRPrtLinkShow>(1));
  VYRPrtGroupAttributes attributes;
  attributes.SetLinkURI(link);
  p->SetGroupAttributes(attributes);
  return p;
}
inline void ListGroup(VYRPrtGraphicPrimitiveElt& i_elt, FieldListing& o_fields) {
  auto& elt = static_cast<VYRPrtGroupElt&>(i_elt);
  ListChildren(elt, o_fields);
  o_fields["group.attributes"] = Bytes(elt.GetGroupAttributes());
}

inline VYRPrtGraphicPrimitiveElt* MakeGradientStop() {
  auto* p = Filled<VYRPrtGradientStopElt>("gradientStop");
  p->SetOffset(0.4);
  p->SetColor(200, 100, 50);
  p->SetStopOpacity(0.6);
  return p;
}
inline void ListGradientStop(VYRPrtGraphicPrimitiveElt& i_elt, FieldListing& o_fields) {
  auto& elt = static_cast<VYRPrtGradientStopElt&>(i_elt);
  unsigned char r = 0, g = 0, b = 0;
  elt.GetColor(r, g, b);
  o_fields["stop.offset"] = Text(elt.GetOffset());
  o_fields["stop.color"] = Text(r) + "," + Text(g) + "," + Text(b);
  o_fields["stop.opacity"] = Text(elt.GetStopOpacity());
}

inline VYRPrtGraphicPrimitiveElt* MakeLinearGradient() {
  auto* p = FilledGradient<VYRPrtLinearGradientElt>("linearGradient");
  p->SetStartPoint(VYRMathPoint2D(0.1, 0.2));
  p->SetEndPoint(VYRMathPoint2D(0.9, 0.8));
  return p;
}
inline void ListLinearGradient(VYRPrtGraphicPrimitiveElt& i_elt, FieldListing& o_fields) {
  auto& elt = static_cast<VYRPrtLinearGradientElt&>(i_elt);
  ListGradient(elt, o_fields);
  o_fields["linear.start"] = Text(elt.GetStartPoint());
  o_fields["linear.end"] = Text(elt.GetEndPoint());
}

inline VYRPrtGraphicPrimitiveElt* MakeLine() {
  auto* p = Filled<VYRPrtLineElt>("line");
  p->SetPoints(VYRMathPoint2D(-1, -2), VYRMathPoint2D(10, 20));
  p->SetStrokeAttributes(NonDefaultStroke());
  p->SetMarkerReferences(SomeMarkers());
  return p;
}
inline void ListLine(VYRPrtGraphicPrimitiveElt& i_elt, FieldListing& o_fields) {
  auto& elt = static_cast<VYRPrtLineElt&>(i_elt);
  o_fields["line.start"] = Text(elt.GetStartPoint());
  o_fields["line.end"] = Text(elt.GetEndPoint());
  o_fields["line.stroke"] = Bytes(elt.GetStrokeAttributes());
  ListMarkers(elt.GetMarkerReferences(), o_fields);
}

inline VYRPrtGraphicPrimitiveElt* MakeMarker() {
  auto* p = FilledTree<VYRPrtMarkerElt>("marker");
  p->SetReferencePoint(VYRMathPoint2D(1.5, 2.5));
  p->SetSize(6, 7);
  p->SetUnits(MM2D::MarkerUnitUserSpaceOnUse);
  p->SetOrientationAngle(45);  // the angle stays when the orientation turns to auto
  p->SetOrientationAuto();
  p->SetViewBoxAttributes(SomeViewBox());
  return p;
}
inline void ListMarker(VYRPrtGraphicPrimitiveElt& i_elt, FieldListing& o_fields) {
  auto& elt = static_cast<VYRPrtMarkerElt&>(i_elt);
  ListChildren(elt, o_fields);
  double width = 0, height = 0;
  elt.GetSize(width, height);
  o_fields["marker.ref"] = Text(elt.GetReferencePoint());
  o_fields["marker.size"] = Text(width) + "," + Text(height);
  o_fields["marker.units"] = Text(elt.GetUnits());
  o_fields["marker.orientation"] = Text(elt.GetOrientation());
  o_fields["marker.angle"] = Text(elt.GetOrientationAngle());
  o_fields["marker.viewBox"] = Bytes(elt.GetViewBoxAttributes());
}

inline VYRPrtGraphicPrimitiveElt* MakeNURBS() {
  auto* p = FilledShape<VYRPrtNURBSElt>("nurbs");
  p->SetMarkerReferences(SomeMarkers());
  p->SetParameters(3, SomeValues(0, 8), SomeValues(1, 4), SomePoints(2));
  return p;
}
inline void ListNURBS(VYRPrtGraphicPrimitiveElt& i_elt, FieldListing& o_fields) {
  auto& elt = static_cast<VYRPrtNURBSElt&>(i_elt);
  ListShape(elt, o_fields);
  ListMarkers(elt.GetMarkerReferences(), o_fields);
  o_fields["nurbs.degree"] = Text(elt.GetDegree());
  o_fields["nurbs.knots"] = Text(elt.GetKnots());
  o_fields["nurbs.weights"] = Text(elt.GetWeights());
  o_fields["nurbs.controlPoints"] = Text(elt.GetControlPoints());
}

inline VYRPrtGraphicPrimitiveElt* MakePath() {
  auto* p = FilledShape<VYRPrtPathElt>("path");
  p->SetMarkerReferences(SomeMarkers());
  p->AddPathSegment(new VYRPrtPathSegMoveTo(MM2D::PathCoordAbsolute, VYRMathPoint2D(1, 2)));
  p->AddPathSegment(new VYRPrtPathSegLineTo(MM2D::PathCoordRelative, VYRMathPoint2D(3, 4)));
  p->AddPathSegment(new VYRPrtPathSegCurveToCubic(MM2D::PathCoordRelative, VYRMathPoint2D(1, 1),
                                                  VYRMathPoint2D(2, 2), VYRMathPoint2D(3, 3)));
  p->AddPathSegment(new VYRPrtPathSegCurveToQuadratic(MM2D::PathCoordAbsolute, VYRMathPoint2D(4, 4),
                                                      VYRMathPoint2D(5, 5)));
  auto* pArc = new VYRPrtPathSegArcTo(MM2D::PathCoordRelative);
  pArc->SetCenter(VYRMathPoint2D(6, 6));
  pArc->SetRX(2);
  pArc->SetRY(3);
  pArc->SetRotation(0.5);
  pArc->SetStartAngle(0.25);
  pArc->SetSweepAngle(1.75);
  pArc->SetEndPointParameters(MM2D::ArcEndPointParameters(VYRMathPoint2D(1, 0), VYRMathPoint2D(0, 1), true, false));
  p->AddPathSegment(pArc);
  p->AddPathSegment(new VYRPrtPathSegClosePath(MM2D::PathCoordRelative));
  return p;
}
inline void ListPath(VYRPrtGraphicPrimitiveElt& i_elt, FieldListing& o_fields) {
  auto& elt = static_cast<VYRPrtPathElt&>(i_elt);
  ListShape(elt, o_fields);
  ListMarkers(elt.GetMarkerReferences(), o_fields);
  std::string segments;
  const VYRSYPDynArray<VYRPrtPathSeg*>& array = elt.GetPathSegments();
  for (int i = 0; i < array.GetLength(); ++i) segments += Text(BytesOf(*array[i])) + ";";
  o_fields["path.segments"] = segments;
}

inline VYRPrtGraphicPrimitiveElt* MakePattern() {
  auto* p = FilledTree<VYRPrtPatternElt>("pattern");
  p->SetRegion(VYRPrtRegionAttributes(1, 2, 10, 20));
  p->SetUnits(MM2D::UnitUserSpaceOnUse);
  p->SetContentUnits(MM2D::UnitObjectBoundingBox);
  p->SetViewBoxAttributes(SomeViewBox());
  p->SetPatternTransform(SomeTransform());
  p->SetHrefID("base-pattern");
  return p;
}
inline void ListPattern(VYRPrtGraphicPrimitiveElt& i_elt, FieldListing& o_fields) {
  auto& elt = static_cast<VYRPrtPatternElt&>(i_elt);
  ListChildren(elt, o_fields);
  ListRegion(elt.GetRegion(), o_fields);
  o_fields["pattern.units"] = Text(elt.GetUnits());
  o_fields["pattern.contentUnits"] = Text(elt.GetContentUnits());
  o_fields["pattern.viewBox"] = Bytes(elt.GetViewBoxAttributes());
  o_fields["pattern.transform"] = Bytes(elt.GetPatternTransform());
  o_fields["pattern.href"] = Text(elt.GetHrefID());
}

inline VYRPrtGraphicPrimitiveElt* MakePolyCubicBezier() { return FilledPointList<VYRPrtPolyCubicBezierElt>("polyCubic"); }
inline VYRPrtGraphicPrimitiveElt* MakePolygon() { return FilledPointList<VYRPrtPolygonElt>("polygon"); }
inline VYRPrtGraphicPrimitiveElt* MakePolyline() { return FilledPointList<VYRPrtPolylineElt>("polyline"); }
inline VYRPrtGraphicPrimitiveElt* MakePolyQuadraticBezier() {
  return FilledPointList<VYRPrtPolyQuadraticBezierElt>("polyQuadratic");
}

inline VYRPrtGraphicPrimitiveElt* MakePolyPolygon() {
  auto* p = FilledShape<VYRPrtPolyPolygonElt>("polyPolygon");
  p->SetMarkerReferences(SomeMarkers());
  p->AddRing(SomePoints(0));
  p->AddRing(SomePoints(5));
  return p;
}
inline void ListPolyPolygon(VYRPrtGraphicPrimitiveElt& i_elt, FieldListing& o_fields) {
  auto& elt = static_cast<VYRPrtPolyPolygonElt&>(i_elt);
  ListShape(elt, o_fields);
  ListMarkers(elt.GetMarkerReferences(), o_fields);
  o_fields["rings"] = ListRuns(elt.GetRings());
}

inline VYRPrtGraphicPrimitiveElt* MakeRadialGradient() {
  auto* p = FilledGradient<VYRPrtRadialGradientElt>("radialGradient");
  p->SetCentre(VYRMathPoint2D(0.25, 0.75));
  p->SetRadius(0.3);
  p->SetFocus(VYRMathPoint2D(0.2, 0.7));
  return p;
}
inline void ListRadialGradient(VYRPrtGraphicPrimitiveElt& i_elt, FieldListing& o_fields) {
  auto& elt = static_cast<VYRPrtRadialGradientElt&>(i_elt);
  ListGradient(elt, o_fields);
  o_fields["radial.centre"] = Text(elt.GetCentre());
  o_fields["radial.radius"] = Text(elt.GetRadius());
  o_fields["radial.focus"] = Text(elt.GetFocus());
  o_fields["radial.hasFocus"] = Text(elt.HasFocus());
}

inline VYRPrtGraphicPrimitiveElt* MakeSwitch() { return FilledTree<VYRPrtSwitchElt>("switch"); }
inline VYRPrtGraphicPrimitiveElt* MakeDefs() { return FilledTree<VYRPrtDefsElt>("defs"); }
inline void ListChildrenOnly(VYRPrtGraphicPrimitiveElt& i_elt, FieldListing& o_fields) {
  ListChildren(static_cast<VYRPrtNodeTreeElt&>(i_elt), o_fields);
}

inline VYRPrtGraphicPrimitiveElt* MakeSymbol() {
  auto* p = FilledTree<VYRPrtSymbolElt>("symbol");
  p->SetOrigin(VYRMathPoint2D(-5, -6));
  p->SetSize(50, 60);
  p->SetViewBoxAttributes(SomeViewBox());
  return p;
}
inline void ListSymbol(VYRPrtGraphicPrimitiveElt& i_elt, FieldListing& o_fields) {
  auto& elt = static_cast<VYRPrtSymbolElt&>(i_elt);
  ListChildren(elt, o_fields);
  double width = 0, height = 0;
  elt.GetSize(width, height);
  o_fields["symbol.origin"] = Text(elt.GetOrigin());
  o_fields["symbol.size"] = Text(width) + "," + Text(height);
  o_fields["symbol.viewBox"] = Bytes(elt.GetViewBoxAttributes());
}

inline VYRPrtGraphicPrimitiveElt* MakeBitmapImage() {
  auto* p = Filled<VYRPrtBitmapImageElt>("bitmap");
  auto* pPixels = new VYRPixelImage(3, 2, VYRPixelImageFormat_RGBA32);
  p->SetParameters(VYRMathPoint2D(4, 5), 30, 20, 0.5, pPixels);
  pPixels->Release();
  return p;
}
inline void ListBitmapImage(VYRPrtGraphicPrimitiveElt& i_elt, FieldListing& o_fields) {
  auto& elt = static_cast<VYRPrtBitmapImageElt&>(i_elt);
  VYRMathPoint2D position;
  double width = 0, height = 0, orientation = 0;
  VYRPixelImage* pPixels = nullptr;
  elt.GetParameters(position, width, height, orientation, pPixels);
  o_fields["bitmap.position"] = Text(position);
  o_fields["bitmap.size"] = Text(width) + "," + Text(height);
  o_fields["bitmap.orientation"] = Text(orientation);
  VYR2DGStringStream pixelBytes;
  VYRPrtStreamUnstreamHelper::SerializeVYRPixelImage(pPixels, &pixelBytes);
  o_fields["bitmap.pixels"] = Text(StreamBytes(pixelBytes));
}

inline VYRPrtGraphicPrimitiveElt* MakeText() {
  auto* p = FilledShape<VYRPrtTextElt>("text");
  p->SetText("Grüße");
  p->SetPositions(SomePoints(3));
  VYRPrtTextAttributes attributes;
  attributes.SetFontFamily("DejaVu Serif");
  attributes.SetHeight(12.5);
  attributes.SetWeight(VYRPrtTextAttributes::kBoldWeight);
  attributes.SetStyle(MM2D::FontStyleOblique);
  attributes.SetAnchor(MM2D::TextAnchorMiddle);
  attributes.SetDecoration(MM2D::TextDecorationUnderline | MM2D::TextDecorationLineThrough);
  attributes.SetFontVersion(2);
  p->SetTextAttributes(attributes);
  return p;
}
inline void ListText(VYRPrtGraphicPrimitiveElt& i_elt, FieldListing& o_fields) {
  auto& elt = static_cast<VYRPrtTextElt&>(i_elt);
  ListShape(elt, o_fields);
  o_fields["text.string"] = Text(elt.GetText());
  o_fields["text.positions"] = Text(elt.GetPositions());
  const VYRPrtTextAttributes& attributes = elt.GetTextAttributes();
  o_fields["text.fontFamily"] = Text(attributes.GetFontFamily());
  o_fields["text.height"] = Text(attributes.GetHeight());
  o_fields["text.weight"] = Text(attributes.GetWeight());
  o_fields["text.style"] = Text(attributes.GetStyle());
  o_fields["text.anchor"] = Text(attributes.GetAnchor());
  o_fields["text.decoration"] = Text(attributes.GetDecoration());
  o_fields["text.fontVersion"] = Text(attributes.GetFontVersion());
}

}  // namespace every_kind

// The kinds in tag order. Reset keeps the stream version of every kind and the
// children of every node tree; keptByReset names what else it leaves alone.
// The line and path records have a fixed layout without room for markers.
inline const std::vector<ElementKind>& EveryElementKind() {
  using namespace every_kind;
  using R = DuplicateRule;
  static const std::vector<ElementKind> kinds = {
      {8, "Rectangle", MakeDefault<VYRPrtRectangleElt>, MakeRectangle, ListRectangle, R::Everything, {}, {}},
      {9, "Image", MakeDefault<VYRPrtImageElt>, MakeImage, ListImage, R::WithoutCommonAttributes, {"image.matrix"}, {}},
      {10, "ClipPath", MakeDefault<VYRPrtClipPathElt>, MakeClipPath, ListClipPath, R::None, {}, {}},
      {11, "Mask", MakeDefault<VYRPrtMaskElt>, MakeMask, ListMask, R::None, {}, {}},
      {12, "FilterColorMatrix", MakeDefault<VYRPrtFilterColorMatrixElt>, MakeColorMatrix, ListColorMatrix, R::None, {}, {}},
      {13, "FilterBlend", MakeDefault<VYRPrtFilterBlendElt>, MakeBlend, ListBlend, R::None, {}, {}},
      {14, "FilterGaussianBlur", MakeDefault<VYRPrtFilterGaussianBlurElt>, MakeGaussianBlur, ListGaussianBlur, R::None, {}, {}},
      {15, "FilterOffset", MakeDefault<VYRPrtFilterOffsetElt>, MakeOffset, ListOffset, R::None, {}, {}},
      {16, "FilterMerge", MakeDefault<VYRPrtFilterMergeElt>, MakeMerge, ListMerge, R::None, {"merge.inputs"}, {}},
      {17, "FilterMergeNode", MakeDefault<VYRPrtFilterMergeNodeElt>, MakeMergeNode, ListMergeNode, R::None, {}, {}},
      {18, "FilterContainer", MakeDefault<VYRPrtFilterContainerElt>, MakeFilterContainer, ListFilterContainer, R::None, {}, {}},
      {19, "Circle", MakeDefault<VYRPrtCircleElt>, MakeCircle, ListCircle, R::Everything, {}, {}},
      {20, "CircularArc", MakeDefault<VYRPrtCircularArcElt>, MakeCircularArc, ListCircularArc, R::Everything, {}, {}},
      {21, "ClosedFigure", MakeDefault<VYRPrtClosedFigureElt>, MakeClosedFigure, ListClosedFigure, R::WithoutCommonAttributes, {}, {}},
      {22, "ClosedFigureRegion", MakeDefault<VYRPrtClosedFigureRegionElt>, MakeClosedFigureRegion, ListClosedFigureRegion, R::WithoutCommonAttributes, {}, {}},
      {23, "DisjointPolyline", MakeDefault<VYRPrtDisjointPolylineElt>, MakeDisjointPolyline, ListDisjointPolyline, R::Everything, {"runs"}, {}},
      {24, "Ellipse", MakeDefault<VYRPrtEllipseElt>, MakeEllipse, ListEllipse, R::Everything, {}, {}},
      {25, "EllipticalArc", MakeDefault<VYRPrtEllipticalArcElt>, MakeEllipticalArc, ListEllipticalArc, R::Everything, {"common.", "shape."}, {}},
      {26, "Group", MakeDefault<VYRPrtGroupElt>, MakeGroup, ListGroup, R::Everything, {}, {}},
      {27, "GradientStop", MakeDefault<VYRPrtGradientStopElt>, MakeGradientStop, ListGradientStop, R::Everything, {}, {}},
      {29, "LinearGradient", MakeDefault<VYRPrtLinearGradientElt>, MakeLinearGradient, ListLinearGradient, R::Everything, {}, {}},
      {30, "Line", MakeDefault<VYRPrtLineElt>, MakeLine, ListLine, R::Everything, {}, {"markers"}},
      {31, "Marker", MakeDefault<VYRPrtMarkerElt>, MakeMarker, ListMarker, R::Everything, {}, {}},
      {32, "NURBS", MakeDefault<VYRPrtNURBSElt>, MakeNURBS, ListNURBS, R::Everything, {"nurbs."}, {}},
      {33, "Path", MakeDefault<VYRPrtPathElt>, MakePath, ListPath, R::Everything, {}, {"markers"}},
      {34, "Pattern", MakeDefault<VYRPrtPatternElt>, MakePattern, ListPattern, R::Everything, {}, {}},
      {37, "PolyCubicBezier", MakeDefault<VYRPrtPolyCubicBezierElt>, MakePolyCubicBezier, ListPointList<VYRPrtPolyCubicBezierElt>, R::Everything, {}, {}},
      {38, "Polygon", MakeDefault<VYRPrtPolygonElt>, MakePolygon, ListPointList<VYRPrtPolygonElt>, R::Everything, {}, {}},
      {39, "Polyline", MakeDefault<VYRPrtPolylineElt>, MakePolyline, ListPointList<VYRPrtPolylineElt>, R::Everything, {}, {}},
      {40, "PolyPolygon", MakeDefault<VYRPrtPolyPolygonElt>, MakePolyPolygon, ListPolyPolygon, R::Everything, {"rings"}, {}},
      {41, "PolyQuadraticBezier", MakeDefault<VYRPrtPolyQuadraticBezierElt>, MakePolyQuadraticBezier, ListPointList<VYRPrtPolyQuadraticBezierElt>,
       R::Everything, {}, {}},
      {42, "RadialGradient", MakeDefault<VYRPrtRadialGradientElt>, MakeRadialGradient, ListRadialGradient, R::Everything, {}, {}},
      {43, "Switch", MakeDefault<VYRPrtSwitchElt>, MakeSwitch, ListChildrenOnly, R::None, {}, {}},
      {44, "Symbol", MakeDefault<VYRPrtSymbolElt>, MakeSymbol, ListSymbol, R::Everything, {}, {}},
      {45, "BitmapImage", MakeDefault<VYRPrtBitmapImageElt>, MakeBitmapImage, ListBitmapImage, R::Everything, {}, {}},
      {46, "Defs", MakeDefault<VYRPrtDefsElt>, MakeDefs, ListChildrenOnly, R::Everything, {}, {}},
      {47, "Text", MakeDefault<VYRPrtTextElt>, MakeText, ListText, R::Everything, {}, {}},
  };
  return kinds;
}

inline void PrintTo(const ElementKind& i_kind, std::ostream* o_stream) { *o_stream << i_kind.name; }

// Every field of an element of the given kind, common attributes included.
inline FieldListing ListFields(const ElementKind& i_kind, VYRPrtGraphicPrimitiveElt& i_elt) {
  FieldListing fields;
  every_kind::ListCommon(i_elt, fields);
  i_kind.listOwnFields(i_elt, fields);
  return fields;
}

// The fields a stream carries: those of ListFields but the ones held in memory only.
inline FieldListing StreamedFields(const ElementKind& i_kind, VYRPrtGraphicPrimitiveElt& i_elt) {
  FieldListing fields = ListFields(i_kind, i_elt);
  for (const std::string& prefix : i_kind.notStreamed) {
    for (auto field = fields.begin(); field != fields.end();) {
      field = field->first.compare(0, prefix.size(), prefix) == 0 ? fields.erase(field) : std::next(field);
    }
  }
  return fields;
}

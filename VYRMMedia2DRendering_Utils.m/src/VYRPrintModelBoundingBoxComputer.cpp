#include "VYRPrintModelBoundingBoxComputer.h"

#include <cmath>
#include <map>
#include <memory>
#include <new>

#include "VYRAssert.h"
#include "VYRFont.h"
#include "VYRMathConstants.h"
#include "VYRPrtBitmapImageElt.h"
#include "VYRPrtCircleElt.h"
#include "VYRPrtCircularArcElt.h"
#include "VYRPrtClosedFigureElt.h"
#include "VYRPrtClosedFigureRegionElt.h"
#include "VYRPrtDisjointPolylineElt.h"
#include "VYRPrtEllipseElt.h"
#include "VYRPrtEllipticalArcElt.h"
#include "VYRPrtGroupElt.h"
#include "VYRPrtImageElt.h"
#include "VYRPrtLineElt.h"
#include "VYRPrtMarkerElt.h"
#include "VYRPrtModel.h"
#include "VYRPrtNURBSElt.h"
#include "VYRPrtPatternElt.h"
#include "VYRPrtPolyCubicBezierElt.h"
#include "VYRPrtPolyPolygonElt.h"
#include "VYRPrtPolyQuadraticBezierElt.h"
#include "VYRPrtPolygonElt.h"
#include "VYRPrtPolylineElt.h"
#include "VYRPrtRectangleElt.h"
#include "VYRPrtSwitchElt.h"
#include "VYRPrtSymbolElt.h"
#include "VYRPrtTextElt.h"

namespace {

constexpr double kEmptyMin = 100000.0;
constexpr double kEmptyMax = -100000.0;
// Chords of a flattened outline stray at most this far inside the curve.
constexpr double kChordTolerance = 0.25;
// Bounds the samples of a huge or non-finite radius; the step then widens to fit.
constexpr double kMaxOutlinePoints = 65536.0;

// The angle between samples that keeps every chord within the tolerance of the curve.
double ChordStep(double i_radius) {
  double step = i_radius > kChordTolerance ? std::acos((i_radius - kChordTolerance) / i_radius) : VYRMathPi * 0.5;
  return step < 0.0 ? -step : step;
}

// Sample count for a sweep (radians) at the chord step of the radius; 0 when it cannot be sampled.
int SampleCount(double i_sweep, double i_radius) {
  if (i_radius != i_radius) return 0;
  double count = std::fabs(std::ceil(i_sweep / ChordStep(i_radius)));
  if (!(count == count)) return 0;  // NaN radius or sweep
  return static_cast<int>(count < kMaxOutlinePoints ? count : kMaxOutlinePoints);
}

double ToRadians(double i_degrees) { return i_degrees * (VYRMathPi / 180.0); }

// Restores the accumulated transform on leaving an element that appended its own.
class TransformScope {
 public:
  TransformScope(VYRPrtTransformAttributes& io_accumulated, const VYRPrtTransformAttributes& i_own)
      : _accumulated(io_accumulated) {
    unsigned int count = 0;
    VYRPrintTransformType* paTypes = nullptr;
    i_own.GetTransformTab(count, paTypes);
    if (count == 0) return;  // nothing to append, nothing to restore
    _pSaved.reset(new (std::nothrow) VYRPrtTransformAttributes(io_accumulated));
    if (_pSaved) io_accumulated.AddTransformAttributes(i_own);
  }
  ~TransformScope() {
    if (_pSaved) _accumulated = *_pSaved;
  }
  TransformScope(const TransformScope&) = delete;
  TransformScope& operator=(const TransformScope&) = delete;

 private:
  VYRPrtTransformAttributes& _accumulated;
  std::unique_ptr<VYRPrtTransformAttributes> _pSaved;
};

bool IsEmptyTransform(const VYRPrtTransformAttributes& i_transform) {
  unsigned int count = 0;
  VYRPrintTransformType* paTypes = nullptr;
  i_transform.GetTransformTab(count, paTypes);
  return count == 0;
}

// The face a text is set in; the default face is looked up once per font
// version. Resolving it keeps the font cache warm for the renderer that
// follows: the box itself does not depend on the face.
const VYRFont* ResolveTextFont(const VYRPrtTextAttributes& i_attributes) {
  int style = (i_attributes.GetWeight() >= VYRPrtTextAttributes::kBoldWeight ? VYRFont::kBold : VYRFont::kNormal) |
              (i_attributes.GetStyle() != MM2D::FontStyleNormal ? VYRFont::kItalic : VYRFont::kNormal);
  if (!i_attributes.GetFontFamily().IsEmpty()) return VYRFont::sGetFont(i_attributes.GetFontFamily(), style);
  static std::map<int, const VYRFont*> s_defaultFontByVersion;
  auto found = s_defaultFontByVersion.find(i_attributes.GetFontVersion());
  if (found != s_defaultFontByVersion.end()) return found->second;
  const VYRFont* pFont = VYRFont::sGetFont(VYRFont::sGetDefaultFont(), style);
  s_defaultFontByVersion[i_attributes.GetFontVersion()] = pFont;
  return pFont;
}

template <class K>
bool IsClass(const char* i_className) {
  // IsA hands out one name pointer per class, so equal pointers are equal names.
  return i_className == K::ClassName();
}

}  // namespace

VYRPrintModelBoundingBoxComputer::VYRPrintModelBoundingBoxComputer() { ResetBox(); }

void VYRPrintModelBoundingBoxComputer::ResetBox() {
  _xmin = kEmptyMin;
  _xmax = kEmptyMax;
  _ymin = kEmptyMin;
  _ymax = kEmptyMax;
}

void VYRPrintModelBoundingBoxComputer::CopyBoxOut(double& o_xmin, double& o_xmax, double& o_ymin,
                                                  double& o_ymax) const {
  o_xmin = _xmin;
  o_xmax = _xmax;
  o_ymin = _ymin;
  o_ymax = _ymax;
}

void VYRPrintModelBoundingBoxComputer::AddPoint(double i_x, double i_y) {
  if (_xmin > i_x) _xmin = i_x;
  if (i_x > _xmax) _xmax = i_x;
  if (_ymin > i_y) _ymin = i_y;
  if (i_y > _ymax) _ymax = i_y;
}

int VYRPrintModelBoundingBoxComputer::Compute(VYRPrtModel* ipModel, double& o_xmin, double& o_xmax, double& o_ymin,
                                              double& o_ymax) {
  if (!ipModel) return 0;
  ResetBox();
  VYRListPtrVYRPrtImageElt* pImages = nullptr;
  ipModel->GetImages(pImages);
  if (!pImages) return 0;
  int result = -1;
  for (int position = 1; position <= pImages->Size(); ++position) {
    VYRPrtImageElt* pImage = (*pImages)[position];
    if (!pImage) continue;
    result = DrawImage(pImage);
    if (result < 0) return result;
  }
  CopyBoxOut(o_xmin, o_xmax, o_ymin, o_ymax);
  return result;
}

int VYRPrintModelBoundingBoxComputer::Compute(VYRPrtGraphicPrimitiveElt* ipElement, double& o_xmin, double& o_xmax,
                                              double& o_ymin, double& o_ymax) {
  if (!ipElement) return 0;
  ResetBox();
  int result = Draw(ipElement);
  CopyBoxOut(o_xmin, o_xmax, o_ymin, o_ymax);
  return result;
}

int VYRPrintModelBoundingBoxComputer::Draw(VYRPrtGraphicPrimitiveElt* ipElement) {
  if (!ipElement) return 0;
  // The exact class decides: a class derived from a listed one contributes nothing.
  const char* name = ipElement->IsA();
  if (IsClass<VYRPrtImageElt>(name)) DrawImage(static_cast<VYRPrtImageElt*>(ipElement));
  else if (IsClass<VYRPrtBitmapImageElt>(name)) DrawBitmapImage(static_cast<VYRPrtBitmapImageElt*>(ipElement));
  else if (IsClass<VYRPrtCircleElt>(name)) DrawCircle(static_cast<VYRPrtCircleElt*>(ipElement));
  else if (IsClass<VYRPrtCircularArcElt>(name)) DrawCircularArc(static_cast<VYRPrtCircularArcElt*>(ipElement));
  else if (IsClass<VYRPrtDisjointPolylineElt>(name))
    DrawDisjointPolyline(static_cast<VYRPrtDisjointPolylineElt*>(ipElement));
  else if (IsClass<VYRPrtEllipseElt>(name)) DrawEllipse(static_cast<VYRPrtEllipseElt*>(ipElement));
  else if (IsClass<VYRPrtEllipticalArcElt>(name)) DrawEllipticalArc(static_cast<VYRPrtEllipticalArcElt*>(ipElement));
  else if (IsClass<VYRPrtGroupElt>(name)) DrawGroup(static_cast<VYRPrtGroupElt*>(ipElement));
  else if (IsClass<VYRPrtClosedFigureElt>(name)) DrawClosedFigure(static_cast<VYRPrtClosedFigureElt*>(ipElement));
  else if (IsClass<VYRPrtClosedFigureRegionElt>(name))
    DrawClosedFigureRegion(static_cast<VYRPrtClosedFigureRegionElt*>(ipElement));
  else if (IsClass<VYRPrtLineElt>(name)) DrawLine(static_cast<VYRPrtLineElt*>(ipElement));
  else if (IsClass<VYRPrtMarkerElt>(name)) DrawMarker(static_cast<VYRPrtMarkerElt*>(ipElement));
  else if (IsClass<VYRPrtNURBSElt>(name)) DrawNURBS(static_cast<VYRPrtNURBSElt*>(ipElement));
  else if (IsClass<VYRPrtPolyCubicBezierElt>(name))
    DrawPolyCubicBezier(static_cast<VYRPrtPolyCubicBezierElt*>(ipElement));
  else if (IsClass<VYRPrtPolygonElt>(name)) DrawPolygon(static_cast<VYRPrtPolygonElt*>(ipElement));
  else if (IsClass<VYRPrtPolylineElt>(name)) DrawPolygon(static_cast<VYRPrtPolylineElt*>(ipElement));
  else if (IsClass<VYRPrtPolyPolygonElt>(name)) DrawPolyPolygon(static_cast<VYRPrtPolyPolygonElt*>(ipElement));
  else if (IsClass<VYRPrtPolyQuadraticBezierElt>(name))
    DrawPolyQuadraticBezier(static_cast<VYRPrtPolyQuadraticBezierElt*>(ipElement));
  else if (IsClass<VYRPrtRectangleElt>(name)) DrawRectangle(static_cast<VYRPrtRectangleElt*>(ipElement));
  else if (IsClass<VYRPrtTextElt>(name)) DrawTextW(static_cast<VYRPrtTextElt*>(ipElement));
  else if (IsClass<VYRPrtSymbolElt>(name)) DrawSymbol(static_cast<VYRPrtSymbolElt*>(ipElement));
  else if (IsClass<VYRPrtPatternElt>(name)) DrawPattern(static_cast<VYRPrtPatternElt*>(ipElement));
  else if (IsClass<VYRPrtSwitchElt>(name)) DrawSwitch(static_cast<VYRPrtSwitchElt*>(ipElement));
  return 1;
}

// ---- Containers and placed elements

void VYRPrintModelBoundingBoxComputer::DrawChildren(const VYRPrtNodeTreeElt& i_node) {
  const VYRSYPDynArray<VYRPrtGraphicPrimitiveElt*>& children = i_node.GetChildArray();
  for (VYRPrtGraphicPrimitiveElt* pChild : children) Draw(pChild);
}

int VYRPrintModelBoundingBoxComputer::DrawGroup(VYRPrtNodeTreeElt* iprGroupElt) {
  if (!VYR_CHECK_POINTER(iprGroupElt)) return 0;
  TransformScope scope(_transformAttributes, iprGroupElt->GetTransformAttributes());
  DrawChildren(*iprGroupElt);
  return 1;
}

int VYRPrintModelBoundingBoxComputer::DrawSwitch(VYRPrtNodeTreeElt* iprSwitchElt) {
  if (!VYR_CHECK_POINTER(iprSwitchElt)) return 0;
  // Every alternative counts, and the switch's own transform does not: unlike a group.
  DrawChildren(*iprSwitchElt);
  return 1;
}

void VYRPrintModelBoundingBoxComputer::DrawPlacedTile(const VYRPrtNodeTreeElt& i_tile,
                                                      const VYRMathPoint2D& i_origin, double i_width,
                                                      double i_height) {
  if (!(i_width > 0.0) && !(i_height > 0.0)) {
    DrawChildren(i_tile);
    return;
  }
  AddPoint(i_origin.x, i_origin.y);
  AddPoint(i_origin.x + i_width, i_origin.y + i_height);
}

int VYRPrintModelBoundingBoxComputer::DrawSymbol(VYRPrtSymbolElt* ipSymbol) {
  double width = 0.0, height = 0.0;
  ipSymbol->GetSize(width, height);
  DrawPlacedTile(*ipSymbol, ipSymbol->GetOrigin(), width, height);
  return 1;
}

int VYRPrintModelBoundingBoxComputer::DrawPattern(VYRPrtPatternElt* iprPattern) {
  if (!VYR_CHECK_POINTER(iprPattern)) return 0;
  double width = 0.0, height = 0.0;
  iprPattern->GetSize(width, height);
  DrawPlacedTile(*iprPattern, iprPattern->GetOrigin(), width, height);
  return 1;
}

int VYRPrintModelBoundingBoxComputer::DrawImage(VYRPrtImageElt* iprImageElt) {
  if (!VYR_CHECK_POINTER(iprImageElt)) return 0;
  double width = 0.0, height = 0.0;
  iprImageElt->GetSize(width, height);
  if (width == 0.0 && height == 0.0) {
    // A sizeless image measures its content with no transform at all, and
    // the transform is not given back: later siblings are measured without
    // their ancestors' transforms until an enclosing container restores them.
    const VYRSYPDynArray<VYRPrtGraphicPrimitiveElt*> children = iprImageElt->GetChildArray();
    if (children.IsEmpty()) return 1;
    _transformAttributes = VYRPrtTransformAttributes();
    for (VYRPrtGraphicPrimitiveElt* pChild : children) Draw(pChild);
    return 1;
  }
  const VYRMathPoint2D& origin = iprImageElt->GetOrigin();
  AddPoint(origin.x, origin.y);
  AddPoint(origin.x + width, origin.y + height);
  return 1;
}

// ---- Leaf shapes

void VYRPrintModelBoundingBoxComputer::AddOutline(const VYRMathPoint2D* i_paPoints, int i_count) {
  if (i_count <= 0) return;
  VYRMath3x3Matrix matrix;
  if (GetTransformationMatrix(_transformAttributes, matrix) == 0) {
    for (int i = 0; i < i_count; ++i) AddPoint(i_paPoints[i].x, i_paPoints[i].y);
    return;
  }
  std::unique_ptr<float[]> paXY(new (std::nothrow) float[2 * static_cast<size_t>(i_count)]);
  if (!paXY) return;  // no room for the points: the element adds nothing
  for (int i = 0; i < i_count; ++i) {
    paXY[2 * i] = static_cast<float>(i_paPoints[i].x);
    paXY[2 * i + 1] = static_cast<float>(i_paPoints[i].y);
  }
  TransformPoints(static_cast<unsigned int>(i_count), paXY.get(), matrix);
  for (int i = 0; i < i_count; ++i) AddPoint(paXY[2 * i], paXY[2 * i + 1]);
}

void VYRPrintModelBoundingBoxComputer::AddPlacedExtent(const VYRMathPoint2D& i_point, double i_width,
                                                       double i_height) {
  VYRMath3x3Matrix matrix;
  double x = i_point.x, y = i_point.y;
  if (GetTransformationMatrix(_transformAttributes, matrix) != 0) {
    float xy[2] = {static_cast<float>(x), static_cast<float>(y)};
    TransformPoints(1, xy, matrix);
    x = xy[0];
    y = xy[1];
  }
  AddPoint(x, y);
  AddPoint(x + i_width, y + i_height);
}

int VYRPrintModelBoundingBoxComputer::DrawLine(VYRPrtLineElt* ipLine) {
  TransformScope scope(_transformAttributes, ipLine->GetTransformAttributes());
  VYRMathPoint2D points[2] = {ipLine->GetStartPoint(), ipLine->GetEndPoint()};
  AddOutline(points, 2);
  return 1;
}

int VYRPrintModelBoundingBoxComputer::DrawRectangle(VYRPrtRectangleElt* ipRectangle) {
  TransformScope scope(_transformAttributes, ipRectangle->GetTransformAttributes());
  VYRMathPoint2D first, second;
  ipRectangle->GetPoints(first, second);
  if (IsEmptyTransform(_transformAttributes)) {
    AddOutline(&first, 1);
    AddOutline(&second, 1);
    return 1;
  }
  VYRMathPoint2D outline[5] = {first, {second.x, first.y}, second, {first.x, second.y}, first};
  AddOutline(outline, 5);
  return 1;
}

int VYRPrintModelBoundingBoxComputer::DrawPolygon(VYRPrtPointListElt* ipPointList) {
  TransformScope scope(_transformAttributes, ipPointList->GetTransformAttributes());
  const VYRSYPDynArray<VYRMathPoint2D>& points = ipPointList->GetPoints();
  AddOutline(points.GetData(), points.GetLength());
  return 1;
}

int VYRPrintModelBoundingBoxComputer::DrawDisjointPolyline(VYRPrtDisjointPolylineElt* ipPolyline) {
  TransformScope scope(_transformAttributes, ipPolyline->GetTransformAttributes());
  const VYRSYPDynArray<VYRMathPoint2D>& points = ipPolyline->GetRuns().GetPoints();
  AddOutline(points.GetData(), points.GetLength());
  return 1;
}

int VYRPrintModelBoundingBoxComputer::DrawPolyPolygon(VYRPrtPolyPolygonElt* ipPolyPolygon) {
  TransformScope scope(_transformAttributes, ipPolyPolygon->GetTransformAttributes());
  const VYRSYPDynArray<VYRMathPoint2D>& points = ipPolyPolygon->GetRings().GetPoints();
  AddOutline(points.GetData(), points.GetLength());
  return 1;
}

int VYRPrintModelBoundingBoxComputer::DrawNURBS(VYRPrtNURBSElt* ipNURBS) {
  TransformScope scope(_transformAttributes, ipNURBS->GetTransformAttributes());
  const VYRSYPDynArray<VYRMathPoint2D>& points = ipNURBS->GetControlPoints();
  AddOutline(points.GetData(), points.GetLength());
  return 1;
}

int VYRPrintModelBoundingBoxComputer::DrawTextW(VYRPrtTextElt* ipText) {
  TransformScope scope(_transformAttributes, ipText->GetTransformAttributes());
  const VYRPrtTextAttributes& attributes = ipText->GetTextAttributes();
  ResolveTextFont(attributes);
  if (ipText->GetPositionCount() == 0) return 1;  // a text not yet placed has no extent
  AddPlacedExtent(ipText->GetPosition(0), 0.0, attributes.GetHeight());
  return 1;
}

int VYRPrintModelBoundingBoxComputer::DrawMarker(VYRPrtMarkerElt* ipMarker) {
  TransformScope scope(_transformAttributes, ipMarker->GetTransformAttributes());
  double width = 0.0, height = 0.0;
  ipMarker->GetSize(width, height);
  AddPlacedExtent(ipMarker->GetReferencePoint(), width, height);
  return 1;
}

int VYRPrintModelBoundingBoxComputer::DrawBitmapImage(VYRPrtBitmapImageElt* ipBitmap) {
  TransformScope scope(_transformAttributes, ipBitmap->GetTransformAttributes());
  VYRMathPoint2D position;
  double width = 0.0, height = 0.0, orientation = 0.0;
  VYRPixelImage* pImage = nullptr;
  ipBitmap->GetParameters(position, width, height, orientation, pImage);
  // The image's rectangle turned about its position, then placed by the accumulated transform.
  double angle = ToRadians(orientation);
  double ux = std::cos(angle), uy = std::sin(angle);
  VYRMathPoint2D corners[4] = {position,
                               {position.x + width * ux, position.y + width * uy},
                               {position.x + width * ux - height * uy, position.y + width * uy + height * ux},
                               {position.x - height * uy, position.y + height * ux}};
  AddOutline(corners, 4);
  return 1;
}

// ---- Flattened outlines

int VYRPrintModelBoundingBoxComputer::DrawCircle(VYRPrtCircleElt* ipCircle) {
  TransformScope scope(_transformAttributes, ipCircle->GetTransformAttributes());
  double radius = ipCircle->GetRadius();
  double step = ChordStep(radius);
  int count = SampleCount(VYRMath2Pi, radius);
  if (count <= 1) return 1;
  if (count == static_cast<int>(kMaxOutlinePoints)) step = VYRMath2Pi / count;

  VYRMath3x3Matrix matrix;
  bool transformed = GetTransformationMatrix(_transformAttributes, matrix) != 0;
  VYRMathPoint2D center = ipCircle->GetCenter();
  VYRMath2x2Matrix linear(matrix.Get(0, 0), matrix.Get(0, 1), matrix.Get(1, 0), matrix.Get(1, 1));
  if (transformed && IsIdentityMatrix(linear)) {
    // A move only: place the centre and sample there, sparing the matrix.
    center.x += matrix.Get(0, 2);
    center.y += matrix.Get(1, 2);
    transformed = false;
  }

  std::unique_ptr<float[]> paXY(new (std::nothrow) float[2 * static_cast<size_t>(count)]);
  if (!paXY) return 1;
  // The outline closes on its first point; the samples in between never
  // reach the full turn, so a tiny circle (4 samples) lacks its lowest point.
  paXY[0] = paXY[2 * (count - 1)] = static_cast<float>(center.x + radius);
  paXY[1] = paXY[2 * (count - 1) + 1] = static_cast<float>(center.y);
  for (int k = 1; k <= count - 2; ++k) {
    paXY[2 * k] = static_cast<float>(center.x + radius * std::cos(k * step));
    paXY[2 * k + 1] = static_cast<float>(center.y + radius * std::sin(k * step));
  }
  if (transformed) TransformPoints(static_cast<unsigned int>(count), paXY.get(), matrix);
  for (int i = 0; i < count; ++i) AddPoint(paXY[2 * i], paXY[2 * i + 1]);
  return 1;
}

void VYRPrintModelBoundingBoxComputer::AddEllipticalSweep(const VYRMathPoint2D& i_center, double i_horzRadius,
                                                          double i_vertRadius, double i_slopeDegrees,
                                                          double i_startDegrees, double i_sweepDegrees) {
  double sweep = ToRadians(i_sweepDegrees);
  if (sweep > VYRMath2Pi) sweep = VYRMath2Pi;
  if (sweep < -VYRMath2Pi) sweep = -VYRMath2Pi;
  // The larger radius has the longer chords, so its step holds for the whole outline.
  double horzRadius = std::fabs(i_horzRadius), vertRadius = std::fabs(i_vertRadius);
  int segments = SampleCount(sweep, horzRadius > vertRadius ? horzRadius : vertRadius);
  if (segments < 1) {
    if (sweep != 0.0) return;  // nothing finite to sample
    segments = 1;              // an empty sweep is its start point
  }
  VYRSYPDynArray<VYRMathPoint2D> points;
  if (points.Reserve(segments + 1) < 0) return;
  double start = ToRadians(i_startDegrees), slope = ToRadians(i_slopeDegrees);
  double cosSlope = std::cos(slope), sinSlope = std::sin(slope);
  for (int k = 0; k <= segments; ++k) {
    double angle = start + sweep * k / segments;
    double x = i_horzRadius * std::cos(angle), y = i_vertRadius * std::sin(angle);
    points.Append(VYRMathPoint2D(i_center.x + x * cosSlope - y * sinSlope, i_center.y + x * sinSlope + y * cosSlope));
  }
  AddOutline(points.GetData(), points.GetLength());
}

int VYRPrintModelBoundingBoxComputer::DrawEllipse(VYRPrtEllipseElt* ipEllipse) {
  TransformScope scope(_transformAttributes, ipEllipse->GetTransformAttributes());
  AddEllipticalSweep(ipEllipse->GetCenter(), ipEllipse->GetHorzRadius(), ipEllipse->GetVertRadius(),
                     ipEllipse->GetSlope(), 0.0, 360.0);
  return 1;
}

int VYRPrintModelBoundingBoxComputer::DrawCircularArc(VYRPrtCircularArcElt* ipArc) {
  TransformScope scope(_transformAttributes, ipArc->GetTransformAttributes());
  AddEllipticalSweep(ipArc->GetCenter(), ipArc->GetRadius(), ipArc->GetRadius(), 0.0, ipArc->GetStartAngle(),
                     ipArc->GetEndAngle() - ipArc->GetStartAngle());
  return 1;
}

int VYRPrintModelBoundingBoxComputer::DrawEllipticalArc(VYRPrtEllipticalArcElt* ipArc) {
  TransformScope scope(_transformAttributes, ipArc->GetTransformAttributes());
  AddEllipticalSweep(ipArc->GetCenter(), ipArc->GetHorzRadius(), ipArc->GetVertRadius(), ipArc->GetSlope(),
                     ipArc->GetStartAngle(), ipArc->GetSweepAngle());
  return 1;
}

// ---- Matrices

int VYRPrintModelBoundingBoxComputer::GetTransformationMatrix(const VYRPrtTransformAttributes& i_transform,
                                                              VYRMath3x3Matrix& o_matrix) {
  return i_transform.GetTransformationMatrix(o_matrix);
}

int VYRPrintModelBoundingBoxComputer::TransformPoints(unsigned int i_count, float* io_paXY,
                                                      VYRMath3x3Matrix& i_matrix) {
  if (i_count == 0 || !io_paXY) return -1;
  double a11, a12, a13, a21, a22, a23, a31, a32, a33;
  i_matrix.GetCoef(a11, a12, a13, a21, a22, a23, a31, a32, a33);
  for (unsigned int i = 0; i < i_count; ++i) {
    double x = io_paXY[2 * i], y = io_paXY[2 * i + 1];
    io_paXY[2 * i] = static_cast<float>(a11 * x + a12 * y + a13);
    io_paXY[2 * i + 1] = static_cast<float>(a21 * x + a22 * y + a23);
  }
  return 1;
}

unsigned char VYRPrintModelBoundingBoxComputer::IsIdentityMatrix(VYRMath2x2Matrix& i_matrix) {
  double a, b, c, d;
  i_matrix.GetCoef(a, b, c, d);
  auto near = [](double value, double target) { return value >= target - 0.0001 && value <= target + 0.0001; };
  return near(a, 1.0) && near(d, 1.0) && near(b, 0.0) && near(c, 0.0) ? 1 : 0;
}

#include "VYR2DGSkiaDrawing.h"

#include <algorithm>
#include <climits>
#include <cmath>
#include <memory>
#include <new>
#include <string>
#include <vector>

#include "VYR2DGLayerFilterBuilder.h"
#include "VYR2DGSkiaDrawingContext.h"
#include "VYR3x3Matrix.h"
#include "VYRAssert.h"
#include "VYRFont.h"
#include "VYRMathVector2D.h"
#include "VYRRasterBitmap.h"
#include "VYRRasterCanvas.h"
#include "VYRRasterDashPathEffect.h"
#include "VYRRasterImageFilter.h"
#include "VYRRasterPaint.h"
#include "VYRRasterPath.h"
#include "VYR2DGPremultipliedImage.h"
#include "VYRPixelImage.h"
#include "VYRPrintGradientLinear.h"
#include "VYRPrintGradientRadial.h"
#include "VYRPrintGradientStop.h"
#include "VYRRasterBitmapShader.h"
#include "VYRRasterLinearGradient.h"
#include "VYRRasterRadialGradient.h"
#include "VYRRasterText.h"
#include "VYRRasterTypeface.h"

VYR_IMPLEMENT_ABSTRACT_CLASS(VYR2DGSkiaDrawing, VYR2DGDrawing, "VYRMMedia2DRendering_Engine")

// One shape of the shape operations, able to draw itself on a canvas and to
// add itself to a path.
struct VYR2DGShape {
  enum Kind { eRect, eRoundRect, eCircle, eOval, eLine, ePolyline };
  explicit VYR2DGShape(Kind i_kind) : kind(i_kind) {}
  Kind kind;
  VYRRasterRect rect;                      // eRect, eRoundRect, eOval
  float rx = 0.0f, ry = 0.0f;              // eRoundRect
  float cx = 0.0f, cy = 0.0f, radius = 0.0f;  // eCircle
  VYRMathPoint2Df from, to;                // eLine
  const VYR2DGDrawing::PointList* pPoints = nullptr;  // ePolyline
  bool closed = false;                     // ePolyline

  // Closed figures go counter-clockwise, as clip paths take them.
  void AddTo(VYRRasterPath& io_path) const {
    const auto ccw = VYRRasterPath::kCCW_Direction;
    switch (kind) {
      case eRect: io_path.addRect(rect, ccw); break;
      case eRoundRect: io_path.addRoundRect(rect, rx, ry, ccw); break;
      case eCircle: io_path.addCircle(cx, cy, radius, ccw); break;
      case eOval: io_path.addOval(rect, ccw); break;
      case eLine:
        io_path.moveTo(from);
        io_path.lineTo(to);
        break;
      case ePolyline:
        AddPolyline(io_path);
        if (closed) io_path.close();
        break;
    }
  }

  void DrawOn(VYRRasterCanvas& io_canvas, const VYRRasterPaint& i_paint) const {
    switch (kind) {
      case eRect: io_canvas.drawRect(rect, i_paint); break;
      case eRoundRect: io_canvas.drawRoundRect(rect, rx, ry, i_paint); break;
      case eCircle: io_canvas.drawCircle(cx, cy, radius, i_paint); break;
      case eOval: io_canvas.drawOval(rect, i_paint); break;
      case eLine: io_canvas.drawLine(from.x, from.y, to.x, to.y, i_paint); break;
      case ePolyline: {
        VYRRasterPath path;
        AddPolyline(path);
        if (closed) path.close();
        io_canvas.drawPath(path, i_paint);
        break;
      }
    }
  }

  void AddPolyline(VYRRasterPath& io_path) const {
    const VYR2DGDrawing::PointList& points = *pPoints;
    io_path.moveTo(points[0]);
    for (int i = 1; i < points.GetLength(); ++i) io_path.lineTo(points[i]);
  }
};

namespace {

// The platform matrix split into its columns (a, d), (b, e) and its
// translation (c, f).
VYRRasterMatrix ToRasterMatrix(const VYR3x3Matrix& i_matrix) {
  VYRMathVector2D firstColumn(1.0, 0.0), secondColumn(0.0, 1.0), translation(0.0, 0.0);
  i_matrix.GetColumns(firstColumn, secondColumn, translation);
  return VYRRasterMatrix::MakeAll(static_cast<float>(firstColumn.x), static_cast<float>(secondColumn.x),
                                  static_cast<float>(translation.x), static_cast<float>(firstColumn.y),
                                  static_cast<float>(secondColumn.y), static_cast<float>(translation.y));
}

VYRRasterRect ToRasterRect(const VYR2DGRect& i_rect) {
  return VYRRasterRect::MakeLTRB(i_rect.x, i_rect.y, i_rect.x + i_rect.width, i_rect.y + i_rect.height);
}

VYRRasterRect OvalBounds(const VYRMathPoint2Df& i_centre, float i_rx, float i_ry) {
  const float left = i_centre.x - i_rx;
  const float top = i_centre.y - i_ry;
  return VYRRasterRect::MakeLTRB(left, top, left + 2 * i_rx, top + 2 * i_ry);
}

// The one mapping of transfer modes, for shapes and layers alike: 13 is
// multiply, and anything outside 0..27 is source-over.
int RasterTransferMode(VYR2DGTransferMode i_mode) {
  return VYRRasterBlender::ModeOrSourceOver(static_cast<int>(i_mode));
}

VYRRasterCanvas::ClipOp RasterClipOp(VYR2DGClipOperator i_operator) {
  switch (static_cast<int>(i_operator)) {
    case eClipDifference: return VYRRasterCanvas::kDifference_Op;
    case eClipUnion: return VYRRasterCanvas::kUnion_Op;
    default: return VYRRasterCanvas::kIntersect_Op;
  }
}

VYRRasterPath::FillType RasterFillType(VYRPrintFillRule i_rule) {
  return i_rule == eFillRuleNonZero ? VYRRasterPath::kWinding_FillType : VYRRasterPath::kEvenOdd_FillType;
}

VYRRasterPaint::Cap RasterCap(VYRPrintLineAttribute i_cap) {
  switch (static_cast<int>(i_cap)) {
    case eLineCapSquare: return VYRRasterPaint::kSquare_Cap;
    case eLineCapRound: return VYRRasterPaint::kRound_Cap;
    default: return VYRRasterPaint::kButt_Cap;
  }
}

VYRRasterPaint::Join RasterJoin(VYRPrintLineAttribute i_join) {
  switch (static_cast<int>(i_join)) {
    case eLineJoinRound: return VYRRasterPaint::kRound_Join;
    case eLineJoinBevel: return VYRRasterPaint::kBevel_Join;
    default: return VYRRasterPaint::kMiter_Join;
  }
}

// channel x 255 + 0.5, truncated, then the smaller of it and 255 compared
// unsigned: a negative channel therefore loads as 255, like one above 1.
// Values beyond the int range (and NaN) load as 255 too.
unsigned ChannelToByte(float i_channel) {
  const float scaled = i_channel * 255.0f + 0.5f;
  if (!(scaled > -2147483648.0f && scaled < 2147483648.0f)) return 255u;
  const auto truncated = static_cast<unsigned>(static_cast<int>(scaled));
  return std::min(truncated, 255u);
}

VYRRasterShader::TileMode GradientTileMode(int i_spread) {
  switch (i_spread) {
    case VYRPrintGradientSpreadReflect: return VYRRasterShader::kMirror_TileMode;
    case VYRPrintGradientSpreadRepeat: return VYRRasterShader::kRepeat_TileMode;
    default: return VYRRasterShader::kClamp_TileMode;
  }
}

VYRRasterShader::TileMode PatternTileMode(VYR2DGPatternMode i_mode) {
  switch (static_cast<int>(i_mode)) {
    case ePatternClamp: return VYRRasterShader::kClamp_TileMode;
    case ePatternMirror: return VYRRasterShader::kMirror_TileMode;
    default: return VYRRasterShader::kRepeat_TileMode;
  }
}

// The shader of a gradient record with at least one stop (a reference for the caller), or
// null for a record of another kind. Stops are read up to the first null one; their colours
// load as paint colours do (a negative channel becomes 255).
VYRRasterShader* CreateGradientShader(const VYRPrintGradient& i_gradient) {
  const int stopCount = i_gradient.GetStopCount();
  std::vector<uint32_t> colorArray(stopCount);
  std::vector<float> offsetArray(stopCount);
  int count = 0;
  for (; count < stopCount; ++count) {
    const VYRPrintGradientStop* pStop = i_gradient.GetStop(count);
    if (pStop == nullptr) break;
    colorArray[count] = (ChannelToByte(pStop->GetAlpha()) << 24) | (ChannelToByte(pStop->GetRed()) << 16) |
                        (ChannelToByte(pStop->GetGreen()) << 8) | ChannelToByte(pStop->GetBlue());
    offsetArray[count] = pStop->GetOffset();
  }
  const VYRRasterShader::TileMode tileMode = GradientTileMode(i_gradient.GetSpread());
  if (i_gradient.IsAKindOf(VYRPrintGradientLinear::ClassName()) == 1) {
    const auto& linear = static_cast<const VYRPrintGradientLinear&>(i_gradient);
    VYRMathPoint2Df start, end;
    linear.GetStartPoint(start.x, start.y);
    linear.GetEndPoint(end.x, end.y);
    return new VYRRasterLinearGradient(start, end, colorArray.data(), offsetArray.data(), count, tileMode);
  }
  if (i_gradient.IsAKindOf(VYRPrintGradientRadial::ClassName()) == 1) {
    const auto& radial = static_cast<const VYRPrintGradientRadial&>(i_gradient);
    VYRMathPoint2Df centre, focus;
    radial.GetCentre(centre.x, centre.y);
    radial.GetFocus(focus.x, focus.y);
    const float r = radial.GetRadius();
    const float d = std::hypot(focus.x - centre.x, focus.y - centre.y);
    if (r < d) {
      // A focus outside the circle moves back to just outside its edge (0.1 beyond d keeps
      // it outside rather than on it).
      const float k = r / (d - 0.1f);
      focus = VYRMathPoint2Df(centre.x + (focus.x - centre.x) * k, centre.y + (focus.y - centre.y) * k);
    }
    return new VYRRasterRadialGradient(focus, centre, r, colorArray.data(), offsetArray.data(), count, tileMode);
  }
  return nullptr;
}

// The record's matrix, given in rows (x' = m00 x + m01 y + m02, y' = m10 x + m11 y + m12).
VYRRasterMatrix GradientMatrix(const VYRMath3x3Matrix& i_matrix) {
  return VYRRasterMatrix::MakeAll(
      static_cast<float>(i_matrix.Get(0, 0)), static_cast<float>(i_matrix.Get(0, 1)),
      static_cast<float>(i_matrix.Get(0, 2)), static_cast<float>(i_matrix.Get(1, 0)),
      static_cast<float>(i_matrix.Get(1, 1)), static_cast<float>(i_matrix.Get(1, 2)));
}

// A view of part of a bitmap's pixels (the rectangle must lie inside it).
VYRRasterBitmap SubsetOf(const VYRRasterBitmap& i_bitmap, const VYRRasterIRect& i_rect) {
  VYRRasterBitmap subset;
  subset.setConfig(i_rect.width(), i_rect.height(), i_bitmap.rowBytes());
  subset.setPixels(i_bitmap.getAddr32(i_rect.left, i_rect.top));
  return subset;
}

}  // namespace

VYR2DGSkiaDrawing::VYR2DGSkiaDrawing(VYR2DGDrawingContext* i_pContext)
    : _pSkDrawingCtx(nullptr), _fillUsesShader(false), _strokeUsesShader(false) {
  if (i_pContext != nullptr &&
      VYR_CHECK_CONDITION(i_pContext->IsAKindOf(VYR2DGSkiaDrawingContext::ClassName()) == 1)) {
    _pSkDrawingCtx = static_cast<VYR2DGSkiaDrawingContext*>(i_pContext);
  }
}

VYRRasterCanvas* VYR2DGSkiaDrawing::Canvas_() const {
  if (_pSkDrawingCtx == nullptr) return nullptr;
  return _drawingMask ? _pSkDrawingCtx->_pMaskCanvas : _pSkDrawingCtx->_pCanvas;
}

VYRRasterPath* VYR2DGSkiaDrawing::Path_() const {
  if (_pSkDrawingCtx == nullptr) return nullptr;
  return _buildingClipPath ? _pSkDrawingCtx->_pClipPath : _pSkDrawingCtx->_pPath;
}

VYRRasterPath* VYR2DGSkiaDrawing::CheckedPath_() const {
  if (!VYR_CHECK_POINTER(_pSkDrawingCtx)) return nullptr;
  VYRRasterPath* pPath = Path_();
  return VYR_CHECK_POINTER(pPath) ? pPath : nullptr;
}

// ---- Flush and clears

void VYR2DGSkiaDrawing::Flush() {
  if (!VYR_CHECK_POINTER(_pSkDrawingCtx)) return;
  VYRRasterCanvas* pCanvas = Canvas_();
  if (!VYR_CHECK_POINTER(pCanvas)) return;
  pCanvas->flush();
}

void VYR2DGSkiaDrawing::ClearBitmap() {
  if (!VYR_CHECK_POINTER(_pSkDrawingCtx) || !VYR_CHECK_POINTER(_pSkDrawingCtx->_pBitmap)) return;
  _pSkDrawingCtx->_pBitmap->eraseARGB(0, 0, 0, 0);
}

void VYR2DGSkiaDrawing::ClearMaskBitmap() {
  if (!VYR_CHECK_POINTER(_pSkDrawingCtx) || !VYR_CHECK_POINTER(_pSkDrawingCtx->_pMaskBitmap)) return;
  _pSkDrawingCtx->_pMaskBitmap->eraseARGB(0, 0, 0, 0);
}

// ---- Transforms

void VYR2DGSkiaDrawing::SetMatrixTransform(float i_a, float i_b, float i_c, float i_d, float i_e, float i_f) {
  if (!VYR_CHECK_POINTER(_pSkDrawingCtx)) return;
  VYRRasterMatrix matrix;
  matrix.setAll(i_a, i_b, i_c, i_d, i_e, i_f);
  // Both images get the matrix so that they stay in register, whichever one
  // is being drawn; the call leaves the drawing on the main image.
  _drawingMask = false;
  VYRRasterCanvas* pCanvas = Canvas_();
  if (!VYR_CHECK_POINTER(pCanvas)) return;
  pCanvas->setMatrix(matrix);
  _drawingMask = true;
  VYRRasterCanvas* pMaskCanvas = Canvas_();
  _drawingMask = false;
  if (!VYR_CHECK_POINTER(pMaskCanvas)) return;
  pMaskCanvas->setMatrix(matrix);
}

void VYR2DGSkiaDrawing::SetMatrixTransform(const VYR3x3Matrix& i_matrix) {
  const VYRRasterMatrix matrix = ToRasterMatrix(i_matrix);
  SetMatrixTransform(matrix.getScaleX(), matrix.getSkewX(), matrix.getTranslateX(), matrix.getSkewY(),
                     matrix.getScaleY(), matrix.getTranslateY());
}

void VYR2DGSkiaDrawing::GetMatrixTransform(float& o_a, float& o_b, float& o_c, float& o_d, float& o_e,
                                           float& o_f) const {
  if (!VYR_CHECK_POINTER(_pSkDrawingCtx)) return;
  const VYRRasterCanvas* pCanvas = Canvas_();
  if (!VYR_CHECK_POINTER(pCanvas)) return;
  const VYRRasterMatrix& matrix = pCanvas->getTotalMatrix();
  o_a = matrix.getScaleX();
  o_b = matrix.getSkewX();
  o_c = matrix.getTranslateX();
  o_d = matrix.getSkewY();
  o_e = matrix.getScaleY();
  o_f = matrix.getTranslateY();
}

VYR3x3Matrix VYR2DGSkiaDrawing::GetMatrixTransform() {
  float a = 1.0f, b = 0.0f, c = 0.0f, d = 0.0f, e = 1.0f, f = 0.0f;
  GetMatrixTransform(a, b, c, d, e, f);
  return VYR3x3Matrix(a, b, c, d, e, f);
}

void VYR2DGSkiaDrawing::AddTransform(const VYR3x3Matrix& i_matrix) {
  if (!VYR_CHECK_POINTER(_pSkDrawingCtx)) return;
  VYRRasterCanvas* pCanvas = Canvas_();
  if (!VYR_CHECK_POINTER(pCanvas)) return;
  const VYRRasterMatrix matrix = ToRasterMatrix(i_matrix);
  VYR_CHECK_CONDITION(pCanvas->concat(matrix));
}

void VYR2DGSkiaDrawing::Rotate(float i_angleDegrees) {
  if (!VYR_CHECK_POINTER(_pSkDrawingCtx)) return;
  VYRRasterCanvas* pCanvas = Canvas_();
  if (VYR_CHECK_POINTER(pCanvas)) pCanvas->rotate(i_angleDegrees);
}

void VYR2DGSkiaDrawing::Scale(float i_sx, float i_sy) {
  if (!VYR_CHECK_POINTER(_pSkDrawingCtx)) return;
  VYRRasterCanvas* pCanvas = Canvas_();
  if (VYR_CHECK_POINTER(pCanvas)) pCanvas->scale(i_sx, i_sy);
}

void VYR2DGSkiaDrawing::Skew(float i_kx, float i_ky) {
  if (!VYR_CHECK_POINTER(_pSkDrawingCtx)) return;
  VYRRasterCanvas* pCanvas = Canvas_();
  if (VYR_CHECK_POINTER(pCanvas)) pCanvas->skew(i_kx, i_ky);
}

void VYR2DGSkiaDrawing::Translate(float i_dx, float i_dy) {
  if (!VYR_CHECK_POINTER(_pSkDrawingCtx)) return;
  VYRRasterCanvas* pCanvas = Canvas_();
  if (VYR_CHECK_POINTER(pCanvas)) pCanvas->translate(i_dx, i_dy);
}

// ---- Path building

void VYR2DGSkiaDrawing::MoveTo(const VYRMathPoint2Df& i_point) {
  if (VYRRasterPath* pPath = CheckedPath_()) pPath->moveTo(i_point);
}

void VYR2DGSkiaDrawing::LineTo(const VYRMathPoint2Df& i_point) {
  if (VYRRasterPath* pPath = CheckedPath_()) pPath->lineTo(i_point);
}

void VYR2DGSkiaDrawing::CurveToCubic(const VYRMathPoint2Df& i_control1, const VYRMathPoint2Df& i_control2,
                                     const VYRMathPoint2Df& i_end) {
  if (VYRRasterPath* pPath = CheckedPath_()) {
    pPath->cubicTo(i_control1.x, i_control1.y, i_control2.x, i_control2.y, i_end.x, i_end.y);
  }
}

void VYR2DGSkiaDrawing::CurveToQuad(const VYRMathPoint2Df& i_control, const VYRMathPoint2Df& i_end) {
  if (VYRRasterPath* pPath = CheckedPath_()) pPath->quadTo(i_control.x, i_control.y, i_end.x, i_end.y);
}

void VYR2DGSkiaDrawing::ClosePath() {
  if (VYRRasterPath* pPath = CheckedPath_()) pPath->close();
}

void VYR2DGSkiaDrawing::AddPolylineToPath(const PointList& i_points) {
  VYRRasterPath* pPath = CheckedPath_();
  if (pPath == nullptr) return;
  const int pointCount = i_points.GetLength();
  if (!VYR_CHECK_CONDITION(pointCount > 1)) return;
  pPath->moveTo(i_points[0]);
  for (int i = 1; i < pointCount; ++i) pPath->lineTo(i_points[i]);
}

void VYR2DGSkiaDrawing::ArcTo(const VYRMathPoint2Df& i_centre, float i_rx, float i_ry, float i_rotation,
                              float i_startAngle, float i_sweepAngle) {
  VYRRasterPath* pPath = CheckedPath_();
  if (pPath == nullptr) return;
  if (i_rotation == 0.0f) {
    pPath->arcTo(OvalBounds(i_centre, i_rx, i_ry), i_startAngle, i_sweepAngle, false);
    return;
  }
  // A rotated arc is added in its own frame: the whole path goes there and
  // back, so the transform must be invertible.
  VYRRasterMatrix arcTransform;
  arcTransform.setTranslate(i_centre.x, i_centre.y);
  arcTransform.preRotate(i_rotation);
  VYRRasterMatrix invertedArcTransform;
  if (!arcTransform.isIdentity() && !VYR_CHECK_CONDITION(arcTransform.invert(&invertedArcTransform))) return;
  pPath->transform(invertedArcTransform);
  pPath->arcTo(VYRRasterRect::MakeLTRB(-i_rx, -i_ry, i_rx, i_ry), i_startAngle, i_sweepAngle, false);
  pPath->transform(arcTransform);
}

// ---- Stroke and fill of the current path

void VYR2DGSkiaDrawing::StrokeOutline_(const VYRRasterPath& i_path, VYRRasterPath& o_outline) {
  VYRRasterPaint& paint = *_pSkDrawingCtx->_pPaint;
  paint.setStyle(VYRRasterPaint::kStrokeAndFill_Style);
  paint.getFillPath(i_path, &o_outline);
  paint.setStyle(VYRRasterPaint::kStroke_Style);
}

void VYR2DGSkiaDrawing::KnockOut_(VYRRasterCanvas& io_canvas, const VYRRasterPath& i_area) {
  VYRRasterPath* pKnockoutPath = _pSkDrawingCtx->_pKnockoutClipPath;
  if (!VYR_CHECK_POINTER_TEXT(pKnockoutPath, "_pSkDrawingCtx->_pKnockoutClipPath")) return;
  pKnockoutPath->addPath(i_area, VYRRasterMatrix());
  // Inside a layer the clip would vanish with the layer: Restore installs it.
  if (!io_canvas.isDrawingToLayer()) io_canvas.clipPath(*pKnockoutPath, VYRRasterCanvas::kDifference_Op, true);
}

void VYR2DGSkiaDrawing::DrawFillPreserve() {
  if (!VYR_CHECK_POINTER(_pSkDrawingCtx)) return;
  VYRRasterCanvas* pCanvas = Canvas_();
  if (!VYR_CHECK_POINTER(pCanvas) || !VYR_CHECK_POINTER(_pSkDrawingCtx->_pPath) ||
      !VYR_CHECK_POINTER(_pSkDrawingCtx->_pPaint)) {
    return;
  }
  const VYRRasterPath& path = *_pSkDrawingCtx->_pPath;
  pCanvas->drawPath(path, *_pSkDrawingCtx->_pPaint);
  if (_knockout == 1) KnockOut_(*pCanvas, path);
}

void VYR2DGSkiaDrawing::DrawStrokePreserve() {
  if (!VYR_CHECK_POINTER(_pSkDrawingCtx)) return;
  VYRRasterCanvas* pCanvas = Canvas_();
  if (!VYR_CHECK_POINTER(pCanvas) || !VYR_CHECK_POINTER(_pSkDrawingCtx->_pPath) ||
      !VYR_CHECK_POINTER(_pSkDrawingCtx->_pPaint)) {
    return;
  }
  const VYRRasterPath& path = *_pSkDrawingCtx->_pPath;
  pCanvas->drawPath(path, *_pSkDrawingCtx->_pPaint);
  if ((_knockout & 2) == 0) return;
  VYRRasterPath outline;
  StrokeOutline_(path, outline);
  KnockOut_(*pCanvas, outline);
}

void VYR2DGSkiaDrawing::DrawFill() {
  if (!VYR_CHECK_POINTER(_pSkDrawingCtx)) return;
  DrawFillPreserve();
  if (VYR_CHECK_POINTER(_pSkDrawingCtx->_pPath)) _pSkDrawingCtx->_pPath->reset();
}

void VYR2DGSkiaDrawing::DrawStroke() {
  if (!VYR_CHECK_POINTER(_pSkDrawingCtx)) return;
  DrawStrokePreserve();
  if (VYR_CHECK_POINTER(_pSkDrawingCtx->_pPath)) _pSkDrawingCtx->_pPath->reset();
}

// ---- Shapes

void VYR2DGSkiaDrawing::DrawShape_(const VYR2DGShape& i_shape) {
  if (!VYR_CHECK_POINTER(_pSkDrawingCtx)) return;
  VYRRasterCanvas* pCanvas = Canvas_();
  if (!VYR_CHECK_POINTER(pCanvas) || !VYR_CHECK_POINTER(_pSkDrawingCtx->_pPaint)) return;
  VYRRasterPaint& paint = *_pSkDrawingCtx->_pPaint;
  if (!_buildingClipPath) {
    i_shape.DrawOn(*pCanvas, paint);
  } else {
    VYRRasterPath* pClipPath = _pSkDrawingCtx->_pClipPath;
    if (!VYR_CHECK_POINTER(pClipPath)) return;
    i_shape.AddTo(*pClipPath);
  }

  // A filled shape knocks out only under knockout 1; a stroked one under any
  // knockout, its outline when bit 2 is set and its whole area otherwise.
  if (_knockout == 0 || (paint.getStyle() == VYRRasterPaint::kFill_Style && _knockout != 1)) return;
  VYRRasterPath area;
  i_shape.AddTo(area);
  if ((_knockout & 2) != 0) {
    VYRRasterPath outline;
    StrokeOutline_(area, outline);
    area = outline;
  }
  KnockOut_(*pCanvas, area);
}

void VYR2DGSkiaDrawing::DrawRectangle(const VYR2DGRect& i_rect) {
  VYR2DGShape shape(VYR2DGShape::eRect);
  shape.rect = ToRasterRect(i_rect);
  DrawShape_(shape);
}

void VYR2DGSkiaDrawing::DrawRoundRectangle(const VYR2DGRect& i_rect, float i_rx, float i_ry) {
  VYR2DGShape shape(VYR2DGShape::eRoundRect);
  shape.rect = ToRasterRect(i_rect);
  shape.rx = i_rx;
  shape.ry = i_ry;
  DrawShape_(shape);
}

void VYR2DGSkiaDrawing::DrawCircle(const VYRMathPoint2Df& i_centre, float i_radius) {
  VYR2DGShape shape(VYR2DGShape::eCircle);
  shape.cx = i_centre.x;
  shape.cy = i_centre.y;
  shape.radius = i_radius;
  DrawShape_(shape);
}

void VYR2DGSkiaDrawing::DrawEllipse(const VYRMathPoint2Df& i_centre, float i_rx, float i_ry, float) {
  VYR2DGShape shape(VYR2DGShape::eOval);
  shape.rect = OvalBounds(i_centre, i_rx, i_ry);
  DrawShape_(shape);
}

void VYR2DGSkiaDrawing::DrawLine(const VYRMathPoint2Df& i_from, const VYRMathPoint2Df& i_to) {
  VYR2DGShape shape(VYR2DGShape::eLine);
  shape.from = i_from;
  shape.to = i_to;
  DrawShape_(shape);
}

void VYR2DGSkiaDrawing::DrawPolyline(const PointList& i_points) {
  const int pointCount = i_points.GetLength();
  if (!VYR_CHECK_CONDITION(pointCount > 1)) return;
  VYR2DGShape shape(VYR2DGShape::ePolyline);
  shape.pPoints = &i_points;
  DrawShape_(shape);
}

void VYR2DGSkiaDrawing::DrawPolygon(const PointList& i_points) {
  const int pointCount = i_points.GetLength();
  if (!VYR_CHECK_CONDITION(pointCount > 1)) return;
  VYR2DGShape shape(VYR2DGShape::ePolyline);
  shape.pPoints = &i_points;
  shape.closed = true;
  DrawShape_(shape);
}

// ---- Floods

void VYR2DGSkiaDrawing::FillWithColor(unsigned char i_r, unsigned char i_g, unsigned char i_b,
                                      unsigned char i_a) {
  if (!VYR_CHECK_POINTER(_pSkDrawingCtx)) return;
  VYRRasterCanvas* pCanvas = Canvas_();
  if (!VYR_CHECK_POINTER(pCanvas)) return;
  pCanvas->drawARGB(i_a, i_r, i_g, i_b, kSrcOver_VYRBlendMode);
}

void VYR2DGSkiaDrawing::FillWithColor(float i_r, float i_g, float i_b, float i_a) {
  FillWithColor(static_cast<unsigned char>(ChannelToByte(i_r)), static_cast<unsigned char>(ChannelToByte(i_g)),
                static_cast<unsigned char>(ChannelToByte(i_b)), static_cast<unsigned char>(ChannelToByte(i_a)));
}

void VYR2DGSkiaDrawing::FillWithColor() {
  FillWithColor(_fillColor[eRed], _fillColor[eGreen], _fillColor[eBlue], _fillColor[eAlpha]);
}

// ---- Save stack and clips

int VYR2DGSkiaDrawing::Save(int i_flags) {
  if (!VYR_CHECK_POINTER(_pSkDrawingCtx)) return -1;
  VYRRasterCanvas* pCanvas = Canvas_();
  if (!VYR_CHECK_POINTER(pCanvas)) return -1;
  return pCanvas->save(i_flags & 0x0F);
}

void VYR2DGSkiaDrawing::Restore(int i_count) {
  if (!VYR_CHECK_POINTER(_pSkDrawingCtx)) return;
  VYRRasterCanvas* pCanvas = Canvas_();
  if (!VYR_CHECK_POINTER(pCanvas)) return;
  const bool wasInLayer = pCanvas->isDrawingToLayer();
  if (i_count >= 0) {
    pCanvas->restoreToCount(i_count);
  } else {
    pCanvas->restore();
  }
  // Shapes knocked out inside layers could not clip; the outermost layer's
  // end installs what they accumulated.
  if (_knockout != 0 && wasInLayer && !pCanvas->isDrawingToLayer()) {
    const VYRRasterPath* pKnockoutPath = _pSkDrawingCtx->_pKnockoutClipPath;
    if (!VYR_CHECK_POINTER_TEXT(pKnockoutPath, "_pSkDrawingCtx->_pKnockoutClipPath")) return;
    pCanvas->clipPath(*pKnockoutPath, VYRRasterCanvas::kDifference_Op, true);
  }
}

// ---- Layers

VYRRasterPaint* VYR2DGSkiaDrawing::LayerPaint_() const {
  if (!VYR_CHECK_POINTER(_pSkDrawingCtx)) return nullptr;
  VYRRasterPaint* pLayerPaint = _pSkDrawingCtx->_pLayerPaint;
  return VYR_CHECK_POINTER_TEXT(pLayerPaint, "_pSkDrawingCtx->_pLayerPaint") ? pLayerPaint : nullptr;
}

int VYR2DGSkiaDrawing::SaveLayer() {
  if (!VYR_CHECK_POINTER(_pSkDrawingCtx)) return -1;
  VYRRasterCanvas* pCanvas = Canvas_();
  if (!VYR_CHECK_POINTER(pCanvas)) return -1;
  VYRRasterPaint* pLayerPaint = LayerPaint_();
  if (pLayerPaint == nullptr) return -1;
  const int count = pCanvas->saveLayer(nullptr, pLayerPaint, VYRRasterCanvas::kARGB_ClipLayer_SaveFlag);
  // The properties belong to this layer only.
  pLayerPaint->reset();
  return count;
}

void VYR2DGSkiaDrawing::SetLayerAlpha(unsigned char i_alpha) {
  if (VYRRasterPaint* pLayerPaint = LayerPaint_()) pLayerPaint->setAlpha(i_alpha);
}

void VYR2DGSkiaDrawing::SetLayerAlpha(float i_alpha) {
  if (VYRRasterPaint* pLayerPaint = LayerPaint_())
    pLayerPaint->setAlpha(static_cast<unsigned>(static_cast<int>(i_alpha * 255.0f + 0.5f)));
}

void VYR2DGSkiaDrawing::SetLayerBlendingMode(VYR2DGTransferMode i_mode) {
  VYRRasterPaint* pLayerPaint = LayerPaint_();
  if (pLayerPaint == nullptr) return;
  // A transfer mode replaces a luminance mask, as the mask replaces the mode.
  pLayerPaint->setXfermodeMode(RasterTransferMode(i_mode));
  pLayerPaint->setLumaMaskMode(-1);
}

void VYR2DGSkiaDrawing::SetLayerMaskMode(VYR2DGTransferMode i_mode) {
  VYRRasterPaint* pLayerPaint = LayerPaint_();
  if (pLayerPaint == nullptr) return;
  // Only source-in and destination-in go through luminance; the canvas composites other
  // modes as the plain mode, which the paint then carries too.
  const int mode = RasterTransferMode(i_mode);
  pLayerPaint->setXfermodeMode(mode);
  pLayerPaint->setLumaMaskMode(mode);
}

void VYR2DGSkiaDrawing::SetLayerFilter(VYRPrtFilterContainerElt* i_pFilterElt, float i_scale) {
  if (!VYR_CHECK_POINTER(i_pFilterElt)) return;
  VYRRasterPaint* pLayerPaint = LayerPaint_();
  if (pLayerPaint == nullptr) return;
  VYRRasterImageFilter* pFilter = VYR2DGLayerFilterBuilder::Build(*i_pFilterElt, i_scale);
  if (pFilter == nullptr) return;
  pLayerPaint->setImageFilter(pFilter);
  pFilter->Release();
}

// ---- Clips

void VYR2DGSkiaDrawing::SetCurrentClipRect(const VYR2DGRect& i_rect, VYR2DGClipOperator i_operator) {
  if (!VYR_CHECK_POINTER(_pSkDrawingCtx)) return;
  VYRRasterCanvas* pCanvas = Canvas_();
  if (!VYR_CHECK_POINTER(pCanvas)) return;
  pCanvas->clipRect(ToRasterRect(i_rect), RasterClipOp(i_operator), false);
}

void VYR2DGSkiaDrawing::SetCurrentClipPolygon(const PointList& i_points, VYR2DGClipOperator i_operator) {
  const int count = i_points.GetLength();
  if (!VYR_CHECK_CONDITION(count > 0)) return;
  if (!VYR_CHECK_POINTER(_pSkDrawingCtx)) return;
  VYRRasterCanvas* pCanvas = Canvas_();
  if (!VYR_CHECK_POINTER(pCanvas)) return;
  VYRRasterPath polygon;
  polygon.moveTo(i_points[0]);
  for (int i = 1; i < count; ++i) polygon.lineTo(i_points[i]);
  polygon.close();
  pCanvas->clipPath(polygon, RasterClipOp(i_operator), false);
}

void VYR2DGSkiaDrawing::ApplyClip() {
  if (!VYR_CHECK_POINTER(_pSkDrawingCtx)) return;
  VYRRasterCanvas* pCanvas = Canvas_();
  VYRRasterPath* pClipPath = _pSkDrawingCtx->_pClipPath;
  if (!VYR_CHECK_POINTER(pCanvas) || !VYR_CHECK_POINTER_TEXT(pClipPath, "_pSkDrawingCtx->_pClipPath")) return;
  pClipPath->close();
  pCanvas->clipPath(*pClipPath, VYRRasterCanvas::kIntersect_Op, true);
  pClipPath->reset();
}

void VYR2DGSkiaDrawing::SetKnockout(int i_knockout) {
  VYR2DGDrawing::SetKnockout(i_knockout);
  if (i_knockout != 0) return;
  if (!VYR_CHECK_POINTER(_pSkDrawingCtx) ||
      !VYR_CHECK_POINTER_TEXT(_pSkDrawingCtx->_pKnockoutClipPath, "_pSkDrawingCtx->_pKnockoutClipPath")) {
    return;
  }
  _pSkDrawingCtx->_pKnockoutClipPath->reset();
}

// ---- Paint state

void VYR2DGSkiaDrawing::SetPaintColor_(ColorType i_type) {
  const float* color = i_type == eFillColor ? _fillColor : _strokeColor;
  _pSkDrawingCtx->_pPaint->setARGB(ChannelToByte(color[eAlpha]), ChannelToByte(color[eRed]),
                                   ChannelToByte(color[eGreen]), ChannelToByte(color[eBlue]));
}

void VYR2DGSkiaDrawing::SetStrokeMode(VYRPrintEdgeMode i_mode) {
  if (i_mode != _strokeMode) VYR2DGDrawing::SetStrokeMode(i_mode);
  _strokeUsesShader = _strokeMode == eEdgeModeColorShaderTarget || _strokeMode == eEdgeModeShader;
}

void VYR2DGSkiaDrawing::SetFillMode(VYRPrintFillMode i_mode) {
  if (i_mode != _fillMode) VYR2DGDrawing::SetFillMode(i_mode);
  _fillUsesShader = _fillMode == eFillModePattern || _fillMode == eFillModeGradient;
}

void VYR2DGSkiaDrawing::ApplyStrokeMode(VYRPrintEdgeMode i_mode) {
  if (!VYR_CHECK_POINTER(_pSkDrawingCtx) || !VYR_CHECK_POINTER_TEXT(_pSkDrawingCtx->_pPaint, "_pSkDrawingCtx->_pPaint")) {
    return;
  }
  if (i_mode != _strokeMode) SetStrokeMode(i_mode);
  VYRRasterPaint& paint = *_pSkDrawingCtx->_pPaint;
  // Mode 2 strokes with the plain colour although it marks the stroke as the
  // gradient's target.
  if (_strokeMode == eEdgeModeShader) {
    paint.setAlpha(ChannelToByte(GetStrokeAlpha_()));
    paint.setShader(_pSkDrawingCtx->_pStrokeShader);
  } else {
    paint.setShader(nullptr);
    SetPaintColor_(eStrokeColor);
  }
  paint.setStyle(VYRRasterPaint::kStroke_Style);
}

void VYR2DGSkiaDrawing::ApplyFillMode(VYRPrintFillMode i_mode) {
  if (!VYR_CHECK_POINTER(_pSkDrawingCtx) || !VYR_CHECK_POINTER_TEXT(_pSkDrawingCtx->_pPaint, "_pSkDrawingCtx->_pPaint")) {
    return;
  }
  if (i_mode != _fillMode) SetFillMode(i_mode);
  VYRRasterPaint& paint = *_pSkDrawingCtx->_pPaint;
  if (_fillMode == eFillModePattern || _fillMode == eFillModeGradient) {
    paint.setAlpha(ChannelToByte(GetFillAlpha_()));
    paint.setShader(_pSkDrawingCtx->_pFillShader);
  } else {
    paint.setShader(nullptr);
    SetPaintColor_(eFillColor);
  }
  paint.setStyle(VYRRasterPaint::kFill_Style);
}

void VYR2DGSkiaDrawing::SetStrokeWidth(float i_width) {
  if (!VYR_CHECK_POINTER(_pSkDrawingCtx) || !VYR_CHECK_POINTER_TEXT(_pSkDrawingCtx->_pPaint, "_pSkDrawingCtx->_pPaint")) {
    return;
  }
  _pSkDrawingCtx->_pPaint->setStrokeWidth(i_width);
}

void VYR2DGSkiaDrawing::SetLineCap(VYRPrintLineAttribute i_cap) {
  if (!VYR_CHECK_POINTER(_pSkDrawingCtx) || !VYR_CHECK_POINTER_TEXT(_pSkDrawingCtx->_pPaint, "_pSkDrawingCtx->_pPaint")) {
    return;
  }
  _pSkDrawingCtx->_pPaint->setStrokeCap(RasterCap(i_cap));
}

void VYR2DGSkiaDrawing::SetLineJoin(VYRPrintLineAttribute i_join) {
  if (!VYR_CHECK_POINTER(_pSkDrawingCtx) || !VYR_CHECK_POINTER_TEXT(_pSkDrawingCtx->_pPaint, "_pSkDrawingCtx->_pPaint")) {
    return;
  }
  _pSkDrawingCtx->_pPaint->setStrokeJoin(RasterJoin(i_join));
}

void VYR2DGSkiaDrawing::SetAntiAliasing(bool i_antiAlias) {
  if (!VYR_CHECK_POINTER(_pSkDrawingCtx) || !VYR_CHECK_POINTER_TEXT(_pSkDrawingCtx->_pPaint, "_pSkDrawingCtx->_pPaint")) {
    return;
  }
  _pSkDrawingCtx->_pPaint->setAntiAlias(i_antiAlias);
}

void VYR2DGSkiaDrawing::SetBlendingMode(VYR2DGTransferMode i_mode) {
  if (!VYR_CHECK_POINTER(_pSkDrawingCtx) || !VYR_CHECK_POINTER_TEXT(_pSkDrawingCtx->_pPaint, "_pSkDrawingCtx->_pPaint")) {
    return;
  }
  _pSkDrawingCtx->_pPaint->setXfermodeMode(RasterTransferMode(i_mode));
}

void VYR2DGSkiaDrawing::SetDashStyle(int i_count, const float* i_pLengths) {
  if (!VYR_CHECK_POINTER(_pSkDrawingCtx) || !VYR_CHECK_POINTER_TEXT(_pSkDrawingCtx->_pPaint, "_pSkDrawingCtx->_pPaint")) {
    return;
  }
  _pSkDrawingCtx->_pPaint->setPathEffect(nullptr);
  if (_pSkDrawingCtx->_pDashEffect != nullptr) _pSkDrawingCtx->_pDashEffect->Release();
  _pSkDrawingCtx->_pDashEffect = nullptr;
  if (i_pLengths == nullptr || i_count < 2) return;
  _pSkDrawingCtx->_pDashEffect = VYRRasterDashPathEffect::Create(i_pLengths, i_count, 0.0f);
  _pSkDrawingCtx->_pPaint->setPathEffect(_pSkDrawingCtx->_pDashEffect);
}

void VYR2DGSkiaDrawing::SetFillRule(VYRPrintFillRule i_rule) {
  if (VYRRasterPath* pPath = CheckedPath_()) pPath->setFillType(RasterFillType(i_rule));
}

// ---- Text

namespace {

VYRRasterPaint::Align RasterTextAlign(VYR2DGTextAlign i_align) {
  switch (static_cast<int>(i_align)) {
    case eTextAlignCenter: return VYRRasterPaint::kCenter_Align;
    case eTextAlignRight: return VYRRasterPaint::kRight_Align;
    default: return VYRRasterPaint::kLeft_Align;
  }
}

VYRRasterPaint::Hinting RasterHinting(VYR2DGTextHinting i_hinting) {
  switch (static_cast<int>(i_hinting)) {
    case eTextHintingNone: return VYRRasterPaint::kNo_Hinting;
    case eTextHintingSlight: return VYRRasterPaint::kSlight_Hinting;
    case eTextHintingFull: return VYRRasterPaint::kFull_Hinting;
    default: return VYRRasterPaint::kNormal_Hinting;
  }
}

// Italic wins over oblique, which the paint's skew draws instead; a weight other than 1 is normal.
VYRRasterTypeface::Style TypefaceStyle(VYR2DGTextWeight i_weight, int i_styleFlags) {
  const bool bold = i_weight == eTextWeightBold;
  if ((i_styleFlags & eTextStyleItalic) != 0) return bold ? VYRRasterTypeface::kBoldItalic : VYRRasterTypeface::kItalic;
  return bold ? VYRRasterTypeface::kBold : VYRRasterTypeface::kNormal;
}

// The text's UTF-8 bytes in a zeroed buffer of four bytes per character
// (null when it cannot be had); o_length receives the byte length.
std::unique_ptr<char[]> Utf8Buffer(const VYRUnicodeString& i_text, int& o_length) {
  const size_t size = std::min<size_t>(4 * static_cast<size_t>(i_text.GetLengthInChar()) + 1, INT_MAX);
  std::unique_ptr<char[]> pBuffer(new (std::nothrow) char[size]());
  o_length = pBuffer != nullptr ? std::max(i_text.ConvertToUTF8(pBuffer.get(), static_cast<int>(size)), 0) : 0;
  return pBuffer;
}

}  // namespace

VYRRasterPaint* VYR2DGSkiaDrawing::CheckedPaint_() const {
  if (!VYR_CHECK_POINTER(_pSkDrawingCtx)) return nullptr;
  VYRRasterPaint* pPaint = _pSkDrawingCtx->_pPaint;
  return VYR_CHECK_POINTER_TEXT(pPaint, "_pSkDrawingCtx->_pPaint") ? pPaint : nullptr;
}

void VYR2DGSkiaDrawing::SetSubpixelPositioning(bool i_subpixel) {
  if (VYRRasterPaint* pPaint = CheckedPaint_()) pPaint->setFlag(VYRRasterPaint::kSubpixelText_Flag, i_subpixel);
}

void VYR2DGSkiaDrawing::SetSubpixelRendering(bool i_subpixel) {
  if (VYRRasterPaint* pPaint = CheckedPaint_()) pPaint->setFlag(VYRRasterPaint::kLCDRenderText_Flag, i_subpixel);
}

void VYR2DGSkiaDrawing::SetHinting(VYR2DGTextHinting i_hinting) {
  if (VYRRasterPaint* pPaint = CheckedPaint_()) pPaint->setHinting(RasterHinting(i_hinting));
}

void VYR2DGSkiaDrawing::SetFont(VYRFont* i_pFont) {
  if (!VYR_CHECK_POINTER(_pSkDrawingCtx)) return;
  VYR2DGDrawing::SetFont(i_pFont);
  if (_pSkDrawingCtx->_pTypeface != nullptr) _pSkDrawingCtx->_pTypeface->Release();
  _pSkDrawingCtx->_pTypeface = nullptr;
}

void VYR2DGSkiaDrawing::SetFont(const VYRUnicodeString& i_name) {
  if (!VYR_CHECK_POINTER(_pSkDrawingCtx)) return;
  SetFont(static_cast<VYRFont*>(nullptr));
  _pSkDrawingCtx->_pTypeface = VYRRasterTypeface::CreateFromName(i_name.CastToCharPtr(), VYRRasterTypeface::kNormal);
}

void VYR2DGSkiaDrawing::PrepareTextPaint_(VYRRasterPaint& io_paint) const {
  // Fonts' faces are shared by file, so reading a font "anew" at every call costs a look-up.
  VYRRasterTypeface* pBase = nullptr;
  if (_pFont != nullptr) {
    pBase = VYRRasterTypeface::CreateFromFile(_pFont->GetFontFilePath().CastToCharPtr(), _pFont->GetFaceIndex());
  } else if (_pSkDrawingCtx->_pTypeface != nullptr) {
    pBase = _pSkDrawingCtx->_pTypeface;
    pBase->AddRef();
  }
  io_paint.setFlag(VYRRasterPaint::kUnderlineText_Flag, (_textStyleFlags & eTextStyleUnderline) != 0);
  io_paint.setFlag(VYRRasterPaint::kStrikeThruText_Flag, (_textStyleFlags & eTextStyleStrikeThrough) != 0);
  io_paint.setFlag(VYRRasterPaint::kVerticalText_Flag, (_textStyleFlags & eTextStyleVertical) != 0);
  if ((_textStyleFlags & eTextStyleItalic) == 0 && (_textStyleFlags & eTextStyleOblique) != 0) {
    io_paint.setTextSkewX(-0.25f);
  }
  VYRRasterTypeface* pStyled = VYRRasterTypeface::CreateFromTypeface(pBase, TypefaceStyle(_textWeight, _textStyleFlags));
  io_paint.setTypeface(pStyled);
  if (pStyled != nullptr) pStyled->Release();
  if (pBase != nullptr) pBase->Release();
  io_paint.setTextSize(_textHeight);
  io_paint.setTextAlign(RasterTextAlign(_textAlign));
}

void VYR2DGSkiaDrawing::DrawTextW(const VYRMathPoint2Df& i_origin, const VYRUnicodeString& i_text, bool i_mirror) {
  VYRRasterPaint* pPaint = CheckedPaint_();
  if (pPaint == nullptr) return;
  PrepareTextPaint_(*pPaint);
  int length = 0;
  std::unique_ptr<char[]> pText = Utf8Buffer(i_text, length);
  VYRRasterCanvas* pCanvas = Canvas_();
  if (VYR_CHECK_POINTER(pText) && VYR_CHECK_POINTER(pCanvas)) {
    VYRRasterPath textPath;
    VYRRasterText::GetTextPath(*pPaint, pText.get(), length, i_origin.x, i_origin.y, &textPath);
    // (x, y) -> (x, 2 origin.y - y): upside down about the baseline, for y-up transforms.
    if (i_mirror) textPath.transform(VYRRasterMatrix::MakeAll(1.0f, 0.0f, 0.0f, 0.0f, -1.0f, 2.0f * i_origin.y));
    // Fill first, then the stroke over it, each with its own mode; text takes no knockout.
    if (_fillMode != eFillModeNone) {
      ApplyFillMode(_fillMode);
      pCanvas->drawPath(textPath, *pPaint);
    }
    if (_strokeMode != eEdgeModeNone) {
      ApplyStrokeMode(_strokeMode);
      pCanvas->drawPath(textPath, *pPaint);
    }
  }
  // The oblique slant is this call's; typeface, size, alignment and decorations stay on the paint.
  if ((_textStyleFlags & eTextStyleOblique) != 0) pPaint->setTextSkewX(0.0f);
}

int VYR2DGSkiaDrawing::GetTextAdvanceWidth(const VYRUnicodeString& i_text) const {
  if (!VYR_CHECK_POINTER(_pSkDrawingCtx)) return 0;
  int length = 0;
  const std::unique_ptr<char[]> pText = Utf8Buffer(i_text, length);
  if (!VYR_CHECK_POINTER(pText)) return 0;
  VYRRasterPaint* pPaint = CheckedPaint_();
  if (pPaint == nullptr) return 0;
  const float width = std::floor(VYRRasterText::MeasureText(*pPaint, pText.get(), length) + 0.5f);
  // Sizes beyond the int range (or NaN) measure as nothing rather than overflow.
  return width > -2147483648.0f && width < 2147483648.0f ? static_cast<int>(width) : 0;
}

// ---- Gradients and patterns

VYRRasterShader*& VYR2DGSkiaDrawing::ShaderSlot_() const {
  return _strokeUsesShader ? _pSkDrawingCtx->_pStrokeShader : _pSkDrawingCtx->_pFillShader;
}

void VYR2DGSkiaDrawing::SetGradient(const VYRPrintGradient* i_pGradient) {
  if (!VYR_CHECK_POINTER(_pSkDrawingCtx) || !VYR_CHECK_POINTER_TEXT(_pSkDrawingCtx->_pPaint, "_pSkDrawingCtx->_pPaint")) {
    return;
  }
  VYRRasterPaint& paint = *_pSkDrawingCtx->_pPaint;
  VYRRasterShader*& slot = ShaderSlot_();
  if (i_pGradient == nullptr || i_pGradient->GetStopCount() == 0) {
    // The shader leaves the paint but stays in its slot, for a later ApplyFillMode to use.
    if (slot != nullptr) paint.setShader(nullptr);
    return;
  }
  if (slot != nullptr) {
    paint.setShader(nullptr);
    slot->Release();
    slot = nullptr;
  }
  VYRRasterShader* pShader = CreateGradientShader(*i_pGradient);
  if (pShader != nullptr) {
    // A gradient transform maps gradient space straight to device pixels, whatever the
    // current transform; without one the gradient lives in the user space of each draw.
    const VYRRasterMatrix transform = GradientMatrix(i_pGradient->GetTransform());
    VYRRasterMatrix local;
    if (!transform.isIdentity()) {
      VYRRasterCanvas* pCanvas = Canvas_();
      if (VYR_CHECK_POINTER(pCanvas)) {
        VYRRasterMatrix inverse;
        const VYRRasterMatrix& total = pCanvas->getTotalMatrix();
        if (!total.isIdentity()) total.invert(&inverse);
        local.setConcat(inverse, transform);
      }
    }
    pShader->setLocalMatrix(local);
    slot = pShader;
  }
  _strokeUsesShader = false;
  _fillUsesShader = false;
}

void VYR2DGSkiaDrawing::FloodWithFillShader_() {
  if (!VYR_CHECK_POINTER(_pSkDrawingCtx) || !VYR_CHECK_POINTER_TEXT(_pSkDrawingCtx->_pPaint, "_pSkDrawingCtx->_pPaint")) {
    return;
  }
  VYRRasterCanvas* pCanvas = Canvas_();
  if (!VYR_CHECK_POINTER(pCanvas)) return;
  VYRRasterPaint& paint = *_pSkDrawingCtx->_pPaint;
  paint.setAlpha(ChannelToByte(GetFillAlpha_()));
  paint.setShader(_pSkDrawingCtx->_pFillShader);
  // Without a shader (a refused gradient or pattern) the flood would paint the paint's
  // colour over everything: nothing is drawn instead.
  if (_pSkDrawingCtx->_pFillShader != nullptr) pCanvas->drawPaint(paint);
}

void VYR2DGSkiaDrawing::FillWithGradient(const VYRPrintGradient* i_pGradient) {
  SetFillMode(eFillModeGradient);
  SetGradient(i_pGradient);
  FillWithGradient();
}

void VYR2DGSkiaDrawing::FillWithGradient() { FloodWithFillShader_(); }

void VYR2DGSkiaDrawing::InstallPattern_(const VYRRasterBitmap& i_tile, VYRBaseUnknown* i_pPixelOwner,
                                        VYR2DGPatternMode i_mode, const VYR3x3Matrix* i_pMatrix) {
  VYRRasterShader*& slot = ShaderSlot_();
  if (slot != nullptr) {
    _pSkDrawingCtx->_pPaint->setShader(nullptr);
    slot->Release();
    slot = nullptr;
  }
  const VYRRasterShader::TileMode tileMode = PatternTileMode(i_mode);
  // Patterns are sampled at the nearest pixel, in the user space of each draw.
  slot = new VYRRasterBitmapShader(i_tile, i_pPixelOwner, tileMode, tileMode);
  if (i_pMatrix != nullptr) slot->setLocalMatrix(ToRasterMatrix(*i_pMatrix));
  _strokeUsesShader = false;
  _fillUsesShader = false;
}

void VYR2DGSkiaDrawing::SetPattern(int i_left, int i_top, int i_right, int i_bottom, VYR2DGPatternMode i_mode,
                                   const VYR3x3Matrix* i_pMatrix) {
  if (!VYR_CHECK_POINTER(_pSkDrawingCtx) || !VYR_CHECK_POINTER_TEXT(_pSkDrawingCtx->_pPaint, "_pSkDrawingCtx->_pPaint")) {
    return;
  }
  const VYRRasterBitmap* pCanvasPattern = _pSkDrawingCtx->_pMaskBitmap;
  if (!VYR_CHECK_POINTER(pCanvasPattern)) return;
  // The tile shares the mask image's pixels, kept alive by its device.
  // The part of the rectangle that lies on the image; none at all refuses the pattern.
  VYRRasterIRect subset = VYRRasterIRect::MakeLTRB(i_left, i_top, i_right, i_bottom);
  const bool extracted = !pCanvasPattern->drawsNothing() &&
                         subset.intersect(VYRRasterIRect::MakeWH(pCanvasPattern->width(), pCanvasPattern->height()));
  if (!extracted) {
    _strokeUsesShader = false;
    _fillUsesShader = false;
    return;
  }
  InstallPattern_(SubsetOf(*pCanvasPattern, subset), _pSkDrawingCtx->_pMaskDevice, i_mode, i_pMatrix);
}

void VYR2DGSkiaDrawing::SetPattern(const VYRPixelImage* i_pImage, VYR2DGPatternMode i_mode,
                                   const VYR3x3Matrix* i_pMatrix) {
  if (!VYR_CHECK_POINTER(_pSkDrawingCtx) || !VYR_CHECK_POINTER_TEXT(_pSkDrawingCtx->_pPaint, "_pSkDrawingCtx->_pPaint")) {
    return;
  }
  // The pattern keeps its own copy: the caller may change or free the image afterwards.
  const VYR2DGPremultipliedImage tile(i_pImage, VYR2DGPremultipliedImage::eOwnCopy);
  if (!tile.IsValid()) {
    _strokeUsesShader = false;
    _fillUsesShader = false;
    return;
  }
  InstallPattern_(tile.Bitmap(), tile.PixelOwner(), i_mode, i_pMatrix);
}

void VYR2DGSkiaDrawing::FillWithPattern(const VYRPixelImage* i_pImage, VYR2DGPatternMode i_mode,
                                        const VYR3x3Matrix* i_pMatrix) {
  SetFillMode(eFillModePattern);
  SetPattern(i_pImage, i_mode, i_pMatrix);
  FloodWithFillShader_();
}

// ---- Bitmaps

void VYR2DGSkiaDrawing::DrawBitmapRect_(const VYRRasterBitmap& i_source, VYRBaseUnknown* i_pPixelOwner,
                                        const VYRRasterRect& i_dest, bool i_bilinear) {
  VYRRasterCanvas* pCanvas = Canvas_();
  if (!VYR_CHECK_POINTER(pCanvas) || i_source.drawsNothing() || i_dest.isEmpty()) return;
  VYRRasterBitmapShader* pShader = new VYRRasterBitmapShader(
      i_source, i_pPixelOwner, VYRRasterShader::kClamp_TileMode, VYRRasterShader::kClamp_TileMode,
      i_bilinear ? VYRRasterBitmapShader::kBilinear_Filter : VYRRasterBitmapShader::kNearest_Filter);
  VYRRasterMatrix local = VYRRasterMatrix::MakeTranslate(i_dest.left, i_dest.top);
  local.preScale(i_dest.width() / i_source.width(), i_dest.height() / i_source.height());
  pShader->setLocalMatrix(local);
  // The paint's transfer mode and anti-aliasing, the fill alpha, no dashes.
  VYRRasterPaint paint = *_pSkDrawingCtx->_pPaint;
  paint.setStyle(VYRRasterPaint::kFill_Style);
  paint.setPathEffect(nullptr);
  paint.setAlpha(ChannelToByte(GetFillAlpha_()));
  paint.setShader(pShader);
  pShader->Release();
  pCanvas->drawRect(i_dest, paint);
}

void VYR2DGSkiaDrawing::DrawBitmap(const VYRMathPoint2Df& i_origin, const VYRPixelImage* i_pImage) {
  if (!VYR_CHECK_POINTER(_pSkDrawingCtx) || !VYR_CHECK_POINTER_TEXT(_pSkDrawingCtx->_pPaint, "_pSkDrawingCtx->_pPaint")) {
    return;
  }
  const VYR2DGPremultipliedImage image(i_pImage, VYR2DGPremultipliedImage::eMayShare);
  if (!image.IsValid()) return;
  const VYRRasterBitmap& bitmap = image.Bitmap();
  DrawBitmapRect_(bitmap, image.PixelOwner(),
                  VYRRasterRect::MakeXYWH(i_origin.x, i_origin.y, static_cast<float>(bitmap.width()),
                                          static_cast<float>(bitmap.height())),
                  false);
}

void VYR2DGSkiaDrawing::DrawBitmapToRect(const VYR2DGRect& i_rect, const VYRPixelImage* i_pImage) {
  if (!VYR_CHECK_POINTER(_pSkDrawingCtx) || !VYR_CHECK_POINTER_TEXT(_pSkDrawingCtx->_pPaint, "_pSkDrawingCtx->_pPaint")) {
    return;
  }
  const VYR2DGPremultipliedImage image(i_pImage, VYR2DGPremultipliedImage::eMayShare);
  if (!image.IsValid()) return;
  DrawBitmapRect_(image.Bitmap(), image.PixelOwner(), ToRasterRect(i_rect), true);
}

void VYR2DGSkiaDrawing::DrawNinePatchBitmap(const VYR2DGRect& i_dest, const VYR2DGRect& i_centre,
                                            const VYRPixelImage* i_pImage) {
  if (!VYR_CHECK_POINTER(_pSkDrawingCtx) || !VYR_CHECK_POINTER_TEXT(_pSkDrawingCtx->_pPaint, "_pSkDrawingCtx->_pPaint")) {
    return;
  }
  const VYR2DGPremultipliedImage image(i_pImage, VYR2DGPremultipliedImage::eMayShare);
  if (!image.IsValid()) return;
  const VYRRasterBitmap& bitmap = image.Bitmap();
  // Source cuts: the centre rectangle's sides, rounded to pixels and kept inside the image.
  auto cut = [](float i_value, int i_size) {
    return std::isfinite(i_value) ? std::clamp(static_cast<int>(std::lround(i_value)), 0, i_size) : 0;
  };
  const int sx[4] = {0, cut(i_centre.x, bitmap.width()),
                     std::max(cut(i_centre.x, bitmap.width()), cut(i_centre.x + i_centre.width, bitmap.width())),
                     bitmap.width()};
  const int sy[4] = {0, cut(i_centre.y, bitmap.height()),
                     std::max(cut(i_centre.y, bitmap.height()), cut(i_centre.y + i_centre.height, bitmap.height())),
                     bitmap.height()};
  // Destination cuts: corners at their own size, shrunk together when they do not fit.
  auto destCuts = [](float i_start, float i_length, const int* i_source, float* o_cuts) {
    float before = static_cast<float>(i_source[1] - i_source[0]), after = static_cast<float>(i_source[3] - i_source[2]);
    if (before + after > i_length && before + after > 0) {
      const float k = std::max(i_length, 0.0f) / (before + after);
      before *= k;
      after *= k;
    }
    o_cuts[0] = i_start;
    o_cuts[1] = i_start + before;
    o_cuts[2] = i_start + i_length - after;
    o_cuts[3] = i_start + i_length;
  };
  float dx[4], dy[4];
  destCuts(i_dest.x, i_dest.width, sx, dx);
  destCuts(i_dest.y, i_dest.height, sy, dy);
  for (int row = 0; row < 3; ++row) {
    for (int column = 0; column < 3; ++column) {
      const VYRRasterIRect source = VYRRasterIRect::MakeLTRB(sx[column], sy[row], sx[column + 1], sy[row + 1]);
      if (source.isEmpty()) continue;
      // Each piece samples only its own pixels, so stretched edges take nothing from their neighbours.
      DrawBitmapRect_(SubsetOf(bitmap, source), image.PixelOwner(),
                      VYRRasterRect::MakeLTRB(dx[column], dy[row], dx[column + 1], dy[row + 1]), true);
    }
  }
}

#include "VYRModelRenderer.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

#include "VYR2DGSkiaDrawing.h"
#include "VYRAssert.h"
#include "VYR2DGSkiaSupport.h"
#include "VYRHostPaintCodes.h"
#include "VYRHostPath.h"
#include "VYRListPtrVYRPrtImageElt.h"
#include "VYRMathConstants.h"
#include "VYRPixelImage.h"
#include "VYRPixelImagePNG.h"
#include "VYRPrintGradient.h"
#include "VYRPrtBitmapImageElt.h"
#include "VYRPrtClipPathElt.h"
#include "VYRPrtColourTable.h"
#include "VYRPrtFilterContainerElt.h"
#include "VYRPrtImageElt.h"
#include "VYRPrtLineElt.h"
#include "VYRPrtMarkerElt.h"
#include "VYRPrtMaskElt.h"
#include "VYRPrtModel.h"
#include "VYRPrtPathElt.h"
#include "VYRPrtPatternElt.h"
#include "VYRPrtPointBasedElt.h"
#include "VYRPrtTextElt.h"
#include "VYRTextBounds.h"
#include "VYRViewBoxMapping.h"

namespace {

// Deeper trees (markers inside markers, say) are not drawn.
constexpr int kMaximumDepth = 256;
// Matrix and clip (the drawing's save flags 1 and 2).
constexpr int kSaveMatrixAndClip = 3;
// The family of text that names none, as user agents commonly choose.
const char* const kDefaultFontFamily = "serif";
// Pattern tiles are drawn no larger than this many pixels a side, and
// patterns inside patterns (each tile alive while the next is drawn) no deeper.
constexpr double kMaximumTileSide = 2048.0;
constexpr size_t kMaximumNesting = 8;

VYRMath3x3Matrix MatrixOf(const VYRPrtTransformAttributes& i_transform) {
  VYRMath3x3Matrix matrix;
  i_transform.GetTransformationMatrix(matrix);
  return matrix;
}

// The matrix that maps the unit square onto a box.
VYRMath3x3Matrix BoxMatrix(double i_xmin, double i_xmax, double i_ymin, double i_ymax) {
  VYRMath3x3Matrix matrix;
  matrix.SetCoef(i_xmax - i_xmin, 0.0, i_xmin, 0.0, i_ymax - i_ymin, i_ymin, 0.0, 0.0, 1.0);
  return matrix;
}

bool IsDrawnWhereUsed(StreamType i_type) {
  switch (i_type) {
    case kStreamTypeDefsElt:
    case kStreamTypeSymbolElt:
    case kStreamTypeClipPathElt:
    case kStreamTypeMaskElt:
    case kStreamTypeMarkerElt:
    case kStreamTypePatternElt:
    case kStreamTypeLinearGradientElt:
    case kStreamTypeRadialGradientElt:
    case kStreamTypeGradientStopElt:
    case kStreamTypeFilterContainerElt:
      return true;
    default:
      return false;
  }
}

const VYRPrtMarkerReferences* MarkersOf(VYRPrtGraphicPrimitiveElt* i_pElt) {
  switch (i_pElt->GetStreamType()) {
    case kStreamTypePathElt:
      return &static_cast<VYRPrtPathElt*>(i_pElt)->GetMarkerReferences();
    case kStreamTypeLineElt:
      return &static_cast<VYRPrtLineElt*>(i_pElt)->GetMarkerReferences();
    case kStreamTypePolylineElt:
    case kStreamTypePolygonElt:
      return &static_cast<VYRPrtPointBasedElt*>(i_pElt)->GetMarkerReferences();
    default:
      return nullptr;
  }
}

// What a shape, line or text element paints with.
struct ShapePaint {
  explicit ShapePaint(VYRPrtGraphicPrimitiveElt* i_pElt, bool i_clipCoverage = false) {
    if (i_pElt->GetStreamType() == kStreamTypeLineElt) {
      pStroke = &static_cast<VYRPrtLineElt*>(i_pElt)->GetStrokeAttributes();
    } else if (auto* pShape = dynamic_cast<VYRPrtBaseShapeElt*>(i_pElt)) {
      pFill = &pShape->GetFillAttributes();
      pStroke = &pShape->GetStrokeAttributes();
    }
    if (i_clipCoverage) {  // the geometry counts, not the paint
      hasFill = pFill != nullptr;
      return;
    }
    const bool hasPattern = i_pElt->GetPattern() != nullptr;
    const int fillStyle = pFill != nullptr ? pFill->GetFillStyle() : kHostFillNone;
    hasFill = fillStyle == kHostFillColor || (fillStyle == kHostFillGradient && pFill->GetGradient() != nullptr) ||
              (fillStyle == kHostFillPattern && hasPattern);
    const int strokeMode = pStroke != nullptr ? pStroke->GetStrokeMode() : kHostStrokeNone;
    hasStroke = pStroke != nullptr && pStroke->GetStrokeWidth() > 0.0 &&
                (strokeMode == kHostStrokeColor ||
                 (strokeMode == kHostStrokeGradient && pStroke->GetGradient() != nullptr) ||
                 (strokeMode == kHostStrokePattern && hasPattern));
  }
  const VYRPrtFillAttributes* pFill = nullptr;
  const VYRPrtStrokeAttributes* pStroke = nullptr;
  bool hasFill = false;
  bool hasStroke = false;
};

bool HasMarkers(VYRPrtGraphicPrimitiveElt* i_pElt) {
  const VYRPrtMarkerReferences* pReferences = MarkersOf(i_pElt);
  if (pReferences == nullptr) return false;
  for (int position = 0; position < 3; ++position) {
    const auto where = static_cast<VYRPrtMarkerReferences::Position>(position);
    if (pReferences->GetMarker(where) != nullptr || !pReferences->GetMarkerID(where).IsEmpty()) return true;
  }
  return false;
}

// True when parts of what the element draws may overlap each other: a
// group's children, a stroke over its fill, markers over their shape.
bool PaintsOverItself(VYRPrtGraphicPrimitiveElt* i_pElt) {
  if (dynamic_cast<VYRPrtNodeTreeElt*>(i_pElt) != nullptr) return true;
  const ShapePaint paint(i_pElt);
  return (paint.hasFill && paint.hasStroke) || HasMarkers(i_pElt);
}

}  // namespace

// ---- Whole models

bool VYRModelRenderer::GetDocumentSize(VYRPrtModel& i_model, double& o_width, double& o_height) {
  VYRListPtrVYRPrtImageElt* pImages = nullptr;
  i_model.GetImages(pImages);
  if (pImages == nullptr || pImages->Size() < 1 || (*pImages)[1] == nullptr) return false;
  (*pImages)[1]->GetSize(o_width, o_height);
  return o_width > 0.0 && o_height > 0.0;
}

void VYRModelRenderer::DrawModel(VYRPrtModel& i_model, const VYR3x3Matrix& i_transform) {
  VYRListPtrVYRPrtImageElt* pImages = nullptr;
  i_model.GetImages(pImages);
  if (pImages == nullptr) return;
  _elementsByID.clear();
  for (int i = 1; i <= pImages->Size(); ++i) IndexIDs((*pImages)[i], 0);
  for (int i = 1; i <= pImages->Size(); ++i) {
    VYRPrtImageElt* pImage = (*pImages)[i];
    if (pImage == nullptr || pImage->GetVisibility() == 0) continue;
    _drawing.Save(kSaveMatrixAndClip);
    _drawing.SetMatrixTransform(i_transform);
    double width = 0.0, height = 0.0;
    pImage->GetSize(width, height);
    const VYRMathPoint2D& origin = pImage->GetOrigin();
    if (width > 0.0 && height > 0.0) {
      _drawing.SetCurrentClipRect(VYR2DGRect(static_cast<float>(origin.x), static_cast<float>(origin.y),
                                             static_cast<float>(width), static_cast<float>(height)),
                                  eClipIntersect);
    }
    Paint paint;
    paint.pColours = pImage->GetColorTable();
    DrawNode(pImage, paint, 0);
    _drawing.Restore(-1);
  }
  _drawing.Flush();
}

VYRPixelImage* VYRModelRenderer::RenderToImage(VYRPrtModel& i_model, int i_width, int i_height,
                                               std::string& o_error) {
  double documentWidth = 0.0, documentHeight = 0.0;
  if (!GetDocumentSize(i_model, documentWidth, documentHeight)) {
    o_error = "the model has no image to draw";
    return nullptr;
  }
  double width = i_width > 0 ? i_width : documentWidth;
  double height = i_height > 0 ? i_height : documentHeight;
  if (i_width > 0 && i_height <= 0) height = documentHeight * width / documentWidth;
  if (i_height > 0 && i_width <= 0) width = documentWidth * height / documentHeight;
  // Sizes beyond what an int holds are refused before the surface sees them.
  if (!(width >= 0.5 && height >= 0.5 && width < 1e6 && height < 1e6)) {
    o_error = "the image size is out of range";
    return nullptr;
  }
  const int pixelWidth = static_cast<int>(std::lround(width));
  const int pixelHeight = static_cast<int>(std::lround(height));
  return DrawToNewImage(pixelWidth, pixelHeight, o_error, [&](VYRModelRenderer& io_renderer) {
    io_renderer.DrawModel(i_model, VYR3x3Matrix(static_cast<float>(pixelWidth / documentWidth), 0.0f, 0.0f, 0.0f,
                                                static_cast<float>(pixelHeight / documentHeight), 0.0f));
  });
}

VYRPixelImage* VYRModelRenderer::DrawToNewImage(int i_width, int i_height, std::string& o_error,
                                                const std::function<void(VYRModelRenderer&)>& i_draw) {
  auto* pSupport = new VYR2DGSkiaSupport(i_width, i_height);
  if (pSupport->GetData(VYR2DGSupport::eMainBitmap) == nullptr) {
    pSupport->Release();
    o_error = "an image of " + std::to_string(i_width) + " x " + std::to_string(i_height) + " pixels is too large";
    return nullptr;
  }
  {
    VYR2DGSkiaDrawing drawing(pSupport->GetDrawingContext());
    drawing.SetBlendingMode(eTransferSourceOver);
    VYRModelRenderer renderer(drawing);
    i_draw(renderer);
  }
  auto* pImage = new VYRPixelImage(i_width, i_height, VYRPixelImageFormat_BGRA32Premultiplied,
                                   pSupport->GetData(VYR2DGSupport::eMainBitmap),
                                   VYRDeallocatePixels_ImageCopiesPixels);
  pSupport->Release();
  if (pImage->IsEmpty()) {
    pImage->Release();
    o_error = "out of memory for the image";
    return nullptr;
  }
  return pImage;
}

bool VYRWritePngFile(const VYRPixelImage* i_pImage, const std::string& i_path) {
  unsigned char* pBytes = nullptr;
  int length = 0;
  if (i_pImage == nullptr || !VYRSucceeded(WriteToMemoryPNGPixelImage(i_pImage, &pBytes, &length, 0))) return false;
  bool written = false;
  if (FILE* pFile = std::fopen(i_path.c_str(), "wb")) {
    written = std::fwrite(pBytes, 1, static_cast<size_t>(length), pFile) == static_cast<size_t>(length);
    written = std::fclose(pFile) == 0 && written;
  }
  delete[] pBytes;
  return written;
}

// ---- Tree walk

void VYRModelRenderer::IndexIDs(VYRPrtGraphicPrimitiveElt* i_pElt, int i_depth) {
  if (i_pElt == nullptr || i_depth > kMaximumDepth) return;
  const std::string id = i_pElt->GetID().GetStdString();
  if (!id.empty()) _elementsByID.emplace(id, i_pElt);
  if (auto* pNode = dynamic_cast<VYRPrtNodeTreeElt*>(i_pElt)) {
    const VYRSYPDynArray<VYRPrtGraphicPrimitiveElt*>& children = pNode->GetChildArray();
    for (int i = 0; i < children.GetLength(); ++i) IndexIDs(children[i], i_depth + 1);
  }
}

VYRPrtGraphicPrimitiveElt* VYRModelRenderer::FindByID(const VYRUnicodeString& i_id) const {
  auto found = _elementsByID.find(i_id.GetStdString());
  return found == _elementsByID.end() ? nullptr : found->second;
}

void VYRModelRenderer::DrawNode(VYRPrtGraphicPrimitiveElt* i_pElt, const Paint& i_paint, int i_depth) {
  if (i_pElt == nullptr || i_depth > kMaximumDepth || i_pElt->GetVisibility() == 0) return;
  if (i_depth > 0 && IsDrawnWhereUsed(i_pElt->GetStreamType())) return;
  _drawing.Save(kSaveMatrixAndClip);
  _drawing.AddTransform(VYR3x3Matrix(MatrixOf(i_pElt->GetTransformAttributes())));
  VYRPrtClipPathElt* pClip = i_pElt->GetClipPath();
  if (pClip != nullptr && NeedsClipLayer(pClip)) {
    if (_inUse.count(pClip) == 0 && _drawing.SaveLayer() >= 0) {  // a clip inside itself clips everything away
      DrawComposited(i_pElt, i_paint, i_depth);
      DrawClipLayer(i_pElt, pClip, i_paint, i_depth);
      _drawing.Restore(-1);
    }
  } else if (ApplyClipPath(i_pElt)) {
    DrawComposited(i_pElt, i_paint, i_depth);
  }
  _drawing.Restore(-1);
}

void VYRModelRenderer::DrawComposited(VYRPrtGraphicPrimitiveElt* i_pElt, const Paint& i_paint, int i_depth) {
  if (i_paint.clipCoverage) {  // opacity, masks and filters do not shape a clip
    DrawContent(i_pElt, i_paint, i_depth);
    return;
  }
  VYRPrtFilterContainerElt* pFilter = i_pElt->GetFilter();
  VYRPrtMaskElt* pMask = i_pElt->GetMask();
  if (pMask != nullptr && _inUse.count(pMask) != 0) pMask = nullptr;
  const double opacity = i_pElt->GetOpacity() / 255.0;
  // Opacity goes into the paint of an element that paints each pixel once;
  // anything else is drawn opaque into a layer that is then faded as a whole.
  const bool opacityLayer = opacity < 1.0 && (pFilter != nullptr || pMask != nullptr || PaintsOverItself(i_pElt));
  Paint paint = i_paint;
  if (!opacityLayer) paint.alpha *= opacity;
  // A filter without primitives leaves nothing of what it filters.
  if (pFilter != nullptr && pFilter->GetChildArray().GetLength() == 0) return;
  if (pFilter != nullptr) {
    VYR2DGRect region;
    if (!EffectArea(i_pElt, pFilter->GetRegion(), pFilter->GetUnits(), region)) return;
    // Blurs spread no farther than the filter region.
    _drawing.SetCurrentClipRect(region, eClipIntersect);
  }
  // The content goes through the filter first, then the mask and the opacity apply to the result.
  bool outerLayer = false;
  if (pMask != nullptr || (opacityLayer && pFilter == nullptr)) {
    if (opacityLayer) _drawing.SetLayerAlpha(static_cast<float>(opacity));
    outerLayer = _drawing.SaveLayer() >= 0;
  }
  bool filterLayer = false;
  if (pFilter != nullptr) {
    if (opacityLayer && pMask == nullptr) _drawing.SetLayerAlpha(static_cast<float>(opacity));
    const float scale = DeviceScale();
    // A transform that flattens everything leaves nothing to filter.
    if (!(scale > 0.0f)) return;
    _drawing.SetLayerFilter(pFilter, scale);
    filterLayer = _drawing.SaveLayer() >= 0;
  }
  DrawContent(i_pElt, paint, i_depth);
  if (filterLayer) _drawing.Restore(-1);
  if (outerLayer && pMask != nullptr) DrawMask(i_pElt, pMask, paint, i_depth);
  if (outerLayer) _drawing.Restore(-1);
}

void VYRModelRenderer::DrawContent(VYRPrtGraphicPrimitiveElt* i_pElt, const Paint& i_paint, int i_depth) {
  switch (i_pElt->GetStreamType()) {
    case kStreamTypeTextElt:
      DrawText(i_pElt, i_paint);
      return;
    case kStreamTypeBitmapImageElt:
      DrawBitmap(i_pElt, i_paint);
      return;
    default:
      break;
  }
  if (auto* pNode = dynamic_cast<VYRPrtNodeTreeElt*>(i_pElt)) {
    DrawChildren(*pNode, i_paint, i_depth);
    return;
  }
  DrawShape(i_pElt, i_paint);
  if (!i_paint.clipCoverage && HasMarkers(i_pElt)) {
    VYRHostPath outline;
    if (outline.BuildFrom(i_pElt)) DrawMarkers(i_pElt, outline, i_paint, i_depth);
  }
}

void VYRModelRenderer::DrawChildren(const VYRPrtNodeTreeElt& i_node, const Paint& i_paint, int i_depth) {
  const VYRSYPDynArray<VYRPrtGraphicPrimitiveElt*>& children = i_node.GetChildArray();
  for (int i = 0; i < children.GetLength(); ++i) DrawNode(children[i], i_paint, i_depth + 1);
}

// ---- Shapes

void VYRModelRenderer::Colour(const Paint& i_paint, unsigned int i_index, float o_rgb[3]) const {
  unsigned char red = 0, green = 0, blue = 0;
  int count = 0;
  if (i_paint.pColours != nullptr && i_paint.pColours->GetColourCount(count) == 1 &&
      i_index < static_cast<unsigned int>(count)) {
    i_paint.pColours->GetColour(i_index, red, green, blue);
  }
  o_rgb[0] = red / 255.0f;
  o_rgb[1] = green / 255.0f;
  o_rgb[2] = blue / 255.0f;
}

void VYRModelRenderer::EmitPath(const VYRHostPath& i_path) {
  auto point = [](const VYRMathPoint2D& i_p) {
    return VYRMathPoint2Df(static_cast<float>(i_p.x), static_cast<float>(i_p.y));
  };
  for (const VYRHostPath::Command& command : i_path.GetCommands()) {
    switch (command.verb) {
      case VYRHostPath::eMove:
        _drawing.MoveTo(point(command.points[0]));
        break;
      case VYRHostPath::eLine:
        _drawing.LineTo(point(command.points[0]));
        break;
      case VYRHostPath::eCubic:
        _drawing.CurveToCubic(point(command.points[0]), point(command.points[1]), point(command.points[2]));
        break;
      case VYRHostPath::eClose:
        _drawing.ClosePath();
        break;
    }
  }
}

void VYRModelRenderer::DrawShape(VYRPrtGraphicPrimitiveElt* i_pElt, const Paint& i_paint) {
  VYRHostPath outline;
  if (!outline.BuildFrom(i_pElt) || outline.IsEmpty()) return;
  const ShapePaint shapePaint(i_pElt, i_paint.clipCoverage);
  const VYRPrintFillMode fillMode = shapePaint.hasFill ? PrepareFill(i_pElt, *shapePaint.pFill, i_paint) : eFillModeNone;
  const VYRPrintEdgeMode strokeMode =
      shapePaint.hasStroke ? PrepareStroke(i_pElt, *shapePaint.pStroke, i_paint) : eEdgeModeNone;
  if (fillMode == eFillModeNone && strokeMode == eEdgeModeNone) return;
  EmitPath(outline);
  if (fillMode != eFillModeNone) {
    _drawing.SetFillRule(shapePaint.pFill->GetFillRule() == VYRPrtFillRuleEvenOdd ? eFillRuleEvenOdd
                                                                                  : eFillRuleNonZero);
    _drawing.ApplyFillMode(fillMode);
    if (strokeMode != eEdgeModeNone) {
      _drawing.DrawFillPreserve();
    } else {
      _drawing.DrawFill();
    }
  }
  if (strokeMode != eEdgeModeNone) {
    _drawing.ApplyStrokeMode(strokeMode);
    _drawing.DrawStroke();
  }
  EndPaint();
}

VYRPrintFillMode VYRModelRenderer::PrepareFill(VYRPrtGraphicPrimitiveElt* i_pElt, const VYRPrtFillAttributes& i_fill,
                                               const Paint& i_paint) {
  const float alpha = static_cast<float>(i_paint.alpha * i_fill.GetFillOpacity() / 255.0);
  // Shaders set while the stroke mode is a shader's go to the stroke.
  _drawing.SetStrokeMode(eEdgeModeColor);
  if (i_paint.clipCoverage) {
    _drawing.SetFillColor(1.0f, 1.0f, 1.0f, 1.0f);
    return eFillModeColor;
  }
  switch (static_cast<int>(i_fill.GetFillStyle())) {
    case kHostFillGradient:
      if (i_fill.GetGradient() == nullptr) return eFillModeNone;
      SetGradient(*i_fill.GetGradient());
      _drawing.SetFillColor(0.0f, 0.0f, 0.0f, alpha);
      return eFillModeGradient;
    case kHostFillPattern:
      if (!SetPattern(i_pElt, i_paint)) return eFillModeNone;
      _drawing.SetFillColor(0.0f, 0.0f, 0.0f, alpha);
      return eFillModePattern;
    default: {
      unsigned int index = 0;
      i_fill.GetFillColourIndex(index);
      float rgb[3];
      Colour(i_paint, index, rgb);
      _drawing.SetFillColor(rgb[0], rgb[1], rgb[2], alpha);
      return eFillModeColor;
    }
  }
}

VYRPrintEdgeMode VYRModelRenderer::PrepareStroke(VYRPrtGraphicPrimitiveElt* i_pElt,
                                                 const VYRPrtStrokeAttributes& i_stroke, const Paint& i_paint) {
  _drawing.SetStrokeWidth(static_cast<float>(i_stroke.GetStrokeWidth()));
  _drawing.SetLineCap(i_stroke.GetStrokeCap());
  _drawing.SetLineJoin(i_stroke.GetStrokeJoin());
  float* pDashes = nullptr;
  unsigned char dashCount = 0;
  i_stroke.GetStrokeTypePattern(pDashes, dashCount);
  _drawing.SetDashStyle(pDashes != nullptr ? dashCount : 0, pDashes);
  const float alpha = static_cast<float>(i_paint.alpha * i_stroke.GetStrokeOpacity() / 255.0);
  switch (static_cast<int>(i_stroke.GetStrokeMode())) {
    case kHostStrokeGradient:
      if (i_stroke.GetGradient() == nullptr) return eEdgeModeNone;
      _drawing.SetStrokeMode(eEdgeModeShader);
      SetGradient(*i_stroke.GetGradient());
      _drawing.SetStrokeColor(0.0f, 0.0f, 0.0f, alpha);
      return eEdgeModeShader;
    case kHostStrokePattern:
      _drawing.SetStrokeMode(eEdgeModeShader);
      if (!SetPattern(i_pElt, i_paint)) return eEdgeModeNone;
      _drawing.SetStrokeColor(0.0f, 0.0f, 0.0f, alpha);
      return eEdgeModeShader;
    default: {
      float rgb[3];
      Colour(i_paint, i_stroke.GetStrokeColorIndex(), rgb);
      _drawing.SetStrokeColor(rgb[0], rgb[1], rgb[2], alpha);
      return eEdgeModeColor;
    }
  }
}

void VYRModelRenderer::EndPaint() {
  _drawing.SetDashStyle(0, nullptr);
  _drawing.SetFillMode(eFillModeColor);
  _drawing.SetStrokeMode(eEdgeModeColor);
}

void VYRModelRenderer::SetGradient(const VYRPrintGradient& i_gradient) {
  // The drawing takes a gradient transform other than the identity as
  // mapping straight to device pixels; the record's maps to user space, so
  // the current transform is put in front of it.
  if (i_gradient.GetTransform().IsIdentity()) {
    _drawing.SetGradient(&i_gradient);
    return;
  }
  VYRPrintGradient* pDevice = i_gradient.Clone();
  if (!VYR_CHECK_POINTER(pDevice)) return;
  float a, b, c, d, e, f;
  _drawing.GetMatrixTransform(a, b, c, d, e, f);
  VYRMath3x3Matrix current;
  current.SetCoef(a, b, c, d, e, f, 0.0, 0.0, 1.0);
  pDevice->SetTransform(current * i_gradient.GetTransform());
  _drawing.SetGradient(pDevice);
  pDevice->Release();
}

bool VYRModelRenderer::SetPattern(VYRPrtGraphicPrimitiveElt* i_pElt, const Paint& i_paint) {
  VYRPrtPatternElt* pPattern = i_pElt->GetPattern();
  if (pPattern == nullptr || _inUse.count(pPattern) != 0 || _inUse.size() >= kMaximumNesting) return false;
  // The tile in pattern space: a box fraction or user units.
  const VYRPrtRegionAttributes& region = pPattern->GetRegion();
  double x = region.GetX(), y = region.GetY(), width = region.GetWidth(), height = region.GetHeight();
  double xmin = 0.0, xmax = 0.0, ymin = 0.0, ymax = 0.0;
  const bool hasBox = LocalBounds(i_pElt, xmin, xmax, ymin, ymax, 0) && xmax > xmin && ymax > ymin;
  if (pPattern->GetUnits() == MM2D::UnitObjectBoundingBox) {
    if (!hasBox) return false;
    x = xmin + x * (xmax - xmin);
    y = ymin + y * (ymax - ymin);
    width *= xmax - xmin;
    height *= ymax - ymin;
  }
  if (!(width > 0.0) || !(height > 0.0)) return false;
  // The tile is drawn at the device's resolution, so that it is not blurred by scaling.
  const VYRMath3x3Matrix patternMatrix = MatrixOf(pPattern->GetPatternTransform());
  float a, b, c, d, e, f;
  _drawing.GetMatrixTransform(a, b, c, d, e, f);
  VYRMath3x3Matrix toDevice;
  toDevice.SetCoef(a, b, c, d, e, f, 0.0, 0.0, 1.0);
  toDevice = toDevice * patternMatrix;
  double m[9];
  toDevice.GetCoef(m[0], m[1], m[2], m[3], m[4], m[5], m[6], m[7], m[8]);
  const auto pixels = [](double i_units, double i_scale) {
    return static_cast<int>(std::min(kMaximumTileSide, std::max(1.0, std::ceil(i_units * i_scale - 1e-6))));
  };
  const int tileWidth = pixels(width, std::hypot(m[0], m[3]));
  const int tileHeight = pixels(height, std::hypot(m[1], m[4]));
  // Content coordinates start at the tile's corner.
  VYRPrtTransformAttributes content;
  content.AddMatrix(VYRMath2x2Matrix(tileWidth / width, 0.0, 0.0, tileHeight / height));
  VYRPrtTransformAttributes viewBox;
  VYRAddViewBoxTransform(pPattern->GetViewBoxAttributes(), width, height, viewBox);
  content.AddTransformAttributes(viewBox);
  double viewX = 0.0, viewY = 0.0, viewWidth = 0.0, viewHeight = 0.0;
  pPattern->GetViewBoxAttributes().GetViewBox(viewX, viewY, viewWidth, viewHeight);
  if (!(viewWidth > 0.0 && viewHeight > 0.0) && pPattern->GetContentUnits() == MM2D::UnitObjectBoundingBox && hasBox) {
    content.AddMatrix(VYRMath2x2Matrix(xmax - xmin, 0.0, 0.0, ymax - ymin));
  }
  std::string error;
  VYRPixelImage* pTile = DrawToNewImage(tileWidth, tileHeight, error, [&](VYRModelRenderer& io_renderer) {
    io_renderer._elementsByID = _elementsByID;
    io_renderer._inUse = _inUse;
    io_renderer._inUse.insert(pPattern);
    io_renderer._drawing.SetMatrixTransform(VYR3x3Matrix(MatrixOf(content)));
    Paint paint = i_paint;
    paint.alpha = 1.0;
    io_renderer.DrawChildren(*pPattern, paint, 0);
  });
  if (pTile == nullptr) return false;
  // Tile pixels to user space: the tile's corner and size, then the pattern transform.
  VYRMath3x3Matrix tileToUser;
  tileToUser.SetCoef(width / tileWidth, 0.0, x, 0.0, height / tileHeight, y, 0.0, 0.0, 1.0);
  const VYR3x3Matrix tileMatrix(patternMatrix * tileToUser);
  _drawing.SetPattern(pTile, ePatternRepeat, &tileMatrix);
  pTile->Release();
  return true;
}

void VYRModelRenderer::DrawText(VYRPrtGraphicPrimitiveElt* i_pElt, const Paint& i_paint) {
  auto* pText = static_cast<VYRPrtTextElt*>(i_pElt);
  if (pText->GetText().IsEmpty() || pText->GetPositionCount() < 1) return;
  const VYRPrtTextAttributes& attributes = pText->GetTextAttributes();
  const ShapePaint shapePaint(i_pElt, i_paint.clipCoverage);
  const VYRPrintFillMode fillMode = shapePaint.hasFill ? PrepareFill(i_pElt, *shapePaint.pFill, i_paint) : eFillModeNone;
  const VYRPrintEdgeMode strokeMode =
      shapePaint.hasStroke ? PrepareStroke(i_pElt, *shapePaint.pStroke, i_paint) : eEdgeModeNone;
  if (fillMode == eFillModeNone && strokeMode == eEdgeModeNone) {
    EndPaint();
    return;
  }
  _drawing.SetFont(attributes.GetFontFamily().IsEmpty() ? VYRUnicodeString(kDefaultFontFamily)
                                                         : attributes.GetFontFamily());
  _drawing.SetTextHeight(static_cast<float>(attributes.GetHeight()));
  _drawing.SetTextWeight(attributes.GetWeight() >= 600 ? eTextWeightBold : eTextWeightNormal);
  _drawing.SetTextStyleFlags(attributes.GetStyle() == MM2D::FontStyleItalic
                                 ? eTextStyleItalic
                                 : (attributes.GetStyle() == MM2D::FontStyleOblique ? eTextStyleOblique : 0));
  const MM2D::TextAnchor anchor = attributes.GetAnchor();
  _drawing.SetTextAlign(anchor == MM2D::TextAnchorMiddle ? eTextAlignCenter
                                                         : (anchor == MM2D::TextAnchorEnd ? eTextAlignRight
                                                                                          : eTextAlignLeft));
  // The text operation applies each mode itself, the fill first.
  _drawing.SetFillMode(fillMode);
  _drawing.SetStrokeMode(strokeMode);
  const VYRMathPoint2D origin = pText->GetPosition(0);
  _drawing.DrawTextW(VYRMathPoint2Df(static_cast<float>(origin.x), static_cast<float>(origin.y)), pText->GetText(),
                     false);
  EndPaint();
}

void VYRModelRenderer::DrawBitmap(VYRPrtGraphicPrimitiveElt* i_pElt, const Paint& i_paint) {
  auto* pBitmap = static_cast<VYRPrtBitmapImageElt*>(i_pElt);
  VYRMathPoint2D position;
  double width = 0.0, height = 0.0, orientation = 0.0;
  VYRPixelImage* pImage = nullptr;
  pBitmap->GetParameters(position, width, height, orientation, pImage);
  if (i_paint.clipCoverage || pImage == nullptr || pImage->IsEmpty() || !(width > 0.0) || !(height > 0.0)) return;
  // Bitmaps are drawn at the fill colour's alpha.
  _drawing.SetFillColor(0.0f, 0.0f, 0.0f, static_cast<float>(i_paint.alpha));
  _drawing.ApplyFillMode(eFillModeColor);
  _drawing.DrawBitmapToRect(VYR2DGRect(static_cast<float>(position.x), static_cast<float>(position.y),
                                       static_cast<float>(width), static_cast<float>(height)),
                            pImage);
}

// ---- Markers

void VYRModelRenderer::DrawMarkers(VYRPrtGraphicPrimitiveElt* i_pElt, const VYRHostPath& i_outline,
                                   const Paint& i_paint, int i_depth) {
  const VYRPrtMarkerReferences* pReferences = MarkersOf(i_pElt);
  VYRPrtMarkerElt* markers[3] = {};
  bool any = false;
  for (int position = 0; position < 3; ++position) {
    const auto where = static_cast<VYRPrtMarkerReferences::Position>(position);
    markers[position] = pReferences->GetMarker(where);
    if (markers[position] == nullptr) {
      VYRPrtGraphicPrimitiveElt* pFound = FindByID(pReferences->GetMarkerID(where));
      if (pFound != nullptr && pFound->GetStreamType() == kStreamTypeMarkerElt) {
        markers[position] = static_cast<VYRPrtMarkerElt*>(pFound);
      }
    }
    any = any || markers[position] != nullptr;
  }
  if (!any) return;
  // The vertices, each with the directions of the segments that meet there.
  struct Vertex {
    VYRMathPoint2D at;
    double angleIn = 0.0;
    double angleOut = 0.0;
  };
  std::vector<Vertex> vertices;
  VYRMathPoint2D subpathStart;
  for (const VYRHostPath::Command& command : i_outline.GetCommands()) {
    VYRMathPoint2D end = command.verb == VYRHostPath::eCubic ? command.points[2] : command.points[0];
    if (command.verb == VYRHostPath::eClose) end = subpathStart;
    if (command.verb == VYRHostPath::eMove) subpathStart = end;
    if (!vertices.empty() && command.verb != VYRHostPath::eMove) {
      const VYRMathPoint2D from = vertices.back().at;
      const VYRMathPoint2D towards = command.verb == VYRHostPath::eCubic ? command.points[0] : end;
      const VYRMathPoint2D arriving = command.verb == VYRHostPath::eCubic ? command.points[1] : from;
      vertices.back().angleOut = std::atan2(towards.y - from.y, towards.x - from.x);
      Vertex vertex;
      vertex.at = end;
      vertex.angleIn = std::atan2(end.y - arriving.y, end.x - arriving.x);
      vertex.angleOut = vertex.angleIn;
      vertices.push_back(vertex);
    } else {
      vertices.push_back({end, 0.0, 0.0});
    }
  }
  double strokeWidth = 1.0;
  if (i_pElt->GetStreamType() == kStreamTypeLineElt) {
    strokeWidth = static_cast<VYRPrtLineElt*>(i_pElt)->GetStrokeAttributes().GetStrokeWidth();
  } else if (auto* pShape = dynamic_cast<VYRPrtBaseShapeElt*>(i_pElt)) {
    strokeWidth = pShape->GetStrokeAttributes().GetStrokeWidth();
  }
  for (size_t i = 0; i < vertices.size(); ++i) {
    const int position = i == 0 ? 0 : (i + 1 == vertices.size() ? 2 : 1);
    if (markers[position] == nullptr) continue;
    const Vertex& v = vertices[i];
    double angle = v.angleOut;
    if (i + 1 == vertices.size()) angle = v.angleIn;
    else if (i > 0) angle = std::atan2(std::sin(v.angleIn) + std::sin(v.angleOut), std::cos(v.angleIn) + std::cos(v.angleOut));
    DrawMarker(markers[position], v.at, angle, strokeWidth, i_paint, i_depth);
  }
}

void VYRModelRenderer::DrawMarker(VYRPrtMarkerElt* i_pMarker, const VYRMathPoint2D& i_at, double i_angle,
                                  double i_strokeWidth, const Paint& i_paint, int i_depth) {
  double width = 0.0, height = 0.0;
  i_pMarker->GetSize(width, height);
  if (!(width > 0.0) || !(height > 0.0)) return;
  const double scale = i_pMarker->GetUnits() == MM2D::MarkerUnitStrokeWidth ? i_strokeWidth : 1.0;
  if (!(scale > 0.0)) return;
  const double angle = i_pMarker->GetOrientation() == MM2D::MarkerOrientAuto
                           ? i_angle
                           : i_pMarker->GetOrientationAngle() * VYRMathPi / 180.0;
  // The reference point, in the marker's content coordinates, lands on the vertex.
  VYRPrtTransformAttributes viewBox;
  VYRAddViewBoxTransform(i_pMarker->GetViewBoxAttributes(), width, height, viewBox);
  const VYRMathPoint2D reference = MatrixOf(viewBox) * i_pMarker->GetReferencePoint();
  VYRPrtTransformAttributes placement;
  placement.AddTranslation(VYRMathVector2D(i_at.x, i_at.y));
  placement.AddRotation(static_cast<float>(angle));
  placement.AddMatrix(VYRMath2x2Matrix(scale, 0.0, 0.0, scale));
  placement.AddTranslation(VYRMathVector2D(-reference.x, -reference.y));
  // A marker drawn inside itself would multiply without end: the inner uses are left out.
  if (!_inUse.insert(i_pMarker).second) return;
  _drawing.Save(kSaveMatrixAndClip);
  _drawing.AddTransform(VYR3x3Matrix(MatrixOf(placement)));
  // The marker's clip path acts in its viewport, before the viewBox mapping.
  if (ApplyClipPath(i_pMarker)) {
    _drawing.AddTransform(VYR3x3Matrix(MatrixOf(viewBox)));
    DrawChildren(*i_pMarker, i_paint, i_depth + 1);
  }
  _drawing.Restore(-1);
  _inUse.erase(i_pMarker);
}

// ---- Clip paths and masks

namespace {

// Grows a box by another box mapped through a matrix.
void AddMappedBox(double i_xmin, double i_xmax, double i_ymin, double i_ymax, const VYRMath3x3Matrix& i_matrix,
                  bool& io_any, double& io_xmin, double& io_xmax, double& io_ymin, double& io_ymax) {
  VYRHostPath corners;
  corners.MoveTo(VYRMathPoint2D(i_xmin, i_ymin));
  corners.LineTo(VYRMathPoint2D(i_xmax, i_ymin));
  corners.LineTo(VYRMathPoint2D(i_xmax, i_ymax));
  corners.LineTo(VYRMathPoint2D(i_xmin, i_ymax));
  corners.Transform(i_matrix);
  double xmin, xmax, ymin, ymax;
  corners.GetBounds(xmin, xmax, ymin, ymax);
  if (!io_any) {
    io_xmin = xmin, io_xmax = xmax, io_ymin = ymin, io_ymax = ymax;
    io_any = true;
  }
  io_xmin = std::min(io_xmin, xmin);
  io_xmax = std::max(io_xmax, xmax);
  io_ymin = std::min(io_ymin, ymin);
  io_ymax = std::max(io_ymax, ymax);
}

}  // namespace

bool VYRModelRenderer::GetDrawingBounds(VYRPrtModel& i_model, double& o_xmin, double& o_xmax, double& o_ymin,
                                        double& o_ymax) {
  VYRListPtrVYRPrtImageElt* pImages = nullptr;
  i_model.GetImages(pImages);
  bool any = false;
  for (int i = 1; pImages != nullptr && i <= pImages->Size(); ++i) {
    VYRPrtImageElt* pImage = (*pImages)[i];
    double xmin, xmax, ymin, ymax;
    if (pImage == nullptr || !LocalBounds(pImage, xmin, xmax, ymin, ymax, 0)) continue;
    AddMappedBox(xmin, xmax, ymin, ymax, MatrixOf(pImage->GetTransformAttributes()), any, o_xmin, o_xmax, o_ymin,
                 o_ymax);
  }
  return any;
}

bool VYRModelRenderer::LocalBounds(VYRPrtGraphicPrimitiveElt* i_pElt, double& o_xmin, double& o_xmax,
                                   double& o_ymin, double& o_ymax, int i_depth) {
  if (i_pElt == nullptr || i_depth > kMaximumDepth) return false;
  VYRHostPath outline;
  if (outline.BuildFrom(i_pElt)) return outline.GetBounds(o_xmin, o_xmax, o_ymin, o_ymax);
  if (i_pElt->GetStreamType() == kStreamTypeTextElt) {
    return VYRGetTextBounds(*static_cast<VYRPrtTextElt*>(i_pElt), o_xmin, o_xmax, o_ymin, o_ymax);
  }
  auto* pNode = dynamic_cast<VYRPrtNodeTreeElt*>(i_pElt);
  if (pNode == nullptr || (i_depth > 0 && IsDrawnWhereUsed(i_pElt->GetStreamType()))) return false;
  bool any = false;
  const VYRSYPDynArray<VYRPrtGraphicPrimitiveElt*>& children = pNode->GetChildArray();
  for (int i = 0; i < children.GetLength(); ++i) {
    double xmin, xmax, ymin, ymax;
    if (!LocalBounds(children[i], xmin, xmax, ymin, ymax, i_depth + 1)) continue;
    AddMappedBox(xmin, xmax, ymin, ymax, MatrixOf(children[i]->GetTransformAttributes()), any, o_xmin, o_xmax,
                 o_ymin, o_ymax);
  }
  return any;
}

namespace {

// Adds the outlines below an element, each under its transforms, to one path.
void CollectClipOutlines(VYRPrtGraphicPrimitiveElt* i_pElt, const VYRMath3x3Matrix& i_matrix, VYRHostPath& io_path,
                         VYRPrintFillRule& io_rule, int i_depth) {
  if (i_pElt == nullptr || i_depth > kMaximumDepth || i_pElt->GetVisibility() == 0) return;
  const VYRMath3x3Matrix matrix = i_matrix * MatrixOf(i_pElt->GetTransformAttributes());
  VYRHostPath outline;
  if (outline.BuildFrom(i_pElt)) {
    outline.Transform(matrix);
    for (const VYRHostPath::Command& command : outline.GetCommands()) {
      switch (command.verb) {
        case VYRHostPath::eMove: io_path.MoveTo(command.points[0]); break;
        case VYRHostPath::eLine: io_path.LineTo(command.points[0]); break;
        case VYRHostPath::eCubic: io_path.CubicTo(command.points[0], command.points[1], command.points[2]); break;
        case VYRHostPath::eClose: io_path.Close(); break;
      }
    }
    if (auto* pShape = dynamic_cast<VYRPrtBaseShapeElt*>(i_pElt)) {
      if (pShape->GetFillAttributes().GetFillRule() == VYRPrtFillRuleEvenOdd) io_rule = eFillRuleEvenOdd;
    }
    return;
  }
  if (auto* pNode = dynamic_cast<VYRPrtNodeTreeElt*>(i_pElt)) {
    const VYRSYPDynArray<VYRPrtGraphicPrimitiveElt*>& children = pNode->GetChildArray();
    for (int i = 0; i < children.GetLength(); ++i) {
      CollectClipOutlines(children[i], matrix, io_path, io_rule, i_depth + 1);
    }
  }
}

}  // namespace

bool VYRModelRenderer::ClipMatrix(VYRPrtGraphicPrimitiveElt* i_pElt, VYRPrtClipPathElt* i_pClip,
                                  VYRMath3x3Matrix& o_matrix) {
  // The clip path's own transform acts on the box mapping of box units.
  o_matrix = MatrixOf(i_pClip->GetTransformAttributes());
  if (i_pClip->GetUnits() != MM2D::UnitObjectBoundingBox) return true;
  double xmin, xmax, ymin, ymax;
  if (!LocalBounds(i_pElt, xmin, xmax, ymin, ymax, 0)) return false;
  o_matrix = o_matrix * BoxMatrix(xmin, xmax, ymin, ymax);
  return true;
}

bool VYRModelRenderer::NeedsClipLayer(VYRPrtClipPathElt* i_pClip) {
  const VYRSYPDynArray<VYRPrtGraphicPrimitiveElt*>& children = i_pClip->GetChildArray();
  if (i_pClip->GetClipPath() != nullptr || children.GetLength() > 1) return true;
  if (children.GetLength() == 0 || children[0] == nullptr) return false;
  VYRHostPath outline;
  return children[0]->GetClipPath() != nullptr || !outline.BuildFrom(children[0]);
}

void VYRModelRenderer::DrawClipLayer(VYRPrtGraphicPrimitiveElt* i_pElt, VYRPrtClipPathElt* i_pClip,
                                     const Paint& i_paint, int i_depth) {
  _drawing.SetLayerMaskMode(eTransferDestinationIn);
  if (_drawing.SaveLayer() < 0) return;
  VYRMath3x3Matrix matrix;
  // A clip path clipped in turn keeps only what both cover.
  if (ClipMatrix(i_pElt, i_pClip, matrix) && ApplyClipPath(i_pClip)) {
    _drawing.AddTransform(VYR3x3Matrix(matrix));
    Paint paint = i_paint;
    paint.alpha = 1.0;
    paint.clipCoverage = true;
    _inUse.insert(i_pClip);
    DrawChildren(*i_pClip, paint, i_depth + 1);
    _inUse.erase(i_pClip);
  }
  _drawing.Restore(-1);
}

bool VYRModelRenderer::ApplyClipPath(VYRPrtGraphicPrimitiveElt* i_pElt) {
  VYRPrtClipPathElt* pClip = i_pElt->GetClipPath();
  if (pClip == nullptr) return true;
  VYRMath3x3Matrix matrix;
  if (!ClipMatrix(i_pElt, pClip, matrix)) return false;
  VYRHostPath outlines;
  VYRPrintFillRule rule = pClip->GetClipRule() == VYRPrtFillRuleEvenOdd ? eFillRuleEvenOdd : eFillRuleNonZero;
  const VYRSYPDynArray<VYRPrtGraphicPrimitiveElt*>& children = pClip->GetChildArray();
  for (int i = 0; i < children.GetLength(); ++i) CollectClipOutlines(children[i], matrix, outlines, rule, 1);
  if (outlines.IsEmpty()) return false;
  _drawing.SetBuildingClipPath(true);
  _drawing.SetFillRule(rule);
  EmitPath(outlines);
  _drawing.ApplyClip();
  _drawing.SetBuildingClipPath(false);
  return true;
}

bool VYRModelRenderer::EffectArea(VYRPrtGraphicPrimitiveElt* i_pElt, const VYRPrtRegionAttributes& i_region,
                                  MM2D::UnitType i_units, VYR2DGRect& o_area) {
  o_area = VYR2DGRect(static_cast<float>(i_region.GetX()), static_cast<float>(i_region.GetY()),
                      static_cast<float>(i_region.GetWidth()), static_cast<float>(i_region.GetHeight()));
  if (i_units != MM2D::UnitObjectBoundingBox) return true;
  double xmin = 0.0, xmax = 0.0, ymin = 0.0, ymax = 0.0;
  // Without a box, fractions of it mean nothing and the element is not drawn.
  if (!LocalBounds(i_pElt, xmin, xmax, ymin, ymax, 0) || !(xmax > xmin) || !(ymax > ymin)) return false;
  o_area = VYR2DGRect(static_cast<float>(xmin + i_region.GetX() * (xmax - xmin)),
                      static_cast<float>(ymin + i_region.GetY() * (ymax - ymin)),
                      static_cast<float>(i_region.GetWidth() * (xmax - xmin)),
                      static_cast<float>(i_region.GetHeight() * (ymax - ymin)));
  return true;
}

float VYRModelRenderer::DeviceScale() {
  float a, b, c, d, e, f;
  _drawing.GetMatrixTransform(a, b, c, d, e, f);
  return std::sqrt(std::fabs(a * e - b * d));
}

void VYRModelRenderer::DrawMask(VYRPrtGraphicPrimitiveElt* i_pElt, VYRPrtMaskElt* i_pMask, const Paint& i_paint,
                                int i_depth) {
  VYR2DGRect area;
  const bool hasArea = EffectArea(i_pElt, i_pMask->GetRegion(), i_pMask->GetUnits(), area);
  // The mask's luminance, drawn in a layer of its own, keeps what it covers
  // of the content below; outside its area the layer is empty and keeps nothing.
  _drawing.SetLayerMaskMode(eTransferDestinationIn);
  if (_drawing.SaveLayer() < 0) return;
  if (hasArea) {
    _drawing.SetCurrentClipRect(area, eClipIntersect);
    const VYR3x3Matrix elementSpace = _drawing.GetMatrixTransform();
    double xmin = 0.0, xmax = 0.0, ymin = 0.0, ymax = 0.0;
    if (i_pMask->GetContentUnits() == MM2D::UnitObjectBoundingBox &&
        LocalBounds(i_pElt, xmin, xmax, ymin, ymax, 0)) {
      _drawing.AddTransform(VYR3x3Matrix(BoxMatrix(xmin, xmax, ymin, ymax)));
    }
    Paint paint = i_paint;
    paint.alpha = 1.0;
    _inUse.insert(i_pMask);
    DrawChildren(*i_pMask, paint, i_depth + 1);
    // A mask masked in turn: what its own mask keeps of its content is what it keeps.
    VYRPrtMaskElt* pInner = i_pMask->GetMask();
    if (pInner != nullptr && _inUse.count(pInner) == 0) {
      _drawing.SetMatrixTransform(elementSpace);
      DrawMask(i_pElt, pInner, i_paint, i_depth + 1);
    }
    _inUse.erase(i_pMask);
  }
  _drawing.Restore(-1);
}

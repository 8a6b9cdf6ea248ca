#include "VYRModelRenderer.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

#include "VYR2DGSkiaDrawing.h"
#include "VYR2DGSkiaSupport.h"
#include "VYRHostPaintCodes.h"
#include "VYRHostPath.h"
#include "VYRListPtrVYRPrtImageElt.h"
#include "VYRMathConstants.h"
#include "VYRPixelImage.h"
#include "VYRPixelImagePNG.h"
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
#include "VYRPrtPointBasedElt.h"
#include "VYRPrtTextElt.h"
#include "VYRViewBoxMapping.h"

namespace {

// Deeper trees (markers inside markers, say) are not drawn.
constexpr int kMaximumDepth = 256;
// Matrix and clip (the drawing's save flags 1 and 2).
constexpr int kSaveMatrixAndClip = 3;

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
  auto* pSupport = new VYR2DGSkiaSupport(pixelWidth, pixelHeight);
  if (pSupport->GetData(VYR2DGSupport::eMainBitmap) == nullptr) {
    pSupport->Release();
    o_error = "an image of " + std::to_string(pixelWidth) + " x " + std::to_string(pixelHeight) +
              " pixels is too large";
    return nullptr;
  }
  {
    VYR2DGSkiaDrawing drawing(pSupport->GetDrawingContext());
    drawing.SetBlendingMode(eTransferSourceOver);
    VYRModelRenderer renderer(drawing);
    renderer.DrawModel(i_model, VYR3x3Matrix(static_cast<float>(pixelWidth / documentWidth), 0.0f, 0.0f, 0.0f,
                                             static_cast<float>(pixelHeight / documentHeight), 0.0f));
  }
  auto* pImage = new VYRPixelImage(pixelWidth, pixelHeight, VYRPixelImageFormat_BGRA32Premultiplied,
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
  if (ApplyClipPath(i_pElt)) {
    // Group opacity, masks and filters composite the element as a whole in
    // a layer; a lone shape's opacity goes into its paint instead.
    const double opacity = i_pElt->GetOpacity() / 255.0;
    const bool isContainer = dynamic_cast<VYRPrtNodeTreeElt*>(i_pElt) != nullptr;
    const bool needsLayer = i_pElt->GetMask() != nullptr || i_pElt->GetFilter() != nullptr ||
                            (opacity < 1.0 && isContainer);
    Paint paint = i_paint;
    if (needsLayer) {
      if (i_pElt->GetFilter() != nullptr) _drawing.SetLayerFilter(i_pElt->GetFilter(), 1.0f);
      if (opacity < 1.0) _drawing.SetLayerAlpha(static_cast<float>(opacity));
      // A drawing without layers paints the content as it is.
      const bool layered = _drawing.SaveLayer() >= 0;
      DrawContent(i_pElt, paint, i_depth);
      if (layered && i_pElt->GetMask() != nullptr) DrawMask(i_pElt, paint, i_depth);
      if (layered) _drawing.Restore(-1);
    } else {
      paint.alpha *= opacity;
      DrawContent(i_pElt, paint, i_depth);
    }
  }
  _drawing.Restore(-1);
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
  if (const VYRPrtMarkerReferences* pMarkers = MarkersOf(i_pElt)) {
    (void)pMarkers;
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
  const float alpha = static_cast<float>(i_paint.alpha);
  const VYRPrtFillAttributes* pFill = nullptr;
  const VYRPrtStrokeAttributes* pStroke = nullptr;
  if (i_pElt->GetStreamType() == kStreamTypeLineElt) {
    pStroke = &static_cast<VYRPrtLineElt*>(i_pElt)->GetStrokeAttributes();
  } else if (auto* pShape = dynamic_cast<VYRPrtBaseShapeElt*>(i_pElt)) {
    pFill = &pShape->GetFillAttributes();
    pStroke = &pShape->GetStrokeAttributes();
  }
  const int fillStyle = pFill != nullptr ? pFill->GetFillStyle() : kHostFillNone;
  const bool hasFill = fillStyle == kHostFillColor || (fillStyle == kHostFillGradient && pFill->GetGradient());
  const int strokeMode = pStroke != nullptr ? pStroke->GetStrokeMode() : kHostStrokeNone;
  const bool hasStroke = pStroke != nullptr && pStroke->GetStrokeWidth() > 0.0 &&
                         (strokeMode == kHostStrokeColor || (strokeMode == kHostStrokeGradient && pStroke->GetGradient()));
  if (!hasFill && !hasStroke) return;

  EmitPath(outline);
  if (hasFill) {
    _drawing.SetFillRule(pFill->GetFillRule() == VYRPrtFillRuleEvenOdd ? eFillRuleEvenOdd : eFillRuleNonZero);
    const float fillAlpha = alpha * pFill->GetFillOpacity() / 255.0f;
    if (fillStyle == kHostFillGradient) {
      _drawing.SetStrokeMode(eEdgeModeColor);  // so that the gradient goes to the fill
      _drawing.SetGradient(pFill->GetGradient());
      _drawing.SetFillColor(0.0f, 0.0f, 0.0f, fillAlpha);
      _drawing.ApplyFillMode(eFillModeGradient);
    } else {
      unsigned int index = 0;
      pFill->GetFillColourIndex(index);
      float rgb[3];
      Colour(i_paint, index, rgb);
      _drawing.SetFillColor(rgb[0], rgb[1], rgb[2], fillAlpha);
      _drawing.ApplyFillMode(eFillModeColor);
    }
    if (hasStroke) {
      _drawing.DrawFillPreserve();
    } else {
      _drawing.DrawFill();
    }
  }
  if (hasStroke) {
    _drawing.SetStrokeWidth(static_cast<float>(pStroke->GetStrokeWidth()));
    _drawing.SetLineCap(pStroke->GetStrokeCap());
    _drawing.SetLineJoin(pStroke->GetStrokeJoin());
    float* pDashes = nullptr;
    unsigned char dashCount = 0;
    pStroke->GetStrokeTypePattern(pDashes, dashCount);
    _drawing.SetDashStyle(pDashes != nullptr ? dashCount : 0, pDashes);
    const float strokeAlpha = alpha * pStroke->GetStrokeOpacity() / 255.0f;
    if (strokeMode == kHostStrokeGradient) {
      _drawing.SetStrokeMode(eEdgeModeShader);
      _drawing.SetGradient(pStroke->GetGradient());
      _drawing.SetStrokeColor(0.0f, 0.0f, 0.0f, strokeAlpha);
      _drawing.ApplyStrokeMode(eEdgeModeShader);
    } else {
      float rgb[3];
      Colour(i_paint, pStroke->GetStrokeColorIndex(), rgb);
      _drawing.SetStrokeColor(rgb[0], rgb[1], rgb[2], strokeAlpha);
      _drawing.ApplyStrokeMode(eEdgeModeColor);
    }
    _drawing.DrawStroke();
    _drawing.SetDashStyle(0, nullptr);
    _drawing.SetStrokeMode(eEdgeModeColor);
  }
}

void VYRModelRenderer::DrawText(VYRPrtGraphicPrimitiveElt* i_pElt, const Paint& i_paint) {
  auto* pText = static_cast<VYRPrtTextElt*>(i_pElt);
  if (pText->GetText().IsEmpty() || pText->GetPositionCount() < 1) return;
  const VYRPrtTextAttributes& attributes = pText->GetTextAttributes();
  const VYRPrtFillAttributes& fill = pText->GetFillAttributes();
  const VYRPrtStrokeAttributes& stroke = pText->GetStrokeAttributes();
  const bool hasFill = fill.GetFillStyle() == kHostFillColor;
  const bool hasStroke = stroke.GetStrokeMode() == kHostStrokeColor && stroke.GetStrokeWidth() > 0.0;
  if (!hasFill && !hasStroke) return;
  if (!attributes.GetFontFamily().IsEmpty()) _drawing.SetFont(attributes.GetFontFamily());
  _drawing.SetTextHeight(static_cast<float>(attributes.GetHeight()));
  _drawing.SetTextWeight(attributes.GetWeight() >= 600 ? eTextWeightBold : eTextWeightNormal);
  _drawing.SetTextStyleFlags(attributes.GetStyle() == MM2D::FontStyleItalic
                                 ? eTextStyleItalic
                                 : (attributes.GetStyle() == MM2D::FontStyleOblique ? eTextStyleOblique : 0));
  const MM2D::TextAnchor anchor = attributes.GetAnchor();
  _drawing.SetTextAlign(anchor == MM2D::TextAnchorMiddle ? eTextAlignCenter
                                                         : (anchor == MM2D::TextAnchorEnd ? eTextAlignRight
                                                                                          : eTextAlignLeft));
  float rgb[3];
  unsigned int index = 0;
  fill.GetFillColourIndex(index);
  Colour(i_paint, index, rgb);
  _drawing.SetFillColor(rgb[0], rgb[1], rgb[2], static_cast<float>(i_paint.alpha * fill.GetFillOpacity() / 255.0));
  _drawing.SetFillMode(hasFill ? eFillModeColor : eFillModeNone);
  Colour(i_paint, stroke.GetStrokeColorIndex(), rgb);
  _drawing.SetStrokeColor(rgb[0], rgb[1], rgb[2],
                          static_cast<float>(i_paint.alpha * stroke.GetStrokeOpacity() / 255.0));
  _drawing.SetStrokeWidth(static_cast<float>(stroke.GetStrokeWidth()));
  _drawing.SetStrokeMode(hasStroke ? eEdgeModeColor : eEdgeModeNone);
  const VYRMathPoint2D origin = pText->GetPosition(0);
  _drawing.DrawTextW(VYRMathPoint2Df(static_cast<float>(origin.x), static_cast<float>(origin.y)), pText->GetText(),
                     false);
  _drawing.SetFillMode(eFillModeColor);
  _drawing.SetStrokeMode(eEdgeModeColor);
}

void VYRModelRenderer::DrawBitmap(VYRPrtGraphicPrimitiveElt* i_pElt, const Paint& i_paint) {
  auto* pBitmap = static_cast<VYRPrtBitmapImageElt*>(i_pElt);
  VYRMathPoint2D position;
  double width = 0.0, height = 0.0, orientation = 0.0;
  VYRPixelImage* pImage = nullptr;
  pBitmap->GetParameters(position, width, height, orientation, pImage);
  if (pImage == nullptr || pImage->IsEmpty() || !(width > 0.0) || !(height > 0.0)) return;
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
  const double angle = i_pMarker->GetOrientation() == MM2D::MarkerOrientAuto
                           ? i_angle
                           : i_pMarker->GetOrientationAngle() * VYRMathPi / 180.0;
  VYRPrtTransformAttributes transform;
  transform.AddTranslation(VYRMathVector2D(i_at.x, i_at.y));
  transform.AddRotation(static_cast<float>(angle));
  transform.AddMatrix(VYRMath2x2Matrix(scale, 0.0, 0.0, scale));
  VYRPrtTransformAttributes viewBox;
  VYRAddViewBoxTransform(i_pMarker->GetViewBoxAttributes(), width, height, viewBox);
  transform.AddTransformAttributes(viewBox);
  // The reference point, in the marker's content coordinates, lands on the vertex.
  const VYRMathPoint2D& reference = i_pMarker->GetReferencePoint();
  transform.AddTranslation(VYRMathVector2D(-reference.x, -reference.y));
  _drawing.Save(kSaveMatrixAndClip);
  _drawing.AddTransform(VYR3x3Matrix(MatrixOf(transform)));
  DrawChildren(*i_pMarker, i_paint, i_depth + 1);
  _drawing.Restore(-1);
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

bool VYRModelRenderer::ApplyClipPath(VYRPrtGraphicPrimitiveElt* i_pElt) {
  VYRPrtClipPathElt* pClip = i_pElt->GetClipPath();
  if (pClip == nullptr) return true;
  VYRMath3x3Matrix matrix;
  if (pClip->GetUnits() == MM2D::UnitObjectBoundingBox) {
    double xmin, xmax, ymin, ymax;
    if (!LocalBounds(i_pElt, xmin, xmax, ymin, ymax, 0)) return false;
    matrix = BoxMatrix(xmin, xmax, ymin, ymax);
  }
  VYRHostPath outlines;
  VYRPrintFillRule rule = pClip->GetClipRule() == VYRPrtFillRuleEvenOdd ? eFillRuleEvenOdd : eFillRuleNonZero;
  CollectClipOutlines(pClip, matrix, outlines, rule, 0);
  if (outlines.IsEmpty()) return false;
  _drawing.SetBuildingClipPath(true);
  _drawing.SetFillRule(rule);
  EmitPath(outlines);
  _drawing.ApplyClip();
  _drawing.SetBuildingClipPath(false);
  return true;
}

void VYRModelRenderer::DrawMask(VYRPrtGraphicPrimitiveElt* i_pElt, const Paint& i_paint, int i_depth) {
  VYRPrtMaskElt* pMask = i_pElt->GetMask();
  double xmin = 0.0, xmax = 0.0, ymin = 0.0, ymax = 0.0;
  const bool hasBounds = LocalBounds(i_pElt, xmin, xmax, ymin, ymax, 0);
  // The mask's luminance, drawn in a layer of its own, keeps what it covers of the content below.
  _drawing.SetLayerMaskMode(eTransferDestinationIn);
  if (_drawing.SaveLayer() < 0) return;
  const VYRPrtRegionAttributes& region = pMask->GetRegion();
  VYR2DGRect area(static_cast<float>(region.GetX()), static_cast<float>(region.GetY()),
                  static_cast<float>(region.GetWidth()), static_cast<float>(region.GetHeight()));
  if (pMask->GetUnits() == MM2D::UnitObjectBoundingBox && hasBounds) {
    area = VYR2DGRect(static_cast<float>(xmin + region.GetX() * (xmax - xmin)),
                      static_cast<float>(ymin + region.GetY() * (ymax - ymin)),
                      static_cast<float>(region.GetWidth() * (xmax - xmin)),
                      static_cast<float>(region.GetHeight() * (ymax - ymin)));
  }
  _drawing.SetCurrentClipRect(area, eClipIntersect);
  if (pMask->GetContentUnits() == MM2D::UnitObjectBoundingBox && hasBounds) {
    _drawing.AddTransform(VYR3x3Matrix(BoxMatrix(xmin, xmax, ymin, ymax)));
  }
  Paint paint = i_paint;
  paint.alpha = 1.0;
  DrawChildren(*pMask, paint, i_depth + 1);
  _drawing.Restore(-1);
}

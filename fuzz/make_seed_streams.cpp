// Writes valid streams into the fuzz corpora, so that the fuzzers start from
// records of every kind rather than from nothing:
//   make_seed_streams <element corpus dir> <model corpus dir>
#include <cstdio>
#include <string>
#include <vector>

#include "VYR2DGStringStream.h"
#include "VYRPixelImage.h"
#include "VYRPrintGradient.h"
#include "VYRPrintGradientStop.h"
#include "VYRPrtBitmapImageElt.h"
#include "VYRPrtCircleElt.h"
#include "VYRPrtClipPathElt.h"
#include "VYRPrtColourTable.h"
#include "VYRPrtEltFactory.h"
#include "VYRPrtFilterBlendElt.h"
#include "VYRPrtFilterColorMatrixElt.h"
#include "VYRPrtFilterContainerElt.h"
#include "VYRPrtFilterGaussianBlurElt.h"
#include "VYRPrtFilterMergeElt.h"
#include "VYRPrtFilterMergeNodeElt.h"
#include "VYRPrtFilterOffsetElt.h"
#include "VYRPrtGroupElt.h"
#include "VYRPrtImageElt.h"
#include "VYRPrtLinearGradientElt.h"
#include "VYRPrtMarkerElt.h"
#include "VYRPrtMaskElt.h"
#include "VYRPrtModel.h"
#include "VYRPrtPathElt.h"
#include "VYRPrtPathSegArcTo.h"
#include "VYRPrtPathSegClosePath.h"
#include "VYRPrtPathSegCurveToCubic.h"
#include "VYRPrtPathSegLineTo.h"
#include "VYRPrtPathSegMoveTo.h"
#include "VYRPrtPatternElt.h"
#include "VYRPrtPolyPolygonElt.h"
#include "VYRPrtPolylineElt.h"
#include "VYRPrtRadialGradientElt.h"
#include "VYRPrtRectangleElt.h"
#include "VYRPrtStreamUnstreamHelper.h"
#include "VYRPrtTextElt.h"

namespace {

template <class K>
K* Make(const char* i_id) {
  K* pElt = VYRPrtEltFactory::Get().CreateElement<K>();
  pElt->SetID(i_id);
  return pElt;
}

void SetCommonAttributes(VYRPrtGraphicPrimitiveElt& io_elt) {
  io_elt.SetVisibility(0);
  io_elt.SetTitle("title");
  VYRPrtTransformAttributes transform;
  transform.AddTranslation(VYRMathVector2D(3.0, -4.0));
  transform.AddRotation(0.5f);
  io_elt.SetTransformAttributes(transform);
  VYRPrtAdobeAttributes adobe;
  adobe.SetOpacityShare(0.25);
  io_elt.SetAdobeAttributes(adobe);
  io_elt.SetClipPathID("clip");
  io_elt.SetOpacity(77);
}

void SetShapeAttributes(VYRPrtBaseShapeElt& io_shape) {
  SetCommonAttributes(io_shape);
  VYRPrtStrokeAttributes stroke;
  stroke.SetStrokeWidth(2.5);
  const float dashes[] = {1.0f, 2.0f};
  stroke.SetStrokeTypePattern(dashes, 2);
  stroke.SetGradientType(MM2D::GradientLinear);
  io_shape.SetStrokeAttributes(stroke);
  VYRPrtFillAttributes fill;
  fill.SetFillColorIndex(9);
  fill.SetGradientType(MM2D::GradientRadial);
  fill.GetGradient()->AddStop(new VYRPrintGradientStop(0.5f, 1.0f, 0.0f, 0.0f, 1.0f));
  io_shape.SetFillAttributes(fill);
}

std::vector<VYRPrtGraphicPrimitiveElt*> Shapes() {
  VYRSYPDynArray<VYRMathPoint2D> points;
  points.Append(VYRMathPoint2D(1, 2));
  points.Append(VYRMathPoint2D(3, 4));
  auto* circle = Make<VYRPrtCircleElt>("circle");
  SetShapeAttributes(*circle);
  auto* rect = Make<VYRPrtRectangleElt>("rect");
  rect->SetRadius(1, 2);
  auto* path = Make<VYRPrtPathElt>("path");
  SetShapeAttributes(*path);
  path->AddPathSegment(new VYRPrtPathSegMoveTo(MM2D::PathCoordAbsolute, VYRMathPoint2D(1, 1)));
  path->AddPathSegment(new VYRPrtPathSegLineTo(MM2D::PathCoordRelative, VYRMathPoint2D(2, 2)));
  path->AddPathSegment(new VYRPrtPathSegCurveToCubic(MM2D::PathCoordRelative));
  path->AddPathSegment(new VYRPrtPathSegArcTo());
  path->AddPathSegment(new VYRPrtPathSegClosePath());
  auto* polyline = Make<VYRPrtPolylineElt>("polyline");
  polyline->SetPoints(points);
  auto* rings = Make<VYRPrtPolyPolygonElt>("rings");
  rings->AddRing(points);
  auto* text = Make<VYRPrtTextElt>("text");
  text->SetText("text");
  text->SetPositions(points);
  return {circle, rect, path, polyline, rings, text};
}

// A pattern holding paint servers, a marker and a filter chain, referring to a
// clip path, a mask and a filter of its own.
VYRPrtPatternElt* PaintServers() {
  auto* pattern = Make<VYRPrtPatternElt>("pattern");
  auto* linear = Make<VYRPrtLinearGradientElt>("linear");
  linear->AddStop(Make<VYRPrtGradientStopElt>("stop"));
  auto* radial = Make<VYRPrtRadialGradientElt>("radial");
  radial->SetFocus(VYRMathPoint2D(0.1, 0.2));
  auto* marker = Make<VYRPrtMarkerElt>("marker");
  marker->AddChild(Make<VYRPrtMaskElt>("in marker"));
  auto* filter = Make<VYRPrtFilterContainerElt>("filter");
  auto* blur = Make<VYRPrtFilterGaussianBlurElt>("blur");
  VYRPrtFilterColorAttribute colours;
  colours.SetFloodColor(1, 2, 3);
  blur->SetColorAttribute(&colours);
  auto* matrix = Make<VYRPrtFilterColorMatrixElt>("matrix");
  matrix->SetValues("1 2 3");
  auto* merge = Make<VYRPrtFilterMergeElt>("merge");
  merge->AddChild(Make<VYRPrtFilterMergeNodeElt>("node"));
  filter->AddChild(blur);
  filter->AddChild(Make<VYRPrtFilterOffsetElt>("offset"));
  filter->AddChild(matrix);
  filter->AddChild(Make<VYRPrtFilterBlendElt>("blend"));
  filter->AddChild(merge);
  for (VYRPrtGraphicPrimitiveElt* child : std::vector<VYRPrtGraphicPrimitiveElt*>{linear, radial, marker, filter})
    pattern->AddChild(child);
  pattern->SetClipPath(Make<VYRPrtClipPathElt>("clip"));
  pattern->SetMask(Make<VYRPrtMaskElt>("mask"));
  pattern->SetFilter(Make<VYRPrtFilterContainerElt>("referenced filter"));
  return pattern;
}

VYRPrtBitmapImageElt* Bitmap() {
  auto* bitmap = Make<VYRPrtBitmapImageElt>("bitmap");
  auto* pixels = new VYRPixelImage(2, 2, VYRPixelImageFormat_RGBA32);
  bitmap->SetPixelImage(pixels);
  pixels->Release();
  return bitmap;
}

VYRPrtImageElt* Document(std::vector<VYRPrtGraphicPrimitiveElt*>& o_elements) {
  auto* doc = Make<VYRPrtImageElt>("doc");
  SetCommonAttributes(*doc);
  auto* table = new VYRPrtColourTable();
  unsigned int index = 0;
  table->AddColour(1, 2, 3, index);
  doc->SetColorTable(table);
  auto* group = Make<VYRPrtGroupElt>("group");
  VYRPrtGroupAttributes link;
  VYRPrintLinkURI uri;
  uri.SetBaseURL("u");
  link.SetLinkURI(uri);
  group->SetGroupAttributes(link);
  o_elements = Shapes();
  for (VYRPrtGraphicPrimitiveElt* pElt : o_elements) group->AddChild(pElt);
  o_elements.push_back(PaintServers());
  o_elements.push_back(Bitmap());
  doc->AddChild(group);
  doc->AddChild(o_elements[o_elements.size() - 2]);
  doc->AddChild(o_elements.back());
  o_elements.push_back(group);
  o_elements.push_back(doc);
  return doc;
}

bool Save(const std::string& i_path, const VYR2DGStringStream& i_stream) {
  FILE* pFile = std::fopen(i_path.c_str(), "wb");
  if (!pFile) return false;
  const size_t size = static_cast<size_t>(i_stream.GetSize());
  const bool written = std::fwrite(i_stream.GetBuffer(), 1, size, pFile) == size;
  return std::fclose(pFile) == 0 && written;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3) {
    std::fprintf(stderr, "usage: %s <element corpus dir> <model corpus dir>\n", argv[0]);
    return 2;
  }
  const std::string elementDir = argv[1], modelDir = argv[2];
  VYRPrtEltFactory& factory = VYRPrtEltFactory::Get();
  bool saved = true;
  {
    std::vector<VYRPrtGraphicPrimitiveElt*> elements;
    VYRPrtModel model;
    model.AddImage(Document(elements));
    model.AddImage(Make<VYRPrtImageElt>("second"));

    for (size_t i = 0; i < elements.size(); ++i) {
      VYR2DGStringStream stream;
      elements[i]->Stream(&stream);
      saved &= Save(elementDir + "/seed-element-" + std::to_string(i), stream);
    }
    // The attribute readers take a group, fill, stroke and colour table in turn.
    auto* shape = static_cast<VYRPrtBaseShapeElt*>(elements[0]);
    VYRPrtGroupAttributes group = static_cast<VYRPrtGroupElt*>(elements[elements.size() - 2])->GetGroupAttributes();
    VYRPrtFillAttributes fill = shape->GetFillAttributes();
    VYRPrtStrokeAttributes stroke = shape->GetStrokeAttributes();
    VYR2DGStringStream attributes;
    group.Stream(&attributes);
    fill.Stream(&attributes);
    stroke.Stream(&attributes);
    VYRPrtStreamUnstreamHelper::SerializeVYRPrtColourTable(static_cast<VYRPrtImageElt*>(elements.back())->GetColorTable(),
                                                          &attributes);
    saved &= Save(elementDir + "/seed-attributes", attributes);

    VYR2DGStringStream whole;
    model.Stream(&whole);
    saved &= Save(modelDir + "/seed-model", whole);
    VYRPrtModel single;
    single.AddImage(Make<VYRPrtImageElt>("only"));
    VYR2DGStringStream small;
    single.Stream(&small);
    saved &= Save(modelDir + "/seed-model-small", small);
  }
  factory.Release();
  if (!saved) std::fprintf(stderr, "could not write every seed\n");
  return saved ? 0 : 1;
}

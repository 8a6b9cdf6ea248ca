#include "VYRSvgImporter.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <sstream>

#include "VYRHostPaintCodes.h"
#include "VYRHostPath.h"
#include "VYRTextBounds.h"
#include "VYRViewBoxMapping.h"
#include "MMParsingTools.h"
#include "VYRBase64.h"
#include "VYRPixelImage.h"
#include "VYRPixelImagePNG.h"
#include "VYRPrintGradientLinear.h"
#include "VYRPrintGradientRadial.h"
#include "VYRPrtBitmapImageElt.h"
#include "VYRPrtCircleElt.h"
#include "VYRPrtClipPathElt.h"
#include "VYRPrtColourTable.h"
#include "VYRPrtDefsElt.h"
#include "VYRPrtEllipseElt.h"
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
#include "VYRPrtLineElt.h"
#include "VYRPrtLinearGradientElt.h"
#include "VYRPrtMarkerElt.h"
#include "VYRPrtMaskElt.h"
#include "VYRPrtModel.h"
#include "VYRPrtPathElt.h"
#include "VYRPrtPatternElt.h"
#include "VYRPrtPolygonElt.h"
#include "VYRPrtPolylineElt.h"
#include "VYRPrtRadialGradientElt.h"
#include "VYRPrtRectangleElt.h"
#include "VYRPrtSymbolElt.h"
#include "VYRPrtTextElt.h"
#include "VYRSvgPathData.h"

namespace {

template <class K>
K* Create() {
  return VYRPrtEltFactory::Get().CreateElement<K>();
}

std::vector<VYRIDOMElement_var> ChildElements(const VYRIDOMNode_var& i_node) {
  std::vector<VYRIDOMElement_var> children;
  VYRIDOMNode_var child;
  i_node.GetFirstChild(child);
  while (!child.IsNull()) {
    int type = 0;
    child.GetNodeType(type);
    if (type == VYR_DOM_ELEMENT_NODE) children.emplace_back(child);
    VYRIDOMNode_var next;
    child.GetNextSibling(next);
    child = next;
  }
  return children;
}

// The text of text nodes below the node, tspans included, in document order.
void CollectText(const VYRIDOMNode_var& i_node, std::string& io_text, int i_depth) {
  if (i_depth > VYRSvgImporter::kMaximumDepth) return;
  VYRIDOMNode_var child;
  i_node.GetFirstChild(child);
  while (!child.IsNull()) {
    int type = 0;
    child.GetNodeType(type);
    if (type == VYR_DOM_TEXT_NODE || type == VYR_DOM_CDATA_SECTION_NODE) {
      VYRUnicodeString value;
      child.GetNodeValue(value);
      io_text += value.GetStdString();
    } else if (type == VYR_DOM_ELEMENT_NODE) {
      const std::string name = VYRSvgLocalName(child);
      if (name == "tspan" || name == "a") CollectText(child, io_text, i_depth + 1);
    }
    VYRIDOMNode_var next;
    child.GetNextSibling(next);
    child = next;
  }
}

// SVG's default white-space handling: line breaks go, tabs become spaces,
// runs of spaces become one, and the ends are trimmed.
std::string CollapseSpaces(const std::string& i_text) {
  std::string result;
  for (char c : i_text) {
    if (c == '\n' || c == '\r') continue;
    if (c == '\t') c = ' ';
    if (c == ' ' && (result.empty() || result.back() == ' ')) continue;
    result += c;
  }
  while (!result.empty() && result.back() == ' ') result.pop_back();
  return result;
}

unsigned char OpacityByte(double i_opacity) { return static_cast<unsigned char>(i_opacity * 255.0 + 0.5); }

// The language conditional content is chosen for.
constexpr char kUserLanguage[] = "en";

bool IsShapeName(const std::string& i_name) {
  return i_name == "rect" || i_name == "circle" || i_name == "ellipse" || i_name == "line" || i_name == "polyline" ||
         i_name == "polygon" || i_name == "path";
}

bool IsResourceName(const std::string& i_name) {
  return i_name == "linearGradient" || i_name == "radialGradient" || i_name == "pattern" ||
         i_name == "clipPath" || i_name == "mask" || i_name == "marker" || i_name == "filter";
}

MM2D::UnitType Units(const std::string& i_text, MM2D::UnitType i_default) {
  const MM2D::UnitType units = MMParsingTools::StringToUnitType(VYRUnicodeString(i_text));
  return units == MM2D::UnitUnknown ? i_default : units;
}


// Whether a start tag declares the default namespace: "xmlns", then only
// spaces or tabs before "=".
bool DeclaresDefaultNamespace(const std::string& i_tag) {
  for (size_t at = i_tag.find("xmlns"); at != std::string::npos; at = i_tag.find("xmlns", at + 5)) {
    const size_t next = i_tag.find_first_not_of(" \t", at + 5);
    if (next != std::string::npos && i_tag[next] == '=') return true;
  }
  return false;
}

// The parser set-up declares the SVG and XLink namespaces right after the
// first "<svg" of a document, which would cut a root named with a prefix
// ("<svg:svg") in two. Such a root gets the declarations it lacks after its
// name first, and the set-up then has nothing to insert.
std::string DeclareNamespacesOfPrefixedRoot(const std::string& i_text) {
  const size_t start = i_text.find("<svg");
  if (start == std::string::npos || i_text.compare(start + 4, 1, ":") != 0) return i_text;
  const size_t end = i_text.find('>', start);
  if (end == std::string::npos) return i_text;
  const std::string tag = i_text.substr(start, end - start);
  std::string declarations;
  if (tag.find("xmlns:xlink") == std::string::npos) declarations += " xmlns:xlink=\"http://www.w3.org/1999/xlink\"";
  if (!DeclaresDefaultNamespace(tag)) declarations += " xmlns=\"http://www.w3.org/2000/svg\"";
  const size_t nameEnd = i_text.find_first_of(" \t\r\n/>", start);
  return i_text.substr(0, nameEnd) + declarations + i_text.substr(nameEnd);
}
}  // namespace

// ---- Entry points

void VYRSvgImporter::Reset() {
  _messages.clear();
  _succeeded = false;
  _elementCount = 0;
  _domByID.clear();
  _resourceAncestors.clear();
  _resources.clear();
  _inProgress.clear();
  _colourIndexes.clear();
  _styleSheet = VYRSvgStyleSheet();
  _pColours = nullptr;
  _rootContext = Context();
}

VYRPrtModel* VYRSvgImporter::ImportFile(const std::string& i_path) {
  std::ifstream file(i_path, std::ios::binary);
  if (!file) {
    auto* pModel = new VYRPrtModel();
    Reset();
    Report("cannot open " + i_path);
    return pModel;
  }
  std::ostringstream text;
  text << file.rdbuf();
  return ImportBuffer(text.str());
}

VYRPrtModel* VYRSvgImporter::ImportBuffer(const std::string& i_text) {
  // The model first: it keeps the element factory, and with it every element, alive.
  auto* pModel = new VYRPrtModel();
  Reset();
  VYRUnicodeString buffer(DeclareNamespacesOfPrefixedRoot(i_text));
  VYRIDOMElement_var root;
  if (i_text.empty() || !VYRSucceeded(MMParsingTools::BuildParser(buffer, "svg", root)) || root.IsNull()) {
    Report("the document is not well-formed XML");
    return pModel;
  }
  if (VYRSvgLocalName(root) != "svg") {
    Report("the root element is <" + VYRSvgLocalName(root) + ">, not <svg>");
    return pModel;
  }
  std::vector<VYRIDOMElement_var> ancestors;
  IndexIDs(root, ancestors);
  // Style sheets apply wherever they stand, so all are read before any match.
  if (!_styleSheet.IsEmpty()) {
    ancestors.clear();
    _styleSheet.Match(root, ancestors);
    MatchStyleRules(root, ancestors);
  }
  if (VYRPrtImageElt* pImage = ImportRoot(root)) {
    pModel->AddImage(pImage);
    _succeeded = true;
  }
  return pModel;
}

bool VYRSvgImporter::CountElement() {
  if (++_elementCount == kMaximumElementCount) Report("too many elements: the rest of the document is skipped");
  return _elementCount < kMaximumElementCount;
}

void VYRSvgImporter::IndexIDs(const VYRIDOMNode_var& i_node, std::vector<VYRIDOMElement_var>& io_ancestors) {
  if (io_ancestors.size() > kMaximumDepth) return;
  for (const VYRIDOMElement_var& child : ChildElements(i_node)) {
    const std::string id = Attribute(child, "id");
    if (!id.empty() && _domByID.find(id) == _domByID.end()) {
      _domByID[id] = child;
      if (IsResourceName(VYRSvgLocalName(child))) _resourceAncestors[id] = io_ancestors;
    }
    if (VYRSvgLocalName(child) == "style") AddStyleSheet(child);
    io_ancestors.push_back(child);
    IndexIDs(child, io_ancestors);
    io_ancestors.pop_back();
  }
}

void VYRSvgImporter::AddStyleSheet(const VYRIDOMElement_var& i_style) {
  const std::string type = VYRSvgValues::Trim(Attribute(i_style, "type"));
  if (!type.empty() && type != "text/css") return;
  std::string text;
  CollectText(i_style, text, 0);
  _styleSheet.AddRules(text);
}

void VYRSvgImporter::MatchStyleRules(const VYRIDOMElement_var& i_element,
                                     std::vector<VYRIDOMElement_var>& io_ancestors) {
  if (io_ancestors.size() > kMaximumDepth) return;
  io_ancestors.push_back(i_element);
  for (const VYRIDOMElement_var& child : ChildElements(i_element)) {
    _styleSheet.Match(child, io_ancestors);
    MatchStyleRules(child, io_ancestors);
  }
  io_ancestors.pop_back();
}

VYRPrtImageElt* VYRSvgImporter::ImportRoot(const VYRIDOMElement_var& i_root) {
  VYRPrtViewBoxAttributes viewBox;
  ReadViewBox(i_root, viewBox);
  double vbX = 0.0, vbY = 0.0, vbWidth = 0.0, vbHeight = 0.0;
  viewBox.GetViewBox(vbX, vbY, vbWidth, vbHeight);
  // Without a size the viewBox gives it; without either, the usual 300 x 150.
  Context context;
  context.lengths.viewportWidth = viewBox.HasViewBox() ? vbWidth : 300.0;
  context.lengths.viewportHeight = viewBox.HasViewBox() ? vbHeight : 150.0;
  const std::string widthText = Attribute(i_root, "width");
  const std::string heightText = Attribute(i_root, "height");
  double width = context.lengths.viewportWidth;
  double height = context.lengths.viewportHeight;
  if (!widthText.empty() && widthText.back() != '%') width = Length(i_root, "width", context, VYRSvgLengthAxis::eX, width);
  if (!heightText.empty() && heightText.back() != '%') {
    height = Length(i_root, "height", context, VYRSvgLengthAxis::eY, height);
  }
  if (!(width > 0.0) || !(height > 0.0)) {
    Report("the document has no area to draw");
    return nullptr;
  }

  auto* pImage = Create<VYRPrtImageElt>();
  if (!VYR_CHECK_POINTER(pImage)) return nullptr;
  pImage->SetSize(width, height);
  _pColours = new VYRPrtColourTable();
  pImage->SetColorTable(_pColours);
  ColourIndex(VYRSvgColor());  // black at index 0: what a new shape fills with

  context.style.Apply(i_root, _styleSheet, context.lengths, _messages);
  if (viewBox.HasViewBox()) {
    context.lengths.viewportWidth = vbWidth;
    context.lengths.viewportHeight = vbHeight;
  } else {
    context.lengths.viewportWidth = width;
    context.lengths.viewportHeight = height;
  }
  _rootContext = context;
  pImage->SetID(VYRUnicodeString(Attribute(i_root, "id")));
  VYRPrtTransformAttributes transform;
  VYRAddViewBoxTransform(viewBox, width, height, transform);
  pImage->SetTransformAttributes(transform);
  pImage->SetOpacity(OpacityByte(context.style.opacity));
  // A document that is not displayed keeps its size and draws nothing.
  if (!context.style.displayed) return pImage;
  const VYRSvgStyle& style = context.style;
  if (style.clipPathID.empty() && style.maskID.empty() && style.filterID.empty()) {
    ImportChildren(i_root, *pImage, context, 1);
    return pImage;
  }
  // Clipping, masking and filtering of the document itself take in all it draws.
  auto* pContent = Create<VYRPrtGroupElt>();
  if (!VYR_CHECK_POINTER(pContent)) return pImage;
  pImage->AddChild(pContent);
  LinkEffects(style, *pContent);
  ImportChildren(i_root, *pContent, context, 2);
  return pImage;
}

// ---- Elements

void VYRSvgImporter::ImportChildren(const VYRIDOMElement_var& i_element, VYRPrtNodeTreeElt& io_node,
                                    const Context& i_context, int i_depth) {
  for (const VYRIDOMElement_var& child : ChildElements(i_element)) {
    const std::string name = VYRSvgLocalName(child);
    if (name == "title" || name == "desc") {
      VYRUnicodeString text;
      MMParsingTools::GetValue(child, text);
      if (name == "title") {
        io_node.SetTitle(text);
      } else {
        io_node.SetDescription(text);
      }
      continue;
    }
    VYRPrtGraphicPrimitiveElt* pChild = ImportElement(child, i_context, i_depth + 1);
    // A resource read earlier through a reference is placed where the document has it.
    if (pChild != nullptr && pChild->GetFather() == nullptr) io_node.AddChild(pChild);
  }
}

VYRPrtGraphicPrimitiveElt* VYRSvgImporter::ImportElement(const VYRIDOMElement_var& i_element, const Context& i_parent,
                                                         int i_depth) {
  const std::string name = VYRSvgLocalName(i_element);
  if (i_depth > kMaximumDepth) {
    Report("<" + name + "> is nested too deeply and is skipped");
    return nullptr;
  }
  if (!CountElement()) return nullptr;
  if (IsResourceName(name)) {
    const std::string id = Attribute(i_element, "id");
    if (!id.empty()) return Resource(id);
    return ImportResource(name, i_element, i_parent, i_depth);
  }
  // The elements being read, outermost first, so that use can refuse its own ancestors.
  _importing.push_back(i_element.GetIdentity());
  VYRPrtGraphicPrimitiveElt* pElt = ImportOwnElement(name, i_element, i_parent, i_depth);
  _importing.pop_back();
  return pElt;
}

VYRPrtGraphicPrimitiveElt* VYRSvgImporter::ImportOwnElement(const std::string& i_name,
                                                            const VYRIDOMElement_var& i_element,
                                                            const Context& i_parent, int i_depth) {
  // A clip path is made of shapes and text, directly or through use.
  if (i_parent.insideClipPath && !IsShapeName(i_name) && i_name != "text" && i_name != "use") {
    Report("<" + i_name + "> cannot shape a clip path");
    return nullptr;
  }
  Context context;
  context.style = i_parent.style.Inherited();
  context.lengths = i_parent.lengths;
  context.insideClipPath = i_parent.insideClipPath;
  context.style.Apply(i_element, _styleSheet, context.lengths, _messages);
  if (!context.style.displayed) return nullptr;

  VYRPrtGraphicPrimitiveElt* pElt = nullptr;
  if (i_name == "g" || i_name == "a" || i_name == "switch") {
    auto* pGroup = Create<VYRPrtGroupElt>();
    if (!VYR_CHECK_POINTER(pGroup)) return nullptr;
    if (i_name == "switch") {
      // The first child whose conditions hold stands for the switch, even
      // when it draws nothing.
      for (const VYRIDOMElement_var& child : ChildElements(i_element)) {
        if (!MeetsConditions(child)) continue;
        VYRPrtGraphicPrimitiveElt* pChild = ImportElement(child, context, i_depth + 1);
        if (pChild != nullptr && pChild->GetFather() == nullptr) pGroup->AddChild(pChild);
        break;
      }
    } else {
      ImportChildren(i_element, *pGroup, context, i_depth);
    }
    pElt = pGroup;
  } else if (i_name == "defs") {
    auto* pDefs = Create<VYRPrtDefsElt>();
    if (!VYR_CHECK_POINTER(pDefs)) return nullptr;
    ImportChildren(i_element, *pDefs, context, i_depth);
    pElt = pDefs;
  } else if (i_name == "svg") {
    const double width = Length(i_element, "width", context, VYRSvgLengthAxis::eX, context.lengths.viewportWidth);
    const double height = Length(i_element, "height", context, VYRSvgLengthAxis::eY, context.lengths.viewportHeight);
    pElt = ImportViewport(i_element, context, i_depth, width, height);
    if (pElt != nullptr) ApplyViewportCommon(i_element, context, *pElt);
    return pElt;
  } else if (i_name == "symbol") {
    // Drawn only through use; kept under its parent for completeness.
    auto* pSymbol = Create<VYRPrtSymbolElt>();
    if (!VYR_CHECK_POINTER(pSymbol)) return nullptr;
    VYRPrtViewBoxAttributes viewBox;
    ReadViewBox(i_element, viewBox);
    pSymbol->SetViewBoxAttributes(viewBox);
    pSymbol->SetID(VYRUnicodeString(Attribute(i_element, "id")));
    return pSymbol;
  } else if (i_name == "use") {
    pElt = ImportUse(i_element, context, i_depth);
  } else if (i_name == "text") {
    pElt = ImportText(i_element, context);
  } else if (i_name == "image") {
    pElt = ImportBitmap(i_element, context);
  } else if (IsShapeName(i_name)) {
    pElt = ImportShape(i_name, i_element, context);
  } else {
    if (i_name != "metadata" && i_name != "style" && i_name != "script") Report("<" + i_name + "> is not supported");
    return nullptr;
  }
  if (pElt == nullptr) return nullptr;
  ApplyCommon(i_element, context, *pElt);
  // Containers paint nothing themselves: their visibility is that of each child.
  if (pElt->GetStreamType() == kStreamTypeGroupElt || pElt->GetStreamType() == kStreamTypeDefsElt) {
    pElt->SetVisibility(1);
  }
  return pElt;
}

VYRPrtGraphicPrimitiveElt* VYRSvgImporter::ImportViewport(const VYRIDOMElement_var& i_element,
                                                          const Context& i_context, int i_depth, double i_width,
                                                          double i_height) {
  if (!(i_width > 0.0) || !(i_height > 0.0)) return nullptr;
  // The outer group takes the element's own attributes; the middle one hides
  // what lies beyond the viewport; the inner one maps the viewBox.
  auto* pOuter = Create<VYRPrtGroupElt>();
  auto* pViewport = Create<VYRPrtGroupElt>();
  auto* pGroup = Create<VYRPrtGroupElt>();
  if (!VYR_CHECK_POINTER(pOuter) || !VYR_CHECK_POINTER(pViewport) || !VYR_CHECK_POINTER(pGroup)) return nullptr;
  if (HidesOverflow(i_element)) pViewport->SetClipPath(RectangleClip(0.0, 0.0, i_width, i_height));
  pOuter->AddChild(pViewport);
  pViewport->AddChild(pGroup);
  VYRPrtViewBoxAttributes viewBox;
  ReadViewBox(i_element, viewBox);
  VYRPrtTransformAttributes transform;
  VYRAddViewBoxTransform(viewBox, i_width, i_height, transform);
  pGroup->SetTransformAttributes(transform);
  Context context = i_context;
  double x = 0.0, y = 0.0;
  context.lengths.viewportWidth = i_width;
  context.lengths.viewportHeight = i_height;
  if (viewBox.HasViewBox()) viewBox.GetViewBox(x, y, context.lengths.viewportWidth, context.lengths.viewportHeight);
  ImportChildren(i_element, *pGroup, context, i_depth);
  return pOuter;
}

bool VYRSvgImporter::HidesOverflow(const VYRIDOMElement_var& i_element) const {
  // Hidden and scroll clip; an inherited value is taken as the initial one, visible.
  const std::string overflow = Attribute(i_element, "overflow");
  return overflow != "visible" && overflow != "auto" && overflow != "inherit";
}

VYRPrtClipPathElt* VYRSvgImporter::RectangleClip(double i_x, double i_y, double i_width, double i_height) {
  auto* pClip = Create<VYRPrtClipPathElt>();
  auto* pArea = Create<VYRPrtRectangleElt>();
  if (!VYR_CHECK_POINTER(pClip) || !VYR_CHECK_POINTER(pArea)) return nullptr;
  pArea->SetPoints(VYRMathPoint2D(i_x, i_y), VYRMathPoint2D(i_x + i_width, i_y + i_height));
  pClip->AddChild(pArea);
  return pClip;
}

VYRPrtGraphicPrimitiveElt* VYRSvgImporter::ImportUse(const VYRIDOMElement_var& i_element, const Context& i_context,
                                                     int i_depth) {
  const std::string id = HrefID(i_element);
  auto found = _domByID.find(id);
  if (id.empty() || found == _domByID.end()) {
    Report("<use> refers to a missing element \"" + id + "\"");
    return nullptr;
  }
  if (_inProgress.count("use:" + id) != 0) {
    Report("<use> of \"" + id + "\" refers to itself");
    return nullptr;
  }
  const VYRIDOMElement_var& target = found->second;
  if (std::find(_importing.begin(), _importing.end(), target.GetIdentity()) != _importing.end()) {
    Report("<use> of \"" + id + "\" lies inside what it uses");
    return nullptr;
  }
  _inProgress.insert("use:" + id);
  VYRPrtGraphicPrimitiveElt* pContent = nullptr;
  if (i_context.insideClipPath && (VYRSvgLocalName(target) == "symbol" || VYRSvgLocalName(target) == "svg")) {
    Report("<" + VYRSvgLocalName(target) + "> cannot shape a clip path");
  } else if (VYRSvgLocalName(target) == "symbol" || VYRSvgLocalName(target) == "svg") {
    Context context = i_context;
    context.style = i_context.style.Inherited();
    context.style.Apply(target, _styleSheet, context.lengths, _messages);
    const double width = Length(i_element, "width", i_context, VYRSvgLengthAxis::eX,
                                Length(target, "width", i_context, VYRSvgLengthAxis::eX, i_context.lengths.viewportWidth));
    const double height = Length(i_element, "height", i_context, VYRSvgLengthAxis::eY,
                                 Length(target, "height", i_context, VYRSvgLengthAxis::eY,
                                        i_context.lengths.viewportHeight));
    if (context.style.displayed) pContent = ImportViewport(target, context, i_depth, width, height);
    if (pContent != nullptr) ApplyViewportCommon(target, context, *pContent);
  } else {
    pContent = ImportElement(target, i_context, i_depth + 1);
    // A resource is not drawn where it is used.
    if (pContent != nullptr && IsResourceName(VYRSvgLocalName(target))) pContent = nullptr;
  }
  _inProgress.erase("use:" + id);
  auto* pGroup = Create<VYRPrtGroupElt>();
  if (!VYR_CHECK_POINTER(pGroup)) return nullptr;
  if (pContent != nullptr) pGroup->AddChild(pContent);
  return pGroup;
}

void VYRSvgImporter::ApplyViewportCommon(const VYRIDOMElement_var& i_element, const Context& i_context,
                                         VYRPrtGraphicPrimitiveElt& io_outer) {
  ApplyCommon(i_element, i_context, io_outer);
  VYRPrtTransformAttributes transform;
  // A symbol takes no transform; it is placed by the use.
  if (VYRSvgLocalName(i_element) != "svg") {
    io_outer.SetTransformAttributes(transform);
    return;
  }
  transform = io_outer.GetTransformAttributes();
  transform.AddTranslation(VYRMathVector2D(Length(i_element, "x", i_context, VYRSvgLengthAxis::eX, 0.0),
                                           Length(i_element, "y", i_context, VYRSvgLengthAxis::eY, 0.0)));
  io_outer.SetTransformAttributes(transform);
}

void VYRSvgImporter::ApplyCommon(const VYRIDOMElement_var& i_element, const Context& i_context,
                                 VYRPrtGraphicPrimitiveElt& io_elt) {
  io_elt.SetID(VYRUnicodeString(Attribute(i_element, "id")));
  VYRPrtTransformAttributes transform = TransformAttribute(i_element, "transform");
  // A use element's position comes after its transform.
  if (VYRSvgLocalName(i_element) == "use") {
    transform.AddTranslation(VYRMathVector2D(Length(i_element, "x", i_context, VYRSvgLengthAxis::eX, 0.0),
                                             Length(i_element, "y", i_context, VYRSvgLengthAxis::eY, 0.0)));
  }
  io_elt.SetTransformAttributes(transform);
  io_elt.SetVisibility(i_context.style.visible ? 1 : 0);
  io_elt.SetOpacity(OpacityByte(i_context.style.opacity));
  LinkEffects(i_context.style, io_elt);
}

void VYRSvgImporter::LinkEffects(const VYRSvgStyle& i_style, VYRPrtGraphicPrimitiveElt& io_elt) {
  LinkClipPath(i_style, io_elt);
  LinkMask(i_style, io_elt);
  if (!i_style.filterID.empty()) {
    io_elt.SetFilterID(VYRUnicodeString(i_style.filterID));
    auto* pFilter = ResourceOfKind<VYRPrtFilterContainerElt>(i_style.filterID, kStreamTypeFilterContainerElt, "filter");
    if (pFilter != nullptr) {
      io_elt.SetFilter(pFilter);
    } else {
      io_elt.SetVisibility(0);  // drawn unfiltered it would show what the filter was to change
    }
  }
}

template <class K>
K* VYRSvgImporter::ResourceOfKind(const std::string& i_id, StreamType i_kind, const char* i_what) {
  VYRPrtGraphicPrimitiveElt* pResource = Resource(i_id);
  if (pResource != nullptr && pResource->GetStreamType() == i_kind) return static_cast<K*>(pResource);
  Report("missing " + std::string(i_what) + " \"" + i_id + "\"");
  return nullptr;
}

void VYRSvgImporter::LinkMask(const VYRSvgStyle& i_style, VYRPrtGraphicPrimitiveElt& io_elt) {
  if (i_style.maskID.empty()) return;
  io_elt.SetMaskID(VYRUnicodeString(i_style.maskID));
  if (auto* pMask = ResourceOfKind<VYRPrtMaskElt>(i_style.maskID, kStreamTypeMaskElt, "mask")) io_elt.SetMask(pMask);
}

void VYRSvgImporter::LinkClipPath(const VYRSvgStyle& i_style, VYRPrtGraphicPrimitiveElt& io_elt) {
  if (i_style.clipPathID.empty()) return;
  io_elt.SetClipPathID(VYRUnicodeString(i_style.clipPathID));
  auto* pClip = ResourceOfKind<VYRPrtClipPathElt>(i_style.clipPathID, kStreamTypeClipPathElt, "clip path");
  if (pClip != nullptr) io_elt.SetClipPath(pClip);
}

VYRPrtGraphicPrimitiveElt* VYRSvgImporter::ImportShape(const std::string& i_name, const VYRIDOMElement_var& i_element,
                                                       const Context& i_context) {
  const auto X = VYRSvgLengthAxis::eX;
  const auto Y = VYRSvgLengthAxis::eY;
  VYRPrtGraphicPrimitiveElt* pShape = nullptr;
  if (i_name == "rect") {
    const double x = Length(i_element, "x", i_context, X, 0.0);
    const double y = Length(i_element, "y", i_context, Y, 0.0);
    const double width = Length(i_element, "width", i_context, X, 0.0);
    const double height = Length(i_element, "height", i_context, Y, 0.0);
    if (!(width > 0.0) || !(height > 0.0)) return nullptr;
    double rx = Length(i_element, "rx", i_context, X, -1.0);
    double ry = Length(i_element, "ry", i_context, Y, -1.0);
    if (rx < 0.0) rx = ry;
    if (ry < 0.0) ry = rx;
    auto* pRect = Create<VYRPrtRectangleElt>();
    if (!VYR_CHECK_POINTER(pRect)) return nullptr;
    pRect->SetPoints(VYRMathPoint2D(x, y), VYRMathPoint2D(x + width, y + height));
    pRect->SetRadius(std::fmin(std::fmax(rx, 0.0), width / 2.0), std::fmin(std::fmax(ry, 0.0), height / 2.0));
    pShape = pRect;
  } else if (i_name == "circle") {
    const double r = Length(i_element, "r", i_context, VYRSvgLengthAxis::eOther, 0.0);
    if (!(r > 0.0)) return nullptr;
    auto* pCircle = Create<VYRPrtCircleElt>();
    if (!VYR_CHECK_POINTER(pCircle)) return nullptr;
    pCircle->SetParameters(
        VYRMathPoint2D(Length(i_element, "cx", i_context, X, 0.0), Length(i_element, "cy", i_context, Y, 0.0)), r);
    pShape = pCircle;
  } else if (i_name == "ellipse") {
    const double rx = Length(i_element, "rx", i_context, X, 0.0);
    const double ry = Length(i_element, "ry", i_context, Y, 0.0);
    if (!(rx > 0.0) || !(ry > 0.0)) return nullptr;
    auto* pEllipse = Create<VYRPrtEllipseElt>();
    if (!VYR_CHECK_POINTER(pEllipse)) return nullptr;
    pEllipse->SetParameters(
        VYRMathPoint2D(Length(i_element, "cx", i_context, X, 0.0), Length(i_element, "cy", i_context, Y, 0.0)), rx,
        ry, 0.0);
    pShape = pEllipse;
  } else if (i_name == "line") {
    auto* pLine = Create<VYRPrtLineElt>();
    if (!VYR_CHECK_POINTER(pLine)) return nullptr;
    pLine->SetPoints(
        VYRMathPoint2D(Length(i_element, "x1", i_context, X, 0.0), Length(i_element, "y1", i_context, Y, 0.0)),
        VYRMathPoint2D(Length(i_element, "x2", i_context, X, 0.0), Length(i_element, "y2", i_context, Y, 0.0)));
    pShape = pLine;
  } else if (i_name == "polyline" || i_name == "polygon") {
    VYRSYPDynArray<VYRMathPoint2D> points;
    const std::string text = Attribute(i_element, "points");
    const char* pCursor = text.c_str();
    if (!MMParsingTools::ParseSVGPointList(pCursor, pCursor + text.size(), points, MM2D::PathCoordAbsolute, false,
                                           0.0)) {
      Report("<" + i_name + "> points are read up to an error");
    }
    if (points.GetLength() < 2) return nullptr;
    VYRPrtPointListElt* pList = nullptr;
    if (i_name == "polygon") {
      pList = Create<VYRPrtPolygonElt>();
    } else {
      pList = Create<VYRPrtPolylineElt>();
    }
    if (!VYR_CHECK_POINTER(pList)) return nullptr;
    pList->SetPoints(points);
    pShape = pList;
  } else {
    auto* pPath = Create<VYRPrtPathElt>();
    if (!VYR_CHECK_POINTER(pPath)) return nullptr;
    if (!VYRSvgPathData::Parse(Attribute(i_element, "d"), *pPath)) Report("<path> data is read up to an error");
    if (pPath->GetPathSegments().GetLength() == 0) return nullptr;
    pShape = pPath;
  }
  ApplyPaint(i_context, *pShape);
  return pShape;
}

VYRPrtGraphicPrimitiveElt* VYRSvgImporter::ImportText(const VYRIDOMElement_var& i_element, const Context& i_context) {
  std::string text;
  CollectText(i_element, text, 0);
  text = CollapseSpaces(text);
  if (text.empty()) return nullptr;
  auto* pText = Create<VYRPrtTextElt>();
  if (!VYR_CHECK_POINTER(pText)) return nullptr;
  pText->SetText(VYRUnicodeString(text));
  // The first of SVG's x and y lists places the text.
  std::vector<double> xs, ys;
  VYRSvgValues::ParseNumbers(Attribute(i_element, "x"), xs);
  VYRSvgValues::ParseNumbers(Attribute(i_element, "y"), ys);
  pText->AddPosition(VYRMathPoint2D(xs.empty() ? 0.0 : xs[0], ys.empty() ? 0.0 : ys[0]));
  pText->SetTextAttributes(i_context.style.text);
  ApplyPaint(i_context, *pText);
  return pText;
}

VYRPrtGraphicPrimitiveElt* VYRSvgImporter::ImportBitmap(const VYRIDOMElement_var& i_element,
                                                        const Context& i_context) {
  const double width = Length(i_element, "width", i_context, VYRSvgLengthAxis::eX, 0.0);
  const double height = Length(i_element, "height", i_context, VYRSvgLengthAxis::eY, 0.0);
  std::string href = Attribute(i_element, "href");
  if (href.empty()) href = Attribute(i_element, "xlink:href");
  const size_t comma = href.find(',');
  if (href.compare(0, 5, "data:") != 0 || comma == std::string::npos ||
      href.substr(0, comma).find(";base64") == std::string::npos) {
    Report("<image> without embedded base64 data is not supported");
    return nullptr;
  }
  std::string data;
  for (char c : href.substr(comma + 1)) {
    if (!MMParsingTools::IsSVGSpace(c)) data += c;
  }
  while (data.size() % 4 != 0) data += '=';
  unsigned int length = 0;
  unsigned char* pBytes = VYRBase64::Decode(data.c_str(), static_cast<unsigned int>(data.size()), length);
  VYRPixelImage* pImage =
      pBytes != nullptr ? ReadMemoryPNGPixelImage(pBytes, static_cast<int>(length), VYRPNGRead_Premultiplied) : nullptr;
  delete[] pBytes;
  if (pImage == nullptr) {
    Report("<image> data is not a readable PNG");
    return nullptr;
  }
  const double x = Length(i_element, "x", i_context, VYRSvgLengthAxis::eX, 0.0);
  const double y = Length(i_element, "y", i_context, VYRSvgLengthAxis::eY, 0.0);
  // A missing side follows from the other and the image's proportions, or is
  // the image's own; the image is fitted into the area as preserveAspectRatio asks.
  const double imageWidth = pImage->GetWidth(), imageHeight = pImage->GetHeight();
  const double areaWidth = width > 0.0 ? width : (height > 0.0 ? height * imageWidth / imageHeight : imageWidth);
  const double areaHeight = height > 0.0 ? height : (width > 0.0 ? width * imageHeight / imageWidth : imageHeight);
  VYRPrtViewBoxAttributes fit;
  fit.SetViewBox(0.0, 0.0, pImage->GetWidth(), pImage->GetHeight());
  const std::string aspect = Attribute(i_element, "preserveAspectRatio");
  if (!aspect.empty() && !VYRSvgValues::ParsePreserveAspectRatio(aspect, fit)) {
    Report("ignored preserveAspectRatio \"" + aspect + "\"");
  }
  VYRPrtTransformAttributes fitting;
  VYRAddViewBoxTransform(fit, areaWidth, areaHeight, fitting);
  VYRMath3x3Matrix matrix;
  fitting.GetTransformationMatrix(matrix);
  double m[9];
  matrix.GetCoef(m[0], m[1], m[2], m[3], m[4], m[5], m[6], m[7], m[8]);
  auto* pBitmap = Create<VYRPrtBitmapImageElt>();
  if (!VYR_CHECK_POINTER(pBitmap)) {
    pImage->Release();
    return nullptr;
  }
  const double fittedWidth = pImage->GetWidth() * m[0], fittedHeight = pImage->GetHeight() * m[4];
  pBitmap->SetParameters(VYRMathPoint2D(x + m[2], y + m[5]), fittedWidth, fittedHeight, 0.0, pImage);
  pImage->Release();
  const bool overflows = m[2] < -1e-9 || m[5] < -1e-9 || m[2] + fittedWidth > areaWidth + 1e-9 ||
                         m[5] + fittedHeight > areaHeight + 1e-9;
  if (!overflows) return pBitmap;
  // A sliced image is cut to its area by a clip path of its own.
  auto* pGroup = Create<VYRPrtGroupElt>();
  if (!VYR_CHECK_POINTER(pGroup)) return pBitmap;
  pGroup->SetClipPath(RectangleClip(x, y, areaWidth, areaHeight));
  pGroup->AddChild(pBitmap);
  return pGroup;
}

// ---- Paint

unsigned int VYRSvgImporter::ColourIndex(const VYRSvgColor& i_color) {
  const unsigned int key = (i_color.red << 16) | (i_color.green << 8) | i_color.blue;
  auto found = _colourIndexes.find(key);
  if (found != _colourIndexes.end()) return found->second;
  unsigned int index = 0;
  if (_pColours == nullptr || _pColours->AddColour(i_color.red, i_color.green, i_color.blue, index) != 1) return 0;
  _colourIndexes[key] = index;
  return index;
}

bool VYRSvgImporter::BoxWithArea(VYRPrtGraphicPrimitiveElt& i_shape, double& o_xmin, double& o_xmax, double& o_ymin,
                                 double& o_ymax) {
  if (i_shape.GetStreamType() == kStreamTypeTextElt) {
    if (!VYRGetTextBounds(static_cast<const VYRPrtTextElt&>(i_shape), o_xmin, o_xmax, o_ymin, o_ymax)) return false;
  } else {
    VYRHostPath outline;
    if (!outline.BuildFrom(&i_shape) || !outline.GetBounds(o_xmin, o_xmax, o_ymin, o_ymax)) return false;
  }
  return o_xmax > o_xmin && o_ymax > o_ymin;
}

bool VYRSvgImporter::PatternApplies(VYRPrtGraphicPrimitiveElt* i_pServer, VYRPrtGraphicPrimitiveElt& i_shape) {
  if (i_pServer == nullptr || i_pServer->GetStreamType() != kStreamTypePatternElt) return false;
  if (static_cast<VYRPrtPatternElt*>(i_pServer)->GetUnits() != MM2D::UnitObjectBoundingBox) return true;
  double xmin = 0.0, xmax = 0.0, ymin = 0.0, ymax = 0.0;
  return BoxWithArea(i_shape, xmin, xmax, ymin, ymax);
}

template <class Attributes>
bool VYRSvgImporter::SetGradient(VYRPrtGraphicPrimitiveElt* i_pServer, VYRPrtGraphicPrimitiveElt& i_shape,
                                 Attributes& io_attributes) {
  auto* pGradient = static_cast<VYRPrtBaseGradientElt*>(i_pServer);
  if (pGradient->GetStopCount() == 0) return false;
  VYRPrintGradient* pRecord = nullptr;
  if (pGradient->GetUnits() == MM2D::UnitObjectBoundingBox) {
    double xmin = 0.0, xmax = 0.0, ymin = 0.0, ymax = 0.0;
    if (!BoxWithArea(i_shape, xmin, xmax, ymin, ymax)) return false;
    pRecord = pGradient->CreatePrintGradient(xmin, xmax, ymin, ymax);
  } else {
    pRecord = pGradient->CreatePrintGradient();
  }
  if (pRecord == nullptr) return false;
  if (i_pServer->GetStreamType() == kStreamTypeLinearGradientElt) {
    io_attributes.SetGradientType(MM2D::GradientLinear);
    *static_cast<VYRPrintGradientLinear*>(io_attributes.GetGradient()) = *static_cast<VYRPrintGradientLinear*>(pRecord);
  } else {
    io_attributes.SetGradientType(MM2D::GradientRadial);
    *static_cast<VYRPrintGradientRadial*>(io_attributes.GetGradient()) = *static_cast<VYRPrintGradientRadial*>(pRecord);
  }
  pRecord->Release();
  return io_attributes.GetGradient() != nullptr;
}

namespace {

// The colour a paint stands for when it is no server: its own, the current
// colour, or for a server, its fallback. False for none.
bool PaintColor(const VYRSvgPaint& i_paint, VYRSvgPaint::Kind i_kind, const VYRSvgColor& i_color,
                const VYRSvgStyle& i_style, VYRSvgColor& o_color) {
  if (i_kind == VYRSvgPaint::eColor) {
    o_color = i_color;
    return true;
  }
  if (i_kind == VYRSvgPaint::eCurrentColor) {
    o_color = i_style.color;
    return true;
  }
  (void)i_paint;
  return false;
}

// The dash lengths that start i_offset into the pattern, for drawings whose
// dashes always start at the path's beginning: the entry the offset falls in
// is split, and a start inside a gap gets an empty dash before it.
std::vector<double> ShiftedDashes(const std::vector<double>& i_dashes, double i_offset) {
  std::vector<double> pattern = i_dashes;
  // An odd list repeats to make dash and gap pairs.
  if (pattern.size() % 2 == 1) pattern.insert(pattern.end(), i_dashes.begin(), i_dashes.end());
  double total = 0.0;
  for (double length : pattern) total += length;
  if (pattern.empty() || !(total > 0.0) || i_offset == 0.0) return pattern;
  double offset = std::fmod(i_offset, total);
  if (offset < 0.0) offset += total;
  size_t entry = 0;
  while (entry + 1 < pattern.size() && offset >= pattern[entry]) offset -= pattern[entry++];
  const bool inGap = entry % 2 == 1;
  std::vector<double> shifted;
  if (inGap) shifted.push_back(0.0);
  shifted.push_back(pattern[entry] - offset);
  shifted.insert(shifted.end(), pattern.begin() + static_cast<long>(entry) + 1, pattern.end());
  shifted.insert(shifted.end(), pattern.begin(), pattern.begin() + static_cast<long>(entry));
  shifted.push_back(offset);
  // A dash split in two ends on its first part: an empty gap joins the parts.
  if (!inGap) shifted.push_back(0.0);
  return shifted;
}

// A gradient with stops: one without any is no paint server, and the fallback paints instead.
bool IsGradient(VYRPrtGraphicPrimitiveElt* i_pElt) {
  return i_pElt != nullptr &&
         (i_pElt->GetStreamType() == kStreamTypeLinearGradientElt ||
          i_pElt->GetStreamType() == kStreamTypeRadialGradientElt) &&
         static_cast<VYRPrtBaseGradientElt*>(i_pElt)->GetStopCount() > 0;
}

}  // namespace

VYRPrtFillAttributes VYRSvgImporter::MakeFill(const Context& i_context, VYRPrtGraphicPrimitiveElt& i_shape) {
  const VYRSvgStyle& style = i_context.style;
  VYRPrtFillAttributes fill;
  fill.SetFillRule(i_context.insideClipPath ? style.clipRule : style.fillRule);
  fill.SetFillOpacity(OpacityByte(style.fillOpacity));
  const VYRSvgPaint& paint = style.fill;
  VYRSvgColor color;
  if (paint.kind == VYRSvgPaint::eServer) {
    // A server that cannot paint the shape (bounding-box units on a box
    // without area, say) gives way to the fallback, as a missing one does.
    VYRPrtGraphicPrimitiveElt* pServer = Resource(paint.serverID);
    if (IsGradient(pServer)) {
      if (SetGradient(pServer, i_shape, fill)) {
        fill.SetFillStyle(static_cast<VYRPrtFillStyle>(kHostFillGradient));
        return fill;
      }
    } else if (pServer != nullptr && pServer->GetStreamType() == kStreamTypePatternElt) {
      if (PatternApplies(pServer, i_shape)) {
        i_shape.SetPattern(static_cast<VYRPrtPatternElt*>(pServer));
        fill.SetFillStyle(static_cast<VYRPrtFillStyle>(kHostFillPattern));
        return fill;
      }
    } else {
      Report("missing paint server \"" + paint.serverID + "\"");
    }
    if (PaintColor(paint, paint.fallbackKind, paint.fallbackColor, style, color)) {
      fill.SetFillColorIndex(ColourIndex(color));
      return fill;
    }
    fill.SetFillStyle(static_cast<VYRPrtFillStyle>(kHostFillNone));
    return fill;
  }
  if (PaintColor(paint, paint.kind, paint.color, style, color)) {
    fill.SetFillColorIndex(ColourIndex(color));
  } else {
    fill.SetFillStyle(static_cast<VYRPrtFillStyle>(kHostFillNone));
  }
  return fill;
}

VYRPrtStrokeAttributes VYRSvgImporter::MakeStroke(const Context& i_context, VYRPrtGraphicPrimitiveElt& i_shape) {
  const VYRSvgStyle& style = i_context.style;
  VYRPrtStrokeAttributes stroke;
  if (i_context.insideClipPath) return stroke;  // no stroke
  if (style.strokeWidth <= 0.0) {
    stroke.SetStrokeWidth(0.0);  // no stroke, and markers sized by it come out at no size
    return stroke;
  }
  stroke.SetStrokeWidth(style.strokeWidth);
  stroke.SetStrokeOpacity(OpacityByte(style.strokeOpacity));
  stroke.SetStrokeCap(style.lineCap);
  stroke.SetStrokeJoin(style.lineJoin);
  const std::vector<double> pattern = ShiftedDashes(style.dashes, style.dashOffset);
  if (!pattern.empty() && pattern.size() < 128) {
    std::vector<float> dashes(pattern.begin(), pattern.end());
    stroke.SetStrokeTypePattern(dashes.data(), static_cast<unsigned char>(dashes.size()));
  }
  const VYRSvgPaint& paint = style.stroke;
  VYRSvgColor color;
  if (paint.kind == VYRSvgPaint::eServer) {
    VYRPrtGraphicPrimitiveElt* pServer = Resource(paint.serverID);
    if (IsGradient(pServer)) {
      if (SetGradient(pServer, i_shape, stroke)) {
        stroke.SetStrokeMode(static_cast<VYRPrtStrokeMode>(kHostStrokeGradient));
        return stroke;
      }
    } else if (pServer != nullptr && pServer->GetStreamType() == kStreamTypePatternElt) {
      // An element holds one pattern: a stroke can use it unless the fill uses another.
      if (i_shape.GetPattern() != nullptr && i_shape.GetPattern() != pServer) {
        Report("a stroke pattern other than the fill's is drawn with its fallback colour");
      } else if (PatternApplies(pServer, i_shape)) {
        i_shape.SetPattern(static_cast<VYRPrtPatternElt*>(pServer));
        stroke.SetStrokeMode(static_cast<VYRPrtStrokeMode>(kHostStrokePattern));
        return stroke;
      }
    } else {
      Report("missing paint server \"" + paint.serverID + "\"");
    }
    if (PaintColor(paint, paint.fallbackKind, paint.fallbackColor, style, color)) {
      stroke.SetStrokeColorIndex(ColourIndex(color));
      stroke.SetStrokeMode(static_cast<VYRPrtStrokeMode>(kHostStrokeColor));
    }
    return stroke;
  }
  if (PaintColor(paint, paint.kind, paint.color, style, color)) {
    stroke.SetStrokeColorIndex(ColourIndex(color));
    stroke.SetStrokeMode(static_cast<VYRPrtStrokeMode>(kHostStrokeColor));
  }
  return stroke;
}

void VYRSvgImporter::ApplyPaint(const Context& i_context, VYRPrtGraphicPrimitiveElt& io_shape) {
  VYRPrtMarkerReferences markers;
  markers.SetMarkerID(VYRPrtMarkerReferences::Start, VYRUnicodeString(i_context.style.markerStart));
  markers.SetMarkerID(VYRPrtMarkerReferences::Mid, VYRUnicodeString(i_context.style.markerMid));
  markers.SetMarkerID(VYRPrtMarkerReferences::End, VYRUnicodeString(i_context.style.markerEnd));
  if (io_shape.GetStreamType() == kStreamTypeLineElt) {
    auto& line = static_cast<VYRPrtLineElt&>(io_shape);
    line.SetStrokeAttributes(MakeStroke(i_context, io_shape));
    line.SetMarkerReferences(markers);
    return;
  }
  auto& shape = static_cast<VYRPrtBaseShapeElt&>(io_shape);
  shape.SetFillAttributes(MakeFill(i_context, io_shape));
  shape.SetStrokeAttributes(MakeStroke(i_context, io_shape));
  if (io_shape.GetStreamType() == kStreamTypePathElt) {
    static_cast<VYRPrtPathElt&>(io_shape).SetMarkerReferences(markers);
  } else if (io_shape.GetStreamType() == kStreamTypePolylineElt || io_shape.GetStreamType() == kStreamTypePolygonElt) {
    static_cast<VYRPrtPointBasedElt&>(io_shape).SetMarkerReferences(markers);
  }
}

// ---- Resources

VYRPrtGraphicPrimitiveElt* VYRSvgImporter::Resource(const std::string& i_id) {
  auto cached = _resources.find(i_id);
  if (cached != _resources.end()) return cached->second;
  auto found = _domByID.find(i_id);
  if (found == _domByID.end() || !IsResourceName(VYRSvgLocalName(found->second))) return nullptr;
  // A resource that refers to itself while being read gets nothing.
  if (!_inProgress.insert(i_id).second) {
    Report("\"" + i_id + "\" refers to itself");
    return nullptr;
  }
  // Resources take their properties from where they are defined.
  Context context = _rootContext;
  for (const VYRIDOMElement_var& ancestor : _resourceAncestors[i_id]) {
    context.style = context.style.Inherited();
    context.style.Apply(ancestor, _styleSheet, context.lengths, _messages);
  }
  VYRPrtGraphicPrimitiveElt* pElt = ImportResource(VYRSvgLocalName(found->second), found->second, context, 1);
  _inProgress.erase(i_id);
  _resources[i_id] = pElt;
  return pElt;
}

VYRPrtGraphicPrimitiveElt* VYRSvgImporter::ImportResource(const std::string& i_name,
                                                          const VYRIDOMElement_var& i_element,
                                                          const Context& i_parent, int i_depth) {
  Context context;
  context.style = i_parent.style.Inherited();
  context.lengths = i_parent.lengths;
  context.style.Apply(i_element, _styleSheet, context.lengths, _messages);
  VYRPrtGraphicPrimitiveElt* pElt = nullptr;
  if (i_name == "linearGradient" || i_name == "radialGradient") {
    pElt = ImportGradient(i_name, i_element, context);
  } else if (i_name == "filter") {
    pElt = ImportFilter(i_element, context);
  } else if (i_name == "clipPath") {
    auto* pClip = Create<VYRPrtClipPathElt>();
    if (!VYR_CHECK_POINTER(pClip)) return nullptr;
    pClip->SetUnits(Units(Attribute(i_element, "clipPathUnits"), MM2D::UnitUserSpaceOnUse));
    pClip->SetClipRule(context.style.clipRule);
    pClip->SetTransformAttributes(TransformAttribute(i_element, "transform"));
    LinkClipPath(context.style, *pClip);  // a clip path may be clipped in turn
    context.insideClipPath = true;
    ImportChildren(i_element, *pClip, context, i_depth);
    pElt = pClip;
  } else if (i_name == "mask") {
    auto* pMask = Create<VYRPrtMaskElt>();
    if (!VYR_CHECK_POINTER(pMask)) return nullptr;
    pMask->SetUnits(Units(Attribute(i_element, "maskUnits"), MM2D::UnitObjectBoundingBox));
    pMask->SetContentUnits(Units(Attribute(i_element, "maskContentUnits"), MM2D::UnitUserSpaceOnUse));
    pMask->SetRegion(EffectRegion(i_element, context, pMask->GetUnits() == MM2D::UnitObjectBoundingBox));
    LinkMask(context.style, *pMask);  // a mask may be masked in turn
    ImportChildren(i_element, *pMask, context, i_depth);
    pElt = pMask;
  } else if (i_name == "marker") {
    auto* pMarker = Create<VYRPrtMarkerElt>();
    if (!VYR_CHECK_POINTER(pMarker)) return nullptr;
    pMarker->SetReferencePoint(VYRMathPoint2D(Length(i_element, "refX", context, VYRSvgLengthAxis::eX, 0.0),
                                              Length(i_element, "refY", context, VYRSvgLengthAxis::eY, 0.0)));
    pMarker->SetSize(Length(i_element, "markerWidth", context, VYRSvgLengthAxis::eX, 3.0),
                     Length(i_element, "markerHeight", context, VYRSvgLengthAxis::eY, 3.0));
    pMarker->SetUnits(Attribute(i_element, "markerUnits") == "userSpaceOnUse" ? MM2D::MarkerUnitUserSpaceOnUse
                                                                               : MM2D::MarkerUnitStrokeWidth);
    const std::string orient = Attribute(i_element, "orient");
    if (orient == "auto") {
      pMarker->SetOrientationAuto();
    } else {
      double angle = 0.0;
      if (!orient.empty() && VYRSvgValues::ParseAngle(orient, angle)) {
        pMarker->SetOrientationAngle(angle);
      }
    }
    VYRPrtViewBoxAttributes viewBox;
    ReadViewBox(i_element, viewBox);
    pMarker->SetViewBoxAttributes(viewBox);
    // The marker's clip path, in its viewport's units, hides what lies beyond it.
    double width = 0.0, height = 0.0;
    pMarker->GetSize(width, height);
    if (HidesOverflow(i_element)) pMarker->SetClipPath(RectangleClip(0.0, 0.0, width, height));
    ImportChildren(i_element, *pMarker, context, i_depth);
    pElt = pMarker;
  } else if (i_name == "pattern") {
    auto* pPattern = Create<VYRPrtPatternElt>();
    if (!VYR_CHECK_POINTER(pPattern)) return nullptr;
    // Attributes a pattern does not give come from those it refers to.
    const std::vector<VYRIDOMElement_var> chain = HrefChain(i_element, {"pattern"});
    auto attribute = [&](const char* i_attribute) { return Attribute(Holder(chain, i_attribute), i_attribute); };
    pPattern->SetUnits(Units(attribute("patternUnits"), MM2D::UnitObjectBoundingBox));
    pPattern->SetContentUnits(Units(attribute("patternContentUnits"), MM2D::UnitUserSpaceOnUse));
    const bool boxUnits = pPattern->GetUnits() == MM2D::UnitObjectBoundingBox;
    auto read = [&](const char* i_attribute, VYRSvgLengthAxis i_axis) {
      const VYRIDOMElement_var& holder = Holder(chain, i_attribute);
      return boxUnits ? Fraction(holder, i_attribute, 0.0) : Length(holder, i_attribute, context, i_axis, 0.0);
    };
    VYRPrtRegionAttributes region;
    region.SetRegion(read("x", VYRSvgLengthAxis::eX), read("y", VYRSvgLengthAxis::eY),
                     read("width", VYRSvgLengthAxis::eX), read("height", VYRSvgLengthAxis::eY));
    pPattern->SetRegion(region);
    VYRPrtViewBoxAttributes viewBox;
    ReadViewBox(Holder(chain, "viewBox"), viewBox);
    pPattern->SetViewBoxAttributes(viewBox);
    pPattern->SetPatternTransform(TransformAttribute(Holder(chain, "patternTransform"), "patternTransform"));
    pPattern->SetHrefID(VYRUnicodeString(HrefID(i_element)));
    // So do its children when it has none.
    const VYRIDOMElement_var* pContent = &chain.front();
    for (const VYRIDOMElement_var& element : chain) {
      if (ChildElements(element).empty()) continue;
      pContent = &element;
      break;
    }
    ImportChildren(*pContent, *pPattern, context, i_depth);
    pElt = pPattern;
  }
  if (pElt != nullptr) pElt->SetID(VYRUnicodeString(Attribute(i_element, "id")));
  return pElt;
}

VYRPrtGraphicPrimitiveElt* VYRSvgImporter::ImportGradient(const std::string& i_name,
                                                          const VYRIDOMElement_var& i_element,
                                                          const Context& i_context) {
  const std::vector<VYRIDOMElement_var> chain = HrefChain(i_element, {"linearGradient", "radialGradient"});
  auto holder = [&chain, this](const char* i_attribute) -> const VYRIDOMElement_var& {
    return Holder(chain, i_attribute);
  };
  const MM2D::UnitType units = Units(Attribute(holder("gradientUnits"), "gradientUnits"), MM2D::UnitObjectBoundingBox);
  const bool boxUnits = units == MM2D::UnitObjectBoundingBox;
  // Coordinates come only from gradients of the same kind.
  std::vector<VYRIDOMElement_var> sameKind;
  for (const VYRIDOMElement_var& element : chain) {
    if (VYRSvgLocalName(element) == i_name) sameKind.push_back(element);
  }
  auto read = [&](const char* i_attribute, VYRSvgLengthAxis i_axis, double i_default) {
    const VYRIDOMElement_var& element = Holder(sameKind, i_attribute);
    return boxUnits ? Fraction(element, i_attribute, i_default)
                    : Length(element, i_attribute, i_context, i_axis, i_default * (i_axis == VYRSvgLengthAxis::eY
                                                                                      ? i_context.lengths.viewportHeight
                                                                                      : i_context.lengths.viewportWidth));
  };

  VYRPrtBaseGradientElt* pGradient = nullptr;
  if (i_name == "linearGradient") {
    auto* pLinear = Create<VYRPrtLinearGradientElt>();
    if (!VYR_CHECK_POINTER(pLinear)) return nullptr;
    pLinear->SetStartPoint(VYRMathPoint2D(read("x1", VYRSvgLengthAxis::eX, 0.0), read("y1", VYRSvgLengthAxis::eY, 0.0)));
    pLinear->SetEndPoint(VYRMathPoint2D(read("x2", VYRSvgLengthAxis::eX, 1.0), read("y2", VYRSvgLengthAxis::eY, 0.0)));
    pGradient = pLinear;
  } else {
    auto* pRadial = Create<VYRPrtRadialGradientElt>();
    if (!VYR_CHECK_POINTER(pRadial)) return nullptr;
    pRadial->SetCentre(VYRMathPoint2D(read("cx", VYRSvgLengthAxis::eX, 0.5), read("cy", VYRSvgLengthAxis::eY, 0.5)));
    pRadial->SetRadius(boxUnits ? Fraction(holder("r"), "r", 0.5)
                                : Length(holder("r"), "r", i_context, VYRSvgLengthAxis::eOther,
                                         0.5 * std::sqrt((i_context.lengths.viewportWidth * i_context.lengths.viewportWidth +
                                                          i_context.lengths.viewportHeight * i_context.lengths.viewportHeight) /
                                                         2.0)));
    if (HasAttribute(holder("fx"), "fx") || HasAttribute(holder("fy"), "fy")) {
      const VYRMathPoint2D centre = pRadial->GetCentre();
      pRadial->SetFocus(VYRMathPoint2D(HasAttribute(holder("fx"), "fx") ? read("fx", VYRSvgLengthAxis::eX, 0.5) : centre.x,
                                       HasAttribute(holder("fy"), "fy") ? read("fy", VYRSvgLengthAxis::eY, 0.5) : centre.y));
    }
    pGradient = pRadial;
  }
  pGradient->SetUnits(units);
  const std::string spread = Attribute(holder("spreadMethod"), "spreadMethod");
  pGradient->SetSpreadMethod(spread == "reflect" ? VYRPrintGradientSpreadReflect
                                                 : (spread == "repeat" ? VYRPrintGradientSpreadRepeat
                                                                       : VYRPrintGradientSpreadPad));
  pGradient->SetGradientTransform(TransformAttribute(holder("gradientTransform"), "gradientTransform"));
  pGradient->SetHrefID(VYRUnicodeString(HrefID(i_element)));

  // The stops of the nearest element of the chain that has any.
  for (const VYRIDOMElement_var& element : chain) {
    for (const VYRIDOMElement_var& child : ChildElements(element)) {
      if (VYRSvgLocalName(child) != "stop") continue;
      VYRSvgStyle style = i_context.style.Inherited();
      VYRSvgLengthContext lengths = i_context.lengths;
      style.Apply(child, _styleSheet, lengths, _messages);
      auto* pStop = Create<VYRPrtGradientStopElt>();
      if (!VYR_CHECK_POINTER(pStop)) break;
      const double offset = Fraction(child, "offset", 0.0);
      pStop->SetOffset(offset < 0.0 ? 0.0 : (offset > 1.0 ? 1.0 : offset));
      pStop->SetColor(style.stopColor.red, style.stopColor.green, style.stopColor.blue);
      pStop->SetStopOpacity(style.stopOpacity);
      pGradient->AddStop(pStop);
    }
    if (pGradient->GetStopCount() > 0) break;
  }
  return pGradient;
}

VYRPrtGraphicPrimitiveElt* VYRSvgImporter::ImportFilter(const VYRIDOMElement_var& i_element,
                                                        const Context& i_context) {
  auto* pFilter = Create<VYRPrtFilterContainerElt>();
  if (!VYR_CHECK_POINTER(pFilter)) return nullptr;
  pFilter->SetUnits(Units(Attribute(i_element, "filterUnits"), MM2D::UnitObjectBoundingBox));
  pFilter->SetPrimitiveUnits(Units(Attribute(i_element, "primitiveUnits"), MM2D::UnitUserSpaceOnUse));
  pFilter->SetRegion(EffectRegion(i_element, i_context, pFilter->GetUnits() == MM2D::UnitObjectBoundingBox));
  auto read = [&](const VYRIDOMElement_var& i_node, const char* i_attribute, VYRSvgLengthAxis i_axis, bool i_box) {
    return i_box ? Fraction(i_node, i_attribute, 0.0) : Length(i_node, i_attribute, i_context, i_axis, 0.0);
  };
  pFilter->SetHrefID(VYRUnicodeString(HrefID(i_element)));

  const bool primitiveBoxUnits = pFilter->GetPrimitiveUnits() == MM2D::UnitObjectBoundingBox;
  for (const VYRIDOMElement_var& child : ChildElements(i_element)) {
    const std::string name = VYRSvgLocalName(child);
    VYRPrtFilterBaseElt* pPrimitive = nullptr;
    std::vector<double> numbers;
    if (name == "feGaussianBlur") {
      auto* pBlur = Create<VYRPrtFilterGaussianBlurElt>();
      if (pBlur != nullptr && VYRSvgValues::ParseNumbers(Attribute(child, "stdDeviation"), numbers) && !numbers.empty()) {
        pBlur->SetStdDeviation(numbers[0], numbers.size() > 1 ? numbers[1] : numbers[0]);
      }
      pPrimitive = pBlur;
    } else if (name == "feOffset") {
      auto* pOffset = Create<VYRPrtFilterOffsetElt>();
      if (pOffset != nullptr) pOffset->SetOffset(Fraction(child, "dx", 0.0), Fraction(child, "dy", 0.0));
      pPrimitive = pOffset;
    } else if (name == "feColorMatrix") {
      auto* pMatrix = Create<VYRPrtFilterColorMatrixElt>();
      if (pMatrix != nullptr) {
        const std::string type = Attribute(child, "type");
        if (!type.empty()) pMatrix->SetType(MMParsingTools::StringToColorMatrixType(VYRUnicodeString(type)));
        pMatrix->SetValues(VYRUnicodeString(Attribute(child, "values")));
      }
      pPrimitive = pMatrix;
    } else if (name == "feFlood") {
      // A colour matrix that ignores its input gives the flood colour over
      // the whole region.
      auto* pMatrix = Create<VYRPrtFilterColorMatrixElt>();
      if (pMatrix != nullptr) {
        VYRSvgStyle style = i_context.style.Inherited();
        VYRSvgLengthContext lengths = i_context.lengths;
        style.Apply(child, _styleSheet, lengths, _messages);
        char values[160];
        std::snprintf(values, sizeof values, "0 0 0 0 %.6g 0 0 0 0 %.6g 0 0 0 0 %.6g 0 0 0 0 %.6g",
                      style.floodColor.red / 255.0, style.floodColor.green / 255.0, style.floodColor.blue / 255.0,
                      style.floodOpacity);
        pMatrix->SetType(MMParsingTools::StringToColorMatrixType("matrix"));
        pMatrix->SetValues(VYRUnicodeString(values));
      }
      pPrimitive = pMatrix;
    } else if (name == "feBlend") {
      auto* pBlend = Create<VYRPrtFilterBlendElt>();
      if (pBlend != nullptr) {
        const std::string mode = Attribute(child, "mode");
        VYR2DGTransferMode transfer = eTransferSourceOver;
        if (mode == "multiply") transfer = eTransferMultiply;
        if (mode == "screen") transfer = eTransferScreen;
        if (mode == "darken") transfer = eTransferDarken;
        if (mode == "lighten") transfer = eTransferLighten;
        pBlend->SetMode(transfer);
        pBlend->SetInput2(VYRUnicodeString(Attribute(child, "in2")));
      }
      pPrimitive = pBlend;
    } else if (name == "feMerge") {
      auto* pMerge = Create<VYRPrtFilterMergeElt>();
      if (pMerge != nullptr) {
        for (const VYRIDOMElement_var& node : ChildElements(child)) {
          if (VYRSvgLocalName(node) != "feMergeNode") continue;
          auto* pNode = Create<VYRPrtFilterMergeNodeElt>();
          if (pNode == nullptr) break;
          pNode->SetInput(VYRUnicodeString(Attribute(node, "in")));
          pMerge->AddChild(pNode);
        }
      }
      pPrimitive = pMerge;
    } else {
      Report("filter primitive <" + name + "> is not supported");
      continue;
    }
    if (!VYR_CHECK_POINTER(pPrimitive)) break;
    pPrimitive->SetInput(VYRUnicodeString(Attribute(child, "in")));
    pPrimitive->SetResult(VYRUnicodeString(Attribute(child, "result")));
    VYRPrtRegionAttributes subregion;
    if (HasAttribute(child, "x")) subregion.SetX(read(child, "x", VYRSvgLengthAxis::eX, primitiveBoxUnits));
    if (HasAttribute(child, "y")) subregion.SetY(read(child, "y", VYRSvgLengthAxis::eY, primitiveBoxUnits));
    if (HasAttribute(child, "width")) subregion.SetWidth(read(child, "width", VYRSvgLengthAxis::eX, primitiveBoxUnits));
    if (HasAttribute(child, "height")) {
      subregion.SetHeight(read(child, "height", VYRSvgLengthAxis::eY, primitiveBoxUnits));
    }
    pPrimitive->SetSubregion(subregion);
    pFilter->AddChild(pPrimitive);
  }
  return pFilter;
}

// ---- Attributes

VYRPrtTransformAttributes VYRSvgImporter::TransformAttribute(const VYRIDOMElement_var& i_element,
                                                             const char* i_name) {
  VYRPrtTransformAttributes transform;
  // The cascade of the transform property: important rules, the style
  // attribute, normal rules, and last the attribute itself.
  const std::string* pValue = _styleSheet.FindValue(i_element, i_name, true);
  std::string styleValue;
  if (!pValue && std::strcmp(i_name, "transform") == 0) {
    for (const VYRSvgDeclaration& declaration : VYRSvgParseDeclarations(Attribute(i_element, "style"))) {
      if (declaration.name == i_name) {
        styleValue = declaration.value;
        pValue = &styleValue;
      }
    }
  }
  if (!pValue) pValue = _styleSheet.FindValue(i_element, i_name, false);
  const std::string text = pValue ? *pValue : Attribute(i_element, i_name);
  if (!text.empty() && !VYRSvgValues::ParseTransformList(text, transform)) {
    Report("ignored " + std::string(i_name) + " \"" + text + "\"");
  }
  return transform;
}

std::vector<VYRIDOMElement_var> VYRSvgImporter::HrefChain(const VYRIDOMElement_var& i_element,
                                                          const std::set<std::string>& i_names) const {
  std::vector<VYRIDOMElement_var> chain{i_element};
  while (chain.size() < 16) {
    auto found = _domByID.find(HrefID(chain.back()));
    if (found == _domByID.end() || i_names.count(VYRSvgLocalName(found->second)) == 0) break;
    chain.push_back(found->second);
  }
  return chain;
}

const VYRIDOMElement_var& VYRSvgImporter::Holder(const std::vector<VYRIDOMElement_var>& i_chain,
                                                const char* i_attribute) const {
  for (const VYRIDOMElement_var& element : i_chain) {
    if (HasAttribute(element, i_attribute)) return element;
  }
  return i_chain.front();
}

VYRPrtRegionAttributes VYRSvgImporter::EffectRegion(const VYRIDOMElement_var& i_element, const Context& i_context,
                                                    bool i_boxUnits) {
  // The default reaches 10% beyond the box, or beyond the viewport in user units.
  VYRPrtRegionAttributes region = VYRPrtRegionAttributes::DefaultEffectRegion();
  if (!i_boxUnits) {
    const double width = i_context.lengths.viewportWidth, height = i_context.lengths.viewportHeight;
    region = VYRPrtRegionAttributes(region.GetX() * width, region.GetY() * height, region.GetWidth() * width,
                                    region.GetHeight() * height);
  }
  auto read = [&](const char* i_attribute, VYRSvgLengthAxis i_axis, double i_default) {
    return i_boxUnits ? Fraction(i_element, i_attribute, i_default)
                      : Length(i_element, i_attribute, i_context, i_axis, i_default);
  };
  if (HasAttribute(i_element, "x")) region.SetX(read("x", VYRSvgLengthAxis::eX, region.GetX()));
  if (HasAttribute(i_element, "y")) region.SetY(read("y", VYRSvgLengthAxis::eY, region.GetY()));
  if (HasAttribute(i_element, "width")) region.SetWidth(read("width", VYRSvgLengthAxis::eX, region.GetWidth()));
  if (HasAttribute(i_element, "height")) region.SetHeight(read("height", VYRSvgLengthAxis::eY, region.GetHeight()));
  return region;
}

std::string VYRSvgImporter::Attribute(const VYRIDOMElement_var& i_element, const char* i_name) const {
  VYRUnicodeString value;
  i_element.GetAttribute(i_name, value);
  return value.GetStdString();
}

bool VYRSvgImporter::MeetsConditions(const VYRIDOMElement_var& i_element) const {
  // No extension is supported; every feature of the static profile is.
  if (HasAttribute(i_element, "requiredExtensions")) return false;
  if (!HasAttribute(i_element, "systemLanguage")) return true;
  // A language matches the user's, or begins with it followed by "-".
  std::stringstream languages(Attribute(i_element, "systemLanguage"));
  std::string language;
  while (std::getline(languages, language, ',')) {
    language = VYRSvgValues::Trim(language);
    const size_t length = std::strlen(kUserLanguage);
    if (language.compare(0, length, kUserLanguage) == 0 && (language.size() == length || language[length] == '-')) {
      return true;
    }
  }
  return false;
}

bool VYRSvgImporter::HasAttribute(const VYRIDOMElement_var& i_element, const char* i_name) const {
  VYRUnicodeString value;
  return VYRSucceeded(i_element.GetAttribute(i_name, value));
}

std::string VYRSvgImporter::HrefID(const VYRIDOMElement_var& i_element) const {
  // The plain attribute wins over the one in the XLink namespace.
  std::string href = Attribute(i_element, "href");
  if (href.empty()) href = Attribute(i_element, "xlink:href");
  std::string id;
  VYRSvgValues::ParseReference(href, id);
  return id;
}

double VYRSvgImporter::Length(const VYRIDOMElement_var& i_element, const char* i_name, const Context& i_context,
                              VYRSvgLengthAxis i_axis, double i_default) {
  const std::string text = Attribute(i_element, i_name);
  if (text.empty()) return i_default;
  double value = 0.0;
  if (!VYRSvgValues::ParseLength(text, i_context.lengths, i_axis, value) || !std::isfinite(value)) {
    Report("ignored " + std::string(i_name) + " \"" + text + "\"");
    return i_default;
  }
  return value;
}

double VYRSvgImporter::Fraction(const VYRIDOMElement_var& i_element, const char* i_name, double i_default) {
  const std::string text = Attribute(i_element, i_name);
  if (text.empty()) return i_default;
  double value = 0.0;
  if (!VYRSvgValues::ParseNumberOrPercentage(text, value) || !std::isfinite(value)) {
    Report("ignored " + std::string(i_name) + " \"" + text + "\"");
    return i_default;
  }
  return value;
}

bool VYRSvgImporter::ReadViewBox(const VYRIDOMElement_var& i_element, VYRPrtViewBoxAttributes& o_viewBox) {
  const std::string text = Attribute(i_element, "viewBox");
  const std::string aspect = Attribute(i_element, "preserveAspectRatio");
  if (!aspect.empty() && !VYRSvgValues::ParsePreserveAspectRatio(aspect, o_viewBox)) {
    Report("ignored preserveAspectRatio \"" + aspect + "\"");
  }
  if (text.empty()) return false;
  std::vector<double> numbers;
  if (!VYRSvgValues::ParseNumbers(text, numbers) || numbers.size() != 4 || !(numbers[2] > 0.0) ||
      !(numbers[3] > 0.0)) {
    Report("ignored viewBox \"" + text + "\"");
    return false;
  }
  o_viewBox.SetViewBox(numbers[0], numbers[1], numbers[2], numbers[3]);
  return true;
}

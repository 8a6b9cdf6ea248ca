#pragma once

#include <map>
#include <set>
#include <string>
#include <vector>

#include "VYRPrtRegionAttributes.h"
#include "VYRPrtStreamType.h"
#include "VYRPrtTransformAttributes.h"
#include "VYRSvgStyle.h"
#include "VYRXMLDOM.h"

class VYRPrtBaseShapeElt;
class VYRPrtClipPathElt;
class VYRPrtColourTable;
class VYRPrtGraphicPrimitiveElt;
class VYRPrtImageElt;
class VYRPrtModel;
class VYRPrtNodeTreeElt;
class VYRPrtFillAttributes;
class VYRPrtStrokeAttributes;

// Reads an SVG document into a model: one image element for the root svg
// (its size in pixels, the viewBox mapping as its transform, and the colour
// table every fill and stroke colour index refers to) holding the drawing
// as element trees. Fill and stroke properties are resolved through the
// cascade and written on each shape; paint servers, clip paths, masks,
// filters and markers are elements of their own, linked from the elements
// that use them; a use element becomes a group holding a fresh copy of what
// it references.
//
// Malformed documents never stop the importer: what cannot be read is
// skipped and described in the messages, and the model holds what could be read.
class VYRSvgImporter {
 public:
  // The largest number of elements one document may produce (guards against
  // use elements that multiply each other).
  static constexpr int kMaximumElementCount = 50000;
  // The deepest element nesting, use elements included, that is read.
  static constexpr int kMaximumDepth = 128;

  // A new model (one reference, released by the caller), empty when the
  // document could not be read at all.
  VYRPrtModel* ImportFile(const std::string& i_path);
  VYRPrtModel* ImportBuffer(const std::string& i_text);

  // True when the last document parsed and had an svg root.
  bool Succeeded() const { return _succeeded; }
  // What was skipped or could not be read, in document order.
  const std::vector<std::string>& GetMessages() const { return _messages; }

 private:
  struct Context {
    VYRSvgStyle style;
    VYRSvgLengthContext lengths;
    bool insideClipPath = false;
  };

  void Reset();
  void Report(const std::string& i_message) { _messages.push_back(i_message); }
  bool CountElement();
  void IndexIDs(const VYRIDOMNode_var& i_node, std::vector<VYRIDOMElement_var>& io_ancestors);
  void AddStyleSheet(const VYRIDOMElement_var& i_style);
  // Works out what the style rules give each element below i_element.
  void MatchStyleRules(const VYRIDOMElement_var& i_element, std::vector<VYRIDOMElement_var>& io_ancestors);
  VYRPrtImageElt* ImportRoot(const VYRIDOMElement_var& i_root);

  // The element for one DOM element, or null when it draws nothing or is not read.
  VYRPrtGraphicPrimitiveElt* ImportElement(const VYRIDOMElement_var& i_element, const Context& i_parent, int i_depth);
  // What an element that is not a resource becomes.
  VYRPrtGraphicPrimitiveElt* ImportOwnElement(const std::string& i_name, const VYRIDOMElement_var& i_element,
                                              const Context& i_parent, int i_depth);
  void ImportChildren(const VYRIDOMElement_var& i_element, VYRPrtNodeTreeElt& io_node, const Context& i_context,
                      int i_depth);
  VYRPrtGraphicPrimitiveElt* ImportShape(const std::string& i_name, const VYRIDOMElement_var& i_element,
                                         const Context& i_context);
  VYRPrtGraphicPrimitiveElt* ImportText(const VYRIDOMElement_var& i_element, const Context& i_context);
  VYRPrtGraphicPrimitiveElt* ImportBitmap(const VYRIDOMElement_var& i_element, const Context& i_context);
  VYRPrtGraphicPrimitiveElt* ImportUse(const VYRIDOMElement_var& i_element, const Context& i_context, int i_depth);
  VYRPrtGraphicPrimitiveElt* ImportViewport(const VYRIDOMElement_var& i_element, const Context& i_context,
                                            int i_depth, double i_width, double i_height);

  // True unless the element's overflow lets content show beyond its viewport.
  bool HidesOverflow(const VYRIDOMElement_var& i_element) const;
  // A new clip path of one rectangle, for viewports and sliced images.
  VYRPrtClipPathElt* RectangleClip(double i_x, double i_y, double i_width, double i_height);

  // Resources: elements that others refer to by identifier, read once.
  VYRPrtGraphicPrimitiveElt* Resource(const std::string& i_id);
  // The resource an identifier names when it is of the given kind; otherwise
  // null, reported as a missing clip path, mask, ... (i_what).
  template <class K>
  K* ResourceOfKind(const std::string& i_id, StreamType i_kind, const char* i_what);
  VYRPrtGraphicPrimitiveElt* ImportResource(const std::string& i_name, const VYRIDOMElement_var& i_element,
                                            const Context& i_context, int i_depth);
  VYRPrtGraphicPrimitiveElt* ImportGradient(const std::string& i_name, const VYRIDOMElement_var& i_element,
                                            const Context& i_context);
  VYRPrtGraphicPrimitiveElt* ImportFilter(const VYRIDOMElement_var& i_element, const Context& i_context);

  // The common attributes: identifier, transform, visibility, opacity, clip path, mask, filter.
  // Points the element at the clip path its style names, reporting one that is missing.
  void LinkClipPath(const VYRSvgStyle& i_style, VYRPrtGraphicPrimitiveElt& io_elt);
  // Points the element at the mask its style names, reporting one that is missing.
  void LinkMask(const VYRSvgStyle& i_style, VYRPrtGraphicPrimitiveElt& io_elt);
  // The clip path, mask and filter an element's style names.
  void LinkEffects(const VYRSvgStyle& i_style, VYRPrtGraphicPrimitiveElt& io_elt);
  // The common attributes of an svg or symbol on the outer group of its
  // viewport: an svg's x and y within its transform, no transform for a symbol.
  void ApplyViewportCommon(const VYRIDOMElement_var& i_element, const Context& i_context,
                           VYRPrtGraphicPrimitiveElt& io_outer);
  void ApplyCommon(const VYRIDOMElement_var& i_element, const Context& i_context, VYRPrtGraphicPrimitiveElt& io_elt);
  void ApplyPaint(const Context& i_context, VYRPrtGraphicPrimitiveElt& io_shape);
  VYRPrtFillAttributes MakeFill(const Context& i_context, VYRPrtGraphicPrimitiveElt& i_shape);
  VYRPrtStrokeAttributes MakeStroke(const Context& i_context, VYRPrtGraphicPrimitiveElt& i_shape);
  // The shape's bounding box, when it has an area: what bounding-box units need.
  bool BoxWithArea(VYRPrtGraphicPrimitiveElt& i_shape, double& o_xmin, double& o_xmax, double& o_ymin, double& o_ymax);
  // Whether a pattern can paint the shape: not in bounding-box units on a box without area.
  bool PatternApplies(VYRPrtGraphicPrimitiveElt* i_pServer, VYRPrtGraphicPrimitiveElt& i_shape);
  // Puts a gradient server's record into fill or stroke attributes; false when it cannot paint the shape.
  template <class Attributes>
  bool SetGradient(VYRPrtGraphicPrimitiveElt* i_pServer, VYRPrtGraphicPrimitiveElt& i_shape,
                   Attributes& io_attributes);
  unsigned int ColourIndex(const VYRSvgColor& i_color);

  // The element and those it inherits from through href (of the given kinds), nearest first.
  std::vector<VYRIDOMElement_var> HrefChain(const VYRIDOMElement_var& i_element,
                                            const std::set<std::string>& i_names) const;
  // The nearest element of a chain that gives the attribute (the first when none does).
  const VYRIDOMElement_var& Holder(const std::vector<VYRIDOMElement_var>& i_chain, const char* i_attribute) const;
  // A transform list attribute, the identity when absent or unreadable (reported).
  VYRPrtTransformAttributes TransformAttribute(const VYRIDOMElement_var& i_element, const char* i_name);
  // A mask's or filter's region from its x, y, width and height.
  VYRPrtRegionAttributes EffectRegion(const VYRIDOMElement_var& i_element, const Context& i_context, bool i_boxUnits);
  // Attribute helpers: the value, or the default when absent or unreadable (reported).
  std::string Attribute(const VYRIDOMElement_var& i_element, const char* i_name) const;
  double Length(const VYRIDOMElement_var& i_element, const char* i_name, const Context& i_context,
                VYRSvgLengthAxis i_axis, double i_default);
  // A number, or a percentage as a fraction.
  double Fraction(const VYRIDOMElement_var& i_element, const char* i_name, double i_default);
  bool HasAttribute(const VYRIDOMElement_var& i_element, const char* i_name) const;
  // Whether the element's conditional attributes let it be chosen by a switch.
  bool MeetsConditions(const VYRIDOMElement_var& i_element) const;
  std::string HrefID(const VYRIDOMElement_var& i_element) const;
  bool ReadViewBox(const VYRIDOMElement_var& i_element, VYRPrtViewBoxAttributes& o_viewBox);

  std::vector<std::string> _messages;
  bool _succeeded = false;
  int _elementCount = 0;
  std::map<std::string, VYRIDOMElement_var> _domByID;
  VYRSvgStyleSheet _styleSheet;
  // The elements between the root and each resource, outermost first.
  std::map<std::string, std::vector<VYRIDOMElement_var>> _resourceAncestors;
  std::map<std::string, VYRPrtGraphicPrimitiveElt*> _resources;
  std::set<std::string> _inProgress;
  std::vector<const void*> _importing;
  std::map<unsigned int, unsigned int> _colourIndexes;
  VYRPrtColourTable* _pColours = nullptr;
  Context _rootContext;
};

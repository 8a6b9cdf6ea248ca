#pragma once

#include <memory>

#include "VYRExport.h"
#include "VYRStatus.h"
#include "VYRUnicodeString.h"

// Handles on the nodes of a parsed XML document. A handle shares ownership
// of its document, so the document lives while any handle refers into it.
// A default handle is null; every operation on a null handle returns
// VYR_E_INVALIDARG and leaves its outputs empty or null.

// Node types, numbered as the W3C DOM numbers them.
enum VYRDOMNodeType {
  VYR_DOM_ELEMENT_NODE = 1,
  VYR_DOM_ATTRIBUTE_NODE = 2,
  VYR_DOM_TEXT_NODE = 3,
  VYR_DOM_CDATA_SECTION_NODE = 4,
  VYR_DOM_ENTITY_REFERENCE_NODE = 5,
  VYR_DOM_ENTITY_NODE = 6,
  VYR_DOM_PROCESSING_INSTRUCTION_NODE = 7,
  VYR_DOM_COMMENT_NODE = 8,
  VYR_DOM_DOCUMENT_NODE = 9,
  VYR_DOM_DOCUMENT_TYPE_NODE = 10,
  VYR_DOM_DOCUMENT_FRAGMENT_NODE = 11,
  VYR_DOM_NOTATION_NODE = 12
};

class VYRXMLDocumentData;
class VYRIDOMElement_var;

class VYR_EXPORT VYRIDOMNode_var {
 public:
  VYRIDOMNode_var() = default;

  bool IsNull() const { return _pNode == nullptr; }
  explicit operator bool() const { return _pNode != nullptr; }
  // Two handles are equal when they refer to the same node (or are both null).
  bool operator==(const VYRIDOMNode_var& i_other) const { return _pNode == i_other._pNode; }
  bool operator!=(const VYRIDOMNode_var& i_other) const { return _pNode != i_other._pNode; }
  // The node itself, the same for every handle on it while its document
  // lives: a key for what is worked out about a node.
  const void* GetIdentity() const { return _pNode; }
  // Drops the reference; the handle becomes null.
  void Clear();

  // VYR_S_OK with the next sibling, VYR_S_FALSE with a null handle when there is none.
  VYRStatus GetNextSibling(VYRIDOMNode_var& o_sibling) const;
  // VYR_S_OK with the first child, VYR_S_FALSE with a null handle when there is none.
  VYRStatus GetFirstChild(VYRIDOMNode_var& o_child) const;
  // The qualified name for elements and attributes; "#text", "#comment", ... for the others.
  VYRStatus GetNodeName(VYRUnicodeString& o_name) const;
  // One of VYRDOMNodeType.
  VYRStatus GetNodeType(int& o_type) const;
  // The node's own text: the characters of a text, comment or CDATA node,
  // an attribute's value; empty for elements and documents.
  VYRStatus GetNodeValue(VYRUnicodeString& o_value) const;

 protected:
  VYRIDOMNode_var(std::shared_ptr<VYRXMLDocumentData> i_document, void* i_pNode);

  // The document's node; void keeps the parser's types out of this header.
  std::shared_ptr<VYRXMLDocumentData> _document;
  void* _pNode = nullptr;

  friend class VYRXMLDocumentData;
};

class VYR_EXPORT VYRIDOMElement_var : public VYRIDOMNode_var {
 public:
  VYRIDOMElement_var() = default;
  // The node as an element; null when the node is not an element.
  explicit VYRIDOMElement_var(const VYRIDOMNode_var& i_node);

  // VYR_S_OK with the value of the attribute of that qualified name
  // ("width", "xlink:href"), VYR_E_FAIL with an empty value when it is absent.
  VYRStatus GetAttribute(const VYRUnicodeString& i_name, VYRUnicodeString& o_value) const;
};

class VYR_EXPORT VYRIDOMDocument_var : public VYRIDOMNode_var {
 public:
  VYRIDOMDocument_var() = default;

  // VYR_S_OK with the root element, VYR_E_FAIL with a null handle when the document has none.
  VYRStatus GetDocumentElement(VYRIDOMElement_var& o_root) const;

 private:
  friend class VYRXMLDocumentData;
  using VYRIDOMNode_var::VYRIDOMNode_var;
};

#include "VYRXMLDOM.h"

#include <xercesc/dom/DOMAttr.hpp>
#include <xercesc/dom/DOMElement.hpp>
#include <xercesc/util/OutOfMemoryException.hpp>
#include <xercesc/util/PlatformUtils.hpp>
#include <xercesc/util/TransService.hpp>

#include <new>
#include <string>

#include "VYRXMLDocumentData.h"

using xercesc::DOMNode;

VYRXMLArena::~VYRXMLArena() {
  for (void* block : _blocks) ::operator delete(block);
}

xercesc::MemoryManager* VYRXMLArena::getExceptionMemoryManager() {
  return xercesc::XMLPlatformUtils::fgMemoryManager;
}

void* VYRXMLArena::allocate(XMLSize_t i_size) {
  void* block = ::operator new(i_size, std::nothrow);
  if (!block) throw xercesc::OutOfMemoryException();  // what the parser library expects
  try {
    _blocks.insert(block);
  } catch (...) {
    ::operator delete(block);
    throw xercesc::OutOfMemoryException();
  }
  return block;
}

void VYRXMLArena::deallocate(void* i_pBlock) {
  if (i_pBlock && _blocks.erase(i_pBlock) > 0) ::operator delete(i_pBlock);
}

VYRXMLDocumentData::~VYRXMLDocumentData() {
  try {
    _pDocument->release();
  } catch (...) {
    // Nothing can be done about a document that will not go; it stays allocated.
  }
}

VYRIDOMDocument_var VYRXMLDocumentData::MakeDocumentHandle(const std::shared_ptr<VYRXMLDocumentData>& i_document) {
  if (!i_document || !i_document->_pDocument) return VYRIDOMDocument_var();
  return VYRIDOMDocument_var(i_document, static_cast<DOMNode*>(i_document->_pDocument));
}

VYRIDOMNode_var VYRXMLDocumentData::MakeNodeHandle(const VYRIDOMNode_var& i_from, DOMNode* i_pNode) {
  if (!i_pNode) return VYRIDOMNode_var();
  return VYRIDOMNode_var(i_from._document, i_pNode);
}

VYRUnicodeString VYRXMLToUnicodeString(const XMLCh* i_text) {
  if (!i_text || !*i_text) return VYRUnicodeString();
  xercesc::TranscodeToStr utf8(i_text, "UTF-8");
  return VYRUnicodeString(reinterpret_cast<const char*>(utf8.str()), static_cast<int>(utf8.length()));
}

std::u16string VYRXMLFromUnicodeString(const VYRUnicodeString& i_text) {
  if (i_text.IsEmpty()) return std::u16string();
  xercesc::TranscodeFromStr utf16(reinterpret_cast<const XMLByte*>(i_text.CastToCharPtr()),
                                  static_cast<XMLSize_t>(i_text.GetLengthInChar()), "UTF-8");
  return std::u16string(utf16.str(), utf16.length());
}

namespace {

// Runs a DOM call; the parser's exceptions (bad text, memory) become VYR_E_FAIL.
template <class Call>
VYRStatus Guarded(Call i_call) {
  try {
    return i_call();
  } catch (...) {
    return VYR_E_FAIL;
  }
}

}  // namespace

VYRIDOMNode_var::VYRIDOMNode_var(std::shared_ptr<VYRXMLDocumentData> i_document, void* i_pNode)
    : _document(std::move(i_document)), _pNode(i_pNode) {}

void VYRIDOMNode_var::Clear() {
  _document.reset();
  _pNode = nullptr;
}

VYRStatus VYRIDOMNode_var::GetNextSibling(VYRIDOMNode_var& o_sibling) const {
  if (IsNull()) {
    o_sibling.Clear();
    return VYR_E_INVALIDARG;
  }
  o_sibling = VYRXMLDocumentData::MakeNodeHandle(*this, VYRXMLDocumentData::NodeOf(*this)->getNextSibling());
  return o_sibling.IsNull() ? VYR_S_FALSE : VYR_S_OK;
}

VYRStatus VYRIDOMNode_var::GetFirstChild(VYRIDOMNode_var& o_child) const {
  if (IsNull()) {
    o_child.Clear();
    return VYR_E_INVALIDARG;
  }
  o_child = VYRXMLDocumentData::MakeNodeHandle(*this, VYRXMLDocumentData::NodeOf(*this)->getFirstChild());
  return o_child.IsNull() ? VYR_S_FALSE : VYR_S_OK;
}

VYRStatus VYRIDOMNode_var::GetNodeName(VYRUnicodeString& o_name) const {
  o_name = VYRUnicodeString();
  if (IsNull()) return VYR_E_INVALIDARG;
  return Guarded([&] {
    o_name = VYRXMLToUnicodeString(VYRXMLDocumentData::NodeOf(*this)->getNodeName());
    return VYR_S_OK;
  });
}

VYRStatus VYRIDOMNode_var::GetNodeType(int& o_type) const {
  o_type = 0;
  if (IsNull()) return VYR_E_INVALIDARG;
  o_type = static_cast<int>(VYRXMLDocumentData::NodeOf(*this)->getNodeType());
  return VYR_S_OK;
}

VYRStatus VYRIDOMNode_var::GetNodeValue(VYRUnicodeString& o_value) const {
  o_value = VYRUnicodeString();
  if (IsNull()) return VYR_E_INVALIDARG;
  return Guarded([&] {
    o_value = VYRXMLToUnicodeString(VYRXMLDocumentData::NodeOf(*this)->getNodeValue());
    return VYR_S_OK;
  });
}

VYRIDOMElement_var::VYRIDOMElement_var(const VYRIDOMNode_var& i_node) {
  const DOMNode* node = VYRXMLDocumentData::NodeOf(i_node);
  if (node && node->getNodeType() == DOMNode::ELEMENT_NODE) VYRIDOMNode_var::operator=(i_node);
}

VYRStatus VYRIDOMElement_var::GetAttribute(const VYRUnicodeString& i_name, VYRUnicodeString& o_value) const {
  o_value = VYRUnicodeString();
  if (IsNull()) return VYR_E_INVALIDARG;
  return Guarded([&] {
    const auto* element = static_cast<const xercesc::DOMElement*>(VYRXMLDocumentData::NodeOf(*this));
    const std::u16string name = VYRXMLFromUnicodeString(i_name);
    const xercesc::DOMAttr* attribute = element->getAttributeNode(name.c_str());
    if (!attribute) return VYR_E_FAIL;
    o_value = VYRXMLToUnicodeString(attribute->getValue());
    return VYR_S_OK;
  });
}

VYRStatus VYRIDOMDocument_var::GetDocumentElement(VYRIDOMElement_var& o_root) const {
  o_root.Clear();
  if (IsNull()) return VYR_E_INVALIDARG;
  const auto* document = static_cast<const xercesc::DOMDocument*>(VYRXMLDocumentData::NodeOf(*this));
  o_root = VYRIDOMElement_var(VYRXMLDocumentData::MakeNodeHandle(*this, document->getDocumentElement()));
  return o_root.IsNull() ? VYR_E_FAIL : VYR_S_OK;
}

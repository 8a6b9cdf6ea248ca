#pragma once

#include <xercesc/dom/DOMDocument.hpp>
#include <xercesc/dom/DOMNode.hpp>
#include <xercesc/framework/MemoryManager.hpp>

#include <memory>
#include <unordered_set>

#include "VYRUnicodeString.h"
#include "VYRXMLDOM.h"

// The memory of one parse and of the document it builds. The parser library
// does not give back everything it takes for a document type declaration;
// what is left is freed here, when the document goes.
class VYRXMLArena : public xercesc::MemoryManager {
 public:
  VYRXMLArena() = default;
  ~VYRXMLArena() override;
  VYRXMLArena(const VYRXMLArena&) = delete;
  VYRXMLArena& operator=(const VYRXMLArena&) = delete;

  xercesc::MemoryManager* getExceptionMemoryManager() override;
  void* allocate(XMLSize_t i_size) override;
  void deallocate(void* i_pBlock) override;

 private:
  std::unordered_set<void*> _blocks;
};

// Owns a parsed document for the handles that refer into it, and converts
// between the parser's UTF-16 text and the platform's UTF-8 strings.
class VYRXMLDocumentData {
 public:
  VYRXMLDocumentData(std::unique_ptr<VYRXMLArena> i_arena, xercesc::DOMDocument* i_pDocument)
      : _arena(std::move(i_arena)), _pDocument(i_pDocument) {}
  ~VYRXMLDocumentData();
  VYRXMLDocumentData(const VYRXMLDocumentData&) = delete;
  VYRXMLDocumentData& operator=(const VYRXMLDocumentData&) = delete;

  static VYRIDOMDocument_var MakeDocumentHandle(const std::shared_ptr<VYRXMLDocumentData>& i_document);
  // A handle on a node of the document a handle refers into; null for a null node.
  static VYRIDOMNode_var MakeNodeHandle(const VYRIDOMNode_var& i_from, xercesc::DOMNode* i_pNode);
  static xercesc::DOMNode* NodeOf(const VYRIDOMNode_var& i_handle) {
    return static_cast<xercesc::DOMNode*>(i_handle._pNode);
  }

 private:
  std::unique_ptr<VYRXMLArena> _arena;  // outlives the document, which allocates from it
  xercesc::DOMDocument* _pDocument;
};

// UTF-16 from the parser to UTF-8; empty for null.
VYRUnicodeString VYRXMLToUnicodeString(const XMLCh* i_text);
// UTF-8 to UTF-16 for the parser.
std::u16string VYRXMLFromUnicodeString(const VYRUnicodeString& i_text);

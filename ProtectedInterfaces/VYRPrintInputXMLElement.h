#pragma once

#include "VYRExport.h"
#include "VYRPrintInput.h"
#include "VYRStatus.h"
#include "VYRXMLDOM.h"

// An element of a parsed document as input: an embedded svg element, or the
// root a host got from MMParsingTools::BuildParser. The handle keeps the
// document alive as long as this input holds it.
class VYR_EXPORT VYRPrintInputXMLElement : public VYRPrintInput {
  VYR_DECLARE_CLASS(VYRPrintInputXMLElement)

 public:
  VYRPrintInputXMLElement() = default;
  explicit VYRPrintInputXMLElement(const VYRIDOMElement_var& i_element, const VYRUnicodeString& i_systemId = "")
      : VYRPrintInput(i_systemId), _element(i_element) {}
  ~VYRPrintInputXMLElement() override = default;

  const VYRIDOMElement_var& GetElement() const { return _element; }
  void SetElement(const VYRIDOMElement_var& i_element) { _element = i_element; }
  bool IsNull() const { return _element.IsNull(); }

  // The element's qualified name ("svg", "svg:svg"); VYR_E_INVALIDARG and an empty name without element.
  VYRStatus GetName(VYRUnicodeString& o_name) const { return _element.GetNodeName(o_name); }
  // An attribute's value; VYR_E_FAIL when it is absent, VYR_E_INVALIDARG without element.
  VYRStatus GetAttribute(const VYRUnicodeString& i_name, VYRUnicodeString& o_value) const {
    return _element.GetAttribute(i_name, o_value);
  }

 private:
  VYRIDOMElement_var _element;
};

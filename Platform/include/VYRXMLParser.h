#pragma once

#include "VYRBaseUnknown.h"
#include "VYRExport.h"
#include "VYRSYPDynArray.h"
#include "VYRStatus.h"
#include "VYRUnicodeString.h"
#include "VYRXMLDOM.h"

// The XML parser of the platform: a document builder that parses text held
// in memory into a DOM (VYRXMLDOM.h). Parsing never reaches the network:
// external entities and DTDs are read only from local files that exist, and
// any other reference (http, https, ...) reads as empty. Entity expansion is
// limited, and so is the depth of element nesting. A failed parse returns a
// failure status and leaves its message as the platform's last error
// (VYRLastError.h).

// Implementation names accepted by the factories.
constexpr const char* VYR_XML_DOM_IMPLEMENTATION = "XML4C_DOM";
constexpr const char* VYR_XML_SAX_IMPLEMENTATION = "XML4C_SAX";

// Parser option: "true" validates against the document's DTD, "false" (the default) does not.
constexpr const char* VYR_XML_OPTION_DO_VALIDATION = "VYRDoValidation";

// The text of a document and the system identifier naming it (the base
// against which relative references in the document are resolved).
class VYR_EXPORT VYRIXMLInputSource {
 public:
  VYRIXMLInputSource() = default;
  VYRIXMLInputSource(const VYRUnicodeString& i_text, const VYRUnicodeString& i_systemId)
      : _text(i_text), _systemId(i_systemId) {}

  const VYRUnicodeString& GetText() const { return _text; }
  const VYRUnicodeString& GetSystemId() const { return _systemId; }

 private:
  VYRUnicodeString _text;  // UTF-8, whatever encoding the XML declaration names
  VYRUnicodeString _systemId;
};

class VYR_EXPORT VYRIXMLSAX2Factory : public VYRBaseUnknown {
  VYR_DECLARE_CLASS(VYRIXMLSAX2Factory)
 public:
  // An input source over a copy of the text.
  VYRStatus CreateInputSource(const VYRUnicodeString& i_text, const VYRUnicodeString& i_systemId,
                              VYRIXMLInputSource& o_source) const;
};

class VYR_EXPORT VYRIXMLDOMDocumentBuilder : public VYRBaseUnknown {
  VYR_DECLARE_CLASS(VYRIXMLDOMDocumentBuilder)
 public:
  // Deeper element nesting fails the parse, so that code walking the tree recursively stays safe.
  static constexpr int kMaxElementDepth = 10000;
  // Entity expansion is bounded so that no document costs more than a few
  // million characters of replacement text: a parse fails beyond this many
  // expansions of general entities, or on a general entity whose replacement
  // text is longer than kMaxEntityValueLength characters.
  static constexpr int kMaxEntityExpansions = 4096;
  static constexpr int kMaxEntityValueLength = 1024;

  // Parses the source into a document. Options come as two parallel lists of
  // names and values; lists of different lengths, an unknown name or a value
  // other than "true"/"false" give VYR_E_INVALIDARG. A malformed document
  // (or, when validating, an invalid one) gives VYR_E_FAIL with a null
  // document and the parser's message as the last error.
  VYRStatus Parse(const VYRIXMLInputSource& i_source, const VYRSYPDynArray<VYRUnicodeString>& i_optionNames,
                  const VYRSYPDynArray<VYRUnicodeString>& i_optionValues, VYRIDOMDocument_var& o_document) const;
};

// Each factory makes a new object holding one reference, which the caller
// releases. An unknown implementation name gives VYR_E_INVALIDARG, a parser
// that cannot start VYR_E_FAIL; o_* is then null.
VYR_EXPORT VYRStatus CreateVYRIXMLDOMDocumentBuilder(const char* i_implementation,
                                                     VYRIXMLDOMDocumentBuilder*& o_builder);
VYR_EXPORT VYRStatus CreateVYRIXMLSAX2Factory(const char* i_implementation, VYRIXMLSAX2Factory*& o_factory);

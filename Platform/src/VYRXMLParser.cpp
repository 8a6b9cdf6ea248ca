#include "VYRXMLParser.h"

#include <sys/stat.h>
#include <unistd.h>

#include <xercesc/framework/MemBufInputSource.hpp>
#include <xercesc/framework/LocalFileInputSource.hpp>
#include <xercesc/framework/XMLBuffer.hpp>
#include <xercesc/parsers/XercesDOMParser.hpp>
#include <xercesc/sax/ErrorHandler.hpp>
#include <xercesc/sax/SAXParseException.hpp>
#include <xercesc/util/OutOfMemoryException.hpp>
#include <xercesc/util/PlatformUtils.hpp>
#include <xercesc/util/SecurityManager.hpp>
#include <xercesc/util/XMLEntityResolver.hpp>
#include <xercesc/util/XMLException.hpp>
#include <xercesc/util/XMLResourceIdentifier.hpp>
#include <xercesc/util/XMLUni.hpp>
#include <xercesc/validators/DTD/DTDEntityDecl.hpp>

#include <cctype>
#include <cstring>
#include <memory>
#include <mutex>
#include <string>

#include "VYRAssert.h"
#include "VYRLastError.h"
#include "VYRXMLDocumentData.h"

VYR_IMPLEMENT_CLASS(VYRIXMLSAX2Factory, VYRBaseUnknown, "Platform")
VYR_IMPLEMENT_CLASS(VYRIXMLDOMDocumentBuilder, VYRBaseUnknown, "Platform")

namespace {

// The parser library is started once per process and never stopped: other
// code in the process may use it too, and documents may outlive any of our objects.
bool StartParserLibrary() {
  static std::once_flag s_once;
  static bool s_started = false;
  std::call_once(s_once, [] {
    try {
      xercesc::XMLPlatformUtils::Initialize();
      s_started = true;
    } catch (...) {
      s_started = false;
    }
  });
  return s_started;
}

// ---- Entity resolution: local files only -------------------------------------------------

bool HasUrlScheme(const std::string& i_id) {
  const size_t colon = i_id.find(':');
  if (colon == std::string::npos || colon < 2) return false;  // "C:" is a drive, not a scheme
  for (size_t i = 0; i < colon; ++i) {
    const unsigned char c = static_cast<unsigned char>(i_id[i]);
    if (!(std::isalnum(c) || c == '+' || c == '-' || c == '.')) return false;
  }
  return std::isalpha(static_cast<unsigned char>(i_id[0])) != 0;
}

std::string PercentDecoded(const std::string& i_text) {
  std::string decoded;
  for (size_t i = 0; i < i_text.size(); ++i) {
    if (i_text[i] == '%' && i + 2 < i_text.size() && std::isxdigit(static_cast<unsigned char>(i_text[i + 1])) &&
        std::isxdigit(static_cast<unsigned char>(i_text[i + 2]))) {
      decoded += static_cast<char>(std::stoi(i_text.substr(i + 1, 2), nullptr, 16));
      i += 2;
    } else {
      decoded += i_text[i];
    }
  }
  return decoded;
}

// The local path an identifier names: itself, or the path of a file:// URL.
// Empty for any other URL.
std::string LocalPathOf(const std::string& i_id) {
  std::string path = i_id;
  if (HasUrlScheme(i_id)) {
    static const char kFileScheme[] = "file://";
    if (i_id.compare(0, std::strlen(kFileScheme), kFileScheme) != 0) return std::string();
    path = i_id.substr(std::strlen(kFileScheme));
    if (path.compare(0, 9, "localhost") == 0) path.erase(0, 9);
    if (path.empty() || path[0] != '/') return std::string();
    path = PercentDecoded(path);
  }
  for (char& c : path) {
    if (c == '\\') c = '/';
  }
  return path;
}

bool IsReadableFile(const std::string& i_path) {
  struct stat info {};
  return !i_path.empty() && stat(i_path.c_str(), &info) == 0 && S_ISREG(info.st_mode) &&
         access(i_path.c_str(), R_OK) == 0;
}

// The readable local file a system identifier names, relative ones taken
// against the directory of the referring entity; empty when there is none.
std::string LocalFileFor(const std::string& i_systemId, const std::string& i_baseId) {
  std::string path = LocalPathOf(i_systemId);
  if (path.empty()) return std::string();
  if (path[0] != '/' && !HasUrlScheme(i_systemId) && !i_baseId.empty()) {
    const std::string base = LocalPathOf(i_baseId);
    if (base.empty()) return std::string();  // relative to a remote document: remote too
    const size_t slash = base.rfind('/');
    if (slash != std::string::npos) path = base.substr(0, slash + 1) + path;
  }
  return IsReadableFile(path) ? path : std::string();
}

class LocalOnlyEntityResolver : public xercesc::XMLEntityResolver {
 public:
  xercesc::InputSource* resolveEntity(xercesc::XMLResourceIdentifier* i_pResource) override {
    const XMLCh* systemId = i_pResource->getSystemId();
    const std::string path = LocalFileFor(VYRXMLToUnicodeString(systemId).GetStdString(),
                                          VYRXMLToUnicodeString(i_pResource->getBaseURI()).GetStdString());
    if (!path.empty()) {
      const std::u16string localPath = VYRXMLFromUnicodeString(VYRUnicodeString(path));
      return new xercesc::LocalFileInputSource(localPath.c_str());
    }
    // Anything else reads as empty; returning null would let the parser fetch it itself.
    static const XMLByte kNothing[1] = {0};
    return new xercesc::MemBufInputSource(kNothing, 0, systemId ? systemId : u"", false);
  }
};

// ---- Errors and nesting depth ---------------------------------------------------------------

// Keeps the first error; warnings are ignored.
class FirstErrorHandler : public xercesc::ErrorHandler {
 public:
  void warning(const xercesc::SAXParseException&) override {}
  void error(const xercesc::SAXParseException& i_error) override { Record(i_error); }
  void fatalError(const xercesc::SAXParseException& i_error) override { Record(i_error); }
  void resetErrors() override {}

  bool HasError() const { return !_message.empty(); }
  const std::string& Message() const { return _message; }

 private:
  void Record(const xercesc::SAXParseException& i_error) {
    if (HasError()) return;
    _message = "line " + std::to_string(i_error.getLineNumber()) + ", column " +
               std::to_string(i_error.getColumnNumber()) + ": " +
               VYRXMLToUnicodeString(i_error.getMessage()).GetStdString();
  }
  std::string _message;
};

struct NestingTooDeep {};
struct EntityTooLong {};

// Stops the parse when elements nest deeper than the builder allows, or when
// a general entity could make its expansions expensive: together with the
// expansion count of the security manager, this bounds the replacement text
// a document can make the parser read.
class BoundedDOMParser : public xercesc::XercesDOMParser {
 public:
  explicit BoundedDOMParser(xercesc::MemoryManager* i_pMemory) : xercesc::XercesDOMParser(nullptr, i_pMemory) {}
  void startElement(const xercesc::XMLElementDecl& i_decl, const unsigned int i_urlId, const XMLCh* const i_prefix,
                    const xercesc::RefVectorOf<xercesc::XMLAttr>& i_attributes, const XMLSize_t i_attributeCount,
                    const bool i_isEmpty, const bool i_isRoot) override {
    if (!i_isEmpty && ++_depth > VYRIXMLDOMDocumentBuilder::kMaxElementDepth) throw NestingTooDeep();
    xercesc::XercesDOMParser::startElement(i_decl, i_urlId, i_prefix, i_attributes, i_attributeCount, i_isEmpty,
                                           i_isRoot);
  }
  void entityDecl(const xercesc::DTDEntityDecl& i_decl, const bool i_isPEDecl, const bool i_isIgnored) override {
    if (!i_isPEDecl && i_decl.getValueLen() > VYRIXMLDOMDocumentBuilder::kMaxEntityValueLength) throw EntityTooLong();
    xercesc::XercesDOMParser::entityDecl(i_decl, i_isPEDecl, i_isIgnored);
  }
  void endElement(const xercesc::XMLElementDecl& i_decl, const unsigned int i_urlId, const bool i_isRoot,
                  const XMLCh* const i_prefix) override {
    --_depth;
    xercesc::XercesDOMParser::endElement(i_decl, i_urlId, i_isRoot, i_prefix);
  }

 private:
  int _depth = 0;
};

VYRStatus Fail(const std::string& i_message) {
  VYRSetLastError(VYR_E_FAIL, VYRUnicodeString(i_message));
  return VYR_E_FAIL;
}

// Reads the option lists; false for a malformed list.
bool ReadOptions(const VYRSYPDynArray<VYRUnicodeString>& i_names, const VYRSYPDynArray<VYRUnicodeString>& i_values,
                 bool& o_validate) {
  o_validate = false;
  if (!VYR_CHECK_CONDITION(i_names.GetLength() == i_values.GetLength())) return false;
  for (int i = 0; i < i_names.GetLength(); ++i) {
    const bool isTrue = i_values[i] == "true";
    if (i_names[i] != VYR_XML_OPTION_DO_VALIDATION || (!isTrue && i_values[i] != "false")) return false;
    o_validate = isTrue;
  }
  return true;
}

}  // namespace

VYRStatus VYRIXMLSAX2Factory::CreateInputSource(const VYRUnicodeString& i_text, const VYRUnicodeString& i_systemId,
                                                VYRIXMLInputSource& o_source) const {
  o_source = VYRIXMLInputSource(i_text, i_systemId);
  return VYR_S_OK;
}

VYRStatus VYRIXMLDOMDocumentBuilder::Parse(const VYRIXMLInputSource& i_source,
                                           const VYRSYPDynArray<VYRUnicodeString>& i_optionNames,
                                           const VYRSYPDynArray<VYRUnicodeString>& i_optionValues,
                                           VYRIDOMDocument_var& o_document) const {
  o_document.Clear();
  bool validate = false;
  if (!ReadOptions(i_optionNames, i_optionValues, validate)) return VYR_E_INVALIDARG;
  if (!StartParserLibrary()) return Fail("the XML parser library could not be initialised");

  try {
    LocalOnlyEntityResolver resolver;
    FirstErrorHandler errors;
    xercesc::SecurityManager limits;  // caps entity expansions (billion laughs)
    limits.setEntityExpansionLimit(kMaxEntityExpansions);
    auto arena = std::make_unique<VYRXMLArena>();
    BoundedDOMParser parser(arena.get());  // goes before the arena
    parser.setValidationScheme(validate ? xercesc::XercesDOMParser::Val_Always : xercesc::XercesDOMParser::Val_Never);
    parser.setDoNamespaces(true);
    parser.setDoSchema(false);
    parser.setLoadSchema(false);
    parser.setCreateEntityReferenceNodes(false);  // entity text joins the surrounding text nodes
    parser.setSecurityManager(&limits);
    parser.setDisableDefaultEntityResolution(true);
    parser.setXMLEntityResolver(&resolver);
    parser.setErrorHandler(&errors);

    const std::u16string systemId = VYRXMLFromUnicodeString(i_source.GetSystemId());
    const VYRUnicodeString& text = i_source.GetText();
    xercesc::MemBufInputSource input(reinterpret_cast<const XMLByte*>(text.CastToCharPtr()),
                                     static_cast<XMLSize_t>(text.GetLengthInChar()), systemId.c_str(), false);
    input.setEncoding(xercesc::XMLUni::fgUTF8EncodingString);  // the platform's strings are UTF-8
    parser.parse(input);

    if (errors.HasError()) return Fail(errors.Message());
    if (!parser.getDocument() || !parser.getDocument()->getDocumentElement()) return Fail("no document element");
    auto document = std::make_shared<VYRXMLDocumentData>(std::move(arena), parser.adoptDocument());
    o_document = VYRXMLDocumentData::MakeDocumentHandle(document);
    return VYR_S_OK;
  } catch (const NestingTooDeep&) {
    return Fail("elements nest deeper than " + std::to_string(kMaxElementDepth) + " levels");
  } catch (const EntityTooLong&) {
    return Fail("an entity's replacement text is longer than " + std::to_string(kMaxEntityValueLength) +
                " characters");
  } catch (const xercesc::XMLException& i_error) {
    return Fail(VYRXMLToUnicodeString(i_error.getMessage()).GetStdString());
  } catch (const xercesc::OutOfMemoryException&) {
    return Fail("out of memory while parsing");
  } catch (const std::bad_alloc&) {
    return Fail("out of memory while parsing");
  } catch (...) {
    return Fail("the XML parser failed");
  }
}

VYRStatus CreateVYRIXMLDOMDocumentBuilder(const char* i_implementation, VYRIXMLDOMDocumentBuilder*& o_builder) {
  o_builder = nullptr;
  if (!i_implementation || std::strcmp(i_implementation, VYR_XML_DOM_IMPLEMENTATION) != 0) return VYR_E_INVALIDARG;
  if (!StartParserLibrary()) return VYR_E_FAIL;
  o_builder = new (std::nothrow) VYRIXMLDOMDocumentBuilder();
  return o_builder ? VYR_S_OK : VYR_E_OUTOFMEMORY;
}

VYRStatus CreateVYRIXMLSAX2Factory(const char* i_implementation, VYRIXMLSAX2Factory*& o_factory) {
  o_factory = nullptr;
  if (!i_implementation || std::strcmp(i_implementation, VYR_XML_SAX_IMPLEMENTATION) != 0) return VYR_E_INVALIDARG;
  if (!StartParserLibrary()) return VYR_E_FAIL;
  o_factory = new (std::nothrow) VYRIXMLSAX2Factory();
  return o_factory ? VYR_S_OK : VYR_E_OUTOFMEMORY;
}

#include <gtest/gtest.h>

#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

#include "AssertionCapture.h"
#include "TestPrinters.h"
#include "VYRLastError.h"
#include "VYRXMLParser.h"

namespace fs = std::filesystem;

namespace {

class XMLParse : public ::testing::Test {
 protected:
  void SetUp() override {
    ASSERT_EQ(CreateVYRIXMLDOMDocumentBuilder("XML4C_DOM", _builder), VYR_S_OK);
    ASSERT_EQ(CreateVYRIXMLSAX2Factory("XML4C_SAX", _factory), VYR_S_OK);
    VYRClearLastError();
  }
  void TearDown() override {
    if (_builder) _builder->Release();
    if (_factory) _factory->Release();
  }

  VYRStatus Parse(const std::string& i_text, VYRIDOMDocument_var& o_document, const char* i_validate = "false",
                  const char* i_systemId = "svg") {
    VYRIXMLInputSource source;
    EXPECT_EQ(_factory->CreateInputSource(VYRUnicodeString(i_text), i_systemId, source), VYR_S_OK);
    VYRSYPDynArray<VYRUnicodeString> names, values;
    names.Append("VYRDoValidation");
    values.Append(i_validate);
    return _builder->Parse(source, names, values, o_document);
  }

  // Parses and returns the root element (null on failure).
  VYRIDOMElement_var Root(const std::string& i_text, const char* i_validate = "false") {
    VYRIDOMDocument_var document;
    VYRIDOMElement_var root;
    if (VYRSucceeded(Parse(i_text, document, i_validate))) document.GetDocumentElement(root);
    return root;
  }

  static std::string DtdPath() {
    const char* root = std::getenv("VYRInstallPath");
    return std::string(root ? root : VYR_BINARY_DIR) + "/resources/reffiles/svg_dtd/svg11.dtd";
  }

  static std::string Name(const VYRIDOMNode_var& i_node) {
    VYRUnicodeString name;
    i_node.GetNodeName(name);
    return name.GetStdString();
  }
  static int Type(const VYRIDOMNode_var& i_node) {
    int type = 0;
    i_node.GetNodeType(type);
    return type;
  }
  static std::string Value(const VYRIDOMNode_var& i_node) {
    VYRUnicodeString value;
    i_node.GetNodeValue(value);
    return value.GetStdString();
  }
  static VYRIDOMNode_var Next(const VYRIDOMNode_var& i_node) {
    VYRIDOMNode_var next;
    i_node.GetNextSibling(next);
    return next;
  }
  static VYRIDOMNode_var FirstChild(const VYRIDOMNode_var& i_node) {
    VYRIDOMNode_var child;
    i_node.GetFirstChild(child);
    return child;
  }

  VYRIXMLDOMDocumentBuilder* _builder = nullptr;
  VYRIXMLSAX2Factory* _factory = nullptr;
};

}  // namespace

TEST(XMLFactories, OnlyTheirImplementationNames) {
  VYRIXMLDOMDocumentBuilder* builder = reinterpret_cast<VYRIXMLDOMDocumentBuilder*>(1);
  VYRIXMLSAX2Factory* factory = reinterpret_cast<VYRIXMLSAX2Factory*>(1);
  EXPECT_EQ(CreateVYRIXMLDOMDocumentBuilder("XML4C_SAX", builder), VYR_E_INVALIDARG);
  EXPECT_EQ(builder, nullptr);
  EXPECT_EQ(CreateVYRIXMLDOMDocumentBuilder(nullptr, builder), VYR_E_INVALIDARG);
  EXPECT_EQ(CreateVYRIXMLSAX2Factory("XML4C_DOM", factory), VYR_E_INVALIDARG);
  EXPECT_EQ(factory, nullptr);
  ASSERT_EQ(CreateVYRIXMLSAX2Factory("XML4C_SAX", factory), VYR_S_OK);
  EXPECT_STREQ(factory->IsA(), "VYRIXMLSAX2Factory");
  EXPECT_EQ(factory->Release(), 0u);
}

TEST_F(XMLParse, SvgWithTheLocalDtdWalksAndGetsTheDtdDefaults) {
  const std::string text = "<?xml version=\"1.0\"?>\n<!DOCTYPE svg PUBLIC \"-//W3C//DTD SVG 1.1//EN\" \"" + DtdPath() +
                           "\">\n"
                           "<svg xmlns=\"http://www.w3.org/2000/svg\" xmlns:xlink=\"http://www.w3.org/1999/xlink\" "
                           "width=\"10\">\n"
                           "  <rect x=\"1\"/><!-- note --><text>a<tspan>inner</tspan>b</text>\n"
                           "</svg>";
  VYRIDOMDocument_var document;
  ASSERT_EQ(Parse(text, document), VYR_S_OK) << VYRGetLastErrorMessage().GetStdString();
  EXPECT_FALSE(VYRHasLastError());
  VYRIDOMElement_var root;
  ASSERT_EQ(document.GetDocumentElement(root), VYR_S_OK);
  EXPECT_EQ(Name(root), "svg");
  EXPECT_EQ(Type(root), VYR_DOM_ELEMENT_NODE);

  VYRUnicodeString attribute;
  EXPECT_EQ(root.GetAttribute("width", attribute), VYR_S_OK);
  EXPECT_EQ(attribute, "10");
  // Only the DTD gives this one: its modules were read from the local copy.
  EXPECT_EQ(root.GetAttribute("version", attribute), VYR_S_OK);
  EXPECT_EQ(attribute, "1.1");
  EXPECT_EQ(root.GetAttribute("height", attribute), VYR_E_FAIL);
  EXPECT_EQ(attribute, "");

  VYRIDOMNode_var whitespace = FirstChild(root);
  EXPECT_EQ(Type(whitespace), VYR_DOM_TEXT_NODE);
  EXPECT_EQ(Name(whitespace), "#text");
  EXPECT_EQ(Value(whitespace), "\n  ");
  VYRIDOMNode_var rect = Next(whitespace);
  EXPECT_EQ(Name(rect), "rect");
  EXPECT_EQ(Value(rect), "");
  EXPECT_EQ(FirstChild(rect), VYRIDOMNode_var());
  VYRIDOMNode_var comment = Next(rect);
  EXPECT_EQ(Type(comment), VYR_DOM_COMMENT_NODE);
  EXPECT_EQ(Value(comment), " note ");
  VYRIDOMNode_var textElement = Next(comment);
  EXPECT_EQ(Name(textElement), "text");
  VYRIDOMNode_var a = FirstChild(textElement);
  EXPECT_EQ(Value(a), "a");
  EXPECT_EQ(Value(FirstChild(Next(a))), "inner");
  EXPECT_EQ(Value(Next(Next(a))), "b");
  VYRIDOMNode_var last = Next(textElement);
  EXPECT_EQ(Type(last), VYR_DOM_TEXT_NODE);
  VYRIDOMNode_var none;
  EXPECT_EQ(last.GetNextSibling(none), VYR_S_FALSE);
  EXPECT_TRUE(none.IsNull());
  EXPECT_FALSE(static_cast<bool>(none));
}

TEST_F(XMLParse, ValidationOnRejectsWhatTheDtdForbids) {
  const std::string head = "<!DOCTYPE svg PUBLIC \"-//W3C//DTD SVG 1.1//EN\" \"" + DtdPath() + "\">\n";
  EXPECT_FALSE(Root(head + "<svg xmlns=\"http://www.w3.org/2000/svg\"><rect width=\"1\" height=\"1\"/></svg>", "true")
                   .IsNull())
      << VYRGetLastErrorMessage().GetStdString();
  const std::string invalid = head + "<svg xmlns=\"http://www.w3.org/2000/svg\"><bogus/></svg>";
  EXPECT_TRUE(Root(invalid, "true").IsNull());
  EXPECT_TRUE(VYRHasLastError());
  EXPECT_FALSE(Root(invalid, "false").IsNull());
}

TEST_F(XMLParse, RemoteReferencesReadAsEmptyWithoutNetwork) {
  // Nothing listens on port 1: any attempt to fetch would fail the parse.
  const std::string text =
      "<!DOCTYPE svg PUBLIC \"-//W3C//DTD SVG 1.1//EN\" \"http://127.0.0.1:1/svg11.dtd\" [\n"
      "<!ENTITY remote SYSTEM \"https://127.0.0.1:1/part.xml\">\n"
      "<!ENTITY ftp SYSTEM \"ftp://127.0.0.1:1/part.xml\">\n]>\n"
      "<svg>[&remote;&ftp;]</svg>";
  VYRIDOMElement_var root = Root(text);
  ASSERT_FALSE(root.IsNull()) << VYRGetLastErrorMessage().GetStdString();
  EXPECT_EQ(Value(FirstChild(root)), "[]");
  VYRUnicodeString version;
  EXPECT_EQ(root.GetAttribute("version", version), VYR_E_FAIL);
}

TEST_F(XMLParse, LocalReferencesResolveAgainstTheDocumentOrAsFileUrls) {
  const fs::path dir = fs::temp_directory_path() / ("vyr_xml_" + std::to_string(getpid()));
  fs::create_directories(dir / "sub");
  std::ofstream(dir / "sub" / "local.dtd") << "<!ENTITY greeting \"hello\">\n";
  std::ofstream(dir / "part.xml") << "part";
  const std::string text = "<!DOCTYPE svg SYSTEM \"sub/local.dtd\" [\n"
                           "<!ENTITY part SYSTEM \"file://" + (dir / "part.xml").string() + "\">\n"
                           "<!ENTITY missing SYSTEM \"nowhere.xml\">\n]>\n"
                           "<svg>&greeting;,&part;,&missing;</svg>";
  VYRIXMLInputSource source;
  ASSERT_EQ(_factory->CreateInputSource(VYRUnicodeString(text), (dir / "doc.svg").c_str(), source), VYR_S_OK);
  EXPECT_EQ(source.GetSystemId(), (dir / "doc.svg").c_str());
  VYRIDOMDocument_var document;
  VYRIDOMElement_var root;
  ASSERT_EQ(_builder->Parse(source, {}, {}, document), VYR_S_OK) << VYRGetLastErrorMessage().GetStdString();
  ASSERT_EQ(document.GetDocumentElement(root), VYR_S_OK);
  EXPECT_EQ(Value(FirstChild(root)), "hello,part,");
  fs::remove_all(dir);
}

TEST_F(XMLParse, MalformedDocumentsFailWithAMessage) {
  const std::string texts[] = {"<svg><rect></svg>", "", "not xml at all", "<svg>", "<a></a><b/>",
                               std::string("<svg>\0</svg>", 12), "<svg a='1' a='2'/>"};
  for (const std::string& text : texts) {
    VYRClearLastError();
    VYRIDOMDocument_var document = VYRIDOMDocument_var();
    EXPECT_EQ(Parse(text, document), VYR_E_FAIL) << text;
    EXPECT_TRUE(document.IsNull());
    EXPECT_TRUE(VYRHasLastError());
    EXPECT_EQ(VYRGetLastErrorCode(), VYR_E_FAIL);
    EXPECT_FALSE(VYRGetLastErrorMessage().IsEmpty()) << text;
  }
  EXPECT_NE(VYRGetLastErrorMessage().Find("line 1"), -1) << VYRGetLastErrorMessage().GetStdString();
  VYRClearLastError();
  EXPECT_FALSE(VYRHasLastError());
  EXPECT_EQ(VYRGetLastErrorCode(), VYR_S_OK);
  EXPECT_EQ(VYRGetLastErrorMessage(), "");
}

TEST_F(XMLParse, BillionLaughsStopsAtTheExpansionLimit) {
  std::string text = "<!DOCTYPE lolz [\n<!ENTITY lol0 \"lol\">\n";
  for (int i = 1; i <= 9; ++i) {
    text += "<!ENTITY lol" + std::to_string(i) + " \"";
    for (int j = 0; j < 10; ++j) text += "&lol" + std::to_string(i - 1) + ";";
    text += "\">\n";
  }
  text += "]>\n<lolz>&lol9;</lolz>";
  VYRIDOMDocument_var document;
  EXPECT_EQ(Parse(text, document), VYR_E_FAIL);
  EXPECT_TRUE(document.IsNull());
  EXPECT_TRUE(VYRHasLastError());
}

// Documents whose entities would expand to megabytes fail at once: a general
// entity longer than the limit is refused where it is declared, and the
// expansions (in content and attribute values alike) are counted.
TEST_F(XMLParse, EntityExpansionIsBoundedByLengthAndCount) {
  const int maxLength = VYRIXMLDOMDocumentBuilder::kMaxEntityValueLength;
  const int maxExpansions = VYRIXMLDOMDocumentBuilder::kMaxEntityExpansions;
  const auto withEntity = [](int i_length, const std::string& i_body) {
    return "<!DOCTYPE a [\n<!ENTITY e \"" + std::string(i_length, 'x') + "\">\n]>\n" + i_body;
  };
  const auto references = [](int i_count) {
    std::string text;
    for (int i = 0; i < i_count; ++i) text += "&e;";
    return text;
  };
  VYRIDOMDocument_var document;
  VYRIDOMElement_var root = Root(withEntity(maxLength, "<a b='&e;'>&e;</a>"));
  ASSERT_FALSE(root.IsNull()) << VYRGetLastErrorMessage().GetStdString();
  VYRUnicodeString value;
  ASSERT_EQ(root.GetAttribute("b", value), VYR_S_OK);
  EXPECT_EQ(value.GetLengthInChar(), maxLength);

  EXPECT_EQ(Parse(withEntity(maxLength + 1, "<a/>"), document), VYR_E_FAIL);
  EXPECT_TRUE(document.IsNull());
  EXPECT_NE(VYRGetLastErrorMessage().Find("replacement text"), -1) << VYRGetLastErrorMessage().GetStdString();

  EXPECT_EQ(Parse(withEntity(2, "<a>" + references(maxExpansions) + "</a>"), document), VYR_S_OK);
  EXPECT_EQ(Parse(withEntity(2, "<a>" + references(maxExpansions + 1) + "</a>"), document), VYR_E_FAIL);
  EXPECT_NE(VYRGetLastErrorMessage().Find("entity expansions"), -1) << VYRGetLastErrorMessage().GetStdString();
  EXPECT_EQ(Parse(withEntity(2, "<a b='" + references(maxExpansions + 1) + "'/>"), document), VYR_E_FAIL);

  // Nested entities count every expansion: ten levels of ten stop early.
  std::string nested = "<!DOCTYPE a [\n<!ENTITY e0 \"" + std::string(maxLength, 'x') + "\">\n";
  for (int level = 1; level <= 4; ++level) {
    nested += "<!ENTITY e" + std::to_string(level) + " \"";
    for (int j = 0; j < 10; ++j) nested += "&e" + std::to_string(level - 1) + ";";
    nested += "\">\n";
  }
  EXPECT_EQ(Parse(nested + "]>\n<a b='&e4;'/>", document), VYR_E_FAIL);
  EXPECT_EQ(Parse(nested + "]>\n<a>&e4;</a>", document), VYR_E_FAIL);
}

TEST_F(XMLParse, DeepNestingFailsCleanlyBeyondTheLimit) {
  const auto nested = [](int i_depth) {
    std::string text;
    for (int i = 0; i < i_depth; ++i) text += "<g>";
    for (int i = 0; i < i_depth; ++i) text += "</g>";
    return text;
  };
  VYRIDOMDocument_var document;
  EXPECT_EQ(Parse(nested(100000), document), VYR_E_FAIL);
  EXPECT_TRUE(document.IsNull());
  EXPECT_NE(VYRGetLastErrorMessage().Find("nest"), -1);
  EXPECT_EQ(Parse(nested(VYRIXMLDOMDocumentBuilder::kMaxElementDepth + 1), document), VYR_E_FAIL);
  EXPECT_EQ(Parse(nested(VYRIXMLDOMDocumentBuilder::kMaxElementDepth), document), VYR_S_OK);
  // Empty elements do not open a level.
  EXPECT_EQ(Parse("<a>" + std::string(50000, ' ') + "<b/><b/><b/></a>", document), VYR_S_OK);
}

TEST_F(XMLParse, BadOptionListsAreRefused) {
  VYRIXMLInputSource source("<svg/>", "svg");
  VYRIDOMDocument_var document;
  VYRSYPDynArray<VYRUnicodeString> names, values;
  names.Append("VYRDoValidation");
  {
    AssertionCapture capture;
    EXPECT_EQ(_builder->Parse(source, names, values, document), VYR_E_INVALIDARG);
    EXPECT_EQ(capture.FailedConditions().size(), 1u);
  }
  values.Append("maybe");
  EXPECT_EQ(_builder->Parse(source, names, values, document), VYR_E_INVALIDARG);
  names[0] = "VYRUnknownOption";
  values[0] = "true";
  EXPECT_EQ(_builder->Parse(source, names, values, document), VYR_E_INVALIDARG);
  EXPECT_TRUE(document.IsNull());
  EXPECT_EQ(_builder->Parse(source, {}, {}, document), VYR_S_OK);
}

TEST_F(XMLParse, HandlesKeepTheDocumentAlive) {
  VYRIDOMNode_var child;
  {
    VYRIDOMDocument_var document;
    ASSERT_EQ(Parse("<svg><g id=\"\xC3\xA9t\xC3\xA9\">caf\xC3\xA9 \xE2\x82\xAC</g></svg>", document), VYR_S_OK);
    VYRIDOMElement_var root;
    document.GetDocumentElement(root);
    child = FirstChild(root);
    _builder->Release();
    _builder = nullptr;
  }
  EXPECT_EQ(Name(child), "g");
  VYRUnicodeString id;
  EXPECT_EQ(VYRIDOMElement_var(child).GetAttribute("id", id), VYR_S_OK);
  EXPECT_EQ(id, "\xC3\xA9t\xC3\xA9");
  EXPECT_EQ(Value(FirstChild(child)), "caf\xC3\xA9 \xE2\x82\xAC");
}

TEST_F(XMLParse, NullAndNonElementHandles) {
  VYRIDOMNode_var null;
  VYRIDOMNode_var out;
  VYRUnicodeString text = "stale";
  int type = 5;
  EXPECT_EQ(null.GetNextSibling(out), VYR_E_INVALIDARG);
  EXPECT_EQ(null.GetFirstChild(out), VYR_E_INVALIDARG);
  EXPECT_EQ(null.GetNodeName(text), VYR_E_INVALIDARG);
  EXPECT_EQ(text, "");
  EXPECT_EQ(null.GetNodeType(type), VYR_E_INVALIDARG);
  EXPECT_EQ(type, 0);
  EXPECT_EQ(null.GetNodeValue(text), VYR_E_INVALIDARG);
  EXPECT_EQ(VYRIDOMElement_var().GetAttribute("a", text), VYR_E_INVALIDARG);
  VYRIDOMElement_var root;
  EXPECT_EQ(VYRIDOMDocument_var().GetDocumentElement(root), VYR_E_INVALIDARG);

  VYRIDOMElement_var svg = Root("<svg>text</svg>");
  ASSERT_FALSE(svg.IsNull());
  EXPECT_TRUE(VYRIDOMElement_var(FirstChild(svg)).IsNull());
  EXPECT_EQ(VYRIDOMElement_var(VYRIDOMNode_var(svg)), svg);
  svg.Clear();
  EXPECT_TRUE(svg.IsNull());
}

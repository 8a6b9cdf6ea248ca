#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

#include "MMParsingTools.h"
#include "TestPrinters.h"

namespace fs = std::filesystem;

namespace {

const std::string kSvgNs = "xmlns=\"http://www.w3.org/2000/svg\"";
const std::string kXLinkNs = "xmlns:xlink=\"http://www.w3.org/1999/xlink\"";
const std::string kSvg11 = "http://www.w3.org/Graphics/SVG/1.1/DTD/svg11.dtd";
const std::string kPublicId = "<!DOCTYPE svg PUBLIC \"-//W3C//DTD SVG 1.1//EN\"";

// Each test chooses its installation roots; the original value comes back afterwards.
class XMLSetUp : public ::testing::Test {
 protected:
  void SetUp() override {
    const char* value = std::getenv("VYRInstallPath");
    _hadInstallPath = value != nullptr;
    if (value) _installPath = value;
    SetInstallPath(BuildRoot());
    _tempDir = fs::temp_directory_path() / ("vyr_xml_" + std::to_string(::getpid()) + "_" +
                                            ::testing::UnitTest::GetInstance()->current_test_info()->name());
    fs::create_directories(_tempDir);
  }
  void TearDown() override {
    if (_hadInstallPath) setenv("VYRInstallPath", _installPath.c_str(), 1);
    else unsetenv("VYRInstallPath");
    fs::remove_all(_tempDir);
  }

  static std::string BuildRoot() { return VYR_BINARY_DIR; }
  static std::string DtdUnder(const std::string& i_root) { return i_root + "/resources/reffiles/svg_dtd/svg11.dtd"; }
  static void SetInstallPath(const std::string& i_value) { setenv("VYRInstallPath", i_value.c_str(), 1); }

  // Builds with the given type; the buffer is rewritten in place.
  long Build(std::string& io_text, const char* i_type = "svg") {
    VYRUnicodeString buffer(io_text);
    _root = VYRIDOMElement_var();
    long status = MMParsingTools::BuildParser(buffer, i_type, _root);
    io_text = buffer.GetStdString();
    return status;
  }

  std::string Attribute(const char* i_name) const {
    VYRUnicodeString value;
    _root.GetAttribute(i_name, value);
    return value.GetStdString();
  }

  static VYRIDOMNode_var FirstChild(const VYRIDOMNode_var& i_node) {
    VYRIDOMNode_var child;
    i_node.GetFirstChild(child);
    return child;
  }

  VYRIDOMElement_var _root;
  fs::path _tempDir;

 private:
  bool _hadInstallPath = false;
  std::string _installPath;
};

}  // namespace

TEST_F(XMLSetUp, BareRootTagGetsBothNamespacesInFront) {
  std::string text = "<svg width=\"10\"></svg>";
  ASSERT_EQ(Build(text), 0);
  EXPECT_EQ(text, "<svg " + kSvgNs + "  " + kXLinkNs + "  width=\"10\"></svg>");
  VYRUnicodeString name;
  _root.GetNodeName(name);
  EXPECT_EQ(name, "svg");
  EXPECT_EQ(Attribute("width"), "10");
}

TEST_F(XMLSetUp, ExistingDeclarationsAreKept) {
  std::string spaced = "<svg xmlns =\"http://www.w3.org/2000/svg\" width=\"1\"/>";
  ASSERT_EQ(Build(spaced), 0);
  EXPECT_EQ(spaced, "<svg " + kXLinkNs + "  xmlns =\"http://www.w3.org/2000/svg\" width=\"1\"/>");

  std::string both = "<?xml version=\"1.0\"?>\n<svg " + kXLinkNs + "\t" + kSvgNs + "><g/></svg>";
  const std::string original = both;
  ASSERT_EQ(Build(both), 0);
  EXPECT_EQ(both, original);

  // Only a prefixed namespace other than XLink: the default one is still missing.
  std::string prefixed = "<svg xmlns:foo=\"urn:foo\" " + kXLinkNs + "/>";
  ASSERT_EQ(Build(prefixed), 0);
  EXPECT_EQ(prefixed, "<svg " + kSvgNs + "  xmlns:foo=\"urn:foo\" " + kXLinkNs + "/>");
}

TEST_F(XMLSetUp, OtherTypesParseTheBufferUnchanged) {
  std::string text = kPublicId + " \"" + kSvg11 + "\">\n<svg width=\"2\"/>";
  const std::string original = text;
  ASSERT_EQ(Build(text, "xml"), 0);
  EXPECT_EQ(text, original);
  EXPECT_EQ(Attribute("width"), "2");
}

TEST_F(XMLSetUp, DoctypeSystemIdentifierBecomesTheLocalDtd) {
  std::string text = kPublicId + " \"" + kSvg11 + "\">\n<svg " + kSvgNs + " " + kXLinkNs + "/>";
  ASSERT_EQ(Build(text), 0);
  EXPECT_EQ(text, kPublicId + " \"" + DtdUnder(BuildRoot()) + "\">\n<svg " + kSvgNs + " " + kXLinkNs + "/>");
  EXPECT_EQ(Attribute("version"), "1.1");  // a default only the DTD supplies
}

TEST_F(XMLSetUp, MissingOrForeignSystemIdentifierIsReplacedByTheSvg11One) {
  const std::string rest = "\n<svg " + kSvgNs + " " + kXLinkNs + "/>";
  const std::string local = " \"" + DtdUnder(BuildRoot()) + "\" ";

  std::string publicOnly = kPublicId + ">" + rest;
  ASSERT_EQ(Build(publicOnly), 0);
  EXPECT_EQ(publicOnly, kPublicId + local + ">" + rest);
  EXPECT_EQ(Attribute("version"), "1.1");

  std::string foreign = kPublicId + " \"svg-1.1.xml\">" + rest;
  ASSERT_EQ(Build(foreign), 0);
  EXPECT_EQ(foreign, kPublicId + " " + local + ">" + rest);

  // A single-quoted system identifier is found when no double quote precedes it.
  std::string single = "<!DOCTYPE svg SYSTEM '" + kSvg11 + "'>" + rest;
  ASSERT_EQ(Build(single), 0);
  EXPECT_EQ(single, "<!DOCTYPE svg SYSTEM '" + DtdUnder(BuildRoot()) + "'>" + rest);
}

TEST_F(XMLSetUp, DtdIsFoundUnderTheFirstRootThatHoldsIt) {
  const fs::path second = _tempDir / "second";
  fs::create_directories(second / "resources/reffiles/svg_dtd");
  fs::copy_file(DtdUnder(BuildRoot()), second / "resources/reffiles/svg_dtd/svg11.dtd");
  SetInstallPath((_tempDir / "first").string() + ";" + second.string());

  std::string text = kPublicId + " \"" + kSvg11 + "\"><svg " + kSvgNs + " " + kXLinkNs + "/>";
  // The modules the DTD names are not copied: validation is off, only the reference matters here.
  Build(text);
  EXPECT_NE(text.find("\"" + DtdUnder(second.string()) + "\""), std::string::npos) << text;
}

TEST_F(XMLSetUp, WithoutALocalDtdTheDocumentStillParsesOffline) {
  SetInstallPath((_tempDir / "empty").string());
  std::string text = kPublicId + " \"" + kSvg11 + "\">\n<svg " + kSvgNs + " " + kXLinkNs + " width=\"3\"/>";
  const std::string original = text;
  ASSERT_EQ(Build(text), 0);
  EXPECT_EQ(text, original);
  EXPECT_EQ(Attribute("width"), "3");
  EXPECT_EQ(Attribute("version"), "");

  unsetenv("VYRInstallPath");
  std::string unset = original;
  ASSERT_EQ(Build(unset), 0);
  EXPECT_EQ(unset, original);
}

TEST_F(XMLSetUp, MalformedDocumentFailsWithAMessage) {
  for (std::string text : {"<svg><g></svg>", "", "not xml at all", "<svg a=\"1\" a=\"2\"/>"}) {
    ::testing::internal::CaptureStderr();
    EXPECT_LT(Build(text), 0) << text;
    const std::string message = ::testing::internal::GetCapturedStderr();
    EXPECT_EQ(message.rfind("XMLParser call has failed:\n", 0), 0u) << message;
    EXPECT_TRUE(_root.IsNull());
  }
}

TEST_F(XMLSetUp, HugeAndDeepDocumentsFinishWithoutHarm) {
  // 50 MB of body text: the rewrite looks only at the prolog, so the DOCTYPE and
  // ".dtd" written in the body stay as they are.
  const std::string decoy = "<!-- <!DOCTYPE x PUBLIC \"SVG\"> a.dtd -->";
  const std::string element = "<desc>" + std::string(1000, 'x') + "</desc>\n";
  std::string big = "<svg width=\"1\">" + decoy;
  big.reserve((50u << 20) + 100);
  while (big.size() < (50u << 20)) big += element;
  big += "</svg>";
  ASSERT_EQ(Build(big), 0);
  EXPECT_NE(big.find("width=\"1\">" + decoy), std::string::npos);

  std::string deep = "<svg>";
  for (int i = 0; i < 100000; ++i) deep += "<g>";
  for (int i = 0; i < 100000; ++i) deep += "</g>";
  deep += "</svg>";
  ::testing::internal::CaptureStderr();
  const long status = Build(deep);
  const std::string message = ::testing::internal::GetCapturedStderr();
  if (status < 0) {
    EXPECT_EQ(message.rfind("XMLParser call has failed:\n", 0), 0u);
  }
}

TEST_F(XMLSetUp, NextNodeSkipsTextButNotComments) {
  std::string text = "<svg><a/>\n  <b>\n</b>text<!--c--></svg>";
  ASSERT_EQ(Build(text), 0);
  VYRIDOMNode_var node = FirstChild(_root);
  VYRIDOMNode_var next;
  VYRUnicodeString name;
  ASSERT_GE(MMParsingTools::GetNextNode(node, next, name), 0);
  EXPECT_EQ(name, "b");
  node = next;
  ASSERT_GE(MMParsingTools::GetNextNode(node, next, name), 0);
  EXPECT_EQ(name, "#comment");
  node = next;
  EXPECT_EQ(MMParsingTools::GetNextNode(node, next, name), VYR_E_FAIL);

  VYRIDOMNode_var null;
  EXPECT_EQ(MMParsingTools::GetNextNode(null, next, name), VYR_E_FAIL);
}

TEST_F(XMLSetUp, ValueConcatenatesDirectTextChildren) {
  std::string text = "<svg><t>a<x>zz</x>b<!--c--></t><e/></svg>";
  ASSERT_EQ(Build(text), 0);
  VYRIDOMNode_var t = FirstChild(_root);
  VYRUnicodeString value("old");
  EXPECT_EQ(MMParsingTools::GetValue(t, value), 0);
  EXPECT_EQ(value, "ab");

  EXPECT_EQ(MMParsingTools::GetValue(FirstChild(t), value), 0);
  EXPECT_EQ(value, "a");

  VYRIDOMNode_var empty, comment;
  t.GetNextSibling(empty);
  EXPECT_EQ(MMParsingTools::GetValue(empty, value), 0);
  EXPECT_EQ(value, "");

  FirstChild(t).GetNextSibling(comment);
  comment.GetNextSibling(comment);
  comment.GetNextSibling(comment);
  value = "old";
  EXPECT_EQ(MMParsingTools::GetValue(comment, value), VYR_E_FAIL);
  EXPECT_EQ(value, "");
  EXPECT_LT(MMParsingTools::GetValue(VYRIDOMNode_var(), value), 0);
}

TEST_F(XMLSetUp, BufferWrittenToFileAsItsBytes) {
  const fs::path path = _tempDir / "out.svg";
  const VYRUnicodeString buffer("<svg>\xC3\xA9</svg>");
  ASSERT_GE(MMParsingTools::WriteXMLBufferToFile(buffer, path.string().c_str()), 0);
  std::ifstream file(path, std::ios::binary);
  std::stringstream bytes;
  bytes << file.rdbuf();
  EXPECT_EQ(bytes.str(), buffer.GetStdString());

  EXPECT_EQ(MMParsingTools::WriteXMLBufferToFile("", path.string().c_str()), VYR_E_FAIL);
  EXPECT_LT(MMParsingTools::WriteXMLBufferToFile(buffer, (_tempDir / "no/such/dir/x.svg").string().c_str()), 0);
}

TEST_F(XMLSetUp, DecimalPointInTheCLocale) {
  VYRUnicodeString number("1.5");
  EXPECT_EQ(MMParsingTools::GetStringWithLocalDecimalChar(number), 0);
  EXPECT_EQ(number, "1.5");
  VYRUnicodeString integer("15");
  EXPECT_EQ(MMParsingTools::GetStringWithLocalDecimalChar(integer), VYR_E_FAIL);
  VYRUnicodeString empty;
  EXPECT_EQ(MMParsingTools::GetStringWithLocalDecimalChar(empty), VYR_E_FAIL);
}

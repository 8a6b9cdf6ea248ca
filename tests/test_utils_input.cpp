#include <gtest/gtest.h>

#include <cstdio>
#include <string>

#include "TestPrinters.h"
#include "VYRPrintInputBufferStream.h"
#include "VYRPrintInputFileStream.h"
#include "VYRPrintInputXMLElement.h"
#include "VYRXMLParser.h"

namespace {

const char kDocument[] = "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"12\"><g/></svg>";

std::string TempPath(const char* i_name) { return std::string(VYR_BINARY_DIR) + "/" + i_name; }

}  // namespace

TEST(PrintInput, BufferStreamReadsInPiecesRewindsAndReadsAll) {
  VYRPrintInputBufferStream input("abcdef", 6, "memory:doc");
  EXPECT_TRUE(input.IsAKindOf("VYRPrintInput"));
  EXPECT_EQ(input.GetSystemId(), VYRUnicodeString("memory:doc"));
  char buffer[4] = {};
  size_t count = 0;
  EXPECT_EQ(input.Read(buffer, 4, count), VYR_S_OK);
  EXPECT_EQ(std::string(buffer, count), "abcd");
  EXPECT_EQ(input.Read(buffer, 4, count), VYR_S_FALSE);
  EXPECT_EQ(std::string(buffer, count), "ef");
  EXPECT_EQ(input.Read(buffer, 4, count), VYR_S_FALSE);
  EXPECT_EQ(count, 0u);

  VYRUnicodeString text;
  EXPECT_EQ(input.ReadAll(text), VYR_S_OK);  // from the start, whatever was read before
  EXPECT_EQ(text, VYRUnicodeString("abcdef"));

  VYRPrintInputBufferStream empty(nullptr, 100);
  EXPECT_EQ(empty.ReadAll(text), VYR_S_OK);
  EXPECT_EQ(text, VYRUnicodeString());
}

TEST(PrintInput, FileStreamReadsTheWholeFileAndReportsAMissingOne) {
  std::string path = TempPath("print_input_file.svg");
  std::string content(40000, 'x');  // more than one read chunk
  content += kDocument;
  FILE* file = std::fopen(path.c_str(), "wb");
  ASSERT_NE(file, nullptr);
  std::fwrite(content.data(), 1, content.size(), file);
  std::fclose(file);

  VYRPrintInputFileStream input(VYRUnicodeString(path.c_str()));
  VYRUnicodeString text;
  ASSERT_EQ(input.ReadAll(text), VYR_S_OK);
  EXPECT_EQ(text, VYRUnicodeString(content));
  ASSERT_EQ(input.ReadAll(text), VYR_S_OK);  // again, after the rewind
  EXPECT_EQ(text.GetLengthInChar(), static_cast<int>(content.size()));
  std::remove(path.c_str());

  VYRPrintInputFileStream missing(VYRUnicodeString(TempPath("no_such_document.svg").c_str()));
  text = "left over";
  EXPECT_EQ(missing.ReadAll(text), VYR_E_FILENOTFOUND);
  EXPECT_EQ(text, VYRUnicodeString());
}

TEST(PrintInput, XMLElementInputReadsTheWrappedElement) {
  VYRPrintInputXMLElement none;
  VYRUnicodeString name = "x";
  EXPECT_TRUE(none.IsNull());
  EXPECT_EQ(none.GetName(name), VYR_E_INVALIDARG);

  VYRIXMLDOMDocumentBuilder* builder = nullptr;
  ASSERT_EQ(CreateVYRIXMLDOMDocumentBuilder(VYR_XML_DOM_IMPLEMENTATION, builder), VYR_S_OK);
  VYRPrintInputBufferStream bytes(kDocument, sizeof(kDocument) - 1, "memory:doc");
  VYRUnicodeString text;
  ASSERT_EQ(bytes.ReadAll(text), VYR_S_OK);
  VYRIDOMDocument_var document;
  ASSERT_EQ(builder->Parse(VYRIXMLInputSource(text, bytes.GetSystemId()), {}, {}, document), VYR_S_OK);
  builder->Release();
  VYRIDOMElement_var root;
  ASSERT_EQ(document.GetDocumentElement(root), VYR_S_OK);
  document = VYRIDOMDocument_var();  // the input's handle keeps the document

  VYRPrintInputXMLElement input(root, bytes.GetSystemId());
  root = VYRIDOMElement_var();
  EXPECT_FALSE(input.IsNull());
  EXPECT_EQ(input.GetName(name), VYR_S_OK);
  EXPECT_EQ(name, VYRUnicodeString("svg"));
  VYRUnicodeString width;
  EXPECT_EQ(input.GetAttribute("width", width), VYR_S_OK);
  EXPECT_EQ(width, VYRUnicodeString("12"));
  EXPECT_EQ(input.GetAttribute("height", width), VYR_E_FAIL);
  VYRIDOMNode_var child;
  EXPECT_EQ(input.GetElement().GetFirstChild(child), VYR_S_OK);
}

#include <gtest/gtest.h>

#include "StreamBytes.h"
#include "TestPrinters.h"
#include "VYR2DGStringStream.h"
#include "VYRPrintLinkURI.h"

namespace {

TEST(PrintLinkURI, EmptyRecordIsThreeEmptyStringsAndAZero) {
  VYRPrintLinkURI link;
  VYR2DGStringStream stream;
  link.Stream(&stream);
  EXPECT_EQ(StreamBytes(stream), Hex("00 00 00 00  00 00 00 00  00 00 00 00  00 00 00 00"));
  VYR2DGStringStream reading = ReadingStream(StreamBytes(stream));
  VYRPrintLinkURI back;
  back.SetBaseURL("replaced");
  back.Unstream(&reading);
  EXPECT_TRUE(back == link);
}

TEST(PrintLinkURI, FieldsRoundTripWithUtf8LengthsInBytes) {
  VYRPrintLinkURI link;
  link.SetBaseURL("caf\xC3\xA9");
  link.SetImageId("i");
  link.SetElementId("el");
  link.SetLinkShow(static_cast<VYRPrtLinkShow>(3));
  VYR2DGStringStream stream;
  link.Stream(&stream);
  link.Stream(nullptr);
  EXPECT_EQ(StreamBytes(stream), Hex("05 00 00 00 63 61 66 C3 A9  01 00 00 00 69  02 00 00 00 65 6C  03 00 00 00"));

  VYR2DGStringStream reading = ReadingStream(StreamBytes(stream));
  VYRPrintLinkURI back;
  back.Unstream(&reading);
  EXPECT_TRUE(back == link);
  EXPECT_EQ(back.GetBaseURL(), VYRUnicodeString("caf\xC3\xA9"));
  VYRPrintLinkURI copy(back);
  EXPECT_TRUE(copy == link);
  copy.SetLinkShow(VYRPrtLinkShowDefault);
  EXPECT_TRUE(copy != link);
}

TEST(PrintLinkURI, EveryTruncationReadsWithoutHarm) {
  VYRPrintLinkURI link;
  link.SetBaseURL("http://example.org/a.svg");
  link.SetElementId("target");
  VYR2DGStringStream stream;
  link.Stream(&stream);
  const std::vector<uint8_t> bytes = StreamBytes(stream);
  for (size_t cut = 0; cut < bytes.size(); ++cut) {
    VYR2DGStringStream reading = ReadingStream(std::vector<uint8_t>(bytes.begin(), bytes.begin() + cut));
    VYRPrintLinkURI back;
    back.Unstream(&reading);
    EXPECT_LE(back.GetBaseURL().GetLengthInChar(), link.GetBaseURL().GetLengthInChar()) << cut;
  }
}

}  // namespace

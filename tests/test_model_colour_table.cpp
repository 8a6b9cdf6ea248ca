#include <gtest/gtest.h>

#include "AssertionCapture.h"
#include "StreamBytes.h"
#include "VYR2DGStringStream.h"
#include "VYRPrtColourTable.h"

namespace {

// Skips the tag, as the stream helper does before handing the table the rest.
void UnstreamAfterTag(VYRPrtColourTable& o_table, VYR2DGStringStream& io_stream) {
  int tag = 0;
  io_stream.Unstream(tag);
  ASSERT_EQ(tag, 5);
  o_table.Unstream(&io_stream);
}

std::vector<uint8_t> Streamed(VYRPrtColourTable& i_table) {
  VYR2DGStringStream stream;
  i_table.Stream(&stream);
  return StreamBytes(stream);
}

}  // namespace

TEST(ColourTable, IndexesGrowthAndDuplicates) {
  VYRPrtColourTable table;
  unsigned int index = 99;
  EXPECT_EQ(table.AddColour(1, 2, 3, index), 1);
  EXPECT_EQ(index, 0u);
  EXPECT_EQ(Streamed(table), Hex("05 00 00 00  00 01 00 00  01 00 00 00  01 02 03"));

  for (int i = 1; i < 255; ++i) table.AddColour(static_cast<unsigned char>(i), 0, 0, index);
  EXPECT_EQ(Streamed(table)[5], 0x01);  // 255 colours: capacity still 256
  table.AddColour(1, 2, 3, index);      // the 256th would take the last slot
  EXPECT_EQ(index, 255u);
  std::vector<uint8_t> bytes = Streamed(table);
  EXPECT_EQ(std::vector<uint8_t>(bytes.begin() + 4, bytes.begin() + 12), Hex("00 02 00 00 00 01 00 00"));

  unsigned int found = 0;
  EXPECT_EQ(table.GetColourIndex(found, 1, 2, 3), 1);
  EXPECT_EQ(found, 0u);  // the lower of the two duplicates
  EXPECT_EQ(table.GetColourIndex(found, 9, 9, 9), -1);
  int count = 0;
  EXPECT_EQ(table.GetColourCount(count), 1);
  EXPECT_EQ(count, 256);

  unsigned char r = 0, g = 0, b = 0;
  EXPECT_EQ(table.GetColour(254, r, g, b), 1);
  EXPECT_EQ(r, 254);
  EXPECT_EQ(table.ModifyColour(254, 7, 8, 9), 1);
  table.GetColour(254, r, g, b);
  EXPECT_EQ((std::vector<int>{r, g, b}), (std::vector<int>{7, 8, 9}));
}

TEST(ColourTable, Failures) {
  AssertionCapture capture;
  VYRPrtColourTable empty;
  unsigned int index = 5;
  EXPECT_EQ(empty.GetColourIndex(index, 0, 0, 0), -1);
  EXPECT_EQ(capture.NullPointers(), std::vector<std::string>{"_paRedTab"});
  EXPECT_EQ(index, 5u);

  capture.Clear();
  VYRPrtColourTable table;
  table.AddColour(1, 1, 1, index);
  unsigned char r = 0, g = 0, b = 0;
  EXPECT_EQ(table.GetColour(1, r, g, b), -1);
  EXPECT_EQ(table.ModifyColour(1, 0, 0, 0), -1);
  EXPECT_EQ(capture.FailedConditions(), (std::vector<std::string>{"iIndex < _colourCount", "iIndex < _colourCount"}));

  capture.Clear();
  table = table;
  EXPECT_TRUE(capture.Has("this != &iColourTable"));
}

TEST(ColourTable, CopiesAreDeep) {
  VYRPrtColourTable table;
  unsigned int index = 0;
  table.AddColour(10, 20, 30, index);
  table.AddColour(40, 50, 60, index);
  VYRPrtColourTable copy(table);
  VYRPrtColourTable assigned;
  assigned.AddColour(1, 1, 1, index);
  assigned = table;
  table.ModifyColour(0, 0, 0, 0);
  EXPECT_EQ(Streamed(copy), Hex("05 00 00 00 00 01 00 00 02 00 00 00 0A 14 1E 28 32 3C"));
  EXPECT_EQ(Streamed(assigned), Streamed(copy));

  VYRPrtColourTable fromEmpty(VYRPrtColourTable{});
  EXPECT_EQ(Streamed(fromEmpty), Hex("05 00 00 00 00 00 00 00 00 00 00 00"));
}

TEST(ColourTable, StreamsAsTheExampleAndReadsBack) {
  VYRPrtColourTable table;
  unsigned int index = 0;
  table.AddColour(0x11, 0x22, 0x33, index);
  table.AddColour(0x44, 0x55, 0x66, index);
  VYR2DGStringStream stream;
  table.Stream(&stream);
  table.Stream(nullptr);
  EXPECT_EQ(StreamBytes(stream), Hex("05 00 00 00  00 01 00 00  02 00 00 00  11 22 33 44 55 66"));

  VYR2DGStringStream reader = ReadingStream(StreamBytes(stream));
  VYRPrtColourTable read;
  UnstreamAfterTag(read, reader);
  EXPECT_EQ(reader.GetReadableBytesLeft(), 0);
  EXPECT_EQ(Streamed(read), StreamBytes(stream));
  unsigned char r = 0, g = 0, b = 0;
  EXPECT_EQ(read.GetColour(1, r, g, b), 1);
  EXPECT_EQ(b, 0x66);
}

TEST(ColourTable, DamagedRecordsGiveAnEmptyTable) {
  const std::vector<std::string> damaged = {
      "05 00 00 00  00 01 00 00  03 00 00 00  11 22 33 44 55 66",  // a colour is missing
      "05 00 00 00  00 01 00 00  FF FF FF 7F  11 22 33",          // huge count
      "05 00 00 00  FF FF FF FF  01 00 00 00  11 22 33",          // huge capacity
      "05 00 00 00  02 00 00 00  03 00 00 00",                    // count above capacity
      "05 00 00 00  00 01",                                       // cut in the capacity
  };
  for (const std::string& listing : damaged) {
    AssertionCapture capture;
    VYR2DGStringStream reader = ReadingStream(Hex(listing));
    VYRPrtColourTable table;
    UnstreamAfterTag(table, reader);
    int count = -1;
    table.GetColourCount(count);
    EXPECT_EQ(count, 0) << listing;
    EXPECT_EQ(Streamed(table), Hex("05 00 00 00 00 00 00 00 00 00 00 00")) << listing;
    unsigned int index = 0;
    EXPECT_EQ(table.AddColour(1, 2, 3, index), 1) << listing;  // still usable
    EXPECT_EQ(index, 0u);
  }
}

TEST(ColourTable, EveryTruncationGivesAnEmptyTable) {
  std::vector<uint8_t> bytes = Hex("05 00 00 00  00 01 00 00  02 00 00 00  11 22 33 44 55 66");
  for (size_t length = 4; length < bytes.size(); ++length) {
    AssertionCapture capture;
    VYR2DGStringStream reader = ReadingStream(std::vector<uint8_t>(bytes.begin(), bytes.begin() + length));
    VYRPrtColourTable table;
    UnstreamAfterTag(table, reader);
    int count = -1;
    table.GetColourCount(count);
    EXPECT_EQ(count, 0) << length;
  }
}

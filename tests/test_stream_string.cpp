#include <gtest/gtest.h>

#include <cstdio>
#include <cstring>
#include <fstream>
#include <iterator>
#include <memory>
#include <string>

#include "AssertionCapture.h"
#include "StreamBytes.h"
#include "VYR2DGStringStream.h"
#include "VYRUnicodeString.h"

namespace {

std::string TempPath(const std::string& i_name) {
  return std::string(VYR_BINARY_DIR) + "/test_stream_string_" + i_name;
}

void WriteFile(const std::string& i_path, const std::vector<uint8_t>& i_bytes) {
  std::ofstream file(i_path, std::ios::binary | std::ios::trunc);
  file.write(reinterpret_cast<const char*>(i_bytes.data()), static_cast<std::streamsize>(i_bytes.size()));
}

std::vector<uint8_t> ReadFile(const std::string& i_path) {
  std::ifstream file(i_path, std::ios::binary);
  return std::vector<uint8_t>(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
}

struct Deleter {
  void operator()(char* p) const { delete[] p; }
};
using OwnedBytes = std::unique_ptr<char, Deleter>;

}  // namespace

TEST(StringStream, PrimitivesAreRawLittleEndianWithoutPadding) {
  VYR2DGStringStream stream;
  stream.Stream('a');
  stream.Stream(static_cast<unsigned char>(0xFF));
  stream.Stream(-2);
  stream.Stream(0x01020304u);
  stream.Stream(1.0f);
  stream.Stream(1.0);
  EXPECT_EQ(StreamBytes(stream), Hex("61 FF  FE FF FF FF  04 03 02 01  00 00 80 3F  00 00 00 00 00 00 F0 3F"));

  VYR2DGStringStream reader = ReadingStream(StreamBytes(stream));
  char c = 0;
  unsigned char uc = 0;
  unsigned int asUnsigned = 0;  // signed and unsigned forms share their bytes
  int asSigned = 0;
  float f = 0;
  double d = 0;
  reader.Unstream(c);
  reader.Unstream(uc);
  reader.Unstream(asUnsigned);
  reader.Unstream(asSigned);
  reader.Unstream(f);
  reader.Unstream(d);
  EXPECT_EQ(c, 'a');
  EXPECT_EQ(uc, 0xFF);
  EXPECT_EQ(asUnsigned, 0xFFFFFFFEu);
  EXPECT_EQ(asSigned, 0x01020304);
  EXPECT_EQ(f, 1.0f);
  EXPECT_EQ(d, 1.0);
  EXPECT_EQ(reader.GetReadableBytesLeft(), 0);
  EXPECT_FALSE(reader.HasFailed());
}

TEST(StringStream, CountedStrings) {
  VYR2DGStringStream stream;
  stream.Stream(nullptr, 0);
  stream.Stream(nullptr, -3);
  stream.Stream("abc", 3);
  stream.Stream("abc", 3);
  stream.Stream("xyz", 0);  // a length of 0 does not read the address
  EXPECT_EQ(StreamBytes(stream), Hex("00 00 00 00  FD FF FF FF  03 00 00 00 61 62 63  03 00 00 00 61 62 63  00 00 00 00"));

  VYR2DGStringStream reader = ReadingStream(StreamBytes(stream));
  EXPECT_EQ(reader.Unstream(true), nullptr);
  EXPECT_EQ(reader.GetReadableBytesLeft(), 22);  // only the length was consumed
  EXPECT_EQ(reader.Unstream(false), nullptr);
  OwnedBytes terminated(reader.Unstream(true));
  ASSERT_NE(terminated, nullptr);
  EXPECT_EQ(std::memcmp(terminated.get(), "abc", 4), 0);  // three bytes and a zero
  OwnedBytes raw(reader.Unstream(false));
  ASSERT_NE(raw, nullptr);
  EXPECT_EQ(std::memcmp(raw.get(), "abc", 3), 0);
  EXPECT_EQ(reader.Unstream(true), nullptr);
  EXPECT_EQ(reader.GetReadableBytesLeft(), 0);
  EXPECT_FALSE(reader.HasFailed());
}

TEST(StringStream, CountedStringWithNullAddressIsReportedAndWritesNothing) {
  AssertionCapture capture;
  VYR2DGStringStream stream;
  stream.Stream(nullptr, 2);
  EXPECT_TRUE(capture.Has("i_bytes"));
  EXPECT_EQ(stream.GetSize(), 0);
}

TEST(StringStream, GrowthSequence) {
  VYR2DGStringStream stream;
  EXPECT_EQ(stream.GetCapacity(), 2048);
  EXPECT_EQ(stream.GetGrowthStep(), 2048u);
  for (int i = 0; i < 2047; ++i) stream.Stream(static_cast<char>(i));
  EXPECT_EQ(stream.GetCapacity(), 2048);
  stream.Stream('z');  // exactly filling the buffer grows it
  EXPECT_EQ(stream.GetCapacity(), 6144);
  EXPECT_EQ(stream.GetGrowthStep(), 4096u);
  EXPECT_EQ(stream.GetSize(), 2048);
  for (int i = 0; i < 2047; ++i) EXPECT_EQ(stream.GetBuffer()[i], static_cast<char>(i)) << i;
  EXPECT_EQ(stream.GetBuffer()[2047], 'z');

  std::string block(16384, 'q');
  stream.Stream(block.data(), 6144 - 2048 - 4);  // brings the size to 6144
  EXPECT_EQ(stream.GetCapacity(), 14336);
  stream.Stream(block.data(), 14336 - 6144 - 4);
  EXPECT_EQ(stream.GetCapacity(), 30720);
  EXPECT_EQ(stream.GetGrowthStep(), 16384u);
}

TEST(StringStream, OneLargeWriteGrowsInAsManyIterationsAsNeeded) {
  std::string bytes(10000, 'x');
  VYR2DGStringStream once;
  once.Stream(bytes.data(), 4996);  // 5000 bytes: one iteration
  EXPECT_EQ(once.GetCapacity(), 6144);
  EXPECT_EQ(once.GetGrowthStep(), 4096u);

  VYR2DGStringStream twice;
  twice.Stream(bytes.data(), 9996);  // 10000 bytes: 6144, then 14336
  EXPECT_EQ(twice.GetCapacity(), 14336);
  EXPECT_EQ(twice.GetGrowthStep(), 8192u);
  EXPECT_EQ(twice.GetSize(), 10000);
  EXPECT_EQ(std::memcmp(twice.GetBuffer() + 4, bytes.data(), 9996), 0);
}

TEST(StringStream, SavedFileIsLengthThenBytes) {
  VYR2DGStringStream stream;
  stream.Stream(7);
  stream.Stream('a');
  stream.Stream('b');
  stream.Stream('c');
  std::string path = TempPath("seven.bin");
  EXPECT_EQ(stream.SaveInFile(path.c_str()), 0);
  EXPECT_EQ(ReadFile(path), Hex("07 00 00 00  07 00 00 00 61 62 63"));

  VYR2DGStringStream loaded;
  EXPECT_TRUE(VYRSucceeded(loaded.LoadFile(path.c_str())));
  EXPECT_EQ(StreamBytes(loaded), Hex("07 00 00 00 61 62 63"));
  int seven = 0;
  char a = 0;
  loaded.Unstream(seven);
  loaded.Unstream(a);
  EXPECT_EQ(seven, 7);
  EXPECT_EQ(a, 'a');
  EXPECT_EQ(loaded.GetReadableBytesLeft(), 2);
  std::remove(path.c_str());
}

TEST(StringStream, EmptyStreamSavesFourBytesAndLoadsAsEmpty) {
  VYR2DGStringStream stream;
  std::string path = TempPath("empty-stream.bin");
  EXPECT_EQ(stream.SaveInFile(path.c_str()), 0);
  EXPECT_EQ(ReadFile(path), Hex("00 00 00 00"));
  VYR2DGStringStream loaded;
  EXPECT_TRUE(VYRSucceeded(loaded.LoadFile(path.c_str())));
  EXPECT_EQ(loaded.GetReadableBytesLeft(), 0);
  std::remove(path.c_str());
}

TEST(StringStream, DamagedFilesAreRefusedAndLeaveNothingToRead) {
  const std::vector<std::pair<std::string, std::vector<uint8_t>>> damaged = {
      {"empty", {}},
      {"short-length", Hex("07 00")},
      {"truncated", Hex("0A 00 00 00 61 62 63")},
      {"huge-length", Hex("FF FF FF 7F 61 62 63")},
      {"negative-length", Hex("FF FF FF FF 61")},
  };
  for (const auto& [name, bytes] : damaged) {
    std::string path = TempPath(name);
    WriteFile(path, bytes);
    VYR2DGStringStream stream;
    stream.Stream(42);  // held bytes survive a failed load
    EXPECT_LT(stream.LoadFile(path.c_str()), 0) << name;
    EXPECT_EQ(stream.GetReadableBytesLeft(), 0) << name;
    EXPECT_EQ(StreamBytes(stream), Hex("2A 00 00 00")) << name;
    int value = -1;
    stream.Unstream(value);
    EXPECT_EQ(value, 0) << name;
    EXPECT_TRUE(stream.HasFailed()) << name;
    std::remove(path.c_str());
  }

  VYR2DGStringStream missing;
  EXPECT_LT(missing.LoadFile(TempPath("does-not-exist").c_str()), 0);
  EXPECT_EQ(missing.GetReadableBytesLeft(), 0);
  EXPECT_LT(missing.SaveInFile("/nonexistent-directory/stream.bin"), 0);
}

TEST(StringStream, ReadPastTheEndFailsStickilyAndConsumesNothing) {
  VYR2DGStringStream stream = ReadingStream(Hex("01 02 03"));
  int value = -1;
  stream.Unstream(value);
  EXPECT_EQ(value, 0);
  EXPECT_TRUE(stream.HasFailed());
  EXPECT_EQ(stream.GetReadableBytesLeft(), 0);
  EXPECT_FALSE(stream.CountFits(1, 1));

  char c = 'x';
  stream.Unstream(c);  // would fit, but the stream has failed
  EXPECT_EQ(c, 0);
  double d = 5.0;
  stream.Unstream(d);
  EXPECT_EQ(d, 0.0);
  EXPECT_EQ(stream.Unstream(true), nullptr);

  stream.ClearFailure();
  EXPECT_EQ(stream.GetReadableBytesLeft(), 3);
  stream.Unstream(c);
  EXPECT_EQ(c, 1);
  EXPECT_TRUE(stream.CountFits(2, 1));
  EXPECT_FALSE(stream.CountFits(3, 1));
  EXPECT_FALSE(stream.CountFits(-1, 1));
}

TEST(StringStream, CountedStringLongerThanTheStreamReadsNothing) {
  VYR2DGStringStream stream = ReadingStream(Hex("05 00 00 00 61 62 63"));
  EXPECT_EQ(stream.Unstream(true), nullptr);
  EXPECT_TRUE(stream.HasFailed());
  stream.ClearFailure();
  EXPECT_EQ(stream.GetReadableBytesLeft(), 7);  // the length is not consumed either

  VYR2DGStringStream cutLength = ReadingStream(Hex("05 00"));
  EXPECT_EQ(cutLength.Unstream(false), nullptr);
  EXPECT_TRUE(cutLength.HasFailed());
}

TEST(StringStream, RawBytesHaveNoLengthAndFailWholeWhenShort) {
  VYR2DGStringStream stream;
  stream.WriteBytes("abc", 3);
  stream.WriteBytes(nullptr, 0);
  stream.Stream('d');
  EXPECT_EQ(StreamBytes(stream), Hex("61 62 63 64"));

  VYR2DGStringStream reader = ReadingStream(Hex("01 02 03 04 05"));
  char two[2] = {};
  EXPECT_TRUE(reader.ReadBytes(two, 2));
  EXPECT_EQ(two[1], 2);
  EXPECT_TRUE(reader.ReadBytes(nullptr, 1));  // skipped
  char four[4] = {9, 9, 9, 9};
  EXPECT_FALSE(reader.ReadBytes(four, 4));
  EXPECT_EQ(std::string(four, 4), std::string(4, '\0'));
  EXPECT_TRUE(reader.HasFailed());
  reader.ClearFailure();
  EXPECT_EQ(reader.GetReadableBytesLeft(), 2);  // the short read consumed nothing
}

TEST(StringStream, WrittenStreamHasNothingToReadUntilGivenItsBytes) {
  VYR2DGStringStream stream;
  stream.Stream(3);
  EXPECT_EQ(stream.GetReadableBytesLeft(), 0);
  int value = 9;
  stream.Unstream(value);
  EXPECT_EQ(value, 0);
  EXPECT_TRUE(stream.HasFailed());
}

TEST(StringStream, LoadBufferCopiesAndLaterWritesAppend) {
  std::vector<uint8_t> bytes = Hex("01 00 00 00");
  VYR2DGStringStream stream;
  stream.Stream(99.0);
  EXPECT_EQ(stream.LoadBuffer(reinterpret_cast<const char*>(bytes.data()), 4), 0);
  bytes[0] = 7;  // the stream holds its own copy
  int value = 0;
  stream.Unstream(value);
  EXPECT_EQ(value, 1);
  stream.Stream(2);
  EXPECT_EQ(StreamBytes(stream), Hex("01 00 00 00 02 00 00 00"));

  AssertionCapture capture;
  EXPECT_LT(stream.LoadBuffer(nullptr, 4), 0);
  EXPECT_LT(stream.LoadBuffer("x", -1), 0);
  EXPECT_EQ(capture.Reports().size(), 2u);
  EXPECT_EQ(stream.GetSize(), 8);
  EXPECT_EQ(VYR2DGStringStream(nullptr, 0).GetReadableBytesLeft(), 0);
}

TEST(StringStream, ShallowCopiesShareOneBufferFreedOnce) {
  auto pOriginal = std::make_unique<VYR2DGStringStream>();
  pOriginal->LoadBuffer("\x01\x00\x00\x00\x02\x00\x00\x00", 8);
  VYR2DGStringStream copy(*pOriginal);
  EXPECT_EQ(copy.GetBuffer(), pOriginal->GetBuffer());
  int first = 0;
  copy.Unstream(first);
  EXPECT_EQ(first, 1);
  EXPECT_EQ(pOriginal->GetReadableBytesLeft(), 8);  // cursors are separate

  VYR2DGStringStream assigned;
  assigned.Stream(5);
  assigned = copy;
  assigned = assigned;
  pOriginal.reset();  // the block lives on in the copies
  int second = 0;
  assigned.Unstream(second);
  EXPECT_EQ(second, 2);

  // Growing one copy moves it to a block of its own; the other keeps the old one.
  VYR2DGStringStream writer;
  writer.Stream(1);
  VYR2DGStringStream sibling = writer;
  std::string big(3000, 'b');
  writer.Stream(big.data(), 3000);
  EXPECT_NE(writer.GetBuffer(), sibling.GetBuffer());
  EXPECT_EQ(StreamBytes(sibling), Hex("01 00 00 00"));
}

TEST(StringStream, LargeFileLoadsWhole) {
  VYR2DGStringStream stream;
  for (int i = 0; i < 50000; ++i) stream.Stream(i);  // 200000 bytes: several load chunks
  std::string path = TempPath("large.bin");
  EXPECT_EQ(stream.SaveInFile(path.c_str()), 0);
  VYR2DGStringStream loaded;
  EXPECT_EQ(loaded.LoadFile(path.c_str()), 0);
  EXPECT_EQ(StreamBytes(loaded), StreamBytes(stream));

  std::vector<uint8_t> cut = ReadFile(path);
  cut.resize(cut.size() - 1);  // one byte short of the declared length
  WriteFile(path, cut);
  EXPECT_LT(loaded.LoadFile(path.c_str()), 0);
  EXPECT_EQ(loaded.GetReadableBytesLeft(), 0);
  std::remove(path.c_str());
}

// The inline operations write and read in the buffer itself while the bytes
// fit; everything else goes through the virtual operations. Both ways must
// give the same bytes, growth and failures, above all at the edges.
TEST(StringStream, InPlaceWritesMatchTheVirtualOnesAcrossGrowth) {
  std::string text(64, '\0');
  for (int i = 0; i < 64; ++i) text[i] = static_cast<char>('A' + i % 26);
  for (int prefix : {0, 2000, 2040, 2041, 2042, 2043, 2044, 2045, 2046, 2047}) {
    for (int length = -1; length <= 40; ++length) {
      VYR2DGStringStream calls, inPlace;
      for (int i = 0; i < prefix; ++i) {
        calls.Stream(static_cast<char>(i));
        inPlace.StreamValue(static_cast<char>(i));
      }
      calls.Stream(text.data(), length);
      inPlace.StreamCounted(text.data(), length);
      calls.WriteBytes(text.data() + 3, length);
      inPlace.StreamBytes(text.data() + 3, length);
      calls.Stream(1.5);
      inPlace.StreamValue(1.5);
      ASSERT_EQ(StreamBytes(inPlace), StreamBytes(calls)) << prefix << " " << length;
      ASSERT_EQ(inPlace.GetCapacity(), calls.GetCapacity()) << prefix << " " << length;
      ASSERT_EQ(inPlace.GetGrowthStep(), calls.GetGrowthStep()) << prefix << " " << length;
    }
  }

  // Filling the buffer exactly grows it, whichever way the byte comes.
  VYR2DGStringStream stream;
  for (int i = 0; i < 2047; ++i) stream.StreamValue('a');
  EXPECT_EQ(stream.GetCapacity(), 2048);
  stream.StreamValue('z');
  EXPECT_EQ(stream.GetCapacity(), 6144);

  AssertionCapture capture;
  stream.StreamCounted(nullptr, 2);
  EXPECT_TRUE(capture.Has("i_bytes"));
  EXPECT_EQ(stream.GetSize(), 2048);
}

TEST(StringStream, InPlaceReadsMatchTheVirtualOnesAndFailTheSameWay) {
  std::vector<uint8_t> bytes(100);
  for (int i = 0; i < 100; ++i) bytes[i] = static_cast<uint8_t>(i + 1);
  for (int length = 0; length <= 41; ++length) {
    VYR2DGStringStream reader = ReadingStream(bytes);
    reader.UnstreamBytes(nullptr, 1);
    std::vector<uint8_t> run(static_cast<size_t>(length) + 1, 0xEE);
    ASSERT_TRUE(reader.UnstreamBytes(run.data(), length));
    for (int i = 0; i < length; ++i) ASSERT_EQ(run[i], i + 2) << length;
    ASSERT_EQ(run[length], 0xEE) << length;  // nothing written beyond the run
    ASSERT_EQ(reader.GetReadableBytesLeft(), 99 - length);
  }

  VYR2DGStringStream reader = ReadingStream(Hex("01 02 03 04 05 06"));
  double tooLong = 7.0;
  reader.UnstreamValue(tooLong);
  EXPECT_EQ(tooLong, 0.0);
  EXPECT_TRUE(reader.HasFailed());
  EXPECT_FALSE(reader.CountFits(1, 1));
  unsigned char byte = 9;
  reader.UnstreamValue(byte);  // six bytes are there, but the stream has failed
  EXPECT_EQ(byte, 0);
  char pair[2] = {9, 9};
  EXPECT_FALSE(reader.UnstreamBytes(pair, 2));
  EXPECT_EQ(pair[0], 0);
  reader.ClearFailure();
  int first = 0;
  reader.UnstreamValue(first);
  EXPECT_EQ(first, 0x04030201);
  EXPECT_TRUE(reader.CountFits(2, 1));
  EXPECT_FALSE(reader.CountFits(1, 3));
}

#include <gtest/gtest.h>

#include <vector>

#include "AssertionCapture.h"
#include "StreamBytes.h"
#include "VYR2DGStringStream.h"
#include "VYRPixelImage.h"
#include "VYRPrintGradientLinear.h"
#include "VYRPrintGradientRadial.h"
#include "VYRPrintGradientStop.h"
#include "VYRPrtColourTable.h"
#include "VYRPrtFillAttributes.h"
#include "VYRPrtStreamUnstreamHelper.h"
#include "VYRPrtStrokeAttributes.h"

namespace {

template <class T>
std::vector<uint8_t> BytesOf(T& io_value) {
  VYR2DGStringStream stream;
  io_value.Stream(&stream);
  return StreamBytes(stream);
}

template <class T>
void ReadBack(const std::vector<uint8_t>& i_bytes, T& o_value) {
  VYR2DGStringStream reader = ReadingStream(i_bytes);
  o_value.Unstream(&reader);
  EXPECT_EQ(reader.GetReadableBytesLeft(), 0);
  EXPECT_FALSE(reader.HasFailed());
}

const char* const kZeroPoint = "00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00";

}  // namespace

TEST(FillAttributes, DefaultFillBytes) {
  VYRPrtFillAttributes fill;
  std::string expected = std::string("00 00 00 00  01 00 00 00  00 00 00 00  FF  00 00 00 00 ") + kZeroPoint + " " +
                         kZeroPoint + " " + kZeroPoint + "  00 00 00 00  00 00 00 00";
  EXPECT_EQ(BytesOf(fill), Hex(expected));
}

TEST(FillAttributes, GradientTypeMakesAndDropsGradients) {
  VYRPrtFillAttributes fill;
  fill.SetGradientType(MM2D::GradientRadial);
  ASSERT_NE(fill.GetGradient(), nullptr);
  EXPECT_TRUE(fill.GetGradient()->IsAKindOf(VYRPrintGradientRadial::ClassName()));
  fill.SetGradientType(MM2D::GradientNone);
  EXPECT_EQ(fill.GetGradient(), nullptr);

  // Equal but distinct gradients make fills unequal; a copy shares, an assignment clones.
  VYRPrtFillAttributes a, b;
  a.SetGradientType(MM2D::GradientLinear);
  b.SetGradientType(MM2D::GradientLinear);
  EXPECT_EQ(a == b, 0);
  VYRPrtFillAttributes shared(a);
  EXPECT_EQ(shared == a, 1);
  b = a;
  EXPECT_EQ(b == a, 0);
  EXPECT_NE(b.GetGradient(), nullptr);
}

TEST(FillAttributes, GradientAndPatternRoundTripAndDuplicateSharesNothing) {
  VYRPrtFillAttributes fill;
  fill.SetFillStyle(static_cast<VYRPrtFillStyle>(2));
  fill.SetFillRule(VYRPrtFillRuleEvenOdd);
  fill.SetFillColorIndex(9);
  fill.SetFillOpacity(100);
  auto* image = new VYRPixelImage(2, 3, VYRPixelImageFormat_RGBA32);
  image->GetPixelsToModify()[5] = 77;
  fill.SetPattern(image, VYRMathVector2D(1, 2), VYRMathVector2D(3, 4));
  image->Release();
  fill.SetPatternRefPoint(VYRMathPoint2D(5, 6));
  fill.SetGradientType(MM2D::GradientLinear);
  auto* linear = static_cast<VYRPrintGradientLinear*>(fill.GetGradient());
  linear->SetStartPoint(1, 2);
  linear->SetEndPoint(3, 4);
  linear->SetSpread(2);
  linear->AddStop(new VYRPrintGradientStop(0.5f, 1, 0, 0, 1));

  std::vector<uint8_t> bytes = BytesOf(fill);
  VYRPrtFillAttributes back;
  ReadBack(bytes, back);
  EXPECT_EQ(BytesOf(back), bytes);
  VYRPixelImage* backImage = nullptr;
  VYRMathVector2D v1, v2;
  back.GetPattern(backImage, v1, v2);
  ASSERT_NE(backImage, nullptr);
  EXPECT_EQ(backImage->GetWidth(), 2);
  EXPECT_EQ(backImage->GetPixels()[5], 77);
  EXPECT_EQ(v2, VYRMathVector2D(3, 4));
  ASSERT_NE(back.GetGradient(), nullptr);
  EXPECT_EQ(back.GetGradient()->GetStopCount(), 1);
  EXPECT_EQ(back.GetGradientType(), MM2D::GradientLinear);

  VYRPrtFillAttributes target;
  fill.Duplicate(target);
  VYRPixelImage* targetImage = nullptr;
  target.GetPattern(targetImage, v1, v2);
  VYRPixelImage* sourceImage = nullptr;
  fill.GetPattern(sourceImage, v1, v2);
  EXPECT_NE(targetImage, sourceImage);
  EXPECT_NE(target.GetGradient(), fill.GetGradient());
  EXPECT_EQ(BytesOf(target), BytesOf(fill));
}

TEST(StrokeAttributes, OddDashListsAreDoubledWithAnEightBitWrap) {
  VYRPrtStrokeAttributes stroke;
  const float three[] = {1, 2, 3};
  stroke.SetStrokeTypePattern(three, 3);
  float* pattern = nullptr;
  unsigned char count = 0;
  stroke.GetStrokeTypePattern(pattern, count);
  ASSERT_EQ(count, 6);
  EXPECT_EQ(std::vector<float>(pattern, pattern + 6), (std::vector<float>{1, 2, 3, 1, 2, 3}));

  std::vector<float> many(129);
  for (int i = 0; i < 129; ++i) many[i] = static_cast<float>(i);
  stroke.SetStrokeTypePattern(many.data(), 129);
  stroke.GetStrokeTypePattern(pattern, count);
  ASSERT_EQ(count, 2);
  EXPECT_EQ(pattern[1], 1.0f);

  stroke.SetStrokeTypePattern(pattern, count);  // its own array: nothing happens
  stroke.GetStrokeTypePattern(pattern, count);
  EXPECT_EQ(count, 2);
  stroke.SetStrokeTypePattern(nullptr, 0);
  stroke.GetStrokeTypePattern(pattern, count);
  EXPECT_EQ(pattern, nullptr);
  EXPECT_EQ(count, 0);
}

TEST(StrokeAttributes, BytesAndRoundTripWithDashesAndRadialGradient) {
  VYRPrtStrokeAttributes stroke;
  EXPECT_EQ(BytesOf(stroke), Hex("00 00 00 00  FF  00 00 00 00  00  00 00 00 00 00 00 F0 3F"
                                 "  08 00 00 00  0A 00 00 00  0D 00 00 00  00 00 00 00  00 00 00 00  00 00 00 00"));
  const float dashes[] = {4, 2};
  stroke.SetStrokeTypePattern(dashes, 2);
  stroke.SetStrokeWidth(2.5);
  stroke.SetStrokeColorIndex(3);
  stroke.SetStrokeCap(eLineCapRound);
  stroke.SetGradientType(MM2D::GradientRadial);
  auto* radial = static_cast<VYRPrintGradientRadial*>(stroke.GetGradient());
  radial->SetCentre(1, 2);
  radial->SetFocus(3, 4);
  radial->SetRadius(5);
  radial->AddStop(new VYRPrintGradientStop(0, 0, 0, 1, 1));
  radial->AddStop(new VYRPrintGradientStop(1, 1, 1, 1, 0.5f));

  std::vector<uint8_t> bytes = BytesOf(stroke);
  VYRPrtStrokeAttributes back;
  ReadBack(bytes, back);
  EXPECT_EQ(BytesOf(back), bytes);
  VYRPrtStrokeAttributes copy(back);
  EXPECT_EQ(copy == back, 0);  // the gradient is cloned, and gradients compare by identity
  copy.SetGradientType(MM2D::GradientNone);
  back.SetGradientType(MM2D::GradientNone);
  EXPECT_EQ(copy == back, 1);
  float* pattern = nullptr;
  unsigned char count = 0;
  back.GetStrokeTypePattern(pattern, count);
  ASSERT_EQ(count, 2);
  EXPECT_EQ(pattern[0], 4.0f);
}

TEST(StreamHelperRecords, GradientRecordSizesAndEmptyStopList) {
  VYRPrintGradientRadial radial;
  for (int stops = 0; stops < 3; ++stops) {
    VYR2DGStringStream stream;
    VYRPrtStreamUnstreamHelper::SerializeVYRPrintGradientRadial(&radial, &stream);
    EXPECT_EQ(stream.GetSize(), 4 + 4 + 4 + 20 * stops + 72 + 20);
    radial.AddStop(new VYRPrintGradientStop());
  }
  VYRPrintGradientLinear linear;
  VYR2DGStringStream stream;
  VYRPrtStreamUnstreamHelper::SerializeVYRPrintGradientLinear(&linear, &stream);
  VYRPrtStreamUnstreamHelper::SerializeVYRPrintGradientLinear(nullptr, &stream);
  EXPECT_EQ(stream.GetSize(), 4 + 4 + 4 + 72 + 16 + 4);
  std::vector<uint8_t> bytes = StreamBytes(stream);
  EXPECT_EQ(std::vector<uint8_t>(bytes.begin(), bytes.begin() + 12), Hex("02 00 00 00  00 00 00 00  00 00 00 00"));

  VYR2DGStringStream reader = ReadingStream(bytes);
  int tag = 0;
  reader.Unstream(tag);
  VYRPrintGradientLinear back;
  VYRPrtStreamUnstreamHelper::CreateVYRPrintGradientLinearFromStream(&back, &reader);
  EXPECT_EQ(back.GetStopCount(), 0);
  EXPECT_EQ(reader.GetReadableBytesLeft(), 4);
}

TEST(StreamHelperRecords, DamagedStopCountIsRefused) {
  VYR2DGStringStream writer;
  writer.Stream(2);           // linear
  writer.Stream(0);           // spread
  writer.Stream(0x7FFFFFFF);  // stops that cannot be there
  AssertionCapture capture;
  VYR2DGStringStream reader = ReadingStream(StreamBytes(writer));
  VYRPrintGradient* gradient = VYRPrtStreamUnstreamHelper::CreateGradientFromKindTag(&reader);
  ASSERT_NE(gradient, nullptr);
  EXPECT_EQ(gradient->GetStopCount(), 0);
  EXPECT_FALSE(capture.FailedConditions().empty());
  gradient->Release();
}

TEST(StreamHelperRecords, PixelImagesRoundTripWithTheirLock) {
  auto* image = new VYRPixelImage(2, 3, VYRPixelImageFormat_RGBA32);
  image->GetPixelsToModify()[23] = 200;
  image->LockAsReadOnly();
  VYR2DGStringStream stream;
  VYRPrtStreamUnstreamHelper::SerializeVYRPixelImage(image, &stream);
  VYRPrtStreamUnstreamHelper::SerializeVYRPixelImage(nullptr, &stream);
  std::vector<uint8_t> bytes = StreamBytes(stream);
  EXPECT_EQ(std::vector<uint8_t>(bytes.begin(), bytes.begin() + 12), Hex("04 00 00 00  01 00 00 00  02 00 00 00"));

  VYR2DGStringStream reader = ReadingStream(bytes);
  VYRPixelImage* back = VYRPrtStreamUnstreamHelper::CreateVYRPixelImageFromStream(&reader);
  ASSERT_NE(back, nullptr);
  EXPECT_TRUE(back->IsReadOnly());
  EXPECT_EQ(back->GetPixels()[23], 200);
  EXPECT_EQ(VYRPrtStreamUnstreamHelper::CreateVYRPixelImageFromStream(&reader), nullptr);
  EXPECT_EQ(reader.GetReadableBytesLeft(), 0);
  back->Release();
  image->Release();
}

TEST(StreamHelperRecords, RawPixelFormReadsBackUnlocked) {
  // The raw form, as written when PNG encoding fails: 2 x 3 pixels of 4 bytes.
  VYR2DGStringStream writer;
  for (int value : {4, 0, 2, 3, 24, int{VYRPixelImageFormat_RGBA32}, 0}) writer.Stream(value);
  writer.Stream(0.25f);
  writer.Stream(0.5f);
  std::vector<char> pixels(24, 9);
  writer.Stream(pixels.data(), 24);
  VYR2DGStringStream reader = ReadingStream(StreamBytes(writer));
  VYRPixelImage* image = VYRPrtStreamUnstreamHelper::CreateVYRPixelImageFromStream(&reader);
  ASSERT_NE(image, nullptr);
  EXPECT_FALSE(image->IsReadOnly());
  EXPECT_EQ(image->GetXPixelSize(), 0.25f);
  EXPECT_EQ(image->GetPixels()[23], 9);
  image->Release();

  // A byte count larger than the pixel bytes that follow is refused.
  VYR2DGStringStream shortWriter;
  for (int value : {4, 0, 100, 100, 40000, int{VYRPixelImageFormat_RGBA32}, 0}) shortWriter.Stream(value);
  shortWriter.Stream(0.25f);
  shortWriter.Stream(0.5f);
  shortWriter.Stream(pixels.data(), 24);
  AssertionCapture capture;
  VYR2DGStringStream shortReader = ReadingStream(StreamBytes(shortWriter));
  EXPECT_EQ(VYRPrtStreamUnstreamHelper::CreateVYRPixelImageFromStream(&shortReader), nullptr);
}

TEST(StreamHelperRecords, ColourTableAndFilterColourTags) {
  VYRPrtColourTable table;
  unsigned int index = 0;
  table.AddColour(1, 2, 3, index);
  VYR2DGStringStream stream;
  VYRPrtStreamUnstreamHelper::SerializeVYRPrtColourTable(&table, &stream);
  VYRPrtStreamUnstreamHelper::SerializeVYRPrtColourTable(nullptr, &stream);
  VYRPrtStreamUnstreamHelper::SerializeVYRPrtFilterColorAttribute(nullptr, &stream);
  EXPECT_EQ(StreamBytes(stream), Hex("05 00 00 00  00 01 00 00  01 00 00 00  01 02 03  00 00 00 00  00 00 00 00"));
  VYR2DGStringStream reader = ReadingStream(StreamBytes(stream));
  VYRPrtColourTable* back = VYRPrtStreamUnstreamHelper::CreateVYRPrtColourTableFromStream(&reader);
  ASSERT_NE(back, nullptr);
  unsigned char r = 0, g = 0, b = 0;
  EXPECT_EQ(back->GetColour(0, r, g, b), 1);
  EXPECT_EQ(b, 3);
  delete back;
  EXPECT_EQ(VYRPrtStreamUnstreamHelper::CreateVYRPrtColourTableFromStream(&reader), nullptr);
  EXPECT_EQ(VYRPrtStreamUnstreamHelper::CreateVYRPrtFilterColorAttributeFromStream(&reader), nullptr);
  EXPECT_EQ(reader.GetReadableBytesLeft(), 0);
}

TEST(StreamHelperRecords, EveryPrefixOfFillAndStrokeReadsWithoutHarm) {
  VYRPrtFillAttributes fill;
  auto* image = new VYRPixelImage(3, 2, VYRPixelImageFormat_RGB24);
  fill.SetPattern(image, VYRMathVector2D(1, 0), VYRMathVector2D(0, 1));
  image->Release();
  fill.SetGradientType(MM2D::GradientRadial);
  fill.GetGradient()->AddStop(new VYRPrintGradientStop());
  VYRPrtStrokeAttributes stroke;
  const float dashes[] = {1, 2, 3};
  stroke.SetStrokeTypePattern(dashes, 3);
  stroke.SetGradientType(MM2D::GradientLinear);
  VYR2DGStringStream writer;
  fill.Stream(&writer);
  stroke.Stream(&writer);
  std::vector<uint8_t> bytes = StreamBytes(writer);
  AssertionCapture capture;
  for (size_t length = 0; length <= bytes.size(); ++length) {
    VYR2DGStringStream reader = ReadingStream(std::vector<uint8_t>(bytes.begin(), bytes.begin() + length));
    VYRPrtFillAttributes fillBack;
    VYRPrtStrokeAttributes strokeBack;
    fillBack.Unstream(&reader);
    strokeBack.Unstream(&reader);
    EXPECT_EQ(reader.HasFailed(), length < bytes.size()) << length;
  }
}

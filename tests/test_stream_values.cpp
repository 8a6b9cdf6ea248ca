#include <gtest/gtest.h>

#include "AssertionCapture.h"
#include "StreamBytes.h"
#include "VYR2DGStringStream.h"
#include "VYRPrtStreamUnstreamHelper.h"
#include "VYRRawColldouble.h"
#include "VYRUnicodeString.h"

using Helper = VYRPrtStreamUnstreamHelper;

TEST(StreamValues, PointsVectorsAndMatrices) {
  VYRMathPoint2D point(1.0, 2.0);
  VYRMathVector2D vector(-1.0, 0.5);
  VYRMath2x2Matrix matrix2(1.0, 0.5, 0.0, 2.0);
  VYRMath3x3Matrix matrix3;
  matrix3.Set(0, 2, 2.0);
  VYR2DGStringStream stream;
  Helper::SerializeVYRMathPoint2D(point, &stream);
  Helper::SerializeVYRMathVector2D(vector, &stream);
  Helper::SerializeVYRMath2x2Matrix(matrix2, &stream);
  Helper::SerializeVYRMath3x3Matrix(matrix3, &stream);
  const char* one = "00 00 00 00 00 00 F0 3F ";
  const char* zero = "00 00 00 00 00 00 00 00 ";
  const char* two = "00 00 00 00 00 00 00 40 ";
  EXPECT_EQ(StreamBytes(stream),
            Hex(std::string(one) + two + "00 00 00 00 00 00 F0 BF 00 00 00 00 00 00 E0 3F " + one +
                "00 00 00 00 00 00 E0 3F " + zero + two + one + zero + two + zero + one + zero + zero + zero + one));

  VYR2DGStringStream reader = ReadingStream(StreamBytes(stream));
  VYRMathPoint2D readPoint;
  VYRMathVector2D readVector;
  VYRMath2x2Matrix readMatrix2;
  VYRMath3x3Matrix readMatrix3;
  Helper::CreateVYRMathPoint2DFromStream(readPoint, &reader);
  Helper::CreateVYRMathVector2DFromStream(readVector, &reader);
  Helper::CreateVYRMath2x2MatrixFromStream(readMatrix2, &reader);
  Helper::CreateVYRMath3x3MatrixFromStream(readMatrix3, &reader);
  EXPECT_EQ(readPoint, point);
  EXPECT_EQ(readVector, vector);
  EXPECT_EQ(readMatrix2, matrix2);
  EXPECT_EQ(readMatrix3, matrix3);
  EXPECT_EQ(reader.GetReadableBytesLeft(), 0);

  // A null stream leaves the target as it was.
  Helper::CreateVYRMathPoint2DFromStream(readPoint, nullptr);
  Helper::CreateVYRMath3x3MatrixFromStream(readMatrix3, nullptr);
  Helper::SerializeVYRMath2x2Matrix(matrix2, nullptr);
  EXPECT_EQ(readPoint, point);
  EXPECT_EQ(readMatrix3, matrix3);
}

TEST(StreamValues, ColourMatrixIsCountThenCoefficients) {
  VYR5X5ColorMatrix matrix = VYR5X5ColorMatrix::Saturate(0.5);
  VYR2DGStringStream stream;
  Helper::SerializeVYR5X5ColorMatrix(matrix, &stream);
  std::vector<uint8_t> bytes = StreamBytes(stream);
  ASSERT_EQ(bytes.size(), 4u + 25 * 8);
  EXPECT_EQ(std::vector<uint8_t>(bytes.begin(), bytes.begin() + 4), Hex("19 00 00 00"));
  std::vector<uint8_t> last(bytes.end() - 8, bytes.end());
  EXPECT_EQ(last, Hex("00 00 00 00 00 00 F0 3F"));  // the constant corner

  VYR2DGStringStream reader = ReadingStream(bytes);
  VYR5X5ColorMatrix read;
  Helper::CreateVYR5X5ColorMatrixFromStream(read, &reader);
  EXPECT_EQ(read, matrix);
  EXPECT_EQ(reader.GetReadableBytesLeft(), 0);
}

TEST(StreamValues, ColourMatrixWithAForeignCountIsRefused) {
  AssertionCapture capture;
  VYR2DGStringStream twenty;
  twenty.Stream(20);
  for (int i = 0; i < 20; ++i) twenty.Stream(0.25);
  VYR2DGStringStream reader = ReadingStream(StreamBytes(twenty));
  VYR5X5ColorMatrix matrix;
  Helper::CreateVYR5X5ColorMatrixFromStream(matrix, &reader);
  EXPECT_EQ(matrix, VYR5X5ColorMatrix());
  EXPECT_EQ(reader.GetReadableBytesLeft(), 0);  // the values are still consumed
  EXPECT_FALSE(capture.Reports().empty());

  capture.Clear();
  VYR2DGStringStream huge = ReadingStream(Hex("FF FF FF 7F 00 00 00 00"));
  Helper::CreateVYR5X5ColorMatrixFromStream(matrix, &huge);
  EXPECT_EQ(matrix, VYR5X5ColorMatrix());
  EXPECT_FALSE(capture.FailedConditions().empty());
}

TEST(StreamValues, TextsEndAtTheirFirstZeroAndALengthBeyondTheStreamFails) {
  const std::string longText(100, 'x');
  VYR2DGStringStream stream;
  Helper::SerializeVYRUnicodeString("short", &stream);
  stream.Stream("ab\0cd", 5);
  Helper::SerializeVYRUnicodeString(VYRUnicodeString(longText), &stream);
  Helper::SerializeVYRUnicodeString("", &stream);
  stream.Stream(50);  // a length with too few bytes after it
  stream.Stream("tail", 4);

  VYR2DGStringStream reader = ReadingStream(StreamBytes(stream));
  VYRUnicodeString text("was here");
  Helper::CreateVYRUnicodeStringFromStream(text, &reader);
  EXPECT_EQ(text, "short");
  Helper::CreateVYRUnicodeStringFromStream(text, &reader);
  EXPECT_EQ(text, "ab");
  EXPECT_EQ(reader.GetReadableBytesLeft(), 4 + 100 + 4 + 4 + 8);
  Helper::CreateVYRUnicodeStringFromStream(text, &reader);
  EXPECT_EQ(text.GetStdString(), longText);
  Helper::CreateVYRUnicodeStringFromStream(text, &reader);
  EXPECT_TRUE(text.IsEmpty());
  EXPECT_FALSE(reader.HasFailed());
  text = "was here";
  Helper::CreateVYRUnicodeStringFromStream(text, &reader);
  EXPECT_TRUE(text.IsEmpty());
  EXPECT_TRUE(reader.HasFailed());
}

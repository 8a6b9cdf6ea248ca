#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "VYRBase64.h"

namespace {

std::string Encode(const std::string& i_data, unsigned int* o_length = nullptr) {
  unsigned int length = 12345;
  std::unique_ptr<char[]> text(
      VYRBase64::Encode(reinterpret_cast<const unsigned char*>(i_data.data()), i_data.size(), length));
  if (!text) return "<null>";
  if (o_length) *o_length = length;
  EXPECT_EQ(std::string(text.get()).size(), length);  // terminated right after the characters
  return std::string(text.get(), length);
}

std::string Decode(const std::string& i_text) {
  unsigned int length = 12345;
  std::unique_ptr<unsigned char[]> data(VYRBase64::Decode(i_text.data(), i_text.size(), length));
  if (!data) return "<null>";
  return std::string(reinterpret_cast<const char*>(data.get()), length);
}

}  // namespace

TEST(Base64Encode, GroupsAndPadding) {
  unsigned int length = 0;
  EXPECT_EQ(Encode("Man", &length), "TWFu");
  EXPECT_EQ(length, 4u);
  EXPECT_EQ(Encode("M", &length), "TQ==");
  EXPECT_EQ(length, 4u);
  EXPECT_EQ(Encode("Ma"), "TWE=");
  EXPECT_EQ(Encode("Many hands make light work."), "TWFueSBoYW5kcyBtYWtlIGxpZ2h0IHdvcmsu");
  EXPECT_EQ(Encode(std::string("\xFF\xFE\x00", 3)), "//4A");
}

TEST(Base64Encode, NullOrEmptyDataGivesNullAndLeavesLength) {
  unsigned int length = 77;
  const unsigned char byte = 1;
  EXPECT_EQ(VYRBase64::Encode(nullptr, 3, length), nullptr);
  EXPECT_EQ(VYRBase64::Encode(&byte, 0, length), nullptr);
  EXPECT_EQ(length, 77u);
}

TEST(Base64Decode, LengthsAndPadding) {
  EXPECT_EQ(Decode("TWFueS"), "<null>");  // not a multiple of 4
  EXPECT_EQ(Decode(""), "<null>");
  unsigned int length = 77;
  EXPECT_EQ(VYRBase64::Decode(nullptr, 4, length), nullptr);
  EXPECT_EQ(length, 77u);

  EXPECT_EQ(Decode("TQ=="), "M");
  EXPECT_EQ(Decode("TWE="), "Ma");
  EXPECT_EQ(Decode("TWFu"), "Man");
  // The second-to-last '=' counts on its own; '=' decodes as 0 wherever it stands.
  EXPECT_EQ(Decode("AB=C"), std::string("\x00\x10", 2));
}

TEST(Base64Decode, StrangersDecodeAsZero) {
  EXPECT_EQ(Decode("\x80\xFF\xC3\xA9"), std::string(3, '\0'));
  EXPECT_EQ(Decode("TW\nu"), Decode("TWAu"));  // a line break is not skipped
  EXPECT_EQ(Decode("*A*A"), std::string(3, '\0'));
}

TEST(Base64, EveryByteValueRoundTrips) {
  std::string all;
  for (int i = 0; i < 256; ++i) all.push_back(static_cast<char>(i));
  for (size_t cut : {256u, 255u, 254u}) {
    std::string data = all.substr(0, cut);
    EXPECT_EQ(Decode(Encode(data)), data) << cut;
  }
}

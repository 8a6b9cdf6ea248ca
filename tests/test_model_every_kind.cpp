// Every element kind a stream can create, checked field by field: filled with
// values other than the defaults, streamed and rebuilt through the tag
// dispatch, duplicated and reset.
#include <gtest/gtest.h>

#include <cstring>
#include <set>

#include "AssertionCapture.h"
#include "EveryElementKind.h"

namespace {

bool HasPrefix(const std::string& i_field, const std::vector<std::string>& i_prefixes) {
  for (const std::string& prefix : i_prefixes) {
    if (i_field.compare(0, prefix.size(), prefix) == 0) return true;
  }
  return false;
}

bool IsCommon(const std::string& i_field) { return HasPrefix(i_field, {"common."}); }

class EveryKind : public ::testing::TestWithParam<ElementKind> {
 protected:
  void TearDown() override { VYRPrtEltFactory::Get().Release(); }

  FieldListing DefaultFields() {
    return ListFields(GetParam(), *GetParam().makeDefault());
  }

  bool KeptByReset(const std::string& i_field) const {
    return i_field == "common.streamVersion" || i_field == "children" || HasPrefix(i_field, GetParam().keptByReset);
  }
  bool Streamed(const std::string& i_field) const { return !HasPrefix(i_field, GetParam().notStreamed); }
};

std::string KindName(const ::testing::TestParamInfo<ElementKind>& i_info) { return i_info.param.name; }

// A host's own stream: only the fourteen value operations, over a byte vector.
class HostStream : public VYRI2DGStream {
 public:
  std::vector<char> bytes;
  size_t readAt = 0;

  void Stream(float i_value) override { Put(i_value); }
  void Stream(double i_value) override { Put(i_value); }
  void Stream(unsigned int i_value) override { Put(i_value); }
  void Stream(int i_value) override { Put(i_value); }
  void Stream(unsigned char i_value) override { Put(i_value); }
  void Stream(char i_value) override { Put(i_value); }
  void Stream(const char* i_bytes, int i_length) override {
    Put(i_length);
    if (i_length > 0) bytes.insert(bytes.end(), i_bytes, i_bytes + i_length);
  }
  void Unstream(float& o_value) override { Take(o_value); }
  void Unstream(double& o_value) override { Take(o_value); }
  void Unstream(unsigned int& o_value) override { Take(o_value); }
  void Unstream(int& o_value) override { Take(o_value); }
  void Unstream(unsigned char& o_value) override { Take(o_value); }
  void Unstream(char& o_value) override { Take(o_value); }
  char* Unstream(bool i_zeroTerminated) override {
    int length = 0;
    Take(length);
    if (length <= 0) return nullptr;
    char* pText = new char[static_cast<size_t>(length) + (i_zeroTerminated ? 1 : 0)]();
    for (int i = 0; i < length; ++i) Take(pText[i]);
    return pText;
  }

 private:
  template <class T>
  void Put(T i_value) {
    const char* p = reinterpret_cast<const char*>(&i_value);
    bytes.insert(bytes.end(), p, p + sizeof(T));
  }
  template <class T>
  void Take(T& o_value) {
    o_value = T();
    if (readAt + sizeof(T) > bytes.size()) return;
    std::memcpy(&o_value, bytes.data() + readAt, sizeof(T));
    readAt += sizeof(T);
  }
};

}  // namespace

TEST(EveryKindTable, EachTagRebuildsItsOwnClassAndNoOtherTagBuildsAnything) {
  std::set<int> listed;
  for (const ElementKind& kind : EveryElementKind()) listed.insert(kind.tag);
  for (int tag = 8; tag <= 47; ++tag) {
    bool abstract = tag == kStreamTypeBaseGradientElt || tag == kStreamTypeBaseShapeElt || tag == kStreamTypePointBasedElt;
    EXPECT_EQ(listed.count(tag), abstract ? 0u : 1u) << tag;
  }
  AssertionCapture quiet;
  for (int tag : {-1, 0, 1, 6, 7, 28, 35, 36, 48, 1000}) {
    VYR2DGStringStream tagOnly;
    tagOnly.Stream(tag);
    VYR2DGStringStream reading = ReadingStream(StreamBytes(tagOnly));
    EXPECT_EQ(VYRPrtStreamUnstreamHelper::CreateVYRPrtGraphicPrimitiveEltFromStream(&reading), nullptr) << tag;
  }
  for (const ElementKind& kind : EveryElementKind()) {
    VYRPrtGraphicPrimitiveElt* pElt = kind.makeDefault();
    EXPECT_EQ(pElt->GetStreamType(), kind.tag);
    EXPECT_EQ(std::string(pElt->IsA()), std::string("VYRPrt") + kind.name + "Elt");
    VYR2DGStringStream reader = ReadingStream(BytesOf(*pElt));
    VYRPrtGraphicPrimitiveElt* pRead = VYRPrtStreamUnstreamHelper::CreateVYRPrtGraphicPrimitiveEltFromStream(&reader);
    ASSERT_NE(pRead, nullptr) << kind.name;
    EXPECT_EQ(pRead->IsA(), pElt->IsA());
    EXPECT_EQ(reader.GetReadableBytesLeft(), 0) << kind.name;
  }
  EXPECT_TRUE(quiet.Reports().empty());
  VYRPrtEltFactory::Get().Release();
}

TEST_P(EveryKind, FilledElementDiffersFromTheDefaultInEveryField) {
  FieldListing defaults = DefaultFields();
  FieldListing filled = ListFields(GetParam(), *GetParam().makeFilled());
  ASSERT_EQ(filled.size(), defaults.size());
  for (const auto& field : filled) {
    ASSERT_EQ(defaults.count(field.first), 1u) << field.first;
    EXPECT_NE(field.second, defaults[field.first]) << field.first << " keeps its default";
  }
}

TEST_P(EveryKind, StreamRebuildsEveryFieldThroughTheTagDispatch) {
  VYRPrtGraphicPrimitiveElt* pSource = GetParam().makeFilled();
  std::vector<uint8_t> bytes = BytesOf(*pSource);
  uint8_t tag[4] = {static_cast<uint8_t>(GetParam().tag), 0, 0, 0};
  EXPECT_EQ(std::vector<uint8_t>(bytes.begin(), bytes.begin() + 4), std::vector<uint8_t>(tag, tag + 4));

  AssertionCapture capture;
  VYR2DGStringStream reader = ReadingStream(bytes);
  VYRPrtGraphicPrimitiveElt* pRead = VYRPrtStreamUnstreamHelper::CreateVYRPrtGraphicPrimitiveEltFromStream(&reader);
  ASSERT_NE(pRead, nullptr);
  EXPECT_NE(pRead, pSource);
  EXPECT_STREQ(pRead->IsA(), pSource->IsA());
  EXPECT_EQ(reader.GetReadableBytesLeft(), 0);
  EXPECT_FALSE(reader.HasFailed());
  EXPECT_TRUE(capture.Reports().empty());

  FieldListing expected = ListFields(GetParam(), *pSource);
  FieldListing read = ListFields(GetParam(), *pRead);
  FieldListing defaults = DefaultFields();
  for (const auto& field : expected) {
    EXPECT_EQ(read[field.first], Streamed(field.first) ? field.second : defaults[field.first]) << field.first;
  }
  EXPECT_EQ(BytesOf(*pRead), bytes);
  // The references come back as elements of their own.
  EXPECT_NE(pRead->GetClipPath(), pSource->GetClipPath());
  EXPECT_EQ(pRead->GetFather(), nullptr);
}

// Records of several values go through a stream that only knows single
// values one byte at a time, with the same bytes as the string stream's.
TEST_P(EveryKind, HostStreamCarriesTheSameBytes) {
  VYRPrtGraphicPrimitiveElt* pSource = GetParam().makeFilled();
  std::vector<uint8_t> bytes = BytesOf(*pSource);
  HostStream host;
  pSource->Stream(&host);
  EXPECT_EQ(std::vector<uint8_t>(host.bytes.begin(), host.bytes.end()), bytes);

  VYRPrtGraphicPrimitiveElt* pRead = VYRPrtStreamUnstreamHelper::CreateVYRPrtGraphicPrimitiveEltFromStream(&host);
  ASSERT_NE(pRead, nullptr);
  EXPECT_EQ(host.readAt, host.bytes.size());
  EXPECT_EQ(BytesOf(*pRead), bytes);
}

TEST_P(EveryKind, DuplicateFollowsTheRuleOfItsKind) {
  VYRPrtGraphicPrimitiveElt* pSource = GetParam().makeFilled();
  FieldListing source = ListFields(GetParam(), *pSource);
  VYRPrtGraphicPrimitiveElt* pCopy = pSource;
  pSource->Duplicate(pCopy);
  if (GetParam().duplicate == DuplicateRule::None) {
    EXPECT_EQ(pCopy, nullptr);
    return;
  }
  ASSERT_NE(pCopy, nullptr);
  EXPECT_NE(pCopy, pSource);
  EXPECT_STREQ(pCopy->IsA(), pSource->IsA());
  FieldListing defaults = DefaultFields();
  FieldListing copied = ListFields(GetParam(), *pCopy);
  for (const auto& field : source) {
    bool defaultCommon = GetParam().duplicate == DuplicateRule::WithoutCommonAttributes && IsCommon(field.first);
    EXPECT_EQ(copied[field.first], defaultCommon ? defaults[field.first] : field.second) << field.first;
  }
  // The source is left as it was.
  EXPECT_EQ(ListFields(GetParam(), *pSource), source);
}

TEST_P(EveryKind, ResetRestoresTheDefaultsItsKindResets) {
  VYRPrtGraphicPrimitiveElt* pElt = GetParam().makeFilled();
  FieldListing filled = ListFields(GetParam(), *pElt);
  FieldListing defaults = DefaultFields();
  pElt->Reset();
  FieldListing reset = ListFields(GetParam(), *pElt);
  for (const auto& field : filled) {
    EXPECT_EQ(reset[field.first], KeptByReset(field.first) ? field.second : defaults[field.first]) << field.first;
  }
  // Whatever Reset left streams and reads back.
  VYR2DGStringStream reader = ReadingStream(BytesOf(*pElt));
  VYRPrtGraphicPrimitiveElt* pRead = VYRPrtStreamUnstreamHelper::CreateVYRPrtGraphicPrimitiveEltFromStream(&reader);
  ASSERT_NE(pRead, nullptr);
  EXPECT_EQ(ListFields(GetParam(), *pRead), reset);
}

INSTANTIATE_TEST_SUITE_P(Model, EveryKind, ::testing::ValuesIn(EveryElementKind()), KindName);

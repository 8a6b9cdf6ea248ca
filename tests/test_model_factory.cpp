#include <gtest/gtest.h>

#include <string>

#include "AssertionCapture.h"
#include "VYRPrtEltFactory.h"

namespace factory_test {

inline int g_constructed = 0;
inline int g_destroyed = 0;

class PooledThing : public VYRBaseUnknown {
  VYR_DECLARE_CLASS(PooledThing)
 public:
  PooledThing() { ++g_constructed; }
  ~PooledThing() override { ++g_destroyed; }
  int value = 0;
};
VYR_IMPLEMENT_CLASS(PooledThing, VYRBaseUnknown, "Tests")

class OtherThing : public VYRBaseUnknown {
  VYR_DECLARE_CLASS(OtherThing)
};
VYR_IMPLEMENT_CLASS(OtherThing, VYRBaseUnknown, "Tests")

// Each test starts with no factory and the default block size, and ends by
// dropping the factory's last reference.
class EltFactory : public ::testing::Test {
 protected:
  void SetUp() override {
    VYRPrtEltFactory::SetBlockSize(500);
    g_constructed = g_destroyed = 0;
  }
  void TearDown() override {
    VYRPrtEltFactory::Get().Release();
    VYRPrtEltFactory::SetBlockSize(500);
  }
};

}  // namespace factory_test
using namespace factory_test;

TEST_F(EltFactory, FirstElementBuildsAWholeBlockAndCountsFromTheFirstBlock) {
  VYRPrtEltFactory& factory = VYRPrtEltFactory::Get();
  EXPECT_EQ(factory.GetElementCount(PooledThing::ClassName()), 0u);
  PooledThing* first = factory.CreateElement<PooledThing>(PooledThing::ClassName());
  ASSERT_NE(first, nullptr);
  EXPECT_EQ(g_constructed, 500);
  EXPECT_EQ(factory.GetElementCount(PooledThing::ClassName()), 1u);
  EXPECT_EQ(factory.GetElementCount(OtherThing::ClassName()), 0u);

  PooledThing* second = factory.CreateElement<PooledThing>();
  EXPECT_EQ(second, first + 1);
}

TEST_F(EltFactory, The501stElementComesFromASecondBlock) {
  VYRPrtEltFactory& factory = VYRPrtEltFactory::Get();
  PooledThing* first = factory.CreateElement<PooledThing>();
  for (int i = 1; i < 500; ++i) ASSERT_EQ(factory.CreateElement<PooledThing>(), first + i);
  EXPECT_EQ(g_constructed, 500);
  PooledThing* extra = factory.CreateElement<PooledThing>();
  ASSERT_NE(extra, nullptr);
  EXPECT_TRUE(extra < first || extra >= first + 500);
  EXPECT_EQ(g_constructed, 1000);
  EXPECT_EQ(factory.GetElementCount(PooledThing::ClassName()), 500u);
}

TEST_F(EltFactory, NewBlockSizeAppliesOnlyToBlocksMadeLater) {
  VYRPrtEltFactory::SetBlockSize(3);
  VYRPrtEltFactory& factory = VYRPrtEltFactory::Get();
  for (int i = 0; i < 3; ++i) factory.CreateElement<PooledThing>();
  EXPECT_EQ(g_constructed, 3);
  VYRPrtEltFactory::SetBlockSize(10);
  EXPECT_EQ(VYRPrtEltFactory::GetBlockSize(), 10u);
  factory.CreateElement<PooledThing>();
  EXPECT_EQ(g_constructed, 13);  // the chain's second block has 10
  EXPECT_EQ(factory.GetElementCount(PooledThing::ClassName()), 3u);
  for (int i = 0; i < 9; ++i) factory.CreateElement<PooledThing>();
  EXPECT_EQ(g_constructed, 13);
  factory.CreateElement<PooledThing>();
  EXPECT_EQ(g_constructed, 23);
}

TEST_F(EltFactory, ZeroBlockSizeIsRefused) {
  AssertionCapture capture;
  VYRPrtEltFactory::SetBlockSize(0);
  EXPECT_TRUE(capture.Has("i_blockSize > 0"));
  EXPECT_EQ(VYRPrtEltFactory::GetBlockSize(), 500u);
}

TEST_F(EltFactory, ClassNamesAreKeyedByPointerNotText) {
  VYRPrtEltFactory& factory = VYRPrtEltFactory::Get();
  factory.CreateElement<PooledThing>();
  std::string sameText = PooledThing::ClassName();
  EXPECT_EQ(factory.GetElementCount(sameText.c_str()), 0u);
  EXPECT_EQ(factory.GetElementCount(PooledThing::ClassName()), 1u);
}

TEST_F(EltFactory, PooledElementsSurviveReleaseAndDieWithTheFactory) {
  PooledThing* thing = VYRPrtEltFactory::Get().CreateElement<PooledThing>();
  thing->value = 7;
  EXPECT_TRUE(thing->IsPooled());
  EXPECT_EQ(thing->Release(), 0u);
  EXPECT_EQ(g_destroyed, 0);
  EXPECT_EQ(thing->value, 7);

  VYRPrtEltFactory::Get().CreateElement<OtherThing>();
  VYRPrtEltFactory::Get().Release();
  EXPECT_EQ(g_destroyed, 500);
  // A fresh factory starts counting again.
  EXPECT_EQ(VYRPrtEltFactory::Get().GetElementCount(PooledThing::ClassName()), 0u);
}

TEST_F(EltFactory, ModelReferencesKeepTheSingletonAlive) {
  VYRPrtEltFactory::AddReference();  // no factory yet: nothing happens
  VYRPrtEltFactory* factory = &VYRPrtEltFactory::Get();
  EXPECT_EQ(factory->GetRefCount(), 1u);
  VYRPrtEltFactory::AddReference();
  EXPECT_EQ(factory->GetRefCount(), 2u);
  factory->CreateElement<PooledThing>();
  VYRPrtEltFactory::Get().Release();
  EXPECT_EQ(g_destroyed, 0);
  EXPECT_EQ(&VYRPrtEltFactory::Get(), factory);
  EXPECT_EQ(factory->GetElementCount(PooledThing::ClassName()), 1u);
}

TEST_F(EltFactory, LongChainsOfTinyBlocksAreDestroyed) {
  VYRPrtEltFactory::SetBlockSize(1);
  for (int i = 0; i < 20000; ++i) ASSERT_NE(VYRPrtEltFactory::Get().CreateElement<PooledThing>(), nullptr);
  VYRPrtEltFactory::Get().Release();
  EXPECT_EQ(g_destroyed, 20000);
}

// The hint is tried first; when its slot is taken the block is scanned from
// its start, and the hint still moves on from its old value.
TEST(EltArray, FirstFitScanWhenTheHintedSlotIsTaken) {
  VYRPrtEltArray<PooledThing>* block = VYRPrtEltArray<PooledThing>::Make(4);
  ASSERT_NE(block, nullptr);
  PooledThing* e0 = block->Take();
  PooledThing* e1 = block->Take();
  EXPECT_EQ(e1, e0 + 1);
  EXPECT_EQ(block->_nextHint, 2u);

  block->_nextHint = 1;          // hint at a slot already handed out
  block->_paFreeFlags[0] = 1;    // and an earlier slot free again
  EXPECT_EQ(block->Take(), e0);  // first fit from index 0
  EXPECT_EQ(block->_nextHint, 2u);
  EXPECT_EQ(block->_paFreeFlags[0], 0);
  EXPECT_EQ(block->Take(), e0 + 2);
  delete block;
  VYRPrtEltFactory::Get().Release();
}

#include <gtest/gtest.h>

#include <cstdint>

#include "AssertionCapture.h"
#include "VYRRawCollPV.h"
#include "VYRRawColldouble.h"
#include "VYRRawCollfloat.h"
#include "VYRSYPDynArray.h"

namespace {

const char* const kBadPosition = "(i_position>=1 && i_position<=Size())";

// The three collections share one implementation; every behaviour is checked on each.
template <class Coll>
struct Item;
template <>
struct Item<VYRRawCollPV> {
  static void* Make(int k) { return reinterpret_cast<void*>(static_cast<uintptr_t>(16 * k)); }
};
template <>
struct Item<VYRRawColldouble> {
  static double Make(int k) { return k + 0.5; }
};
template <>
struct Item<VYRRawCollfloat> {
  static float Make(int k) { return k + 0.25f; }
};

template <class Coll>
class RawCollection : public ::testing::Test {
 protected:
  static auto I(int k) { return Item<Coll>::Make(k); }
  // A list of the items numbered by i_keys, in that order.
  static Coll Of(std::initializer_list<int> i_keys) {
    Coll coll;
    for (int k : i_keys) coll.Append(I(k));
    return coll;
  }
};

using Collections = ::testing::Types<VYRRawCollPV, VYRRawColldouble, VYRRawCollfloat>;
TYPED_TEST_SUITE(RawCollection, Collections);

TYPED_TEST(RawCollection, PositionsStartAtOneAndBadOnesAreReported) {
  TypeParam coll;
  EXPECT_EQ(coll.Append(this->I(1)), 1);  // Append gives the new size
  EXPECT_EQ(coll.Append(this->I(2)), 2);
  EXPECT_EQ(coll.Append(this->I(3)), 3);
  const TypeParam& constColl = coll;
  EXPECT_EQ(constColl[1], this->I(1));
  EXPECT_EQ(constColl[3], this->I(3));

  AssertionCapture capture;
  EXPECT_EQ(constColl[0], decltype(this->I(0))());
  EXPECT_EQ(constColl[4], decltype(this->I(0))());
  EXPECT_EQ(capture.FailedConditions(), std::vector<std::string>(2, kBadPosition));

  // Writing through a bad position lands in a scratch item, never in the list,
  // and the next bad read sees the default again.
  coll[0] = this->I(9);
  EXPECT_EQ(coll[4], decltype(this->I(0))());
  EXPECT_EQ(coll, this->Of({1, 2, 3}));
  coll[2] = this->I(7);
  EXPECT_EQ(coll, this->Of({1, 7, 3}));
}

TYPED_TEST(RawCollection, LocateSearchesFromTheStartPosition) {
  TypeParam coll = this->Of({1, 2, 1, 3});
  EXPECT_EQ(coll.Locate(this->I(1)), 1);
  EXPECT_EQ(coll.Locate(this->I(1), 2), 3);
  EXPECT_EQ(coll.Locate(this->I(1), 3), 3);
  EXPECT_EQ(coll.Locate(this->I(1), 4), 0);
  EXPECT_EQ(coll.Locate(this->I(3), 4), 4);
  EXPECT_EQ(coll.Locate(this->I(3), 5), 0);
  EXPECT_EQ(coll.Locate(this->I(5)), 0);

  AssertionCapture capture;
  EXPECT_EQ(coll.Locate(this->I(1), 0), 0);
  EXPECT_TRUE(capture.Has("i_startPosition >= 1"));
}

TYPED_TEST(RawCollection, RemovePositionMovesLaterItemsDown) {
  TypeParam coll = this->Of({1, 2, 3, 4, 5, 6});
  EXPECT_EQ(coll.RemovePosition(2), 1);
  EXPECT_EQ(coll, this->Of({1, 3, 4, 5, 6}));
  EXPECT_EQ(coll.RemovePosition(2, 2u), 2);
  EXPECT_EQ(coll, this->Of({1, 5, 6}));
  EXPECT_EQ(coll.RemovePosition(1, 0u), 0);
  EXPECT_EQ(coll.RemovePosition(2, 10u), 2);  // stops at the end
  EXPECT_EQ(coll, this->Of({1}));

  AssertionCapture capture;
  EXPECT_EQ(coll.RemovePosition(2), 0);
  EXPECT_EQ(coll.RemovePosition(0, 1u), 0);
  EXPECT_EQ(capture.FailedConditions(), std::vector<std::string>(2, kBadPosition));
  EXPECT_EQ(coll, this->Of({1}));
  EXPECT_EQ(coll.RemovePosition(1), 1);
  EXPECT_EQ(coll.Size(), 0);
}

TYPED_TEST(RawCollection, SwapExchangesTwoPositions) {
  TypeParam coll = this->Of({1, 2, 3});
  coll.Swap(1, 3);
  EXPECT_EQ(coll, this->Of({3, 2, 1}));
  coll.Swap(2, 2);
  EXPECT_EQ(coll, this->Of({3, 2, 1}));

  AssertionCapture capture;
  coll.Swap(1, 4);
  coll.Swap(0, 2);
  EXPECT_EQ(capture.FailedConditions().size(), 2u);
  EXPECT_EQ(coll, this->Of({3, 2, 1}));
}

TYPED_TEST(RawCollection, EqualityNeedsSameItemsInSameOrder) {
  const TypeParam coll = this->Of({1, 2, 3});
  EXPECT_EQ(coll == this->Of({1, 2, 3}), 1);
  EXPECT_EQ(coll != this->Of({1, 2, 3}), 0);
  EXPECT_EQ(coll == this->Of({1, 3, 2}), 0);
  EXPECT_EQ(coll == this->Of({1, 2}), 0);
  EXPECT_EQ(coll == this->Of({1, 2, 3, 4}), 0);
  EXPECT_EQ(TypeParam() == TypeParam(8), 1);  // capacity does not count

  // Copies are independent of their source.
  TypeParam copy(coll);
  TypeParam assigned;
  assigned = coll;
  copy[1] = this->I(9);
  assigned.Append(this->I(4));
  EXPECT_EQ(coll, this->Of({1, 2, 3}));
  EXPECT_EQ(copy, this->Of({9, 2, 3}));
  EXPECT_EQ(assigned, this->Of({1, 2, 3, 4}));
}

TYPED_TEST(RawCollection, RemoveAllKeepsOrReleasesTheStorage) {
  TypeParam coll(5);
  EXPECT_EQ(coll.Capacity(), 5);
  for (int k = 1; k <= 5; ++k) coll.Append(this->I(k));
  EXPECT_EQ(coll.Capacity(), 5);  // the initial capacity avoided any growth

  coll.RemoveAll(VYRCollec::DoNotFreeMemory);
  EXPECT_EQ(coll.Size(), 0);
  EXPECT_EQ(coll.Capacity(), 5);
  coll.Append(this->I(7));
  EXPECT_EQ(coll, this->Of({7}));

  coll.RemoveAll(VYRCollec::FreeMemory);
  EXPECT_EQ(coll.Size(), 0);
  EXPECT_EQ(coll.Capacity(), 0);
}

TEST(RawCollPV, ItemsOutliveTheListThatPointedAtThem) {
  int target = 42;
  {
    VYRRawCollPV list;
    list.Append(&target);
    list.RemoveAll(VYRCollec::FreeMemory);
    list.Append(&target);
  }
  EXPECT_EQ(target, 42);
}

TEST(SYPDynArray, GrowsToTwiceTheLengthPlusOne) {
  VYRSYPDynArray<int> array;
  std::vector<int> capacities;
  for (int i = 0; i < 23; ++i) {
    ASSERT_EQ(array.Append(i), 1);
    if (capacities.empty() || capacities.back() != array.GetCapacity()) capacities.push_back(array.GetCapacity());
  }
  EXPECT_EQ(capacities, (std::vector<int>{1, 4, 10, 22, 46}));
  for (int i = 0; i < 23; ++i) EXPECT_EQ(array[i], i);
}

TEST(SYPDynArray, ReportsBadIndexesAndCapacities) {
  VYRSYPDynArray<int> array;
  array.Append(5);
  array.Append(6);
  AssertionCapture capture;
  EXPECT_EQ(array[2], 0);
  EXPECT_EQ(array[-1], 0);
  EXPECT_EQ(array.RemoveAt(2), -1);
  EXPECT_EQ(capture.FailedConditions(), std::vector<std::string>(3, "(i_index>=0 && i_index<_length)"));

  capture.Clear();
  EXPECT_EQ(array.SetCapacity(2), -1);
  EXPECT_TRUE(capture.Has("i_capacity > _length"));
  EXPECT_EQ(array.GetLength(), 2);
  EXPECT_EQ(array[1], 6);
}

}  // namespace

#include <gtest/gtest.h>

#include "AssertionCapture.h"
#include "VYRListPtrVYRPrtGraphicPrimitiveElt.h"
#include "VYRListPtrVYRPrtImageElt.h"
#include "VYRPrtMaskElt.h"

TEST(TypedPointerLists, ForwardToThePlatformListWithTypedPointers) {
  VYRPrtMaskElt a, b, c;
  VYRListPtrVYRPrtGraphicPrimitiveElt list(4);
  EXPECT_EQ(list.Append(&a), 1);
  EXPECT_EQ(list.Append(&b), 2);
  EXPECT_EQ(list.Append(&a), 3);
  EXPECT_EQ(list.Locate(&a, 2), 3);
  EXPECT_EQ(list.Locate(&c, 1), 0);
  list[2] = &c;
  const auto& constList = list;
  EXPECT_EQ(constList[2], &c);

  VYRListPtrVYRPrtGraphicPrimitiveElt copy(list);
  EXPECT_EQ(copy == list, 1);
  copy.Swap(1, 2);
  EXPECT_EQ(copy != list, 1);
  EXPECT_EQ(copy[1], &c);
  EXPECT_EQ(copy.RemovePosition(1, 5u), 3);
  EXPECT_EQ(copy.Size(), 0);

  AssertionCapture capture;
  EXPECT_EQ(constList[4], nullptr);
  EXPECT_FALSE(capture.Reports().empty());
  list.RemoveAll(VYRCollec::FreeMemory);
  EXPECT_EQ(list.Size(), 0);

  VYRListPtrVYRPrtImageElt images;
  EXPECT_EQ(images.Size(), 0);
}

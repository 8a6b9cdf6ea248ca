#pragma once

#include <gtest/gtest.h>

#include "ElementRoundTrip.h"
#include "TestPrinters.h"

// The shared non-default common block under an identifier of the test's choosing.
inline void SetNonDefaultCommonAttributes(VYRPrtGraphicPrimitiveElt& io_elt, const char* i_id) {
  SetNonDefaultCommonAttributes(io_elt);
  io_elt.SetID(i_id);
}

inline void ExpectDefaultCommonAttributes(const VYRPrtGraphicPrimitiveElt& i_elt) {
  EXPECT_EQ(i_elt.GetVisibility(), 1);
  EXPECT_EQ(i_elt.GetID(), VYRUnicodeString());
  EXPECT_EQ(i_elt.GetTitle(), VYRUnicodeString());
  EXPECT_EQ(i_elt.GetSpaceHandling(), VYRUnicodeString("default"));
  EXPECT_TRUE(i_elt.GetTransformAttributes() == VYRPrtTransformAttributes());
  EXPECT_TRUE(i_elt.GetAdobeAttributes() == VYRPrtAdobeAttributes());
  EXPECT_EQ(i_elt.GetClipPathID(), VYRUnicodeString());
  EXPECT_EQ(i_elt.GetOpacity(), 255);
  EXPECT_EQ(i_elt.GetFather(), nullptr);
}

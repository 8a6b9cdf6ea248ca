#pragma once

#include <gtest/gtest.h>

#include "TestPrinters.h"
#include "VYR2DGStringStream.h"
#include "VYRMathVector2D.h"
#include "VYRPrtGraphicPrimitiveElt.h"
#include "VYRPrtStreamUnstreamHelper.h"

// Gives every streamed common attribute a value other than its default.
inline void SetNonDefaultCommonAttributes(VYRPrtGraphicPrimitiveElt& io_elt, const char* i_id) {
  io_elt.SetID(i_id);
  io_elt.SetVisibility(0);
  io_elt.SetDescription("a description");
  io_elt.SetTitle("a title");
  io_elt.SetSpaceHandling("preserve");
  VYRPrtTransformAttributes transform;
  transform.AddTranslation(VYRMathVector2D(3.0, -4.0));
  transform.AddRotation(30.0f);
  io_elt.SetTransformAttributes(transform);
  VYRPrtAdobeAttributes adobe;
  adobe.SetOpacityShare(0.25);
  io_elt.SetAdobeAttributes(adobe);
  io_elt.SetClipPathID("clip");
  io_elt.SetMaskID("mask");
  io_elt.SetFilterID("filter");
  io_elt.SetOpacity(77);
  io_elt.SetStreamVersion(3);
}

inline void ExpectEqualCommonAttributes(const VYRPrtGraphicPrimitiveElt& i_a, const VYRPrtGraphicPrimitiveElt& i_b) {
  EXPECT_EQ(i_a.GetVisibility(), i_b.GetVisibility());
  EXPECT_EQ(i_a.GetID(), i_b.GetID());
  EXPECT_EQ(i_a.GetDescription(), i_b.GetDescription());
  EXPECT_EQ(i_a.GetTitle(), i_b.GetTitle());
  EXPECT_EQ(i_a.GetSpaceHandling(), i_b.GetSpaceHandling());
  EXPECT_TRUE(i_a.GetTransformAttributes() == i_b.GetTransformAttributes());
  EXPECT_TRUE(i_a.GetAdobeAttributes() == i_b.GetAdobeAttributes());
  EXPECT_EQ(i_a.GetClipPathID(), i_b.GetClipPathID());
  EXPECT_EQ(i_a.GetMaskID(), i_b.GetMaskID());
  EXPECT_EQ(i_a.GetFilterID(), i_b.GetFilterID());
  EXPECT_EQ(i_a.GetOpacity(), i_b.GetOpacity());
  EXPECT_EQ(i_a.GetStreamVersion(), i_b.GetStreamVersion());
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

// Streams an element and rebuilds it through the tag dispatch; the rebuilt
// element must be of the same class and must have read exactly what was written.
template <class K>
K* RoundTrip(VYRPrtGraphicPrimitiveElt& i_elt) {
  VYR2DGStringStream stream;
  VYRPrtStreamUnstreamHelper::SerializeVYRPrtGraphicPrimitiveElt(&i_elt, &stream);
  VYR2DGStringStream reading(stream.GetBuffer(), stream.GetSize());
  VYRPrtGraphicPrimitiveElt* pRead = VYRPrtStreamUnstreamHelper::CreateVYRPrtGraphicPrimitiveEltFromStream(&reading);
  EXPECT_NE(pRead, nullptr);
  if (!pRead) return nullptr;
  EXPECT_STREQ(pRead->IsA(), K::ClassName());
  EXPECT_FALSE(reading.HasFailed());
  EXPECT_EQ(reading.GetReadableBytesLeft(), 0);
  ExpectEqualCommonAttributes(i_elt, *pRead);
  return static_cast<K*>(pRead);
}

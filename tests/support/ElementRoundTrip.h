#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <vector>

#include "StreamBytes.h"
#include "VYR2DGStringStream.h"
#include "VYRPrintGradient.h"
#include "VYRPrintGradientStop.h"
#include "VYRPrtBaseShapeElt.h"
#include "VYRPrtStreamUnstreamHelper.h"

// Helpers for the element tests: elements filled with non-default values in
// every common, stroke and fill field, and their trip through a stream.

inline void SetNonDefaultCommonAttributes(VYRPrtGraphicPrimitiveElt& io_elt) {
  io_elt.SetVisibility(0);
  io_elt.SetID("element-id");
  io_elt.SetDescription("a description");
  io_elt.SetTitle("a title");
  io_elt.SetSpaceHandling("preserve");
  VYRPrtTransformAttributes transform;
  transform.AddTranslation(VYRMathVector2D(3.0, -4.0));
  transform.AddRotation(0.5f);
  io_elt.SetTransformAttributes(transform);
  VYRPrtAdobeAttributes adobe;
  adobe.SetOpacityShare(0.25);
  adobe.SetBlendingMode(eTransferMultiply);
  io_elt.SetAdobeAttributes(adobe);
  io_elt.SetClipPathID("clip");
  io_elt.SetMaskID("mask");
  io_elt.SetFilterID("filter");
  io_elt.SetOpacity(77);
  io_elt.SetStreamVersion(3);
}

inline VYRPrtStrokeAttributes NonDefaultStroke() {
  VYRPrtStrokeAttributes stroke;
  stroke.SetStrokeColorIndex(5);
  stroke.SetStrokeOpacity(100);
  stroke.SetStrokeWidth(2.5);
  const float dashes[] = {1.0f, 2.0f};
  stroke.SetStrokeTypePattern(dashes, 2);
  stroke.SetStrokeStyle(eLineStyleSolid);
  stroke.SetStrokeCap(eLineCapRound);
  stroke.SetStrokeJoin(eLineJoinBevel);
  stroke.SetStrokeMode(static_cast<VYRPrtStrokeMode>(2));
  stroke.SetGradientType(MM2D::GradientLinear);
  stroke.GetGradient()->SetSpread(1);
  return stroke;
}

inline VYRPrtFillAttributes NonDefaultFill() {
  VYRPrtFillAttributes fill;
  fill.SetFillStyle(static_cast<VYRPrtFillStyle>(3));
  fill.SetFillRule(VYRPrtFillRuleEvenOdd);
  fill.SetFillColorIndex(9);
  fill.SetFillOpacity(128);
  fill.SetPattern(nullptr, VYRMathVector2D(1.0, 2.0), VYRMathVector2D(3.0, 4.0));
  fill.SetPatternRefPoint(VYRMathPoint2D(5.0, 6.0));
  fill.SetGradientType(MM2D::GradientRadial);
  fill.GetGradient()->AddStop(new VYRPrintGradientStop(0.5f, 1.0f, 0.0f, 0.0f, 1.0f));
  return fill;
}

inline void SetNonDefaultShapeAttributes(VYRPrtBaseShapeElt& io_shape) {
  SetNonDefaultCommonAttributes(io_shape);
  io_shape.SetStrokeAttributes(NonDefaultStroke());
  io_shape.SetFillAttributes(NonDefaultFill());
  io_shape.SetDrawStyle(3);
}

// The bytes an object with a Stream(VYRI2DGStream*) operation writes.
template <class T>
std::vector<uint8_t> BytesOf(T& io_object) {
  VYR2DGStringStream stream;
  io_object.Stream(&stream);
  return StreamBytes(stream);
}

// Streams the element, reads it back through the helper's tag dispatch and
// checks that the whole record was consumed; null when nothing of class K came back.
template <class K>
K* RoundTrip(VYRPrtGraphicPrimitiveElt& io_elt) {
  VYR2DGStringStream reader = ReadingStream(BytesOf(io_elt));
  VYRPrtGraphicPrimitiveElt* pElt = VYRPrtStreamUnstreamHelper::CreateVYRPrtGraphicPrimitiveEltFromStream(&reader);
  EXPECT_EQ(reader.GetReadableBytesLeft(), 0);
  EXPECT_FALSE(reader.HasFailed());
  if (!pElt || pElt->IsA() != K::ClassName()) {
    ADD_FAILURE() << "no " << K::ClassName() << " read back";
    return nullptr;
  }
  return static_cast<K*>(pElt);
}

// Common attributes compared field by field (references aside).
inline void ExpectSameCommonAttributes(const VYRPrtGraphicPrimitiveElt& i_a, const VYRPrtGraphicPrimitiveElt& i_b) {
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

// Stroke and fill compared by their byte forms, which cover every field and
// the gradients' content (operator== compares gradients by identity).
inline void ExpectSameShapeAttributes(const VYRPrtBaseShapeElt& i_a, const VYRPrtBaseShapeElt& i_b) {
  ExpectSameCommonAttributes(i_a, i_b);
  VYRPrtStrokeAttributes strokeA = i_a.GetStrokeAttributes(), strokeB = i_b.GetStrokeAttributes();
  EXPECT_EQ(BytesOf(strokeA), BytesOf(strokeB));
  VYRPrtFillAttributes fillA = i_a.GetFillAttributes(), fillB = i_b.GetFillAttributes();
  EXPECT_EQ(BytesOf(fillA), BytesOf(fillB));
  EXPECT_EQ(i_a.GetDrawStyle(), i_b.GetDrawStyle());
}

// Whether the shape's base part is back to its defaults.
inline void ExpectDefaultShapeAttributes(const VYRPrtBaseShapeElt& i_shape) {
  EXPECT_EQ(i_shape.GetID(), "");
  EXPECT_EQ(i_shape.GetVisibility(), 1);
  EXPECT_EQ(i_shape.GetOpacity(), 255);
  EXPECT_EQ(i_shape.GetDrawStyle(), 8);
  EXPECT_EQ(i_shape.GetStrokeAttributes().GetStrokeWidth(), 1.0);
  EXPECT_EQ(i_shape.GetStrokeAttributes().GetGradient(), nullptr);
  EXPECT_EQ(i_shape.GetFillAttributes().GetGradient(), nullptr);
  EXPECT_EQ(i_shape.GetFillAttributes().GetFillOpacity(), 255);
}

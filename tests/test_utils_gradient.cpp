#include <gtest/gtest.h>

#include <memory>

#include "AssertionCapture.h"
#include "VYRPrintGradientLinear.h"
#include "VYRPrintGradientRadial.h"
#include "VYRPrintGradientStop.h"

TEST(GradientRecords, Defaults) {
  VYRPrintGradientStop stop;
  EXPECT_EQ(stop, VYRPrintGradientStop(0, 0, 0, 0, 1));
  EXPECT_NE(stop, VYRPrintGradientStop(0, 0, 0, 0, 0.5f));

  VYRPrintGradientRadial radial;
  EXPECT_EQ(radial.GetSpread(), 0);
  EXPECT_EQ(radial.GetStopCount(), 0);
  EXPECT_TRUE(radial.GetTransform().IsIdentity());
  float x = 1, y = 1;
  radial.GetCentre(x, y);
  EXPECT_EQ(x + y, 0.0f);
  radial.GetFocus(x, y);
  EXPECT_EQ(x + y + radial.GetRadius(), 0.0f);
  VYRPrintGradientLinear linear;
  x = y = 1;
  linear.GetEndPoint(x, y);
  EXPECT_EQ(x + y, 0.0f);

  EXPECT_STREQ(linear.IsA(), "VYRPrintGradientLinear");
  EXPECT_EQ(linear.IsAKindOf("VYRPrintGradient"), 1);
  EXPECT_EQ(radial.IsAKindOf("VYRPrintGradientLinear"), 0);
}

TEST(GradientRecords, StopListOwnsItsStopsAndKeepsEachOnce) {
  AssertionCapture capture;
  VYRPrintGradient gradient;
  auto* pFirst = new VYRPrintGradientStop(0.0f, 1, 0, 0);
  auto* pSecond = new VYRPrintGradientStop(1.0f, 0, 0, 1);
  EXPECT_EQ(gradient.AddStop(pFirst), 1);
  EXPECT_EQ(gradient.AddStop(pSecond), 1);
  EXPECT_EQ(gradient.AddStop(pFirst), 0);  // the very same object is not added twice
  EXPECT_EQ(gradient.AddStop(nullptr), -1);
  EXPECT_TRUE(capture.Has("ipStop"));
  EXPECT_EQ(gradient.GetStopCount(), 2);
  EXPECT_EQ(gradient.GetStop(1), pSecond);
  EXPECT_EQ(gradient.GetStop(2), nullptr);
  EXPECT_TRUE(capture.Has("(i_index>=0 && i_index<_length)"));
  gradient.EmptyStopList();
  EXPECT_EQ(gradient.GetStopCount(), 0);
  gradient.AddStop(new VYRPrintGradientStop());  // freed with the gradient
}

TEST(GradientRecords, CopiesDuplicateTheStops) {
  VYRPrintGradientLinear linear;
  linear.SetSpread(VYRPrintGradientSpreadReflect);
  linear.SetStartPoint(1, 2);
  linear.SetEndPoint(3, 4);
  VYRMath3x3Matrix transform;
  transform.Set(0, 2, 5.0);
  linear.SetTransform(transform);
  linear.AddStop(new VYRPrintGradientStop(0.25f, 0.1f, 0.2f, 0.3f, 0.4f));

  VYRPrintGradientLinear assigned;
  assigned.AddStop(new VYRPrintGradientStop());  // replaced, and freed
  assigned = linear;
  linear.GetStop(0)->SetRed(0.9f);
  ASSERT_EQ(assigned.GetStopCount(), 1);
  EXPECT_EQ(*assigned.GetStop(0), VYRPrintGradientStop(0.25f, 0.1f, 0.2f, 0.3f, 0.4f));
  EXPECT_NE(assigned.GetStop(0), linear.GetStop(0));
  EXPECT_EQ(assigned.GetSpread(), 1);
  EXPECT_EQ(assigned.GetTransform(), transform);
  float x = 0, y = 0;
  assigned.GetEndPoint(x, y);
  EXPECT_EQ(x, 3.0f);
  EXPECT_EQ(y, 4.0f);

  AssertionCapture capture;
  assigned = assigned;
  EXPECT_TRUE(capture.Has("this != &iGradient"));
  EXPECT_EQ(assigned.GetStopCount(), 1);
}

TEST(GradientRecords, CloneKeepsTheClass) {
  VYRPrintGradientRadial radial;
  radial.SetCentre(1, 2);
  radial.SetFocus(3, 4);
  radial.SetRadius(5);
  radial.AddStop(new VYRPrintGradientStop(0.5f, 1, 1, 1));
  const VYRPrintGradient& asBase = radial;
  std::unique_ptr<VYRPrintGradient> pClone(asBase.Clone());
  ASSERT_NE(pClone, nullptr);
  EXPECT_STREQ(pClone->IsA(), "VYRPrintGradientRadial");
  auto* pRadial = static_cast<VYRPrintGradientRadial*>(pClone.get());
  float fx = 0, fy = 0;
  pRadial->GetFocus(fx, fy);
  EXPECT_EQ(fx, 3.0f);
  EXPECT_EQ(fy, 4.0f);
  EXPECT_EQ(pRadial->GetRadius(), 5.0f);
  ASSERT_EQ(pRadial->GetStopCount(), 1);
  EXPECT_NE(pRadial->GetStop(0), radial.GetStop(0));
  EXPECT_EQ(pClone->GetRefCount(), 1u);

  std::unique_ptr<VYRPrintGradient> pBaseClone(VYRPrintGradient().Clone());
  EXPECT_STREQ(pBaseClone->IsA(), "VYRPrintGradient");
}

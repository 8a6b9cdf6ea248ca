#include <gtest/gtest.h>

#include <cstring>

#include "AssertionCapture.h"
#include "VYRAssert.h"
#include "VYRBaseUnknown.h"

namespace object_test {

inline int g_destroyed = 0;

class TestShape : public VYRBaseUnknown {
  VYR_DECLARE_CLASS(TestShape)
 public:
  ~TestShape() override { ++g_destroyed; }
};
VYR_IMPLEMENT_CLASS(TestShape, VYRBaseUnknown, "Tests")

class TestCircle : public TestShape {
  VYR_DECLARE_CLASS(TestCircle)
};
VYR_IMPLEMENT_CLASS(TestCircle, TestShape, "Tests")

class TestAbstract : public VYRBaseUnknown {
  VYR_DECLARE_CLASS(TestAbstract)
};
VYR_IMPLEMENT_ABSTRACT_CLASS(TestAbstract, VYRBaseUnknown, "Tests")

}  // namespace object_test
using namespace object_test;

TEST(BaseUnknown, ReferenceCountDeletesAtZero) {
  g_destroyed = 0;
  auto* shape = new TestShape();
  EXPECT_EQ(shape->GetRefCount(), 1u);
  EXPECT_EQ(shape->AddRef(), 2u);
  EXPECT_EQ(shape->Release(), 1u);
  EXPECT_EQ(g_destroyed, 0);
  EXPECT_EQ(shape->Release(), 0u);
  EXPECT_EQ(g_destroyed, 1);
}

TEST(BaseUnknown, PooledObjectSurvivesRelease) {
  g_destroyed = 0;
  auto* pool = new TestShape[3];
  for (int i = 0; i < 3; ++i) pool[i].MarkAsPooled();
  EXPECT_EQ(pool[1].Release(), 0u);
  EXPECT_EQ(pool[1].Release(), 0u);  // a further release neither wraps nor frees
  EXPECT_EQ(g_destroyed, 0);
  pool[1].AddRef();
  EXPECT_EQ(pool[1].GetRefCount(), 1u);
  delete[] pool;
  EXPECT_EQ(g_destroyed, 3);
}

TEST(BaseUnknown, CopyStartsWithItsOwnCount) {
  TestShape original;
  original.AddRef();
  original.MarkAsPooled();
  TestShape copy(original);
  EXPECT_EQ(copy.GetRefCount(), 1u);
  EXPECT_FALSE(copy.IsPooled());
  copy = original;
  EXPECT_EQ(copy.GetRefCount(), 1u);
}

TEST(BaseUnknown, ClassInformation) {
  TestCircle circle;
  const VYRBaseUnknown& asBase = circle;
  EXPECT_STREQ(asBase.IsA(), "TestCircle");
  EXPECT_EQ(asBase.IsA(), TestCircle::ClassName());  // one stable pointer per class
  EXPECT_EQ(TestCircle().IsA(), circle.IsA());
  EXPECT_EQ(asBase.GetMetaObject(), TestCircle::MetaObject());
  EXPECT_STREQ(TestCircle::MetaObject()->moduleName, "Tests");

  EXPECT_TRUE(asBase.IsAKindOf("TestCircle"));
  EXPECT_TRUE(asBase.IsAKindOf("TestShape"));
  EXPECT_TRUE(asBase.IsAKindOf("VYRBaseUnknown"));
  char copied[] = "TestShape";  // compared as text, not by pointer
  EXPECT_TRUE(asBase.IsAKindOf(copied));
  EXPECT_FALSE(asBase.IsAKindOf("TestAbstract"));
  EXPECT_FALSE(asBase.IsAKindOf(nullptr));
  EXPECT_FALSE(TestShape().IsAKindOf("TestCircle"));

  EXPECT_EQ(TestCircle::ClassId(), VYRMakeClassId("TestCircle"));
  EXPECT_NE(TestCircle::ClassId(), TestShape::ClassId());
}

TEST(BaseUnknown, CreateItself) {
  VYRBaseUnknown* made = TestCircle::MetaObject()->createItself();
  ASSERT_NE(made, nullptr);
  EXPECT_STREQ(made->IsA(), "TestCircle");
  made->Release();
  EXPECT_EQ(TestAbstract::CreateItself(), nullptr);
  EXPECT_EQ(TestAbstract::MetaObject()->createItself, nullptr);
}

TEST(AssertionReporters, CaptureAndRestore) {
  const char* missing = nullptr;
  {
    AssertionCapture outer;
    {
      AssertionCapture inner;
      EXPECT_FALSE(VYR_CHECK_POINTER(missing));
      EXPECT_FALSE(VYR_CHECK_CONDITION_TEXT(1 > 2, "i_pointCount > 0"));
      EXPECT_TRUE(VYR_CHECK_CONDITION(2 > 1));
      ASSERT_EQ(inner.Reports().size(), 2u);
      EXPECT_EQ(inner.NullPointers(), std::vector<std::string>{"missing"});
      EXPECT_EQ(inner.FailedConditions(), std::vector<std::string>{"i_pointCount > 0"});
      EXPECT_NE(inner.Reports()[0].file.find("test_platform_object.cpp"), std::string::npos);
      EXPECT_GT(inner.Reports()[0].line, 0);
    }
    VYRReportFailedCondition("after", "f", 1);
    EXPECT_EQ(outer.Expressions(), std::vector<std::string>{"after"});
  }
  // The default handler writes one line on standard error and never aborts.
  testing::internal::CaptureStderr();
  VYRReportNullPointer("opGPElt", "file.cpp", 7);
  std::string line = testing::internal::GetCapturedStderr();
  EXPECT_NE(line.find("opGPElt"), std::string::npos);
  EXPECT_NE(line.find("file.cpp:7"), std::string::npos);
}

#include <gtest/gtest.h>

#include "AssertionCapture.h"
#include "ElementRoundTrip.h"
#include "TestPrinters.h"
#include "VYRPrtPathElt.h"
#include "VYRPrtPathSegArcTo.h"
#include "VYRPrtPathSegClosePath.h"
#include "VYRPrtPathSegCurveToCubic.h"
#include "VYRPrtPathSegCurveToQuadratic.h"
#include "VYRPrtPathSegLineTo.h"
#include "VYRPrtPathSegMoveTo.h"

namespace {

class ModelPath : public ::testing::Test {
 protected:
  void TearDown() override { VYRPrtEltFactory::Get().Release(); }
  VYRPrtPathElt* MakePath() { return VYRPrtEltFactory::Get().CreateElement<VYRPrtPathElt>(); }
};

VYRPrtPathSegArcTo* MakeArc() {
  auto* arc = new VYRPrtPathSegArcTo(MM2D::PathCoordRelative);
  arc->SetCenter(VYRMathPoint2D(1, 2));
  arc->SetRX(3);
  arc->SetRY(4);
  arc->SetRotation(5);
  arc->SetStartAngle(6);
  arc->SetSweepAngle(7);
  arc->SetEndPointParameters(MM2D::ArcEndPointParameters(VYRMathPoint2D(8, 9), VYRMathPoint2D(10, 11), true, false));
  return arc;
}

// One segment of every class, relative and absolute mixed.
void AddOneOfEachSegment(VYRPrtPathElt& io_path) {
  io_path.AddPathSegment(new VYRPrtPathSegMoveTo(MM2D::PathCoordAbsolute, VYRMathPoint2D(1, 1)));
  io_path.AddPathSegment(new VYRPrtPathSegLineTo(MM2D::PathCoordRelative, VYRMathPoint2D(2, 3)));
  io_path.AddPathSegment(new VYRPrtPathSegCurveToCubic(MM2D::PathCoordRelative, VYRMathPoint2D(1, 2),
                                                       VYRMathPoint2D(3, 4), VYRMathPoint2D(5, 6)));
  io_path.AddPathSegment(
      new VYRPrtPathSegCurveToQuadratic(MM2D::PathCoordAbsolute, VYRMathPoint2D(7, 8), VYRMathPoint2D(9, 10)));
  io_path.AddPathSegment(MakeArc());
  io_path.AddPathSegment(new VYRPrtPathSegClosePath());
}

// Segments compared by class, mode and record bytes (which hold every field).
void ExpectSameSegments(const VYRPrtPathElt& i_a, const VYRPrtPathElt& i_b) {
  ASSERT_EQ(i_a.GetPathSegments().GetLength(), i_b.GetPathSegments().GetLength());
  for (int i = 0; i < i_a.GetPathSegments().GetLength(); ++i) {
    VYRPrtPathSeg* pA = i_a.GetPathSegments()[i];
    VYRPrtPathSeg* pB = i_b.GetPathSegments()[i];
    EXPECT_NE(pA, pB) << i;
    EXPECT_EQ(typeid(*pA), typeid(*pB)) << i;
    EXPECT_EQ(pA->GetPathSegType(), pB->GetPathSegType()) << i;
    EXPECT_EQ(BytesOf(*pA), BytesOf(*pB)) << i;
  }
}

}  // namespace

TEST(PathTypes, CommandLettersMapBothWays) {
  EXPECT_EQ(MM2D::GetPathSegType('z'), MM2D::PathSegClosePath);
  EXPECT_EQ(MM2D::GetPathSegType('Z'), MM2D::PathSegClosePath);
  EXPECT_EQ(MM2D::GetPathSegType('X'), MM2D::PathSegUnknown);
  EXPECT_EQ(MM2D::GetPathCoordMode(MM2D::PathSegUnknown), MM2D::PathCoordAbsolute);
  EXPECT_EQ(MM2D::GetPathCoordMode(MM2D::PathSegClosePath), MM2D::PathCoordAbsolute);
  const char letters[] = "MmLlCcQqAaHhVvSsTt";
  for (int type = 1; type <= 18; ++type) {
    char letter = letters[type - 1];
    EXPECT_EQ(MM2D::GetPathSegType(letter), type) << letter;
    EXPECT_EQ(MM2D::GetPathSegLetter(static_cast<MM2D::PathSegType>(type)), letter);
    EXPECT_EQ(MM2D::GetPathCoordMode(static_cast<MM2D::PathSegType>(type)),
              type % 2 == 0 ? MM2D::PathCoordRelative : MM2D::PathCoordAbsolute);
  }
  EXPECT_EQ(MM2D::GetPathSegLetter(MM2D::PathSegClosePath), 'Z');
  EXPECT_EQ(MM2D::GetPathSegLetter(MM2D::PathSegUnknown), 0);
  EXPECT_EQ(MM2D::GetPathSegLetter(static_cast<MM2D::PathSegType>(-1)), 0);
}

TEST(PathSegments, TypesFollowClassAndModeAndRecordsHoldTagModeFields) {
  VYRPrtPathSegCurveToCubic cubic(MM2D::PathCoordRelative, VYRMathPoint2D(1, 0), VYRMathPoint2D(0, 1),
                                  VYRMathPoint2D(0, 0));
  EXPECT_EQ(cubic.GetPathSegType(), MM2D::PathSegCurveToCubicRel);
  EXPECT_EQ(BytesOf(cubic), Hex("05 00 00 00  01 00 00 00"
                                "  00 00 00 00 00 00 F0 3F  00 00 00 00 00 00 00 00"
                                "  00 00 00 00 00 00 00 00  00 00 00 00 00 00 F0 3F"
                                "  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00"));
  EXPECT_EQ(VYRPrtPathSegMoveTo().GetPathSegType(), MM2D::PathSegMoveToAbs);
  EXPECT_EQ(VYRPrtPathSegMoveTo(MM2D::PathCoordRelative).GetPathSegType(), MM2D::PathSegMoveToRel);
  EXPECT_EQ(VYRPrtPathSegLineTo(MM2D::PathCoordRelative).GetPathSegType(), MM2D::PathSegLineToRel);
  EXPECT_EQ(VYRPrtPathSegCurveToQuadratic().GetPathSegType(), MM2D::PathSegCurveToQuadraticAbs);
  EXPECT_EQ(VYRPrtPathSegArcTo(MM2D::PathCoordRelative).GetPathSegType(), MM2D::PathSegArcRel);
  EXPECT_EQ(VYRPrtPathSegClosePath(MM2D::PathCoordRelative).GetPathSegType(), MM2D::PathSegClosePath);
  EXPECT_EQ(VYRPrtPathSegClosePath().GetStreamType(), 2);
  EXPECT_EQ(VYRPrtPathSegWithSinglePoint().GetStreamType(), 1);
  EXPECT_EQ(VYRPrtPathSeg().GetStreamType(), 0);

  // The arc: centre, five doubles, then the end-point form with its flags as ints.
  VYRPrtPathSegArcTo* arc = MakeArc();
  std::vector<uint8_t> bytes = BytesOf(*arc);
  ASSERT_EQ(bytes.size(), 4u + 4 + 16 + 5 * 8 + 32 + 8);
  EXPECT_EQ(std::vector<uint8_t>(bytes.end() - 8, bytes.end()), Hex("01 00 00 00 00 00 00 00"));
  VYRPrtPathSeg* copy = arc->Duplicate();
  EXPECT_EQ(BytesOf(*copy), bytes);
  delete copy;
  delete arc;
}

TEST_F(ModelPath, PathRoundTripsEverySegmentAndItsShapeAttributes) {
  VYRPrtPathElt* path = MakePath();
  SetNonDefaultShapeAttributes(*path);
  AddOneOfEachSegment(*path);
  VYRPrtPathElt* back = RoundTrip<VYRPrtPathElt>(*path);
  ASSERT_NE(back, nullptr);
  ExpectSameShapeAttributes(*path, *back);
  ExpectSameSegments(*path, *back);
  auto* arc = dynamic_cast<VYRPrtPathSegArcTo*>(back->GetPathSegments()[4]);
  ASSERT_NE(arc, nullptr);
  EXPECT_EQ(arc->GetSweepAngle(), 7);
  EXPECT_TRUE(arc->GetEndPointParameters().GetLargeArcFlag());
  EXPECT_FALSE(arc->GetEndPointParameters().GetSweepFlag());
  EXPECT_TRUE(arc->GetEndPointParameters().GetSecondPoint() == VYRMathPoint2D(10, 11));
}

TEST_F(ModelPath, EmptyPathWritesTheCountZeroLast) {
  VYRPrtPathElt empty;
  std::vector<uint8_t> bytes = BytesOf(empty);
  EXPECT_EQ(std::vector<uint8_t>(bytes.end() - 8, bytes.end()), Hex("08 00 00 00  00 00 00 00"));
  VYRPrtPathElt* back = RoundTrip<VYRPrtPathElt>(empty);
  ASSERT_NE(back, nullptr);
  EXPECT_EQ(back->GetPathSegments().GetLength(), 0);
  EXPECT_EQ(back->GetLastPathSegment(), nullptr);
}

TEST_F(ModelPath, UnknownSegmentTagAddsNothingAndReadingGoesOn) {
  VYRPrtPathElt path;
  path.AddPathSegment(new VYRPrtPathSegLineTo(MM2D::PathCoordAbsolute, VYRMathPoint2D(1, 1)));
  path.AddPathSegment(new VYRPrtPathSegClosePath());
  std::vector<uint8_t> bytes = BytesOf(path);
  // Turn the line-to's tag 4 into the single-point base's tag 1: its record still follows.
  size_t firstSegment = bytes.size() - (8 + 16) - 8;
  ASSERT_EQ(bytes[firstSegment], 4);
  bytes[firstSegment] = 1;
  AssertionCapture capture;
  VYR2DGStringStream reader = ReadingStream(bytes);
  auto* back = static_cast<VYRPrtPathElt*>(VYRPrtStreamUnstreamHelper::CreateVYRPrtGraphicPrimitiveEltFromStream(&reader));
  ASSERT_NE(back, nullptr);
  // The second entry's tag is read from the orphaned record (its mode, 0): no segment either.
  EXPECT_EQ(capture.NullPointers(), (std::vector<std::string>{"i_pPathSeg", "i_pPathSeg"}));
  EXPECT_EQ(back->GetPathSegments().GetLength(), 0);
}

TEST_F(ModelPath, PathOwnsItsSegmentsThroughCopiesResetAndReplacement) {
  VYRPrtPathElt* path = MakePath();
  AddOneOfEachSegment(*path);
  VYRPrtGraphicPrimitiveElt* dup = nullptr;
  path->Duplicate(dup);
  ASSERT_NE(dup, nullptr);
  auto* copy = static_cast<VYRPrtPathElt*>(dup);
  ExpectSameSegments(*path, *copy);

  VYRPrtPathElt assigned;
  assigned.AddPathSegment(new VYRPrtPathSegClosePath());
  assigned = *path;
  ExpectSameSegments(*path, assigned);
  VYRPrtPathElt constructed(*path);
  ExpectSameSegments(*path, constructed);

  // Replacement copies: the caller's segments stay the caller's; giving a path its own list is safe.
  VYRSYPDynArray<VYRPrtPathSeg*> mine;
  VYRPrtPathSegMoveTo moveTo(MM2D::PathCoordAbsolute, VYRMathPoint2D(4, 4));
  mine.Append(&moveTo);
  copy->SetPathSegments(mine);
  ASSERT_EQ(copy->GetPathSegments().GetLength(), 1);
  EXPECT_NE(copy->GetPathSegments()[0], &moveTo);
  copy->SetPathSegments(copy->GetPathSegments());
  EXPECT_EQ(copy->GetPathSegments().GetLength(), 1);

  // Removal hands the segment back; the rest stays owned.
  VYRPrtPathSeg* last = path->GetLastPathSegment();
  EXPECT_EQ(path->RemovePathSegment(last), 1);
  EXPECT_EQ(path->RemovePathSegment(last), -1);
  delete last;
  EXPECT_EQ(path->GetPathSegments().GetLength(), 5);

  // Added twice, freed once (the sanitizer build would catch a double free).
  auto* twice = new VYRPrtPathSegLineTo();
  assigned.AddPathSegment(twice);
  assigned.AddPathSegment(twice);
  assigned.ClearPathSegments();
  EXPECT_EQ(assigned.GetPathSegments().GetLength(), 0);

  SetNonDefaultShapeAttributes(*path);
  path->Reset();
  ExpectDefaultShapeAttributes(*path);
  EXPECT_EQ(path->GetPathSegments().GetLength(), 0);

  AssertionCapture capture;
  path->AddPathSegment(nullptr);
  EXPECT_EQ(capture.NullPointers(), std::vector<std::string>{"i_pPathSeg"});
  EXPECT_EQ(path->GetPathSegments().GetLength(), 0);
  VYRPrtPathElt& alias = *path;
  *path = alias;
  EXPECT_TRUE(capture.Has("this != &iPathElt"));
}

TEST_F(ModelPath, HugeSegmentCountIsRefusedWithoutReading) {
  VYRPrtPathElt path;
  std::vector<uint8_t> bytes = BytesOf(path);
  for (int i = 0; i < 4; ++i) bytes[bytes.size() - 4 + i] = i == 3 ? 0x7F : 0xFF;
  AssertionCapture capture;
  VYR2DGStringStream reader = ReadingStream(bytes);
  auto* back = static_cast<VYRPrtPathElt*>(VYRPrtStreamUnstreamHelper::CreateVYRPrtGraphicPrimitiveEltFromStream(&reader));
  ASSERT_NE(back, nullptr);
  EXPECT_TRUE(capture.Has("segment count within the stream"));
  EXPECT_EQ(back->GetPathSegments().GetLength(), 0);
}

#include "MM2DPathTypes.h"

#include "VYRI2DGStream.h"
#include "VYRPrtStreamUnstreamHelper.h"

namespace MM2D {

namespace {
// The letters of the types 1 to 18, in order.
constexpr char kCommandLetters[] = "MmLlCcQqAaHhVvSsTt";
constexpr int kCommandLetterCount = sizeof(kCommandLetters) - 1;
}  // namespace

PathSegType GetPathSegType(char i_letter) {
  if (i_letter == 'Z' || i_letter == 'z') return PathSegClosePath;
  for (int i = 0; i < kCommandLetterCount; ++i) {
    if (kCommandLetters[i] == i_letter) return static_cast<PathSegType>(i + 1);
  }
  return PathSegUnknown;
}

PathCoordMode GetPathCoordMode(PathSegType i_type) {
  bool relative = i_type >= PathSegMoveToRel && i_type <= PathSegCurveToQuadraticSmoothRel && i_type % 2 == 0;
  return relative ? PathCoordRelative : PathCoordAbsolute;
}

char GetPathSegLetter(PathSegType i_type) {
  if (i_type == PathSegClosePath) return 'Z';
  if (i_type < PathSegMoveToAbs || i_type > kCommandLetterCount) return 0;
  return kCommandLetters[i_type - 1];
}

ArcEndPointParameters::ArcEndPointParameters(const VYRMathPoint2D& i_firstPoint, const VYRMathPoint2D& i_secondPoint,
                                             bool i_largeArcFlag, bool i_sweepFlag)
    : _firstPoint(i_firstPoint),
      _secondPoint(i_secondPoint),
      _largeArcFlag(i_largeArcFlag ? 1 : 0),
      _sweepFlag(i_sweepFlag ? 1 : 0) {}

bool ArcEndPointParameters::operator==(const ArcEndPointParameters& i_other) const {
  return _firstPoint == i_other._firstPoint && _secondPoint == i_other._secondPoint &&
         _largeArcFlag == i_other._largeArcFlag && _sweepFlag == i_other._sweepFlag;
}

void ArcEndPointParameters::Stream(VYRI2DGStream* ipStream) {
  if (!ipStream) return;
  VYRPrtStreamUnstreamHelper::SerializeVYRMathPoint2D(_firstPoint, ipStream);
  VYRPrtStreamUnstreamHelper::SerializeVYRMathPoint2D(_secondPoint, ipStream);
  ipStream->StreamValue(static_cast<int>(_largeArcFlag));
  ipStream->StreamValue(static_cast<int>(_sweepFlag));
}

// Each flag is read as a 32-bit int into its one-byte field.
void ArcEndPointParameters::Unstream(VYRI2DGStream* ipStream) {
  if (!ipStream) return;
  VYRPrtStreamUnstreamHelper::CreateVYRMathPoint2DFromStream(_firstPoint, ipStream);
  VYRPrtStreamUnstreamHelper::CreateVYRMathPoint2DFromStream(_secondPoint, ipStream);
  int largeArc = 0, sweep = 0;
  ipStream->UnstreamValue(largeArc);
  ipStream->UnstreamValue(sweep);
  _largeArcFlag = static_cast<unsigned char>(largeArc);
  _sweepFlag = static_cast<unsigned char>(sweep);
}

}  // namespace MM2D

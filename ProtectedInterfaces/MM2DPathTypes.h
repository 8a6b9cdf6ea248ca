#pragma once

#include "MM2DAttributeTypes.h"
#include "VYRExport.h"
#include "VYRMathPoint2D.h"

class VYRI2DGStream;

// The SVG path commands and the arc's end-point form, shared by the path
// segments, the value parsers and the host that reads path data.
namespace MM2D {

// A path command by its SVG letter: odd values are absolute (upper case),
// the even ones from 2 to 18 relative (lower case).
enum PathSegType : int {
  PathSegClosePath = 0,
  PathSegMoveToAbs = 1,
  PathSegMoveToRel = 2,
  PathSegLineToAbs = 3,
  PathSegLineToRel = 4,
  PathSegCurveToCubicAbs = 5,
  PathSegCurveToCubicRel = 6,
  PathSegCurveToQuadraticAbs = 7,
  PathSegCurveToQuadraticRel = 8,
  PathSegArcAbs = 9,
  PathSegArcRel = 10,
  PathSegLineToHorizontalAbs = 11,
  PathSegLineToHorizontalRel = 12,
  PathSegLineToVerticalAbs = 13,
  PathSegLineToVerticalRel = 14,
  PathSegCurveToCubicSmoothAbs = 15,
  PathSegCurveToCubicSmoothRel = 16,
  PathSegCurveToQuadraticSmoothAbs = 17,
  PathSegCurveToQuadraticSmoothRel = 18,
  PathSegUnknown = 19,
};

// 'Z' and 'z' give the close path; any letter that is no path command gives PathSegUnknown.
VYR_EXPORT PathSegType GetPathSegType(char i_letter);
// Relative for the even values 2 to 18, absolute for everything else.
VYR_EXPORT PathCoordMode GetPathCoordMode(PathSegType i_type);
// The SVG letter of a command ('Z' for the close path); 0 for an unknown value.
VYR_EXPORT char GetPathSegLetter(PathSegType i_type);

// The end-point form of an SVG arc: its two end points and the large-arc and
// sweep flags. The flags travel as 32-bit ints (0 or 1).
class VYR_EXPORT ArcEndPointParameters {
 public:
  ArcEndPointParameters() = default;
  ArcEndPointParameters(const VYRMathPoint2D& i_firstPoint, const VYRMathPoint2D& i_secondPoint,
                        bool i_largeArcFlag, bool i_sweepFlag);
  ArcEndPointParameters(const ArcEndPointParameters&) = default;
  ArcEndPointParameters& operator=(const ArcEndPointParameters&) = default;
  virtual ~ArcEndPointParameters() = default;

  const VYRMathPoint2D& GetFirstPoint() const { return _firstPoint; }
  void SetFirstPoint(const VYRMathPoint2D& i_point) { _firstPoint = i_point; }
  const VYRMathPoint2D& GetSecondPoint() const { return _secondPoint; }
  void SetSecondPoint(const VYRMathPoint2D& i_point) { _secondPoint = i_point; }
  bool GetLargeArcFlag() const { return _largeArcFlag != 0; }
  void SetLargeArcFlag(bool i_flag) { _largeArcFlag = i_flag ? 1 : 0; }
  bool GetSweepFlag() const { return _sweepFlag != 0; }
  void SetSweepFlag(bool i_flag) { _sweepFlag = i_flag ? 1 : 0; }

  bool operator==(const ArcEndPointParameters& i_other) const;

  virtual void Stream(VYRI2DGStream* ipStream);
  virtual void Unstream(VYRI2DGStream* ipStream);

 private:
  VYRMathPoint2D _firstPoint;
  VYRMathPoint2D _secondPoint;
  unsigned char _largeArcFlag = 0;
  unsigned char _sweepFlag = 0;
};

}  // namespace MM2D

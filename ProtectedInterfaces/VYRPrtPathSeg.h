#pragma once

#include "MM2DPathTypes.h"
#include "VYRExport.h"

class VYRI2DGStream;

// Tag written first in every segment record; part of the persistent format.
enum VYRPrtPathSegStreamType : int {
  kPathSegStreamTypeBase = 0,
  kPathSegStreamTypeSinglePoint = 1,
  kPathSegStreamTypeClosePath = 2,
  kPathSegStreamTypeMoveTo = 3,
  kPathSegStreamTypeLineTo = 4,
  kPathSegStreamTypeCurveToCubic = 5,
  kPathSegStreamTypeCurveToQuadratic = 6,
  kPathSegStreamTypeArcTo = 7,
};

// One command of a path, with its coordinate mode (absolute or relative).
// The command type follows from the class and the mode: absolute gives the
// odd PathSegType value, relative the even one after it. Segments are plain
// heap objects; a path owns those it holds.
class VYR_EXPORT VYRPrtPathSeg {
 public:
  explicit VYRPrtPathSeg(MM2D::PathCoordMode i_mode = MM2D::PathCoordAbsolute) : _coordMode(i_mode) {}
  VYRPrtPathSeg(const VYRPrtPathSeg&) = default;
  VYRPrtPathSeg& operator=(const VYRPrtPathSeg&) = default;
  virtual ~VYRPrtPathSeg() = default;

  // A new segment of the same class and content (the caller's), or null when memory runs out.
  virtual VYRPrtPathSeg* Duplicate() const;
  virtual MM2D::PathSegType GetPathSegType() const;
  virtual VYRPrtPathSegStreamType GetStreamType() const;
  MM2D::PathCoordMode GetPathCoordMode() const { return _coordMode; }
  void SetPathCoordMode(MM2D::PathCoordMode i_mode) { _coordMode = i_mode; }

  // The tag, the mode, then the class's own fields.
  virtual void Stream(VYRI2DGStream* ipStream);
  // Reads what Stream wrote after the tag (the path reads the tag to choose the class).
  virtual void Unstream(VYRI2DGStream* ipStream);

 protected:
  // The absolute or relative form of a command, by the stored mode.
  MM2D::PathSegType TypeByMode(MM2D::PathSegType i_absoluteType) const;

 private:
  MM2D::PathCoordMode _coordMode;
};

#pragma once

#include "VYRExport.h"
#include "VYRPrtModelForward.h"
#include "VYRUnicodeString.h"

// The markers drawn on the vertices of a line, path or point-based element:
// at the first vertex, at every middle one and at the last. Each is kept as
// the identifier read from a document and, separately, the resolved marker
// element, which is not owned. Only the identifiers have a byte form; the
// host resolves them again after reading, as it does for patterns.
class VYR_EXPORT VYRPrtMarkerReferences {
 public:
  enum Position : int { Start = 0, Mid = 1, End = 2 };

  void SetMarkerID(Position i_position, const VYRUnicodeString& i_id);
  // An empty identifier for a position out of range (reported).
  const VYRUnicodeString& GetMarkerID(Position i_position) const;
  void SetMarker(Position i_position, VYRPrtMarkerElt* ipMarker);
  VYRPrtMarkerElt* GetMarker(Position i_position) const;

  int operator==(const VYRPrtMarkerReferences& iMarkers) const;

  // The three identifiers as strings: start, mid, end.
  void Stream(VYRI2DGStream* ipStream) const;
  void Unstream(VYRI2DGStream* ipStream);

 private:
  static constexpr int kPositionCount = 3;
  static bool IsPosition(Position i_position);

  VYRUnicodeString _markerIDs[kPositionCount];
  VYRPrtMarkerElt* _pMarkers[kPositionCount] = {};
};

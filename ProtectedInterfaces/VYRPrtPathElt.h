#pragma once

#include "VYRExport.h"
#include "VYRPrtBaseShapeElt.h"
#include "VYRPrtMarkerReferences.h"
#include "VYRPrtPathSeg.h"
#include "VYRSYPDynArray.h"

// An SVG path: a basic shape holding an ordered list of segments. The path
// owns the segments it holds: it frees them when it is destroyed, reset or
// cleared, and copies of a path (copy, assignment, Duplicate) hold copies of
// the segments. Its record after the shape block is the segment count, then
// each segment's record. The marker references are held in memory only: the
// record has no room for them.
class VYR_EXPORT VYRPrtPathElt : public VYRPrtBaseShapeElt {
  VYR_DECLARE_CLASS(VYRPrtPathElt)

 public:
  VYRPrtPathElt() = default;
  VYRPrtPathElt(const VYRPrtPathElt& iPathElt);
  VYRPrtPathElt& operator=(const VYRPrtPathElt& iPathElt);
  ~VYRPrtPathElt() override;

  // Appends the segment and takes ownership of it; a null segment is reported
  // ("i_pPathSeg") and nothing is appended.
  void AddPathSegment(VYRPrtPathSeg* const i_pPathSeg);
  // Takes the segment out of the path and gives its ownership back to the
  // caller. Returns 1, or -1 when the path does not hold it.
  int RemovePathSegment(VYRPrtPathSeg* const i_pPathSeg);
  // Frees every segment.
  void ClearPathSegments();
  // Null for a path without segments.
  VYRPrtPathSeg* GetLastPathSegment() const;
  // The segments themselves, still owned by the path.
  const VYRSYPDynArray<VYRPrtPathSeg*>& GetPathSegments() const { return _segments; }
  // Frees the held segments and holds copies of the given ones (which stay the caller's).
  void SetPathSegments(const VYRSYPDynArray<VYRPrtPathSeg*>& i_segments);

  const VYRPrtMarkerReferences& GetMarkerReferences() const { return _markerReferences; }
  void SetMarkerReferences(const VYRPrtMarkerReferences& i_markers) { _markerReferences = i_markers; }

  void Reset() override;
  void Duplicate(VYRPrtGraphicPrimitiveElt*& opGPElt) override;
  StreamType GetStreamType() override;
  void Stream(VYRI2DGStream* ipStream) override;
  // Appends the segments read to those held. A segment tag that names no
  // segment class adds nothing ("i_pPathSeg" is reported) and reading goes on.
  void Unstream(VYRI2DGStream* ipStream) override;

 private:
  VYRSYPDynArray<VYRPrtPathSeg*> _segments;
  VYRPrtMarkerReferences _markerReferences;
};

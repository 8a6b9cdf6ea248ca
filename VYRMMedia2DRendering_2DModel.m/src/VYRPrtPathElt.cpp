#include "VYRPrtPathElt.h"

#include <algorithm>
#include <new>
#include <vector>

#include "VYRI2DGStream.h"
#include "VYRPrtPathSegArcTo.h"
#include "VYRPrtPathSegClosePath.h"
#include "VYRPrtPathSegCurveToCubic.h"
#include "VYRPrtPathSegCurveToQuadratic.h"
#include "VYRPrtPathSegLineTo.h"
#include "VYRPrtPathSegMoveTo.h"

VYR_IMPLEMENT_CLASS(VYRPrtPathElt, VYRPrtBaseShapeElt, "Multimedia2DRendering")

namespace {

// The smallest segment record: its tag and its mode.
constexpr int kMinSegmentBytes = 8;

// Frees each segment once, even one that was added twice.
void DeleteSegments(VYRSYPDynArray<VYRPrtPathSeg*>& io_segments) {
  std::vector<VYRPrtPathSeg*> distinct(io_segments.begin(), io_segments.end());
  std::sort(distinct.begin(), distinct.end());
  distinct.erase(std::unique(distinct.begin(), distinct.end()), distinct.end());
  for (VYRPrtPathSeg* pSegment : distinct) delete pSegment;
  io_segments.Clear();
}

// Copies of the given segments; one that cannot be copied is left out, reported.
VYRSYPDynArray<VYRPrtPathSeg*> CopySegments(const VYRSYPDynArray<VYRPrtPathSeg*>& i_segments) {
  VYRSYPDynArray<VYRPrtPathSeg*> copies;
  copies.Reserve(i_segments.GetLength());
  for (const VYRPrtPathSeg* pSegment : i_segments) {
    if (!pSegment) continue;
    VYRPrtPathSeg* pCopy = pSegment->Duplicate();
    if (VYR_CHECK_POINTER(pCopy) && copies.Append(pCopy) < 0) delete pCopy;
  }
  return copies;
}

// A new segment of the class a segment tag names; null for any other tag.
VYRPrtPathSeg* CreateSegmentOfType(int i_tag) {
  switch (i_tag) {
    case kPathSegStreamTypeClosePath:
      return new (std::nothrow) VYRPrtPathSegClosePath();
    case kPathSegStreamTypeMoveTo:
      return new (std::nothrow) VYRPrtPathSegMoveTo();
    case kPathSegStreamTypeLineTo:
      return new (std::nothrow) VYRPrtPathSegLineTo();
    case kPathSegStreamTypeCurveToCubic:
      return new (std::nothrow) VYRPrtPathSegCurveToCubic();
    case kPathSegStreamTypeCurveToQuadratic:
      return new (std::nothrow) VYRPrtPathSegCurveToQuadratic();
    case kPathSegStreamTypeArcTo:
      return new (std::nothrow) VYRPrtPathSegArcTo();
    default:
      return nullptr;
  }
}

}  // namespace

VYRPrtPathElt::VYRPrtPathElt(const VYRPrtPathElt& iPathElt)
    : VYRPrtBaseShapeElt(iPathElt),
      _segments(CopySegments(iPathElt._segments)),
      _markerReferences(iPathElt._markerReferences) {}

VYRPrtPathElt& VYRPrtPathElt::operator=(const VYRPrtPathElt& iPathElt) {
  if (!VYR_CHECK_CONDITION(this != &iPathElt)) return *this;
  VYRPrtBaseShapeElt::operator=(iPathElt);
  SetPathSegments(iPathElt._segments);
  _markerReferences = iPathElt._markerReferences;
  return *this;
}

VYRPrtPathElt::~VYRPrtPathElt() { DeleteSegments(_segments); }

void VYRPrtPathElt::AddPathSegment(VYRPrtPathSeg* const i_pPathSeg) {
  if (!VYR_CHECK_POINTER(i_pPathSeg)) return;
  // The segment was handed over: if it cannot be held, it must not leak.
  if (_segments.Append(i_pPathSeg) < 0) delete i_pPathSeg;
}

int VYRPrtPathElt::RemovePathSegment(VYRPrtPathSeg* const i_pPathSeg) {
  if (!VYR_CHECK_POINTER(i_pPathSeg)) return -1;
  int removed = -1;
  for (int position = _segments.Find(i_pPathSeg); position >= 0; position = _segments.Find(i_pPathSeg)) {
    _segments.RemoveAt(position);
    removed = 1;
  }
  return removed;
}

void VYRPrtPathElt::ClearPathSegments() { DeleteSegments(_segments); }

VYRPrtPathSeg* VYRPrtPathElt::GetLastPathSegment() const {
  return _segments.IsEmpty() ? nullptr : _segments[_segments.GetLength() - 1];
}

// Copies first, so that a path may be given its own segments.
void VYRPrtPathElt::SetPathSegments(const VYRSYPDynArray<VYRPrtPathSeg*>& i_segments) {
  VYRSYPDynArray<VYRPrtPathSeg*> copies = CopySegments(i_segments);
  DeleteSegments(_segments);
  _segments.Swap(copies);
}

void VYRPrtPathElt::Reset() {
  VYRPrtBaseShapeElt::Reset();
  ClearPathSegments();
  _markerReferences = VYRPrtMarkerReferences();
}

void VYRPrtPathElt::Duplicate(VYRPrtGraphicPrimitiveElt*& opGPElt) { DuplicateShape(*this, opGPElt); }

StreamType VYRPrtPathElt::GetStreamType() { return kStreamTypePathElt; }

void VYRPrtPathElt::Stream(VYRI2DGStream* ipStream) {
  if (!ipStream) return;
  VYRPrtBaseShapeElt::Stream(ipStream);
  ipStream->StreamValue(_segments.GetLength());
  for (VYRPrtPathSeg* pSegment : _segments) pSegment->Stream(ipStream);
}

void VYRPrtPathElt::Unstream(VYRI2DGStream* ipStream) {
  if (!ipStream) return;
  VYRPrtBaseShapeElt::Unstream(ipStream);
  int count = -1;
  ipStream->UnstreamValue(count);
  if (count < 1) return;
  if (!VYR_CHECK_CONDITION_TEXT(ipStream->CountFits(count, kMinSegmentBytes), "segment count within the stream")) {
    return;
  }
  _segments.Reserve(_segments.GetLength() + count);
  for (int i = 0; i < count && !ipStream->HasFailed(); ++i) {
    int tag = 0;
    ipStream->UnstreamValue(tag);
    VYRPrtPathSeg* pSegment = CreateSegmentOfType(tag);
    if (pSegment) pSegment->Unstream(ipStream);
    AddPathSegment(pSegment);
  }
}

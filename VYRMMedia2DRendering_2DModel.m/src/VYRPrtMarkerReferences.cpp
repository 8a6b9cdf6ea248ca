#include "VYRPrtMarkerReferences.h"

#include "VYRAssert.h"
#include "VYRPrtStreamUnstreamHelper.h"

bool VYRPrtMarkerReferences::IsPosition(Position i_position) {
  return VYR_CHECK_CONDITION(i_position >= Start && i_position <= End);
}

void VYRPrtMarkerReferences::SetMarkerID(Position i_position, const VYRUnicodeString& i_id) {
  if (IsPosition(i_position)) _markerIDs[i_position] = i_id;
}

const VYRUnicodeString& VYRPrtMarkerReferences::GetMarkerID(Position i_position) const {
  static const VYRUnicodeString kNoID;
  return IsPosition(i_position) ? _markerIDs[i_position] : kNoID;
}

void VYRPrtMarkerReferences::SetMarker(Position i_position, VYRPrtMarkerElt* ipMarker) {
  if (IsPosition(i_position)) _pMarkers[i_position] = ipMarker;
}

VYRPrtMarkerElt* VYRPrtMarkerReferences::GetMarker(Position i_position) const {
  return IsPosition(i_position) ? _pMarkers[i_position] : nullptr;
}

int VYRPrtMarkerReferences::operator==(const VYRPrtMarkerReferences& iMarkers) const {
  for (int i = 0; i < kPositionCount; ++i) {
    if (_markerIDs[i] != iMarkers._markerIDs[i] || _pMarkers[i] != iMarkers._pMarkers[i]) return 0;
  }
  return 1;
}

void VYRPrtMarkerReferences::Stream(VYRI2DGStream* ipStream) const {
  if (!ipStream) return;
  for (const VYRUnicodeString& id : _markerIDs) VYRPrtStreamUnstreamHelper::SerializeVYRUnicodeString(id, ipStream);
}

void VYRPrtMarkerReferences::Unstream(VYRI2DGStream* ipStream) {
  if (!ipStream) return;
  for (VYRUnicodeString& id : _markerIDs) VYRPrtStreamUnstreamHelper::CreateVYRUnicodeStringFromStream(id, ipStream);
}

#pragma once

#include "VYRExport.h"
#include "VYRPrtNodeTreeElt.h"

// An SVG switch element: the children are alternatives of which the first
// whose conditions hold is rendered. The conditions are evaluated by the
// importer, so the switch adds nothing to the node tree but its tag; it
// keeps the base Duplicate (no copy) and Reset.
class VYR_EXPORT VYRPrtSwitchElt : public VYRPrtNodeTreeElt {
  VYR_DECLARE_CLASS(VYRPrtSwitchElt)

 public:
  VYRPrtSwitchElt() = default;
  VYRPrtSwitchElt(const VYRPrtSwitchElt&) = default;
  VYRPrtSwitchElt& operator=(const VYRPrtSwitchElt&) = default;
  using VYRPrtNodeTreeElt::operator=;
  ~VYRPrtSwitchElt() override = default;

  StreamType GetStreamType() override;
};

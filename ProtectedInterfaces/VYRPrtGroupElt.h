#pragma once

#include "VYRExport.h"
#include "VYRPrtGroupAttributes.h"
#include "VYRPrtNodeTreeElt.h"

// An SVG g element: children grouped under common attributes, with the
// hyperlink of an enclosing a element.
class VYR_EXPORT VYRPrtGroupElt : public VYRPrtNodeTreeElt {
  VYR_DECLARE_CLASS(VYRPrtGroupElt)

 public:
  VYRPrtGroupElt() = default;
  VYRPrtGroupElt(const VYRPrtGroupElt& i_groupElt) = default;
  VYRPrtGroupElt& operator=(const VYRPrtGroupElt& i_groupElt);
  using VYRPrtNodeTreeElt::operator=;
  ~VYRPrtGroupElt() override = default;

  const VYRPrtGroupAttributes& GetGroupAttributes() const { return _groupAttributes; }
  void SetGroupAttributes(const VYRPrtGroupAttributes& i_attributes) { _groupAttributes = i_attributes; }

  // Common attributes and group attributes to their defaults; the children stay.
  void Reset() override;
  // A copy with duplicated children (see VYRPrtNodeTreeElt::DuplicateTree).
  void Duplicate(VYRPrtGraphicPrimitiveElt*& opGPElt) override;
  StreamType GetStreamType() override;
  // The node tree record, then the group attributes.
  void Stream(VYRI2DGStream* ipStream) override;
  void Unstream(VYRI2DGStream* ipStream) override;

 private:
  VYRPrtGroupAttributes _groupAttributes;
};

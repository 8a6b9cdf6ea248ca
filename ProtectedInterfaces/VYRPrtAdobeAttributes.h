#pragma once

#include "MM2DAttributeTypes.h"
#include "VYR2DGDrawingEnums.h"
#include "VYRExport.h"

class VYRI2DGStream;

// Blending mode, knockout and opacity share of an element's group.
class VYR_EXPORT VYRPrtAdobeAttributes {
 public:
  VYRPrtAdobeAttributes() = default;
  VYRPrtAdobeAttributes(const VYRPrtAdobeAttributes& iAttr) = default;
  VYRPrtAdobeAttributes& operator=(const VYRPrtAdobeAttributes& iAttr);
  virtual ~VYRPrtAdobeAttributes() = default;

  void SetBlendingMode(VYR2DGTransferMode i_mode);
  void SetOpacityShare(double i_share);
  // Knockout 0 clears "defined" even when another value was set before.
  void SetKnockout(MM2D::Knockout i_knockout);

  VYR2DGTransferMode GetBlendingMode() const { return _blendingMode; }
  MM2D::Knockout GetKnockout() const { return _knockout; }
  double GetOpacityShare() const { return _opacityShare; }
  bool IsDefined() const { return _defined; }

  bool operator==(const VYRPrtAdobeAttributes& iAttr) const;
  bool operator!=(const VYRPrtAdobeAttributes& iAttr) const { return !(*this == iAttr); }

  virtual void Stream(VYRI2DGStream* ipStream);
  virtual void Unstream(VYRI2DGStream* ipStream);

 private:
  bool _defined = false;
  double _opacityShare = 1.0;
  VYR2DGTransferMode _blendingMode = eTransferSourceOver;
  MM2D::Knockout _knockout = MM2D::KnockoutNone;
};

#include "VYRPrtGroupAttributes.h"

void VYRPrtGroupAttributes::Stream(VYRI2DGStream* ipStream) {
  if (!ipStream) return;
  _linkURI.Stream(ipStream);
}

void VYRPrtGroupAttributes::Unstream(VYRI2DGStream* ipStream) {
  if (!ipStream) return;
  _linkURI.Unstream(ipStream);
}

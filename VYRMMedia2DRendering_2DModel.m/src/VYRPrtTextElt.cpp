#include "VYRPrtTextElt.h"

#include "VYRPrtArrayStreamForms.h"

VYR_IMPLEMENT_CLASS(VYRPrtTextElt, VYRPrtBaseShapeElt, "Multimedia2DRendering")

VYRPrtTextElt& VYRPrtTextElt::operator=(const VYRPrtTextElt& iTextElt) {
  if (!VYR_CHECK_CONDITION(this != &iTextElt)) return *this;
  VYRPrtBaseShapeElt::operator=(iTextElt);
  _text = iTextElt._text;
  _positions = iTextElt._positions;
  _textAttributes = iTextElt._textAttributes;
  return *this;
}

void VYRPrtTextElt::Reset() {
  VYRPrtBaseShapeElt::Reset();
  _text = VYRUnicodeString();
  _positions.Clear();
  _textAttributes = VYRPrtTextAttributes();
}

void VYRPrtTextElt::Duplicate(VYRPrtGraphicPrimitiveElt*& opGPElt) { DuplicateShape(*this, opGPElt); }

StreamType VYRPrtTextElt::GetStreamType() { return kStreamTypeTextElt; }

void VYRPrtTextElt::Stream(VYRI2DGStream* ipStream) {
  if (!ipStream) return;
  VYRPrtBaseShapeElt::Stream(ipStream);
  VYRPrtStreamUnstreamHelper::SerializeVYRUnicodeString(_text, ipStream);
  VYRPrtArrayStreamForms::StreamArray(_positions, ipStream);
  _textAttributes.Stream(ipStream);
}

void VYRPrtTextElt::Unstream(VYRI2DGStream* ipStream) {
  if (!ipStream) return;
  VYRPrtBaseShapeElt::Unstream(ipStream);
  VYRPrtStreamUnstreamHelper::CreateVYRUnicodeStringFromStream(_text, ipStream);
  VYRPrtArrayStreamForms::UnstreamArray(_positions, ipStream);
  _textAttributes.Unstream(ipStream);
}

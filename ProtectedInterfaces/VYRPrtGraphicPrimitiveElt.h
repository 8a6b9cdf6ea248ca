#pragma once

#include "VYRBaseUnknown.h"
#include "VYRExport.h"
#include "VYRPrtAdobeAttributes.h"
#include "VYRPrtModelForward.h"
#include "VYRPrtStreamType.h"
#include "VYRPrtTransformAttributes.h"
#include "VYRUnicodeString.h"

// Base of every model element: the attributes any SVG element may carry, and
// their byte form, which opens every element's record. Links to the father
// and to referenced clip path, mask, filter and pattern elements are not
// owned; referenced elements are kept both by identifier and by pointer,
// set independently.
class VYR_EXPORT VYRPrtGraphicPrimitiveElt : public VYRBaseUnknown {
  VYR_DECLARE_CLASS(VYRPrtGraphicPrimitiveElt)

 public:
  ~VYRPrtGraphicPrimitiveElt() override = default;

  virtual void Reset();
  virtual VYRPrtGraphicPrimitiveElt& operator=(const VYRPrtGraphicPrimitiveElt& iGPElt);
  // Copies into a new element from the factory; this base yields null.
  virtual void Duplicate(VYRPrtGraphicPrimitiveElt*& opGPElt);
  virtual void SetID(const VYRUnicodeString& i_id);
  virtual const VYRUnicodeString& GetID() const;
  virtual void SetVisibility(unsigned char i_visibility);
  virtual unsigned char GetVisibility() const;
  virtual void SetDescription(const VYRUnicodeString& i_description);
  virtual const VYRUnicodeString& GetDescription() const;
  virtual void SetTitle(const VYRUnicodeString& i_title);
  virtual const VYRUnicodeString& GetTitle() const;
  virtual void SetSpaceHandling(const VYRUnicodeString& i_spaceHandling);
  virtual const VYRUnicodeString& GetSpaceHandling() const;
  virtual void SetTransformAttributes(const VYRPrtTransformAttributes& i_transform);
  virtual const VYRPrtTransformAttributes& GetTransformAttributes() const;
  virtual void SetAdobeAttributes(const VYRPrtAdobeAttributes& i_adobe);
  virtual const VYRPrtAdobeAttributes& GetAdobeAttributes() const;
  virtual void SetClipPathID(const VYRUnicodeString& i_id);
  virtual const VYRUnicodeString& GetClipPathID() const;
  virtual void SetClipPath(VYRPrtClipPathElt* ipClipPath);
  virtual VYRPrtClipPathElt* GetClipPath() const;
  virtual void SetMaskID(const VYRUnicodeString& i_id);
  virtual const VYRUnicodeString& GetMaskID() const;
  virtual void SetMask(VYRPrtMaskElt* ipMask);
  virtual VYRPrtMaskElt* GetMask() const;
  virtual void SetPattern(VYRPrtPatternElt* ipPattern);
  virtual VYRPrtPatternElt* GetPattern() const;
  virtual void SetFilterID(const VYRUnicodeString& i_id);
  virtual const VYRUnicodeString& GetFilterID() const;
  virtual void SetFilter(VYRPrtFilterContainerElt* ipFilter);
  virtual VYRPrtFilterContainerElt* GetFilter() const;
  virtual void SetFather(VYRPrtGraphicPrimitiveElt* ipFather);
  virtual VYRPrtGraphicPrimitiveElt* GetFather() const;
  virtual void SetOpacity(unsigned char i_opacity);
  virtual unsigned char GetOpacity() const;
  virtual void SetStreamVersion(int i_version);
  virtual int GetStreamVersion() const;
  virtual StreamType GetStreamType();
  // Writes the tag, the stream version and the common attributes.
  virtual void Stream(VYRI2DGStream* ipStream);
  // Reads what Stream wrote after the tag (the tag is read by whoever creates the element).
  virtual void Unstream(VYRI2DGStream* ipStream);

 protected:
  VYRPrtGraphicPrimitiveElt() = default;
  VYRPrtGraphicPrimitiveElt(const VYRPrtGraphicPrimitiveElt& iGPElt) = default;

 private:
  unsigned char _visibility = 1;
  VYRPrtGraphicPrimitiveElt* _pFather = nullptr;
  VYRUnicodeString _ID;
  VYRUnicodeString _description;
  VYRUnicodeString _title;
  VYRUnicodeString _spaceHandling = "default";
  VYRPrtTransformAttributes _transformAttributes;
  VYRPrtAdobeAttributes _adobeAttributes;
  VYRUnicodeString _clipPathID;
  VYRPrtClipPathElt* _pClipPath = nullptr;
  VYRUnicodeString _maskID;
  VYRPrtMaskElt* _pMask = nullptr;
  VYRUnicodeString _filterID;
  VYRPrtFilterContainerElt* _pFilter = nullptr;
  VYRPrtPatternElt* _pPattern = nullptr;
  unsigned char _opacity = 255;
  int _streamVersion = 1;
};

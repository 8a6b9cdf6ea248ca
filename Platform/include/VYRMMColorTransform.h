#pragma once

#include "VYRBaseUnknown.h"
#include "VYRExport.h"
#include "VYRMMColorProfile.h"
#include "VYRPixelImage.h"
#include "VYRStatus.h"

// Converts colours from a source profile to a destination profile. Reference counted;
// it holds a reference on both profiles.
//
// Images: the grey formats go with GRAY profiles, the RGB formats with RGB profiles;
// alpha is carried over unchanged (premultiplied pixels are converted as their straight
// colour). A pair that does not fit is reported and the call fails.
class VYR_EXPORT VYRMMColorTransform : public VYRBaseUnknown {
  VYR_DECLARE_CLASS(VYRMMColorTransform)

 public:
  // i_intent is the ICC rendering intent: 0 perceptual, 1 relative colorimetric,
  // 2 saturation, 3 absolute colorimetric; others are reported and taken as 0.
  // Missing or non-existing profiles are reported; the transform is then not valid.
  VYRMMColorTransform(VYRMMColorProfile* i_pSource, VYRMMColorProfile* i_pDestination, int i_intent);
  ~VYRMMColorTransform() override;
  VYRMMColorTransform(const VYRMMColorTransform&) = delete;
  VYRMMColorTransform& operator=(const VYRMMColorTransform&) = delete;

  bool IsValid() const;

  // Converts the image in place; source and destination must have the image's number of
  // colour components. Refuses a locked image. VYR_S_OK, or a failure with the image untouched.
  VYRStatus DoTransform(VYRPixelImage* io_pImage);
  // Converts into a new unlocked image (one reference, owned by the caller) whose format
  // follows the destination: Grey8/GreyAlpha16 for GRAY, RGB24/RGBA32 for RGB (with alpha
  // when the source has it, straight). o_pResult is null on failure.
  VYRStatus DoTransform(const VYRPixelImage* i_pSource, VYRPixelImage*& o_pResult);

  // Converts one colour to 8-bit components of an RGB destination. The components are
  // those of the source space: 0..1 for RGB, grey and CMYK (ink fractions); L* 0..100 and
  // a*, b* -128..127 for Lab. The count must match the source. Outputs are untouched on failure.
  VYRStatus TransformColorToRGB8(const float* i_pComponents, int i_componentCount, unsigned char& o_red,
                                 unsigned char& o_green, unsigned char& o_blue);

 private:
  // The colour engine's transform for a pair of pixel layouts, made on first use and kept
  // while the same pair is asked for again.
  void* GetEngineTransform_(unsigned int i_inputLayout, unsigned int i_outputLayout);

  VYRMMColorProfile* _pSource = nullptr;
  VYRMMColorProfile* _pDestination = nullptr;
  int _intent = 0;
  void* _hTransform = nullptr;
  unsigned int _inputLayout = 0;
  unsigned int _outputLayout = 0;
};

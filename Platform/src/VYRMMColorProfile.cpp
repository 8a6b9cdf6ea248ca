#include "VYRMMColorProfile.h"

#include <lcms2.h>

VYR_IMPLEMENT_CLASS(VYRMMColorProfile, VYRBaseUnknown, "Platform")

VYRMMColorProfile::~VYRMMColorProfile() {
  if (_hProfile) cmsCloseProfile(static_cast<cmsHPROFILE>(_hProfile));
}

unsigned int VYRMMColorProfile::getProfileColorSpaceSignature() const {
  return _hProfile ? static_cast<unsigned int>(cmsGetColorSpace(static_cast<cmsHPROFILE>(_hProfile))) : 0u;
}

int VYRMMColorProfile::getNumberOfColorComponents() const {
  return _hProfile ? static_cast<int>(cmsChannelsOf(cmsGetColorSpace(static_cast<cmsHPROFILE>(_hProfile)))) : 0;
}

VYRUnicodeString VYRMMColorProfile::getDescription() const {
  if (!_hProfile) return VYRUnicodeString();
  char text[256] = {};
  cmsGetProfileInfoASCII(static_cast<cmsHPROFILE>(_hProfile), cmsInfoDescription, "en", "US", text, sizeof text);
  return VYRUnicodeString(text);
}

#include "VYRMMColorProfileFactory.h"

#include <lcms2.h>

#include <new>

VYRMMColorProfile* VYRMMColorProfileFactory::Wrap_(void* i_hProfile) {
  if (!i_hProfile) return nullptr;
  auto* profile = new (std::nothrow) VYRMMColorProfile(i_hProfile);
  if (!profile) cmsCloseProfile(static_cast<cmsHPROFILE>(i_hProfile));
  return profile;
}

VYRMMColorProfile* VYRMMColorProfileFactory::CreateColorProfileFromFile(const VYRUnicodeString& i_path) {
  if (i_path.IsEmpty()) return nullptr;
  return Wrap_(cmsOpenProfileFromFile(i_path.ConvertToChar(), "r"));
}

VYRMMColorProfile* VYRMMColorProfileFactory::CreateColorProfileFromMemory(const void* i_pBytes, int i_length) {
  if (!i_pBytes || i_length <= 0) return nullptr;
  return Wrap_(cmsOpenProfileFromMem(i_pBytes, static_cast<cmsUInt32Number>(i_length)));
}

VYRMMColorProfile* VYRMMColorProfileFactory::CreateSRGBColorProfile() { return Wrap_(cmsCreate_sRGBProfile()); }

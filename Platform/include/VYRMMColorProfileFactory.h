#pragma once

#include "VYRExport.h"
#include "VYRMMColorProfile.h"
#include "VYRUnicodeString.h"

// Makes colour profiles. Each operation returns a new profile (one reference, released
// by the caller with Release()) that exists, or null when nothing could be loaded:
// a missing or unreadable file or damaged data is a normal outcome for callers that
// try several locations, so it is not reported.
class VYR_EXPORT VYRMMColorProfileFactory {
 public:
  VYRMMColorProfileFactory() = delete;

  // From an ICC file (UTF-8 path).
  static VYRMMColorProfile* CreateColorProfileFromFile(const VYRUnicodeString& i_path);
  // From an ICC profile held in memory; the bytes are copied.
  static VYRMMColorProfile* CreateColorProfileFromMemory(const void* i_pBytes, int i_length);
  // The built-in sRGB profile.
  static VYRMMColorProfile* CreateSRGBColorProfile();

 private:
  // Takes over a colour engine profile handle; null for a null handle.
  static VYRMMColorProfile* Wrap_(void* i_hProfile);
};

#pragma once

#include "VYRBaseUnknown.h"
#include "VYRExport.h"
#include "VYRUnicodeString.h"

class VYRMMColorProfile;
class VYRRawCollPV;
class VYRRawCollfloat;

// The ICC colour profiles a document declares, each under its name, and the
// conversion of a colour given in a named RGB profile to 8-bit sRGB.
//
// The manager keeps the profiles it loaded until it goes; FindColorProfile
// lends them out.
class VYR_EXPORT VYRPrtColorProfileManager : public VYRBaseUnknown {
  VYR_DECLARE_CLASS(VYRPrtColorProfileManager)

 public:
  VYRPrtColorProfileManager();
  ~VYRPrtColorProfileManager() override;
  VYRPrtColorProfileManager(const VYRPrtColorProfileManager&) = delete;
  VYRPrtColorProfileManager& operator=(const VYRPrtColorProfileManager&) = delete;

  // Loads the profile a document names and registers it under i_name. A path
  // starting with "./" (or ".\") is looked for beside the document, then under
  // "resources/ICCColorProfiles" of the VYRInstallPath roots; any other path is
  // loaded as it is. 1 when registered, -1 otherwise. Names are not checked
  // for duplicates: the first one registered is the one found.
  int AddColorProfile(const VYRUnicodeString& i_name, const VYRUnicodeString& i_profilePath,
                      const VYRUnicodeString& i_documentPath);
  // The profile registered under that exact name, or null.
  VYRMMColorProfile* FindColorProfile(const VYRUnicodeString& i_name);
  // Converts three components (0..1) of the named RGB profile to sRGB bytes.
  // 1 with the outputs set, -1 with them untouched.
  int GetColorInsRGB(const VYRUnicodeString& i_name, VYRRawCollfloat& i_components, unsigned int& o_red,
                     unsigned int& o_green, unsigned int& o_blue);

 private:
  VYRRawCollPV* _paColorProfileList = nullptr;  // of VYRPrtColorProfileElt*, owned
};

#pragma once

#include "VYRBaseUnknown.h"
#include "VYRExport.h"
#include "VYRUnicodeString.h"

class VYRMMColorProfile;

// One entry of a document's colour profile registry: the name the document
// gives a profile and the loaded profile. The entry does not own the profile.
class VYR_EXPORT VYRPrtColorProfileElt : public VYRBaseUnknown {
  VYR_DECLARE_CLASS(VYRPrtColorProfileElt)

 public:
  VYRPrtColorProfileElt() = default;
  VYRPrtColorProfileElt(const VYRUnicodeString& i_name, VYRMMColorProfile* i_pProfile);
  ~VYRPrtColorProfileElt() override;

  VYRUnicodeString GetName() const { return _name; }
  VYRMMColorProfile* GetColorProfile() const { return _pProfile; }

 private:
  VYRUnicodeString _name;
  VYRMMColorProfile* _pProfile = nullptr;
};

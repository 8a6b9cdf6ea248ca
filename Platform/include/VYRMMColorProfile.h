#pragma once

#include "VYRBaseUnknown.h"
#include "VYRExport.h"
#include "VYRUnicodeString.h"

// ICC colour space signatures, as getProfileColorSpaceSignature returns them.
constexpr unsigned int VYRICCColorSpace_RGB = 0x52474220u;   // 'RGB '
constexpr unsigned int VYRICCColorSpace_GRAY = 0x47524159u;  // 'GRAY'
constexpr unsigned int VYRICCColorSpace_CMYK = 0x434D594Bu;  // 'CMYK'
constexpr unsigned int VYRICCColorSpace_Lab = 0x4C616220u;   // 'Lab '

// A loaded ICC colour profile, reference counted. Made by VYRMMColorProfileFactory;
// a default-constructed profile holds nothing and does not exist.
class VYR_EXPORT VYRMMColorProfile : public VYRBaseUnknown {
  VYR_DECLARE_CLASS(VYRMMColorProfile)

 public:
  VYRMMColorProfile() = default;
  ~VYRMMColorProfile() override;
  VYRMMColorProfile(const VYRMMColorProfile&) = delete;
  VYRMMColorProfile& operator=(const VYRMMColorProfile&) = delete;

  // True when a profile is loaded.
  bool exist() const { return _hProfile != nullptr; }
  // The ICC signature of the profile's data colour space (VYRICCColorSpace_...), 0 when none.
  unsigned int getProfileColorSpaceSignature() const;
  // The number of colour components of that space (3 for RGB, 1 for grey, 4 for CMYK), 0 when none.
  int getNumberOfColorComponents() const;
  // The profile's description text (English when it has several), empty when none.
  VYRUnicodeString getDescription() const;

 private:
  friend class VYRMMColorProfileFactory;
  friend class VYRMMColorTransform;
  explicit VYRMMColorProfile(void* i_hProfile) : _hProfile(i_hProfile) {}

  void* _hProfile = nullptr;  // the colour engine's profile handle, owned
};

#include "VYRPrtColorProfileManager.h"

#include <new>

#include "VYRMMColorProfile.h"
#include "VYRMMColorProfileFactory.h"
#include "VYRMMColorTransform.h"
#include "VYRPixelImage.h"
#include "VYRPrtColorProfileElt.h"
#include "VYRRawCollPV.h"
#include "VYRRawCollfloat.h"
#include "VYRSystem.h"

VYR_IMPLEMENT_CLASS(VYRPrtColorProfileManager, VYRBaseUnknown, "VYRMMedia2DRendering_2DModel")

namespace {

const char kProfileDirectory[] = "resources/ICCColorProfiles";
const char kInstallPathVariable[] = "VYRInstallPath";

// A path is relative to its document when it starts with "./" or ".\".
bool IsDocumentRelative(const VYRUnicodeString& i_path) {
  int position = i_path.Find("./");
  if (position < 0) position = i_path.Find(".\\");
  return position == 0;
}

// The document's directory, without its separator; "." for a bare file name.
VYRUnicodeString DirectoryOf(const VYRUnicodeString& i_documentPath) {
  int separator = i_documentPath.ReverseFind("/");
  if (separator < 0) separator = i_documentPath.ReverseFind("\\");
  if (separator < 0) return VYRUnicodeString(".");
  return i_documentPath.SubString(0, separator);
}

// Looks beside the document, then under the installation roots.
VYRMMColorProfile* LoadDocumentRelativeProfile(const VYRUnicodeString& i_path, const VYRUnicodeString& i_documentPath) {
  const VYRUnicodeString fromSeparator = i_path.SubString(1);  // "./icc/x.icc" -> "/icc/x.icc"
  VYRMMColorProfile* pProfile =
      VYRMMColorProfileFactory::CreateColorProfileFromFile(DirectoryOf(i_documentPath) + fromSeparator);
  if (pProfile) return pProfile;
  VYRUnicodeString installed;
  if (VYRGetFilePathFromOfficialVariable(VYRUnicodeString(kProfileDirectory) + fromSeparator, kInstallPathVariable,
                                         installed) != 0) {
    return nullptr;
  }
  return VYRMMColorProfileFactory::CreateColorProfileFromFile(installed);
}

// value x 255 truncated toward zero, kept inside a byte.
unsigned char ComponentToByte(float i_value) {
  const float scaled = i_value * 255.0f;
  if (!(scaled > 0.0f)) return 0;  // NaN as well
  if (scaled >= 255.0f) return 255;
  return static_cast<unsigned char>(scaled);
}

}  // namespace

VYRPrtColorProfileManager::VYRPrtColorProfileManager() : _paColorProfileList(new (std::nothrow) VYRRawCollPV()) {}

VYRPrtColorProfileManager::~VYRPrtColorProfileManager() {
  if (!_paColorProfileList) return;
  for (int position = 1; position <= _paColorProfileList->Size(); ++position) {
    auto* pElt = static_cast<VYRPrtColorProfileElt*>((*_paColorProfileList)[position]);
    if (!pElt) continue;
    if (VYRMMColorProfile* pProfile = pElt->GetColorProfile()) pProfile->Release();
    pElt->Release();
  }
  delete _paColorProfileList;
}

int VYRPrtColorProfileManager::AddColorProfile(const VYRUnicodeString& i_name, const VYRUnicodeString& i_profilePath,
                                               const VYRUnicodeString& i_documentPath) {
  VYRMMColorProfile* pProfile = IsDocumentRelative(i_profilePath)
                                    ? LoadDocumentRelativeProfile(i_profilePath, i_documentPath)
                                    : VYRMMColorProfileFactory::CreateColorProfileFromFile(i_profilePath);
  if (!pProfile) return -1;
  if (pProfile->exist() && _paColorProfileList) {
    auto* pElt = new (std::nothrow) VYRPrtColorProfileElt(i_name, pProfile);
    if (pElt && _paColorProfileList->Append(pElt) > 0) return 1;
    if (pElt) pElt->Release();
  }
  pProfile->Release();
  return -1;
}

VYRMMColorProfile* VYRPrtColorProfileManager::FindColorProfile(const VYRUnicodeString& i_name) {
  if (!_paColorProfileList) return nullptr;
  for (int position = 1; position <= _paColorProfileList->Size(); ++position) {
    auto* pElt = static_cast<VYRPrtColorProfileElt*>((*_paColorProfileList)[position]);
    if (pElt && pElt->GetName() == i_name) return pElt->GetColorProfile();
  }
  return nullptr;
}

int VYRPrtColorProfileManager::GetColorInsRGB(const VYRUnicodeString& i_name, VYRRawCollfloat& i_components,
                                              unsigned int& o_red, unsigned int& o_green, unsigned int& o_blue) {
  VYRMMColorProfile* pSRGB = VYRMMColorProfileFactory::CreateSRGBColorProfile();
  if (!pSRGB) return -1;

  int result = -1;
  VYRMMColorProfile* pProfile = FindColorProfile(i_name);
  if (pSRGB->exist() && pProfile && pProfile->exist() &&
      pProfile->getProfileColorSpaceSignature() == VYRICCColorSpace_RGB && i_components.Size() == 3) {
    auto* pImage = new (std::nothrow) VYRPixelImage(1, 1, VYRPixelImageFormat_RGB24);
    unsigned char* pPixel = pImage ? pImage->GetPixelsToModify() : nullptr;
    if (pPixel) {
      for (int i = 0; i < 3; ++i) pPixel[i] = ComponentToByte(i_components[i + 1]);
      auto* pTransform = new (std::nothrow) VYRMMColorTransform(pProfile, pSRGB, 0);
      if (pTransform && VYRSucceeded(pTransform->DoTransform(pImage))) {
        unsigned char red = 0, green = 0, blue = 0, alpha = 0;
        pImage->GetColorAtPixel(0, 0, red, green, blue, alpha);
        o_red = red;
        o_green = green;
        o_blue = blue;
        result = 1;
      }
      if (pTransform) pTransform->Release();
    }
    if (pImage) pImage->Release();
  }
  pSRGB->Release();
  return result;
}

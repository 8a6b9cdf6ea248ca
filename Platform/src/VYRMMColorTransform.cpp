#include "VYRMMColorTransform.h"

#include <lcms2.h>

#include <algorithm>
#include <new>

#include "VYRAssert.h"

VYR_IMPLEMENT_ABSTRACT_CLASS(VYRMMColorTransform, VYRBaseUnknown, "Platform")

namespace {

// The colour engine's layout of a straight pixel format (premultiplied pixels are
// converted through straight RGBA by the callers).
cmsUInt32Number EngineLayoutOf(VYRPixelImageFormat i_format) {
  switch (i_format) {
    case VYRPixelImageFormat_Grey8: return TYPE_GRAY_8;
    case VYRPixelImageFormat_GreyAlpha16: return TYPE_GRAYA_8;
    case VYRPixelImageFormat_RGB24: return TYPE_RGB_8;
    case VYRPixelImageFormat_RGBA32: return TYPE_RGBA_8;
    case VYRPixelImageFormat_BGRA32Premultiplied: return 0;
  }
  return 0;
}

bool IsGreyFormat(VYRPixelImageFormat i_format) {
  return i_format == VYRPixelImageFormat_Grey8 || i_format == VYRPixelImageFormat_GreyAlpha16;
}

bool HasAlpha(VYRPixelImageFormat i_format) {
  return i_format == VYRPixelImageFormat_GreyAlpha16 || i_format == VYRPixelImageFormat_RGBA32 ||
         i_format == VYRPixelImageFormat_BGRA32Premultiplied;
}

// The profile colour space that the pixels of a format are given in.
unsigned int ColorSpaceOf(VYRPixelImageFormat i_format) {
  return IsGreyFormat(i_format) ? VYRICCColorSpace_GRAY : VYRICCColorSpace_RGB;
}

// The straight format a destination colour space gives, with or without alpha; -1 when none fits.
int FormatForColorSpace(unsigned int i_colorSpace, bool i_withAlpha) {
  if (i_colorSpace == VYRICCColorSpace_GRAY)
    return i_withAlpha ? VYRPixelImageFormat_GreyAlpha16 : VYRPixelImageFormat_Grey8;
  if (i_colorSpace == VYRICCColorSpace_RGB) return i_withAlpha ? VYRPixelImageFormat_RGBA32 : VYRPixelImageFormat_RGB24;
  return -1;
}

}  // namespace

VYRMMColorTransform::VYRMMColorTransform(VYRMMColorProfile* i_pSource, VYRMMColorProfile* i_pDestination,
                                         int i_intent) {
  if (VYR_CHECK_POINTER(i_pSource) && VYR_CHECK_CONDITION(i_pSource->exist())) {
    _pSource = i_pSource;
    _pSource->AddRef();
  }
  if (VYR_CHECK_POINTER(i_pDestination) && VYR_CHECK_CONDITION(i_pDestination->exist())) {
    _pDestination = i_pDestination;
    _pDestination->AddRef();
  }
  if (VYR_CHECK_CONDITION(i_intent >= INTENT_PERCEPTUAL && i_intent <= INTENT_ABSOLUTE_COLORIMETRIC))
    _intent = i_intent;
}

VYRMMColorTransform::~VYRMMColorTransform() {
  if (_hTransform) cmsDeleteTransform(static_cast<cmsHTRANSFORM>(_hTransform));
  if (_pSource) _pSource->Release();
  if (_pDestination) _pDestination->Release();
}

bool VYRMMColorTransform::IsValid() const { return _pSource && _pDestination; }

void* VYRMMColorTransform::GetEngineTransform_(unsigned int i_inputLayout, unsigned int i_outputLayout) {
  if (_hTransform && _inputLayout == i_inputLayout && _outputLayout == i_outputLayout) return _hTransform;
  if (_hTransform) cmsDeleteTransform(static_cast<cmsHTRANSFORM>(_hTransform));
  _hTransform = cmsCreateTransform(static_cast<cmsHPROFILE>(_pSource->_hProfile), i_inputLayout,
                                   static_cast<cmsHPROFILE>(_pDestination->_hProfile), i_outputLayout,
                                   static_cast<cmsUInt32Number>(_intent), cmsFLAGS_COPY_ALPHA);
  _inputLayout = i_inputLayout;
  _outputLayout = i_outputLayout;
  // A profile whose tags turn out damaged, or a pair the engine cannot join, gives no transform.
  VYR_CHECK_POINTER_TEXT(_hTransform, "hTransform");
  return _hTransform;
}

VYRStatus VYRMMColorTransform::DoTransform(VYRPixelImage* io_pImage) {
  if (!VYR_CHECK_CONDITION(IsValid()) || !VYR_CHECK_POINTER(io_pImage) ||
      !VYR_CHECK_CONDITION(!io_pImage->IsEmpty()) || !VYR_CHECK_CONDITION(!io_pImage->IsReadOnly()))
    return VYR_E_INVALIDARG;
  const VYRPixelImageFormat format = io_pImage->GetFormat();
  if (!VYR_CHECK_CONDITION(_pSource->getProfileColorSpaceSignature() == ColorSpaceOf(format)) ||
      !VYR_CHECK_CONDITION(_pDestination->getProfileColorSpaceSignature() == ColorSpaceOf(format)))
    return VYR_E_INVALIDARG;

  if (format == VYRPixelImageFormat_BGRA32Premultiplied) {
    VYRPixelImage* straight = io_pImage->ConvertTo(VYRPixelImageFormat_RGBA32);
    if (!VYR_CHECK_POINTER(straight)) return VYR_E_OUTOFMEMORY;
    VYRStatus status = DoTransform(straight);
    if (VYRSucceeded(status)) {
      VYRPixelImage* premultiplied = straight->ConvertTo(VYRPixelImageFormat_BGRA32Premultiplied);
      if (VYR_CHECK_POINTER(premultiplied))
        std::copy_n(premultiplied->GetPixels(), io_pImage->GetByteCount(), io_pImage->GetPixelsToModify());
      else
        status = VYR_E_OUTOFMEMORY;
      if (premultiplied) premultiplied->Release();
    }
    straight->Release();
    return status;
  }

  const cmsUInt32Number layout = EngineLayoutOf(format);
  void* transform = GetEngineTransform_(layout, layout);
  if (!transform) return VYR_E_FAIL;
  unsigned char* pixels = io_pImage->GetPixelsToModify();
  const size_t stride = static_cast<size_t>(io_pImage->GetRowStride());
  for (int y = 0; y < io_pImage->GetHeight(); ++y) {
    unsigned char* row = pixels + y * stride;
    cmsDoTransform(static_cast<cmsHTRANSFORM>(transform), row, row, static_cast<cmsUInt32Number>(io_pImage->GetWidth()));
  }
  return VYR_S_OK;
}

VYRStatus VYRMMColorTransform::DoTransform(const VYRPixelImage* i_pSource, VYRPixelImage*& o_pResult) {
  o_pResult = nullptr;
  if (!VYR_CHECK_CONDITION(IsValid()) || !VYR_CHECK_POINTER(i_pSource) || !VYR_CHECK_CONDITION(!i_pSource->IsEmpty()))
    return VYR_E_INVALIDARG;
  const VYRPixelImageFormat sourceFormat = i_pSource->GetFormat();
  const int resultFormat = FormatForColorSpace(_pDestination->getProfileColorSpaceSignature(), HasAlpha(sourceFormat));
  if (!VYR_CHECK_CONDITION(_pSource->getProfileColorSpaceSignature() == ColorSpaceOf(sourceFormat)) ||
      !VYR_CHECK_CONDITION(resultFormat >= 0))
    return VYR_E_INVALIDARG;

  // Premultiplied pixels are converted as their straight colour.
  VYRPixelImage* straight = nullptr;
  if (sourceFormat == VYRPixelImageFormat_BGRA32Premultiplied) {
    straight = i_pSource->ConvertTo(VYRPixelImageFormat_RGBA32);
    if (!VYR_CHECK_POINTER(straight)) return VYR_E_OUTOFMEMORY;
  }
  const VYRPixelImage* input = straight ? straight : i_pSource;
  auto* result = new (std::nothrow) VYRPixelImage(input->GetWidth(), input->GetHeight(),
                                                  static_cast<VYRPixelImageFormat>(resultFormat));
  VYRStatus status = VYR_E_OUTOFMEMORY;
  if (VYR_CHECK_POINTER(result) && !result->IsEmpty()) {
    void* transform = GetEngineTransform_(EngineLayoutOf(input->GetFormat()),
                                          EngineLayoutOf(static_cast<VYRPixelImageFormat>(resultFormat)));
    status = VYR_E_FAIL;
    if (transform) {
      const size_t inputStride = static_cast<size_t>(input->GetRowStride());
      const size_t resultStride = static_cast<size_t>(result->GetRowStride());
      unsigned char* resultPixels = result->GetPixelsToModify();
      for (int y = 0; y < input->GetHeight(); ++y)
        cmsDoTransform(static_cast<cmsHTRANSFORM>(transform), input->GetPixels() + y * inputStride,
                       resultPixels + y * resultStride, static_cast<cmsUInt32Number>(input->GetWidth()));
      result->SetXPixelSize(input->GetXPixelSize());
      result->SetYPixelSize(input->GetYPixelSize());
      status = VYR_S_OK;
    }
  }
  if (straight) straight->Release();
  if (VYRSucceeded(status)) {
    o_pResult = result;
  } else if (result) {
    result->Release();
  }
  return status;
}

VYRStatus VYRMMColorTransform::TransformColorToRGB8(const float* i_pComponents, int i_componentCount,
                                                    unsigned char& o_red, unsigned char& o_green,
                                                    unsigned char& o_blue) {
  if (!VYR_CHECK_CONDITION(IsValid()) || !VYR_CHECK_POINTER(i_pComponents) ||
      !VYR_CHECK_CONDITION(i_componentCount == _pSource->getNumberOfColorComponents()) ||
      !VYR_CHECK_CONDITION(_pDestination->getProfileColorSpaceSignature() == VYRICCColorSpace_RGB))
    return VYR_E_INVALIDARG;
  // The engine takes CMYK floats as ink percentages.
  const float scale = _pSource->getProfileColorSpaceSignature() == VYRICCColorSpace_CMYK ? 100.0f : 1.0f;
  float components[cmsMAXCHANNELS] = {};
  for (int i = 0; i < i_componentCount && i < cmsMAXCHANNELS; ++i) components[i] = i_pComponents[i] * scale;

  const cmsUInt32Number inputLayout =
      cmsFormatterForColorspaceOfProfile(static_cast<cmsHPROFILE>(_pSource->_hProfile), 4, TRUE);
  void* transform = GetEngineTransform_(inputLayout, TYPE_RGB_8);
  if (!transform) return VYR_E_FAIL;
  unsigned char rgb[3] = {};
  cmsDoTransform(static_cast<cmsHTRANSFORM>(transform), components, rgb, 1);
  o_red = rgb[0], o_green = rgb[1], o_blue = rgb[2];
  return VYR_S_OK;
}

#include "VYRPrtBaseGradientElt.h"

#include <algorithm>
#include <new>

#include "VYRAssert.h"
#include "VYRI2DGStream.h"
#include "VYRMath3x3Matrix.h"
#include "VYRPrintGradientStop.h"
#include "VYRPrtEnumStream.h"
#include "VYRPrtStreamUnstreamHelper.h"

VYR_IMPLEMENT_ABSTRACT_CLASS(VYRPrtBaseGradientElt, VYRPrtGraphicPrimitiveElt, "Multimedia2DRendering")

namespace {

// The smallest stop record is its 4-byte tag.
constexpr int kSmallestStopRecord = 4;

float Clamped01(double i_value) { return static_cast<float>(std::min(1.0, std::max(0.0, i_value))); }

}  // namespace

VYRPrtBaseGradientElt& VYRPrtBaseGradientElt::operator=(const VYRPrtBaseGradientElt& iGPElt) {
  if (!VYR_CHECK_CONDITION(this != &iGPElt)) return *this;
  VYRPrtGraphicPrimitiveElt::operator=(iGPElt);
  _units = iGPElt._units;
  _spread = iGPElt._spread;
  _gradientTransform = iGPElt._gradientTransform;
  _hrefID = iGPElt._hrefID;
  _stops = iGPElt._stops;
  return *this;
}

void VYRPrtBaseGradientElt::SetGradientTransform(const VYRPrtTransformAttributes& i_transform) {
  if (&i_transform != &_gradientTransform) _gradientTransform = i_transform;
}

void VYRPrtBaseGradientElt::AddStop(VYRPrtGradientStopElt* ipStop) {
  if (!VYR_CHECK_POINTER(ipStop)) return;
  if (_stops.Append(ipStop) < 0) return;
  ipStop->SetFather(this);
}

VYRPrtGradientStopElt* VYRPrtBaseGradientElt::GetStop(int i_index) const { return _stops[i_index]; }

void VYRPrtBaseGradientElt::DuplicateStopsInto(VYRPrtBaseGradientElt& i_target) const {
  for (VYRPrtGradientStopElt* pStop : _stops) {
    if (!pStop) continue;
    VYRPrtGraphicPrimitiveElt* pCopy = nullptr;
    pStop->Duplicate(pCopy);
    if (pCopy) i_target.AddStop(static_cast<VYRPrtGradientStopElt*>(pCopy));
  }
}

VYRPrintGradient* VYRPrtBaseGradientElt::CreatePrintGradient() const { return CreatePrintGradient(0.0, 1.0, 0.0, 1.0); }

VYRPrintGradient* VYRPrtBaseGradientElt::CreatePrintGradient(double i_xmin, double i_xmax, double i_ymin,
                                                             double i_ymax) const {
  VYRPrintGradient* pGradient = MakePrintGradient();
  if (!VYR_CHECK_POINTER(pGradient)) return nullptr;
  pGradient->SetSpread(_spread);
  // A stop may not lie before the one ahead of it: it is moved up to it.
  double largestOffset = 0.0;
  for (const VYRPrtGradientStopElt* pStop : _stops) {
    if (!pStop) continue;
    largestOffset = std::max(largestOffset, static_cast<double>(Clamped01(pStop->GetOffset())));
    unsigned char red = 0, green = 0, blue = 0;
    pStop->GetColor(red, green, blue);
    auto* pRecordStop = new (std::nothrow) VYRPrintGradientStop(
        static_cast<float>(largestOffset), red / 255.0f, green / 255.0f, blue / 255.0f, Clamped01(pStop->GetStopOpacity()));
    if (!VYR_CHECK_POINTER(pRecordStop)) break;
    if (pGradient->AddStop(pRecordStop) != 1) delete pRecordStop;
  }
  VYRMath3x3Matrix transform;
  _gradientTransform.GetTransformationMatrix(transform);
  if (_units == MM2D::UnitObjectBoundingBox) {
    VYRMath3x3Matrix boxMapping;
    boxMapping.SetCoef(i_xmax - i_xmin, 0.0, i_xmin, 0.0, i_ymax - i_ymin, i_ymin, 0.0, 0.0, 1.0);
    transform = boxMapping * transform;
  }
  pGradient->SetTransform(transform);
  return pGradient;
}

void VYRPrtBaseGradientElt::Reset() {
  VYRPrtGraphicPrimitiveElt::Reset();
  _units = MM2D::UnitObjectBoundingBox;
  _spread = VYRPrintGradientSpreadPad;
  _gradientTransform = VYRPrtTransformAttributes();
  _hrefID = VYRUnicodeString();
  _stops.Clear();
}

void VYRPrtBaseGradientElt::Stream(VYRI2DGStream* ipStream) {
  if (!ipStream) return;
  VYRPrtGraphicPrimitiveElt::Stream(ipStream);
  StreamEnum(_units, ipStream);
  StreamEnum(_spread, ipStream);
  _gradientTransform.Stream(ipStream);
  VYRPrtStreamUnstreamHelper::SerializeVYRUnicodeString(_hrefID, ipStream);
  ipStream->StreamValue(_stops.GetLength());
  for (VYRPrtGradientStopElt* pStop : _stops) VYRPrtStreamUnstreamHelper::SerializeVYRPrtGraphicPrimitiveElt(pStop, ipStream);
}

void VYRPrtBaseGradientElt::Unstream(VYRI2DGStream* ipStream) {
  if (!ipStream) return;
  VYRPrtGraphicPrimitiveElt::Unstream(ipStream);
  UnstreamEnum(_units, ipStream);
  UnstreamEnum(_spread, ipStream);
  _gradientTransform.Unstream(ipStream);
  VYRPrtStreamUnstreamHelper::CreateVYRUnicodeStringFromStream(_hrefID, ipStream);
  int count = 0;
  ipStream->UnstreamValue(count);
  if (count <= 0 || !VYR_CHECK_CONDITION(ipStream->CountFits(count, kSmallestStopRecord))) return;
  for (int i = 0; i < count && !ipStream->HasFailed(); ++i) {
    VYRPrtGraphicPrimitiveElt* pElt = VYRPrtStreamUnstreamHelper::CreateVYRPrtGraphicPrimitiveEltFromStream(ipStream);
    if (!pElt) continue;
    if (!VYR_CHECK_CONDITION_TEXT(pElt->IsAKindOf(VYRPrtGradientStopElt::ClassName()), "gradient stop element")) continue;
    AddStop(static_cast<VYRPrtGradientStopElt*>(pElt));
  }
}

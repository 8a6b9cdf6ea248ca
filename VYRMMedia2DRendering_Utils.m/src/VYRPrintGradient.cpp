#include "VYRPrintGradient.h"

#include <new>

#include "VYRAssert.h"
#include "VYRPrintGradientStop.h"

VYR_IMPLEMENT_CLASS(VYRPrintGradient, VYRBaseUnknown, "VYRMMedia2DRendering_Utils")

VYRPrintGradient::VYRPrintGradient(const VYRPrintGradient& iGradient) : VYRBaseUnknown(iGradient) {
  CopyFrom(iGradient);
}

VYRPrintGradient& VYRPrintGradient::operator=(const VYRPrintGradient& iGradient) {
  if (!VYR_CHECK_CONDITION(this != &iGradient)) return *this;
  EmptyStopList();
  CopyFrom(iGradient);
  return *this;
}

VYRPrintGradient::~VYRPrintGradient() { EmptyStopList(); }

VYRPrintGradient* VYRPrintGradient::Clone() const { return new (std::nothrow) VYRPrintGradient(*this); }

void VYRPrintGradient::CopyFrom(const VYRPrintGradient& iGradient) {
  _spread = iGradient._spread;
  _transform = iGradient._transform;
  for (const VYRPrintGradientStop* pStop : iGradient._stops) {
    VYRPrintGradientStop* pCopy = new (std::nothrow) VYRPrintGradientStop(*pStop);
    if (!VYR_CHECK_POINTER(pCopy)) return;
    if (AddStop(pCopy) < 0) delete pCopy;
  }
}

VYRPrintGradientStop* VYRPrintGradient::GetStop(int i_index) const { return _stops[i_index]; }

int VYRPrintGradient::AddStop(VYRPrintGradientStop* ipStop) {
  if (!VYR_CHECK_POINTER(ipStop)) return -1;
  for (int i = _stops.GetLength() - 1; i >= 0; --i)
    if (_stops.GetData()[i] == ipStop) return 0;
  return _stops.Append(ipStop) < 0 ? -1 : 1;
}

void VYRPrintGradient::EmptyStopList() {
  for (VYRPrintGradientStop* pStop : _stops) delete pStop;
  _stops.Clear();
}

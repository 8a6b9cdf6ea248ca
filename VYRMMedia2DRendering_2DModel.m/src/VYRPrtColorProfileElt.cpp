#include "VYRPrtColorProfileElt.h"

VYR_IMPLEMENT_CLASS(VYRPrtColorProfileElt, VYRBaseUnknown, "VYRMMedia2DRendering_2DModel")

VYRPrtColorProfileElt::VYRPrtColorProfileElt(const VYRUnicodeString& i_name, VYRMMColorProfile* i_pProfile)
    : _name(i_name), _pProfile(i_pProfile) {}

// The profile belongs to whoever registered it.
VYRPrtColorProfileElt::~VYRPrtColorProfileElt() { _pProfile = nullptr; }

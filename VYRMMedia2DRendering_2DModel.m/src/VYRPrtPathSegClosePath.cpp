#include "VYRPrtPathSegClosePath.h"

#include <new>

VYRPrtPathSeg* VYRPrtPathSegClosePath::Duplicate() const { return new (std::nothrow) VYRPrtPathSegClosePath(*this); }

VYRPrtPathSegStreamType VYRPrtPathSegClosePath::GetStreamType() const { return kPathSegStreamTypeClosePath; }

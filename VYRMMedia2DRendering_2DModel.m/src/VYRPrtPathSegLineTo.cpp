#include "VYRPrtPathSegLineTo.h"

#include <new>

VYRPrtPathSeg* VYRPrtPathSegLineTo::Duplicate() const { return new (std::nothrow) VYRPrtPathSegLineTo(*this); }

MM2D::PathSegType VYRPrtPathSegLineTo::GetPathSegType() const { return TypeByMode(MM2D::PathSegLineToAbs); }

VYRPrtPathSegStreamType VYRPrtPathSegLineTo::GetStreamType() const { return kPathSegStreamTypeLineTo; }

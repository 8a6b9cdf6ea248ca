#include "VYRPrtPathSegMoveTo.h"

#include <new>

VYRPrtPathSeg* VYRPrtPathSegMoveTo::Duplicate() const { return new (std::nothrow) VYRPrtPathSegMoveTo(*this); }

MM2D::PathSegType VYRPrtPathSegMoveTo::GetPathSegType() const { return TypeByMode(MM2D::PathSegMoveToAbs); }

VYRPrtPathSegStreamType VYRPrtPathSegMoveTo::GetStreamType() const { return kPathSegStreamTypeMoveTo; }

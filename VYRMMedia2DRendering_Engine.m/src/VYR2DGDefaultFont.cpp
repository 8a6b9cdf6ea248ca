#include "VYR2DGDefaultFont.h"

#if __has_include("VYRFont.h")
#include "VYRFont.h"
VYRFont* VYR2DGGetDefaultFont() { return VYRFont::sGetFont(VYRFont::sGetDefaultFont(), 0); }
#else
// The platform font class is not in this build yet: no default font.
VYRFont* VYR2DGGetDefaultFont() { return nullptr; }
#endif

#pragma once

class VYRFont;

// The platform's default font, or null when the platform names none. Kept in
// one place so that the drawing does not depend on how the platform finds it.
VYRFont* VYR2DGGetDefaultFont();

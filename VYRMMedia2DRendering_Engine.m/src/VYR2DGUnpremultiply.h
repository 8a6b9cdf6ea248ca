#pragma once

#include "VYRExport.h"

#include <cstddef>
#include <cstdint>

// Scale that undoes premultiplication by alpha a: 255 / a in 8.24 fixed point,
// rounded. Entry 0 is 0.
VYR_EXPORT uint32_t VYR2DGUnpremultiplyScale(unsigned i_alpha);

// One premultiplied 0xAARRGGBB pixel to straight 0xAARRGGBB: each colour
// channel c becomes (c * scale(a) + 2^23) >> 24. Alpha 0 and 255 leave the
// pixel as it is.
VYR_EXPORT uint32_t VYR2DGUnpremultiplyPixel(uint32_t i_premultiplied);

// i_count premultiplied pixels (bytes B, G, R, A) to straight R, G, B, A bytes.
VYR_EXPORT void VYR2DGUnpremultiplyRow(const unsigned char* i_pPixels, size_t i_count, unsigned char* o_pRgba);

#pragma once

#include "VYRExport.h"
#include "VYRPixelImage.h"
#include "VYRStatus.h"

// PNG encoding of pixel images, to and from memory.

// Options of ReadMemoryPNGPixelImage.
enum VYRPNGReadOptions : int {
  VYRPNGRead_ClosestFormat = 0,   // grey, grey+alpha, RGB or straight RGBA, as the PNG holds
  VYRPNGRead_Premultiplied = 1,   // images with alpha come back as BGRA32Premultiplied
};

// Encodes the image as an 8-bit PNG (grey, grey+alpha, RGB or RGBA as the format is;
// premultiplied pixels are unpremultiplied) with its pixel sizes as the physical pixel
// dimensions. On success returns VYR_S_OK and a block made with new[] (the caller frees
// it with delete[]) and its length. Otherwise returns a failure, *o_ppBytes = null and
// *o_pLength = 0. i_options is reserved and must be 0.
VYR_EXPORT VYRStatus WriteToMemoryPNGPixelImage(const VYRPixelImage* i_pImage, unsigned char** o_ppBytes,
                                                int* o_pLength, int i_options);

// Decodes a PNG of any colour type, bit depth and interlacing: palettes are expanded,
// 16-bit samples rounded to 8 bits, low bit depths widened, transparency chunks become
// alpha. Returns a new unlocked image (one reference, owned by the caller) whose pixel
// sizes come from the physical pixel dimensions when the PNG has them, or null for
// damaged or truncated data, or when the image would exceed
// VYRPixelImage::GetMaximumByteCount(); such input is expected (streams can be damaged),
// so null is its only report. i_options is a VYRPNGReadOptions value.
VYR_EXPORT VYRPixelImage* ReadMemoryPNGPixelImage(const unsigned char* i_pBytes, int i_length, int i_options);

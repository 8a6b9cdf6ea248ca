#include "VYRPixelImagePNG.h"

#include <png.h>

#include <climits>
#include <cmath>
#include <csetjmp>
#include <cstdlib>
#include <cstring>
#include <new>

#include "VYRAssert.h"

// libpng reports a fault by a long jump back to the setjmp of the function driving it.
// Those functions (DecodePNG_, EncodePNG_) therefore hold no object with a destructor:
// whatever they allocate hangs on a plain state record that their caller cleans up.
// Damaged data is an expected outcome (null), so libpng's messages are silenced.

namespace {

void JumpOnError(png_structp i_png, png_const_charp) { png_longjmp(i_png, 1); }
void IgnoreWarning(png_structp, png_const_charp) {}

int ColorTypeOf(VYRPixelImageFormat i_format) {
  switch (i_format) {
    case VYRPixelImageFormat_Grey8: return PNG_COLOR_TYPE_GRAY;
    case VYRPixelImageFormat_GreyAlpha16: return PNG_COLOR_TYPE_GRAY_ALPHA;
    case VYRPixelImageFormat_RGB24: return PNG_COLOR_TYPE_RGB;
    case VYRPixelImageFormat_RGBA32:
    case VYRPixelImageFormat_BGRA32Premultiplied: return PNG_COLOR_TYPE_RGBA;
  }
  return -1;
}

VYRPixelImageFormat FormatWithChannels(int i_channels) {
  switch (i_channels) {
    case 1: return VYRPixelImageFormat_Grey8;
    case 2: return VYRPixelImageFormat_GreyAlpha16;
    case 3: return VYRPixelImageFormat_RGB24;
    default: return VYRPixelImageFormat_RGBA32;
  }
}

// ---- Decoding

struct MemoryReader {
  const unsigned char* bytes;
  size_t length;
  size_t offset;
};

void ReadFromMemory(png_structp i_png, png_bytep o_bytes, png_size_t i_count) {
  auto* reader = static_cast<MemoryReader*>(png_get_io_ptr(i_png));
  if (i_count > reader->length - reader->offset) png_error(i_png, "truncated");
  std::memcpy(o_bytes, reader->bytes + reader->offset, i_count);
  reader->offset += i_count;
}

struct DecodeState {
  png_structp png = nullptr;
  png_infop info = nullptr;
  MemoryReader reader{};
  VYRPixelImage* image = nullptr;
  png_bytep* rows = nullptr;
};

// The channels the read will deliver once palettes, low depths and transparency are expanded.
int ExpandedChannels(int i_colorType, bool i_hasTransparency) {
  switch (i_colorType) {
    case PNG_COLOR_TYPE_GRAY: return i_hasTransparency ? 2 : 1;
    case PNG_COLOR_TYPE_GRAY_ALPHA: return 2;
    case PNG_COLOR_TYPE_RGB:
    case PNG_COLOR_TYPE_PALETTE: return i_hasTransparency ? 4 : 3;
    default: return 4;
  }
}

bool DecodePNG_(DecodeState* io_state) {
  png_structp png = io_state->png;
  png_infop info = io_state->info;
  if (setjmp(png_jmpbuf(png))) return false;

  png_set_read_fn(png, &io_state->reader, ReadFromMemory);
  // Our own byte limit decides what is too large, not libpng's default dimension limits.
  png_set_user_limits(png, PNG_UINT_31_MAX, PNG_UINT_31_MAX);
  png_read_info(png, info);

  png_uint_32 width = 0, height = 0;
  int bitDepth = 0, colorType = 0, interlace = 0;
  png_get_IHDR(png, info, &width, &height, &bitDepth, &colorType, &interlace, nullptr, nullptr);
  const bool hasTransparency = png_get_valid(png, info, PNG_INFO_tRNS) != 0;
  const VYRPixelImageFormat format = FormatWithChannels(ExpandedChannels(colorType, hasTransparency));
  // Refuse before libpng or we allocate anything of the image's size.
  if (width > INT_MAX || height > INT_MAX ||
      VYRPixelImage::ComputeByteCount(static_cast<int>(width), static_cast<int>(height), format) == 0)
    return false;

  if (bitDepth == 16) png_set_scale_16(png);
  if (colorType == PNG_COLOR_TYPE_PALETTE) png_set_palette_to_rgb(png);
  if (colorType == PNG_COLOR_TYPE_GRAY && bitDepth < 8) png_set_expand_gray_1_2_4_to_8(png);
  if (hasTransparency) png_set_tRNS_to_alpha(png);
  png_set_interlace_handling(png);
  png_read_update_info(png, info);
  if (png_get_channels(png, info) != VYRPixelImage::GetBytesPerPixel(format) || png_get_bit_depth(png, info) != 8)
    return false;

  io_state->image = new (std::nothrow) VYRPixelImage(static_cast<int>(width), static_cast<int>(height), format);
  if (!io_state->image || io_state->image->IsEmpty()) return false;
  io_state->rows = new (std::nothrow) png_bytep[height];
  if (!io_state->rows) return false;
  unsigned char* pixels = io_state->image->GetPixelsToModify();
  const size_t stride = static_cast<size_t>(io_state->image->GetRowStride());
  for (png_uint_32 y = 0; y < height; ++y) io_state->rows[y] = pixels + y * stride;
  png_read_image(png, io_state->rows);
  png_read_end(png, nullptr);

  png_uint_32 xPixelsPerUnit = 0, yPixelsPerUnit = 0;
  int unit = PNG_RESOLUTION_UNKNOWN;
  if (png_get_pHYs(png, info, &xPixelsPerUnit, &yPixelsPerUnit, &unit) && unit == PNG_RESOLUTION_METER &&
      xPixelsPerUnit > 0 && yPixelsPerUnit > 0) {
    io_state->image->SetXPixelSize(static_cast<float>(1000.0 / xPixelsPerUnit));
    io_state->image->SetYPixelSize(static_cast<float>(1000.0 / yPixelsPerUnit));
  }
  return true;
}

// ---- Encoding

struct MemoryWriter {
  unsigned char* bytes;  // malloc'd, grown as libpng writes
  size_t length;
  size_t capacity;
};

void WriteToMemory(png_structp i_png, png_bytep i_bytes, png_size_t i_count) {
  auto* writer = static_cast<MemoryWriter*>(png_get_io_ptr(i_png));
  if (i_count > INT_MAX - writer->length) png_error(i_png, "too large");
  if (writer->length + i_count > writer->capacity) {
    size_t capacity = writer->capacity ? writer->capacity : 4096;
    while (capacity < writer->length + i_count) capacity *= 2;
    void* grown = std::realloc(writer->bytes, capacity);
    if (!grown) png_error(i_png, "out of memory");
    writer->bytes = static_cast<unsigned char*>(grown);
    writer->capacity = capacity;
  }
  std::memcpy(writer->bytes + writer->length, i_bytes, i_count);
  writer->length += i_count;
}

void FlushNothing(png_structp) {}

struct EncodeState {
  png_structp png = nullptr;
  png_infop info = nullptr;
  MemoryWriter writer{};
  unsigned char* straightRow = nullptr;  // one unpremultiplied row, for premultiplied images
};

png_uint_32 PixelsPerMetre(float i_pixelSizeMillimetres) {
  const double perMetre = std::round(1000.0 / i_pixelSizeMillimetres);
  return perMetre < 1.0 ? 1u : perMetre > PNG_UINT_31_MAX ? PNG_UINT_31_MAX : static_cast<png_uint_32>(perMetre);
}

bool EncodePNG_(EncodeState* io_state, const VYRPixelImage* i_pImage) {
  png_structp png = io_state->png;
  png_infop info = io_state->info;
  if (setjmp(png_jmpbuf(png))) return false;

  png_set_write_fn(png, &io_state->writer, WriteToMemory, FlushNothing);
  const int width = i_pImage->GetWidth(), height = i_pImage->GetHeight();
  const VYRPixelImageFormat format = i_pImage->GetFormat();
  png_set_IHDR(png, info, width, height, 8, ColorTypeOf(format), PNG_INTERLACE_NONE, PNG_COMPRESSION_TYPE_DEFAULT,
               PNG_FILTER_TYPE_DEFAULT);
  png_set_pHYs(png, info, PixelsPerMetre(i_pImage->GetXPixelSize()), PixelsPerMetre(i_pImage->GetYPixelSize()),
               PNG_RESOLUTION_METER);
  png_write_info(png, info);

  const size_t stride = static_cast<size_t>(i_pImage->GetRowStride());
  const bool premultiplied = format == VYRPixelImageFormat_BGRA32Premultiplied;
  if (premultiplied) {
    io_state->straightRow = static_cast<unsigned char*>(std::malloc(stride));
    if (!io_state->straightRow) return false;
  }
  for (int y = 0; y < height; ++y) {
    const unsigned char* row = i_pImage->GetPixels() + y * stride;
    if (premultiplied) {
      unsigned char* straight = io_state->straightRow;
      for (int x = 0; x < width; ++x, row += 4, straight += 4) {
        const unsigned char alpha = row[3];
        straight[0] = VYRPixelImage::UnpremultiplyComponent(row[2], alpha);
        straight[1] = VYRPixelImage::UnpremultiplyComponent(row[1], alpha);
        straight[2] = VYRPixelImage::UnpremultiplyComponent(row[0], alpha);
        straight[3] = alpha;
      }
      row = io_state->straightRow;
    }
    png_write_row(png, const_cast<png_bytep>(row));
  }
  png_write_end(png, nullptr);
  return true;
}

}  // namespace

VYRStatus WriteToMemoryPNGPixelImage(const VYRPixelImage* i_pImage, unsigned char** o_ppBytes, int* o_pLength,
                                     int i_options) {
  if (!VYR_CHECK_POINTER(o_ppBytes) || !VYR_CHECK_POINTER(o_pLength)) return VYR_E_INVALIDARG;
  *o_ppBytes = nullptr;
  *o_pLength = 0;
  if (!VYR_CHECK_POINTER(i_pImage) || !VYR_CHECK_CONDITION(!i_pImage->IsEmpty()) ||
      !VYR_CHECK_CONDITION(i_options == 0))
    return VYR_E_INVALIDARG;

  EncodeState state;
  state.png = png_create_write_struct(PNG_LIBPNG_VER_STRING, nullptr, JumpOnError, IgnoreWarning);
  if (state.png) state.info = png_create_info_struct(state.png);
  const bool encoded = state.info && EncodePNG_(&state, i_pImage);
  png_destroy_write_struct(state.png ? &state.png : nullptr, state.info ? &state.info : nullptr);
  std::free(state.straightRow);

  VYRStatus status = VYR_E_FAIL;
  if (encoded) {
    unsigned char* bytes = new (std::nothrow) unsigned char[state.writer.length];
    if (VYR_CHECK_POINTER_TEXT(bytes, "pPNGBytes")) {
      std::memcpy(bytes, state.writer.bytes, state.writer.length);
      *o_ppBytes = bytes;
      *o_pLength = static_cast<int>(state.writer.length);
      status = VYR_S_OK;
    } else {
      status = VYR_E_OUTOFMEMORY;
    }
  }
  std::free(state.writer.bytes);
  return status;
}

VYRPixelImage* ReadMemoryPNGPixelImage(const unsigned char* i_pBytes, int i_length, int i_options) {
  if (!i_pBytes || i_length < 8 || png_sig_cmp(i_pBytes, 0, 8) != 0) return nullptr;

  DecodeState state;
  state.reader = {i_pBytes, static_cast<size_t>(i_length), 0};
  state.png = png_create_read_struct(PNG_LIBPNG_VER_STRING, nullptr, JumpOnError, IgnoreWarning);
  if (state.png) state.info = png_create_info_struct(state.png);
  const bool decoded = state.info && DecodePNG_(&state);
  png_destroy_read_struct(state.png ? &state.png : nullptr, state.info ? &state.info : nullptr, nullptr);
  delete[] state.rows;

  VYRPixelImage* image = state.image;
  if (!decoded) {
    if (image) image->Release();
    return nullptr;
  }
  const VYRPixelImageFormat format = image->GetFormat();
  const bool hasAlpha = format == VYRPixelImageFormat_GreyAlpha16 || format == VYRPixelImageFormat_RGBA32;
  if ((i_options & VYRPNGRead_Premultiplied) && hasAlpha) {
    VYRPixelImage* premultiplied = image->ConvertTo(VYRPixelImageFormat_BGRA32Premultiplied);
    image->Release();
    image = premultiplied;
  }
  return image;
}

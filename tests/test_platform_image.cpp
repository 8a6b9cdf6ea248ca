#include <gtest/gtest.h>
#include <png.h>

#include <climits>
#include <csetjmp>
#include <cstring>
#include <random>
#include <vector>

#include "AssertionCapture.h"
#include "VYRPixelImage.h"
#include "VYRPixelImagePNG.h"

namespace {

using Bytes = std::vector<unsigned char>;

const VYRPixelImageFormat kAllFormats[] = {VYRPixelImageFormat_Grey8, VYRPixelImageFormat_GreyAlpha16,
                                           VYRPixelImageFormat_RGB24, VYRPixelImageFormat_RGBA32,
                                           VYRPixelImageFormat_BGRA32Premultiplied};

Bytes PixelsOf(const VYRPixelImage& i_image) {
  return Bytes(i_image.GetPixels(), i_image.GetPixels() + i_image.GetByteCount());
}

// An image of random pixels; premultiplied ones are kept valid (colour <= alpha).
VYRPixelImage* RandomImage(int i_width, int i_height, VYRPixelImageFormat i_format, unsigned i_seed) {
  auto* image = new VYRPixelImage(i_width, i_height, i_format);
  std::mt19937 random(i_seed);
  unsigned char* p = image->GetPixelsToModify();
  for (size_t i = 0; i < image->GetByteCount(); ++i) p[i] = static_cast<unsigned char>(random());
  if (i_format == VYRPixelImageFormat_BGRA32Premultiplied)
    for (size_t i = 0; i < image->GetByteCount(); i += 4)
      for (int c = 0; c < 3; ++c) p[i + c] = static_cast<unsigned char>(p[i + c] % (p[i + 3] + 1));
  return image;
}

Bytes EncodePNG(const VYRPixelImage* i_image) {
  unsigned char* bytes = nullptr;
  int length = 0;
  EXPECT_EQ(WriteToMemoryPNGPixelImage(i_image, &bytes, &length, 0), VYR_S_OK);
  Bytes result(bytes, bytes + length);
  delete[] bytes;
  return result;
}

VYRPixelImage* DecodePNG(const Bytes& i_bytes, int i_options = VYRPNGRead_ClosestFormat) {
  return ReadMemoryPNGPixelImage(i_bytes.data(), static_cast<int>(i_bytes.size()), i_options);
}

// A PNG written by libpng itself, for the colour types and depths we never write.
struct RawPNG {
  int width = 0, height = 0, bitDepth = 8, colorType = PNG_COLOR_TYPE_GRAY;
  bool interlaced = false;
  std::vector<Bytes> rows;  // packed samples as the PNG stores them (16-bit big-endian)
  std::vector<png_color> palette;
  Bytes paletteAlpha;
  bool hasTransparentColor = false;
  png_color_16 transparentColor{};
};

void AppendToBytes(png_structp i_png, png_bytep i_data, png_size_t i_length) {
  auto* out = static_cast<Bytes*>(png_get_io_ptr(i_png));
  out->insert(out->end(), i_data, i_data + i_length);
}

bool WriteRawPNGInto(const RawPNG& i_layout, Bytes* o_bytes, std::vector<png_bytep>* io_rows) {
  png_structp png = png_create_write_struct(PNG_LIBPNG_VER_STRING, nullptr, nullptr, nullptr);
  png_infop info = png_create_info_struct(png);
  if (setjmp(png_jmpbuf(png))) {
    png_destroy_write_struct(&png, &info);
    return false;
  }
  png_set_write_fn(png, o_bytes, AppendToBytes, nullptr);
  png_set_IHDR(png, info, i_layout.width, i_layout.height, i_layout.bitDepth, i_layout.colorType,
               i_layout.interlaced ? PNG_INTERLACE_ADAM7 : PNG_INTERLACE_NONE, PNG_COMPRESSION_TYPE_DEFAULT,
               PNG_FILTER_TYPE_DEFAULT);
  if (!i_layout.palette.empty())
    png_set_PLTE(png, info, i_layout.palette.data(), static_cast<int>(i_layout.palette.size()));
  if (!i_layout.paletteAlpha.empty())
    png_set_tRNS(png, info, i_layout.paletteAlpha.data(), static_cast<int>(i_layout.paletteAlpha.size()), nullptr);
  if (i_layout.hasTransparentColor) png_set_tRNS(png, info, nullptr, 0, &i_layout.transparentColor);
  png_write_info(png, info);
  png_write_image(png, io_rows->data());
  png_write_end(png, nullptr);
  png_destroy_write_struct(&png, &info);
  return true;
}

Bytes WriteRawPNG(RawPNG i_layout) {
  Bytes bytes;
  std::vector<png_bytep> rows;
  for (Bytes& row : i_layout.rows) rows.push_back(row.data());
  EXPECT_TRUE(WriteRawPNGInto(i_layout, &bytes, &rows));
  return bytes;
}

uint32_t Crc32(const unsigned char* i_data, size_t i_length) {
  uint32_t crc = 0xFFFFFFFFu;
  for (size_t i = 0; i < i_length; ++i) {
    crc ^= i_data[i];
    for (int k = 0; k < 8; ++k) crc = (crc >> 1) ^ (0xEDB88320u & (0u - (crc & 1u)));
  }
  return ~crc;
}

void PutBigEndian(Bytes& io_bytes, size_t i_at, uint32_t i_value) {
  for (int i = 0; i < 4; ++i) io_bytes[i_at + i] = static_cast<unsigned char>(i_value >> (24 - 8 * i));
}

}  // namespace

// ---- Construction, sizes and ownership

TEST(PixelImage, NewImageIsZeroedWithPackedRows) {
  for (VYRPixelImageFormat format : kAllFormats) {
    VYRPixelImage image(5, 3, format);
    const int bytesPerPixel = VYRPixelImage::GetBytesPerPixel(format);
    EXPECT_EQ(image.GetbytesPerPixel(), bytesPerPixel);
    EXPECT_EQ(image.GetRowStride(), 5 * bytesPerPixel);
    EXPECT_EQ(image.GetByteCount(), size_t(15 * bytesPerPixel));
    EXPECT_EQ(PixelsOf(image), Bytes(15 * bytesPerPixel, 0));
  }
  const int expectedBytes[] = {1, 2, 3, 4, 4};
  for (int format = 0; format < 5; ++format)
    EXPECT_EQ(VYRPixelImage::GetBytesPerPixel(static_cast<VYRPixelImageFormat>(format)), expectedBytes[format]);
  VYRPixelImage image;
  EXPECT_TRUE(image.IsEmpty());
  EXPECT_FLOAT_EQ(image.GetXPixelSize(), 25.4f / 96.0f);
  EXPECT_FLOAT_EQ(image.GetYPixelSize(), 25.4f / 96.0f);
}

TEST(PixelImage, BadSizesGiveAnEmptyImageWithAReport) {
  const size_t defaultLimit = VYRPixelImage::GetMaximumByteCount();
  EXPECT_EQ(defaultLimit, size_t(256) << 20);
  struct Case {
    int width, height, format;
    const char* report;
  } cases[] = {
      {0, 4, VYRPixelImageFormat_RGB24, "i_width > 0 && i_height > 0"},
      {4, -1, VYRPixelImageFormat_RGB24, "i_width > 0 && i_height > 0"},
      {4, 4, 5, "IsValidFormat(i_format)"},
      {4, 4, -1, "IsValidFormat(i_format)"},
      {INT_MAX, INT_MAX, VYRPixelImageFormat_RGBA32, "byteCount <= GetMaximumByteCount()"},
      {INT_MAX / 2 + 1, 1, VYRPixelImageFormat_RGBA32, "byteCount <= GetMaximumByteCount()"},
      {8193, 8192, VYRPixelImageFormat_RGBA32, "byteCount <= GetMaximumByteCount()"},
  };
  for (const Case& c : cases) {
    AssertionCapture capture;
    VYRPixelImage image(c.width, c.height, static_cast<VYRPixelImageFormat>(c.format));
    EXPECT_TRUE(image.IsEmpty()) << c.width << "x" << c.height;
    EXPECT_EQ(image.GetWidth(), 0);
    EXPECT_TRUE(capture.Has(c.report)) << c.report;
  }
  // Exactly at the limit is accepted; the host may lower it.
  EXPECT_EQ(VYRPixelImage::ComputeByteCount(8192, 8192, VYRPixelImageFormat_RGBA32), defaultLimit);
  VYRPixelImage::SetMaximumByteCount(100);
  {
    AssertionCapture capture;
    EXPECT_FALSE(VYRPixelImage(10, 10, VYRPixelImageFormat_Grey8).IsEmpty());
    EXPECT_TRUE(VYRPixelImage(11, 10, VYRPixelImageFormat_Grey8).IsEmpty());
    EXPECT_TRUE(capture.Has("byteCount <= GetMaximumByteCount()"));
  }
  VYRPixelImage::SetMaximumByteCount(defaultLimit);
}

TEST(PixelImage, OwnershipModes) {
  unsigned char pixels[6] = {1, 2, 3, 4, 5, 6};
  // Copy: the caller's block can change or go; the image keeps its own bytes.
  auto* copied = new VYRPixelImage(2, 1, VYRPixelImageFormat_RGB24, pixels, VYRDeallocatePixels_ImageCopiesPixels);
  EXPECT_NE(copied->GetPixels(), pixels);
  pixels[0] = 99;
  EXPECT_EQ(PixelsOf(*copied), (Bytes{1, 2, 3, 4, 5, 6}));
  copied->Release();

  // Caller keeps: the image works on the caller's bytes and does not free them
  // (a stack block: freeing it would be caught at once under the sanitizers).
  auto* borrowed = new VYRPixelImage(2, 1, VYRPixelImageFormat_RGB24, pixels, VYRDeallocatePixels_CallerKeepsPixels);
  EXPECT_EQ(borrowed->GetPixels(), pixels);
  borrowed->GetPixelsToModify()[1] = 42;
  EXPECT_EQ(pixels[1], 42);
  borrowed->Release();

  // Image deletes: the block is freed with the image (a leak shows under the sanitizers).
  auto* heapPixels = new unsigned char[6]{7, 8, 9, 10, 11, 12};
  auto* owning = new VYRPixelImage(2, 1, VYRPixelImageFormat_RGB24, heapPixels, VYRDeallocatePixels_ImageDeletesPixels);
  EXPECT_EQ(owning->GetPixels(), heapPixels);
  owning->Release();
}

TEST(PixelImage, RefusedPixelsAreReportedAndOwnedBlocksStillFreed) {
  AssertionCapture capture;
  unsigned char pixels[4] = {};
  VYRPixelImage tooSmall(2, 2, VYRPixelImageFormat_Grey8, pixels, VYRDeallocatePixels_ImageCopiesPixels, 3);
  EXPECT_TRUE(tooSmall.IsEmpty());
  EXPECT_TRUE(capture.Has("i_availableByteCount < 0 || static_cast<unsigned long long>(i_availableByteCount) >= byteCount"));
  VYRPixelImage exact(2, 2, VYRPixelImageFormat_Grey8, pixels, VYRDeallocatePixels_ImageCopiesPixels, 4);
  EXPECT_FALSE(exact.IsEmpty());
  VYRPixelImage noPixels(2, 2, VYRPixelImageFormat_Grey8, nullptr, VYRDeallocatePixels_ImageCopiesPixels);
  EXPECT_TRUE(capture.Has("i_pPixels"));
  VYRPixelImage badMode(2, 2, VYRPixelImageFormat_Grey8, pixels, static_cast<VYRDeallocatePixels>(3));
  EXPECT_TRUE(badMode.IsEmpty());
  // Handed over, then refused for its size: still freed (a leak shows under the sanitizers).
  VYRPixelImage refused(0, 2, VYRPixelImageFormat_Grey8, new unsigned char[4], VYRDeallocatePixels_ImageDeletesPixels);
  EXPECT_TRUE(refused.IsEmpty());
}

TEST(PixelImage, LockedImageRefusesModification) {
  VYRPixelImage image(2, 2, VYRPixelImageFormat_RGBA32);
  image.LockAsReadOnly();
  EXPECT_TRUE(image.IsReadOnly());
  {
    AssertionCapture capture;
    EXPECT_EQ(image.GetPixelsToModify(), nullptr);
    EXPECT_EQ(capture.FailedConditions(), std::vector<std::string>{"!IsReadOnly()"});
  }
  EXPECT_NE(image.GetPixels(), nullptr);
  image.Unlock();
  EXPECT_FALSE(image.IsReadOnly());
  EXPECT_EQ(image.GetPixelsToModify(), image.GetPixels());
}

TEST(PixelImage, DuplicateOwnsItsPixelsAndKeepsItsState) {
  VYRPixelImage* original = RandomImage(3, 2, VYRPixelImageFormat_RGBA32, 1);
  original->SetXPixelSize(0.5f);
  original->SetYPixelSize(0.25f);
  original->LockAsReadOnly();
  VYRPixelImage* copy = original->Duplicate();
  ASSERT_NE(copy, nullptr);
  EXPECT_EQ(copy->GetRefCount(), 1u);
  EXPECT_NE(copy->GetPixels(), original->GetPixels());
  EXPECT_EQ(PixelsOf(*copy), PixelsOf(*original));
  EXPECT_TRUE(copy->IsReadOnly());
  EXPECT_FLOAT_EQ(copy->GetXPixelSize(), 0.5f);
  EXPECT_FLOAT_EQ(copy->GetYPixelSize(), 0.25f);

  const Bytes before = PixelsOf(*original);
  copy->Unlock();
  copy->GetPixelsToModify()[0] ^= 0xFF;
  EXPECT_EQ(PixelsOf(*original), before);
  copy->Release();
  original->Release();
  EXPECT_EQ(VYRPixelImage().Duplicate(), nullptr);
}

TEST(PixelImage, PixelSizesRefuseNonsense) {
  VYRPixelImage image(1, 1, VYRPixelImageFormat_Grey8);
  AssertionCapture capture;
  image.SetXPixelSize(0.0f);
  image.SetYPixelSize(-1.0f);
  image.SetXPixelSize(std::numeric_limits<float>::quiet_NaN());
  EXPECT_EQ(capture.FailedConditions().size(), 3u);
  EXPECT_FLOAT_EQ(image.GetXPixelSize(), 25.4f / 96.0f);
  EXPECT_FLOAT_EQ(image.GetYPixelSize(), 25.4f / 96.0f);
}

// ---- Colours and alpha

TEST(PixelImage, ColorAtPixelGivesStraightRGBAForEveryFormat) {
  struct Case {
    VYRPixelImageFormat format;
    Bytes pixel;
    Bytes rgba;
  } cases[] = {
      {VYRPixelImageFormat_Grey8, {77}, {77, 77, 77, 255}},
      {VYRPixelImageFormat_GreyAlpha16, {77, 9}, {77, 77, 77, 9}},
      {VYRPixelImageFormat_RGB24, {10, 20, 30}, {10, 20, 30, 255}},
      {VYRPixelImageFormat_RGBA32, {10, 20, 30, 40}, {10, 20, 30, 40}},
      // Memory order blue, green, red, alpha; colours multiplied by alpha 128.
      {VYRPixelImageFormat_BGRA32Premultiplied, {25, 50, 100, 128}, {199, 100, 50, 128}},
  };
  for (const Case& c : cases) {
    VYRPixelImage image(2, 2, c.format);
    std::memcpy(image.GetPixelsToModify() + 3 * image.GetbytesPerPixel(), c.pixel.data(), c.pixel.size());
    unsigned char r, g, b, a;
    EXPECT_TRUE(image.GetColorAtPixel(1, 1, r, g, b, a));
    EXPECT_EQ((Bytes{r, g, b, a}), c.rgba) << c.format;
  }
}

TEST(PixelImage, ColorAtPixelOutsideReportsAndGivesTransparentBlack) {
  VYRPixelImage image(2, 3, VYRPixelImageFormat_RGB24);
  std::memset(image.GetPixelsToModify(), 200, image.GetByteCount());
  const int outside[][2] = {{-1, 0}, {2, 0}, {0, 3}, {0, -1}};
  for (const auto& xy : outside) {
    AssertionCapture capture;
    unsigned char r = 1, g = 1, b = 1, a = 1;
    EXPECT_FALSE(image.GetColorAtPixel(xy[0], xy[1], r, g, b, a));
    EXPECT_EQ((Bytes{r, g, b, a}), (Bytes{0, 0, 0, 0}));
    EXPECT_TRUE(capture.Has("i_x >= 0 && i_x < _width && i_y >= 0 && i_y < _height"));
  }
}

TEST(PixelImage, PremultiplicationRoundsToNearestAndRoundTrips) {
  for (int a = 0; a < 256; ++a) {
    for (int c = 0; c < 256; ++c) {
      const auto alpha = static_cast<unsigned char>(a), colour = static_cast<unsigned char>(c);
      ASSERT_EQ(VYRPixelImage::PremultiplyComponent(colour, alpha), (c * a + 127) / 255) << c << " " << a;
      const int expected = a == 0 ? 0 : std::min(255, (c * 255 + a / 2) / a);
      ASSERT_EQ(VYRPixelImage::UnpremultiplyComponent(colour, alpha), expected) << c << " " << a;
      if (c <= a) {
        ASSERT_EQ(VYRPixelImage::PremultiplyComponent(VYRPixelImage::UnpremultiplyComponent(colour, alpha), alpha), c)
            << c << " " << a;
      }
    }
  }
}

TEST(PixelImage, ConvertToPremultipliedWritesBlueGreenRedAlpha) {
  unsigned char rgba[] = {200, 100, 50, 128, 255, 0, 0, 255, 9, 9, 9, 0};
  VYRPixelImage straight(3, 1, VYRPixelImageFormat_RGBA32, rgba, VYRDeallocatePixels_CallerKeepsPixels);
  VYRPixelImage* premultiplied = straight.ConvertTo(VYRPixelImageFormat_BGRA32Premultiplied);
  ASSERT_NE(premultiplied, nullptr);
  EXPECT_EQ(PixelsOf(*premultiplied), (Bytes{25, 50, 100, 128, 0, 0, 255, 255, 0, 0, 0, 0}));
  VYRPixelImage* back = premultiplied->ConvertTo(VYRPixelImageFormat_RGBA32);
  EXPECT_EQ(PixelsOf(*back), (Bytes{199, 100, 50, 128, 255, 0, 0, 255, 0, 0, 0, 0}));
  VYRPixelImage* grey = straight.ConvertTo(VYRPixelImageFormat_GreyAlpha16);
  EXPECT_EQ(PixelsOf(*grey), (Bytes{124, 128, 76, 255, 9, 0}));
  VYRPixelImage* rgb = grey->ConvertTo(VYRPixelImageFormat_RGB24);
  EXPECT_EQ(PixelsOf(*rgb), (Bytes{124, 124, 124, 76, 76, 76, 9, 9, 9}));
  for (VYRPixelImage* image : {premultiplied, back, grey, rgb}) image->Release();
}

TEST(PixelImage, ConversionThroughStraightRGBAIsLossless) {
  for (VYRPixelImageFormat format : kAllFormats) {
    VYRPixelImage* image = RandomImage(9, 4, format, 40 + format);
    VYRPixelImage* straight = image->ConvertTo(VYRPixelImageFormat_RGBA32);
    ASSERT_NE(straight, nullptr);
    for (int y = 0; y < 4; ++y) {
      for (int x = 0; x < 9; ++x) {
        unsigned char rgba[4];
        image->GetColorAtPixel(x, y, rgba[0], rgba[1], rgba[2], rgba[3]);
        ASSERT_EQ(0, std::memcmp(rgba, straight->GetPixels() + (y * 9 + x) * 4, 4)) << format;
      }
    }
    VYRPixelImage* back = straight->ConvertTo(format);
    EXPECT_EQ(PixelsOf(*back), PixelsOf(*image)) << format;
    for (VYRPixelImage* i : {image, straight, back}) i->Release();
  }
}

// ---- PNG

TEST(PixelImagePNG, EveryFormatRoundTripsExactly) {
  for (VYRPixelImageFormat format : kAllFormats) {
    VYRPixelImage* image = RandomImage(13, 7, format, 100 + format);
    image->SetXPixelSize(0.5f);
    image->SetYPixelSize(0.1f);
    const Bytes png = EncodePNG(image);
    ASSERT_GT(png.size(), 8u);
    EXPECT_EQ(png_sig_cmp(png.data(), 0, 8), 0);

    VYRPixelImage* read = DecodePNG(png, format == VYRPixelImageFormat_BGRA32Premultiplied ? VYRPNGRead_Premultiplied : 0);
    ASSERT_NE(read, nullptr) << format;
    EXPECT_EQ(read->GetFormat(), format);
    EXPECT_EQ(read->GetWidth(), 13);
    EXPECT_EQ(read->GetHeight(), 7);
    EXPECT_FALSE(read->IsReadOnly());
    EXPECT_EQ(PixelsOf(*read), PixelsOf(*image)) << format;
    EXPECT_FLOAT_EQ(read->GetXPixelSize(), 0.5f);
    EXPECT_FLOAT_EQ(read->GetYPixelSize(), 0.1f);
    read->Release();
    image->Release();
  }
}

TEST(PixelImagePNG, PremultipliedImagesReadBackStraightUnlessAsked) {
  unsigned char pixels[] = {25, 50, 100, 128, 0, 0, 0, 0};
  VYRPixelImage image(2, 1, VYRPixelImageFormat_BGRA32Premultiplied, pixels, VYRDeallocatePixels_CallerKeepsPixels);
  VYRPixelImage* read = DecodePNG(EncodePNG(&image));
  ASSERT_NE(read, nullptr);
  EXPECT_EQ(read->GetFormat(), VYRPixelImageFormat_RGBA32);
  EXPECT_EQ(PixelsOf(*read), (Bytes{199, 100, 50, 128, 0, 0, 0, 0}));
  read->Release();
  // Images without alpha stay as they are even when premultiplication is asked.
  VYRPixelImage rgb(1, 1, VYRPixelImageFormat_RGB24);
  read = DecodePNG(EncodePNG(&rgb), VYRPNGRead_Premultiplied);
  EXPECT_EQ(read->GetFormat(), VYRPixelImageFormat_RGB24);
  read->Release();
}

TEST(PixelImagePNG, ForeignColourTypesReadAsTheClosestFormat) {
  struct Case {
    const char* name;
    RawPNG png;
    VYRPixelImageFormat format;
    Bytes pixels;
  };
  RawPNG palette;
  palette.width = 3, palette.height = 1, palette.colorType = PNG_COLOR_TYPE_PALETTE;
  palette.palette = {{255, 0, 0}, {0, 255, 0}, {0, 0, 255}};
  palette.paletteAlpha = {255, 128};
  palette.rows = {{2, 1, 0}};
  RawPNG palette2Bit = palette;
  palette2Bit.bitDepth = 2, palette2Bit.paletteAlpha.clear();
  palette2Bit.rows = {{0b10010000}};
  RawPNG grey1Bit;
  grey1Bit.width = 3, grey1Bit.height = 2, grey1Bit.bitDepth = 1;
  grey1Bit.rows = {{0b10100000}, {0b01000000}};
  RawPNG grey4BitTransparent;
  grey4BitTransparent.width = 2, grey4BitTransparent.height = 1, grey4BitTransparent.bitDepth = 4;
  grey4BitTransparent.hasTransparentColor = true, grey4BitTransparent.transparentColor.gray = 5;
  grey4BitTransparent.rows = {{0x5F}};
  RawPNG rgb16;
  rgb16.width = 1, rgb16.height = 1, rgb16.bitDepth = 16, rgb16.colorType = PNG_COLOR_TYPE_RGB;
  rgb16.rows = {{0xFF, 0xFF, 0x80, 0x80, 0x12, 0x34}};
  RawPNG greyAlpha16;
  greyAlpha16.width = 1, greyAlpha16.height = 1, greyAlpha16.bitDepth = 16;
  greyAlpha16.colorType = PNG_COLOR_TYPE_GRAY_ALPHA;
  greyAlpha16.rows = {{0x80, 0x80, 0x7F, 0x7F}};
  RawPNG rgbTransparent;
  rgbTransparent.width = 2, rgbTransparent.height = 1, rgbTransparent.colorType = PNG_COLOR_TYPE_RGB;
  rgbTransparent.hasTransparentColor = true;
  rgbTransparent.transparentColor.red = 1, rgbTransparent.transparentColor.green = 2,
  rgbTransparent.transparentColor.blue = 3;
  rgbTransparent.rows = {{1, 2, 3, 1, 2, 4}};

  const Case cases[] = {
      {"palette with transparency", palette, VYRPixelImageFormat_RGBA32,
       {0, 0, 255, 255, 0, 255, 0, 128, 255, 0, 0, 255}},
      {"2-bit palette", palette2Bit, VYRPixelImageFormat_RGB24, {0, 0, 255, 0, 255, 0, 255, 0, 0}},
      {"1-bit grey", grey1Bit, VYRPixelImageFormat_Grey8, {255, 0, 255, 0, 255, 0}},
      {"4-bit grey with transparent value", grey4BitTransparent, VYRPixelImageFormat_GreyAlpha16, {85, 0, 255, 255}},
      {"16-bit RGB", rgb16, VYRPixelImageFormat_RGB24, {255, 128, 18}},
      {"16-bit grey and alpha", greyAlpha16, VYRPixelImageFormat_GreyAlpha16, {128, 127}},
      {"RGB with transparent colour", rgbTransparent, VYRPixelImageFormat_RGBA32, {1, 2, 3, 0, 1, 2, 4, 255}},
  };
  for (const Case& c : cases) {
    VYRPixelImage* image = DecodePNG(WriteRawPNG(c.png));
    ASSERT_NE(image, nullptr) << c.name;
    EXPECT_EQ(image->GetFormat(), c.format) << c.name;
    EXPECT_EQ(PixelsOf(*image), c.pixels) << c.name;
    image->Release();
  }
}

TEST(PixelImagePNG, InterlacedImagesReadExactly) {
  VYRPixelImage* reference = RandomImage(11, 9, VYRPixelImageFormat_RGBA32, 7);
  RawPNG interlaced;
  interlaced.width = 11, interlaced.height = 9, interlaced.colorType = PNG_COLOR_TYPE_RGB_ALPHA;
  interlaced.interlaced = true;
  for (int y = 0; y < 9; ++y)
    interlaced.rows.emplace_back(reference->GetPixels() + y * 44, reference->GetPixels() + (y + 1) * 44);
  VYRPixelImage* image = DecodePNG(WriteRawPNG(interlaced));
  ASSERT_NE(image, nullptr);
  EXPECT_EQ(PixelsOf(*image), PixelsOf(*reference));
  image->Release();
  reference->Release();
}

TEST(PixelImagePNG, DamagedDataGivesNull) {
  VYRPixelImage* image = RandomImage(4, 3, VYRPixelImageFormat_RGBA32, 3);
  const Bytes png = EncodePNG(image);
  image->Release();
  AssertionCapture capture;
  for (size_t length = 0; length < png.size(); ++length)
    EXPECT_EQ(ReadMemoryPNGPixelImage(png.data(), static_cast<int>(length), 0), nullptr) << length;

  std::mt19937 random(5);
  for (int trial = 0; trial < 200; ++trial) {
    Bytes noise(48 + random() % 300);
    for (unsigned char& b : noise) b = static_cast<unsigned char>(random());
    // Half the trials keep a valid start, so the chunk parser sees the noise.
    if (trial % 2) std::copy(png.begin(), png.begin() + 8 + trial % 40, noise.begin());
    VYRPixelImage* read = DecodePNG(noise);
    if (read) read->Release();
  }
  // Flipped bytes in the image data.
  for (size_t at = 8; at < png.size(); at += 3) {
    Bytes damaged = png;
    damaged[at] ^= 0x5A;
    VYRPixelImage* read = DecodePNG(damaged);
    if (read) read->Release();
  }
  EXPECT_EQ(ReadMemoryPNGPixelImage(nullptr, 100, 0), nullptr);
  EXPECT_EQ(ReadMemoryPNGPixelImage(png.data(), -1, 0), nullptr);
  EXPECT_TRUE(capture.Reports().empty());
}

TEST(PixelImagePNG, HugeDeclaredSizeIsRefusedBeforeAllocation) {
  VYRPixelImage small(1, 1, VYRPixelImageFormat_RGBA32);
  const size_t ihdrData = 16;  // signature 8, length 4, type 4
  for (uint32_t side : {100000u, 0x7FFFFFFFu}) {
    Bytes png = EncodePNG(&small);
    PutBigEndian(png, ihdrData, side);
    PutBigEndian(png, ihdrData + 4, side);
    PutBigEndian(png, ihdrData + 13, Crc32(png.data() + 12, 17));
    EXPECT_EQ(DecodePNG(png), nullptr) << side;
  }
  // Within libpng's own limits but beyond ours.
  VYRPixelImage* image = RandomImage(16, 16, VYRPixelImageFormat_RGBA32, 9);
  const Bytes png = EncodePNG(image);
  VYRPixelImage::SetMaximumByteCount(1000);
  EXPECT_EQ(DecodePNG(png), nullptr);
  VYRPixelImage::SetMaximumByteCount(size_t(256) << 20);
  VYRPixelImage* read = DecodePNG(png);
  EXPECT_NE(read, nullptr);
  read->Release();
  image->Release();
}

TEST(PixelImagePNG, WritingReportsMisuse) {
  unsigned char* bytes = reinterpret_cast<unsigned char*>(1);
  int length = 5;
  AssertionCapture capture;
  EXPECT_LT(WriteToMemoryPNGPixelImage(nullptr, &bytes, &length, 0), 0);
  EXPECT_EQ(bytes, nullptr);
  EXPECT_EQ(length, 0);
  VYRPixelImage empty;
  EXPECT_LT(WriteToMemoryPNGPixelImage(&empty, &bytes, &length, 0), 0);
  EXPECT_LT(WriteToMemoryPNGPixelImage(&empty, nullptr, &length, 0), 0);
  EXPECT_EQ(capture.Expressions(), (std::vector<std::string>{"i_pImage", "!i_pImage->IsEmpty()", "o_ppBytes"}));
  // A locked image still encodes: encoding only reads.
  VYRPixelImage locked(2, 2, VYRPixelImageFormat_Grey8);
  locked.LockAsReadOnly();
  EXPECT_EQ(WriteToMemoryPNGPixelImage(&locked, &bytes, &length, 0), VYR_S_OK);
  delete[] bytes;
}

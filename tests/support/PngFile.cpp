#include "PngFile.h"

#include <png.h>

#include <cstdio>
#include <cstring>

namespace PngFile {

bool ReadRgba(const std::string& i_path, int& o_width, int& o_height, std::vector<uint8_t>& o_rgba) {
  png_image image;
  std::memset(&image, 0, sizeof image);
  image.version = PNG_IMAGE_VERSION;
  if (!png_image_begin_read_from_file(&image, i_path.c_str())) return false;
  image.format = PNG_FORMAT_RGBA;
  o_rgba.assign(PNG_IMAGE_SIZE(image), 0);
  if (!png_image_finish_read(&image, nullptr, o_rgba.data(), 0, nullptr)) {
    png_image_free(&image);
    return false;
  }
  o_width = static_cast<int>(image.width);
  o_height = static_cast<int>(image.height);
  return true;
}

bool WriteRgba(const std::string& i_path, int i_width, int i_height, const uint8_t* i_pRgba) {
  png_image image;
  std::memset(&image, 0, sizeof image);
  image.version = PNG_IMAGE_VERSION;
  image.width = static_cast<png_uint_32>(i_width);
  image.height = static_cast<png_uint_32>(i_height);
  image.format = PNG_FORMAT_RGBA;
  return png_image_write_to_file(&image, i_path.c_str(), 0, i_pRgba, 0, nullptr) != 0;
}

}  // namespace PngFile

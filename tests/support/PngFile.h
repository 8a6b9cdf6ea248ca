#pragma once

#include <cstdint>
#include <string>
#include <vector>

// Straight RGBA PNG files for tests that compare pixels with reference images.
namespace PngFile {

// Reads any PNG as 8-bit straight RGBA rows; false when it cannot be read.
bool ReadRgba(const std::string& i_path, int& o_width, int& o_height, std::vector<uint8_t>& o_rgba);
// Writes width x height straight RGBA pixels; false on failure.
bool WriteRgba(const std::string& i_path, int i_width, int i_height, const uint8_t* i_pRgba);

}  // namespace PngFile

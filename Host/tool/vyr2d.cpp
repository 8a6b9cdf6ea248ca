// Turns SVG documents into PNG images, saved models and bounding boxes:
//   vyr2d render in.svg out.png [--width W] [--height H]
//   vyr2d save in.svg out.model
//   vyr2d load in.model out.png [--width W] [--height H]
//   vyr2d bbox in.svg|in.model
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include <unistd.h>

#include "VYR2DGStringStream.h"
#include "VYRModelRenderer.h"
#include "VYRPixelImage.h"
#include "VYRPrintModelBoundingBoxComputer.h"
#include "VYRPrtModel.h"
#include "VYRSvgImporter.h"

namespace {

const char* const kUsage =
    "usage: vyr2d render in.svg out.png [--width W] [--height H]\n"
    "       vyr2d save in.svg out.model\n"
    "       vyr2d load in.model out.png [--width W] [--height H]\n"
    "       vyr2d bbox in.svg|in.model\n";

int Fail(const std::string& i_message) {
  std::fprintf(stderr, "vyr2d: %s\n", i_message.c_str());
  return 1;
}

bool EndsWith(const std::string& i_text, const std::string& i_suffix) {
  return i_text.size() >= i_suffix.size() && i_text.compare(i_text.size() - i_suffix.size(), i_suffix.size(), i_suffix) == 0;
}

// Reads an SVG document; the importer's messages go to standard error as warnings.
VYRPrtModel* ImportSvg(const std::string& i_path, std::string& o_error) {
  VYRSvgImporter importer;
  VYRPrtModel* pModel = importer.ImportFile(i_path);
  for (const std::string& message : importer.GetMessages()) {
    std::fprintf(stderr, "vyr2d: %s: %s\n", i_path.c_str(), message.c_str());
  }
  if (!importer.Succeeded()) {
    pModel->Release();
    o_error = "cannot read " + i_path;
    return nullptr;
  }
  return pModel;
}

VYRPrtModel* LoadModel(const std::string& i_path, std::string& o_error) {
  VYR2DGStringStream stream;
  if (!VYRSucceeded(stream.LoadFile(VYRUnicodeString(i_path)))) {
    o_error = "cannot read the model file " + i_path;
    return nullptr;
  }
  auto* pModel = new VYRPrtModel();
  pModel->Unstream(&stream);
  double width = 0.0, height = 0.0;
  if (stream.HasFailed() || !VYRModelRenderer::GetDocumentSize(*pModel, width, height)) {
    pModel->Release();
    o_error = i_path + " is not a readable model";
    return nullptr;
  }
  return pModel;
}

VYRPrtModel* ReadAny(const std::string& i_path, std::string& o_error) {
  return EndsWith(i_path, ".model") ? LoadModel(i_path, o_error) : ImportSvg(i_path, o_error);
}

// --width and --height after the two paths; false for anything else.
bool ParseSize(const std::vector<std::string>& i_args, size_t i_first, int& o_width, int& o_height) {
  for (size_t i = i_first; i < i_args.size(); i += 2) {
    if (i + 1 >= i_args.size()) return false;
    char* pEnd = nullptr;
    const long value = std::strtol(i_args[i + 1].c_str(), &pEnd, 10);
    if (*pEnd != '\0' || value <= 0 || value > 100000) return false;
    if (i_args[i] == "--width") {
      o_width = static_cast<int>(value);
    } else if (i_args[i] == "--height") {
      o_height = static_cast<int>(value);
    } else {
      return false;
    }
  }
  return true;
}

int WritePng(VYRPrtModel& i_model, const std::string& i_path, int i_width, int i_height) {
  std::string error;
  VYRPixelImage* pImage = VYRModelRenderer::RenderToImage(i_model, i_width, i_height, error);
  if (pImage == nullptr) return Fail(error);
  const bool written = VYRWritePngFile(pImage, i_path);
  std::printf("vyr2d: wrote %s (%d x %d)\n", i_path.c_str(), pImage->GetWidth(), pImage->GetHeight());
  pImage->Release();
  return written ? 0 : Fail("cannot write " + i_path);
}

int Render(const std::vector<std::string>& i_args, bool i_fromModel) {
  int width = 0, height = 0;
  if (i_args.size() < 3 || !ParseSize(i_args, 3, width, height)) return Fail(std::string("bad arguments\n") + kUsage);
  std::string error;
  VYRPrtModel* pModel = i_fromModel ? LoadModel(i_args[1], error) : ImportSvg(i_args[1], error);
  if (pModel == nullptr) return Fail(error);
  const int result = WritePng(*pModel, i_args[2], width, height);
  pModel->Release();
  return result;
}

int Save(const std::vector<std::string>& i_args) {
  if (i_args.size() != 3) return Fail(std::string("bad arguments\n") + kUsage);
  std::string error;
  VYRPrtModel* pModel = ImportSvg(i_args[1], error);
  if (pModel == nullptr) return Fail(error);
  VYR2DGStringStream stream;
  pModel->Stream(&stream);
  pModel->Release();
  if (!VYRSucceeded(stream.SaveInFile(VYRUnicodeString(i_args[2])))) return Fail("cannot write " + i_args[2]);
  std::printf("vyr2d: wrote %s (%d bytes)\n", i_args[2].c_str(), stream.GetSize());
  return 0;
}

int BoundingBox(const std::vector<std::string>& i_args) {
  if (i_args.size() != 2) return Fail(std::string("bad arguments\n") + kUsage);
  std::string error;
  VYRPrtModel* pModel = ReadAny(i_args[1], error);
  if (pModel == nullptr) return Fail(error);
  // The document's extent as the library measures the model (its images'
  // areas), then the extent of what it draws, path outlines included.
  double xmin = 0.0, xmax = 0.0, ymin = 0.0, ymax = 0.0;
  if (VYRPrintModelBoundingBoxComputer().Compute(pModel, xmin, xmax, ymin, ymax) == 1) {
    std::printf("document xmin %g xmax %g ymin %g ymax %g\n", xmin, xmax, ymin, ymax);
  }
  const bool drawn = VYRModelRenderer::GetDrawingBounds(*pModel, xmin, xmax, ymin, ymax);
  pModel->Release();
  if (!drawn) return Fail(i_args[1] + " draws nothing");
  std::printf("drawing xmin %g xmax %g ymin %g ymax %g\n", xmin, xmax, ymin, ymax);
  return 0;
}

// Without VYRInstallPath the build or installation tree holding this
// program is the root, so that documents never send for their DTD.
void DefaultInstallPath() {
  if (std::getenv("VYRInstallPath") != nullptr) return;
  char path[4096];
  const ssize_t length = readlink("/proc/self/exe", path, sizeof(path) - 1);
  if (length <= 0) return;
  std::string root(path, static_cast<size_t>(length));
  for (int up = 0; up < 2; ++up) root = root.substr(0, root.find_last_of('/'));
  setenv("VYRInstallPath", root.c_str(), 0);
}

}  // namespace

int main(int argc, char** argv) {
  const std::vector<std::string> args(argv + 1, argv + argc);
  if (args.empty()) return Fail(std::string("no command\n") + kUsage);
  DefaultInstallPath();
  const std::string& command = args[0];
  if (command == "render") return Render(args, false);
  if (command == "load") return Render(args, true);
  if (command == "save") return Save(args);
  if (command == "bbox") return BoundingBox(args);
  return Fail("unknown command \"" + command + "\"\n" + kUsage);
}

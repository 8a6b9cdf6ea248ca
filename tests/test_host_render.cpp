// The model renderer and the vyr2d tool: documents drawn to pixels read
// back, refused sizes, and the round trip through a saved model.
#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <sstream>
#include <string>

#include "AssertionCapture.h"
#include "VYR2DGStringStream.h"
#include "VYRModelRenderer.h"
#include "VYRPixelImage.h"
#include "VYRPrtModel.h"
#include "VYRSvgImporter.h"

namespace {

struct Rgba {
  int r, g, b, a;
};

// Imports a document and renders it; the image is released with the object.
class Rendered {
 public:
  explicit Rendered(const std::string& i_svg, int i_width = 0, int i_height = 0) {
    VYRSvgImporter importer;
    VYRPrtModel* pModel = importer.ImportBuffer(i_svg);
    _pImage = VYRModelRenderer::RenderToImage(*pModel, i_width, i_height, _error);
    pModel->Release();
  }
  ~Rendered() {
    if (_pImage) _pImage->Release();
  }
  Rendered(const Rendered&) = delete;
  Rendered& operator=(const Rendered&) = delete;

  const VYRPixelImage* Image() const { return _pImage; }
  const std::string& Error() const { return _error; }
  Rgba At(int i_x, int i_y) const {
    unsigned char r = 0, g = 0, b = 0, a = 0;
    _pImage->GetColorAtPixel(i_x, i_y, r, g, b, a);
    return {r, g, b, a};
  }

 private:
  VYRPixelImage* _pImage = nullptr;
  std::string _error;
};

std::string Svg(const std::string& i_body, const std::string& i_root = "width='40' height='40'") {
  return "<svg xmlns='http://www.w3.org/2000/svg' xmlns:xlink='http://www.w3.org/1999/xlink' " + i_root + ">" +
         i_body + "</svg>";
}

::testing::AssertionResult Near(const Rgba& i_actual, const Rgba& i_expected, int i_tolerance = 2) {
  if (std::abs(i_actual.r - i_expected.r) <= i_tolerance && std::abs(i_actual.g - i_expected.g) <= i_tolerance &&
      std::abs(i_actual.b - i_expected.b) <= i_tolerance && std::abs(i_actual.a - i_expected.a) <= i_tolerance) {
    return ::testing::AssertionSuccess();
  }
  return ::testing::AssertionFailure() << "pixel (" << i_actual.r << ", " << i_actual.g << ", " << i_actual.b << ", "
                                       << i_actual.a << ") expected (" << i_expected.r << ", " << i_expected.g << ", "
                                       << i_expected.b << ", " << i_expected.a << ")";
}

const Rgba kClear{0, 0, 0, 0};
const Rgba kRed{255, 0, 0, 255};
const Rgba kBlue{0, 0, 255, 255};

TEST(HostRender, FilledAndStrokedShapes) {
  Rendered picture(Svg("<rect x='2' y='2' width='16' height='16' fill='red'/>"
                       "<circle cx='30' cy='10' r='6' fill='blue'/>"
                       "<rect x='4' y='24' width='12' height='12' fill='none' stroke='#00ff00' stroke-width='2'/>"));
  ASSERT_NE(picture.Image(), nullptr) << picture.Error();
  EXPECT_EQ(picture.Image()->GetWidth(), 40);
  EXPECT_TRUE(Near(picture.At(10, 10), kRed));
  EXPECT_TRUE(Near(picture.At(1, 1), kClear));
  EXPECT_TRUE(Near(picture.At(30, 10), kBlue));
  EXPECT_TRUE(Near(picture.At(30, 2), kClear));
  EXPECT_TRUE(Near(picture.At(4, 30), {0, 255, 0, 255}));  // on the stroke
  EXPECT_TRUE(Near(picture.At(10, 30), kClear));           // inside the unfilled square
}

TEST(HostRender, FillRulesAndPathArcs) {
  // Two nested squares in one path: even-odd leaves a hole, non-zero does not.
  const std::string squares = "d='M2 2 H38 V18 H2 Z M10 6 H30 V14 H10 Z'";
  Rendered picture(Svg("<path " + squares + " fill-rule='evenodd' fill='red'/>"
                       "<path transform='translate(0 20)' " + squares + " fill='blue'/>"));
  ASSERT_NE(picture.Image(), nullptr);
  EXPECT_TRUE(Near(picture.At(4, 10), kRed));
  EXPECT_TRUE(Near(picture.At(20, 10), kClear));
  EXPECT_TRUE(Near(picture.At(20, 30), kBlue));

  // A half disc: the arc bulges down (sweep flag 1 from the right end).
  Rendered arc(Svg("<path d='M30 20 A10 10 0 0 1 10 20 Z' fill='red'/>"));
  EXPECT_TRUE(Near(arc.At(20, 27), kRed));
  EXPECT_TRUE(Near(arc.At(20, 13), kClear));
}

TEST(HostRender, ViewBoxScalingAndRequestedSize) {
  const std::string svg = Svg("<rect width='5' height='5' fill='red'/>", "width='20' height='20' viewBox='0 0 10 10'");
  Rendered picture(svg);
  ASSERT_NE(picture.Image(), nullptr);
  EXPECT_TRUE(Near(picture.At(9, 9), kRed));
  EXPECT_TRUE(Near(picture.At(11, 11), kClear));
  Rendered larger(svg, 80);
  ASSERT_NE(larger.Image(), nullptr);
  EXPECT_EQ(larger.Image()->GetHeight(), 80);  // the proportions are kept
  EXPECT_TRUE(Near(larger.At(38, 38), kRed));
  EXPECT_TRUE(Near(larger.At(42, 42), kClear));
}

TEST(HostRender, OpacityDashesAndClipPaths) {
  Rendered picture(Svg("<rect width='10' height='10' fill='red' opacity='0.5'/>"
                       "<line x1='0' y1='15' x2='40' y2='15' stroke='blue' stroke-width='2' stroke-dasharray='10 10'/>"
                       "<clipPath id='c'><rect x='20' y='20' width='10' height='10'/></clipPath>"
                       "<rect x='15' y='15' width='25' height='25' fill='red' clip-path='url(#c)'/>"));
  ASSERT_NE(picture.Image(), nullptr);
  EXPECT_TRUE(Near(picture.At(5, 5), {255, 0, 0, 128}));
  EXPECT_TRUE(Near(picture.At(5, 15), kBlue));
  EXPECT_TRUE(Near(picture.At(15, 15), kClear));  // in a gap of the dashes
  EXPECT_TRUE(Near(picture.At(25, 25), kRed));
  EXPECT_TRUE(Near(picture.At(35, 35), kClear));  // clipped away
}

TEST(HostRender, HiddenAndUnusedElementsDrawNothing) {
  Rendered picture(Svg("<defs><rect width='40' height='40' fill='red'/></defs>"
                       "<rect width='40' height='40' fill='red' visibility='hidden'/>"
                       "<g visibility='hidden'><rect width='10' height='10' fill='blue' visibility='visible'/></g>"));
  ASSERT_NE(picture.Image(), nullptr);
  EXPECT_TRUE(Near(picture.At(20, 20), kClear));
  EXPECT_TRUE(Near(picture.At(5, 5), kBlue));
}

TEST(HostRender, RefusedSizesGiveAReasonAndNoImage) {
  AssertionCapture capture;
  Rendered huge(Svg("<rect width='1' height='1'/>", "width='1e30' height='1e30'"));
  EXPECT_EQ(huge.Image(), nullptr);
  EXPECT_NE(huge.Error().find("out of range"), std::string::npos);
  Rendered tooMany(Svg("<rect width='1' height='1'/>", "width='100000' height='100000'"));
  EXPECT_EQ(tooMany.Image(), nullptr);
  EXPECT_NE(tooMany.Error().find("too large"), std::string::npos);
  Rendered nothing("<svg");
  EXPECT_EQ(nothing.Image(), nullptr);
  EXPECT_FALSE(nothing.Error().empty());
}

// ---- The round trip through a saved model

std::string ReadFile(const std::string& i_path) {
  std::ifstream file(i_path, std::ios::binary);
  std::ostringstream bytes;
  bytes << file.rdbuf();
  return bytes.str();
}

const char* const kRoundTripSvg =
    "<svg xmlns='http://www.w3.org/2000/svg' xmlns:xlink='http://www.w3.org/1999/xlink' width='64' height='48'"
    " viewBox='0 0 32 24'>"
    "<defs><clipPath id='c'><circle cx='16' cy='12' r='10'/></clipPath></defs>"
    "<g transform='translate(2 1) scale(1.5 0.75) skewX(10)' stroke='navy' stroke-linejoin='round'>"
    "<rect width='10' height='8' rx='2' fill='orange' stroke-dasharray='2 1'/>"
    "<path d='M12 2 q4 8 8 0 t6 0' fill='none' stroke-width='1.5'/></g>"
    "<polygon points='2,20 12,14 22,22' fill='teal' fill-opacity='0.6' clip-path='url(#c)'/>"
    "</svg>";

TEST(HostRoundTrip, StreamedModelDrawsTheSamePixels) {
  VYRSvgImporter importer;
  VYRPrtModel* pModel = importer.ImportBuffer(kRoundTripSvg);
  ASSERT_TRUE(importer.Succeeded());
  VYR2DGStringStream stream;
  pModel->Stream(&stream);
  auto* pCopy = new VYRPrtModel();
  VYR2DGStringStream reader(stream.GetBuffer(), stream.GetSize());
  pCopy->Unstream(&reader);
  EXPECT_FALSE(reader.HasFailed());
  std::string error;
  VYRPixelImage* pDirect = VYRModelRenderer::RenderToImage(*pModel, 0, 0, error);
  VYRPixelImage* pReloaded = VYRModelRenderer::RenderToImage(*pCopy, 0, 0, error);
  ASSERT_NE(pDirect, nullptr);
  ASSERT_NE(pReloaded, nullptr);
  ASSERT_EQ(pDirect->GetByteCount(), pReloaded->GetByteCount());
  EXPECT_EQ(0, std::memcmp(pDirect->GetPixels(), pReloaded->GetPixels(), pDirect->GetByteCount()));
  pDirect->Release();
  pReloaded->Release();
  pCopy->Release();
  pModel->Release();
}

TEST(HostTool, SaveLoadAndRenderGiveTheSamePng) {
  const std::string dir = std::string(VYR_BINARY_DIR) + "/tests/host-tool-check";
  const std::string tool = std::string(VYR_BINARY_DIR) + "/Host/vyr2d";
  ASSERT_EQ(std::system(("mkdir -p " + dir).c_str()), 0);
  { std::ofstream(dir + "/in.svg") << kRoundTripSvg; }
  const std::string quiet = " > " + dir + "/log.txt 2>&1";
  ASSERT_EQ(std::system((tool + " render " + dir + "/in.svg " + dir + "/direct.png" + quiet).c_str()), 0);
  ASSERT_EQ(std::system((tool + " save " + dir + "/in.svg " + dir + "/in.model" + quiet).c_str()), 0);
  ASSERT_EQ(std::system((tool + " load " + dir + "/in.model " + dir + "/loaded.png" + quiet).c_str()), 0);
  const std::string direct = ReadFile(dir + "/direct.png");
  EXPECT_FALSE(direct.empty());
  EXPECT_EQ(direct, ReadFile(dir + "/loaded.png"));
  EXPECT_EQ(std::system((tool + " bbox " + dir + "/in.model > " + dir + "/box.txt").c_str()), 0);
  EXPECT_EQ(ReadFile(dir + "/box.txt"),
            "document xmin 0 xmax 64 ymin 0 ymax 48\ndrawing xmin 2.23673 xmax 86.2318 ymin -3 ymax 44\n");

  // Errors: a clear message and a non-zero status.
  { std::ofstream(dir + "/broken.model") << "garbage"; }
  EXPECT_NE(std::system((tool + " load " + dir + "/broken.model " + dir + "/x.png" + quiet).c_str()), 0);
  EXPECT_NE(ReadFile(dir + "/log.txt").find("vyr2d:"), std::string::npos);
  EXPECT_NE(std::system((tool + " render " + dir + "/missing.svg " + dir + "/x.png" + quiet).c_str()), 0);
  EXPECT_NE(std::system((tool + " frobnicate" + quiet).c_str()), 0);
  EXPECT_NE(std::system((tool + " render " + dir + "/in.svg " + dir + "/x.png --width -3" + quiet).c_str()), 0);
}

}  // namespace

// A handful of simple documents of the shared conformance corpus, drawn at
// the references' width and compared with them over white, within a tolerance
// that absorbs anti-aliasing differences along edges.
#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <sstream>
#include <string>

#include "VYRModelRenderer.h"
#include "VYRPixelImage.h"
#include "VYRPixelImagePNG.h"
#include "VYRPrtModel.h"
#include "VYRSvgImporter.h"

namespace {

// Beside the main checkout, or two levels up from a worktree's checkout.
std::string CorpusDirectory() {
  for (const std::string& shared : {std::string(VYR_SHARED_DIR), std::string(VYR_SOURCE_DIR) + "/../../shared"}) {
    if (std::ifstream(shared + "/conformance/README.md")) return shared + "/conformance/";
  }
  return std::string(VYR_SHARED_DIR) + "/conformance/";
}

const std::string kCorpus = CorpusDirectory();

std::string ReadFile(const std::string& i_path) {
  std::ifstream file(i_path, std::ios::binary);
  std::ostringstream bytes;
  bytes << file.rdbuf();
  return bytes.str();
}

// One channel of a straight-alpha pixel composited over white.
int OverWhite(unsigned char i_channel, unsigned char i_alpha) { return (i_channel * i_alpha + 255 * (255 - i_alpha)) / 255; }

// The share of pixels whose colour over white differs by more than 32 in a channel.
double DifferingShare(const VYRPixelImage& i_actual, const VYRPixelImage& i_reference) {
  int differing = 0;
  for (int y = 0; y < i_reference.GetHeight(); ++y) {
    for (int x = 0; x < i_reference.GetWidth(); ++x) {
      unsigned char a[4], r[4];
      i_actual.GetColorAtPixel(x, y, a[0], a[1], a[2], a[3]);
      i_reference.GetColorAtPixel(x, y, r[0], r[1], r[2], r[3]);
      for (int c = 0; c < 3; ++c) {
        if (std::abs(OverWhite(a[c], a[3]) - OverWhite(r[c], r[3])) > 32) {
          ++differing;
          break;
        }
      }
    }
  }
  return static_cast<double>(differing) / (i_reference.GetWidth() * i_reference.GetHeight());
}

class Conformance : public ::testing::TestWithParam<const char*> {};

TEST_P(Conformance, MatchesTheReference) {
  const std::string base = kCorpus + GetParam();
  const std::string svg = ReadFile(base + ".svg");
  const std::string png = ReadFile(base + ".png");
  if (svg.empty() || png.empty()) GTEST_SKIP() << "corpus file missing: " << base;
  VYRPixelImage* pReference = ReadMemoryPNGPixelImage(reinterpret_cast<const unsigned char*>(png.data()),
                                                      static_cast<int>(png.size()), VYRPNGRead_ClosestFormat);
  ASSERT_NE(pReference, nullptr);
  VYRSvgImporter importer;
  VYRPrtModel* pModel = importer.ImportBuffer(svg);
  std::string error;
  VYRPixelImage* pActual = VYRModelRenderer::RenderToImage(*pModel, pReference->GetWidth(), 0, error);
  pModel->Release();
  ASSERT_NE(pActual, nullptr) << error;
  ASSERT_EQ(pActual->GetHeight(), pReference->GetHeight());
  EXPECT_LT(DifferingShare(*pActual, *pReference), 0.01) << GetParam();
  pActual->Release();
  pReference->Release();
}

INSTANTIATE_TEST_SUITE_P(Shapes, Conformance,
                         ::testing::Values("shapes/rect/simple-case", "shapes/circle/simple-case",
                                           "shapes/ellipse/simple-case", "shapes/line/simple-case",
                                           "shapes/polygon/simple-case", "shapes/polyline/simple-case",
                                           "painting/stroke-linejoin/bevel", "painting/fill-rule/evenodd"));

}  // namespace

// Documents of the shared conformance corpus, drawn at the references' width
// and compared with them over white, within a tolerance that absorbs
// anti-aliasing differences along edges. Text gets a wider one: the
// references' typefaces are not those installed here, so glyph outlines
// differ while their size and placement must still match.
#include <gtest/gtest.h>

#include <cctype>
#include <cstdlib>
#include <ostream>
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

struct Case {
  const char* path;
  double tolerance;  // the share of pixels that may differ
};

void PrintTo(const Case& i_case, std::ostream* o_stream) { *o_stream << i_case.path; }

constexpr double kShapes = 0.01;
constexpr double kText = 0.035;

class Conformance : public ::testing::TestWithParam<Case> {};

TEST_P(Conformance, MatchesTheReference) {
  const std::string base = kCorpus + GetParam().path;
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
  EXPECT_LT(DifferingShare(*pActual, *pReference), GetParam().tolerance) << GetParam().path;
  pActual->Release();
  pReference->Release();
}

std::string CaseName(const ::testing::TestParamInfo<Case>& i_info) {
  std::string name;
  for (const char* p = i_info.param.path; *p != '\0'; ++p) name += std::isalnum(static_cast<unsigned char>(*p)) ? *p : '_';
  return name;
}

INSTANTIATE_TEST_SUITE_P(Shapes, Conformance,
                         ::testing::Values(Case{"shapes/rect/simple-case", kShapes},
                                           Case{"shapes/circle/simple-case", kShapes},
                                           Case{"shapes/ellipse/simple-case", kShapes},
                                           Case{"shapes/line/simple-case", kShapes},
                                           Case{"shapes/polygon/simple-case", kShapes},
                                           Case{"shapes/polyline/simple-case", kShapes},
                                           Case{"shapes/path/A", kShapes},
                                           Case{"painting/stroke-linejoin/bevel", kShapes},
                                           Case{"painting/fill-rule/evenodd", kShapes}),
                         CaseName);

INSTANTIATE_TEST_SUITE_P(
    Gradients, Conformance,
    ::testing::Values(Case{"paint-servers/linearGradient/default-attributes", kShapes},
                      Case{"painting/stroke/gradient-with-objectBoundingBox-and-fallback-on-lines", kShapes},
                      Case{"painting/stroke/pattern-with-objectBoundingBox-fallback-on-zero-bbox-shape", kShapes},
                      Case{"paint-servers/linearGradient/gradientTransform-and-transform", kShapes},
                      Case{"paint-servers/linearGradient/gradientUnits=userSpaceOnUse-with-percent", kShapes},
                      Case{"paint-servers/linearGradient/spreadMethod=reflect", kShapes},
                      Case{"paint-servers/linearGradient/spreadMethod=repeat", kShapes},
                      Case{"paint-servers/linearGradient/stops-via-xlink-href-complex-order-1", kShapes},
                      Case{"paint-servers/linearGradient/single-stop-with-opacity-used-by-fill-and-stroke", kShapes},
                      Case{"paint-servers/radialGradient/default-attributes", kShapes},
                      Case{"paint-servers/radialGradient/fx-resolving-2", kShapes},
                      Case{"paint-servers/radialGradient/fy-resolving-3", kShapes},
                      Case{"paint-servers/radialGradient/gradientTransform-and-transform", kShapes},
                      Case{"paint-servers/radialGradient/gradientUnits=userSpaceOnUse", kShapes},
                      Case{"paint-servers/radialGradient/spreadMethod=reflect", kShapes},
                      Case{"paint-servers/radialGradient/zero-r-with-stop-opacity-2", kShapes}),
    CaseName);

INSTANTIATE_TEST_SUITE_P(
    Patterns, Conformance,
    ::testing::Values(Case{"paint-servers/pattern/simple-case", kShapes},
                      Case{"paint-servers/pattern/nested-objectBoundingBox", kShapes},
                      Case{"paint-servers/pattern/patternContentUnits-with-viewBox", kShapes},
                      Case{"paint-servers/pattern/patternContentUnits=objectBoundingBox", kShapes},
                      Case{"paint-servers/pattern/everything-via-xlink-href", kShapes},
                      Case{"paint-servers/pattern/tiny-pattern-upscaled", kShapes},
                      Case{"paint-servers/pattern/with-x-and-y", kShapes}),
    CaseName);

INSTANTIATE_TEST_SUITE_P(
    OpacityMasksAndClips, Conformance,
    ::testing::Values(Case{"painting/opacity/group-opacity", kShapes},
                      Case{"painting/opacity/mixed-group-opacity", kShapes},
                      Case{"painting/opacity/bBox-impact", kShapes},
                      Case{"masking/mask/simple-case", kShapes},
                      Case{"masking/mask/mask-on-self", kShapes},
                      Case{"masking/mask/maskContentUnits=objectBoundingBox", kShapes},
                      Case{"masking/mask/maskUnits=userSpaceOnUse-without-rect", kShapes},
                      Case{"masking/mask/nested-objectBoundingBox", kShapes},
                      Case{"masking/mask/on-group-with-transform", kShapes},
                      Case{"masking/mask/recursive-on-self", kShapes},
                      Case{"masking/mask/with-clip-path", kShapes},
                      Case{"masking/mask/with-image", kShapes},
                      Case{"masking/mask/with-opacity-3", kShapes},
                      Case{"masking/clipPath/mixed-clip-rule", kShapes},
                      Case{"masking/clipPath/overlapped-shapes-with-evenodd", kShapes},
                      Case{"masking/clipPath/clip-path-on-child-with-transform", kShapes},
                      Case{"masking/clipPath/clip-path-on-self-2", kShapes},
                      Case{"masking/clipPath/recursive-on-child", kShapes},
                      Case{"masking/clipPath/switch-is-not-a-valid-child", kShapes},
                      Case{"masking/clipPath/with-invalid-child-via-use", kShapes},
                      Case{"masking/clipPath/on-the-root-svg-with-size", kShapes}),
    CaseName);

INSTANTIATE_TEST_SUITE_P(
    Filters, Conformance,
    ::testing::Values(Case{"filters/feGaussianBlur/simple-case", kShapes},
                      Case{"filters/feGaussianBlur/stdDeviation-with-two-different-values", kShapes},
                      Case{"filters/feOffset/simple-case", kShapes},
                      Case{"filters/feOffset/fractional-offset", kShapes},
                      Case{"filters/filter/in=SourceAlpha", kShapes},
                      Case{"filters/filter/global-transform", kShapes},
                      Case{"filters/filter/transform-on-shape", kShapes},
                      Case{"filters/filter/with-mask", kShapes},
                      Case{"filters/filter/multiple-primitives-4", kShapes},
                      Case{"filters/feFlood/seagreen", kShapes},
                      Case{"filters/filter/no-children", kShapes},
                      Case{"filters/filter/invalid-FuncIRI", kShapes},
                      Case{"filters/feFlood/with-opacity", kShapes},
                      Case{"filters/flood-color/inheritance-3", kShapes},
                      Case{"filters/flood-color/inheritance-5", kShapes}),
    CaseName);

INSTANTIATE_TEST_SUITE_P(
    ImagesMarkersAndViewports, Conformance,
    ::testing::Values(Case{"structure/image/no-height-non-square", kShapes},
                      Case{"structure/image/preserveAspectRatio=xMaxYMax-meet", kShapes},
                      Case{"structure/image/preserveAspectRatio=xMidYMid-slice", kShapes},
                      Case{"structure/image/preserveAspectRatio=none", kShapes},
                      Case{"painting/marker/marker-on-line", kShapes},
                      Case{"painting/marker/orient=1.5rad", kShapes},
                      Case{"painting/marker/the-marker-property", kShapes},
                      Case{"painting/marker/zero-sized-stroke", kShapes},
                      Case{"painting/marker/orient=auto-on-M-C-C-1", kShapes},
                      Case{"painting/marker/recursive-1", kShapes},
                      Case{"painting/marker/with-viewBox-2", kShapes},
                      Case{"painting/overflow/visible-on-marker", kShapes},
                      Case{"structure/svg/nested-svg-with-rect", kShapes},
                      Case{"structure/svg/explicit-svg-namespace", kShapes},
                      Case{"structure/svg/nested-svg-with-rect-and-viewBox-3", kShapes},
                      Case{"structure/svg/nested-svg-with-overflow-visible", kShapes},
                      Case{"structure/symbol/with-viewBox-and-custom-use-rect", kShapes},
                      Case{"structure/symbol/with-overflow-visible", kShapes},
                      Case{"structure/symbol/opacity-on-use-and-symbol", kShapes},
                      Case{"structure/use/xlink-to-svg-element-with-rect", kShapes},
                      Case{"structure/use/nested-xlink-to-svg-element-with-rect-and-size", kShapes},
                      Case{"painting/fill/invalid-FuncIRI-with-a-fallback-color", kShapes},
                      Case{"structure/svg/nested-svg-with-transform-and-clip", kShapes},
                      Case{"structure/symbol/with-transform", kShapes},
                      Case{"structure/use/indirect-recursive-2", kShapes},
                      Case{"painting/display/none-on-svg", kShapes}),
    CaseName);

INSTANTIATE_TEST_SUITE_P(
    StylesAndSwitches, Conformance,
    ::testing::Values(Case{"structure/style/class-selector", kShapes},
                      Case{"structure/style/combined-selectors", kShapes},
                      Case{"structure/style/important", kShapes},
                      Case{"structure/style/rule-specificity", kShapes},
                      Case{"structure/style/style-after-usage", kShapes},
                      Case{"structure/style/style-inside-CDATA", kShapes},
                      Case{"structure/style/transform", kShapes},
                      Case{"structure/use/cSS-rules", kShapes},
                      Case{"painting/marker/the-marker-property-in-CSS", kShapes},
                      Case{"structure/style-attribute/comments", kShapes},
                      Case{"structure/style-attribute/transform", kShapes},
                      Case{"structure/switch/simple-case", kShapes},
                      Case{"structure/switch/display-none-on-child", kShapes},
                      Case{"structure/switch/systemLanguage=ru-Ru", kShapes},
                      Case{"structure/switch/systemLanguage=ru-en", kShapes},
                      Case{"structure/switch/with-attributes", kShapes}),
    CaseName);

INSTANTIATE_TEST_SUITE_P(Text, Conformance,
                         ::testing::Values(Case{"text/font-size/simple-case", kText},
                                           Case{"text/font-size/em-nested-and-mixed", kText},
                                           Case{"text/font-family/serif", kText},
                                           Case{"text/font-family/monospace", kText},
                                           Case{"text/font-style/italic", kText},
                                           Case{"text/text/xml-space", kText}),
                         CaseName);

}  // namespace

// The model renderer and the vyr2d tool: documents drawn to pixels read
// back, refused sizes, and the round trip through a saved model.
#include <gtest/gtest.h>

#include <algorithm>
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

TEST(HostRender, ClipPathTransformsActInUserUnitsOverBoxUnits) {
  Rendered picture(Svg("<clipPath id='c' clipPathUnits='objectBoundingBox' transform='translate(10 0)'>"
                       "<rect width='0.5' height='1'/></clipPath>"
                       "<rect width='20' height='20' fill='red' clip-path='url(#c)'/>"));
  ASSERT_NE(picture.Image(), nullptr);
  EXPECT_TRUE(Near(picture.At(5, 10), kClear));
  EXPECT_TRUE(Near(picture.At(15, 10), kRed));
  EXPECT_TRUE(Near(picture.At(25, 10), kClear));
}

TEST(HostRender, DashOffsetsShiftThePattern) {
  Rendered picture(Svg("<line x1='0' y1='5' x2='40' y2='5' stroke='blue' stroke-width='4' stroke-dasharray='10 10'"
                       " stroke-dashoffset='5'/>"
                       "<line x1='0' y1='15' x2='40' y2='15' stroke='blue' stroke-width='4' stroke-dasharray='10 10'"
                       " stroke-dashoffset='-5'/>"
                       "<line x1='0' y1='25' x2='40' y2='25' stroke='blue' stroke-width='4' stroke-dasharray='10 5 5'"
                       " stroke-dashoffset='12'/>"));
  ASSERT_NE(picture.Image(), nullptr);
  // Five units in: the rest of the first dash, then a gap.
  EXPECT_TRUE(Near(picture.At(2, 5), kBlue));
  EXPECT_TRUE(Near(picture.At(7, 5), kClear));
  EXPECT_TRUE(Near(picture.At(17, 5), kBlue));
  // Five units back: the line starts in the gap.
  EXPECT_TRUE(Near(picture.At(2, 15), kClear));
  EXPECT_TRUE(Near(picture.At(7, 15), kBlue));
  EXPECT_TRUE(Near(picture.At(17, 15), kClear));
  // An odd list repeats (dash 10, gap 5, dash 5, gap 10, dash 5, gap 5); twelve in
  // falls in the first gap, three before its end: gap 0-3, dash 3-8, gap 8-18, dash 18-23.
  EXPECT_TRUE(Near(picture.At(1, 25), kClear));
  EXPECT_TRUE(Near(picture.At(5, 25), kBlue));
  EXPECT_TRUE(Near(picture.At(14, 25), kClear));
  EXPECT_TRUE(Near(picture.At(20, 25), kBlue));
  EXPECT_TRUE(Near(picture.At(25, 25), kClear));
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

// ---- Layers: group opacity, masks, filters

TEST(HostRenderLayers, GroupOpacityFadesOverlapsOnce) {
  // Two overlapping opaque squares in a half-transparent group: the overlap
  // shows the top square at half alpha, not the two stacked.
  Rendered picture(Svg("<g opacity='0.5'><rect width='20' height='20' fill='red'/>"
                       "<rect x='10' y='10' width='20' height='20' fill='blue'/></g>"
                       "<rect x='0' y='30' width='20' height='10' fill='red' stroke='blue' stroke-width='4'"
                       " opacity='0.5'/>"));
  ASSERT_NE(picture.Image(), nullptr);
  EXPECT_TRUE(Near(picture.At(5, 5), {255, 0, 0, 128}));
  EXPECT_TRUE(Near(picture.At(15, 15), {0, 0, 255, 128}));
  EXPECT_TRUE(Near(picture.At(25, 25), {0, 0, 255, 128}));
  // A shape's stroke over its own fill: the stroke alone at half alpha.
  EXPECT_TRUE(Near(picture.At(10, 31), {0, 0, 255, 128}));
  EXPECT_TRUE(Near(picture.At(10, 35), {255, 0, 0, 128}));
}

TEST(HostRenderLayers, MasksKeepByLuminance) {
  // White keeps, black removes, grey (50%) halves, and outside the mask's content nothing is kept.
  Rendered picture(Svg("<mask id='m' maskUnits='userSpaceOnUse' x='0' y='0' width='40' height='40'>"
                       "<rect width='10' height='40' fill='white'/><rect x='10' width='10' height='40' fill='black'/>"
                       "<rect x='20' width='10' height='40' fill='rgb(50%,50%,50%)'/></mask>"
                       "<rect width='40' height='40' fill='blue' mask='url(#m)'/>"));
  ASSERT_NE(picture.Image(), nullptr);
  EXPECT_TRUE(Near(picture.At(5, 20), kBlue));
  EXPECT_TRUE(Near(picture.At(15, 20), kClear));
  EXPECT_TRUE(Near(picture.At(25, 20), {0, 0, 255, 128}, 3));
  EXPECT_TRUE(Near(picture.At(35, 20), kClear));
}

TEST(HostRenderLayers, MaskRegionsAndBoxUnitsWithOpacity) {
  // The default region reaches 10% beyond the box; content units in box fractions.
  Rendered picture(Svg("<mask id='m' maskContentUnits='objectBoundingBox'>"
                       "<rect width='0.5' height='1' fill='white'/></mask>"
                       "<rect x='10' y='10' width='20' height='20' fill='red' mask='url(#m)' opacity='0.5'/>"));
  ASSERT_NE(picture.Image(), nullptr);
  EXPECT_TRUE(Near(picture.At(15, 20), {255, 0, 0, 128}));
  EXPECT_TRUE(Near(picture.At(25, 20), kClear));
  // A mask used inside its own content is left out there instead of recursing.
  Rendered recursive(Svg("<mask id='m' maskUnits='userSpaceOnUse' x='0' y='0' width='40' height='40'>"
                         "<rect width='20' height='40' fill='white' mask='url(#m)'/></mask>"
                         "<rect width='40' height='40' fill='red' mask='url(#m)'/>"));
  ASSERT_NE(recursive.Image(), nullptr);
  EXPECT_TRUE(Near(recursive.At(10, 10), kRed));
  EXPECT_TRUE(Near(recursive.At(30, 10), kClear));
}

TEST(HostRenderLayers, MasksMaskedInTurn) {
  // The inner mask keeps the left half of what the outer mask keeps, in the
  // element's space although the outer content is in box units.
  Rendered picture(Svg("<mask id='inner' maskUnits='userSpaceOnUse' x='0' y='0' width='40' height='40'>"
                       "<rect width='20' height='40' fill='white'/></mask>"
                       "<mask id='outer' mask='url(#inner)' maskContentUnits='objectBoundingBox'>"
                       "<rect width='1' height='0.5' fill='white'/></mask>"
                       "<rect width='40' height='40' fill='blue' mask='url(#outer)'/>"));
  ASSERT_NE(picture.Image(), nullptr);
  EXPECT_TRUE(Near(picture.At(10, 10), kBlue));
  EXPECT_TRUE(Near(picture.At(30, 10), kClear));
  EXPECT_TRUE(Near(picture.At(10, 30), kClear));
  // Masks that mask each other end instead of recursing: the second is left out the second time.
  Rendered cycle(Svg("<mask id='a' mask='url(#b)' maskUnits='userSpaceOnUse' x='0' y='0' width='40' height='40'>"
                     "<rect width='40' height='40' fill='white'/></mask>"
                     "<mask id='b' mask='url(#a)' maskUnits='userSpaceOnUse' x='0' y='0' width='40' height='40'>"
                     "<rect width='20' height='40' fill='white'/></mask>"
                     "<rect width='40' height='40' fill='blue' mask='url(#a)'/>"));
  ASSERT_NE(cycle.Image(), nullptr);
  EXPECT_TRUE(Near(cycle.At(10, 10), kBlue));
  EXPECT_TRUE(Near(cycle.At(30, 10), kClear));
}

TEST(HostRenderLayers, OffsetAndColourMatrixFilters) {
  // The offset is in user units: doubled when the document is drawn twice as large.
  Rendered picture(Svg("<filter id='f'><feOffset dx='5' dy='0'/></filter>"
                       "<filter id='g'><feColorMatrix type='matrix' values='0 0 0 0 0  0 1 0 0 0  1 0 0 0 0  0 0 0 1 0'/>"
                       "</filter>"
                       "<rect x='2' y='2' width='10' height='10' fill='red' filter='url(#f)'/>"
                       "<rect x='2' y='20' width='10' height='10' fill='red' filter='url(#g)'/>",
                       "width='80' height='80' viewBox='0 0 40 40'"));
  ASSERT_NE(picture.Image(), nullptr);
  EXPECT_TRUE(Near(picture.At(6, 14), kClear));   // moved away
  EXPECT_TRUE(Near(picture.At(24, 14), kRed));    // user x 12 lies in the moved square
  EXPECT_TRUE(Near(picture.At(27, 14), kClear));  // beyond the filter region
  EXPECT_TRUE(Near(picture.At(14, 50), kBlue));   // red turned blue
}

TEST(HostRenderLayers, BlurSpreadsWithinTheFilterRegion) {
  Rendered picture(Svg("<filter id='f'><feGaussianBlur stdDeviation='2'/></filter>"
                       "<rect x='10' y='10' width='20' height='20' fill='blue' filter='url(#f)'/>"));
  ASSERT_NE(picture.Image(), nullptr);
  EXPECT_TRUE(Near(picture.At(20, 20), kBlue));
  const Rgba edge = picture.At(10, 20);
  EXPECT_GT(edge.a, 90);
  EXPECT_LT(edge.a, 165);
  EXPECT_GT(picture.At(8, 20).a, 10);            // spread outside the square
  EXPECT_TRUE(Near(picture.At(7, 20), kClear));  // the region ends 10% (2 units) beyond it
}

TEST(HostRenderLayers, MergeAndBlendCombineResults) {
  // A shadow: the source alpha offset and merged under the source.
  Rendered shadow(Svg("<filter id='f' x='0' y='0' width='2' height='2'>"
                      "<feOffset in='SourceAlpha' dx='10' dy='10' result='shadow'/>"
                      "<feMerge><feMergeNode in='shadow'/><feMergeNode in='SourceGraphic'/></feMerge></filter>"
                      "<rect x='5' y='5' width='15' height='15' fill='red' filter='url(#f)'/>"));
  ASSERT_NE(shadow.Image(), nullptr);
  EXPECT_TRUE(Near(shadow.At(10, 10), kRed));
  EXPECT_TRUE(Near(shadow.At(25, 25), {0, 0, 0, 255}));
  EXPECT_TRUE(Near(shadow.At(17, 17), kRed));  // the source over its shadow
  Rendered blend(Svg("<filter id='f' x='0' y='0' width='2' height='1'>"
                     "<feOffset dx='10' result='moved'/><feBlend in='SourceGraphic' in2='moved' mode='multiply'/>"
                     "</filter>"
                     "<rect x='5' y='5' width='15' height='15' fill='yellow' filter='url(#f)'/>"
                     "<rect x='5' y='25' width='15' height='10' fill='red'/>"));
  ASSERT_NE(blend.Image(), nullptr);
  EXPECT_TRUE(Near(blend.At(7, 10), {255, 255, 0, 255}));
  EXPECT_TRUE(Near(blend.At(17, 10), {255, 255, 0, 255}));  // yellow times yellow
  EXPECT_TRUE(Near(blend.At(23, 10), {255, 255, 0, 255}));  // the moved copy alone
}

TEST(HostRender, MarkersAreClippedToTheirViewportAroundTheReferencePoint) {
  Rendered picture(Svg("<marker id='big' refX='2' refY='2' markerWidth='4' markerHeight='4' markerUnits='userSpaceOnUse'>"
                       "<rect x='-50' y='-50' width='100' height='100' fill='blue'/></marker>"
                       "<marker id='shifted' viewBox='10 10 8 8' refX='14' refY='14' markerWidth='4' markerHeight='4'"
                       " markerUnits='userSpaceOnUse'><rect x='10' y='10' width='8' height='8' fill='red'/></marker>"
                       "<line x1='10' y1='10' x2='30' y2='10' stroke='none' marker-start='url(#big)'/>"
                       "<line x1='10' y1='30' x2='30' y2='30' stroke='none' marker-end='url(#shifted)'/>"));
  ASSERT_NE(picture.Image(), nullptr);
  EXPECT_TRUE(Near(picture.At(9, 9), kBlue));
  EXPECT_TRUE(Near(picture.At(10, 10), kBlue));
  EXPECT_TRUE(Near(picture.At(13, 10), kClear));  // beyond the 4 x 4 viewport
  EXPECT_TRUE(Near(picture.At(7, 7), kClear));
  EXPECT_TRUE(Near(picture.At(28, 28), kRed));    // centred on the end point
  EXPECT_TRUE(Near(picture.At(31, 31), kRed));
  EXPECT_TRUE(Near(picture.At(33, 30), kClear));
  EXPECT_TRUE(Near(picture.At(27, 30), kClear));
}

TEST(HostRender, MarkerShorthandOnlyInStylesAndNoMarkersOnANullStroke) {
  // The marker shorthand is no presentation attribute; in a style it sets all three.
  // Markers sized by the stroke width come out at no size when the width is 0.
  Rendered picture(Svg("<marker id='m' refX='2' refY='2' markerWidth='4' markerHeight='4' markerUnits='userSpaceOnUse'>"
                       "<rect width='4' height='4' fill='blue'/></marker>"
                       "<marker id='s' refX='1' refY='1' markerWidth='2' markerHeight='2'>"
                       "<rect width='2' height='2' fill='blue'/></marker>"
                       "<line x1='10' y1='5' x2='30' y2='5' stroke='none' marker='url(#m)'/>"
                       "<line x1='10' y1='15' x2='30' y2='15' stroke='none' style='marker: url(#m)'/>"
                       "<line x1='10' y1='25' x2='30' y2='25' stroke='red' stroke-width='0' marker-start='url(#s)'/>"
                       "<line x1='10' y1='35' x2='30' y2='35' stroke='none' stroke-width='2' marker-start='url(#s)'/>"));
  ASSERT_NE(picture.Image(), nullptr);
  EXPECT_TRUE(Near(picture.At(10, 5), kClear));
  EXPECT_TRUE(Near(picture.At(10, 15), kBlue));
  EXPECT_TRUE(Near(picture.At(30, 15), kBlue));
  EXPECT_TRUE(Near(picture.At(10, 25), kClear));
  EXPECT_TRUE(Near(picture.At(10, 35), kBlue));  // an unpainted stroke still sizes its markers
}

TEST(HostRender, ViewportsHideOverflowUnlessVisible) {
  Rendered picture(Svg("<svg x='5' y='5' width='10' height='10'><rect width='40' height='40' fill='red'/></svg>"
                       "<svg x='25' y='5' width='10' height='10' overflow='visible'>"
                       "<rect width='12' height='12' fill='blue'/></svg>"
                       "<marker id='m' markerWidth='2' markerHeight='2' markerUnits='userSpaceOnUse' overflow='visible'>"
                       "<rect width='8' height='8' fill='blue'/></marker>"
                       "<path d='M10 28 L20 28' marker-start='url(#m)'/>"));
  ASSERT_NE(picture.Image(), nullptr);
  EXPECT_TRUE(Near(picture.At(12, 12), kRed));
  EXPECT_TRUE(Near(picture.At(17, 12), kClear));
  EXPECT_TRUE(Near(picture.At(36, 16), kBlue));  // beyond the visible viewport
  EXPECT_TRUE(Near(picture.At(16, 34), kBlue));  // beyond the visible marker
}

TEST(HostRenderLayers, MarkersInsideThemselvesEnd) {
  Rendered picture(Svg("<marker id='m' refX='2' refY='2' markerWidth='4' markerHeight='4'>"
                       "<path d='M0 0 L4 0 L4 4 Z' fill='blue' marker-start='url(#m)' marker-end='url(#m)'/></marker>"
                       "<path d='M10 10 L30 10 L30 30' fill='none' stroke='red' stroke-width='2' marker-start='url(#m)'"
                       " marker-mid='url(#m)' marker-end='url(#m)'/>"));
  ASSERT_NE(picture.Image(), nullptr);
  EXPECT_TRUE(Near(picture.At(20, 10), kRed));
}

// ---- Gradients and patterns

TEST(HostRenderPaint, LinearGradientsInBoxAndUserUnits) {
  Rendered picture(Svg("<linearGradient id='box'><stop offset='0' stop-color='red'/><stop offset='1' stop-color='blue'/>"
                       "</linearGradient>"
                       "<linearGradient id='user' gradientUnits='userSpaceOnUse' x1='0' x2='20'"
                       " gradientTransform='translate(20 0)'>"
                       "<stop offset='0' stop-color='red'/><stop offset='1' stop-color='blue'/></linearGradient>"
                       "<rect x='10' width='20' height='10' fill='url(#box)'/>"
                       "<rect y='20' width='40' height='10' fill='url(#user)'/>",
                       "width='80' height='80' viewBox='0 0 40 40'"));
  ASSERT_NE(picture.Image(), nullptr);
  EXPECT_TRUE(Near(picture.At(20, 10), {253, 0, 2, 255}, 6));   // left end of the box
  EXPECT_TRUE(Near(picture.At(40, 10), {128, 0, 127, 255}, 6));  // its middle
  EXPECT_TRUE(Near(picture.At(59, 10), {2, 0, 253, 255}, 6));
  // Under the document's scale of 2, the moved gradient starts at user x 20.
  EXPECT_TRUE(Near(picture.At(30, 50), kRed));
  EXPECT_TRUE(Near(picture.At(60, 50), {128, 0, 127, 255}, 6));
  EXPECT_TRUE(Near(picture.At(79, 50), {3, 0, 252, 255}, 6));
}

TEST(HostRenderPaint, SpreadMethodsRadialFocusAndStrokes) {
  const std::string stops = "<stop offset='0' stop-color='red'/><stop offset='1' stop-color='blue'/>";
  Rendered picture(Svg("<linearGradient id='reflect' x2='0.25' spreadMethod='reflect'>" + stops + "</linearGradient>"
                       "<linearGradient id='repeat' x2='0.25' spreadMethod='repeat'>" + stops + "</linearGradient>"
                       "<radialGradient id='radial' fx='0.1'>" + stops + "</radialGradient>"
                       "<rect width='40' height='4' fill='url(#reflect)'/>"
                       "<rect y='5' width='40' height='4' fill='url(#repeat)'/>"
                       "<rect y='10' width='20' height='20' fill='url(#radial)'/>"
                       "<rect x='22' y='12' width='16' height='16' fill='none' stroke='url(#reflect)'"
                       " stroke-width='2'/>"
                       "<line x1='22' y1='35' x2='40' y2='35' stroke='url(#reflect)' stroke-width='4'/>"));
  ASSERT_NE(picture.Image(), nullptr);
  // At 0.4875, 1.95 periods of 0.25: reflected back near red, repeated near blue.
  EXPECT_TRUE(Near(picture.At(19, 2), {243, 0, 12, 255}, 12));
  EXPECT_TRUE(Near(picture.At(19, 7), {12, 0, 243, 255}, 12));
  EXPECT_TRUE(Near(picture.At(2, 20), {240, 0, 15, 255}, 25));  // by the focus
  EXPECT_TRUE(Near(picture.At(19, 20), kBlue, 12));              // at the radius
  EXPECT_TRUE(Near(picture.At(0, 10), kBlue));                   // padded beyond it
  // A stroke's gradient spans the shape's box: red on its left side, blue a quarter across.
  EXPECT_TRUE(Near(picture.At(22, 20), kRed, 40));
  EXPECT_TRUE(Near(picture.At(26, 12), kBlue, 40));
  // A horizontal line has no box height to map the gradient onto: nothing is drawn.
  EXPECT_TRUE(Near(picture.At(30, 35), kClear));
}

TEST(HostRenderPaint, PatternsTileInUserAndBoxUnits) {
  Rendered picture(Svg("<pattern id='user' patternUnits='userSpaceOnUse' width='10' height='10'>"
                       "<rect width='5' height='5' fill='red'/></pattern>"
                       "<pattern id='box' width='0.5' height='1' patternContentUnits='objectBoundingBox'>"
                       "<rect width='0.25' height='1' fill='blue'/></pattern>"
                       "<rect width='40' height='20' fill='url(#user)'/>"
                       "<rect y='24' width='40' height='16' fill='url(#box)' stroke='url(#user)' stroke-width='0'/>",
                       "width='80' height='80' viewBox='0 0 40 40'"));
  ASSERT_NE(picture.Image(), nullptr);
  EXPECT_TRUE(Near(picture.At(4, 4), kRed));
  EXPECT_TRUE(Near(picture.At(14, 14), kClear));
  EXPECT_TRUE(Near(picture.At(24, 4), kRed));    // the next tile
  EXPECT_TRUE(Near(picture.At(64, 24), kRed));
  EXPECT_TRUE(Near(picture.At(10, 60), kBlue));  // a quarter of the box is blue in each half
  EXPECT_TRUE(Near(picture.At(30, 60), kClear));
  EXPECT_TRUE(Near(picture.At(50, 60), kBlue));
}

TEST(HostRenderPaint, PatternTransformsReferencesAndRecursion) {
  Rendered picture(Svg("<pattern id='base' patternUnits='userSpaceOnUse' width='10' height='10'>"
                       "<rect width='5' height='10' fill='red'/></pattern>"
                       "<pattern id='moved' href='#base' patternUnits='userSpaceOnUse' width='10' height='10'"
                       " patternTransform='translate(5 0)'/>"
                       "<pattern id='self' patternUnits='userSpaceOnUse' width='10' height='10'>"
                       "<rect width='10' height='10' fill='url(#self)'/><rect width='5' height='5' fill='blue'/>"
                       "</pattern>"
                       "<rect width='40' height='10' fill='url(#moved)'/>"
                       "<rect y='20' width='40' height='10' fill='url(#self)'/>"));
  ASSERT_NE(picture.Image(), nullptr);
  EXPECT_TRUE(Near(picture.At(2, 5), kClear));  // shifted by half a tile
  EXPECT_TRUE(Near(picture.At(7, 5), kRed));
  EXPECT_TRUE(Near(picture.At(2, 22), kBlue));  // the pattern inside itself paints nothing
  EXPECT_TRUE(Near(picture.At(7, 27), kClear));

  // Patterns filled with patterns, forty deep and each tile huge: tiles are
  // capped in size and depth, so the innermost colour is never reached, and
  // the drawing ends promptly with nothing painted.
  std::string chain;
  for (int i = 0; i < 40; ++i) {
    chain += "<pattern id='p" + std::to_string(i) + "' patternUnits='userSpaceOnUse' width='100000' height='100000'>"
             "<rect width='100000' height='100000' fill='" + (i < 39 ? "url(#p" + std::to_string(i + 1) + ") " : "") +
             "red'/></pattern>";
  }
  Rendered deep(Svg(chain + "<rect width='10' height='10' fill='url(#p0)'/>"));
  ASSERT_NE(deep.Image(), nullptr);
  EXPECT_TRUE(Near(deep.At(5, 5), kClear));
}

// ---- Text

// The box of the pixels with some alpha; false when there are none.
struct Ink {
  int left = 1 << 30, right = -1, top = 1 << 30, bottom = -1, count = 0;
};
Ink InkOf(const Rendered& i_picture) {
  Ink ink;
  if (i_picture.Image() == nullptr) {
    ADD_FAILURE() << i_picture.Error();
    return ink;
  }
  for (int y = 0; y < i_picture.Image()->GetHeight(); ++y) {
    for (int x = 0; x < i_picture.Image()->GetWidth(); ++x) {
      if (i_picture.At(x, y).a < 128) continue;
      ink.left = std::min(ink.left, x);
      ink.right = std::max(ink.right, x);
      ink.top = std::min(ink.top, y);
      ink.bottom = std::max(ink.bottom, y);
      ++ink.count;
    }
  }
  return ink;
}

std::string TextSvg(const std::string& i_attributes, const std::string& i_text = "Hamburg", int i_size = 20) {
  return Svg("<text x='100' y='40' font-family='sans-serif' font-size='" + std::to_string(i_size) + "' " +
                 i_attributes + ">" + i_text + "</text>",
             "width='200' height='60'");
}

TEST(HostRenderText, GlyphsSitOnTheBaselineFromTheAnchor) {
  Rendered start(TextSvg("fill='blue'"));
  ASSERT_NE(start.Image(), nullptr);
  const Ink ink = InkOf(start);
  ASSERT_GT(ink.count, 100);
  EXPECT_GE(ink.left, 100);
  EXPECT_LE(ink.left, 103);
  EXPECT_LE(ink.bottom, 45);  // the g descends below the baseline
  EXPECT_GE(ink.bottom, 41);
  EXPECT_GE(ink.top, 40 - 20);
  EXPECT_TRUE(Near(start.At(ink.left + 1, 30), kBlue, 60));  // the stem of the H

  Rendered middle(TextSvg("fill='blue' text-anchor='middle'"));
  const Ink centred = InkOf(middle);
  EXPECT_NEAR((centred.left + centred.right) / 2.0, 100.0, 3.0);
  Rendered end(TextSvg("fill='blue' text-anchor='end'"));
  EXPECT_LE(InkOf(end).right, 100);
  EXPECT_GE(InkOf(end).right, 96);
}

TEST(HostRenderText, WeightStyleAndSize) {
  const Ink regular = InkOf(Rendered(TextSvg("")));
  const Ink bold = InkOf(Rendered(TextSvg("font-weight='bold'")));
  EXPECT_GT(bold.count, regular.count * 6 / 5);
  const Ink italic = InkOf(Rendered(TextSvg("font-style='italic'", "I")));
  const Ink upright = InkOf(Rendered(TextSvg("", "I")));
  EXPECT_GT(italic.right - italic.left, upright.right - upright.left);  // the slanted stem is wider
  const Ink small = InkOf(Rendered(TextSvg("", "Ham")));
  const Ink larger = InkOf(Rendered(TextSvg("", "Ham", 40)));
  EXPECT_NEAR(larger.right - larger.left, (small.right - small.left) * 2, 4);
  // Nothing to paint with draws nothing.
  EXPECT_EQ(InkOf(Rendered(TextSvg("fill='none'"))).count, 0);
}

TEST(HostRenderText, BoxUnitsFollowTheAnchorAndFiltersApply) {
  // A box-unit gradient spans the centred text: red at its left end, blue at its right.
  Rendered centred(Svg("<linearGradient id='g'><stop offset='0' stop-color='red'/><stop offset='1' stop-color='blue'/>"
                       "</linearGradient>"
                       "<text x='100' y='40' font-family='sans-serif' font-size='30' font-weight='bold'"
                       " text-anchor='middle' fill='url(#g)'>HHHHH</text>",
                       "width='200' height='60'"));
  const Ink ink = InkOf(centred);
  ASSERT_GT(ink.count, 100);
  const Rgba left = centred.At(ink.left + 2, 30);
  const Rgba right = centred.At(ink.right - 2, 30);
  EXPECT_GT(left.r, 200);
  EXPECT_GT(right.b, 200);
  // A filter in box units has a box to work in: the text is drawn, and moved.
  Rendered moved(Svg("<filter id='f'><feOffset dx='5'/></filter>"
                     "<text x='20' y='40' font-family='sans-serif' font-size='20' filter='url(#f)'>H</text>",
                     "width='200' height='60'"));
  const Ink shifted = InkOf(moved);
  ASSERT_GT(shifted.count, 20);
  EXPECT_GE(shifted.left, 25);
}

TEST(HostRenderText, GradientFillStrokeAndGroupOpacity) {
  Rendered picture(Svg("<linearGradient id='g' gradientUnits='userSpaceOnUse' x1='0' x2='200'>"
                       "<stop offset='0.5' stop-color='red'/><stop offset='0.5' stop-color='blue'/></linearGradient>"
                       "<text x='10' y='40' font-family='sans-serif' font-size='30' font-weight='bold' fill='url(#g)'>"
                       "HHHHHHHHHHHH</text>",
                       "width='200' height='60'"));
  ASSERT_NE(picture.Image(), nullptr);
  bool red = false, blue = false;
  for (int x = 0; x < 200; ++x) {
    const Rgba pixel = picture.At(x, 30);
    if (x < 95 && Near(pixel, kRed)) red = true;
    if (x > 105 && Near(pixel, kBlue)) blue = true;
    EXPECT_FALSE(x < 95 && pixel.b > 8) << x;
  }
  EXPECT_TRUE(red);
  EXPECT_TRUE(blue);
  // A stroke over the fill in a faded text: one of the two at half alpha, never their sum.
  Rendered faded(TextSvg("fill='red' stroke='blue' stroke-width='2' opacity='0.5'", "HHH"));
  for (int y = 0; y < 60; ++y) {
    for (int x = 0; x < 200; ++x) EXPECT_LE(faded.At(x, y).a, 129) << x << ", " << y;
  }
}

// ---- The bundled sample

TEST(HostSample, HarbourDrawsItsGradientsOpacityAndReusedBoat) {
  std::ifstream file(std::string(VYR_SOURCE_DIR) + "/resources/samples/harbour.svg");
  std::ostringstream text;
  text << file.rdbuf();
  ASSERT_FALSE(text.str().empty());
  Rendered picture(text.str());
  ASSERT_NE(picture.Image(), nullptr) << picture.Error();
  EXPECT_EQ(picture.Image()->GetWidth(), 480);
  // The sky runs from night blue at the top to orange at the horizon.
  EXPECT_TRUE(Near(picture.At(10, 1), {29, 43, 83, 255}, 4));
  const Rgba horizon = picture.At(10, 205);
  EXPECT_GT(horizon.r, 230);
  EXPECT_GT(horizon.g, 140);
  // The sun is pale at its centre, yellow at its rim.
  EXPECT_TRUE(Near(picture.At(340, 184), {255, 246, 194, 255}, 6));
  const Rgba rim = picture.At(340, 143);
  EXPECT_GT(rim.r, 240);
  EXPECT_LT(rim.b, 120);
  // The sea darkens downwards.
  EXPECT_TRUE(Near(picture.At(240, 319), {11, 26, 51, 255}, 8));
  // The beam lets the sky show through.
  const Rgba beam = picture.At(180, 100);
  const Rgba skyBeside = picture.At(180, 60);
  EXPECT_GT(beam.r, skyBeside.r + 30);
  EXPECT_LT(beam.r, 250);
  // The smaller boat is the same drawing, faded over the sea.
  const Rgba hull = picture.At(150, 269);
  EXPECT_GT(hull.r, hull.b);
  EXPECT_LT(hull.r, 0x6b);
  EXPECT_GT(hull.r, 0x40);
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

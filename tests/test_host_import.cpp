// The SVG importer: each element kind gives the model values it stands for;
// malformed documents give reports and a partial or empty model.
#include <gtest/gtest.h>

#include <cmath>
#include <string>

#include "AssertionCapture.h"
#include "TestPrinters.h"
#include "VYRBase64.h"
#include "VYRHostPaintCodes.h"
#include "VYRListPtrVYRPrtImageElt.h"
#include "VYRPixelImage.h"
#include "VYRPixelImagePNG.h"
#include "VYRPrintGradientLinear.h"
#include "VYRPrintGradientStop.h"
#include "VYRPrtBitmapImageElt.h"
#include "VYRPrtCircleElt.h"
#include "VYRPrtClipPathElt.h"
#include "VYRPrtColourTable.h"
#include "VYRPrtDefsElt.h"
#include "VYRPrtEllipseElt.h"
#include "VYRPrtFilterContainerElt.h"
#include "VYRPrtFilterGaussianBlurElt.h"
#include "VYRPrtFilterOffsetElt.h"
#include "VYRPrtGroupElt.h"
#include "VYRPrtImageElt.h"
#include "VYRPrtLineElt.h"
#include "VYRPrtLinearGradientElt.h"
#include "VYRPrtModel.h"
#include "VYRPrtPathElt.h"
#include "VYRPrtPathSegArcTo.h"
#include "VYRPrtPathSegCurveToCubic.h"
#include "VYRPrtPathSegCurveToQuadratic.h"
#include "VYRPrtPathSegWithSinglePoint.h"
#include "VYRPrtPatternElt.h"
#include "VYRPrtMaskElt.h"
#include "VYRPrtPolygonElt.h"
#include "VYRPrtRectangleElt.h"
#include "VYRPrtTextElt.h"
#include "VYRSvgImporter.h"
#include "VYRSvgValues.h"

namespace {

// Imports a document and keeps the model for the test's lifetime.
class Imported {
 public:
  explicit Imported(const std::string& i_svg) : _pModel(_importer.ImportBuffer(i_svg)) {}
  ~Imported() { _pModel->Release(); }
  Imported(const Imported&) = delete;
  Imported& operator=(const Imported&) = delete;

  VYRSvgImporter& Importer() { return _importer; }
  VYRPrtModel& Model() { return *_pModel; }
  VYRPrtImageElt* Image() const {
    VYRListPtrVYRPrtImageElt* pImages = nullptr;
    _pModel->GetImages(pImages);
    return pImages != nullptr && pImages->Size() >= 1 ? (*pImages)[1] : nullptr;
  }
  // The i-th child of the image, as K (null when it is not one).
  template <class K>
  K* Child(int i_index) const {
    VYRPrtImageElt* pImage = Image();
    if (pImage == nullptr || i_index >= pImage->GetChildArray().GetLength()) return nullptr;
    return dynamic_cast<K*>(pImage->GetChild(i_index));
  }
  int ChildCount() const { return Image() ? Image()->GetChildArray().GetLength() : 0; }
  // The colour a colour index names in the image's table, as 0xRRGGBB.
  unsigned int Colour(unsigned int i_index) const {
    unsigned char r = 0, g = 0, b = 0;
    Image()->GetColorTable()->GetColour(i_index, r, g, b);
    return (r << 16) | (g << 8) | b;
  }
  unsigned int FillColour(const VYRPrtBaseShapeElt* i_pShape) const {
    unsigned int index = 0;
    i_pShape->GetFillAttributes().GetFillColourIndex(index);
    return Colour(index);
  }
  bool HasMessage(const std::string& i_part) const {
    for (const std::string& message : _importer.GetMessages()) {
      if (message.find(i_part) != std::string::npos) return true;
    }
    return false;
  }

 private:
  VYRSvgImporter _importer;
  VYRPrtModel* _pModel;
};

std::string Svg(const std::string& i_body, const std::string& i_rootAttributes = "width=\"100\" height=\"80\"") {
  return "<svg xmlns=\"http://www.w3.org/2000/svg\" xmlns:xlink=\"http://www.w3.org/1999/xlink\" " +
         i_rootAttributes + ">" + i_body + "</svg>";
}

VYRMathPoint2D Apply(const VYRPrtGraphicPrimitiveElt* i_pElt, double i_x, double i_y) {
  VYRMath3x3Matrix matrix;
  i_pElt->GetTransformAttributes().GetTransformationMatrix(matrix);
  return matrix * VYRMathPoint2D(i_x, i_y);
}

TEST(HostImport, RootSizeAndViewBoxMapping) {
  Imported doc(Svg("", "width=\"200\" height=\"100\" viewBox=\"10 0 50 50\""));
  ASSERT_TRUE(doc.Importer().Succeeded());
  double width = 0.0, height = 0.0;
  doc.Image()->GetSize(width, height);
  EXPECT_EQ(width, 200.0);
  EXPECT_EQ(height, 100.0);
  // xMidYMid meet: scale 2, centred horizontally: (10, 0) lands on (50, 0).
  const VYRMathPoint2D p = Apply(doc.Image(), 10.0, 0.0);
  EXPECT_NEAR(p.x, 50.0, 1e-9);
  EXPECT_NEAR(p.y, 0.0, 1e-9);
  const VYRMathPoint2D q = Apply(doc.Image(), 60.0, 50.0);
  EXPECT_NEAR(q.x, 150.0, 1e-9);
  EXPECT_NEAR(q.y, 100.0, 1e-9);

  Imported stretched(Svg("", "width=\"200\" height=\"100\" viewBox=\"0 0 50 50\" preserveAspectRatio=\"none\""));
  const VYRMathPoint2D r = Apply(stretched.Image(), 50.0, 50.0);
  EXPECT_NEAR(r.x, 200.0, 1e-9);
  EXPECT_NEAR(r.y, 100.0, 1e-9);

  Imported sizeFromViewBox(Svg("", "viewBox=\"0 0 30 20\""));
  sizeFromViewBox.Image()->GetSize(width, height);
  EXPECT_EQ(width, 30.0);
  EXPECT_EQ(height, 20.0);
}

// A clip path, mask or filter on the root takes in everything the document
// draws: the content goes into one group that carries them.
TEST(HostImport, EffectsOfTheRootTakeInTheWholeDocument) {
  Imported clipped(Svg("<clipPath id='c'><rect width='5' height='5'/></clipPath><rect width='9' height='9'/>",
                       "width='10' height='10' clip-path='url(#c)' mask='url(#m)'"));
  ASSERT_EQ(clipped.ChildCount(), 1);
  auto* pContent = clipped.Child<VYRPrtGroupElt>(0);
  ASSERT_NE(pContent, nullptr);
  ASSERT_NE(pContent->GetClipPath(), nullptr);
  EXPECT_EQ(pContent->GetClipPath()->GetID(), "c");
  EXPECT_EQ(pContent->GetMask(), nullptr);  // reported missing
  EXPECT_EQ(pContent->GetChild(0)->GetStreamType(), kStreamTypeClipPathElt);
  EXPECT_EQ(pContent->GetChild(1)->GetStreamType(), kStreamTypeRectangleElt);

  Imported plain(Svg("<rect width='9' height='9'/>"));
  ASSERT_EQ(plain.ChildCount(), 1);
  EXPECT_NE(plain.Child<VYRPrtRectangleElt>(0), nullptr);  // no group without effects
}

// A root named with a prefix is read like any other: its namespaces are
// declared before the parser set-up would cut its name in two.
TEST(HostImport, PrefixedRoot) {
  Imported prefixed("<svg:svg width='10' height='10' xmlns:svg='http://www.w3.org/2000/svg'>"
                    "<svg:rect width='5' height='5'/><svg:circle r='2'/></svg:svg>");
  EXPECT_TRUE(prefixed.Importer().Succeeded());
  ASSERT_EQ(prefixed.ChildCount(), 2);
  EXPECT_NE(prefixed.Child<VYRPrtRectangleElt>(0), nullptr);

  Imported declared("<svg:svg width='10' height='10' xmlns = 'http://www.w3.org/2000/svg' "
                    "xmlns:svg='http://www.w3.org/2000/svg' xmlns:xlink='http://www.w3.org/1999/xlink'>"
                    "<rect width='5' height='5'/></svg:svg>");
  EXPECT_TRUE(declared.Importer().Succeeded());
  EXPECT_EQ(declared.ChildCount(), 1);
}

TEST(HostImport, AnglesWithUnits) {
  const struct {
    const char* text;
    double degrees;
  } cases[] = {{"90", 90.0}, {" 45deg ", 45.0}, {"1.5rad", 1.5 * 180.0 / M_PI}, {"100grad", 90.0}, {"-0.5turn", -180.0}};
  for (const auto& c : cases) {
    double degrees = 0.0;
    EXPECT_TRUE(VYRSvgValues::ParseAngle(c.text, degrees)) << c.text;
    EXPECT_NEAR(degrees, c.degrees, 1e-12) << c.text;
  }
  double untouched = 7.0;
  for (const char* bad : {"", "deg", "1.5 rad", "1.5radian", "2px"}) {
    EXPECT_FALSE(VYRSvgValues::ParseAngle(bad, untouched)) << bad;
  }
  EXPECT_EQ(untouched, 7.0);
}

// Bounding-box units need a box with an area: on a straight line a gradient
// or pattern in those units gives way to the fallback colour, or to none.
TEST(HostImport, ServersInBoxUnitsOnLinesTakeTheFallback) {
  Imported doc(Svg("<linearGradient id='g'><stop offset='0' stop-color='red'/></linearGradient>"
                   "<pattern id='p' width='1' height='1'><rect width='5' height='5'/></pattern>"
                   "<pattern id='u' patternUnits='userSpaceOnUse' width='5' height='5'><rect width='5' height='5'/>"
                   "</pattern>"
                   "<line x2='10' stroke='url(#g) #00ff00'/><line y2='10' stroke='url(#p) #0000ff'/>"
                   "<line x2='10' stroke='url(#g)'/><line x2='10' stroke='url(#u) red'/>"
                   "<rect width='10' height='10' stroke='url(#g) red'/>"));
  ASSERT_EQ(doc.ChildCount(), 8);  // the three servers, then the shapes
  auto stroke = [&](int i_index) { return doc.Child<VYRPrtGraphicPrimitiveElt>(3 + i_index); };
  const VYRPrtStrokeAttributes& greenFallback = static_cast<VYRPrtLineElt*>(stroke(0))->GetStrokeAttributes();
  EXPECT_EQ(greenFallback.GetStrokeMode(), kHostStrokeColor);
  EXPECT_EQ(doc.Colour(greenFallback.GetStrokeColorIndex()), 0x00ff00u);
  const VYRPrtStrokeAttributes& blueFallback = static_cast<VYRPrtLineElt*>(stroke(1))->GetStrokeAttributes();
  EXPECT_EQ(doc.Colour(blueFallback.GetStrokeColorIndex()), 0x0000ffu);
  EXPECT_EQ(stroke(1)->GetPattern(), nullptr);
  EXPECT_EQ(static_cast<VYRPrtLineElt*>(stroke(2))->GetStrokeAttributes().GetStrokeMode(), kHostStrokeNone);
  // A pattern in user units paints a line; a gradient in box units paints a rectangle.
  EXPECT_EQ(static_cast<VYRPrtLineElt*>(stroke(3))->GetStrokeAttributes().GetStrokeMode(), kHostStrokePattern);
  EXPECT_EQ(static_cast<VYRPrtBaseShapeElt*>(stroke(4))->GetStrokeAttributes().GetStrokeMode(), kHostStrokeGradient);
}

TEST(HostImport, BasicShapesWithUnits) {
  Imported doc(Svg("<rect x='1in' y='10' width='50%' height='2mm' rx='5'/>"
                   "<circle cx='5' cy='6' r='7pt'/>"
                   "<ellipse cx='1' cy='2' rx='3' ry='4'/>"
                   "<line x1='1' y1='2' x2='3' y2='4' stroke='red'/>"
                   "<polygon points='0,0 10,0 10 10'/>"));
  ASSERT_EQ(doc.ChildCount(), 5);
  auto* pRect = doc.Child<VYRPrtRectangleElt>(0);
  ASSERT_NE(pRect, nullptr);
  VYRMathPoint2D p1, p2;
  pRect->GetPoints(p1, p2);
  EXPECT_DOUBLE_EQ(p1.x, 96.0);
  EXPECT_DOUBLE_EQ(p1.y, 10.0);
  EXPECT_DOUBLE_EQ(p2.x, 96.0 + 50.0);  // 50% of the 100 wide viewport
  EXPECT_NEAR(p2.y, 10.0 + 2.0 * 96.0 / 25.4, 1e-9);
  double rx = 0.0, ry = 0.0;
  pRect->GetRadius(rx, ry);
  EXPECT_EQ(rx, 5.0);
  EXPECT_NEAR(ry, 2.0 * 96.0 / 25.4 / 2.0, 1e-9);  // ry follows rx, limited to half the height

  auto* pCircle = doc.Child<VYRPrtCircleElt>(1);
  ASSERT_NE(pCircle, nullptr);
  EXPECT_EQ(pCircle->GetCenter().x, 5.0);
  EXPECT_NEAR(pCircle->GetRadius(), 7.0 * 96.0 / 72.0, 1e-9);
  auto* pEllipse = doc.Child<VYRPrtEllipseElt>(2);
  ASSERT_NE(pEllipse, nullptr);
  EXPECT_EQ(pEllipse->GetVertRadius(), 4.0);
  auto* pLine = doc.Child<VYRPrtLineElt>(3);
  ASSERT_NE(pLine, nullptr);
  EXPECT_EQ(pLine->GetEndPoint().y, 4.0);
  EXPECT_EQ(pLine->GetStrokeAttributes().GetStrokeMode(), kHostStrokeColor);
  auto* pPolygon = doc.Child<VYRPrtPolygonElt>(4);
  ASSERT_NE(pPolygon, nullptr);
  ASSERT_EQ(pPolygon->GetPointCount(), 3);
  EXPECT_EQ(pPolygon->GetPoints()[2].y, 10.0);
}

TEST(HostImport, ShapesWithoutAreaAreLeftOut) {
  Imported doc(Svg("<rect width='0' height='5'/><circle r='-1'/><ellipse rx='2'/><polyline points='1 2'/>"
                   "<path d=''/>"));
  EXPECT_TRUE(doc.Importer().Succeeded());
  EXPECT_EQ(doc.ChildCount(), 0);
}

TEST(HostImport, PathDataBecomesAbsoluteSegments) {
  Imported doc(Svg("<path d='m10 20 h5 v5 l-5 0 c1 1 2 2 3 3 s4 4 5 5 q1 0 2 2 t2 0 M0 0 A10 10 0 0 1 20 0 z'/>"));
  auto* pPath = doc.Child<VYRPrtPathElt>(0);
  ASSERT_NE(pPath, nullptr);
  const VYRSYPDynArray<VYRPrtPathSeg*>& segs = pPath->GetPathSegments();
  ASSERT_EQ(segs.GetLength(), 11);
  auto target = [&segs](int i) { return static_cast<VYRPrtPathSegWithSinglePoint*>(segs[i])->GetTarget(); };
  EXPECT_EQ(segs[0]->GetPathSegType(), MM2D::PathSegMoveToAbs);
  EXPECT_EQ(target(1).x, 15.0);  // h5
  EXPECT_EQ(target(2).y, 25.0);  // v5
  EXPECT_EQ(target(3).x, 10.0);  // l-5 0
  auto* pCubic = static_cast<VYRPrtPathSegCurveToCubic*>(segs[4]);
  EXPECT_EQ(pCubic->GetTarget().x, 13.0);
  // s reflects the previous second control point (12, 27) about (13, 28).
  auto* pSmooth = static_cast<VYRPrtPathSegCurveToCubic*>(segs[5]);
  EXPECT_EQ(pSmooth->GetCP1().x, 14.0);
  EXPECT_EQ(pSmooth->GetCP1().y, 29.0);
  EXPECT_EQ(pSmooth->GetTarget().x, 18.0);
  // t reflects the quadratic's control point (19, 33) about (20, 35).
  auto* pT = static_cast<VYRPrtPathSegCurveToQuadratic*>(segs[7]);
  EXPECT_EQ(pT->GetCP1().x, 21.0);
  EXPECT_EQ(pT->GetCP1().y, 37.0);
  auto* pArc = static_cast<VYRPrtPathSegArcTo*>(segs[9]);
  ASSERT_EQ(pArc->GetStreamType(), kPathSegStreamTypeArcTo);
  EXPECT_NEAR(pArc->GetCenter().x, 10.0, 1e-9);
  EXPECT_NEAR(pArc->GetCenter().y, 0.0, 1e-9);
  EXPECT_NEAR(pArc->GetStartAngle(), 180.0, 1e-9);
  EXPECT_NEAR(pArc->GetSweepAngle(), 180.0, 1e-9);  // sweep flag 1: positive angles
  EXPECT_TRUE(pArc->GetEndPointParameters().GetSweepFlag());
  EXPECT_EQ(segs[10]->GetPathSegType(), MM2D::PathSegClosePath);
}

TEST(HostImport, PathDataIsReadUpToItsFirstError) {
  Imported doc(Svg("<path d='M0 0 L10 10 L20 x 30 30'/>"));
  auto* pPath = doc.Child<VYRPrtPathElt>(0);
  ASSERT_NE(pPath, nullptr);
  EXPECT_EQ(pPath->GetPathSegments().GetLength(), 2);
  EXPECT_TRUE(doc.HasMessage("path"));
  // Data that does not begin with a move-to has nothing before its first error.
  Imported noMove(Svg("<path d='A 5 5 0 0 1 50 50'/><path d='L 5 5'/><path d='m 1 1 l 5 5'/>"));
  ASSERT_EQ(noMove.ChildCount(), 1);  // the two without are left out
  EXPECT_EQ(noMove.Child<VYRPrtPathElt>(0)->GetPathSegments().GetLength(), 2);
  EXPECT_TRUE(noMove.HasMessage("path"));
}

TEST(HostImport, ColoursInheritanceAndStyleAttribute) {
  Imported doc(Svg("<g fill='teal' stroke='#abc' stroke-width='3' color='#102030'>"
                   "  <rect width='1' height='1'/>"
                   "  <rect width='1' height='1' fill='rgb(255, 0, 50%)' style='stroke-width: 0.5; fill-opacity:.5'/>"
                   "  <rect width='1' height='1' fill='currentColor' stroke='none'/>"
                   "  <rect width='1' height='1' fill='none' style='fill:red' stroke-linecap='round'"
                   "        stroke-linejoin='bevel' stroke-dasharray='1,2,3'/>"
                   "</g>"));
  auto* pGroup = doc.Child<VYRPrtGroupElt>(0);
  ASSERT_NE(pGroup, nullptr);
  ASSERT_EQ(pGroup->GetChildArray().GetLength(), 4);
  auto shape = [pGroup](int i) { return static_cast<VYRPrtBaseShapeElt*>(pGroup->GetChild(i)); };
  EXPECT_EQ(doc.FillColour(shape(0)), 0x008080u);
  EXPECT_EQ(doc.Colour(shape(0)->GetStrokeAttributes().GetStrokeColorIndex()), 0xaabbccu);
  EXPECT_EQ(shape(0)->GetStrokeAttributes().GetStrokeWidth(), 3.0);
  EXPECT_EQ(doc.FillColour(shape(1)), 0xff0080u);
  EXPECT_EQ(shape(1)->GetFillAttributes().GetFillOpacity(), 128);
  EXPECT_EQ(shape(1)->GetStrokeAttributes().GetStrokeWidth(), 0.5);
  EXPECT_EQ(doc.FillColour(shape(2)), 0x102030u);
  EXPECT_EQ(shape(2)->GetStrokeAttributes().GetStrokeMode(), kHostStrokeNone);
  // The style attribute wins over the presentation attribute.
  EXPECT_EQ(shape(3)->GetFillAttributes().GetFillStyle(), kHostFillColor);
  EXPECT_EQ(doc.FillColour(shape(3)), 0xff0000u);
  const VYRPrtStrokeAttributes& stroke = shape(3)->GetStrokeAttributes();
  EXPECT_EQ(stroke.GetStrokeCap(), eLineCapRound);
  EXPECT_EQ(stroke.GetStrokeJoin(), eLineJoinBevel);
  float* pDashes = nullptr;
  unsigned char count = 0;
  stroke.GetStrokeTypePattern(pDashes, count);
  ASSERT_EQ(count, 6);  // an odd list is repeated
  EXPECT_EQ(pDashes[3], 1.0f);
}

// Rules cascade by specificity, then order; presentation attributes lose to
// them, the style attribute beats them unless they are important.
TEST(HostImport, StyleSheetRulesCascade) {
  Imported doc(Svg("<rect width='1' height='1' fill='red' class='a b'/>"
                   "<g id='outer'><g><rect id='r' width='1' height='1' class='a' style='fill:#000002'/></g></g>"
                   "<rect width='1' height='1' x='5' transform='translate(1,0)'/>"
                   "<style>/* a comment {fill:red} */ @media print { rect { fill: red } } @import url(x.css);"
                   "  rect { fill: #000001 } .a.b { fill: #0000aa } .a { fill: #000003 }"
                   "  #outer > g > rect { stroke: #000004 !important } g > g > rect { stroke: red }"
                   "  [x='5'] { fill: #000005; transform: scale(2) } rect:first-child, rect + rect { fill: red }"
                   "</style>"
                   "<style type='text/other'>rect { fill: red !important }</style>"));
  ASSERT_EQ(doc.ChildCount(), 3);
  auto* pFirst = doc.Child<VYRPrtBaseShapeElt>(0);
  ASSERT_NE(pFirst, nullptr);
  EXPECT_EQ(doc.FillColour(pFirst), 0x0000aau);  // two classes beat one class and the type
  auto* pGroup = doc.Child<VYRPrtGroupElt>(1);
  ASSERT_NE(pGroup, nullptr);
  auto* pInner = static_cast<VYRPrtGroupElt*>(pGroup->GetChild(0));
  auto* pNested = static_cast<VYRPrtBaseShapeElt*>(pInner->GetChild(0));
  EXPECT_EQ(doc.FillColour(pNested), 0x000002u);  // the style attribute wins over a rule
  EXPECT_EQ(doc.Colour(pNested->GetStrokeAttributes().GetStrokeColorIndex()), 0x000004u);
  auto* pLast = doc.Child<VYRPrtBaseShapeElt>(2);
  ASSERT_NE(pLast, nullptr);
  EXPECT_EQ(doc.FillColour(pLast), 0x000005u);
  // A rule's transform replaces the attribute.
  VYRMathPoint2D moved = Apply(pLast, 1.0, 1.0);
  EXPECT_EQ(moved.x, 2.0);
  EXPECT_EQ(moved.y, 2.0);
}

// The transform property cascades like the others: the style attribute beats
// the attribute and normal rules, important rules beat the style attribute.
TEST(HostImport, TransformInTheStyleAttribute) {
  Imported doc(Svg("<rect width='1' height='1' transform='scale(5)' style='fill:red; transform:scale(2)'/>"
                   "<rect class='n' width='1' height='1' style='transform: scale(3)'/>"
                   "<rect class='i' width='1' height='1' style='transform: scale(3)'/>"
                   "<style>.n { transform: scale(4) } .i { transform: scale(6) !important }</style>"));
  ASSERT_EQ(doc.ChildCount(), 3);
  const double scales[] = {2.0, 3.0, 6.0};
  for (int i = 0; i < 3; ++i) {
    auto* pRect = doc.Child<VYRPrtBaseShapeElt>(i);
    ASSERT_NE(pRect, nullptr);
    EXPECT_EQ(Apply(pRect, 1.0, 1.0).x, scales[i]) << i;
  }
}

// A long chain of descendant selectors over a deep document ends quickly.
TEST(HostImport, StyleSheetSelectorsNeverBacktrackWithoutEnd) {
  std::string body;
  for (int i = 0; i < 120; ++i) body += "<g>";
  body += "<rect width='1' height='1'/>";
  for (int i = 0; i < 120; ++i) body += "</g>";
  std::string selector = "missing ";  // matches no ancestor, after every way of placing the rest was tried
  for (int i = 0; i < 50; ++i) selector += "g * ";
  Imported doc(Svg(body + "<style>" + selector + "rect { fill: red }</style>"));
  EXPECT_TRUE(doc.Importer().Succeeded());
}

TEST(HostImport, DefaultPaintIsBlackFillWithoutStroke) {
  Imported doc(Svg("<rect width='1' height='1'/><rect width='1' height='1' fill='none'/>"));
  auto* pFirst = doc.Child<VYRPrtRectangleElt>(0);
  auto* pSecond = doc.Child<VYRPrtRectangleElt>(1);
  ASSERT_NE(pSecond, nullptr);
  EXPECT_EQ(pFirst->GetFillAttributes().GetFillStyle(), kHostFillColor);
  EXPECT_EQ(doc.FillColour(pFirst), 0x000000u);
  EXPECT_EQ(pFirst->GetStrokeAttributes().GetStrokeMode(), kHostStrokeNone);
  EXPECT_EQ(pSecond->GetFillAttributes().GetFillStyle(), kHostFillNone);
}

TEST(HostImport, TransformsOpacityVisibilityAndDisplay) {
  Imported doc(Svg("<g transform='translate(10 20) scale(2)' opacity='0.5'>"
                   "<rect id='r' width='1' height='1' transform='rotate(90)' visibility='hidden'/></g>"
                   "<rect width='1' height='1' display='none'/>"));
  ASSERT_EQ(doc.ChildCount(), 1);
  auto* pGroup = doc.Child<VYRPrtGroupElt>(0);
  ASSERT_NE(pGroup, nullptr);
  EXPECT_EQ(pGroup->GetOpacity(), 128);
  const VYRMathPoint2D p = Apply(pGroup, 1.0, 1.0);
  EXPECT_DOUBLE_EQ(p.x, 12.0);
  EXPECT_DOUBLE_EQ(p.y, 22.0);
  VYRPrtGraphicPrimitiveElt* pRect = pGroup->GetChild(0);
  EXPECT_EQ(pRect->GetID(), VYRUnicodeString("r"));
  EXPECT_EQ(pRect->GetVisibility(), 0);
  const VYRMathPoint2D q = Apply(pRect, 1.0, 0.0);
  EXPECT_NEAR(q.x, 0.0, 1e-6);
  EXPECT_NEAR(q.y, 1.0, 1e-6);
}

TEST(HostImport, LinearGradientWithInheritedStopsInBoundingBoxUnits) {
  Imported doc(Svg("<defs><linearGradient id='base'><stop offset='0' stop-color='red'/>"
                   "<stop offset='100%' style='stop-color:blue; stop-opacity:0.5'/></linearGradient>"
                   "<linearGradient id='g' xlink:href='#base' x2='0' y2='1'/></defs>"
                   "<rect x='10' y='20' width='30' height='40' fill='url(#g)'/>"));
  auto* pDefs = doc.Child<VYRPrtDefsElt>(0);
  ASSERT_NE(pDefs, nullptr);
  ASSERT_EQ(pDefs->GetChildArray().GetLength(), 2);
  auto* pGradient = dynamic_cast<VYRPrtLinearGradientElt*>(pDefs->GetChild(1));
  ASSERT_NE(pGradient, nullptr);
  EXPECT_EQ(pGradient->GetID(), VYRUnicodeString("g"));
  ASSERT_EQ(pGradient->GetStopCount(), 2);
  EXPECT_EQ(pGradient->GetStop(1)->GetOffset(), 1.0);
  EXPECT_EQ(pGradient->GetStop(1)->GetStopOpacity(), 0.5);
  EXPECT_EQ(pGradient->GetEndPoint().y, 1.0);

  auto* pRect = doc.Child<VYRPrtRectangleElt>(1);
  ASSERT_NE(pRect, nullptr);
  const VYRPrtFillAttributes& fill = pRect->GetFillAttributes();
  EXPECT_EQ(fill.GetFillStyle(), kHostFillGradient);
  ASSERT_EQ(fill.GetGradientType(), MM2D::GradientLinear);
  auto* pRecord = static_cast<VYRPrintGradientLinear*>(fill.GetGradient());
  ASSERT_EQ(pRecord->GetStopCount(), 2);
  // The record's transform maps the unit square onto the rectangle.
  float x2 = 0.0f, y2 = 0.0f;
  pRecord->GetEndPoint(x2, y2);
  const VYRMathPoint2D end = pRecord->GetTransform() * VYRMathPoint2D(x2, y2);
  EXPECT_NEAR(end.x, 10.0, 1e-5);
  EXPECT_NEAR(end.y, 60.0, 1e-5);
}

TEST(HostImport, MissingPaintServerUsesTheFallback) {
  Imported doc(Svg("<rect width='1' height='1' fill='url(#nothing) green'/>"
                   "<rect width='1' height='1' fill='url(#nothing)'/>"));
  EXPECT_EQ(doc.FillColour(doc.Child<VYRPrtRectangleElt>(0)), 0x008000u);
  EXPECT_EQ(doc.Child<VYRPrtRectangleElt>(1)->GetFillAttributes().GetFillStyle(), kHostFillNone);
  EXPECT_TRUE(doc.HasMessage("nothing"));
}

TEST(HostImport, ClipPathFilterAndUse) {
  Imported doc(Svg("<clipPath id='c' clip-rule='evenodd'><circle r='5'/></clipPath>"
                   "<filter id='f'><feGaussianBlur stdDeviation='2 3'/><feOffset dx='4' dy='5'/><feTurbulence/>"
                   "</filter>"
                   "<rect id='box' width='2' height='2' clip-path='url(#c)' filter='url(#f)'/>"
                   "<use xlink:href='#box' x='7' y='8'/>"));
  ASSERT_EQ(doc.ChildCount(), 4);
  auto* pClip = doc.Child<VYRPrtClipPathElt>(0);
  ASSERT_NE(pClip, nullptr);
  EXPECT_EQ(pClip->GetClipRule(), VYRPrtFillRuleEvenOdd);
  auto* pRect = doc.Child<VYRPrtRectangleElt>(2);
  ASSERT_NE(pRect, nullptr);
  EXPECT_EQ(pRect->GetClipPath(), pClip);
  EXPECT_EQ(pRect->GetClipPathID(), VYRUnicodeString("c"));
  VYRPrtFilterContainerElt* pFilter = pRect->GetFilter();
  ASSERT_NE(pFilter, nullptr);
  ASSERT_EQ(pFilter->GetChildArray().GetLength(), 2);
  auto* pBlur = dynamic_cast<VYRPrtFilterGaussianBlurElt*>(pFilter->GetChild(0));
  ASSERT_NE(pBlur, nullptr);
  EXPECT_EQ(pBlur->GetStdDeviationY(), 3.0);
  EXPECT_EQ(dynamic_cast<VYRPrtFilterOffsetElt*>(pFilter->GetChild(1))->GetDy(), 5.0);
  EXPECT_TRUE(doc.HasMessage("feTurbulence"));

  // The use is a group placed at (7, 8) holding its own copy of the rectangle.
  auto* pUse = doc.Child<VYRPrtGroupElt>(3);
  ASSERT_NE(pUse, nullptr);
  const VYRMathPoint2D p = Apply(pUse, 0.0, 0.0);
  EXPECT_EQ(p.x, 7.0);
  EXPECT_EQ(p.y, 8.0);
  ASSERT_EQ(pUse->GetChildArray().GetLength(), 1);
  EXPECT_NE(pUse->GetChild(0), pRect);
  EXPECT_NE(dynamic_cast<VYRPrtRectangleElt*>(pUse->GetChild(0)), nullptr);
}

TEST(HostImport, PatternsInheritThroughReferencesAndRegionsDefaultToTheViewport) {
  Imported doc(Svg("<pattern id='base' patternUnits='userSpaceOnUse' width='20' height='40'"
                   " patternTransform='translate(3 4)'><rect width='5' height='5'/><circle r='1'/></pattern>"
                   "<pattern id='p' xlink:href='#base' height='10'/>"
                   "<mask id='m' maskUnits='userSpaceOnUse'/>"
                   "<filter id='f' filterUnits='userSpaceOnUse' width='50%'><feOffset/></filter>"
                   "<rect width='1' height='1' fill='url(#p)' stroke='url(#p)' mask='url(#m)' filter='url(#f)'/>"));
  auto* pRect = doc.Child<VYRPrtRectangleElt>(4);
  ASSERT_NE(pRect, nullptr);
  EXPECT_EQ(pRect->GetFillAttributes().GetFillStyle(), kHostFillPattern);
  EXPECT_EQ(pRect->GetStrokeAttributes().GetStrokeMode(), kHostStrokePattern);
  VYRPrtPatternElt* pPattern = pRect->GetPattern();
  ASSERT_NE(pPattern, nullptr);
  EXPECT_EQ(pPattern->GetID(), VYRUnicodeString("p"));
  EXPECT_EQ(pPattern->GetUnits(), MM2D::UnitUserSpaceOnUse);
  EXPECT_EQ(pPattern->GetRegion().GetWidth(), 20.0);   // inherited
  EXPECT_EQ(pPattern->GetRegion().GetHeight(), 10.0);  // its own
  const VYRMathPoint2D moved = [&] {
    VYRMath3x3Matrix matrix;
    pPattern->GetPatternTransform().GetTransformationMatrix(matrix);
    return matrix * VYRMathPoint2D(0.0, 0.0);
  }();
  EXPECT_EQ(moved.x, 3.0);
  EXPECT_EQ(pPattern->GetChildArray().GetLength(), 2);  // the referenced pattern's children

  // In user units the default region reaches 10% of the viewport (100 x 80) beyond it.
  const VYRPrtRegionAttributes& mask = pRect->GetMask()->GetRegion();
  EXPECT_EQ(mask.GetX(), -10.0);
  EXPECT_EQ(mask.GetY(), -8.0);
  EXPECT_EQ(mask.GetWidth(), 120.0);
  EXPECT_EQ(mask.GetHeight(), 96.0);
  const VYRPrtRegionAttributes& filter = pRect->GetFilter()->GetRegion();
  EXPECT_EQ(filter.GetX(), -10.0);
  EXPECT_EQ(filter.GetWidth(), 50.0);
}

TEST(HostImport, ResourcesTakeTheStyleOfTheirAncestors) {
  Imported doc(Svg("<g color='green' clip-rule='evenodd'>"
                   "<linearGradient id='g'><stop offset='0' stop-color='currentColor'/></linearGradient>"
                   "<clipPath id='c'><rect width='5' height='5'/></clipPath></g>"
                   "<rect width='10' height='10' fill='url(#g)' clip-path='url(#c)'/>"));
  auto* pRect = doc.Child<VYRPrtRectangleElt>(1);
  ASSERT_NE(pRect, nullptr);
  const VYRPrintGradient* pGradient = pRect->GetFillAttributes().GetGradient();
  ASSERT_NE(pGradient, nullptr);
  ASSERT_EQ(pGradient->GetStopCount(), 1);
  EXPECT_NEAR(pGradient->GetStop(0)->GetGreen(), 128 / 255.0, 1e-6);
  ASSERT_NE(pRect->GetClipPath(), nullptr);
  EXPECT_EQ(pRect->GetClipPath()->GetClipRule(), VYRPrtFillRuleEvenOdd);

  // A stop's colour and opacity are not inherited, unless it asks for them.
  Imported stops(Svg("<linearGradient id='g' stop-color='blue' stop-opacity='0.5'>"
                     "<stop offset='0'/><stop offset='1' stop-color='inherit' stop-opacity='inherit'/></linearGradient>"
                     "<rect width='10' height='10' fill='url(#g)'/>"));
  auto* pStopped = stops.Child<VYRPrtRectangleElt>(1);
  ASSERT_NE(pStopped, nullptr);
  const VYRPrintGradient* pRecord = pStopped->GetFillAttributes().GetGradient();
  ASSERT_NE(pRecord, nullptr);
  ASSERT_EQ(pRecord->GetStopCount(), 2);
  EXPECT_EQ(pRecord->GetStop(0)->GetBlue(), 0.0f);
  EXPECT_EQ(pRecord->GetStop(0)->GetAlpha(), 1.0f);
  EXPECT_EQ(pRecord->GetStop(1)->GetBlue(), 1.0f);
  EXPECT_EQ(pRecord->GetStop(1)->GetAlpha(), 0.5f);
}

TEST(HostImport, GradientReferencesPreferHrefAndKeepCoordinatesToTheirKind) {
  Imported doc(Svg("<radialGradient id='r' y2='1' spreadMethod='reflect'/>"
                   "<linearGradient id='red'><stop stop-color='red'/></linearGradient>"
                   "<linearGradient id='l' xlink:href='#red' href='#r' gradientUnits='userSpaceOnUse' x2='7'>"
                   "<stop stop-color='blue'/></linearGradient>"
                   "<rect width='10' height='10' fill='url(#l)'/>"));
  auto* pRect = doc.Child<VYRPrtRectangleElt>(3);
  ASSERT_NE(pRect, nullptr);
  const auto* pGradient = dynamic_cast<const VYRPrintGradientLinear*>(pRect->GetFillAttributes().GetGradient());
  ASSERT_NE(pGradient, nullptr);
  EXPECT_EQ(pGradient->GetSpread(), VYRPrintGradientSpreadReflect);  // through href, not xlink:href
  float x2 = 0.0f, y2 = 0.0f;
  pGradient->GetEndPoint(x2, y2);
  EXPECT_EQ(x2, 7.0f);
  EXPECT_EQ(y2, 0.0f);  // a radial gradient's y2 is no coordinate of a linear one
}

TEST(HostImport, TextAndEmbeddedImage) {
  // A 1 x 1 opaque green PNG, base64-encoded.
  auto* pPixels = new VYRPixelImage(1, 1, VYRPixelImageFormat_RGBA32);
  unsigned char* pData = pPixels->GetPixelsToModify();
  pData[1] = 255;
  pData[3] = 255;
  unsigned char* pPng = nullptr;
  int length = 0;
  ASSERT_TRUE(VYRSucceeded(WriteToMemoryPNGPixelImage(pPixels, &pPng, &length, 0)));
  pPixels->Release();
  unsigned int textLength = 0;
  char* pBase64 = VYRBase64::Encode(pPng, static_cast<unsigned int>(length), textLength);
  const std::string uri = std::string("data:image/png;base64,") + pBase64;
  delete[] pPng;
  delete[] pBase64;

  Imported doc(Svg("<text x='5 9' y='20' font-family=\"'DejaVu Sans', sans-serif\" font-size='2em'"
                   " font-weight='bold' text-anchor='middle'>  Hello <tspan>there</tspan>\n world</text>"
                   "<image x='1' y='2' width='30' height='40' xlink:href='" + uri + "'/>"
                   "<image width='3' height='4' xlink:href='data:image/png;base64,AAAA'/>"));
  auto* pText = doc.Child<VYRPrtTextElt>(0);
  ASSERT_NE(pText, nullptr);
  EXPECT_EQ(pText->GetText(), VYRUnicodeString("Hello there world"));
  EXPECT_EQ(pText->GetPosition(0).x, 5.0);
  EXPECT_EQ(pText->GetPosition(0).y, 20.0);
  const VYRPrtTextAttributes& attributes = pText->GetTextAttributes();
  EXPECT_EQ(attributes.GetFontFamily(), VYRUnicodeString("DejaVu Sans"));
  EXPECT_EQ(attributes.GetHeight(), 32.0);
  EXPECT_EQ(attributes.GetWeight(), 700);
  EXPECT_EQ(attributes.GetAnchor(), MM2D::TextAnchorMiddle);

  auto* pBitmap = doc.Child<VYRPrtBitmapImageElt>(1);
  ASSERT_NE(pBitmap, nullptr);
  ASSERT_NE(pBitmap->GetPixelImage(), nullptr);
  unsigned char r, g, b, a;
  pBitmap->GetPixelImage()->GetColorAtPixel(0, 0, r, g, b, a);
  EXPECT_EQ(g, 255);
  EXPECT_EQ(a, 255);
  // The square image keeps its proportions, centred in its 30 x 40 area.
  VYRMathPoint2D position;
  double width = 0.0, height = 0.0, orientation = 0.0;
  VYRPixelImage* pImage = nullptr;
  pBitmap->GetParameters(position, width, height, orientation, pImage);
  EXPECT_EQ(width, 30.0);
  EXPECT_EQ(height, 30.0);
  EXPECT_EQ(position.y, 7.0);
  EXPECT_EQ(doc.ChildCount(), 2);  // the unreadable image is left out
  // Given one side only, the other follows the image's proportions.
  Imported widthOnly(Svg("<image width='30' xlink:href='" + uri + "'/>"));
  auto* pSquare = widthOnly.Child<VYRPrtBitmapImageElt>(0);
  ASSERT_NE(pSquare, nullptr);
  pSquare->GetParameters(position, width, height, orientation, pImage);
  EXPECT_EQ(height, 30.0);
  EXPECT_TRUE(doc.HasMessage("PNG"));
}

// ---- Malformed documents

TEST(HostImportMalformed, UnreadableDocumentsGiveAnEmptyModel) {
  AssertionCapture capture;
  for (const std::string& text : {std::string(), std::string("<svg width='10'"), std::string("<svg><g></svg>"),
                                  std::string("<html/>"), std::string("\x01\x02 not xml")}) {
    Imported doc(text);
    EXPECT_FALSE(doc.Importer().Succeeded()) << text;
    EXPECT_EQ(doc.Image(), nullptr) << text;
    EXPECT_FALSE(doc.Importer().GetMessages().empty()) << text;
  }
  EXPECT_TRUE(capture.Reports().empty());
}

TEST(HostImportMalformed, EveryTruncationOfADocumentIsSafe) {
  const std::string text = Svg("<defs><linearGradient id='g'><stop offset='0'/></linearGradient></defs>"
                               "<g transform='rotate(30)'><path d='M0 0 A5 5 0 0 1 10 0' fill='url(#g)'/>"
                               "<use xlink:href='#g'/><text>hi</text></g>");
  AssertionCapture capture;
  for (size_t length = 0; length <= text.size(); length += 3) {
    Imported doc(text.substr(0, length));
    if (length < text.size()) {
      EXPECT_FALSE(doc.Importer().GetMessages().empty()) << length;
    }
  }
  EXPECT_TRUE(capture.Reports().empty());
}

TEST(HostImportMalformed, BadValuesAreReportedAndSkipped) {
  Imported doc(Svg("<rect width='abc' height='5'/><rect width='5' height='5' fill='#12' transform='scale(1,2,3)'/>"
                   "<g viewBox='1 2'/>",
                   "width='10' height='10' viewBox='0 0 -1 5'"));
  EXPECT_TRUE(doc.Importer().Succeeded());
  ASSERT_EQ(doc.ChildCount(), 2);
  auto* pRect = doc.Child<VYRPrtRectangleElt>(0);
  ASSERT_NE(pRect, nullptr);
  EXPECT_EQ(doc.FillColour(pRect), 0x000000u);
  EXPECT_TRUE(doc.HasMessage("width"));
  EXPECT_TRUE(doc.HasMessage("fill"));
  EXPECT_TRUE(doc.HasMessage("transform"));
  EXPECT_TRUE(doc.HasMessage("viewBox"));
}

TEST(HostImportMalformed, SelfReferencesAndDeepNestingEnd) {
  std::string nested;
  for (int i = 0; i < 300; ++i) nested += "<g>";
  nested += "<rect width='1' height='1'/>";
  for (int i = 0; i < 300; ++i) nested += "</g>";
  Imported doc(Svg("<g id='a'><use xlink:href='#a'/></g>"
                   "<linearGradient id='p' xlink:href='#q'/><linearGradient id='q' xlink:href='#p'/>"
                   "<rect width='1' height='1' fill='url(#p)'/>" + nested));
  EXPECT_TRUE(doc.Importer().Succeeded());
  EXPECT_TRUE(doc.HasMessage("inside what it uses"));
  EXPECT_TRUE(doc.HasMessage("nested too deeply"));
}

TEST(HostImportMalformed, MultiplyingUsesStopAtTheElementLimit) {
  // Each level uses the previous one ten times: 10^6 rectangles if nothing stopped it.
  std::string body = "<defs><rect id='l0' width='1' height='1'/>";
  for (int level = 1; level <= 6; ++level) {
    body += "<g id='l" + std::to_string(level) + "'>";
    for (int i = 0; i < 10; ++i) body += "<use xlink:href='#l" + std::to_string(level - 1) + "'/>";
    body += "</g>";
  }
  body += "</defs><use xlink:href='#l6'/>";
  Imported doc(Svg(body));
  EXPECT_TRUE(doc.Importer().Succeeded());
  EXPECT_TRUE(doc.HasMessage("too many elements"));
}

TEST(HostImportMalformed, AHugeDocumentSizeIsKept) {
  Imported doc(Svg("<rect width='1e30' height='5'/>", "width='1e30' height='1e30'"));
  ASSERT_TRUE(doc.Importer().Succeeded());
  double width = 0.0, height = 0.0;
  doc.Image()->GetSize(width, height);
  EXPECT_EQ(width, 1e30);
}

}  // namespace

// Replays the reference scenes through the raster drawing and compares the
// pixels with the reference PNGs at each scene's tolerances.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <map>
#include <memory>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include <nlohmann/json.hpp>

#include "AssertionCapture.h"
#include "PngFile.h"
#include "VYR3x3Matrix.h"
#include "VYR2DGSkiaDrawing.h"
#include "VYR2DGSkiaSupport.h"
#include "VYRPixelImage.h"
#include "VYRPrintGradientLinear.h"
#include "VYRPrintGradientRadial.h"
#include "VYRPrintGradientStop.h"
#include "VYRPrtFilterContainerElt.h"
#include "VYRPrtFilterGaussianBlurElt.h"
#include "VYRUnicodeString.h"

namespace fs = std::filesystem;
using nlohmann::json;

namespace {

// The scene folder: from the build's definition, the environment, or the
// usual shared location; empty when none exists.
fs::path SceneFolder() {
  std::vector<fs::path> candidates{fs::path(VYR_SHARED_DIR)};
  if (const char* env = std::getenv("VYR_SHARED_DIR")) candidates.insert(candidates.begin(), fs::path(env));
  candidates.emplace_back("/work/shared");
  for (const fs::path& root : candidates) {
    const fs::path scenes = root / "skia-reference" / "scenes";
    std::error_code error;
    if (fs::is_directory(scenes, error)) return scenes;
  }
  return {};
}

std::vector<std::string> SceneNames() {
  std::vector<std::string> names;
  const fs::path folder = SceneFolder();
  if (!folder.empty()) {
    for (const auto& entry : fs::directory_iterator(folder)) {
      if (entry.path().extension() == ".json") names.push_back(entry.path().stem().string());
    }
  }
  std::sort(names.begin(), names.end());
  if (names.empty()) names.emplace_back("no-scenes");
  return names;
}

struct Limits {
  double over16 = 4.0, solid16 = 0.02, mean = 1.5;
};

Limits LimitsOf(const fs::path& i_folder, const std::string& i_scene) {
  Limits limits;
  std::ifstream table(i_folder / "tolerances.tsv");
  std::string line;
  while (std::getline(table, line)) {
    if (line.empty() || line[0] == '#') continue;
    std::istringstream columns(line);
    std::string name;
    columns >> name;
    if (name != i_scene) continue;
    columns >> limits.over16 >> limits.solid16 >> limits.mean;
  }
  return limits;
}

VYRMathPoint2Df Point(const json& i_value) { return {i_value[0].get<float>(), i_value[1].get<float>()}; }

VYR2DGDrawing::PointList Points(const json& i_value) {
  VYR2DGDrawing::PointList points;
  for (const json& p : i_value) points.Append(Point(p));
  return points;
}

unsigned char Byte(const json& i_value) { return static_cast<unsigned char>(i_value.get<int>()); }

class SceneReplayer {
 public:
  explicit SceneReplayer(VYR2DGDrawing& io_drawing) : _drawing(io_drawing) {}

  void Play(const json& i_op) {
    const std::string op = i_op.at("op");
    if (op == "setMatrix" || op == "concat") {
      const json& m = i_op.at("m");
      const VYR3x3Matrix matrix(m[0], m[1], m[2], m[3], m[4], m[5]);
      if (op == "setMatrix") {
        _drawing.SetMatrixTransform(m[0], m[1], m[2], m[3], m[4], m[5]);
      } else {
        _drawing.AddTransform(matrix);
      }
    } else if (op == "translate") {
      _drawing.Translate(i_op.at("x"), i_op.at("y"));
    } else if (op == "rotate") {
      _drawing.Rotate(i_op.at("deg"));
    } else if (op == "scale") {
      _drawing.Scale(i_op.at("x"), i_op.at("y"));
    } else if (op == "skew") {
      _drawing.Skew(i_op.at("x"), i_op.at("y"));
    } else if (op == "blend") {
      _drawing.SetBlendingMode(static_cast<VYR2DGTransferMode>(i_op.at("mode").get<int>()));
    } else if (op == "fillColor" || op == "strokeColor" || op == "flood") {
      const json& c = i_op.at("rgba");
      if (op == "fillColor") _drawing.SetFillColor(Byte(c[0]), Byte(c[1]), Byte(c[2]), Byte(c[3]));
      if (op == "strokeColor") _drawing.SetStrokeColor(Byte(c[0]), Byte(c[1]), Byte(c[2]), Byte(c[3]));
      if (op == "flood") _drawing.FillWithColor(Byte(c[0]), Byte(c[1]), Byte(c[2]), Byte(c[3]));
    } else if (op == "strokeWidth") {
      _drawing.SetStrokeWidth(i_op.at("w"));
    } else if (op == "lineCap") {
      _drawing.SetLineCap(static_cast<VYRPrintLineAttribute>(i_op.at("cap").get<int>()));
    } else if (op == "lineJoin") {
      _drawing.SetLineJoin(static_cast<VYRPrintLineAttribute>(i_op.at("join").get<int>()));
    } else if (op == "dash") {
      const std::vector<float> lengths = i_op.at("lengths");
      _drawing.SetDashStyle(static_cast<int>(lengths.size()), lengths.empty() ? nullptr : lengths.data());
    } else if (op == "fillRule") {
      _drawing.SetFillRule(static_cast<VYRPrintFillRule>(i_op.at("rule").get<int>()));
    } else if (op == "save") {
      _drawing.Save(3);
    } else if (op == "saveLayer") {
      PlaySaveLayer(i_op);
    } else if (op == "restore") {
      _drawing.Restore(-1);
    } else if (op == "clipRect") {
      _drawing.SetCurrentClipRect(VYR2DGRect(i_op.at("x"), i_op.at("y"), i_op.at("w"), i_op.at("h")), eClipIntersect);
    } else if (op == "clipPolygon") {
      _drawing.SetCurrentClipPolygon(Points(i_op.at("points")), eClipIntersect);
    } else if (op == "clipPath") {
      _drawing.SetBuildingClipPath(true);
      _drawing.SetFillRule(static_cast<VYRPrintFillRule>(i_op.value("rule", 1)));
      for (const json& pathOp : i_op.at("path")) Play(pathOp);
      _drawing.ApplyClip();
      _drawing.SetBuildingClipPath(false);
    } else if (!PlayPathOp(op, i_op) && !PlayShape(op, i_op) && !PlayPaintServer(op, i_op) &&
               !PlayText(op, i_op)) {
      ADD_FAILURE() << "unknown op " << op;
    }
  }

 private:
  void PlaySaveLayer(const json& i_op) {
    _drawing.SetLayerAlpha(Byte(i_op.value("alpha", json(255))));
    _drawing.SetLayerBlendingMode(static_cast<VYR2DGTransferMode>(i_op.value("blend", 3)));
    if (i_op.contains("blur")) {
      VYRPrtFilterGaussianBlurElt blur;
      blur.SetInput("SourceGraphic");
      blur.SetStdDeviation(i_op.at("blur").get<double>(), i_op.at("blur").get<double>());
      VYRPrtFilterContainerElt container;
      container.AddChild(&blur);
      _drawing.SetLayerFilter(&container, 1.0f);
    }
    _drawing.SaveLayer();
  }

  bool PlayPathOp(const std::string& op, const json& i_op) {
    if (op == "moveTo") {
      _drawing.MoveTo(Point(i_op.at("p")));
    } else if (op == "lineTo") {
      _drawing.LineTo(Point(i_op.at("p")));
    } else if (op == "quadTo") {
      _drawing.CurveToQuad(Point(i_op.at("c")), Point(i_op.at("p")));
    } else if (op == "cubicTo") {
      _drawing.CurveToCubic(Point(i_op.at("c1")), Point(i_op.at("c2")), Point(i_op.at("p")));
    } else if (op == "close") {
      _drawing.ClosePath();
    } else if (op == "arc") {
      _drawing.ArcTo(Point(i_op.at("c")), i_op.at("rx"), i_op.at("ry"), i_op.value("rotation", 0.0f),
                     i_op.at("start"), i_op.at("sweep"));
    } else if (op == "addPolyline") {
      _drawing.AddPolylineToPath(Points(i_op.at("points")));
    } else if (op == "fill") {
      _drawing.ApplyFillMode(static_cast<VYRPrintFillMode>(i_op.value("mode", 1)));
      i_op.value("preserve", false) ? _drawing.DrawFillPreserve() : _drawing.DrawFill();
    } else if (op == "stroke") {
      _drawing.ApplyStrokeMode(static_cast<VYRPrintEdgeMode>(i_op.value("mode", 1)));
      i_op.value("preserve", false) ? _drawing.DrawStrokePreserve() : _drawing.DrawStroke();
    } else {
      return false;
    }
    return true;
  }

  // Gradients and patterns: the stroke mode picks the slot they are written to.
  bool PlayPaintServer(const std::string& op, const json& i_op) {
    if (op != "linearGradient" && op != "radialGradient" && op != "pattern") return false;
    const bool stroke = i_op.value("target", std::string("fill")) == "stroke";
    _drawing.SetStrokeMode(static_cast<VYRPrintEdgeMode>(stroke ? 3 : 1));
    if (op == "pattern") {
      const json& tile = i_op.at("tile");
      const int w = tile.at("w"), h = tile.at("h");
      const std::string hex = tile.at("rgba");
      VYRPixelImage* pImage = new VYRPixelImage(w, h, VYRPixelImageFormat_RGBA32);
      unsigned char* pixels = pImage->GetPixelsToModify();
      for (size_t i = 0; i + 1 < hex.size() && i / 2 < pImage->GetByteCount(); i += 2) {
        pixels[i / 2] = static_cast<unsigned char>(std::stoi(hex.substr(i, 2), nullptr, 16));
      }
      const json m = i_op.value("matrix", json::array({1, 0, 0, 0, 1, 0}));
      const VYR3x3Matrix matrix(m[0], m[1], m[2], m[3], m[4], m[5]);
      _drawing.SetPattern(pImage, static_cast<VYR2DGPatternMode>(1), &matrix);
      pImage->Release();
      return true;
    }
    std::unique_ptr<VYRPrintGradient> gradient;
    if (op == "linearGradient") {
      auto* pLinear = new VYRPrintGradientLinear;
      const VYRMathPoint2Df p1 = Point(i_op.at("p1")), p2 = Point(i_op.at("p2"));
      pLinear->SetStartPoint(p1.x, p1.y);
      pLinear->SetEndPoint(p2.x, p2.y);
      gradient.reset(pLinear);
    } else {
      auto* pRadial = new VYRPrintGradientRadial;
      const VYRMathPoint2Df c = Point(i_op.at("c")), f = Point(i_op.at("f"));
      pRadial->SetCentre(c.x, c.y);
      pRadial->SetFocus(f.x, f.y);
      pRadial->SetRadius(i_op.at("r"));
      gradient.reset(pRadial);
    }
    for (const json& stop : i_op.at("stops")) {
      gradient->AddStop(new VYRPrintGradientStop(stop[0], stop[1].get<float>() / 255, stop[2].get<float>() / 255,
                                                 stop[3].get<float>() / 255, stop[4].get<float>() / 255));
    }
    _drawing.SetGradient(gradient.get());
    return true;
  }

  bool PlayShape(const std::string& op, const json& i_op) {
    static const std::set<std::string> shapes{"rect", "roundRect", "circle", "ellipse", "line", "polyline", "polygon"};
    if (shapes.count(op) == 0) return false;
    const int mode = i_op.value("mode", 1);
    if (i_op.value("paint", std::string("fill")) == "stroke") {
      _drawing.ApplyStrokeMode(static_cast<VYRPrintEdgeMode>(mode));
    } else {
      _drawing.ApplyFillMode(static_cast<VYRPrintFillMode>(mode));
    }
    if (op == "rect") {
      _drawing.DrawRectangle(VYR2DGRect(i_op.at("x"), i_op.at("y"), i_op.at("w"), i_op.at("h")));
    } else if (op == "roundRect") {
      _drawing.DrawRoundRectangle(VYR2DGRect(i_op.at("x"), i_op.at("y"), i_op.at("w"), i_op.at("h")), i_op.at("rx"),
                                  i_op.at("ry"));
    } else if (op == "circle") {
      _drawing.DrawCircle(Point(i_op.at("c")), i_op.at("r"));
    } else if (op == "ellipse") {
      _drawing.DrawEllipse(Point(i_op.at("c")), i_op.at("rx"), i_op.at("ry"), i_op.value("rotation", 0.0f));
    } else if (op == "line") {
      _drawing.DrawLine(Point(i_op.at("p1")), Point(i_op.at("p2")));
    } else if (op == "polyline") {
      _drawing.DrawPolyline(Points(i_op.at("points")));
    } else {
      _drawing.DrawPolygon(Points(i_op.at("points")));
    }
    return true;
  }

  bool PlayText(const std::string& op, const json& i_op) {
    if (op == "font") {
      _drawing.SetFont(VYRUnicodeString("DejaVu Sans"));
      _drawing.SetTextHeight(i_op.at("size"));
      _drawing.SetTextWeight(i_op.value("bold", false) ? eTextWeightBold : eTextWeightNormal);
      _drawing.SetTextStyleFlags(i_op.value("italic", false) ? eTextStyleItalic : 0);
      _drawing.SetTextAlign(static_cast<VYR2DGTextAlign>(i_op.value("align", 0)));
    } else if (op == "text") {
      _drawing.SetFillMode(static_cast<VYRPrintFillMode>(i_op.value("fillMode", 1)));
      _drawing.SetStrokeMode(static_cast<VYRPrintEdgeMode>(i_op.value("strokeMode", 0)));
      _drawing.DrawTextW(Point(i_op.at("p")), VYRUnicodeString(i_op.at("text").get<std::string>()), false);
    } else {
      return false;
    }
    return true;
  }

  VYR2DGDrawing& _drawing;
};

struct Figures {
  double over16 = 0, solid16 = 0, mean = 0;
};

std::vector<int> Premultiplied(const uint8_t* i_pRgba, size_t i_pixelCount) {
  std::vector<int> out(i_pixelCount * 4);
  for (size_t i = 0; i < i_pixelCount; ++i) {
    const int a = i_pRgba[4 * i + 3];
    for (int c = 0; c < 3; ++c) out[4 * i + c] = (i_pRgba[4 * i + c] * a + 127) / 255;
    out[4 * i + 3] = a;
  }
  return out;
}

Figures Compare(const uint8_t* i_pExpected, const uint8_t* i_pActual, int i_width, int i_height) {
  const size_t count = static_cast<size_t>(i_width) * i_height;
  const std::vector<int> expected = Premultiplied(i_pExpected, count), actual = Premultiplied(i_pActual, count);
  std::vector<char> over(count, 0);
  double sum = 0;
  size_t overCount = 0;
  for (size_t i = 0; i < count; ++i) {
    int worst = 0;
    for (int c = 0; c < 4; ++c) {
      const int d = std::abs(expected[4 * i + c] - actual[4 * i + c]);
      sum += d;
      worst = std::max(worst, d);
    }
    over[i] = worst > 16;
    overCount += over[i];
  }
  size_t solidCount = 0;
  for (int y = 1; y + 1 < i_height; ++y) {
    for (int x = 1; x + 1 < i_width; ++x) {
      bool solid = true;
      for (int dy = -1; dy <= 1 && solid; ++dy) {
        for (int dx = -1; dx <= 1 && solid; ++dx) solid = over[static_cast<size_t>(y + dy) * i_width + x + dx];
      }
      solidCount += solid;
    }
  }
  Figures figures;
  figures.over16 = 100.0 * overCount / count;
  figures.solid16 = 100.0 * solidCount / count;
  figures.mean = sum / (4.0 * count);
  return figures;
}

std::string TestNameOf(const testing::TestParamInfo<std::string>& i_info) {
  std::string name = "s" + i_info.param;
  std::replace_if(name.begin(), name.end(), [](char c) { return !std::isalnum(static_cast<unsigned char>(c)); }, '_');
  return name;
}

class SkiaReference : public testing::TestWithParam<std::string> {};

}  // namespace

TEST_P(SkiaReference, MatchesTheReferencePixels) {
  const fs::path folder = SceneFolder();
  if (folder.empty()) GTEST_SKIP() << "no skia-reference scenes on this machine";
  const std::string scene = GetParam();
  std::ifstream file(folder / (scene + ".json"));
  const json document = json::parse(file);
  const int width = document.at("width"), height = document.at("height");
  VYR2DGSkiaSupport support(width, height);
  VYR2DGSkiaDrawing drawing(support.GetDrawingContext());
  {
    AssertionCapture capture;
    SceneReplayer replayer(drawing);
    for (const json& op : document.at("ops")) replayer.Play(op);
    EXPECT_TRUE(capture.Reports().empty()) << "first report: " << capture.Expressions().front();
  }

  std::unique_ptr<unsigned char[]> actual(support.GetUnmultipliedData(VYR2DGSupport::eMainBitmap));
  ASSERT_NE(actual, nullptr);
  int refWidth = 0, refHeight = 0;
  std::vector<uint8_t> expected;
  ASSERT_TRUE(PngFile::ReadRgba((folder / (scene + ".png")).string(), refWidth, refHeight, expected));
  ASSERT_EQ(refWidth, width);
  ASSERT_EQ(refHeight, height);

  const Figures figures = Compare(expected.data(), actual.get(), width, height);
  const Limits limits = LimitsOf(folder, scene);
  const bool pass = figures.over16 <= limits.over16 && figures.solid16 <= limits.solid16 && figures.mean <= limits.mean;
  EXPECT_TRUE(pass) << scene << ": over16 " << figures.over16 << "% (limit " << limits.over16 << "), solid16 "
                    << figures.solid16 << "% (limit " << limits.solid16 << "), mean " << figures.mean << " (limit "
                    << limits.mean << ")";
  if (!pass) {
    const fs::path out = fs::path(VYR_BINARY_DIR) / "skia-reference-out";
    fs::create_directories(out);
    PngFile::WriteRgba((out / (scene + ".png")).string(), width, height, actual.get());
    ADD_FAILURE() << "engine image written to " << (out / (scene + ".png")).string();
  }
}

INSTANTIATE_TEST_SUITE_P(Scenes, SkiaReference, testing::ValuesIn(SceneNames()), TestNameOf);

// The bounding box of a model of 100,000 transformed shapes (lines,
// rectangles, circles and polygons, each with a translation and a rotation,
// under a scaled group), in elements per second, against a plain loop in the
// same run that composes each shape's matrix and maps the same defining
// points into a box (the floor of the work, without dispatch or flattening).
#include <benchmark/benchmark.h>

#include <algorithm>
#include <memory>
#include <vector>

#include "VYRPrintModelBoundingBoxComputer.h"
#include "VYRPrtCircleElt.h"
#include "VYRPrtEltFactory.h"
#include "VYRPrtGroupElt.h"
#include "VYRPrtImageElt.h"
#include "VYRPrtLineElt.h"
#include "VYRPrtModel.h"
#include "VYRPrtPolygonElt.h"
#include "VYRPrtRectangleElt.h"

namespace {

constexpr int kShapeCount = 100000;

struct Scene {
  VYRPrtModel model;
  VYRPrtImageElt image;
  VYRPrtGroupElt group;
  std::vector<std::unique_ptr<VYRPrtGraphicPrimitiveElt>> shapes;

  Scene() {
    VYRPrtTransformAttributes scale;
    scale.AddScaleX(1.5);
    group.SetTransformAttributes(scale);
    for (int i = 0; i < kShapeCount; ++i) {
      VYRMathPoint2D at(i % 1000, i / 1000);
      std::unique_ptr<VYRPrtGraphicPrimitiveElt> shape;
      switch (i % 4) {
        case 0: shape.reset(new VYRPrtLineElt(at, VYRMathPoint2D(at.x + 3, at.y + 1))); break;
        case 1: shape.reset(new VYRPrtRectangleElt(at, VYRMathPoint2D(at.x + 2, at.y + 2))); break;
        case 2: shape.reset(new VYRPrtCircleElt(at, 1 + i % 7)); break;
        default: {
          auto* polygon = new VYRPrtPolygonElt();
          for (int k = 0; k < 6; ++k) polygon->AddPoint(VYRMathPoint2D(at.x + k, at.y + (k & 1)));
          shape.reset(polygon);
        }
      }
      VYRPrtTransformAttributes transform;
      transform.AddTranslation(VYRMathVector2D(10, 20));
      transform.AddRotation(0.1f * (i % 10));
      shape->SetTransformAttributes(transform);
      group.AddChild(shape.get());
      shapes.push_back(std::move(shape));
    }
    image.AddChild(&group);
    model.AddImage(&image);
  }
};

Scene& TheScene() {
  static Scene* s_pScene = new Scene();  // built once for both benchmarks
  return *s_pScene;
}

void BM_ModelBoundingBox(benchmark::State& state) {
  Scene& scene = TheScene();
  for (auto _ : state) {
    VYRPrintModelBoundingBoxComputer computer;
    double xmin, xmax, ymin, ymax;
    benchmark::DoNotOptimize(computer.Compute(&scene.model, xmin, xmax, ymin, ymax));
    benchmark::DoNotOptimize(xmin + xmax + ymin + ymax);
  }
  state.SetItemsProcessed(state.iterations() * kShapeCount);
}
BENCHMARK(BM_ModelBoundingBox)->Unit(benchmark::kMillisecond);

// Baseline: each shape's own matrix times the group's, applied to its corner
// points (two for lines and rectangles, the centre for circles, every polygon point).
void BM_PlainTransformLoop(benchmark::State& state) {
  Scene& scene = TheScene();
  VYRMath3x3Matrix groupMatrix;
  scene.group.GetTransformAttributes().GetTransformationMatrix(groupMatrix);
  for (auto _ : state) {
    double xmin = 1e300, xmax = -1e300, ymin = 1e300, ymax = -1e300;
    auto add = [&](const VYRMath3x3Matrix& i_matrix, const VYRMathPoint2D& i_point) {
      VYRMathPoint2D mapped = i_matrix * i_point;
      xmin = std::min(xmin, mapped.x);
      xmax = std::max(xmax, mapped.x);
      ymin = std::min(ymin, mapped.y);
      ymax = std::max(ymax, mapped.y);
    };
    for (const auto& shape : scene.shapes) {
      VYRMath3x3Matrix own;
      shape->GetTransformAttributes().GetTransformationMatrix(own);
      const VYRMath3x3Matrix matrix = groupMatrix * own;
      if (auto* line = dynamic_cast<VYRPrtLineElt*>(shape.get())) {
        add(matrix, line->GetStartPoint());
        add(matrix, line->GetEndPoint());
      } else if (auto* rectangle = dynamic_cast<VYRPrtRectangleElt*>(shape.get())) {
        VYRMathPoint2D first, second;
        rectangle->GetPoints(first, second);
        add(matrix, first);
        add(matrix, second);
      } else if (auto* circle = dynamic_cast<VYRPrtCircleElt*>(shape.get())) {
        add(matrix, circle->GetCenter());
      } else if (auto* polygon = dynamic_cast<VYRPrtPolygonElt*>(shape.get())) {
        for (const VYRMathPoint2D& point : polygon->GetPoints()) add(matrix, point);
      }
    }
    benchmark::DoNotOptimize(xmin + xmax + ymin + ymax);
  }
  state.SetItemsProcessed(state.iterations() * kShapeCount);
}
BENCHMARK(BM_PlainTransformLoop)->Unit(benchmark::kMillisecond);

}  // namespace

// Draws a scene with most drawing operations and writes it as a PNG:
//   vyr2d_demo [out.png]
#include <cstdio>

#include "VYR2DGSkiaDrawing.h"
#include "VYR2DGSkiaSupport.h"
#include "VYRPixelImage.h"
#include "VYRPixelImagePNG.h"

namespace {

constexpr int kWidth = 480;
constexpr int kHeight = 320;

using PointList = VYR2DGDrawing::PointList;

PointList Points(std::initializer_list<VYRMathPoint2Df> i_points) {
  PointList points;
  for (const VYRMathPoint2Df& p : i_points) points.Append(p);
  return points;
}

void Fill(VYR2DGDrawing& d, unsigned char r, unsigned char g, unsigned char b, unsigned char a = 255) {
  d.SetFillColor(r, g, b, a);
  d.ApplyFillMode(eFillModeColor);
}

void Stroke(VYR2DGDrawing& d, unsigned char r, unsigned char g, unsigned char b, float width) {
  d.SetStrokeColor(r, g, b, static_cast<unsigned char>(255));
  d.SetStrokeWidth(width);
  d.ApplyStrokeMode(eEdgeModeColor);
}

void DrawBackground(VYR2DGDrawing& d) {
  d.FillWithColor(static_cast<unsigned char>(246), 244, 238, 255);
  Stroke(d, 220, 216, 205, 1.0f);
  for (int x = 0; x <= kWidth; x += 40) d.DrawLine({x + 0.5f, 0.0f}, {x + 0.5f, float(kHeight)});
  for (int y = 0; y <= kHeight; y += 40) d.DrawLine({0.0f, y + 0.5f}, {float(kWidth), y + 0.5f});
}

// Shapes filled, then outlined with different joins.
void DrawShapes(VYR2DGDrawing& d) {
  Fill(d, 220, 60, 50);
  d.DrawRectangle(VYR2DGRect(20, 20, 80, 50));
  Fill(d, 60, 150, 80);
  d.DrawRoundRectangle(VYR2DGRect(115, 20, 80, 50), 14, 14);
  Fill(d, 40, 90, 220);
  d.DrawCircle({245, 45}, 27);
  Fill(d, 240, 170, 0);
  d.DrawEllipse({330, 45}, 45, 22, 0);
  Fill(d, 140, 60, 200, 200);
  d.DrawPolygon(Points({{390, 20}, {460, 30}, {440, 75}, {400, 60}}));

  d.SetLineJoin(eLineJoinRound);
  Stroke(d, 30, 30, 30, 3.0f);
  d.DrawRectangle(VYR2DGRect(20, 20, 80, 50));
  d.SetLineJoin(eLineJoinBevel);
  d.DrawPolygon(Points({{390, 20}, {460, 30}, {440, 75}, {400, 60}}));
  d.SetLineJoin(eLineJoinMiter);
}

// A star in both fill rules, and curves.
void DrawPaths(VYR2DGDrawing& d) {
  for (int i = 0; i < 2; ++i) {
    const float cx = 60.0f + i * 110.0f, cy = 140.0f;
    Fill(d, 30, 110, 200);
    d.SetFillRule(i == 0 ? eFillRuleNonZero : eFillRuleEvenOdd);
    d.AddPolylineToPath(Points({{cx, cy - 40}, {cx + 24, cy + 32}, {cx - 38, cy - 12}, {cx + 38, cy - 12}, {cx - 24, cy + 32}}));
    d.ClosePath();
    d.DrawFillPreserve();
    Stroke(d, 10, 40, 90, 1.5f);
    d.DrawStroke();
  }
  Fill(d, 250, 120, 60, 220);
  d.MoveTo({240, 180});
  d.CurveToCubic({260, 90}, {330, 190}, {350, 110});
  d.CurveToQuad({300, 150}, {240, 180});
  d.DrawFill();
  // A pie slice and a rotated elliptical arc.
  Fill(d, 90, 180, 170);
  d.MoveTo({410, 140});
  d.ArcTo({410, 140}, 40, 40, 0, -30, -240);
  d.ClosePath();
  d.DrawFill();
  Stroke(d, 160, 40, 120, 4.0f);
  d.SetLineCap(eLineCapRound);
  d.ArcTo({410, 140}, 55, 25, 30, 200, 140);
  d.DrawStroke();
}

// Caps, dashes and a hairline.
void DrawStrokes(VYR2DGDrawing& d) {
  const VYRPrintLineAttribute caps[] = {eLineCapButt, eLineCapSquare, eLineCapRound};
  for (int i = 0; i < 3; ++i) {
    Stroke(d, 40, 40, 40, 10.0f);
    d.SetLineCap(caps[i]);
    d.DrawLine({30, 205.0f + i * 20}, {110, 205.0f + i * 20});
  }
  const float dashes[] = {12, 5, 3, 5};
  d.SetDashStyle(4, dashes);
  d.SetLineCap(eLineCapButt);
  Stroke(d, 200, 30, 60, 3.0f);
  d.MoveTo({130, 200});
  d.CurveToCubic({170, 160}, {200, 260}, {240, 210});
  d.DrawStroke();
  d.SetDashStyle(0, nullptr);
  Stroke(d, 0, 0, 0, 0.0f);  // hairline
  d.DrawLine({130, 250}, {240, 262});
}

// Transforms, clips with save and restore, blending and knockout.
void DrawStateDemos(VYR2DGDrawing& d) {
  d.Save(3);
  d.Translate(300, 250);
  for (int i = 0; i < 12; ++i) {
    d.Rotate(30);
    Fill(d, static_cast<unsigned char>(20 * i), 80, static_cast<unsigned char>(240 - 20 * i), 200);
    d.DrawRectangle(VYR2DGRect(10, -3, 40, 6));
  }
  d.Restore(-1);

  // A clip path built from shapes, then flooded.
  d.Save(3);
  d.SetBuildingClipPath(true);
  d.DrawCircle({400, 245}, 22);
  d.DrawCircle({430, 265}, 22);
  d.ApplyClip();
  d.SetBuildingClipPath(false);
  d.SetCurrentClipRect(VYR2DGRect(380, 240, 20, 10), eClipDifference);
  d.FillWithColor(static_cast<unsigned char>(30), 160, 90, 255);
  d.Restore(-1);

  // Multiply over what is there.
  d.SetBlendingMode(eTransferMultiply);
  Fill(d, 255, 230, 80);
  d.DrawRoundRectangle(VYR2DGRect(200, 20, 120, 60), 10, 10);
  d.SetBlendingMode(eTransferSourceOver);

  // Knockout: later shapes do not paint over earlier ones.
  d.Save(3);
  d.SetKnockout(1);
  Fill(d, 240, 90, 40);
  d.DrawCircle({40, 295}, 18);
  Fill(d, 60, 60, 200);
  d.DrawRectangle(VYR2DGRect(40, 280, 60, 30));
  d.SetKnockout(0);
  d.Restore(-1);
}

// The surface's pixels are the platform's premultiplied BGRA layout: the
// image wraps them and the platform encodes them.
bool WritePng(const char* i_path, VYR2DGSupport& i_support) {
  unsigned char* pPixels = i_support.GetData(VYR2DGSupport::eMainBitmap);
  if (pPixels == nullptr) return false;
  auto* pImage = new VYRPixelImage(kWidth, kHeight, VYRPixelImageFormat_BGRA32Premultiplied, pPixels,
                                   VYRDeallocatePixels_CallerKeepsPixels);
  unsigned char* pBytes = nullptr;
  int length = 0;
  const bool encoded = VYRSucceeded(WriteToMemoryPNGPixelImage(pImage, &pBytes, &length, 0));
  pImage->Release();
  bool written = false;
  if (encoded) {
    if (FILE* pFile = std::fopen(i_path, "wb")) {
      written = std::fwrite(pBytes, 1, static_cast<size_t>(length), pFile) == static_cast<size_t>(length);
      written = std::fclose(pFile) == 0 && written;
    }
  }
  delete[] pBytes;
  return written;
}

}  // namespace

int main(int argc, char** argv) {
  const char* outPath = argc > 1 ? argv[1] : "demo.png";
  auto* pSupport = new VYR2DGSkiaSupport(kWidth, kHeight);
  {
    VYR2DGSkiaDrawing drawing(pSupport->GetDrawingContext());
    drawing.SetBlendingMode(eTransferSourceOver);
    DrawBackground(drawing);
    DrawShapes(drawing);
    DrawPaths(drawing);
    DrawStrokes(drawing);
    DrawStateDemos(drawing);
    drawing.Flush();
  }
  const bool written = WritePng(outPath, *pSupport);
  pSupport->Release();
  if (!written) {
    std::fprintf(stderr, "vyr2d_demo: could not write %s\n", outPath);
    return 1;
  }
  std::printf("vyr2d_demo: wrote %s (%d x %d)\n", outPath, kWidth, kHeight);
  return 0;
}

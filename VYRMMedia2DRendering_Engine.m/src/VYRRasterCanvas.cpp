#include "VYRRasterCanvas.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "VYRAssert.h"
#include "VYRRasterHairline.h"
#include "VYRRasterImageFilter.h"

VYR_IMPLEMENT_CLASS(VYRRasterCanvas, VYRBaseUnknown, "Engine")

namespace {
inline uint8_t Mul255(int a, int b) {
  int x = a * b + 128;
  return static_cast<uint8_t>((x + (x >> 8)) >> 8);
}

// Union of two coverages (over the union of their bounds).
VYRRasterMask UnionMasks(const VYRRasterMask& a, const VYRRasterMask& b) {
  if (a.isEmpty()) return b;
  if (b.isEmpty()) return a;
  VYRRasterIRect bounds = a.bounds;
  bounds.join(b.bounds);
  VYRRasterMask out;
  out.allocate(bounds, 0);
  for (int y = bounds.top; y < bounds.bottom; ++y) {
    uint8_t* row = out.row(y);
    for (int x = bounds.left; x < bounds.right; ++x) {
      const int ca = a.at(x, y), cb = b.at(x, y);
      row[x - bounds.left] = static_cast<uint8_t>(ca + cb - Mul255(ca, cb));
    }
  }
  return out;
}

// The coverage of everything in i_area outside i_mask.
VYRRasterMask InvertMask(const VYRRasterMask& i_mask, const VYRRasterIRect& i_area) {
  VYRRasterMask out;
  out.allocate(i_area, 255);
  for (int y = i_area.top; y < i_area.bottom; ++y) {
    uint8_t* row = out.row(y);
    for (int x = i_area.left; x < i_area.right; ++x) row[x - i_area.left] = 255 - i_mask.at(x, y);
  }
  return out;
}

// Lengths of the stroke width's two axes once mapped to the device.
void DeviceWidths(const VYRRasterMatrix& i_matrix, float i_width, float* o_len1, float* o_len2) {
  const VYRMathPoint2Df u = i_matrix.mapVector(i_width, 0), v = i_matrix.mapVector(0, i_width);
  *o_len1 = std::hypot(u.x, u.y);
  *o_len2 = std::hypot(v.x, v.y);
}
}  // namespace

VYRRasterCanvas::VYRRasterCanvas() : _pCoverage(VYRRasterCoverage::Create()) {}

VYRRasterCanvas::VYRRasterCanvas(VYRRasterDevice* ipDevice) : VYRRasterCanvas() {
  _pDevice = ipDevice;
  if (_pDevice) _pDevice->AddRef();
  _clip.setRect(deviceBounds());
}

VYRRasterCanvas::~VYRRasterCanvas() {
  if (_pDevice) _pDevice->Release();
}

bool VYRRasterCanvas::hasTarget() const {
  return !_layers.empty() || (_pDevice && !_pDevice->accessBitmap().drawsNothing());
}

VYRRasterIRect VYRRasterCanvas::targetLimit() const {
  if (!_layers.empty()) return _layers.back().bounds;
  return hasTarget() ? deviceBounds() : VYRRasterIRect{};
}

VYRRasterCanvas::PixelTarget VYRRasterCanvas::prepareTarget(const VYRRasterIRect& i_area) {
  PixelTarget target;
  if (_layers.empty()) {
    const VYRRasterBitmap& bitmap = _pDevice->accessBitmap();
    target.pixels = bitmap.getAddr32(0, 0);
    target.stride = static_cast<size_t>(bitmap.rowBytes()) / 4;
    return target;
  }
  LayerRecord& layer = _layers.back();
  layer.drawn.join(i_area);
  if (!layer.image.bounds.contains(i_area)) {
    // Grow with some room around, so that a cluster of small shapes reallocates seldom.
    constexpr int kRoom = 32;
    VYRRasterIRect grown = layer.image.bounds;
    grown.join(i_area);
    grown = VYRRasterIRect{grown.left - kRoom, grown.top - kRoom, grown.right + kRoom, grown.bottom + kRoom};
    grown.intersect(layer.bounds);
    layer.image = layer.image.cropped(grown);
  }
  target.pixels = layer.image.pixels.data();
  target.stride = static_cast<size_t>(layer.image.bounds.width());
  target.left = layer.image.bounds.left;
  target.top = layer.image.bounds.top;
  return target;
}

VYRRasterIRect VYRRasterCanvas::deviceBounds() const {
  if (!_pDevice) return VYRRasterIRect{};
  return VYRRasterIRect::MakeWH(_pDevice->width(), _pDevice->height());
}

// ---- save stack ---------------------------------------------------------------------------

int VYRRasterCanvas::save(int i_flags) {
  const int count = getSaveCount();
  _saves.push_back(SaveRecord{i_flags, _matrix, _clip, static_cast<int>(_layers.size())});
  return count;
}

int VYRRasterCanvas::saveLayer(const VYRRasterRect* i_pBounds, const VYRRasterPaint* i_pPaint, int i_flags) {
  // Layers always give back the matrix and clip they started with.
  const int count = save(i_flags | kMatrixClip_SaveFlag);
  LayerRecord layer;
  layer.bounds = _clip.getBounds();
  layer.bounds.intersect(targetLimit());
  if (i_pBounds) {
    VYRRasterRect device;
    _matrix.mapRect(&device, *i_pBounds);
    layer.bounds.intersect(VYRRasterRoundOut(device));
  }
  if (i_pPaint) layer.paint = *i_pPaint;
  _layers.push_back(std::move(layer));
  return count;
}

int VYRRasterCanvas::saveLayerAlpha(const VYRRasterRect* i_pBounds, uint8_t i_alpha, int i_flags) {
  VYRRasterPaint paint;
  paint.setAlpha(i_alpha);
  return saveLayer(i_pBounds, &paint, i_flags);
}

void VYRRasterCanvas::restore() {
  if (_saves.empty()) return;
  const SaveRecord record = std::move(_saves.back());
  _saves.pop_back();
  if (record.flags & kMatrix_SaveFlag) _matrix = record.matrix;
  if (record.flags & kClip_SaveFlag) _clip = record.clip;
  while (static_cast<int>(_layers.size()) > record.layerDepth) popLayer();
}

void VYRRasterCanvas::restoreToCount(int i_count) {
  const int target = std::max(1, i_count);
  while (getSaveCount() > target) restore();
}

namespace {
// Modes that change the destination where the source is transparent.
bool ReachesBeyondSource(VYRRasterBlendMode i_mode) {
  switch (i_mode) {
    case kClear_VYRBlendMode:
    case kSrc_VYRBlendMode:
    case kSrcIn_VYRBlendMode:
    case kDstIn_VYRBlendMode:
    case kSrcOut_VYRBlendMode:
    case kDstATop_VYRBlendMode:
      return true;
    default:
      return false;
  }
}
}  // namespace

void VYRRasterCanvas::popLayer() {
  LayerRecord layer = std::move(_layers.back());
  _layers.pop_back();
  if (!hasTarget()) return;
  const VYRRasterPaint& paint = layer.paint;
  const VYRRasterImage* pSource = &layer.image;
  VYRRasterIRect sourceArea = layer.drawn;
  VYRRasterImage filtered;
  if (const VYRRasterImageFilter* pFilter = paint.getImageFilter()) {
    filtered = pFilter->filterImage(layer.image.cropped(layer.drawn), layer.bounds);
    pSource = &filtered;
    sourceArea = filtered.bounds;
  }
  const int lumaMode = paint.getLumaMaskMode();
  const bool lumaMask = lumaMode == kSrcIn_VYRBlendMode || lumaMode == kDstIn_VYRBlendMode;
  const VYRRasterBlendMode mode = lumaMask ? static_cast<VYRRasterBlendMode>(lumaMode) : paint.getBlendMode();
  VYRRasterIRect area = lumaMask || ReachesBeyondSource(mode) ? layer.bounds : sourceArea;
  if (!area.intersect(_clip.getBounds()) || !area.intersect(targetLimit())) return;
  const PixelTarget dst = prepareTarget(area);
  const int width = area.width();
  std::vector<uint32_t> src(static_cast<size_t>(width));
  std::vector<uint8_t> coverage(static_cast<size_t>(width));
  for (int y = area.top; y < area.bottom; ++y) {
    pSource->readRow(area.left, y, width, src.data());
    VYRRasterBlender::ScaleRow(src.data(), width, paint.getAlpha());
    const uint8_t* rowCoverage = nullptr;
    if (!_clip.isOpaqueRun(y, area.left, area.right)) {
      _clip.getRow(area.left, y, width, coverage.data());
      rowCoverage = coverage.data();
    }
    if (lumaMask) {
      VYRRasterBlender::LumaMaskRow(mode, dst.addr(area.left, y), src.data(), rowCoverage, width);
    } else {
      VYRRasterBlender::BlendRow(mode, dst.addr(area.left, y), src.data(), rowCoverage, width);
    }
  }
}

// ---- matrix -------------------------------------------------------------------------------

bool VYRRasterCanvas::concat(const VYRRasterMatrix& i_matrix) {
  if (!i_matrix.isFinite()) return false;
  _matrix.preConcat(i_matrix);
  return true;
}

bool VYRRasterCanvas::translate(float dx, float dy) { return concat(VYRRasterMatrix::MakeTranslate(dx, dy)); }
bool VYRRasterCanvas::scale(float sx, float sy) { return concat(VYRRasterMatrix::MakeScale(sx, sy)); }

bool VYRRasterCanvas::rotate(float degrees) {
  VYRRasterMatrix m;
  m.setRotate(degrees);
  return concat(m);
}

bool VYRRasterCanvas::skew(float sx, float sy) {
  VYRRasterMatrix m;
  m.setSkew(sx, sy);
  return concat(m);
}

// ---- clip ---------------------------------------------------------------------------------

bool VYRRasterCanvas::clipRect(const VYRRasterRect& i_rect, ClipOp i_op, bool i_antiAlias) {
  VYRRasterRect device;
  const bool staysRect = _matrix.mapRect(&device, i_rect);
  const bool integral = std::floor(device.left) == device.left && std::floor(device.top) == device.top &&
                        std::floor(device.right) == device.right && std::floor(device.bottom) == device.bottom;
  if (staysRect && (integral || !i_antiAlias)) {
    // An aliased edge takes the pixels whose centres it holds.
    VYRRasterRect rounded{std::round(device.left), std::round(device.top), std::round(device.right),
                          std::round(device.bottom)};
    _clip.opRect(rounded.isFinite() || rounded.isEmpty() ? VYRRasterRoundOut(rounded) : VYRRasterIRect{}, i_op,
                 deviceBounds());
    return !_clip.isEmpty();
  }
  VYRRasterPath path;
  path.addRect(i_rect);
  return clipPath(path, i_op, i_antiAlias);
}

bool VYRRasterCanvas::clipPath(const VYRRasterPath& i_path, ClipOp i_op, bool i_antiAlias) {
  VYRRasterPath device;
  i_path.transform(_matrix, &device);
  VYRRasterMask mask;
  _pCoverage->FillPath(device, i_antiAlias, deviceBounds(), &mask);
  if (i_path.isInverseFillType()) mask = InvertMask(mask, deviceBounds());
  _clip.opMask(mask, i_op, deviceBounds());
  return !_clip.isEmpty();
}

bool VYRRasterCanvas::getClipDeviceBounds(VYRRasterIRect* o_bounds) const {
  if (o_bounds) *o_bounds = _clip.getBounds();
  return !_clip.isEmpty();
}

// ---- drawing ------------------------------------------------------------------------------

void VYRRasterCanvas::paintMask(const VYRRasterMask* i_pCoverage, const VYRRasterPaint& i_paint,
                                float i_coverageScale) {
  if (!hasTarget() || _clip.isEmpty()) return;
  const VYRRasterBlendMode mode = i_paint.getBlendMode();
  if (mode == kDst_VYRBlendMode) return;
  VYRRasterIRect area = i_pCoverage ? i_pCoverage->bounds : _clip.getBounds();
  if (!area.intersect(_clip.getBounds()) || !area.intersect(targetLimit())) return;

  VYRRasterShader* shader = i_paint.getShader();
  if (shader && !shader->setContext(_matrix, i_paint.getAlpha())) return;
  const uint32_t color = VYRRasterBlender::Premultiply(i_paint.getColor());
  const int scale = std::clamp(static_cast<int>(i_coverageScale * 255.0f + 0.5f), 0, 255);
  const PixelTarget dst = prepareTarget(area);
  _rowSource.resize(static_cast<size_t>(area.width()));
  _rowCoverage.resize(static_cast<size_t>(area.width()));
  for (int y = area.top; y < area.bottom; ++y) {
    // Pixels the clip leaves out stay as they are: only the span it touches is painted.
    const VYRRasterClip::Run covered = _clip.coveredRun(y);
    const int left = std::max(area.left, covered.left), right = std::min(area.right, covered.right);
    if (left >= right) continue;
    if (y + 1 < area.bottom) {
      // Small shapes touch short pieces of many rows, too short for the hardware to see
      // coming: ask for the next row's piece while this one blends.
      const char* next = reinterpret_cast<const char*>(dst.addr(left, y + 1));
      for (int offset = 0; offset < (right - left) * 4; offset += 64) __builtin_prefetch(next + offset, 1);
    }
    // Shaders that composite in source-over themselves skip the row of colours; the others are
    // shaded once for the row, when a span first needs it.
    bool shaded = false;
    // Pixels x0 .. x1 - 1 with the shape's coverage (none: a flood), times the clip's where
    // it is partial, times the scale.
    const auto blendSpan = [&](int x0, int x1, bool i_partialClip) {
      if (x0 >= x1) return;
      const int count = x1 - x0;
      const uint8_t* coverage = i_pCoverage ? i_pCoverage->row(y) + (x0 - i_pCoverage->bounds.left) : nullptr;
      if (i_partialClip || scale != 255) {
        uint8_t* combined = _rowCoverage.data();
        const VYRRasterMask& clipMask = _clip.getMask();
        const uint8_t* clipRow = _clip.isRect() ? nullptr : clipMask.row(y) + (x0 - clipMask.bounds.left);
        for (int i = 0; i < count; ++i) {
          int value = clipRow ? clipRow[i] : 255;
          if (coverage) value = Mul255(value, coverage[i]);
          combined[i] = scale != 255 ? Mul255(value, scale) : static_cast<uint8_t>(value);
        }
        coverage = combined;
      }
      if (shader) {
        if (mode == kSrcOver_VYRBlendMode && shader->blendRowSrcOver(x0, y, count, dst.addr(x0, y), coverage)) return;
        if (!shaded) shader->shadeRow(left, y, right - left, _rowSource.data());
        shaded = true;
        VYRRasterBlender::BlendRow(mode, dst.addr(x0, y), _rowSource.data() + (x0 - left), coverage, count);
      } else {
        VYRRasterBlender::BlendSolidRow(mode, dst.addr(x0, y), color, coverage, count);
      }
    };
    // Inside the clip's opaque run the shape's coverage goes as it is.
    const VYRRasterClip::Run opaque = _clip.opaqueRun(y);
    const int innerLeft = std::clamp(opaque.left, left, right);
    const int innerRight = std::clamp(opaque.right, innerLeft, right);
    blendSpan(left, innerLeft, true);
    blendSpan(innerLeft, innerRight, false);
    blendSpan(innerRight, right, true);
  }
}

void VYRRasterCanvas::drawShape(const VYRRasterPath& i_path, const VYRRasterPaint& i_paint, bool i_forceStroke) {
  if (!hasTarget() || _clip.isEmpty() || !_matrix.isFinite()) return;
  const VYRRasterPaint::Style style = i_forceStroke ? VYRRasterPaint::kStroke_Style : i_paint.getStyle();
  const VYRRasterIRect clipBounds = _clip.getBounds();
  const bool inverse = i_path.isInverseFillType();
  VYRRasterMask& coverage = _shapeCoverage;
  coverage.reset();
  float coverageScale = 1.0f;

  if (style != VYRRasterPaint::kStroke_Style) {
    VYRRasterPath& device = _devicePath;
    i_path.transform(_matrix, &device);
    // Scan convert only what the clip touches; an inverse fill needs the whole clip.
    VYRRasterIRect limit = clipBounds;
    if (!inverse && device.isFinite()) limit = _clip.coveredBounds(VYRRasterRoundOut(device.getBounds()));
    if (!limit.isEmpty()) _pCoverage->FillPath(device, i_paint.isAntiAlias(), limit, &coverage);
  }
  if (style != VYRRasterPaint::kFill_Style) {
    const VYRRasterPath* stroked = &i_path;
    VYRRasterPath dashed;
    float len1, len2;
    DeviceWidths(_matrix, 1.0f, &len1, &len2);
    if (i_paint.getPathEffect() && i_paint.getPathEffect()->filterPath(&dashed, i_path, std::max(len1, len2)))
      stroked = &dashed;
    VYRRasterCoverage::Stroke stroke;
    stroke.width = i_paint.getStrokeWidth();
    stroke.cap = i_paint.getStrokeCap();
    stroke.join = i_paint.getStrokeJoin();
    stroke.miterLimit = i_paint.getStrokeMiter();
    DeviceWidths(_matrix, stroke.width, &len1, &len2);
    // Zero widths, and anti-aliased widths under a device pixel, are one-pixel hairlines,
    // the thin ones faded by their width.
    const bool hairline = stroke.width == 0 || (i_paint.isAntiAlias() && len1 <= 1 && len2 <= 1);
    VYRRasterMask strokeCoverage;
    if (hairline) {
      if (stroke.width > 0) coverageScale = 0.5f * (len1 + len2);
      VYRRasterPath device;
      stroked->transform(_matrix, &device);
      if (i_paint.isAntiAlias()) {
        VYRRasterHairline::Rasterize(device, clipBounds, &strokeCoverage);
      } else {
        stroke.width = 1.0f;
        stroke.join = VYRRasterPaint::kBevel_Join;
        _pCoverage->StrokePath(device, VYRRasterMatrix(), stroke, false, clipBounds, &strokeCoverage);
      }
    } else {
      _pCoverage->StrokePath(*stroked, _matrix, stroke, i_paint.isAntiAlias(), clipBounds, &strokeCoverage);
    }
    if (style == VYRRasterPaint::kStrokeAndFill_Style && coverageScale != 1.0f) {
      // The faded hairline must not fade the fill: fold the fade into the stroke's coverage.
      const int k = static_cast<int>(coverageScale * 255.0f + 0.5f);
      for (uint8_t& v : strokeCoverage.alpha) v = Mul255(v, k);
      coverageScale = 1.0f;
    }
    coverage = coverage.isEmpty() ? std::move(strokeCoverage) : UnionMasks(coverage, strokeCoverage);
  }
  if (inverse && style == VYRRasterPaint::kFill_Style) coverage = InvertMask(coverage, clipBounds);
  if (coverage.isEmpty()) return;
  paintMask(&coverage, i_paint, coverageScale);
  // Keep the scratch of small shapes only: one huge fill should not hold its memory.
  constexpr size_t kKeptScratchBytes = size_t(1) << 20;
  if (coverage.alpha.capacity() > kKeptScratchBytes) coverage = VYRRasterMask();
}

void VYRRasterCanvas::drawPaint(const VYRRasterPaint& i_paint) { paintMask(nullptr, i_paint, 1.0f); }

void VYRRasterCanvas::drawRect(const VYRRasterRect& i_rect, const VYRRasterPaint& i_paint) {
  VYRRasterPath path;
  path.addRect(i_rect);
  drawShape(path, i_paint, false);
}

void VYRRasterCanvas::drawRoundRect(const VYRRasterRect& i_rect, float rx, float ry, const VYRRasterPaint& i_paint) {
  VYRRasterPath path;
  path.addRoundRect(i_rect, rx, ry);
  drawShape(path, i_paint, false);
}

void VYRRasterCanvas::drawCircle(float cx, float cy, float radius, const VYRRasterPaint& i_paint) {
  VYRRasterPath path;
  path.addCircle(cx, cy, radius);
  drawShape(path, i_paint, false);
}

void VYRRasterCanvas::drawOval(const VYRRasterRect& i_oval, const VYRRasterPaint& i_paint) {
  VYRRasterPath path;
  path.addOval(i_oval);
  drawShape(path, i_paint, false);
}

void VYRRasterCanvas::drawLine(float x0, float y0, float x1, float y1, const VYRRasterPaint& i_paint) {
  VYRRasterPath path;
  path.moveTo(x0, y0);
  path.lineTo(x1, y1);
  drawShape(path, i_paint, true);
}

void VYRRasterCanvas::drawPath(const VYRRasterPath& i_path, const VYRRasterPaint& i_paint) {
  drawShape(i_path, i_paint, false);
}

void VYRRasterCanvas::drawARGB(unsigned a, unsigned r, unsigned g, unsigned b, int i_mode) {
  VYRRasterPaint paint;
  paint.setARGB(a, r, g, b);
  paint.setBlendMode(i_mode);
  drawPaint(paint);
}

void VYRRasterCanvas::drawColor(uint32_t i_color, int i_mode) {
  VYRRasterPaint paint;
  paint.setColor(i_color);
  paint.setBlendMode(i_mode);
  drawPaint(paint);
}

void VYRRasterCanvas::clear(uint32_t i_color) { drawColor(i_color, kSrc_VYRBlendMode); }

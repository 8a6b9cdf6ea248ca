#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "VYRBaseUnknown.h"
#include "VYRRasterBitmap.h"
#include "VYRRasterBlendMode.h"
#include "VYRRasterClip.h"
#include "VYRRasterCoverage.h"
#include "VYRRasterDevice.h"
#include "VYRRasterImage.h"
#include "VYRRasterMatrix.h"
#include "VYRRasterPaint.h"
#include "VYRRasterPath.h"
#include "VYRRasterRect.h"

// Draws into a device through a matrix and a clip, both saved and restored on its own stack.
// Coverage comes from the scan converter, colour from the paint (or its shader), and the
// result is blended into the pixels by coverage x clip coverage, so pixels outside the shape
// never change whatever the transfer mode.
class VYR_EXPORT VYRRasterCanvas : public VYRBaseUnknown {
  VYR_DECLARE_CLASS(VYRRasterCanvas)
 public:
  enum SaveFlags {
    kMatrix_SaveFlag = 0x01,
    kClip_SaveFlag = 0x02,
    kHasAlphaLayer_SaveFlag = 0x04,
    kFullColorLayer_SaveFlag = 0x08,
    kClipToLayer_SaveFlag = 0x10,
    kMatrixClip_SaveFlag = 0x03,
    kARGB_NoClipLayer_SaveFlag = 0x0F,
    kARGB_ClipLayer_SaveFlag = 0x1F
  };
  using ClipOp = VYRRasterClip::Op;
  static constexpr ClipOp kDifference_Op = VYRRasterClip::kDifference_Op;
  static constexpr ClipOp kIntersect_Op = VYRRasterClip::kIntersect_Op;
  static constexpr ClipOp kUnion_Op = VYRRasterClip::kUnion_Op;
  static constexpr ClipOp kXOR_Op = VYRRasterClip::kXOR_Op;
  static constexpr ClipOp kReverseDifference_Op = VYRRasterClip::kReverseDifference_Op;
  static constexpr ClipOp kReplace_Op = VYRRasterClip::kReplace_Op;

  // A canvas over nothing: every draw does nothing.
  VYRRasterCanvas();
  // Takes a reference on the device; the clip starts as the whole device.
  explicit VYRRasterCanvas(VYRRasterDevice* ipDevice);
  ~VYRRasterCanvas() override;
  VYRRasterCanvas(const VYRRasterCanvas&) = delete;
  VYRRasterCanvas& operator=(const VYRRasterCanvas&) = delete;

  VYRRasterDevice* getDevice() const { return _pDevice; }

  // Pushes the parts of the state named by flags (matrix 1, clip 2); returns the save count
  // before the push. A new canvas has a save count of 1.
  int save(int i_flags = kMatrixClip_SaveFlag);
  // Pushes a layer: later draws go to a transparent image covering the clip bounds (within
  // i_pBounds if given), composited back at the matching restore with the paint's alpha, then
  // its image filter, then its luminance-mask or transfer mode (a null paint: opaque
  // source-over). The layer's pixels grow with what is drawn into it, so a layer costs what
  // its content covers, not what the clip covers; the modes that also change the destination
  // where the layer is transparent (clear, source, source-in, destination-in, source-out,
  // destination-atop, luminance masks) are composited over the whole layer area.
  // Returns the save count before the push.
  int saveLayer(const VYRRasterRect* i_pBounds, const VYRRasterPaint* i_pPaint,
                int i_flags = kARGB_ClipLayer_SaveFlag);
  int saveLayerAlpha(const VYRRasterRect* i_pBounds, uint8_t i_alpha, int i_flags = kARGB_ClipLayer_SaveFlag);
  // Pops one save (a lone restore on a new canvas does nothing).
  void restore();
  // Pops until the save count is i_count (values below 1 restore to 1).
  void restoreToCount(int i_count);
  int getSaveCount() const { return static_cast<int>(_saves.size()) + 1; }
  bool isDrawingToLayer() const { return !_layers.empty(); }
  // The device rectangle the top layer covers (empty without a layer).
  VYRRasterIRect getLayerBounds() const { return _layers.empty() ? VYRRasterIRect{} : _layers.back().bounds; }

  const VYRRasterMatrix& getTotalMatrix() const { return _matrix; }
  void setMatrix(const VYRRasterMatrix& i_matrix) { _matrix = i_matrix; }
  void resetMatrix() { _matrix.setIdentity(); }
  // Each pre-concatenates onto the matrix (the new transform applies to points first);
  // false when the argument is not finite (the matrix is then unchanged).
  bool concat(const VYRRasterMatrix& i_matrix);
  bool translate(float dx, float dy);
  bool scale(float sx, float sy);
  bool rotate(float degrees);
  bool skew(float sx, float sy);

  // Combine the clip with a shape under the current matrix. Returns whether the clip is
  // non-empty afterwards.
  bool clipRect(const VYRRasterRect& i_rect, ClipOp i_op = kIntersect_Op, bool i_antiAlias = false);
  bool clipPath(const VYRRasterPath& i_path, ClipOp i_op = kIntersect_Op, bool i_antiAlias = false);
  // The device pixels the clip may touch; false when the clip is empty.
  bool getClipDeviceBounds(VYRRasterIRect* o_bounds) const;
  bool isClipEmpty() const { return _clip.isEmpty(); }
  bool isClipRect() const { return _clip.isRect(); }
  const VYRRasterClip& getClip() const { return _clip; }

  // Paints the whole clip with the paint (style and geometry ignored).
  void drawPaint(const VYRRasterPaint& i_paint);
  void drawRect(const VYRRasterRect& i_rect, const VYRRasterPaint& i_paint);
  void drawRoundRect(const VYRRasterRect& i_rect, float rx, float ry, const VYRRasterPaint& i_paint);
  void drawRRect(const VYRRasterRect& i_rect, float rx, float ry, const VYRRasterPaint& i_paint) {
    drawRoundRect(i_rect, rx, ry, i_paint);
  }
  void drawCircle(float cx, float cy, float radius, const VYRRasterPaint& i_paint);
  void drawOval(const VYRRasterRect& i_oval, const VYRRasterPaint& i_paint);
  // Always stroked, whatever the paint's style.
  void drawLine(float x0, float y0, float x1, float y1, const VYRRasterPaint& i_paint);
  void drawPath(const VYRRasterPath& i_path, const VYRRasterPaint& i_paint);
  // Floods the clip with a colour in a transfer mode (default source-over).
  void drawARGB(unsigned a, unsigned r, unsigned g, unsigned b, int i_mode = kSrcOver_VYRBlendMode);
  void drawColor(uint32_t i_color, int i_mode = kSrcOver_VYRBlendMode);
  // Replaces the pixels inside the clip by the colour (source mode).
  void clear(uint32_t i_color);
  // Drawing is immediate: nothing to flush, kept for callers that expect it.
  void flush() {}

 private:
  struct SaveRecord {
    int flags;
    VYRRasterMatrix matrix;
    VYRRasterClip clip;
    int layerDepth;  // number of layers when the record was pushed
  };
  // A layer: its own pixels, composited into the one below at the matching restore.
  struct LayerRecord {
    VYRRasterImage image;   // allocated over what draws may need, transparent elsewhere
    VYRRasterIRect drawn;   // union of the areas drawn into
    VYRRasterIRect bounds;  // device rectangle the layer covers
    VYRRasterPaint paint;   // alpha, filter and mode of the composite
  };
  // Pixels that draws write: the device's, or the top layer's.
  struct PixelTarget {
    uint32_t* pixels = nullptr;  // the pixel at (left, top)
    size_t stride = 0;           // in pixels
    int left = 0;
    int top = 0;
    uint32_t* addr(int x, int y) const {
      return pixels + static_cast<size_t>(y - top) * stride + static_cast<size_t>(x - left);
    }
  };

  bool hasTarget() const;
  // Where draws may land: the device, or the top layer's bounds (empty without pixels).
  VYRRasterIRect targetLimit() const;
  // Makes i_area (within targetLimit) writable, growing the top layer's pixels over it.
  PixelTarget prepareTarget(const VYRRasterIRect& i_area);
  VYRRasterIRect deviceBounds() const;
  void drawShape(const VYRRasterPath& i_path, const VYRRasterPaint& i_paint, bool i_forceStroke);
  void paintMask(const VYRRasterMask* i_pCoverage, const VYRRasterPaint& i_paint, float i_coverageScale);
  void applyClip(const VYRRasterPath& i_devicePath, bool i_inverse, ClipOp i_op, bool i_antiAlias);
  void popLayer();

  VYRRasterDevice* _pDevice = nullptr;
  std::unique_ptr<VYRRasterCoverage> _pCoverage;
  VYRRasterMatrix _matrix;
  VYRRasterClip _clip;
  std::vector<SaveRecord> _saves;
  std::vector<LayerRecord> _layers;
  // Scratch of the draws, kept so that a run of small draws allocates nothing.
  VYRRasterPath _devicePath;
  VYRRasterMask _shapeCoverage;
  std::vector<uint32_t> _rowSource;
  std::vector<uint8_t> _rowCoverage;
};

#pragma once

#include <cstdint>
#include <vector>

#include "VYRRasterBitmap.h"
#include "VYRRasterShader.h"

// Colours from a premultiplied bitmap, pixel (i, j) covering the square (i, j)-(i + 1, j + 1)
// of shader space, tiled beyond its edges by a mode per direction, sampled at the nearest pixel
// or bilinearly between the four nearest pixel centres.
class VYR_EXPORT VYRRasterBitmapShader : public VYRRasterShader {
  VYR_DECLARE_CLASS(VYRRasterBitmapShader)
 public:
  enum Filter { kNearest_Filter, kBilinear_Filter };

  // The bitmap's pixels belong to i_pPixelOwner (may be null when the caller keeps them alive
  // for the shader's life otherwise); the shader holds a reference on it.
  VYRRasterBitmapShader(const VYRRasterBitmap& i_bitmap, VYRBaseUnknown* i_pPixelOwner, TileMode i_tileX,
                        TileMode i_tileY, Filter i_filter = kNearest_Filter);
  ~VYRRasterBitmapShader() override;
  VYRRasterBitmapShader(const VYRRasterBitmapShader&) = delete;
  VYRRasterBitmapShader& operator=(const VYRRasterBitmapShader&) = delete;

  bool setContext(const VYRRasterMatrix& i_totalMatrix, uint8_t i_paintAlpha) override;
  void shadeRow(int x, int y, int count, uint32_t* o_premultiplied) override;
  // Bilinear and clamped under a matrix that only scales and translates: samples and
  // composites in one pass, without the row of colours in between.
  bool blendRowSrcOver(int x, int y, int count, uint32_t* io_dst, const uint8_t* i_coverage) override;

  const VYRRasterBitmap& getBitmap() const { return _bitmap; }
  Filter getFilter() const { return _filter; }
  TileMode getTileX() const { return _tileX; }
  TileMode getTileY() const { return _tileY; }

 private:
  VYRRasterBitmap _bitmap;
  VYRBaseUnknown* _pPixelOwner;
  TileMode _tileX, _tileY;
  Filter _filter;
  bool _drawsNothing = false;  // empty bitmap or singular matrix
  // The row-by-row bilinear path (the matrix only scales): each pixel's two bitmap columns and
  // weight, the same for every row of a draw, and the two bitmap rows mixed per column.
  struct ColumnStep {
    int left, right;
    unsigned weight;
    uint64_t weightLanes;  // the weight in each of four 16-bit lanes
  };
  std::vector<ColumnStep> _columnSteps;
  // The row the steps were made for (-1: none this draw) and the bitmap columns it mixes.
  int _stepsX = 0, _stepsCount = -1, _stepsFirstColumn = 0, _stepsLastColumn = 0;
  std::vector<uint64_t> _mixedRow;
  // The one-pass path: for each pixel of the row the bitmap column of its left sample and the
  // lane weights (256 - w, w) x 4, the same for every row of a draw; for each row the two
  // bitmap rows mixed per column, each column next to its right neighbour (see PairColumns).
  bool preparePairSteps(int x, int y, int count);
  std::vector<int> _pairColumns;
  std::vector<uint16_t> _pairWeights;
  std::vector<uint16_t> _pairRow;
  std::vector<uint32_t> _pairMixed;
  int _pairsX = 0, _pairsCount = -1, _pairsFirstColumn = 0, _pairsLastColumn = 0;
};

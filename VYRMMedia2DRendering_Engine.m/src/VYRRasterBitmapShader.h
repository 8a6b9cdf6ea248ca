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
};

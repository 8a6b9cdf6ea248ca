#pragma once

#include <map>
#include <string>
#include <vector>

#include "VYR3x3Matrix.h"
#include "VYRMathPoint2D.h"
#include "VYRUnicodeString.h"

class VYR2DGDrawing;
class VYRHostPath;
class VYRPixelImage;
class VYRPrtColourTable;
class VYRPrtGraphicPrimitiveElt;
class VYRPrtMarkerElt;
class VYRPrtModel;
class VYRPrtNodeTreeElt;

// Draws a model through a drawing: every image element of the model clipped
// to its area, each element under its transform, clip path, opacity, mask
// and filter, each shape with the fill and stroke the importer wrote on it
// (see VYRHostPaintCodes.h), and markers on the vertices of paths, lines and
// point lists. Definitions, paint servers, clip paths, masks, markers,
// patterns and filters are drawn only where they are used.
class VYRModelRenderer {
 public:
  explicit VYRModelRenderer(VYR2DGDrawing& io_drawing) : _drawing(io_drawing) {}

  // Draws every image of the model; i_transform maps the document onto the drawing.
  void DrawModel(VYRPrtModel& i_model, const VYR3x3Matrix& i_transform);

  // The size of the model's first image, in pixels; false when it has none.
  static bool GetDocumentSize(VYRPrtModel& i_model, double& o_width, double& o_height);

  // The box of what the model draws, in document units: every shape's
  // outline (curve control points included, strokes excluded) under its
  // transforms. False when the model draws nothing.
  static bool GetDrawingBounds(VYRPrtModel& i_model, double& o_xmin, double& o_xmax, double& o_ymin,
                               double& o_ymax);

  // Renders the model into a new image (one reference, the caller releases
  // it) of the given size; a size of 0 takes the document's, and a single
  // given side keeps the document's proportions. Null, with the reason in
  // o_error, for a model without images or a size no surface can have.
  static VYRPixelImage* RenderToImage(VYRPrtModel& i_model, int i_width, int i_height, std::string& o_error);

 private:
  // Drawing state handed down the tree.
  struct Paint {
    const VYRPrtColourTable* pColours = nullptr;
    double alpha = 1.0;  // opacities of ancestors folded into the paint
  };

  void IndexIDs(VYRPrtGraphicPrimitiveElt* i_pElt, int i_depth);
  void DrawNode(VYRPrtGraphicPrimitiveElt* i_pElt, const Paint& i_paint, int i_depth);
  void DrawContent(VYRPrtGraphicPrimitiveElt* i_pElt, const Paint& i_paint, int i_depth);
  void DrawChildren(const VYRPrtNodeTreeElt& i_node, const Paint& i_paint, int i_depth);
  void DrawShape(VYRPrtGraphicPrimitiveElt* i_pElt, const Paint& i_paint);
  void DrawText(VYRPrtGraphicPrimitiveElt* i_pElt, const Paint& i_paint);
  void DrawBitmap(VYRPrtGraphicPrimitiveElt* i_pElt, const Paint& i_paint);
  void DrawMarkers(VYRPrtGraphicPrimitiveElt* i_pElt, const VYRHostPath& i_outline, const Paint& i_paint,
                   int i_depth);
  void DrawMarker(VYRPrtMarkerElt* i_pMarker, const VYRMathPoint2D& i_at, double i_angle, double i_strokeWidth,
                  const Paint& i_paint, int i_depth);
  // Installs the element's clip path; false when it clips everything away.
  bool ApplyClipPath(VYRPrtGraphicPrimitiveElt* i_pElt);
  void DrawMask(VYRPrtGraphicPrimitiveElt* i_pElt, const Paint& i_paint, int i_depth);
  void EmitPath(const VYRHostPath& i_path);
  // The colour at an index of the current colour table (black when missing).
  void Colour(const Paint& i_paint, unsigned int i_index, float o_rgb[3]) const;
  // The element's box in its own coordinates, children included.
  static bool LocalBounds(VYRPrtGraphicPrimitiveElt* i_pElt, double& o_xmin, double& o_xmax, double& o_ymin,
                          double& o_ymax, int i_depth);
  VYRPrtGraphicPrimitiveElt* FindByID(const VYRUnicodeString& i_id) const;

  VYR2DGDrawing& _drawing;
  std::map<std::string, VYRPrtGraphicPrimitiveElt*> _elementsByID;
};

// Writes the image as a PNG file; false when it cannot.
bool VYRWritePngFile(const VYRPixelImage* i_pImage, const std::string& i_path);

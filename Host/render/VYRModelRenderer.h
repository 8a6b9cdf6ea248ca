#pragma once

#include <functional>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "MM2DAttributeTypes.h"
#include "VYR2DGDrawingEnums.h"
#include "VYR2DGRect.h"
#include "VYR3x3Matrix.h"
#include "VYRMathPoint2D.h"
#include "VYRUnicodeString.h"

class VYR2DGDrawing;
class VYRHostPath;
class VYRPixelImage;
class VYRPrintGradient;
class VYRPrtClipPathElt;
class VYRPrtColourTable;
class VYRPrtGraphicPrimitiveElt;
class VYRPrtMarkerElt;
class VYRPrtMaskElt;
class VYRPrtRegionAttributes;
class VYRPrtModel;
class VYRPrtPatternElt;
class VYRPrtFillAttributes;
class VYRPrtStrokeAttributes;
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
    // Drawing a clip path's content: every shape and text filled opaque
    // white whatever its paint, nothing stroked, no effects.
    bool clipCoverage = false;
  };

  // A new image of the given size (one reference) with what i_draw draws on it; null with a reason in o_error.
  static VYRPixelImage* DrawToNewImage(int i_width, int i_height, std::string& o_error,
                                       const std::function<void(VYRModelRenderer&)>& i_draw);
  void IndexIDs(VYRPrtGraphicPrimitiveElt* i_pElt, int i_depth);
  void DrawNode(VYRPrtGraphicPrimitiveElt* i_pElt, const Paint& i_paint, int i_depth);
  // The element's content through its filter, mask and opacity.
  void DrawComposited(VYRPrtGraphicPrimitiveElt* i_pElt, const Paint& i_paint, int i_depth);
  void DrawContent(VYRPrtGraphicPrimitiveElt* i_pElt, const Paint& i_paint, int i_depth);
  void DrawChildren(const VYRPrtNodeTreeElt& i_node, const Paint& i_paint, int i_depth);
  void DrawShape(VYRPrtGraphicPrimitiveElt* i_pElt, const Paint& i_paint);
  // Load the fill or stroke colour, gradient or pattern of an element and
  // return the mode that paints with it (none when nothing can be painted).
  VYRPrintFillMode PrepareFill(VYRPrtGraphicPrimitiveElt* i_pElt, const VYRPrtFillAttributes& i_fill,
                               const Paint& i_paint);
  VYRPrintEdgeMode PrepareStroke(VYRPrtGraphicPrimitiveElt* i_pElt, const VYRPrtStrokeAttributes& i_stroke,
                                 const Paint& i_paint);
  // Back to plain colour fills and solid strokes.
  void EndPaint();
  // Draws the element's pattern tile and sets it as the shader; false when it paints nothing.
  bool SetPattern(VYRPrtGraphicPrimitiveElt* i_pElt, const Paint& i_paint);
  // Sets a gradient record whose transform maps to the current user space.
  void SetGradient(const VYRPrintGradient& i_gradient);
  void DrawText(VYRPrtGraphicPrimitiveElt* i_pElt, const Paint& i_paint);
  void DrawBitmap(VYRPrtGraphicPrimitiveElt* i_pElt, const Paint& i_paint);
  void DrawMarkers(VYRPrtGraphicPrimitiveElt* i_pElt, const VYRHostPath& i_outline, const Paint& i_paint,
                   int i_depth);
  void DrawMarker(VYRPrtMarkerElt* i_pMarker, const VYRMathPoint2D& i_at, double i_angle, double i_strokeWidth,
                  const Paint& i_paint, int i_depth);
  // Installs the element's clip path; false when it clips everything away.
  bool ApplyClipPath(VYRPrtGraphicPrimitiveElt* i_pElt);
  // The matrix from a clip path's content to the user space of the element it clips.
  bool ClipMatrix(VYRPrtGraphicPrimitiveElt* i_pElt, VYRPrtClipPathElt* i_pClip, VYRMath3x3Matrix& o_matrix);
  // A clip path that one path with one fill rule cannot stand for (several
  // shapes, text, rules or clips of their own) is drawn as coverage in a
  // layer that keeps what it covers of the content below.
  static bool NeedsClipLayer(VYRPrtClipPathElt* i_pClip);
  void DrawClipLayer(VYRPrtGraphicPrimitiveElt* i_pElt, VYRPrtClipPathElt* i_pClip, const Paint& i_paint,
                     int i_depth);
  // Composites the mask's luminance into the layer holding the element.
  void DrawMask(VYRPrtGraphicPrimitiveElt* i_pElt, VYRPrtMaskElt* i_pMask, const Paint& i_paint, int i_depth);
  // A mask's or filter's region in the element's coordinates; false when
  // it is given in fractions of a box the element does not have.
  static bool EffectArea(VYRPrtGraphicPrimitiveElt* i_pElt, const VYRPrtRegionAttributes& i_region,
                         MM2D::UnitType i_units, VYR2DGRect& o_area);
  // How many device pixels one unit of the current coordinates spans.
  float DeviceScale();
  void EmitPath(const VYRHostPath& i_path);
  // The colour at an index of the current colour table (black when missing).
  void Colour(const Paint& i_paint, unsigned int i_index, float o_rgb[3]) const;
  // The element's box in its own coordinates, children included.
  static bool LocalBounds(VYRPrtGraphicPrimitiveElt* i_pElt, double& o_xmin, double& o_xmax, double& o_ymin,
                          double& o_ymax, int i_depth);
  VYRPrtGraphicPrimitiveElt* FindByID(const VYRUnicodeString& i_id) const;

  VYR2DGDrawing& _drawing;
  std::map<std::string, VYRPrtGraphicPrimitiveElt*> _elementsByID;
  // Markers, masks and patterns being drawn, which their own content may not use again.
  std::set<const VYRPrtGraphicPrimitiveElt*> _inUse;
};

// Writes the image as a PNG file; false when it cannot.
bool VYRWritePngFile(const VYRPixelImage* i_pImage, const std::string& i_path);

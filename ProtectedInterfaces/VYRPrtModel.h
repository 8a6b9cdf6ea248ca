#pragma once

#include "VYRBaseUnknown.h"
#include "VYRExport.h"
#include "VYRListPtrVYRPrtImageElt.h"
#include "VYRPrtModelForward.h"
#include "VYRUnicodeString.h"

// The root a host keeps for a whole document: the list of image elements,
// each the top of one element tree, with look-up and visibility by
// identifier. The model owns the list, not the images (the element factory
// does); every model holds a reference on the factory, so the last model to
// go takes the factory and all its elements with it.
class VYR_EXPORT VYRPrtModel : public VYRBaseUnknown {
  VYR_DECLARE_CLASS(VYRPrtModel)

 public:
  VYRPrtModel();
  // The copy lists the same images.
  VYRPrtModel(const VYRPrtModel& iModel);
  VYRPrtModel& operator=(const VYRPrtModel& iModel);
  ~VYRPrtModel() override;

  // Appends the image (twice if added twice).
  void AddImage(VYRPrtImageElt* iprImageElt);
  // Takes the first occurrence of the image out of the list; the image stays
  // with the factory, which owns it.
  void RemoveImage(VYRPrtImageElt* iprImageElt);
  // The list itself (positions from 1), or null when no image was ever added.
  void GetImages(VYRListPtrVYRPrtImageElt*& opImages) const;

  // 1 and the visibility of the element with that identifier, or 0 (output untouched).
  unsigned char GetVisibility(const VYRUnicodeString& i_id, unsigned char& o_visibility);
  // Sets the visibility of the element with that identifier (and, when
  // recursive, of its descendants) and of all its ancestors. Always 0.
  unsigned char SetVisibility(const VYRUnicodeString& i_id, unsigned char i_visibility, unsigned char i_recursive);

  // Visibility snapshots (see VYRPrtVisibilityNode); the caller releases the
  // node it is given.
  // The subtree of the element with that identifier: 1, or 0 and null when there is none.
  unsigned char GetVisibilityNode(const VYRUnicodeString& i_id, VYRPrtVisibilityNode*& opNode);
  // A root with an empty identifier whose children mirror the images in order:
  // 1, or 0 and null when the model has no list.
  unsigned char GetVisibilityTree(VYRPrtVisibilityNode*& opRoot);
  // Applies a snapshot: a node with an identifier to the element found by it,
  // a node without one (a tree root) to the images. Child nodes are matched
  // to child elements at the same place when their identifiers agree, else by
  // identifier below the element; nodes that match nothing are skipped.
  // Ancestors are left alone. 1 when the snapshot's top matched, else 0.
  unsigned char SetVisibilityNode(const VYRPrtVisibilityNode* ipNode);

  // The image count (-1 without a list), then each image's record.
  void Stream(VYRI2DGStream* ipStream);
  // Reads a new image list; a negative count keeps the images held.
  void Unstream(VYRI2DGStream* ipStream);

 private:
  // The first element with the identifier: below i_pRoot (itself included),
  // or in the images when i_pRoot is null.
  VYRPrtGraphicPrimitiveElt* FindPrimitive(VYRPrtGraphicPrimitiveElt* i_pRoot, const VYRUnicodeString& i_id) const;

  VYRListPtrVYRPrtImageElt* _paImages = nullptr;
};

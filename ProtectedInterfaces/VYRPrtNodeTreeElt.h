#pragma once

#include "VYRAssert.h"
#include "VYRExport.h"
#include "VYRPrtEltFactory.h"
#include "VYRPrtGraphicPrimitiveElt.h"
#include "VYRSYPDynArray.h"

// Base of every element with children: an ordered array of child pointers.
// The children belong to the element factory, not to the node: destroying or
// clearing a node frees the pointer storage only. Children added through
// AddChild get this node as their father.
class VYR_EXPORT VYRPrtNodeTreeElt : public VYRPrtGraphicPrimitiveElt {
  VYR_DECLARE_CLASS(VYRPrtNodeTreeElt)

 public:
  ~VYRPrtNodeTreeElt() override = default;
  using VYRPrtGraphicPrimitiveElt::operator=;

  // Appends the child (twice if added twice) and makes this node its father.
  void AddChild(VYRPrtGraphicPrimitiveElt* const i_pChildGP);
  // Removes the first occurrence and clears its father; an absent child is left alone.
  void RemoveChild(VYRPrtGraphicPrimitiveElt* const i_pChildGP);
  // The child at an index, or null (with a report) outside 0..length-1.
  VYRPrtGraphicPrimitiveElt* GetChild(int i_index) const;
  const VYRSYPDynArray<VYRPrtGraphicPrimitiveElt*>& GetChildArray() const;
  // Forgets every child without touching the children themselves.
  void ClearChildArray();

  // The common record, the child count, then each child's tagged record.
  void Stream(VYRI2DGStream* ipStream) override;
  // Appends the children read to those already held.
  void Unstream(VYRI2DGStream* ipStream) override;

 protected:
  VYRPrtNodeTreeElt() = default;
  // Copies share the children of the original.
  VYRPrtNodeTreeElt(const VYRPrtNodeTreeElt& i_nodeTreeElt) = default;
  VYRPrtNodeTreeElt& operator=(const VYRPrtNodeTreeElt& i_nodeTreeElt);

  // Adds a duplicate of every child to i_target, in order; children that do
  // not duplicate are skipped. The duplicating containers share this.
  void DuplicateChildrenInto(VYRPrtNodeTreeElt& i_target) const;

  // A new K from the factory holding a copy of i_source whose children are
  // duplicates of i_source's, fathered by the copy (not shared with the
  // source); null with the "opGPElt" report when the factory has none.
  template <class K>
  static K* DuplicateTree(const K& i_source) {
    K* pCopy = VYRPrtEltFactory::Get().CreateElement<K>();
    if (!VYR_CHECK_POINTER_TEXT(pCopy, "opGPElt")) return nullptr;
    *pCopy = i_source;
    pCopy->ClearChildArray();
    i_source.DuplicateChildrenInto(*pCopy);
    return pCopy;
  }

 private:
  VYRSYPDynArray<VYRPrtGraphicPrimitiveElt*> _children;
};

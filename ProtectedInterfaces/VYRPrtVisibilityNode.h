#pragma once

#include "VYRBaseUnknown.h"
#include "VYRExport.h"
#include "VYRListPtrVYRPrtVisibilityNode.h"
#include "VYRUnicodeString.h"

// A snapshot of the visibility of one element and, in its children, of the
// element's children in the same order: what a host keeps to show and hide
// parts of a document and to restore them later. A node owns its children;
// nodes are reference-counted and the host releases the root it was given.
class VYR_EXPORT VYRPrtVisibilityNode : public VYRBaseUnknown {
  VYR_DECLARE_CLASS(VYRPrtVisibilityNode)

 public:
  VYRPrtVisibilityNode() = default;
  VYRPrtVisibilityNode(const VYRUnicodeString& i_id, unsigned char i_visibility);
  VYRPrtVisibilityNode(const VYRPrtVisibilityNode&) = delete;
  VYRPrtVisibilityNode& operator=(const VYRPrtVisibilityNode&) = delete;
  ~VYRPrtVisibilityNode() override;

  const VYRUnicodeString& GetID() const { return _ID; }
  void SetID(const VYRUnicodeString& i_id) { _ID = i_id; }
  unsigned char GetVisibility() const { return _visibility; }
  void SetVisibility(unsigned char i_visibility) { _visibility = i_visibility; }

  // Takes over the caller's reference on the child; a null child is reported.
  void AddChild(VYRPrtVisibilityNode* ipChild);
  int GetChildCount() const { return _children.Size(); }
  // The child at a position from 1, as in the platform list; null outside.
  VYRPrtVisibilityNode* GetChild(int i_position) const;
  const VYRListPtrVYRPrtVisibilityNode& GetChildren() const { return _children; }

 private:
  VYRUnicodeString _ID;
  unsigned char _visibility = 1;
  VYRListPtrVYRPrtVisibilityNode _children;
};

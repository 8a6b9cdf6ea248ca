#include "VYRPrtNodeTreeElt.h"

#include "VYRAssert.h"
#include "VYRI2DGStream.h"
#include "VYRPrtStreamUnstreamHelper.h"

VYR_IMPLEMENT_ABSTRACT_CLASS(VYRPrtNodeTreeElt, VYRPrtGraphicPrimitiveElt, "Multimedia2DRendering")

namespace {
// The smallest child record is its 4-byte tag.
constexpr int kSmallestChildRecord = 4;
}  // namespace

VYRPrtNodeTreeElt& VYRPrtNodeTreeElt::operator=(const VYRPrtNodeTreeElt& i_nodeTreeElt) {
  if (!VYR_CHECK_CONDITION(this != &i_nodeTreeElt)) return *this;
  VYRPrtGraphicPrimitiveElt::operator=(i_nodeTreeElt);
  _children = i_nodeTreeElt._children;
  return *this;
}

void VYRPrtNodeTreeElt::AddChild(VYRPrtGraphicPrimitiveElt* const i_pChildGP) {
  if (!VYR_CHECK_POINTER(i_pChildGP)) return;
  if (_children.Append(i_pChildGP) < 0) return;
  i_pChildGP->SetFather(this);
}

void VYRPrtNodeTreeElt::RemoveChild(VYRPrtGraphicPrimitiveElt* const i_pChildGP) {
  if (!VYR_CHECK_POINTER(i_pChildGP)) return;
  int position = _children.Find(i_pChildGP);
  if (position < 0) return;
  _children.RemoveAt(position);
  i_pChildGP->SetFather(nullptr);
}

VYRPrtGraphicPrimitiveElt* VYRPrtNodeTreeElt::GetChild(int i_index) const { return _children[i_index]; }

const VYRSYPDynArray<VYRPrtGraphicPrimitiveElt*>& VYRPrtNodeTreeElt::GetChildArray() const { return _children; }

void VYRPrtNodeTreeElt::ClearChildArray() { _children.Clear(); }

void VYRPrtNodeTreeElt::DuplicateChildrenInto(VYRPrtNodeTreeElt& i_target) const {
  for (int i = 0; i < _children.GetLength(); ++i) {
    VYRPrtGraphicPrimitiveElt* pChild = GetChild(i);
    if (!pChild) continue;
    VYRPrtGraphicPrimitiveElt* pCopy = nullptr;
    pChild->Duplicate(pCopy);
    if (pCopy) i_target.AddChild(pCopy);
  }
}

void VYRPrtNodeTreeElt::Stream(VYRI2DGStream* ipStream) {
  if (!ipStream) return;
  VYRPrtGraphicPrimitiveElt::Stream(ipStream);
  ipStream->StreamValue(_children.GetLength());
  for (VYRPrtGraphicPrimitiveElt* pChild : _children)
    VYRPrtStreamUnstreamHelper::SerializeVYRPrtGraphicPrimitiveElt(pChild, ipStream);
}

void VYRPrtNodeTreeElt::Unstream(VYRI2DGStream* ipStream) {
  if (!ipStream) return;
  VYRPrtGraphicPrimitiveElt::Unstream(ipStream);
  int count = 0;
  ipStream->UnstreamValue(count);
  if (count <= 0) return;
  // A damaged count would otherwise make millions of empty reads and reports.
  if (!VYR_CHECK_CONDITION(ipStream->CountFits(count, kSmallestChildRecord))) return;
  for (int i = 0; i < count && !ipStream->HasFailed(); ++i) {
    VYRPrtGraphicPrimitiveElt* pChild = VYRPrtStreamUnstreamHelper::CreateVYRPrtGraphicPrimitiveEltFromStream(ipStream);
    AddChild(pChild);
  }
}

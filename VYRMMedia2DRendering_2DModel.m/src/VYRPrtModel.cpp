#include "VYRPrtModel.h"

#include <new>

#include "VYRAssert.h"
#include "VYRI2DGStream.h"
#include "VYRPrtEltFactory.h"
#include "VYRPrtImageElt.h"
#include "VYRPrtNodeTreeElt.h"
#include "VYRPrtVisibilityNode.h"

VYR_IMPLEMENT_CLASS(VYRPrtModel, VYRBaseUnknown, "Multimedia2DRendering")

namespace {

// Every element with children is a node tree (groups, symbols, switches,
// definitions, patterns, masks, clip paths, markers, filters, images,
// figures): walking node-tree children reaches every container kind.
const VYRPrtNodeTreeElt* AsNodeTree(const VYRPrtGraphicPrimitiveElt* ipElt) {
  if (!ipElt || !ipElt->IsAKindOf(VYRPrtNodeTreeElt::ClassName())) return nullptr;
  return static_cast<const VYRPrtNodeTreeElt*>(ipElt);
}

void SetVisibilityOfDescendants(VYRPrtGraphicPrimitiveElt* ipElt, unsigned char i_visibility) {
  const VYRPrtNodeTreeElt* pNode = AsNodeTree(ipElt);
  if (!pNode) return;
  for (VYRPrtGraphicPrimitiveElt* pChild : pNode->GetChildArray()) {
    if (!pChild) continue;
    pChild->SetVisibility(i_visibility);
    SetVisibilityOfDescendants(pChild, i_visibility);
  }
}

// The first element with the identifier in the subtree of ipRoot, itself included.
VYRPrtGraphicPrimitiveElt* FindInTree(VYRPrtGraphicPrimitiveElt* ipRoot, const VYRUnicodeString& i_id) {
  if (!ipRoot) return nullptr;
  if (ipRoot->GetID() == i_id) return ipRoot;
  if (const VYRPrtNodeTreeElt* pNode = AsNodeTree(ipRoot)) {
    for (VYRPrtGraphicPrimitiveElt* pChild : pNode->GetChildArray()) {
      if (VYRPrtGraphicPrimitiveElt* pFound = FindInTree(pChild, i_id)) return pFound;
    }
  }
  return nullptr;
}

void ApplyNode(const VYRPrtVisibilityNode& i_node, VYRPrtGraphicPrimitiveElt* ipElt);

// Child nodes go to the child element at the same place when the identifiers
// agree (which also covers elements without identifier), else to the first
// element of their identifier in the subtrees of i_elements.
void ApplyChildren(const VYRPrtVisibilityNode& i_node, const VYRSYPDynArray<VYRPrtGraphicPrimitiveElt*>& i_elements) {
  for (int position = 1; position <= i_node.GetChildCount(); ++position) {
    const VYRPrtVisibilityNode* pChildNode = i_node.GetChild(position);
    if (!pChildNode) continue;
    VYRPrtGraphicPrimitiveElt* pElt = nullptr;
    int index = position - 1;
    if (index < i_elements.GetLength() && i_elements[index] && i_elements[index]->GetID() == pChildNode->GetID()) {
      pElt = i_elements[index];
    } else if (!pChildNode->GetID().IsEmpty()) {
      for (VYRPrtGraphicPrimitiveElt* pCandidate : i_elements) {
        if ((pElt = FindInTree(pCandidate, pChildNode->GetID()))) break;
      }
    }
    if (pElt) ApplyNode(*pChildNode, pElt);
  }
}

void ApplyNode(const VYRPrtVisibilityNode& i_node, VYRPrtGraphicPrimitiveElt* ipElt) {
  ipElt->SetVisibility(i_node.GetVisibility());
  if (const VYRPrtNodeTreeElt* pTree = AsNodeTree(ipElt)) ApplyChildren(i_node, pTree->GetChildArray());
}

VYRPrtVisibilityNode* MirrorVisibility(const VYRPrtGraphicPrimitiveElt* ipElt) {
  auto* pNode = new (std::nothrow) VYRPrtVisibilityNode(ipElt->GetID(), ipElt->GetVisibility());
  if (!VYR_CHECK_POINTER(pNode)) return nullptr;
  if (const VYRPrtNodeTreeElt* pTree = AsNodeTree(ipElt)) {
    for (VYRPrtGraphicPrimitiveElt* pChild : pTree->GetChildArray()) {
      if (!pChild) continue;
      if (VYRPrtVisibilityNode* pChildNode = MirrorVisibility(pChild)) pNode->AddChild(pChildNode);
    }
  }
  return pNode;
}

}  // namespace

VYRPrtModel::VYRPrtModel() { VYRPrtEltFactory::AddReference(); }

VYRPrtModel::VYRPrtModel(const VYRPrtModel& iModel) : VYRBaseUnknown(iModel) {
  VYRPrtEltFactory::AddReference();
  if (iModel._paImages) _paImages = new (std::nothrow) VYRListPtrVYRPrtImageElt(*iModel._paImages);
}

VYRPrtModel& VYRPrtModel::operator=(const VYRPrtModel& iModel) {
  if (!VYR_CHECK_CONDITION(this != &iModel)) return *this;
  delete _paImages;
  _paImages = iModel._paImages ? new (std::nothrow) VYRListPtrVYRPrtImageElt(*iModel._paImages) : nullptr;
  return *this;
}

VYRPrtModel::~VYRPrtModel() {
  delete _paImages;
  VYRPrtEltFactory::Get().Release();
}

void VYRPrtModel::AddImage(VYRPrtImageElt* iprImageElt) {
  if (!VYR_CHECK_POINTER(iprImageElt)) return;
  if (!_paImages) _paImages = new (std::nothrow) VYRListPtrVYRPrtImageElt();
  if (!VYR_CHECK_POINTER(_paImages)) return;
  _paImages->Append(iprImageElt);
}

void VYRPrtModel::RemoveImage(VYRPrtImageElt* iprImageElt) {
  if (!VYR_CHECK_POINTER(iprImageElt)) return;
  if (!VYR_CHECK_POINTER(_paImages)) return;
  int position = _paImages->Locate(iprImageElt);
  if (position > 0) _paImages->RemovePosition(position);
}

void VYRPrtModel::GetImages(VYRListPtrVYRPrtImageElt*& opImages) const { opImages = _paImages; }

VYRPrtGraphicPrimitiveElt* VYRPrtModel::FindPrimitive(VYRPrtGraphicPrimitiveElt* i_pRoot,
                                                      const VYRUnicodeString& i_id) const {
  if (i_pRoot) return FindInTree(i_pRoot, i_id);
  if (!_paImages) return nullptr;
  for (int position = 1; position <= _paImages->Size(); ++position) {
    if (VYRPrtGraphicPrimitiveElt* pFound = FindInTree((*_paImages)[position], i_id)) return pFound;
  }
  return nullptr;
}

unsigned char VYRPrtModel::GetVisibility(const VYRUnicodeString& i_id, unsigned char& o_visibility) {
  VYRPrtGraphicPrimitiveElt* pElt = FindPrimitive(nullptr, i_id);
  if (!pElt) return 0;
  o_visibility = pElt->GetVisibility();
  return 1;
}

unsigned char VYRPrtModel::SetVisibility(const VYRUnicodeString& i_id, unsigned char i_visibility,
                                         unsigned char i_recursive) {
  VYRPrtGraphicPrimitiveElt* pElt = FindPrimitive(nullptr, i_id);
  if (!pElt) return 0;
  pElt->SetVisibility(i_visibility);
  if (i_recursive) SetVisibilityOfDescendants(pElt, i_visibility);
  // Ancestors follow, so that a shown element is not inside a hidden one.
  for (VYRPrtGraphicPrimitiveElt* pFather = pElt->GetFather(); pFather && pFather != pElt;
       pFather = pFather->GetFather()) {
    pFather->SetVisibility(i_visibility);
  }
  return 0;
}

unsigned char VYRPrtModel::GetVisibilityNode(const VYRUnicodeString& i_id, VYRPrtVisibilityNode*& opNode) {
  VYRPrtGraphicPrimitiveElt* pElt = FindPrimitive(nullptr, i_id);
  opNode = pElt ? MirrorVisibility(pElt) : nullptr;
  return opNode ? 1 : 0;
}

unsigned char VYRPrtModel::GetVisibilityTree(VYRPrtVisibilityNode*& opRoot) {
  opRoot = nullptr;
  if (!_paImages) return 0;
  opRoot = new (std::nothrow) VYRPrtVisibilityNode();
  if (!VYR_CHECK_POINTER(opRoot)) return 0;
  for (int position = 1; position <= _paImages->Size(); ++position) {
    VYRPrtImageElt* pImage = (*_paImages)[position];
    if (!pImage) continue;
    if (VYRPrtVisibilityNode* pNode = MirrorVisibility(pImage)) opRoot->AddChild(pNode);
  }
  return 1;
}

unsigned char VYRPrtModel::SetVisibilityNode(const VYRPrtVisibilityNode* ipNode) {
  if (!VYR_CHECK_POINTER(ipNode)) return 0;
  if (ipNode->GetID().IsEmpty()) {
    if (!_paImages) return 0;
    VYRSYPDynArray<VYRPrtGraphicPrimitiveElt*> images;
    for (int position = 1; position <= _paImages->Size(); ++position) images.Append((*_paImages)[position]);
    ApplyChildren(*ipNode, images);
    return 1;
  }
  VYRPrtGraphicPrimitiveElt* pElt = FindPrimitive(nullptr, ipNode->GetID());
  if (!pElt) return 0;
  ApplyNode(*ipNode, pElt);
  return 1;
}

void VYRPrtModel::Stream(VYRI2DGStream* ipStream) {
  if (!ipStream) return;
  if (!_paImages) {
    ipStream->StreamValue(-1);
    return;
  }
  ipStream->StreamValue(_paImages->Size());
  for (int position = 1; position <= _paImages->Size(); ++position) {
    if (VYRPrtImageElt* pImage = (*_paImages)[position]) pImage->Stream(ipStream);
  }
}

void VYRPrtModel::Unstream(VYRI2DGStream* ipStream) {
  if (!ipStream) return;
  int count = 0;
  ipStream->UnstreamValue(count);
  if (count < 0) return;
  // An implausible count (each image record is longer than its 4-byte tag)
  // keeps the images held rather than trading them for an empty model.
  if (!VYR_CHECK_CONDITION(ipStream->CountFits(count, 4))) return;
  auto* paImages = new (std::nothrow) VYRListPtrVYRPrtImageElt();
  if (!VYR_CHECK_POINTER(paImages)) return;
  delete _paImages;
  _paImages = paImages;
  for (int i = 0; i < count && !ipStream->HasFailed(); ++i) {
    int tag = 0;
    ipStream->UnstreamValue(tag);
    if (tag != kStreamTypeImageElt) return;
    auto* pImage = VYRPrtEltFactory::Get().CreateElement<VYRPrtImageElt>();
    if (!VYR_CHECK_POINTER(pImage)) return;
    pImage->Unstream(ipStream);
    _paImages->Append(pImage);
  }
}

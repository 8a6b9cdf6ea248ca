#include "VYRPrtVisibilityNode.h"

#include "VYRAssert.h"

VYR_IMPLEMENT_CLASS(VYRPrtVisibilityNode, VYRBaseUnknown, "Multimedia2DRendering")

VYRPrtVisibilityNode::VYRPrtVisibilityNode(const VYRUnicodeString& i_id, unsigned char i_visibility)
    : _ID(i_id), _visibility(i_visibility) {}

VYRPrtVisibilityNode::~VYRPrtVisibilityNode() {
  for (int position = 1; position <= _children.Size(); ++position) {
    if (_children[position]) _children[position]->Release();
  }
}

void VYRPrtVisibilityNode::AddChild(VYRPrtVisibilityNode* ipChild) {
  if (!VYR_CHECK_POINTER(ipChild)) return;
  if (_children.Append(ipChild) < 0) ipChild->Release();
}

VYRPrtVisibilityNode* VYRPrtVisibilityNode::GetChild(int i_position) const {
  if (i_position < 1 || i_position > _children.Size()) return nullptr;
  return _children[i_position];
}

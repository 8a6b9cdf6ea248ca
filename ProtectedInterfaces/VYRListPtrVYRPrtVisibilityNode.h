#pragma once

#include "VYRListPtrOf.h"

class VYRPrtVisibilityNode;

// Non-owning ordered list of VYRPrtVisibilityNode pointers, positions from 1.
class VYRListPtrVYRPrtVisibilityNode : public VYRListPtrOf<VYRPrtVisibilityNode> {
 public:
  using VYRListPtrOf<VYRPrtVisibilityNode>::VYRListPtrOf;
  VYRListPtrVYRPrtVisibilityNode(const VYRListPtrVYRPrtVisibilityNode&) = default;
  VYRListPtrVYRPrtVisibilityNode& operator=(const VYRListPtrVYRPrtVisibilityNode&) = default;
  ~VYRListPtrVYRPrtVisibilityNode() override = default;
};

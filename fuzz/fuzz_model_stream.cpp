// Feeds arbitrary bytes to a document model's reader. Whatever the bytes, the
// read must neither crash nor read out of bounds, and what was rebuilt must
// be a stable model: it streams out, and those bytes read back to the same bytes.
#include <cstddef>
#include <cstdint>
#include <cstring>

#include "VYR2DGStringStream.h"
#include "VYRAssert.h"
#include "VYRPrtEltFactory.h"
#include "VYRPrtModel.h"
#include "VYRPrtVisibilityNode.h"

namespace {

void IgnoreReport(VYRAssertionKind, const char*, const char*, int) {}

bool SameBytes(const VYR2DGStringStream& i_a, const VYR2DGStringStream& i_b) {
  if (i_a.GetSize() != i_b.GetSize()) return false;
  return i_a.GetSize() == 0 || std::memcmp(i_a.GetBuffer(), i_b.GetBuffer(), i_a.GetSize()) == 0;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* i_data, size_t i_size) {
  if (i_size > 1 << 20) return 0;
  VYRSetAssertionHandler(&IgnoreReport);
  // Small blocks keep each run cheap; every run starts with a fresh factory.
  VYRPrtEltFactory::SetBlockSize(4);
  VYRPrtEltFactory& factory = VYRPrtEltFactory::Get();
  {
    VYRPrtModel model;
    VYR2DGStringStream input(reinterpret_cast<const char*>(i_data), static_cast<int>(i_size));
    model.Unstream(&input);

    VYRPrtVisibilityNode* pTree = nullptr;
    if (model.GetVisibilityTree(pTree)) {
      model.SetVisibilityNode(pTree);
      pTree->Release();
    }

    VYR2DGStringStream first;
    model.Stream(&first);
    VYRPrtModel again;
    VYR2DGStringStream reading(first.GetBuffer(), first.GetSize());
    again.Unstream(&reading);
    VYR2DGStringStream second;
    again.Stream(&second);
    if (!SameBytes(first, second)) __builtin_trap();
  }
  factory.Release();
  return 0;
}

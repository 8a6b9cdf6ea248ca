// Feeds arbitrary bytes to the element reader and to the attribute groups'
// readers: whatever the bytes, reading must neither crash nor read out of bounds.
#include <cstddef>
#include <cstdint>

#include "VYR2DGStringStream.h"
#include "VYRAssert.h"
#include "VYRPrtEltFactory.h"
#include "VYRPrtColourTable.h"
#include "VYRPrtFillAttributes.h"
#include "VYRPrtGroupAttributes.h"
#include "VYRPrtStreamUnstreamHelper.h"
#include "VYRPrtStrokeAttributes.h"

namespace {
void IgnoreReport(VYRAssertionKind, const char*, const char*, int) {}
}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* i_data, size_t i_size) {
  if (i_size > 1 << 20) return 0;
  VYRSetAssertionHandler(&IgnoreReport);
  // Small blocks keep each run cheap; every run starts with a fresh factory.
  VYRPrtEltFactory::SetBlockSize(4);
  const char* pBytes = reinterpret_cast<const char*>(i_data);
  int length = static_cast<int>(i_size);

  VYR2DGStringStream elementStream(pBytes, length);
  VYRPrtStreamUnstreamHelper::CreateVYRPrtGraphicPrimitiveEltFromStream(&elementStream);

  VYR2DGStringStream attributeStream(pBytes, length);
  VYRPrtGroupAttributes group;
  group.Unstream(&attributeStream);
  VYRPrtFillAttributes fill;
  fill.Unstream(&attributeStream);
  VYRPrtStrokeAttributes stroke;
  stroke.Unstream(&attributeStream);
  delete VYRPrtStreamUnstreamHelper::CreateVYRPrtColourTableFromStream(&attributeStream);
  // What was read must write itself out again.
  VYR2DGStringStream output;
  fill.Stream(&output);
  stroke.Stream(&output);

  VYRPrtEltFactory::Get().Release();
  return 0;
}

#include "VYRBaseUnknown.h"

#include <cstring>

bool GUID::operator==(const GUID& i_other) const {
  return Data1 == i_other.Data1 && Data2 == i_other.Data2 && Data3 == i_other.Data3 &&
         std::memcmp(Data4, i_other.Data4, sizeof Data4) == 0;
}

GUID VYRMakeClassId(const char* i_className) {
  // Two 64-bit FNV-1a hashes with different seeds fill the 128 bits.
  uint64_t low = 1469598103934665603ULL, high = 1099511628211ULL * 31;
  for (const char* c = i_className; c && *c; ++c) {
    low = (low ^ static_cast<unsigned char>(*c)) * 1099511628211ULL;
    high = (high ^ static_cast<unsigned char>(*c)) * 1099511628211ULL + 0x9E3779B97F4A7C15ULL;
  }
  GUID id{};
  id.Data1 = static_cast<uint32_t>(low >> 32);
  id.Data2 = static_cast<uint16_t>(low >> 16);
  id.Data3 = static_cast<uint16_t>(low);
  for (int i = 0; i < 8; ++i) id.Data4[i] = static_cast<uint8_t>(high >> (8 * i));
  return id;
}

unsigned long VYRBaseUnknown::AddRef() { return ++_refCount; }

unsigned long VYRBaseUnknown::Release() {
  if (_refCount == 0) return 0;
  unsigned long remaining = --_refCount;
  if (remaining == 0 && !_pooled) delete this;
  return remaining;
}

int VYRBaseUnknown::IsAKindOf(const char* i_className) const {
  if (!i_className) return 0;
  for (const VYRMetaObject* meta = GetMetaObject(); meta; meta = meta->base ? meta->base() : nullptr) {
    if (std::strcmp(meta->className, i_className) == 0) return 1;
  }
  return 0;
}

const VYRMetaObject* VYRBaseUnknown::MetaObject() {
  static const VYRMetaObject meta{"VYRBaseUnknown", "Platform", nullptr, &VYRBaseUnknown::CreateItself,
                                  VYRMakeClassId("VYRBaseUnknown")};
  return &meta;
}
const char* VYRBaseUnknown::ClassName() { return MetaObject()->className; }
const GUID& VYRBaseUnknown::ClassId() { return MetaObject()->classId; }
VYRBaseUnknown* VYRBaseUnknown::CreateItself() { return new VYRBaseUnknown(); }
const char* VYRBaseUnknown::IsA() const { return ClassName(); }
const VYRMetaObject* VYRBaseUnknown::GetMetaObject() const { return MetaObject(); }

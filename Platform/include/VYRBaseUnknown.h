#pragma once

#include <cstdint>

#include "VYRExport.h"

// A 128-bit class identifier, stable for a class name across runs.
struct VYR_EXPORT GUID {
  uint32_t Data1;
  uint16_t Data2;
  uint16_t Data3;
  uint8_t Data4[8];
  bool operator==(const GUID& i_other) const;
  bool operator!=(const GUID& i_other) const { return !(*this == i_other); }
};

class VYRBaseUnknown;

// Run-time class information: one instance per class, made on first use.
struct VYR_EXPORT VYRMetaObject {
  const char* className;               // the pointer IsA() returns for every object of the class
  const char* moduleName;
  const VYRMetaObject* (*base)();      // null for the root class
  VYRBaseUnknown* (*createItself)();   // null for abstract classes
  GUID classId;
};

VYR_EXPORT GUID VYRMakeClassId(const char* i_className);

// Reference-counted root of every library class. A new object holds one
// reference; Release deletes it when the count reaches zero, unless the
// object lives in a pool, whose owner frees the memory itself.
class VYR_EXPORT VYRBaseUnknown {
 public:
  VYRBaseUnknown() = default;
  // Copies start their own life with one reference and are never pooled.
  VYRBaseUnknown(const VYRBaseUnknown&) {}
  VYRBaseUnknown& operator=(const VYRBaseUnknown&) { return *this; }
  virtual ~VYRBaseUnknown() = default;

  unsigned long AddRef();
  unsigned long Release();
  unsigned long GetRefCount() const { return _refCount; }

  // Marks an object whose storage belongs to a pool (the element factory):
  // Release never frees it.
  void MarkAsPooled() { _pooled = true; }
  bool IsPooled() const { return _pooled; }

  static const char* ClassName();
  static const GUID& ClassId();
  static const VYRMetaObject* MetaObject();
  static VYRBaseUnknown* CreateItself();

  virtual const char* IsA() const;
  virtual const VYRMetaObject* GetMetaObject() const;
  // 1 when the object's class or one of its bases has the given name (compared as text).
  int IsAKindOf(const char* i_className) const;

 private:
  unsigned long _refCount = 1;
  bool _pooled = false;
};

// Declares the run-time class information of a class derived from VYRBaseUnknown.
#define VYR_DECLARE_CLASS(Class)                          \
 public:                                                  \
  static const char* ClassName();                         \
  static const GUID& ClassId();                           \
  static const VYRMetaObject* MetaObject();               \
  static VYRBaseUnknown* CreateItself();                  \
  const char* IsA() const override;                       \
  const VYRMetaObject* GetMetaObject() const override;    \
                                                          \
 private:

#define VYR_IMPLEMENT_CLASS_INFO(Class, Base, Module, Creator)                              \
  const VYRMetaObject* Class::MetaObject() {                                                \
    static const VYRMetaObject meta{#Class, Module, &Base::MetaObject, Creator,              \
                                    VYRMakeClassId(#Class)};                                 \
    return &meta;                                                                           \
  }                                                                                         \
  const char* Class::ClassName() { return MetaObject()->className; }                         \
  const GUID& Class::ClassId() { return MetaObject()->classId; }                             \
  const char* Class::IsA() const { return ClassName(); }                                     \
  const VYRMetaObject* Class::GetMetaObject() const { return MetaObject(); }

// For a concrete class with a public default constructor.
#define VYR_IMPLEMENT_CLASS(Class, Base, Module)                                            \
  VYRBaseUnknown* Class::CreateItself() { return new Class(); }                             \
  VYR_IMPLEMENT_CLASS_INFO(Class, Base, Module, &Class::CreateItself)

// For an abstract class, or one that must not be made by CreateItself.
#define VYR_IMPLEMENT_ABSTRACT_CLASS(Class, Base, Module)                                   \
  VYRBaseUnknown* Class::CreateItself() { return nullptr; }                                 \
  VYR_IMPLEMENT_CLASS_INFO(Class, Base, Module, nullptr)

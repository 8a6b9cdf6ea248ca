#pragma once

#include <cstring>
#include <new>
#include <unordered_map>

#include "VYRAssert.h"
#include "VYRBaseUnknown.h"
#include "VYRExport.h"

// One block of a class's pool: elements built all at once, handed out one at
// a time and never given back. Blocks chain when one is exhausted.
struct VYRPrtEltArrayBase {
  explicit VYRPrtEltArrayBase(unsigned int i_blockSize) : _blockSize(i_blockSize) {}
  VYRPrtEltArrayBase(const VYRPrtEltArrayBase&) = delete;
  VYRPrtEltArrayBase& operator=(const VYRPrtEltArrayBase&) = delete;
  // Chains can be long (small block sizes), so the blocks behind this one
  // are destroyed in a loop rather than by recursion.
  virtual ~VYRPrtEltArrayBase() {
    VYRPrtEltArrayBase* pNext = _pNextBlock;
    _pNextBlock = nullptr;
    while (pNext) {
      VYRPrtEltArrayBase* pAfter = pNext->_pNextBlock;
      pNext->_pNextBlock = nullptr;
      delete pNext;
      pNext = pAfter;
    }
  }

  unsigned int _blockSize;
  unsigned int _nextHint = 0;
  VYRPrtEltArrayBase* _pNextBlock = nullptr;
  // Where a walk down the chain from this (first) block may start: every
  // block before it has its hint at its end, and hints only move forward, so
  // the walk would pass them all by anyway. Saves the walk over long chains.
  VYRPrtEltArrayBase* _pWalkStart = this;
};

template <class K>
struct VYRPrtEltArray : VYRPrtEltArrayBase {
  // Null when the memory for the block cannot be had.
  static VYRPrtEltArray* Make(unsigned int i_blockSize) {
    auto* pBlock = new (std::nothrow) VYRPrtEltArray(i_blockSize);
    if (pBlock && (!pBlock->_paElements || !pBlock->_paFreeFlags)) {
      delete pBlock;
      return nullptr;
    }
    return pBlock;
  }

  // The elements go in reverse order of construction, as an array's would.
  ~VYRPrtEltArray() override {
    if (_paElements) {
      for (unsigned int i = _blockSize; i-- > 0;) _paElements[i].~K();
      ::operator delete[](_paElements);
    }
    delete[] _paFreeFlags;
  }

  // Takes the hinted slot, else the first free one of the block; moves on
  // down the chain (growing it) when this block has none left.
  K* Take() {
    auto* pBlock = static_cast<VYRPrtEltArray*>(_pWalkStart);
    while (pBlock) {
      unsigned int hint = pBlock->_nextHint;
      if (hint < pBlock->_blockSize) {
        unsigned int index = hint;
        bool found = pBlock->_paFreeFlags[hint] == 1;
        for (unsigned int i = 0; !found && i < pBlock->_blockSize; ++i) {
          if (pBlock->_paFreeFlags[i] == 1) {
            index = i;
            found = true;
          }
        }
        if (found) {
          // The hint moves on from the old hint, even when the scan found the slot.
          pBlock->_nextHint = hint + 1;
          pBlock->_paFreeFlags[index] = 0;
          return &pBlock->_paElements[index];
        }
      }
      if (!pBlock->_pNextBlock) pBlock->_pNextBlock = Make(NextBlockSize());
      auto* pNext = static_cast<VYRPrtEltArray*>(pBlock->_pNextBlock);
      if (pBlock == _pWalkStart && hint >= pBlock->_blockSize && pNext) _pWalkStart = pNext;
      pBlock = pNext;
    }
    return nullptr;
  }

  K* _paElements = nullptr;
  unsigned char* _paFreeFlags = nullptr;

 private:
  static unsigned int NextBlockSize();

  // One allocation for the block's elements and one for its flags. Each
  // element is built and marked as pooled in one pass over the block, while
  // its memory is at hand.
  explicit VYRPrtEltArray(unsigned int i_blockSize) : VYRPrtEltArrayBase(i_blockSize) {
    void* pStorage = ::operator new[](sizeof(K) * static_cast<size_t>(i_blockSize), std::nothrow);
    _paFreeFlags = new (std::nothrow) unsigned char[i_blockSize];
    if (!pStorage || !_paFreeFlags) {
      ::operator delete[](pStorage);
      return;
    }
    std::memset(_paFreeFlags, 1, i_blockSize);
    _paElements = static_cast<K*>(pStorage);
    for (unsigned int i = 0; i < i_blockSize; ++i) (new (&_paElements[i]) K)->MarkAsPooled();
  }
};

// The one source of model elements: a pool per element class, keyed by the
// class-name pointer IsA() returns (compared as a pointer, not as text). The
// singleton lives while models hold references to it; when the last goes,
// every pooled element of every class goes with it.
class VYR_EXPORT VYRPrtEltFactory : public VYRBaseUnknown {
  VYR_DECLARE_CLASS(VYRPrtEltFactory)

 public:
  static VYRPrtEltFactory& Get();
  // Adds a reference to the singleton when there is one.
  static void AddReference();

  // Size of blocks made from now on; blocks already made keep theirs.
  static void SetBlockSize(unsigned int i_blockSize);
  static unsigned int GetBlockSize();

  // Elements handed out from the first block of the named class's pool.
  unsigned int GetElementCount(const char* i_className) const;

  // An element of class K in its default state, owned by the factory: never
  // delete it. i_className must be the pointer K's IsA() returns.
  template <class K>
  K* CreateElement(const char* i_className = K::ClassName());

  ~VYRPrtEltFactory() override;

 private:
  VYRPrtEltFactory() = default;

  std::unordered_map<const char*, VYRPrtEltArrayBase*> _pools;
  // The pool found last: elements are mostly made in runs of one class, and
  // this spares those runs the look-up. Entries are never removed or
  // replaced while the factory lives, so the pair stays true.
  const char* _pLastClassName = nullptr;
  VYRPrtEltArrayBase* _pLastPool = nullptr;
  static VYRPrtEltFactory* s_pFactory;
  static unsigned int s_blockSize;
};

template <class K>
unsigned int VYRPrtEltArray<K>::NextBlockSize() {
  return VYRPrtEltFactory::GetBlockSize();
}

template <class K>
K* VYRPrtEltFactory::CreateElement(const char* i_className) {
  if (i_className != _pLastClassName || !_pLastPool) {
    auto it = _pools.find(i_className);
    if (it == _pools.end()) it = _pools.emplace(i_className, VYRPrtEltArray<K>::Make(s_blockSize)).first;
    _pLastClassName = i_className;
    _pLastPool = it->second;
  }
  VYRPrtEltArrayBase* pEltArray = _pLastPool;
  if (!pEltArray) {
    VYRReportNullPointer("pEltArray", "VYRPrtEltFactory.inl", 122);
    return nullptr;
  }
  return static_cast<VYRPrtEltArray<K>*>(pEltArray)->Take();
}

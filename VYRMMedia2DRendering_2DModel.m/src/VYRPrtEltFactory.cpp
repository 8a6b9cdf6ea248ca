#include "VYRPrtEltFactory.h"

VYR_IMPLEMENT_ABSTRACT_CLASS(VYRPrtEltFactory, VYRBaseUnknown, "Multimedia2DRendering")

VYRPrtEltFactory* VYRPrtEltFactory::s_pFactory = nullptr;
unsigned int VYRPrtEltFactory::s_blockSize = 500;

VYRPrtEltFactory& VYRPrtEltFactory::Get() {
  if (!s_pFactory) s_pFactory = new VYRPrtEltFactory();
  return *s_pFactory;
}

void VYRPrtEltFactory::AddReference() {
  if (s_pFactory) s_pFactory->AddRef();
}

void VYRPrtEltFactory::SetBlockSize(unsigned int i_blockSize) {
  // A block of no elements would never hand one out and the chain would grow forever.
  if (!VYR_CHECK_CONDITION(i_blockSize > 0)) return;
  s_blockSize = i_blockSize;
}

unsigned int VYRPrtEltFactory::GetBlockSize() { return s_blockSize; }

unsigned int VYRPrtEltFactory::GetElementCount(const char* i_className) const {
  auto it = _pools.find(i_className);
  if (it == _pools.end() || !it->second) return 0;
  return it->second->_nextHint;
}

VYRPrtEltFactory::~VYRPrtEltFactory() {
  for (auto& entry : _pools) delete entry.second;
  _pools.clear();
  _pLastClassName = nullptr;
  _pLastPool = nullptr;
  if (s_pFactory == this) s_pFactory = nullptr;
}

#include "VYR2DGStringStream.h"

#include <algorithm>
#include <climits>
#include <cstring>
#include <new>

#include "VYRAssert.h"
#include "VYRFile.h"
#include "VYRUnicodeString.h"

namespace {

constexpr int kInitialCapacity = 2048;
constexpr int kLengthBytes = 4;

// Loaded bytes arrive in chunks, so that a declared length beyond the file
// never reserves more than the file holds plus one chunk.
constexpr int kLoadChunk = 1 << 16;

}  // namespace

// A buffer block with the number of streams that refer to it.
struct VYR2DGStringStream::SharedBlock {
  long refCount;
  char* pBytes;

  static SharedBlock* Create(int i_capacity) {
    SharedBlock* pBlock = new (std::nothrow) SharedBlock{1, nullptr};
    if (!pBlock) return nullptr;
    pBlock->pBytes = new (std::nothrow) char[static_cast<size_t>(i_capacity > 0 ? i_capacity : 1)];
    if (!pBlock->pBytes) {
      delete pBlock;
      return nullptr;
    }
    return pBlock;
  }
  void Release() {
    if (--refCount > 0) return;
    delete[] pBytes;
    delete this;
  }
};

VYR2DGStringStream::VYR2DGStringStream() : _growthStep(kInitialCapacity) {
  _pBlock = SharedBlock::Create(kInitialCapacity);
  if (VYR_CHECK_POINTER(_pBlock)) {
    _window.pBuffer = _pBlock->pBytes;
    _window.capacity = kInitialCapacity;
  }
  _window.pCursor = _window.pBuffer;
}

VYR2DGStringStream::VYR2DGStringStream(const char* i_bytes, int i_length) : VYR2DGStringStream() {
  LoadBuffer(i_bytes, i_length);
}

VYR2DGStringStream::VYR2DGStringStream(const VYR2DGStringStream& i_other) : VYRI2DGStream(i_other) {
  *this = i_other;
}

VYR2DGStringStream& VYR2DGStringStream::operator=(const VYR2DGStringStream& i_other) {
  if (this == &i_other) return *this;
  if (i_other._pBlock) ++i_other._pBlock->refCount;
  ReleaseBlock();
  _pBlock = i_other._pBlock;
  _window = i_other._window;
  _growthStep = i_other._growthStep;
  return *this;
}

VYR2DGStringStream::~VYR2DGStringStream() {
  _window.pCursor = nullptr;
  ReleaseBlock();
}

void VYR2DGStringStream::ReleaseBlock() {
  if (_pBlock) _pBlock->Release();
  _pBlock = nullptr;
  _window.pBuffer = nullptr;
}

void VYR2DGStringStream::Stream(float i_value) { WriteValue(i_value); }
void VYR2DGStringStream::Stream(double i_value) { WriteValue(i_value); }
void VYR2DGStringStream::Stream(unsigned int i_value) { WriteValue(i_value); }
void VYR2DGStringStream::Stream(int i_value) { WriteValue(i_value); }
void VYR2DGStringStream::Stream(unsigned char i_value) { WriteValue(i_value); }
void VYR2DGStringStream::Stream(char i_value) { WriteValue(i_value); }

void VYR2DGStringStream::Stream(const char* i_bytes, int i_length) {
  if (i_length <= 0) {
    Write(&i_length, kLengthBytes);
    return;
  }
  if (!VYR_CHECK_POINTER(i_bytes)) return;
  Write(&i_length, kLengthBytes, i_bytes, i_length);
}

void VYR2DGStringStream::Unstream(float& o_value) { ReadValue(o_value); }
void VYR2DGStringStream::Unstream(double& o_value) { ReadValue(o_value); }
void VYR2DGStringStream::Unstream(unsigned int& o_value) { ReadValue(o_value); }
void VYR2DGStringStream::Unstream(int& o_value) { ReadValue(o_value); }
void VYR2DGStringStream::Unstream(unsigned char& o_value) { ReadValue(o_value); }
void VYR2DGStringStream::Unstream(char& o_value) { ReadValue(o_value); }

char* VYR2DGStringStream::Unstream(bool i_zeroTerminated) {
  char* pLengthStart = _window.pCursor;
  int length = 0;
  if (!ReadBytes(&length, kLengthBytes) || length <= 0) return nullptr;
  if (length > GetReadableBytesLeft()) {
    // A length the stream cannot hold: the whole string read fails.
    _window.pCursor = pLengthStart;
    _window.failed = true;
    return nullptr;
  }
  char* pString = new (std::nothrow) char[static_cast<size_t>(length) + (i_zeroTerminated ? 1 : 0)];
  if (VYR_CHECK_POINTER(pString)) {
    std::memcpy(pString, _window.pCursor, static_cast<size_t>(length));
    if (i_zeroTerminated) pString[length] = '\0';
  }
  _window.pCursor += length;  // consumed even without memory, so the stream stays in step
  return pString;
}

long long VYR2DGStringStream::GetReadableBytesLeft() const { return WindowBytesLeft(); }

void VYR2DGStringStream::Write(const void* i_first, int i_firstLength, const void* i_second,
                               int i_secondLength) {
  long long newSize = static_cast<long long>(_window.size) + i_firstLength + i_secondLength;
  if (!StreamIncrease(newSize)) {
    _window.failed = true;
    return;
  }
  std::memcpy(_window.pCursor, i_first, static_cast<size_t>(i_firstLength));
  _window.pCursor += i_firstLength;
  if (i_secondLength > 0) {
    std::memcpy(_window.pCursor, i_second, static_cast<size_t>(i_secondLength));
    _window.pCursor += i_secondLength;
  }
  _window.size = static_cast<int>(newSize);
}

bool VYR2DGStringStream::ReadBytes(void* o_destination, int i_length) {
  if (i_length <= 0) return true;
  if (i_length > GetReadableBytesLeft()) {
    if (o_destination) std::memset(o_destination, 0, static_cast<size_t>(i_length));
    _window.failed = true;
    return false;
  }
  if (o_destination) std::memcpy(o_destination, _window.pCursor, static_cast<size_t>(i_length));
  _window.pCursor += i_length;
  return true;
}

void VYR2DGStringStream::WriteBytes(const void* i_bytes, int i_length) {
  if (i_length <= 0 || !VYR_CHECK_POINTER(i_bytes)) return;
  Write(i_bytes, i_length);
}

bool VYR2DGStringStream::StreamIncrease(long long i_requiredSize) {
  if (i_requiredSize < _window.capacity) return true;
  if (!VYR_CHECK_CONDITION(i_requiredSize < INT_MAX)) return false;
  // Each iteration adds twice the step and doubles it, so growth speeds up over the stream's life.
  long long capacity = _window.capacity;
  unsigned long long step = _growthStep ? _growthStep : kInitialCapacity;
  while (i_requiredSize >= capacity) {
    capacity += 2 * step;
    step *= 2;
  }
  if (capacity > INT_MAX) capacity = INT_MAX;

  // The contents move through a temporary block; if the new buffer cannot be
  // had, the temporary block becomes the buffer so that nothing is lost.
  SharedBlock* pTemporary = SharedBlock::Create(_window.size);
  if (!VYR_CHECK_POINTER(pTemporary)) return false;
  if (_window.size > 0) std::memcpy(pTemporary->pBytes, _window.pBuffer, static_cast<size_t>(_window.size));
  ReleaseBlock();
  SharedBlock* pNewBlock = SharedBlock::Create(static_cast<int>(capacity));
  if (!VYR_CHECK_POINTER(pNewBlock)) {
    _pBlock = pTemporary;
    _window.pBuffer = pTemporary->pBytes;
    _window.capacity = _window.size;
    _window.pCursor = _window.pBuffer + _window.size;
    return false;
  }
  if (_window.size > 0) std::memcpy(pNewBlock->pBytes, pTemporary->pBytes, static_cast<size_t>(_window.size));
  pTemporary->Release();
  _pBlock = pNewBlock;
  _window.pBuffer = pNewBlock->pBytes;
  _window.capacity = static_cast<int>(capacity);
  _growthStep = static_cast<unsigned int>(step);
  _window.pCursor = _window.pBuffer + _window.size;
  return true;
}

long VYR2DGStringStream::AdoptForReading(SharedBlock* ipBlock, int i_length) {
  ReleaseBlock();
  _pBlock = ipBlock;
  _window.pBuffer = ipBlock->pBytes;
  _window.pCursor = _window.pBuffer;
  // Size and capacity describe the loaded bytes, so a later write appends safely.
  _window.size = i_length;
  _window.capacity = i_length;
  _window.failed = false;
  return VYR_S_OK;
}

long VYR2DGStringStream::LoadBuffer(const char* i_bytes, int i_length) {
  if (!VYR_CHECK_CONDITION(i_length >= 0)) return VYR_E_INVALIDARG;
  if (i_length > 0 && !VYR_CHECK_POINTER(i_bytes)) return VYR_E_INVALIDARG;
  SharedBlock* pBlock = SharedBlock::Create(i_length);
  if (!VYR_CHECK_POINTER(pBlock)) return VYR_E_OUTOFMEMORY;
  if (i_length > 0) std::memcpy(pBlock->pBytes, i_bytes, static_cast<size_t>(i_length));
  return AdoptForReading(pBlock, i_length);
}

long VYR2DGStringStream::SaveInFile(const VYRUnicodeString& i_path) {
  VYRFileHandle pFile = nullptr;
  VYRStatus opened = VYRFileOpen(i_path, "wb", pFile);
  if (VYRFailed(opened)) return opened;
  int size = _window.size;
  size_t written = 0;
  bool complete = VYRFileWrite(pFile, &size, kLengthBytes, written) == VYR_S_OK &&
                  (size == 0 || VYRFileWrite(pFile, _window.pBuffer, static_cast<size_t>(size), written) == VYR_S_OK);
  VYRStatus closed = VYRFileClose(pFile);
  return complete ? closed : VYR_E_FAIL;
}

long VYR2DGStringStream::LoadFile(const VYRUnicodeString& i_path) {
  // Whatever goes wrong, the stream then reads nothing.
  _window.pCursor = _window.pBuffer + _window.size;
  VYRFileHandle pFile = nullptr;
  VYRStatus opened = VYRFileOpen(i_path, "rb", pFile);
  if (VYRFailed(opened)) return opened;
  int count = 0;
  size_t bytesRead = 0;
  SharedBlock* pBlock = nullptr;
  VYRStatus status = VYRFileRead(pFile, &count, kLengthBytes, bytesRead);
  if (status == VYR_S_OK) status = VYR_CHECK_CONDITION(count >= 0) ? ReadBlock(pFile, count, pBlock) : VYR_E_FAIL;
  if (status != VYR_S_OK) {
    VYRFileClose(pFile);
    return VYRFailed(status) ? status : VYR_E_FAIL;  // an early end of file is a failure too
  }
  AdoptForReading(pBlock, count);
  return VYRFileClose(pFile);
}

VYRStatus VYR2DGStringStream::ReadBlock(VYRFileData* ipFile, int i_count, SharedBlock*& opBlock) {
  opBlock = nullptr;
  SharedBlock* pBlock = SharedBlock::Create(0);
  if (!VYR_CHECK_POINTER(pBlock)) return VYR_E_OUTOFMEMORY;
  int held = 0, reserved = 0;
  while (held < i_count) {
    if (held == reserved) {
      int next = reserved >= i_count / 2 ? i_count : std::max(kLoadChunk, 2 * reserved);
      SharedBlock* pLarger = SharedBlock::Create(std::min(next, i_count));
      if (!VYR_CHECK_POINTER(pLarger)) {
        pBlock->Release();
        return VYR_E_OUTOFMEMORY;
      }
      if (held > 0) std::memcpy(pLarger->pBytes, pBlock->pBytes, static_cast<size_t>(held));
      pBlock->Release();
      pBlock = pLarger;
      reserved = std::min(next, i_count);
    }
    size_t bytesRead = 0;
    VYRStatus status = VYRFileRead(ipFile, pBlock->pBytes + held, static_cast<size_t>(reserved - held), bytesRead);
    held += static_cast<int>(bytesRead);
    if (status != VYR_S_OK && held < i_count) {
      pBlock->Release();
      return status;
    }
  }
  opBlock = pBlock;
  return VYR_S_OK;
}

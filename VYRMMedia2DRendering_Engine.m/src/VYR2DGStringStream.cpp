#include "VYR2DGStringStream.h"

#include <climits>
#include <cstdio>
#include <cstring>
#include <new>

#include "VYRAssert.h"
#include "VYRUnicodeString.h"

namespace {

constexpr int kInitialCapacity = 2048;
constexpr int kLengthBytes = 4;

// The stream's file access, kept to this file.
FILE* OpenFile(const VYRUnicodeString& i_path, const char* i_mode) {
  return std::fopen(i_path.CastToCharPtr(), i_mode);
}

long CloseFile(FILE* ipFile) { return std::fclose(ipFile) == 0 ? VYR_S_OK : VYR_E_FAIL; }

// Bytes in an open file, or -1 when it cannot be told.
long long FileLength(FILE* ipFile) {
  if (std::fseek(ipFile, 0, SEEK_END) != 0) return -1;
  long length = std::ftell(ipFile);
  if (std::fseek(ipFile, 0, SEEK_SET) != 0) return -1;
  return length;
}

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
    _pBuffer = _pBlock->pBytes;
    _capacity = kInitialCapacity;
  }
  _pCursor = _pBuffer;
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
  _pBuffer = i_other._pBuffer;
  _pCursor = i_other._pCursor;
  _capacity = i_other._capacity;
  _size = i_other._size;
  _growthStep = i_other._growthStep;
  _failed = i_other._failed;
  return *this;
}

VYR2DGStringStream::~VYR2DGStringStream() {
  _pCursor = nullptr;
  ReleaseBlock();
}

void VYR2DGStringStream::ReleaseBlock() {
  if (_pBlock) _pBlock->Release();
  _pBlock = nullptr;
  _pBuffer = nullptr;
}

void VYR2DGStringStream::Stream(float i_value) { Write(&i_value, sizeof i_value); }
void VYR2DGStringStream::Stream(double i_value) { Write(&i_value, sizeof i_value); }
void VYR2DGStringStream::Stream(unsigned int i_value) { Write(&i_value, sizeof i_value); }
void VYR2DGStringStream::Stream(int i_value) { Write(&i_value, sizeof i_value); }
void VYR2DGStringStream::Stream(unsigned char i_value) { Write(&i_value, sizeof i_value); }
void VYR2DGStringStream::Stream(char i_value) { Write(&i_value, sizeof i_value); }

void VYR2DGStringStream::Stream(const char* i_bytes, int i_length) {
  if (i_length <= 0) {
    Write(&i_length, kLengthBytes);
    return;
  }
  if (!VYR_CHECK_POINTER(i_bytes)) return;
  Write(&i_length, kLengthBytes, i_bytes, i_length);
}

void VYR2DGStringStream::Unstream(float& o_value) { Read(&o_value, sizeof o_value); }
void VYR2DGStringStream::Unstream(double& o_value) { Read(&o_value, sizeof o_value); }
void VYR2DGStringStream::Unstream(unsigned int& o_value) { Read(&o_value, sizeof o_value); }
void VYR2DGStringStream::Unstream(int& o_value) { Read(&o_value, sizeof o_value); }
void VYR2DGStringStream::Unstream(unsigned char& o_value) { Read(&o_value, sizeof o_value); }
void VYR2DGStringStream::Unstream(char& o_value) { Read(&o_value, sizeof o_value); }

char* VYR2DGStringStream::Unstream(bool i_zeroTerminated) {
  char* pLengthStart = _pCursor;
  int length = 0;
  if (!Read(&length, kLengthBytes) || length <= 0) return nullptr;
  if (length > GetReadableBytesLeft()) {
    // A length the stream cannot hold: the whole string read fails.
    _pCursor = pLengthStart;
    _failed = true;
    return nullptr;
  }
  char* pString = new (std::nothrow) char[static_cast<size_t>(length) + (i_zeroTerminated ? 1 : 0)];
  if (VYR_CHECK_POINTER(pString)) {
    std::memcpy(pString, _pCursor, static_cast<size_t>(length));
    if (i_zeroTerminated) pString[length] = '\0';
  }
  _pCursor += length;  // consumed even without memory, so the stream stays in step
  return pString;
}

long long VYR2DGStringStream::GetReadableBytesLeft() const {
  if (_failed || !_pBuffer) return 0;
  return _size - (_pCursor - _pBuffer);
}

void VYR2DGStringStream::Write(const void* i_first, int i_firstLength, const void* i_second,
                               int i_secondLength) {
  long long newSize = static_cast<long long>(_size) + i_firstLength + i_secondLength;
  if (!StreamIncrease(newSize)) {
    _failed = true;
    return;
  }
  std::memcpy(_pCursor, i_first, static_cast<size_t>(i_firstLength));
  _pCursor += i_firstLength;
  if (i_secondLength > 0) {
    std::memcpy(_pCursor, i_second, static_cast<size_t>(i_secondLength));
    _pCursor += i_secondLength;
  }
  _size = static_cast<int>(newSize);
}

bool VYR2DGStringStream::Read(void* o_destination, int i_length) {
  if (i_length > GetReadableBytesLeft()) {
    std::memset(o_destination, 0, static_cast<size_t>(i_length));
    _failed = true;
    return false;
  }
  std::memcpy(o_destination, _pCursor, static_cast<size_t>(i_length));
  _pCursor += i_length;
  return true;
}

bool VYR2DGStringStream::StreamIncrease(long long i_requiredSize) {
  if (i_requiredSize < _capacity) return true;
  if (!VYR_CHECK_CONDITION(i_requiredSize < INT_MAX)) return false;
  // Each iteration adds twice the step and doubles it, so growth speeds up over the stream's life.
  long long capacity = _capacity;
  unsigned long long step = _growthStep ? _growthStep : kInitialCapacity;
  while (i_requiredSize >= capacity) {
    capacity += 2 * step;
    step *= 2;
  }
  if (capacity > INT_MAX) capacity = INT_MAX;

  // The contents move through a temporary block; if the new buffer cannot be
  // had, the temporary block becomes the buffer so that nothing is lost.
  SharedBlock* pTemporary = SharedBlock::Create(_size);
  if (!VYR_CHECK_POINTER(pTemporary)) return false;
  if (_size > 0) std::memcpy(pTemporary->pBytes, _pBuffer, static_cast<size_t>(_size));
  ReleaseBlock();
  SharedBlock* pNewBlock = SharedBlock::Create(static_cast<int>(capacity));
  if (!VYR_CHECK_POINTER(pNewBlock)) {
    _pBlock = pTemporary;
    _pBuffer = pTemporary->pBytes;
    _capacity = _size;
    _pCursor = _pBuffer + _size;
    return false;
  }
  if (_size > 0) std::memcpy(pNewBlock->pBytes, pTemporary->pBytes, static_cast<size_t>(_size));
  pTemporary->Release();
  _pBlock = pNewBlock;
  _pBuffer = pNewBlock->pBytes;
  _capacity = static_cast<int>(capacity);
  _growthStep = static_cast<unsigned int>(step);
  _pCursor = _pBuffer + _size;
  return true;
}

long VYR2DGStringStream::AdoptForReading(SharedBlock* ipBlock, int i_length) {
  ReleaseBlock();
  _pBlock = ipBlock;
  _pBuffer = ipBlock->pBytes;
  _pCursor = _pBuffer;
  // Size and capacity describe the loaded bytes, so a later write appends safely.
  _size = i_length;
  _capacity = i_length;
  _failed = false;
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
  FILE* pFile = OpenFile(i_path, "wb");
  if (!pFile) return VYR_E_ACCESSDENIED;
  int size = _size;
  bool written = std::fwrite(&size, kLengthBytes, 1, pFile) == 1 &&
                 (size == 0 || std::fwrite(_pBuffer, static_cast<size_t>(size), 1, pFile) == 1);
  long closed = CloseFile(pFile);
  return written ? closed : VYR_E_FAIL;
}

long VYR2DGStringStream::LoadFile(const VYRUnicodeString& i_path) {
  // Whatever goes wrong, the stream then reads nothing.
  _pCursor = _pBuffer + _size;
  FILE* pFile = OpenFile(i_path, "rb");
  if (!pFile) return VYR_E_FILENOTFOUND;
  long long fileLength = FileLength(pFile);
  int count = 0;
  if (fileLength < kLengthBytes || std::fread(&count, kLengthBytes, 1, pFile) != 1 || count < 0 ||
      count > fileLength - kLengthBytes) {
    CloseFile(pFile);
    return VYR_E_FAIL;
  }
  SharedBlock* pBlock = SharedBlock::Create(count);
  if (!VYR_CHECK_POINTER(pBlock)) {
    CloseFile(pFile);
    return VYR_E_OUTOFMEMORY;
  }
  if (count > 0 && std::fread(pBlock->pBytes, static_cast<size_t>(count), 1, pFile) != 1) {
    pBlock->Release();
    CloseFile(pFile);
    return VYR_E_FAIL;
  }
  AdoptForReading(pBlock, count);
  return CloseFile(pFile);
}

#pragma once

#include "VYRExport.h"
#include "VYRI2DGStream.h"
#include "VYRStatus.h"

class VYRUnicodeString;
struct VYRFileData;

// The in-memory byte stream: a growable buffer with one cursor for writing
// and reading, which can be saved to a file and loaded back.
//
// Copies are shallow: a copy shares the buffer block with its original (the
// block is reference-counted, so it is freed once, by the last holder).
//
// Reading is bounded by the bytes written or loaded. A read that would go past
// them yields zero (or null), consumes nothing and puts the stream in a failed
// state; while failed, every read fails the same way, until ClearFailure().
class VYR_EXPORT VYR2DGStringStream : public VYRI2DGStream {
 public:
  VYR2DGStringStream();
  // A stream that reads a copy of the given bytes (the format of a stream's bytes).
  VYR2DGStringStream(const char* i_bytes, int i_length);
  VYR2DGStringStream(const VYR2DGStringStream& i_other);
  VYR2DGStringStream& operator=(const VYR2DGStringStream& i_other);

  void Stream(float i_value) override;
  void Stream(double i_value) override;
  void Stream(unsigned int i_value) override;
  void Stream(int i_value) override;
  void Stream(unsigned char i_value) override;
  void Stream(char i_value) override;
  void Stream(const char* i_bytes, int i_length) override;
  void Unstream(float& o_value) override;
  void Unstream(double& o_value) override;
  void Unstream(unsigned int& o_value) override;
  void Unstream(int& o_value) override;
  void Unstream(unsigned char& o_value) override;
  void Unstream(char& o_value) override;
  char* Unstream(bool i_zeroTerminated) override;
  void WriteBytes(const void* i_bytes, int i_length) override;
  bool ReadBytes(void* o_destination, int i_length) override;

  virtual ~VYR2DGStringStream();

  // File form: the 4-byte little-endian size, then the stream bytes.
  long SaveInFile(const VYRUnicodeString& i_path);
  // Replaces the bytes with those of a saved file and puts the cursor at their
  // start. A missing, empty or truncated file, or one whose declared length
  // exceeds its contents, gives a failure status and leaves a stream that reads
  // nothing (what it held stays in memory).
  long LoadFile(const VYRUnicodeString& i_path);
  // Replaces the bytes with a copy of the given ones, for reading from their start.
  long LoadBuffer(const char* i_bytes, int i_length);

  // The bytes written or loaded, and their count.
  const char* GetBuffer() const { return _window.pBuffer; }
  int GetSize() const { return _window.size; }
  int GetCapacity() const { return _window.capacity; }
  unsigned int GetGrowthStep() const { return _growthStep; }

  long long GetReadableBytesLeft() const override;
  bool HasFailed() const override { return _window.failed; }
  void ClearFailure() { _window.failed = false; }

 private:
  struct SharedBlock;

  template <class T>
  void WriteValue(T i_value) {
    if (!PutInWindow(&i_value, sizeof(T))) Write(&i_value, sizeof(T));
  }
  template <class T>
  void ReadValue(T& o_value) {
    if (!TakeFromWindow(&o_value, sizeof(T))) ReadBytes(&o_value, sizeof(T));
  }
  // Writes w bytes taken from up to two pieces (a counted string is its length, then its bytes).
  void Write(const void* i_first, int i_firstLength, const void* i_second = nullptr, int i_secondLength = 0);
  // Makes room for a total of i_requiredSize bytes; false when it cannot.
  bool StreamIncrease(long long i_requiredSize);
  // Takes the given bytes as the stream's whole readable content.
  long AdoptForReading(SharedBlock* ipBlock, int i_length);
  void ReleaseBlock();
  // Reads exactly i_count bytes of an open file into a new block.
  VYRStatus ReadBlock(VYRFileData* ipFile, int i_count, SharedBlock*& opBlock);

  // Buffer, cursor, capacity, size and the failed state are the window's.
  SharedBlock* _pBlock = nullptr;  // owner of the buffer, shared by shallow copies
  unsigned int _growthStep = 0;
};

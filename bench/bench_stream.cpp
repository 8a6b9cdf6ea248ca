// Throughput of the string stream writing and reading primitives, against
// memcpy of the same number of bytes as the ceiling.
#include <benchmark/benchmark.h>

#include <malloc.h>

#include <cstring>
#include <vector>

#include "VYR2DGStringStream.h"

namespace {

// Each run makes fresh multi-megabyte buffers. Left to itself the allocator
// hands them back to the system and faults them in again, and on a virtual
// machine those page faults outweigh the streaming by far and vary with the
// heap's history; keeping freed memory in the process measures the stream.
const bool kFreedMemoryKept = [] {
  mallopt(M_TRIM_THRESHOLD, 1 << 30);
  mallopt(M_MMAP_THRESHOLD, 1 << 30);
  return true;
}();

constexpr int kValueCount = 1 << 18;
const char kText[] = "fill-opacity:0.5";  // a typical short text: 16 bytes
constexpr int kTextLength = sizeof kText - 1;

// One record: an int, a double and a counted text; as many bytes in all as the doubles.
constexpr int kRecordBytes = 4 + 8 + 4 + kTextLength;
constexpr int kRecordCount = kValueCount * 8 / kRecordBytes;

void WriteDoubles(VYR2DGStringStream& io_stream) {
  for (int i = 0; i < kValueCount; ++i) io_stream.Stream(i * 0.5);
}

void WriteInts(VYR2DGStringStream& io_stream) {
  for (int i = 0; i < kValueCount; ++i) io_stream.Stream(i);
}

void WriteRecords(VYR2DGStringStream& io_stream) {
  for (int i = 0; i < kRecordCount; ++i) {
    io_stream.Stream(i);
    io_stream.Stream(i * 0.5);
    io_stream.Stream(kText, kTextLength);
  }
}

template <void (*Write)(VYR2DGStringStream&)>
void BM_StreamOut(benchmark::State& state) {
  int64_t bytes = 0;
  for (auto _ : state) {
    VYR2DGStringStream stream;
    Write(stream);
    bytes = stream.GetSize();
    benchmark::DoNotOptimize(stream.GetBuffer());
  }
  state.SetBytesProcessed(state.iterations() * bytes);
}

template <void (*Write)(VYR2DGStringStream&), class Value>
void BM_StreamInValues(benchmark::State& state) {
  VYR2DGStringStream written;
  Write(written);
  VYR2DGStringStream loaded(written.GetBuffer(), written.GetSize());
  for (auto _ : state) {
    VYR2DGStringStream reader = loaded;  // shares the bytes, cursor at their start
    Value value{};
    double sum = 0;
    for (int i = 0; i < kValueCount; ++i) {
      reader.Unstream(value);
      sum += value;
    }
    benchmark::DoNotOptimize(sum);
  }
  state.SetBytesProcessed(state.iterations() * written.GetSize());
}

void BM_StreamInRecords(benchmark::State& state) {
  VYR2DGStringStream written;
  WriteRecords(written);
  VYR2DGStringStream loaded(written.GetBuffer(), written.GetSize());
  for (auto _ : state) {
    VYR2DGStringStream reader = loaded;
    int number = 0;
    double real = 0;
    for (int i = 0; i < kRecordCount; ++i) {
      reader.Unstream(number);
      reader.Unstream(real);
      char* pText = reader.Unstream(true);
      benchmark::DoNotOptimize(pText);
      delete[] pText;
    }
  }
  state.SetBytesProcessed(state.iterations() * written.GetSize());
}

// The ceiling: copying the same number of bytes in one call.
void BM_Memcpy(benchmark::State& state) {
  const size_t byteCount = static_cast<size_t>(state.range(0));
  std::vector<char> source(byteCount, 1), destination(byteCount);
  for (auto _ : state) {
    std::memcpy(destination.data(), source.data(), byteCount);
    benchmark::DoNotOptimize(destination.data());
    benchmark::ClobberMemory();
  }
  state.SetBytesProcessed(state.iterations() * static_cast<int64_t>(byteCount));
}

// The same into a freshly allocated block each time, as a new stream writes:
// large fresh blocks cost first-touch page faults that reused memory does not.
void BM_MemcpyIntoNewBlock(benchmark::State& state) {
  const size_t byteCount = static_cast<size_t>(state.range(0));
  std::vector<char> source(byteCount, 1);
  for (auto _ : state) {
    char* pDestination = new char[byteCount];
    std::memcpy(pDestination, source.data(), byteCount);
    benchmark::DoNotOptimize(pDestination);
    benchmark::ClobberMemory();
    delete[] pDestination;
  }
  state.SetBytesProcessed(state.iterations() * static_cast<int64_t>(byteCount));
}

}  // namespace

BENCHMARK(BM_MemcpyIntoNewBlock)->Arg(kValueCount * 8);
BENCHMARK(BM_Memcpy)->Arg(kValueCount * 8)->Arg(kValueCount * 4);
BENCHMARK_TEMPLATE(BM_StreamOut, WriteDoubles);
BENCHMARK_TEMPLATE(BM_StreamInValues, WriteDoubles, double);
BENCHMARK_TEMPLATE(BM_StreamOut, WriteInts);
BENCHMARK_TEMPLATE(BM_StreamInValues, WriteInts, int);
BENCHMARK_TEMPLATE(BM_StreamOut, WriteRecords);
BENCHMARK(BM_StreamInRecords);

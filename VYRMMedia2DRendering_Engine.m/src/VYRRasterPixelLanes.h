#pragma once

#include <cstdint>

// Premultiplied pixels with their channels spread over 16-bit SSE2 lanes (pixels are B, G, R, A
// in memory): the arithmetic that blending and bitmap sampling share, with the rounding of
// the scalar forms so that both agree bit for bit.
#if defined(__SSE2__)
#include <emmintrin.h>

// Marks functions built for AVX2 as well, used only after checking the processor
// (__builtin_cpu_supports("avx2")); undefined where the compiler cannot do that.
#if (defined(__GNUC__) || defined(__clang__)) && defined(__x86_64__)
#include <immintrin.h>
#define VYR_RASTER_AVX2 __attribute__((target("avx2")))
// For the lambdas inside such functions: built for AVX2 too, and always
// inlined, which -O2 would not do for a lambda called from two places.
#define VYR_RASTER_AVX2_INLINE __attribute__((target("avx2"), always_inline))
// Whether the AVX2 routines run: where the processor has AVX2, unless they
// were turned off (tests do so to check the SSE2 routines on such machines).
inline bool& VYRRasterAvx2Enabled() {
  static bool enabled = __builtin_cpu_supports("avx2");
  return enabled;
}
inline bool VYRRasterHasAvx2() { return VYRRasterAvx2Enabled(); }

// Div255Lanes on sixteen lanes.
VYR_RASTER_AVX2 inline __m256i Div255Lanes256(__m256i x) {
  return _mm256_mulhi_epu16(_mm256_add_epi16(x, _mm256_set1_epi16(128)), _mm256_set1_epi16(257));
}
#endif

// x / 255 rounded in every 16-bit lane, (x + 128 + ((x + 128) >> 8)) >> 8, which for lanes
// below 65408 equals ((x + 128) * 257) >> 16: one multiply instead of two shifts and an add.
inline __m128i Div255Lanes(__m128i x) {
  return _mm_mulhi_epu16(_mm_add_epi16(x, _mm_set1_epi16(128)), _mm_set1_epi16(257));
}

// Each pixel's alpha copied into its four 16-bit lanes.
inline __m128i AlphaLanes(__m128i pixels16) {
  return _mm_shufflehi_epi16(_mm_shufflelo_epi16(pixels16, _MM_SHUFFLE(3, 3, 3, 3)), _MM_SHUFFLE(3, 3, 3, 3));
}

// Source-over of two pixels held in 16-bit lanes.
inline __m128i SrcOverLanes(__m128i s, __m128i d) {
  const __m128i k = _mm_sub_epi16(_mm_set1_epi16(255), AlphaLanes(s));
  return _mm_add_epi16(s, Div255Lanes(_mm_mullo_epi16(d, k)));
}

// Four coverage bytes, each repeated over the four channels of its pixel: pixels 0 and 1 in
// o_low, 2 and 3 in o_high.
inline void CoverageLanes(uint32_t i_four, __m128i* o_low, __m128i* o_high) {
  const __m128i zero = _mm_setzero_si128();
  __m128i c = _mm_cvtsi32_si128(static_cast<int>(i_four));
  c = _mm_unpacklo_epi16(_mm_unpacklo_epi8(c, c), _mm_unpacklo_epi8(c, c));
  *o_low = _mm_unpacklo_epi8(c, zero);
  *o_high = _mm_unpackhi_epi8(c, zero);
}
#endif

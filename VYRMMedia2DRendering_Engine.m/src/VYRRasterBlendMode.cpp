#include "VYRRasterBlendMode.h"

#include <algorithm>
#include <array>
#include <utility>
#include <cmath>
#include <cstring>

#include "VYRRasterPixelLanes.h"

// Pixels are premultiplied 0xAARRGGBB. Channel helpers work on ints 0..255; the
// Porter-Duff and simple separable modes stay in integers, the modes defined on
// unpremultiplied colour (dodge, burn, soft light, the four non-separable ones) go
// through floats.

namespace {

inline int A(uint32_t c) { return int(c >> 24); }
inline int R(uint32_t c) { return int((c >> 16) & 0xFF); }
inline int G(uint32_t c) { return int((c >> 8) & 0xFF); }
inline int B(uint32_t c) { return int(c & 0xFF); }
inline uint32_t Pack(int a, int r, int g, int b) {
  return (uint32_t(a) << 24) | (uint32_t(r) << 16) | (uint32_t(g) << 8) | uint32_t(b);
}
// x / 255 rounded, for 0 <= x <= 255 * 255 (and a little beyond).
inline int Div255(int x) {
  x += 128;
  return (x + (x >> 8)) >> 8;
}
inline int Clamp255(int x) { return std::clamp(x, 0, 255); }

// Applies a per-channel function f(sc, dc, sa, da) to the colour channels and g(sa, da) to alpha.
template <class ChannelFn, class AlphaFn>
inline uint32_t PerChannel(uint32_t s, uint32_t d, ChannelFn f, AlphaFn g) {
  const int sa = A(s), da = A(d);
  const int a = Clamp255(g(sa, da));
  // Keeping colour <= alpha keeps the pixel a valid premultiplied value.
  auto c = [&](int sc, int dc) { return std::min(Clamp255(f(sc, dc, sa, da)), a); };
  return Pack(a, c(R(s), R(d)), c(G(s), G(d)), c(B(s), B(d)));
}

inline int SrcOverAlpha(int sa, int da) { return sa + da - Div255(sa * da); }


// Mixes a separable blend result B(Cs, Cb) as
//   co = cs (1 - ab) + cb (1 - as) + as ab B
// with premultiplied cs, cb and the unpremultiplied colours handed to the blend function.
template <class BlendFn>
inline int MixSeparable(int sc, int dc, int sa, int da, BlendFn blend) {
  const float fs = sc / 255.0f, fd = dc / 255.0f, as = sa / 255.0f, ad = da / 255.0f;
  const float cs = sa ? std::min(fs / as, 1.0f) : 0.0f;
  const float cb = da ? std::min(fd / ad, 1.0f) : 0.0f;
  const float co = fs * (1 - ad) + fd * (1 - as) + as * ad * blend(cs, cb, sc, dc, sa, da);
  return int(co * 255.0f + 0.5f);
}

float ColorDodge(float cs, float cb, int sc, int dc, int sa, int) {
  if (dc == 0) return 0.0f;
  if (sc == sa) return 1.0f;
  return std::min(1.0f, cb / (1.0f - cs));
}

float ColorBurn(float cs, float cb, int sc, int dc, int, int da) {
  if (dc == da) return 1.0f;
  if (sc == 0) return 0.0f;
  return 1.0f - std::min(1.0f, (1.0f - cb) / cs);
}

float SoftLight(float cs, float cb, int, int, int, int) {
  if (cs <= 0.5f) return cb - (1 - 2 * cs) * cb * (1 - cb);
  const float d = cb <= 0.25f ? ((16 * cb - 12) * cb + 4) * cb : std::sqrt(cb);
  return cb + (2 * cs - 1) * (d - cb);
}

// Non-separable modes, on unpremultiplied colour triples.
struct Rgb {
  float r, g, b;
};
inline float Lum(Rgb c) { return 0.3f * c.r + 0.59f * c.g + 0.11f * c.b; }
inline Rgb ClipColor(Rgb c) {
  const float l = Lum(c);
  const float n = std::min({c.r, c.g, c.b}), x = std::max({c.r, c.g, c.b});
  auto fix = [&](float v) {
    if (n < 0) v = l + (v - l) * l / (l - n);
    if (x > 1) v = l + (v - l) * (1 - l) / (x - l);
    return v;
  };
  return Rgb{fix(c.r), fix(c.g), fix(c.b)};
}
inline Rgb SetLum(Rgb c, float l) {
  const float d = l - Lum(c);
  return ClipColor(Rgb{c.r + d, c.g + d, c.b + d});
}
inline float Sat(Rgb c) { return std::max({c.r, c.g, c.b}) - std::min({c.r, c.g, c.b}); }
inline Rgb SetSat(Rgb c, float s) {
  float* ch[3] = {&c.r, &c.g, &c.b};
  std::sort(ch, ch + 3, [](float* a, float* b) { return *a < *b; });
  float &mn = *ch[0], &md = *ch[1], &mx = *ch[2];
  if (mx > mn) {
    md = (md - mn) * s / (mx - mn);
    mx = s;
  } else {
    md = mx = 0;
  }
  mn = 0;
  return c;
}

template <class BlendFn>
inline uint32_t NonSeparable(uint32_t s, uint32_t d, BlendFn blend) {
  const int sa = A(s), da = A(d);
  const float as = sa / 255.0f, ad = da / 255.0f;
  auto unpremul = [](uint32_t c, int a) {
    if (a == 0) return Rgb{0, 0, 0};
    const float k = 1.0f / a;
    return Rgb{std::min(R(c) * k, 1.0f), std::min(G(c) * k, 1.0f), std::min(B(c) * k, 1.0f)};
  };
  const Rgb cs = unpremul(s, sa), cb = unpremul(d, da);
  const Rgb bl = blend(cs, cb);
  const int a = SrcOverAlpha(sa, da);
  auto mix = [&](int sc, int dc, float b) {
    const float co = sc / 255.0f * (1 - ad) + dc / 255.0f * (1 - as) + as * ad * b;
    return std::min(Clamp255(int(co * 255.0f + 0.5f)), a);
  };
  return Pack(a, mix(R(s), R(d), bl.r), mix(G(s), G(d), bl.g), mix(B(s), B(d), bl.b));
}

// Two channels at once: a pair 0x00XX00YY times k (0..255), each channel divided by
// 255 with Div255's rounding. Lanes are 16 bits wide and never carry into each other.
inline uint32_t MulDiv255Pair(uint32_t pair, uint32_t k) {
  uint32_t x = pair * k + 0x00800080u;
  x += (x >> 8) & 0x00FF00FFu;
  return (x >> 8) & 0x00FF00FFu;
}

// Scales every channel of a premultiplied pixel by k / 255.
inline uint32_t Scale(uint32_t c, int k) {
  return MulDiv255Pair(c & 0x00FF00FFu, uint32_t(k)) | (MulDiv255Pair((c >> 8) & 0x00FF00FFu, uint32_t(k)) << 8);
}

// Branch-free so that rows vectorise; for valid premultiplied pixels no channel carries.
inline uint32_t SrcOver(uint32_t s, uint32_t d) { return s + Scale(d, 255 - A(s)); }

// (res * cov + dst * (255 - cov)) / 255 per channel.
inline uint32_t Lerp(uint32_t res, uint32_t dst, int cov) {
  const uint32_t k = uint32_t(255 - cov), c = uint32_t(cov);
  auto pair = [&](uint32_t r, uint32_t d) {
    uint32_t x = r * c + d * k + 0x00800080u;
    x += (x >> 8) & 0x00FF00FFu;
    return (x >> 8) & 0x00FF00FFu;
  };
  return pair(res & 0x00FF00FFu, dst & 0x00FF00FFu) |
         (pair((res >> 8) & 0x00FF00FFu, (dst >> 8) & 0x00FF00FFu) << 8);
}

template <VYRRasterBlendMode M>
inline uint32_t Blend(uint32_t s, uint32_t d) {
  switch (M) {
    case kClear_VYRBlendMode:
      return 0;
    case kSrc_VYRBlendMode:
      return s;
    case kDst_VYRBlendMode:
      return d;
    case kSrcOver_VYRBlendMode:
      return SrcOver(s, d);
    case kDstOver_VYRBlendMode:
      return SrcOver(d, s);
    case kSrcIn_VYRBlendMode:
      return Scale(s, A(d));
    case kDstIn_VYRBlendMode:
      return Scale(d, A(s));
    case kSrcOut_VYRBlendMode:
      return Scale(s, 255 - A(d));
    case kDstOut_VYRBlendMode:
      return Scale(d, 255 - A(s));
    case kSrcATop_VYRBlendMode:
      return PerChannel(s, d, [](int sc, int dc, int sa, int da) { return Div255(sc * da + dc * (255 - sa)); },
                        [](int, int da) { return da; });
    case kDstATop_VYRBlendMode:
      return PerChannel(s, d, [](int sc, int dc, int sa, int da) { return Div255(dc * sa + sc * (255 - da)); },
                        [](int sa, int) { return sa; });
    case kXor_VYRBlendMode:
      return PerChannel(s, d, [](int sc, int dc, int sa, int da) { return Div255(sc * (255 - da) + dc * (255 - sa)); },
                        [](int sa, int da) { return Div255(sa * (255 - da) + da * (255 - sa)); });
    case kPlus_VYRBlendMode:
      return PerChannel(s, d, [](int sc, int dc, int, int) { return sc + dc; },
                        [](int sa, int da) { return sa + da; });
    case kMultiply_VYRBlendMode:
      return PerChannel(
          s, d, [](int sc, int dc, int sa, int da) { return Div255(sc * (255 - da) + dc * (255 - sa) + sc * dc); },
          SrcOverAlpha);
    case kScreen_VYRBlendMode:
      return PerChannel(s, d, [](int sc, int dc, int, int) { return sc + dc - Div255(sc * dc); }, SrcOverAlpha);
    case kOverlay_VYRBlendMode:
      return PerChannel(
          s, d,
          [](int sc, int dc, int sa, int da) {
            const int rc = 2 * dc <= da ? 2 * sc * dc : sa * da - 2 * (da - dc) * (sa - sc);
            return Div255(rc + sc * (255 - da) + dc * (255 - sa));
          },
          SrcOverAlpha);
    case kDarken_VYRBlendMode:
      return PerChannel(s, d, [](int sc, int dc, int sa, int da) { return sc + dc - Div255(std::max(sc * da, dc * sa)); },
                        SrcOverAlpha);
    case kLighten_VYRBlendMode:
      return PerChannel(s, d, [](int sc, int dc, int sa, int da) { return sc + dc - Div255(std::min(sc * da, dc * sa)); },
                        SrcOverAlpha);
    case kColorDodge_VYRBlendMode:
      return PerChannel(s, d, [](int sc, int dc, int sa, int da) { return MixSeparable(sc, dc, sa, da, ColorDodge); },
                        SrcOverAlpha);
    case kColorBurn_VYRBlendMode:
      return PerChannel(s, d, [](int sc, int dc, int sa, int da) { return MixSeparable(sc, dc, sa, da, ColorBurn); },
                        SrcOverAlpha);
    case kHardLight_VYRBlendMode:
      return PerChannel(
          s, d,
          [](int sc, int dc, int sa, int da) {
            const int rc = 2 * sc <= sa ? 2 * sc * dc : sa * da - 2 * (da - dc) * (sa - sc);
            return Div255(rc + sc * (255 - da) + dc * (255 - sa));
          },
          SrcOverAlpha);
    case kSoftLight_VYRBlendMode:
      return PerChannel(s, d, [](int sc, int dc, int sa, int da) { return MixSeparable(sc, dc, sa, da, SoftLight); },
                        SrcOverAlpha);
    case kDifference_VYRBlendMode:
      return PerChannel(
          s, d, [](int sc, int dc, int sa, int da) { return sc + dc - 2 * Div255(std::min(sc * da, dc * sa)); },
          SrcOverAlpha);
    case kExclusion_VYRBlendMode:
      return PerChannel(s, d, [](int sc, int dc, int, int) { return sc + dc - 2 * Div255(sc * dc); }, SrcOverAlpha);
    case kHue_VYRBlendMode:
      return NonSeparable(s, d, [](Rgb cs, Rgb cb) { return SetLum(SetSat(cs, Sat(cb)), Lum(cb)); });
    case kSaturation_VYRBlendMode:
      return NonSeparable(s, d, [](Rgb cs, Rgb cb) { return SetLum(SetSat(cb, Sat(cs)), Lum(cb)); });
    case kColor_VYRBlendMode:
      return NonSeparable(s, d, [](Rgb cs, Rgb cb) { return SetLum(cs, Lum(cb)); });
    case kLuminosity_VYRBlendMode:
      return NonSeparable(s, d, [](Rgb cs, Rgb cb) { return SetLum(cb, Lum(cs)); });
  }
  return SrcOver(s, d);
}

// One tight loop per mode: the mode is chosen once per row, never per pixel.
template <VYRRasterBlendMode M>
void BlendRowT(uint32_t* io_dst, const uint32_t* i_src, const uint8_t* i_coverage, int i_count) {
  if (i_coverage) {
    for (int i = 0; i < i_count; ++i)
      if (i_coverage[i]) io_dst[i] = Lerp(Blend<M>(i_src[i], io_dst[i]), io_dst[i], i_coverage[i]);
  } else {
    for (int i = 0; i < i_count; ++i) io_dst[i] = Blend<M>(i_src[i], io_dst[i]);
  }
}

#if defined(__SSE2__)
// Thin shapes leave long uncovered runs in their masks: the row loops skip them
// 16 pixels at a time, at pixels i to i + 15 when all lie in the row.
inline bool SixteenUncovered(const uint8_t* i_coverage, int i, int i_count) {
  return i_coverage && i % 16 == 0 && i + 16 <= i_count &&
         _mm_movemask_epi8(_mm_cmpeq_epi8(_mm_loadu_si128(reinterpret_cast<const __m128i*>(i_coverage + i)),
                                          _mm_setzero_si128())) == 0xFFFF;
}
#endif

// Source-over folds coverage into the source: Scale(s, cov) then source-over, four
// pixels at a time with SSE2; the results equal the scalar form bit for bit.
template <>
void BlendRowT<kSrcOver_VYRBlendMode>(uint32_t* io_dst, const uint32_t* i_src, const uint8_t* i_coverage,
                                       int i_count) {
  int i = 0;
#if defined(__SSE2__)
  const __m128i zero = _mm_setzero_si128();
  for (; i + 4 <= i_count; i += 4) {
    if (SixteenUncovered(i_coverage, i, i_count)) {
      i += 12;
      continue;
    }
    const __m128i s = _mm_loadu_si128(reinterpret_cast<const __m128i*>(i_src + i));
    uint32_t four = 0xFFFFFFFFu;
    if (i_coverage) std::memcpy(&four, i_coverage + i, 4);
    if (four == 0) continue;
    // Four opaque, fully covered source pixels simply replace the destination.
    const __m128i alphaMask = _mm_set1_epi32(static_cast<int>(0xFF000000u));
    if (four == 0xFFFFFFFFu && _mm_movemask_epi8(_mm_cmpeq_epi32(_mm_and_si128(s, alphaMask), alphaMask)) == 0xFFFF) {
      _mm_storeu_si128(reinterpret_cast<__m128i*>(io_dst + i), s);
      continue;
    }
    const __m128i d = _mm_loadu_si128(reinterpret_cast<const __m128i*>(io_dst + i));
    __m128i sLo = _mm_unpacklo_epi8(s, zero), sHi = _mm_unpackhi_epi8(s, zero);
    if (four != 0xFFFFFFFFu) {
      __m128i cLo, cHi;
      CoverageLanes(four, &cLo, &cHi);
      sLo = Div255Lanes(_mm_mullo_epi16(sLo, cLo));
      sHi = Div255Lanes(_mm_mullo_epi16(sHi, cHi));
    }
    const __m128i lo = SrcOverLanes(sLo, _mm_unpacklo_epi8(d, zero));
    const __m128i hi = SrcOverLanes(sHi, _mm_unpackhi_epi8(d, zero));
    _mm_storeu_si128(reinterpret_cast<__m128i*>(io_dst + i), _mm_packus_epi16(lo, hi));
  }
#endif
  for (; i < i_count; ++i)
    io_dst[i] = SrcOver(i_coverage ? Scale(i_src[i], i_coverage[i]) : i_src[i], io_dst[i]);
}

#if defined(VYR_RASTER_AVX2)
// The solid source-over below, eight pixels at a time on processors with AVX2 (same
// arithmetic, so the same results).
struct SolidLanes {
  __m256i source;        // eight copies of the colour
  __m256i source16;      // two copies in 16-bit lanes, in each half
  __m256i inverseAlpha;  // 255 - the colour's alpha, in every 16-bit lane
  bool opaque;
};

// Source-over of the colour onto eight pixels with their eight coverages, one a byte.
VYR_RASTER_AVX2 inline __m256i SolidSrcOverEight(const SolidLanes& i_lanes, __m256i d,
                                                                   uint64_t i_eight) {
  const __m256i zero = _mm256_setzero_si256();
  const __m256i dLo = _mm256_unpacklo_epi8(d, zero), dHi = _mm256_unpackhi_epi8(d, zero);
  if (i_eight == ~uint64_t(0)) {
    if (i_lanes.opaque) return i_lanes.source;
    const __m256i lo = _mm256_add_epi16(i_lanes.source16, Div255Lanes256(_mm256_mullo_epi16(dLo, i_lanes.inverseAlpha)));
    const __m256i hi = _mm256_add_epi16(i_lanes.source16, Div255Lanes256(_mm256_mullo_epi16(dHi, i_lanes.inverseAlpha)));
    return _mm256_packus_epi16(lo, hi);
  }
  // Each pixel's coverage in its four bytes, then in 16-bit lanes in the pixels' order.
  const __m256i spread = _mm256_setr_epi8(0, 0, 0, 0, 4, 4, 4, 4, 8, 8, 8, 8, 12, 12, 12, 12, 0, 0, 0, 0, 4, 4, 4, 4,
                                          8, 8, 8, 8, 12, 12, 12, 12);
  const __m256i alphaShuffle = _mm256_setr_epi8(6, 7, 6, 7, 6, 7, 6, 7, 14, 15, 14, 15, 14, 15, 14, 15, 6, 7, 6, 7, 6,
                                                7, 6, 7, 14, 15, 14, 15, 14, 15, 14, 15);
  const __m256i c = _mm256_shuffle_epi8(
      _mm256_cvtepu8_epi32(_mm_cvtsi64_si128(static_cast<long long>(i_eight))), spread);
  const __m256i sLo = Div255Lanes256(_mm256_mullo_epi16(i_lanes.source16, _mm256_unpacklo_epi8(c, zero)));
  const __m256i sHi = Div255Lanes256(_mm256_mullo_epi16(i_lanes.source16, _mm256_unpackhi_epi8(c, zero)));
  const __m256i kLo = _mm256_sub_epi16(_mm256_set1_epi16(255), _mm256_shuffle_epi8(sLo, alphaShuffle));
  const __m256i kHi = _mm256_sub_epi16(_mm256_set1_epi16(255), _mm256_shuffle_epi8(sHi, alphaShuffle));
  const __m256i lo = _mm256_add_epi16(sLo, Div255Lanes256(_mm256_mullo_epi16(dLo, kLo)));
  const __m256i hi = _mm256_add_epi16(sHi, Div255Lanes256(_mm256_mullo_epi16(dHi, kHi)));
  return _mm256_packus_epi16(lo, hi);
}

VYR_RASTER_AVX2 void SolidSrcOverAvx2(uint32_t* io_dst, uint32_t i_src, const uint8_t* i_coverage,
                                                      int i_count) {
  SolidLanes lanes;
  lanes.source = _mm256_set1_epi32(static_cast<int>(i_src));
  lanes.source16 = _mm256_unpacklo_epi8(lanes.source, _mm256_setzero_si256());
  lanes.inverseAlpha = _mm256_set1_epi16(static_cast<short>(255 - A(i_src)));
  lanes.opaque = A(i_src) == 255;
  int i = 0;
  for (; i + 8 <= i_count; i += 8) {
    // Thin shapes leave long uncovered runs in their masks: skip them 32 pixels at a time.
    if (i_coverage && i % 32 == 0 && i + 32 <= i_count &&
        _mm256_testz_si256(_mm256_loadu_si256(reinterpret_cast<const __m256i*>(i_coverage + i)),
                           _mm256_set1_epi8(-1))) {
      i += 24;
      continue;
    }
    uint64_t eight = ~uint64_t(0);
    if (i_coverage) std::memcpy(&eight, i_coverage + i, 8);
    if (eight == 0) continue;
    __m256i* dst = reinterpret_cast<__m256i*>(io_dst + i);
    _mm256_storeu_si256(dst, SolidSrcOverEight(lanes, _mm256_loadu_si256(dst), eight));
  }
  // The last few pixels as a group of eight whose missing ones are neither read nor written.
  const int rest = i_count - i;
  if (rest <= 0) return;
  uint64_t eight = 0;
  for (int k = 0; k < rest; ++k) eight |= uint64_t(i_coverage ? i_coverage[i + k] : 255) << (8 * k);
  const __m256i present = _mm256_cmpgt_epi32(_mm256_set1_epi32(rest), _mm256_setr_epi32(0, 1, 2, 3, 4, 5, 6, 7));
  int* dst = reinterpret_cast<int*>(io_dst + i);
  _mm256_maskstore_epi32(dst, present, SolidSrcOverEight(lanes, _mm256_maskload_epi32(dst, present), eight));
}

#endif

// Source-over of one colour: its lanes are worked out once, fully covered groups skip
// the coverage multiply, and the results equal BlendRowT's bit for bit.
void SolidSrcOverRow(uint32_t* io_dst, uint32_t i_src, const uint8_t* i_coverage, int i_count) {
  if (A(i_src) == 0) return;  // a transparent source leaves every pixel as it is
  int i = 0;
#if defined(VYR_RASTER_AVX2)
  if (VYRRasterHasAvx2()) {
    SolidSrcOverAvx2(io_dst, i_src, i_coverage, i_count);
    return;
  }
#endif
#if defined(__SSE2__)
  const __m128i zero = _mm_setzero_si128();
  const __m128i s4 = _mm_set1_epi32(static_cast<int>(i_src));
  const __m128i s16 = _mm_unpacklo_epi8(s4, zero);
  const __m128i inverseAlpha = _mm_set1_epi16(static_cast<short>(255 - A(i_src)));
  const bool opaque = A(i_src) == 255;
  for (; i + 4 <= i_count; i += 4) {
    if (SixteenUncovered(i_coverage, i, i_count)) {
      i += 12;
      continue;
    }
    uint32_t four = 0xFFFFFFFFu;
    if (i_coverage) std::memcpy(&four, i_coverage + i, 4);
    if (four == 0) continue;
    __m128i* dst = reinterpret_cast<__m128i*>(io_dst + i);
    if (four == 0xFFFFFFFFu) {
      if (opaque) {
        _mm_storeu_si128(dst, s4);
        continue;
      }
      const __m128i d = _mm_loadu_si128(dst);
      const __m128i lo = _mm_add_epi16(s16, Div255Lanes(_mm_mullo_epi16(_mm_unpacklo_epi8(d, zero), inverseAlpha)));
      const __m128i hi = _mm_add_epi16(s16, Div255Lanes(_mm_mullo_epi16(_mm_unpackhi_epi8(d, zero), inverseAlpha)));
      _mm_storeu_si128(dst, _mm_packus_epi16(lo, hi));
      continue;
    }
    const __m128i d = _mm_loadu_si128(dst);
    __m128i c = _mm_cvtsi32_si128(static_cast<int>(four));
    c = _mm_unpacklo_epi16(_mm_unpacklo_epi8(c, c), _mm_unpacklo_epi8(c, c));
    const __m128i sLo = Div255Lanes(_mm_mullo_epi16(s16, _mm_unpacklo_epi8(c, zero)));
    const __m128i sHi = Div255Lanes(_mm_mullo_epi16(s16, _mm_unpackhi_epi8(c, zero)));
    const __m128i lo = SrcOverLanes(sLo, _mm_unpacklo_epi8(d, zero));
    const __m128i hi = SrcOverLanes(sHi, _mm_unpackhi_epi8(d, zero));
    _mm_storeu_si128(dst, _mm_packus_epi16(lo, hi));
  }
#endif
  for (; i < i_count; ++i) {
    const int coverage = i_coverage ? i_coverage[i] : 255;
    if (coverage) io_dst[i] = SrcOver(coverage == 255 ? i_src : Scale(i_src, coverage), io_dst[i]);
  }
}

using RowFn = void (*)(uint32_t*, const uint32_t*, const uint8_t*, int);

template <int... I>
constexpr std::array<RowFn, sizeof...(I)> MakeTable(std::integer_sequence<int, I...>) {
  return {&BlendRowT<static_cast<VYRRasterBlendMode>(I)>...};
}

}  // namespace

void VYRRasterBlender::BlendRow(VYRRasterBlendMode i_mode, uint32_t* io_dst, const uint32_t* i_src,
                                const uint8_t* i_coverage, int i_count) {
  static const auto table = MakeTable(std::make_integer_sequence<int, kLastMode_VYRBlendMode + 1>());
  const int mode = (i_mode >= 0 && i_mode <= kLastMode_VYRBlendMode) ? i_mode : kSrcOver_VYRBlendMode;
  if (i_count <= 0 || !io_dst || !i_src) return;
  table[mode](io_dst, i_src, i_coverage, i_count);
}

void VYRRasterBlender::BlendSolidRow(VYRRasterBlendMode i_mode, uint32_t* io_dst, uint32_t i_src,
                                     const uint8_t* i_coverage, int i_count) {
  if (i_count <= 0 || !io_dst) return;
  if (ModeOrSourceOver(i_mode) == kSrcOver_VYRBlendMode) {
    SolidSrcOverRow(io_dst, i_src, i_coverage, i_count);
    return;
  }
  // Other modes take the general row in chunks of the repeated colour.
  constexpr int kChunk = 64;
  uint32_t source[kChunk];
  std::fill(source, source + kChunk, i_src);
  for (int i = 0; i < i_count; i += kChunk)
    BlendRow(i_mode, io_dst + i, source, i_coverage ? i_coverage + i : nullptr, std::min(kChunk, i_count - i));
}

uint32_t VYRRasterBlender::BlendPixel(VYRRasterBlendMode i_mode, uint32_t i_src, uint32_t i_dst) {
  BlendRow(i_mode, &i_dst, &i_src, nullptr, 1);
  return i_dst;
}

uint32_t VYRRasterBlender::Premultiply(uint32_t i_color) {
  const int a = A(i_color);
  if (a == 255) return i_color;
  return Pack(a, Div255(R(i_color) * a), Div255(G(i_color) * a), Div255(B(i_color) * a));
}

void VYRRasterBlender::ScaleRow(uint32_t* io_pixels, int i_count, uint8_t i_alpha) {
  if (i_alpha == 255 || !io_pixels) return;
  for (int i = 0; i < i_count; ++i) io_pixels[i] = Scale(io_pixels[i], i_alpha);
}

uint8_t VYRRasterBlender::Luminance(uint32_t i_premultiplied) {
  return static_cast<uint8_t>((54 * R(i_premultiplied) + 183 * G(i_premultiplied) + 19 * B(i_premultiplied)) >> 8);
}

void VYRRasterBlender::LumaMaskRow(VYRRasterBlendMode i_mode, uint32_t* io_dst, const uint32_t* i_src,
                                   const uint8_t* i_coverage, int i_count) {
  if (i_mode != kSrcIn_VYRBlendMode && i_mode != kDstIn_VYRBlendMode) {
    BlendRow(i_mode, io_dst, i_src, i_coverage, i_count);
    return;
  }
  if (i_count <= 0 || !io_dst || !i_src) return;
  const bool keepSource = i_mode == kSrcIn_VYRBlendMode;
  for (int i = 0; i < i_count; ++i) {
    const int coverage = i_coverage ? i_coverage[i] : 255;
    if (coverage == 0) continue;
    const uint32_t result =
        keepSource ? Scale(i_src[i], Luminance(io_dst[i])) : Scale(io_dst[i], Luminance(i_src[i]));
    io_dst[i] = coverage == 255 ? result : Lerp(result, io_dst[i], coverage);
  }
}

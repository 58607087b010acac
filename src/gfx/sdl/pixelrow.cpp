#include "gfx/sdl/pixelrow.h"

#include <algorithm>
#include <array>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace vask::sdl {

namespace {

void BlendPixel(std::uint32_t source, std::uint32_t* target) {
  const std::uint32_t alpha = source >> 24;
  if (alpha == 255) {
    *target = (source & ~kAlphaBits) | (*target & kAlphaBits);
    return;
  }
  std::uint32_t result = *target & kAlphaBits;
  for (int shift = 0; shift < 24; shift += 8) {
    const auto from = static_cast<std::int32_t>(source >> shift & 0xFF);
    const auto onto = static_cast<std::int32_t>(*target >> shift & 0xFF);
    const std::int32_t color = onto + ((from - onto) * static_cast<std::int32_t>(alpha) >> 8);
    result |= static_cast<std::uint32_t>(color & 0xFF) << shift;
  }
  *target = result;
}

void OverPixel(std::uint32_t source, std::uint32_t* target) {
  const std::uint32_t alpha = source >> 24;
  if (alpha == 0) {
    return;
  }
  if (alpha == 255) {
    *target = source;
    return;
  }
  const std::uint32_t weight = alpha * 255 + (*target >> 24) * (255 - alpha);
  const auto share = static_cast<std::int32_t>((alpha * 255 * 32767 + weight / 2) / weight);
  std::uint32_t result = (weight + 127) / 255 << 24;
  for (int shift = 0; shift < 24; shift += 8) {
    const auto from = static_cast<std::int32_t>(source >> shift & 0xFF);
    const auto onto = static_cast<std::int32_t>(*target >> shift & 0xFF);
    const std::int32_t change = (((from - onto) * 128 * share >> 16) + 32) >> 6;
    result |= static_cast<std::uint32_t>((onto + change) & 0xFF) << shift;
  }
  *target = result;
}

#if defined(__SSE2__)

// Four pixels at a time: a sprite is mostly runs of transparent and of opaque pixels, and one test
// passes over four of either.
constexpr int kStep = 4;
constexpr int kSixteen = 16;
constexpr int kAllBytes = 0xFFFF;

__m128i Load(const std::uint32_t* pixels) {
  return _mm_loadu_si128(reinterpret_cast<const __m128i*>(pixels));
}

void Store(std::uint32_t* pixels, __m128i value) {
  _mm_storeu_si128(reinterpret_cast<__m128i*>(pixels), value);
}

bool AllSet(__m128i comparison) { return _mm_movemask_epi8(comparison) == kAllBytes; }

__m128i Select(__m128i mask, __m128i ifSet, __m128i ifClear) {
  return _mm_or_si128(_mm_and_si128(mask, ifSet), _mm_andnot_si128(mask, ifClear));
}

__m128i LowBytes(__m128i pixels) { return _mm_unpacklo_epi8(pixels, _mm_setzero_si128()); }
__m128i HighBytes(__m128i pixels) { return _mm_unpackhi_epi8(pixels, _mm_setzero_si128()); }

// One factor (16 bits) for each of four pixels, spread over the four channels of two pixels each.
struct SFactors {
  __m128i low;
  __m128i high;
};

SFactors Spread(__m128i factors) {
  const __m128i packed = _mm_packs_epi32(factors, factors);
  const __m128i pairs = _mm_unpacklo_epi16(packed, packed);
  return {_mm_unpacklo_epi32(pairs, pairs), _mm_unpackhi_epi32(pairs, pairs)};
}

__m128i BlendChannels(__m128i source, __m128i target, __m128i alpha) {
  const __m128i change = _mm_mullo_epi16(_mm_sub_epi16(source, target), alpha);
  const __m128i sum = _mm_add_epi16(target, _mm_srli_epi16(change, 8));
  return _mm_and_si128(sum, _mm_set1_epi16(0x00FF));
}

void BlendFour(const std::uint32_t* source, std::uint32_t* target) {
  const __m128i from = Load(source);
  const __m128i alpha = _mm_srli_epi32(from, 24);
  if (AllSet(_mm_cmpeq_epi32(alpha, _mm_setzero_si128()))) {
    return;
  }
  const __m128i onto = Load(target);
  const __m128i topByte = _mm_set1_epi32(static_cast<int>(kAlphaBits));
  const __m128i opaque = _mm_cmpeq_epi32(alpha, _mm_set1_epi32(255));
  if (AllSet(opaque)) {
    Store(target, Select(topByte, onto, from));
    return;
  }
  const SFactors factors = Spread(alpha);
  const __m128i low = BlendChannels(LowBytes(from), LowBytes(onto), factors.low);
  const __m128i high = BlendChannels(HighBytes(from), HighBytes(onto), factors.high);
  const __m128i colors = Select(opaque, from, _mm_packus_epi16(low, high));
  Store(target, Select(topByte, onto, colors));
}

// As four calls of BlendFour do; one test passes over sixteen pixels of either kind.
void BlendSixteen(const std::uint32_t* source, std::uint32_t* target) {
  const __m128i from[] = {Load(source), Load(source + 4), Load(source + 8), Load(source + 12)};
  const __m128i any = _mm_or_si128(_mm_or_si128(from[0], from[1]), _mm_or_si128(from[2], from[3]));
  if (AllSet(_mm_cmpeq_epi32(_mm_srli_epi32(any, 24), _mm_setzero_si128()))) {
    return;
  }
  const __m128i topByte = _mm_set1_epi32(static_cast<int>(kAlphaBits));
  const __m128i all =
      _mm_and_si128(_mm_and_si128(from[0], from[1]), _mm_and_si128(from[2], from[3]));
  const bool isOpaque = AllSet(_mm_cmpeq_epi32(_mm_and_si128(all, topByte), topByte));
  for (int x = 0; x < kSixteen; x += kStep) {
    if (isOpaque) {
      Store(target + x, Select(topByte, Load(target + x), from[x / kStep]));
    } else {
      BlendFour(source + x, target + x);
    }
  }
}

// The difference is kept in 1/128 and the share in 1/32767, so that the product's upper half holds
// the change in 1/64.
__m128i OverChannels(__m128i source, __m128i target, __m128i share) {
  const __m128i difference = _mm_slli_epi16(_mm_sub_epi16(source, target), 7);
  const __m128i change = _mm_add_epi16(_mm_mulhi_epi16(difference, share), _mm_set1_epi16(32));
  return _mm_add_epi16(target, _mm_srai_epi16(change, 6));
}

void OverFour(const std::uint32_t* source, std::uint32_t* target) {
  const __m128i from = Load(source);
  const __m128i alpha = _mm_srli_epi32(from, 24);
  if (AllSet(_mm_cmpeq_epi32(alpha, _mm_setzero_si128()))) {
    return;
  }
  if (AllSet(_mm_cmpeq_epi32(alpha, _mm_set1_epi32(255)))) {
    Store(target, from);
    return;
  }
  const __m128i onto = Load(target);
  const __m128i sourcePart = _mm_sub_epi32(_mm_slli_epi32(alpha, 8), alpha);
  const __m128i targetPart =
      _mm_mullo_epi16(_mm_srli_epi32(onto, 24), _mm_sub_epi32(_mm_set1_epi32(255), alpha));
  const __m128i weight = _mm_add_epi32(sourcePart, targetPart);
  const __m128 divisor = _mm_max_ps(_mm_cvtepi32_ps(weight), _mm_set1_ps(1.0F));
  const __m128 fraction = _mm_div_ps(_mm_cvtepi32_ps(sourcePart), divisor);
  const SFactors share = Spread(_mm_cvtps_epi32(_mm_mul_ps(fraction, _mm_set1_ps(32767.0F))));

  const __m128i low = OverChannels(LowBytes(from), LowBytes(onto), share.low);
  const __m128i high = OverChannels(HighBytes(from), HighBytes(onto), share.high);
  // weight / 255, rounded to the nearest without a division.
  const __m128i rounded = _mm_add_epi32(weight, _mm_set1_epi32(128));
  const __m128i newAlpha = _mm_srli_epi32(_mm_add_epi32(rounded, _mm_srli_epi32(rounded, 8)), 8);
  const __m128i topByte = _mm_set1_epi32(static_cast<int>(kAlphaBits));
  Store(target, Select(topByte, _mm_slli_epi32(newAlpha, 24), _mm_packus_epi16(low, high)));
}

#endif

template <typename Convert>
std::uint32_t WithColors(std::uint32_t pixel, Convert convert) {
  const std::uint32_t alpha = pixel >> 24;
  if (alpha == 255) {
    return pixel;
  }
  if (alpha == 0) {
    return 0;
  }
  return (pixel & kAlphaBits) | convert(pixel >> 16 & 0xFF, alpha) << 16 |
         convert(pixel >> 8 & 0xFF, alpha) << 8 | convert(pixel & 0xFF, alpha);
}

// Replaces the three colours of each partly transparent pixel by what `convert(color, alpha)` makes
// of them; fully transparent pixels become 0. Four at a time, as most are opaque, or transparent
// and 0 already, like their neighbours.
template <typename Convert>
void ForColors(std::uint32_t* pixels, int count, Convert convert) {
  int x = 0;
  for (; x + 4 <= count; x += 4) {
    std::uint32_t* const four = pixels + x;
    const bool isOpaque = (four[0] & four[1] & four[2] & four[3]) >= kAlphaBits;
    const bool isZero = (four[0] | four[1] | four[2] | four[3]) == 0;
    for (int k = 0; k < 4 && !isOpaque && !isZero; ++k) {
      four[k] = WithColors(four[k], convert);
    }
  }
  for (; x < count; ++x) {
    pixels[x] = WithColors(pixels[x], convert);
  }
}

// 255 / alpha in 1/65536.
const std::array<std::uint32_t, 256>& Reciprocals() {
  static const std::array<std::uint32_t, 256> table = [] {
    std::array<std::uint32_t, 256> values{};
    for (std::uint32_t alpha = 1; alpha < 256; ++alpha) {
      values[alpha] = (255U * 65536 + alpha / 2) / alpha;
    }
    return values;
  }();
  return table;
}

}  // namespace

void BlendRow(const std::uint32_t* source, std::uint32_t* target, int count) {
  int x = 0;
#if defined(__SSE2__)
  for (; x + kSixteen <= count; x += kSixteen) {
    BlendSixteen(source + x, target + x);
  }
  for (; x + kStep <= count; x += kStep) {
    BlendFour(source + x, target + x);
  }
#endif
  for (; x < count; ++x) {
    BlendPixel(source[x], &target[x]);
  }
}

void OverRow(const std::uint32_t* source, std::uint32_t* target, int count) {
  int x = 0;
#if defined(__SSE2__)
  for (; x + kStep <= count; x += kStep) {
    OverFour(source + x, target + x);
  }
#endif
  for (; x < count; ++x) {
    OverPixel(source[x], &target[x]);
  }
}

void PremultiplyRow(std::uint32_t* pixels, int count) {
  ForColors(pixels, count, [](std::uint32_t color, std::uint32_t alpha) {
    const std::uint32_t product = color * alpha + 128;
    return (product + (product >> 8)) >> 8;
  });
}

void UnpremultiplyRow(std::uint32_t* pixels, int count) {
  const auto& reciprocals = Reciprocals();
  ForColors(pixels, count, [&](std::uint32_t color, std::uint32_t alpha) {
    return std::min<std::uint32_t>((color * reciprocals[alpha] + 32768) >> 16, 255);
  });
}

}  // namespace vask::sdl

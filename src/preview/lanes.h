// Numbers that are reckoned with together, each in a lane of its own: the processor takes one step
// for all of them. Every step is exact or rounded as for a number alone, so it comes to the same on
// every system.
#pragma once

#include <bit>
#include <cstdint>

#ifdef __SSE2__
#include <emmintrin.h>
#endif

namespace marlowick {

using Floats = float __attribute__((vector_size(16)));
using Doubles = double __attribute__((vector_size(16)));
using Ints = std::int32_t __attribute__((vector_size(16)));
using Longs = std::uint64_t __attribute__((vector_size(16)));
using Words = std::uint16_t __attribute__((vector_size(16)));
using Bytes = std::uint8_t __attribute__((vector_size(16)));

// The larger or smaller one of each lane, and the second one where either is no number. Compilers
// find these steps of the processor only when they are told.
#ifdef __SSE2__

inline Floats larger(const Floats& a, const Floats& b) {
    return _mm_max_ps(a, b);
}
inline Floats smaller(const Floats& a, const Floats& b) {
    return _mm_min_ps(a, b);
}
inline Doubles larger(const Doubles& a, const Doubles& b) {
    return _mm_max_pd(a, b);
}
inline Doubles smaller(const Doubles& a, const Doubles& b) {
    return _mm_min_pd(a, b);
}
// Without their fractions, each twice: the first one in the first two lanes.
inline Ints wholeTwice(const Doubles& values) {
    const __m128i whole = _mm_cvttpd_epi32(values);
    return std::bit_cast<Ints>(_mm_unpacklo_epi32(whole, whole));
}
// A bit for each lane that holds -1, the lowest for the first one; the others hold 0.
inline unsigned bitsOf(const Ints& lanes) {
    return static_cast<unsigned>(_mm_movemask_ps(std::bit_cast<Floats>(lanes)));
}

#else

template <class Lanes>
Lanes larger(const Lanes& a, const Lanes& b) {
    return a > b ? a : b;
}
template <class Lanes>
Lanes smaller(const Lanes& a, const Lanes& b) {
    return a < b ? a : b;
}
inline Ints wholeTwice(const Doubles& values) {
    const auto first = static_cast<std::int32_t>(values[0]);
    const auto second = static_cast<std::int32_t>(values[1]);
    return Ints{first, first, second, second};
}
inline unsigned bitsOf(const Ints& lanes) {
    const Ints bits = lanes & Ints{1, 2, 4, 8};
    return static_cast<unsigned>(bits[0] | bits[1] | bits[2] | bits[3]);
}

#endif

}  // namespace marlowick

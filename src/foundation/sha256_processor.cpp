#include "foundation/sha256_processor.h"

#if defined(__x86_64__)

#include <cpuid.h>
#include <immintrin.h>

// The rest of the program must run on processors without them.
#define MARLOWICK_SHA __attribute__((target("sha,sse4.1")))

namespace marlowick {
namespace {

constexpr unsigned kExtendedFeatures = 7;
constexpr unsigned kShaBit = 1U << 29U;  // of register b

bool readHasSha256() {
    unsigned a = 0, b = 0, c = 0, d = 0;
    return __builtin_cpu_supports("sse4.1") != 0 &&
           __get_cpuid_count(kExtendedFeatures, 0, &a, &b, &c, &d) != 0 && (b & kShaBit) != 0;
}

// The instructions hold the eight words of the state in two registers, and do two rounds at a time
// with the next two words of the schedule.
struct State {
    __m128i abef;
    __m128i cdgh;
};

MARLOWICK_SHA inline void fourRounds(State& state, __m128i schedule, int number) {
    const auto* constants = reinterpret_cast<const __m128i*>(kSha256Constants.data()) + number;
    const __m128i sum = _mm_add_epi32(schedule, _mm_loadu_si128(constants));
    state.cdgh = _mm_sha256rnds2_epu32(state.cdgh, state.abef, sum);
    state.abef = _mm_sha256rnds2_epu32(state.abef, state.cdgh, _mm_shuffle_epi32(sum, 0x0E));
}

// Makes the four words that are wanted four steps on, in the place of the oldest ones.
MARLOWICK_SHA inline void goOn(__m128i& oldest, __m128i second, __m128i third, __m128i newest) {
    oldest = _mm_sha256msg2_epu32(
        _mm_add_epi32(_mm_sha256msg1_epu32(oldest, second), _mm_alignr_epi8(newest, third, 4)),
        newest);
}

MARLOWICK_SHA inline void workBlock(State& state, const unsigned char* data) {
    const __m128i bytesOfWords = _mm_set_epi64x(0x0c0d0e0f08090a0bLL, 0x0405060700010203LL);
    const State before = state;
    const auto* words = reinterpret_cast<const __m128i*>(data);
    __m128i a = _mm_shuffle_epi8(_mm_loadu_si128(words), bytesOfWords);
    __m128i b = _mm_shuffle_epi8(_mm_loadu_si128(words + 1), bytesOfWords);
    __m128i c = _mm_shuffle_epi8(_mm_loadu_si128(words + 2), bytesOfWords);
    __m128i d = _mm_shuffle_epi8(_mm_loadu_si128(words + 3), bytesOfWords);
    for (int step = 0; step < 16; step += 4) {
        const bool more = step < 12;
        fourRounds(state, a, step);
        fourRounds(state, b, step + 1);
        fourRounds(state, c, step + 2);
        fourRounds(state, d, step + 3);
        if (more) {
            goOn(a, b, c, d);
            goOn(b, c, d, a);
            goOn(c, d, a, b);
            goOn(d, a, b, c);
        }
    }
    state.abef = _mm_add_epi32(state.abef, before.abef);
    state.cdgh = _mm_add_epi32(state.cdgh, before.cdgh);
}

}  // namespace

bool processorHasSha256() {
    static const bool has = readHasSha256();
    return has;
}

MARLOWICK_SHA void processorSha256Blocks(std::uint32_t* state, const unsigned char* data,
                                         std::size_t count) {
    auto* words = reinterpret_cast<__m128i*>(state);
    const __m128i cdab = _mm_shuffle_epi32(_mm_loadu_si128(words), 0xB1);
    const __m128i efgh = _mm_shuffle_epi32(_mm_loadu_si128(words + 1), 0x1B);
    State worked{_mm_alignr_epi8(cdab, efgh, 8), _mm_blend_epi16(efgh, cdab, 0xF0)};
    for (; count > 0; --count, data += 64) {
        workBlock(worked, data);
    }
    const __m128i feba = _mm_shuffle_epi32(worked.abef, 0x1B);
    const __m128i dchg = _mm_shuffle_epi32(worked.cdgh, 0xB1);
    _mm_storeu_si128(words, _mm_blend_epi16(feba, dchg, 0xF0));
    _mm_storeu_si128(words + 1, _mm_alignr_epi8(dchg, feba, 8));
}

}  // namespace marlowick

#else

namespace marlowick {

bool processorHasSha256() {
    return false;
}

void processorSha256Blocks(std::uint32_t* /*state*/, const unsigned char* /*data*/,
                           std::size_t /*count*/) {}

}  // namespace marlowick

#endif

// A texture and its halved copies, made once: what is seen from afar is taken from a copy whose
// pixels are about as large as the picture's.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace marlowick {

struct Texture;

// Every other of a pixel's four channels: two can be reckoned with at once.
inline constexpr std::uint32_t kTwoChannels = 0x00FF00FFU;

// A texture repeats; so that a pixel always has its neighbours beside it, each row ends in its
// first pixel again and the last row is the first one again.
struct TextureLevel {
    int width = 0;  // without what is repeated
    int height = 0;
    bool isPowerOfTwo = false;          // both
    std::vector<std::uint32_t> pixels;  // width + 1 times height + 1

    std::ptrdiff_t stride() const { return std::ptrdiff_t{width} + 1; }
};

// The texture itself and, each half as wide and high as the one before (rounded down, but never
// below 1), its copies down to a single pixel. A copy's pixel is the mean of what it covers.
using TextureLevels = std::vector<TextureLevel>;

// The texture has pixels, as many as its width times its height.
TextureLevels levelsOf(const Texture& texture);

}  // namespace marlowick

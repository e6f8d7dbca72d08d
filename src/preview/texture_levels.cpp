#include "preview/texture_levels.h"

#include <algorithm>
#include <array>
#include <bit>
#include <utility>

#include "preview/figure.h"

namespace marlowick {
namespace {

std::uint32_t average(std::uint32_t a, std::uint32_t b, std::uint32_t c, std::uint32_t d) {
    const std::uint32_t even = (a & kTwoChannels) + (b & kTwoChannels) + (c & kTwoChannels) +
                               (d & kTwoChannels) + 0x00020002U;
    const std::uint32_t odd = (a >> 8U & kTwoChannels) + (b >> 8U & kTwoChannels) +
                              (c >> 8U & kTwoChannels) + (d >> 8U & kTwoChannels) + 0x00020002U;
    return (even >> 2U & kTwoChannels) | (odd >> 2U & kTwoChannels) << 8U;
}

std::size_t pixelsOf(int width, int height) {
    return static_cast<std::size_t>(width) * static_cast<std::size_t>(height);
}

Texture halvedEvenly(const Texture& from) {
    Texture to{from.width / 2, from.height / 2, {}};
    to.pixels.resize(pixelsOf(to.width, to.height));
    std::uint32_t* result = to.pixels.data();
    for (int y = 0; y < to.height; ++y) {
        const std::uint32_t* upper = from.pixels.data() + pixelsOf(from.width, 2 * y);
        const std::uint32_t* lower = upper + from.width;
        for (int x = 0; x < to.width; ++x, upper += 2, lower += 2) {
            *result++ = average(upper[0], upper[1], lower[0], lower[1]);
        }
    }
    return to;
}

// The pixels of a row or column that one of a halved one covers, each by so many parts.
struct Covered {
    int first = 0;
    int count = 0;
    std::array<std::uint64_t, 3> parts = {};  // as many in all as the row or column has pixels
};

Covered covered(int pixel, int size, int halved) {
    Covered result;
    const std::int64_t begin = std::int64_t{pixel} * size;
    const std::int64_t end = begin + size;
    result.first = static_cast<int>(begin / halved);
    for (std::int64_t i = result.first; i * halved < end; ++i) {
        const std::int64_t parts = std::min(end, (i + 1) * halved) - std::max(begin, i * halved);
        result.parts[static_cast<std::size_t>(result.count++)] = static_cast<std::uint64_t>(parts);
    }
    return result;
}

std::uint32_t meanOf(const Texture& from, const Covered& across, const Covered& down) {
    std::array<std::uint64_t, 3> sums = {};
    for (int y = 0; y < down.count; ++y) {
        const std::uint32_t* row =
            from.pixels.data() + pixelsOf(from.width, down.first + y) + across.first;
        for (int x = 0; x < across.count; ++x) {
            const std::uint64_t parts =
                down.parts[static_cast<std::size_t>(y)] * across.parts[static_cast<std::size_t>(x)];
            for (std::size_t channel = 0; channel < sums.size(); ++channel) {
                sums[channel] += (row[x] >> 8 * channel & 0xFFU) * parts;
            }
        }
    }
    const std::uint64_t all = pixelsOf(from.width, from.height);
    std::uint64_t pixel = 0;
    for (std::size_t channel = 0; channel < sums.size(); ++channel) {
        pixel |= (sums[channel] + all / 2) / all << 8 * channel;
    }
    return static_cast<std::uint32_t>(pixel);
}

// Of any size.
Texture halved(const Texture& from) {
    Texture to{std::max(1, from.width / 2), std::max(1, from.height / 2), {}};
    to.pixels.reserve(pixelsOf(to.width, to.height));
    for (int y = 0; y < to.height; ++y) {
        const Covered down = covered(y, from.height, to.height);
        for (int x = 0; x < to.width; ++x) {
            to.pixels.push_back(meanOf(from, covered(x, from.width, to.width), down));
        }
    }
    return to;
}

TextureLevel repeated(const Texture& texture) {
    const auto isPower = [](int size) { return std::has_single_bit(static_cast<unsigned>(size)); };
    TextureLevel level{
        texture.width, texture.height, isPower(texture.width) && isPower(texture.height), {}};
    level.pixels.resize(pixelsOf(level.width + 1, level.height + 1));
    std::uint32_t* result = level.pixels.data();
    for (int y = 0; y <= level.height; ++y) {
        const std::uint32_t* row =
            texture.pixels.data() + pixelsOf(texture.width, y % texture.height);
        result = std::copy_n(row, texture.width, result);
        *result++ = row[0];
    }
    return level;
}

}  // namespace

TextureLevels levelsOf(const Texture& texture) {
    TextureLevels levels = {repeated(texture)};
    const auto isEven = [](const Texture& of) { return of.width % 2 == 0 && of.height % 2 == 0; };
    Texture last;
    for (const Texture* from = &texture; from->width > 1 || from->height > 1; from = &last) {
        last = isEven(*from) ? halvedEvenly(*from) : halved(*from);
        levels.push_back(repeated(last));
    }
    return levels;
}

}  // namespace marlowick

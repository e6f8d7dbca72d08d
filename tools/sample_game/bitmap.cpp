#include "bitmap.h"

#include <algorithm>
#include <array>
#include <limits>
#include <map>

#include "bytes.h"

namespace sample {
namespace {

constexpr std::uint32_t kFileHead = 14;
constexpr std::uint32_t kInfoHead = 40;

std::string heads(const Picture& picture, unsigned bits, std::uint32_t colours,
                  std::uint32_t dataSize) {
    const std::uint32_t dataStart = kFileHead + kInfoHead + colours * 4;
    return "BM" + little32(dataStart + dataSize) + little32(0) + little32(dataStart) +
           little32(kInfoHead) + little32(static_cast<std::uint32_t>(picture.width)) +
           little32(static_cast<std::uint32_t>(picture.height)) + little16(1) + little16(bits) +
           little32(0) + little32(dataSize) + little32(2835) + little32(2835) + little32(colours) +
           little32(0);
}

const Colour& pixelAt(const Picture& picture, int x, int y) {
    return picture.pixels[static_cast<std::size_t>(y) * static_cast<std::size_t>(picture.width) +
                          static_cast<std::size_t>(x)];
}

// Five bits a channel: near colours count as one.
unsigned coarse(Colour c) {
    return static_cast<unsigned>(c.r >> 3) << 10U | static_cast<unsigned>(c.g >> 3) << 5U |
           static_cast<unsigned>(c.b >> 3);
}

// The 256 colours that the picture uses most.
std::vector<Colour> paletteOf(const Picture& picture) {
    struct Use {
        int count = 0;
        Colour colour;
    };
    std::map<unsigned, Use> uses;
    for (const Colour& c : picture.pixels) {
        Use& use = uses[coarse(c)];
        if (use.count++ == 0) {
            use.colour = c;
        }
    }
    std::vector<Use> sorted;
    sorted.reserve(uses.size());
    for (const auto& [key, use] : uses) {
        sorted.push_back(use);
    }
    std::stable_sort(sorted.begin(), sorted.end(),
                     [](const Use& a, const Use& b) { return a.count > b.count; });
    std::vector<Colour> palette(256);
    for (std::size_t i = 0; i < std::min<std::size_t>(256, sorted.size()); ++i) {
        palette[i] = sorted[i].colour;
    }
    return palette;
}

int nearest(const std::vector<Colour>& palette, Colour c) {
    int best = 0;
    int bestDistance = std::numeric_limits<int>::max();
    for (std::size_t i = 0; i < palette.size(); ++i) {
        const int dr = palette[i].r - c.r;
        const int dg = palette[i].g - c.g;
        const int db = palette[i].b - c.b;
        const int distance = dr * dr + dg * dg + db * db;
        if (distance < bestDistance) {
            bestDistance = distance;
            best = static_cast<int>(i);
        }
    }
    return best;
}

}  // namespace

std::string bitmap24(const Picture& picture) {
    const std::size_t padding = (4 - static_cast<std::size_t>(picture.width) * 3 % 4) % 4;
    std::string data;
    for (int y = picture.height - 1; y >= 0; --y) {
        for (int x = 0; x < picture.width; ++x) {
            const Colour& c = pixelAt(picture, x, y);
            data += {static_cast<char>(c.b), static_cast<char>(c.g), static_cast<char>(c.r)};
        }
        data.append(padding, '\0');
    }
    return heads(picture, 24, 0, static_cast<std::uint32_t>(data.size())) + data;
}

std::string bitmap8(const Picture& picture) {
    const std::vector<Colour> palette = paletteOf(picture);
    std::array<int, 32768> known{};
    known.fill(-1);
    const std::size_t padding = (4 - static_cast<std::size_t>(picture.width) % 4) % 4;
    std::string data;
    for (int y = picture.height - 1; y >= 0; --y) {
        for (int x = 0; x < picture.width; ++x) {
            const Colour& c = pixelAt(picture, x, y);
            int& index = known.at(coarse(c));
            if (index < 0) {
                index = nearest(palette, c);
            }
            data += static_cast<char>(index);
        }
        data.append(padding, '\0');
    }
    std::string colours;
    for (const Colour& c : palette) {
        colours += {static_cast<char>(c.b), static_cast<char>(c.g), static_cast<char>(c.r), '\0'};
    }
    return heads(picture, 8, 256, static_cast<std::uint32_t>(data.size())) + colours + data;
}

}  // namespace sample

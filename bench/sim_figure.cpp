#include "bench/sim_figure.h"

#include <algorithm>
#include <random>
#include <utility>
#include <vector>

namespace marlowick::bench {
namespace {

constexpr int kTexture = 256;
constexpr std::size_t kTexels = 65536;

}  // namespace

std::shared_ptr<const Texture> noise() {
    Texture texture{kTexture, kTexture, std::vector<std::uint32_t>(kTexels)};
    std::mt19937 random(1);
    std::generate(texture.pixels.begin(), texture.pixels.end(), [&] { return random() >> 8U; });
    return std::make_shared<const Texture>(std::move(texture));
}

FigurePart egg(std::uint32_t rings, std::uint32_t steps, const Vector& centre,
               const Vector& radii) {
    FigurePart part;
    for (std::uint32_t ring = 0; ring <= rings; ++ring) {
        for (std::uint32_t step = 0; step <= steps; ++step) {
            const float u = static_cast<float>(step) / static_cast<float>(steps);
            const float v = static_cast<float>(ring) / static_cast<float>(rings);
            const Vector out{sineOf(180 * v) * sineOf(360 * u), cosineOf(180 * v),
                             sineOf(180 * v) * cosineOf(360 * u)};
            const Vector place{out.x * radii.x, out.y * radii.y, out.z * radii.z};
            part.vertices.push_back({centre + place, out, u, v});
            if (ring < rings && step < steps) {
                const std::uint32_t first = ring * (steps + 1) + step;
                const std::uint32_t below = first + steps + 1;
                part.faces.push_back({first, first + 1, below});
                part.faces.push_back({first + 1, below + 1, below});
            }
        }
    }
    return part;
}

Figure simFigure() {
    FigurePart part = egg(25, 40, {}, {1, 3, 0.7F});
    part.texture = noise();
    return makeFigure({std::move(part)});
}

}  // namespace marlowick::bench

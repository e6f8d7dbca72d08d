#include "preview/figure.h"

#include <algorithm>
#include <limits>
#include <map>

namespace marlowick {
namespace {

constexpr std::size_t kSlices = 32;

struct Box {
    Vector low;
    Vector high;
};

template <class Visit>
void forEachCorner(const std::vector<FigurePart>& parts, const Visit& visit) {
    for (const FigurePart& part : parts) {
        for (const FigureFace& face : part.faces) {
            for (const std::uint32_t vertex : face) {
                visit(part.vertices[vertex].position);
            }
        }
    }
}

Box boxOf(const std::vector<FigurePart>& parts) {
    constexpr float kFar = std::numeric_limits<float>::max();
    Box box{{kFar, kFar, kFar}, {-kFar, -kFar, -kFar}};
    forEachCorner(parts, [&](const Vector& p) {
        box.low = {std::min(box.low.x, p.x), std::min(box.low.y, p.y), std::min(box.low.z, p.z)};
        box.high = {std::max(box.high.x, p.x), std::max(box.high.y, p.y),
                    std::max(box.high.z, p.z)};
    });
    return box;
}

FigureBounds boundsOf(const std::vector<FigurePart>& parts) {
    const Box box = boxOf(parts);
    FigureBounds bounds;
    if (box.low.x > box.high.x) {
        return bounds;
    }
    bounds.centre = (box.low + box.high) * 0.5F;
    // Of each slice of the figure the widest place, taken to be as high and as low as the slice is.
    struct Slice {
        float low = std::numeric_limits<float>::max();
        float high = std::numeric_limits<float>::lowest();
        float radius = 0;
    };
    std::vector<Slice> slices(kSlices);
    const float height = box.high.y - box.low.y;
    forEachCorner(parts, [&](const Vector& p) {
        const Vector d = p - bounds.centre;
        const float place = height > 0 ? (p.y - box.low.y) / height : 0;
        Slice& slice = slices[std::min(static_cast<std::size_t>(place * kSlices), kSlices - 1)];
        slice.low = std::min(slice.low, d.y);
        slice.high = std::max(slice.high, d.y);
        slice.radius = std::max(slice.radius, std::sqrt(d.x * d.x + d.z * d.z));
        bounds.size = std::max(bounds.size, length(d));
    });
    for (const Slice& slice : slices) {
        if (slice.low <= slice.high) {
            bounds.rings.push_back({slice.low, slice.radius});
            bounds.rings.push_back({slice.high, slice.radius});
        }
    }
    return bounds;
}

void makeLevels(std::vector<FigurePart>& parts) {
    std::map<const Texture*, std::shared_ptr<const TextureLevels>> made;
    for (FigurePart& part : parts) {
        std::shared_ptr<const TextureLevels>& levels = made[part.texture.get()];
        if (!levels) {
            levels = std::make_shared<const TextureLevels>(levelsOf(*part.texture));
        }
        part.levels = levels;
    }
}

}  // namespace

Figure makeFigure(std::vector<FigurePart> parts) {
    makeLevels(parts);
    FigureBounds bounds = boundsOf(parts);
    return {std::move(parts), std::move(bounds)};
}

}  // namespace marlowick

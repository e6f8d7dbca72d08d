#include "preview/pose.h"

#include <algorithm>
#include <cmath>
#include <string_view>

#include "system/game_text.h"

namespace marlowick {
namespace {

// A sim is six units high.
constexpr float kFarthest = 1000;
// A texture that repeats more often than that is drawn from its beginning.
constexpr float kMostRepeats = 1000;
constexpr float kWholeWeight = 32768;
constexpr std::string_view kNoParent = "NULL";

// The files' space is left-handed.
Vector mirrored(const Vector& stored) {
    return {-stored.x, stored.y, stored.z};
}

Quaternion mirrored(const Quaternion& stored) {
    return {stored.x, -stored.y, -stored.z, -stored.w};
}

std::optional<std::size_t> boneNamed(const Skeleton& skeleton, std::string_view name) {
    for (std::size_t i = 0; i < skeleton.bones.size(); ++i) {
        if (equalsIgnoringCase(skeleton.bones[i].name, name)) {
            return i;
        }
    }
    return std::nullopt;
}

// A vertex on its way: where its bone puts it, if that is known.
struct Posed {
    Vector position;
    Vector normal;
    bool isPlaced = false;
};

void placeRun(const Placement& place, const Mesh& mesh, std::size_t first, std::int32_t count,
              std::vector<Posed>& posed) {
    for (std::size_t i = first; i < first + static_cast<std::size_t>(count); ++i) {
        const MeshVertex& vertex = mesh.vertices[i];
        posed[i] = {place * mirrored(vertex.position), place.turn * mirrored(vertex.normal), true};
    }
}

std::vector<Posed> onBones(const Mesh& mesh, const Skeleton& skeleton,
                           const std::vector<std::optional<Placement>>& places) {
    std::vector<Posed> posed(mesh.vertices.size());
    const std::size_t reals = mesh.texturePoints.size();
    for (const MeshBinding& binding : mesh.bindings) {
        const std::optional<std::size_t> bone =
            boneNamed(skeleton, mesh.bones[static_cast<std::size_t>(binding.bone)]);
        if (!bone || !places[*bone]) {
            continue;
        }
        if (binding.reals > 0) {
            placeRun(*places[*bone], mesh, static_cast<std::size_t>(binding.firstReal),
                     binding.reals, posed);
        }
        if (binding.blended > 0) {
            placeRun(*places[*bone], mesh, reals + static_cast<std::size_t>(binding.firstBlended),
                     binding.blended, posed);
        }
    }
    return posed;
}

// Pulls the real vertices towards the blended ones behind them.
void blend(const Mesh& mesh, std::vector<Posed>& posed) {
    const std::size_t reals = mesh.texturePoints.size();
    for (std::size_t i = 0; i < mesh.blends.size(); ++i) {
        const float weight =
            std::clamp(static_cast<float>(mesh.blends[i].weight) / kWholeWeight, 0.0F, 1.0F);
        Posed& real = posed[static_cast<std::size_t>(mesh.blends[i].vertex)];
        const Posed& blended = posed[reals + i];
        real.position = real.position * (1 - weight) + blended.position * weight;
        real.normal = real.normal * (1 - weight) + blended.normal * weight;
        real.isPlaced = real.isPlaced && blended.isPlaced;
    }
}

bool isNear(const Vector& point) {
    // What is no number is not near either.
    return std::abs(point.x) <= kFarthest && std::abs(point.y) <= kFarthest &&
           std::abs(point.z) <= kFarthest;
}

float withinReason(float textureCoordinate) {
    return std::abs(textureCoordinate) <= kMostRepeats
               ? textureCoordinate
               : textureCoordinate - std::floor(textureCoordinate);
}

Vector direction(const Vector& normal) {
    const Vector result = unit(normal);
    return isNear(result) ? result : Vector{};
}

}  // namespace

std::vector<std::optional<Placement>> bonePlaces(const Skeleton& skeleton) {
    const std::size_t count = skeleton.bones.size();
    std::vector<std::optional<Placement>> places(count);
    // Each round places the bones whose parents have their place: those of a ring never do.
    bool hasMore = true;
    while (hasMore) {
        hasMore = false;
        for (std::size_t i = 0; i < count; ++i) {
            const Bone& bone = skeleton.bones[i];
            if (places[i]) {
                continue;
            }
            const Placement own{turnOf(mirrored(bone.rotation)), mirrored(bone.translation)};
            const std::optional<std::size_t> parent = boneNamed(skeleton, bone.parent);
            if (equalsIgnoringCase(bone.parent, kNoParent)) {
                places[i] = own;
            } else if (parent && places[*parent]) {
                places[i] = *places[*parent] * own;
            }
            hasMore = hasMore || places[i].has_value();
        }
    }
    return places;
}

FigurePart posedMesh(const Mesh& mesh, const Skeleton& skeleton,
                     const std::vector<std::optional<Placement>>& places) {
    std::vector<Posed> posed = onBones(mesh, skeleton, places);
    blend(mesh, posed);
    const std::size_t reals = mesh.texturePoints.size();
    FigurePart part;
    part.vertices.reserve(reals);
    for (std::size_t i = 0; i < reals; ++i) {
        posed[i].isPlaced = posed[i].isPlaced && isNear(posed[i].position);
        part.vertices.push_back({posed[i].position, direction(posed[i].normal),
                                 withinReason(mesh.texturePoints[i].u),
                                 withinReason(mesh.texturePoints[i].v)});
    }
    const auto isThere = [&](std::int32_t vertex) {
        return vertex >= 0 && static_cast<std::size_t>(vertex) < reals &&
               posed[static_cast<std::size_t>(vertex)].isPlaced;
    };
    for (const auto& [a, b, c] : mesh.faces) {
        if (isThere(a) && isThere(b) && isThere(c) && a != b && b != c && a != c) {
            part.faces.push_back({static_cast<std::uint32_t>(a), static_cast<std::uint32_t>(b),
                                  static_cast<std::uint32_t>(c)});
        }
    }
    return part;
}

}  // namespace marlowick

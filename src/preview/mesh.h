// A mesh in memory, the same from its binary form (.bmf) and from its text form (.skn).
// docs/file-formats.md draws both.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "preview/items.h"
#include "preview/vector.h"

namespace marlowick {

// As stored: left-handed, in the space of the bone that a binding names.
struct MeshVertex {
    Vector position;
    Vector normal;

    bool operator==(const MeshVertex&) const = default;
};

// Which vertices are told in the space of a bone of the mesh's own list. A first number means
// nothing where there are none.
struct MeshBinding {
    std::int32_t bone = 0;
    std::int32_t firstReal = 0;
    std::int32_t reals = 0;
    std::int32_t firstBlended = 0;  // counted from the first blended vertex
    std::int32_t blended = 0;

    bool operator==(const MeshBinding&) const = default;
};

// Pulls a real vertex towards the blended vertex of the same number as this record.
struct MeshBlend {
    std::int32_t weight = 0;  // of the blended vertex, in 1/32768
    std::int32_t vertex = 0;

    bool operator==(const MeshBlend&) const = default;
};

struct TexturePoint {
    float u = 0;  // from the left, 1 is the width of the picture
    float v = 0;  // from the top

    bool operator==(const TexturePoint&) const = default;
};

using MeshFace = std::array<std::int32_t, 3>;  // numbers of real vertices, from 0

struct Mesh {
    std::string name;
    std::string texture;
    std::vector<std::string> bones;
    std::vector<MeshFace> faces;
    std::vector<MeshBinding> bindings;
    std::vector<TexturePoint> texturePoints;  // one a real vertex
    std::vector<MeshBlend> blends;
    std::vector<MeshVertex> vertices;  // the real ones, then one a blend record

    bool operator==(const Mesh&) const = default;
};

// Of faces, and of vertices of all kinds.
inline constexpr std::int32_t kMostMeshRows = 65536;

// Reads a whole file; what follows the last vertex is ignored. Raises what the items raise, and 9
// where a count is below 0 or beyond the bounds, where there are fewer vertices than texture points
// and blend records say, or where a binding or a blend record names what isn't there. Faces aren't
// looked at.
Mesh readMesh(std::string_view bytes, FileForm form);

}  // namespace marlowick

#include "preview/mesh.h"

#include <algorithm>
#include <utility>

#include "preview/skeleton.h"
#include "system/runtime_error.h"

namespace marlowick {
namespace {

// One a bone is what there should be.
constexpr std::int32_t kMostBindings = 4 * kMostBones;

template <class Row, class Items, class Read>
void readRows(Items& items, std::vector<Row>& rows, std::int32_t most, const Read& read) {
    for (std::size_t count = readCount(items, most); count > 0; --count) {
        rows.push_back(read());
    }
}

template <class Items>
Mesh readItems(Items items) {
    Mesh mesh;
    mesh.name = items.text();
    mesh.texture = items.text();
    readRows(items, mesh.bones, kMostBones, [&] { return items.text(); });
    readRows(items, mesh.faces, kMostMeshRows, [&] {
        MeshFace face;
        for (std::int32_t& vertex : face) {
            vertex = items.number();
        }
        return face;
    });
    readRows(items, mesh.bindings, kMostBindings, [&] {
        MeshBinding binding;
        binding.bone = items.number();
        binding.firstReal = items.number();
        binding.reals = items.number();
        binding.firstBlended = items.number();
        binding.blended = items.number();
        return binding;
    });
    readRows(items, mesh.texturePoints, kMostMeshRows, [&] {
        TexturePoint point;
        point.u = items.real();
        point.v = items.real();
        return point;
    });
    readRows(items, mesh.blends, kMostMeshRows, [&] {
        MeshBlend blend;
        blend.weight = items.number();
        blend.vertex = items.number();
        return blend;
    });
    readRows(items, mesh.vertices, kMostMeshRows, [&] {
        MeshVertex vertex;
        vertex.position = readVector(items);
        vertex.normal = readVector(items);
        return vertex;
    });
    return mesh;
}

bool isIndex(std::int32_t number, std::size_t bound) {
    return number >= 0 && static_cast<std::size_t>(number) < bound;
}

bool areVerticesInRange(const Mesh& mesh) {
    return std::all_of(mesh.blends.begin(), mesh.blends.end(), [&](const MeshBlend& blend) {
        return isIndex(blend.vertex, mesh.texturePoints.size());
    });
}

void exchangeBlendItems(Mesh& mesh) {
    for (MeshBlend& blend : mesh.blends) {
        std::swap(blend.weight, blend.vertex);
    }
}

// A run of count things from first on, of bound things; of none it doesn't matter where.
bool isRun(std::int32_t first, std::int32_t count, std::size_t bound) {
    return count == 0 ||
           (isIndex(first, bound) && count > 0 &&
            static_cast<std::size_t>(count) <= bound - static_cast<std::size_t>(first));
}

bool isWhole(const Mesh& mesh) {
    return mesh.vertices.size() >= mesh.texturePoints.size() + mesh.blends.size() &&
           areVerticesInRange(mesh) &&
           std::all_of(mesh.bindings.begin(), mesh.bindings.end(), [&](const MeshBinding& binding) {
               return isIndex(binding.bone, mesh.bones.size()) &&
                      isRun(binding.firstReal, binding.reals, mesh.texturePoints.size()) &&
                      isRun(binding.firstBlended, binding.blended, mesh.blends.size());
           });
}

}  // namespace

Mesh readMesh(std::string_view bytes, FileForm form) {
    Mesh mesh =
        form == FileForm::Binary ? readItems(BinaryItems(bytes)) : readItems(TextItems(bytes));
    // Text that some tools wrote has the vertex first; what was turned into text out of a binary
    // mesh has the weight first, as that one always has.
    if (form == FileForm::Text) {
        exchangeBlendItems(mesh);
        if (!areVerticesInRange(mesh)) {
            exchangeBlendItems(mesh);
        }
    }
    if (!isWhole(mesh)) {
        throw RuntimeError(error::kSubscript);
    }
    return mesh;
}

}  // namespace marlowick

// Skeletons in both forms: whatever the bytes are, a skeleton is refused, or its bones have places
// and a mesh can be posed on them.
#include "preview/skeleton.h"

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "preview/mesh.h"
#include "preview/pose.h"
#include "preview/raster.h"
#include "system/runtime_error.h"

namespace {

using namespace marlowick;

// A triangle on each of the first bones.
Mesh meshOn(const Skeleton& skeleton) {
    Mesh mesh;
    for (const Bone& bone : skeleton.bones) {
        const auto number = static_cast<std::int32_t>(mesh.bones.size());
        const auto first = static_cast<std::int32_t>(mesh.vertices.size());
        mesh.bones.push_back(bone.name);
        mesh.bindings.push_back({number, first, 3, 0, 0});
        mesh.faces.push_back({first, first + 1, first + 2});
        for (const float x : {0.0F, 1.0F, 2.0F}) {
            mesh.vertices.push_back({{x, x * x, 0.5F}, {0, 0, 1}});
            mesh.texturePoints.push_back({x, 1 - x});
        }
    }
    return mesh;
}

void draw(const Skeleton& skeleton) {
    FigurePart part = posedMesh(meshOn(skeleton), skeleton, bonePlaces(skeleton));
    part.texture = std::make_shared<const Texture>(Texture{1, 1, {0xFFFFFF}});
    static Raster raster;
    raster.draw(makeFigure({std::move(part)}), {30, 10, 1}, 24, 24);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    for (const FileForm form : {FileForm::Text, FileForm::Binary}) {
        try {
            draw(readSkeletonFile(bytes, form));
        } catch (const RuntimeError&) {
        }
    }
    return 0;
}

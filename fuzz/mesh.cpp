// Meshes in both forms: whatever the bytes are, a mesh is refused, or it can be posed on a skeleton
// and drawn.
#include "preview/mesh.h"

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "preview/pose.h"
#include "preview/raster.h"
#include "preview/skeleton.h"
#include "system/runtime_error.h"

namespace {

using namespace marlowick;

// One that has every bone that the mesh asks for but the last.
Skeleton skeletonFor(const Mesh& mesh) {
    Skeleton skeleton;
    for (std::size_t i = 0; i + 1 < mesh.bones.size(); ++i) {
        Bone bone;
        bone.name = mesh.bones[i];
        bone.parent = i == 0 ? "NULL" : mesh.bones[i - 1];
        bone.translation = {0.1F, 0.5F, 0};
        bone.rotation = {0, 0.5F, 0, 0.8F};
        skeleton.bones.push_back(bone);
    }
    return skeleton;
}

void draw(const Mesh& mesh) {
    const Skeleton skeleton = skeletonFor(mesh);
    FigurePart part = posedMesh(mesh, skeleton, bonePlaces(skeleton));
    part.texture = std::make_shared<const Texture>(Texture{2, 2, {0, 0xFF, 0xFF00, 0xFF0000}});
    static Raster raster;
    raster.draw(makeFigure({std::move(part)}), {200, -20, 2}, 32, 24);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    for (const FileForm form : {FileForm::Text, FileForm::Binary}) {
        try {
            draw(readMesh(bytes, form));
        } catch (const RuntimeError&) {
        }
    }
    return 0;
}

#include "preview/skeleton.h"

#include <utility>

#include "system/runtime_error.h"

namespace marlowick {
namespace {

// The game's files hold one.
constexpr std::int32_t kMostSkeletons = 64;
constexpr int kBoneFlags = 3;
constexpr int kBoneFloats = 2;

template <class Items>
Bone readBone(Items& items) {
    Bone bone;
    bone.name = items.text();
    bone.parent = items.text();
    skipProperties(items);
    bone.translation = readVector(items);
    const Vector axis = readVector(items);
    bone.rotation = {axis.x, axis.y, axis.z, items.real()};
    for (int i = 0; i < kBoneFlags; ++i) {
        items.number();
    }
    for (int i = 0; i < kBoneFloats; ++i) {
        items.real();
    }
    return bone;
}

template <class Items>
Skeleton readSkeleton(Items& items) {
    Skeleton skeleton;
    skeleton.name = items.text();
    for (std::size_t count = readCount(items, kMostBones); count > 0; --count) {
        skeleton.bones.push_back(readBone(items));
    }
    return skeleton;
}

template <class Items>
std::vector<Skeleton> readAll(Items& items) {
    items.skipVersion();
    std::vector<Skeleton> skeletons;
    for (std::size_t count = readCount(items, kMostSkeletons); count > 0; --count) {
        skeletons.push_back(readSkeleton(items));
    }
    return skeletons;
}

template <class Items>
Skeleton readFirst(Items items) {
    std::vector<Skeleton> skeletons = readSkeletons(items);
    if (skeletons.empty()) {
        throw RuntimeError(error::kSubscript);
    }
    return std::move(skeletons.front());
}

}  // namespace

std::vector<Skeleton> readSkeletons(BinaryItems& items) {
    return readAll(items);
}

std::vector<Skeleton> readSkeletons(TextItems& items) {
    return readAll(items);
}

Skeleton readSkeletonFile(std::string_view bytes, FileForm form) {
    return form == FileForm::Binary ? readFirst(BinaryItems(bytes)) : readFirst(TextItems(bytes));
}

}  // namespace marlowick

// A skeleton: bones that hang on one another. Its files hold suits too, see suit.h.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "preview/items.h"
#include "preview/vector.h"

namespace marlowick {

// As stored: left-handed, y up, the place and the turn told in the parent's space.
struct Bone {
    std::string name;
    std::string parent;  // "NULL" for the root
    Vector translation;
    Quaternion rotation;

    bool operator==(const Bone&) const = default;
};

struct Skeleton {
    std::string name;
    std::vector<Bone> bones;

    bool operator==(const Skeleton&) const = default;
};

inline constexpr std::int32_t kMostBones = 64;

// The skeletons that such a file begins with. 9 for more bones than a skeleton may have or a count
// below 0, else as the items.
std::vector<Skeleton> readSkeletons(BinaryItems& items);
std::vector<Skeleton> readSkeletons(TextItems& items);

// The first skeleton of a whole file; 9 if it holds none.
Skeleton readSkeletonFile(std::string_view bytes, FileForm form);

}  // namespace marlowick

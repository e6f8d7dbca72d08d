// The skeletons of the sample game, and solids put on them as the game stores them.
#pragma once

#include <string>
#include <vector>

#include "meshes.h"
#include "solid.h"

namespace sample {

struct Quaternion {
    double x = 0, y = 0, z = 0, w = 1;
};

struct Bone {
    std::string name;
    int parent = -1;  // its number, from 0; -1 for the root
    Point3 place;     // in space
    Quaternion turn;  // in space
};

struct Skeleton {
    std::string name;
    std::vector<Bone> bones;

    int bone(const std::string& name) const;
};

// A unit of the drawings (canvas.h) in space, and the height of the floor in them.
double personUnit(bool child);
inline constexpr double kPersonFloor = 99;
inline constexpr double kPetUnit = 0.05;
inline constexpr double kPetFloor = 94;

Skeleton personSkeleton(bool child);
Skeleton petSkeleton(bool dog);

// The two forms of a file with this skeleton alone.
std::string skeletonCmx(const Skeleton& skeleton);
std::string skeletonBcf(const Skeleton& skeleton);

// The solid as a mesh of that name, in the spaces of the skeleton's bones.
MeshRows onSkeleton(const Solid& solid, const Skeleton& skeleton, const std::string& name,
                    const std::string& texture);

}  // namespace sample

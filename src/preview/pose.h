// Puts a mesh on a skeleton: bones to places in space, vertices to those places.
#pragma once

#include <optional>
#include <vector>

#include "preview/figure.h"
#include "preview/mesh.h"
#include "preview/skeleton.h"
#include "preview/vector.h"

namespace marlowick {

// Where each bone is, turned from the left-handed space of the files into the figure's; nothing for
// a bone whose parents lead nowhere or round in a ring. Of bones with one name the first counts as
// the parent.
std::vector<std::optional<Placement>> bonePlaces(const Skeleton& skeleton);

// The mesh where its bones are, without a texture. A face is left out if one of its vertices isn't
// there, lies on a bone that the skeleton lacks or out of all reason far away, or if two of them
// are one.
FigurePart posedMesh(const Mesh& mesh, const Skeleton& skeleton,
                     const std::vector<std::optional<Placement>>& places);

}  // namespace marlowick

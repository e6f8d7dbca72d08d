// What is drawn: meshes in one space, each with its picture. That space is right-handed with y up;
// a sim stands in it facing +z, its own left at +x.
#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <vector>

#include "preview/texture_levels.h"
#include "preview/vector.h"

namespace marlowick {

// A decoded bitmap, rows from the top, without gaps; each pixel is 0xXXRRGGBB.
struct Texture {
    int width = 0;
    int height = 0;
    std::vector<std::uint32_t> pixels;
};

struct FigureVertex {
    Vector position;
    Vector normal;  // of length 1, or zero where the mesh has none
    float u = 0;    // 0 to 1 is the width of the texture; it repeats beyond
    float v = 0;    // from the top
};

// Three numbers of vertices, from 0; clockwise seen from outside.
using FigureFace = std::array<std::uint32_t, 3>;

struct FigurePart {
    std::vector<FigureVertex> vertices;
    std::vector<FigureFace> faces;
    std::shared_ptr<const Texture> texture;            // never nullptr, never empty
    std::shared_ptr<const TextureLevels> levels = {};  // of the texture, by makeFigure
};

// The room that a figure takes while it turns about its upright axis: rings about that axis, so
// that framing them all frames the figure whatever way it faces.
struct FigureBounds {
    struct Ring {
        float height = 0;  // above the centre
        float radius = 0;
    };
    Vector centre;
    float size = 0;  // no vertex lies further from the centre
    std::vector<Ring> rings;
};

struct Figure {
    std::vector<FigurePart> parts;
    FigureBounds bounds;  // of all vertices that a face uses
};

// Puts parts together, and makes what is drawn of their textures; parts with one texture share it.
Figure makeFigure(std::vector<FigurePart> parts);

}  // namespace marlowick

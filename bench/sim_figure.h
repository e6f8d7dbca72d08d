// A figure to draw: as many faces as a dressed sim has, and about its outline.
#pragma once

#include <cstdint>
#include <memory>

#include "preview/figure.h"
#include "preview/vector.h"

namespace marlowick::bench {

// The side of the picture that it is drawn on, in pixels.
inline constexpr int kFrame = 320;

// 256 by 256 pixels, none like the one beside it.
std::shared_ptr<const Texture> noise();

// An upright egg of 2 * rings * steps faces, without a texture.
FigurePart egg(std::uint32_t rings, std::uint32_t steps, const Vector& centre, const Vector& radii);

// Of 2,000 faces, as high and as wide as a standing sim with its arms.
Figure simFigure();

}  // namespace marlowick::bench

// Bitmap files: 24 bits a pixel, or 8 bits with a palette of the picture's own.
#pragma once

#include <string>

#include "canvas.h"

namespace sample {

std::string bitmap24(const Picture& picture);
std::string bitmap8(const Picture& picture);

}  // namespace sample

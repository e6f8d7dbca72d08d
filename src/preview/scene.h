// Finds and reads what is worn, in memory, and puts it together as a figure to be drawn. No scratch
// file is touched and nothing on the disk changes.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "preview/figure.h"
#include "preview/worn.h"
#include "system/kept_files.h"
#include "system/path.h"

namespace marlowick {

// Decodes a bitmap file's bytes, as the flat picture does; nothing if it can't. What it raises
// counts as that too.
using DecodeBitmap = std::function<std::optional<Texture>(const std::string& bytes)>;

enum class NoFigure {
    NotWorn,     // there are no clothes
    NoSkeleton,  // none of this kind, or a damaged one
    NoBody,      // no such suit or no mesh of it, or a damaged one
    NoSkin,      // no such bitmap, or one that can't be decoded
};

struct Scene {
    std::shared_ptr<const Figure> figure;  // nullptr if there is none to show
    NoFigure why = NoFigure::NotWorn;      // where there is none
    bool hasHead = false;
    bool hasLeftHand = false;
    bool hasRightHand = false;
};

// The figure of what is worn; worn is nothing where there are no clothes. The body's bitmap is
// skin, the one that a flat picture shows, or, for nullptr, the one that it would show. A head, a
// hand or a further part of the body that is missing or damaged is left out alone. Quiet: no
// failure is reported to anyone.
Scene makeScene(const std::optional<Worn>& worn, std::shared_ptr<const Texture> skin,
                const DecodeBitmap& decode, KeptFiles& kept = keptFiles());

}  // namespace marlowick

// The archives that the game and its expansion packs keep skins and models in. Each
// search goes through them in an order of its own.
#pragma once

#include <vector>

#include "system/path.h"

namespace marlowick {

// One stage of a search.
enum class ArchiveStage {
    Animation,       // "\GameData\Animation\Animation.far"
    BaseTextures,    // "\GameData\Textures\Textures.far"
    AllTextures,     // every "\GameData\Textures\*.far", in the order of the listing
    FirstExpansion,  // "\ExpansionPack\ExpansionPack.far"
    Expansions,      // "\ExpansionPackN\ExpansionPackN.far", N from 2 up
    Shared,          // "\ExpansionShared\ExpansionShared.far"
};

// The archives that exist, under SimsPath, stage by stage. lastExpansion is the highest N.
std::vector<Path> existingArchives(const std::vector<ArchiveStage>& stages, int lastExpansion);

// The highest expansion pack that the catalogue of models and the mesh search know, and the
// highest that skins are looked for in.
inline constexpr int kLastModelExpansion = 9;
inline constexpr int kLastSkinExpansion = 13;

}  // namespace marlowick

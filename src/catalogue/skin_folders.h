// The folders that loose skins lie in, below the game's own, in the order in which they are
// searched.
#pragma once

#include <string_view>

namespace marlowick {

inline constexpr std::string_view kGameSkins = "\\gamedata\\skins\\";
inline constexpr std::string_view kExpansion3Skins = "\\ExpansionPack3\\SkinsBuy\\";
inline constexpr std::string_view kSharedSkins = "\\ExpansionShared\\SkinsBuy\\";
inline constexpr std::string_view kSkinFolders[] = {kGameSkins, kExpansion3Skins, kSharedSkins};

}  // namespace marlowick

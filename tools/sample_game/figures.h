// What sims and pets are made of: skeletons, bodies, heads and hands, loose and in archives, as
// text and binary.
#pragma once

#include <string>
#include <vector>

#include "archives.h"
#include "bytes.h"
#include "meshes.h"

namespace sample {

// The mesh that the suit of a model ("s100fafit_original", "nffit_01", "b001dog_01") names. Models
// of one shape and cut share theirs; home tells those of several archives apart.
std::string bodyMeshName(const std::string& model, const std::string& home);
MeshRows bodyMesh(const std::string& model, const std::string& meshName);

// The name of a head's suit, by its number (1 to 3), gender and age ("fa"): "c001fa_face".
std::string headName(int number, const std::string& genderAge);
inline constexpr int kHeads = 3;

// What lies loose: the child's skeleton, some heads and hands, the skins of all heads, and two
// bodies that can't be drawn.
void writeLooseFigures(const fs::path& skins);

// What an archive has beside bodies, by its name: "Animation", "ExpansionPack2", "ExpansionShared".
std::vector<ArchiveEntry> figureEntries(const std::string& archive);

}  // namespace sample

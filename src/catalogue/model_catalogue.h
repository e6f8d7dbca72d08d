// The body models that may be worn: those that the game's archives bring, read
// once at start, and those that lie as ".cmx" files in the skins folders.
// Names are game texts.
#pragma once

#include <string>
#include <string_view>

#include "foundation/list.h"

namespace marlowick {

// The models of the archives, upper case, in the order in which they were met. A name in two
// archives stands twice.
inline List<std::string> CatalogueFA;   // women
inline List<std::string> CatalogueMA;   // men
inline List<std::string> CatalogueFC;   // girls
inline List<std::string> CatalogueMC;   // boys
inline List<std::string> CatalogueUC;   // children of either gender
inline List<std::string> CatalogueDog;  // dogs
inline List<std::string> CatalogueCat;  // cats

// Empties the seven lists.
void resetModelCatalogue();

// Fills the seven lists from the archives under SimsPath. An archive that is missing is skipped,
// one that can't be read is reported by gsReadFARdir and counts as far as it was read.
void gsBuildModelCatalogue();

// Appends an upper-case name to the list of its gender and age code, or of its species; drops a
// name with any other.
void gsAddPersonModel(std::string_view name);
void gsAddPetModel(std::string_view name);

// Rebuilds models for a request to the skin chooser ("falgtfitB"; "Dog" or "Cat"): the catalogue's
// models that fit, then those of the folders that aren't listed yet. Raises 6 past 32767 models;
// models then holds what was found until then.
void listPersonModels(std::string_view skinData, List<std::string>& models);
void listPetModels(std::string_view skinData, List<std::string>& models);

}  // namespace marlowick

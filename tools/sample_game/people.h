// The sims and pets of the sample game and what their files hold.
#pragma once

#include <string>
#include <vector>

#include "bytes.h"
#include "drawings.h"
#include "user_file.h"

namespace sample {

struct Sim {
    int number = 0;    // of the file: User00012.iff
    std::string name;  // game text
    std::string age = "adult";
    bool female = false;
    Body body = Body::Fit;
    Tone tone = Tone::Light;
    int rows = 35;  // of the wardrobe table: the generation
    Look look;
};

// The sim that stands at a place in a neighbourhood, from 0.
Sim makeSim(int place, Random& random);

// The wardrobe rows that the game would give such a sim; row n is element n - 1.
std::vector<std::string> wardrobeRows(const Sim& sim);
// The same for a pet; species is "dog" or "kat" (row 1), kind "dog" or "cat" (row 13).
std::vector<std::string> petRows(bool dog, bool female, unsigned coat);

// The segments of a file: object, names, wardrobe, behaviour, pictures.
std::vector<Segment> simSegments(const Sim& sim, const std::vector<std::string>& rows);
std::vector<Segment> petSegments(int number, const std::string& name, bool dog, unsigned coat,
                                 const std::vector<std::string>& rows);

// Upper and lower case of the name vary from file to file.
std::string userFileName(int number);

// Writes all neighbourhoods of a classic game into its folder.
void writeNeighbourhoods(const fs::path& game, int sims, std::uint64_t seed);

// Those of a Legacy game: templates in its install folder, of which every sim bears the family name
// "Template", and a player's own among the saves. "UserData4" is a template alone, "UserData8" a
// player's alone; the others are those of a classic game.
void writeTemplates(const fs::path& install, int sims, std::uint64_t seed);
void writeSaves(const fs::path& saves, int sims, std::uint64_t seed);

}  // namespace sample

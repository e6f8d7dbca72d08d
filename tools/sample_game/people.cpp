#include "people.h"

#include <array>
#include <cstdio>

#include "bitmap.h"
#include "figures.h"

namespace sample {
namespace {

const std::array<const char*, 24> kWomen = {"Mara",
                                            "Ilse",
                                            "Noor",
                                            "Beatriz",
                                            "Wanda",
                                            "Zo\xEB",
                                            "Petra",
                                            "Agnes",
                                            "Lucinda",
                                            "Hana",
                                            "Odette",
                                            "Fleur",
                                            "Tilda",
                                            "Ren\xE9"
                                            "e",
                                            "Sabine",
                                            "Yara",
                                            "Coral",
                                            "Greta",
                                            "Nell",
                                            "Amira",
                                            "Pilar",
                                            "Dagny",
                                            "Ines",
                                            "Ruth"};
const std::array<const char*, 24> kMen = {
    "Otto",    "Bj\xF6rn", "Casper", "Diego", "Emil", "Felix",  "Gustav",   "Hugo",
    "Ivo",     "Jonas",    "Karim",  "Luc",   "Milo", "Nils",   "Andr\xE9", "Pavel",
    "Quentin", "Rafael",   "Stijn",  "Theo",  "Umar", "Viktor", "Wim",      "Yann"};
const std::array<const char*, 20> kFamilies = {"Quill",
                                               "Harrow",
                                               "Nu\xF1"
                                               "ez",
                                               "Fairbank",
                                               "Okafor",
                                               "Lindqvist",
                                               "Marsh",
                                               "Pettibone",
                                               "Castell",
                                               "M\xFCller",
                                               "Drummond",
                                               "Sorrel",
                                               "Vance",
                                               "Tremaine",
                                               "Ashdown",
                                               "Bramble",
                                               "Kestrel",
                                               "Larkin",
                                               "Hollis",
                                               "Wexford"};
const std::array<const char*, 6> kPets = {"Biscuit", "Pepper", "Sir Barksalot",
                                          "Mittens", "Soot",   "Duchess"};

const char* bodyCode(Body body) {
    switch (body) {
        case Body::Fat:
            return "fat";
        case Body::Skinny:
            return "skn";
        case Body::Child:
            return "chd";
        case Body::Fit:
            break;
    }
    return "fit";
}

std::string genderAge(const Sim& sim) {
    return std::string(sim.female ? "f" : "m") + (sim.body == Body::Child ? "c" : "a");
}

// "b001fafit_01,BODY=b001fafitlgt_01"
std::string outfit(const Sim& sim, const std::string& stem, const std::string& variant) {
    const std::string body = stem + genderAge(sim) + bodyCode(sim.body);
    return body + "_" + variant + ",BODY=" + body + toneCode(sim.tone) + "_" + variant;
}

std::string handRow(const Sim& sim, const char* sideAndPose, const char* pose) {
    const char* kind = sim.body == Body::Child ? "Hu" : (sim.female ? "Hf" : "Hm");
    return std::string(kind) + sideAndPose + ",HAND=hua" + pose + toneCode(sim.tone);
}

std::string firstSwimsuit(const Sim& sim) {
    const std::string g = sim.female ? "f" : "m";
    const std::string b = bodyCode(sim.body);
    if (sim.body == Body::Child) {
        return "nuchd_01,BODY=u" + g + "chd" + toneCode(sim.tone) + "_undies01";
    }
    return "n" + g + b + "_01,BODY=u" + g + b + toneCode(sim.tone) + "_undies01";
}

std::string firstFormal(const Sim& sim) {
    const std::string stem = std::string(sim.female ? "ff" : "fm") + bodyCode(sim.body);
    return stem + "_01,BODY=" + stem + toneCode(sim.tone) + "_01";
}

std::string webImage(const Picture& picture, int number) {
    return number % 3 == 0 ? bitmap24(picture) : bitmap8(picture);
}

std::string objectData() {
    return std::string(200, '\x2A') + "object definition";
}

std::string nameTable(const std::string& name) {
    return stringTable({name, "A sim of the sample game."}, {});
}

std::string makeName(int place, bool female) {
    const auto first = static_cast<std::size_t>(place / 2) % kMen.size();
    const auto family = static_cast<std::size_t>(place * 7 / 3) % kFamilies.size();
    return std::string(female ? kWomen.at(first) : kMen.at(first)) + " " + kFamilies.at(family);
}

}  // namespace

Sim makeSim(int place, Random& random) {
    static constexpr int kGenerations[] = {35, 36, 35, 34, 35, 33, 31, 30};
    static constexpr Body kBodies[] = {Body::Fit, Body::Fit, Body::Fat, Body::Skinny};
    Sim sim;
    sim.number = place + 1;
    sim.female = place % 2 == 0;
    sim.name = makeName(place, sim.female);
    sim.tone = kTones[random.below(3)];
    const bool child = place % 5 == 3;
    sim.age = child ? "child" : "adult";
    sim.body = child ? Body::Child : kBodies[random.below(4)];
    sim.rows = kGenerations[place % 8];
    if (sim.rows == 31 && !child) {
        sim.rows = 33;  // an adult of this generation has all three of its rows
    }
    sim.look = {sim.tone,        sim.female,      child,           random.below(12),
                random.below(6), random.below(4), random.below(8), random.below(6)};
    return sim;
}

std::vector<std::string> wardrobeRows(const Sim& sim) {
    std::vector<std::string> rows;
    for (int row = 1; row <= sim.rows; ++row) {
        rows.push_back("game row " + std::to_string(row));
    }
    const auto put = [&](std::size_t row, const std::string& text) {
        if (row <= rows.size()) {
            rows[row - 1] = text;
        }
    };
    const bool child = sim.body == Body::Child;
    const std::string head = headName(sim.number % kHeads + 1, genderAge(sim));
    std::string face = head;
    face.insert(face.find('_'), toneCode(sim.tone));
    put(1, sim.age);
    put(2, outfit(sim, "b00" + std::to_string(sim.number % 3 + 1), "01"));
    put(3, head + ",HEAD=" + face);
    put(13, sim.female ? "female" : "male");
    put(15, toneCode(sim.tone));
    put(16, outfit(sim, "n100", "original"));
    put(17, firstSwimsuit(sim));
    put(18, handRow(sim, "LO", "o"));
    put(19, handRow(sim, "RO", "o"));
    put(20, handRow(sim, "LP", "p"));
    put(21, handRow(sim, "RP", "p"));
    put(22, handRow(sim, "LC", "c"));
    put(23, handRow(sim, "RC", "c"));
    put(28, child ? "" : firstFormal(sim));
    put(29, sim.female && !child ? "HfLO,HAND=gfao_bride" : "");
    put(30, sim.female && !child ? "HfRO,HAND=gfao_bride" : "");
    const bool later = sim.rows > 33;
    // Every other sim has chosen something of its own.
    const bool own = sim.number % 2 == 1;
    const std::string model = own ? "201" : "100";
    const std::string variant = own ? "evening" : "original";
    put(31, child ? (later ? "ADDED" : "") : outfit(sim, "f" + model, variant));
    put(32, child && !later ? "" : outfit(sim, "s" + model, variant));
    put(33, child && !later ? "" : outfit(sim, "l" + model, variant));
    put(34, outfit(sim, "w100", "original"));
    put(35, child ? "ADDED" : outfit(sim, "h100", "original"));
    return rows;
}

std::vector<std::string> petRows(bool dog, bool female, unsigned coat) {
    std::vector<std::string> rows(35, "game row");
    const std::string stem = "b00" + std::to_string(coat % 3 + 1) + (dog ? "dog" : "cat");
    rows[0] = dog ? "dog" : "kat";
    rows[1] = stem + "_01,BODY=" + stem + "_coat" + std::to_string(coat % 5 + 1) + ";collar";
    rows[2] = "NONE";
    rows[12] = std::string(dog ? "dog" : "cat") + (female ? "female" : "male");
    rows[14] = "lgt";
    return rows;
}

std::vector<Segment> simSegments(const Sim& sim, const std::vector<std::string>& rows) {
    char label[24];
    std::snprintf(label, sizeof label, "user%05d - ", sim.number);
    return {
        {"OBJD", 128, 0x0010, label + sim.name, objectData()},
        {"CTSS", 2000, 0x0010, "", nameTable(sim.name)},
        {"STR#", 200, 0x0010, "a2o skins", stringTable(rows, "")},
        {"STR#", 304, 0x0010, "moods", stringTable({"glad", "calm", "cross"}, "")},
        {"BHAV", 4096, 0x0010, "main", std::string("\x00\x80\x05\x00", 4) + "steps"},
        {"BMP_", 2001, 0x0010, "web_image", webImage(portrait(sim.look), sim.number)},
        {"BMP_", 2002, 0x0010, "faces", bitmap8(faceStrip(sim.look))},
        {"BMP_", 2003, 0x0010, "relimages", bitmap8(relationshipStrip(sim.look))},
        {"TREE", 128, 0x0010, "tree table of the sim", std::string(37, '\x11')},
    };
}

std::vector<Segment> petSegments(int number, const std::string& name, bool dog, unsigned coat,
                                 const std::vector<std::string>& rows) {
    char label[24];
    std::snprintf(label, sizeof label, "User%05d - ", number);
    return {
        {"OBJD", 128, 0x0010, label + name, objectData()},
        {"CTSS", 2000, 0x0010, "", nameTable(name)},
        {"STR#", 200, 0x0010, "a2o skins", stringTable(rows, "tail of the table")},
        {"BMP_", 2001, 0x0010, "web_image", bitmap24(pet(dog, coat, 45))},
        {"BMP_", 2002, 0x0010, "faces", bitmap8(pet(dog, coat, 45))},
    };
}

std::string userFileName(int number) {
    static constexpr const char* kForms[] = {"user%05d.iff", "User%05d.iff", "USER%05d.IFF"};
    char name[24];
    std::snprintf(name, sizeof name, kForms[number % 3], number);
    return name;
}

namespace {

// What is odd about a file of the first neighbourhood, by its number.
struct Quirk {
    int number;
    const char* what;
    void (*apply)(Sim& sim, std::vector<std::string>& rows, std::vector<Segment>& segments,
                  MapPlace& place);
};

using Rows = std::vector<std::string>;
using Segments = std::vector<Segment>;

void dropType(Segments& segments, const std::string& type, const std::string& label) {
    std::erase_if(segments, [&](const Segment& s) { return s.type == type && s.label == label; });
}

void makeAdult(Sim& sim, bool female, Body body, int generation, Rows& rows) {
    sim.age = "adult";
    sim.female = female;
    sim.body = body;
    sim.rows = generation;
    sim.look.female = female;
    sim.look.child = false;
    rows = wardrobeRows(sim);
}

// The quirks below change the sim and its rows first; the segments are made from them and then
// passed to a second call, so each looks at which of the two it was given.
const Quirk kQuirks[] = {
    {5, "row 2 has a tail behind \";\"",
     [](Sim&, Rows& rows, Segments& s, MapPlace&) {
         if (s.empty()) {
             rows[1] += ";extra=kept by the game";
         }
     }},
    {7, "the map lies in the middle of the file",
     [](Sim&, Rows&, Segments&, MapPlace& place) { place = MapPlace::Middle; }},
    {9, "map labels that end in 0xA3",
     [](Sim&, Rows&, Segments& s, MapPlace&) {
         for (std::size_t i = 0; i < s.size(); i += 2) {
             s[i].labelEnd = '\xA3';
         }
     }},
    {11, "no map", [](Sim&, Rows&, Segments&, MapPlace& place) { place = MapPlace::None; }},
    {13, "no map, and \"0000\" in its place",
     [](Sim&, Rows&, Segments&, MapPlace& place) { place = MapPlace::NoneAsText; }},
    {15, "segments of types that nobody knows",
     [](Sim&, Rows&, Segments& s, MapPlace&) {
         if (!s.empty()) {
             s.insert(s.begin() + 1, {"XyZ?", 7, 0x0123, "odd label", std::string(5, '\xFF')});
             s.push_back({"zero", 0, 0, "", ""});
         }
     }},
    {17, "no name table", [](Sim&, Rows&, Segments& s, MapPlace&) { dropType(s, "CTSS", ""); }},
    {19, "no web image",
     [](Sim&, Rows&, Segments& s, MapPlace&) { dropType(s, "BMP_", "web_image"); }},
    {21, "a skinny woman in fit formal wear and pajamas",
     [](Sim& sim, Rows& rows, Segments& s, MapPlace&) {
         if (s.empty()) {
             makeAdult(sim, true, Body::Skinny, 33, rows);
             Sim fit = sim;
             fit.body = Body::Fit;
             rows[30] = outfit(fit, "f100", "original");
             rows[32] = outfit(fit, "l100", "original");
         }
     }},
    {22, "a skinny man in a fit swimsuit",
     [](Sim& sim, Rows& rows, Segments& s, MapPlace&) {
         if (s.empty()) {
             makeAdult(sim, false, Body::Skinny, 35, rows);
             Sim fit = sim;
             fit.body = Body::Fit;
             rows[31] = outfit(fit, "s100", "original");
         }
     }},
    {24, "a man with pink formal hands",
     [](Sim& sim, Rows& rows, Segments& s, MapPlace&) {
         if (s.empty()) {
             makeAdult(sim, false, Body::Fit, 34, rows);
             rows[28] = "HmLO,HAND=guao_pinkg";
             rows[29] = "HmRO,HAND=guao_pinkg";
         }
     }},
    {25, "a woman with pink formal hands",
     [](Sim& sim, Rows& rows, Segments& s, MapPlace&) {
         if (s.empty()) {
             makeAdult(sim, true, Body::Fat, 34, rows);
             rows[28] = "HfLO,HAND=guao_pinkg";
             rows[29] = "HfRO,HAND=guao_pinkg";
         }
     }},
    {27, "a swimsuit and hands whose skins are nowhere",
     [](Sim& sim, Rows& rows, Segments& s, MapPlace&) {
         if (s.empty()) {
             makeAdult(sim, true, Body::Fit, 35, rows);
             rows[31] = "s777fafit_lost,BODY=s777fafitlgt_lost";
             rows[21] = "HfLC,HAND=lost_hand";
         }
     }},
    {29, "outfits that lie in archives alone",
     [](Sim& sim, Rows& rows, Segments& s, MapPlace&) {
         if (s.empty()) {
             sim.tone = Tone::Light;
             makeAdult(sim, true, Body::Fit, 35, rows);
             rows[1] = "b201fafit_pack,BODY=b201fafitlgt_packed";
         }
     }},
};

std::string simFile(Sim sim, int number) {
    Rows rows = wardrobeRows(sim);
    Segments segments;
    MapPlace place = MapPlace::End;
    for (const Quirk& quirk : kQuirks) {
        if (quirk.number == number) {
            quirk.apply(sim, rows, segments, place);
        }
    }
    segments = simSegments(sim, rows);
    for (const Quirk& quirk : kQuirks) {
        if (quirk.number == number) {
            quirk.apply(sim, rows, segments, place);
        }
    }
    return userFile(segments, place);
}

std::string withBadSize(std::string file) {
    return file.replace(64 + 4, 4, big32(75));
}

std::string withHugeMapCount(std::string file) {
    const std::size_t map = file.find("rsmp");
    return file.replace(map + 100, 4, little32(1001));
}

std::string cutInMapLabel(const std::string& file) {
    const std::size_t map = file.find("rsmp");
    return file.substr(0, map + 96 + 8 + 8 + 3);
}

// Files that can't be read, by their number.
std::string damaged(const std::string& file, int number) {
    switch (number) {
        case 34:
            return withBadSize(file);
        case 47:
            return withHugeMapCount(file);
        case 55:
            return cutInMapLabel(file);
        default:
            return file;
    }
}

// A neighbourhood: its folder of characters, what its sims are drawn by, and the family name that
// all of them bear, if they don't have their own.
struct Town {
    fs::path characters;
    std::uint64_t seed;
    std::string family;
};

std::string nameIn(const Town& town, const std::string& name) {
    return town.family.empty() ? name : name.substr(0, name.find(' ')) + " " + town.family;
}

Sim simOf(const Town& town, int place, Random& random) {
    Sim sim = makeSim(place, random);
    sim.name = nameIn(town, sim.name);
    return sim;
}

void writeMainNeighbourhood(const Town& town, int sims) {
    // A large neighbourhood repeats the pictures of its first sims.
    constexpr int kDrawn = 128;
    Random random(town.seed);
    std::vector<std::string> drawn;
    for (int place = 0; place < sims; ++place) {
        const int number = place + 1;
        const fs::path file = town.characters / userFileName(number);
        if (place < kDrawn) {
            drawn.push_back(simFile(simOf(town, place, random), number));
            writeFile(file, damaged(drawn.back(), number));
        } else {
            writeFile(file, drawn[static_cast<std::size_t>(place % kDrawn)]);
        }
    }
}

void writeSims(const Town& town, int count, int firstPlace) {
    Random random(town.seed);
    for (int i = 0; i < count; ++i) {
        Sim sim = simOf(town, firstPlace + i, random);
        sim.number = i + 1;
        writeFile(town.characters / userFileName(sim.number),
                  userFile(simSegments(sim, wardrobeRows(sim)), MapPlace::End));
    }
}

void writePetNeighbourhood(const Town& town) {
    writeSims(town, 12, 70);
    for (unsigned i = 0; i < kPets.size(); ++i) {
        const bool dog = i < 3;
        const int number = 13 + static_cast<int>(i);
        writeFile(town.characters / userFileName(number),
                  userFile(petSegments(number, nameIn(town, kPets.at(i)), dog, i,
                                       petRows(dog, i % 2 == 1, i)),
                           MapPlace::End));
    }
}

// Files that the program reads but can't show; a good one comes first.
void writeTrapNeighbourhood(const Town& town) {
    Random random(town.seed);
    Sim sim = simOf(town, 0, random);
    writeFile(town.characters / userFileName(1),
              userFile(simSegments(sim, wardrobeRows(sim)), MapPlace::End));
    Rows few = wardrobeRows(sim);
    few.resize(20);
    writeFile(town.characters / userFileName(2), userFile(simSegments(sim, few), MapPlace::End));
    Rows unsplittable = wardrobeRows(sim);
    unsplittable[15] = "no comma in this row";
    writeFile(town.characters / userFileName(3),
              userFile(simSegments(sim, unsplittable), MapPlace::End));
    writeFile(
        town.characters / userFileName(4),
        userFile({{"OBJD", 1, 0x0010, nameIn(town, "a chair"), objectData()}}, MapPlace::End));
}

// The first three, which every game of this maker has.
void writeTowns(const fs::path& folder, int sims, std::uint64_t seed, const std::string& family) {
    writeMainNeighbourhood({folder / "UserData" / "Characters", seed, family}, sims);
    writePetNeighbourhood({folder / "UserData2" / "characters", seed + 1, family});
    writeTrapNeighbourhood({folder / "UserData3" / "Characters", seed + 2, family});
}

void writeNeighbourhoodFile(const fs::path& folder) {
    writeFile(folder / "Neighborhood.iff",
              userFile({{"NGBH", 1, 0x0010, "", "houses and families"}}, MapPlace::End));
}

}  // namespace

void writeNeighbourhoods(const fs::path& game, int sims, std::uint64_t seed) {
    writeTowns(game, sims, seed, "");
    fs::create_directories(game / "UserData10" / "Characters");
    writeSims({game / "UserDataOld" / "CHARACTERS", seed + 3, ""}, 3, 90);
}

void writeTemplates(const fs::path& install, int sims, std::uint64_t seed) {
    const std::string family = "Template";
    writeTowns(install, sims, seed, family);
    writeSims({install / "UserData4" / "Characters", seed + 3, family}, 3, 90);
    for (const char* town : {"UserData", "UserData2", "UserData3", "UserData4"}) {
        writeNeighbourhoodFile(install / town);
    }
}

void writeSaves(const fs::path& saves, int sims, std::uint64_t seed) {
    writeTowns(saves, sims, seed, "");
    writeSims({saves / "UserData8" / "Characters", seed + 3, ""}, 3, 90);
    for (const char* town : {"UserData", "UserData2", "UserData3", "UserData8"}) {
        writeNeighbourhoodFile(saves / town);
    }
}

}  // namespace sample

#include "skins.h"

#include <array>
#include <map>
#include <string>
#include <vector>

#include "archives.h"
#include "bitmap.h"
#include "drawings.h"
#include "figures.h"
#include "meshes.h"

namespace sample {
namespace {

struct Shape {
    const char* code;  // gender, age and body type in a name
    bool female;
    Body body;
};

constexpr Shape kShapes[] = {
    {"fafit", true, Body::Fit},   {"fafat", true, Body::Fat},    {"faskn", true, Body::Skinny},
    {"mafit", false, Body::Fit},  {"mafat", false, Body::Fat},   {"maskn", false, Body::Skinny},
    {"fcchd", true, Body::Child}, {"mcchd", false, Body::Child},
};

const std::string kBad = "BM this is no picture";

// Names on disk vary in case: the game doesn't mind.
std::string varied(const std::string& name, unsigned number) {
    std::string result = name;
    for (char& c : result) {
        const bool letter = c >= 'a' && c <= 'z';
        if (letter && (number % 3 == 1 || (number % 3 == 2 && &c == result.data()))) {
            c = static_cast<char>(c - 'a' + 'A');
        }
    }
    return result;
}

class GameSkins {
  public:
    GameSkins(fs::path game, std::uint64_t seed)
        : game_(std::move(game)),
          skins_(game_ / "GameData" / "Skins"),
          count_(static_cast<unsigned>(seed) * 7) {}

    void writeAll(int skins, int archiveEntries) {
        writeOriginals();
        writeFirstGeneration();
        writeNormalClothes();
        writeBusyModel(skins);
        writeHands();
        writeBuyable();
        writeBadFiles();
        writePetSkins();
        writeModelArchives();
        writeSkinArchives();
        writeBigArchive(archiveEntries);
        writeLooseFigures(skins_);
        writeLooseMeshes();
    }

  private:
    std::string draw(const Figure& wanted, int size) {
        const Picture picture = figure(wanted, size);
        return ++count_ % 4 == 0 ? bitmap24(picture) : bitmap8(picture);
    }

    // A name in varied case, with an extension in varied case.
    std::string fileName(const std::string& name, const std::string& lower,
                         const std::string& upper) {
        ++count_;
        return varied(name, count_) + (count_ % 2 == 0 ? lower : upper);
    }

    void writeSkin(const std::string& name, const std::string& bitmap) {
        writeFile(skins_ / fileName(name, ".bmp", ".BMP"), bitmap);
    }

    void writeModel(const fs::path& folder, const std::string& name) {
        const std::string mesh = bodyMeshName(name, "");
        looseMeshes_.emplace(mesh, name);
        writeFile(folder / fileName(name, ".cmx", ".CMX"), suitCmx(name, "PELVIS", mesh));
    }

    // Wherever their suits lie, these lie in the game's own folder.
    void writeLooseMeshes() {
        for (const auto& [mesh, model] : looseMeshes_) {
            writeFile(skins_ / (mesh + ".skn"), sknFile(bodyMesh(model, mesh), true));
        }
    }

    // The outfits that the game's own defaults name, in the later form.
    void writeOriginals() {
        for (const Shape& shape : kShapes) {
            for (const char letter : std::string("sflwhn")) {
                const bool child = shape.body == Body::Child;
                if (child && (letter == 'f' || letter == 'h')) {
                    continue;
                }
                const std::string model = letter + std::string("100") + shape.code;
                writeModel(skins_, model + "_original");
                writeModel(skins_, letter + std::string("201") + shape.code + "_evening");
                for (const Tone tone : kTones) {
                    const auto upper = static_cast<char>(letter - 'a' + 'A');
                    const Figure f{upper, shape.female, shape.body, tone, variantOf(letter)};
                    writeSkin(model + toneCode(tone) + "_original", draw(f, sizeOf(letter)));
                    Figure other = f;
                    other.variant += 2;
                    writeSkin(
                        letter + std::string("201") + shape.code + toneCode(tone) + "_evening",
                        draw(other, 128));
                }
            }
        }
    }

    static unsigned variantOf(char letter) { return static_cast<unsigned>(letter) % 8; }
    static int sizeOf(char letter) { return letter == 's' || letter == 'f' ? 256 : 128; }

    // Underwear and formal wear of the game's first generation: "nffit_01", "uffitlgt_undies01".
    void writeFirstGeneration() {
        for (const Shape& shape : kShapes) {
            const std::string gender = shape.female ? "f" : "m";
            const std::string body = std::string(shape.code).substr(2);
            const bool child = shape.body == Body::Child;
            if (!child) {
                writeModel(skins_, "n" + gender + body + "_01");
                writeModel(skins_, "f" + gender + body + "_01");
            }
            for (const Tone tone : kTones) {
                writeSkin("u" + gender + body + toneCode(tone) + "_undies01",
                          draw({'N', shape.female, shape.body, tone, 3}, 128));
                if (!child) {
                    writeSkin("f" + gender + body + toneCode(tone) + "_01",
                              draw({'F', shape.female, shape.body, tone, 4}, 256));
                }
            }
        }
        writeModel(skins_, "nuchd_01");
    }

    void writeNormalClothes() {
        for (const Shape& shape : kShapes) {
            for (unsigned model = 1; model <= 3; ++model) {
                const std::string stem = "b00" + std::to_string(model) + shape.code;
                for (const Tone tone : kTones) {
                    writeSkin(stem + toneCode(tone) + "_01",
                              draw({'B', shape.female, shape.body, tone, model * 3}, 128));
                    if (model == 1) {
                        writeSkin(stem + toneCode(tone) + "_garden",
                                  draw({'B', shape.female, shape.body, tone, model + 4}, 128));
                    }
                }
            }
            // Worn clothes that no archive knows of.
            writeModel(skins_, std::string("b301") + shape.code + "_loose");
            writeSkin(std::string("b301") + shape.code + "lgt_loose",
                      draw({'B', shape.female, shape.body, Tone::Light, 6}, 256));
        }
        writeSkin("b001fafitlgt_a_skin_with_a_name_that_is_much_longer_than_the_box_it_is_shown_in",
                  draw({'B', true, Body::Fit, Tone::Light, 7}, 128));
    }

    // One model with pages of skins, for every tone of a fit woman.
    void writeBusyModel(int skins) {
        std::vector<std::string> drawn;
        for (unsigned variant = 0; variant < 24; ++variant) {
            drawn.push_back(draw({'B', true, Body::Fit, kTones[variant % 3], variant}, 128));
        }
        writeModel(skins_, "b302fafit_busy");
        for (int i = 1; i <= skins; ++i) {
            const std::string number = std::to_string(10000 + i).substr(1);
            for (const Tone tone : kTones) {
                const std::size_t pick =
                    (static_cast<std::size_t>(i) * 3 + static_cast<std::size_t>(tone)) %
                    drawn.size();
                if (tone == Tone::Light || i <= 8) {
                    writeSkin("b302fafit" + std::string(toneCode(tone)) + "_busy" + number,
                              drawn[pick]);
                }
            }
        }
    }

    void writeHands() {
        struct Pose {
            char letter;
            HandPose pose;
        };
        for (const Pose& pose :
             {Pose{'o', HandPose::Open}, Pose{'p', HandPose::Point}, Pose{'c', HandPose::Closed}}) {
            for (const Tone tone : kTones) {
                const std::string tail = std::string("a") + pose.letter + toneCode(tone);
                const Picture picture = hand(pose.pose, skinColour(tone), true);
                writeSkin("hu" + tail, bitmap8(picture));
                writeSkin("hf" + tail + "_ring",
                          bitmap24(hand(pose.pose, skinColour(tone), false)));
                writeSkin("hm" + tail + "_work",
                          bitmap8(hand(pose.pose, darker(skinColour(tone), 12), true)));
            }
        }
        writeSkin("gfao_bride", bitmap24(hand(HandPose::Open, rgb(0xF4F4FA), true)));
        writeSkin("gfao_black", bitmap8(hand(HandPose::Open, rgb(0x2A2A32), true)));
        writeSkin("gmao_white", bitmap8(hand(HandPose::Open, rgb(0xEEEEF2), false)));
        writeSkin("guao_pinkg", bitmap8(hand(HandPose::Open, rgb(0xF08AC0), true)));
    }

    void writeBuyable() {
        const fs::path third = game_ / "ExpansionPack3" / "SkinsBuy";
        const fs::path shared = game_ / "ExpansionShared" / "SkinsBuy";
        for (const Shape& shape : kShapes) {
            const bool child = shape.body == Body::Child;
            for (const char letter : std::string(child ? "slw" : "sflwh")) {
                const auto upper = static_cast<char>(letter - 'a' + 'A');
                const std::string model = letter + std::string("501") + shape.code;
                writeModel(letter == 'w' ? shared : third, model + "_Boutique");
                for (const Tone tone : kTones) {
                    const std::string name = model + toneCode(tone) + "_Boutique";
                    writeFile((letter == 'w' ? shared : third) / (name + ".bmp"),
                              draw({upper, shape.female, shape.body, tone, count_}, 128));
                }
            }
        }
        writeModel(third, "B002FAfit_01");
        writeFile(third / "B002FAfitlgt_shop.bmp",
                  draw({'B', true, Body::Fit, Tone::Light, 5}, 128));
    }

    void writeBadFiles() {
        writeFile(skins_ / "b001fafitlgt_broken.bmp", kBad);
        writeFile(skins_ / "B001fafitmed_Broken.BMP", kBad);
        writeFile(skins_ / "hu_broken.bmp", kBad);
        writeFile(game_ / "ExpansionPack3" / "SkinsBuy" / "b001fafitlgt_unreadable.bmp", "");
    }

    void writePetSkins() {
        for (const bool dog : {true, false}) {
            for (unsigned model = 1; model <= 3; ++model) {
                const std::string stem = "b00" + std::to_string(model) + (dog ? "dog" : "cat");
                writeModel(skins_, stem + "_01");
                for (unsigned coat = 0; coat < 5; ++coat) {
                    writeSkin(stem + "_coat" + std::to_string(coat + 1),
                              bitmap8(pet(dog, coat + model - 1, 128)));
                }
            }
        }
    }

    // A suit whose mesh lies beside it.
    static ArchiveEntry modelEntry(const std::string& name, unsigned number,
                                   const std::string& home,
                                   std::map<std::string, std::string>& meshes) {
        const std::string mesh = bodyMeshName(name, home);
        meshes.emplace(mesh, name);
        return {"animation\\" + varied(name, number) + ".cmx.bcf", suitBcf(name, "PELVIS", mesh),
                0};
    }

    static void addMeshes(std::vector<ArchiveEntry>& entries,
                          const std::map<std::string, std::string>& meshes, bool binary) {
        for (const auto& [name, model] : meshes) {
            const MeshRows mesh = bodyMesh(model, name);
            entries.push_back({"meshes\\" + name + (binary ? ".bmf" : ".skn"),
                               binary ? bmfFile(mesh) : sknFile(mesh, false), 0});
        }
    }

    static void addFigures(std::vector<ArchiveEntry>& entries, const std::string& archive) {
        for (ArchiveEntry& entry : figureEntries(archive)) {
            entries.push_back(std::move(entry));
        }
    }

    void writeModelArchives() {
        std::vector<ArchiveEntry> base;
        std::map<std::string, std::string> meshes;
        for (const Shape& shape : kShapes) {
            for (int model = 1; model <= 3; ++model) {
                base.push_back(
                    modelEntry("b00" + std::to_string(model) + shape.code + std::string("_01"),
                               ++count_, "-base", meshes));
            }
        }
        base.push_back(modelEntry("b001ucchd_01", ++count_, "-base", meshes));
        // The smallest mesh that there is, on a head that nobody wears.
        base.push_back(
            {"c003fa_face.cmx.bcf", suitBcf("c003fa_face", "HEAD", "xskin-c003fa-HEAD"), 0});
        base.push_back({"xskin-c003fa-HEAD.bmf", bmfMesh("xskin-c003fa-HEAD", "x"), 0});
        base.push_back({"a2o-walk.cfp", std::string(64, '\x07'), 0});
        addMeshes(base, meshes, true);
        addFigures(base, "Animation");
        writeFile(game_ / "GameData" / "Animation" / "Animation.far", farArchive(base));
    }

    std::vector<ArchiveEntry> packEntries(int pack) {
        const std::string number = std::to_string(pack);
        std::vector<ArchiveEntry> entries;
        std::map<std::string, std::string> meshes;
        for (const Shape& shape : kShapes) {
            const std::string stem = "b" + number + "01" + shape.code;
            entries.push_back(modelEntry(stem + "_pack", ++count_, "-pack" + number, meshes));
            for (const Tone tone : kTones) {
                entries.push_back(
                    {"skins\\" + stem + toneCode(tone) + "_packed.bmp",
                     draw({'B', shape.female, shape.body, tone, static_cast<unsigned>(pack * 2)},
                          128),
                     pack == 4 ? 3 : 0});
            }
        }
        if (pack >= 5) {
            for (const bool dog : {true, false}) {
                const std::string stem = "b" + number + "01" + (dog ? "dog" : "cat");
                entries.push_back(modelEntry(stem + "_pack", ++count_, "-pack" + number, meshes));
                entries.push_back(
                    {stem + "_packed.bmp", bitmap8(pet(dog, static_cast<unsigned>(pack), 128)), 0});
            }
        }
        entries.push_back({"Hands\\HUAO" + number + "lgt_glove.BMP",
                           bitmap8(hand(HandPose::Open, rgb(0x6A8A4A), true)), 0});
        entries.push_back({"hmac_pack" + number + ".bmp",
                           bitmap8(hand(HandPose::Closed, rgb(0x8A5A3A), true)), 0});
        // Some packs have text, some binary meshes.
        addMeshes(entries, meshes, pack % 2 == 0);
        return entries;
    }

    void writeSkinArchives() {
        for (int pack = 1; pack <= 7; ++pack) {
            const std::string name =
                pack == 1 ? "ExpansionPack" : "ExpansionPack" + std::to_string(pack);
            std::vector<ArchiveEntry> entries = packEntries(pack);
            addFigures(entries, name);
            writeFile(game_ / name / (name + ".far"), farArchive(entries));
        }
        std::vector<ArchiveEntry> shared = packEntries(8);
        addFigures(shared, "ExpansionShared");
        writeFile(game_ / "ExpansionShared" / "ExpansionShared.far", farArchive(shared));

        std::vector<ArchiveEntry> textures;
        for (const Shape& shape : kShapes) {
            for (const Tone tone : kTones) {
                textures.push_back(
                    {std::string("Textures\\b001") + shape.code + toneCode(tone) + "_stock.bmp",
                     draw({'B', shape.female, shape.body, tone, 1}, 128), 0});
            }
        }
        textures.push_back({"b001fafitlgt_damaged.bmp", kBad, 0});
        textures.push_back(
            {"gfao_lace.bmp", bitmap8(hand(HandPose::Open, rgb(0xE8D8F0), true)), 0});
        textures.push_back({"wallpaper.txt", "not a bitmap", 0});
        writeFile(game_ / "GameData" / "Textures" / "Textures.far", farArchive(textures));
        // The same names a second time, in another archive and another order.
        writeFile(game_ / "GameData" / "Textures" / "moretextures.FAR",
                  farArchive({textures.rbegin(), textures.rbegin() + 8}));
    }

    void writeBigArchive(int entryCount) {
        std::vector<std::string> small;
        for (unsigned i = 0; i < 12; ++i) {
            small.push_back(bitmap8(figure({'B', i % 2 == 0, Body::Fit, kTones[i % 3], i}, 32)));
        }
        std::vector<ArchiveEntry> entries;
        for (int i = 1; i <= entryCount; ++i) {
            entries.push_back({"Heap\\heap" + std::to_string(100000 + i).substr(1) + ".bmp",
                               small[static_cast<std::size_t>(i) % small.size()],
                               i % 10 == 0 ? 7 : 0});
        }
        writeFile(game_ / "GameData" / "Textures" / "heap.far", farArchive(entries));
    }

    fs::path game_;
    fs::path skins_;
    std::map<std::string, std::string> looseMeshes_;  // by their names: a model that wears them
    unsigned count_;  // of what was made so far: what varies, varies with it
};

}  // namespace

void writeSkins(const fs::path& game, int skins, int archiveEntries, std::uint64_t seed) {
    GameSkins(game, seed).writeAll(skins, archiveEntries);
}

}  // namespace sample

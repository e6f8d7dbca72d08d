#include "figures.h"

#include "bitmap.h"
#include "bodies.h"
#include "drawings.h"
#include "skeletons.h"

namespace sample {
namespace {

// A model's name, taken apart.
struct Model {
    Figure figure;
    std::string shape;  // "fafit", "dog"
    Cut cut = Cut::Plain;
    bool isPet = false;
};

Body bodyOf(const std::string& code) {
    if (code == "fat") {
        return Body::Fat;
    }
    if (code == "skn") {
        return Body::Skinny;
    }
    return code == "chd" ? Body::Child : Body::Fit;
}

Model modelOf(const std::string& name) {
    Model model;
    const std::string prefix = name.substr(0, name.find('_'));
    if (prefix.size() == 7) {
        model.isPet = true;
        model.shape = prefix.substr(4);
        return model;
    }
    // The first generation's names are shorter: the letter, the gender and the body type.
    const bool isFirst = prefix.size() == 5;
    model.figure.outfit = static_cast<char>(name[0] - 'a' + 'A');
    model.figure.female = prefix[isFirst ? 1 : 4] == 'f';
    model.figure.body = bodyOf(prefix.substr(prefix.size() - 3));
    const char age = model.figure.body == Body::Child ? 'c' : 'a';
    model.shape =
        (model.figure.female ? "f" : "m") + std::string(1, age) + prefix.substr(prefix.size() - 3);
    if (model.figure.outfit == 'F' && model.figure.female) {
        model.cut = Cut::Gown;
    } else if (model.figure.outfit == 'W') {
        model.cut = Cut::Coat;
    }
    return model;
}

const char* cutName(const Model& model) {
    if (model.isPet) {
        return "fur";
    }
    return model.cut == Cut::Gown ? "gown" : (model.cut == Cut::Coat ? "coat" : "plain");
}

constexpr const char* kNoTexture = "x";

struct Place {
    const char* archive;  // empty for a loose file
    bool binarySuit;
    bool binaryMesh;
    bool vertexFirst;  // in the blend records of a text mesh
};

// Where the heads of a number lie, for a gender and age.
struct Head {
    int number;
    const char* genderAge;
    Place place;
};

// Number 3 bears the game's number 4.
const Head kHeadPlaces[] = {
    {1, "fa", {"", false, false, true}},
    {1, "ma", {"", false, false, false}},
    {1, "fc", {"", false, false, true}},
    {1, "mc", {"", true, true, false}},
    {2, "fa", {"Animation", true, true, false}},
    {2, "ma", {"", false, true, false}},
    {2, "fc", {"ExpansionPack3", true, false, true}},
    {2, "mc", {"ExpansionPack", true, true, false}},
    {3, "fa", {"ExpansionPack2", false, false, false}},
    {3, "ma", {"ExpansionShared", true, false, false}},
    {3, "fc", {"", true, true, false}},
    {3, "mc", {"ExpansionShared", true, false, true}},
};

struct Hand {
    const char* suit;
    bool child;
    bool left;
    Place place;
};

const Hand kHands[] = {
    {"HfLO", false, true, {"", false, false, true}},
    {"HfRO", false, false, {"", false, false, true}},
    {"HmLO", false, true, {"Animation", true, true, false}},
    {"HmRO", false, false, {"Animation", true, true, false}},
    {"HuLO", true, true, {"ExpansionShared", true, false, false}},
    {"HuRO", true, false, {"ExpansionShared", true, false, false}},
};

struct File {
    std::string name;
    std::string content;
};

// A suit and its mesh.
std::vector<File> filesOf(const std::string& suit, const std::string& bone, const MeshRows& mesh,
                          const Place& place) {
    return {place.binarySuit ? File{suit + ".cmx.bcf", suitBcf(suit, bone, mesh.name)}
                             : File{suit + ".cmx", suitCmx(suit, bone, mesh.name)},
            place.binaryMesh ? File{mesh.name + ".bmf", bmfFile(mesh)}
                             : File{mesh.name + ".skn", sknFile(mesh, place.vertexFirst)}};
}

std::vector<File> headFiles(const Head& head) {
    const bool child = head.genderAge[1] == 'c';
    const std::string name = headName(head.number, head.genderAge);
    // The meshes of archives have shorter names.
    const bool isLoose = *head.place.archive == '\0';
    const MeshRows mesh = onSkeleton(
        personHead(head.genderAge[0] == 'f', child), personSkeleton(child),
        "xskin-" + (isLoose ? name : name.substr(0, name.find('_'))) + "-HEAD", kNoTexture);
    return filesOf(name, "HEAD", mesh, head.place);
}

std::vector<File> handFiles(const Hand& hand) {
    const std::string bone = hand.left ? "L_HAND" : "R_HAND";
    const MeshRows mesh =
        onSkeleton(personHand(hand.child, hand.left), personSkeleton(hand.child),
                   std::string("xskin-") + hand.suit + "-" + bone + "-HAND", kNoTexture);
    return filesOf(hand.suit, bone, mesh, hand.place);
}

// All that lies in an archive, or loose for an empty name.
std::vector<File> filesIn(const std::string& archive) {
    std::vector<File> files;
    const auto add = [&](std::vector<File> more) {
        files.insert(files.end(), more.begin(), more.end());
    };
    for (const Head& head : kHeadPlaces) {
        if (head.place.archive == archive) {
            add(headFiles(head));
        }
    }
    for (const Hand& hand : kHands) {
        if (hand.place.archive == archive) {
            add(handFiles(hand));
        }
    }
    if (archive == "Animation") {
        add({{"adult-skeleton.cmx.bcf", skeletonBcf(personSkeleton(false))}});
    } else if (archive.empty()) {
        add({{"child-skeleton.cmx", skeletonCmx(personSkeleton(true))}});
    } else if (archive == "ExpansionPack5") {
        add({{"Dog_Skeleton.cmx", skeletonCmx(petSkeleton(true))},
             {"kat-skeleton.cmx.bcf", skeletonBcf(petSkeleton(false))}});
    }
    return files;
}

Look lookOf(const Head& head, Tone tone) {
    const auto number = static_cast<unsigned>(head.number);
    Look look;
    look.tone = tone;
    look.female = head.genderAge[0] == 'f';
    look.child = head.genderAge[1] == 'c';
    look.hairStyle = number + (look.child ? 1 : 0);
    look.hairColour = number * 2 + (look.female ? 1 : 0);
    look.eyeColour = number;
    return look;
}

void writeHeadSkins(const fs::path& skins) {
    constexpr int kSize = 128;
    for (const Head& head : kHeadPlaces) {
        for (const Tone tone : kTones) {
            std::string name = headName(head.number, head.genderAge);
            name.insert(name.find('_'), toneCode(tone));
            writeFile(skins / (name + ".bmp"), bitmap8(headSkin(lookOf(head, tone), kSize)));
        }
    }
}

// A mesh that ends in the middle, and one whose binding and faces name what isn't there.
void writeBrokenBodies(const fs::path& skins) {
    const std::string torn = "b303fafit_torn";
    const std::string tangled = "b304mafit_tangled";
    for (const std::string& model : {torn, tangled}) {
        const std::string meshName = "xskin-" + model + "-BODY";
        writeFile(skins / (model + ".cmx"), suitCmx(model, "PELVIS", meshName));
        MeshRows mesh = bodyMesh(model, meshName);
        std::string skin = model;
        skin.insert(skin.find('_'), "lgt");
        const Figure figure = modelOf(model).figure;
        writeFile(skins / (skin + ".bmp"),
                  bitmap8(sample::figure({'B', figure.female, Body::Fit, Tone::Light, 2}, 128)));
        if (model == tangled) {
            mesh.bindings.back()[0] = 77;
            for (auto& face : mesh.faces) {
                face[1] += 100000;
            }
            writeFile(skins / (meshName + ".skn"), sknFile(mesh, true));
        } else {
            const std::string whole = bmfFile(mesh);
            writeFile(skins / (meshName + ".bmf"), whole.substr(0, whole.size() / 2));
        }
    }
}

}  // namespace

std::string bodyMeshName(const std::string& model, const std::string& home) {
    const Model parts = modelOf(model);
    return "xskin-" + parts.shape + "-" + cutName(parts) + home + "-BODY";
}

MeshRows bodyMesh(const std::string& model, const std::string& meshName) {
    const Model parts = modelOf(model);
    if (parts.isPet) {
        const bool dog = parts.shape == "dog";
        return onSkeleton(petBody(dog), petSkeleton(dog), meshName, kNoTexture);
    }
    return onSkeleton(personBody(parts.figure, parts.cut),
                      personSkeleton(parts.figure.body == Body::Child), meshName, kNoTexture);
}

std::string headName(int number, const std::string& genderAge) {
    return "c00" + std::to_string(number == 3 ? 4 : number) + genderAge + "_face";
}

void writeLooseFigures(const fs::path& skins) {
    for (const File& file : filesIn("")) {
        writeFile(skins / file.name, file.content);
    }
    writeHeadSkins(skins);
    writeBrokenBodies(skins);
}

std::vector<ArchiveEntry> figureEntries(const std::string& archive) {
    std::vector<ArchiveEntry> entries;
    for (const File& file : filesIn(archive)) {
        entries.push_back({"figures\\" + file.name, file.content, 0});
    }
    return entries;
}

}  // namespace sample

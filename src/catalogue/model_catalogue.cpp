#include "catalogue/model_catalogue.h"

#include <algorithm>
#include <array>
#include <functional>
#include <unordered_set>

#include "catalogue/names.h"
#include "far/archive_directory.h"
#include "far/archives.h"
#include "foundation/folders.h"
#include "system/files.h"
#include "system/game_text.h"

namespace marlowick {
namespace {

constexpr std::size_t kCodePosition = 5;
constexpr std::size_t kExtension = 4;  // ".cmx"

struct Code {
    std::string_view code;
    List<std::string>& list;
};

const std::array<Code, 5> kPersonCodes = {{{"FA", CatalogueFA},
                                           {"MA", CatalogueMA},
                                           {"FC", CatalogueFC},
                                           {"MC", CatalogueMC},
                                           {"UC", CatalogueUC}}};
const std::array<Code, 2> kSpecies = {{{"DOG", CatalogueDog}, {"CAT", CatalogueCat}}};

template <std::size_t count>
void addByCode(const std::array<Code, count>& codes, std::string_view name) {
    for (const Code& row : codes) {
        if (charactersAt(name, kCodePosition, row.code.size()) == row.code) {
            row.list.append(std::string(name));
            return;
        }
    }
}

void addModels(const ArchiveDirectory& directory, bool holdsPets) {
    const int count = directory.count();
    std::string name;
    for (int number = 1; number <= count; ++number) {
        const std::string_view asItStands = directory.baseName(number);
        if (!canBeModel(asItStands)) {
            continue;
        }
        name.resize(asItStands.size());
        std::transform(asItStands.begin(), asItStands.end(), name.begin(), upperByte);
        if (isPersonModel(name)) {
            gsAddPersonModel(cutAtDot(name));
        }
        if (holdsPets && isPetModel(name)) {
            gsAddPetModel(cutAtDot(name));
        }
    }
}

void addFolderModels(const std::string& mask, List<std::string>& models) {
    std::unordered_set<std::string> listed;
    for (int i = 1; i <= models.bound(); ++i) {
        listed.insert(upperCase(models[i]));
    }
    // In the game's own folder a name counts without its extension and is listed in upper case; in
    // the other two it counts up to its first "." and keeps its case.
    for (const SkinFolder folder : skinFolders()) {
        const bool gamesOwn = folder == SkinFolder::Game;
        for (const std::string& file : searchFiles(skinFolder(folder), mask + ".cmx")) {
            const std::string name(cutAtDot(file));
            const std::string tested = gamesOwn ? file.substr(0, file.size() - kExtension) : name;
            if (listed.contains(upperCase(tested))) {
                continue;
            }
            models.appendCounted(gamesOwn ? upperCase(name) : name);
            listed.insert(upperCase(name));
        }
    }
}

void copyModels(const List<std::string>& source, List<std::string>& models,
                const std::function<bool(const std::string&)>& fits) {
    for (int i = 1; i <= source.bound(); ++i) {
        if (fits(source[i])) {
            models.appendCounted(source[i]);
        }
    }
}

bool anyModel(const std::string& /*name*/) {
    return true;
}

// What the archives bring for everyday clothes: of an adult's models those of the body type, of a
// child's all, and behind them those for either gender.
void seedFromCatalogue(std::string_view skinData, List<std::string>& models) {
    const std::string code = upperCase(charactersAt(skinData, 1, 2));
    const std::string type = upperCase(charactersAt(skinData, 6, 3));
    const auto ofType = [&](const std::string& name) { return charactersAt(name, 7, 3) == type; };
    if (code == "FA" || code == "MA") {
        copyModels(code == "FA" ? CatalogueFA : CatalogueMA, models, ofType);
    } else if (code == "FC" || code == "MC") {
        copyModels(code == "FC" ? CatalogueFC : CatalogueMC, models, anyModel);
        copyModels(CatalogueUC, models, anyModel);
    }
}

}  // namespace

void resetModelCatalogue() {
    for (const Code& row : kPersonCodes) {
        row.list.reset();
    }
    for (const Code& row : kSpecies) {
        row.list.reset();
    }
}

void gsAddPersonModel(std::string_view name) {
    addByCode(kPersonCodes, name);
}

void gsAddPetModel(std::string_view name) {
    addByCode(kSpecies, name);
}

void gsBuildModelCatalogue() {
    struct Step {
        ArchiveStage stage;
        bool holdsPets;
    };
    static constexpr Step kSteps[] = {
        {ArchiveStage::Animation, false},
        {ArchiveStage::FirstExpansion, false},
        {ArchiveStage::Expansions, true},
        {ArchiveStage::Shared, true},
    };
    for (const Step& step : kSteps) {
        for (const Path& archive : existingArchives({step.stage}, kLastModelExpansion)) {
            addModels(*readArchiveDirectory(archive), step.holdsPets);
        }
    }
}

void listPersonModels(std::string_view skinData, List<std::string>& models) {
    models.reset();
    if (upperCase(charactersAt(skinData, 9, 1)) == "B") {
        seedFromCatalogue(skinData, models);
    }
    addFolderModels(modelMask(skinData), models);
}

void listPetModels(std::string_view skinData, List<std::string>& models) {
    models.reset();
    copyModels(asksForDogs(skinData) ? CatalogueDog : CatalogueCat, models, anyModel);
    addFolderModels(petModelMask(skinData), models);
}

}  // namespace marlowick

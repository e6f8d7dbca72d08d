// make_sample_game [--legacy] FOLDER [--sims N] [--skins N] [--archive-entries N] [--seed S]
//
// Makes a whole game folder from nothing, the same bytes for the same numbers:
//   Sims.exe              a stand-in that only has the name
//   UserData              the main neighbourhood; docs/sample-game.md lists its odd files
//   UserData2             sims and pets
//   UserData3             files that can be read but not shown
//   UserData10            an empty characters folder
//   UserDataOld           a folder whose name has no number
//   GameData, ExpansionPack .. ExpansionPack7, ExpansionShared   models, skins, hands, archives
// With --legacy, a folder in the form of a Wine prefix, with a game of the Legacy Collection in
//   drive_c/Program Files/EA Games/The Sims Legacy
// whose neighbourhoods are templates, and a player's own neighbourhoods in
//   drive_c/users/player/Saved Games/Electronic Arts/The Sims 25
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

#include "bytes.h"
#include "people.h"
#include "skins.h"

namespace {

struct Options {
    std::string folder;
    bool legacy = false;
    int sims = 64;
    int skins = 60;
    int archiveEntries = 120;
    int seed = 1;
};

[[noreturn]] void usage() {
    std::fputs(
        "usage: make_sample_game [--legacy] FOLDER [--sims N] [--skins N] [--archive-entries N] "
        "[--seed S]\n",
        stderr);
    std::exit(2);
}

int numberOf(const char* text) {
    char* end = nullptr;
    const long number = std::strtol(text, &end, 10);
    if (*text == '\0' || *end != '\0' || number < 0 || number > 1000000) {
        usage();
    }
    return static_cast<int>(number);
}

Options readOptions(int argc, char** argv) {
    Options options;
    struct Row {
        std::string_view name;
        int* value;
    };
    const Row rows[] = {{"--sims", &options.sims},
                        {"--skins", &options.skins},
                        {"--archive-entries", &options.archiveEntries},
                        {"--seed", &options.seed}};
    for (int i = 1; i < argc; ++i) {
        const std::string_view argument = argv[i];
        bool known = argument == "--legacy";
        options.legacy = options.legacy || known;
        for (const Row& row : rows) {
            if (argument == row.name && i + 1 < argc) {
                *row.value = numberOf(argv[++i]);
                known = true;
                break;
            }
        }
        if (!known && (argument.starts_with("--") || !options.folder.empty())) {
            usage();
        }
        if (!known) {
            options.folder = argument;
        }
    }
    if (options.folder.empty()) {
        usage();
    }
    return options;
}

}  // namespace

int main(int argc, char** argv) {
    const Options options = readOptions(argc, argv);
    const sample::fs::path folder(options.folder);
    const auto seed = static_cast<std::uint64_t>(options.seed);
    sample::fs::path game = folder;
    if (options.legacy) {
        game = folder / "drive_c" / "Program Files" / "EA Games" / "The Sims Legacy";
        sample::writeFile(game / "eadpsdk.json", "{}\n");
        sample::writeTemplates(game, options.sims, seed);
        sample::writeSaves(folder / "drive_c" / "users" / "player" / "Saved Games" /
                               "Electronic Arts" / "The Sims 25",
                           options.sims, seed);
    } else {
        sample::writeNeighbourhoods(game, options.sims, seed);
    }
    sample::writeFile(game / "Sims.exe", "A stand-in for the game's own program.\r\n");
    sample::writeSkins(game, options.skins, options.archiveEntries, seed);
    return 0;
}

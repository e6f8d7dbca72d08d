// make_seeds GAME FOLDER: takes a few small files of each kind out of a game, loose ones and
// entries of archives, and puts them into a folder for each fuzz target.
#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "far/far_directory.h"
#include "foundation/bytes.h"
#include "system/game_text.h"

namespace {

namespace fs = std::filesystem;
using namespace marlowick;

struct Kind {
    const char* target;
    const char* part;    // of the name, in upper case
    const char* ending;  // likewise
};

constexpr Kind kKinds[] = {{"skeleton", "SKELETON", ".CMX"},
                           {"skeleton", "SKELETON", ".BCF"},
                           {"suit", "", ".CMX"},
                           {"suit", "", ".BCF"},
                           {"mesh", "", ".SKN"},
                           {"mesh", "", ".BMF"},
                           {"conversion", "", ".BMF"},
                           {"bitmap", "", ".BMP"},
                           {"archive", "", ".FAR"},
                           {"user_file", "USER", ".IFF"},
                           {"string_table", "", ".STR#"}};
constexpr std::size_t kOfEachKind = 6;

struct Seed {
    std::string name;  // in upper case
    std::string bytes;
};

std::string contentOf(const fs::path& file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

void addArchive(const fs::path& file, std::vector<Seed>& seeds) {
    const std::string bytes = contentOf(file);
    FarDirectory directory;
    readFarDirectory(directory, Path(file.string()));
    for (int number = 1; number <= farEntryCount(directory); ++number) {
        const FarEntry& entry = directory.Entries[number];
        const auto offset = static_cast<std::size_t>(gflngLittleEndianToLong(entry.FileOffset));
        const auto size = static_cast<std::size_t>(gflngLittleEndianToLong(entry.FileSize));
        seeds.push_back(
            {gfstrFarBaseName(entry.FileName), bytes.substr(std::min(offset, bytes.size()), size)});
    }
}

// The string tables of a user file.
void addTables(const Seed& userFile, std::vector<Seed>& seeds) {
    constexpr std::size_t kHead = 76;
    const std::string& bytes = userFile.bytes;
    std::size_t at = 64;
    while (at + kHead <= bytes.size()) {
        const std::int32_t size = gflngBigEndianToLong(bytes.substr(at + 4, 4));
        if (size < static_cast<std::int32_t>(kHead)) {
            return;
        }
        if (bytes.substr(at, 4) == "STR#") {
            seeds.push_back({userFile.name + std::to_string(at) + ".STR#",
                             bytes.substr(at + kHead, static_cast<std::size_t>(size) - kHead)});
        }
        at += static_cast<std::size_t>(size);
    }
}

// From the smallest up.
std::vector<Seed> seedsOf(const fs::path& game) {
    std::vector<Seed> seeds;
    for (const auto& entry : fs::recursive_directory_iterator(game)) {
        if (!entry.is_regular_file()) {
            continue;
        }
        seeds.push_back({upperCase(entry.path().filename().string()), contentOf(entry.path())});
        if (seeds.back().name.ends_with(".FAR")) {
            addArchive(entry.path(), seeds);
        }
        if (seeds.back().name.ends_with(".IFF")) {
            addTables(Seed(seeds.back()), seeds);
        }
    }
    std::sort(seeds.begin(), seeds.end(), [](const Seed& a, const Seed& b) {
        return a.bytes.size() != b.bytes.size() ? a.bytes.size() < b.bytes.size() : a.name < b.name;
    });
    return seeds;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 3) {
        std::fputs("usage: make_seeds GAME FOLDER\n", stderr);
        return 2;
    }
    const std::vector<Seed> seeds = seedsOf(argv[1]);
    for (const Kind& kind : kKinds) {
        const fs::path folder = fs::path(argv[2]) / kind.target;
        fs::create_directories(folder);
        std::size_t taken = 0;
        for (const Seed& seed : seeds) {
            if (taken < kOfEachKind && !seed.bytes.empty() &&
                seed.name.find(kind.part) != std::string::npos &&
                seed.name.ends_with(kind.ending)) {
                std::ofstream(folder / seed.name, std::ios::binary) << seed.bytes;
                ++taken;
            }
        }
        if (taken == 0) {
            std::fprintf(stderr, "make_seeds: no *%s*%s\n", kind.part, kind.ending);
            return 1;
        }
    }
    return 0;
}

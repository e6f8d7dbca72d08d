// Finding the game on a machine with many libraries of games and Wine prefixes, and the question
// that every start asks: what kind of game the known one is.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <string>

#include "foundation/game_kind.h"
#include "foundation/game_search.h"

namespace marlowick {
namespace {

namespace fs = std::filesystem;

void write(const fs::path& path, const std::string& content) {
    fs::create_directories(path.parent_path());
    std::ofstream(path, std::ios::binary) << content;
}

// As large as that of a prefix in which a few programs were installed.
std::string registryOfAPrefix() {
    std::string text = "WINE REGISTRY Version 2\n\n";
    for (int i = 0; text.size() < std::size_t{4} << 20U; ++i) {
        text += "[Software\\\\Classes\\\\Interface\\\\{" + std::to_string(i) +
                "-0000-0000-C000-000000000046}\\\\ProxyStubClsid32] 1699999999\n#time=1da17c9f0\n"
                "@=\"{00020424-0000-0000-C000-000000000046}\"\n\n";
    }
    return text + "[Software\\\\Wow6432Node\\\\Maxis\\\\The Sims] 1699999999\n" +
           "\"InstallPath\"=\"C:\\\\Maxis\"\n";
}

// Home folder with so many libraries, each of 50 games, the last one with the game; and so many
// prefixes, the last one with a classic game.
class Home {
  public:
    Home(int libraries, int prefixes) : root_(fs::temp_directory_path() / "marlowick-bench-home") {
        fs::remove_all(root_);
        std::string list = "\"libraryfolders\"\n{\n";
        for (int i = 0; i < libraries; ++i) {
            const fs::path library = root_ / ("library" + std::to_string(i));
            list += "\"" + std::to_string(i) + "\" { \"path\" \"" + library.string() + "\" }\n";
            for (int game = 0; game < 50; ++game) {
                write(library / "steamapps" / ("appmanifest_" + std::to_string(game) + ".acf"), "");
                fs::create_directories(library / "steamapps/common" / std::to_string(game));
            }
        }
        const fs::path last = root_ / ("library" + std::to_string(libraries - 1)) / "steamapps";
        write(root_ / ".steam/steam/steamapps/libraryfolders.vdf", list + "}\n");
        write(last / "appmanifest_3314060.acf",
              "\"AppState\" { \"installdir\" \"The Sims Legacy Collection\" }");
        write(last / "common/The Sims Legacy Collection/Sims.exe", "");
        const std::string registry = registryOfAPrefix();
        for (int i = 0; i < prefixes; ++i) {
            const fs::path prefix = root_ / "Games" / ("prefix" + std::to_string(i));
            fs::create_directories(prefix / "drive_c");
            write(prefix / "system.reg", registry);
        }
        write(
            root_ / "Games" / ("prefix" + std::to_string(prefixes - 1)) / "drive_c/Maxis/Sims.exe",
            "");
        surroundings_.home = pathOfText(root_.string());
        surroundings_.login = "player";
    }
    ~Home() { fs::remove_all(root_); }
    Home(const Home&) = delete;
    Home& operator=(const Home&) = delete;

    const GameSurroundings& surroundings() const { return surroundings_; }

  private:
    fs::path root_;
    GameSurroundings surroundings_;
};

void findTheGame(benchmark::State& state) {
    const Home home(static_cast<int>(state.range(0)), static_cast<int>(state.range(1)));
    std::size_t found = 0;
    for (auto _ : state) {
        found = findGames(home.surroundings()).size();
    }
    state.counters["found"] = static_cast<double>(found);
}
BENCHMARK(findTheGame)->Args({10, 0})->Args({10, 1})->Args({10, 10})->Unit(benchmark::kMillisecond);

void tellTheKindOfAClassicGame(benchmark::State& state) {
    const Home home(10, 1);
    const Path install = home.surroundings().home + "\\Games\\prefix0\\drive_c\\Maxis";
    for (auto _ : state) {
        BoundedLook look;
        benchmark::DoNotOptimize(kindOfGame(install, home.surroundings(), look));
    }
}
BENCHMARK(tellTheKindOfAClassicGame)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace marlowick

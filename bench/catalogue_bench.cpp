// What the skin chooser asks of a large game: many skins in a folder, many entries in archives.
#include <benchmark/benchmark.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "catalogue/model_catalogue.h"
#include "catalogue/skin_lists.h"
#include "foundation/game.h"

namespace marlowick {
namespace {

namespace fs = std::filesystem;

// A game's folder with so many models and skins of one kind, gone at the end.
class SkinsFolder {
  public:
    explicit SkinsFolder(std::int64_t count)
        : root_(fs::temp_directory_path() / "marlowick-bench") {
        const fs::path skins = root_ / "GameData" / "Skins";
        fs::create_directories(skins);
        for (std::int64_t i = 0; i < count; ++i) {
            std::ofstream(skins / ("b001fafitlgt_" + std::to_string(i) + ".bmp")).put('x');
            std::ofstream(skins / ("b001fafit_" + std::to_string(i) + ".cmx")).put('x');
        }
        SimsPath = Path(root_.string());
    }
    ~SkinsFolder() { fs::remove_all(root_); }
    SkinsFolder(const SkinsFolder&) = delete;
    SkinsFolder& operator=(const SkinsFolder&) = delete;

  private:
    fs::path root_;
};

void listModelsOfAFolder(benchmark::State& state) {
    const SkinsFolder folder(state.range(0));
    List<std::string> models;
    while (state.KeepRunning()) {
        listPersonModels("falgtfitB", models);
        benchmark::DoNotOptimize(models.bound());
    }
}
BENCHMARK(listModelsOfAFolder)->Arg(500)->Arg(5000)->Unit(benchmark::kMillisecond);

void listSkinsOfAFolder(benchmark::State& state) {
    const SkinsFolder folder(state.range(0));
    List<Path> skins;
    std::vector<std::string> badFiles;
    while (state.KeepRunning()) {
        skins.reset();
        sortOutFiles(
            skinCandidates({"B001FAFIT_1", "falgtfitB"}), [](const Path&) { return true; }, skins,
            badFiles);
        benchmark::DoNotOptimize(skins.bound());
    }
}
BENCHMARK(listSkinsOfAFolder)->Arg(500)->Arg(5000)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace marlowick

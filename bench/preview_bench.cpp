// Drawing a sim as it is worn: a frame, and a click on another skin.
#include <benchmark/benchmark.h>

#include <bit>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "bench/sim_figure.h"
#include "catalogue/skin_image.h"
#include "foundation/bytes.h"
#include "foundation/game.h"
#include "preview/raster.h"
#include "preview/scene.h"
#include "system/files.h"

namespace marlowick {
namespace {

namespace fs = std::filesystem;
using bench::egg;
using bench::kFrame;
using bench::noise;
using bench::simFigure;

void drawFrame(benchmark::State& state) {
    const Figure figure = simFigure();
    Raster raster;
    View view;
    for (auto _ : state) {
        view.yaw += 7;
        benchmark::DoNotOptimize(raster.draw(figure, view, kFrame, kFrame).data());
    }
    state.counters["faces"] = static_cast<double>(figure.parts.front().faces.size());
}
BENCHMARK(drawFrame)->Unit(benchmark::kMillisecond);

std::string number(std::size_t value) {
    return gfstrLongToLittleEndian(static_cast<std::int32_t>(value));
}

std::string counted(const std::string& text) {
    return static_cast<char>(text.size()) + text;
}

std::string real(float value) {
    return gfstrLongToLittleEndian(std::bit_cast<std::int32_t>(value));
}

struct Entry {
    std::string name;
    std::string data;
};

// So many entries that nobody asks for, and some behind them.
std::string archiveOf(std::size_t count, const std::vector<Entry>& wanted) {
    std::string data;
    std::string records;
    const auto add = [&](const std::string& name, const std::string& content) {
        records += number(content.size()) + number(content.size()) + number(16 + data.size()) +
                   number(name.size()) + name;
        data += content;
    };
    for (std::size_t i = 0; i < count; ++i) {
        add("Skins\\b" + std::to_string(100 + i % 900) + "fafitlgt_number" + std::to_string(i) +
                ".bmp",
            "x");
    }
    for (const Entry& entry : wanted) {
        add(entry.name, entry.data);
    }
    return "FAR!byAZ" + number(1) + number(16 + data.size()) + data +
           number(count + wanted.size()) + records;
}

std::string skeletonFile() {
    std::string file =
        number(1) + counted("adult") + number(1) + counted("ROOT") + counted("NULL") + number(0);
    for (const float value : {0.0F, 0.0F, 0.0F, 0.0F, 0.0F, 0.0F, 1.0F}) {
        file += real(value);
    }
    return file + number(1) + number(1) + number(1) + real(0) + real(0) + number(0) + number(0);
}

std::string suitFile(const std::string& name, const std::string& mesh) {
    return number(0) + number(1) + counted(name) + number(0) + number(0) + number(1) +
           counted("PELVIS") + counted(mesh) + number(0) + number(0) + number(0);
}

// A part of a sim, of 500 faces.
std::string meshFile(const Vector& centre, const Vector& radii) {
    const FigurePart part = egg(10, 25, centre, radii);
    std::string file =
        counted("mesh") + counted("x") + number(1) + counted("ROOT") + number(part.faces.size());
    for (const FigureFace& face : part.faces) {
        file += number(face[0]) + number(face[1]) + number(face[2]);
    }
    file += number(1) + number(0) + number(0) + number(part.vertices.size()) + number(0) +
            number(0) + number(part.vertices.size());
    for (const FigureVertex& vertex : part.vertices) {
        file += real(vertex.u) + real(vertex.v);
    }
    file += number(0) + number(part.vertices.size());
    for (const FigureVertex& vertex : part.vertices) {
        for (const float value : {-vertex.position.x, vertex.position.y, vertex.position.z,
                                  -vertex.normal.x, vertex.normal.y, vertex.normal.z}) {
            file += real(value);
        }
    }
    return file;
}

// A game of eleven archives of 5,000 entries and so many loose skins; the sim's files lie in the
// last of each search.
class Game {
  public:
    explicit Game(std::int64_t looseSkins)
        : root_(fs::temp_directory_path() / "marlowick-bench-preview") {
        std::vector<Entry> wanted = {{"adult-skeleton.cmx.bcf", skeletonFile()}};
        struct Piece {
            std::string name;
            Vector centre;
            Vector radii;
        };
        for (const Piece& piece : {Piece{"body", {0, 2.5F, 0}, {0.9F, 2.5F, 0.6F}},
                                   Piece{"head", {0, 5.5F, 0}, {0.5F, 0.6F, 0.6F}},
                                   Piece{"HfLO", {1.2F, 2.5F, 0}, {0.1F, 0.3F, 0.2F}},
                                   Piece{"HfRO", {-1.2F, 2.5F, 0}, {0.1F, 0.3F, 0.2F}}}) {
            wanted.push_back({piece.name + ".cmx.bcf", suitFile(piece.name, "x" + piece.name)});
            wanted.push_back({"x" + piece.name + ".bmf", meshFile(piece.centre, piece.radii)});
            wanted.push_back({piece.name + "skin.bmp", "skin"});
        }
        write("GameData/Animation/Animation.far", archiveOf(5000, {}));
        write("GameData/Textures/Textures.far", archiveOf(5000, {}));
        for (int pack = 1; pack <= 8; ++pack) {
            const std::string name = "ExpansionPack" + (pack == 1 ? "" : std::to_string(pack));
            write(name + "/" + name + ".far", archiveOf(5000, {}));
        }
        write("ExpansionShared/ExpansionShared.far", archiveOf(5000, wanted));
        fs::create_directories(root_ / "GameData" / "Skins");
        fs::create_directories(root_ / "temp");
        ProgramFolder = Path(root_.string());
        for (std::int64_t i = 0; i < looseSkins; ++i) {
            write("GameData/Skins/b001fafitlgt_" + std::to_string(i) + ".bmp", "x");
        }
        SimsPath = Path(root_.string());
    }
    ~Game() { fs::remove_all(root_); }
    Game(const Game&) = delete;
    Game& operator=(const Game&) = delete;

    static Path archive() { return SimsPath + "\\ExpansionShared\\ExpansionShared.far"; }

  private:
    void write(const std::string& name, const std::string& content) const {
        fs::create_directories((root_ / name).parent_path());
        std::ofstream(root_ / name, std::ios::binary) << content;
    }

    fs::path root_;
};

// One click in the chooser: another entry of an archive, on the sim that was shown before. keep:
// whether anything is left of the click before.
void click(benchmark::State& state, bool keep) {
    const Game game(state.range(0));
    const Worn worn{"adult",
                    {"body", "bodyskin"},
                    {"head", "headskin"},
                    {"HfLO", "HfLOskin"},
                    {"HfRO", "HfROskin"}};
    const auto texture = noise();
    const DecodeBitmap decode = [&](const std::string&) { return std::optional(*texture); };
    // As if the files were older than they are.
    const auto clock = [] { return stampClock() + 60'000'000'000; };
    auto kept = std::make_unique<KeptFiles>(kMostKept, clock);
    Raster raster;
    std::int32_t entry = 1;
    const auto show = [&] {
        extractSkin(Game::archive(), entry);
        const Scene scene = makeScene(worn, texture, decode, *kept);
        entry = entry % 4000 + 1;
        if (!scene.figure || scene.figure->parts.size() != 4) {
            state.SkipWithError("the sim isn't whole");
            return;
        }
        benchmark::DoNotOptimize(raster.draw(*scene.figure, {}, kFrame, kFrame).data());
    };
    show();
    for (auto _ : state) {
        if (!keep) {
            kept = std::make_unique<KeptFiles>(kMostKept, clock);
        }
        show();
    }
    state.counters["kept bytes"] = static_cast<double>(kept->bytes());
}

void firstClick(benchmark::State& state) {
    click(state, false);
}
BENCHMARK(firstClick)->Arg(0)->Arg(5000)->Unit(benchmark::kMillisecond);

void nextClick(benchmark::State& state) {
    click(state, true);
}
BENCHMARK(nextClick)->Arg(0)->Arg(5000)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace marlowick

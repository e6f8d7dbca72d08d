// The tools over a whole neighbourhood: their time grows with the number of sims and not faster.
#include <benchmark/benchmark.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>

#include "browser/neighbourhood_tools.h"
#include "browser/neighbourhoods.h"
#include "foundation/bytes.h"
#include "foundation/game.h"
#include "iff/string_segment.h"
#include "system/files.h"

namespace marlowick {
namespace {

namespace fs = std::filesystem;

// A fit man, his formal wear as told.
std::string wardrobe(const std::string& formal) {
    StrSegment strings;
    strings.Format = "\xFD\xFF";
    strings.Count = std::string("\x23\0", 2);
    strings.Entries.resize(35);
    for (int row = 1; row <= 35; ++row) {
        strings.Entries[row].Text = "b001mafit_01,BODY=b001mafitlgt_01";
    }
    strings.Entries[1].Text = "adult";
    strings.Entries[31].Text = formal;
    IffFile iff;
    iff.Segments.append({0, "STR#", {}, gfstrHexToBytes(kWardrobeId), {}, {}});
    writeWardrobeTable(iff, strings);
    return iff.Segments[1].Data;
}

// A neighbourhood of so many sims of the size that they have in the game, in a folder of its own.
class Neighbourhood {
  public:
    explicit Neighbourhood(int count) : root_(fs::temp_directory_path() / "marlowick-tools-bench") {
        fs::remove_all(root_);
        fs::create_directories(root_ / "UserData" / "Characters");
        SimsPath = ProgramFolder = Path(root_.string());
        IffFile iff;
        add(iff, "CTSS", "\x07\xD0", std::string("\xFD\xFF\1\0\1name\0\0", 11));
        add(iff, "STR#", std::string("\0\xC8", 2), wardrobe("f001maskn_01,BODY=f001masknlgt_01"));
        add(iff, "BMP_", "\x07\xD1", std::string(30000, 'x'));
        const Path first(nameOf(1).string());
        gsWriteIFF(iff, first);
        const std::string content = readWholeFile(first);
        for (int number = 2; number <= count; ++number) {
            std::ofstream(nameOf(number), std::ios::binary) << content;
        }
    }
    ~Neighbourhood() { fs::remove_all(root_); }
    Neighbourhood(const Neighbourhood&) = delete;
    Neighbourhood& operator=(const Neighbourhood&) = delete;

  private:
    static void add(IffFile& iff, const char* type, const std::string& id,
                    const std::string& data) {
        const auto size = static_cast<std::int32_t>(data.size()) + 76;
        iff.Segments.append({0, type, gfstrLongToBigEndian(size), id + std::string("\0\x10", 2),
                             std::string(64, '\0'), data});
    }

    fs::path nameOf(int number) const {
        char name[20];
        std::snprintf(name, sizeof name, "user%05d.iff", number);
        return root_ / "UserData" / "Characters" / name;
    }

    fs::path root_;
};

template <class Tool>
void run(benchmark::State& state, Tool tool) {
    const Neighbourhood neighbourhood(static_cast<int>(state.range(0)));
    const List<std::string> sims = findSimFiles("UserData");
    IffFile iff;
    for (auto _ : state) {
        tool({"UserData", sims, iff, [] {}});
    }
    state.SetComplexityN(state.range(0));
}

void exportSkins(benchmark::State& state) {
    run(state, [](const SimWalk& walk) { exportSkinNames(walk); });
}
BENCHMARK(exportSkins)
    ->RangeMultiplier(4)
    ->Range(160, 10240)
    ->Unit(benchmark::kMillisecond)
    ->Complexity();

// Every file is rewritten, and flushed to the disk.
void fixOutfits(benchmark::State& state) {
    run(state, [](const SimWalk& walk) {
        History history(historyPlaces());
        HistoryCommand command(history, "Repair", "", {});
        RepairWork work{command, [](const Path& /*file*/) { return true; }};
        fixFitToSkinny(walk, work);
    });
}
BENCHMARK(fixOutfits)
    ->RangeMultiplier(4)
    ->Range(160, 10240)
    ->Iterations(1)
    ->Unit(benchmark::kMillisecond)
    ->Complexity();

}  // namespace
}  // namespace marlowick

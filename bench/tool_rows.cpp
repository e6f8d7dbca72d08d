// What goes through a whole neighbourhood.
#include <benchmark/benchmark.h>
#include <dirent.h>

#include <cstdio>
#include <filesystem>

#include "bench/plain_disk.h"
#include "bench/ratio.h"
#include "browser/neighbourhood_tools.h"
#include "browser/neighbourhoods.h"
#include "foundation/bytes.h"
#include "foundation/game.h"
#include "foundation/history_command.h"
#include "foundation/history_places.h"
#include "iff/string_segment.h"
#include "system/files.h"
#include "system/one_command.h"

namespace marlowick::bench {
namespace {

constexpr std::size_t kRecord = 300;  // bytes of text about a file that is kept, about

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

// A neighbourhood of sims of the size that they have in the game.
class Neighbourhood : public Case {
  public:
    explicit Neighbourhood(int count) {
        folder_.makeFolder("UserData/Characters");
        SimsPath = ProgramFolder = folder_.path("");
        IffFile iff;
        add(iff, "CTSS", "\x07\xD0", std::string("\xFD\xFF\1\0\1name\0\0", 11));
        add(iff, "STR#", std::string("\0\xC8", 2), wardrobe("f001maskn_01,BODY=f001masknlgt_01"));
        add(iff, "BMP_", "\x07\xD1", std::string(30'000, 'x'));
        add(iff, "OBJD", std::string("\0\x80", 2), std::string(200, 'x'));
        iff.Segments[iff.Segments.bound()].Label.replace(0, 4, "user");
        gsWriteIFF(iff, Path(nameOf(1)));
        content_ = readWholeFile(Path(nameOf(1)));
        for (int number = 2; number <= count; ++number) {
            plainWrite(nameOf(number), content_);
        }
        sims_ = findSimFiles("UserData");
    }
    void floor() override {
        for (const std::string& name : listed()) {
            benchmark::DoNotOptimize(plainRead(folder_.of("UserData/Characters/" + name)).size);
        }
    }

  protected:
    // The names of the files, as one plain listing gives them.
    std::vector<std::string> listed() const {
        std::vector<std::string> names;
        DIR* const handle = ::opendir(folder_.of("UserData/Characters").c_str());
        while (const dirent* const entry = ::readdir(handle)) {
            if (entry->d_name[0] == 'u') {
                names.emplace_back(entry->d_name);
            }
        }
        ::closedir(handle);
        return names;
    }
    SimWalk walk() {
        return {"UserData", sims_, iff_, [] {}};
    }
    IffFile& iff() { return iff_; }
    std::string makeKeptFolder() const { return folder_.makeFolder("kept"); }
    void removeFolders() const {
        std::filesystem::remove_all(folder_.of("kept"));
        std::filesystem::remove_all(folder_.of("History"));
    }
    // What was rewritten goes back to what it was.
    void restore() const {
        for (int number = 1; number <= sims_.bound(); ++number) {
            if (plainRead(nameOf(number)).text() != content_) {
                plainWrite(nameOf(number), content_);
            }
        }
    }
    std::string folder() const { return folder_.of("UserData/Characters/"); }

  private:
    static void add(IffFile& iff, const char* type, const std::string& id,
                    const std::string& data) {
        const auto size = static_cast<std::int32_t>(data.size()) + 76;
        iff.Segments.append({0, type, gfstrLongToBigEndian(size), id + std::string("\0\x10", 2),
                             std::string(64, '\0'), data});
    }
    std::string nameOf(int number) const {
        char name[20];
        std::snprintf(name, sizeof name, "user%05d.iff", number);
        return folder_.of(std::string("UserData/Characters/") + name);
    }

    BenchFolder folder_;
    std::string content_;
    List<std::string> sims_;
    IffFile iff_;
};

// What the main window does behind a click on a neighbourhood.
class SortOut : public Neighbourhood {
  public:
    using Neighbourhood::Neighbourhood;
    void routine() override {
        const OneCommand command;
        List<std::string> good;
        List<BadFile> bad;
        const List<std::string> found = findSimFiles("UserData");
        for (int i = 1; i <= found.bound(); ++i) {
            sortOutSimFile(iff(), "UserData", found[i], good, bad);
        }
        benchmark::DoNotOptimize(good.bound());
    }
};

class ExportSkins : public Neighbourhood {
  public:
    using Neighbourhood::Neighbourhood;
    void routine() override {
        const OneCommand command;
        exportSkinNames(walk());
    }
};

// Every file is rewritten: the old one copied and flushed, a line about it written and flushed, the
// new one written beside it, flushed, read back and renamed. Each run finds the files as the game
// left them, and nothing kept: a second repair would find nothing to do.
class Repair : public Neighbourhood {
  public:
    using Neighbourhood::Neighbourhood;
    void prepare() override {
        restore();
        removeFolders();
    }
    void floor() override {
        const std::string keptFolder = makeKeptFolder();
        const std::string record = keptFolder + "/record";
        for (const std::string& name : listed()) {
            const std::string file = folder() + name;
            const std::string beside = file + ".new";
            const std::string kept = keptFolder + "/" + name;
            const Buffer content = plainRead(file);
            plainWrite(kept, content.text());
            plainFlush(kept);
            plainAppend(record, std::string(kRecord, 'x'));
            plainWrite(beside, content.text());
            plainFlush(beside);
            benchmark::DoNotOptimize(plainRead(beside).size);
            benchmark::DoNotOptimize(std::rename(beside.c_str(), file.c_str()));
        }
    }
    void routine() override {
        const OneCommand running;
        History history(historyPlaces());
        HistoryCommand command(history, "Repair", "", {});
        RepairWork work{command, [](const Path& /*file*/) { return true; }};
        fixFitToSkinny(walk(), work);
    }
};

}  // namespace

std::vector<Row> toolRows() {
    const std::vector<int> sizes = {100, 1000, 10'000};
    const std::vector<int> growth = {32, 320, 3200, 32'000};
    return {{.name = "Sort out a neighbourhood of # sims",
             .toReach = 1.5,
             .sizes = sizes,
             .smallSize = 5,
             .growth = growth,
             .make = sized<SortOut>()},
            {.name = "Export the skins of # sims",
             .toReach = 1.5,
             .sizes = sizes,
             .smallSize = 5,
             .growth = growth,
             .make = sized<ExportSkins>()},
            {.name = "Repair # sims",
             .toReach = 1.2,
             .sizes = sizes,
             .smallSize = 5,
             .growth = growth,
             .make = sized<Repair>()}};
}

}  // namespace marlowick::bench

// What it costs that nothing is lost: proving a new file before it takes the old one's name, and
// keeping the old one. TMPDIR=/dev/shm takes the disk's own time out of it.
#include <benchmark/benchmark.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

#include "far/archive_proof.h"
#include "far/far_save.h"
#include "foundation/bytes.h"
#include "foundation/folders.h"
#include "foundation/game.h"
#include "foundation/history.h"
#include "foundation/history_command.h"
#include "foundation/history_restore.h"
#include "foundation/sha256.h"
#include "iff/safe_rewrite.h"
#include "iff/user_file_proof.h"
#include "system/block_copy.h"
#include "system/files.h"
#include "system/replace_file.h"

namespace marlowick {
namespace {

namespace fs = std::filesystem;

void hashContent(benchmark::State& state, Sha256Way way) {
    const std::string content(static_cast<std::size_t>(state.range(0)), 'x');
    for (auto _ : state) {
        Sha256Stream stream(way);
        stream.add(content);
        benchmark::DoNotOptimize(stream.finish());
    }
    state.SetBytesProcessed(state.iterations() * state.range(0));
}
BENCHMARK_CAPTURE(hashContent, fastest, Sha256Way::Fastest)->Arg(36000)->Arg(16 << 20);
BENCHMARK_CAPTURE(hashContent, plain, Sha256Way::Plain)->Arg(36000)->Arg(16 << 20);

// A neighbourhood of so many sims of the size that they have in the game.
class Neighbourhood {
  public:
    explicit Neighbourhood(int count)
        : root_(fs::temp_directory_path() / "marlowick-history-bench"), count_(count) {
        fs::remove_all(root_);
        fs::create_directories(root_ / "UserData" / "Characters");
        SimsPath = ProgramFolder = Path(root_.string());
        IffFile iff;
        iff.HasRsmp = true;
        iff.RsmpHeader = "rsmp" + std::string(84, '\0');
        for (int part = 1; part <= 40; ++part) {
            add(iff, part == 2 ? "BMP_" : "BHAV", part, std::string(part == 2 ? 24000 : 250, 'x'));
        }
        StrSegment rows;
        rows.Format = "\xFD\xFF";
        rows.Count = std::string("\x23\0", 2);
        rows.Entries.resize(35);
        for (int row = 1; row <= 35; ++row) {
            rows.Entries[row].Text = "b001mafit_01,BODY=b001mafitlgt_01";
        }
        add(iff, "STR#", 200, {});
        writeWardrobeTable(iff, rows);
        iff.RsmpTypeCount = iff.RsmpTypes.bound();
        gsWriteIFF(iff, file(1));
        const std::string content = readWholeFile(file(1));
        for (int number = 2; number <= count; ++number) {
            std::ofstream(root_ / "UserData" / "Characters" / name(number), std::ios::binary)
                << content;
        }
    }
    ~Neighbourhood() { fs::remove_all(root_); }
    Neighbourhood(const Neighbourhood&) = delete;
    Neighbourhood& operator=(const Neighbourhood&) = delete;

    int count() const { return count_; }
    Path file(int number) const {
        return SimsPath + "\\UserData\\Characters" + ("\\" + name(number));
    }
    HistoryPlaces places() const { return historyPlaces(); }
    void forgetHistory() const { fs::remove_all(root_ / "History"); }

  private:
    static std::string name(int number) {
        char text[20];
        std::snprintf(text, sizeof text, "user%05d.iff", number);
        return text;
    }

    static void add(IffFile& iff, const char* type, int number, const std::string& data) {
        const std::string id = gfstrLongToBigEndian(number).substr(2);
        iff.Segments.append({0, type,
                             gfstrLongToBigEndian(static_cast<std::int32_t>(data.size()) + 76),
                             id + std::string("\0\x10", 2), std::string(64, '\0'), data});
        RsmpType row;
        row.TypeCode = gfstrReverseFour(type);
        row.EntryCount = 1;
        row.Entries.append({std::string(4, '\0'),
                            std::string(id.rbegin(), id.rend()) + std::string(2, '\0'),
                            std::string("abcde\0", 6)});
        iff.RsmpTypes.append(row);
    }

    fs::path root_;
    int count_;
};

// Reads a sim, changes a row and gives the file its new content, as every command does.
class Rewrite {
  public:
    bool isProven = false;
    HistoryCommand* history = nullptr;

    void run(const Path& file) {
        gsResetIFF(record_);
        if (!gfstrQuickReadIFF(record_, file).empty()) {
            std::abort();
        }
        if (isProven) {
            loaded_ = record_;
        }
        readWardrobeTable(record_, rows_);
        std::string& text = rows_.Entries[31].Text;
        text = text == "one" ? "two" : "one";
        writeWardrobeTable(record_, rows_);
        writeUserTemp(record_, SavedParts::All);
        replaceFile(userTempFile(), file, ReadOnlyTarget::Refuse, {},
                    [&](const Path& beside) { return look(file, beside); });
    }

  private:
    bool look(const Path& file, const Path& beside) {
        if (isProven && !userFileDifference(loaded_, {rows_}, beside).empty()) {
            std::abort();
        }
        return history == nullptr || history->keepOrAsk(file, stateOfFile(beside));
    }

    IffFile record_;
    IffFile loaded_;
    StrSegment rows_;
};

// The command as it was, with the proof, and with the old file kept too.
void rewriteSims(benchmark::State& state, bool isProven, bool isKept) {
    const Neighbourhood neighbourhood(static_cast<int>(state.range(0)));
    History history(neighbourhood.places());
    for (auto _ : state) {
        HistoryCommand command(history, "Repair", "", {});
        Rewrite rewrite;
        rewrite.isProven = isProven;
        rewrite.history = isKept ? &command : nullptr;
        for (int number = 1; number <= neighbourhood.count(); ++number) {
            rewrite.run(neighbourhood.file(number));
        }
        state.PauseTiming();
        command.end();
        neighbourhood.forgetHistory();
        state.ResumeTiming();
    }
}
BENCHMARK_CAPTURE(rewriteSims, alone, false, false)
    ->Arg(1)
    ->Arg(100)
    ->Arg(10000)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();
BENCHMARK_CAPTURE(rewriteSims, proven, true, false)
    ->Arg(1)
    ->Arg(100)
    ->Arg(10000)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();
BENCHMARK_CAPTURE(rewriteSims, provenAndKept, true, true)
    ->Arg(1)
    ->Arg(100)
    ->Arg(10000)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();

// The least that the same promise costs the disk: read the file, write a new one beside it and
// flush that, read it back, write the old bytes and flush them, write a record and flush it,
// rename.
void floorOfKeeping(benchmark::State& state) {
    const Neighbourhood neighbourhood(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        const Path kept = ProgramFolder + "\\History";
        files().makeFolder(kept);
        const auto about = files().open(kept + "\\about.json", OpenMode::CreateOwn);
        const std::string record(330, 'r');
        for (int number = 1; number <= neighbourhood.count(); ++number) {
            const Path file = neighbourhood.file(number);
            const Path beside = file + kNewFileEnding;
            const std::string content = readWholeFile(file);
            const auto write = [&](const Path& path) {
                const auto stream = files().open(path, OpenMode::CreateOwn);
                stream->write(content);
                stream->flush();
            };
            write(beside);
            benchmark::DoNotOptimize(readWholeFile(beside));
            write(kept + ("\\" + std::to_string(number)));
            about->write(record);
            about->flush();
            files().rename(beside, file);
        }
        state.PauseTiming();
        neighbourhood.forgetHistory();
        state.ResumeTiming();
    }
}
BENCHMARK(floorOfKeeping)
    ->Arg(1)
    ->Arg(100)
    ->Arg(10000)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();

// What a window of earlier versions and each command's end read: so many saves of one sim.
void listSaves(benchmark::State& state) {
    const Neighbourhood neighbourhood(1);
    History history(neighbourhood.places());
    for (int i = 0; i < state.range(0); ++i) {
        HistoryCommand command(history, "Save", "Mara Quill", {});
        command.keep(neighbourhood.file(1), stateOf(std::to_string(i)));
    }
    for (auto _ : state) {
        benchmark::DoNotOptimize(history.entries());
    }
}
BENCHMARK(listSaves)->Arg(100)->Arg(1000)->Unit(benchmark::kMillisecond);

void pruneAfterSave(benchmark::State& state, bool isFirstOfRun) {
    const Neighbourhood neighbourhood(1);
    History history(neighbourhood.places());
    for (int i = 0; i < state.range(0); ++i) {
        HistoryCommand command(history, "Save", "Mara Quill", {});
        command.keep(neighbourhood.file(1), stateOf(std::to_string(i)));
    }
    for (auto _ : state) {
        if (isFirstOfRun) {
            history = History(neighbourhood.places());
        }
        history.prune();
    }
}
BENCHMARK_CAPTURE(pruneAfterSave, first, true)->Arg(100)->Arg(1000)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(pruneAfterSave, later, false)->Arg(100)->Arg(1000)->Unit(benchmark::kMillisecond);

// A repair of so many sims: what its plan of restoring reads.
void planRestore(benchmark::State& state) {
    const Neighbourhood neighbourhood(static_cast<int>(state.range(0)));
    History history(neighbourhood.places());
    {
        HistoryCommand command(history, "Repair", "", {});
        for (int number = 1; number <= neighbourhood.count(); ++number) {
            command.keep(neighbourhood.file(number), stateOf("other"));
        }
    }
    for (auto _ : state) {
        const std::vector<HistoryEntry> all = history.entries();
        benchmark::DoNotOptimize(restorePlan(history, all.at(0), all, {}, false));
    }
}
BENCHMARK(planRestore)->Arg(100)->Arg(10000)->Unit(benchmark::kMillisecond);

// An archive of 250 MiB in the game's folder of textures, in entries of so many bytes.
class LargeArchive {
  public:
    explicit LargeArchive(std::int64_t entrySize)
        : root_(fs::temp_directory_path() / "marlowick-history-bench") {
        fs::remove_all(root_);
        fs::create_directories(root_ / "temp");
        fs::create_directories(root_ / "gamedata" / "textures");
        SimsPath = ProgramFolder = Path(root_.string());
        const auto size = static_cast<std::int32_t>(entrySize);
        const std::int32_t count = (250 << 20) / size;
        content_ =
            "FAR!byAZ" + gfstrLongToLittleEndian(1) + gfstrLongToLittleEndian(16 + count * size) +
            std::string(static_cast<std::size_t>(count) * static_cast<std::size_t>(size), 'x') +
            gfstrLongToLittleEndian(count);
        for (std::int32_t i = 0; i < count; ++i) {
            content_ += gfstrLongToLittleEndian(size) + gfstrLongToLittleEndian(size) +
                        gfstrLongToLittleEndian(16 + i * size) + gfstrLongToLittleEndian(5) +
                        "a.bmp";
        }
        writeWholeFile(ProgramFolder + "\\new.bmp", "a bitmap");
        makeAnew();
    }
    ~LargeArchive() { fs::remove_all(root_); }
    LargeArchive(const LargeArchive&) = delete;
    LargeArchive& operator=(const LargeArchive&) = delete;

    Path file() const { return texturesFolder() + "\\bench.far"; }
    std::int64_t size() const { return static_cast<std::int64_t>(content_.size()); }
    // As its window opens it.
    FarEdit opened() const {
        FarEdit edit;
        edit.mstrFarFile = file();
        gsReadFARdir(edit.mudtFarDir, file());
        listEntries(edit);
        return edit;
    }
    void makeAnew() const {
        fs::remove_all(root_ / "History");
        writeWholeFile(file(), content_);
    }

  private:
    fs::path root_;
    std::string content_;
};

// Saved as it is: alone, proven, and kept too.
void saveArchiveOf250MiB(benchmark::State& state, bool isProven, bool isKept) {
    const LargeArchive archive(state.range(0));
    History history(historyPlaces());
    for (auto _ : state) {
        const FarEdit edit = archive.opened();
        // What a save does before it replaces the archive stands here by itself: a plain copy.
        const Path temporary = tempFolder() + "\\tempfile.far";
        copyFile(archive.file(), temporary);
        HistoryCommand command(history, "Save archive", "", {});
        replaceFile(temporary, archive.file(), ReadOnlyTarget::Replace, {},
                    [&](const Path& beside) {
                        if (isProven && !archiveDifference(edit, beside).empty()) {
                            std::abort();
                        }
                        // As if the content had been another one.
                        FileState after = isKept ? stateOfFile(beside) : FileState();
                        ++after.size;
                        return !isKept || command.keepOrAsk(archive.file(), after);
                    });
        state.PauseTiming();
        command.end();
        archive.makeAnew();
        state.ResumeTiming();
    }
    state.SetBytesProcessed(state.iterations() * archive.size());
}
BENCHMARK_CAPTURE(saveArchiveOf250MiB, alone, false, false)
    ->Arg(26214)
    ->Arg(250 << 20)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();
BENCHMARK_CAPTURE(saveArchiveOf250MiB, proven, true, false)
    ->Arg(26214)
    ->Arg(250 << 20)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();
BENCHMARK_CAPTURE(saveArchiveOf250MiB, provenAndKept, true, true)
    ->Arg(26214)
    ->Arg(250 << 20)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();

// The whole command, with one bitmap added, and what of it is the proof.
void saveWholeArchive(benchmark::State& state) {
    const LargeArchive archive(state.range(0));
    History history(historyPlaces());
    for (auto _ : state) {
        FarEdit edit = archive.opened();
        FarAdder(edit, ProgramFolder).add("new.bmp");
        HistoryCommand command(history, "Save archive", "", {});
        if (!saveArchive(edit, archive.file(), command, {[](int, int) {}, [] {}})) {
            std::abort();
        }
        state.PauseTiming();
        command.end();
        archive.makeAnew();
        state.ResumeTiming();
    }
    state.SetBytesProcessed(state.iterations() * archive.size());
}
BENCHMARK(saveWholeArchive)
    ->Arg(26214)
    ->Arg(250 << 20)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();

void proofOfArchive(benchmark::State& state) {
    const LargeArchive archive(state.range(0));
    const FarEdit edit = archive.opened();
    for (auto _ : state) {
        if (!archiveDifference(edit, archive.file()).empty()) {
            std::abort();
        }
    }
    state.SetBytesProcessed(state.iterations() * archive.size());
}
BENCHMARK(proofOfArchive)->Arg(26214)->Arg(250 << 20)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace
}  // namespace marlowick

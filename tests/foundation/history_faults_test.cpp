// Every operation that keeping and pruning ask of the disk fails once, with each error, and the
// machine stops at each: nothing is ever lost, and the same works again.
#include <iostream>

#include "foundation/history_restore.h"
#include "history_test.h"
#include "support/faulty_files.h"
#include "support/quick_disk.h"
#include "support/sweep_step.h"

namespace marlowick {
namespace {

using test::FaultyFiles;

struct Case {
    FaultyFiles::Fault fault;
    int number;
};

constexpr Case kCases[] = {
    {FaultyFiles::Fault::Fail, 57},
    {FaultyFiles::Fault::Fail, 61},
    {FaultyFiles::Fault::Fail, 53},
    {FaultyFiles::Fault::Stop, 57},
};

class HistoryFaultsTest : private test::QuickDisk, public test::HistoryTest {
  protected:
    static constexpr int kSims = 3;

    // Runs work with the k-th operation failing, for each k until it does nothing that fails.
    template <class Prepare, class Work, class Check>
    int sweep(Prepare prepare, Work work, Check check) {
        int points = 0;
        for (const Case& row : kCases) {
            bool isThrough = false;
            for (int k = 1; !isThrough; k += test::kSweepStep, ++points) {
                prepare();
                {
                    const FaultyFiles faulty(k, row.fault, row.number, FaultyFiles::Counted::All);
                    work();
                    isThrough = faulty.changes() < k;
                }
                SCOPED_TRACE("operation " + std::to_string(k) + " fails with " +
                             std::to_string(row.number));
                check();
                if (HasFailure()) {
                    return points;
                }
            }
        }
        std::cout << "[  POINTS  ] " << points << '\n';
        return points;
    }

    // A new history, three sims and an archive.
    void prepare() {
        std::filesystem::remove_all(folder.program() / "History");
        history = History(history.places());
        for (int i = 1; i <= kSims; ++i) {
            folder.write(simName(i), oldContent(i));
        }
        folder.write("game/gamedata/textures/x.far", oldArchive());
        folder.write("program/ENS/x.ens", "old ensemble");
    }

    // All commands in one, ending as they do with the first failure.
    void replaceAll() {
        HistoryCommand command(history, "Restore", "", {});
        try {
            for (int i = 1; i <= kSims; ++i) {
                replaceKept(command, simPath(i), "new");
            }
            replaceKept(command, archivePath("x.far"), "new");
            const Path ensemble = folder.path("program\\ENS\\x.ens");
            if (files().fileExists(ensemble) && command.keepOrAsk(ensemble, std::nullopt)) {
                files().remove(ensemble);
            }
        } catch (const RuntimeError&) {
            // What a command reports.
        }
    }

    static std::string oldContent(int sim) { return "old sim " + std::to_string(sim); }
    static std::string oldArchive() { return std::string((1 << 20) + 1, 'o'); }

    struct PlayersFile {
        std::string name;
        std::string old;
        std::string path;  // below a command's folder
        std::optional<std::string> replaced;
    };
    std::vector<PlayersFile> playersFiles() const {
        std::vector<PlayersFile> all;
        for (int i = 1; i <= kSims; ++i) {
            all.push_back({simName(i), oldContent(i), simName(i).substr(6), "new"});
        }
        all.push_back(
            {"game/gamedata/textures/x.far", oldArchive(), "gamedata/textures/x.far", "new"});
        all.push_back({"program/ENS/x.ens", "old ensemble", "ENS/x.ens", std::nullopt});
        return all;
    }

    // Every file is the old one or the new one, whole; of each new one the old bytes are kept, and
    // a record vouches for them.
    void expectNothingLost() const {
        for (const PlayersFile& file : playersFiles()) {
            const bool isThere = folder.exists(file.name);
            const std::string content = folder.read(file.name);
            if (isThere && content == file.old) {
                continue;
            }
            EXPECT_EQ(isThere ? std::optional(content) : std::nullopt, file.replaced) << file.name;
            EXPECT_TRUE(isKept(file)) << file.name;
        }
    }

    bool isKept(const PlayersFile& file) const { return isKept(file, file.old); }

    bool isKept(const PlayersFile& file, const std::string& content) const {
        for (const HistoryEntry& entry : history.entries()) {
            for (const HistoryRecord& record : entry.about.records) {
                std::string path = record.path;
                std::replace(path.begin(), path.end(), '\\', '/');
                if (path == file.path && record.before == stateOf(content) &&
                    stateOfFile(history.keptFile(entry, record)) == record.before) {
                    return true;
                }
            }
        }
        return false;
    }

    // Every record of every command has its old bytes.
    void expectRecordsWhole() const {
        for (const HistoryEntry& entry : history.entries()) {
            EXPECT_TRUE(entry.isReadable || entry.about.records.empty());
            for (const HistoryRecord& record : entry.about.records) {
                ASSERT_TRUE(record.place);
                if (record.before) {
                    EXPECT_EQ(stateOfFile(history.keptFile(entry, record)), record.before);
                }
            }
        }
    }

    std::vector<std::string> leftovers() const {
        std::vector<std::string> names;
        for (const auto& entry : std::filesystem::recursive_directory_iterator(folder.root())) {
            const std::string name = entry.path().string();
            if (name.ends_with(kNewFileEnding) || name.ends_with("going.json")) {
                names.push_back(name);
            }
        }
        return names;
    }
};

TEST_F(HistoryFaultsTest, NothingIsLostWhereverTheKeepingFails) {
    const int points = sweep([&] { prepare(); }, [&] { replaceAll(); },
                             [&] {
                                 expectNothingLost();
                                 expectRecordsWhole();
                                 // The same command works once the fault is gone.
                                 replaceAll();
                                 for (const PlayersFile& file : playersFiles()) {
                                     EXPECT_EQ(folder.exists(file.name), file.replaced.has_value());
                                     EXPECT_EQ(folder.read(file.name), file.replaced.value_or(""));
                                     EXPECT_TRUE(isKept(file)) << file.name;
                                 }
                                 expectRecordsWhole();
                                 EXPECT_EQ(leftovers(), std::vector<std::string>{});
                             });
    EXPECT_GT(points, 300 / test::kSweepStep);
}

TEST_F(HistoryFaultsTest, NothingIsLostWhereverTheRestoringFails) {
    const auto replaced = [&] {
        prepare();
        replaceAll();
    };
    const auto restoreAll = [&] {
        HistoryCommand command(history, "Restore", "", {});
        try {
            const std::vector<HistoryEntry> all = history.entries();
            if (all.empty()) {
                return;  // the listing has failed
            }
            for (const RestoreItem& item : restorePlan(history, all.back(), all, {}, false)) {
                if (!restoreFile(item, {command})) {
                    return;
                }
            }
        } catch (const RuntimeError&) {
            // What a command reports.
        }
    };
    const int points = sweep(replaced, restoreAll, [&] {
        for (const PlayersFile& file : playersFiles()) {
            const auto content =
                folder.exists(file.name) ? std::optional(folder.read(file.name)) : std::nullopt;
            EXPECT_TRUE(content == file.replaced || content == file.old) << file.name;
            EXPECT_TRUE(isKept(file)) << file.name;
            EXPECT_TRUE(content == file.replaced || !file.replaced || isKept(file, *file.replaced))
                << file.name;
        }
        expectRecordsWhole();
        restoreAll();
        for (const PlayersFile& file : playersFiles()) {
            EXPECT_EQ(folder.read(file.name), file.old) << file.name;
        }
        expectRecordsWhole();
        EXPECT_EQ(leftovers(), std::vector<std::string>{});
    });
    EXPECT_GT(points, 300 / test::kSweepStep);
}

// What a person who says "go on" gets: the new file, whatever became of the old bytes.
TEST_F(HistoryFaultsTest, WhoGoesOnWithoutGetsTheNewFileAndNoFalseRecord) {
    const auto work = [&] {
        HistoryCommand save(history, "Save", "", [](const KeepResult&) { return true; });
        try {
            replaceKept(save, simPath(1), "new");
        } catch (const RuntimeError&) {
            // The replacement itself may fail too.
        }
    };
    const int points = sweep([&] { prepare(); }, work,
                             [&] {
                                 const std::string content = folder.read(simName(1));
                                 EXPECT_TRUE(content == oldContent(1) || content == "new");
                                 expectRecordsWhole();
                             });
    EXPECT_GT(points, 100 / test::kSweepStep);
}

TEST_F(HistoryFaultsTest, PruningThatFailsOrStopsGoesOnTheNextTime) {
    const auto fill = [&] {
        prepare();
        for (int version = 1; version <= 4; ++version) {
            for (int i = 1; i <= 2; ++i) {
                saveOver(simPath(i), std::string(10, static_cast<char>('0' + version)));
            }
        }
        // The newest three of eight fit.
        history = History(history.places(), {30, 30, 2});
    };
    const int points = sweep(
        fill, [&] { history.prune(); },
        [&] {
            expectRecordsWhole();
            EXPECT_GE(history.entries().size(), 3U);
            history.prune();
            EXPECT_EQ(folders(), (std::vector<std::string>{
                                     "000006 2026-11-21 14.15.33 Save",
                                     "000007 2026-11-21 14.15.33 Save",
                                     "000008 2026-11-21 14.15.33 Save",
                                 }));
            expectRecordsWhole();
        });
    EXPECT_GT(points, 300 / test::kSweepStep);
}

}  // namespace
}  // namespace marlowick

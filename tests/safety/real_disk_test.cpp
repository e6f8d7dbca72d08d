// The commands on the machine's own disk: what reaches it in which order, a disk that takes no
// more, and links to other folders.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <set>

#ifndef _WIN32
#include <sys/resource.h>
#include <sys/stat.h>

#include <csignal>
#endif

#include "safety/command_test.h"
#include "support/faulty_files.h"
#include "system/game_text.h"
#include "system/streams.h"

namespace marlowick {
namespace {

namespace fs = std::filesystem;
using test::Contents;
using test::FaultyFiles;
using test::Outcome;
using test::Stage;
using test::TestedCommand;

// Notes what was written and isn't on the disk itself yet when a file takes its name.
class FlushWatch : public FaultyFiles {
  public:
    FlushWatch() : FaultyFiles(0, Fault::Fail) {}

    std::unique_ptr<File> open(const Path& path, OpenMode mode) override {
        return std::make_unique<Watched>(FaultyFiles::open(path, mode), this,
                                         upperCase(path.text()));
    }
    void rename(const Path& source, const Path& target) override {
        for (const std::string& name : unflushed_) {
            const bool guards = name.find("\\HISTORY\\") != std::string::npos ||
                                name.find("\\BACKUP\\") != std::string::npos;
            if (guards || name == upperCase(source.text())) {
                early.push_back(name + " before " + target.text());
            }
        }
        targets.push_back(upperCase(target.text()));
        FaultyFiles::rename(source, target);
    }

    std::vector<std::string> early;
    std::vector<std::string> targets;

  private:
    class Watched : public File {
      public:
        Watched(std::unique_ptr<File> under, FlushWatch* owner, std::string name)
            : under_(std::move(under)), owner_(owner), name_(std::move(name)) {}

        std::size_t read(char* data, std::size_t size) override { return under_->read(data, size); }
        void write(std::string_view data) override {
            owner_->unflushed_.insert(name_);
            under_->write(data);
        }
        void seek(std::int64_t position) override { under_->seek(position); }
        std::int64_t position() override { return under_->position(); }
        std::int64_t size() override { return under_->size(); }
        void flush() override {
            under_->flush();
            owner_->unflushed_.erase(name_);
        }

      private:
        std::unique_ptr<File> under_;
        FlushWatch* owner_;
        std::string name_;
    };

    std::set<std::string> unflushed_;
};

class RealDiskTest : public test::CommandTest {};

TEST_P(RealDiskTest, WhatGuardsAFileIsOnTheDiskBeforeItIsReplaced) {
    prepare();
    FlushWatch watch;
    outcome = runCommand(command, stage);
    EXPECT_TRUE(outcome.isDone) << outcome.told;
    EXPECT_EQ(watch.early, std::vector<std::string>{});
    if (command.isReport || command.files.empty() || command.name == "ensemble-deleted") {
        return;
    }
    for (const std::string& name : command.files) {
        const std::string path = upperCase(stage.path(name).text());
        EXPECT_NE(std::find(watch.targets.begin(), watch.targets.end(), path), watch.targets.end())
            << name;
    }
}

#ifndef _WIN32
// No file may grow beyond a limit while it lives.
class FileSizeLimit {
  public:
    explicit FileSizeLimit(rlim_t bytes) : handler_(std::signal(SIGXFSZ, SIG_IGN)) {
        ::getrlimit(RLIMIT_FSIZE, &before_);
        rlimit limit = before_;
        limit.rlim_cur = bytes;
        ::setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FileSizeLimit() {
        ::setrlimit(RLIMIT_FSIZE, &before_);
        std::signal(SIGXFSZ, handler_);
    }
    FileSizeLimit(const FileSizeLimit&) = delete;
    FileSizeLimit& operator=(const FileSizeLimit&) = delete;

  private:
    rlimit before_{};
    void (*handler_)(int);
};

TEST_P(RealDiskTest, ThatTakesNoMoreLosesNothing) {
    runWhole();
    int failed = 0;
    for (const rlim_t limit : {0U, 1U, 30U, 100U, 500U, 1000U, 4000U, 8000U, 20000U, 40000U}) {
        SCOPED_TRACE(limit);
        prepare();
        {
            const FileSizeLimit full(limit);
            outcome = runCommand(command, stage);
        }
        failed += outcome.isDone ? 0 : 1;
        expectNothingLost();
        expectItWorksAgain();
    }
    if (!command.files.empty()) {
        EXPECT_GT(failed, 0);
    }
}

dev_t deviceOf(const fs::path& path) {
    struct stat status {};
    EXPECT_EQ(::stat(path.c_str(), &status), 0);
    return status.st_dev;
}

// A person keeps the file itself elsewhere, perhaps on another disk: there it is replaced, and the
// link stays.
TEST_P(RealDiskTest, AFileBehindALinkIsReplacedWhereItLies) {
    runWhole();
    const fs::path elsewhere =
        fs::path("/tmp") / ("marlowick-link-" + folder.root().filename().string());
    fs::create_directories(elsewhere);
    for (std::size_t i = 0; i < command.files.size(); ++i) {
        const fs::path file = folder.root() / command.files[i];
        if (fs::exists(file)) {
            const fs::path target = elsewhere / std::to_string(i);
            fs::copy_file(file, target);
            fs::remove(file);
            fs::create_symlink(target, file);
        }
    }
    command.load(stage);
    outcome = runCommand(command, stage);
    EXPECT_TRUE(outcome.isDone) << outcome.told;
    EXPECT_TRUE(contentsOf(command, stage) == changed);
    for (std::size_t i = 0; i < command.files.size(); ++i) {
        if (fs::exists(elsewhere / std::to_string(i)) && changed[i]) {
            EXPECT_TRUE(fs::is_symlink(folder.root() / command.files[i]));
        }
    }
    for (const auto& entry : fs::directory_iterator(elsewhere)) {
        EXPECT_EQ(entry.path().filename().string().find("marlowick-new"), std::string::npos);
    }
    const bool isOtherDisk = deviceOf(elsewhere) != deviceOf(folder.root());
    fs::remove_all(elsewhere);
    if (!isOtherDisk) {
        GTEST_SKIP() << "there is no second disk to link to: the link led to the same one";
    }
}
#endif

INSTANTIATE_TEST_SUITE_P(Commands, RealDiskTest, ::testing::ValuesIn(test::testedCommands()),
                         test::nameOfTest);

// What stands in the way of one sim of a repair.
class RepairInTheWayTest : public ::testing::Test {
  protected:
    static const TestedCommand& repair() { return test::testedCommand("fit-repair"); }

    test::TestFolder folder;
    Stage stage{folder.root()};
};

TEST_F(RepairInTheWayTest, AReadOnlySimStaysAndIsTold) {
    repair().prepare(stage);
    const Contents old = contentsOf(repair(), stage);
    folder.makeReadOnly(repair().files[0]);
    const Outcome outcome = runCommand(repair(), stage);
    EXPECT_FALSE(outcome.isDone);
    EXPECT_EQ(outcome.told, "Error 75 - Path/File access error");
    EXPECT_TRUE(contentsOf(repair(), stage) == old);
}

TEST_F(RepairInTheWayTest, ASimThatTurnsIntoAFolderIsPassedOver) {
    repair().prepare(stage);
    const std::string other = stage.read(repair().files[1]).value();
    fs::remove(folder.root() / repair().files[0]);
    fs::create_directories(folder.root() / repair().files[0]);
    EXPECT_TRUE(runCommand(repair(), stage).isDone);
    EXPECT_TRUE(fs::is_directory(folder.root() / repair().files[0]));
    EXPECT_NE(stage.read(repair().files[1]), other);
}

TEST_F(RepairInTheWayTest, ASimThatIsDamagedSinceItWasListedIsPassedOver) {
    repair().prepare(stage);
    // Its first segment tells of no size.
    const std::string damaged = std::string(64, 'x') + "JUNK" + std::string(72, '\0');
    stage.write(repair().files[0], damaged);
    EXPECT_TRUE(runCommand(repair(), stage).isDone);
    EXPECT_EQ(stage.read(repair().files[0]), damaged);
}

}  // namespace
}  // namespace marlowick

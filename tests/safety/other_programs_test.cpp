// The commands while another program holds their files, changes them or takes them away.
#ifdef _WIN32
#include <windows.h>
#else
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>
#endif
// After windows.h.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <functional>
#include <iostream>

#include "safety/command_test.h"
#include "support/faulty_files.h"
#include "system/game_text.h"
#include "system/streams.h"

namespace marlowick {
namespace {

namespace fs = std::filesystem;
using test::FaultyFiles;
using test::TestedCommand;

// Another program that has a file open, and as far as the system has that, to itself.
class HeldFile {
  public:
    explicit HeldFile(const fs::path& path)
#ifdef _WIN32
        : handle_(::CreateFileW(path.c_str(), GENERIC_READ | GENERIC_WRITE, 0, nullptr,
                                OPEN_EXISTING, 0, nullptr)) {
        EXPECT_NE(handle_, INVALID_HANDLE_VALUE);
    }
    ~HeldFile() {
        ::CloseHandle(handle_);
    }
#else
        : handle_(::open(path.c_str(), O_RDWR | O_CLOEXEC)) {
        EXPECT_EQ(::flock(handle_, LOCK_EX | LOCK_NB), 0);
    }
    ~HeldFile() {
        ::close(handle_);
    }
#endif
    HeldFile(const HeldFile&) = delete;
    HeldFile& operator=(const HeldFile&) = delete;

  private:
#ifdef _WIN32
    HANDLE handle_;
#else
    int handle_;
#endif
};

// Does something on the disk right before a file is opened to be read for the n-th time.
class Interference : public FaultyFiles {
  public:
    Interference(const Path& file, int at, std::function<void()> act)
        : FaultyFiles(0, Fault::Fail),
          file_(upperCase(file.text())),
          at_(at),
          act_(std::move(act)) {}

    std::unique_ptr<File> open(const Path& path, OpenMode mode) override {
        const bool reads = mode == OpenMode::Input || mode == OpenMode::Binary;
        if (reads && upperCase(path.text()) == file_ && ++opened_ == at_) {
            act_();
        }
        return FaultyFiles::open(path, mode);
    }

    bool hasActed() const { return opened_ >= at_; }

  private:
    std::string file_;
    int at_;
    std::function<void()> act_;
    int opened_ = 0;
};

// The same file with another byte in its middle, which is in its data.
std::string played(std::string content) {
    content.at(content.size() / 2) ^= 1;
    return content;
}

class OtherProgramsTest : public test::CommandTest {
  protected:
    // Runs the command with an interference. False if the file isn't opened so often.
    bool runWith(const Path& file, int at, const std::function<void()>& act) {
        prepare();
        hasWorked = false;
        const Interference interference(file, at, act);
        outcome = runCommand(command, stage);
        return interference.hasActed();
    }

    // Windows lets nobody touch a file that is open at the time.
    std::function<void()> vanishing(const std::string& name) {
        return [this, file = folder.root() / name] {
            std::error_code ignored;
            fs::remove(file, ignored);
            hasWorked = !fs::exists(file);
        };
    }
    std::function<void()> writing(const std::string& name, const std::string& content) {
        return [this, name, content] {
            stage.write(name, content);
            hasWorked = stage.read(name) == content;
        };
    }

    void expectOthersOldOrNew(std::size_t but) const {
        for (std::size_t i = 0; i < command.files.size(); ++i) {
            if (i != but && !command.isReport) {
                const std::optional<std::string> now = stage.read(command.files[i]);
                EXPECT_TRUE(now == old[i] || now == changed[i]) << command.files[i];
            }
        }
    }

    void expectToldOrDone() const {
        if (!outcome.isDone) {
            EXPECT_NE(outcome.told, "");
        }
    }

    // Each file that stands there before the command is opened at least once to be read.
    void expectPoints() const {
        const auto files = std::count_if(old.begin(), old.end(),
                                         [](const auto& content) { return content.has_value(); });
        EXPECT_GE(points, files);
        std::cout << "[  POINTS  ] " << command.name << ' ' << points << '\n';
    }

    // The file is what it was, and the same run goes on.
    void expectItWorksWithTheOldFile(const std::string& name, const std::string& content) {
        streams().closeAll();
        stage.write(name, content);
        command.load(stage);
        const test::Outcome again = runCommand(command, stage);
        EXPECT_TRUE(again.isDone) << again.told;
        EXPECT_EQ(again.told, "");
        EXPECT_TRUE(contentsOf(command, stage) == changed);
    }

    int points = 0;
    bool hasWorked = false;  // the interference of the last run
};

// On Linux a file that another program has open, and even locked, can be replaced like any other:
// that program goes on with the old one.
TEST_P(OtherProgramsTest, AFileThatIsHeldIsNotLost) {
    runWhole();
    for (std::size_t i = 0; i < command.files.size(); ++i) {
        const std::string& name = command.files[i];
        SCOPED_TRACE(name);
        prepare();
        if (!fs::exists(folder.root() / name)) {
            continue;
        }
        {
            const HeldFile held(folder.root() / name);
            outcome = runCommand(command, stage);
        }
#ifdef _WIN32
        EXPECT_TRUE(stage.read(name) == old[i]);
        EXPECT_TRUE(command.passesOver || !outcome.isDone);
#else
        EXPECT_TRUE(outcome.isDone) << outcome.told;
        EXPECT_TRUE(stage.read(name) == changed[i]);
#endif
        expectNothingLost();
        expectItWorksAgain();
    }
}

TEST_P(OtherProgramsTest, AFileThatVanishesBeforeItIsOpenedIsToldOrMadeAnew) {
    runWhole();
    for (std::size_t i = 0; i < command.files.size(); ++i) {
        const std::string& name = command.files[i];
        if (!old[i]) {
            continue;
        }
        for (int at = 1; runWith(stage.path(name), at, vanishing(name)) && !HasFailure(); ++at) {
            if (!hasWorked) {
                continue;
            }
            SCOPED_TRACE(name + ", opened for the " + std::to_string(at) + ". time");
            // What is opened for reading and writing is made where it is missing.
            const std::string now = stage.read(name).value_or("");
            EXPECT_TRUE(now.empty() || now == changed[i]);
            expectOthersOldOrNew(i);
            expectToldOrDone();
            expectItWorksWithTheOldFile(name, *old[i]);
            ++points;
        }
    }
    expectPoints();
}

TEST_P(OtherProgramsTest, WhatAnotherProgramWritesMeanwhileIsThereOrKept) {
    runWhole();
    for (std::size_t i = 0; i < command.files.size(); ++i) {
        const std::string& name = command.files[i];
        if (!old[i]) {
            continue;
        }
        const std::string theirs = played(*old[i]);
        for (int at = 1; runWith(stage.path(name), at, writing(name, theirs)) && !HasFailure();
             ++at) {
            if (!hasWorked) {
                continue;
            }
            SCOPED_TRACE(name + ", opened for the " + std::to_string(at) + ". time");
            EXPECT_TRUE(stage.read(name) == theirs || isKept(stage, name, theirs));
            expectOthersOldOrNew(i);
            expectToldOrDone();
            expectItWorksWithTheOldFile(name, *old[i]);
            ++points;
        }
    }
    expectPoints();
}

INSTANTIATE_TEST_SUITE_P(Commands, OtherProgramsTest, ::testing::ValuesIn(test::testedCommands()),
                         test::nameOfTest);

// What is kept changes or goes between the look at it and its taking back.
class KeptMeanwhileTest : public OtherProgramsTest {
  protected:
    std::vector<std::string> keptFiles() const {
        std::vector<std::string> found;
        for (const auto& [name, content] : stage.everything()) {
            if (name.starts_with("program/History/") && fs::is_regular_file(folder.root() / name)) {
                found.push_back(name);
            }
        }
        return found;
    }

    void expectPlayersFilesOldOrNew() const {
        expectOthersOldOrNew(command.files.size());
        expectToldOrDone();
    }
};

TEST_P(KeptMeanwhileTest, NothingElseTakesThePlaceOfAFile) {
    runWhole();
    for (const std::string& name : keptFiles()) {
        prepare();
        const std::string damaged = played(stage.read(name).value());
        for (const std::function<void()>& act : {vanishing(name), writing(name, damaged)}) {
            for (int at = 1; runWith(stage.path(name), at, act) && !HasFailure(); ++at) {
                SCOPED_TRACE(name + ", opened for the " + std::to_string(at) + ". time");
                expectPlayersFilesOldOrNew();
                points += hasWorked ? 1 : 0;
            }
        }
    }
    EXPECT_GT(points, 4);
    std::cout << "[  POINTS  ] " << command.name << ' ' << points << '\n';
}

INSTANTIATE_TEST_SUITE_P(Commands, KeptMeanwhileTest,
                         ::testing::Values(test::testedCommand("restore"),
                                           test::testedCommand("pruning")),
                         test::nameOfTest);

}  // namespace
}  // namespace marlowick

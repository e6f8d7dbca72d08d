// The commands where files or folders may not be written.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <set>

#ifndef _WIN32
#include <unistd.h>
#endif

#include "safety/command_test.h"
#include "system/streams.h"

namespace marlowick {
namespace {

namespace fs = std::filesystem;

#ifndef _WIN32
// Rights bind everybody but the administrator, who is another person while this lives.
class PlainPerson {
  public:
    // folder: what that person works in.
    explicit PlainPerson(const fs::path& folder) {
        constexpr uid_t kNobody = 65534;
        if (::geteuid() != 0) {
            return;
        }
        isOther_ = ::chown(folder.c_str(), kNobody, static_cast<gid_t>(-1)) == 0;
        for (const auto& entry : fs::recursive_directory_iterator(folder)) {
            isOther_ =
                isOther_ && ::chown(entry.path().c_str(), kNobody, static_cast<gid_t>(-1)) == 0;
        }
        isOther_ = isOther_ && ::setresuid(kNobody, kNobody, 0) == 0;
    }
    ~PlainPerson() {
        if (isOther_) {
            EXPECT_EQ(::setresuid(0, 0, 0), 0);
        }
    }
    PlainPerson(const PlainPerson&) = delete;
    PlainPerson& operator=(const PlainPerson&) = delete;

    static bool isBound() { return ::geteuid() != 0; }

  private:
    bool isOther_ = false;
};
#endif

void forbidWriting(const fs::path& path) {
    fs::permissions(path, fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write,
                    fs::perm_options::remove);
}

void allowWriting(const fs::path& path) {
    fs::permissions(path, fs::perms::owner_write, fs::perm_options::add);
}

class RightsTest : public test::CommandTest {};

TEST_P(RightsTest, AReadOnlyFileStaysAndIsTold) {
#ifndef _WIN32
    const PlainPerson person(folder.root());
#endif
    runWhole();
    for (std::size_t i = 0; i < command.files.size(); ++i) {
        const std::string& name = command.files[i];
        SCOPED_TRACE(name);
        prepare();
        const fs::path file = folder.root() / name;
        if (!fs::exists(file)) {
            // What is written in place goes over what is there.
            stage.write(name, "a person's own");
        }
        const std::optional<std::string> before = stage.read(name);
        forbidWriting(file);
        outcome = runCommand(command, stage);
        if (name.ends_with(".far")) {
            // Its mark means nothing: an archive is meant to be replaced.
            EXPECT_TRUE(outcome.isDone) << outcome.told;
            EXPECT_EQ(stage.read(name), changed[i]);
            continue;
        }
        EXPECT_TRUE(stage.read(name) == before);
        EXPECT_NE(outcome.told.find("75"), std::string::npos) << outcome.told;
        if (!command.isReport) {
            EXPECT_FALSE(outcome.isDone);
            expectNothingLost();
        }
        allowWriting(file);
        if (before != old[i]) {
            fs::remove(file);
        }
        expectItWorksAgain();
    }
}

#ifndef _WIN32
// The mark of a folder means nothing to Windows.
TEST_P(RightsTest, AFolderThatMayNotBeWrittenLosesNothing) {
    const PlainPerson person(folder.root());
    if (!PlainPerson::isBound()) {
        GTEST_SKIP() << "the administrator can't become anybody else here";
    }
    runWhole();
    std::set<std::string> folders = {"game",        "program",         "program/temp",
                                     "program/ENS", "program/History", "program/Backup"};
    for (const std::string& name : command.files) {
        folders.insert(fs::path(name).parent_path().generic_string());
    }
    int failed = 0;
    for (const std::string& name : folders) {
        SCOPED_TRACE(name);
        prepare();
        const bool isThere = fs::exists(folder.root() / name);
        if (!isThere) {
            fs::create_directories(folder.root() / name);
        }
        forbidWriting(folder.root() / name);
        outcome = runCommand(command, stage);
        allowWriting(folder.root() / name);
        failed += outcome.isDone ? 0 : 1;
        expectNothingLost();
        if (!isThere) {
            ::rmdir((folder.root() / name).c_str());
        }
        expectItWorksAgain();
    }
    if (!command.files.empty()) {
        EXPECT_GT(failed, 0);
    }
}
#endif

INSTANTIATE_TEST_SUITE_P(Commands, RightsTest, ::testing::ValuesIn(test::testedCommands()),
                         test::nameOfTest);

}  // namespace
}  // namespace marlowick

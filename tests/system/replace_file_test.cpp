#include "system/replace_file.h"

#include <gtest/gtest.h>

#include "support/faulty_files.h"
#include "support/test_folder.h"
#include "system/files.h"
#include "system/runtime_error.h"
#include "system/streams.h"

namespace marlowick {
namespace {

const std::string kOld(70000, 'o');
const std::string kNew(1000000, 'n');  // more than a block

class ReplaceFileTest : public ::testing::Test {
  protected:
    ReplaceFileTest() {
        folder.write("program/usertemp.iff", kNew);
        folder.write("game/user1.iff", kOld);
    }

    void replace(ReadOnlyTarget readOnly = ReadOnlyTarget::Refuse) {
        replaceFile(folder.path("program\\usertemp.iff"), folder.path("game\\user1.iff"), readOnly);
    }

    std::size_t filesInGame() { return searchFiles(folder.path("game"), "*").size(); }

    test::TestFolder folder;
};

TEST_F(ReplaceFileTest, PutsTheNewContentInTheOldFilesPlace) {
    replace();
    EXPECT_EQ(folder.read("game/user1.iff"), kNew);
    EXPECT_EQ(folder.read("program/usertemp.iff"), kNew);
    EXPECT_EQ(filesInGame(), 1U);
}

TEST_F(ReplaceFileTest, MakesAMissingTarget) {
    std::filesystem::remove(folder.game() / "user1.iff");
    replace();
    EXPECT_EQ(folder.read("game/user1.iff"), kNew);
}

TEST_F(ReplaceFileTest, KeepsTheNamesCaseOnDisk) {
    std::filesystem::rename(folder.game() / "user1.iff", folder.game() / "USER1.Iff");
    replace();
    EXPECT_EQ(folder.read("game/USER1.Iff"), kNew);
    EXPECT_EQ(filesInGame(), 1U);
}

TEST_F(ReplaceFileTest, RefusesAReadOnlyTarget) {
    folder.makeReadOnly("game/user1.iff");
    try {
        replace();
        ADD_FAILURE();
    } catch (const RuntimeError& failure) {
        EXPECT_EQ(failure.number(), 75);
    }
    EXPECT_EQ(folder.read("game/user1.iff"), kOld);
    EXPECT_EQ(filesInGame(), 1U);
}

TEST_F(ReplaceFileTest, ReplacesAReadOnlyTargetWhereThatIsMeant) {
    folder.makeReadOnly("game/user1.iff");
    replace(ReadOnlyTarget::Replace);
    EXPECT_EQ(folder.read("game/user1.iff"), kNew);
}

TEST_F(ReplaceFileTest, LetsGoOfTheProgramsOwnHandle) {
    streams().open(slot::kUserFile, folder.path("game\\USER1.iff"), OpenMode::Binary);
    replace();
    EXPECT_FALSE(streams().isOpen(slot::kUserFile));
    EXPECT_EQ(folder.read("game/user1.iff"), kNew);
}

TEST_F(ReplaceFileTest, ALeftoverOfAnEarlierEndIsNoHindrance) {
    folder.write("game/user1.iff.marlowick-new", "half");
    replace();
    EXPECT_EQ(folder.read("game/user1.iff"), kNew);
    EXPECT_EQ(filesInGame(), 1U);
}

#ifndef _WIN32
TEST_F(ReplaceFileTest, ALinkedFileIsReplacedWhereItLies) {
    folder.write("elsewhere/real.iff", kOld);
    std::filesystem::remove(folder.game() / "user1.iff");
    std::filesystem::create_symlink(folder.root() / "elsewhere/real.iff",
                                    folder.game() / "user1.iff");
    replace();
    EXPECT_TRUE(std::filesystem::is_symlink(folder.game() / "user1.iff"));
    EXPECT_EQ(folder.read("elsewhere/real.iff"), kNew);
}

TEST_F(ReplaceFileTest, KeepsTheRightsOfTheFile) {
    namespace fs = std::filesystem;
    fs::permissions(folder.game() / "user1.iff",
                    fs::perms::owner_read | fs::perms::owner_write | fs::perms::group_read);
    replace();
    EXPECT_EQ(fs::status(folder.game() / "user1.iff").permissions(),
              fs::perms::owner_read | fs::perms::owner_write | fs::perms::group_read);
}
#endif

// What a caller sees before the new file takes the name: whole, and nothing of the old one gone.
TEST_F(ReplaceFileTest, TheNewFileCanBeLookedAtBeforeItTakesTheName) {
    std::string seen;
    const auto look = [&](const Path& beside) {
        seen = readWholeFile(beside);
        EXPECT_EQ(folder.read("game/user1.iff"), kOld);
        return true;
    };
    EXPECT_TRUE(replaceFile(folder.path("program\\usertemp.iff"), folder.path("game\\user1.iff"),
                            ReadOnlyTarget::Refuse, {}, look));
    EXPECT_EQ(seen, kNew);
    EXPECT_EQ(folder.read("game/user1.iff"), kNew);
    EXPECT_TRUE(replaceFileContent(folder.path("game\\user1.iff"), "other", ReadOnlyTarget::Refuse,
                                   [&](const Path& beside) {
                                       seen = readWholeFile(beside);
                                       return true;
                                   }));
    EXPECT_EQ(seen, "other");
    EXPECT_EQ(folder.read("game/user1.iff"), "other");
}

TEST_F(ReplaceFileTest, ANewFileThatIsNotWantedGoes) {
    const auto replaceIf = [&](const BeforeRename& look) {
        return replaceFile(folder.path("program\\usertemp.iff"), folder.path("game\\user1.iff"),
                           ReadOnlyTarget::Refuse, {}, look);
    };
    EXPECT_FALSE(replaceIf([](const Path&) { return false; }));
    EXPECT_EQ(folder.read("game/user1.iff"), kOld);
    EXPECT_EQ(filesInGame(), 1U);
    try {
        replaceIf([](const Path&) -> bool { throw RuntimeError(321, "why"); });
        ADD_FAILURE();
    } catch (const RuntimeError& failure) {
        EXPECT_EQ(failure.number(), 321);
        EXPECT_EQ(failure.description(), "why");
    }
    EXPECT_EQ(folder.read("game/user1.iff"), kOld);
    EXPECT_EQ(filesInGame(), 1U);
}

// The program's own file, which nobody needs once the target has its content.
class ReplaceFileByTest : public ReplaceFileTest {
  protected:
    bool replaceBy(const BeforeRename& look = {}) {
        return replaceFileBy(
            folder.path("program\\usertemp.iff"), folder.path("game\\user1.iff"),
            ReadOnlyTarget::Refuse, [this] { ++blocks; }, look);
    }
    bool isSourceThere() const { return folder.exists("program/usertemp.iff"); }

    int blocks = 0;
};

TEST_F(ReplaceFileByTest, MovesTheSourceWithoutACopy) {
    EXPECT_TRUE(replaceBy([&](const Path& beside) {
        EXPECT_FALSE(isSourceThere());
        EXPECT_EQ(readWholeFile(beside), kNew);
        EXPECT_EQ(folder.read("game/user1.iff"), kOld);
        return true;
    }));
    EXPECT_EQ(folder.read("game/user1.iff"), kNew);
    EXPECT_FALSE(isSourceThere());
    EXPECT_EQ(filesInGame(), 1U);
    EXPECT_EQ(blocks, 0);
}

TEST_F(ReplaceFileByTest, PutsASourceBackThatIsNotWanted) {
    EXPECT_FALSE(replaceBy([](const Path&) { return false; }));
    EXPECT_EQ(folder.read("game/user1.iff"), kOld);
    EXPECT_EQ(folder.read("program/usertemp.iff"), kNew);
    EXPECT_EQ(filesInGame(), 1U);
}

// The rights of a new file are those that its folder gives.
TEST_F(ReplaceFileByTest, CopiesWhereThereIsNoTargetYet) {
    std::filesystem::remove(folder.game() / "user1.iff");
    EXPECT_TRUE(replaceBy());
    EXPECT_EQ(folder.read("game/user1.iff"), kNew);
    EXPECT_TRUE(isSourceThere());
    EXPECT_GT(blocks, 1);
}

// A disk from which nothing can be moved to another.
class TwoDisks : public test::FaultyFiles {
  public:
    TwoDisks() : FaultyFiles(0, Fault::Fail) {}
    bool moveInOneStep(const Path& /*source*/, const Path& /*target*/) override { return false; }
};

TEST_F(ReplaceFileByTest, CopiesFromAnotherDisk) {
    const TwoDisks disks;
    EXPECT_TRUE(replaceBy());
    EXPECT_EQ(folder.read("game/user1.iff"), kNew);
    EXPECT_TRUE(isSourceThere());
    EXPECT_EQ(filesInGame(), 1U);
    EXPECT_GT(blocks, 1);
}

TEST_F(ReplaceFileByTest, NoFailureLosesEitherFile) {
    int changes = 0;
    {
        const test::FaultyFiles counting(0, test::FaultyFiles::Fault::Fail);
        replaceBy();
        changes = counting.changes();
    }
    ASSERT_GE(changes, 4);
    for (const auto fault : {test::FaultyFiles::Fault::Fail, test::FaultyFiles::Fault::Stop}) {
        for (int failAt = 1; failAt <= changes; ++failAt) {
            folder.write("game/user1.iff", kOld);
            folder.write("program/usertemp.iff", kNew);
            {
                const test::FaultyFiles faulty(failAt, fault);
                EXPECT_THROW(replaceBy(), RuntimeError) << failAt;
            }
            EXPECT_EQ(folder.read("game/user1.iff"), kOld) << failAt;
            if (fault == test::FaultyFiles::Fault::Fail) {
                EXPECT_EQ(folder.read("program/usertemp.iff"), kNew) << failAt;
                EXPECT_EQ(filesInGame(), 1U) << failAt;
            }
        }
    }
}

// At every step of the work, whether it fails once or the machine stops there, the target is the
// old file or the new one, whole.
TEST_F(ReplaceFileTest, NoFailureLosesTheFile) {
    int changes = 0;
    {
        const test::FaultyFiles counting(0, test::FaultyFiles::Fault::Fail);
        replace();
        changes = counting.changes();
    }
    ASSERT_GE(changes, 6);
    for (const auto fault : {test::FaultyFiles::Fault::Fail, test::FaultyFiles::Fault::Stop}) {
        for (int failAt = 1; failAt <= changes; ++failAt) {
            folder.write("game/user1.iff", kOld);
            {
                const test::FaultyFiles faulty(failAt, fault);
                EXPECT_THROW(replace(), RuntimeError) << failAt;
            }
            EXPECT_EQ(folder.read("game/user1.iff"), kOld) << failAt;
            if (fault == test::FaultyFiles::Fault::Fail) {
                EXPECT_EQ(filesInGame(), 1U) << failAt;
            }
        }
    }
}

TEST_F(ReplaceFileTest, AReplacementThatFailsLeavesTheReadOnlyMark) {
    int changes = 0;
    folder.makeReadOnly("game/user1.iff");
    {
        const test::FaultyFiles counting(0, test::FaultyFiles::Fault::Fail);
        replace(ReadOnlyTarget::Replace);
        changes = counting.changes();
    }
    EXPECT_FALSE(files().isReadOnly(folder.path("game\\user1.iff")));
    folder.write("game/user1.iff", kOld);
    folder.makeReadOnly("game/user1.iff");
    for (int failAt = 1; failAt <= changes; ++failAt) {
        {
            const test::FaultyFiles faulty(failAt, test::FaultyFiles::Fault::Fail);
            EXPECT_THROW(replace(ReadOnlyTarget::Replace), RuntimeError) << failAt;
        }
        EXPECT_EQ(folder.read("game/user1.iff"), kOld) << failAt;
        EXPECT_TRUE(files().isReadOnly(folder.path("game\\user1.iff"))) << failAt;
        EXPECT_EQ(filesInGame(), 1U) << failAt;
    }
}

}  // namespace
}  // namespace marlowick

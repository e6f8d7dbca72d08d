#include "wardrobe/user_backup.h"

#include <gtest/gtest.h>

#include "support/error_recorder.h"
#include "support/test_folder.h"
#include "system/clock.h"
#include "system/files.h"

namespace marlowick {
namespace {

std::tm at(int hour, int minute) {
    std::tm time{};
    time.tm_year = 126;
    time.tm_mon = 2;
    time.tm_mday = 9;
    time.tm_hour = hour;
    time.tm_min = minute;
    time.tm_sec = 59;
    return time;
}

class UserBackupTest : public ::testing::Test {
  protected:
    UserBackupTest() {
        setClock([this] { return now; });
    }
    ~UserBackupTest() override { setClock({}); }

    std::vector<std::string> backups() { return searchFiles(folder.path("program\\Backup"), "*"); }

    test::TestFolder folder;
    test::ErrorRecorder recorder;
    std::tm now = at(14, 7);
};

TEST_F(UserBackupTest, TheNameIsMadeOfFileSimNeighbourhoodAndTime) {
    folder.write("game/UserData2/Characters/User00012.iff", "old");
    const Path file = folder.path("game\\UserData2\\characters\\user00012.IFF");
    EXPECT_EQ(backupName(file, "Mara Quill  (user00012 - Mara Quill)", now),
              "User00012iff_MaraQuill_UserData2_20260309_140707");
    EXPECT_EQ(backupName(file, "Xno dash", now), "User00012iff_nodash_UserData2_20260309_140707");
    EXPECT_EQ(backupName(file, "Anne-Marie (user - x)", now),
              "User00012iff_arieuser-x_UserData2_20260309_140707");
    EXPECT_EQ(backupName(file, "", now), "User00012iff__UserData2_20260309_140707");
}

// A file name holds 255 bytes. The sim's name gives way, the other pieces stay whole.
TEST_F(UserBackupTest, ALongNameIsShortenedToWhatAFileNameHolds) {
    folder.write("game/UserData2/Characters/User00012.iff", "old");
    const Path file = folder.path("game\\UserData2\\characters\\user00012.IFF");
    const std::string front = "User00012iff_";
    const std::string back = "_UserData2_20260309_140707";
    const std::string room(255 - front.size() - back.size(), 'n');
    EXPECT_EQ(backupName(file, "A - " + room, now), front + room + back);
    EXPECT_EQ(backupName(file, "A - " + room + "x", now), front + room + back);
    // What the cleaning drops takes no room.
    EXPECT_EQ(backupName(file, "A - . . ." + room + "x", now), front + room + back);
    EXPECT_EQ(backupName(file, "A - " + std::string(40000, 'n'), now), front + room + back);
    EXPECT_TRUE(msMakeUserBackup(file, "A - " + std::string(300, 'n')));
    EXPECT_EQ(backups(), std::vector<std::string>{front + room + back});
    EXPECT_TRUE(recorder.reports().empty());
}

TEST_F(UserBackupTest, TheFolderIsMadeAndTheFileCopied) {
    folder.write("game/UserData/Characters/user1.iff", "old content");
    const Path file = folder.path("game\\UserData\\characters\\user1.iff");
    EXPECT_TRUE(msMakeUserBackup(file, "A  (user1 - A)"));
    EXPECT_EQ(backups(), std::vector<std::string>{"user1iff_A_UserData_20260309_140707"});
    EXPECT_EQ(folder.read("program/Backup/user1iff_A_UserData_20260309_140707"), "old content");
}

TEST_F(UserBackupTest, TwoBackupsWithinAMinuteShareTheName) {
    folder.write("game/UserData/Characters/user1.iff", "a longer first content");
    const Path file = folder.path("game\\UserData\\characters\\user1.iff");
    EXPECT_TRUE(msMakeUserBackup(file, "A  (user1 - A)"));
    folder.write("game/UserData/Characters/user1.iff", "second");
    EXPECT_TRUE(msMakeUserBackup(file, "A  (user1 - A)"));
    ASSERT_EQ(backups().size(), 1U);
    EXPECT_EQ(folder.read("program/Backup/" + backups().front()), "second");
    now = at(14, 8);
    EXPECT_TRUE(msMakeUserBackup(file, "A  (user1 - A)"));
    EXPECT_EQ(backups().size(), 2U);
}

// The Legacy Collection's first neighbourhoods are the classic game's.
TEST_F(UserBackupTest, TheSameNameFromAnotherGameKeepsBoth) {
    const std::string name = "user1iff_A_UserData_20260309_140707";
    folder.write("game/UserData/Characters/user1.iff", "classic");
    folder.write("saves/UserData/Characters/user1.iff", "legacy");
    const Path classic = folder.path("game\\UserData\\characters\\user1.iff");
    const Path legacy = folder.path("saves\\UserData\\characters\\user1.iff");
    EXPECT_TRUE(msMakeUserBackup(classic, "A  (user1 - A)"));
    EXPECT_TRUE(msMakeUserBackup(legacy, "A  (user1 - A)"));
    EXPECT_EQ(backups(), (std::vector<std::string>{name, name + "_2"}));
    EXPECT_EQ(folder.read("program/Backup/" + name), "classic");
    EXPECT_EQ(folder.read("program/Backup/" + name + "_2"), "legacy");
    // Each game's later save within the minute has its own backup's name.
    folder.write("game/UserData/Characters/user1.iff", "classic 2");
    folder.write("saves/UserData/Characters/user1.iff", "legacy 2");
    EXPECT_TRUE(msMakeUserBackup(legacy, "A  (user1 - A)"));
    EXPECT_TRUE(msMakeUserBackup(classic, "A  (user1 - A)"));
    EXPECT_EQ(backups().size(), 2U);
    EXPECT_EQ(folder.read("program/Backup/" + name), "classic 2");
    EXPECT_EQ(folder.read("program/Backup/" + name + "_2"), "legacy 2");
}

TEST_F(UserBackupTest, ABackupOfAnEarlierRunWithinTheMinuteIsOverwritten) {
    const std::string name = "user1iff_A_UserData_20260309_140707";
    folder.write("program/Backup/" + name, "a longer earlier content");
    folder.write("game/UserData/Characters/user1.iff", "now");
    EXPECT_TRUE(
        msMakeUserBackup(folder.path("game\\UserData\\characters\\user1.iff"), "A  (user1 - A)"));
    EXPECT_EQ(backups(), std::vector<std::string>{name});
    EXPECT_EQ(folder.read("program/Backup/" + name), "now");
}

// The number has its place in a name of full length too.
TEST_F(UserBackupTest, ALongNameFromAnotherGameKeepsBoth) {
    const std::string front = "user1iff_";
    const std::string back = "_UserData_20260309_140707";
    const std::size_t room = 255 - front.size() - back.size();
    folder.write("game/UserData/Characters/user1.iff", "classic");
    folder.write("saves/UserData/Characters/user1.iff", "legacy");
    const std::string sim = "A - " + std::string(300, 'n');
    EXPECT_TRUE(msMakeUserBackup(folder.path("game\\UserData\\characters\\user1.iff"), sim));
    EXPECT_TRUE(msMakeUserBackup(folder.path("saves\\UserData\\characters\\user1.iff"), sim));
    EXPECT_EQ(folder.read("program/Backup/" + front + std::string(room, 'n') + back), "classic");
    EXPECT_EQ(folder.read("program/Backup/" + front + std::string(room - 2, 'n') + back + "_2"),
              "legacy");
    EXPECT_TRUE(recorder.reports().empty());
}

TEST_F(UserBackupTest, AFailureIsReportedAndTold) {
    EXPECT_FALSE(msMakeUserBackup(folder.path("game\\UserData\\characters\\gone.iff"), "A - B"));
    ASSERT_EQ(recorder.reports().size(), 1U);
    EXPECT_EQ(recorder.reports()[0].module, "frmEditSim");
    EXPECT_EQ(recorder.reports()[0].procedure, "msMakeUserBackup");
    EXPECT_EQ(recorder.reports()[0].checkpoint, 3000);
}

TEST_F(UserBackupTest, ABackupThatIsMarkedReadOnlyStays) {
    const std::string name = "user1iff_A_UserData_20260309_140707";
    folder.write("program/Backup/" + name, "an earlier content");
    folder.makeReadOnly("program/Backup/" + name);
    folder.write("game/UserData/Characters/user1.iff", "now");
    EXPECT_FALSE(
        msMakeUserBackup(folder.path("game\\UserData\\characters\\user1.iff"), "A  (user1 - A)"));
    ASSERT_EQ(recorder.reports().size(), 1U);
    EXPECT_EQ(recorder.reports()[0].number, 75);
    EXPECT_EQ(backups(), std::vector<std::string>{name});
    EXPECT_EQ(folder.read("program/Backup/" + name), "an earlier content");
}

}  // namespace
}  // namespace marlowick

// What only the file system of Windows does: other programs' locks, marks, long paths, devices.
#include <windows.h>
// After windows.h.
#include <gtest/gtest.h>

#include "support/error_recorder.h"
#include "support/test_folder.h"
#include "system/files.h"
#include "system/replace_file.h"
#include "system/windows_text.h"

namespace marlowick {
namespace {

using test::errorOf;

// Another program that has a file open, and lets others do with it only what sharing says.
class OtherProgram {
  public:
    OtherProgram(const Path& path, DWORD sharing)
        : handle_(::CreateFileW(wideText(path.text()).c_str(), GENERIC_READ, sharing, nullptr,
                                OPEN_EXISTING, 0, nullptr)) {
        EXPECT_NE(handle_, INVALID_HANDLE_VALUE);
    }
    ~OtherProgram() { ::CloseHandle(handle_); }
    OtherProgram(const OtherProgram&) = delete;
    OtherProgram& operator=(const OtherProgram&) = delete;

  private:
    HANDLE handle_;
};

class WindowsFilesTest : public ::testing::Test {
  protected:
    WindowsFilesTest() {
        folder.write("program/usertemp.iff", "new content");
        folder.write("game/user1.iff", "old content");
    }

    void replace(ReadOnlyTarget readOnly = ReadOnlyTarget::Refuse) {
        replaceFile(source, target, readOnly);
    }

    std::vector<std::string> filesInGame() { return searchFiles(folder.path("game"), "*"); }

    DWORD marksOfTarget() { return ::GetFileAttributesW(wideText(target.text()).c_str()); }

    void setMarks(DWORD marks) {
        ASSERT_NE(::SetFileAttributesW(wideText(target.text()).c_str(), marks), 0);
    }

    test::TestFolder folder;
    const Path source = folder.path("program\\usertemp.iff");
    const Path target = folder.path("game\\user1.iff");
};

TEST_F(WindowsFilesTest, AFileThatTheGameKeepsToItselfIsErrorSeventy) {
    const OtherProgram game(target, 0);
    EXPECT_EQ(errorOf([&] { readWholeFile(target); }), 70);
    EXPECT_EQ(errorOf([&] { writeWholeFile(target, "x"); }), 70);
    EXPECT_EQ(errorOf([&] { files().open(target, OpenMode::Binary); }), 70);
    EXPECT_EQ(errorOf([&] { files().remove(target); }), 70);
}

TEST_F(WindowsFilesTest, AFileThatTheGameReadsIsNotReplacedAndNotLost) {
    constexpr DWORD kSharing[] = {0, FILE_SHARE_READ, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                  FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE};
    for (const DWORD sharing : kSharing) {
        {
            const OtherProgram game(target, sharing);
            EXPECT_EQ(errorOf([&] { replace(); }), 70) << sharing;
        }
        EXPECT_EQ(folder.read("game/user1.iff"), "old content") << sharing;
        EXPECT_EQ(filesInGame(), std::vector<std::string>{"user1.iff"}) << sharing;
    }
    replace();
    EXPECT_EQ(folder.read("game/user1.iff"), "new content");
}

TEST_F(WindowsFilesTest, AFileThatIsReadMeanwhileCanBeReadHereToo) {
    const OtherProgram game(target, FILE_SHARE_READ);
    EXPECT_EQ(readWholeFile(target), "old content");
}

TEST_F(WindowsFilesTest, TheReadOnlyMarkIsHonouredEverywhere) {
    setMarks(FILE_ATTRIBUTE_READONLY);
    EXPECT_TRUE(files().isReadOnly(target));
    EXPECT_EQ(errorOf([&] { writeWholeFile(target, "x"); }), 75);
    EXPECT_EQ(errorOf([&] { files().remove(target); }), 75);
    EXPECT_EQ(errorOf([&] { replace(); }), 75);
    EXPECT_EQ(folder.read("game/user1.iff"), "old content");
    replace(ReadOnlyTarget::Replace);
    EXPECT_EQ(folder.read("game/user1.iff"), "new content");
    EXPECT_EQ(marksOfTarget() & FILE_ATTRIBUTE_READONLY, 0U);
}

TEST_F(WindowsFilesTest, AFileThatCouldNotBeReplacedKeepsItsMarks) {
    setMarks(FILE_ATTRIBUTE_READONLY);
    {
        const OtherProgram game(target, FILE_SHARE_READ);
        EXPECT_EQ(errorOf([&] { replace(ReadOnlyTarget::Replace); }), 70);
    }
    EXPECT_EQ(folder.read("game/user1.iff"), "old content");
    EXPECT_NE(marksOfTarget() & FILE_ATTRIBUTE_READONLY, 0U);
    EXPECT_EQ(filesInGame(), std::vector<std::string>{"user1.iff"});
}

TEST_F(WindowsFilesTest, AReplacedFileKeepsItsOtherMarks) {
    constexpr DWORD kMarks = FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM;
    setMarks(kMarks);
    if ((marksOfTarget() & kMarks) != kMarks) {
        GTEST_SKIP() << "this disk keeps no marks";
    }
    replace();
    EXPECT_EQ(folder.read("game/user1.iff"), "new content");
    EXPECT_EQ(marksOfTarget() & kMarks, kMarks);
    writeWholeFile(target, "written over");
    EXPECT_EQ(folder.read("game/user1.iff"), "written over");
    files().clearAttributes(target);
    EXPECT_EQ(marksOfTarget() & kMarks, 0U);
}

// 260 characters were the most once.
TEST_F(WindowsFilesTest, PathsMayBeLong) {
    Path deep = folder.path("game");
    for (int i = 0; i < 8; ++i) {
        deep = deep.child(std::string(60, static_cast<char>('a' + i)));
        files().makeFolder(deep);
    }
    ASSERT_GT(deep.text().size(), 480U);
    const Path file = deep.child("user1.iff");
    writeWholeFile(file, "old content");
    EXPECT_TRUE(files().fileExists(file));
    EXPECT_EQ(searchFiles(deep, "USER*.iff"), std::vector<std::string>{"user1.iff"});
    replaceFile(source, file, ReadOnlyTarget::Refuse);
    EXPECT_EQ(readWholeFile(file), "new content");
    EXPECT_EQ(files().length(file), 11);
    EXPECT_TRUE(files().canWriteInto(deep));
    EXPECT_EQ(searchFiles(deep, "*").size(), 1U);
    files().remove(file);
    EXPECT_FALSE(files().fileExists(file));
    // The standard library, which clears the test's folder away, doesn't reach as deep.
    for (; deep != folder.path("game"); deep = deep.folder()) {
        ::RemoveDirectoryW((L"\\\\?\\" + wideText(deep.text())).c_str());
    }
}

TEST_F(WindowsFilesTest, DevicesAreNoFiles) {
    for (const char* name : {"NUL", "con", "COM1", "\\\\.\\NUL", "\\\\.\\C:"}) {
        const Path device{std::string(name)};
        EXPECT_EQ(errorOf([&] { writeWholeFile(device, "x"); }), 52) << name;
        EXPECT_EQ(errorOf([&] { readWholeFile(device); }), 52) << name;
        EXPECT_EQ(errorOf([&] { files().remove(device); }), 52) << name;
        EXPECT_EQ(errorOf([&] { files().makeFolder(device); }), 52) << name;
        EXPECT_FALSE(files().fileExists(device)) << name;
        EXPECT_TRUE(files().list(device).empty()) << name;
        EXPECT_FALSE(files().canWriteInto(device)) << name;
    }
    EXPECT_EQ(errorOf([&] { (void)folder.path("game").child("aux.iff"); }), 52);
}

TEST_F(WindowsFilesTest, ANameThatNoFileMayHaveIsErrorFiftyTwo) {
    EXPECT_EQ(errorOf([&] { writeWholeFile(folder.path("game") + "\\a?b", "x"); }), 52);
    EXPECT_EQ(errorOf([&] { writeWholeFile(folder.path("game") + "\\a<b", "x"); }), 52);
    EXPECT_EQ(errorOf([&] { files().open(Path(std::string("C:\\a\0b", 6)), OpenMode::Input); }),
              52);
    EXPECT_EQ(filesInGame(), std::vector<std::string>{"user1.iff"});
}

TEST_F(WindowsFilesTest, KnowsDrivesByTheirLetters) {
    const std::string drive = target.text().substr(0, 2);
    EXPECT_EQ(drive[1], ':');
    EXPECT_TRUE(files().folderExists(Path(drive + "\\")));
    EXPECT_FALSE(files().list(Path(drive + "\\")).empty());
    char missing = 0;
    for (char letter = 'D'; letter <= 'Z' && missing == 0; ++letter) {
        if ((::GetLogicalDrives() >> (letter - 'A') & 1U) == 0) {
            missing = letter;
        }
    }
    ASSERT_NE(missing, 0);
    const Path gone(std::string(1, missing) + ":\\Sims");
    EXPECT_FALSE(files().folderExists(gone));
    EXPECT_EQ(errorOf([&] { readWholeFile(gone + "\\Sims.exe"); }), 76);
    EXPECT_TRUE(files().list(gone).empty());
}

// Elsewhere a drive without a backslash is the folder that the program stands in on that drive.
TEST_F(WindowsFilesTest, ADriveAloneIsItsRoot) {
    const std::string drive = target.text().substr(0, 2);
    ASSERT_NE(::SetCurrentDirectoryW(wideText(folder.path("game").text()).c_str()), 0);
    std::vector<std::string> names;
    for (const FolderEntry& entry : files().list(Path(drive))) {
        names.push_back(entry.name);
    }
    ::SetCurrentDirectoryW(wideText(drive + "\\").c_str());
    std::vector<std::string> inRoot;
    for (const FolderEntry& entry : files().list(Path(drive + "\\"))) {
        inRoot.push_back(entry.name);
    }
    EXPECT_FALSE(inRoot.empty());
    EXPECT_EQ(names, inRoot);
}

TEST_F(WindowsFilesTest, AnEmptyDriveBringsUpNoBoxOfTheSystem) {
    const UINT before = ::SetErrorMode(SEM_NOOPENFILEERRORBOX);
    keepSystemBoxesAway();
    EXPECT_EQ(::GetErrorMode() & (SEM_FAILCRITICALERRORS | SEM_NOOPENFILEERRORBOX),
              static_cast<UINT>(SEM_FAILCRITICALERRORS | SEM_NOOPENFILEERRORBOX));
    ::SetErrorMode(before);
}

TEST_F(WindowsFilesTest, ListsNamesBeyondTheGamesCharactersWithQuestionMarks) {
    const Path greek = folder.path("game") + "\\user\xCE\xB1.iff";
    writeWholeFile(greek, "x");
    EXPECT_EQ(readWholeFile(greek), "x");
    EXPECT_EQ(searchFiles(folder.path("game"), "user?.iff"),
              (std::vector<std::string>{"user1.iff", "user?.iff"}));
}

TEST_F(WindowsFilesTest, FlushesWhatIsOpenForReadingAlone) {
    EXPECT_NO_THROW(files().open(target, OpenMode::Input)->flush());
    setMarks(FILE_ATTRIBUTE_READONLY);
    EXPECT_NO_THROW(files().open(target, OpenMode::Binary)->flush());
    setMarks(FILE_ATTRIBUTE_NORMAL);
}

// A game under "Program Files" lies in such a folder. What stands in for it is a folder of the
// host that lets nobody make files, not even an administrator; outside of Wine there is none.
TEST_F(WindowsFilesTest, WhereNothingMayBeMadeASaveFailsAndLosesNothing) {
    const Path forbidden("Z:\\sys\\kernel\\notes");
    if (!files().fileExists(forbidden)) {
        GTEST_SKIP() << "there is no such folder";
    }
    const std::int64_t length = files().length(forbidden);
    EXPECT_FALSE(files().canWriteInto(forbidden.folder()));
    EXPECT_EQ(errorOf([&] { replaceFile(source, forbidden, ReadOnlyTarget::Replace); }), 75);
    EXPECT_EQ(errorOf([&] { files().makeFolder(forbidden.folder().child("new")); }), 75);
    EXPECT_EQ(files().length(forbidden), length);
}

}  // namespace
}  // namespace marlowick

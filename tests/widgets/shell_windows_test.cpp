// The real shell and the real folder chooser of Windows.
#include <windows.h>
// After windows.h.
#include <commctrl.h>
#include <gtest/gtest.h>
#include <shlobj.h>

#include <QApplication>
#include <QDialog>
#include <QTest>
#include <QTimer>
#include <functional>

#include "support/test_folder.h"
#include "system/windows_text.h"
#include "widgets/display_text.h"
#include "widgets/folder_chooser.h"
#include "widgets/shell.h"

namespace marlowick {
namespace {

constexpr int kPatience = 20000;  // milliseconds
const std::string kUserClasses = "Software\\Classes\\";
constexpr const char* kCopier = "C:\\windows\\system32\\cmd.exe";

// A kind of document that a program of the system opens by copying it, and its traces in the
// registry of the user.
class ShellTest : public ::testing::Test {
  protected:
    ShellTest() {
        setClass(".marlowick-test", "MarlowickTest.Document");
        setClass("MarlowickTest.Document\\shell\\open\\command",
                 std::string(kCopier) + " /c copy \"%1\" \"%1.copy\"");
    }

    ~ShellTest() override {
        for (const char* key : {".marlowick-test", "MarlowickTest.Document"}) {
            ::RegDeleteTreeA(HKEY_CLASSES_ROOT, key);
            ::RegDeleteTreeA(HKEY_CURRENT_USER, (kUserClasses + key).c_str());
        }
    }

    // For the user alone, where Windows looks first; Wine knows only what is there for everybody.
    static void setClass(const std::string& key, const std::string& text) {
        const auto size = static_cast<DWORD>(text.size() + 1);
        EXPECT_EQ(::RegSetKeyValueA(HKEY_CURRENT_USER, (kUserClasses + key).c_str(), nullptr,
                                    REG_SZ, text.c_str(), size),
                  ERROR_SUCCESS);
        EXPECT_EQ(
            ::RegSetKeyValueA(HKEY_CLASSES_ROOT, key.c_str(), nullptr, REG_SZ, text.c_str(), size),
            ERROR_SUCCESS);
    }

    bool comes(const std::string& name, const std::string& content) {
        return QTest::qWaitFor([&] { return folder.read(name) == content; }, kPatience);
    }

    QString path(const char* name) { return toDisplay(folder.path(name)); }

    test::TestFolder folder;
};

TEST_F(ShellTest, FindsTheProgramOfADocument) {
    folder.write("game/a.marlowick-test", "x");
    QString program;
    EXPECT_GE(findProgramFor(path("game\\a.marlowick-test"), program), kShellSuccess);
    EXPECT_EQ(program.toLower(), QString::fromLatin1(kCopier).toLower());
}

TEST_F(ShellTest, FindsNoneForAnUnknownKindOrAMissingFile) {
    folder.write("game/a.marlowick-unknown", "x");
    QString program = QStringLiteral("left over");
    EXPECT_LT(findProgramFor(path("game\\a.marlowick-unknown"), program), kShellSuccess);
    EXPECT_TRUE(program.isEmpty());
    EXPECT_LT(findProgramFor(path("game\\none.marlowick-test"), program), kShellSuccess);
    EXPECT_TRUE(program.isEmpty());
}

TEST_F(ShellTest, OpensADocumentWithItsProgram) {
    folder.write("game/a.marlowick-test", "the document");
    QWidget owner;
    EXPECT_GE(shellOpen(&owner, path("game\\a.marlowick-test")), kShellSuccess);
    EXPECT_TRUE(comes("game/a.marlowick-test.copy", "the document"));
    EXPECT_LT(shellOpen(&owner, path("game\\none.marlowick-test")), kShellSuccess);
}

TEST_F(ShellTest, StartsAProgramWithOneArgument) {
    folder.write("game/a", "given");
    const QString argument =
        QStringLiteral("/c copy \"%1\" \"%2\"").arg(path("game\\a"), path("game\\b"));
    EXPECT_GE(shellStart(nullptr, QString::fromLatin1(kCopier), argument), kShellSuccess);
    EXPECT_TRUE(comes("game/b", "given"));
    EXPECT_LT(shellStart(nullptr, path("game\\none.exe"), argument), kShellSuccess);
}

TEST(BrowserProbeTest, LiesOnTheSystemDrive) {
    EXPECT_EQ(browserProbeFile(), "C:\\temphtm.HTM");
}

// The system's dialog of this thread; nullptr if there is none.
HWND shownDialog() {
    HWND found = nullptr;
    ::EnumThreadWindows(
        ::GetCurrentThreadId(),
        [](HWND window, LPARAM result) -> BOOL {
            wchar_t name[16] = {};
            ::GetClassNameW(window, name, 16);
            const bool isDialog = std::wstring(name) == L"#32770" && ::IsWindowVisible(window) != 0;
            if (isDialog) {
                *reinterpret_cast<HWND*>(result) = window;
            }
            return isDialog ? FALSE : TRUE;
        },
        reinterpret_cast<LPARAM>(&found));
    return found;
}

// The folder that is chosen in the dialog's tree; empty if none is.
std::wstring chosenFolder(HWND dialog) {
    HWND tree = nullptr;
    ::EnumChildWindows(
        dialog,
        [](HWND window, LPARAM result) -> BOOL {
            wchar_t name[20] = {};
            ::GetClassNameW(window, name, 20);
            if (std::wstring(name) != WC_TREEVIEWW) {
                return TRUE;
            }
            *reinterpret_cast<HWND*>(result) = window;
            return FALSE;
        },
        reinterpret_cast<LPARAM>(&tree));
    wchar_t text[100] = {};
    TVITEMW item{};
    item.mask = TVIF_TEXT;
    item.hItem = tree != nullptr ? TreeView_GetSelection(tree) : nullptr;
    item.pszText = text;
    item.cchTextMax = 100;
    if (item.hItem == nullptr ||
        ::SendMessageW(tree, TVM_GETITEMW, 0, reinterpret_cast<LPARAM>(&item)) == FALSE) {
        return {};
    }
    return text;
}

// What it is given to do is done again and again, as long as the dialog is there.
class FolderChooserTest : public ::testing::Test {
  protected:
    FolderChooserTest() {
        owner.show();
        timer.setInterval(100);
        QObject::connect(&timer, &QTimer::timeout, [this] {
            if (HWND dialog = shownDialog(); dialog != nullptr) {
                dialogOwner = ::GetWindow(dialog, GW_OWNER);
                action(dialog);
            }
        });
        timer.start();
    }

    test::TestFolder folder;
    QWidget owner;
    QTimer timer;
    std::function<void(HWND)> action;
    HWND dialogOwner = nullptr;
};

TEST_F(FolderChooserTest, GivesTheChosenFolder) {
    const std::wstring game = wideText(folder.path("game").text());
    int tries = 0;
    action = [&](HWND dialog) {
        // A dialog that isn't quite up yet goes back to the folder that it starts with.
        if (chosenFolder(dialog) == L"game") {
            ::PostMessageW(dialog, WM_COMMAND, IDOK, 0);
        } else if (++tries == 100) {
            ::PostMessageW(dialog, WM_COMMAND, IDCANCEL, 0);
        } else {
            ::SendMessageW(dialog, BFFM_SETSELECTIONW, TRUE,
                           reinterpret_cast<LPARAM>(game.c_str()));
        }
    };
    const QString chosen = chooseFolder(&owner, "Select the location of The Sims.");
    EXPECT_EQ(chosen.toLower(), toDisplay(folder.path("game")).toLower());
    EXPECT_EQ(dialogOwner, reinterpret_cast<HWND>(owner.winId()));
}

TEST_F(FolderChooserTest, GivesNothingOnCancel) {
    action = [](HWND dialog) { ::PostMessageW(dialog, WM_COMMAND, IDCANCEL, 0); };
    EXPECT_TRUE(chooseFolder(&owner, "Select the location of The Sims.").isEmpty());
    EXPECT_NE(dialogOwner, nullptr);
}

}  // namespace
}  // namespace marlowick

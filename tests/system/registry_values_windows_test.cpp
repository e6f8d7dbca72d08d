#include <windows.h>
// After windows.h.
#include <gtest/gtest.h>

#include <string>

#include "support/moved_saved_games.h"
#include "system/disk.h"
#include "system/known_folders.h"
#include "system/registry_values.h"

namespace marlowick {
namespace {

constexpr const wchar_t* kKey = L"Software\\Marlowick Values Test";

class RegistryValuesTest : public ::testing::Test {
  protected:
    void TearDown() override {
        for (HKEY root : {HKEY_CURRENT_USER, HKEY_LOCAL_MACHINE}) {
            for (const REGSAM half : {KEY_WOW64_32KEY, KEY_WOW64_64KEY}) {
                ::RegDeleteKeyExW(root, kKey, half, 0);
            }
        }
    }

    static bool write(HKEY root, REGSAM half, const std::wstring& text, DWORD type = REG_SZ,
                      std::size_t zeros = 1) {
        HKEY key = nullptr;
        if (::RegCreateKeyExW(root, kKey, 0, nullptr, 0, KEY_SET_VALUE | half, nullptr, &key,
                              nullptr) != ERROR_SUCCESS) {
            return false;
        }
        const LSTATUS status =
            ::RegSetValueExW(key, L"Path", 0, type, reinterpret_cast<const BYTE*>(text.c_str()),
                             static_cast<DWORD>((text.size() + zeros) * sizeof(wchar_t)));
        ::RegCloseKey(key);
        return status == ERROR_SUCCESS;
    }

    static std::optional<std::string> readUser() {
        return registryValue(RegistryHive::CurrentUser, RegistryView::Of64Bit,
                             "software\\marlowick values test", "PATH");
    }

    static std::optional<std::string> readMachine(RegistryView view) {
        return registryValue(RegistryHive::LocalMachine, view, "Software\\Marlowick Values Test",
                             "Path");
    }
};

TEST_F(RegistryValuesTest, ReadsTheUsersPart) {
    EXPECT_EQ(readUser(), std::nullopt);
    ASSERT_TRUE(write(HKEY_CURRENT_USER, KEY_WOW64_64KEY, L"d:/jeux/\u00E9t\u00E9/\u0436"));
    EXPECT_EQ(readUser(), "d:/jeux/\xC3\xA9t\xC3\xA9/\xD0\xB6");
    ASSERT_TRUE(write(HKEY_CURRENT_USER, KEY_WOW64_64KEY, L""));
    EXPECT_EQ(readUser(), "");
}

TEST_F(RegistryValuesTest, ReadsEachHalfOfTheMachinesPart) {
    if (!write(HKEY_LOCAL_MACHINE, KEY_WOW64_32KEY, L"C:\\32")) {
        GTEST_SKIP() << "only an administrator may write this part of the registry";
    }
    EXPECT_EQ(readMachine(RegistryView::Of32Bit), "C:\\32");
    EXPECT_EQ(readMachine(RegistryView::Of64Bit), std::nullopt);
    ASSERT_TRUE(write(HKEY_LOCAL_MACHINE, KEY_WOW64_64KEY, L"C:\\64"));
    EXPECT_EQ(readMachine(RegistryView::Of64Bit), "C:\\64");
    EXPECT_EQ(readMachine(RegistryView::Of32Bit), "C:\\32");
}

TEST_F(RegistryValuesTest, FillsInTheEnvironment) {
    ::SetEnvironmentVariableW(L"MARLOWICK_TEST", L"D:\\Home");
    ASSERT_TRUE(
        write(HKEY_CURRENT_USER, KEY_WOW64_64KEY, L"%MARLOWICK_TEST%\\Saves", REG_EXPAND_SZ));
    EXPECT_EQ(readUser(), "D:\\Home\\Saves");
    ASSERT_TRUE(write(HKEY_CURRENT_USER, KEY_WOW64_64KEY, L"%MARLOWICK_TEST%\\Saves"));
    EXPECT_EQ(readUser(), "%MARLOWICK_TEST%\\Saves");
}

TEST_F(RegistryValuesTest, TakesTextsAlone) {
    ASSERT_TRUE(write(HKEY_CURRENT_USER, KEY_WOW64_64KEY, L"ab", REG_BINARY));
    EXPECT_EQ(readUser(), std::nullopt);
    ASSERT_TRUE(write(HKEY_CURRENT_USER, KEY_WOW64_64KEY, L"a", REG_DWORD));
    EXPECT_EQ(readUser(), std::nullopt);
    ASSERT_TRUE(write(HKEY_CURRENT_USER, KEY_WOW64_64KEY, std::wstring(L"C:\\a\0b", 6)));
    EXPECT_EQ(readUser(), std::nullopt);
    // Without the zero at its end.
    ASSERT_TRUE(write(HKEY_CURRENT_USER, KEY_WOW64_64KEY, L"C:\\ab", REG_SZ, 0));
    EXPECT_EQ(readUser(), "C:\\ab");
    ASSERT_TRUE(write(HKEY_CURRENT_USER, KEY_WOW64_64KEY, std::wstring(40000, L'x')));
    EXPECT_EQ(readUser(), std::nullopt);
}

TEST(KnownFoldersTest, AreFullPathsOnADrive) {
    for (const Path& folder : {savedGamesFolder(), documentsFolder(), programDataFolder()}) {
        ASSERT_GE(folder.text().size(), 3U);
        EXPECT_EQ(folder.text().substr(1, 2), ":\\") << folder.text();
    }
    EXPECT_TRUE(homeFolder().empty());
}

TEST(KnownFoldersTest, AMovedFolderIsFound) {
    {
        const test::MovedSavedGames moved(L"D:\\Spiele\\\u00DCber");
        EXPECT_EQ(savedGamesFolder().text(),
                  "D:\\Spiele\\\xC3\x9C"
                  "ber");
    }
    EXPECT_NE(savedGamesFolder().text(),
              "D:\\Spiele\\\xC3\x9C"
              "ber");
}

TEST(FixedDrivesTest, TheSystemsDriveIsOne) {
    bool found = false;
    for (const Path& root : fixedDriveRoots()) {
        found = found || root.text() == "C:\\";
    }
    EXPECT_TRUE(found);
    for (const Path& root : remoteRoots()) {
        EXPECT_NE(root.text(), "C:\\");
    }
}

}  // namespace
}  // namespace marlowick

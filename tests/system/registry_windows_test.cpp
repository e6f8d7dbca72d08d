#include <windows.h>
// After windows.h.
#include <gtest/gtest.h>
#include <sddl.h>

#include <string>

#include "system/registry.h"
#include "system/windows_text.h"

namespace marlowick {
namespace {

constexpr const char* kKey = "Software\\Marlowick Test\\Game";
constexpr const char* kParent = "Software\\Marlowick Test";

// A key in one of the two halves of the registry, gone at the test's end.
class RegistryTest : public ::testing::Test {
  protected:
    void SetUp() override {
        HKEY key = nullptr;
        if (::RegCreateKeyExA(HKEY_LOCAL_MACHINE, kKey, 0, nullptr, 0,
                              KEY_ALL_ACCESS | KEY_WOW64_32KEY, nullptr, &key,
                              nullptr) != ERROR_SUCCESS) {
            GTEST_SKIP() << "only an administrator may write this part of the registry";
        }
        ::RegCloseKey(key);
    }

    void TearDown() override {
        for (const REGSAM half : {KEY_WOW64_32KEY, KEY_WOW64_64KEY}) {
            ::RegDeleteKeyExA(HKEY_LOCAL_MACHINE, kKey, half, 0);
            ::RegDeleteKeyExA(HKEY_LOCAL_MACHINE, kParent, half, 0);
        }
    }

    static void write(const std::wstring& text, REGSAM half = KEY_WOW64_32KEY,
                      DWORD type = REG_SZ) {
        HKEY key = nullptr;
        ASSERT_EQ(::RegCreateKeyExA(HKEY_LOCAL_MACHINE, kKey, 0, nullptr, 0, KEY_SET_VALUE | half,
                                    nullptr, &key, nullptr),
                  ERROR_SUCCESS);
        EXPECT_EQ(::RegSetValueExW(key, L"InstallPath", 0, type,
                                   reinterpret_cast<const BYTE*>(text.c_str()),
                                   static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t))),
                  ERROR_SUCCESS);
        ::RegCloseKey(key);
    }

    static std::string read(int length = 0, const char* value = "InstallPath") {
        return GetRegistryString(kRegistryLocalMachine, kKey, value, length);
    }
};

TEST_F(RegistryTest, ReadsTheHalfOf32BitPrograms) {
    write(L"C:\\Maxis\\The Sims");
    write(L"C:\\Elsewhere", KEY_WOW64_64KEY);
    EXPECT_EQ(read(), "C:\\Maxis\\The Sims");
}

TEST_F(RegistryTest, AnotherHalfIsNotTheGames) {
    write(L"C:\\Elsewhere", KEY_WOW64_64KEY);
    EXPECT_EQ(read(), "ERROR");
}

TEST_F(RegistryTest, AMissingKeyOrValueIsError) {
    EXPECT_EQ(read(), "ERROR");
    EXPECT_EQ(GetRegistryString(kRegistryLocalMachine, "Software\\Marlowick Test\\None",
                                "InstallPath", 0),
              "ERROR");
}

TEST_F(RegistryTest, AValueEndsAtItsFirstZeroByteAndMayBeEmpty) {
    write(std::wstring(L"C:\\Sims\0more", 12));
    EXPECT_EQ(read(), "C:\\Sims");
    write(L"");
    EXPECT_EQ(read(), "");
}

TEST_F(RegistryTest, AValueMustFitTheBufferWithItsZeroByte) {
    write(std::wstring(254, L'x'));
    EXPECT_EQ(read(), std::string(254, 'x'));
    EXPECT_EQ(read(254), "ERROR");
    write(std::wstring(255, L'x'));
    EXPECT_EQ(read(), "ERROR");
    EXPECT_EQ(read(256), std::string(255, 'x'));
}

TEST_F(RegistryTest, AccentsSurvive) {
    write(L"C:\\Jeux\\Les Sims \u00E9t\u00E9");
    EXPECT_EQ(read(), "C:\\Jeux\\Les Sims \xC3\xA9t\xC3\xA9");
}

// Everybody may read the key and nobody may change it: what a player without rights finds.
TEST_F(RegistryTest, AKeyThatOpensOnlyForReadingIsError) {
    write(L"C:\\Maxis\\The Sims");
    HKEY key = nullptr;
    ASSERT_EQ(::RegOpenKeyExA(HKEY_LOCAL_MACHINE, kKey, 0,
                              READ_CONTROL | WRITE_DAC | KEY_WOW64_32KEY, &key),
              ERROR_SUCCESS);
    PSECURITY_DESCRIPTOR descriptor = nullptr;
    // Everyone: read and delete; the owner may give the rights back.
    ASSERT_NE(::ConvertStringSecurityDescriptorToSecurityDescriptorW(
                  L"D:P(A;;KRSDWD;;;WD)", SDDL_REVISION_1, &descriptor, nullptr),
              0);
    ASSERT_EQ(::RegSetKeySecurity(key, DACL_SECURITY_INFORMATION, descriptor), ERROR_SUCCESS);
    ::LocalFree(descriptor);
    ::RegCloseKey(key);

    HKEY readable = nullptr;
    EXPECT_EQ(::RegOpenKeyExA(HKEY_LOCAL_MACHINE, kKey, 0, KEY_READ | KEY_WOW64_32KEY, &readable),
              ERROR_SUCCESS);
    ::RegCloseKey(readable);
    EXPECT_EQ(read(), "ERROR");
}

}  // namespace
}  // namespace marlowick

// What Windows reads out of the program's own file.
#include <windows.h>
// After windows.h.
#include <gtest/gtest.h>

#include <QVersionNumber>
#include <set>
#include <string>
#include <vector>

#include "foundation/version.h"
#include "system/windows_text.h"

namespace marlowick {
namespace {

class ResourcesTest : public ::testing::Test {
  protected:
    ResourcesTest()
        : program(::LoadLibraryExW(wideText(MARLOWICK_PROGRAM).c_str(), nullptr,
                                   LOAD_LIBRARY_AS_DATAFILE)) {
        EXPECT_NE(program, nullptr);
    }
    ~ResourcesTest() override { ::FreeLibrary(program); }

    std::string resource(int number, LPCWSTR type) {
        const HRSRC found = ::FindResourceW(program, MAKEINTRESOURCEW(number), type);
        if (found == nullptr) {
            return {};
        }
        const auto* data = static_cast<const char*>(::LockResource(::LoadResource(program, found)));
        return {data, ::SizeofResource(program, found)};
    }

    HMODULE program;
};

// A directory of icons: 6 bytes, then 14 for each icon, the first of which is its width.
TEST_F(ResourcesTest, TheIconComesInAllSizes) {
    const std::string group = resource(1, RT_GROUP_ICON);
    std::set<int> sizes;
    for (std::size_t entry = 6; entry + 14 <= group.size(); entry += 14) {
        const int width = static_cast<unsigned char>(group[entry]);
        sizes.insert(width == 0 ? 256 : width);
    }
    EXPECT_EQ(sizes, (std::set<int>{16, 24, 32, 48, 64, 128, 256}));
}

TEST_F(ResourcesTest, TheVersionIsTheProgramsOwn) {
    std::string version = resource(1, RT_VERSION);
    VS_FIXEDFILEINFO* fixed = nullptr;
    wchar_t* text = nullptr;
    UINT size = 0;
    ASSERT_NE(::VerQueryValueW(version.data(), L"\\", reinterpret_cast<void**>(&fixed), &size), 0);
    const QVersionNumber parts = QVersionNumber::fromString(QString::fromLatin1(kVersionText));
    ASSERT_EQ(parts.segmentCount(), 3);
    EXPECT_EQ(fixed->dwFileVersionMS,
              static_cast<DWORD>(MAKELONG(parts.minorVersion(), parts.majorVersion())));
    EXPECT_EQ(fixed->dwFileVersionLS, static_cast<DWORD>(MAKELONG(0, parts.microVersion())));
    ASSERT_NE(::VerQueryValueW(version.data(), L"\\StringFileInfo\\040904B0\\ProductVersion",
                               reinterpret_cast<void**>(&text), &size),
              0);
    EXPECT_EQ(utf8Text(text), kVersionText);
}

TEST_F(ResourcesTest, TheManifestSaysHowToRunIt) {
    const std::string manifest = resource(1, RT_MANIFEST);
    for (const char* part :
         {"level=\"asInvoker\"", ">PerMonitorV2, PerMonitor<", ">true</longPathAware>",
          ">UTF-8</activeCodePage>", "Microsoft.Windows.Common-Controls"}) {
        EXPECT_NE(manifest.find(part), std::string::npos) << part;
    }
}

TEST(WindowsTextTest, TheCallsTakeUtf8WhereTheSystemKnowsTheManifest) {
    if (::GetACP() != CP_UTF8) {
        GTEST_SKIP() << "the code page here is " << ::GetACP();
    }
    EXPECT_EQ(ansiText("\xCE\xB1"), "\xCE\xB1");
}

TEST(WindowsTextTest, AccentsSurviveTheCodePageOfTheCalls) {
    EXPECT_EQ(utf8TextOfAnsi(ansiText("\xC3\xA9")), "\xC3\xA9");
    EXPECT_EQ(wideText("\xF0\x9F\x98\x80"), L"\xD83D\xDE00");
    EXPECT_EQ(utf8Text(L"\xD83D\xDE00"), "\xF0\x9F\x98\x80");
    EXPECT_EQ(wideText("a\xFFz"), L"a\xFFFDz");
}

TEST(WindowsTextTest, PathsHaveALongForm) {
    struct Row {
        const wchar_t* plain;
        const wchar_t* longer;
    };
    constexpr Row kRows[] = {
        {L"C:\\Games\\Sims.exe", L"\\\\?\\C:\\Games\\Sims.exe"},
        {L"\\\\server\\share\\Sims.exe", L"\\\\?\\UNC\\server\\share\\Sims.exe"}};
    for (const Row& row : kRows) {
        EXPECT_EQ(longForm(row.plain), row.longer);
        EXPECT_EQ(longForm(row.longer), row.longer);
        EXPECT_EQ(plainForm(row.longer), row.plain);
        EXPECT_EQ(plainForm(row.plain), row.plain);
    }
    EXPECT_EQ(longForm(L""), L"");
    EXPECT_EQ(longForm(L"\\\\.\\NUL"), L"");
}

}  // namespace
}  // namespace marlowick

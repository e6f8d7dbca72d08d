#include "system/wine_registry.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

#include "support/test_folder.h"

namespace marlowick {
namespace {

constexpr const char* kKey = "Software\\Maxis\\The Sims";
constexpr const char* kName = "InstallPath";

// As Wine writes it: a head, keys in brackets with the time of their last change, values.
std::string registry(const std::string& key, const std::string& lines) {
    return "WINE REGISTRY Version 2\n;; All keys relative to \\\\Machine\n\n#arch=win64\n\n[" +
           key + "] 1699999999\n#time=1da17c9f0\n" + lines + "\n";
}

const std::string kGame = "Software\\\\Maxis\\\\The Sims";
const std::string kGameIn32Bit = "Software\\\\Wow6432Node\\\\Maxis\\\\The Sims";

std::optional<std::string> valueOf(const std::string& lines) {
    return wineRegistryText(registry(kGame, lines), kKey, kName);
}

TEST(WineRegistryTest, ReadsAPlainText) {
    EXPECT_EQ(valueOf("\"Other\"=\"x\"\n\"InstallPath\"=\"C:\\\\Maxis\\\\The Sims\"\n"),
              "C:\\Maxis\\The Sims");
    EXPECT_EQ(valueOf("\"InstallPath\"=\"\"\n"), "");
}

TEST(WineRegistryTest, NamesAreBlindToCase) {
    const std::string file =
        registry("SOFTWARE\\\\maxis\\\\the sims", "\"INSTALLpath\"=\"C:\\\\a\"\n");
    EXPECT_EQ(wineRegistryText(file, kKey, kName), "C:\\a");
}

TEST(WineRegistryTest, NamesWithOtherLettersAreToldApart) {
    const std::string file =
        registry(kGame,
                 "\"Install\\xe9\"=\"C:\\\\e\"\n\"Install\\xc9x\"=\"C:\\\\x\"\n"
                 "\"InstallPath\"=\"C:\\\\a\"\n");
    EXPECT_EQ(wineRegistryText(file, kKey, kName), "C:\\a");
    EXPECT_EQ(wineRegistryText(file, kKey, "install\xC3\x89"), "C:\\e");
    EXPECT_EQ(wineRegistryText(file, kKey, "install\xC3\xA9X"), "C:\\x");
    EXPECT_EQ(wineRegistryText(file, kKey, "install\xC3\xA8"), std::nullopt);
}

TEST(WineRegistryTest, TakesTheValueOfItsOwnKeyAlone) {
    const std::string file = registry("Software\\\\Maxis", "\"InstallPath\"=\"C:\\\\wrong\"\n") +
                             "[" + kGame + "\\\\Deeper] 1\n\"InstallPath\"=\"C:\\\\wrong\"\n\n[" +
                             kGame + "] 1\n\"InstallPath\"=\"C:\\\\right\"\n\n[Zebra] 1\n" +
                             "\"InstallPath\"=\"C:\\\\wrong\"\n";
    EXPECT_EQ(wineRegistryText(file, kKey, kName), "C:\\right");
}

TEST(WineRegistryTest, DecodesEscapesAndCodeUnits) {
    EXPECT_EQ(valueOf("\"InstallPath\"=\"a\\\"b\\\\c\\td\\n\"\n"), "a\"b\\c\td\n");
    // e acute as two digits and as four, then a letter that is no digit; three digits at the end.
    EXPECT_EQ(valueOf("\"InstallPath\"=\"\\xe9\\x00e9z\\x3b1\"\n"), "\xC3\xA9\xC3\xA9z\xCE\xB1");
    EXPECT_EQ(valueOf("\"InstallPath\"=\"\\xE9\\x00E9\\x3B1\"\n"), "\xC3\xA9\xC3\xA9\xCE\xB1");
    // A pair of surrogates, and half of one.
    EXPECT_EQ(valueOf("\"InstallPath\"=\"\\xd83d\\xde00\"\n"), "\xF0\x9F\x98\x80");
    EXPECT_EQ(valueOf("\"InstallPath\"=\"\\xd83dx\"\n"), "\xEF\xBF\xBDx");
    // Octal, of at most three digits.
    EXPECT_EQ(valueOf("\"InstallPath\"=\"\\1011\"\n"), "A1");
}

TEST(WineRegistryTest, OtherTypesAndBrokenLinesAreNothing) {
    for (const char* lines :
         {"\"InstallPath\"=dword:00000001\n", "\"InstallPath\"=hex:43,00\n",
          "\"InstallPath\"=str(2):\"C:\\\\a\"\n", "\"InstallPath\"=\"C:\\\\a\n", "\"InstallPath\n",
          "\"InstallPath\"\n", "InstallPath=\"C:\\\\a\"\n", "\"InstallPath\"=\"\\",
          "\"InstallPath\"=\"a\\\"\n", "@=\"C:\\\\a\"\n", ""}) {
        EXPECT_EQ(valueOf(lines), std::nullopt) << lines;
    }
    EXPECT_EQ(wineRegistryText("", kKey, kName), std::nullopt);
    EXPECT_EQ(wineRegistryText("\"InstallPath\"=\"C:\\\\a\"\n", kKey, kName), std::nullopt);
    EXPECT_EQ(wineRegistryText("[" + kGame, kKey, kName), std::nullopt);
}

TEST(WineRegistryTest, ReadsATextWithNamesOfTheEnvironmentToo) {
    const auto any = [](const std::string& lines) {
        return wineRegistryAnyText(registry(kGame, lines), kKey, kName);
    };
    const std::optional<WineText> moved =
        any("\"InstallPath\"=str(2):\"%USERPROFILE%\\\\Saved Games\"\n");
    ASSERT_TRUE(moved);
    EXPECT_EQ(moved->text, "%USERPROFILE%\\Saved Games");
    EXPECT_TRUE(moved->isExpandable);
    const std::optional<WineText> plain = any("\"InstallPath\"=\"%USERPROFILE%\"\n");
    ASSERT_TRUE(plain);
    EXPECT_EQ(plain->text, "%USERPROFILE%");
    EXPECT_FALSE(plain->isExpandable);
    for (const char* lines :
         {"\"InstallPath\"=str(2)\n", "\"InstallPath\"=str(2):\n", "\"InstallPath\"=str(2):\"a\n",
          "\"InstallPath\"=str(7):\"a\"\n", "\"InstallPath\"=hex(2):43,00\n"}) {
        EXPECT_FALSE(any(lines)) << lines;
    }
}

TEST(WineRegistryTest, AnEndlessRowOfBracketsAndBackslashesTakesNoLongerThanItsLength) {
    for (const char* piece : {"[", "\\", "\"", "[\\\n", "\"\\x\n", "]"}) {
        std::string text = "[" + kGame + "]\n";
        while (text.size() < (1U << 22U)) {
            text += piece;
        }
        EXPECT_FALSE(wineRegistryAnyText(text, kKey, kName)) << piece;
    }
}

TEST(WineRegistryTest, TakesLinesThatEndAsOnWindows) {
    EXPECT_EQ(wineRegistryText("[" + kGame + "] 1\r\n\"InstallPath\"=\"C:\\\\a\"\r\n", kKey, kName),
              "C:\\a");
}

TEST(WineRegistryTest, FindsTheKeyOfA32BitProgram) {
    EXPECT_EQ(keyOf32Bit(kKey), "Software\\Wow6432Node\\Maxis\\The Sims");
    EXPECT_EQ(keyOf32Bit("SOFTWARE\\x"), "Software\\Wow6432Node\\x");
    EXPECT_EQ(keyOf32Bit("Hardware\\x"), "Hardware\\x");
}

// The home folder of somebody who plays under Wine.
class WinePrefixTest : public ::testing::Test {
  protected:
    WinePrefixTest() {
        folder.write("home/.wine/drive_c/Maxis/The Sims/Sims.exe", "");
        std::filesystem::create_directories(prefix() / "dosdevices");
        std::filesystem::create_directory_symlink("../drive_c", prefix() / "dosdevices" / "c:");
    }

    std::filesystem::path prefix() const { return folder.root() / "home" / ".wine"; }

    void write(const std::string& text) { folder.write("home/.wine/system.reg", text); }

    void writeValue(const std::string& value) {
        write(registry(kGameIn32Bit, "\"InstallPath\"=\"" + value + "\"\n"));
    }

    std::string read(int length = 255) {
        return wineRegistryPath(folder.path("home"), kKey, kName, length);
    }

    // A folder of the prefix's drive C: as the program writes it.
    std::string onDriveC(const std::string& path) {
        std::filesystem::path drive = std::filesystem::canonical(prefix() / "drive_c");
        std::string text = drive.string();
        std::replace(text.begin(), text.end(), '/', '\\');
        return text + path;
    }

    test::TestFolder folder;
};

TEST_F(WinePrefixTest, GivesThePathOnThisMachine) {
    writeValue("C:\\\\Maxis\\\\The Sims");
    EXPECT_EQ(read(), onDriveC("\\Maxis\\The Sims"));
}

TEST_F(WinePrefixTest, TheDriveLetterIsBlindToCase) {
    writeValue("c:\\\\Maxis");
    EXPECT_EQ(read(), onDriveC("\\Maxis"));
    writeValue("C:");
    EXPECT_EQ(read(), onDriveC(""));
}

TEST_F(WinePrefixTest, The32BitKeyComesFirstAndThePlainOneNext) {
    const std::string plain = registry(kGame, "\"InstallPath\"=\"C:\\\\plain\"\n");
    write(plain + "[" + kGameIn32Bit + "] 1\n\"InstallPath\"=\"C:\\\\game\"\n");
    EXPECT_EQ(read(), onDriveC("\\game"));
    write(plain);
    EXPECT_EQ(read(), onDriveC("\\plain"));
}

TEST_F(WinePrefixTest, EverythingElseIsError) {
    EXPECT_EQ(read(), "ERROR");  // no registry
    write("nonsense");
    EXPECT_EQ(read(), "ERROR");
    for (const char* value :
         {"Maxis", "C", "C:Maxis", "1:\\\\Maxis", "Q:\\\\Maxis", "\\\\\\\\host\\\\x"}) {
        writeValue(value);
        EXPECT_EQ(read(), "ERROR") << value;
    }
    EXPECT_EQ(wineRegistryPath(folder.path("nobody"), kKey, kName, 255), "ERROR");
}

TEST(WineRegistryTest, ATextOfTheMachineIsThatOf32BitProgramsFirst) {
    const auto read = [](const std::string& file) {
        const std::optional<WineText> found = wineRegistryMachineText(file, kKey, kName);
        return found ? found->text : "none";
    };
    const std::string plain = registry(kGame, "\"InstallPath\"=str(2):\"C:\\\\plain\"\n");
    EXPECT_EQ(read(plain), "C:\\plain");
    EXPECT_EQ(read(plain + registry(kGameIn32Bit, "\"InstallPath\"=\"C:\\\\game\"\n")), "C:\\game");
    EXPECT_EQ(read(registry(kGame, "\"InstallPath\"=\"C:\\\\a\\0b\"\n")), "none");
    EXPECT_EQ(read(registry(kGame, "\"Other\"=\"C:\\\\a\"\n")), "none");
    EXPECT_EQ(wineRegistryFile(Path("\\p"), RegistryHive::LocalMachine).text(), "\\p\\system.reg");
    EXPECT_EQ(wineRegistryFile(Path("\\p"), RegistryHive::CurrentUser).text(), "\\p\\user.reg");
}

TEST_F(WinePrefixTest, TellsTheWayToAPathOfThePrefix) {
    const Path prefix("\\home\\x\\.wine");
    EXPECT_EQ(pathThroughDrives(prefix, "D:\\Games/x")->text(),
              "\\home\\x\\.wine\\dosdevices\\d:\\Games\\x");
    EXPECT_EQ(pathThroughDrives(prefix, "c:")->text(), "\\home\\x\\.wine\\dosdevices\\c:");
    for (const char* text : {"", "D", "D:x", "\\x", "%USERPROFILE%\\x", "1:\\x"}) {
        EXPECT_FALSE(pathThroughDrives(prefix, text)) << text;
    }
}

TEST_F(WinePrefixTest, AnEmptyValueStaysEmpty) {
    writeValue("");
    EXPECT_EQ(read(), "");
}

TEST_F(WinePrefixTest, AValueEndsAtItsFirstZeroByte) {
    writeValue("C:\\\\Maxis\\0");
    EXPECT_EQ(read(), onDriveC("\\Maxis"));
    writeValue("C:\\\\Maxis\\0left over");
    EXPECT_EQ(read(), onDriveC("\\Maxis"));
    writeValue("\\0");
    EXPECT_EQ(read(), "");
}

TEST_F(WinePrefixTest, SlashesLeadToTheSamePlace) {
    writeValue("C:/Maxis/The Sims");
    EXPECT_EQ(read(), onDriveC("\\Maxis\\The Sims"));
}

TEST_F(WinePrefixTest, ADriveMayBeTheRootOfThisMachine) {
    std::filesystem::create_directory_symlink("/", prefix() / "dosdevices" / "z:");
    writeValue("Z:");
    EXPECT_EQ(read(), "\\");
    writeValue("Z:\\\\");
    EXPECT_EQ(read(), "\\");
    writeValue("Z:\\\\Maxis");
    EXPECT_EQ(read(), "\\Maxis");
}

TEST_F(WinePrefixTest, AnEnormousRegistryIsNotRead) {
    writeValue("C:\\\\Maxis");
    const std::filesystem::path file = prefix() / "system.reg";
    std::filesystem::resize_file(file, std::uintmax_t{64} << 20U);
    EXPECT_EQ(read(), onDriveC("\\Maxis"));
    std::filesystem::resize_file(file, (std::uintmax_t{64} << 20U) + 1);
    EXPECT_EQ(read(), "ERROR");
}

TEST_F(WinePrefixTest, AValueMustFitTheBufferWithItsZeroByte) {
    writeValue("C:\\\\12345");  // 8 characters
    EXPECT_EQ(read(9), onDriveC("\\12345"));
    EXPECT_EQ(read(8), "ERROR");
}

}  // namespace
}  // namespace marlowick

#include <gtest/gtest.h>

#include "iff/user_file_test.h"
#include "system/files.h"

namespace marlowick {
namespace {

using std::string_literals::operator""s;

class ImagesTest : public test::UserFileTest {
  protected:
    std::size_t filesInProgramFolder() { return searchFiles(folder.path("program"), "*").size(); }
};

TEST_F(ImagesTest, AllCasesOfTheNameReachOneFile) {
    add("BMP_", "web_image", "picture\0data"s);
    ASSERT_TRUE(gsDumpBMPs(iff));
    EXPECT_EQ(folder.read("program/web_image.BMP"), "picture\0data"s);
    EXPECT_EQ(readWholeFile(folder.path("program\\web_image.bmp")), "picture\0data"s);
    EXPECT_EQ(readWholeFile(folder.path("program\\Web_Image.Bmp")), "picture\0data"s);
}

TEST_F(ImagesTest, TheLabelIsCutAndCleaned) {
    add("BMP_", "rel. images\0junk"s, "one");
    add("BMP_", "...", "two");
    ASSERT_TRUE(gsDumpBMPs(iff));
    EXPECT_EQ(folder.read("program/relimages.BMP"), "one");
    EXPECT_EQ(folder.read("program/.BMP"), "two");
    EXPECT_EQ(iff.Segments[1].Label.substr(0, 16), "rel. images\0junk"s);
}

// A name of a device is no file's name on any system.
TEST_F(ImagesTest, ALabelThatCantBeAFilesNameCostsItsOwnPictureAlone) {
    for (const char* label : {"con", "Aux", "n.u l", "PRN", "com1", "LPT9"}) {
        add("BMP_", label, "a device");
    }
    add("BMP_", "web_image", "portrait");
    add("BMP_", "contact", "no device");
    EXPECT_TRUE(gsDumpBMPs(iff));
    EXPECT_TRUE(recorder.reports().empty());
    EXPECT_EQ(folder.read("program/web_image.BMP"), "portrait");
    EXPECT_EQ(folder.read("program/contact.BMP"), "no device");
    EXPECT_EQ(filesInProgramFolder(), 2U);
}

TEST_F(ImagesTest, OfTwoOfOneNameTheLaterStays) {
    add("BMP_", "faces", "a longer first one");
    add("BMP_", "Faces", "second");
    ASSERT_TRUE(gsDumpBMPs(iff));
    EXPECT_EQ(filesInProgramFolder(), 1U);
    EXPECT_EQ(readWholeFile(folder.path("program\\faces.bmp")), "second");
}

TEST_F(ImagesTest, AReadOnlyFileIsReplaced) {
    folder.write("program/faces.bmp", "old");
    folder.makeReadOnly("program/faces.bmp");
    add("BMP_", "faces", "new");
    ASSERT_TRUE(gsDumpBMPs(iff));
    EXPECT_EQ(readWholeFile(folder.path("program\\faces.bmp")), "new");
}

TEST_F(ImagesTest, ARecordWithoutPicturesChangesNothing) {
    folder.write("program/faces.bmp", "old");
    add("bmp_", "faces", "not this type");
    ASSERT_TRUE(gsDumpBMPs(iff));
    EXPECT_EQ(folder.read("program/faces.bmp"), "old");
    EXPECT_EQ(filesInProgramFolder(), 1U);
}

TEST_F(ImagesTest, AFailureNamesTheRoutine) {
    folder.write("program/faces.BMP/inside", "a folder of that name");
    add("BMP_", "faces", "new");
    EXPECT_FALSE(gsDumpBMPs(iff));
    ASSERT_EQ(recorder.reports().size(), 1U);
    EXPECT_EQ(recorder.reports()[0].module, "modIFFsupport");
    EXPECT_EQ(recorder.reports()[0].procedure, "gsDumpBMPs");
}

}  // namespace
}  // namespace marlowick

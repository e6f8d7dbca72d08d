#include <gtest/gtest.h>

#include "iff/safe_rewrite.h"
#include "iff/string_segment.h"
#include "iff/user_file_test.h"
#include "support/faulty_files.h"
#include "system/streams.h"

namespace marlowick {
namespace {

using std::string_literals::operator""s;
using test::fileHead;
using test::mapRow;
using test::mapType;
using test::segment;

class IffWriteTest : public test::UserFileTest {
  protected:
    // Reads content and writes it to a new file.
    std::string rewritten(const std::string& content) {
        const Path path = make(content);
        EXPECT_TRUE(gsReadIFF(iff, path));
        return written();
    }

    std::string written() {
        std::filesystem::remove(folder.game() / "out.iff");
        EXPECT_TRUE(gsWriteIFF(iff, folder.path("game\\out.iff")));
        return folder.read("game/out.iff");
    }
};

TEST_F(IffWriteTest, AFileInOrderComesBackByteForByte) {
    const std::string file = test::simFile(test::simRows({}));
    EXPECT_EQ(rewritten(file), file);
}

TEST_F(IffWriteTest, ZeroDigitsInTheMapsPlaceBecomeZeros) {
    const std::string body = segment("TEST", 1, 1, "", "data") + segment("ZERO", 2, 2, "x", "");
    EXPECT_EQ(rewritten(fileHead(0x30303030) + body), fileHead(0) + body);
}

TEST_F(IffWriteTest, ASegmentOfItsHeadAloneComesBackUnchanged) {
    const std::string file = fileHead(0) + segment("OBJD", 1, 16, "user1", "data") +
                             segment("TEST", 2, 1, "nothing behind", "");
    EXPECT_TRUE(rewritten(file) == file);
    EXPECT_EQ(iff.Segments[2].Data, "");
}

TEST_F(IffWriteTest, AStrayLastByteDisappears) {
    const std::string body = segment("TEST", 1, 1, "", "data");
    EXPECT_EQ(rewritten(fileHead(0) + body + "x"), fileHead(0) + body);
}

TEST_F(IffWriteTest, AMapInTheMiddleMovesToTheEndAndItsOffsetsAreMadeTrue) {
    const std::string one = segment("AAAA", 1, 1, "", "one");
    const std::string two = segment("BBBB", 2, 1, "", "twotwo");
    const auto types = [](unsigned first, unsigned second) {
        return mapType("AAAA", 2, mapRow(first, 1, 5, "abcde\0"s) + mapRow(999, 77, 0, "zz\xA3"s)) +
               mapType("BBBB", 1, mapRow(second, 2, 0, "abc\0\xEE"s));
    };
    const auto length = static_cast<unsigned>(96 + types(0, 0).size());
    const unsigned second = 64 + static_cast<unsigned>(one.size());
    const unsigned end = second + static_cast<unsigned>(two.size());
    EXPECT_EQ(rewritten(fileHead(143) + one + test::map(7, 2, types(1, 2)) + two),
              fileHead(end) + one + two + test::map(length - 1, 2, types(64, second)));
    EXPECT_EQ(iff.RsmpSize, 7);  // the record keeps what was read
}

TEST_F(IffWriteTest, AMapWithoutItsLastPadByteComesBackWithoutIt) {
    const std::string one = segment("AAAA", 1, 1, "", "one");
    const std::string types = mapType("AAAA", 1, mapRow(64, 1, 5, "abcd\0"s));
    const auto length = static_cast<unsigned>(96 + types.size());
    ASSERT_EQ(length % 2, 1U);
    const std::string file =
        fileHead(64 + static_cast<unsigned>(one.size())) + one + test::map(length - 1, 1, types);
    EXPECT_TRUE(rewritten(file) == file);
    EXPECT_TRUE(recorder.reports().empty());
}

TEST_F(IffWriteTest, AMapThatTheHeadDeniesIsLost) {
    const std::string one = segment("AAAA", 1, 1, "", "one");
    EXPECT_EQ(rewritten(fileHead(0) + one +
                        test::map(7, 1, mapType("AAAA", 1, mapRow(0, 1, 5, "abcde\0"s)))),
              fileHead(0) + one);
}

TEST_F(IffWriteTest, ADeclaredMapThatIsMissingGoesOutAsItStands) {
    const std::string one = segment("AAAA", 1, 1, "", "one");
    // The one blank type row that reading begins with, and an empty head.
    const std::string map = std::string(88, '\0') + test::little32(88 + 8 + 8 - 1) +
                            test::little32(0) + std::string(4, '\0') + test::little32(0);
    const unsigned end = 64 + static_cast<unsigned>(one.size());
    EXPECT_EQ(rewritten(fileHead(500) + one), fileHead(end) + one + map);
}

TEST_F(IffWriteTest, TheFirstRowOfATypeAndIdIsRenewed) {
    const std::string one = segment("AAAA", 0x0102, 1, "", "one");
    const std::string two = segment("AAAA", 0x0102, 9, "", "two");
    const std::string rows = mapRow(5, 0x0102, 3, "abcde\0"s) + mapRow(6, 0x0102, 4, "abcde\0"s);
    rewritten(fileHead(1) + one + two + test::map(0, 1, mapType("AAAA", 2, rows)));
    // Both segments land on the same row, the later one last; the second row keeps its offset.
    EXPECT_EQ(iff.RsmpTypes[1].Entries[1].EntryOffset,
              test::little32(64 + static_cast<unsigned>(one.size())));
    EXPECT_EQ(iff.RsmpTypes[1].Entries[2].EntryOffset, test::little32(6));
}

TEST_F(IffWriteTest, ARowOfAnotherTypeOrIdKeepsItsOffset) {
    const std::string one = segment("AAAA", 1, 1, "", "one");
    rewritten(fileHead(1) + one +
              test::map(0, 2,
                        mapType("AAAB", 1, mapRow(5, 1, 1, "abcde\0"s)) +
                            mapType("AAAA", 1, mapRow(6, 256, 1, "abcde\0"s))));
    EXPECT_EQ(iff.RsmpTypes[1].Entries[1].EntryOffset, test::little32(5));
    EXPECT_EQ(iff.RsmpTypes[2].Entries[1].EntryOffset, test::little32(6));
}

TEST_F(IffWriteTest, AfterAChangeEveryNamedRowPointsAtItsSegment) {
    rewritten(test::simFile(test::simRows({})));
    StrSegment strings;
    readWardrobeTable(iff, strings);
    strings.Entries[2].Text = "a much longer text than the one that stood there before, by far";
    writeWardrobeTable(iff, strings);
    const std::string file = written();
    std::vector<std::string> rows = test::simRows({});
    rows[1] = strings.Entries[2].Text;
    EXPECT_EQ(file, test::simFile(rows));
}

TEST_F(IffWriteTest, ALongerFileKeepsItsTail) {
    const std::string body = segment("TEST", 1, 1, "", "data");
    rewritten(fileHead(0) + body);
    folder.write("game/long.iff", std::string(500, 'x'));
    EXPECT_TRUE(gsWriteIFF(iff, folder.path("game\\long.iff")));
    const std::string expected = fileHead(0) + body;
    EXPECT_EQ(folder.read("game/long.iff"), expected + std::string(500 - expected.size(), 'x'));
}

TEST_F(IffWriteTest, WithoutBitmapsPicturesAndMapAreGoneAndTheRecordKeepsThem) {
    const std::string one = segment("AAAA", 1, 1, "", "one");
    const std::string picture = segment("BMP_", 2, 1, "web_image", "picture");
    const std::string two = segment("bmp_", 3, 1, "", "two");
    const Path path = make(fileHead(64) + one + picture + two +
                           test::map(0, 1, mapType("AAAA", 1, mapRow(5, 1, 1, "abcde\0"s))));
    ASSERT_TRUE(gsReadIFF(iff, path));
    ASSERT_TRUE(gsWriteIFF_NoBMPs(iff, folder.path("game\\out.iff")));
    EXPECT_EQ(folder.read("game/out.iff"), fileHead(0) + one + two);
    EXPECT_EQ(iff.Segments.bound(), 3);
    EXPECT_TRUE(iff.HasRsmp);
    EXPECT_EQ(iff.RsmpTypes[1].Entries[1].EntryOffset, test::little32(5));
}

TEST_F(IffWriteTest, FailuresNameModuleAndProcedure) {
    EXPECT_FALSE(gsWriteIFF(iff, folder.path("none\\out.iff")));
    EXPECT_FALSE(gsWriteIFF_NoBMPs(iff, folder.path("none\\out.iff")));
    ASSERT_EQ(recorder.reports().size(), 2U);
    EXPECT_EQ(recorder.reports()[0].number, 76);
    EXPECT_EQ(recorder.reports()[0].module, "modIFFsupport");
    EXPECT_EQ(recorder.reports()[0].procedure, "gsWriteIFF");
    EXPECT_EQ(recorder.reports()[0].checkpoint, 1000);
    EXPECT_EQ(recorder.reports()[1].module, "modMarlowickMain");
    EXPECT_EQ(recorder.reports()[1].procedure, "gsWriteIFF_NoBMPs");
}

// A write that the system refuses tells what was on its way: head and segments, the map, the map's
// place in the head.
TEST_F(IffWriteTest, ARefusedWriteTellsItsStage) {
    rewritten(test::simFile(test::simRows({})));
    const Path target = folder.path("game\\out.iff");
    const auto stageOf = [&](int write, bool (*writer)(IffFile&, const Path&)) {
        streams().closeAll();
        const std::size_t before = recorder.reports().size();
        const test::FaultyFiles faulty(write, test::FaultyFiles::Fault::Fail);
        EXPECT_FALSE(writer(iff, target)) << write;
        EXPECT_EQ(recorder.reports().size(), before + 1);
        EXPECT_EQ(recorder.reports().back().number, 57);
        return recorder.reports().back().procedure + " " +
               std::to_string(recorder.reports().back().checkpoint);
    };
    EXPECT_EQ(stageOf(1, gsWriteIFF), "gsWriteIFF 2000");
    EXPECT_EQ(stageOf(2, gsWriteIFF), "gsWriteIFF 3000");
    EXPECT_EQ(stageOf(3, gsWriteIFF), "gsWriteIFF 4000");
    EXPECT_EQ(stageOf(1, gsWriteIFF_NoBMPs), "gsWriteIFF_NoBMPs 2000");
    iff.HasRsmp = false;
    EXPECT_EQ(stageOf(1, gsWriteIFF), "gsWriteIFF 2000");
}

TEST_F(IffWriteTest, AFileIsWrittenInFewPieces) {
    rewritten(test::simFile(test::simRows({})));
    const auto writes = [&](bool (*writer)(IffFile&, const Path&)) {
        std::filesystem::remove(folder.game() / "out.iff");
        const test::FaultyFiles counting(0, test::FaultyFiles::Fault::Fail);
        EXPECT_TRUE(writer(iff, folder.path("game\\out.iff")));
        return counting.changes();
    };
    EXPECT_EQ(writes(gsWriteIFF), 3);
    EXPECT_EQ(writes(gsWriteIFF_NoBMPs), 1);
}

TEST_F(IffWriteTest, AMapThatCantBeRenewedFailsTheWritingUnderItsOwnName) {
    iff.HasRsmp = true;
    iff.RsmpTypes.resize(1);
    iff.RsmpTypes[1].Entries.append({});
    EXPECT_FALSE(gsWriteIFF(iff, folder.path("game\\out.iff")));
    ASSERT_EQ(recorder.reports().size(), 1U);
    EXPECT_EQ(recorder.reports()[0].module, "modIFFsupport");
    EXPECT_EQ(recorder.reports()[0].procedure, "gsUpdateRsmp");
}

TEST_F(IffWriteTest, TheScratchFileReplacesAnOlderAndLongerOne) {
    folder.write("program/usertemp.iff", std::string(9999, 'x'));
    const std::string file = test::simFile(test::simRows({}));
    rewritten(file);
    EXPECT_TRUE(writeUserTemp(iff, SavedParts::All));
    EXPECT_EQ(folder.read("program/usertemp.iff"), file);
}

TEST_F(IffWriteTest, ManyRowsAndSegmentsAreNoQuadraticWalk) {
    std::string content = fileHead(1);
    std::string rows;
    for (unsigned i = 0; i < 30000; ++i) {
        content += segment("AAAA", i, 1, "", "");
        rows += mapRow(0, i, 1, "abcde\0"s);
    }
    rewritten(content + test::map(0, 1, mapType("AAAA", 30000, rows)));
    EXPECT_EQ(iff.RsmpTypes[1].Entries[30000].EntryOffset, test::little32(64 + 29999 * 76));
}

}  // namespace
}  // namespace marlowick

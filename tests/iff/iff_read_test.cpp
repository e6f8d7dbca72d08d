#include <gtest/gtest.h>

#include "iff/user_file_test.h"
#include "system/streams.h"

namespace marlowick {
namespace {

using std::string_literals::operator""s;
using test::fileHead;
using test::mapRow;
using test::mapType;
using test::segment;

class IffReadTest : public test::UserFileTest {
  protected:
    bool read(const std::string& content) {
        const Path path = make(content);
        return gsReadIFF(iff, path);
    }
};

TEST_F(IffReadTest, AnEmptyFileIsOneBlankSegmentWithoutAMap) {
    ASSERT_TRUE(read(""));
    EXPECT_EQ(iff.Segments.bound(), 1);
    EXPECT_EQ(iff.Segments[1].Type, "");
    EXPECT_FALSE(iff.HasRsmp);
}

TEST_F(IffReadTest, AMissingFileIsMade) {
    ASSERT_TRUE(gsReadIFF(iff, folder.path("game\\new.iff")));
    EXPECT_TRUE(folder.exists("game/new.iff"));
}

TEST_F(IffReadTest, ReadsHeadAndSegmentsAsTheyStand) {
    const std::string first = segment("OBJD", 128, 16, "user00001", "abc");
    const std::string second = segment("XyZ?", 0x1234, 0xFFFF, std::string("a\0junk", 6), "");
    ASSERT_TRUE(read(fileHead(0) + first + second));
    EXPECT_EQ(iff.Header, fileHead(0).substr(0, 60));
    EXPECT_EQ(iff.RsmpOffset, "\0\0\0\0"s);
    ASSERT_EQ(iff.Segments.bound(), 2);
    EXPECT_EQ(iff.Segments[1].Offset, 65);
    EXPECT_EQ(iff.Segments[1].Type, "OBJD");
    EXPECT_EQ(iff.Segments[1].Size, "\0\0\0\x4F"s);
    EXPECT_EQ(iff.Segments[1].ID, "\x00\x80\x00\x10"s);
    EXPECT_EQ(iff.Segments[1].Label, test::padded("user00001", 64));
    EXPECT_EQ(iff.Segments[1].Data, "abc");
    EXPECT_EQ(iff.Segments[2].Offset, 65 + 79);
    EXPECT_EQ(iff.Segments[2].ID, "\x12\x34\xFF\xFF"s);
    EXPECT_EQ(iff.Segments[2].Label, test::padded("a\0junk"s, 64));
    EXPECT_EQ(iff.Segments[2].Data, "");
}

TEST_F(IffReadTest, ZeroAndFourZeroDigitsMeanNoMap) {
    ASSERT_TRUE(read(fileHead(0x30303030) + segment("TEST", 1, 1, "", "")));
    EXPECT_FALSE(iff.HasRsmp);
    ASSERT_TRUE(read(fileHead(1) + segment("TEST", 1, 1, "", "")));
    EXPECT_TRUE(iff.HasRsmp);
}

TEST_F(IffReadTest, AMapBetweenSegmentsComesOutOfTheStream) {
    const std::string map = test::map(1, 1, mapType("TEST", 1, mapRow(64, 1, 1, "abcde\0"s)));
    ASSERT_TRUE(read(fileHead(64) + segment("TEST", 1, 1, "", "one") + map +
                     segment("TEST", 2, 1, "", "two")));
    ASSERT_EQ(iff.Segments.bound(), 2);
    EXPECT_EQ(iff.Segments[1].Data, "one");
    EXPECT_EQ(iff.Segments[2].Data, "two");
    ASSERT_EQ(iff.RsmpTypes.bound(), 1);
    EXPECT_EQ(iff.RsmpHeader, map.substr(0, 88));
    EXPECT_EQ(iff.RsmpSize, 1);
    EXPECT_EQ(iff.RsmpTypes[1].TypeCode, "TSET");
    EXPECT_EQ(iff.RsmpTypes[1].EntryCount, 1);
    EXPECT_EQ(iff.RsmpTypes[1].Entries[1].EntryOffset, "\x40\0\0\0"s);
    EXPECT_EQ(iff.RsmpTypes[1].Entries[1].EntryID, "\x01\0\x01\0"s);
    EXPECT_EQ(iff.RsmpTypes[1].Entries[1].EntryLabel, "abcde\0"s);
}

// Offset and id take 8 bytes: a label of five letters and its zero byte ends on an even offset, one
// of four letters takes a pad byte, whatever that is, and one that ends in 0xA3 never does.
TEST_F(IffReadTest, LabelsTakeAPadByteWhereTheRowWouldEndOnAnOddOffset) {
    const std::string rows = mapRow(0, 1, 0, "abcde\0"s) + mapRow(0, 2, 0, "abcd\0\x77"s) +
                             mapRow(0, 3, 0, "abc\xA3"s) + mapRow(0, 4, 0, "ab\xA3"s) +
                             mapRow(0, 5, 0, "\0"s) + mapRow(0, 6, 0, "a\0"s);
    ASSERT_TRUE(read(fileHead(64) + test::map(0, 1, mapType("TEST", 6, rows))));
    ASSERT_EQ(iff.RsmpTypes[1].Entries.bound(), 6);
    const std::string expected[] = {"abcde\0"s, "abcd\0\x77"s, "abc\xA3"s,
                                    "ab\xA3"s,  "\0"s,         "a\0"s};
    for (int i = 1; i <= 6; ++i) {
        EXPECT_EQ(iff.RsmpTypes[1].Entries[i].EntryLabel, expected[i - 1]) << i;
    }
}

TEST_F(IffReadTest, UpToSeventySixBytesBehindTheMapAreDropped) {
    const std::string map = test::map(0, 1, mapType("TEST", 1, mapRow(0, 1, 0, "abcde\0"s)));
    ASSERT_TRUE(read(fileHead(64) + map + std::string(76, 'x')));
    EXPECT_EQ(iff.Segments.bound(), 1);
    EXPECT_EQ(iff.Segments[1].Type, "");
    ASSERT_TRUE(read(fileHead(64) + map + segment("LAST", 1, 1, "", "x")));
    EXPECT_EQ(iff.Segments[1].Type, "LAST");
}

TEST_F(IffReadTest, ASecondMapDirectlyBehindTheFirstIsAnOrdinarySegment) {
    const std::string map = test::map(0, 1, mapType("TEST", 1, mapRow(0, 1, 0, "abcde\0"s)));
    ASSERT_TRUE(read(fileHead(64) + map + segment("rsmp", 9, 9, "", "12345")));
    ASSERT_EQ(iff.Segments.bound(), 1);
    EXPECT_EQ(iff.Segments[1].Type, "rsmp");
    EXPECT_EQ(iff.Segments[1].Data, "12345");
}

TEST_F(IffReadTest, AMapThatTheHeadDeniesIsReadAllTheSame) {
    ASSERT_TRUE(
        read(fileHead(0) + test::map(0, 1, mapType("TEST", 1, mapRow(0, 1, 0, "abcde\0"s)))));
    EXPECT_FALSE(iff.HasRsmp);
    EXPECT_EQ(iff.RsmpTypes[1].Entries.bound(), 1);
}

TEST_F(IffReadTest, AUpperCaseTagIsNoMap) {
    ASSERT_TRUE(read(fileHead(0) + segment("RSMP", 1, 1, "", "xx")));
    EXPECT_EQ(iff.Segments[1].Type, "RSMP");
}

TEST_F(IffReadTest, ALoneLastByteIsNotRead) {
    ASSERT_TRUE(read(fileHead(0) + segment("TEST", 1, 1, "", "x") + "\x55"));
    EXPECT_EQ(iff.Segments.bound(), 1);
}

TEST_F(IffReadTest, ASizeBelowSeventySixGoesToTheTrapAndTakesTheSlot) {
    std::string bad = segment("TEST", 1, 1, "", "x");
    bad.replace(4, 4, test::big32(75));
    EXPECT_FALSE(read(fileHead(0) + segment("GOOD", 1, 1, "", "") + bad));
    ASSERT_EQ(recorder.reports().size(), 1U);
    EXPECT_EQ(recorder.reports()[0].number, 5);
    EXPECT_EQ(recorder.reports()[0].module, "modIFFsupport");
    EXPECT_EQ(recorder.reports()[0].procedure, "gsReadIFF");
    EXPECT_EQ(recorder.reports()[0].checkpoint, 2000);
    EXPECT_TRUE(streams().isOpen(slot::kUserFile));
    // Nothing closed the file: the next use of its number fails in turn.
    EXPECT_FALSE(read(fileHead(0)));
    ASSERT_EQ(recorder.reports().size(), 2U);
    EXPECT_EQ(recorder.reports()[1].number, 55);
}

TEST_F(IffReadTest, ASizePastTheEndKeepsItsLengthFilledWithZeros) {
    std::string cut = segment("TEST", 1, 1, "", "abc");
    cut.replace(4, 4, test::big32(76 + 10));
    ASSERT_TRUE(read(fileHead(0) + cut));
    EXPECT_EQ(iff.Segments[1].Data, "abc\0\0\0\0\0\0\0"s);
}

// A file that was cut short stays readable; one that tells of a mebibyte more than it has is no
// such file.
TEST_F(IffReadTest, ASizeThatClaimsFarMoreThanTheFileHasIsAnError) {
    constexpr unsigned kClaim = 1U << 20U;
    std::string cut = segment("TEST", 1, 1, "", "abc");
    cut.replace(4, 4, test::big32(76 + 3 + kClaim));
    ASSERT_TRUE(read(fileHead(0) + cut));
    EXPECT_TRUE(iff.Segments[1].Data == "abc" + std::string(kClaim, '\0'));
    for (const unsigned size : {76 + 3 + kClaim + 1, 256U << 20U, 0x7FFFFFFFU}) {
        std::string liar = segment("TEST", 1, 1, "", "abc");
        liar.replace(4, 4, test::big32(size));
        EXPECT_FALSE(read(fileHead(0) + liar));
        EXPECT_EQ(recorder.reports().back().number, 7);
        streams().closeAll();
    }
    EXPECT_EQ(recorder.reports().size(), 3U);
}

TEST_F(IffReadTest, MapCountsOfZeroOrBelowAreErrors) {
    for (const unsigned count : {0U, 0xFFFFFFFFU}) {
        streams().closeAll();
        EXPECT_FALSE(read(fileHead(64) + test::map(0, count, "")));
        EXPECT_EQ(recorder.reports().back().number, 9);
        streams().closeAll();
        EXPECT_FALSE(read(fileHead(64) + test::map(0, 1, mapType("TEST", count, ""))));
        EXPECT_EQ(recorder.reports().back().number, 9);
        EXPECT_EQ(recorder.reports().back().procedure, "gsReadRSMP");
        EXPECT_EQ(recorder.reports().back().checkpoint, 2000);
    }
}

TEST_F(IffReadTest, ABadMapIsReportedUnderItsOwnNameAndTheReadingGoesOn) {
    const std::string behind = segment("TEST", 7, 1, "behind", "data");
    EXPECT_FALSE(read(fileHead(64) + test::map(0, 1, mapType("TEST", 0, "")) + behind));
    ASSERT_EQ(recorder.reports().size(), 1U);
    EXPECT_EQ(recorder.reports()[0].module, "modIFFsupport");
    EXPECT_EQ(recorder.reports()[0].procedure, "gsReadRSMP");
    ASSERT_EQ(iff.Segments.bound(), 1);
    EXPECT_EQ(iff.Segments[1].Data, "data");
    // The caller came to its end: the next reading isn't stopped by a slot that is still taken.
    EXPECT_TRUE(read(fileHead(0) + behind));
}

TEST_F(IffReadTest, AFileTooLargeForItsPositionsIsNotRead) {
    folder.write("game/large.iff", fileHead(0));
    std::filesystem::resize_file(folder.game() / "large.iff", 1LL << 31U);
    EXPECT_EQ(gfstrQuickReadIFF(iff, folder.path("game\\large.iff")), "Error 7 - Out of memory");
}

TEST_F(IffReadTest, AMapThatRunsOffTheEndStops) {
    EXPECT_FALSE(read(fileHead(64) + test::map(0, 0x7FFFFFFF, mapType("TEST", 0x7FFFFFFF, ""))));
    EXPECT_EQ(recorder.reports().back().number, 62);
}

TEST_F(IffReadTest, MoreSegmentsThanSixteenBitsCountOverflow) {
    std::string content = fileHead(0);
    const std::string one = segment("TEST", 1, 1, "", "");
    for (int i = 0; i < 32768; ++i) {
        content += one;
    }
    EXPECT_FALSE(read(content));
    EXPECT_EQ(recorder.reports().back().number, 6);
    EXPECT_EQ(iff.Segments.bound(), 32767);
}

}  // namespace
}  // namespace marlowick

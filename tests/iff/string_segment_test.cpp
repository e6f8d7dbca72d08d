#include "iff/string_segment.h"

#include <gtest/gtest.h>

#include "foundation/error_trap.h"
#include "iff/user_file_test.h"

namespace marlowick {
namespace {

using std::string_literals::operator""s;

using test::kWardrobeIdBytes;

class StringSegmentTest : public test::UserFileTest {
  protected:
    bool read(const std::string& data) {
        gsResetIFF(iff);
        add("STR#", "", data, kWardrobeIdBytes);
        return gsReadSTRSegment(iff, strings, kWardrobeIdBytes, false);
    }

    StrSegment strings;
};

TEST_F(StringSegmentTest, ReadsRowsLanguagesCommentsAndTail) {
    ASSERT_TRUE(read("\xFD\xFF\x02\x00\x01one\0first\0\x02two\0\0tail"s));
    EXPECT_EQ(strings.Format, "\xFD\xFF");
    EXPECT_EQ(strings.Count, "\x02\x00"s);
    ASSERT_EQ(strings.Entries.bound(), 2);
    EXPECT_EQ(strings.Entries[1].Language, '\x01');
    EXPECT_EQ(strings.Entries[1].Text, "one");
    EXPECT_EQ(strings.Entries[1].Comment, "first");
    EXPECT_EQ(strings.Entries[2].Language, '\x02');
    EXPECT_EQ(strings.Entries[2].Text, "two");
    EXPECT_EQ(strings.Entries[2].Comment, "");
    EXPECT_EQ(strings.Tail, "tail");
}

TEST_F(StringSegmentTest, ReadThenWrittenIsTheSame) {
    for (const std::string& data :
         {"\xFD\xFF\x01\x00\x01one\0\0"s, "\xFD\xFF\x01\x00\x01one\0c\0tail\0x"s,
          "\x00\x00\x02\x00\x01\0\0\x01\0\0"s, "\xFF\xFF\x01\x00\x07\0\0"s}) {
        ASSERT_TRUE(read(data));
        ASSERT_TRUE(gsWriteSTRSegment(iff, strings, kWardrobeIdBytes, false));
        EXPECT_EQ(iff.Segments[1].Data, data);
        EXPECT_EQ(iff.Segments[1].Size, test::big32(76 + static_cast<unsigned>(data.size())));
    }
}

TEST_F(StringSegmentTest, ACountOfTwoLeavesTheThirdRowInTheTail) {
    const std::string data =
        "\xFD\xFF\x02\x00\x01"
        "a\0\0\x01"
        "b\0\0\x01"
        "c\0\0"s;
    ASSERT_TRUE(read(data));
    EXPECT_EQ(strings.Entries.bound(), 2);
    EXPECT_EQ(strings.Tail,
              "\x01"
              "c\0\0"s);
    gsWriteSTRSegment(iff, strings, kWardrobeIdBytes, false);
    EXPECT_EQ(iff.Segments[1].Data, data);
}

TEST_F(StringSegmentTest, AnEmptyRowIsTwoZeroBytes) {
    ASSERT_TRUE(read("\xFD\xFF\x01\x00\x01\0\0"s));
    EXPECT_EQ(strings.Entries[1].Text, "");
    EXPECT_EQ(strings.Entries[1].Comment, "");
    EXPECT_EQ(strings.Tail, "");
}

TEST_F(StringSegmentTest, ALongerTextMakesTheSizeGrow) {
    ASSERT_TRUE(
        read("\xFD\xFF\x01\x00\x01"
             "ab\0\0"s));
    add("TEST", "", "behind", kWardrobeIdBytes);
    iff.Segments[2].Offset = 147;
    strings.Entries[1].Text = "abcde";
    gsWriteSTRSegment(iff, strings, kWardrobeIdBytes, false);
    EXPECT_EQ(iff.Segments[1].Data,
              "\xFD\xFF\x01\x00\x01"
              "abcde\0\0"s);
    EXPECT_EQ(iff.Segments[1].Size, "\0\0\0\x58"s);  // 76 + 12
    // The places behind it are renewed by the next writing alone.
    EXPECT_EQ(iff.Segments[2].Offset, 147);
    ASSERT_TRUE(gsWriteIFF(iff, folder.path("game\\out.iff")));
    EXPECT_EQ(iff.Segments[2].Offset, 64 + 88 + 1);
}

// A zero byte in a text would be its end for whoever reads the table, and shift all rows behind.
TEST_F(StringSegmentTest, ATextIsWrittenUpToItsFirstZeroByte) {
    ASSERT_TRUE(read("\xFD\xFF\x02\x00\x01one\0\0\x01two\0\0"s));
    strings.Entries[1].Text = "cut\0off"s;
    strings.Entries[1].Comment = "so\0too"s;
    ASSERT_TRUE(gsWriteSTRSegment(iff, strings, kWardrobeIdBytes, false));
    EXPECT_EQ(iff.Segments[1].Data,
              "\xFD\xFF\x02\x00\x01"
              "cut\0so\0\x01two\0\0"s);
    EXPECT_EQ(iff.Segments[1].Size, "\0\0\0\x5E"s);  // 76 + 18
}

TEST_F(StringSegmentTest, ReadsTheFirstAndWritesEveryMatchingSegment) {
    add("CTSS", "", "\xFD\xFF\x01\x00\x01no\0\0"s, kWardrobeIdBytes);
    add("STR#", "", "\xFD\xFF\x01\x00\x01no\0\0"s, "\x00\xC8\x00\x11"s);
    add("STR#", "",
        "\xFD\xFF\x01\x00\x01"
        "first\0\0"s,
        kWardrobeIdBytes);
    add("STR#", "",
        "\xFD\xFF\x01\x00\x01"
        "second\0\0"s,
        kWardrobeIdBytes);
    ASSERT_TRUE(gsReadSTRSegment(iff, strings, kWardrobeIdBytes, false));
    EXPECT_EQ(strings.Entries[1].Text, "first");
    gsWriteSTRSegment(iff, strings, kWardrobeIdBytes, false);
    EXPECT_EQ(iff.Segments[4].Data, iff.Segments[3].Data);
    EXPECT_EQ(iff.Segments[1].Data, "\xFD\xFF\x01\x00\x01no\0\0"s);
    EXPECT_EQ(iff.Segments[2].Data, "\xFD\xFF\x01\x00\x01no\0\0"s);
    ASSERT_TRUE(gsReadSTRSegment(iff, strings, kWardrobeIdBytes, true));
    EXPECT_EQ(strings.Entries[1].Text, "no");
}

TEST_F(StringSegmentTest, TheWardrobeIsTheTableWithIdTwoHundred) {
    add("STR#", "", "\xFD\xFF\x01\x00\x01no\0\0"s, "\x00\xC9\x00\x10"s);
    add("CTSS", "", "\xFD\xFF\x01\x00\x01no\0\0"s, kWardrobeIdBytes);
    add("STR#", "", "\xFD\xFF\x01\x00\x01yes\0\0"s, kWardrobeIdBytes);
    ASSERT_TRUE(readWardrobeTable(iff, strings));
    EXPECT_EQ(strings.Entries[1].Text, "yes");
    strings.Entries[1].Text = "changed";
    ASSERT_TRUE(writeWardrobeTable(iff, strings));
    EXPECT_EQ(iff.Segments[1].Data, "\xFD\xFF\x01\x00\x01no\0\0"s);
    EXPECT_EQ(iff.Segments[2].Data, "\xFD\xFF\x01\x00\x01no\0\0"s);
    EXPECT_EQ(iff.Segments[3].Data,
              "\xFD\xFF\x01\x00\x01"
              "changed\0\0"s);
}

TEST_F(StringSegmentTest, WithoutASegmentOnlyTheRowsGo) {
    ASSERT_TRUE(
        read("\xFD\xFF\x01\x00\x01"
             "ab\0\0tail"s));
    gsResetIFF(iff);
    EXPECT_TRUE(gsReadSTRSegment(iff, strings, kWardrobeIdBytes, false));
    EXPECT_EQ(strings.Entries.bound(), 0);
    EXPECT_EQ(strings.Tail, "tail");
    EXPECT_TRUE(recorder.reports().empty());
}

TEST_F(StringSegmentTest, ACountOfZeroEndsWithNoRows) {
    EXPECT_TRUE(read("\xFD\xFF\x00\x00rest"s));
    EXPECT_EQ(strings.Entries.bound(), 0);
    EXPECT_TRUE(recorder.reports().empty());
}

TEST_F(StringSegmentTest, ACountBeyondSixteenBitsOverflows) {
    EXPECT_FALSE(
        read("\xFD\xFF\x00\x80\x01"
             "ab\0\0"s));
    ASSERT_EQ(recorder.reports().size(), 1U);
    EXPECT_EQ(recorder.reports()[0].number, 6);
    EXPECT_EQ(recorder.reports()[0].module, "modIFFsupport");
    EXPECT_EQ(recorder.reports()[0].procedure, "gsReadSTRSegment");
    EXPECT_EQ(recorder.reports()[0].checkpoint, 3000);
}

TEST_F(StringSegmentTest, BlankRowsCount) {
    ASSERT_TRUE(
        read("\xFD\xFF\xFF\x7F\x01"
             "ab\0\0"s));
    EXPECT_EQ(strings.Entries.bound(), 32767);
    EXPECT_EQ(strings.Entries[1].Text, "ab");
    EXPECT_EQ(strings.Entries[32767].Text, "");
}

TEST_F(StringSegmentTest, ARowWithoutAnEndStaysBlankAndTheNextBeginsAByteOn) {
    ASSERT_TRUE(read("\xFD\xFF\x02\x00\x01xy"s));
    EXPECT_EQ(strings.Entries[1].Text, "");
    EXPECT_EQ(strings.Entries[1].Language, '\x01');
    EXPECT_EQ(strings.Entries[2].Language, 'x');
    EXPECT_EQ(strings.Tail, "y");
}

TEST_F(StringSegmentTest, ARowWithoutItsSecondEndGoesToTheTrap) {
    EXPECT_FALSE(read("\xFD\xFF\x01\x00\x01xy\0z"s));
    ASSERT_EQ(recorder.reports().size(), 1U);
    EXPECT_EQ(recorder.reports()[0].number, 5);
    EXPECT_EQ(recorder.reports()[0].checkpoint, 7000);
}

TEST_F(StringSegmentTest, ATableWithoutItsCountCannotBeRead) {
    EXPECT_FALSE(read("\xFD\xFF\x01"));
    ASSERT_EQ(recorder.reports().size(), 1U);
    EXPECT_EQ(recorder.reports()[0].number, 5);
    EXPECT_EQ(recorder.reports()[0].procedure, "gsReadSTRSegment");
    EXPECT_EQ(recorder.reports()[0].checkpoint, 3000);
}

// The next report tells how far a command came, and a look is no part of it.
TEST_F(StringSegmentTest, ALookLeavesTheStageAsItWasAlsoWhenItFails) {
    gsResetIFF(iff);
    add("STR#", "", "\xFD\xFF\x01\x00\x01one\0\0"s, kWardrobeIdBytes);
    CheckpointNumber = 1234;
    lookAtWardrobeTable(iff, strings);
    EXPECT_EQ(CheckpointNumber, 1234);
    ASSERT_EQ(strings.Entries.bound(), 1);
    EXPECT_EQ(strings.Entries[1].Text, "one");
    iff.Segments[1].Data = "\xFD\xFF\x01";
    EXPECT_EQ(test::errorOf([&] { lookAtWardrobeTable(iff, strings); }), 5);
    EXPECT_EQ(CheckpointNumber, 1234);
    EXPECT_TRUE(recorder.reports().empty());
}

}  // namespace
}  // namespace marlowick

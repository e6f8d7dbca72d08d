#include "mesh/mesh_converter.h"

#include <gtest/gtest.h>

#include "foundation/error_trap.h"
#include "support/counting_files.h"
#include "support/error_recorder.h"
#include "support/faulty_files.h"
#include "support/mesh_files.h"
#include "support/test_folder.h"
#include "system/files.h"
#include "system/streams.h"

namespace marlowick {
namespace {

using test::counted;
using test::floats;
using test::integers;

class MeshConverterTest : public ::testing::Test {
  protected:
    bool convert(const std::string& bmf) {
        folder.write("mesh.bmf", bmf);
        return gsConvertBMFtoSKN(folder.path("mesh.bmf"), folder.path("mesh.skn"));
    }

    std::string skn() const { return folder.read("mesh.skn"); }

    test::TestFolder folder;
    test::ErrorRecorder recorder;
};

// Every item once or twice.
std::string fullMesh() {
    return counted("xskin-head") + counted("face") + integers({2}) + counted("HEAD") +
           counted("NECK") + integers({1, 0, 1, -2}) +
           integers({2, 0, 1, 2, 3, 4, -1, 6, 7, 8, 9}) + integers({2}) +
           floats({0.0F, 1.0F, 0.25F, -1.0F}) + integers({1, 7, 65536}) + integers({2}) +
           floats({0.5F, 2.0F, -0.25F, 1.0F, 0.0F, 0.00001234567F}) +
           floats({10.0F, 0.01234567F, 1234567.0F, 0.0F, -1.0F, 0.0F});
}

constexpr const char* kFullText =
    "xskin-head\r\n"
    "face\r\n"
    "2\r\n"
    "HEAD\r\n"
    "NECK\r\n"
    "1\r\n"
    "0 1 -2\r\n"
    "2\r\n"
    "0 1 2 3 4\r\n"
    "-1 6 7 8 9\r\n"
    "2\r\n"
    "0.0 1\r\n"
    "0.25 -1\r\n"
    "1\r\n"
    "7 65536\r\n"
    "2\r\n"
    "0.5 2.0 -0.25 1 0.0 1.234567e-005\r\n"
    "10.0 0.01234567 1234567.0 0.0 -1 0.0\r\n";

TEST_F(MeshConverterTest, EveryItemBecomesItsLine) {
    EXPECT_TRUE(convert(fullMesh()));
    EXPECT_EQ(skn(), kFullText);
    EXPECT_TRUE(recorder.reports().empty());
    EXPECT_EQ(streams().freeSlot(), Slot::free(1));
    EXPECT_FALSE(streams().isOpen(slot::kExtractSource));
    EXPECT_FALSE(streams().isOpen(slot::kExtractOutput));
}

TEST_F(MeshConverterTest, AnEmptyMeshGivesEightLines) {
    EXPECT_TRUE(convert(counted("") + counted("") + integers({0, 0, 0, 0, 0, 0})));
    EXPECT_EQ(skn(), "\r\n\r\n0\r\n0\r\n0\r\n0\r\n0\r\n0\r\n");
}

TEST_F(MeshConverterTest, TheTopBitMakesANumberNegative) {
    EXPECT_TRUE(convert(std::string(2, '\0') + integers({0, 1}) + std::string(4, '\xFF') +
                        std::string("\0\0\0\x80", 4) + std::string("\xFF\xFF\xFF\x7F", 4) +
                        integers({0, 0, 0, 0})));
    EXPECT_EQ(skn(), "\r\n\r\n0\r\n1\r\n-1 -2147483648 2147483647\r\n0\r\n0\r\n0\r\n0\r\n");
}

TEST_F(MeshConverterTest, TextsAreCarriedByteByByte) {
    std::string bytes;
    for (int byte = 255; byte > 0; --byte) {
        bytes += static_cast<char>(byte);
    }
    const std::string odd("a\0\r\nb ", 6);
    EXPECT_TRUE(convert(counted(bytes) + counted(odd) + integers({1}) + counted("") +
                        integers({0, 0, 0, 0, 0})));
    EXPECT_TRUE(skn() == bytes + "\r\n" + odd + "\r\n1\r\n\r\n0\r\n0\r\n0\r\n0\r\n0\r\n");
}

TEST_F(MeshConverterTest, WhatFollowsTheLastVertexIsIgnored) {
    EXPECT_TRUE(convert(fullMesh() + "and more"));
    EXPECT_EQ(skn(), kFullText);
}

TEST_F(MeshConverterTest, AnOldFileIsEmptied) {
    folder.write("mesh.skn", std::string(5000, 'x'));
    EXPECT_TRUE(convert(fullMesh()));
    EXPECT_EQ(skn(), kFullText);
}

// The six sections: what one row is in the mesh and in the text.
struct SectionRow {
    const char* name;
    std::string bytes;
    const char* line;
};

const std::vector<SectionRow>& sections() {
    static const std::vector<SectionRow> rows = {
        {"bones", counted("B"), "B\r\n"},
        {"faces", integers({1, 2, 3}), "1 2 3\r\n"},
        {"bindings", integers({1, 2, 3, 4, 5}), "1 2 3 4 5\r\n"},
        {"coordinates", floats({0.5F, 1.0F}), "0.5 1\r\n"},
        {"blends", integers({6, 7}), "6 7\r\n"},
        {"vertices", floats({1, 2, 3, 4, 5, 6}), "1 2.0 3.0 4.0 5.0 6.0\r\n"},
    };
    return rows;
}

std::string repeated(const std::string& text, int times) {
    std::string all;
    for (int i = 0; i < times; ++i) {
        all += text;
    }
    return all;
}

// A mesh in which one section has that count and so many rows, and what precedes it is empty.
std::string meshUpTo(std::size_t section, int count, int rows) {
    return std::string(2, '\0') + repeated(integers({0}), static_cast<int>(section)) +
           integers({count}) + repeated(sections()[section].bytes, rows);
}

std::string textUpTo(std::size_t section, int count, int rows) {
    return "\r\n\r\n" + repeated("0\r\n", static_cast<int>(section)) + std::to_string(count) +
           "\r\n" + repeated(sections()[section].line, rows);
}

class SectionTest : public MeshConverterTest, public ::testing::WithParamInterface<std::size_t> {};

TEST_P(SectionTest, HoldsAtMost32766Rows) {
    const int rest = 5 - static_cast<int>(GetParam());
    EXPECT_TRUE(convert(meshUpTo(GetParam(), 32766, 32766) + repeated(integers({0}), rest)));
    EXPECT_TRUE(skn() == textUpTo(GetParam(), 32766, 32766) + repeated("0\r\n", rest));
}

TEST_P(SectionTest, With32767RowsWritesThemAllAndFails) {
    EXPECT_FALSE(convert(meshUpTo(GetParam(), 32767, 32767) + integers({0, 0, 0, 0, 0})));
    EXPECT_TRUE(skn() == textUpTo(GetParam(), 32767, 32767));
    ASSERT_EQ(recorder.reports().size(), 1U);
    EXPECT_EQ(recorder.reports()[0].number, 6);
}

TEST_P(SectionTest, WithMoreFailsBehindTheCount) {
    for (const int count : {32768, 65536, 0x7FFFFFFF}) {
        streams().closeAll();
        EXPECT_FALSE(convert(meshUpTo(GetParam(), count, 40)));
        EXPECT_EQ(skn(), textUpTo(GetParam(), count, 0));
        EXPECT_EQ(recorder.reports().back().number, 6);
    }
}

TEST_P(SectionTest, WithACountBelowZeroHasNoRows) {
    const int rest = 5 - static_cast<int>(GetParam());
    EXPECT_TRUE(convert(meshUpTo(GetParam(), -7, 0) + repeated(integers({0}), rest)));
    EXPECT_EQ(skn(), textUpTo(GetParam(), -7, 0) + repeated("0\r\n", rest));
}

INSTANTIATE_TEST_SUITE_P(Mesh, SectionTest, ::testing::Range<std::size_t>(0, 6),
                         [](const auto& section) { return sections()[section.param].name; });

TEST_F(MeshConverterTest, AFailureIsTrappedAndLeavesBothSlotsTaken) {
    CheckpointNumber = 4242;
    EXPECT_FALSE(convert(fullMesh().substr(0, 100)));
    ASSERT_EQ(recorder.reports().size(), 1U);
    EXPECT_EQ(recorder.reports()[0].number, 62);
    EXPECT_EQ(recorder.reports()[0].module, "modBMFconvert");
    EXPECT_EQ(recorder.reports()[0].procedure, "gsConvertBMFtoSKN");
    EXPECT_EQ(recorder.reports()[0].checkpoint, 4242);
    EXPECT_TRUE(streams().isOpen(slot::kExtractSource));
    EXPECT_TRUE(streams().isOpen(slot::kExtractOutput));

    const std::string before = skn();
    EXPECT_FALSE(convert(fullMesh()));
    EXPECT_EQ(recorder.reports()[1].number, 55);
    EXPECT_EQ(skn(), before);
}

TEST_F(MeshConverterTest, AMeshThatEndsTooEarlyGivesItsWholeLines) {
    const std::string mesh = fullMesh();
    const std::string text = kFullText;
    std::string before;
    for (std::size_t size = 0; size < mesh.size(); ++size) {
        streams().closeAll();
        EXPECT_FALSE(convert(mesh.substr(0, size))) << size;
        EXPECT_EQ(recorder.reports().back().number, 62) << size;
        const std::string lines = skn();
        EXPECT_TRUE(text.starts_with(lines) && lines.size() < text.size()) << size;
        EXPECT_TRUE(lines.empty() || lines.ends_with("\r\n")) << size;
        EXPECT_GE(lines.size(), before.size()) << size;
        before = lines;
    }
    EXPECT_EQ(before, text.substr(0, text.rfind("10.0 ")));
}

TEST_F(MeshConverterTest, TheLinesAreInTheFileBeforeTheReportShows) {
    std::string seen;
    setErrorTrap([&] { seen = skn(); });
    EXPECT_FALSE(convert(fullMesh().substr(0, fullMesh().size() - 1)));
    const std::string text = kFullText;
    EXPECT_EQ(seen, text.substr(0, text.rfind("10.0 ")));
}

TEST_F(MeshConverterTest, AMissingMeshIsReportedAndNothingIsMade) {
    EXPECT_FALSE(gsConvertBMFtoSKN(folder.path("none.bmf"), folder.path("none.skn")));
    EXPECT_EQ(recorder.reports()[0].number, 53);
    EXPECT_FALSE(folder.exists("none.bmf"));
    EXPECT_FALSE(folder.exists("none.skn"));
}

TEST_F(MeshConverterTest, AReadOnlyTargetIsReportedAndUnchanged) {
    folder.write("mesh.skn", "old");
    folder.makeReadOnly("mesh.skn");
    EXPECT_FALSE(convert(fullMesh()));
    EXPECT_EQ(recorder.reports()[0].number, 75);
    EXPECT_EQ(skn(), "old");
}

TEST_F(MeshConverterTest, AWriteThatFailsIsReportedAndNotRepeated) {
    const int count = 30000;
    const std::string mesh = meshUpTo(5, count, count);
    ASSERT_TRUE(convert(mesh));
    const std::string whole = skn();
    folder.write("mesh.bmf", mesh);
    // The first change opens the output; the third one is the second block.
    test::FaultyFiles faulty(3, test::FaultyFiles::Fault::Fail);
    EXPECT_FALSE(gsConvertBMFtoSKN(folder.path("mesh.bmf"), folder.path("mesh.skn")));
    EXPECT_EQ(recorder.reports()[0].number, 57);
    EXPECT_EQ(recorder.reports().size(), 1U);
    EXPECT_FALSE(skn().empty());
    EXPECT_LT(skn().size(), whole.size());
    EXPECT_TRUE(whole.starts_with(skn()));
}

TEST_F(MeshConverterTest, GoesFromFileToFileInBlocks) {
    const int count = 32766;
    const std::string mesh = meshUpTo(5, count, count);
    folder.write("mesh.bmf", mesh);
    test::CountingFiles counting;
    EXPECT_TRUE(gsConvertBMFtoSKN(folder.path("mesh.bmf"), folder.path("mesh.skn")));
    EXPECT_LE(counting.traffic.largestRead, 32768U);
    EXPECT_LE(counting.traffic.reads, mesh.size() / 32000 + 2);
    EXPECT_LE(counting.traffic.largestWrite, 33000U);
    EXPECT_LE(counting.traffic.writes, skn().size() / 32768 + 1);
    EXPECT_TRUE(skn() == textUpTo(5, count, count));
}

}  // namespace
}  // namespace marlowick

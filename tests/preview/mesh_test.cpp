#include "preview/mesh.h"

#include <gtest/gtest.h>

#include "support/error_recorder.h"
#include "support/mesh_files.h"

namespace marlowick {
namespace {

using test::counted;
using test::errorOf;
using test::floats;
using test::integers;

// Three real vertices, two of which two blended ones pull at. The last face names what isn't there.
const Mesh kMesh = {"xskin-body",
                    "body tex",
                    {"ROOT", "HEAD"},
                    {{0, 1, 2}, {2, 1, 7}},
                    {{0, 0, 2, -1, 0}, {1, 2, 1, 0, 2}},
                    {{0, 0}, {1, 0.25F}, {-0.5F, 2}},
                    {{16384, 2}, {40000, 0}},
                    {{{0, 1.5F, 0}, {0, 1, 0}},
                     {{-0.25F, 0, 0.25F}, {-1, 0, 0}},
                     {{1.5e-5F, 0, 0}, {1, 0, 0}},
                     {{1, 2, 3}, {0, 0, 1}},
                     {{4, 5, 6}, {0, 0, -1}}}};

std::string binary() {
    return counted("xskin-body") + counted("body tex") + integers({2}) + counted("ROOT") +
           counted("HEAD") + integers({2, 0, 1, 2, 2, 1, 7}) +
           integers({2, 0, 0, 2, -1, 0, 1, 2, 1, 0, 2}) + integers({3}) +
           floats({0, 0, 1, 0.25F, -0.5F, 2}) + integers({2, 16384, 2, 40000, 0}) + integers({5}) +
           floats({0, 1.5F, 0, 0, 1, 0, -0.25F, 0, 0.25F, -1, 0, 0, 1.5e-5F, 0, 0,
                   1, 0,    0, 1, 2, 3, 0,      0, 1,     4,  5, 6, 0,       0, -1});
}

std::string text(const std::string& blends, const std::string& lineEnd) {
    std::string result =
        "xskin-body\nbody tex\n2\nROOT\nHEAD\n2\n0 1 2\n2 1 7\n2\n0 0 2 -1 0\n1 2 1 0 2\n"
        "3\n0.0 0.0\n1 0.25\n-0.5 2.0\n" +
        blends +
        "5\n0.0 1.5 0.0 0.0 1 0.0\n-0.25 0.0 0.25 -1 0.0 0.0\n1.5e-005 0.0 0.0 1 0.0 0.0\n"
        "1 2.0 3.0 0.0 0.0 1\n4.0\t5.0  6.0 0.0 0.0 -1\n";
    for (std::size_t at = 0; (at = result.find('\n', at)) != std::string::npos;
         at += lineEnd.size()) {
        result.replace(at, 1, lineEnd);
    }
    return result;
}

TEST(MeshTest, TextAndBinaryGiveOneRecord) {
    EXPECT_EQ(readMesh(binary(), FileForm::Binary), kMesh);
    for (const char* lineEnd : {"\r\n", "\n", "\r"}) {
        EXPECT_EQ(readMesh(text("2\n2 16384\n0 40000\n", lineEnd), FileForm::Text), kMesh);
        EXPECT_EQ(readMesh(text("2\n16384 2\n40000 0\n", lineEnd), FileForm::Text), kMesh);
    }
    EXPECT_EQ(readMesh(binary() + "whatever", FileForm::Binary), kMesh);
}

// Where both ways round name vertices that are there, the vertex comes first.
TEST(MeshTest, BlendRecordsOfATextMayBeEitherWayRound) {
    const auto blends = [](const std::string& rows) {
        return readMesh(text(rows, "\n"), FileForm::Text).blends;
    };
    EXPECT_EQ(blends("2\n2 1\n0 2\n"), (std::vector<MeshBlend>{{1, 2}, {2, 0}}));
    // One record decides for all.
    EXPECT_EQ(blends("2\n2 1\n5 0\n"), (std::vector<MeshBlend>{{2, 1}, {5, 0}}));
    EXPECT_EQ(errorOf([&] { blends("2\n2 9\n9 2\n"); }), 9);
    EXPECT_EQ(errorOf([&] { blends("2\n-1 9\n9 -1\n"); }), 9);
}

TEST(MeshTest, EveryShorterFileIsRefused) {
    const std::string whole = binary();
    for (std::size_t size = 0; size < whole.size(); ++size) {
        EXPECT_EQ(errorOf([&] { readMesh(whole.substr(0, size), FileForm::Binary); }), 62) << size;
    }
    const std::string lines = text("2\n2 16384\n0 40000\n", "\r\n");
    for (std::size_t size = 0; size < lines.size() - 3; ++size) {
        EXPECT_NE(errorOf([&] { readMesh(lines.substr(0, size), FileForm::Text); }), 0) << size;
    }
}

// Where in the binary mesh a section's count stands.
constexpr std::size_t kBonesAt = 11 + 9;
constexpr std::size_t kFacesAt = kBonesAt + 4 + 5 + 5;
constexpr std::size_t kBindingsAt = kFacesAt + 4 + 24;
constexpr std::size_t kPointsAt = kBindingsAt + 4 + 40;
constexpr std::size_t kBlendsAt = kPointsAt + 4 + 24;
constexpr std::size_t kVerticesAt = kBlendsAt + 4 + 16;

int failureWith(std::size_t at, int number) {
    std::string file = binary();
    file.replace(at, 4, integers({number}));
    return errorOf([&] { readMesh(file, FileForm::Binary); });
}

TEST(MeshTest, CountsThatLieAreRefused) {
    struct Row {
        std::size_t at;
        int most;
    };
    for (const Row& row : {Row{kBonesAt, 64}, Row{kFacesAt, 65536}, Row{kBindingsAt, 256},
                           Row{kPointsAt, 65536}, Row{kBlendsAt, 65536}, Row{kVerticesAt, 65536}}) {
        for (const int count : {-1, row.most + 1, 1000000, 0x7FFFFFFF}) {
            EXPECT_EQ(failureWith(row.at, count), 9) << row.at << ' ' << count;
        }
        EXPECT_EQ(failureWith(row.at, row.most), 62) << row.at;
    }
    // Fewer vertices than the texture points and the blend records say.
    EXPECT_EQ(failureWith(kVerticesAt, 4), 9);
}

TEST(MeshTest, BindingsAndBlendRecordsNameWhatIsThere) {
    const auto binding = [](std::size_t row, std::size_t item) {
        return kBindingsAt + 4 + row * 20 + item * 4;
    };
    for (const int wrong : {-1, 2, 0x7FFFFFFF, -0x7FFFFFFF}) {
        EXPECT_EQ(failureWith(binding(0, 0), wrong), 9) << wrong;  // bone
    }
    for (const int wrong : {-1, 3, 0x7FFFFFFF}) {
        EXPECT_EQ(failureWith(binding(0, 1), wrong), 9) << wrong;  // first real vertex
    }
    for (const int wrong : {-1, 4, 0x7FFFFFFF}) {
        EXPECT_EQ(failureWith(binding(0, 2), wrong), 9) << wrong;  // their number
    }
    EXPECT_EQ(failureWith(binding(1, 3), 1), 9);  // the second of two from the second on
    EXPECT_EQ(failureWith(binding(1, 4), 3), 9);
    EXPECT_EQ(failureWith(binding(0, 3), -77), 0);  // the first of none
    EXPECT_EQ(failureWith(kBlendsAt + 8, 3), 9);
    EXPECT_EQ(failureWith(kBlendsAt + 8, -1), 9);
    EXPECT_EQ(failureWith(kBlendsAt + 4, -1), 0);  // a weight, whatever it is
}

TEST(MeshTest, AVertexThatIsNoNumberRefusesTheMesh) {
    EXPECT_EQ(failureWith(kVerticesAt + 4, 0x7FC00000), 6);
    EXPECT_EQ(failureWith(kVerticesAt + 4, 0x7F800000), 6);
    EXPECT_EQ(failureWith(kPointsAt + 4, 0x7FC00000), 6);
    EXPECT_EQ(failureWith(kVerticesAt + 4, 1), 0);  // 1e-45
}

}  // namespace
}  // namespace marlowick

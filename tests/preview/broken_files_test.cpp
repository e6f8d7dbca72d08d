// Skeletons, suits and meshes that were damaged in all kinds of ways: whatever is still read can be
// posed and drawn.
#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include "preview/mesh.h"
#include "preview/pose.h"
#include "preview/raster.h"
#include "preview/skeleton.h"
#include "preview/suit.h"
#include "support/mesh_files.h"
#include "system/runtime_error.h"

namespace marlowick {
namespace {

using test::counted;
using test::floats;
using test::integers;

const std::string kSkeletonText =
    "// bones\nversion 300\n1\nadult\n3\nROOT\nNULL\n1\n1\nkey\nvalue\n| 0 3 0 |\n| 0 0 0 1 "
    "|\n1\n1\n1\n"
    "0.0\n0.0\nSPINE\nROOT\n0\n| 0.5 1.5e-005 0 |\n| 0.5 0.5 0.5 0.5 |\n1\n1\n1\n0.0\n0.0\nHEAD\n"
    "SPINE\n0\n| 1 0 0 |\n| 0 0.7 0 -0.7 |\n1\n1\n1\n0.0\n0.0\n1\nbody\n0\n1\n1\na\nb\n2\nHEAD\n"
    "xskin-a\n0\n0\nSPINE\nxskin-b\n0\n0\n0\n";

std::string skeletonBinary() {
    const auto bone = [](const std::string& name, const std::string& parent) {
        return counted(name) + counted(parent) + integers({0}) +
               floats({0, 1, 0, 0.5F, 0.5F, 0.5F, 0.5F}) + integers({1, 1, 1}) + floats({0, 0});
    };
    return integers({1}) + counted("adult") + integers({3}) + bone("ROOT", "NULL") +
           bone("SPINE", "ROOT") + bone("HEAD", "SPINE") + integers({1}) + counted("body") +
           integers({0, 0, 1}) + counted("HEAD") + counted("xskin") + integers({0, 0, 0});
}

const std::string kMeshText =
    "mesh\nx\n2\nROOT\nHEAD\n4\n0 1 2\n0 2 3\n0 3 1\n1 3 2\n2\n0 0 2 0 1\n1 2 2 1 1\n4\n0 0\n1 "
    "0\n0 1\n"
    "0.5 -2.5\n2\n2 16384\n0 32768\n6\n0 1 0 0 1 0\n-1 -1 1 0 0 1\n1 -1 1 1 0 0\n0 -1 -1 0 0 -1\n"
    "0.5 0 0 1 0 0\n0 0.5 0 0 1 0\n";

std::string meshBinary() {
    return counted("mesh") + counted("x") + integers({2}) + counted("ROOT") + counted("HEAD") +
           integers({4, 0, 1, 2, 0, 2, 3, 0, 3, 1, 1, 3, 2, 2, 0, 0, 2, 0, 1, 1, 2, 2, 1, 1, 4}) +
           floats({0, 0, 1, 0, 0, 1, 0.5F, -2.5F}) + integers({2, 16384, 2, 32768, 0, 6}) +
           floats({0, 1,  0,  0, 1, 0,  -1,   -1, 1, 0, 0, 1, 1, -1,   1, 1, 0, 0,
                   0, -1, -1, 0, 0, -1, 0.5F, 0,  0, 1, 0, 0, 0, 0.5F, 0, 0, 1, 0});
}

// Damages a file as a disk, a bad tool or an ill will might.
class Damage {
  public:
    explicit Damage(unsigned seed) : random_(seed) {}

    std::string done(std::string file) {
        for (std::size_t times = 1 + below(4); times > 0; --times) {
            once(file);
        }
        return file;
    }

  private:
    std::size_t below(std::size_t bound) { return bound == 0 ? 0 : random_() % bound; }

    void once(std::string& file) {
        static const char* const kWords[] = {"-1",   "0",     "65536", "2147483647", "-2147483648",
                                             "1e38", "1e-45", "nan",   "-inf",       "999999"};
        static constexpr int kNumbers[] = {
            -1, 0, 64, 65536, 0x7FFFFFFF, 0x7F7FFFFF, 0x7FC00000, 0x7F800000, 0x3F800000};
        const std::size_t place = below(file.size());
        switch (below(7)) {
            case 0:
                file.resize(place);
                break;
            case 1:
                if (!file.empty()) {
                    file[place] = static_cast<char>(random_());
                }
                break;
            case 2:
                file.erase(place, below(12));
                break;
            case 3:
                file.insert(place, file.substr(below(file.size()), below(40)));
                break;
            case 4:  // a number of a binary file
                if (file.size() >= 4) {
                    file.replace(std::min(place, file.size() - 4), 4,
                                 integers({kNumbers[below(std::size(kNumbers))]}));
                }
                break;
            case 5: {  // a word of a text file
                const std::size_t start = file.find_first_of(" \n", place);
                if (start != std::string::npos) {
                    const std::size_t end = file.find_first_of(" \n", start + 1);
                    file.replace(start + 1, end == std::string::npos ? end : end - start - 1,
                                 kWords[below(std::size(kWords))]);
                }
                break;
            }
            default:
                std::swap_ranges(file.begin(),
                                 file.begin() + static_cast<std::ptrdiff_t>(file.size() / 3),
                                 file.begin() + static_cast<std::ptrdiff_t>(file.size() / 2));
                break;
        }
    }

    std::mt19937 random_;
};

// What read gives; nothing if it raises, which is all that it may do beside.
template <class Read>
auto readOrNothing(const Read& read) -> std::optional<decltype(read())> {
    try {
        return read();
    } catch (const RuntimeError&) {
        return std::nullopt;
    }
}

class BrokenFilesTest : public ::testing::TestWithParam<FileForm> {
  protected:
    static std::string skeletonFile() {
        return GetParam() == FileForm::Binary ? skeletonBinary() : kSkeletonText;
    }
    static std::string meshFile() {
        return GetParam() == FileForm::Binary ? meshBinary() : kMeshText;
    }

    void pose(const Mesh& mesh, const Skeleton& skeleton) {
        FigurePart part = posedMesh(mesh, skeleton, bonePlaces(skeleton));
        part.texture = std::make_shared<const Texture>(Texture{2, 1, {0x00FF0000, 0x000000FF}});
        for (const FigureFace& face : part.faces) {
            for (const std::uint32_t number : face) {
                ASSERT_LT(number, part.vertices.size());
                const FigureVertex& vertex = part.vertices[number];
                ASSERT_LE(length(vertex.position), 2000);
                ASSERT_LE(length(vertex.normal), 1.001F);
                ASSERT_LE(std::abs(vertex.u) + std::abs(vertex.v), 2000);
            }
        }
        ++drawn_;
        raster_.draw(makeFigure({std::move(part)}), {static_cast<float>(drawn_), 10, 1}, 24, 24);
    }

    Raster raster_;
    int drawn_ = 0;
};

TEST_P(BrokenFilesTest, AreRefusedOrDrawn) {
    const Skeleton whole = readSkeletonFile(skeletonFile(), GetParam());
    const Mesh mesh = readMesh(meshFile(), GetParam());
    pose(mesh, whole);
    ASSERT_EQ(posedMesh(mesh, whole, bonePlaces(whole)).faces.size(), 4U);
    int skeletons = 0;
    int meshes = 0;
    constexpr unsigned kFiles = 20000;
    for (unsigned seed = 0; seed < kFiles; ++seed) {
        Damage damage(seed);
        const std::string bones = damage.done(skeletonFile());
        const auto skeleton = readOrNothing([&] { return readSkeletonFile(bones, GetParam()); });
        readOrNothing([&] { return readSuits(bones, GetParam()); });
        const std::string shape = damage.done(meshFile());
        const auto damaged = readOrNothing([&] { return readMesh(shape, GetParam()); });
        if (skeleton) {
            ++skeletons;
            pose(mesh, *skeleton);
        }
        if (damaged) {
            ++meshes;
            pose(*damaged, skeleton ? *skeleton : whole);
        }
    }
    // Many are damaged where it doesn't matter, or only a little.
    EXPECT_GT(skeletons, 1000);
    EXPECT_GT(meshes, 500);
    EXPECT_LT(meshes, static_cast<int>(kFiles) * 3 / 4);
}

INSTANTIATE_TEST_SUITE_P(Forms, BrokenFilesTest,
                         ::testing::Values(FileForm::Binary, FileForm::Text), [](const auto& form) {
                             return form.param == FileForm::Binary ? "Binary" : "Text";
                         });

}  // namespace
}  // namespace marlowick

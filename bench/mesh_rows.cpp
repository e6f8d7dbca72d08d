// A mesh as text.
#include <benchmark/benchmark.h>

#include <bit>
#include <charconv>
#include <random>

#include "bench/plain_disk.h"
#include "bench/ratio.h"
#include "foundation/bytes.h"
#include "mesh/mesh_converter.h"
#include "system/files.h"

namespace marlowick::bench {
namespace {

class ConvertMesh : public Case {
  public:
    explicit ConvertMesh(int vertices) {
        std::string mesh(2, '\0');
        for (const std::int32_t count : {0, 0, 0, 0, 0, vertices}) {
            mesh += gfstrLongToLittleEndian(count);
        }
        std::mt19937 random(1);
        std::uniform_real_distribution<float> position(-3.0F, 3.0F);
        for (int i = 0; i < vertices * 6; ++i) {
            values_.push_back(position(random));
            mesh += gfstrLongToLittleEndian(std::bit_cast<std::int32_t>(values_.back()));
        }
        plainWrite(folder_.of("mesh.bmf"), mesh);
    }
    // A file that is cut and written anew goes to the disk at once, which would hide all else.
    void prepare() override {
        removeIfPresent(skn_);
        removeIfPresent(folder_.path("plain.skn"));
    }
    void floor() override {
        constexpr std::size_t kLongest = 16;
        const auto text = std::make_unique_for_overwrite<char[]>(values_.size() * kLongest);
        char* next = text.get();
        for (const float value : values_) {
            next = std::to_chars(next, next + kLongest, value, std::chars_format::general, 7).ptr;
            *next++ = ' ';
        }
        plainWrite(folder_.of("plain.skn"),
                   {text.get(), static_cast<std::size_t>(next - text.get())});
    }
    void routine() override { benchmark::DoNotOptimize(gsConvertBMFtoSKN(bmf_, skn_)); }

  private:
    BenchFolder folder_;
    Path bmf_ = folder_.path("mesh.bmf");
    Path skn_ = folder_.path("mesh.skn");
    std::vector<float> values_;
};

}  // namespace

std::vector<Row> meshRows() {
    return {{.name = "A mesh of # vertices to text",
             .toReach = 2.0,
             .sizes = {300, 3000, 30'000},
             .smallSize = 30,
             .make = sized<ConvertMesh>()}};
}

}  // namespace marlowick::bench

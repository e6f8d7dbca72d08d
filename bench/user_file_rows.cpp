// Reading and writing one user file.
#include <benchmark/benchmark.h>

#include "bench/plain_disk.h"
#include "bench/ratio.h"
#include "foundation/bytes.h"
#include "iff/iff_file.h"
#include "system/files.h"

namespace marlowick::bench {
namespace {

constexpr int kFileSize = 150'000;
constexpr int kLabelField = 64;

// Segments of one size, and a row of the map for each.
IffFile recordOf(int segments) {
    IffFile iff;
    iff.HasRsmp = true;
    iff.Header = std::string(60, 'h');
    iff.RsmpOffset = std::string(4, '\1');
    iff.RsmpHeader = "rsmp" + std::string(84, '\0');
    iff.RsmpTypes.resize(1);
    iff.RsmpTypes[1].TypeCode = "PMB_";
    iff.RsmpTypes[1].EntryCount = segments;
    iff.RsmpTypeCount = 1;
    const std::string data(static_cast<std::size_t>(kFileSize / segments), 'x');
    for (int i = 1; i <= segments; ++i) {
        const std::string id = gfstrLongToBigEndian(i).substr(2);
        const auto size = static_cast<std::int32_t>(76 + data.size());
        iff.Segments.append({0, "BMP_", gfstrLongToBigEndian(size), id + std::string(2, '\0'),
                             std::string(kLabelField, '\0'), data});
        iff.RsmpTypes[1].Entries.append({std::string(4, '\0'),
                                         std::string(id.rbegin(), id.rend()) + std::string(2, '\0'),
                                         std::string("abcde\0", 6)});
    }
    return iff;
}

class ReadUserFile : public Case {
  public:
    explicit ReadUserFile(int segments) {
        IffFile record = recordOf(segments);
        gsWriteIFF(record, path_);
    }
    void floor() override { benchmark::DoNotOptimize(plainRead(file_).bytes.get()); }
    void routine() override { benchmark::DoNotOptimize(gfstrQuickReadIFF(iff_, path_)); }

  private:
    BenchFolder folder_;
    std::string file_ = folder_.of("User00001.iff");
    Path path_ = folder_.path("User00001.iff");
    IffFile iff_;
};

class WriteUserFile : public Case {
  public:
    explicit WriteUserFile(int segments) : iff_(recordOf(segments)) {
        gsWriteIFF(iff_, path_);
        content_ = readWholeFile(path_);
    }
    void prepare() override { removeIfPresent(path_); }
    void floor() override { plainWrite(file_, content_); }
    void routine() override { benchmark::DoNotOptimize(gsWriteIFF(iff_, path_)); }

  private:
    BenchFolder folder_;
    std::string file_ = folder_.of("User00001.iff");
    Path path_ = folder_.path("User00001.iff");
    IffFile iff_;
    std::string content_;
};

}  // namespace

std::vector<Row> userFileRows() {
    return {{.name = "Read a user file of 150 KB, map, # segments",
             .toReach = 1.5,
             .sizes = {40},
             .smallSize = 40,
             .make = sized<ReadUserFile>()},
            {.name = "Write that file, # segments",
             .toReach = 1.5,
             .sizes = {40},
             .smallSize = 40,
             .make = sized<WriteUserFile>()}};
}

}  // namespace marlowick::bench

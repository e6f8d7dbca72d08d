// Names in a folder, blind to letter case.
#include <benchmark/benchmark.h>
#include <dirent.h>
#include <sys/stat.h>

#include <memory>
#include <string>
#include <vector>

#include "bench/plain_disk.h"
#include "bench/ratio.h"
#include "system/folder_names_posix.h"

namespace marlowick::bench {
namespace {

constexpr int kNames = 15;

// A folder that nobody has asked about yet, as a command finds it. The kernel is asked to tell of
// changes once a program, which isn't measured: to let that go takes as long as all the rest.
class LookUp : public Case {
  public:
    LookUp(int count, const char* wanted) {
        for (int i = 0; i < count; ++i) {
            plainWrite(folder_.of("b001fafitlgt_" + std::to_string(i) + ".bmp"), "");
        }
        for (int i = 0; i < kNames; ++i) {
            wanted_.push_back(wanted + std::to_string(i * (count / kNames)) + ".BMP");
        }
    }
    void floor() override {
        // One behind the other: a text for each would take a third of the time.
        std::string names;
        DIR* const handle = ::opendir(root_.c_str());
        while (const dirent* const entry = ::readdir(handle)) {
            names.append(entry->d_name).push_back('\0');
        }
        ::closedir(handle);
        benchmark::DoNotOptimize(names.data());
        for (const std::string& name : wanted_) {
            struct stat status {};
            benchmark::DoNotOptimize(::stat((root_ + name).c_str(), &status));
        }
    }
    void prepare() override { names_ = std::make_unique<FolderNames>(); }
    void routine() override {
        for (const std::string& name : wanted_) {
            benchmark::DoNotOptimize(names_->find(root_, name));
        }
    }

  private:
    BenchFolder folder_;
    std::string root_ = folder_.of("");
    std::vector<std::string> wanted_;
    std::unique_ptr<FolderNames> names_;
};

class Present : public LookUp {
  public:
    explicit Present(int count) : LookUp(count, "B001FAFITLGT_") {}
};

class Absent : public LookUp {
  public:
    explicit Absent(int count) : LookUp(count, "B002FAFITLGT_") {}
};

}  // namespace

std::vector<Row> lookUpRows() {
    return {{.name = "15 names looked up in a folder of #, other letter case, present",
             .toReach = 1.2,
             .sizes = {20'000},
             .smallSize = 100,
             .growth = {100, 1000, 10'000, 100'000},
             .make = sized<Present>()},
            {.name = "15 names looked up in a folder of #, other letter case, absent",
             .toReach = 1.2,
             .sizes = {20'000},
             .smallSize = 100,
             .make = sized<Absent>()}};
}

}  // namespace marlowick::bench

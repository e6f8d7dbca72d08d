// Makes the folders of tests in the machine's memory, where there is room for them: a test that
// replaces thousands of files would wait minutes for a disk to take each of them.
#pragma once

#include <cstdlib>
#include <filesystem>
#include <string>

namespace marlowick::test {

// To be made before the TestFolder that it is for, as a base of the test.
class QuickDisk {
  public:
    QuickDisk() {
#ifndef _WIN32
        constexpr std::uintmax_t kEnough = 128U << 20U;  // bytes
        constexpr const char* kMemory = "/dev/shm";
        std::error_code failure;
        const auto space = std::filesystem::space(kMemory, failure);
        if (!failure && space.available >= kEnough) {
            const char* before = std::getenv("TMPDIR");
            before_ = before == nullptr ? "" : before;
            ::setenv("TMPDIR", kMemory, 1);
            isSet_ = true;
        }
#endif
    }
    ~QuickDisk() {
#ifndef _WIN32
        if (isSet_ && before_.empty()) {
            ::unsetenv("TMPDIR");
        } else if (isSet_) {
            ::setenv("TMPDIR", before_.c_str(), 1);
        }
#endif
    }
    QuickDisk(const QuickDisk&) = delete;
    QuickDisk& operator=(const QuickDisk&) = delete;

  private:
    std::string before_;
    bool isSet_ = false;
};

}  // namespace marlowick::test

// Makes the folders of tests in the machine's memory, where there is room for them: a test that
// replaces thousands of files would wait minutes for a disk to take each of them. Under Wine the
// same memory is a folder of drive Z; Windows itself has none.
#pragma once

#include <cstdlib>
#include <filesystem>
#include <string>

namespace marlowick::test {

// To be made before the TestFolder that it is for, as a base of the test.
class QuickDisk {
  public:
    QuickDisk() {
        constexpr std::uintmax_t kEnough = 128U << 20U;  // bytes
        std::error_code failure;
        const auto space = std::filesystem::space(kMemory, failure);
        if (!failure && space.available >= kEnough) {
            const char* before = std::getenv(kVariable);
            before_ = before == nullptr ? "" : before;
            set(kMemory);
            isSet_ = true;
        }
    }
    ~QuickDisk() {
        if (isSet_) {
            set(before_);
        }
    }
    QuickDisk(const QuickDisk&) = delete;
    QuickDisk& operator=(const QuickDisk&) = delete;

  private:
    // An empty value takes the variable away.
#ifdef _WIN32
    static constexpr const char* kMemory = "Z:\\dev\\shm";
    static constexpr const char* kVariable = "TMP";
    static void set(const std::string& value) {
        ::_putenv_s(kVariable, value.c_str());
    }
#else
    static constexpr const char* kMemory = "/dev/shm";
    static constexpr const char* kVariable = "TMPDIR";
    static void set(const std::string& value) {
        if (value.empty()) {
            ::unsetenv(kVariable);
        } else {
            ::setenv(kVariable, value.c_str(), 1);
        }
    }
#endif

    std::string before_;
    bool isSet_ = false;
};

}  // namespace marlowick::test

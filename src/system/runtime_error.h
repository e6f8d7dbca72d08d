// The one exception type of the program. It carries the classic error number
// and its description, which is what a person reads in the error report.
#pragma once

#include <exception>
#include <string>

namespace marlowick {

class RuntimeError : public std::exception {
  public:
    // number: one of the classic numbers, see errorDescription().
    explicit RuntimeError(int number);
    RuntimeError(int number, std::string description);

    int number() const { return number_; }
    const std::string& description() const { return description_; }
    const char* what() const noexcept override { return description_.c_str(); }

  private:
    int number_;
    std::string description_;
};

// The classic numbers that the program raises.
namespace error {
inline constexpr int kInvalidArgument = 5;
inline constexpr int kOverflow = 6;
inline constexpr int kOutOfMemory = 7;
inline constexpr int kSubscript = 9;
inline constexpr int kTypeMismatch = 13;
inline constexpr int kBadFileName = 52;
inline constexpr int kFileNotFound = 53;
inline constexpr int kFileAlreadyOpen = 55;
inline constexpr int kDeviceIo = 57;
inline constexpr int kFileAlreadyExists = 58;
inline constexpr int kDiskFull = 61;
inline constexpr int kInputPastEnd = 62;
inline constexpr int kBadRecordNumber = 63;
inline constexpr int kTooManyFiles = 67;
inline constexpr int kPermissionDenied = 70;
inline constexpr int kPathFileAccess = 75;
inline constexpr int kPathNotFound = 76;
inline constexpr int kInvalidFormat = 321;
inline constexpr int kInvalidPicture = 481;
}  // namespace error

// The description that belongs to a number; for any other number
// "Application-defined or object-defined error".
const char* errorDescription(int number);

// The failure that is being handled, as a RuntimeError: inside a catch block,
// a RuntimeError is given back as it is, a failed allocation is 7, anything else is 5.
RuntimeError currentError();

}  // namespace marlowick

// Stands in for the error window: notes each report, as if it were closed by its
// frame, so that the failed routine's caller goes on.
#pragma once

#include <functional>
#include <string>
#include <vector>

namespace marlowick::test {

struct Report {
    int number = 0;
    std::string module;
    std::string procedure;
    int checkpoint = 0;
};

class ErrorRecorder {
  public:
    ErrorRecorder();
    // Puts the error window back.
    ~ErrorRecorder();
    ErrorRecorder(const ErrorRecorder&) = delete;
    ErrorRecorder& operator=(const ErrorRecorder&) = delete;

    const std::vector<Report>& reports() const { return reports_; }

  private:
    std::vector<Report> reports_;
};

// The number of the RuntimeError that body raises; 0 if it raises none.
int errorOf(const std::function<void()>& body);

}  // namespace marlowick::test

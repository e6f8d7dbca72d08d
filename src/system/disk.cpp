#include "system/disk.h"

#include <cmath>
#include <utility>

#include "system/disk_system.h"

namespace marlowick {
namespace {

std::function<double(const Path&)>& answerInUse() {
    static std::function<double(const Path&)> answer;
    return answer;
}

}  // namespace

double gfdblFreeDiskSpace(const Path& root) {
    return answerInUse() ? answerInUse()(root) : systemFreeDiskSpace(root);
}

void setFreeDiskSpace(std::function<double(const Path&)> answer) {
    answerInUse() = std::move(answer);
}

std::string groupedDigits(double number) {
    std::string digits = std::to_string(static_cast<long long>(std::llround(number)));
    for (std::size_t place = digits.size(); place > 3;) {
        place -= 3;
        digits.insert(place, 1, ',');
    }
    return digits == "0" ? std::string() : digits;
}

}  // namespace marlowick

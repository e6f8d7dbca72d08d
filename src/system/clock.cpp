#include "system/clock.h"

#include <utility>

namespace marlowick {
namespace {

std::function<std::tm()>& clockInUse() {
    static std::function<std::tm()> clock;
    return clock;
}

std::function<std::tm()>& universalClockInUse() {
    static std::function<std::tm()> clock;
    return clock;
}

}  // namespace

std::tm localTime() {
    if (clockInUse()) {
        return clockInUse()();
    }
    const std::time_t now = std::time(nullptr);
    std::tm local{};
#ifdef _WIN32
    localtime_s(&local, &now);
#else
    localtime_r(&now, &local);
#endif
    return local;
}

std::tm universalTime() {
    if (universalClockInUse()) {
        return universalClockInUse()();
    }
    const std::time_t now = std::time(nullptr);
    std::tm universal{};
#ifdef _WIN32
    gmtime_s(&universal, &now);
#else
    gmtime_r(&now, &universal);
#endif
    return universal;
}

void setUniversalClock(std::function<std::tm()> clock) {
    universalClockInUse() = std::move(clock);
}

void setClock(std::function<std::tm()> clock) {
    clockInUse() = std::move(clock);
}

}  // namespace marlowick

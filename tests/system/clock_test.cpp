#include "system/clock.h"

#include <gtest/gtest.h>

namespace marlowick {
namespace {

std::tm noon(int year) {
    std::tm time{};
    time.tm_year = year - 1900;
    time.tm_mday = 1;
    time.tm_hour = 12;
    return time;
}

TEST(ClockTest, BothTimesHaveAClockOfTheirOwnThatCanBePutInPlace) {
    setClock([] { return noon(2001); });
    setUniversalClock([] { return noon(2002); });
    EXPECT_EQ(localTime().tm_year, 101);
    EXPECT_EQ(universalTime().tm_year, 102);
    setClock({});
    EXPECT_EQ(universalTime().tm_year, 102);
    setUniversalClock({});
    EXPECT_NE(universalTime().tm_year, 102);
}

TEST(ClockTest, TheUniversalTimeIsTheMachines) {
    const std::time_t now = std::time(nullptr);
    std::tm universal = universalTime();
#ifdef _WIN32
    const std::time_t told = _mkgmtime(&universal);
#else
    const std::time_t told = timegm(&universal);
#endif
    EXPECT_GE(told, now);
    EXPECT_LE(told, now + 60);
}

}  // namespace
}  // namespace marlowick

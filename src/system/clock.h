// The present date and time.
#pragma once

#include <ctime>
#include <functional>

namespace marlowick {

// The local date and time.
std::tm localTime();

// The same moment's date and time without the hours of the zone and of summer.
std::tm universalTime();

// Puts another clock in the place of the machine's, for tests; an empty one is the machine's again.
// universalTime() has a clock of its own.
void setClock(std::function<std::tm()> clock);
void setUniversalClock(std::function<std::tm()> clock);

}  // namespace marlowick

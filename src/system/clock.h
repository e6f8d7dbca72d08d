// The present date and time.
#pragma once

#include <ctime>
#include <functional>

namespace marlowick {

// The local date and time.
std::tm localTime();

// Puts another clock in the place of the machine's, for tests; an empty one is the machine's again.
void setClock(std::function<std::tm()> clock);

}  // namespace marlowick

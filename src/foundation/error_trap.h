// The one way in which the program reports what it didn't expect. A routine of
// substance runs its work through trapped(); a failure inside fills the error
// state, shows the report, and the routine ends.
#pragma once

#include <cstdint>
#include <functional>
#include <initializer_list>
#include <string>

#include "system/runtime_error.h"

namespace marlowick {

// How far the running routine came: 1000, 2000 and so on. No routine resets it, so a routine that
// sets none reports what the one before it left.
inline std::int32_t CheckpointNumber = 0;

// The last failure that reached a trap.
inline std::int32_t glngErrorNumber = 0;
inline std::string gstrErrorDescription;  // UTF-8
inline std::string gstrErrorModule;
inline std::string gstrErrorProc;

// Shows the report window. The windows set what it does; without them it does nothing.
void gfErrorTrap();
void setErrorTrap(std::function<void()> show);

// Runs body under a trap: a failure in it fills the error state with the failure and the two
// names (literals of the calling routine), runs gfErrorTrap and ends the routine.
// Gives true if body ran to its end. Traps nest: the innermost one takes the failure.
bool trapped(const char* module, const char* procedure, const std::function<void()>& body);

// Runs body and passes over a failure in silence; false if there was one.
bool ignoringErrors(const std::function<void()>& body);

// "Error ", the number, " - ", the description: a failure in words for a person.
std::string errorText(const RuntimeError& failure);

// Runs steps that trap their own failures, one after another, whatever fails; each gives false if
// it failed. Gives the failure of the first such step as errorText, an empty text if there was
// none.
std::string firstFailure(std::initializer_list<std::function<bool()>> steps);

// The twelve lines of the error report, each ended by CR LF. UTF-8.
std::string errorReport();

}  // namespace marlowick

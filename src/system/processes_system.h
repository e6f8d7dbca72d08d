// What each system says of its programs, for processes.cpp alone.
#pragma once

#include <vector>

#include "system/processes.h"

namespace marlowick {

std::vector<RunningProgram> systemRunningPrograms();

}  // namespace marlowick

// Tells two copies of the program in one folder apart: they would mix their scratch files. Nothing
// is written for it, so that a folder that can't be written does as well, and however a copy ends,
// the system gives its lock back.
#pragma once

#include <memory>

#include "system/path.h"

namespace marlowick {

class ProgramLock {
  public:
    virtual ~ProgramLock() = default;
};

enum class LockAnswer {
    Taken,
    HeldByOther,
    NoLock,  // the system or the folder's disk knows no such lock
};

struct LockedFolder {
    LockAnswer answer = LockAnswer::NoLock;
    std::unique_ptr<ProgramLock> lock;  // of Taken; held while it lives
};

// Locks a folder for this copy. Raises nothing, and doesn't wait.
LockedFolder lockFolder(const Path& folder);

}  // namespace marlowick

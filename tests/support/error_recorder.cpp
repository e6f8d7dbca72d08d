#include "support/error_recorder.h"

#include "foundation/error_trap.h"
#include "start/startup.h"
#include "system/runtime_error.h"

namespace marlowick::test {

ErrorRecorder::ErrorRecorder() {
    setErrorTrap([this] {
        reports_.push_back({glngErrorNumber, gstrErrorModule, gstrErrorProc, CheckpointNumber});
    });
}

ErrorRecorder::~ErrorRecorder() {
    installErrorWindow();
}

int errorOf(const std::function<void()>& body) {
    try {
        body();
    } catch (const RuntimeError& failure) {
        return failure.number();
    }
    return 0;
}

}  // namespace marlowick::test

#include "support/error_recorder.h"

#include "foundation/error_trap.h"
#include "foundation/startup.h"

namespace marlowick::test {

ErrorRecorder::ErrorRecorder() {
    setErrorTrap([this] {
        reports_.push_back({glngErrorNumber, gstrErrorModule, gstrErrorProc, CheckpointNumber});
    });
}

ErrorRecorder::~ErrorRecorder() {
    installErrorWindow();
}

}  // namespace marlowick::test

// Style and font of the program's windows.
#pragma once

namespace marlowick {

// Sets the application's style, its colours and its one small font. The windows' sizes are made for
// a font of 12 pixels, whatever the system's own is. Needs a QApplication.
void applyLook();

}  // namespace marlowick

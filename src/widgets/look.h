// Style and font of the program's windows.
#pragma once

#include <QString>

namespace marlowick {

// The key of the style that the windows bear, for a style that changes a part of it.
QString styleKey();

// Sets the application's style and its one small font. The windows' sizes are made for
// a font of 12 pixels, whatever the system's own is. Needs a QApplication.
void applyLook();

}  // namespace marlowick

// The one place where texts of the game and of the program become texts of the
// screen and back.
#pragma once

#include <QString>
#include <string>
#include <string_view>

#include "system/path.h"

namespace marlowick {

// Game text (Windows-1252 bytes) to a text on the screen, and back; a character
// without a byte becomes "?".
QString toDisplay(std::string_view gameText);
std::string toGameText(const QString& text);

// A text as the tool tip that shows it: what looks like markup ("<b>") is shown as it stands.
QString toToolTip(const QString& text);

// A path as people of this system write it, in the letters in which its names stand on the disk,
// and a path out of a text box or a setting.
QString toDisplay(const Path& path);
Path toPath(const QString& text);

}  // namespace marlowick

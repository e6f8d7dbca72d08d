// Style, font and colours of the program's windows.
#pragma once

#include <QColor>
#include <QString>

class QRadioButton;
class QWidget;

namespace marlowick {

// Gives an option a round mark that fits into a low button.
void useSmallMark(QRadioButton& option);

// Sets the application's style and its one small font. The windows' sizes are made for
// a font of 12 pixels, whatever the system's own is. Needs a QApplication.
void applyLook();

// The ground of a page of faces or skins: dark enough for the white frame of the chosen one, light
// enough for dark names.
QColor pageGround();

// Gives a page its ground, and the letters on it their colours, on every desktop.
void colourPage(QWidget& page);

}  // namespace marlowick

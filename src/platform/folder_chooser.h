// The system's own folder chooser.
#pragma once

#include <QString>

class QWidget;

namespace marlowick {

// Asks for a folder of the file system; empty on cancel.
QString chooseFolder(QWidget* owner, const QString& title);

}  // namespace marlowick

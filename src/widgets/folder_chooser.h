// The system's own folder chooser.
#pragma once

#include <QString>
#include <functional>

class QWidget;

namespace marlowick {

// Asks for a folder of the file system; empty on cancel.
QString chooseFolder(QWidget* owner, const QString& title);

// Puts something else in the place of the system's chooser, for tests. An empty function is the
// system again.
using FolderChooserSeam = std::function<QString(QWidget* owner, const QString& title)>;
void setFolderChooser(FolderChooserSeam chooser);

}  // namespace marlowick

#include <QFileDialog>

#include "widgets/folder_chooser_system.h"

namespace marlowick {

QString systemChooseFolder(QWidget* owner, const QString& title) {
    return QFileDialog::getExistingDirectory(owner, title);
}

}  // namespace marlowick

#include "platform/folder_chooser.h"

#include <QFileDialog>

namespace marlowick {

QString chooseFolder(QWidget* owner, const QString& title) {
    return QFileDialog::getExistingDirectory(owner, title);
}

}  // namespace marlowick

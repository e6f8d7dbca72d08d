#include <QFileDialog>

#include "platform/folder_chooser.h"

namespace marlowick {

QString chooseFolder(QWidget* owner, const QString& title) {
    return QFileDialog::getExistingDirectory(owner, title);
}

}  // namespace marlowick

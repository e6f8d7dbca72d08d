#include "widgets/folder_chooser.h"

#include <utility>

#include "widgets/folder_chooser_system.h"

namespace marlowick {
namespace {

FolderChooserSeam& seam() {
    static FolderChooserSeam chooser;
    return chooser;
}

}  // namespace

void setFolderChooser(FolderChooserSeam chooser) {
    seam() = std::move(chooser);
}

QString chooseFolder(QWidget* owner, const QString& title) {
    return seam() ? seam()(owner, title) : systemChooseFolder(owner, title);
}

}  // namespace marlowick

// The system's own folder chooser, for folder_chooser.cpp and tests alone.
#pragma once

#include <QString>

class QWidget;

namespace marlowick {

QString systemChooseFolder(QWidget* owner, const QString& title);

}  // namespace marlowick

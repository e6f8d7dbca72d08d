#include "widgets/display_text.h"

#include <QTextDocument>

#include "system/game_text.h"
#include "system/shown_path.h"

namespace marlowick {

QString toDisplay(std::string_view gameText) {
    return QString::fromStdString(gameTextToUtf8(gameText));
}

std::string toGameText(const QString& text) {
    return utf8ToGameText(text.toStdString());
}

QString toToolTip(const QString& text) {
    return Qt::mightBeRichText(text) ? Qt::convertFromPlainText(text) : text;
}

QString toDisplay(const Path& path) {
    return QString::fromStdString(shownPath(path));
}

Path toPath(const QString& text) {
    return typedPath(text.toStdString());
}

}  // namespace marlowick

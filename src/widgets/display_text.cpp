#include "widgets/display_text.h"

#include <QTextDocument>

#include "system/game_text.h"

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
    return QString::fromStdString(path.text());
}

Path toPath(const QString& text) {
    return Path(text.toStdString());
}

}  // namespace marlowick

#include "platform/look.h"

#include <QApplication>
#include <QFont>
#include <QFontDatabase>
#include <QPalette>
#include <QStringList>
#include <QStyleFactory>
#include <algorithm>

namespace marlowick {
namespace {

constexpr int kFontPixels = 12;

#ifdef _WIN32
// The native style is Qt's own choice. Wine has the name of the system's font, but not the font:
// what it takes instead may be one with serifs.
const QStringList kFamilies = {QStringLiteral("Segoe UI"), QStringLiteral("Tahoma"),
                               QStringLiteral("Liberation Sans"), QStringLiteral("DejaVu Sans"),
                               QStringLiteral("Arial")};
#else
// One look on every desktop.
constexpr const char* kStyle = "Fusion";
const QStringList kFamilies = {QStringLiteral("DejaVu Sans")};
#endif

}  // namespace

void applyLook() {
#ifndef _WIN32
    QApplication::setStyle(QStyleFactory::create(QString::fromLatin1(kStyle)));
#endif
    QFont font = QApplication::font();
    const auto family = std::find_if(kFamilies.begin(), kFamilies.end(), [](const QString& name) {
        return QFontDatabase::hasFamily(name);
    });
    font.setFamily(family != kFamilies.end() ? *family : kFamilies.first());
    font.setPixelSize(kFontPixels);
    QApplication::setFont(font);
    // A command takes the focus from its list: the chosen line must stay as plain to see as before.
    QPalette palette = QApplication::palette();
    for (const QPalette::ColorRole role : {QPalette::Highlight, QPalette::HighlightedText}) {
        palette.setColor(QPalette::Inactive, role, palette.color(QPalette::Active, role));
    }
    QApplication::setPalette(palette);
}

}  // namespace marlowick

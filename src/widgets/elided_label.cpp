#include "widgets/elided_label.h"

#include <QPainter>

#include "widgets/display_text.h"

namespace marlowick {
namespace {

constexpr int kLines = 2;

}  // namespace

void ElidedLabel::setTexts(const QString& title, const QString& path) {
    setTextFormat(Qt::PlainText);
    setText(path.isEmpty() ? title : title + QLatin1Char('\n') + path);
    setToolTip(toToolTip(text()));
}

QStringList ElidedLabel::fittedLines() const {
    QStringList lines = text().split(QLatin1Char('\n'));
    for (QString& line : lines) {
        line = fontMetrics().elidedText(
            line, &line == &lines.front() ? Qt::ElideRight : Qt::ElideMiddle, width());
    }
    return lines;
}

QSize ElidedLabel::sizeHint() const {
    return minimumSizeHint();
}

QSize ElidedLabel::minimumSizeHint() const {
    return {0, fontMetrics().height() + (kLines - 1) * fontMetrics().lineSpacing()};
}

void ElidedLabel::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setPen(palette().color(foregroundRole()));
    int y = fontMetrics().ascent();
    for (const QString& line : fittedLines()) {
        painter.drawText(0, y, line);
        y += fontMetrics().lineSpacing();
    }
}

}  // namespace marlowick

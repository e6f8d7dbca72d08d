#include "browser/sim_page_view.h"

#include <QApplication>
#include <QLabel>
#include <QPainter>

#include "browser/sim_page.h"
#include "catalogue/thumbnail_page_view.h"
#include "widgets/display_text.h"
#include "widgets/look.h"

namespace marlowick {
namespace {

QFont nameFont() {
    QFont font = QApplication::font();
    for (int pixels = 10; pixels > 6; --pixels) {
        font.setPixelSize(pixels);
        if (2 * QFontMetrics(font).lineSpacing() <= kNameHeight) {
            break;
        }
    }
    return font;
}

QPoint toPoint(page::Position position) {
    return {position.x, position.y};
}

// What reads the label, a person's screen reader among them, has the whole name; what is painted
// is made to fit.
class NameLabel : public QLabel {
  public:
    using QLabel::QLabel;

  protected:
    void paintEvent(QPaintEvent* /*event*/) override {
        QPainter painter(this);
        painter.setPen(palette().color(foregroundRole()));
        // Line by line: a text that is laid out as a whole gets more room between its lines than
        // its font asks for, and the letters of the second one would be cut.
        const QFontMetrics metrics = fontMetrics();
        int y = metrics.ascent();
        for (const QString& line : nameLines(text(), metrics)) {
            painter.drawText((width() - metrics.horizontalAdvance(line)) / 2, y, line);
            y += metrics.lineSpacing();
        }
    }
};

}  // namespace

QStringList nameLines(const QString& name, const QFontMetrics& metrics) {
    const auto fitted = [&](const QString& line) {
        return metrics.elidedText(line, Qt::ElideRight, kNameWidth);
    };
    QStringList lines = name.split(QLatin1Char('\n'));
    const qsizetype blank = name.indexOf(QLatin1Char(' '));
    if (lines.size() == 1 && blank > 0 && fitted(name) != name) {
        lines = {name.left(blank), name.mid(blank + 1)};
    }
    for (QString& line : lines) {
        line = fitted(line);
    }
    return lines;
}

SimPageView::SimPageView(QWidget* parent) : PictureBox(parent) {
    colourPage(*this);
    const QFont font = nameFont();
    for (int cell = 0; cell < page::kCells; ++cell) {
        auto* label = new NameLabel(this);
        label->setObjectName(QStringLiteral("lblSimName"));
        label->setProperty("Index", cell);
        label->setGeometry(
            QRect(origin() + toPoint(namePosition(cell)), QSize(kNameWidth, kNameHeight)));
        label->setFont(font);
        label->setTextFormat(Qt::PlainText);
        label->setAlignment(Qt::AlignHCenter | Qt::AlignTop);
        label->setAttribute(Qt::WA_TransparentForMouseEvents);
        names_.at(static_cast<std::size_t>(cell)) = label;
    }
}

void SimPageView::clearPage() {
    clear();
    for (QLabel* label : names_) {
        label->clear();
    }
}

void SimPageView::paintPortrait(int cell, const QImage& portrait) {
    paint(portrait, toPoint(portraitPosition(cell)));
}

void SimPageView::setName(int cell, const QString& name) {
    names_.at(static_cast<std::size_t>(cell))->setText(name);
}

void SimPageView::frameCell(int cell, bool visible) {
    frame(cellBox(cell), visible);
}

void SimPageView::tellFile(const std::string& fileName) {
    setToolTip(toToolTip(toDisplay(fileName)));
}

}  // namespace marlowick

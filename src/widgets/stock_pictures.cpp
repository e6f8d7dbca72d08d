#include "widgets/stock_pictures.h"

#include <QApplication>
#include <QPainter>
#include <QPainterPath>

namespace marlowick {
namespace {

const QColor kEdge(168, 176, 190);
const QColor kInk(70, 78, 94);
const QColor kAlarm(196, 62, 52);

QImage blankCard(QSize size) {
    QImage card(size, QImage::Format_RGB32);
    card.fill(Qt::white);
    QPainter painter(&card);
    painter.setPen(kEdge);
    painter.drawRect(QRect(QPoint(0, 0), size).adjusted(0, 0, -1, -1));
    return card;
}

QFont cardFont(int pixelSize) {
    QFont font = QApplication::font();
    font.setPixelSize(pixelSize);
    return font;
}

}  // namespace

QImage wordCard(QSize size, const QString& words, int pixelSize) {
    QImage card = blankCard(size);
    QPainter painter(&card);
    painter.setFont(cardFont(pixelSize));
    painter.setPen(kInk);
    const int margin = pixelSize / 2;
    painter.drawText(card.rect().adjusted(margin, 2, -margin, -2),
                     Qt::AlignCenter | Qt::TextWordWrap, words);
    return card;
}

QImage questionCard(QSize size) {
    QImage card = blankCard(size);
    QPainter painter(&card);
    QFont font = cardFont(size.height() * 3 / 4);
    font.setBold(true);
    painter.setFont(font);
    painter.setPen(QColor(92, 128, 176));
    painter.drawText(card.rect(), Qt::AlignCenter, QStringLiteral("?"));
    return card;
}

QImage brokenFileCard(QSize size) {
    QImage card = blankCard(size);
    QPainter painter(&card);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(size.width() / 45.0, size.height() / 45.0);
    QPainterPath page;
    page.moveTo(12, 6);
    page.lineTo(27, 6);
    page.lineTo(33, 12);
    page.lineTo(33, 24);
    page.lineTo(28, 21);
    page.lineTo(23, 26);
    page.lineTo(18, 21);
    page.lineTo(12, 25);
    page.closeSubpath();
    painter.setPen(QPen(kInk, 1.4));
    painter.setBrush(QColor(238, 242, 248));
    painter.drawPath(page);
    painter.setPen(QPen(kAlarm, 3.2, Qt::SolidLine, Qt::RoundCap));
    painter.drawLine(QPointF(17, 30), QPointF(28, 40));
    painter.drawLine(QPointF(28, 30), QPointF(17, 40));
    return card;
}

}  // namespace marlowick

#include "widgets/stock_pictures.h"

#include <QApplication>
#include <QPainter>
#include <QPainterPath>

namespace marlowick {
namespace {

const QColor kEdge(168, 176, 190);
const QColor kInk(70, 78, 94);
const QColor kAlarm(196, 62, 52);
constexpr int kSmallestLetters = 9;  // pixels; smaller ones can't be read
constexpr double kBrokenFileSize = 45.0;

// What an image that is a card tells of itself.
const QString kKind = QStringLiteral("Card");
const QString kWords = QStringLiteral("Words");
const QString kShortWords = QStringLiteral("ShortWords");
const QString kLetters = QStringLiteral("Letters");
const QString kWordKind = QStringLiteral("words");
const QString kQuestionKind = QStringLiteral("question");
const QString kBrokenFileKind = QStringLiteral("broken file");

QFont cardFont(int pixelSize) {
    QFont font = QApplication::font();
    font.setPixelSize(pixelSize);
    return font;
}

QRect textArea(const QRect& card, int pixelSize) {
    const int margin = pixelSize / 2;
    return card.adjusted(margin, 2, -margin, -2);
}

bool fits(QSize size, const QString& words, int pixelSize) {
    const QRect room = textArea(QRect(QPoint(0, 0), size), pixelSize);
    const QRect needed = QFontMetrics(cardFont(pixelSize))
                             .boundingRect(room, Qt::AlignCenter | Qt::TextWordWrap, words);
    return needed.width() <= room.width() && needed.height() <= room.height();
}

void drawBlankCard(QPainter& painter, const QRect& area) {
    painter.fillRect(area, kEdge);
    painter.fillRect(area.adjusted(1, 1, -1, -1), Qt::white);
}

void drawWords(QPainter& painter, const QRect& area, const QImage& card) {
    const CardText text = fittedText(area.size(), card.text(kWords), card.text(kLetters).toInt(),
                                     card.text(kShortWords));
    painter.setFont(cardFont(text.pixelSize));
    painter.setPen(kInk);
    painter.drawText(textArea(area, text.pixelSize), Qt::AlignCenter | Qt::TextWordWrap,
                     text.words);
}

void drawQuestion(QPainter& painter, const QRect& area) {
    QFont font = cardFont(area.height() * 3 / 4);
    font.setBold(true);
    painter.setFont(font);
    painter.setPen(QColor(92, 128, 176));
    painter.drawText(area, Qt::AlignCenter, QStringLiteral("?"));
}

void drawBrokenFile(QPainter& painter, const QRect& area) {
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(area.topLeft());
    painter.scale(area.width() / kBrokenFileSize, area.height() / kBrokenFileSize);
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
}

void drawCard(QPainter& painter, const QRect& area, const QImage& card) {
    painter.save();
    drawBlankCard(painter, area);
    const QString kind = card.text(kKind);
    if (kind == kWordKind) {
        drawWords(painter, area, card);
    } else if (kind == kQuestionKind) {
        drawQuestion(painter, area);
    } else if (kind == kBrokenFileKind) {
        drawBrokenFile(painter, area);
    }
    painter.restore();
}

QImage newCard(QSize size, const QString& kind) {
    QImage card(size, QImage::Format_RGB32);
    card.setText(kKind, kind);
    return card;
}

QImage drawn(QImage card) {
    const QImage description = card;
    QPainter painter(&card);
    drawCard(painter, card.rect(), description);
    return card;
}

}  // namespace

CardText fittedText(QSize size, const QString& words, int pixelSize, const QString& shortWords) {
    for (const QString& text : {words, shortWords}) {
        for (int letters = pixelSize; letters >= kSmallestLetters; --letters) {
            if (!text.isEmpty() && fits(size, text, letters)) {
                return {text, letters};
            }
        }
    }
    return {shortWords.isEmpty() ? words : shortWords, kSmallestLetters};
}

QImage wordCard(QSize size, const QString& words, int pixelSize, const QString& shortWords) {
    QImage card = newCard(size, kWordKind);
    card.setText(kWords, words);
    card.setText(kShortWords, shortWords);
    card.setText(kLetters, QString::number(pixelSize));
    return drawn(card);
}

QImage questionCard(QSize size) {
    return drawn(newCard(size, kQuestionKind));
}

QImage brokenFileCard(QSize size) {
    return drawn(newCard(size, kBrokenFileKind));
}

bool isCard(const QImage& image) {
    return !image.text(kKind).isEmpty();
}

void drawPicture(QPainter& painter, const QRect& area, const QImage& image) {
    const bool asItIs = area.size() == image.size() && painter.device()->devicePixelRatio() == 1;
    if (asItIs || !isCard(image)) {
        painter.drawImage(area, image);
    } else {
        drawCard(painter, area, image);
    }
}

}  // namespace marlowick

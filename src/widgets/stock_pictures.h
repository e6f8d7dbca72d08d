// The pictures that stand in where a sim or a skin has none: cards. A card is an
// image like any other, but one that tells what is on it, so that a control can
// lay it out anew for its own size and for the scale of the screen.
#pragma once

#include <QImage>
#include <QRect>
#include <QSize>
#include <QString>

class QPainter;

namespace marlowick {

// A white card with a few centred words, in letters of that many pixels or, where they don't fit,
// smaller ones. In a place where no letters that can be read would fit, it shows the short words.
QImage wordCard(QSize size, const QString& words, int pixelSize, const QString& shortWords = {});

// A large question mark: a picture that is missing.
QImage questionCard(QSize size);

// A torn page with a cross: a file that can't be read.
QImage brokenFileCard(QSize size);

// Whether an image is one of these.
bool isCard(const QImage& image);

// Draws an image scaled into an area; a card is laid out for the area instead.
void drawPicture(QPainter& painter, const QRect& area, const QImage& image);

// What a word card of some words shows in an area of that size.
struct CardText {
    QString words;
    int pixelSize = 0;
};
CardText fittedText(QSize size, const QString& words, int pixelSize, const QString& shortWords);

}  // namespace marlowick

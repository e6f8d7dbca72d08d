// The pictures that stand in where a sim or a skin has none.
#pragma once

#include <QImage>
#include <QSize>
#include <QString>

namespace marlowick {

// A white card with a few centred words.
QImage wordCard(QSize size, const QString& words, int pixelSize);

// A large question mark: a picture that is missing.
QImage questionCard(QSize size);

// A torn page with a cross: a file that can't be read.
QImage brokenFileCard(QSize size);

}  // namespace marlowick

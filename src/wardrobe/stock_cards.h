// The stock pictures that the windows of a sim and of a pet share.
#pragma once

#include "platform/stock_pictures.h"

namespace marlowick {

// A skin that is nowhere, or can't be shown.
inline QImage notFoundCard() {
    return wordCard(
        {256, 256},
        QStringLiteral("The bitmap can not be displayed.\n\nIt was not found, is compressed or is "
                       "invalid."),
        16);
}

// A portrait that the file doesn't hold.
inline QImage webNotFoundCard() {
    return questionCard({44, 44});
}

inline QImage noBitmapsCard() {
    return wordCard({200, 40}, QStringLiteral("Bitmap not present in sim IFF file"), 11);
}

}  // namespace marlowick

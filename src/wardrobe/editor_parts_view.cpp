#include "wardrobe/editor_parts_view.h"

#include "foundation/error_trap.h"
#include "foundation/folders.h"
#include "widgets/display_text.h"
#include "widgets/messages.h"
#include "widgets/picture_box.h"
#include "widgets/stock_pictures.h"

namespace marlowick {

QImage notFoundCard() {
    return wordCard(
        {256, 256},
        QStringLiteral("The bitmap can not be displayed.\n\nIt was not found, is compressed or is "
                       "invalid."),
        16, QStringLiteral("Bitmap can not be displayed"));
}

QImage webNotFoundCard() {
    return questionCard({44, 44});
}

QImage noBitmapsCard() {
    return wordCard({200, 40}, QStringLiteral("Bitmap not present in sim IFF file"), 11);
}

void showPortraits(const Portraits& portraits) {
    const auto show = [](const Portrait& portrait, const Path& file) {
        if (!ignoringErrors([&] { portrait.picture->load(file); })) {
            portrait.picture->setPicture(portrait.stock->picture());
        }
    };
    show(portraits.webImage, webImageFile());
    show(portraits.faces, facesFile());
    show(portraits.relationImages, relationImagesFile());
}

bool saveWanted(const std::string& name) {
    return confirmChange(QStringLiteral("Make changes to ") + toDisplay(name) +
                         QStringLiteral("?"));
}

bool mayDropChangesOf(const std::string& name) {
    return confirmLoss(QStringLiteral("The changes to ") + toDisplay(name) +
                       QStringLiteral(" that are not saved will be lost."));
}

void tellSaved(const std::string& name) {
    showMessage(QStringLiteral("Success"), MessageIcon::Information, MessageButtons::Ok,
                toDisplay(name) + QStringLiteral(" has been saved."));
}

void tellNotSaved(const Path& userFile, const std::string& failure) {
    showMessage(QStringLiteral("File Not Saved"), MessageIcon::Exclamation, MessageButtons::Ok,
                QStringLiteral("The file ") + toDisplay(userFile.fileName()) +
                    QStringLiteral(" can not be saved.\nIt could not be loaded:\n") +
                    toDisplay(failure));
}

}  // namespace marlowick

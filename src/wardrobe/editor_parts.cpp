#include "wardrobe/editor_parts.h"

#include "browser/frmMain.h"
#include "foundation/bytes.h"
#include "foundation/error_trap.h"
#include "foundation/game.h"
#include "iff/safe_rewrite.h"
#include "platform/display_text.h"
#include "platform/messages.h"
#include "platform/picture_box.h"
#include "platform/stock_pictures.h"
#include "wardrobe/user_backup.h"

namespace marlowick {

QImage notFoundCard() {
    return wordCard(
        {256, 256},
        QStringLiteral("The bitmap can not be displayed.\n\nIt was not found, is compressed or is "
                       "invalid."),
        16);
}

QImage webNotFoundCard() {
    return questionCard({44, 44});
}

QImage noBitmapsCard() {
    return wordCard({200, 40}, QStringLiteral("Bitmap not present in sim IFF file"), 11);
}

void showPortrait(const Portrait& portrait) {
    if (!ignoringErrors([&] { portrait.picture->load(ProgramFolder + portrait.file); })) {
        portrait.picture->setPicture(portrait.stock->picture());
    }
}

bool saveWanted(const std::string& name) {
    return confirmAction(QStringLiteral("Make changes to ") + toDisplay(name) +
                         QStringLiteral("?\nAre You Sure?"));
}

bool saveUserFile(const UserFileSave& save) {
    CheckpointNumber = 3000;
    if (!gsWriteSTRSegment(save.record, save.rows, gfstrHexToBytes(kWardrobeId), false) ||
        !save.writeTemp(save.record)) {
        return false;
    }
    if (theWindow<frmMain>().backupWanted() && !msMakeUserBackup(save.userFile, save.name)) {
        return false;
    }
    CheckpointNumber = 4000;
    replaceUserFile(save.userFile);
    showMessage(QStringLiteral("Success"), MessageIcon::Information, MessageButtons::Ok,
                toDisplay(save.name) + QStringLiteral(" has been saved."));
    return true;
}

}  // namespace marlowick

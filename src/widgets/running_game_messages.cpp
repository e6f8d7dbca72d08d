#include "widgets/running_game_messages.h"

#include "foundation/running_game.h"
#include "widgets/messages.h"

namespace marlowick {

void tellGameRuns() {
    showMessage(QStringLiteral("The Sims Is Running"), MessageIcon::Exclamation, MessageButtons::Ok,
                QStringLiteral("The Sims is running.\nPlease close it before you save a sim: the "
                               "game doesn't see what is saved meanwhile, and may write over it."));
}

bool mayWriteNow() {
    return !isGameRunning() ||
           showMessage(QStringLiteral("Confirm Action"), MessageIcon::Question,
                       MessageButtons::NoYes,
                       QStringLiteral("The Sims is running. Save anyway?")) != MessageReply::No;
}

}  // namespace marlowick

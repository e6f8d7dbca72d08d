#include "iff/proven_rewrite.h"

#include "foundation/error_trap.h"
#include "foundation/file_state.h"
#include "foundation/folders.h"
#include "foundation/open_game.h"
#include "foundation/proof.h"
#include "system/files.h"
#include "system/replace_file.h"

namespace marlowick {

bool replaceUserFileProven(const ProvenRewrite& rewrite) {
    if (!files().fileExists(rewrite.userFile)) {
        throw RuntimeError(error::kFileNotFound);
    }
    refuseTemplate(rewrite.userFile);
    return replaceFile(
        userTempFile(), rewrite.userFile, ReadOnlyTarget::Refuse, {}, [&](const Path& beside) {
            const std::string why = userFileDifference(rewrite.loaded, rewrite.change, beside);
            if (!why.empty()) {
                throw notProven(rewrite.userFile, why);
            }
            return rewrite.history.keepOrAsk(rewrite.userFile, stateOfFile(beside), rewrite.words);
        });
}

bool isChangedSince(const Path& userFile, const std::string& loaded) {
    bool isChanged = false;
    ignoringErrors([&] { isChanged = readWholeFile(userFile) != loaded; });
    return isChanged;
}

}  // namespace marlowick

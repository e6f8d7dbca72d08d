#include "iff/safe_rewrite.h"

#include "foundation/folders.h"
#include "system/files.h"
#include "system/streams.h"

namespace marlowick {
namespace {

Path clearedUserTemp() {
    Path path = userTempFile();
    // A handle that an earlier failure left on it must not stop the next save.
    streams().letGo(path);
    removeIfPresent(path);
    return path;
}

}  // namespace

bool writeUserTemp(IffFile& iff, SavedParts parts) {
    const Path path = clearedUserTemp();
    return parts == SavedParts::All ? gsWriteIFF(iff, path) : gsWriteIFF_NoBMPs(iff, path);
}

}  // namespace marlowick

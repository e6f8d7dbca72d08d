// A sim's pictures lie in its file as whole bitmap files. They reach the screen by
// way of the program folder.
#include "foundation/bytes.h"
#include "foundation/error_trap.h"
#include "foundation/game.h"
#include "iff/iff_file.h"
#include "system/files.h"
#include "system/runtime_error.h"

namespace marlowick {

namespace {

// Raises 52 where the label, cleaned, is no file's name.
void dumpBitmap(const IffSegment& segment) {
    const std::string name = gfstrCleanName(gfstrTrimAtNull(segment.Label)) + ".BMP";
    const Path path = ProgramFolder.child(name);
    clearAndRemove(path);
    writeWholeFile(path, segment.Data);
}

}  // namespace

void dumpBitmaps(const IffFile& iff) {
    for (int i = 1; i <= iff.Segments.bound(); ++i) {
        const IffSegment& segment = iff.Segments[i];
        if (segment.Type != "BMP_") {
            continue;
        }
        try {
            dumpBitmap(segment);
        } catch (const RuntimeError& failure) {
            if (failure.number() != error::kBadFileName) {
                throw;
            }
        }
    }
}

bool gsDumpBMPs(const IffFile& iff) {
    return trapped("modIFFsupport", "gsDumpBMPs", [&] { dumpBitmaps(iff); });
}

}  // namespace marlowick

// User files: read guarded and trapped alike, written and read again as they were, and saved with a
// changed row behind a proof.
#include <string>

#include "bounds.h"
#include "foundation/bytes.h"
#include "foundation/folders.h"
#include "foundation/game.h"
#include "iff/iff_file.h"
#include "iff/safe_rewrite.h"
#include "iff/string_segment.h"
#include "iff/user_file_proof.h"
#include "memory_files.h"
#include "system/runtime_error.h"
#include "system/streams.h"

namespace {

using namespace marlowick;
using fuzz::require;

const Path kFile("C:\\game\\user00001.iff");
const Path kWritten("C:\\game\\written.iff");
const Path kAgain("C:\\game\\again.iff");

bool isSameSegment(const IffSegment& left, const IffSegment& right) {
    return left.Type == right.Type && left.Size == right.Size && left.ID == right.ID &&
           left.Label == right.Label && left.Data == right.Data;
}

bool hasMap(const IffFile& iff) {
    return !iff.RsmpHeader.empty();
}

// Where there is no map, a file comes back byte for byte, but for its map's place, and with zeros
// for what it claims and doesn't have. A lone byte at its end goes.
void checkBytes(const std::string& before, const std::string& after) {
    for (std::size_t i = 0; i < before.size() && i < after.size(); ++i) {
        require(before[i] == after[i] || (i >= 60 && i < 64), "a byte has changed");
    }
    require(after.size() + 1 >= before.size() || before.size() < 64, "bytes are missing");
    for (std::size_t i = before.size(); i < after.size(); ++i) {
        require(after[i] == '\0' || i < 64, "a byte from nowhere");
    }
}

void checkRoundTrip(fuzz::MemoryFiles& disk, const IffFile& loaded) {
    IffFile record = loaded;
    if (!gsWriteIFF(record, kWritten)) {
        return;
    }
    if (!hasMap(loaded) && !loaded.HasRsmp) {
        checkBytes(disk.content(kFile), disk.content(kWritten));
    }
    if (hasMap(loaded) != loaded.HasRsmp) {
        return;  // written so, it reads otherwise: the proof has it
    }
    IffFile again;
    if (!gfstrQuickReadIFF(again, kWritten).empty()) {
        return;
    }
    for (int i = 1; i <= loaded.Segments.bound() && i <= again.Segments.bound(); ++i) {
        require(isSameSegment(loaded.Segments[i], again.Segments[i]), "a segment has changed");
    }
    require(loaded.Segments.bound() == again.Segments.bound(), "segments have come or gone");
    require(gsWriteIFF(again, kAgain), "what was written can't be written again");
    require(disk.content(kAgain) == disk.content(kWritten), "the second writing differs");
}

// A save that is proven has changed the wardrobe tables and nothing else.
void checkSave(const IffFile& loaded, SavedParts parts) {
    StrSegment rows;
    if (!readWardrobeTable(loaded, rows) || rows.Entries.bound() < 1) {
        return;
    }
    IffFile record = loaded;
    rows.Entries[1].Text = "a row of its own";
    if (!writeWardrobeTable(record, rows) || !writeUserTemp(record, parts)) {
        streams().closeAll();
        return;
    }
    const bool isPet = parts == SavedParts::WithoutBitmaps;
    const std::string why = userFileDifference(loaded, {rows, false, isPet}, userTempFile());
    IffFile saved;
    if (!why.empty() || !gfstrQuickReadIFF(saved, userTempFile()).empty()) {
        return;
    }
    int other = 1;
    for (int i = 1; i <= loaded.Segments.bound(); ++i) {
        const IffSegment& segment = loaded.Segments[i];
        if (isPet && segment.Type == "BMP_") {
            continue;
        }
        require(other <= saved.Segments.bound(), "a segment is missing");
        const bool isWardrobe =
            segment.Type == "STR#" && segment.ID == gfstrHexToBytes(kWardrobeId);
        require(isWardrobe || isSameSegment(segment, saved.Segments[other]),
                "a save has changed another segment");
        ++other;
    }
    require(other == saved.Segments.bound() + 1, "a segment from nowhere");
    StrSegment after;
    require(readWardrobeTable(saved, after), "the saved table can't be read");
    require(after.Entries.bound() == rows.Entries.bound(), "rows have come or gone");
    for (int row = 1; row <= rows.Entries.bound(); ++row) {
        require(after.Entries[row].Text == rows.Entries[row].Text, "another row has changed");
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::MemoryFiles disk;
    disk.put(kFile, {reinterpret_cast<const char*>(data), size});
    ProgramFolder = Path("C:\\program");
    disk.put(ProgramFolder + "\\x", "");
    const fuzz::Bounds bounds(size);
    IffFile guarded;
    const std::string reason = gfstrQuickReadIFF(guarded, kFile);
    IffFile loaded;
    const bool isRead = gsReadIFF(loaded, kFile);
    streams().closeAll();
    require(!reason.empty() || isRead, "the guarded reading takes what the other refuses");
    if (isRead) {
        checkRoundTrip(disk, loaded);
        checkSave(loaded, SavedParts::All);
        checkSave(loaded, SavedParts::WithoutBitmaps);
    }
    streams().closeAll();
    return 0;
}

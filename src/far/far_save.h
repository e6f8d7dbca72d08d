// Writing an archive anew: what isn't deleted in its old order, new files behind it.
#pragma once

#include <functional>
#include <string_view>

#include "far/far_edit.h"
#include "foundation/history_command.h"

namespace marlowick {

// What a window shows of a save.
struct FarSaveProgress {
    // Before the first entry, and after each entry and each added file, deleted and empty ones too.
    std::function<void(int processed, int total)> step;
    // After each block of data, so that the window can paint in the middle of a large entry.
    std::function<void()> block;
    // When the target has its new content: the edit is then that of the new archive, whatever else
    // fails.
    std::function<void()> replaced = {};
};

// The archive that a typed name (UTF-8) stands for: in the game's folder of textures, ending in
// ".FAR" unless the name ends so in any case.
Path newArchivePath(std::string_view name);

// Writes the edit's archive to "\temp\tempfile.far" under the program folder, gives target its
// content in one step, proven and with the old content kept by history before, and reads target
// back. On one disk the temporary file itself becomes the archive. As soon as target has its
// content the edit is that of the new archive. Sets CheckpointNumber from 2000 to 9000. False if
// the reading back has failed; that is reported, and the edit's ReadingFailed is set. False also if
// the old content can't be kept and the person doesn't want to go on; target and edit are then
// untouched. Raises what any step raises, among them 6 for an offset past 2^31 - 1 or more than
// kMostFarRows entries, 62 for an entry whose data isn't whole, 53 for an added file that is gone,
// 75 for a target in a Legacy game's own templates of neighbourhoods, and 321 with the path and
// what differs if the new archive isn't as it was meant. Unless only the temporary file couldn't be
// removed, target and edit are then untouched, the temporary file stays, and the two stream slots
// stay taken if they were.
bool saveArchive(FarEdit& edit, const Path& target, HistoryCommand& history,
                 const FarSaveProgress& progress);

}  // namespace marlowick

// The one way in which a player's file gets new content.
#pragma once

#include <functional>
#include <string_view>

#include "system/path.h"

namespace marlowick {

enum class ReadOnlyTarget {
    Refuse,   // a read-only target is error 75 and stays as it is
    Replace,  // the new file has normal attributes, whatever the old one's are
};

// Gives target the content of source. The content is first put whole into a new file beside the
// target, flushed to the disk, and then takes the target's name in one step: at every moment the
// target is the old file or the new one. source stays. The target keeps its access rights.
// The program's own leftover handles on the target are let go first.
// Raises 75 for a read-only target (Refuse), and whatever a step of the work raises; the target is
// then untouched and the new file beside it is removed as far as possible.
// afterBlock runs behind each block that was copied. beforeRename runs when the new file lies whole
// beside the target and on the disk, with its path: it is the very file that then takes the name.
// If that gives false or raises, the target stays as it is and the new file goes; false is then the
// result, which is true otherwise.
using BeforeRename = std::function<bool(const Path& beside)>;
bool replaceFile(const Path& source, const Path& target, ReadOnlyTarget readOnly,
                 const std::function<void()>& afterBlock = {},
                 const BeforeRename& beforeRename = {});

// The same with a source that nobody needs afterwards. Where the system can move it beside the
// target in one step, it isn't copied: the source itself takes the target's name and is gone. If
// that fails, or isn't wanted, it lies where it lay. A target that doesn't exist yet gets a copy,
// which has the rights of its folder.
bool replaceFileBy(const Path& source, const Path& target, ReadOnlyTarget readOnly,
                   const std::function<void()>& afterBlock = {},
                   const BeforeRename& beforeRename = {});

// The same with content from memory.
bool replaceFileContent(const Path& target, std::string_view content, ReadOnlyTarget readOnly,
                        const BeforeRename& beforeRename = {});

}  // namespace marlowick

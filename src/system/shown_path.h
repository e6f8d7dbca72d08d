// Paths as people of a system write them. The program itself holds them with backslashes everywhere
// (path.h); what is shown, stored or typed goes through here.
#pragma once

#include <string>
#include <string_view>

#include "system/path.h"

namespace marlowick {

// The path as it can be pasted into any program of this system, UTF-8. Where the system writes
// slashes: with these, and each name in the letters in which it stands on the disk. A text that is
// no whole path ("ERROR", "UserData\Characters") stays as it is, and on Windows every path does.
std::string shownPath(const Path& path);

// The path that a person typed or pasted, or that was stored. Where the system writes slashes, a
// whole path may be written with them, with backslashes or with both; what stands behind its last
// name doesn't count.
Path typedPath(std::string_view text);

}  // namespace marlowick

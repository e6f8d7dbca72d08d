// A new file is read back and compared with what was meant before it takes an old one's name. What
// the comparison of each kind of file gives is a text, empty for a file that is as it was meant.
#pragma once

#include <string_view>

#include "system/path.h"
#include "system/runtime_error.h"

namespace marlowick {

// The failure of a command whose new file isn't as it was meant: 321, "Invalid file format", and on
// the next lines the path of the file that would have been replaced, and what differs (UTF-8).
RuntimeError notProven(const Path& file, std::string_view difference);

}  // namespace marlowick

// Reads the source tree's includes and holds them to the floors that docs/architecture.md draws.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace marlowick::test {

// What breaks the rules below a folder "src", one line each, "browser/frmMain.cpp:12: why", in the
// order of the files' names: an include (or a form's <header>) of a folder on the same or a higher
// floor than the file's own, a folder or a file that stands on no floor, and Qt, or a control that
// is Qt, named outside of windows, views, start and widgets. The top floor is main.cpp alone.
std::vector<std::string> layerFindings(const std::filesystem::path& sources);

}  // namespace marlowick::test

#include <algorithm>
#include <utility>

#include "system/files.h"
#include "system/shown_path.h"

namespace marlowick {
namespace {

bool isSeparator(char c) {
    return c == '/' || c == '\\';
}

bool isWhole(std::string_view text) {
    return !text.empty() && isSeparator(text.front());
}

}  // namespace

std::string shownPath(const Path& path) {
    if (!isWhole(path.text())) {
        return path.text();
    }
    std::string shown = files().asOnDisk(path).text();
    std::replace(shown.begin(), shown.end(), '\\', '/');
    return shown;
}

Path typedPath(std::string_view text) {
    if (!isWhole(text)) {
        return Path(std::string(text));
    }
    std::string path(text);
    const auto bothSeparators = [](char left, char right) {
        return isSeparator(left) && isSeparator(right);
    };
    path.erase(std::unique(path.begin(), path.end(), bothSeparators), path.end());
    return pathOfText(std::move(path));
}

}  // namespace marlowick

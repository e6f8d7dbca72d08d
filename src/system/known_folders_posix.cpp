#include <pwd.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>

#include "system/known_folders.h"

namespace marlowick {
namespace {

// A line of the table of users, as long as nothing else asks for one.
const passwd* userLine() {
    return ::getpwuid(::geteuid());
}

}  // namespace

Path savedGamesFolder() {
    return {};
}

Path documentsFolder() {
    return {};
}

Path programDataFolder() {
    return {};
}

Path homeFolder() {
    const char* home = std::getenv("HOME");
    const passwd* user = home == nullptr ? userLine() : nullptr;
    std::string folder = home != nullptr ? home : (user != nullptr ? user->pw_dir : "");
    std::replace(folder.begin(), folder.end(), '/', '\\');
    while (folder.size() > 1 && folder.ends_with('\\')) {
        folder.pop_back();
    }
    return Path(folder);
}

std::string loginName() {
    const passwd* user = userLine();
    return user != nullptr ? user->pw_name : "";
}

}  // namespace marlowick

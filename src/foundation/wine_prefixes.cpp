#include "foundation/wine_prefixes.h"

#include <algorithm>
#include <array>

#include "system/game_text.h"
#include "system/wine_registry.h"

namespace marlowick {
namespace {

constexpr std::size_t kMostPrefixes = 200;  // of one kind
constexpr std::size_t kMostNames = 10000;   // that they stand among
constexpr std::size_t kMostUsers = 50;

constexpr std::string_view kShellFolders =
    "Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\User Shell Folders";
constexpr std::string_view kSavedGames = "{4C5C32FF-BB9D-43B0-B5B4-2D72E54EAAA4}";
constexpr std::string_view kDocuments = "Personal";
constexpr std::string_view kUserProfile = "%USERPROFILE%";

// Where prefixes lie side by side.
constexpr std::array<std::string_view, 5> kCollections = {
    "\\Games",
    "\\.local\\share\\bottles\\bottles",
    "\\.var\\app\\com.usebottles.bottles\\data\\bottles\\bottles",
    "\\Games\\Heroic\\Prefixes",
    "\\Games\\Heroic\\Prefixes\\default",
};

class Prefixes {
  public:
    Prefixes(Path home, BoundedLook& look) : home_(std::move(home)), look_(look) {}

    // A prefix that Steam's own Wine has made has its drives one folder deeper.
    void add(const std::string& name) {
        for (const char* deeper : {"", "\\pfx"}) {
            const std::optional<Path> found = look_.folder(home_ + (name + deeper));
            if (found && look_.folder(*found + "\\drive_c")) {
                addOnce(*found, name);
                return;
            }
        }
    }

    void addAllIn(std::string_view collection) {
        const std::size_t most = prefixes_.size() + kMostPrefixes;
        for (const std::string& name : look_.names(home_ + std::string(collection), kMostNames)) {
            if (prefixes_.size() == most) {
                return;
            }
            add(std::string(collection) + "\\" + name);
        }
    }

    std::vector<WinePrefix> take() { return std::move(prefixes_); }

  private:
    void addOnce(const Path& folder, const std::string& name) {
        if (std::none_of(prefixes_.begin(), prefixes_.end(),
                         [&](const WinePrefix& known) { return known.folder == folder; })) {
            std::string shown = "~" + name;
            std::replace(shown.begin(), shown.end(), '\\', '/');
            prefixes_.push_back({folder, shown});
        }
    }

    Path home_;
    BoundedLook& look_;
    std::vector<WinePrefix> prefixes_;
};

// A path of the prefix's Windows as one of this machine.
std::optional<Path> placeInPrefix(const Path& prefix, const std::string& text, BoundedLook& look) {
    const std::optional<Path> path = pathThroughDrives(prefix, text);
    if (!path) {
        return std::nullopt;
    }
    constexpr std::size_t kDrive = 2;
    const Path rest = pathOfText(text.substr(kDrive));
    const std::optional<Path> drive =
        look.folder(Path(path->text().substr(0, path->text().size() - (text.size() - kDrive))));
    if (drive) {
        // The root itself ends in the separator with which the rest begins.
        const bool isRoot = drive->text().ends_with('\\');
        return Path(drive->text().substr(0, drive->text().size() - (isRoot ? 1 : 0)) + rest.text());
    }
    // Without a link, drive C: is where it always is.
    return lowerByte(text[0]) == 'c' ? std::optional(prefix + "\\drive_c" + rest.text())
                                     : std::nullopt;
}

// Where a folder that the shell knows lies, if the prefix's registry tells.
std::optional<Path> shellFolder(const std::optional<WineText>& value, const Path& prefix,
                                const std::string& user, BoundedLook& look) {
    if (!value) {
        return std::nullopt;
    }
    std::string text = value->text;
    if (text.find('\0') != std::string::npos) {
        return std::nullopt;
    }
    if (value->isExpandable &&
        equalsIgnoringCase(std::string_view(text).substr(0, kUserProfile.size()), kUserProfile)) {
        text.replace(0, kUserProfile.size(), "C:\\users\\" + user);
    }
    return placeInPrefix(prefix, text, look);
}

std::vector<std::string> usersOf(const Path& prefix, const std::string& login, BoundedLook& look) {
    const Path folder = prefix + "\\drive_c\\users";
    std::vector<std::string> users;
    for (const std::string& name : {std::string("steamuser"), login}) {
        if (!name.empty() && look.folder(Path(folder.text() + "\\" + name))) {
            users.push_back(name);
        }
    }
    for (const std::string& name : look.names(folder, kMostUsers)) {
        const bool known = std::any_of(users.begin(), users.end(), [&](const std::string& user) {
            return equalsIgnoringCase(user, name);
        });
        if (!known && !equalsIgnoringCase(name, "Public") &&
            look.folder(Path(folder.text() + "\\" + name))) {
            users.push_back(name);
        }
    }
    if (users.empty()) {
        // A prefix of Steam that isn't made yet has this one.
        users.push_back(login.empty() || equalsIgnoringCase(prefix.fileName(), "pfx") ? "steamuser"
                                                                                      : login);
    }
    return users;
}

}  // namespace

std::vector<WinePrefix> winePrefixes(const Path& home, BoundedLook& look) {
    if (home.empty()) {
        return {};
    }
    Prefixes prefixes(home, look);
    prefixes.add("\\.wine");
    for (const std::string_view collection : kCollections) {
        prefixes.addAllIn(collection);
    }
    return prefixes.take();
}

std::optional<Path> prefixAround(const Path& folder) {
    for (Path place = folder; !place.empty(); place = place.folder()) {
        if (equalsIgnoringCase(place.fileName(), "drive_c")) {
            return place.folder();
        }
    }
    return std::nullopt;
}

std::optional<Path> registeredGame(const Path& prefix, BoundedLook& look) {
    const std::optional<std::string> registry =
        look.read(wineRegistryFile(prefix, RegistryHive::LocalMachine), kLongestWineRegistry);
    const std::optional<WineText> value =
        registry ? wineRegistryMachineText(*registry, "Software\\Maxis\\The Sims", "InstallPath")
                 : std::nullopt;
    const std::optional<Path> path =
        value ? placeInPrefix(prefix, value->text, look) : std::nullopt;
    return path ? look.folder(*path) : std::nullopt;
}

std::vector<PrefixFolders> prefixFolders(const Path& prefix, const std::string& login,
                                         BoundedLook& look) {
    const std::string registry =
        look.read(wineRegistryFile(prefix, RegistryHive::CurrentUser), kLongestWineRegistry)
            .value_or("");
    const auto savedGames = wineRegistryAnyText(registry, kShellFolders, kSavedGames);
    const auto documents = wineRegistryAnyText(registry, kShellFolders, kDocuments);
    std::vector<PrefixFolders> all;
    for (const std::string& user : usersOf(prefix, login, look)) {
        const Path own(prefix.text() + "\\drive_c\\users\\" + user);
        all.push_back({shellFolder(savedGames, prefix, user, look).value_or(own + "\\Saved Games"),
                       shellFolder(documents, prefix, user, look).value_or(own + "\\Documents")});
    }
    return all;
}

}  // namespace marlowick

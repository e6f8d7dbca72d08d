// A machine of a test's own, in a temporary folder: shops, prefixes, games and saves, and the
// surroundings that lead to them.
#pragma once

#include <algorithm>
#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "foundation/game_surroundings.h"
#include "support/test_folder.h"

namespace marlowick::test {

class MadeUpMachine {
  public:
    MadeUpMachine() {
        setGameSurroundings([this] { return surroundings; });
    }
    MadeUpMachine(const MadeUpMachine&) = delete;
    MadeUpMachine& operator=(const MadeUpMachine&) = delete;

    // A folder as the program writes it, links in the temporary folder's own path followed.
    Path at(const std::string& name) const {
        std::string text = std::filesystem::canonical(folder.root()).string() + "/" + name;
        std::replace(text.begin(), text.end(), '/', '\\');
        return Path(text);
    }

    // The same as Steam and Epic write it in their texts on each system.
    std::string quoted(const std::string& name) const {
        const bool isWindows = std::filesystem::path::preferred_separator == '\\';
        const Path path = at(name);
        std::string text;
        for (const char c : path.text()) {
            text += c == '\\' ? (isWindows ? "\\\\" : "/") : std::string(1, c);
        }
        return text;
    }

    void game(const std::string& name) const { folder.write(name + "/Sims.exe", "MZ"); }

    void neighbourhood(const std::string& name) const {
        folder.write(name + "/Characters/User00001.iff", "IFF");
    }

    // Steam's list of libraries, and the game in one of them.
    void libraries(const std::string& steam, const std::vector<std::string>& names) const {
        std::string text = "\"libraryfolders\"\n{\n";
        for (std::size_t i = 0; i < names.size(); ++i) {
            text += "\t\"" + std::to_string(i) + "\"\n\t{\n\t\t\"path\"\t\t\"" + quoted(names[i]) +
                    "\"\n\t\t\"label\"\t\t\"\"\n\t\t\"apps\"\n\t\t{\n\t\t\t\"228980\"\t\t\"1\"\n"
                    "\t\t}\n\t}\n";
        }
        folder.write(steam + "/steamapps/libraryfolders.vdf", text + "}\n");
    }
    void manifest(const std::string& library, const std::string& installDir) const {
        folder.write(library + "/steamapps/appmanifest_3314060.acf",
                     "\"AppState\"\n{\n\t\"appid\"\t\t\"3314060\"\n\t\"name\"\t\t\"x\"\n"
                     "\t\"installdir\"\t\t\"" +
                         installDir +
                         "\"\n\t\"UserConfig\"\n\t{\n\t\t\"installdir\" \"no\"\n\t}\n}\n");
    }
    void steamGame(const std::string& library) const {
        manifest(library, "The Sims Legacy Collection");
        game(library + "/steamapps/common/The Sims Legacy Collection");
    }

    void epicItem(const std::string& programData, const std::string& item,
                  const std::string& install) const {
        folder.write(programData + "/Epic/EpicGamesLauncher/Data/Manifests/" + item,
                     "{\n\t\"FormatVersion\": 0,\n\t\"ChunkDbs\": [],\n\t\"InstallLocation\": \"" +
                         quoted(install) + "\",\n\t\"AppName\": \"5b0f\"\n}");
    }

    // A Wine prefix; registry lines as Wine writes them.
    void prefix(const std::string& name, const std::string& machine = "",
                const std::string& user = "") const {
        std::filesystem::create_directories(folder.root() / name / "drive_c" / "windows");
        const std::string head = "WINE REGISTRY Version 2\n\n";
        folder.write(name + "/system.reg", head + machine);
        folder.write(name + "/user.reg", head + user);
    }
    static std::string installPath(const std::string& path) {
        return "[Software\\\\Wow6432Node\\\\Maxis\\\\The Sims] 1699999999\n\"InstallPath\"=\"" +
               path + "\"\n\n";
    }
    static std::string shellFolders(const std::string& lines) {
        return "[Software\\\\Microsoft\\\\Windows\\\\CurrentVersion\\\\Explorer\\\\"
               "User Shell Folders] 1699999999\n" +
               lines + "\n";
    }

    // The registry of a made-up Windows, by "HKCU32 key\name" and the like.
    void value(const std::string& key, const std::string& text) {
        values_[key] = text;
        surroundings.registry = [this](RegistryHive hive, RegistryView view, std::string_view key2,
                                       std::string_view name) -> std::optional<std::string> {
            std::string whole = hive == RegistryHive::CurrentUser ? "HKCU" : "HKLM";
            whole += view == RegistryView::Of32Bit ? "32 " : "64 ";
            whole += std::string(key2) + "\\" + std::string(name);
            const auto found = values_.find(whole);
            return found == values_.end() ? std::nullopt : std::optional(found->second);
        };
    }

    TestFolder folder;
    GameSurroundings surroundings;

  private:
    std::map<std::string, std::string> values_;
};

}  // namespace marlowick::test

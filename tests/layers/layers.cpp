#include "layers/layers.h"

#include <algorithm>
#include <array>
#include <fstream>
#include <optional>
#include <regex>
#include <string_view>

namespace marlowick::test {
namespace {

namespace fs = std::filesystem;

struct Floor {
    std::string_view folder;
    int height;
};

// Folders of one height may not name each other either.
constexpr std::array kFloors = {
    Floor{"start", 9},   Floor{"browser", 8},    Floor{"wardrobe", 7}, Floor{"catalogue", 6},
    Floor{"preview", 5}, Floor{"iff", 4},        Floor{"far", 4},      Floor{"mesh", 4},
    Floor{"widgets", 3}, Floor{"foundation", 2}, Floor{"system", 1},
};
constexpr std::string_view kQtFolders[] = {"start", "widgets"};
constexpr std::string_view kTop = "main.cpp";

std::optional<int> heightOf(std::string_view folder) {
    const auto* const floor =
        std::find_if(kFloors.begin(), kFloors.end(),
                     [&](const Floor& candidate) { return candidate.folder == folder; });
    return floor == kFloors.end() ? std::nullopt : std::optional(floor->height);
}

// The first piece of "iff/iff_file.h"; empty for a name without a folder.
std::string folderOf(const std::string& name) {
    const std::size_t slash = name.find('/');
    return slash == std::string::npos ? std::string() : name.substr(0, slash);
}

bool mayNameQt(const std::string& file) {
    const std::string folder = folderOf(file);
    const std::string stem = fs::path(file).stem().string();
    return file == kTop || stem.starts_with("frm") || stem.ends_with("_view") ||
           std::find(std::begin(kQtFolders), std::end(kQtFolders), folder) != std::end(kQtFolders);
}

class File {
  public:
    File(const fs::path& path, std::string name, std::vector<std::string>& findings)
        : name_(std::move(name)), folder_(folderOf(name_)), findings_(findings) {
        std::ifstream stream(path);
        std::string line;
        while (std::getline(stream, line)) {
            ++line_;
            check(line);
        }
    }

  private:
    void check(const std::string& line) {
        static const std::regex own(
            R"re(^\s*#\s*include\s*"([^"]+)"|<header[^>]*>([^<]+)</header>)re");
        static const std::regex qt(
            R"(^\s*#\s*include\s*<(Q[A-Z]\w*|Qt\w*/.*)>|\bQ[A-Z][a-z]\w*\b)");
        static const std::regex comment(R"(//.*$)");
        std::smatch match;
        if (std::regex_search(line, match, own)) {
            checkInclude(match[1].matched ? match[1].str() : match[2].str());
        }
        if (!mayNameQt(name_) && std::regex_search(std::regex_replace(line, comment, ""), qt)) {
            report("names Qt");
        }
    }

    void checkInclude(const std::string& included) {
        const std::string folder = folderOf(included);
        if (folder.empty()) {
            // A form's own "ui_frmMain.h" is made by the build.
            if (!included.starts_with("ui_")) {
                report("includes " + included + ", which names no folder");
            } else if (!mayNameQt(name_)) {
                report("names Qt");
            }
            return;
        }
        const std::optional<int> height = heightOf(folder);
        if (!height) {
            report("includes " + included + ", which stands on no floor");
        } else if (name_ != kTop && folder != folder_ && *height >= *heightOf(folder_)) {
            report("includes " + included + ", which isn't below " + folder_);
        } else if (folder == "widgets" && !mayNameQt(name_)) {
            report("names Qt");
        }
    }

    void report(const std::string& why) {
        findings_.push_back(name_ + ":" + std::to_string(line_) + ": " + why);
    }

    std::string name_;
    std::string folder_;
    int line_ = 0;
    std::vector<std::string>& findings_;
};

bool isSource(const fs::path& path) {
    const std::string ending = path.extension().string();
    return ending == ".h" || ending == ".cpp" || ending == ".ui";
}

}  // namespace

std::vector<std::string> layerFindings(const fs::path& sources) {
    std::vector<std::string> names;
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(sources)) {
        if (entry.is_regular_file() && isSource(entry.path())) {
            names.push_back(fs::relative(entry.path(), sources).generic_string());
        }
    }
    std::sort(names.begin(), names.end());
    std::vector<std::string> findings;
    for (const std::string& name : names) {
        if (name != kTop && !heightOf(folderOf(name))) {
            findings.push_back(name + ":0: stands on no floor");
            continue;
        }
        File(sources / name, name, findings);
    }
    return findings;
}

}  // namespace marlowick::test

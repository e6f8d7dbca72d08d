#include "layers/layers.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <fstream>
#include <optional>
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

// What stands between two texts; empty if one of them is missing.
std::string between(const std::string& line, std::string_view before, std::string_view behind) {
    const std::size_t start = line.find(before);
    if (start == std::string::npos) {
        return {};
    }
    const std::size_t end = line.find(behind, start + before.size());
    return end == std::string::npos
               ? std::string()
               : line.substr(start + before.size(), end - start - before.size());
}

// The name behind "#include", in quotation marks or in angles, or that in a form's <header>.
std::string includedBy(const std::string& line) {
    std::string squeezed = line;
    std::erase_if(squeezed, [](char c) { return c == ' ' || c == '\t'; });
    if (squeezed.starts_with("#include<")) {
        const std::string name = between(squeezed, "<", ">");
        return heightOf(folderOf(name)) ? name : std::string();
    }
    if (squeezed.starts_with("#include")) {
        return between(squeezed, "\"", "\"");
    }
    const std::string header = between(line, "<header", "</header>");
    return header.substr(header.find('>') + 1);
}

bool isWordCharacter(char c) {
    return std::isalnum(static_cast<unsigned char>(c)) != 0 || c == '_';
}

// A name of Qt: "Qt", "qApp", a macro's "Q_" or "QT_", a header's "<q...h>", or "Q", a capital
// letter and somewhere a small one.
bool isQtWord(std::string_view word) {
    if (word == "Qt" || word == "qApp" || word.starts_with("Q_") || word.starts_with("QT_")) {
        return true;
    }
    return word.size() > 2 && word[0] == 'Q' &&
           std::isupper(static_cast<unsigned char>(word[1])) != 0 &&
           std::any_of(word.begin(), word.end(),
                       [](unsigned char c) { return std::islower(c) != 0; });
}

bool namesQt(const std::string& line) {
    const std::string header = between(line, "<", ">");
    if (line.starts_with("#include") &&
        (header.starts_with("Qt") || (header.starts_with('q') && header.ends_with(".h")))) {
        return true;
    }
    auto start = std::find_if(line.begin(), line.end(), isWordCharacter);
    while (start != line.end()) {
        const auto end = std::find_if_not(start, line.end(), isWordCharacter);
        if (isQtWord({start, end})) {
            return true;
        }
        start = std::find_if(end, line.end(), isWordCharacter);
    }
    return false;
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
        const std::string included = includedBy(line);
        if (!included.empty()) {
            checkInclude(included);
        }
        if (!mayNameQt(name_) && namesQt(line.substr(0, line.find("//")))) {
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

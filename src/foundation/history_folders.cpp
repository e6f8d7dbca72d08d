#include "foundation/history_folders.h"

#include <algorithm>
#include <array>
#include <memory>
#include <utility>

#include "foundation/error_trap.h"
#include "system/files.h"
#include "system/game_text.h"

namespace marlowick {
namespace {

constexpr std::size_t kFewestDigits = 6;
constexpr std::size_t kMostDigits = 18;
constexpr std::size_t kLongestName = 40;
constexpr std::string_view kTimeForm = "dddd-dd-dd dd.dd.dd";

// Names in the path of a kept file.
constexpr int kDeepest = 3;

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

bool isTaken(char c) {
    // Letters are what has another case.
    return isDigit(c) || c == ' ' || c == '-' || c == '_' || upperByte(c) != lowerByte(c);
}

std::string cleaned(std::string_view text) {
    std::string clean;
    for (const char c : text) {
        const bool needless = c == ' ' && (clean.empty() || clean.back() == ' ');
        if (isTaken(c) && !needless && clean.size() < kLongestName) {
            clean.push_back(c);
        }
    }
    if (clean.ends_with(' ')) {
        clean.pop_back();
    }
    return clean;
}

std::size_t digitsOf(std::string_view folder) {
    return std::min(folder.find_first_not_of("0123456789"), folder.size());
}

using Work = std::function<void(const Path&)>;

void walk(const Path& folder, const std::string& way, int depth, const Work& work,
          const Work& afterFolder) {
    for (const FolderEntry& entry : files().list(folder)) {
        if (!isFileName(entry.name)) {
            continue;
        }
        const std::string name = way + gameTextToUtf8(entry.name);
        if (!entry.isFolder) {
            if (keptPlace(name)) {
                work(folder.child(entry.name));
            }
            continue;
        }
        const Path below = folder.child(entry.name);
        if (depth < kDeepest && isRealFolder(below)) {
            walk(below, name + "\\", depth + 1, work, afterFolder);
            afterFolder(below);
        }
    }
}

}  // namespace

std::string historyFolderName(std::int64_t number, const std::tm& time, std::string_view command,
                              std::string_view simName) {
    std::string digits = std::to_string(number);
    digits.insert(0, kFewestDigits - std::min(digits.size(), kFewestDigits), '0');
    std::array<char, 32> stamp{};
    std::strftime(stamp.data(), stamp.size(), "%Y-%m-%d %H.%M.%S", &time);
    std::string name = digits + " " + stamp.data();
    for (const std::string& part : {cleaned(command), cleaned(simName)}) {
        name += part.empty() ? part : " " + part;
    }
    return name;
}

std::int64_t historyNumber(std::string_view folder) {
    const std::size_t digits = digitsOf(folder);
    const bool isOne = digits >= kFewestDigits && digits <= kMostDigits &&
                       folder.substr(digits, 1) == " " && isFileName(folder);
    return isOne ? std::stoll(std::string(folder.substr(0, digits))) : 0;
}

std::string historyTime(std::string_view folder) {
    const std::size_t start = std::min(digitsOf(folder) + 1, folder.size());
    const std::string_view time = folder.substr(start, kTimeForm.size());
    const bool fits =
        std::equal(time.begin(), time.end(), kTimeForm.begin(), kTimeForm.end(),
                   [](char c, char form) { return form == 'd' ? isDigit(c) : c == form; });
    return fits ? std::string(time) : std::string();
}

std::vector<HistoryFolder> historyFolders(const Path& history) {
    std::vector<HistoryFolder> folders;
    for (FolderEntry& entry : files().list(history)) {
        const std::int64_t number = entry.isFolder ? historyNumber(entry.name) : 0;
        if (number > 0) {
            folders.push_back({number, std::move(entry.name)});
        }
    }
    std::sort(folders.begin(), folders.end(), [](const auto& left, const auto& right) {
        return left.number != right.number ? left.number > right.number : left.name > right.name;
    });
    return folders;
}

std::optional<HistoryAbout> historyAbout(const Path& entry) {
    std::optional<HistoryAbout> about;
    ignoringErrors([&] {
        const std::unique_ptr<File> file = files().open(entry.child(kAboutName), OpenMode::Input);
        const std::int64_t size = file->size();
        if (size <= kLargestAbout) {
            std::string text(static_cast<std::size_t>(size), '\0');
            text.resize(file->read(text.data(), text.size()));
            about = readAbout(text);
        }
    });
    return about;
}

// The folders above it may well be links: a person may keep "History" on another disk.
bool isRealFolder(const Path& folder) {
    const Path place = files().followLinks(folder);
    return isSameFolder(place, folder) ||
           isSameFolder(place, files().followLinks(folder.folder()).child(folder.fileName()));
}

void forEachKeptFile(const Path& entry, const std::function<void(const Path& file)>& work,
                     const std::function<void(const Path& folder)>& afterFolder) {
    walk(entry, {}, 1, work, afterFolder);
}

}  // namespace marlowick

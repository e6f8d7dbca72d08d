#include "foundation/bounded_look.h"

#include <utility>

#include "system/files.h"

namespace marlowick {
namespace {

constexpr std::chrono::seconds kLongestSearch{2};

// Files and folders that are opened.
constexpr int kMostOpened = 1000;

}  // namespace

BoundedLook::BoundedLook(const std::vector<Path>& remote, SearchClock clock)
    : places_(remote), clock_(std::move(clock)), end_(clock_() + kLongestSearch) {}

BoundedLook::BoundedLook() = default;

bool BoundedLook::mayGoOn() const {
    return opened_ < kMostOpened && (!clock_ || clock_() < end_);
}

std::optional<Path> BoundedLook::place(const Path& path) {
    if (!mayGoOn()) {
        return std::nullopt;
    }
    return places_ ? places_->place(path) : placeOf(path);
}

std::optional<Path> BoundedLook::file(const Path& path) {
    const std::optional<Path> found = place(path);
    return found && files().fileExists(*found) ? found : std::nullopt;
}

std::optional<Path> BoundedLook::folder(const Path& path) {
    const std::optional<Path> found = place(path);
    return found && files().folderExists(*found) ? found : std::nullopt;
}

std::optional<std::string> BoundedLook::read(const Path& path, std::int64_t most) {
    const std::optional<Path> found = file(path);
    if (!found) {
        return std::nullopt;
    }
    ++opened_;
    return readUntrustedFile(*found, most);
}

std::vector<std::string> BoundedLook::names(const Path& folder, std::size_t most) {
    const std::optional<Path> found = this->folder(folder);
    if (!found) {
        return {};
    }
    ++opened_;
    return namesIn(*found, most);
}

}  // namespace marlowick

#include "system/files.h"

#include <exception>

#include "system/game_text.h"
#include "system/runtime_error.h"

namespace marlowick {
namespace {

FileSystem* inUse = nullptr;

std::vector<std::string> search(const Path& folder, std::string_view mask, bool folders) {
    std::vector<std::string> names;
    for (FolderEntry& entry : files().list(folder)) {
        if ((folders || !entry.isFolder) && matchesMask(entry.name, mask)) {
            names.push_back(std::move(entry.name));
        }
    }
    return names;
}

}  // namespace

FileSystem& files() {
    return inUse != nullptr ? *inUse : nativeFileSystem();
}

FileSystem* setFileSystem(FileSystem* fileSystem) {
    FileSystem* before = inUse;
    inUse = fileSystem;
    return before;
}

std::vector<std::string> searchFiles(const Path& folder, std::string_view mask) {
    return search(folder, mask, false);
}

std::vector<std::string> searchFilesAndFolders(const Path& folder, std::string_view mask) {
    return search(folder, mask, true);
}

std::string readWholeFile(const Path& path) {
    const std::unique_ptr<File> file = files().open(path, OpenMode::Input);
    std::string content(static_cast<std::size_t>(file->size()), '\0');
    content.resize(file->read(content.data(), content.size()));
    return content;
}

std::optional<std::string> readUntrustedFile(const Path& path, std::int64_t most) {
    try {
        const std::unique_ptr<File> file = files().open(path, OpenMode::Input);
        const std::int64_t size = file->size();
        if (size > most) {
            return std::nullopt;
        }
        std::string content(static_cast<std::size_t>(size), '\0');
        content.resize(file->read(content.data(), content.size()));
        return content;
    } catch (const std::exception&) {
        return std::nullopt;
    }
}

void writeWholeFile(const Path& path, std::string_view content) {
    files().open(path, OpenMode::Output)->write(content);
}

void removeIfPresent(const Path& path) {
    if (files().fileExists(path)) {
        files().remove(path);
    }
}

void clearAndRemove(const Path& path) {
    if (files().fileExists(path)) {
        files().clearAttributes(path);
        files().remove(path);
    }
}

}  // namespace marlowick

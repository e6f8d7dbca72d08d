#include "preview/worn_files.h"

#include <algorithm>
#include <utility>

#include "far/archives.h"
#include "foundation/bytes.h"
#include "foundation/folders.h"
#include "system/files.h"
#include "system/game_text.h"
#include "system/runtime_error.h"

namespace marlowick {
namespace {

constexpr std::string_view kBitmap = ".bmp";

// Reads at most so many bytes from a position on.
std::string readPart(File& file, std::int64_t position, std::int64_t size, std::int64_t most) {
    if (position < 0 || size < 0) {
        throw RuntimeError(error::kInvalidArgument);
    }
    const std::int64_t there = std::clamp<std::int64_t>(file.size() - position, 0, size);
    if (there > most) {
        throw RuntimeError(error::kOutOfMemory);
    }
    std::string bytes(static_cast<std::size_t>(there), '\0');
    file.seek(position);
    bytes.resize(file.read(bytes.data(), bytes.size()));
    return bytes;
}

}  // namespace

const WornFiles::Listing& WornFiles::listing(const Path& folder) {
    const auto [place, isNew] = listings_.try_emplace(folder.text());
    if (isNew) {
        for (FolderEntry& entry : files().list(folder)) {
            if (!entry.isFolder) {
                std::string upper = upperCase(entry.name);
                place->second.emplace(std::move(upper), std::move(entry.name));
            }
        }
    }
    return place->second;
}

std::shared_ptr<const ArchiveDirectory> WornFiles::archive(const Path& path) {
    Directory& result = archives_[path.text()];
    if (!result.entries) {
        result.stamp = fileStamp(path);
        QuietDirectory found = lookAtArchiveDirectory(path, kept_);
        result.entries = found.isWhole ? std::move(found.directory)
                                       : std::make_shared<const ArchiveDirectory>(FarDirectory());
    }
    return result.entries;
}

bool WornFiles::fitsItsDirectory(const FilePlace& place) const {
    const auto directory = archives_.find(place.file.text());
    return place.entry == 0 ||
           (directory != archives_.end() && directory->second.stamp == fileStamp(place.file));
}

std::optional<FilePlace> WornFiles::looseFile(const Path& folder, const std::string& name) {
    const auto [begin, end] = listing(folder).equal_range(upperCase(name));
    const std::string* best = nullptr;
    for (auto found = begin; found != end; ++found) {
        // As a file is opened: the very name, or else the first of those that differ in case.
        if (found->second == name) {
            best = &found->second;
            break;
        }
        if (best == nullptr || found->second < *best) {
            best = &found->second;
        }
    }
    if (best == nullptr || !isFileName(*best)) {
        return std::nullopt;
    }
    return FilePlace{folder.child(*best), 0, *best};
}

std::optional<FilePlace> WornFiles::archived(const Path& path, const std::string& name) {
    const int number = archive(path)->firstNamed(name);
    return number == 0 ? std::nullopt : std::optional<FilePlace>({path, number, upperCase(name)});
}

std::optional<FilePlace> WornFiles::oneOf(const std::vector<std::string>& names, const Path& home,
                                          bool isArchive) {
    for (const std::string& name : names) {
        std::optional<FilePlace> found = isArchive ? archived(home, name) : looseFile(home, name);
        if (found) {
            return found;
        }
    }
    return std::nullopt;
}

const std::vector<Path>& WornFiles::modelArchives() {
    if (!modelArchives_) {
        modelArchives_ = existingArchives({ArchiveStage::Animation, ArchiveStage::FirstExpansion,
                                           ArchiveStage::Expansions, ArchiveStage::Shared},
                                          kLastModelExpansion);
    }
    return *modelArchives_;
}

const std::vector<Path>& WornFiles::skinArchives() {
    if (!skinArchives_) {
        skinArchives_ = existingArchives(
            {ArchiveStage::BaseTextures, ArchiveStage::Shared, ArchiveStage::FirstExpansion,
             ArchiveStage::Expansions, ArchiveStage::AllTextures},
            kLastSkinExpansion);
    }
    return *skinArchives_;
}

std::optional<FilePlace> WornFiles::find(const std::vector<std::string>& names,
                                         const FilePlace* near) {
    std::optional<FilePlace> found;
    if (near != nullptr) {
        const bool isArchive = near->entry != 0;
        found = oneOf(names, isArchive ? near->file : near->file.folder(), isArchive);
    }
    for (const SkinFolder folder : skinFolders()) {
        found = found ? found : oneOf(names, skinFolder(folder), false);
    }
    if (found) {
        return found;
    }
    for (const Path& path : modelArchives()) {
        if ((found = oneOf(names, path, true))) {
            return found;
        }
    }
    return std::nullopt;
}

std::optional<FilePlace> WornFiles::archivedSkin(const std::string& upperName, bool whole) {
    for (const Path& path : skinArchives()) {
        if (whole) {
            if (std::optional<FilePlace> found = archived(path, upperName + std::string(kBitmap))) {
                return found;
            }
            continue;
        }
        const std::shared_ptr<const ArchiveDirectory> directory = archive(path);
        const int number = directory->firstBeginningWith(upperName);
        if (number != 0) {
            return FilePlace{path, number, upperCase(directory->baseName(number))};
        }
    }
    return std::nullopt;
}

void WornFiles::findSkin(std::string_view name, EntryMatch match,
                         const std::function<bool(const FilePlace&)>& isIt) {
    if (name.starts_with("***")) {
        return;
    }
    for (const SkinFolder folder : skinFolders()) {
        const auto found = looseFile(skinFolder(folder), std::string(name) + std::string(kBitmap));
        if (found && isIt(*found)) {
            return;
        }
    }
    const std::string upper = upperCase(name);
    std::optional<FilePlace> found;
    if (match != EntryMatch::Beginning) {
        found = archivedSkin(upper, true);
    }
    if (!found && match != EntryMatch::Whole) {
        found = archivedSkin(upper, false);
    }
    if (found) {
        isIt(*found);
    }
}

std::string WornFiles::read(const FilePlace& place, std::int64_t most) {
    if (place.entry == 0) {
        const std::unique_ptr<File> file = files().open(place.file, OpenMode::Input);
        return readPart(*file, 0, file->size(), most);
    }
    const std::shared_ptr<const ArchiveDirectory> directory = archive(place.file);
    if (place.entry < 0 || place.entry > directory->count()) {
        throw RuntimeError(error::kSubscript);
    }
    const FarEntry& entry = directory->record().Entries[place.entry];
    const std::unique_ptr<File> file = files().open(place.file, OpenMode::Input);
    return readPart(*file, gflngLittleEndianToLong(entry.FileOffset),
                    gflngLittleEndianToLong(entry.FileSize), most);
}

}  // namespace marlowick

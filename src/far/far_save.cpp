#include "far/far_save.h"

#include <limits>
#include <utility>

#include "far/archive_proof.h"
#include "foundation/bytes.h"
#include "foundation/error_trap.h"
#include "foundation/file_state.h"
#include "foundation/folders.h"
#include "foundation/open_game.h"
#include "foundation/proof.h"
#include "system/block_copy.h"
#include "system/files.h"
#include "system/game_text.h"
#include "system/replace_file.h"
#include "system/shown_path.h"
#include "system/streams.h"

namespace marlowick {
namespace {

constexpr std::string_view kMagic = "FAR!byAZ";
constexpr std::int32_t kVersion = 1;
constexpr std::int64_t kHeadSize = 16;
constexpr std::int64_t kLargestOffset = std::numeric_limits<std::int32_t>::max();

// The file that grows: head, data, and at last the directory.
class FarWriter {
  public:
    FarWriter(File& output, const std::function<void()>& afterBlock)
        : output_(output), afterBlock_(afterBlock) {
        output_.write(std::string(kMagic) + gfstrLongToLittleEndian(kVersion) +
                      gfstrLongToLittleEndian(0));
    }

    // Copies size bytes from the position of source as the data of an entry. What follows the data
    // has an offset too, so its end must fit into a number.
    void append(FarEntry entry, File& source, std::int64_t size) {
        if (position_ + size > kLargestOffset) {
            throw RuntimeError(error::kOverflow);
        }
        if (copyBlocks(source, output_, size, afterBlock_) < size) {
            throw RuntimeError(error::kInputPastEnd);
        }
        entry.FileOffset = gfstrLongToLittleEndian(static_cast<std::int32_t>(position_));
        written_.Entries.append(std::move(entry));
        position_ += size;
    }

    // Writes the directory, and gives it.
    FarDirectory finish() {
        written_.FileCount = gfstrLongToLittleEndian(written_.Entries.bound());
        std::string manifest = written_.FileCount;
        for (int number = 1; number <= written_.Entries.bound(); ++number) {
            const FarEntry& entry = written_.Entries[number];
            manifest.append(entry.FileSize).append(entry.FileSize2).append(entry.FileOffset);
            manifest.append(entry.NameLength).append(entry.FileName);
        }
        output_.write(manifest);
        output_.seek(kManifestField);
        output_.write(gfstrLongToLittleEndian(static_cast<std::int32_t>(position_)));
        return std::move(written_);
    }

  private:
    File& output_;
    const std::function<void()>& afterBlock_;
    std::int64_t position_ = kHeadSize;
    FarDirectory written_;
};

int checkedCount(const FarDirectory& directory) {
    const int count = farEntryCount(directory);
    if (count > kMostFarRows) {
        throw RuntimeError(error::kOverflow);
    }
    return count;
}

void copyEntries(FarWriter& writer, const FarEdit& edit, const FarSaveProgress& progress,
                 int total) {
    const int count = checkedCount(edit.mudtFarDir);
    for (int number = 1; number <= count; ++number) {
        const FarEntry& entry = edit.mudtFarDir.Entries[number];
        if (!entry.Deleted) {
            File& source = streams().at(slot::kArchiveSource);
            source.seek(gflngLittleEndianToLong(entry.FileOffset));
            writer.append(entry, source, gflngLittleEndianToLong(entry.FileSize));
        }
        progress.step(number, total);
    }
}

FarEntry newEntry(const std::string& name, std::int64_t size) {
    if (size > kLargestOffset) {
        throw RuntimeError(error::kOverflow);
    }
    FarEntry entry;
    entry.FileSize = gfstrLongToLittleEndian(static_cast<std::int32_t>(size));
    entry.FileSize2 = entry.FileSize;
    entry.NameLength = gfstrLongToLittleEndian(static_cast<std::int32_t>(name.size()));
    entry.FileName = name;
    return entry;
}

void copyAddedFiles(FarWriter& writer, const FarEdit& edit, const FarSaveProgress& progress,
                    int total) {
    const int count = farEntryCount(edit.mudtFarDir);
    for (int number = 1; number <= edit.mudtAddedFiles.bound(); ++number) {
        const FarAddedFile& added = edit.mudtAddedFiles[number];
        if (!added.AddedName.empty()) {
            const std::int64_t size = files().length(added.AddedPath);
            const std::unique_ptr<File> file = files().open(added.AddedPath, OpenMode::Input);
            writer.append(newEntry(added.AddedName, size), *file, size);
        }
        progress.step(count + number, total);
    }
}

FarDirectory writeArchive(const FarEdit& edit, const Path& temporary,
                          const FarSaveProgress& progress) {
    CheckpointNumber = 3000;
    File& output = streams().open(slot::kArchiveOutput, temporary, OpenMode::Output);
    if (!edit.mstrFarFile.empty()) {
        streams().open(slot::kArchiveSource, edit.mstrFarFile, OpenMode::Input);
    }
    FarWriter writer(output, progress.block);
    const int total = farEntryCount(edit.mudtFarDir) + edit.mudtAddedFiles.bound();
    progress.step(0, total);
    CheckpointNumber = 4000;
    copyEntries(writer, edit, progress, total);
    streams().close(slot::kArchiveSource);
    CheckpointNumber = 5000;
    copyAddedFiles(writer, edit, progress, total);
    CheckpointNumber = 6000;
    FarDirectory written = writer.finish();
    streams().close(slot::kArchiveOutput);
    return written;
}

void becomeArchive(FarEdit& edit, const Path& archive, FarDirectory directory) {
    edit.mudtFarDir = std::move(directory);
    edit.mudtAddedFiles.reset();
    edit.mstrFarFile = archive;
    listEntries(edit);
}

}  // namespace

Path newArchivePath(std::string_view name) {
    const bool ends = name.size() >= 4 && equalsIgnoringCase(name.substr(name.size() - 4), ".FAR");
    return typedPath((texturesFolder() + "\\" + name + (ends ? "" : ".FAR")).text());
}

bool saveArchive(FarEdit& edit, const Path& target, HistoryCommand& history,
                 const FarSaveProgress& progress) {
    const Path temporary = tempFolder() + "\\tempfile.far";
    refuseTemplate(target);
    CheckpointNumber = 2000;
    clearAndRemove(temporary);
    FarDirectory written = writeArchive(edit, temporary, progress);
    CheckpointNumber = 7000;
    const auto look = [&](const Path& beside) {
        const std::string why = archiveDifference(edit, beside, progress.block);
        if (!why.empty()) {
            throw notProven(target, why);
        }
        return history.keepOrAsk(target, stateOfFile(beside, progress.block), changesInWords(edit),
                                 progress.block);
    };
    if (!replaceFileBy(temporary, target, ReadOnlyTarget::Replace, progress.block, look)) {
        return false;
    }
    becomeArchive(edit, target, std::move(written));
    if (progress.replaced) {
        progress.replaced();
    }
    CheckpointNumber = 8000;
    clearAndRemove(temporary);
    CheckpointNumber = 9000;
    FarDirectory readBack;
    edit.ReadingFailed = !gsReadFARdir(readBack, target);
    if (!edit.ReadingFailed) {
        becomeArchive(edit, target, std::move(readBack));
    }
    return !edit.ReadingFailed;
}

}  // namespace marlowick
